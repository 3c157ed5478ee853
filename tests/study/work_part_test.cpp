// Runs divided among parts: which pieces, which random numbers, and what is put together again.
#include "study/work_part.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "study/study_bootstrap.h"
#include "study/study_gof.h"
#include "study/study_simulate.h"
#include "support/small_studies.h"

namespace {

TEST(WorkPart, PartsFollowEachOtherAndDifferByOnePiece) {
    for (const int pieces : {1, 7, 100, 2000000000}) {
        for (const int parts : {1, 3, 7, 1000}) {
            int next = 0;
            for (int number = 1; number <= parts; ++number) {
                const WorkPart part = work_part(pieces, parts, number);
                EXPECT_EQ(part.number, number);
                EXPECT_EQ(part.first, next);
                EXPECT_GE(part.count, pieces / parts);
                EXPECT_LE(part.count, pieces / parts + 1);
                next += part.count;
            }
            EXPECT_EQ(next, pieces);
        }
    }
}

// -- Simulation

std::vector<StudySample> drawn_part(const Study& study, const std::vector<double>& parameters,
                                    const StudySampling& sampling, const WorkPart& part) {
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    std::vector<StudySample> samples;
    const StudySimulation simulation =
        study_simulate_part(study, resolved, parameters, sampling, 1, part, progress,
                            [&](const StudySample& sample) { samples.push_back(sample); });
    EXPECT_EQ(simulation.samples, part.count);
    EXPECT_EQ(simulation.proposals,
              static_cast<double>(simulation.burn_in + simulation.interval * part.count));
    return samples;
}

TEST(SimulatedPart, IndependentTiesHaveTheirLogOdds) {
    const double p = 1.0 / (1.0 + std::exp(1.0));
    const StudySampling sampling = {.samples = 4000, .burn_in = 5000, .interval = 500};
    for (const bool directed : {false, true}) {
        const int dyads = directed ? 380 : 190;
        double sum = 0.0;
        for (int number = 1; number <= 2; ++number) {
            for (const StudySample& sample :
                 drawn_part(ring_study(20, directed, directed ? "arc" : "edge"), {-1.0}, sampling,
                            work_part(2000, 2, number))) {
                sum += static_cast<double>(sample.ties.size());
            }
        }
        EXPECT_NEAR(sum / 2000.0, dyads * p, 6.0 * std::sqrt(dyads * p * (1 - p) / 2000));
    }
}

TEST(SimulatedPart, IsAStretchOfTheWholeWithItsOwnNumbers) {
    Study study = ring_study(12, false, "2-star,edge,AT(2)");
    const StudySampling sampling = {.samples = 10};
    const auto second = drawn_part(study, {0.0, -0.5, 0.2}, sampling, work_part(10, 3, 2));
    ASSERT_EQ(second.size(), 3U);
    EXPECT_EQ(second[0].number, 3);
    EXPECT_EQ(second[2].number, 5);
    // Statistics are counted anew: those of the ties, to the last bit.
    for (const StudySample& sample : second) {
        study.network.ties = sample.ties;
        const StudySelection resolved = study_selection(study);
        RunProgress progress;
        EXPECT_EQ(study_simulate(study, resolved, {0.0, 0.0, 0.0}, {.samples = 1}, 1, progress,
                                 [](const StudySample&) {})
                      .observed,
                  sample.statistics);
    }
    const auto third = drawn_part(ring_study(12, false, "2-star,edge,AT(2)"), {0.0, -0.5, 0.2},
                                  sampling, work_part(10, 3, 3));
    EXPECT_NE(second[0].ties, third[0].ties);
}

TEST(SimulatedPart, OnlyFreeDyadsChangeAndItStopsWhenAsked) {
    Study study = ring_study(8, false, "edge");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 2}, {3, 4}};
    std::set<ActorTie> seen;
    for (const StudySample& sample :
         drawn_part(study, {0.0}, {.samples = 50}, work_part(50, 1, 1))) {
        seen.insert(sample.ties.begin(), sample.ties.end());
    }
    EXPECT_EQ(seen.count({0, 2}), 1U);
    EXPECT_EQ(seen.size(), 9U);
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    EXPECT_THROW(
        study_simulate_part(study, resolved, {0.0}, {.samples = 100}, 1, work_part(100, 1, 1),
                            progress, [&](const StudySample&) { progress.stop = true; }),
        RunStopped);
}

// -- Bootstrap

