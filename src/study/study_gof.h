// Goodness of fit for people: the observed network beside networks of the model (Hunter, Goodreau
// and Handcock 2008).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/host_options.h"
#include "base/matrix.h"
#include "study/gof_measures.h"
#include "study/study_selection.h"
#include "study/work_part.h"

// A number that does not exist is NaN.
struct GofStatistic {
    std::string name;
    double observed = 0.0;
    double mean = 0.0;  // of the samples, as all that follows
    double sd = 0.0;
    double t_ratio = 0.0;  // (observed - mean) / sd
    // Two-sided rank of the observed value among the samples, itself counted as one of them.
    double p_value = 0.0;
    double q05 = 0.0;
    double median = 0.0;
    double q95 = 0.0;
};

// One entry of a distribution: how many actors, ties, pairs or triads stand there.
struct GofRow {
    std::string at;
    std::optional<int> number = {};  // `at`, where it is a number
    double observed = 0.0;
    double mean = 0.0;
    double q05 = 0.0;
    double q25 = 0.0;
    double median = 0.0;
    double q75 = 0.0;
    double q95 = 0.0;
    double p_value = 0.0;  // as of a statistic
};

struct GofDistribution {
    std::string name;
    std::vector<GofRow> rows;
    // Its entries say something one by one; the exact sizes of components do not.
    bool judged = true;
};

struct StudyGof {
    int samples = 0;
    int effects = 0;  // statistics that are the model's own; they come first
    std::vector<GofStatistic> statistics;
    std::vector<GofDistribution> distributions;
    // Distance of the observed statistics from the samples' mean, by the samples' covariance; and
    // the share of samples that lie as far from the mean of the others.
    double mahalanobis = 0.0;
    double mahalanobis_p_value = 0.0;
    std::uint32_t seed = 0;
    std::int64_t interval = 0;  // proposals from one sample of a chain to the next
    double proposals = 0.0;
};

struct GofSettings {
    int samples = 1000;
    std::int64_t burn_in = 0;  // proposals before a chain's first sample; 0 leaves it open
    // Proposals from one sample of a chain to the next; 0 has it found, so that samples are nearly
    // independent.
    std::int64_t interval = 0;
    int threads = 0;  // 0: as many as the machine has
    std::uint32_t seed = 1;
    // Of the estimates; each sample then has parameters of its own, drawn from a normal
    // distribution around them. An empty one leaves them where they are.
    Matrix covariance = {};
};

// Draws networks at `parameters` (one an effect, in the study's order) by chains of tie/no-tie
// proposals and compares. Results depend on the seed, never on the number of threads. Throws
// RunStopped when `progress` asks for the end.
StudyGof study_gof(const Study& study, const StudySelection& resolved,
                   const std::vector<double>& parameters, const GofSettings& settings,
                   RunProgress& progress);

// The same in three steps, for samples that are drawn in parts. The interval that the settings ask
// for or leave to be found:
struct GofInterval {
    std::int64_t interval = 0;
    double proposals = 0.0;  // made to find it
};
GofInterval gof_interval(const Study& study, const StudySelection& resolved,
                         const std::vector<double>& parameters, const GofSettings& settings,
                         RunProgress& progress);
// what one part draws at an interval that is known, by chains of its own:
struct GofDraws {
    std::vector<GofMeasures> samples;
    double proposals = 0.0;
};
GofDraws gof_draws(const Study& study, const StudySelection& resolved,
                   const std::vector<double>& parameters, const GofSettings& settings,
                   const WorkPart& part, RunProgress& progress);
// and the comparison with all samples in their order; seed, interval and proposals are left to the
// caller.
StudyGof gof_comparison(const Study& study, const StudySelection& resolved,
                        const std::vector<GofMeasures>& samples);

// What does not fit: the statistic is more than two standard deviations off, or differs from
// samples that are all the same.
bool is_misfit(const GofStatistic& statistic);

// Rows of a distribution that do not fit, by their numbers: with a p-value below 0.05 over the
// number of rows or, where that takes more samples than there are, beyond every sample.
std::vector<std::size_t> misfit_rows(const GofDistribution& distribution, int samples);
