// Every name that an undirected output gives an effect, spelled out in full. Each line is the
// effect's label in the update files, its label in the output, and the format of its number.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

const std::vector<std::vector<std::string>> kNames = {{"a"}, {"a", "b"}};

// The listing with every effect on, the slot of "P0" included.
void expect_listing(Output output, const std::string& expected) {
    for (const auto& names : kNames) {
        EXPECT_EQ(output_listing(full_selection(NetworkKind::undirected, names, true), output),
                  for_names(expected, names));
    }
}

TEST(GraphCatalogue, SetupRowsStandInTheirOrderWithTheirShapeAndPlaceInTheFullModel) {
    std::string text;
    for (const int id : graph_catalogue().setup_order) {
        const StructuralEffect& effect = graph_catalogue().effects[static_cast<std::size_t>(id)];
        text += std::string(effect.row) + (effect.traits.alternating ? " B" : " A") +
                (effect.traits.full_model ? " yes" : " no");
        if (effect.traits.alternating) {
            text += " " + std::to_string(static_cast<int>(effect.traits.full_model_lambda));
        }
        text += "\n";
    }
    EXPECT_EQ(text, R"(edge A yes
2-star A yes
3-star A yes
4-star A yes
5-star A yes
Triangle A yes
4-clique A yes
5-clique A yes
6-clique A yes
7-clique A yes
Isolates A yes
Triangle2 A yes
Bow_tie A no
P3 A no
Q10 A no
Q20 A no
Q30 A no
Q31 A no
3Path A yes
cycle4 A yes
1ET A yes
2ET A yes
0ET A yes
ETNT A yes
two3star A yes
one2triangle A yes
one2et A yes
AS B yes 2
AS2 B yes 1
AT B yes 2
AT2 B yes 1
A2P B yes 2
AC B yes 2
AET B yes 2
AEAT B yes 2
)");
}

TEST(GraphCatalogue, UpdateRowsStandInTheirOrder) {
    std::string text;
    for (const int id : graph_catalogue().update_order) {
        text += std::string(graph_catalogue().effects[static_cast<std::size_t>(id)].row) + " ";
    }
    EXPECT_EQ(text,
              "edge 2-star 3-star 4-star 5-star Triangle 4-clique 5-clique 6-clique 7-clique "
              "Isolates Triangle2 Bow_tie P3 Q10 Q20 Q30 Q31 3Path cycle4 1ET 2ET 0ET ETNT "
              "two3star one2triangle one2et AS AS2 AT AT2 A2P AC AET AEAT ");
}

TEST(GraphCatalogue, AttributeRowsStandInTheOrderOfTheSetupFile) {
    const auto listing = [](AttributeGroup group) {
        const AttributeGroupCatalogue& rows = group_catalogue(graph_catalogue(), group);
        return group_listing(rows, rows.setup_order);
    };
    EXPECT_EQ(listing(AttributeGroup::binary),
              "%s_activity\n%s_interaction\n%s_O1au\n%s_O1bu\n%s_O2au\n%s_O2b\n%s_O3u\n%s_T1u\n"
              "%s_T2u\n%s_T3u\n");
    EXPECT_EQ(listing(AttributeGroup::continuous),
              "%s_sum_of_Continuous\n%s_diff_of_Continuous\n%s_prod_of_Continuous\n");
    EXPECT_EQ(listing(AttributeGroup::categorical),
              "%s_Same_Category_edge\n%s_Different_Category_edge\n");
    EXPECT_EQ(listing(AttributeGroup::covariate), "%s_edge\n%s_S21\n%s_S22\n%s_T1\n%s_T2\n%s_T3\n");
}

TEST(GraphCatalogue, ParametersAreAssembledAndStoredInTheOrderOfTheStatistics) {
    for (const AttributeGroup group : kAllGroups) {
        const AttributeGroupCatalogue& rows = group_catalogue(graph_catalogue(), group);
        std::vector<int> ascending;
        for (std::size_t row = 0; row < rows.effects.size(); ++row) {
            ascending.push_back(static_cast<int>(row));
        }
        EXPECT_EQ(std::vector<int>(rows.store_order.begin(), rows.store_order.end()), ascending);
        EXPECT_EQ(std::vector<int>(rows.assembly_order.begin(), rows.assembly_order.end()),
                  ascending);
    }
}

