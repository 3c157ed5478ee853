// The files that grow by a row a sample: their heads and rows in full.
#include "report/sample_tables.h"

#include <gtest/gtest.h>

#include "measures/descriptives.h"
#include "report/statistics_report.h"
#include "support/catalogue_lists.h"
#include "support/random_digraphs.h"
#include "support/random_networks.h"
#include "support/scratch_directory.h"

namespace {

OutputPaths paths_in(const ScratchDirectory& scratch) {
    return output_paths(scratch.path().string(), "net", '/');
}

OutputSwitches every_switch() {
    OutputSwitches switches;
    switches.sample_graphs = true;
    switches.degree_distribution = true;
    switches.geodesic_distribution = true;
    switches.cluster_giant = true;
    switches.triangle_distribution = true;
    switches.two_path_distribution = true;
    switches.et_distribution = true;
    return switches;
}

// A triangle 0 1 2 and the pendant 3 at actor 2.
Graph small_graph() {
    Graph graph = engine_graph(reference::make_graph(4, {{0, 1}, {0, 2}, {1, 2}, {2, 3}}), 2);
    refresh_descriptives(graph);
    return graph;
}

// 0 and 1 choose each other and both choose 2, who chooses 3.
Digraph small_digraph() {
    Digraph digraph =
        engine_digraph(reference::make_digraph(4, {{0, 1}, {1, 0}, {0, 2}, {1, 2}, {2, 3}}), 1);
    refresh_descriptives(digraph);
    return digraph;
}

TEST(SampleTable, HeadOfTheFullUndirectedModel) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    write_sample_head(full_selection(NetworkKind::undirected, {"a", "b"}), paths.simulation);
    EXPECT_EQ(
        scratch.read("simulation_net.txt"),
        "id\tedge\tstar2\tstar3\tstar4\tstar5\ttriangle\tclique4\tclique5\tclique6\tclique7\t"
        "iso\ttriangle2\tbow_tie\tp3\tq10\tq20\tq30\tq31\tpath3\tcycle4\tet1\tet2\tet0\tetnt\t"
        "two3star\tone2triangle\tone2et\tas\tas2\tat\tat2\ta2p\tac\taet\taeat\t"
        "a_t3u\tb_t3u\ta_t2u\tb_t2u\ta_t1u\tb_t1u\ta_o3u\tb_o3u\ta_o2au\tb_o2au\ta_o2bu\t"
        "b_o2bu\ta_o1au\tb_o1au\ta_o1bu\tb_o1bu\ta_interaction\tb_interaction\ta_activity\t"
        "b_activity\ta_sum\tb_sum\ta_diff\tb_diff\ta_prod\tb_prod\ta_sameC\tb_sameC\t"
        "a_diffC\tb_diffC\ta_edge\tb_edge\ta_S21\tb_S21\ta_S22\tb_S22\ta_t1\tb_t1\ta_t2\t"
        "b_t2\ta_t3\tb_t3\t\n");
}

TEST(SampleTable, HeadOfTheFullDirectedModel) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    write_sample_head(full_selection(NetworkKind::directed, {"a"}), paths.simulation);
    EXPECT_EQ(
        scratch.read("simulation_net.txt"),
        "id\tarc\trecip\tin2star\tout2star\tin3star\tout3star\tmix2star\tt7\tt8\tt6\tt10\tt3\t"
        "t2\tt5\tt4\tt9\tt1\tsink\tsource\tiso\tkinstar\tkoutstar\tkinstar2\tkoutstar2\t"
        "konestar\tonelstar\tklstar\ttktri\tcktri\tdktri\tuktri\tattd\tattu\tatdu\tattdu\t"
        "talt2p\tdalt2p\tualt2p\ta2ptd\ta2ptu\ta2pdu\ta2ptdu\t"
        "a_interaction\ta_sender\ta_interaction\ta_sender_missing\ta_receiver_missing\t"
        "a_t2u11\ta_t1u11\ta_in2star\ta_path2\ta_out2star\ta_sender\ta_receiver\t"
        "a_sender_missing\ta_receiver_missing\ta_interaction_sum\ta_interaction_difff\t"
        "a_interaction_prodd\ta_sum_reciprocity\ta_diff_reciprocity\ta_prod_reciprocity\t"
        "a_in2star\ta_out2star\ta_2path\ta_matching\ta_mismatch\ta_matching_reciprocity\t"
        "a_mismatch_reciprocity\ta_arc\t\n");
}

TEST(SampleTable, HeadReplacesTheFileAndRowsAreAppended) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    scratch.write("simulation_net.txt", "of an earlier run\n");
    EffectSelection selection = selection_create(NetworkKind::undirected);
    constexpr int kAs = 28;
    // In the model "AS" stands before "edge" and "Triangle"; in the table behind them.
    selection.structural[kAs].position = 0;
    selection.structural[graph_effect::kTriangle].position = 1;
    selection.structural[graph_effect::kEdge].position = 2;
    selection.structural_count = 3;
    write_sample_head(selection, paths.simulation);
    write_sample_row(selection, {7.125, 2, 5}, 333, paths.simulation);
    write_sample_row(selection, {-0.005, 0, 12345678}, 3000000000.0, paths.simulation);
    EXPECT_EQ(scratch.read("simulation_net.txt"),
              "id\tedge\ttriangle\tas\t\n"
              "333\t5\t2\t7.12\t\n"
              "3000000000\t12345678\t0\t-0.01\t\n");
}

