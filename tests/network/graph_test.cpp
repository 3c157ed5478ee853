// The record of an undirected network, from its smallest networks up.
#include "network/graph.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

using Ints = std::vector<int>;

const unsigned char* row_bytes_of(const Graph& graph, int actor) {
    return reinterpret_cast<const unsigned char*>(graph.adjacency[actor]);
}

int sum_of(const Ints& values) { return std::accumulate(values.begin(), values.end(), 0); }

TEST(Graph, StartsWithAllActorsAndDyadsInEntryZeroOfItsHistograms) {
    for (int n = 2; n <= 12; ++n) {
        const Graph graph = graph_create(n, 3, 5);
        EXPECT_EQ(graph.vertices, n);
        EXPECT_EQ(graph.edges, 0);
        EXPECT_EQ(graph.degree_distribution[0], n);
        EXPECT_EQ(graph.triangle_distribution[0], n);
        EXPECT_EQ(graph.two_path_distribution[0], n * (n - 1) / 2);
        EXPECT_EQ(sum_of(graph.degree_distribution), n);
        EXPECT_EQ(sum_of(graph.triangle_distribution), n);
        EXPECT_EQ(sum_of(graph.two_path_distribution), n * (n - 1) / 2);
    }
}

TEST(Graph, TablesHaveTheSizesThatTheirReadersCountOn) {
    const Graph graph = graph_create(7, 3, 5);
    EXPECT_EQ(graph.degree_distribution.size(), 7U);
    EXPECT_EQ(graph.degree.size(), 7U);
    EXPECT_EQ(graph.two_path_distribution.size(), 6U);
    EXPECT_EQ(graph_triangle_histogram(graph).size(), 6U * 5U / 2U + 1U);
    EXPECT_EQ(graph.geodesic_distribution.size(), 7U);
    EXPECT_EQ(graph.clustering.size(), 7U);
    EXPECT_EQ(graph.et0.size(), 7U);
    EXPECT_EQ(graph.etnt_ratio.size(), 7U);
    EXPECT_EQ(graph.statistics, std::vector<double>(3, 0.0));
    EXPECT_EQ(graph.clique_counts, std::vector<double>(5, 0.0));
    EXPECT_EQ(graph.clique_changes, std::vector<double>(5, 0.0));
    EXPECT_EQ(graph.two_paths.cells, std::vector<std::uint16_t>(49, 0));
}

TEST(Graph, OfOneActorHasNoCellOfTwoPaths) {
    const Graph graph = graph_create(1, 0, 0);
    EXPECT_TRUE(graph.two_path_distribution.empty());
    EXPECT_EQ(graph.degree_distribution, Ints{1});
    EXPECT_EQ(graph.triangle_distribution, Ints{1});
}

TEST(Graph, OfNoActorsOrANegativeNumberHasEmptyTables) {
    for (const int n : {0, -1, -2, -50}) {
        SCOPED_TRACE(n);
        const Graph graph = graph_create(n, -1, -1);
        EXPECT_EQ(graph.vertices, n);
        EXPECT_EQ(graph.edges, 0);
        EXPECT_TRUE(graph.adjacency.words.empty());
        EXPECT_TRUE(graph.two_paths.cells.empty());
        EXPECT_EQ(graph.degree, Ints{});
        EXPECT_EQ(graph.degree_distribution, Ints{});
        EXPECT_EQ(graph.triangles, Ints{});
        EXPECT_EQ(graph.two_path_distribution, Ints{});
        EXPECT_EQ(graph.geodesic_distribution, Ints{});
        EXPECT_TRUE(graph.clustering.empty());
        EXPECT_TRUE(graph.statistics.empty());
        EXPECT_TRUE(graph.clique_counts.empty());
        // As many cells as (n - 1)(n - 2) / 2 + 1, which no sign takes away: reports show them. The
        // first counts the actors.
        Ints triangles(static_cast<std::size_t>((n - 1) * (n - 2) / 2 + 1), 0);
        triangles.front() = n;
        EXPECT_EQ(graph_triangle_histogram(graph), triangles);
    }
}

TEST(Graph, ATieToAnActorDivisibleByEightSetsTheTopBitAndToActorSevenTheLowest) {
    Graph graph = graph_create(20, 0, 0);
    graph_add_edge(graph, 3, 16);
    graph_add_edge(graph, 3, 7);
    EXPECT_EQ(row_bytes_of(graph, 3)[2], 0x80);
    EXPECT_EQ(row_bytes_of(graph, 3)[0], 0x01);
    EXPECT_EQ(row_bytes_of(graph, 3)[1], 0x00);
    EXPECT_EQ(row_bytes_of(graph, 16)[0], 0x10);
}

TEST(Graph, ATieHoldsFromBothEnds) {
    Graph graph = graph_create(4, 0, 0);
    graph_add_tie(graph, 2, 1);
    EXPECT_TRUE(graph_has_edge(graph, 1, 2));
    EXPECT_TRUE(graph_has_edge(graph, 2, 1));
    EXPECT_FALSE(graph_has_edge(graph, 1, 1));
    EXPECT_EQ(graph.edges, 1);
}

TEST(Graph, ATieBetweenIsolatesMovesTwoActorsUpOneDegreeAndNothingElse) {
    Graph graph = graph_create(5, 0, 0);
    const Ints triangles = graph.triangles;
    const Ints two_paths = graph.two_path_distribution;
    graph_add_tie(graph, 1, 3);
    EXPECT_EQ(graph.degree_distribution, (Ints{3, 2, 0, 0, 0}));
    EXPECT_EQ(graph.two_paths[1][3], 0);
    EXPECT_EQ(graph.triangles, triangles);
    EXPECT_EQ(graph.two_path_distribution, two_paths);
}

