// What chains carry along, after thousands of steps, against the network counted anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <type_traits>

#include "support/chain_models.h"

namespace {

constexpr int kSteps = 6000;

// Effects whose changes do not add up to their whole value, by their definition.
const std::vector<std::string_view>& drifting(NetworkKind kind) {
    static const std::vector<std::string_view> graph = {"3Path", "0ET", "ETNT", "AEAT"};
    static const std::vector<std::string_view> none;
    return kind == NetworkKind::undirected ? graph : none;
}

Graph rebuilt(const Graph& graph) {
    Graph fresh =
        graph_create(graph.vertices, static_cast<int>(graph.statistics.size()), graph.clique_depth);
    for (const auto& [i, j] : all_dyads<Graph>(graph.vertices)) {
        if (graph_has_edge(graph, i, j)) {
            graph_add_tie(fresh, i, j);
        }
    }
    return fresh;
}
Digraph rebuilt(const Digraph& digraph) {
    Digraph fresh = digraph_create(digraph.vertices, static_cast<int>(digraph.statistics.size()));
    for (const auto& [i, j] : all_dyads<Digraph>(digraph.vertices)) {
        if (digraph_has_arc(digraph, i, j)) {
            digraph_add_tie(fresh, i, j);
        }
    }
    return fresh;
}

void expect_same_tables(const Graph& carried, const Graph& fresh) {
    EXPECT_EQ(carried.edges, fresh.edges);
    EXPECT_EQ(carried.adjacency.words, fresh.adjacency.words);
    EXPECT_EQ(carried.degree, fresh.degree);
    EXPECT_EQ(carried.degree_distribution, fresh.degree_distribution);
    EXPECT_EQ(carried.two_paths.cells, fresh.two_paths.cells);
    EXPECT_EQ(carried.two_path_distribution, fresh.two_path_distribution);
    EXPECT_EQ(carried.triangles, fresh.triangles);
    EXPECT_EQ(graph_triangle_histogram(carried), graph_triangle_histogram(fresh));
}
void expect_same_tables(const Digraph& carried, const Digraph& fresh) {
    EXPECT_EQ(carried.arcs, fresh.arcs);
    EXPECT_EQ(carried.mutual_dyads, fresh.mutual_dyads);
    EXPECT_EQ(carried.adjacency.words, fresh.adjacency.words);
    EXPECT_EQ(carried.adjacency_in.words, fresh.adjacency_in.words);
    EXPECT_EQ(carried.in_degree, fresh.in_degree);
    EXPECT_EQ(carried.out_degree, fresh.out_degree);
    EXPECT_EQ(carried.mutual_degree, fresh.mutual_degree);
    EXPECT_EQ(carried.in_degree_distribution, fresh.in_degree_distribution);
    EXPECT_EQ(carried.out_degree_distribution, fresh.out_degree_distribution);
    EXPECT_EQ(carried.shared_receivers.cells, fresh.shared_receivers.cells);
    EXPECT_EQ(carried.shared_senders.cells, fresh.shared_senders.cells);
    EXPECT_EQ(carried.two_paths.cells, fresh.two_paths.cells);
}

// Statistics that are shown without decimals must agree exactly; means and alternating effects to
// the rounding of their weights.
template <class Network>
void expect_carried(const Network& network, const ChainModel<Network>& model, float lambda) {
    Network fresh = rebuilt(network);
    expect_same_tables(network, fresh);
    count_statistics(fresh, model.active);
    const Catalogue& catalogue = *model.selection.catalogue;
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const auto& drift = drifting(catalogue.kind);
        if (std::find(drift.begin(), drift.end(), effect.row) != drift.end()) {
            continue;
        }
        const auto place = static_cast<std::size_t>(model.place(effect.row));
        if (effect.formats.simulation != std::string_view("%.0f\t") &&
            effect.formats.simulation != std::string_view("%.0f")) {
            const double size = 1.0 + std::fabs(fresh.statistics[place]);
            EXPECT_NEAR(network.statistics[place], fresh.statistics[place], 1e-5 * size)
                << effect.row << " at lambda " << lambda;
        } else {
            EXPECT_EQ(network.statistics[place], fresh.statistics[place]) << effect.row;
        }
    }
}