TEST(SampleTable, OfAModelWithoutEffectsHoldsTheProposalNumbers) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    const EffectSelection selection = selection_create(NetworkKind::directed);
    write_sample_head(selection, paths.simulation);
    write_sample_row(selection, {}, 10, paths.simulation);
    EXPECT_EQ(scratch.read("simulation_net.txt"), "id\t\n10\t\n");
}

TEST(SampleTable, AttributeColumnsAreWholeNumbers) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection_resize_group(selection, AttributeGroup::continuous, 2);
    AttributeSelection& group = group_of(selection, AttributeGroup::continuous);
    group.attributes = 2;
    group.selected = 2;
    group.choices[0][0].flag = 1;
    group.choices[0][1].flag = 1;
    selection.table.continuous_names = {"age", "rank"};
    write_sample_head(selection, paths.simulation);
    write_sample_row(selection, {10.7, 3.2}, 5, paths.simulation);
    EXPECT_EQ(scratch.read("simulation_net.txt"), "id\tage_sum\trank_sum\t\n5\t11\t3\t\n");
}

TEST(Distributions, OfAGraphHaveHeadsAndRows) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    Graph graph = small_graph();
    const EffectSelection selection = selection_create(NetworkKind::undirected);
    write_distribution_heads(graph, every_switch(), paths);
    write_distribution_rows(graph, selection, every_switch(), paths);

    EXPECT_EQ(scratch.read("degree_distribution_net.txt"),
              "d0\td1\td2\td3\tstddev\tskew\n"
              "0\t1\t2\t1\t0.816497\t0.000000\t\n");
    EXPECT_EQ(scratch.read("geodesic_distribution_net.txt"),
              "geo1\tgeo2\tgeo3\tgeoInf\n"
              "4\t2\t0\t0\t\n");
    EXPECT_EQ(scratch.read("geodesic_quartiles_net.txt"), "1\t1\t1\t2\t\n");
    EXPECT_EQ(scratch.read("cluster_giant_net.txt"),
              "mlocal\tglobal\tgiant\n"
              "0.78\t0.60\t4\n");
    // These two heads do not end their line.
    EXPECT_EQ(scratch.read("triangle_distribution_net.txt"),
              "t0\tt1\tt2\tt3\tmean\tstddev\tskew\t"
              "1\t3\t0\t0\t0.750000\t0.500000\t-0.750000\t\n");
    EXPECT_EQ(scratch.read("twopath_distribution_net.txt"),
              "tp0\ttp1\ttp2\tmean\tstddev\tskew\t"
              "1\t5\t0\t0.833333\t0.408248\t-2.041241\t\n");
    EXPECT_EQ(scratch.read("et0nt_distribution_net.txt"),
              "et0_v1\tet0_v2\tet0_v3\tet0_v4\tmean\tstddev\tskew\t"
              "etnt_v1\tetnt_v2\tetnt_v3\tetnt_v4\tmean\tstddev\tskew\t"
              "etntratio_v1\tetntratio_v2\tetntratio_v3\tetntratio_v4\tmean\tstddev\tskew\n"
              "0\t0\t1\t0\t0.250000\t0.500000\t0.750000\t"
              "0\t0\t1\t0\t0.250000\t0.500000\t0.750000\t"
              "0.000000\t0.000000\t1.000000\t0.000000\t0.250000\t0.500000\t0.750000\t\n");
}

TEST(Distributions, OfADigraphHaveHeadsAndRows) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    Digraph digraph = small_digraph();
    const EffectSelection selection = selection_create(NetworkKind::directed);
    write_distribution_heads(digraph, every_switch(), paths);
    write_distribution_rows(digraph, selection, every_switch(), paths);

    EXPECT_EQ(scratch.read("degree_distribution_net.txt"),
              "ind0\tind1\tind2\tind3\tstdin\tskewin\t"
              "outd0\toutd1\toutd2\toutd3\tstdout\tskewout\tcorr\n"
              "0\t3\t1\t0\t0.500000\t0.750000\t"
              "1\t1\t2\t0\t0.957427\t-0.320461\t-0.130558\t\n");
    EXPECT_EQ(scratch.read("geodesic_distribution_net.txt"),
              "geo1\tgeo2\tgeo3\tgeoInf\n"
              "5\t2\t0\t5\t\n");
    EXPECT_EQ(scratch.read("geodesic_quartiles_net.txt"), "1\t2\t4\t4\t\n");
    // Between "akct" and "kcd" stands the character BEL.
    EXPECT_EQ(scratch.read("cluster_giant_net.txt"),
              std::string("cto\tcti\tctm\tccm\takct") + '\x07' + "kcd\takcu\takcc\n" +
                  "0.50\t1.00\t0.50\t0.00\t0.50\t0.50\t1.00\t0.00\n");
    EXPECT_FALSE(scratch.exists("triangle_distribution_net.txt"));
    EXPECT_FALSE(scratch.exists("twopath_distribution_net.txt"));
    EXPECT_FALSE(scratch.exists("et0nt_distribution_net.txt"));
}