TEST(GraphCatalogue, ParametersOfASimulation) {
    expect_listing(Output::parameter, R"(edge | edge | %.5f
2-star | 2-star | %.5f
3-star | 3-star | %.5f
4-star | 4-star | %.5f
5-star | 5-star | %.5f
Triangle | Triangle | %.5f
4-clique | 4-clique | %.5f
5-clique | 5-clique | %.5f
6-clique | 6-clique | %.5f
7-clique | 7-clique | %.5f
Isolates | Isolates | %.5f
P0 | P0 | %.5f
Triangle2 | triangle2 | %.5f
Bow_tie | Bow_tie | %.5f
P3 | P3 | %.5f
Q10 | Q10 | %.5f
Q20 | Q20 | %.5f
Q30 | Q30 | %.5f
Q31 | Q31 | %.5f
3Path | 3Path | %.5f
cycle4 | cycle4 | %.5f
1ET | 1ET | %.5f
2ET | 2ET | %.5f
0ET | 0ET | %.5f
0ET | 0ET | %.5f
two3star | 2_3star | %.5f
one2triangle | 1_2triangle | %.5f
one2et | 1_2et | %.5f
AS | AS(2.01) | %.5f
AS2 | AS2(2.02) | %.5f
AT | AT(2.03) | %.5f
AT2 | AT2(2.04) | %.5f
A2P | A2P(2.05) | %.5f
AC | AC(2.06) | %.5f
AET | AET(2.07) | %.5f
AEAT | AEAT(2.08) | %.5f
%s_T3u | %s_T3u | %.5f
%s_T2u | %s_T2u | %.5f
%s_T1u | %s_T1u | %.5f
%s_O3u | %s_O3u | %.5f
%s_O2au | %s_O2au | %.5f
%s_O2b | %s_O2b | %.5f
%s_O1au | %s_O1au | %.5f
%s_O1bu | %s_O1bu | %.5f
%s_interaction | %s_interaction | %.5f
%s_activity | %s_activity | %.5f
%s_sum_of_Continuous | %s_sum | %.5f
%s_diff_of_Continuous | %s_diff | %.5f
%s_prod_of_Continuous | %s_prod | %.5f
%s_Same_Category_edge | %s_same_Category | %.5f
%s_Different_Category_edge | %s_diff_Category | %.5f
%s_edge | %s_edge | %.5f
%s_S21 | %s_S21 | %.5f
%s_S22 | %s_S22 | %.5f
%s_T1 | %s_t1 | %.5f
%s_T2 | %s_t2 | %.5f
%s_T3 | %s_t3 | %.5f
)");
}

TEST(GraphCatalogue, ColumnsOfTheSampleTable) {
    expect_listing(Output::simulation, R"(edge | edge | %.0f
2-star | star2 | %.0f
3-star | star3 | %.0f
4-star | star4 | %.0f
5-star | star5 | %.0f
Triangle | triangle | %.0f
4-clique | clique4 | %.0f
5-clique | clique5 | %.0f
6-clique | clique6 | %.0f
7-clique | clique7 | %.0f
Isolates | iso | %.0f
P0 | p0 | %.0f
Triangle2 | triangle2 | %.0f
Bow_tie | bow_tie | %.0f
P3 | p3 | %.0f
Q10 | q10 | %.0f
Q20 | q20 | %.0f
Q30 | q30 | %.0f
Q31 | q31 | %.0f
3Path | path3 | %.0f
cycle4 | cycle4 | %.0f
1ET | et1 | %.0f
2ET | et2 | %.0f
0ET | et0 | %.0f
ETNT | etnt | %.0f
two3star | two3star | %.2f
one2triangle | one2triangle | %.2f
one2et | one2et | %.2f
AS | as | %.2f
AS2 | as2 | %.2f
AT | at | %.2f
AT2 | at2 | %.2f
A2P | a2p | %.2f
AC | ac | %.2f
AET | aet | %.2f
AEAT | aeat | %.2f
%s_T3u | %s_t3u | %.0f
%s_T2u | %s_t2u | %.0f
%s_T1u | %s_t1u | %.0f
%s_O3u | %s_o3u | %.0f
%s_O2au | %s_o2au | %.0f
%s_O2b | %s_o2bu | %.0f
%s_O1au | %s_o1au | %.0f
%s_O1bu | %s_o1bu | %.0f
%s_interaction | %s_interaction | %.0f
%s_activity | %s_activity | %.0f
%s_sum_of_Continuous | %s_sum | %.0f
%s_diff_of_Continuous | %s_diff | %.0f
%s_prod_of_Continuous | %s_prod | %.0f
%s_Same_Category_edge | %s_sameC | %.0f
%s_Different_Category_edge | %s_diffC | %.0f
%s_edge | %s_edge | %.0f
%s_S21 | %s_S21 | %.0f
%s_S22 | %s_S22 | %.0f
%s_T1 | %s_t1 | %.0f
%s_T2 | %s_t2 | %.0f
%s_T3 | %s_t3 | %.0f
)");
}

