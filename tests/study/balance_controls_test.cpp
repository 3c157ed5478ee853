// The controls' means, summed over every network: zero.
#include "study/balance_controls.h"

#include <gtest/gtest.h>

#include <cmath>

#include "study/study_chain.h"
#include "support/small_studies.h"

namespace {

SampledNetwork handed(Graph& graph) { return {.graph = &graph, .digraph = nullptr}; }
SampledNetwork handed(Digraph& digraph) { return {.graph = nullptr, .digraph = &digraph}; }

// Calls visit(statistics, controls) with those of one network, in the order of the effects.
template <class Network, class Visit>
void measured(Study study, const std::vector<ActorTie>& ties, const std::vector<double>& parameters,
              Visit visit) {
    study.network.ties = ties;
    const StudySelection resolved = study_selection(study);
    ASSERT_TRUE(resolved.ok());
    StudyChain<Network> run(study, resolved, study_parameters(study, resolved), 1);
    const std::vector<double> statistics = run.by_effect(run.network().statistics.data());
    std::vector<double> sums(parameters.size(), 0.0);
    BalanceControls(study, resolved).measure(handed(run.network()), parameters, sums.data());
    EXPECT_EQ(ties_of(run.network()), ties);
    visit(statistics, sums);
}

template <class Network>
void expect_zero_means(const Study& study, const std::vector<double>& parameters) {
    double total = 0.0;
    std::vector<double> means(parameters.size(), 0.0);
    std::vector<double> sizes(parameters.size(), 0.0);
    for (const std::vector<ActorTie>& ties : all_networks(study)) {
        measured<Network>(
            study, ties, parameters,
            [&](const std::vector<double>& statistics, const std::vector<double>& sums) {
                double log_odds = 0.0;
                for (std::size_t k = 0; k < parameters.size(); ++k) {
                    log_odds += parameters[k] * statistics[k];
                }
                const double weight = std::exp(log_odds);
                total += weight;
                for (std::size_t k = 0; k < parameters.size(); ++k) {
                    means[k] += weight * sums[k];
                    sizes[k] += weight * std::fabs(sums[k]);
                }
            });
    }
    for (std::size_t k = 0; k < parameters.size(); ++k) {
        // The weights of alternating effects are of single precision.
        EXPECT_NEAR(means[k] / total, 0.0, 1e-6);
        EXPECT_GT(sizes[k] / total, 0.05);
    }
}

TEST(BalanceControls, HaveMeanZeroOverAllGraphs) {
    expect_zero_means<Graph>(ring_study(5, false, "edge,2-star,AT(2),A2P(3)"),
                             {-0.9, -0.1, 0.8, 0.2});
}

TEST(BalanceControls, HaveMeanZeroOverAllDigraphs) {
    expect_zero_means<Digraph>(ring_study(3, true, "arc,reciprocity,transitive-triad"),
                               {-0.4, 0.9, 0.5});
}

TEST(BalanceControls, HaveMeanZeroOverTheFreeDyads) {
    Study study = ring_study(6, false, "edge,triangle");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 2}, {1, 3}, {2, 4}, {3, 5}};
    expect_zero_means<Graph>(study, {-0.5, 1.2});
}

TEST(BalanceControls, DifferFromTheirStatisticByAConstantWhereDyadsAreIndependent) {
    const Study study = ring_study(4, false, "edge");
    const double pi = 1.0 / (1.0 + std::exp(0.6));
    for (const std::vector<ActorTie>& ties : all_networks(study)) {
        measured<Graph>(
            study, ties, {-0.6},
            [&](const std::vector<double>& statistics, const std::vector<double>& sums) {
                EXPECT_NEAR(sums[0], statistics[0] - 6.0 * pi, 1e-12);
            });
    }
}

}  // namespace
