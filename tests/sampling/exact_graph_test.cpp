// Undirected chains against all 1,024 networks on five actors.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/exact_distributions.h"

namespace {

constexpr int kActors = 5;

const std::vector<ModelTerm>& ordinary_terms() {
    static const std::vector<ModelTerm> terms = {
        {"edge", -0.4}, {"2-star", 0.1}, {"Triangle", 0.2}, {"Isolates", 0.3}};
    return terms;
}

// The same with one parameter off by 0.1, as an acceptance rule that weighs it wrongly would act.
const std::vector<ModelTerm>& perturbed_terms() {
    static const std::vector<ModelTerm> terms = {
        {"edge", -0.4}, {"2-star", 0.2}, {"Triangle", 0.2}, {"Isolates", 0.3}};
    return terms;
}

bool everything(const Graph&) { return true; }

Distribution visited(const std::vector<ModelTerm>& terms, int proposal_kind, int cap,
                     const Graph* free_dyads, std::uint32_t start_code) {
    const ChainModel<Graph> model(terms);
    Graph graph =
        network_of_code<Graph>(kActors, start_code, model.size(), clique_depth(model.selection));
    count_statistics(graph, model.active);
    RandomSource random{12345, {}};
    Chain<Graph> chain = test_chain(graph, model, random, proposal_kind);
    chain.max_degree = cap;
    chain.free_dyads = free_dyads != nullptr ? &free_dyads->adjacency : nullptr;
    return chain_frequencies(chain, kSamples, 8);
}

void expect_only(const Distribution& visits, const std::function<bool(const Graph&)>& in_class) {
    for (std::size_t code = 0; code < visits.size(); ++code) {
        if (visits[code] > 0.0) {
            ASSERT_TRUE(in_class(network_of_code<Graph>(kActors, static_cast<std::uint32_t>(code))))
                << "network " << code;
        }
    }
}

// The chain is near its own distribution and, as the test of the test, far from the perturbed one.
void expect_stationary(const Distribution& visits,
                       const std::function<bool(const Graph&)>& in_class) {
    const Distribution exact =
        exact_distribution<Graph>(ChainModel<Graph>(ordinary_terms()), kActors, in_class);
    const Distribution wrong =
        exact_distribution<Graph>(ChainModel<Graph>(perturbed_terms()), kActors, in_class);
    expect_only(visits, in_class);
    expect_near_first(visits, exact, wrong);
}

TEST(ExactGraph, TogglesVisitEveryNetworkByItsProbability) {
    expect_stationary(visited(ordinary_terms(), 0, kNoCap, nullptr, 0), everything);
}

TEST(ExactGraph, TogglesUnderACapVisitTheNetworksWithinIt) {
    const auto within = [](const Graph& graph) {
        return std::all_of(graph.degree.begin(), graph.degree.end(), [](int d) { return d <= 2; });
    };
    expect_stationary(visited(ordinary_terms(), 0, 2, nullptr, 0), within);
}

TEST(ExactGraph, TogglesOfFreeDyadsLeaveTheOthersAsTheyWere) {
    // Free: all but the three dyads of the code below; the start ties one of the three.
    const std::uint32_t fixed = 0b0001000011;
    const std::uint32_t start = 0b0000000001;
    const Graph free_dyads = network_of_code<Graph>(kActors, 0b1111111111U & ~fixed);
    const auto in_class = [&](const Graph& graph) {
        return (code_of_network(graph) & fixed) == (start & fixed);
    };
    expect_stationary(visited(ordinary_terms(), 0, kNoCap, &free_dyads, start), in_class);
}

TEST(ExactGraph, SwapsVisitTheNetworksWithAsManyTies) {
    const auto in_class = [](const Graph& graph) { return graph.edges == 4; };
    expect_stationary(visited(ordinary_terms(), 1, kNoCap, nullptr, 0b0000001111), in_class);
}

TEST(ExactGraph, SwapsTakeNoNoticeOfACap) {
    const auto in_class = [](const Graph& graph) { return graph.edges == 4; };
    expect_stationary(visited(ordinary_terms(), 1, 2, nullptr, 0b0000001111), in_class);
}

TEST(ExactGraph, SwapsOfFreeDyadsKeepTheTiesElsewhere) {
    const std::uint32_t fixed = 0b0001000011;
    const std::uint32_t start = 0b0000111101;
    const Graph free_dyads = network_of_code<Graph>(kActors, 0b1111111111U & ~fixed);
    const auto in_class = [&](const Graph& graph) {
        return graph.edges == 5 && (code_of_network(graph) & fixed) == (start & fixed);
    };
    expect_stationary(visited(ordinary_terms(), 1, kNoCap, &free_dyads, start), in_class);
}

TEST(ExactGraph, AnotherProposalKindTogglesAsWell) {
    EXPECT_EQ(visited(ordinary_terms(), 2, kNoCap, nullptr, 0),
              visited(ordinary_terms(), 0, kNoCap, nullptr, 0));
    EXPECT_EQ(visited(ordinary_terms(), -7, kNoCap, nullptr, 0),
              visited(ordinary_terms(), 0, kNoCap, nullptr, 0));
}

}  // namespace
