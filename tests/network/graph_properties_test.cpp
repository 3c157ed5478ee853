// Tables and histograms of random networks against counts from the bare matrix, and toggles there
// and back.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "network/graph.h"
#include "reference/descriptives.h"
#include "support/random_networks.h"

namespace {

using reference::PlainGraph;

bool list_is_row(const NeighbourLists& lists, const BitMatrix& rows, int actor) {
    std::vector<std::int32_t> members;
    row_for_each(rows[actor], rows.words_per_row, [&](int member) { members.push_back(member); });
    return !lists.listed(actor)
               ? members.size() > kRelistLength || rows.words_per_row <= kWordsAlone
               : std::equal(members.begin(), members.end(), lists.of(actor).begin(),
                            lists.of(actor).end());
}

// Every table that toggles keep up to date is what the plain network says.
testing::AssertionResult tables_are_those_of(const Graph& graph, const PlainGraph& plain) {
    for (int a = 0; a < plain.n; ++a) {
        if (graph.degree[static_cast<std::size_t>(a)] != reference::degree(plain, a)) {
            return testing::AssertionFailure() << "degree of " << a;
        }
        if (graph.triangles[static_cast<std::size_t>(a)] !=
            reference::triangles_through(plain, a)) {
            return testing::AssertionFailure() << "triangles of " << a;
        }
        for (int b = 0; b < plain.n; ++b) {
            if (graph_has_edge(graph, a, b) != reference::tied(plain, a, b)) {
                return testing::AssertionFailure() << "tie " << a << '-' << b;
            }
            if (graph.two_paths[a][b] != reference::common_neighbours(plain, a, b)) {
                return testing::AssertionFailure() << "two-paths of " << a << '-' << b;
            }
            if (graph.any_two_paths.has(a, b) != (graph.two_paths[a][b] != 0)) {
                return testing::AssertionFailure() << "bit of two-paths of " << a << '-' << b;
            }
        }
        if (!list_is_row(graph.neighbours, graph.adjacency, a)) {
            return testing::AssertionFailure() << "list of " << a;
        }
    }
    if (graph.edges != reference::edge_count(plain)) {
        return testing::AssertionFailure() << "number of ties";
    }
    if (graph.degree_distribution != reference::degree_distribution(plain)) {
        return testing::AssertionFailure() << "histogram of degrees";
    }
    if (graph.two_path_distribution != reference::two_path_distribution(plain)) {
        return testing::AssertionFailure() << "histogram of two-paths";
    }
    if (graph_triangle_histogram(graph) != reference::triangle_distribution(plain)) {
        return testing::AssertionFailure() << "histogram of triangles";
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult same_tables(const Graph& a, const Graph& b) {
    if (a.edges == b.edges && a.adjacency.words == b.adjacency.words && a.degree == b.degree &&
        a.degree_distribution == b.degree_distribution && a.two_paths.cells == b.two_paths.cells &&
        a.two_path_distribution == b.two_path_distribution && a.triangles == b.triangles &&
        graph_triangle_histogram(a) == graph_triangle_histogram(b)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "a table is not as it was";
}

void toggle(Graph& graph, int i, int j) {
    if (graph_has_edge(graph, i, j)) {
        graph_remove_edge(graph, i, j);
        graph_update_two_paths(graph, i, j, 0);
    } else {
        graph_add_edge(graph, i, j);
        graph_update_two_paths(graph, i, j, 1);
    }
}

std::vector<PlainGraph> networks() {
    std::vector<PlainGraph> graphs = graphs_of_all_densities(41, 1, 20, 3);
    for (PlainGraph& plain : graphs_across_words(42)) {
        graphs.push_back(std::move(plain));
    }
    return graphs;
}

TEST(GraphProperties, TablesAndHistogramsOfRandomNetworksAreThoseOfBruteForce) {
    for (const PlainGraph& plain : networks()) {
        ASSERT_TRUE(tables_are_those_of(engine_graph(plain), plain)) << "n = " << plain.n;
    }
}

TEST(GraphProperties, TablesStayThoseOfBruteForceThroughRandomToggles) {
    TestRandom random(43);
    for (int n = 2; n <= 20; ++n) {
        PlainGraph plain = random_graph(random, n, 0.4);
        Graph graph = engine_graph(plain);
        for (int step = 0; step < 60; ++step) {
            const int i = draw_below(random, n);
            const int j = (i + 1 + draw_below(random, n - 1)) % n;
            toggle(graph, i, j);
            plain = reference::tied(plain, i, j) ? reference::without_tie(plain, i, j)
                                                 : reference::with_tie(plain, i, j);
            ASSERT_TRUE(tables_are_those_of(graph, plain)) << "n = " << n << ", step " << step;
        }
    }
}

TEST(GraphProperties, TablesCountedAnewAreThoseOfBruteForceWhateverTheyHeld) {
    for (const PlainGraph& plain : networks()) {
        Graph graph = engine_graph(plain);
        std::fill(graph.two_paths.cells.begin(), graph.two_paths.cells.end(), 7);
        std::fill(graph.any_two_paths.words.begin(), graph.any_two_paths.words.end(),
                  ~std::uint64_t{0});
        std::fill(graph.triangles.begin(), graph.triangles.end(), 3);
        std::fill(graph.two_path_distribution.begin(), graph.two_path_distribution.end(), 5);
        std::fill(graph.triangle_distribution.begin(), graph.triangle_distribution.end(), 5);
        graph_count_two_paths(graph);
        ASSERT_TRUE(tables_are_those_of(graph, plain)) << "n = " << plain.n;
    }
}

TEST(GraphProperties, TogglingTwiceRestoresEveryTableAndHistogram) {
    for (const PlainGraph& plain : networks()) {
        Graph graph = engine_graph(plain);
        const Graph before = graph;
        const int step = plain.n > 20 ? 7 : 1;
        for (int i = 0; i < plain.n; i += step) {
            for (int j = 0; j < plain.n; j += step) {
                if (i == j) {
                    continue;
                }
                toggle(graph, i, j);
                ASSERT_FALSE(same_tables(graph, before));
                toggle(graph, i, j);
                ASSERT_TRUE(same_tables(graph, before)) << i << '-' << j << ", n = " << plain.n;
            }
        }
    }
}

TEST(GraphProperties, ARejectedDeletionLeavesEveryTableIdentical) {
    for (const PlainGraph& plain : networks()) {
        Graph graph = engine_graph(plain);
        const Graph before = graph;
        for (int i = 0; i < plain.n; ++i) {
            for (int j = i + 1; j < plain.n; ++j) {
                if (reference::tied(plain, i, j)) {
                    graph_remove_edge(graph, i, j);
                    graph_add_edge(graph, i, j);
                    ASSERT_TRUE(same_tables(graph, before)) << i << '-' << j;
                }
            }
        }
    }
}

TEST(GraphProperties, TheOrderOfAdditionsDoesNotMatter) {
    TestRandom random(44);
    for (int n = 2; n <= 20; ++n) {
        const PlainGraph plain = random_graph(random, n, 0.6);
        std::vector<std::pair<int, int>> ties;
        for (int i = 0; i < n; ++i) {
            for (int j = i + 1; j < n; ++j) {
                if (reference::tied(plain, i, j)) {
                    ties.emplace_back(j, i);
                }
            }
        }
        for (std::size_t left = ties.size(); left > 1; --left) {
            std::swap(ties[left - 1],
                      ties[static_cast<std::size_t>(draw_below(random, static_cast<int>(left)))]);
        }
        Graph graph = graph_create(n, 0, 0);
        for (const auto& [i, j] : ties) {
            graph_add_tie(graph, i, j);
        }
        EXPECT_TRUE(same_tables(graph, engine_graph(plain))) << "n = " << n;
    }
}

TEST(GraphProperties, HistogramsOfACompleteNetworkStandInTheirLastEntries) {
    for (int n = 2; n <= 20; ++n) {
        const Graph graph = engine_graph(reference::complete_graph(n));
        EXPECT_EQ(graph.degree_distribution.back(), n);
        EXPECT_EQ(graph.two_path_distribution.back(), n * (n - 1) / 2);
        EXPECT_EQ(graph.triangle_distribution.back(), n);
    }
}

}  // namespace
