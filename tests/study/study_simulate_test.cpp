// Networks drawn from a study's model.
#include "study/study_simulate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "support/small_studies.h"

namespace {

std::vector<StudySample> drawn(const Study& study, const std::vector<double>& parameters,
                               const StudySampling& sampling, std::uint32_t seed) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    RunProgress progress;
    std::vector<StudySample> samples;
    study_simulate(study, resolved, parameters, sampling, seed, progress,
                   [&](const StudySample& sample) { samples.push_back(sample); });
    return samples;
}

double mean_of(const std::vector<StudySample>& samples, std::size_t effect) {
    double sum = 0.0;
    for (const StudySample& sample : samples) {
        sum += sample.statistics[effect];
    }
    return sum / static_cast<double>(samples.size());
}

TEST(StudySimulate, IndependentTiesHaveTheirLogOdds) {
    const double p = 1.0 / (1.0 + std::exp(1.0));
    const StudySampling sampling = {.samples = 2000, .burn_in = 5000, .interval = 500};
    const auto ties = drawn(ring_study(20, false, "edge"), {-1.0}, sampling, 1);
    ASSERT_EQ(ties.size(), 2000U);
    const double standard_error = std::sqrt(190 * p * (1 - p) / 2000);
    EXPECT_NEAR(mean_of(ties, 0), 190 * p, 6 * standard_error);
    const auto arcs = drawn(ring_study(20, true, "arc"), {-1.0}, sampling, 1);
    EXPECT_NEAR(mean_of(arcs, 0), 380 * p, 6 * standard_error * std::sqrt(2.0));
}

TEST(StudySimulate, StatisticsAreThoseOfTheTies) {
    Study study = ring_study(12, false, "2-star,edge,AT(2)");
    for (const StudySample& sample :
         drawn(study, {0.0, -0.5, 0.2}, {.samples = 20, .burn_in = 0, .interval = 0}, 7)) {
        study.network.ties = sample.ties;
        StudySelection resolved = study_selection(study);
        RunProgress progress;
        const StudySimulation again =
            study_simulate(study, resolved, {0.0, 0.0, 0.0}, {.samples = 1}, 1, progress,
                           [](const StudySample&) {});
        EXPECT_EQ(again.observed, sample.statistics);
        EXPECT_EQ(sample.statistics[1], static_cast<double>(sample.ties.size()));
    }
}

TEST(StudySimulate, ASeedRepeatsItself) {
    const Study study = ring_study(10, true, "arc,reciprocity");
    const StudySampling sampling = {.samples = 5};
    const auto first = drawn(study, {-1.0, 1.0}, sampling, 3);
    const auto again = drawn(study, {-1.0, 1.0}, sampling, 3);
    const auto other = drawn(study, {-1.0, 1.0}, sampling, 4);
    for (std::size_t k = 0; k < first.size(); ++k) {
        EXPECT_EQ(first[k].ties, again[k].ties);
    }
    EXPECT_NE(first[4].ties, other[4].ties);
}

TEST(StudySimulate, OnlyFreeDyadsChange) {
    Study study = ring_study(8, false, "edge");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 2}, {3, 4}};
    const std::set<ActorTie> free(study.dyads.free.begin(), study.dyads.free.end());
    std::set<ActorTie> seen;
    for (const StudySample& sample : drawn(study, {0.0}, {.samples = 50}, 2)) {
        std::set<ActorTie> ties(sample.ties.begin(), sample.ties.end());
        for (const ActorTie& tie : study.network.ties) {
            EXPECT_TRUE(free.count(tie) > 0 || ties.count(tie) > 0);
        }
        seen.insert(ties.begin(), ties.end());
    }
    EXPECT_EQ(seen.count({0, 2}), 1U);
    EXPECT_EQ(seen.size(), 9U);
}

TEST(StudySimulate, StopsWhenAsked) {
    const Study study = ring_study(10, false, "edge");
    StudySelection resolved = study_selection(study);
    RunProgress progress;
    EXPECT_THROW(study_simulate(study, resolved, {0.0}, {.samples = 100}, 1, progress,
                                [&](const StudySample&) { progress.stop = true; }),
                 RunStopped);
}

}  // namespace
