// How estimates scatter over networks of their own model.
#include "study/study_bootstrap.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/small_studies.h"

namespace {

StudyBootstrap bootstrap_of(Study study, int replicates, int threads, std::uint32_t seed = 1) {
    study.settings.run.threads = threads;
    RunProgress progress;
    StudySelection resolved = study_selection(study);
    const StudyEstimate estimate = study_estimate_alone(study, resolved, seed, progress);
    EXPECT_EQ(estimate.verdict, StudyVerdict::converged);
    return study_bootstrap(study, resolved, estimate, replicates, progress);
}

TEST(StudyBootstrap, OfTiesAloneScattersByTheStandardError) {
    const StudyBootstrap found = bootstrap_of(karate_study("edge"), 400, 2);
    const double d = 78.0 / 561.0;
    const double estimate = std::log(d / (1.0 - d));
    const double error = 1.0 / std::sqrt(561.0 * d * (1.0 - d));
    ASSERT_EQ(found.effects.size(), 1U);
    const BootstrapEffect& edge = found.effects[0];
    EXPECT_EQ(replicates_with(found, StudyVerdict::converged), 400);
    EXPECT_NEAR(edge.mean, estimate, 4.0 * error / 20.0);
    EXPECT_NEAR(edge.standard_error, error, 0.15 * error);
    EXPECT_NEAR(edge.lower, estimate - 1.96 * error, 0.5 * error);
    EXPECT_NEAR(edge.upper, estimate + 1.96 * error, 0.5 * error);
    EXPECT_NEAR(edge.coverage, 0.95, 0.04);
}

TEST(StudyBootstrap, DoesNotDependOnThreads) {
    const Study study = karate_study("edge,AT(2)");
    const StudyBootstrap one = bootstrap_of(study, 5, 1);
    const StudyBootstrap more = bootstrap_of(study, 5, 3);
    EXPECT_EQ(one.estimates.cells, more.estimates.cells);
    EXPECT_EQ(one.verdicts, more.verdicts);
    EXPECT_EQ(one.proposals, more.proposals);
    // A replicate is the same among few and among many.
    const StudyBootstrap fewer = bootstrap_of(study, 3, 2);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(one.estimates[row][1], fewer.estimates[row][1]);
    }
    EXPECT_NE(one.estimates[0][1], one.estimates[1][1]);
    EXPECT_NE(one.estimates[0][1], bootstrap_of(study, 3, 2, 2).estimates[0][1]);
}

TEST(StudyBootstrap, CountsNetworksThatHaveNoEstimate) {
    Study study;
    study.network.actors = {"a", "b", "c", "d"};
    study.network.ties = {{0, 1}};
    add_effects_of("edge", study.model);
    const StudyBootstrap found = bootstrap_of(study, 100, 2);
    const int converged = replicates_with(found, StudyVerdict::converged);
    const int without = replicates_with(found, StudyVerdict::not_identified);
    EXPECT_EQ(converged + without, 100);
    // Six dyads tied with probability 1/6 are all empty in one network of three.
    EXPECT_NEAR(without, 33, 16);
    for (int row = 0; row < 100; ++row) {
        EXPECT_EQ(std::isnan(found.estimates[row][0]),
                  found.verdicts[static_cast<std::size_t>(row)] != StudyVerdict::converged);
    }
    EXPECT_FALSE(std::isnan(found.effects[0].mean));
}

TEST(StudyBootstrap, LeavesHeldEffectsAndOtherDyadsAlone) {
    Study study = ring_study(8, false, "edge,2-star");
    study.model.effects[1].fixed = 0.0;
    study.dyads.restricted = true;
    for (int j = 2; j < 8; ++j) {
        study.dyads.free.push_back({1, j});
    }
    const StudyBootstrap found = bootstrap_of(study, 20, 1);
    EXPECT_TRUE(std::isnan(found.effects[1].mean));
    EXPECT_GT(replicates_with(found, StudyVerdict::converged), 0);
}

TEST(StudyBootstrap, EndsWhenItIsToldTo) {
    const Study study = karate_study("edge");
    RunProgress progress;
    StudySelection resolved = study_selection(study);
    const StudyEstimate estimate = study_estimate_alone(study, resolved, 1, progress);
    progress.stop = true;
    EXPECT_THROW(study_bootstrap(study, resolved, estimate, 50, progress), RunStopped);
}

}  // namespace