struct CarriedCase {
    int proposal_kind;
    double tie_value;
    // Value of every other effect.
    double value;
    float lambda;
};

template <class Network>
void run_case(const CarriedCase& tried, bool with_free_dyads) {
    constexpr NetworkKind kind =
        std::is_same_v<Network, Graph> ? NetworkKind::undirected : NetworkKind::directed;
    std::vector<ModelTerm> terms = all_terms(kind, tried.value, tried.lambda);
    terms.front().value = tried.tie_value;
    const ChainModel<Network> model(terms);
    constexpr int n = 13;
    Network network = random_network(model, n, 0.3, 99);
    const ChainModel<Network> none({});
    const Network free_dyads = random_network(none, n, 0.8, 7);
    RandomSource random{31337, {}};
    Chain<Network> chain = test_chain(network, model, random, tried.proposal_kind);
    chain.free_dyads = with_free_dyads ? &free_dyads.adjacency : nullptr;
    int accepted = 0;
    for (int step = 1; step <= kSteps; ++step) {
        accepted += chain_step(chain);
        if (step % 1500 == 0) {
            expect_carried(network, model, tried.lambda);
        }
    }
    EXPECT_GT(accepted, kSteps / 20);
}

const std::array<CarriedCase, 6> kCases = {{
    {0, -0.8, 0.0, 2.0F},
    {0, -0.2, -0.001, 1.5F},
    {1, -0.8, 0.0, 3.0F},
    {1, 0.0, -0.001, 2.0F},
    {2, -0.8, 0.0, 1.5F},
    {2, 0.0, -0.001, 2.0F},
}};

TEST(CarriedStatistics, OfAllGraphEffectsEqualARecountUnderEveryProposal) {
    for (const CarriedCase& tried : kCases) {
        SCOPED_TRACE("proposal kind " + std::to_string(tried.proposal_kind));
        run_case<Graph>(tried, false);
        run_case<Graph>(tried, true);
    }
}

TEST(CarriedStatistics, OfAllDigraphEffectsEqualARecountUnderEveryProposal) {
    for (const CarriedCase& tried : kCases) {
        SCOPED_TRACE("proposal kind " + std::to_string(tried.proposal_kind));
        run_case<Digraph>(tried, false);
        run_case<Digraph>(tried, true);
    }
}

TEST(CarriedStatistics, TheTieCountOfASwapChainNeverMoves) {
    const ChainModel<Graph> model({{"edge", -1.0}, {"Triangle", 0.4}});
    Graph graph = random_network(model, 12, 0.25, 5);
    const double ties = graph.edges;
    RandomSource random{8, {}};
    Chain<Graph> chain = test_chain(graph, model, random, 1);
    int accepted = 0;
    for (int step = 0; step < 2000; ++step) {
        accepted += chain_step(chain);
        ASSERT_EQ(graph.statistics.front(), ties);
    }
    EXPECT_GT(accepted, 100);
}

TEST(CarriedStatistics, TrianglesAtLambdaOneMayDriftFromARecount) {
    const ChainModel<Graph> model({{"edge", -0.4}, {"AT", 0.0, 1.0F}});
    Graph graph = random_network(model, 12, 0.4, 5);
    RandomSource random{8, {}};
    Chain<Graph> chain = test_chain(graph, model, random, 0);
    for (int step = 0; step < 2000; ++step) {
        chain_step(chain);
    }
    Graph fresh = rebuilt(graph);
    count_statistics(fresh, model.active);
    EXPECT_NE(graph.statistics[1], fresh.statistics[1]);
}

}  // namespace
