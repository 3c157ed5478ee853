// The whole statistics report of small directed networks, worked by hand.
#include <gtest/gtest.h>

#include "measures/descriptives.h"
#include "report/statistics_report.h"
#include "support/random_digraphs.h"
#include "support/scratch_directory.h"

namespace {

// 0 and 1 choose each other and both choose 2, who chooses 3.
Digraph small_digraph(int statistics) {
    Digraph digraph = engine_digraph(
        reference::make_digraph(4, {{0, 1}, {1, 0}, {0, 2}, {1, 2}, {2, 3}}), statistics);
    refresh_descriptives(digraph);
    return digraph;
}

const std::string kMatrix =
    "vertices 4\n"
    "matrix\n"
    "0 1 1 0 \n"
    "1 0 1 0 \n"
    "0 0 0 1 \n"
    "0 0 0 0 \n"
    "\n"
    "***This graph contains:****\n"
    "vertices\t       4\n";

const std::string kDescription =
    "\n"
    "Digraph Density = 0.41667\n"
    "\n"
    "In-degree Distribution:(range[0..n-1])\n"
    "0\t3\t1\t0\t\n"
    "Standard deviation of in-degree distribution = 0.500000\n"
    "Skewness of in-degree distribution = 0.750000\n"
    "Out-degree Distribution:(range[0..n-1])\n"
    "1\t1\t2\t0\t\n"
    "Standard deviation of out-degree distribution = 0.957427\n"
    "Skewness of out-degree distribution = -0.320461\n"
    "Corr. Coef. between in and out degree distributions = -0.130558\n"
    "Mean degree = 1.25000\n"
    "\n"
    "Global Clustering Coefficients:\n"
    "Cto =  0.50000\n"
    "Cti =  1.00000\n"
    "Ctm =  0.50000\n"
    "Ccm =  0.00000\n"
    "AKC-T =  0.50000\n"
    "AKC-D =  0.50000\n"
    "AKC-U =  1.00000\n"
    "AKC-C =  0.00000\n"
    "\n"
    "Geodesic Distribution:(range[1..n-1,inf])\n"
    "Note: geodesic = shortest path between two nodes.\n"
    "The geodesic distribution is not based on semi-paths.\n"
    "5\t2\t0\t5\t\n"
    "Quartiles of the geodesic distribution.\n"
    "Note: Quartiles equal to the number of nodes refer to infinite geodesics.\n"
    "1\t2\t4\t4\t\n"
    "Triad Census:\n"
    "300\t0\n"
    "210\t0\n"
    "120C\t0\n"
    "120D\t0\n"
    "120U\t1\n"
    "201\t0\n"
    "111D\t0\n"
    "111U\t0\n"
    "030T\t0\n"
    "030C\t0\n"
    "102\t1\n"
    "021D\t0\n"
    "021C\t2\n"
    "021U\t0\n"
    "012\t0\n"
    "003\t0\n";

void select(EffectSelection& selection, int id) {
    selection.structural[static_cast<std::size_t>(id)].position = selection.structural_count++;
}

void select_row(EffectSelection& selection, AttributeGroup which, std::size_t row) {
    selection_resize_group(selection, which, 1);
    AttributeSelection& group = group_of(selection, which);
    group.attributes = 1;
    group.selected = 1;
    group.choices[row][0].flag = 1;
}

TEST(DigraphReport, OfAModelWithoutEffectsHoldsMatrixDescriptionAndCensus) {
    const ScratchDirectory scratch;
    Digraph digraph = small_digraph(0);
    report_statistics(digraph, selection_create(NetworkKind::directed),
                      (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("report.txt"), kMatrix + kDescription);
}

TEST(DigraphReport, ShowsEachSelectedEffectWithItsOwnStatistic) {
    const ScratchDirectory scratch;
    EffectSelection selection = selection_create(NetworkKind::directed);
    constexpr int kAinS2 = 24;
    select(selection, digraph_effect::kTransitiveTriad);
    select(selection, digraph_effect::kCyclicTriad);
    select(selection, digraph_effect::kArc);
    select(selection, kAinS2);
    selection.structural[kAinS2].lambda = 3.25F;
    select_row(selection, AttributeGroup::binary, 3);
    select_row(selection, AttributeGroup::continuous, 1);
    select_row(selection, AttributeGroup::categorical, 0);
    select_row(selection, AttributeGroup::covariate, 0);
    selection.table.binary_names = {"senior"};
    selection.table.continuous_names = {"age"};
    selection.table.categorical_names = {"office"};
    selection.table.covariate_names = {"advice"};
    Digraph digraph = small_digraph(8);
    digraph.statistics = {2, 0, 5, 1.9999961, 6, 123.5, 3, 0.0625};
    report_statistics(digraph, selection, (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("report.txt"), kMatrix +
                                              "arc\t5\n"
                                              "T9(030T)\t2\n"
                                              "T10(030C)\t0\n"
                                              "AinS(3.25)\t2.00000\n"
                                              "senior_sender_missing\t6\n"
                                              "age_Receiver\t123.50000\n"
                                              "office_matching\t3\n"
                                              "advice_arc\t0.06250\n" +
                                              kDescription);
}

TEST(DigraphReport, AlwaysShowsTheCurrentCensusButGeodesicsAsLastRefreshed) {
    const ScratchDirectory scratch;
    Digraph digraph = small_digraph(0);
    digraph_add_tie(digraph, 3, 2);
    report_statistics(digraph, selection_create(NetworkKind::directed),
                      (scratch.path() / "report.txt").string());
    const std::string report = scratch.read("report.txt");
    EXPECT_NE(report.find("semi-paths.\n5\t2\t0\t5\t\nQuartiles"), std::string::npos);
    EXPECT_NE(report.find("In-degree Distribution:(range[0..n-1])\n0\t3\t0\t1\t\n"),
              std::string::npos);
    // The two chains over 2 are mutual pairs that are sent to now.
    EXPECT_NE(report.find("111D\t2\n"), std::string::npos);
    EXPECT_NE(report.find("021C\t0\n"), std::string::npos);
}

TEST(DigraphReport, OfOneActorHasFourQuartilesAndAnEmptyCensus) {
    const ScratchDirectory scratch;
    Digraph digraph = digraph_create(1, 0);
    refresh_descriptives(digraph);
    report_statistics(digraph, selection_create(NetworkKind::directed),
                      (scratch.path() / "report.txt").string());
    std::string report = scratch.read("report.txt");
    // The sign of what is not a number is the platform's.
    for (std::size_t at = report.find("= -nan"); at != std::string::npos;
         at = report.find("= -nan")) {
        report.erase(at + 2, 1);
    }
    EXPECT_EQ(report,
              "vertices 1\n"
              "matrix\n"
              "0 \n"
              "\n"
              "***This graph contains:****\n"
              "vertices\t       1\n"
              "\n"
              "Digraph Density = nan\n"
              "\n"
              "In-degree Distribution:(range[0..n-1])\n"
              "1\t\n"
              "Standard deviation of in-degree distribution = nan\n"
              "Skewness of in-degree distribution = nan\n"
              "Out-degree Distribution:(range[0..n-1])\n"
              "1\t\n"
              "Standard deviation of out-degree distribution = nan\n"
              "Skewness of out-degree distribution = nan\n"
              "Corr. Coef. between in and out degree distributions = nan\n"
              "Mean degree = 0.00000\n"
              "\n"
              "Global Clustering Coefficients:\n"
              "Cto =  0.00000\n"
              "Cti =  0.00000\n"
              "Ctm =  0.00000\n"
              "Ccm =  0.00000\n"
              "AKC-T =  0.00000\n"
              "AKC-D =  0.00000\n"
              "AKC-U =  0.00000\n"
              "AKC-C =  0.00000\n"
              "\n"
              "Geodesic Distribution:(range[1..n-1,inf])\n"
              "Note: geodesic = shortest path between two nodes.\n"
              "The geodesic distribution is not based on semi-paths.\n"
              "0\t\n"
              "Quartiles of the geodesic distribution.\n"
              "Note: Quartiles equal to the number of nodes refer to infinite geodesics.\n"
              "0\t0\t0\t0\t\n"
              "Triad Census:\n"
              "300\t0\n210\t0\n120C\t0\n120D\t0\n120U\t0\n201\t0\n111D\t0\n111U\t0\n"
              "030T\t0\n030C\t0\n102\t0\n021D\t0\n021C\t0\n021U\t0\n012\t0\n003\t0\n");
}

}  // namespace
