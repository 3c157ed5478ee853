// Tests of fit: summaries of samples, and a model that fits its own networks.
#include "study/study_gof.h"

#include <gtest/gtest.h>

#include <cmath>

#include "study/gof_summary.h"
#include "study/study_simulate.h"
#include "support/small_studies.h"

namespace {

StudyGof tested(const Study& study, const std::vector<double>& parameters,
                const GofSettings& settings) {
    const StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    RunProgress progress;
    return study_gof(study, resolved, parameters, settings, progress);
}

const GofStatistic& statistic(const StudyGof& gof, const std::string& name) {
    for (const GofStatistic& each : gof.statistics) {
        if (each.name == name) {
            return each;
        }
    }
    ADD_FAILURE() << name;
    return gof.statistics.front();
}

std::vector<double> all_numbers(const StudyGof& gof) {
    std::vector<double> numbers = {gof.mahalanobis, gof.mahalanobis_p_value};
    for (const GofStatistic& each : gof.statistics) {
        for (const double value : {each.mean, each.sd, each.p_value, each.q05, each.q95}) {
            numbers.push_back(std::isnan(value) ? -1.0 : value);
        }
    }
    for (const GofDistribution& distribution : gof.distributions) {
        for (const GofRow& row : distribution.rows) {
            numbers.insert(numbers.end(), {row.observed, row.mean, row.q25, row.median, row.q75});
        }
    }
    return numbers;
}

TEST(GofSummary, QuantilesCountTheZeros) {
    const std::vector<double> values = {2.0, 4.0};
    EXPECT_EQ(quantile_with_zeros(values, 3, 0.5), 0.0);
    EXPECT_EQ(quantile_with_zeros(values, 3, 0.75), 2.0);
    EXPECT_EQ(quantile_with_zeros(values, 3, 1.0), 4.0);
    EXPECT_EQ(quantile_with_zeros(values, 0, 0.5), 3.0);
    EXPECT_TRUE(std::isnan(quantile_with_zeros({}, 0, 0.5)));
}

TEST(GofSummary, ThePValueCountsTheObservedNetwork) {
    EXPECT_DOUBLE_EQ(rank_p_value(999, 0, 0), 2.0 / 1000);
    EXPECT_DOUBLE_EQ(rank_p_value(0, 95, 4), 2.0 * 5 / 100);
    EXPECT_EQ(rank_p_value(50, 49, 0), 1.0);
    EXPECT_EQ(rank_p_value(0, 0, 10), 1.0);
}

TEST(GofSummary, ARootGivesItsMatrixBack) {
    Matrix matrix = matrix_create(3, 3, 0.0);
    const double cells[3][3] = {{4.0, 2.0, 4.0}, {2.0, 5.0, 2.0}, {4.0, 2.0, 4.0}};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            matrix[i][j] = cells[i][j];
        }
    }
    const Matrix root = lower_root(matrix);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            double product = 0.0;
            for (int k = 0; k < 3; ++k) {
                product += root[i][k] * root[j][k];
            }
            EXPECT_NEAR(product, cells[i][j], 1e-12);
        }
    }
}

TEST(GofSummary, StatisticsThatFollowFromOthersDoNotMoveTheDistance) {
    // Twice the same column, and one that never moves.
    std::vector<GofMeasures> samples;
    for (int k = 0; k < 101; ++k) {
        const double value = k - 50.0;
        samples.push_back({{value, 2.0 * value + 1.0, 7.0}, {}});
    }
    const StudyGof gof = summarised_gof({"a", "b", "c"}, {}, {{100.0, 201.0, 8.0}, {}}, samples);
    EXPECT_NEAR(gof.mahalanobis, 100.0 / gof.statistics[0].sd, 1e-9);
    EXPECT_NEAR(gof.mahalanobis_p_value, 1.0 / 102, 1e-12);
    EXPECT_TRUE(std::isnan(gof.statistics[2].t_ratio));
    EXPECT_TRUE(is_misfit(gof.statistics[2]));
    EXPECT_TRUE(is_misfit(gof.statistics[0]));
}

