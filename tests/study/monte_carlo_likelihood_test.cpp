// Monte Carlo maximum likelihood against full enumeration, long runs and models without estimates.
#include "study/monte_carlo_likelihood.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

#include "study/positive_matrix.h"
#include "study/start_points.h"
#include "study/study_chain.h"
#include "support/estimated.h"
#include "support/small_studies.h"

namespace {

// Six actors with nine ties; every network of six can be counted.
Study six(const std::string& effects) {
    Study study = ring_study(6, false, effects);
    study.network.ties = {{0, 1}, {0, 2}, {1, 2}, {1, 3}, {2, 3}, {2, 5}, {3, 4}};
    return study;
}

// The statistics of every network, one row each.
Matrix all_statistics(Study study) {
    const int n = static_cast<int>(study.network.actors.size());
    std::vector<ActorTie> dyads;
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j) {
            dyads.push_back({i, j});
        }
    }
    study.network.ties.clear();
    const StudySelection resolved = study_selection(study);
    StudyChain<Graph> run(study, resolved, study_parameters(study, resolved), 1);
    Graph& network = run.network();
    Matrix all = matrix_create(1 << dyads.size(), run.size(), 0.0);
    for (int set = 0; set < all.rows; ++set) {
        // From each network to the next only the dyads of the lowest bits change.
        for (std::size_t k = 0; k < dyads.size(); ++k) {
            const bool tied = (set >> k & 1) != 0;
            const auto [i, j] = dyads[k];
            if (tied != has_tie(network, i, j)) {
                if (tied) {
                    add_bit(network, i, j);
                } else {
                    remove_bit(network, i, j);
                }
                update_tables(network, i, j, tied ? 1 : 0);
            }
        }
        count_anew(network, run.model());
        const std::vector<double> row = run.by_effect(network.statistics.data());
        std::copy(row.begin(), row.end(), all[set]);
    }
    return all;
}

// Maximum and standard errors by Newton's method over all networks.
struct Exact {
    std::vector<double> parameters;
    std::vector<double> standard_errors;
};

Exact exact_of(const Matrix& all, const std::vector<double>& observed) {
    const int p = all.columns;
    Exact found{std::vector<double>(observed.size(), 0.0), {}};
    for (int step = 0; step < 50; ++step) {
        std::vector<double> mean(observed.size(), 0.0);
        Matrix products = matrix_create(p, p, 0.0);
        double total = 0.0;
        for (int row = 0; row < all.rows; ++row) {
            double score = 0.0;
            for (int k = 0; k < p; ++k) {
                score += found.parameters[static_cast<std::size_t>(k)] *
                         (all[row][k] - observed[static_cast<std::size_t>(k)]);
            }
            const double weight = std::exp(score);
            total += weight;
            for (int i = 0; i < p; ++i) {
                mean[static_cast<std::size_t>(i)] += weight * all[row][i];
                for (int j = 0; j < p; ++j) {
                    products[i][j] += weight * all[row][i] * all[row][j];
                }
            }
        }
        std::vector<double> gradient = observed;
        for (int i = 0; i < p; ++i) {
            mean[static_cast<std::size_t>(i)] /= total;
            gradient[static_cast<std::size_t>(i)] -= mean[static_cast<std::size_t>(i)];
        }
        for (int i = 0; i < p; ++i) {
            for (int j = 0; j < p; ++j) {
                products[i][j] = products[i][j] / total - mean[static_cast<std::size_t>(i)] *
                                                              mean[static_cast<std::size_t>(j)];
            }
        }
        const Matrix lower = *cholesky(products);
        const std::vector<double> move = cholesky_solve(lower, gradient);
        found.standard_errors.clear();
        for (int k = 0; k < p; ++k) {
            found.parameters[static_cast<std::size_t>(k)] += move[static_cast<std::size_t>(k)];
            found.standard_errors.push_back(std::sqrt(cholesky_inverse(lower)[k][k]));
        }
    }
    return found;
}

