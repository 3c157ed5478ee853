// Descriptive measures of both kinds of network, against the plain reference and by hand.
#include "measures/descriptives.h"

#include <gtest/gtest.h>

#include <cmath>

#include "effects/geometric_weights.h"
#include "measures/clustering.h"
#include "measures/geodesics.h"
#include "reference/descriptives.h"
#include "support/random_digraphs.h"
#include "support/random_networks.h"

using reference::PlainDigraph;
using reference::PlainGraph;

namespace {

template <class Network>
std::vector<int> quartiles(const Network& network) {
    const std::array<int, 4> values = geodesic_quartiles(network);
    return {values.begin(), values.end()};
}

Graph refreshed(const PlainGraph& plain) {
    Graph graph = engine_graph(plain);
    refresh_descriptives(graph);
    return graph;
}

Digraph refreshed(const PlainDigraph& plain) {
    Digraph digraph = engine_digraph(plain);
    refresh_descriptives(digraph);
    return digraph;
}

void expect_description(const PlainGraph& plain) {
    const Graph graph = refreshed(plain);
    EXPECT_EQ(graph.geodesic_distribution, reference::geodesic_distribution(plain));
    EXPECT_EQ(graph.clustering, reference::local_clustering(plain));
    EXPECT_EQ(static_cast<int>(graph.largest_component), reference::largest_component(plain));
    EXPECT_EQ(mean_local_clustering(graph), reference::mean_local_clustering(plain));
    EXPECT_EQ(global_clustering(graph), reference::global_clustering(plain));
    EXPECT_EQ(quartiles(graph),
              reference::geodesic_quartiles(reference::geodesic_distribution(plain)));
    if (plain.n > 1) {
        EXPECT_EQ(network_density(graph), reference::density(plain));
        EXPECT_EQ(mean_degree(graph), reference::mean_degree(plain));
    }
}

void expect_description(const PlainDigraph& plain) {
    Digraph digraph = refreshed(plain);
    EXPECT_EQ(digraph.geodesic_distribution, reference::geodesic_distribution(plain));
    EXPECT_EQ(quartiles(digraph),
              reference::geodesic_quartiles(reference::geodesic_distribution(plain)));
    if (plain.n > 1) {
        EXPECT_EQ(network_density(digraph), reference::density(plain));
        EXPECT_EQ(mean_degree(digraph), reference::mean_degree(plain));
    }
    const DirectedClustering clustering =
        directed_clustering(digraph, geometric_weight_table(kDefaultLambda, kWeightTableLength));
    const reference::DirectedClustering expected = reference::directed_clustering(plain);
    EXPECT_EQ(clustering.cto, expected.cto);
    EXPECT_EQ(clustering.cti, expected.cti);
    EXPECT_EQ(clustering.ctm, expected.ctm);
    EXPECT_EQ(clustering.ccm, expected.ccm);
    EXPECT_EQ(clustering.akc_t, expected.akc_t);
    EXPECT_EQ(clustering.akc_d, expected.akc_d);
    EXPECT_EQ(clustering.akc_u, expected.akc_u);
    EXPECT_EQ(clustering.akc_c, expected.akc_c);
}

TEST(Description, OfAGraphEqualsTheReference) {
    for (const PlainGraph& plain : graphs_of_all_densities(701, 1, 14, 2)) {
        expect_description(plain);
    }
    for (const PlainGraph& plain : graphs_across_words(702)) {
        expect_description(plain);
    }
}

TEST(Description, OfADigraphEqualsTheReference) {
    for (const PlainDigraph& plain : random_digraphs(1, 12, 703)) {
        expect_description(plain);
    }
    std::mt19937 random(704);
    expect_description(random_digraph(70, 0.02, random));
    expect_description(random_digraph(129, 0.01, random));
}

TEST(Description, OfAnEmptyNetworkHasOnlyInfiniteGeodesics) {
    const Graph graph = refreshed(reference::empty_graph(6));
    EXPECT_EQ(network_density(graph), 0.0);
    EXPECT_EQ(graph.geodesic_distribution, (std::vector<int>{0, 0, 0, 0, 0, 15}));
    EXPECT_EQ(quartiles(graph), (std::vector<int>{6, 6, 6, 6}));
    EXPECT_EQ(graph.largest_component, 1U);
    const Digraph digraph = refreshed(reference::empty_digraph(6));
    EXPECT_EQ(network_density(digraph), 0.0);
    EXPECT_EQ(digraph.geodesic_distribution, (std::vector<int>{0, 0, 0, 0, 0, 30}));
    EXPECT_EQ(quartiles(digraph), (std::vector<int>{6, 6, 6, 6}));
}

TEST(Description, OfACompleteNetworkIsOneThroughout) {
    const Graph graph = refreshed(reference::complete_graph(7));
    EXPECT_EQ(quartiles(graph), (std::vector<int>{1, 1, 1, 1}));
    EXPECT_EQ(graph.clustering, std::vector<double>(7, 1.0));
    EXPECT_EQ(mean_local_clustering(graph), 1.0);
    EXPECT_EQ(global_clustering(graph), 1.0);
    EXPECT_EQ(graph.largest_component, 7U);
    EXPECT_EQ(quartiles(refreshed(reference::complete_digraph(7))), (std::vector<int>{1, 1, 1, 1}));
}

TEST(Description, OfTwoTrianglesApartHasNineInfiniteGeodesics) {
    const Graph graph =
        refreshed(reference::make_graph(6, {{0, 1}, {0, 2}, {1, 2}, {3, 4}, {3, 5}, {4, 5}}));
    EXPECT_EQ(graph.largest_component, 3U);
    EXPECT_EQ(graph.geodesic_distribution, (std::vector<int>{6, 0, 0, 0, 0, 9}));
}

TEST(Description, OfAStarCountsOnlyTheCentreInItsMeanClustering) {
    Graph graph = refreshed(reference::make_graph(5, {{0, 1}, {0, 2}, {0, 3}, {0, 4}}));
    EXPECT_EQ(mean_local_clustering(graph), 0.0);
    // Were the leaves in the denominator, the centre's value would be divided by five.
    graph.clustering[0] = 0.75;
    EXPECT_EQ(mean_local_clustering(graph), 0.75);
}

TEST(Description, MeanClusteringIsZeroWithoutAnActorOfTwoTies) {
    const Graph graph = refreshed(reference::make_graph(4, {{0, 1}, {2, 3}}));
    EXPECT_EQ(mean_local_clustering(graph), 0.0);
    EXPECT_EQ(global_clustering(graph), 0.0);
}

TEST(Description, OfNoActorAndOfOneHasNoPairs) {
    const Graph none = refreshed(reference::empty_graph(0));
    EXPECT_EQ(none.largest_component, 1U);
    EXPECT_EQ(quartiles(none), (std::vector<int>{0, 0, 0, 0}));
    const Graph one = refreshed(reference::empty_graph(1));
    EXPECT_EQ(one.largest_component, 1U);
    EXPECT_EQ(one.geodesic_distribution, (std::vector<int>{0}));
    EXPECT_EQ(quartiles(one), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(quartiles(refreshed(reference::empty_digraph(0))), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(quartiles(refreshed(reference::empty_digraph(1))), (std::vector<int>{0, 0, 0, 0}));
}

TEST(Description, QuartilesAreEntriesOfTheSortedDistances) {
    // Six distances: 1 1 1 2 2 3 on a path of four; entries 1, 2, 3 and 5.
    EXPECT_EQ(quartiles(refreshed(reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}}))),
              (std::vector<int>{1, 1, 2, 3}));
}