TEST(StudyGof, IndependentTiesHaveTheirMeanAndSpread) {
    const Study study = ring_study(20, false, "edge");
    const double p = 20.0 / 190.0;
    const StudyGof gof = tested(study, {std::log(p / (1 - p))}, {.samples = 2000, .seed = 1});
    EXPECT_EQ(gof.samples, 2000);
    EXPECT_EQ(gof.effects, 1);
    const GofStatistic& edge = gof.statistics[0];
    EXPECT_EQ(edge.observed, 20.0);
    const double sd = std::sqrt(190 * p * (1 - p));
    EXPECT_NEAR(edge.mean, 20.0, 6 * sd / std::sqrt(2000.0));
    EXPECT_NEAR(edge.sd, sd, 0.1 * sd);
    EXPECT_FALSE(is_misfit(edge));
    // A ring has no actor of another degree than 2, where the model's vary.
    EXPECT_TRUE(is_misfit(statistic(gof, "degree-sd")));
    EXPECT_EQ(misfit_rows(gof.distributions[0], gof.samples).empty(), false);
    EXPECT_LT(gof.mahalanobis_p_value, 0.05);
}

TEST(StudyGof, EveryRowOfADistributionSumsToItsTotal) {
    const StudyGof gof = tested(ring_study(12, true, "arc"), {-1.5}, {.samples = 64, .seed = 3});
    for (const GofDistribution& each : gof.distributions) {
        double observed = 0.0;
        double mean = 0.0;
        for (const GofRow& row : each.rows) {
            observed += row.observed;
            mean += row.mean;
        }
        const double total = each.name.ends_with("-degree") ? 12.0
                             : each.name == "triad-census"  ? 220.0
                             : each.name == "geodesic" || each.name == "dyadwise-shared-partners"
                                 ? 132.0
                                 : observed;
        EXPECT_EQ(observed, total) << each.name;
        if (each.name != "component-size" && each.name != "edgewise-shared-partners") {
            EXPECT_NEAR(mean, total, 1e-6) << each.name;
        }
    }
}

TEST(StudyGof, AModelFitsItsOwnNetworks) {
    Study study = ring_study(30, false, "edge,AT(2)");
    const std::vector<double> parameters = {-2.6, 0.4};
    StudySelection resolved = study_selection(study);
    RunProgress progress;
    int misfits = 0;
    int statistics = 0;
    double smallest = 1.0;
    study_simulate(study, resolved, parameters, {.samples = 10, .burn_in = 50000}, 5, progress,
                   [&](const StudySample& sample) {
                       Study own = study;
                       own.network.ties = sample.ties;
                       const StudyGof gof = tested(own, parameters, {.samples = 400, .seed = 2});
                       for (const GofStatistic& each : gof.statistics) {
                           misfits += is_misfit(each) ? 1 : 0;
                           ++statistics;
                       }
                       smallest = std::min(smallest, gof.mahalanobis_p_value);
                   });
    // One in twenty by chance; statistics of a network hang together.
    EXPECT_LT(misfits, 0.15 * statistics);
    EXPECT_GT(smallest, 0.001);
}

TEST(StudyGof, ResultsDependOnTheSeedAndNotOnTheThreads) {
    const Study study = ring_study(15, true, "arc,reciprocity");
    const std::vector<double> parameters = {-1.5, 1.0};
    const auto one =
        all_numbers(tested(study, parameters, {.samples = 50, .threads = 1, .seed = 7}));
    const auto four =
        all_numbers(tested(study, parameters, {.samples = 50, .threads = 4, .seed = 7}));
    const auto other =
        all_numbers(tested(study, parameters, {.samples = 50, .threads = 4, .seed = 8}));
    EXPECT_EQ(one, four);
    EXPECT_NE(one, other);
}

TEST(StudyGof, ParametersDrawnAroundTheEstimatesSpreadTheSamples) {
    const Study study = ring_study(20, false, "edge");
    const std::vector<double> parameters = {-2.0};
    GofSettings settings = {.samples = 400, .seed = 3};
    const StudyGof fixed = tested(study, parameters, settings);
    settings.covariance = matrix_create(1, 1, 0.25);
    const StudyGof drawn = tested(study, parameters, settings);
    // Variance of the mean over the parameter beside that of the ties: about 190 p q (1 + 190 p q
    // 0.25).
    EXPECT_GT(drawn.statistics[0].sd, 1.5 * fixed.statistics[0].sd);
    EXPECT_LT(drawn.statistics[0].sd, 4.0 * fixed.statistics[0].sd);
}

TEST(StudyGof, StopsWhenAsked) {
    const Study study = ring_study(15, false, "edge");
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    progress.stop = true;
    EXPECT_THROW(study_gof(study, resolved, {-1.0}, {.samples = 10}, progress), RunStopped);
}

}  // namespace
