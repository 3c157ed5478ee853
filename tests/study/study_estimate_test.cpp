// Estimates and verdicts.
#include "study/study_estimate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <regex>
#include <sstream>

#include "run/run.h"
#include "study/study_chain.h"
#include "support/estimated.h"
#include "support/scratch_directory.h"
#include "support/small_studies.h"

namespace {

// The karate network of the examples, to be estimated as a host's runs do.
Study karate(const std::string& effects) {
    Study study = karate_study(effects);
    study.settings.estimation.method = EstimationMethod::stochastic_approximation;
    return study;
}

// The log of the example's setup file with one estimation run, at this seed.
std::string setup_log(std::uint32_t seed) {
    const std::string source = OVRI_SOURCE_DIRECTORY;
    std::string setup = file_text(source + "/examples/karate/karate.setup");
    setup = std::regex_replace(setup, std::regex("examples/karate/karate.txt"),
                               source + "/examples/karate/karate.txt");
    setup = std::regex_replace(setup, std::regex("Estimation_runs +5"), "Estimation_runs 1");
    const ScratchDirectory directory;
    HostOptions options;
    options.path_separator = '/';
    options.output_directory = directory.path().string();
    options.updates_beside_outputs = true;
    options.console = nullptr;
    options.clock_seconds = clock_from(seed);
    run_setup_file(directory.write("run.setup", setup), options);
    std::string logs;
    for (const auto& entry : std::filesystem::directory_iterator(directory.path())) {
        logs += file_text(entry.path());
    }
    return logs;
}

std::string printed(const EffectEstimate& effect) {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%f\t%.5f\t%.5f", effect.estimate,
                  effect.standard_error, effect.t_ratio);
    return text.data();
}

TEST(StudyEstimate, OneAttemptIsTheSetupFilesRunNumberForNumber) {
    Study study = karate("AT(2),edge");
    study.settings.estimation.attempts = 1;
    for (const std::uint32_t seed : {1U, 77U}) {
        const std::string logs = setup_log(seed);
        for (const EffectEstimate& effect : estimated(study, seed).effects) {
            EXPECT_NE(logs.find(printed(effect)), std::string::npos)
                << effect.name << ' ' << printed(effect);
        }
    }
}

TEST(StudyEstimate, IndependentTiesGiveTheLogOdds) {
    const StudyEstimate estimate = estimated(karate("edge"), 1);
    EXPECT_EQ(estimate.verdict, StudyVerdict::converged);
    const double d = 78.0 / 561.0;
    const double standard_error = 1.0 / std::sqrt(561.0 * d * (1.0 - d));
    ASSERT_EQ(estimate.effects.size(), 1U);
    EXPECT_EQ(estimate.effects[0].observed, 78.0);
    EXPECT_NEAR(estimate.effects[0].estimate, std::log(d / (1.0 - d)), 0.3 * standard_error);
    EXPECT_NEAR(estimate.effects[0].standard_error, standard_error, 0.1 * standard_error);
    EXPECT_EQ(estimate.samples.rows, 1000);
    EXPECT_LT(std::fabs(estimate.effects[0].t_ratio), 0.1);
}

TEST(StudyEstimate, ATieEffectBeginsWhereTheModelSaysBeItAtZero) {
    Study study = karate("edge,AT(2)");
    study.settings.estimation.attempts = 1;
    const double guessed = estimated(study, 1).effects[0].estimate;
    const double d = 78.0 / 561.0;
    study.model.effects[0].start = std::log(d / (1.0 - d));
    EXPECT_EQ(estimated(study, 1).effects[0].estimate, guessed);
    study.model.effects[0].start = 0.0;
    EXPECT_NE(estimated(study, 1).effects[0].estimate, guessed);
}

TEST(StudyEstimate, ProposalsOfEveryPhaseAreCounted) {
    Study study = karate("edge");
    study.settings.estimation.attempts = 1;
    const double d = 78.0 / 561.0;
    const double step = 30.0 * d * (1.0 - d) * 34.0 * 34.0;
    EXPECT_GT(estimated(study, 1).proposals, 1000.0 * step);
    study.settings.estimation.samples = 2000;
    EXPECT_GT(estimated(study, 1).proposals, 2000.0 * step);
}

TEST(StudyEstimate, TheBestAttemptIsKept) {
    Study study = karate("edge,AT(2),AS(2)");
    study.settings.estimation.multiplication = 1;
    study.settings.estimation.samples = 60;
    study.settings.estimation.attempts = 6;
    const StudyEstimate estimate = estimated(study, 5);
    int used = 0;
    double largest = 0.0;
    for (const EffectEstimate& effect : estimate.effects) {
        largest = std::max(largest, std::fabs(effect.t_ratio));
    }
    for (const EstimationAttempt& attempt : estimate.attempts) {
        used += attempt.used ? 1 : 0;
        EXPECT_GE(attempt.largest_t_ratio, largest);
    }
    EXPECT_EQ(used, 1);
    EXPECT_GT(estimate.attempts.size(), 1U);
    EXPECT_GT(estimate.attempts.back().multiplication, 1);
    EXPECT_EQ(estimate.verdict == StudyVerdict::converged, largest < 0.1);
}

