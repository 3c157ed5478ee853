// Three-phase stochastic approximation of a model's parameters (Robbins and Monro 1951; Snijders
// 2002).
//
// Phase 1 measures the covariance of the statistics at the starting parameters; phase 2 moves the
// parameters through sub-phases of shrinking gain; phase 3 simulates at the final parameters, tests
// how far the simulated mean lies from the observation and gives standard errors.
//
// Everything found comes back as numbers. Whoever wants to follow a run, or to keep a log of it,
// passes an observer.
#pragma once

#include <vector>

#include "base/matrix.h"
#include "sampling/chain.h"

struct EstimationSettings {
    int sub_phases = 5;
    // Starting gain of phase 2, in single precision.
    float a_value = 0.1F;
    // Length of a step in units of d (1 - d) n^2 proposals, d the observed density.
    int multiplication_factor = 2;
    int phase3_steps = 500;
    int estimation_runs = 1;
};

enum class EstimationVerdict {
    unfinished,
    degenerate,     // a statistic never moved: the run ended in phase 1
    not_converged,  // a t-ratio was 0.1 or more in size
    converged
};

// The statistics after each step of phase 1 or 3, one row a step, and their means.
struct PhaseSamples {
    Matrix statistics;
    std::vector<double> means;
};

struct SubPhase {
    double gain = 0.0;
    // The parameters after each step, one row a step.
    Matrix path;
    // What the sub-phase ended at: its last row if it was the first, else the mean of its rows.
    std::vector<double> parameters;
};

// What one run found. Vectors have p entries, in model order.
struct EstimationResult {
    EstimationVerdict verdict = EstimationVerdict::unfinished;
    EstimationSettings settings;
    double proposals_per_step = 0.0;
    std::vector<double> observed;  // the target
    std::vector<double> start;
    PhaseSamples phase1;
    std::vector<SubPhase> sub_phases;
    PhaseSamples phase3;
    // The parameters as they are now; the estimates, once the run has ended.
    std::vector<double> parameters;
    // (observed - mean) / standard deviation of phase 3.
    std::vector<double> t_ratios;
    // p x p, of the estimates.
    Matrix covariance;
};

enum class EstimationEvent {
    started,
    phase1_ended,  // the last event of a degenerate model
    sub_phase_started,
    sub_phase_ended,
    phase2_ended,
    phase3_started,
    ended
};

// Told of each event with what has been found so far.
struct EstimationObserver {
    EstimationObserver() = default;
    EstimationObserver(const EstimationObserver&) = default;
    EstimationObserver& operator=(const EstimationObserver&) = default;
    virtual ~EstimationObserver() = default;
    virtual void reached(EstimationEvent, const EstimationResult&) const {}
};

// One estimation run. The chain's network holds the observed ties and, in `statistics`, the target;
// `parameters` (p values, the same that the chain reads) are updated in place. `scaling_matrix` is
// p x p and survives the run: it is never cleared, so the residue of phase 1 stands in phase 3's
// covariance and that of a run in the next one's.
template <class Network>
EstimationResult estimate(Chain<Network>& chain, const EstimationSettings& settings,
                          std::vector<double>& parameters, Matrix& scaling_matrix,
                          RunProgress& progress,
                          const EstimationObserver& observer = EstimationObserver());
