// Undirected chains with an alternating effect against all 1,024 networks on five actors.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "support/exact_distributions.h"

namespace {

constexpr int kActors = 5;

struct AlternatingCase {
    std::string_view row;
    double value;
    float lambda;
};

void PrintTo(const AlternatingCase& alternating, std::ostream* out) { *out << alternating.row; }

std::vector<ModelTerm> terms_of(const AlternatingCase& alternating, double shift) {
    return {{"edge", 0.2}, {alternating.row, alternating.value + shift, alternating.lambda}};
}

Distribution visited(const ChainModel<Graph>& model, int proposal_kind) {
    Graph graph =
        network_of_code<Graph>(kActors, 0b0000001111, model.size(), clique_depth(model.selection));
    count_statistics(graph, model.active);
    RandomSource random{777, {}};
    Chain<Graph> chain = test_chain(graph, model, random, proposal_kind);
    return chain_frequencies(chain, kSamples, 8);
}

class ExactAlternating : public testing::TestWithParam<AlternatingCase> {};

TEST_P(ExactAlternating, TogglesVisitEveryNetworkByItsProbability) {
    const auto everything = [](const Graph&) { return true; };
    const ChainModel<Graph> model(terms_of(GetParam(), 0.0));
    const Distribution visits = visited(model, 0);
    const ChainModel<Graph> wrong(terms_of(GetParam(), 0.25));
    expect_near_first(visits, exact_distribution<Graph>(model, kActors, everything),
                      exact_distribution<Graph>(wrong, kActors, everything));
}

TEST_P(ExactAlternating, SwapsVisitTheNetworksWithAsManyTies) {
    const auto in_class = [](const Graph& graph) { return graph.edges == 4; };
    const ChainModel<Graph> model(terms_of(GetParam(), 0.0));
    const Distribution exact = exact_distribution<Graph>(model, kActors, in_class);
    EXPECT_LT(total_variation(visited(model, 1), exact), farthest(exact, kSamples));
}

INSTANTIATE_TEST_SUITE_P(
    Effects, ExactAlternating,
    testing::Values(AlternatingCase{"AS", 0.2, 2.0F}, AlternatingCase{"AS2", -0.3, 1.0F},
                    AlternatingCase{"AT", 0.2, 1.5F}, AlternatingCase{"AT2", 0.2, 3.0F},
                    AlternatingCase{"A2P", -0.1, 2.0F}, AlternatingCase{"AC", 0.3, 2.0F},
                    AlternatingCase{"AET", 0.05, 2.0F}));

// Where an effect's changes for a tie's addition and its removal differ there is no probability to
// compare with; the chain then goes to what its own acceptance rule balances.
Distribution balanced(const ChainModel<Graph>& model) {
    const int depth = clique_depth(model.selection);
    const std::vector<ActorPair> dyads = all_dyads<Graph>(kActors);
    const std::size_t states = network_total<Graph>(kActors);
    std::vector<double> acceptance(states * dyads.size());
    std::vector<double> change(model.parameters.size());
    for (std::size_t code = 0; code < states; ++code) {
        for (std::size_t d = 0; d < dyads.size(); ++d) {
            Graph graph = network_of_code<Graph>(kActors, static_cast<std::uint32_t>(code),
                                                 model.size(), depth);
            const auto [i, j] = dyads[d];
            const bool tied = graph_has_edge(graph, i, j);
            if (tied) {
                graph_remove_edge(graph, i, j);
            }
            const double odds = evaluate_toggle(graph, model.active, model.parameters.data(),
                                                change.data(), i, j, tied ? 0 : 1);
            acceptance[code * dyads.size() + d] = std::min(1.0, std::exp(tied ? -odds : odds));
        }
    }
    Distribution now(states, 1.0 / static_cast<double>(states));
    for (int round = 0; round < 600; ++round) {
        Distribution next(states, 0.0);
        for (std::size_t code = 0; code < states; ++code) {
            const double share = now[code] / static_cast<double>(dyads.size());
            for (std::size_t d = 0; d < dyads.size(); ++d) {
                const double moved = share * acceptance[code * dyads.size() + d];
                next[code ^ (std::size_t{1} << d)] += moved;
                next[code] += share - moved;
            }
        }
        now = next;
    }
    return now;
}

TEST(ExactAlternatingRule, AeatGoesToTheBalanceOfItsTwoChanges) {
    const ChainModel<Graph> model({{"edge", -0.5}, {"AEAT", 0.1, 2.0F}});
    const Distribution exact = balanced(model);
    EXPECT_LT(total_variation(visited(model, 0), exact), farthest(exact, kSamples));
}

TEST(ExactAlternatingRule, TrianglesAtLambdaOneGoToTheBalanceOfTheirTwoChanges) {
    const ChainModel<Graph> model({{"edge", -0.5}, {"AT", 0.4, 1.0F}});
    const Distribution exact = balanced(model);
    EXPECT_LT(total_variation(visited(model, 0), exact), farthest(exact, kSamples));
}

TEST(ExactAlternatingRule, TheBalanceOfAnOrdinaryModelIsItsProbability) {
    const auto everything = [](const Graph&) { return true; };
    const ChainModel<Graph> model({{"edge", -0.5}, {"Triangle", 0.3}});
    EXPECT_LT(
        total_variation(balanced(model), exact_distribution<Graph>(model, kActors, everything)),
        1e-9);
}

}  // namespace