TEST(StudyEstimate, DependentEffectsAreNotIdentified) {
    Study study = karate("edge,same(side),different(side)");
    std::vector<double> sides;
    for (int i = 0; i < 34; ++i) {
        sides.push_back(1 + i % 2);
    }
    study.attributes = {{"side", AttributeType::categorical, sides, {"", "x", "y"}}};
    const StudyEstimate estimate = estimated(study, 1);
    EXPECT_EQ(estimate.verdict, StudyVerdict::not_identified);
    EXPECT_EQ(estimate.dependent, (DependentSet{0, 1, 2}));
    EXPECT_TRUE(estimate.attempts.empty());
    EXPECT_TRUE(std::isnan(estimate.effects[0].estimate));
    EXPECT_EQ(estimate.effects[0].observed, 78.0);
}

TEST(StudyEstimate, ACountOfNothingHasNoEstimate) {
    const StudyEstimate estimate = estimated(ring_study(12, false, "edge,7-clique"), 1);
    EXPECT_EQ(estimate.verdict, StudyVerdict::not_identified);
    ASSERT_EQ(estimate.infinite.size(), 1U);
    EXPECT_EQ(estimate.infinite[0].effect, 1);
    EXPECT_EQ(estimate.infinite[0].sign, -1);
    EXPECT_EQ(estimate.proposals, 0.0);
}

TEST(StudyEstimate, AnEmptyNetworkHasNoEstimates) {
    Study study = ring_study(10, true, "arc,reciprocity");
    study.network.ties.clear();
    const StudyEstimate estimate = estimated(study, 1);
    EXPECT_EQ(estimate.verdict, StudyVerdict::not_identified);
    ASSERT_EQ(estimate.infinite.size(), 2U);
    EXPECT_EQ(estimate.infinite[0].sign, -1);
    EXPECT_EQ(estimate.infinite[1].sign, -1);
}

TEST(StudyEstimate, NetworksAllTiedHaveNoEstimatesWhateverTheModel) {
    Study study = ring_study(3, false, "AT(2)");
    const StudyEstimate tied = estimated(study, 1);
    EXPECT_EQ(tied.verdict, StudyVerdict::not_identified);
    EXPECT_EQ(tied.all_alike, 1);
    study.network.ties.clear();
    EXPECT_EQ(estimated(study, 1).all_alike, -1);
    study = ring_study(6, false, "AT(2)");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 2}, {0, 3}};
    EXPECT_EQ(estimated(study, 1).all_alike, -1);
}

TEST(StudyEstimate, WhatCannotBeEstimatedIsAProblem) {
    Study study = karate("edge,AT(2)");
    EXPECT_TRUE(estimation_problems(study).empty());
    study.model.effects[1].fixed = 0.5;
    EXPECT_EQ(estimation_problems(study).size(), 1U);
    study.settings.estimation.method = EstimationMethod::automatic;
    EXPECT_TRUE(estimation_problems(study).empty());
    study.model.effects[0].start = std::numeric_limits<double>::infinity();
    EXPECT_EQ(estimation_problems(study).size(), 1U);
    study.model.effects[0].fixed = 1.0;
    EXPECT_EQ(estimation_problems(study).size(), 2U);
    EXPECT_EQ(estimation_problems(ring_study(1, false, "edge")).size(), 1U);
}

TEST(StudyEstimate, IndependentTiesAreComputed) {
    Study study = karate("edge");
    study.settings.estimation.method = EstimationMethod::automatic;
    const StudyEstimate estimate = estimated(study, 1);
    const double d = 78.0 / 561.0;
    EXPECT_TRUE(estimate.exact);
    EXPECT_EQ(estimate.verdict, StudyVerdict::converged);
    EXPECT_NEAR(estimate.effects[0].estimate, std::log(d / (1.0 - d)), 1e-12);
    EXPECT_NEAR(estimate.effects[0].standard_error, 1.0 / std::sqrt(561.0 * d * (1.0 - d)), 1e-12);
    EXPECT_NEAR(estimate.log_likelihood, 78.0 * std::log(d) + 483.0 * std::log(1.0 - d), 1e-9);
    EXPECT_NEAR(estimate.effects[0].simulated_mean, 78.0, 1e-9);
    EXPECT_EQ(estimate.proposals, 0.0);
    EXPECT_EQ(estimate.samples.rows, 0);
}

}  // namespace
