// Likelihoods of independent choices against brute force, closed forms and known regressions.
#include "study/pseudo_likelihood.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "study/study_chain.h"
#include "support/small_studies.h"

namespace {

ChoiceEstimate maximised(const IndependentChoices& choices, int p) {
    return maximise_choices(choices, std::vector<double>(static_cast<std::size_t>(p), 0.0),
                            std::vector<char>(static_cast<std::size_t>(p), 0));
}

std::optional<IndependentChoices> exact_of(const Study& study) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    return exact_choices(study, resolved);
}

IndependentChoices pseudo_of(const Study& study) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    return pseudo_choices(study, resolved);
}

template <class Network>
std::vector<double> counted(Study study, const std::vector<ActorTie>& ties) {
    study.network.ties = ties;
    const StudySelection resolved = study_selection(study);
    StudyChain<Network> run(study, resolved, study_parameters(study, resolved), 1);
    return run.by_effect(run.network().statistics.data());
}

// Log-likelihood, mean and variance of the statistics by the sum over all networks.
struct Enumerated {
    double log_likelihood = 0.0;
    std::vector<double> mean;
    Matrix covariance;
};

template <class Network>
Enumerated enumerated(const Study& study, const std::vector<double>& parameters) {
    const int p = static_cast<int>(parameters.size());
    const auto score = [&](const std::vector<double>& statistics) {
        double sum = 0.0;
        for (std::size_t k = 0; k < parameters.size(); ++k) {
            sum += parameters[k] * statistics[k];
        }
        return sum;
    };
    Enumerated all{0.0, std::vector<double>(parameters.size(), 0.0), matrix_create(p, p, 0.0)};
    double total = 0.0;
    for (const auto& ties : all_networks(study)) {
        const std::vector<double> statistics = counted<Network>(study, ties);
        const double weight = std::exp(score(statistics));
        total += weight;
        for (int i = 0; i < p; ++i) {
            all.mean[static_cast<std::size_t>(i)] +=
                weight * statistics[static_cast<std::size_t>(i)];
            for (int j = 0; j < p; ++j) {
                all.covariance[i][j] += weight * statistics[static_cast<std::size_t>(i)] *
                                        statistics[static_cast<std::size_t>(j)];
            }
        }
    }
    for (int i = 0; i < p; ++i) {
        all.mean[static_cast<std::size_t>(i)] /= total;
    }
    for (int i = 0; i < p; ++i) {
        for (int j = 0; j < p; ++j) {
            all.covariance[i][j] =
                all.covariance[i][j] / total -
                all.mean[static_cast<std::size_t>(i)] * all.mean[static_cast<std::size_t>(j)];
        }
    }
    all.log_likelihood = score(counted<Network>(study, study.network.ties)) - std::log(total);
    return all;
}

// At the maximum the expected statistics are the observed ones; covariance and likelihood are those
// of the sum over all networks.
template <class Network>
void expect_maximum(const Study& study, std::vector<char> held, const std::vector<double>& start) {
    const auto choices = exact_of(study);
    ASSERT_TRUE(choices.has_value());
    const ChoiceEstimate found = maximise_choices(*choices, start, held);
    ASSERT_EQ(found.outcome, ChoiceOutcome::maximum);
    const Enumerated all = enumerated<Network>(study, found.parameters);
    const std::vector<double> observed = counted<Network>(study, study.network.ties);
    const int p = static_cast<int>(start.size());
    for (int i = 0; i < p; ++i) {
        const auto k = static_cast<std::size_t>(i);
        EXPECT_NEAR(observed[k] - all.mean[k], held[k] != 0 ? found.likelihood.gradient[k] : 0.0,
                    1e-8);
        for (int j = 0; j < p; ++j) {
            EXPECT_NEAR(found.likelihood.information[i][j], all.covariance[i][j], 1e-7);
        }
    }
    EXPECT_NEAR(found.likelihood.value, all.log_likelihood, 1e-9);
}

Study five(const std::string& effects) {
    Study study = ring_study(5, false, effects);
    study.network.ties = {{0, 1}, {0, 2}, {1, 4}, {2, 3}};
    study.attributes = {{"dept", AttributeType::categorical, {1, 1, 2, 2, 1}, {"", "x", "y"}},
                        {"age", AttributeType::continuous, {1, 4, 2, 8, 5}, {}}};
    return study;
}

TEST(PseudoLikelihood, IndependentTiesAreTheLikelihoodItself) {
    expect_maximum<Graph>(five("edge,same(dept),sum(age)"), {0, 0, 0}, {0, 0, 0});
    expect_maximum<Graph>(five("edge,sum(age)"), {0, 1}, {0, 0.3});
    Study study = five("edge,sum(age)");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 3}, {1, 2}, {1, 4}, {2, 4}, {3, 4}};
    expect_maximum<Graph>(study, {0, 0}, {0, 0});
}