TEST(GraphCatalogue, VariablesOfTheSyntaxFile) {
    expect_listing(Output::syntax, R"(edge | edge | F8.0
2-star | star2 | F8.0
3-star | star3 | F8.0
4-star | star4 | F8.0
5-star | star5 | F8.0
Triangle | triangle | F8.4
4-clique | clique4 | F8.4
5-clique | clique5 | F8.4
6-clique | clique6 | F8.4
7-clique | clique7 | F8.4
Isolates | iso | F8.4
P0 | p0 | F8.0
Triangle2 | triangle2 | F8.0
Bow_tie | bow_tie | F8.0
P3 | p3 | F8.0
Q10 | q10 | F8.0
Q20 | q20 | F8.0
Q30 | q30 | F8.0
Q31 | q31 | F8.0
3Path | path3 | F8.0
cycle4 | cycle4 | F8.0
1ET | et1 | F8.0
2ET | et2 | F8.0
0ET | et0 | F8.0
ETNT | etnt | F8.0
two3star | two3star | F8.0
one2triangle | one2triangle | F8.0
one2et | one2et | F8.0
AS | as | F8.4
AS2 | as2 | F8.4
AT | at | F8.4
AT2 | at2 | F8.4
A2P | a2p | F8.0
AC | ac | F8.0
AET | aet | F8.0
AEAT | aeat | F8.0
%s_T3u | %s_t3u | F8.0
%s_T2u | %s_t2u | F8.0
%s_T1u | %s_t1u | F8.0
%s_O3u | %s_o3u | F8.0
%s_O2au | %s_o2au | F8.0
%s_O2b | %s_o2bu | F8.0
%s_O1au | %s_o1au | F8.0
%s_O1bu | %s_o1bu | F8.0
%s_interaction | %s_interaction | F8.0
%s_activity | %s_activity | F8.0
%s_sum_of_Continuous | %s_sum | F8.4
%s_diff_of_Continuous | %s_diff | F8.4
%s_prod_of_Continuous | %s_prod | F8.4
%s_Same_Category_edge | %s_sameEC | F8.0
%s_Different_Category_edge | %s_diffEC | F8.0
%s_edge | %s_edge | F8.4
%s_S21 | %s_s21 | F8.4
%s_S22 | %s_s22 | F8.4
%s_T1 | %s_t1 | F8.4
%s_T2 | %s_t2 | F8.4
%s_T3 | %s_t3 | F8.4
)");
}

