// Estimation of a study's model, with a verdict.
//
// The stochastic approximation is the engine's, number for number: with one attempt it gives what
// the setup file's run gives at the same seed. Around it stand what people need: whether the model
// can be estimated at all, restarts from the last estimates, and the best of the runs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/host_options.h"
#include "base/matrix.h"
#include "study/identification.h"
#include "study/study_selection.h"

enum class StudyVerdict {
    converged,       // every t-ratio is below 0.1 in size, and nothing of the below
    not_converged,   // the estimates are not to be used
    not_identified,  // effects depend on each other, or an estimate would be infinite
    degenerate       // a statistic never moved
};

// "converged", "not_converged", "not_identified", "degenerate".
const char* study_verdict_name(StudyVerdict verdict);

// One effect, in the order of the study's model. A number that does not exist is NaN.
struct EffectEstimate {
    std::string name;
    double estimate = 0.0;
    double standard_error = 0.0;
    double t_ratio = 0.0;  // (observed - simulated mean) / simulated standard deviation
    double observed = 0.0;
    double simulated_mean = 0.0;
    double simulated_sd = 0.0;
    bool fixed = false;
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
    EstimationMethod method = EstimationMethod::stochastic_approximation;
    std::vector<EffectEstimate> effects;
    Matrix covariance;  // p x p, of the estimates
    Matrix samples;     // statistics at the estimates, one row a sample
    std::vector<EstimationAttempt> attempts;
    DependentSet dependent;                  // when not identified
    std::vector<InfiniteEstimate> infinite;  // when an estimate would be infinite
    std::vector<int> faulty;                 // effects that did not converge, or never moved
    std::uint32_t seed = 0;
    double proposals = 0.0;
    double seconds = 0.0;
};

// What the method cannot do for this study: a parameter that is held, another method. Empty when it
// can.
Problems estimation_problems(const Study& study);

// Estimates the model. Runs that do not converge are followed by another from the last estimates,
// up to `attempts` or the time limit; a step is made twice as long when the samples'
// autocorrelation is above 0.4. The run with the smallest largest t-ratio is kept. Throws
// RunStopped when `progress` asks for the end.
StudyEstimate study_estimate(const Study& study, StudySelection& resolved, std::uint32_t seed,
                             RunProgress& progress);