TEST(MonteCarloLikelihood, SmallNetworksAgainstEnumeration) {
    const Study study = six("edge,AT(2)");
    const Matrix all = all_statistics(study);
    for (const std::uint32_t seed : {1U, 2U, 3U}) {
        const StudyEstimate found = estimated(study, seed);
        ASSERT_EQ(found.verdict, StudyVerdict::converged);
        EXPECT_EQ(found.method, EstimationMethod::mcmle);
        std::vector<double> observed;
        for (const EffectEstimate& effect : found.effects) {
            observed.push_back(effect.observed);
        }
        const Exact exact = exact_of(all, observed);
        for (std::size_t k = 0; k < observed.size(); ++k) {
            const EffectEstimate& effect = found.effects[k];
            EXPECT_NEAR(effect.estimate, exact.parameters[k], 4.5 * effect.mc_error);
            EXPECT_LT(effect.mc_error, 0.0201 * effect.standard_error);
            EXPECT_GT(effect.mc_error, 0.002 * effect.standard_error);
            EXPECT_NEAR(effect.standard_error / exact.standard_errors[k], 1.0, 0.1);
            EXPECT_LT(std::fabs(effect.t_ratio), 0.1);
        }
    }
}

TEST(MonteCarloLikelihood, KarateAgainstLongRuns) {
    const StudyEstimate found = estimated(karate_study("edge,AT(2)"), 1);
    ASSERT_EQ(found.verdict, StudyVerdict::converged);
    EXPECT_NEAR(found.effects[0].estimate, -3.0155, 0.1 * 0.252);
    EXPECT_NEAR(found.effects[1].estimate, 0.6813, 0.1 * 0.131);
    EXPECT_NEAR(found.effects[0].standard_error / 0.252, 1.0, 0.1);
    EXPECT_NEAR(found.effects[1].standard_error / 0.131, 1.0, 0.1);
    EXPECT_EQ(found.samples.rows, static_cast<int>(found.sample_chain.size()));
    EXPECT_EQ(found.sample_chain.back(), 7);
    EXPECT_EQ(found.diagnosis.chains, 8);
    EXPECT_GT(found.effects[0].effective_samples, 100.0);
    EXPECT_NEAR(found.effects[0].gelman_rubin, 1.0, 0.05);
    EXPECT_GT(found.diagnosis.hotelling_p_value, 0.01);
    EXPECT_FALSE(found.diagnosis.clusters.apart);
    ASSERT_EQ(found.path.size(), 1U);
    EXPECT_EQ(found.path[0].name, "newton");
    EXPECT_EQ(path_steps(found.path), found.diagnosis.runs);
    EXPECT_NEAR(found.path[0].parameters.back()[1], found.effects[1].estimate, 0.1 * 0.131);
}

TEST(MonteCarloLikelihood, ThreadsDoNotChangeNumbers) {
    Study study = karate_study("edge,AS(2)");
    study.settings.estimation.precision = 0.1;
    study.settings.run.threads = 1;
    const StudyEstimate one = estimated(study, 5);
    study.settings.run.threads = 3;
    const StudyEstimate three = estimated(study, 5);
    EXPECT_EQ(one.verdict, StudyVerdict::converged);
    EXPECT_EQ(one.effects[1].estimate, three.effects[1].estimate);
    EXPECT_EQ(one.samples.cells, three.samples.cells);
    EXPECT_NE(one.effects[1].estimate, estimated(study, 6).effects[1].estimate);
}

TEST(MonteCarloLikelihood, LessPrecisionIsLessWork) {
    Study study = karate_study("edge,AT(2)");
    study.settings.estimation.precision = 0.1;
    const StudyEstimate quick = estimated(study, 1);
    study.settings.estimation.precision = 0.02;
    const StudyEstimate precise = estimated(study, 1);
    // Not the proposals in all: those of the log-likelihood have an aim of their own.
    EXPECT_LT(2 * quick.samples.rows, precise.samples.rows);
    EXPECT_LT(precise.effects[0].mc_error, quick.effects[0].mc_error);
}

TEST(MonteCarloLikelihood, PrecisionFollowsTheNumberOfActors) {
    EXPECT_EQ(wanted_precision(ring_study(100, false, "edge")), 0.02);
    Study study = ring_study(101, false, "edge");
    EXPECT_EQ(wanted_precision(study), 0.05);
    study.settings.estimation.precision = 0.3;
    EXPECT_EQ(wanted_precision(study), 0.3);
}

TEST(MonteCarloLikelihood, HeldParametersStayAndStartsAreTaken) {
    Study study = karate_study("edge,AT(2)");
    study.settings.estimation.precision = 0.05;
    study.model.effects[1].fixed = 0.6813;
    study.model.effects[0].start = -2.0;
    const StudyEstimate found = estimated(study, 3);
    ASSERT_EQ(found.verdict, StudyVerdict::converged);
    EXPECT_EQ(found.effects[1].estimate, 0.6813);
    EXPECT_TRUE(found.effects[1].fixed);
    EXPECT_TRUE(std::isnan(found.effects[1].standard_error));
    // Where the held value is the estimate, so is the other; its error is smaller alone.
    EXPECT_NEAR(found.effects[0].estimate, -3.0155, 0.05);
    EXPECT_LT(found.effects[0].standard_error, 0.24);
}

