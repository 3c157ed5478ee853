// The directed catalogue where no golden file shows it: runs of the golden cases show the update
// files, the parameters, sample table, syntax file and reports of a simulation, and the fits.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

std::string group_rows(AttributeGroup group, std::span<const int> AttributeGroupCatalogue::*order) {
    const AttributeGroupCatalogue& rows = group_catalogue(digraph_catalogue(), group);
    return group_listing(rows, rows.*order);
}

TEST(DigraphCatalogue, SetupRowsStandInTheirOrderWithTheirShape) {
    std::string text;
    for (const int id : digraph_catalogue().setup_order) {
        const StructuralEffect& effect = digraph_catalogue().effects[static_cast<std::size_t>(id)];
        EXPECT_TRUE(effect.traits.full_model) << effect.row;
        const std::string row = effect.row;
        text += row + (effect.traits.alternating ? "(B) " : " ");
        EXPECT_EQ(effect.traits.full_model_lambda, row == "AinS2" || row == "AoutS2" ? 1.0F : 2.0F);
    }
    EXPECT_EQ(text,
              "arc reciprocity in2star out2star in-3-star out-3-star path2 Transitive-Triad "
              "Cyclic-Triad T7 T8 T4 T5 T3 T6 T2 T1 Sink Source isolates AinS(B) AoutS(B) AinS2(B) "
              "AoutS2(B) AinAoutS(B) Ain1outS(B) 1inAoutS(B) AT-T(B) AT-C(B) AT-D(B) AT-U(B) "
              "AT-TD(B) AT-TU(B) AT-DU(B) AT-TDU(B) A2P-T(B) A2P-D(B) A2P-U(B) A2P-TD(B) A2P-TU(B) "
              "A2P-DU(B) A2P-TDU(B) ");
}

TEST(DigraphCatalogue, EffectsStandInTheOrderOfEvaluation) {
    std::string text;
    for (const StructuralEffect& effect : digraph_catalogue().effects) {
        text += std::string(effect.row) + " ";
    }
    EXPECT_EQ(text,
              "arc reciprocity in2star in-3-star 4-in-star out2star out-3-star 4-out-star path2 T7 "
              "T8 T3 T4 T5 T6 T2 Cyclic-Triad Transitive-Triad T1 Sink Source isolates AinS AoutS "
              "AinS2 AoutS2 Ain1outS 1inAoutS AinAoutS AT-T AT-C AT-D AT-U AT-TD AT-TU AT-DU "
              "AT-TDU A2P-T A2P-D A2P-U A2P-TD A2P-TU A2P-DU A2P-TDU ");
}

TEST(DigraphCatalogue, ParametersAreStoredFromTwelveContinuousGroupsAndAssembledWithARepeat) {
    const std::string stored =
        "%s_sender\n%s_receiver\n%s_sender_missing\n%s_receiver_missing\n%s_prod\n%s_diff\n"
        "%s_sum_reciprocity\n%s_diff_reciprocity\n%s_prod_reciprocity\n%s_in2star\n%s_out2star\n"
        "%s_path2\n";
    const auto store = &AttributeGroupCatalogue::store_order;
    const auto assembly = &AttributeGroupCatalogue::assembly_order;
    EXPECT_EQ(group_rows(AttributeGroup::continuous, store), stored);
    EXPECT_EQ(group_rows(AttributeGroup::continuous, assembly), stored + "%s_prod_reciprocity\n");
    for (const auto order : {store, assembly}) {
        EXPECT_EQ(group_rows(AttributeGroup::binary, order),
                  "%s_interaction\n%s_sender\n%s_receiver\n%s_sender_missing\n"
                  "%s_receiver_missing\n%s_interaction_reciprocity\n%s_activity_reciprocity\n"
                  "%s_in2star\n%s_path2\n%s_out2star\n");
        EXPECT_EQ(group_rows(AttributeGroup::categorical, order),
                  "%s_same_Category\n%s_diff_Category\n%s_same_Category_reciprocity\n"
                  "%s_diff_Category_reciprocity\n");
        EXPECT_EQ(group_rows(AttributeGroup::covariate, order), "%s_arc\n");
    }
}

TEST(DigraphCatalogue, NoChangeTableExists) {
    EXPECT_TRUE(
        output_rows(full_selection(NetworkKind::directed, {"a"}, true), Output::change).empty());
}

TEST(DigraphCatalogue, NoOutputNamesTheSlotsThatNoSetupRowSelects) {
    const EffectSelection selection = full_selection(NetworkKind::directed, {"a"});
    EXPECT_EQ(selection.structural_count, 42);
    for (int output = 0; output < kOutputs; ++output) {
        for (const OutputRow& row : output_rows(selection, static_cast<Output>(output))) {
            if (row.id >= 0) {
                const std::string name =
                    digraph_catalogue().effects[static_cast<std::size_t>(row.id)].row;
                EXPECT_NE(name, "4-in-star");
                EXPECT_NE(name, "4-out-star");
            }
        }
    }
}

}  // namespace
