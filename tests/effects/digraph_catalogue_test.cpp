// Every name that a directed output gives an effect, spelled out in full. Each line is the effect's
// label in the update files, its label in the output, and the format of its number. No two outputs
// name the effects in one order.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

const std::vector<std::vector<std::string>> kNames = {{"a"}, {"a", "b"}};

// The listing with every effect on, the two four-star slots included.
void expect_listing(Output output, const std::string& expected) {
    for (const auto& names : kNames) {
        EXPECT_EQ(output_listing(full_selection(NetworkKind::directed, names, true), output),
                  for_names(expected, names));
    }
}

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

TEST(DigraphCatalogue, UpdateRowsStandInTheirOrder) {
    std::string text;
    for (const int id : digraph_catalogue().update_order) {
        text += std::string(digraph_catalogue().effects[static_cast<std::size_t>(id)].row) + " ";
    }
    EXPECT_EQ(text,
              "arc reciprocity in2star out2star in-3-star out-3-star path2 Transitive-Triad "
              "Cyclic-Triad T1 T2 T3 T4 T5 T6 T7 T8 Sink Source isolates AinS AoutS AinS2 AoutS2 "
              "AinAoutS Ain1outS 1inAoutS AT-T AT-C AT-D AT-U AT-TD AT-TU AT-DU AT-TDU A2P-T A2P-D "
              "A2P-U A2P-TD A2P-TU A2P-DU A2P-TDU ");
}

