// Three-phase stochastic approximation of a model's parameters (Robbins and Monro 1951; Snijders
// 2002).
//
// Phase 1 measures the covariance of the statistics at the starting parameters; phase 2 moves the
// parameters through sub-phases of shrinking gain; phase 3 simulates at the final parameters, tests
// how far the simulated mean lies from the observation and gives standard errors.
#pragma once

#include "base/matrix.h"
#include "report/run_setting.h"
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

// One estimation run. The chain's network holds the observed ties and, in `statistics`, the target;
// `parameters` (p values, the same that the chain reads) are updated in place. `scaling_matrix` is
// p x p and survives the run: it is never cleared, so the residue of phase 1 stands in phase 3's
// covariance and that of a run in the next one's. Writes the estimation log and the covariance
// file. Returns 1 when every t-ratio was below 0.1 in size, else 0; 0 also for a degenerate model
// (a statistic that never moved), which ends the run in phase 1.
template <class Network>
int estimate(Chain<Network>& chain, const RunSetting& setting, const EstimationSettings& settings,
             std::vector<double>& parameters, Matrix& scaling_matrix);