TEST(BootstrapParts, TogetherAreTheWhole) {
    Study study = karate_study("edge,AT(2)");
    study.settings.run.threads = 2;
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    StudySelection own = resolved;
    const StudyEstimate estimate = study_estimate_alone(study, own, 1, progress);
    const StudyBootstrap whole = study_bootstrap(study, resolved, estimate, 5, progress);
    std::vector<BootstrapReplicate> all;
    for (int number = 1; number <= 3; ++number) {
        for (BootstrapReplicate& each :
             bootstrap_replicates(study, resolved, estimate, work_part(5, 3, number), progress)) {
            all.push_back(std::move(each));
        }
    }
    const StudyBootstrap merged = bootstrap_summary(estimate, all);
    EXPECT_EQ(merged.estimates.cells, whole.estimates.cells);
    EXPECT_EQ(merged.verdicts, whole.verdicts);
    EXPECT_EQ(merged.proposals, whole.proposals);
    EXPECT_EQ(merged.effects[1].coverage, whole.effects[1].coverage);
    EXPECT_EQ(merged.effects[1].upper, whole.effects[1].upper);
}

// -- Goodness of fit

class GofParts : public ::testing::Test {
  protected:
    GofParts() : study_(ring_study(15, false, "edge,AT(2)")), resolved_(study_selection(study_)) {
        settings_.samples = 1200;
        settings_.threads = 2;
    }
    // The samples of a divided test.
    std::vector<GofMeasures> drawn(int parts) {
        const GofInterval found =
            gof_interval(study_, resolved_, parameters_, settings_, progress_);
        EXPECT_GT(found.interval, 0);
        GofSettings settings = settings_;
        settings.interval = found.interval;
        std::vector<GofMeasures> all;
        for (int number = 1; number <= parts; ++number) {
            const WorkPart part = work_part(settings.samples, parts, number);
            GofDraws draws = gof_draws(study_, resolved_, parameters_, settings, part, progress_);
            EXPECT_EQ(draws.samples.size(), static_cast<std::size_t>(part.count));
            EXPECT_GT(draws.proposals, 0.0);
            all.insert(all.end(), draws.samples.begin(), draws.samples.end());
        }
        return all;
    }
    double mean_ties(const std::vector<GofMeasures>& samples) const {
        return gof_comparison(study_, resolved_, samples).statistics[0].mean;
    }
    Study study_;
    StudySelection resolved_;
    std::vector<double> parameters_ = {-1.5, 0.1};
    GofSettings settings_;
    RunProgress progress_;
};

TEST_F(GofParts, DrawFromTheSameDistributionAsTheWhole) {
    const StudyGof whole = study_gof(study_, resolved_, parameters_, settings_, progress_);
    const std::vector<GofMeasures> samples = drawn(3);
    const StudyGof merged = gof_comparison(study_, resolved_, samples);
    EXPECT_EQ(merged.samples, 1200);
    EXPECT_EQ(merged.effects, whole.effects);
    EXPECT_EQ(merged.statistics[0].observed, whole.statistics[0].observed);
    EXPECT_NE(merged.statistics[0].mean, whole.statistics[0].mean);
    const double error = whole.statistics[0].sd / std::sqrt(1200.0);
    EXPECT_NEAR(merged.statistics[0].mean, whole.statistics[0].mean, 8.0 * error);
    EXPECT_EQ(gof_interval(study_, resolved_, parameters_, settings_, progress_).interval,
              whole.interval);
}

TEST_F(GofParts, DependOnNeitherThreadsNorEachOther) {
    const std::vector<GofMeasures> two = drawn(3);
    settings_.threads = 1;
    const std::vector<GofMeasures> one = drawn(3);
    for (std::size_t k = 0; k < one.size(); ++k) {
        EXPECT_EQ(one[k].distributions, two[k].distributions);
    }
    EXPECT_NE(one[0].statistics[0] + one[1].statistics[0] + one[2].statistics[0],
              one[400].statistics[0] + one[401].statistics[0] + one[402].statistics[0]);
}

TEST_F(GofParts, DrawParametersOfTheirOwnWhereThereIsACovariance) {
    settings_.samples = 300;
    const double fixed = gof_comparison(study_, resolved_, drawn(2)).statistics[0].sd;
    settings_.covariance = matrix_create(2, 2, 0.0);
    settings_.covariance[0][0] = 1.0;
    const std::vector<GofMeasures> around = drawn(2);
    EXPECT_GT(gof_comparison(study_, resolved_, around).statistics[0].sd, 1.3 * fixed);
    settings_.threads = 1;
    EXPECT_EQ(mean_ties(drawn(2)), mean_ties(around));
}

}  // namespace
