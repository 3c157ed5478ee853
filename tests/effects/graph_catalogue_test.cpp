// The undirected catalogue where no golden file shows it: runs of the golden cases show the update
// files, the parameters, sample table, syntax file and reports of a simulation, and the fits.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

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