TEST(Distributions, AreWrittenOnlyWhereTheirSwitchIsOn) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    Graph graph = small_graph();
    Digraph digraph = small_digraph();
    const OutputSwitches none;
    write_distribution_heads(graph, none, paths);
    write_distribution_heads(digraph, none, paths);
    write_distribution_rows(graph, selection_create(NetworkKind::undirected), none, paths);
    write_distribution_rows(digraph, selection_create(NetworkKind::directed), none, paths);
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST(Distributions, HeadsAreAppended) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    scratch.write("cluster_giant_net.txt", "kept\n");
    OutputSwitches switches;
    switches.cluster_giant = true;
    write_distribution_heads(small_graph(), switches, paths);
    write_distribution_heads(small_graph(), switches, paths);
    EXPECT_EQ(scratch.read("cluster_giant_net.txt"),
              "kept\nmlocal\tglobal\tgiant\nmlocal\tglobal\tgiant\n");
}

TEST(Distributions, OfOneActorHaveNoTwoPathCells) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    Graph graph = graph_create(1, 0, 0);
    refresh_descriptives(graph);
    write_distribution_heads(graph, every_switch(), paths);
    write_distribution_rows(graph, selection_create(NetworkKind::undirected), every_switch(),
                            paths);
    EXPECT_EQ(scratch.read("geodesic_distribution_net.txt"), "geoInf\n0\t\n");
    EXPECT_EQ(scratch.read("geodesic_quartiles_net.txt"), "0\t0\t0\t0\t\n");
    EXPECT_EQ(scratch.read("twopath_distribution_net.txt").rfind("mean\tstddev\tskew\t", 0), 0U);
    EXPECT_EQ(
        scratch.read("triangle_distribution_net.txt").rfind("t0\tmean\tstddev\tskew\t1\t0.0", 0),
        0U);
}

TEST(Distributions, TheEtCountsAreRecountedUnlessBothEffectsAreSelected) {
    for (const bool both : {false, true}) {
        const ScratchDirectory scratch;
        const OutputPaths paths = paths_in(scratch);
        EffectSelection selection = selection_create(NetworkKind::undirected);
        selection.structural[graph_effect::k0et].position = 0;
        selection.structural_count = 1;
        if (both) {
            selection.structural[graph_effect::kEtnt].position = 1;
            selection.structural_count = 2;
        }
        Graph graph = small_graph();
        graph.statistics = {70, 80};
        graph.et0 = {0, 4, 0, 0};
        graph.etnt = {0, 3, 0, 0};
        OutputSwitches switches;
        switches.et_distribution = true;
        write_distribution_rows(graph, selection, switches, paths);
        const std::string row = scratch.read("et0nt_distribution_net.txt");
        EXPECT_EQ(row.substr(0, 8), both ? "0\t4\t0\t0\t" : "0\t0\t1\t0\t");
        EXPECT_NE(row.find(both ? "0.000000\t0.750000\t0.000000\t0.000000\t"
                                : "0.000000\t0.000000\t1.000000\t0.000000\t"),
                  std::string::npos);
        EXPECT_EQ(graph.statistics, (std::vector<double>{70, 80}));
    }
}

TEST(SampleGraph, IsAReportUnderItsNumberAndAPajekRecord) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    const EffectSelection selection = selection_create(NetworkKind::undirected);
    Graph graph = small_graph();
    write_sample_graph(graph, selection, 333, paths);
    write_sample_graph(graph, selection, 666, paths);
    report_statistics(graph, selection, (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("sample_statistics_net333.txt"), scratch.read("report.txt"));
    EXPECT_EQ(scratch.read("sample_statistics_net666.txt"), scratch.read("report.txt"));
    const std::string matrix = "*vertices 4\n*matrix\n0 1 1 0 \n1 0 1 0 \n1 1 0 1 \n0 0 1 0 \n\n\n";
    EXPECT_EQ(scratch.read("pajek_net.paj"), "*Network " + paths.sample_statistics + "333.txt\n" +
                                                 matrix + "*Network " + paths.sample_statistics +
                                                 "666.txt\n" + matrix);
}

TEST(SampleGraph, OfADigraphHasNoAsterisks) {
    const ScratchDirectory scratch;
    const OutputPaths paths = paths_in(scratch);
    const EffectSelection selection = selection_create(NetworkKind::directed);
    Digraph digraph = small_digraph();
    write_sample_graph(digraph, selection, 12, paths);
    report_statistics(digraph, selection, (scratch.path() / "report.txt").string());
    EXPECT_EQ(scratch.read("sample_statistics_net12.txt"), scratch.read("report.txt"));
    EXPECT_EQ(scratch.read("pajek_net.paj"),
              "Network " + paths.sample_statistics +
                  "12.txt\nvertices 4\nmatrix\n0 1 1 0 \n1 0 1 0 \n0 0 0 1 \n0 0 0 0 \n\n\n");
}

}  // namespace