// More than one batch of sources, with isolates and separate parts.
TEST(Description, GeodesicsOfLargerNetworksAreThoseOfTheReference) {
    TestRandom random(91);
    for (const int n : {64, 65, 255, 257}) {
        for (const double density : {0.005, 0.02}) {
            const PlainGraph plain = random_graph(random, n, density);
            const Graph graph = refreshed(plain);
            EXPECT_EQ(graph.geodesic_distribution, reference::geodesic_distribution(plain)) << n;
            EXPECT_EQ(static_cast<int>(graph.largest_component),
                      reference::largest_component(plain));
        }
    }
}

TEST(Description, OfADirectedPathFollowsTheArcs) {
    const Digraph digraph = refreshed(reference::make_digraph(3, {{0, 1}, {1, 2}}));
    EXPECT_EQ(digraph.geodesic_distribution, (std::vector<int>{2, 1, 3}));
}

TEST(Description, IsASnapshotThatNoToggleTouches) {
    Graph graph = refreshed(reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}}));
    const std::vector<int> distribution = graph.geodesic_distribution;
    graph_add_tie(graph, 0, 2);
    EXPECT_EQ(graph.geodesic_distribution, distribution);
    EXPECT_EQ(graph.clustering, std::vector<double>(4, 0.0));
    // These two are of the network as it is now.
    EXPECT_EQ(global_clustering(graph), 0.6);
    EXPECT_EQ(network_density(graph), 2.0 * 4 / 12);
    refresh_descriptives(graph);
    EXPECT_EQ(graph.geodesic_distribution, (std::vector<int>{4, 2, 0, 0}));
    EXPECT_EQ(graph.clustering, (std::vector<double>{1.0, 1.0, 1.0 / 3.0, 0.0}));
}

TEST(Description, DirectedClusteringOfASmallNetworkIsWorkedByHand) {
    Digraph digraph =
        engine_digraph(reference::make_digraph(4, {{0, 1}, {1, 0}, {1, 2}, {0, 2}, {2, 3}}));
    const DirectedClustering clustering =
        directed_clustering(digraph, geometric_weight_table(kDefaultLambda, kWeightTableLength));
    // Two transitive triples over two out-stars, one in-star and four paths; no cycle.
    EXPECT_EQ(clustering.cto, 0.5);
    EXPECT_EQ(clustering.cti, 1.0);
    EXPECT_EQ(clustering.ctm, 0.5);
    EXPECT_EQ(clustering.ccm, 0.0);
    EXPECT_EQ(clustering.akc_t, 0.5);
    EXPECT_EQ(clustering.akc_d, 0.5);
    EXPECT_EQ(clustering.akc_u, 1.0);
    EXPECT_EQ(clustering.akc_c, 0.0);
}

TEST(EtCounts, RatiosAreSinglePrecisionQuotients) {
    Graph graph = graph_create(2, 0, 0);
    graph.et0 = {3, 7};
    graph.etnt = {1, 5};
    refresh_et_ratios(graph);
    EXPECT_EQ(graph.etnt_ratio, (std::vector<double>{static_cast<double>(1.0F / 3.0F),
                                                     static_cast<double>(5.0F / 7.0F)}));
}

TEST(EtCounts, OnlyTheirStatisticsAreRecounted) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.structural[graph_effect::kEdge].position = 0;
    selection.structural[graph_effect::kEtnt].position = 1;
    selection.structural_count = 2;
    Graph graph = engine_graph(reference::make_graph(4, {{0, 1}, {0, 2}, {1, 2}, {2, 3}}), 2);
    graph.statistics = {50, 60};
    recount_uncarried(graph, selection);
    EXPECT_EQ(graph.statistics, (std::vector<double>{50, 1}));
}

}  // namespace