TEST(MonteCarloLikelihood, IndependentTiesBySimulation) {
    Study study = karate_study("edge");
    study.settings.estimation.method = EstimationMethod::mcmle;
    const StudyEstimate found = estimated(study, 1);
    ASSERT_EQ(found.verdict, StudyVerdict::converged);
    EXPECT_FALSE(found.exact);
    EXPECT_NEAR(found.effects[0].estimate, std::log(78.0 / 483.0), 4.5 * found.effects[0].mc_error);
}

TEST(MonteCarloLikelihood, ASearchThatTheHostEndsKeepsItsBestPoint) {
    Study study = karate_study("edge,AS(2)");
    study.settings.estimation.precision = 1e-4;
    StudySelection resolved = study_selection(study);
    RunProgress progress;
    std::atomic<bool> ended{false};
    std::thread host([&] {
        while (progress.step < 2 && !ended) {
            std::this_thread::yield();
        }
        progress.stop = true;
    });
    const StudyEstimate found = study_estimate(study, resolved, 1, progress);
    ended = true;
    host.join();
    EXPECT_TRUE(found.interrupted);
    EXPECT_EQ(found.verdict, StudyVerdict::not_converged);
    EXPECT_TRUE(std::isnan(found.log_likelihood));
    EXPECT_GT(found.samples.rows, 0);
    for (const EffectEstimate& effect : found.effects) {
        EXPECT_TRUE(std::isfinite(effect.estimate));
        EXPECT_GT(effect.standard_error, 0.0);
    }
    EXPECT_EQ(progress.part, 2);
}

TEST(MonteCarloLikelihood, ASearchThatIsEndedBeforeItsChainsRanKeepsItsStart) {
    const Study study = karate_study("edge,AS(2)");
    StudySelection resolved = study_selection(study);
    RunProgress progress;
    progress.stop = true;
    const StudyEstimate found = study_estimate(study, resolved, 1, progress);
    EXPECT_TRUE(found.interrupted);
    const std::vector<double> start = pseudo_start(study, resolved);
    for (std::size_t k = 0; k < start.size(); ++k) {
        EXPECT_EQ(found.effects[k].estimate, start[k]);
        EXPECT_TRUE(std::isnan(found.effects[k].standard_error));
    }
}

TEST(MonteCarloLikelihood, EndsInItsThirdPart) {
    const Study study = karate_study("edge,AS(2)");
    StudySelection resolved = study_selection(study);
    RunProgress progress;
    ASSERT_EQ(study_estimate(study, resolved, 1, progress).verdict, StudyVerdict::converged);
    EXPECT_EQ(progress.part, 3);
    EXPECT_EQ(progress.stage, RunStage::likelihood);
    EXPECT_GE(progress.work_done, 0.5 * progress.work_total);
}

TEST(MonteCarloLikelihood, TrianglesOfTheKarateClubAreDegenerate) {
    for (const std::uint32_t seed : {1U, 2U}) {
        const StudyEstimate found = estimated(karate_study("edge,triangle"), seed);
        EXPECT_EQ(found.verdict, StudyVerdict::degenerate);
        EXPECT_TRUE(found.faulty.empty());
    }
}

TEST(MonteCarloLikelihood, NetworksThatAreAllCompleteFromTheStartAreDegenerate) {
    Study study = karate_study("edge,triangle");
    for (StudyEffect& effect : study.model.effects) {
        effect.start = 5.0;
    }
    const StudyEstimate found = estimated(study, 1);
    EXPECT_EQ(found.verdict, StudyVerdict::degenerate);
}

TEST(MonteCarloLikelihood, AStatisticAtItsLeastHasAnInfiniteEstimate) {
    Study study = ring_study(14, false, "edge,triangle");
    study.network.ties.insert(study.network.ties.end(), {{0, 5}, {2, 9}, {3, 11}});
    std::sort(study.network.ties.begin(), study.network.ties.end());
    const StudyEstimate found = estimated(study, 1);
    EXPECT_EQ(found.verdict, StudyVerdict::not_identified);
    ASSERT_EQ(found.infinite.size(), 1U);
    EXPECT_EQ(found.infinite[0].effect, 1);
    EXPECT_EQ(found.infinite[0].sign, -1);
    EXPECT_TRUE(std::isnan(found.effects[1].estimate));
}

}  // namespace