TEST(GraphCatalogue, RowsOfAStatisticsReport) {
    expect_listing(Output::report, R"(edge | edges | %.0f
2-star | 2-star | %.0f
3-star | 3-star | %.0f
4-star | 4-star | %.0f
5-star | 5-star | %.0f
Triangle | Triangle | %.0f
4-clique | 4-clique | %.0f
5-clique | 5-clique | %.0f
6-clique | 6-clique | %.0f
7-clique | 7-clique | %.0f
Isolates | Isolates | %.0f
P0 | P0 | %.0f
Triangle2 | Triangle2 | %.0f
Bow_tie | Bow_tie | %.0f
P3 | P3 | %.0f
Q10 | Q10 | %.0f
Q20 | Q20 | %.0f
Q30 | Q30 | %.0f
Q31 | Q31 | %.0f
3Path | 3Path | %.0f
cycle4 | cycle4 | %.0f
1ET | 1ET | %.0f
2ET | 2ET | %.0f
0ET | 0ET | %.0f
ETNT | ETNT | %.0f
two3star | 2_3star | %.0f
one2triangle | 1_2triangle | %.0f
one2et | 1_2ET | %.0f
AS | AS(2.01) | %.5f
AS2 | AS2(2.02) | %.5f
AT | AT(2.03) | %.5f
AT2 | AT2(2.04) | %.5f
A2P | A2P(2.05) | %.5f
AC | AC(2.06) | %.5f
AET | AET(2.07) | %.5f
AEAT | AEAT(2.08) | %.5f
%s_T3u | %s_t3u | %.0f
%s_T2u | %s_t2u | %.0f
%s_T1u | %s_t1u | %.0f
%s_O3u | %s_o3u | %.0f
%s_O2au | %s_o2au | %.0f
%s_O2b | %s_o2bu | %.0f
%s_O1au | %s_o1au | %.0f
%s_O1bu | %s_o1bu | %.0f
%s_interaction | %s_interaction | %.0f
%s_activity | %s_activity | %.0f
%s_sum_of_Continuous | %s_sum | %.5f
%s_diff_of_Continuous | %s_diff | %.5f
%s_prod_of_Continuous | %s_prod | %.5f
%s_Same_Category_edge | %s_same_Category | %.0f
%s_Different_Category_edge | %s_diff_Category | %.0f
%s_edge | %s_edge | %.5f
%s_S21 | %s_S21 | %.5f
%s_S22 | %s_S22 | %.5f
%s_T1 | %s_t1 | %.5f
%s_T2 | %s_t2 | %.5f
%s_T3 | %s_t3 | %.5f
)");
}

TEST(GraphCatalogue, HeadOfTheChangeTable) {
    // "p3" has no separator, attribute columns end in tabs, and of the covariate effects only the
    // first is there.
    const EffectSelection selection = full_selection(NetworkKind::undirected, {"a", "b"});
    EXPECT_EQ(output_labels(selection, Output::change, ""),
              "edge star2 star3 star4 star5 tri c4 c5 c6 c7 iso triangle2 bow_tie p3q10 q20 q30 "
              "q31 path3 cycle4 et1 et2 et0 etnt two3star one2triangle one2et as as2 at at2 a2p ac "
              "aet aeat "
              "a_t3u\tb_t3u\ta_t2u\tb_t2u\ta_t1u\tb_t1u\ta_o3u\tb_o3u\ta_o2au\tb_o2au\t"
              "a_o2bu\tb_o2bu\ta_o1auu\tb_o1auu\ta_o1bu\tb_o1bu\ta_interaction\tb_interaction\t"
              "a_activity\tb_activity\ta_sum\tb_sum\ta_diff\tb_diff\ta_prod\tb_prod\t"
              "a_matching\tb_matching\ta_mismatch\tb_mismatch\ta_edge\tb_edge\t");
    for (const OutputRow& row : output_rows(selection, Output::change)) {
        EXPECT_STREQ(row.format, "%lf\t") << row.label;
    }
    const EffectSelection slots = full_selection(NetworkKind::undirected, {}, true);
    EXPECT_NE(output_labels(slots, Output::change, "").find("iso p0 triangle2 "),
              std::string::npos);
}

TEST(GraphCatalogue, NoOutputNamesTheSlotThatNoSetupRowSelects) {
    const EffectSelection selection = full_selection(NetworkKind::undirected, {"a"});
    EXPECT_EQ(selection.structural_count, 35);
    for (int output = 0; output < kOutputs; ++output) {
        for (const OutputRow& row : output_rows(selection, static_cast<Output>(output))) {
            EXPECT_NE(row.id, graph_effect::kP0) << row.label;
        }
    }
}

TEST(GraphCatalogue, OutputsShowOnlyWhatIsSelected) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    for (int output = 0; output < kOutputs; ++output) {
        EXPECT_TRUE(output_rows(selection, static_cast<Output>(output)).empty());
    }
    selection.structural[graph_effect::kTriangle].position = 0;
    selection.structural_count = 1;
    EXPECT_EQ(output_listing(selection, Output::simulation), "Triangle | triangle | %.0f\n");
}

}  // namespace