Study four_directed(const std::string& effects) {
    Study study = ring_study(4, true, effects);
    study.network.ties = {{0, 1}, {1, 0}, {1, 2}, {2, 3}, {3, 0}, {2, 0}};
    study.attributes = {{"age", AttributeType::continuous, {1, 4, 2, 8}, {}}};
    return study;
}

TEST(PseudoLikelihood, PairsOfArcsAreTheLikelihoodItself) {
    expect_maximum<Digraph>(four_directed("arc,reciprocity"), {0, 0}, {0, 0});
    expect_maximum<Digraph>(four_directed("arc,reciprocity,sum(age)"), {0, 0, 0}, {0, 0, 0});
    Study study = four_directed("arc,reciprocity");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 2}, {1, 0}, {1, 3}, {2, 0}, {2, 1}, {3, 0}, {3, 1}};
    expect_maximum<Digraph>(study, {0, 0}, {0, 0});
}

TEST(PseudoLikelihood, ArcAndReciprocityHaveAClosedForm) {
    // A ring of 7 with arcs back on three of its pairs: 3 mutual, 4 one-way, 14 empty.
    Study study = ring_study(7, true, "arc,reciprocity");
    study.network.ties.push_back({1, 0});
    study.network.ties.push_back({2, 1});
    study.network.ties.push_back({3, 2});
    std::sort(study.network.ties.begin(), study.network.ties.end());
    const ChoiceEstimate found = maximised(*exact_of(study), 2);
    ASSERT_EQ(found.outcome, ChoiceOutcome::maximum);
    const double arc = std::log(4.0 / (2.0 * 14.0));
    EXPECT_NEAR(found.parameters[0], arc, 1e-12);
    EXPECT_NEAR(found.parameters[1], std::log(3.0 / 14.0) - 2.0 * arc, 1e-12);
}

TEST(PseudoLikelihood, ModelsOfOtherDyadsAreNotExact) {
    EXPECT_FALSE(exact_of(five("edge,AT(2)")).has_value());
    EXPECT_FALSE(exact_of(four_directed("arc,out-2-star")).has_value());
    Study study = five("edge");
    study.dyads.max_degree = 3;
    EXPECT_FALSE(exact_of(study).has_value());
}

// The pseudo-likelihood's rows are the differences that each tie makes to the counts.
template <class Network>
void expect_changes_are_differences(const Study& study) {
    const IndependentChoices choices = pseudo_of(study);
    const int p = static_cast<int>(study.model.effects.size());
    ChoiceTable expected(p, 1);
    const int n = static_cast<int>(study.network.actors.size());
    for (int i = 0; i < n; ++i) {
        for (int j = study.network.directed ? 0 : i + 1; j < n; ++j) {
            if (i == j) {
                continue;
            }
            std::vector<ActorTie> ties = study.network.ties;
            const auto place = std::find(ties.begin(), ties.end(), ActorTie{i, j});
            const bool tied = place != ties.end();
            if (tied) {
                ties.erase(place);
            }
            const std::vector<double> without = counted<Network>(study, ties);
            ties.push_back({i, j});
            std::vector<double> change = counted<Network>(study, ties);
            for (std::size_t k = 0; k < change.size(); ++k) {
                change[k] -= without[k];
            }
            expected.add(change.data(), tied ? 1 : 0);
        }
    }
    const std::vector<double> at = {-0.4, 0.2, 0.1};
    const ChoiceLikelihood one = choice_likelihood(choices, at);
    const ChoiceLikelihood other = choice_likelihood({expected}, at);
    EXPECT_NEAR(one.value, other.value, 1e-9);
    for (int k = 0; k < p; ++k) {
        EXPECT_NEAR(one.gradient[static_cast<std::size_t>(k)],
                    other.gradient[static_cast<std::size_t>(k)], 1e-9);
        EXPECT_NEAR(one.information[k][0], other.information[k][0], 1e-9);
    }
}

TEST(PseudoLikelihood, ChangesOfTiedDyadsAreThoseOfTheNetworkWithoutTheTie) {
    Study study = five("edge,2-star,AT(2)");
    study.network.ties.push_back({1, 2});
    std::sort(study.network.ties.begin(), study.network.ties.end());
    expect_changes_are_differences<Graph>(study);
    expect_changes_are_differences<Digraph>(four_directed("arc,reciprocity,AT-T(2)"));
}