TEST(Graph, TheThirdTieOfATriangleGivesOneToEachAndItsRemovalTakesItBack) {
    Graph graph = graph_create(4, 0, 0);
    graph_add_tie(graph, 0, 1);
    graph_add_tie(graph, 1, 2);
    const Graph before = graph;
    graph_add_tie(graph, 0, 2);
    EXPECT_EQ(graph.triangles, (Ints{1, 1, 1, 0}));
    EXPECT_EQ(graph_triangle_histogram(graph), (Ints{1, 3, 0, 0}));
    graph_remove_edge(graph, 0, 2);
    graph_update_two_paths(graph, 0, 2, 0);
    EXPECT_EQ(graph.triangles, (Ints{0, 0, 0, 0}));
    EXPECT_EQ(graph_triangle_histogram(graph), graph_triangle_histogram(before));
    EXPECT_EQ(graph.two_path_distribution, before.two_path_distribution);
    EXPECT_EQ(graph.degree_distribution, before.degree_distribution);
}

TEST(Graph, AddingATieThatIsThereAndRemovingOneThatIsNotDoNothing) {
    Graph graph = graph_create(4, 0, 0);
    graph_add_tie(graph, 0, 1);
    const Graph before = graph;
    graph_add_edge(graph, 1, 0);
    graph_remove_edge(graph, 2, 3);
    EXPECT_EQ(graph.edges, 1);
    EXPECT_EQ(graph.degree, before.degree);
    EXPECT_EQ(graph.degree_distribution, before.degree_distribution);
    EXPECT_EQ(graph.adjacency.words, before.adjacency.words);
}

TEST(Graph, TheFirstHalfOfAToggleLeavesTwoPathsAndTrianglesBehind) {
    Graph graph = graph_create(3, 0, 0);
    graph_add_tie(graph, 0, 1);
    graph_add_tie(graph, 1, 2);
    graph_add_tie(graph, 0, 2);
    graph_remove_edge(graph, 0, 2);
    EXPECT_EQ(graph.edges, 2);
    EXPECT_EQ(graph.degree, (Ints{1, 2, 1}));
    EXPECT_EQ(graph.two_paths[0][1], 1);
    EXPECT_EQ(graph.triangles, (Ints{1, 1, 1}));
}

TEST(Graph, ACopyTakesEverythingButTheNumberOfActors) {
    Graph source = graph_create(5, 2, 4);
    graph_add_tie(source, 0, 4);
    graph_add_tie(source, 1, 4);
    source.statistics = {3.5, -1.0};
    source.clique_counts = {0, 0, 7, 8};
    source.clique_changes = {0, 1, 5, 6};
    source.clustering[2] = 0.25;
    source.geodesic_distribution[3] = 6;
    source.largest_component = 3;
    source.et0[1] = 4;
    source.etnt[1] = 3;
    source.etnt_ratio[1] = 0.75;
    Graph target = graph_create(5, 2, 4);
    graph_add_tie(target, 2, 3);
    graph_copy(source, target);
    EXPECT_EQ(target.vertices, 5);
    EXPECT_EQ(target.edges, 2);
    EXPECT_EQ(target.clique_depth, 4);
    EXPECT_EQ(target.largest_component, 3U);
    EXPECT_EQ(target.adjacency.words, source.adjacency.words);
    EXPECT_EQ(target.two_paths.cells, source.two_paths.cells);
    EXPECT_EQ(target.degree, source.degree);
    EXPECT_EQ(target.degree_distribution, source.degree_distribution);
    EXPECT_EQ(target.two_path_distribution, source.two_path_distribution);
    EXPECT_EQ(target.triangles, source.triangles);
    EXPECT_EQ(target.triangle_distribution, source.triangle_distribution);
    EXPECT_EQ(target.geodesic_distribution, source.geodesic_distribution);
    EXPECT_EQ(target.clustering, source.clustering);
    EXPECT_EQ(target.statistics, source.statistics);
    EXPECT_EQ(target.clique_counts, source.clique_counts);
    EXPECT_EQ(target.clique_changes, source.clique_changes);
    EXPECT_EQ(target.et0, source.et0);
    EXPECT_EQ(target.etnt, source.etnt);
    EXPECT_EQ(target.etnt_ratio, source.etnt_ratio);
}

TEST(Graph, ACopyIsIndependentOfItsSource) {
    Graph source = graph_create(4, 1, 0);
    graph_add_tie(source, 0, 1);
    Graph target = graph_create(4, 1, 0);
    graph_copy(source, target);
    graph_add_tie(target, 1, 2);
    target.statistics[0] = 9.0;
    EXPECT_EQ(source.edges, 1);
    EXPECT_EQ(source.statistics[0], 0.0);
    EXPECT_FALSE(graph_has_edge(source, 1, 2));
}

TEST(Graph, DensityIsTheShareOfTiedDyads) {
    Graph graph = graph_create(4, 0, 0);
    EXPECT_EQ(network_density(graph), 0.0);
    graph_add_tie(graph, 0, 1);
    EXPECT_EQ(network_density(graph), 2.0 / 12.0);
    graph_add_tie(graph, 0, 2);
    graph_add_tie(graph, 0, 3);
    EXPECT_EQ(network_density(graph), 0.5);
}

}  // namespace
