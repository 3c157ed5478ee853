// Estimation of a study's model, with a verdict.
//
// Where dyads do not depend on each other the estimate is computed, not simulated. Elsewhere chains
// simulate. The stochastic approximation is the engine's, number for number: with one attempt it
// gives what the setup file's run gives at the same seed. Around it stand what people need: whether
// the model can be estimated at all, restarts from the last estimates, and the best of the runs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/host_options.h"
#include "base/matrix.h"
#include "base/no_number.h"
#include "study/identification.h"
#include "study/parameter_path.h"
#include "study/sample_diagnosis.h"
#include "study/study_selection.h"

enum class StudyVerdict {
    converged,       // every t-ratio is below 0.1 in size, and nothing of the below
    not_converged,   // the estimates are not to be used
    not_identified,  // effects depend on each other, or an estimate would be infinite
    degenerate       // a statistic never moved
};

// "converged", "not_converged", "not_identified", "degenerate".
const char* study_verdict_name(StudyVerdict verdict);
std::optional<StudyVerdict> study_verdict_of(const std::string& name);

// One effect, in the order of the study's model. A number that does not exist is NaN.
struct EffectEstimate {
    std::string name;
    double estimate = 0.0;
    double standard_error = 0.0;
    double mc_error = 0.0;  // Monte Carlo error of the estimate; 0 where nothing was simulated
    double t_ratio = 0.0;   // (observed - simulated mean) / simulated standard deviation
    double observed = 0.0;
    double simulated_mean = 0.0;
    double simulated_sd = 0.0;
    bool fixed = false;
    // What the simulated statistics are worth in independent ones, and whether chains agree on them
    // (near 1).
    double effective_samples = kNoNumber;
    double gelman_rubin = kNoNumber;
};

// How the simulated networks came about and what they look like; 0 chains where there are none.
struct StudyDiagnosis {
    int chains = 0;
    std::int64_t burn_in = 0;   // proposals of a chain before its first sample
    std::int64_t interval = 0;  // and from one to the next
    int runs = 0;               // of the chains, the last one's samples being shown
    // Of Hotelling's test of observed against simulated means.
    double hotelling_p_value = kNoNumber;
    TieClusters clusters;
    Matrix correlation;  // of the statistics
};

// One run of the method.
struct EstimationAttempt {
    int multiplication = 0;
    double largest_t_ratio = 0.0;
    // Largest correlation of a statistic with itself one sample later.
    double autocorrelation = 0.0;
    bool used = false;  // the estimates are its
};

struct StudyEstimate {
    StudyVerdict verdict = StudyVerdict::not_converged;
    // What was done; `exact` where the maximum of the likelihood was computed.
    EstimationMethod method = EstimationMethod::stochastic_approximation;
    bool exact = false;
    std::vector<EffectEstimate> effects;
    Matrix covariance;  // p x p, of the estimates
    Matrix samples;     // statistics at the estimates, one row a sample; none where exact
    // Of each row its chain and its number within it, from 0.
    std::vector<int> sample_chain;
    std::vector<int> sample_draw;
    StudyDiagnosis diagnosis;
    // Whether stochastic approximation took over for a while.
    bool approximated = false;
    // At the estimates, with its Monte Carlo error; NaN where it was not computed.
    double log_likelihood = kNoNumber;
    double log_likelihood_error = kNoNumber;
    std::vector<EstimationAttempt> attempts;
    ParameterPath path;                      // a few hundred steps at most; none where exact
    DependentSet dependent;                  // when not identified
    std::vector<InfiniteEstimate> infinite;  // when an estimate would be infinite
    // Whether those are infinite together: none of their statistics is at its extreme, but one
    // combination of them tells ties from dyads without one.
    bool separated = false;
    // Whether they are so because no simulated network lies beyond the observation.
    bool on_hull = false;
    // Where a run of the chains drew networks of two kinds: the share of the denser one.
    double degenerate_share = 0.0;
    // -1: no dyad that may change is tied; +1: all of them are.
    int all_alike = 0;
    std::vector<int> faulty;  // effects that did not converge, or never moved
    // Whether the host has ended it: the estimates are the best so far, not to be used.
    bool interrupted = false;
    std::uint32_t seed = 0;
    double proposals = 0.0;
    double seconds = 0.0;
};

// Of the effects, in order.
std::vector<double> estimates_of(const StudyEstimate& estimate);

// "exact", "mple", "mcmle", "stochastic-approximation": what was done.
const char* estimate_method_name(const StudyEstimate& estimate);

// What cannot be estimated: numbers that are not finite, every parameter held, no dyad that may
// change; a parameter that is held where the method is stochastic approximation. Empty when it can.
Problems estimation_problems(const Study& study);

// Estimates the model by the settings' method. `automatic` computes where dyads are independent of
// each other and takes Monte Carlo maximum likelihood elsewhere.
//
// Stochastic approximation: runs that do not converge are followed by another from the last
// estimates, up to `attempts` or the time limit; a step is made twice as long when the samples'
// autocorrelation is above 0.4. The run with the smallest largest t-ratio is kept. When `progress`
// asks for the end, returns what there is as interrupted, or throws RunStopped where there are no
// estimates yet.
StudyEstimate study_estimate(const Study& study, StudySelection& resolved, std::uint32_t seed,
                             RunProgress& progress);
// The same without the log-likelihood of a model that was simulated.
StudyEstimate study_estimate_alone(const Study& study, StudySelection& resolved, std::uint32_t seed,
                                   RunProgress& progress);