TEST(DigraphCatalogue, AttributeRowsStandInTheOrderOfTheSetupFile) {
    const auto order = &AttributeGroupCatalogue::setup_order;
    EXPECT_EQ(group_rows(AttributeGroup::binary, order),
              "%s_interaction\n%s_sender\n%s_receiver\n%s_sender_missing\n%s_receiver_missing\n"
              "%s_activity_reciprocity\n%s_interaction_reciprocity\n%s_out2star\n%s_path2\n"
              "%s_in2star\n");
    EXPECT_EQ(group_rows(AttributeGroup::continuous, order),
              "%s_sender\n%s_receiver\n%s_sender_missing\n%s_receiver_missing\n%s_sum\n%s_diff\n"
              "%s_prod\n%s_sum_reciprocity\n%s_diff_reciprocity\n%s_prod_reciprocity\n%s_in2star\n"
              "%s_out2star\n%s_path2\n");
    EXPECT_EQ(group_rows(AttributeGroup::categorical, order),
              "%s_same_Category\n%s_diff_Category\n%s_same_Category_reciprocity\n"
              "%s_diff_Category_reciprocity\n");
    EXPECT_EQ(group_rows(AttributeGroup::covariate, order), "%s_arc\n");
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

TEST(DigraphCatalogue, ParametersOfASimulation) {
    expect_listing(Output::parameter, R"(arc | arc | %.5f
reciprocity | reciprocity | %.5f
in2star | 2-in-star | %.5f
out2star | 2-out-star | %.5f
in-3-star | 3-in-star | %.5f
out-3-star | 3-out-star | %.5f
4-in-star | 4-in-star | %.5f
4-out-star | 4-out-star | %.5f
path2 | path2 | %.5f
T1 | T1 | %.5f
T2 | T2 | %.5f
T3 | T3 | %.5f
T4 | T4 | %.5f
T5 | T5 | %.5f
T6 | T6 | %.5f
T7 | T7 | %.5f
T8 | T8 | %.5f
Transitive-Triad | T9(030T) | %.5f
Cyclic-Triad | T10(030C) | %.5f
Sink | Sinks | %.5f
Source | Sources | %.5f
isolates | Isolates | %.5f
AinS | AinS(2.01) | %.5f
AoutS | AoutS(2.02) | %.5f
AinS2 | AinS(2.03) | %.5f
AoutS2 | AoutS(2.04) | %.5f
Ain1outS | Ain1out-star(2.06) | %.5f
1inAoutS | 1inAout-star(2.07) | %.5f
AinAoutS | AinAout-star(2.05) | %.5f
AT-T | AT-T(2.08) | %.5f
AT-C | AT-C(2.09) | %.5f
AT-D | AT-D(2.10) | %.5f
AT-U | AT-U(2.11) | %.5f
AT-TD | AT-TD(2.12) | %.5f
AT-TU | AT-TU(2.13) | %.5f
AT-DU | AT-DU(2.14) | %.5f
AT-TDU | AT-TDU(2.15) | %.5f
A2P-T | A2P-T(2.16) | %.5f
A2P-D | A2P-D(2.17) | %.5f
A2P-U | A2P-U(2.18) | %.5f
A2P-TD | A2P-TD(2.19) | %.5f
A2P-TU | A2P-TU(2.20) | %.5f
A2P-DU | A2P-DU(2.21) | %.5f
A2P-TDU | A2P-TDU(2.22) | %.5f
%s_interaction | %s_interaction | %.5f
%s_sender | %s_sender | %.5f
%s_receiver | %s_receiver | %.5f
%s_sender_missing | %s_sender | %.5f
%s_receiver_missing | %s_receiver | %.5f
%s_interaction_reciprocity | %s_interaction_reciprocity | %.5f
%s_activity_reciprocity | %s_activity_reciprocity | %.5f
%s_in2star | %s_in2star | %.5f
%s_path2 | %s_path2 | %.5f
%s_out2star | %s_out2star | %.5f
%s_sender | %s_sender | %.5f
%s_receiver | %s_receiver | %.5f
%s_sender_missing | %s_sender_missing | %.5f
%s_receiver_missing | %s_receiver_missing | %.5f
%s_sum | %s_sum | %.5f
%s_diff | %s_diff | %.5f
%s_prod | %s_prod | %.5f
%s_sum_reciprocity | %s_sum_reciprocity | %.5f
%s_diff_reciprocity | %s_diff_reciprocity | %.5f
%s_prod_reciprocity | %s_prod_reciprocity | %.5f
%s_in2star | %s_in2star | %.5f
%s_out2star | %s_out2star | %.5f
%s_path2 | %s_path2 | %.5f
%s_same_Category | %s_matching | %.5f
%s_diff_Category | %s_mismatch | %.5f
%s_same_Category_reciprocity | %s_matching_reciprocity | %.5f
%s_diff_Category_reciprocity | %s_mismatch_reciprocity | %.5f
%s_arc | %s_arc | %.5f
)");
}

TEST(DigraphCatalogue, ColumnsOfTheSampleTable) {
    expect_listing(Output::simulation, R"(arc | arc | %.0f
reciprocity | recip | %.0f
in2star | in2star | %.0f
out2star | out2star | %.0f
in-3-star | in3star | %.0f
out-3-star | out3star | %.0f
4-in-star | in4star | %.0f
4-out-star | out4star | %.0f
path2 | mix2star | %.0f
T7 | t7 | %.0f
T8 | t8 | %.0f
T6 | t6 | %.0f
Cyclic-Triad | t10 | %.0f
T3 | t3 | %.0f
T2 | t2 | %.0f
T5 | t5 | %.0f
T4 | t4 | %.0f
Transitive-Triad | t9 | %.0f
T1 | t1 | %.0f
Sink | sink | %.0f
Source | source | %.0f
isolates | iso | %.0f
AinS | kinstar | %.2f
AoutS | koutstar | %.2f
AinS2 | kinstar2 | %.2f
AoutS2 | koutstar2 | %.2f
Ain1outS | konestar | %.2f
1inAoutS | onelstar | %.2f
AinAoutS | klstar | %.2f
AT-T | tktri | %.2f
AT-C | cktri | %.2f
AT-D | dktri | %.2f
AT-U | uktri | %.2f
AT-TD | attd | %.2f
AT-TU | attu | %.2f
AT-DU | atdu | %.2f
AT-TDU | attdu | %.2f
A2P-T | talt2p | %.2f
A2P-D | dalt2p | %.2f
A2P-U | ualt2p | %.2f
A2P-TD | a2ptd | %.2f
A2P-TU | a2ptu | %.2f
A2P-DU | a2pdu | %.2f
A2P-TDU | a2ptdu | %.2f
%s_interaction | %s_interaction | %.0f
%s_sender | %s_sender | %.0f
%s_receiver | %s_interaction | %.0f
%s_sender_missing | %s_sender_missing | %.0f
%s_receiver_missing | %s_receiver_missing | %.0f
%s_interaction_reciprocity | %s_t2u11 | %.0f
%s_activity_reciprocity | %s_t1u11 | %.0f
%s_in2star | %s_in2star | %.0f
%s_path2 | %s_path2 | %.0f
%s_out2star | %s_out2star | %.0f
%s_sender | %s_sender | %.0f
%s_receiver | %s_receiver | %.0f
%s_sender_missing | %s_sender_missing | %.0f
%s_receiver_missing | %s_receiver_missing | %.0f
%s_sum | %s_interaction_sum | %.0f
%s_diff | %s_interaction_difff | %.0f
%s_prod | %s_interaction_prodd | %.0f
%s_sum_reciprocity | %s_sum_reciprocity | %.0f
%s_diff_reciprocity | %s_diff_reciprocity | %.0f
%s_prod_reciprocity | %s_prod_reciprocity | %.0f
%s_in2star | %s_in2star | %.0f
%s_out2star | %s_out2star | %.0f
%s_path2 | %s_2path | %.0f
%s_same_Category | %s_matching | %.0f
%s_diff_Category | %s_mismatch | %.0f
%s_same_Category_reciprocity | %s_matching_reciprocity | %.0f
%s_diff_Category_reciprocity | %s_mismatch_reciprocity | %.0f
%s_arc | %s_arc | %.0f
)");
}

TEST(DigraphCatalogue, VariablesOfTheSyntaxFile) {
    // AT-U follows AT-TDU here and precedes AT-TD in the sample table.
    expect_listing(Output::syntax, R"(arc | arc | F8.0
reciprocity | recip | F8.0
in2star | in2star | F8.0
out2star | out2star | F8.0
in-3-star | in3star | F8.0
out-3-star | out3star | F8.0
4-in-star | in4star | F8.0
4-out-star | out4star | F8.0
path2 | mix2star | F8.0
T7 | t7 | F8.0
T8 | t8 | F8.0
T6 | t6 | F8.0
Cyclic-Triad | t10 | F8.0
T3 | t3 | F8.0
T2 | t2 | F8.0
T5 | t5 | F8.0
T4 | t4 | F8.0
Transitive-Triad | t9 | F8.0
T1 | t1 | F8.0
Sink | sink | F8.0
Source | source | F8.0
isolates | iso | F8.0
AinS | kinstar | F8.4
AoutS | koutstar | F8.4
AinS2 | kinstar2 | F8.4
AoutS2 | koutstar2 | F8.4
Ain1outS | konestar | F8.4
1inAoutS | onelstar | F8.4
AinAoutS | klstar | F8.4
AT-T | tktri | F8.4
AT-C | cktri | F8.4
AT-D | dktri | F8.4
AT-TD | attd | F8.4
AT-TU | attu | F8.4
AT-DU | atdu | F8.4
AT-TDU | attdu | F8.4
AT-U | uktri | F8.4
A2P-T | talt2p | F8.4
A2P-D | dalt2p | F8.4
A2P-U | ualt2p | F8.4
A2P-TD | a2ptd | F8.4
A2P-TU | a2ptu | F8.4
A2P-DU | a2pdu | F8.4
A2P-TDU | a2ptdu | F8.4
%s_interaction | %s_interaction | F8.0
%s_sender | %s_sender | F8.0
%s_receiver | %s_receiver | F8.0
%s_sender_missing | %s_sender_missing | F8.0
%s_receiver_missing | %s_receiver_missing | F8.0
%s_interaction_reciprocity | %s_t2u11 | F8.0
%s_activity_reciprocity | %s_t1u11 | F8.0
%s_in2star | %s_in2star | F8.0
%s_path2 | %s_path2 | F8.0
%s_out2star | %s_out2star | F8.0
%s_sender | %s_sender | F8.4
%s_receiver | %s_receiver | F8.4
%s_sender_missing | %s_sender_missing | F8.4
%s_receiver_missing | %s_receiver_missing | F8.4
%s_sum | %s_interaction_sum | F8.4
%s_diff | %s_interaction_diff | F8.4
%s_prod | %s_interaction_prod | F8.4
%s_sum_reciprocity | %s_sum_reciprocity | F8.4
%s_diff_reciprocity | %s_diff_reciprocity | F8.4
%s_prod_reciprocity | %s_prod_reciprocity | F8.4
%s_in2star | %s_in2star | F8.4
%s_out2star | %s_out2star | F8.4
%s_path2 | %s_twomix | F8.4
%s_same_Category | %s_matching | F8.0
%s_diff_Category | %s_mismatch | F8.0
%s_same_Category_reciprocity | %s_matching_reciprocity | F8.0
%s_diff_Category_reciprocity | %s_mismatch_reciprocity | F8.0
%s_arc | %s_arc | F8.4
)");
}

TEST(DigraphCatalogue, RowsOfAStatisticsReport) {
    expect_listing(Output::report, R"(arc | arc | %.0f
reciprocity | reciprocity | %.0f
in2star | in-2star | %.0f
out2star | out-2star | %.0f
in-3-star | in-3star | %.0f
out-3-star | out-3star | %.0f
4-in-star | in-4star | %.0f
4-out-star | out-4star | %.0f
path2 | mixed-2-star | %.0f
T1 | T1 | %.0f
T2 | T2 | %.0f
T3 | T3 | %.0f
T4 | T4 | %.0f
T5 | T5 | %.0f
T6 | T6 | %.0f
T7 | T7 | %.0f
T8 | T8 | %.0f
Transitive-Triad | T9(030T) | %.0f
Cyclic-Triad | T10(030C) | %.0f
Sink | Sink | %.0f
Source | Source | %.0f
isolates | Isolates | %.0f
AinS | AinS(2.01) | %.5f
AoutS | AoutS(2.02) | %.5f
AinS2 | AinS(2.03) | %.5f
AoutS2 | AoutS(2.04) | %.5f
Ain1outS | Ain1out-star(2.06) | %.5f
1inAoutS | 1inAout-star(2.07) | %.5f
AinAoutS | AinAout-star(2.05) | %.5f
AT-T | AT-T(2.08) | %.5f
AT-C | AT-C(2.09) | %.5f
AT-D | AT-D(2.10) | %.5f
AT-U | AT-U(2.11) | %.5f
AT-TD | AT-TD(2.12) | %.5f
AT-TU | AT-TU(2.13) | %.5f
AT-DU | AT-DU(2.14) | %.5f
AT-TDU | AT-TDU(2.15) | %.5f
A2P-T | A2P-T(2.16) | %.5f
A2P-D | A2P-D(2.17) | %.5f
A2P-U | A2P-U(2.18) | %.5f
A2P-TD | A2P-TD(2.19) | %.5f
A2P-TU | A2P-TU(2.20) | %.5f
A2P-DU | A2P-DU(2.21) | %.5f
A2P-TDU | A2P-TDU(2.22) | %.5f
%s_interaction | %s_interaction | %.0f
%s_sender | %s_sender | %.0f
%s_receiver | %s_receiver | %.0f
%s_sender_missing | %s_sender_missing | %.0f
%s_receiver_missing | %s_receiver_missing | %.0f
%s_interaction_reciprocity | %s_interaction_reciprocity | %.0f
%s_activity_reciprocity | %s_activity_reciprocity | %.0f
%s_in2star | %s_in2star | %.0f
%s_path2 | %s_path2 | %.0f
%s_out2star | %s_out2star | %.0f
%s_sender | %s_sender | %.5f
%s_receiver | %s_Receiver | %.5f
%s_sender_missing | %s_Sender_missing | %.5f
%s_receiver_missing | %s_Receiver_missing | %.5f
%s_sum | %s_sum | %.5f
%s_diff | %s_diff | %.5f
%s_prod | %s_prod | %.5f
%s_sum_reciprocity | %s_sum_reciprocity | %.5f
%s_diff_reciprocity | %s_diff_reciprocity | %.5f
%s_prod_reciprocity | %s_prod_reciprocity | %.5f
%s_in2star | %s_2-in-star | %.5f
%s_out2star | %s_2-out-star | %.5f
%s_path2 | %s_path2 | %.5f
%s_same_Category | %s_matching | %.0f
%s_diff_Category | %s_mismatch | %.0f
%s_same_Category_reciprocity | %s_matching_reciprocity | %.0f
%s_diff_Category_reciprocity | %s_mismatch_reciprocity | %.0f
%s_arc | %s_arc | %.5f
)");
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
