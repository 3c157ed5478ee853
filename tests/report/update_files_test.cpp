// The small files through which estimates go back to the host, whole for both kinds of network.
#include "report/update_files.h"

#include <gtest/gtest.h>

#include "support/catalogue_lists.h"
#include "support/scratch_directory.h"

namespace {

// Every row gets a value of its own: structural ones 0.01, 0.02, ... in setup order, those of group
// g and attribute a g + 10 a + 0.01, 0.02, ... in the order of the statistics.
EffectSelection numbered_selection(NetworkKind kind, const std::vector<std::string>& names) {
    EffectSelection selection = full_selection(kind, names);
    double value = 0.0;
    for (const int id : selection.catalogue->setup_order) {
        value += 0.01;
        selection.structural[static_cast<std::size_t>(id)].value = value;
    }
    for (std::size_t group = 0; group < selection.groups.size(); ++group) {
        auto& choices = selection.groups[group].choices;
        for (std::size_t row = 0; row < choices.size(); ++row) {
            for (std::size_t attribute = 0; attribute < choices[row].size(); ++attribute) {
                choices[row][attribute].value = static_cast<double>(group + 1) +
                                                10.0 * static_cast<double>(attribute) +
                                                0.01 * static_cast<double>(row + 1);
            }
        }
    }
    return selection;
}

// Writes the files into the scratch directory.
void write_in(const ScratchDirectory& scratch, const EffectSelection& selection) {
    write_update_files(selection, output_paths(scratch.path().string(), "net", '/',
                                               selection.catalogue->kind, true));
}

TEST(UpdateFiles, OfAGraphHoldEveryStructuralRow) {
    const ScratchDirectory scratch;
    write_in(scratch, numbered_selection(NetworkKind::undirected, {}));
    EXPECT_EQ(scratch.read("stupdate.ovri"),
              "edge\n0.01000\n2-star\n0.02000\n3-star\n0.03000\n4-star\n0.04000\n5-star\n0.05000\n"
              "Triangle\n0.06000\n4-clique\n0.07000\n5-clique\n0.08000\n6-clique\n0.09000\n"
              "7-clique\n0.10000\nIsolates\n0.11000\nTriangle2\n0.12000\nBow_tie\n0.13000\n"
              "P3\n0.14000\nQ10\n0.15000\nQ20\n0.16000\nQ30\n0.17000\nQ31\n0.18000\n"
              "3Path\n0.19000\ncycle4\n0.20000\n1ET\n0.21000\n2ET\n0.22000\n0ET\n0.23000\n"
              "ETNT\n0.24000\ntwo3star\n0.25000\none2triangle\n0.26000\none2et\n0.27000\n"
              "AS\n0.28000\nAS2\n0.29000\nAT\n0.30000\nAT2\n0.31000\nA2P\n0.32000\nAC\n0.33000\n"
              "AET\n0.34000\nAEAT\n0.35000\n");
}

TEST(UpdateFiles, OfAGraphHoldTheRowsOfEachAttributeInTurn) {
    const ScratchDirectory scratch;
    write_in(scratch, numbered_selection(NetworkKind::undirected, {"a", "b"}));
    EXPECT_EQ(scratch.read("biupdate.ovri"),
              "a_activity\n1.10000\na_interaction\n1.09000\na_O1au\n1.07000\na_O1bu\n1.08000\n"
              "a_O2au\n1.05000\na_O2b\n1.06000\na_O3u\n1.04000\na_T1u\n1.03000\na_T2u\n1.02000\n"
              "a_T3u\n1.01000\n"
              "b_activity\n11.10000\nb_interaction\n11.09000\nb_O1au\n11.07000\nb_O1bu\n11.08000\n"
              "b_O2au\n11.05000\nb_O2b\n11.06000\nb_O3u\n11.04000\nb_T1u\n11.03000\n"
              "b_T2u\n11.02000\nb_T3u\n11.01000\n");
    EXPECT_EQ(scratch.read("contupdate.ovri"),
              "a_sum_of_Continuous\n2.01000\na_diff_of_Continuous\n2.02000\n"
              "a_prod_of_Continuous\n2.03000\n"
              "b_sum_of_Continuous\n12.01000\nb_diff_of_Continuous\n12.02000\n"
              "b_prod_of_Continuous\n12.03000\n");
    EXPECT_EQ(scratch.read("catupdate.ovri"),
              "a_Same_Category_edge\n3.01000\na_Different_Category_edge\n3.02000\n"
              "b_Same_Category_edge\n13.01000\nb_Different_Category_edge\n13.02000\n");
    EXPECT_EQ(scratch.read("covupdate.ovri"),
              "a_edge\n4.01000\na_S21\n4.02000\na_S22\n4.03000\na_T1\n4.04000\na_T2\n4.05000\n"
              "a_T3\n4.06000\n"
              "b_edge\n14.01000\nb_S21\n14.02000\nb_S22\n14.03000\nb_T1\n14.04000\nb_T2\n14.05000\n"
              "b_T3\n14.06000\n");
}

TEST(UpdateFiles, OfADigraphHoldEveryStructuralRow) {
    const ScratchDirectory scratch;
    write_in(scratch, numbered_selection(NetworkKind::directed, {}));
    // Setup rows go T7 T8 T4 T5 T3 T6 T2 T1 from the tenth on.
    EXPECT_EQ(scratch.read("distupdate.ovri"),
              "arc\n0.01000\nreciprocity\n0.02000\nin2star\n0.03000\nout2star\n0.04000\n"
              "in-3-star\n0.05000\nout-3-star\n0.06000\npath2\n0.07000\n"
              "Transitive-Triad\n0.08000\nCyclic-Triad\n0.09000\nT1\n0.17000\nT2\n0.16000\n"
              "T3\n0.14000\nT4\n0.12000\nT5\n0.13000\nT6\n0.15000\nT7\n0.10000\nT8\n0.11000\n"
              "Sink\n0.18000\nSource\n0.19000\nisolates\n0.20000\nAinS\n0.21000\nAoutS\n0.22000\n"
              "AinS2\n0.23000\nAoutS2\n0.24000\nAinAoutS\n0.25000\nAin1outS\n0.26000\n"
              "1inAoutS\n0.27000\nAT-T\n0.28000\nAT-C\n0.29000\nAT-D\n0.30000\nAT-U\n0.31000\n"
              "AT-TD\n0.32000\nAT-TU\n0.33000\nAT-DU\n0.34000\nAT-TDU\n0.35000\nA2P-T\n0.36000\n"
              "A2P-D\n0.37000\nA2P-U\n0.38000\nA2P-TD\n0.39000\nA2P-TU\n0.40000\n"
              "A2P-DU\n0.41000\nA2P-TDU\n0.42000\n");
}

TEST(UpdateFiles, OfADigraphHoldTheRowsOfEachAttributeInTurn) {
    const ScratchDirectory scratch;
    write_in(scratch, numbered_selection(NetworkKind::directed, {"a", "b"}));
    EXPECT_EQ(scratch.read("dibiupdate.ovri"),
              "a_interaction\n1.01000\na_sender\n1.02000\na_receiver\n1.03000\n"
              "a_sender_missing\n1.04000\na_receiver_missing\n1.05000\n"
              "a_activity_reciprocity\n1.07000\na_interaction_reciprocity\n1.06000\n"
              "a_out2star\n1.10000\na_path2\n1.09000\na_in2star\n1.08000\n"
              "b_interaction\n11.01000\nb_sender\n11.02000\nb_receiver\n11.03000\n"
              "b_sender_missing\n11.04000\nb_receiver_missing\n11.05000\n"
              "b_activity_reciprocity\n11.07000\nb_interaction_reciprocity\n11.06000\n"
              "b_out2star\n11.10000\nb_path2\n11.09000\nb_in2star\n11.08000\n");
    EXPECT_EQ(scratch.read("dicontupdate.ovri"),
              "a_sender\n2.01000\na_receiver\n2.02000\na_sender_missing\n2.03000\n"
              "a_receiver_missing\n2.04000\na_sum\n2.05000\na_diff\n2.06000\na_prod\n2.07000\n"
              "a_sum_reciprocity\n2.08000\na_diff_reciprocity\n2.09000\n"
              "a_prod_reciprocity\n2.10000\na_in2star\n2.11000\na_out2star\n2.12000\n"
              "a_path2\n2.13000\n"
              "b_sender\n12.01000\nb_receiver\n12.02000\nb_sender_missing\n12.03000\n"
              "b_receiver_missing\n12.04000\nb_sum\n12.05000\nb_diff\n12.06000\nb_prod\n12.07000\n"
              "b_sum_reciprocity\n12.08000\nb_diff_reciprocity\n12.09000\n"
              "b_prod_reciprocity\n12.10000\nb_in2star\n12.11000\nb_out2star\n12.12000\n"
              "b_path2\n12.13000\n");
    EXPECT_EQ(scratch.read("dicatupdate.ovri"),
              "a_same_Category\n3.01000\na_diff_Category\n3.02000\n"
              "a_same_Category_reciprocity\n3.03000\na_diff_Category_reciprocity\n3.04000\n"
              "b_same_Category\n13.01000\nb_diff_Category\n13.02000\n"
              "b_same_Category_reciprocity\n13.03000\nb_diff_Category_reciprocity\n13.04000\n");
    EXPECT_EQ(scratch.read("dicovupdate.ovri"), "a_arc\n4.01000\nb_arc\n14.01000\n");
}

TEST(UpdateFiles, OfAGraphStayEmptyWhereTheirSectionIsOff) {
    const ScratchDirectory scratch;
    EffectSelection selection = numbered_selection(NetworkKind::undirected, {"a"});
    selection.structural_flag = 0;
    for (AttributeSelection& group : selection.groups) {
        group.flag = 0;
    }
    for (const char* name : {"stupdate.ovri", "biupdate.ovri", "contupdate.ovri", "catupdate.ovri",
                             "covupdate.ovri"}) {
        scratch.write(name, "of an earlier run\n");
    }
    write_in(scratch, selection);
    for (const char* name : {"stupdate.ovri", "biupdate.ovri", "contupdate.ovri", "catupdate.ovri",
                             "covupdate.ovri"}) {
        EXPECT_EQ(scratch.read(name), "") << name;
    }
}

TEST(UpdateFiles, OfADigraphAskForNoSwitch) {
    const ScratchDirectory scratch;
    EffectSelection selection = numbered_selection(NetworkKind::directed, {"a"});
    selection.structural_flag = 0;
    for (AttributeSelection& group : selection.groups) {
        group.flag = 0;
    }
    write_in(scratch, selection);
    EXPECT_EQ(scratch.read("distupdate.ovri").substr(0, 12), "arc\n0.01000\n");
    EXPECT_EQ(scratch.read("dicovupdate.ovri"), "a_arc\n4.01000\n");
}

TEST(UpdateFiles, WithoutAttributesTheFilesExistAndAreEmpty) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        const ScratchDirectory scratch;
        write_in(scratch, numbered_selection(kind, {}));
        const std::string before = kind == NetworkKind::directed ? "di" : "";
        for (const char* name :
             {"biupdate.ovri", "contupdate.ovri", "catupdate.ovri", "covupdate.ovri"}) {
            EXPECT_TRUE(scratch.exists(before + name));
            EXPECT_EQ(scratch.read(before + name), "") << name;
        }
    }
}

TEST(UpdateFiles, AnEffectThatIsOffKeepsItsValueAndLooksLikeTheOthers) {
    const ScratchDirectory scratch;
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.structural_flag = 1;
    selection.structural[graph_effect::kEdge].position = 0;
    selection.structural_count = 1;
    selection.structural[graph_effect::kTriangle].value = -0.75;
    store_parameters(selection, {-1.6094379});
    write_in(scratch, selection);
    EXPECT_EQ(scratch.read("stupdate.ovri")
                  .rfind("edge\n-1.60944\n2-star\n0.00000\n3-star\n0.00000\n4-star\n0.00000\n"
                         "5-star\n0.00000\nTriangle\n-0.75000\n4-clique\n0.00000\n",
                         0),
              0U);
}

TEST(UpdateFiles, ValuesHaveFiveDecimals) {
    const ScratchDirectory scratch;
    EffectSelection selection = selection_create(NetworkKind::directed);
    selection.structural[digraph_effect::kArc].value = 123456.789012345;
    write_in(scratch, selection);
    EXPECT_EQ(scratch.read("distupdate.ovri").substr(0, 17), "arc\n123456.78901\n");
}

}  // namespace
