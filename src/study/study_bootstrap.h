// The parametric bootstrap: how estimates scatter over networks drawn from the model at them (Efron
// and Tibshirani 1993, An Introduction to the Bootstrap).
//
// A replicate draws a network by a chain of its own, from the observed one at the estimates, and
// estimates the model anew from there, with a Monte Carlo error of a tenth of a standard error:
// that widens the scatter by half in a hundred. Its random numbers come from the seed and its
// number alone, so that threads only carry replicates out.
#pragma once

#include <string>
#include <vector>

#include "base/host_options.h"
#include "base/matrix.h"
#include "study/study_estimate.h"
#include "study/work_part.h"

constexpr int kMostReplicates = 1000000;

// One network drawn, and what was estimated of it, by effect.
struct BootstrapReplicate {
    StudyVerdict verdict = StudyVerdict::not_converged;
    std::vector<double> estimates;
    std::vector<double> standard_errors;
    double proposals = 0.0;
};

// Of one effect over the replicates that converged; NaN for a held effect, or without any.
struct BootstrapEffect {
    std::string name;
    double mean = 0.0;
    double standard_error = 0.0;  // standard deviation
    double lower = 0.0;           // the 2.5 and the 97.5 percentile
    double upper = 0.0;
    // Share of the replicates whose own 95% interval, estimate and standard error, holds the value
    // that their network was drawn with.
    double coverage = 0.0;
};

struct StudyBootstrap {
    std::vector<StudyVerdict> verdicts;  // one a replicate
    Matrix estimates;                    // replicates x effects; NaN where it did not converge
    std::vector<BootstrapEffect> effects;
    double proposals = 0.0;
    double seconds = 0.0;
};

// How many replicates came to this verdict.
int replicates_with(const StudyBootstrap& bootstrap, StudyVerdict verdict);

// So many replicates at estimates that converged, on as many threads as the settings say. Throws
// RunStopped when `progress` asks for the end; its work done counts replicates.
StudyBootstrap study_bootstrap(const Study& study, const StudySelection& resolved,
                               const StudyEstimate& estimate, int replicates,
                               RunProgress& progress);

// The same in two steps, for replicates that are drawn in parts: those of one part, and what all
// of them in their order say; the seconds are left to the caller.
std::vector<BootstrapReplicate> bootstrap_replicates(const Study& study,
                                                     const StudySelection& resolved,
                                                     const StudyEstimate& estimate,
                                                     const WorkPart& part, RunProgress& progress);
StudyBootstrap bootstrap_summary(const StudyEstimate& estimate,
                                 const std::vector<BootstrapReplicate>& all);
