// The whole statistics report of small undirected networks, worked by hand.
#include <gtest/gtest.h>

#include "measures/descriptives.h"
#include "report/statistics_report.h"
#include "support/random_networks.h"
#include "support/scratch_directory.h"

namespace {

// A triangle 0 1 2, the pendant 3 at actor 2, and the isolate 4.
Graph small_graph(int statistics) {
    Graph graph =
        engine_graph(reference::make_graph(5, {{0, 1}, {0, 2}, {1, 2}, {2, 3}}), statistics);
    refresh_descriptives(graph);
    return graph;
}

const std::string kMatrix =
    "*vertices 5\n"
    "*matrix\n"
    "0 1 1 0 0 \n"
    "1 0 1 0 0 \n"
    "1 1 0 1 0 \n"
    "0 0 1 0 0 \n"
    "0 0 0 0 0 \n"
    "***This graph contains:****\n"
    "vertices\t5\n";

const std::string kDescription =
    "\n"
    "Graph Density = 0.40000\n"
    "\n"
    "Degree Distribution:(range[0..n-1])\n"
    "1\t1\t2\t1\t0\t\n"
    "\n"
    "Standard deviation of degree distribution = 1.140175\n"
    "Skewness of degree distribution = -0.194302\n"
    "\n"
    "Mean Degree = 1.60000\n"
    "\n"
    "Local Clustering Coefficient:\n"
    "1.00\t1.00\t0.33\t0.00\t0.00\t\n"
    "Mean Local Clustering Coefficient = 0.77778\n"
    "\n"
    "Global Clustering Coefficient = 0.60000\n"
    "\n"
    "Geodesic Distribution:(range[1..n-1,inf])\n"
    "Note: geodesic = shortest path between two nodes.\n"
    "The geodesic distribution is not based on semi-paths.\n"
    "4\t2\t0\t0\t4\t\n"
    "\n"
    "Quartiles of the geodesic distribution.\n"
    "Note: Quartiles equal to the number of nodes refer to infinite geodesics.\n"
    "1\t2\t5\t5\t\n"
    "\n"
    "Two-Path Distribution:(range[0..n-2])\n"
    "5\t5\t0\t0\t\n"
    "Mean of two-path distribution = 0.500000\n"
    "Standard deviation of two-path distribution = 0.527046\n"
    "Skew of two-path distribution = 0.000000\n"
    "Triangle Distribution:(range[0..(n-2)*(n-1)/2])\n"
    "2\t3\t0\t0\t0\t0\t0\t\n"
    "Mean of triangle distribution = 0.600000\n"
    "Standard deviation of triangle distribution = 0.547723\n"
    "Skewness of triangle distribution = -0.292119\n";

void select(EffectSelection& selection, int id) {
    selection.structural[static_cast<std::size_t>(id)].position = selection.structural_count++;
}

// One attribute of a group, with one of its rows on.
void select_row(EffectSelection& selection, AttributeGroup which, std::size_t row) {
    selection_resize_group(selection, which, 1);
    AttributeSelection& group = group_of(selection, which);
    group.attributes = 1;
    group.selected = 1;
    group.choices[row][0].flag = 1;
}

TEST(GraphReport, OfAModelWithoutEffectsHoldsMatrixAndDescription) {
    const ScratchDirectory scratch;
    Graph graph = small_graph(0);
    report_statistics(graph, selection_create(NetworkKind::undirected),
                      (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("report.txt"), kMatrix + kDescription);
}

TEST(GraphReport, ShowsEachSelectedEffectWithItsOwnStatistic) {
    const ScratchDirectory scratch;
    EffectSelection selection = selection_create(NetworkKind::undirected);
    constexpr int kAs = 28;
    // Isolates come first in the model here; the report goes by its own order.
    select(selection, graph_effect::kIsolates);
    select(selection, graph_effect::kEdge);
    select(selection, kAs);
    selection.structural[kAs].lambda = 1.5F;
    select_row(selection, AttributeGroup::binary, 9);
    select_row(selection, AttributeGroup::continuous, 0);
    select_row(selection, AttributeGroup::categorical, 1);
    select_row(selection, AttributeGroup::covariate, 2);
    selection.table.binary_names = {"senior"};
    selection.table.continuous_names = {"age"};
    selection.table.categorical_names = {"office"};
    selection.table.covariate_names = {"advice"};
    Graph graph = small_graph(7);
    graph.statistics = {1, 4, 2.3456789, 6, 123.5, 3, 0.0625};
    report_statistics(graph, selection, (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("report.txt"), kMatrix +
                                              "edges\t4\n"
                                              "Isolates\t1\n"
                                              "AS(1.50)\t2.34568\n"
                                              "senior_activity\t6\n"
                                              "age_sum\t123.50000\n"
                                              "office_diff_Category\t3\n"
                                              "advice_S22\t0.06250\n" +
                                              kDescription);
}

TEST(GraphReport, IsAppended) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("report.txt", "before\n");
    Graph graph = small_graph(0);
    const EffectSelection selection = selection_create(NetworkKind::undirected);
    report_statistics(graph, selection, path);
    report_statistics(graph, selection, path);
    EXPECT_EQ(scratch.read("report.txt"),
              "before\n" + kMatrix + kDescription + kMatrix + kDescription);
}

TEST(GraphReport, ShowsTheEtCountsAsLastMadeWhereEitherIsSelected) {
    // The counts are no counts of this network: a report never recounts them. Actors 0 and 4 have
    // none, so their ratios stay what they were.
    const std::string section =
        "\n"
        "ET0 for each node\n"
        "0\t1\t4\t2\t0\t\n"
        "Mean of ET0 = 1.400000\n"
        "Standard deviation of ET0 = 1.673320\n"
        "Skew of ET0 = 0.522486\n"
        "\n"
        "\n"
        "ETNT for each node\n"
        "0\t1\t1\t0\t0\t\n"
        "Mean of ETNT = 0.400000\n"
        "Standard deviation of ETNT = 0.547723\n"
        "Skew of ETNT = 0.292119\n"
        "\n"
        "\n"
        "ETNT/ET0 for each node\n"
        "7.500000\t1.000000\t0.250000\t0.000000\t0.125000\t\n"
        "Mean of ETNT/ET0 = 1.775000\n"
        "Standard deviation of ETNT/ET0 = 3.223934\n"
        "Skew of ETNT/ET0 = 1.035812\n";
    for (const auto& [id, row] :
         {std::pair{graph_effect::k0et, "0ET\t8\n"}, {graph_effect::kEtnt, "ETNT\t8\n"}}) {
        const ScratchDirectory scratch;
        EffectSelection selection = selection_create(NetworkKind::undirected);
        select(selection, id);
        Graph graph = small_graph(1);
        graph.statistics = {8};
        graph.et0 = {0, 1, 4, 2, 0};
        graph.etnt = {0, 1, 1, 0, 0};
        graph.etnt_ratio = {7.5, 9, 9, 9, 0.125};
        report_statistics(graph, selection, (scratch.path() / "report.txt").string());
        EXPECT_EQ(scratch.read("report.txt"), kMatrix + row + kDescription + section);
        EXPECT_EQ(graph.etnt_ratio, (std::vector<double>{7.5, 1, 0.25, 0, 0.125}));
        EXPECT_EQ(graph.statistics, (std::vector<double>{8}));
    }
}

TEST(GraphReport, ShowsSnapshotsBesideCurrentDistributions) {
    const ScratchDirectory scratch;
    Graph graph = small_graph(0);
    graph_add_tie(graph, 3, 4);
    report_statistics(graph, selection_create(NetworkKind::undirected),
                      (scratch.path() / "report.txt").string());
    const std::string report = scratch.read("report.txt");
    // Of the network as it is: density, degrees, two-paths, triangles, global clustering.
    EXPECT_NE(report.find("Graph Density = 0.50000\n"), std::string::npos);
    EXPECT_NE(report.find("\n0\t1\t3\t1\t0\t\n\nStandard"), std::string::npos);
    EXPECT_NE(report.find("Global Clustering Coefficient = 0.50000\n"), std::string::npos);
    // As last refreshed: geodesics and local clustering; but the mean is over the four actors that
    // now have two ties.
    EXPECT_NE(report.find("semi-paths.\n4\t2\t0\t0\t4\t\n"), std::string::npos);
    EXPECT_NE(report.find("1.00\t1.00\t0.33\t0.00\t0.00\t\nMean Local Clustering Coefficient = "
                          "0.58333\n"),
              std::string::npos);
}

TEST(GraphReport, OfOneActorIsWrittenWithoutADyad) {
    const ScratchDirectory scratch;
    Graph graph = graph_create(1, 0, 0);
    refresh_descriptives(graph);
    report_statistics(graph, selection_create(NetworkKind::undirected),
                      (scratch.path() / "report.txt").string());
    std::string report = scratch.read("report.txt");
    // The sign of what is not a number, and of a zero divided by a negative count, is the
    // platform's.
    for (std::size_t at = report.find("= -"); at != std::string::npos; at = report.find("= -")) {
        report.erase(at + 2, 1);
    }
    EXPECT_EQ(report,
              "*vertices 1\n"
              "*matrix\n"
              "0 \n"
              "***This graph contains:****\n"
              "vertices\t1\n"
              "\n"
              "Graph Density = nan\n"
              "\n"
              "Degree Distribution:(range[0..n-1])\n"
              "1\t\n"
              "\n"
              "Standard deviation of degree distribution = nan\n"
              "Skewness of degree distribution = nan\n"
              "\n"
              "Mean Degree = 0.00000\n"
              "\n"
              "Local Clustering Coefficient:\n"
              "0.00\t\n"
              "Mean Local Clustering Coefficient = 0.00000\n"
              "\n"
              "Global Clustering Coefficient = 0.00000\n"
              "\n"
              "Geodesic Distribution:(range[1..n-1,inf])\n"
              "Note: geodesic = shortest path between two nodes.\n"
              "The geodesic distribution is not based on semi-paths.\n"
              "0\t\n"
              "\n"
              "Quartiles of the geodesic distribution.\n"
              "Note: Quartiles equal to the number of nodes refer to infinite geodesics.\n"
              "0\t0\t0\t0\t\n"
              "\n"
              "Two-Path Distribution:(range[0..n-2])\n"
              "\n"
              "Mean of two-path distribution = nan\n"
              "Standard deviation of two-path distribution = 0.000000\n"
              "Skew of two-path distribution = 0.000000\n"
              "Triangle Distribution:(range[0..(n-2)*(n-1)/2])\n"
              "1\t\n"
              "Mean of triangle distribution = 0.000000\n"
              "Standard deviation of triangle distribution = nan\n"
              "Skewness of triangle distribution = nan\n");
}

}  // namespace