TEST(PseudoLikelihood, OffsetsShiftTheLogOdds) {
    ChoiceTable table(2, 1);
    const double one[] = {1.0, 1.0};
    for (int k = 0; k < 10; ++k) {
        table.add(one, k < 3 ? 1 : 0);
    }
    const ChoiceEstimate found = maximise_choices({table}, {0.0, 0.5}, {0, 1});
    ASSERT_EQ(found.outcome, ChoiceOutcome::maximum);
    EXPECT_NEAR(found.parameters[0], std::log(3.0 / 7.0) - 0.5, 1e-12);
    EXPECT_EQ(found.parameters[1], 0.5);
    EXPECT_EQ(found.covariance[1][1], 0.0);
}

// A logistic regression in its plainest form: the score is zero at the estimate.
TEST(PseudoLikelihood, ManyRowsOfRealNumbers) {
    std::mt19937 random(5);
    std::normal_distribution<double> normal;
    std::vector<std::array<double, 3>> rows;
    std::vector<int> outcomes;
    ChoiceTable table(3, 1);
    for (int k = 0; k < 2000; ++k) {
        rows.push_back({1.0, normal(random), normal(random)});
        const double odds = -1.0 + 0.7 * rows.back()[1] - 0.2 * rows.back()[2];
        outcomes.push_back(std::uniform_real_distribution<>()(random) < 1 / (1 + std::exp(-odds)));
        table.add(rows.back().data(), outcomes.back());
        table.add(rows.back().data(), outcomes.back());
    }
    EXPECT_EQ(table.rows(), 2000);
    const ChoiceEstimate found = maximised({table}, 3);
    ASSERT_EQ(found.outcome, ChoiceOutcome::maximum);
    for (std::size_t k = 0; k < 3; ++k) {
        double score = 0.0;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            double odds = 0.0;
            for (std::size_t m = 0; m < 3; ++m) {
                odds += rows[row][m] * found.parameters[m];
            }
            score += 2.0 * rows[row][k] * (outcomes[row] - 1.0 / (1.0 + std::exp(-odds)));
        }
        EXPECT_NEAR(score, 0.0, 1e-8);
    }
    EXPECT_NEAR(found.parameters[1], 0.7, 0.2);
}

TEST(PseudoLikelihood, SeparationIsNamedWithItsDirection) {
    // Ties wherever the second effect is above zero, none where it is below; the first is at ease.
    ChoiceTable table(3, 1);
    const double rows[][3] = {{1, 1, 0.3}, {1, -2, 1}, {1, 0, -0.4}, {1, 0, 2}, {1, 0, 0.5}};
    const int taken[] = {1, 0, 1, 0, 0};
    for (int copy = 0; copy < 3; ++copy) {
        for (int k = 0; k < 5; ++k) {
            table.add(rows[k], taken[k]);
        }
    }
    table.add(rows[2], 0);
    table.add(rows[3], 1);
    const ChoiceEstimate found = maximised({table}, 3);
    ASSERT_EQ(found.outcome, ChoiceOutcome::infinite);
    ASSERT_EQ(found.infinite.size(), 1U);
    EXPECT_EQ(found.infinite[0].effect, 1);
    EXPECT_EQ(found.infinite[0].sign, 1);
    for (const double value : penalised_choices({table}, {0, 0, 0}, {0, 0, 0})) {
        EXPECT_LT(std::fabs(value), 20.0);
    }
}

TEST(PseudoLikelihood, AWeakTendencyIsNotTakenForSeparation) {
    // One contrary tie among thousands.
    ChoiceTable table(2, 1);
    const double low[] = {1.0, 0.0};
    const double high[] = {1.0, 1.0};
    for (int k = 0; k < 100000; ++k) {
        table.add(low, k == 0 ? 1 : 0);
        table.add(high, k < 99999 ? 1 : 0);
    }
    const ChoiceEstimate found = maximised({table}, 2);
    ASSERT_EQ(found.outcome, ChoiceOutcome::maximum);
    EXPECT_NEAR(found.parameters[0], -std::log(99999.0), 1e-8);
    EXPECT_NEAR(found.parameters[1], 2.0 * std::log(99999.0), 1e-8);
}

TEST(PseudoLikelihood, DependentColumnsAndBadStarts) {
    const Study study = five("edge,same(dept),different(dept)");
    const ChoiceEstimate found = maximised(*exact_of(study), 3);
    EXPECT_EQ(found.outcome, ChoiceOutcome::dependent);
    EXPECT_EQ(found.dependent, (DependentSet{0, 1, 2}));
    const ChoiceEstimate held = maximise_choices(*exact_of(study), {0, 0, 0.5}, {0, 0, 1});
    EXPECT_EQ(held.outcome, ChoiceOutcome::maximum);
    const double nan = std::nan("");
    EXPECT_EQ(maximise_choices(*exact_of(study), {nan, 0, 0}, {0, 0, 1}).outcome,
              ChoiceOutcome::failed);
}

}  // namespace
