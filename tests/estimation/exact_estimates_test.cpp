// Estimates against exact maximum likelihood: closed forms, and Newton's method over all networks
// on a handful of actors.
#include <gtest/gtest.h>

#include <cmath>

#include "support/estimation_runs.h"

namespace {

constexpr int kSeeds = 6;

struct Likelihood {
    std::vector<double> estimate;
    // Standard errors from the inverse of the covariance of the statistics.
    std::vector<double> errors;
};

// Maximum likelihood of a model of two effects over all networks of the observed size.
template <class Network>
Likelihood exact_likelihood(const ChainModel<Network>& model, const Network& observed) {
    const int n = observed.vertices;
    const std::size_t total = std::size_t{1} << all_dyads<Network>(n).size();
    std::vector<std::vector<double>> statistics;
    for (std::size_t code = 0; code < total; ++code) {
        Network network = network_of_code<Network>(n, static_cast<std::uint32_t>(code), 2,
                                                   clique_depth(model.selection));
        count_statistics(network, model.active);
        statistics.push_back(network.statistics);
    }
    double a = 0.0;
    double b = 0.0;
    Likelihood found;
    for (int round = 0; round < 60; ++round) {
        double sum = 0.0;
        double mean_a = 0.0;
        double mean_b = 0.0;
        double aa = 0.0;
        double ab = 0.0;
        double bb = 0.0;
        for (const std::vector<double>& s : statistics) {
            const double weight = std::exp(a * s[0] + b * s[1]);
            sum += weight;
            mean_a += weight * s[0];
            mean_b += weight * s[1];
            aa += weight * s[0] * s[0];
            ab += weight * s[0] * s[1];
            bb += weight * s[1] * s[1];
        }
        mean_a /= sum;
        mean_b /= sum;
        aa = aa / sum - mean_a * mean_a;
        ab = ab / sum - mean_a * mean_b;
        bb = bb / sum - mean_b * mean_b;
        const double determinant = aa * bb - ab * ab;
        const double off_a = observed.statistics[0] - mean_a;
        const double off_b = observed.statistics[1] - mean_b;
        a += (bb * off_a - ab * off_b) / determinant;
        b += (aa * off_b - ab * off_a) / determinant;
        found.errors = {std::sqrt(bb / determinant), std::sqrt(aa / determinant)};
    }
    found.estimate = {a, b};
    return found;
}

// Each seed's estimate lies within a fraction of a standard error of the maximum, their mean closer
// still; and the standard errors are the exact ones.
template <class Network>
void expect_estimates(const std::vector<ModelTerm>& terms, const Network& observed,
                      const Likelihood& exact, int proposal_kind = 0) {
    const std::size_t p = exact.estimate.size();
    std::vector<double> means(p, 0.0);
    for (int seed = 0; seed < kSeeds; ++seed) {
        EstimationRun<Network> run(terms, observed);
        run.settings = {.sub_phases = 5,
                        .a_value = 0.1F,
                        .multiplication_factor = 10,
                        .phase3_steps = 1000,
                        .estimation_runs = 1};
        run.proposal_kind = proposal_kind;
        run.estimate(1000 + 7919 * seed);
        for (std::size_t i = 0; i < p; ++i) {
            const double off = (run.parameters[i] - exact.estimate[i]) / exact.errors[i];
            EXPECT_LT(std::fabs(off), 0.25) << "effect " << i << ", seed " << seed;
            means[i] += off / kSeeds;
            const int place = static_cast<int>(i);
            const double error = std::sqrt(run.scaling_matrix[place][place]);
            EXPECT_NEAR(error / exact.errors[i], 1.0, 0.2) << "effect " << i << ", seed " << seed;
        }
    }
    for (std::size_t i = 0; i < p; ++i) {
        EXPECT_LT(std::fabs(means[i]), 0.12) << "effect " << i;
    }
}

Graph graph_with(int n, const std::vector<ActorPair>& ties) {
    Graph graph = empty_network<Graph>(n);
    for (const auto& [i, j] : ties) {
        tie(graph, i, j);
    }
    return graph;
}

Digraph digraph_with(int n, const std::vector<ActorPair>& arcs) {
    Digraph digraph = empty_network<Digraph>(n);
    for (const auto& [i, j] : arcs) {
        tie(digraph, i, j);
    }
    return digraph;
}

template <class Network>
void expect_enumerated_estimates(const std::vector<ModelTerm>& terms, const Network& observed) {
    EstimationRun<Network> counted(terms, observed);
    const Likelihood exact = exact_likelihood(counted.model, counted.observed);
    expect_estimates(terms, observed, exact);
}

TEST(ExactEstimates, EdgeAloneIsTheLogOddsOfTheDensity) {
    const Graph graph = random_network(ChainModel<Graph>({}), 14, 0.3, 3);
    const double d = network_density(graph);
    const double dyads = 14.0 * 13.0 / 2.0;
    expect_estimates<Graph>({{"edge", -0.2}}, graph,
                            {{std::log(d / (1.0 - d))}, {1.0 / std::sqrt(dyads * d * (1.0 - d))}});
}

TEST(ExactEstimates, ArcAloneIsTheLogOddsOfTheDensity) {
    const Digraph digraph = random_network(ChainModel<Digraph>({}), 10, 0.25, 4);
    const double d = network_density(digraph);
    expect_estimates<Digraph>({{"arc", -0.2}}, digraph,
                              {{std::log(d / (1.0 - d))}, {1.0 / std::sqrt(90.0 * d * (1.0 - d))}});
}

TEST(ExactEstimates, ArcAndReciprocityHaveTheClosedFormOfTheDyadCensus) {
    const Digraph digraph = digraph_with(7, {{0, 1},
                                             {1, 0},
                                             {0, 2},
                                             {2, 0},
                                             {1, 2},
                                             {2, 1},
                                             {3, 4},
                                             {4, 3},
                                             {5, 6},
                                             {6, 5},
                                             {0, 3},
                                             {1, 4},
                                             {2, 5},
                                             {6, 0},
                                             {5, 1},
                                             {3, 6}});
    const double dyads = 21.0;
    const double mutual = digraph.mutual_dyads;
    const double asymmetric = digraph.arcs - 2.0 * mutual;
    const double null = dyads - mutual - asymmetric;
    ASSERT_EQ(mutual, 5.0);
    ASSERT_EQ(asymmetric, 6.0);
    const double arc = std::log(asymmetric / (2.0 * null));
    const double reciprocity = std::log(mutual / null) - 2.0 * arc;
    // The covariance of arcs and mutual dyads, from the multinomial over dyads.
    const double pm = mutual / dyads;
    const double pa = asymmetric / dyads;
    const double arcs = 2.0 * pm + pa;
    const double aa = dyads * (4.0 * pm + pa - arcs * arcs);
    const double ab = dyads * (2.0 * pm - arcs * pm);
    const double bb = dyads * (pm - pm * pm);
    const double determinant = aa * bb - ab * ab;
    expect_estimates<Digraph>(
        {{"arc", 0.0}, {"reciprocity", 0.0}}, digraph,
        {{arc, reciprocity}, {std::sqrt(bb / determinant), std::sqrt(aa / determinant)}});
}

TEST(ExactEstimates, EdgeAndTwoStarOnFiveActors) {
    expect_enumerated_estimates<Graph>({{"edge", 0.0}, {"2-star", 0.0}},
                                       graph_with(5, {{0, 1}, {1, 2}, {2, 3}, {1, 3}}));
}

TEST(ExactEstimates, EdgeAndTriangleOnFiveActors) {
    expect_enumerated_estimates<Graph>({{"edge", 0.0}, {"Triangle", 0.0}},
                                       graph_with(5, {{0, 1}, {1, 2}, {0, 2}, {2, 3}, {3, 4}}));
}

TEST(ExactEstimates, EdgeAndAlternatingTrianglesOnFiveActors) {
    expect_enumerated_estimates<Graph>({{"edge", 0.0}, {"AT", 0.0, 2.0F}},
                                       graph_with(5, {{0, 1}, {1, 2}, {0, 2}, {2, 3}, {3, 4}}));
}

TEST(ExactEstimates, ArcAndTwoPathOnFourActors) {
    expect_enumerated_estimates<Digraph>(
        {{"arc", 0.0}, {"path2", 0.0}},
        digraph_with(4, {{0, 1}, {1, 2}, {2, 0}, {3, 1}, {2, 3}, {0, 3}}));
}

TEST(ExactEstimates, ArcAndReciprocityOnFourActors) {
    expect_enumerated_estimates<Digraph>({{"arc", 0.0}, {"reciprocity", 0.0}},
                                         digraph_with(4, {{0, 1}, {1, 0}, {2, 1}, {3, 2}, {0, 3}}));
}

}  // namespace
