#include "effects/catalogue.h"

#include <array>

#include "effects/binary_attributes.h"
#include "effects/categorical_attributes.h"
#include "effects/continuous_attributes.h"
#include "effects/covariates.h"
#include "effects/digraph_alternating.h"
#include "effects/digraph_stars.h"
#include "effects/digraph_triads.h"
#include "effects/row_order.h"

namespace {

constexpr StructuralEffect structural(const char* row, EffectTraits traits, NumberFormats formats,
                                      Labels labels, EffectFunctions<Digraph> functions) {
    return {
        .row = row, .traits = traits, .labels = labels, .formats = formats, .digraph = functions};
}
constexpr AttributeEffect attribute(const char* update, NumberFormats formats, Labels labels,
                                    EffectFunctions<Digraph> functions,
                                    PairTable pairs = PairTable::none) {
    return {.update = update,
            .labels = labels,
            .formats = formats,
            .digraph = functions,
            .pairs = pairs};
}

// Number formats: simulation, syntax, fit_parameter, fit, bayes_fit, report.
constexpr NumberFormats kWhole = {"%.0f", "F8.0", "%.5f", "%.0f", "%.0f", "%.0f"};
constexpr NumberFormats kAlternating = {"%.2f", "F8.4", "%.5f", "%.3f", "%.3f", "%.5f"};
constexpr NumberFormats kReal = {"%.0f", "F8.4", "%.5f", "%.0f", "%.0f", "%.5f"};
constexpr NumberFormats kPairReal = {"%.0f", "F8.4", "%.5f", "%.3f", "%.3f", "%.5f"};

// In evaluation order. Labels: parameter, simulation, syntax, result, fit_parameter, fit, report.
// No setup row selects the two 4-stars; their labels keep their places.
constexpr auto kEffects = std::to_array<StructuralEffect>({
    structural("arc", kFull, kWhole, {"arc", "arc", "arc", "arc", "arc", "arc", "arc"},
               {digraph_arc_change, digraph_arc_count}),
    structural("reciprocity", kFull, kWhole,
               {"reciprocity", "recip", "recip", "reciprocity", "reciprocity", "reciprocity",
                "reciprocity"},
               {digraph_reciprocity_change, digraph_reciprocity_count}),
    structural(
        "in2star", kFull, kWhole,
        {"2-in-star", "in2star", "in2star", "2-in-star", "2-in-star", "2-in-star", "in-2star"},
        {digraph_in2star_change, digraph_in2star_count}),
    structural(
        "in-3-star", kFull, kWhole,
        {"3-in-star", "in3star", "in3star", "3-in-star", "3-in-star", "3-in-star", "in-3star"},
        {digraph_in3star_change, digraph_in3star_count}),
    structural(
        "4-in-star", kOutside, kWhole,
        {"4-in-star", "in4star", "in4star", "4-in-star", "4-in-star", "4-in-star", "in-4star"},
        {digraph_in4star_change, digraph_in4star_count}),
    structural("out2star", kFull, kWhole,
               {"2-out-star", "out2star", "out2star", "2-out-star", "2-out-star", "2-out-star",
                "out-2star"},
               {digraph_out2star_change, digraph_out2star_count}),
    structural("out-3-star", kFull, kWhole,
               {"3-out-star", "out3star", "out3star", "3-out-star", "3-out-star", "3-out-star",
                "out-3star"},
               {digraph_out3star_change, digraph_out3star_count}),
    structural("4-out-star", kOutside, kWhole,
               {"4-out-star", "out4star", "out4star", "4-out-star", "4-out-star", "4-out-star",
                "out-4star"},
               {digraph_out4star_change, digraph_out4star_count}),
    structural("path2", kFull, kWhole,
               {"path2", "mix2star", "mix2star", "path2", "path2", "path2", "mixed-2-star"},
               {digraph_path2_change, digraph_path2_count}),
    structural("T7", kFull, kWhole, {"T7", "t7", "t7", "T7", "T7", "T7", "T7"},
               {digraph_t7_change, digraph_t7_count}),
    structural("T8", kFull, kWhole, {"T8", "t8", "t8", "111U", "111U", "111U", "T8"},
               {digraph_t8_change, digraph_t8_count}),
    structural("T3", kFull, kWhole, {"T3", "t3", "t3", "120C", "120C", "120C", "T3"},
               {digraph_t3_change, digraph_t3_count}),
    structural("T4", kFull, kWhole, {"T4", "t4", "t4", "120D", "120D", "120D", "T4"},
               {digraph_t4_change, digraph_t4_count}),
    structural("T5", kFull, kWhole, {"T5", "t5", "t5", "120U", "120U", "120U", "T5"},
               {digraph_t5_change, digraph_t5_count}),
    structural("T6", kFull, kWhole, {"T6", "t6", "t6", "201", "201", "201", "T6"},
               {digraph_t6_change, digraph_t6_count}),
    structural("T2", kFull, kWhole, {"T2", "t2", "t2", "210", "210", "210", "T2"},
               {digraph_t2_change, digraph_t2_count}),
    structural("Cyclic-Triad", kFull, kWhole,
               {"T10(030C)", "t10", "t10", "030C", "T10(030C)", "T10(030C)", "T10(030C)"},
               {digraph_t10_change, digraph_t10_count}),
    structural("Transitive-Triad", kFull, kWhole,
               {"T9(030T)", "t9", "t9", "030T", "T9(030T)", "T9(030T)", "T9(030T)"},
               {digraph_t9_change, digraph_t9_count}),
    structural("T1", kFull, kWhole, {"T1", "t1", "t1", "300", "300", "300", "T1"},
               {digraph_t1_change, digraph_t1_count}),
    structural("Sink", kFull, kWhole, {"Sinks", "sink", "sink", "sink", "sink", "sink", "Sink"},
               {digraph_sinks_change, digraph_sinks_count}),
    structural("Source", kFull, kWhole,
               {"Sources", "source", "source", "source", "source", "source", "Source"},
               {digraph_sources_change, digraph_sources_count}),
    structural("isolates", kFull, kWhole,
               {"Isolates", "iso", "iso", "isolates", "isolates", "isolates", "Isolates"},
               {digraph_isolates_change, digraph_isolates_count}),
    structural("AinS", kLambda, kAlternating,
               {"AinS(%.2f)", "kinstar", "kinstar", "AinS(%.2f)", "AinS(%.2f)", "AinS(%.2f)",
                "AinS(%.2f)"},
               {digraph_alternating_in_star_change, digraph_alternating_in_star_count}),
    structural("AoutS", kLambda, kAlternating,
               {"AoutS(%.2f)", "koutstar", "koutstar", "AoutS(%.2f)", "AoutS(%.2f)", "AoutS(%.2f)",
                "AoutS(%.2f)"},
               {digraph_alternating_out_star_change, digraph_alternating_out_star_count}),
    structural("AinS2", kLambdaOne, kAlternating,
               {"AinS(%.2f)", "kinstar2", "kinstar2", "AinS(%.2f)", "AinS(%.2f)", "AinS(%.2f)",
                "AinS(%.2f)"},
               {digraph_alternating_in_star_change, digraph_alternating_in_star_count}),
    structural("AoutS2", kLambdaOne, kAlternating,
               {"AoutS(%.2f)", "koutstar2", "koutstar2", "AoutS(%.2f)", "AoutS(%.2f)",
                "AoutS(%.2f)", "AoutS(%.2f)"},
               {digraph_alternating_out_star_change, digraph_alternating_out_star_count}),
    structural("Ain1outS", kLambda, kAlternating,
               {"Ain1out-star(%.2f)", "konestar", "konestar", "Ain1out-star(%.2f)",
                "Ain1out-star(%.2f)", "Ain1out-star(%.2f)", "Ain1out-star(%.2f)"},
               {digraph_alternating_in_one_out_change, digraph_alternating_in_one_out_count}),
    structural("1inAoutS", kLambda, kAlternating,
               {"1inAout-star(%.2f)", "onelstar", "onelstar", "1inAout-star(%.2f)",
                "1inAout-star(%.2f)", "1inAout-star(%.2f)", "1inAout-star(%.2f)"},
               {digraph_one_in_alternating_out_change, digraph_one_in_alternating_out_count}),
    structural("AinAoutS", kLambda, kAlternating,
               {"AinAout-star(%.2f)", "klstar", "klstar", "AinAout-star(%.2f)",
                "AinAout-star(%.2f)", "AinAout-star(%.2f)", "AinAout-star(%.2f)"},
               {digraph_alternating_in_alternating_out_change,
                digraph_alternating_in_alternating_out_count}),
    structural(
        "AT-T", kLambda, kAlternating,
        {"AT-T(%.2f)", "tktri", "tktri", "AT-T(%.2f)", "AT-T(%.2f)", "AT-T(%.2f)", "AT-T(%.2f)"},
        {digraph_at_t_change, digraph_at_t_count}),
    structural(
        "AT-C", kLambda, kAlternating,
        {"AT-C(%.2f)", "cktri", "cktri", "AT-C(%.2f)", "AT-C(%.2f)", "AT-C(%.2f)", "AT-C(%.2f)"},
        {digraph_at_c_change, digraph_at_c_count}),
    structural(
        "AT-D", kLambda, kAlternating,
        {"AT-D(%.2f)", "dktri", "dktri", "AT-D(%.2f)", "AT-D(%.2f)", "AT-D(%.2f)", "AT-D(%.2f)"},
        {digraph_at_d_change, digraph_at_d_count}),
    structural(
        "AT-U", kLambda, kAlternating,
        {"AT-U(%.2f)", "uktri", "uktri", "AT-U(%.2f)", "AT-U(%.2f)", "AT-U(%.2f)", "AT-U(%.2f)"},
        {digraph_at_u_change, digraph_at_u_count}),
    structural(
        "AT-TD", kLambda, kAlternating,
        {"AT-TD(%.2f)", "attd", "attd", "AT-TD(%.2f)", "AT-TD(%.2f)", "AT-TD(%.2f)", "AT-TD(%.2f)"},
        {digraph_at_td_change, digraph_at_td_count}),
    structural(
        "AT-TU", kLambda, kAlternating,
        {"AT-TU(%.2f)", "attu", "attu", "AT-TU(%.2f)", "AT-TU(%.2f)", "AT-TU(%.2f)", "AT-TU(%.2f)"},
        {digraph_at_tu_change, digraph_at_tu_count}),
    structural(
        "AT-DU", kLambda, kAlternating,
        {"AT-DU(%.2f)", "atdu", "atdu", "AT-DU(%.2f)", "AT-DU(%.2f)", "AT-DU(%.2f)", "AT-DU(%.2f)"},
        {digraph_at_du_change, digraph_at_du_count}),
    structural("AT-TDU", kLambda, kAlternating,
               {"AT-TDU(%.2f)", "attdu", "attdu", "AT-TDU(%.2f)", "AT-TDU(%.2f)", "AT-TDU(%.2f)",
                "AT-TDU(%.2f)"},
               {digraph_at_tdu_change, digraph_at_tdu_count}),
    structural("A2P-T", kLambda, kAlternating,
               {"A2P-T(%.2f)", "talt2p", "talt2p", "A2P-T(%.2f)", "A2P-T(%.2f)", "A2P-T(%.2f)",
                "A2P-T(%.2f)"},
               {digraph_a2p_t_change, digraph_a2p_t_count}),
    structural("A2P-D", kLambda, kAlternating,
               {"A2P-D(%.2f)", "dalt2p", "dalt2p", "A2P-D(%.2f)", "A2P-D(%.2f)", "A2P-D(%.2f)",
                "A2P-D(%.2f)"},
               {digraph_a2p_d_change, digraph_a2p_d_count}),
    structural("A2P-U", kLambda, kAlternating,
               {"A2P-U(%.2f)", "ualt2p", "ualt2p", "A2P-U(%.2f)", "A2P-U(%.2f)", "A2P-U(%.2f)",
                "A2P-U(%.2f)"},
               {digraph_a2p_u_change, digraph_a2p_u_count}),
    structural("A2P-TD", kLambda, kAlternating,
               {"A2P-TD(%.2f)", "a2ptd", "a2ptd", "A2P-TD(%.2f)", "A2P-TD(%.2f)", "A2P-TD(%.2f)",
                "A2P-TD(%.2f)"},
               {digraph_a2p_td_change, digraph_a2p_td_count}),
    structural("A2P-TU", kLambda, kAlternating,
               {"A2P-TU(%.2f)", "a2ptu", "a2ptu", "A2P-TU(%.2f)", "A2P-TU(%.2f)", "A2P-TU(%.2f)",
                "A2P-TU(%.2f)"},
               {digraph_a2p_tu_change, digraph_a2p_tu_count}),
    structural("A2P-DU", kLambda, kAlternating,
               {"A2P-DU(%.2f)", "a2pdu", "a2pdu", "A2P-DU(%.2f)", "A2P-DU(%.2f)", "A2P-DU(%.2f)",
                "A2P-DU(%.2f)"},
               {digraph_a2p_du_change, digraph_a2p_du_count}),
    structural("A2P-TDU", kLambda, kAlternating,
               {"A2P-TDU(%.2f)", "a2ptdu", "a2ptdu", "A2P-TDU(%.2f)", "A2P-TDU(%.2f)",
                "A2P-TDU(%.2f)", "A2P-TDU(%.2f)"},
               {digraph_a2p_tdu_change, digraph_a2p_tdu_count}),
});

// The outputs differ in the order of the stars and triads at the front. Behind those all follow the
// order of evaluation, but for the row moved in setup and update files and in the syntax file.
template <std::size_t count>
consteval std::array<int, kEffects.size() - 2> host_rows(const char* const (&front)[count]) {
    const auto order =
        without(kEffects, starting_with(kEffects, front), {"4-in-star", "4-out-star"});
    return moved(kEffects, order, "AinAoutS", "Ain1outS");
}

// Rows of the setup file; the T effects come in this scrambled order, and so do their positions.
constexpr auto kRows =
    host_rows({"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star", "path2",
               "Transitive-Triad", "Cyclic-Triad", "T7", "T8", "T4", "T5", "T3", "T6", "T2", "T1"});
constexpr auto kUpdates =
    host_rows({"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star", "path2",
               "Transitive-Triad", "Cyclic-Triad", "T1", "T2", "T3", "T4", "T5", "T6", "T7", "T8"});

// Parameters of a simulation, and the statistics report.
constexpr auto kParameters =
    starting_with(kEffects, {"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star",
                             "4-in-star", "4-out-star", "path2", "T1", "T2", "T3", "T4", "T5", "T6",
                             "T7", "T8", "Transitive-Triad", "Cyclic-Triad"});

// Columns of the sample table.
constexpr auto kColumns =
    starting_with(kEffects, {"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star",
                             "4-in-star", "4-out-star", "path2", "T7", "T8", "T6", "Cyclic-Triad",
                             "T3", "T2", "T5", "T4", "Transitive-Triad", "T1"});

// Variables of the syntax file: uktri stands behind attdu, though the table's column stands before
// attd, so four columns are read there under shifted names.
constexpr auto kVariables = moved(kEffects, kColumns, "AT-U", "AT-TDU");

// Result table of an estimation, and the rows of a fit: 030C behind 030T.
constexpr auto kResults = moved(kEffects, kColumns, "Cyclic-Triad", "Transitive-Triad");

constexpr auto kBinary = std::to_array<AttributeEffect>({
    attribute("%s_interaction", kWhole,
              {"%s_interaction", "%s_interaction", "%s_interaction", "%s_interaction",
               "%s_interaction", "%s_interaction", "%s_interaction"},
              {digraph_binary_interaction_change, digraph_binary_interaction_count}),
    attribute(
        "%s_sender", kWhole,
        {"%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender"},
        {digraph_binary_sender_change, digraph_binary_sender_count}),
    attribute("%s_receiver", kWhole,
              {"%s_receiver", "%s_interaction", "%s_receiver", "%s_receiver", "%s_receiver",
               "%s_receiver", "%s_receiver"},
              {digraph_binary_receiver_change, digraph_binary_receiver_count}),
    attribute("%s_sender_missing", kWhole,
              {"%s_sender", "%s_sender_missing", "%s_sender_missing", "%s_sender_missing",
               "%s_sender_missing", "%s_sender_missing", "%s_sender_missing"},
              {digraph_binary_sender_missing_change, digraph_binary_sender_missing_count}),
    attribute("%s_receiver_missing", kWhole,
              {"%s_receiver", "%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing",
               "%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing"},
              {digraph_binary_receiver_missing_change, digraph_binary_receiver_missing_count}),
    attribute(
        "%s_interaction_reciprocity", kWhole,
        {"%s_interaction_reciprocity", "%s_t2u11", "%s_t2u11", "%s_interaction_reciprocity",
         "%s_interaction_reciprocity", "%s_interaction_reciprocity", "%s_interaction_reciprocity"},
        {digraph_binary_interaction_reciprocity_change,
         digraph_binary_interaction_reciprocity_count}),
    attribute(
        "%s_activity_reciprocity", kWhole,
        {"%s_activity_reciprocity", "%s_t1u11", "%s_t1u11", "%s_activity_reciprocity",
         "%s_activity_reciprocity", "%s_activity_reciprocity", "%s_activity_reciprocity"},
        {digraph_binary_activity_reciprocity_change, digraph_binary_activity_reciprocity_count}),
    attribute("%s_in2star", kWhole,
              {"%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star",
               "%s_in2star"},
              {digraph_binary_in2star_change, digraph_binary_in2star_count}),
    attribute("%s_path2", kWhole,
              {"%s_path2", "%s_path2", "%s_path2", "%s_path2", "%s_path2", "%s_path2", "%s_path2"},
              {digraph_binary_path2_change, digraph_binary_path2_count}),
    attribute("%s_out2star", kWhole,
              {"%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star",
               "%s_out2star", "%s_out2star"},
              {digraph_binary_out2star_change, digraph_binary_out2star_count}),
});

constexpr auto kContinuous = std::to_array<AttributeEffect>({
    attribute(
        "%s_sender", kReal,
        {"%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender", "%s_sender"},
        {digraph_continuous_sender_change, digraph_continuous_sender_count}),
    attribute("%s_receiver", kReal,
              {"%s_receiver", "%s_receiver", "%s_receiver", "%s_receiver", "%s_receiver",
               "%s_receiver", "%s_Receiver"},
              {digraph_continuous_receiver_change, digraph_continuous_receiver_count}),
    attribute("%s_sender_missing", kReal,
              {"%s_sender_missing", "%s_sender_missing", "%s_sender_missing", "%s_sender_missing",
               "%s_sender_missing", "%s_sender_missing", "%s_Sender_missing"},
              {digraph_continuous_sender_missing_change, digraph_continuous_sender_missing_count}),
    attribute(
        "%s_receiver_missing", kReal,
        {"%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing",
         "%s_receiver_missing", "%s_receiver_missing", "%s_Receiver_missing"},
        {digraph_continuous_receiver_missing_change, digraph_continuous_receiver_missing_count}),
    attribute("%s_sum", kPairReal,
              {"%s_sum", "%s_interaction_sum", "%s_interaction_sum", "%s_sum", "%s_sum", "%s_sum",
               "%s_sum", nullptr, "%s_interaction_diff"},
              {digraph_continuous_sum_change, digraph_continuous_sum_count}, PairTable::sums),
    attribute("%s_diff", kPairReal,
              {"%s_diff", "%s_interaction_difff", "%s_interaction_diff", "%s_diff", "%s_diff",
               "%s_diff", "%s_diff"},
              {digraph_continuous_diff_change, digraph_continuous_diff_count},
              PairTable::differences),
    attribute("%s_prod", kPairReal,
              {"%s_prod", "%s_interaction_prodd", "%s_interaction_prod", "%s_prod", "%s_prod",
               "%s_prod", "%s_prod"},
              {digraph_continuous_prod_change, digraph_continuous_prod_count}, PairTable::products),
    attribute(
        "%s_sum_reciprocity", kReal,
        {"%s_sum_reciprocity", "%s_sum_reciprocity", "%s_sum_reciprocity", "%s_sum_reciprocity",
         "%s_sum_reciprocity", "%s_sum_reciprocity", "%s_sum_reciprocity"},
        {digraph_continuous_sum_reciprocity_change, digraph_continuous_sum_reciprocity_count},
        PairTable::sums),
    attribute(
        "%s_diff_reciprocity", kReal,
        {"%s_diff_reciprocity", "%s_diff_reciprocity", "%s_diff_reciprocity", "%s_diff_reciprocity",
         "%s_diff_reciprocity", "%s_diff_reciprocity", "%s_diff_reciprocity"},
        {digraph_continuous_diff_reciprocity_change, digraph_continuous_diff_reciprocity_count},
        PairTable::differences),
    attribute(
        "%s_prod_reciprocity", kReal,
        {"%s_prod_reciprocity", "%s_prod_reciprocity", "%s_prod_reciprocity", "%s_prod_reciprocity",
         "%s_prod_reciprocity", "%s_prod_reciprocity", "%s_prod_reciprocity"},
        {digraph_continuous_prod_reciprocity_change, digraph_continuous_prod_reciprocity_count},
        PairTable::products),
    attribute("%s_in2star", kReal,
              {"%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star",
               "%s_2-in-star"},
              {digraph_continuous_in2star_change, digraph_continuous_in2star_count}),
    attribute("%s_out2star", kReal,
              {"%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star",
               "%s_out2star", "%s_2-out-star"},
              {digraph_continuous_out2star_change, digraph_continuous_out2star_count}),
    attribute("%s_path2", kReal,
              {"%s_path2", "%s_2path", "%s_twomix", "%s_path2", "%s_path2", "%s_path2", "%s_path2"},
              {digraph_continuous_path2_change, digraph_continuous_path2_count}),
});

constexpr auto kCategorical = std::to_array<AttributeEffect>({
    attribute("%s_same_Category", kWhole,
              {"%s_matching", "%s_matching", "%s_matching", "%s_matching", "%s_matching",
               "%s_matching", "%s_matching"},
              {digraph_categorical_matching_change, digraph_categorical_matching_count}),
    attribute("%s_diff_Category", kWhole,
              {"%s_mismatch", "%s_mismatch", "%s_mismatch", "%s_mismatch", "%s_mismatch",
               "%s_mismatch", "%s_mismatch"},
              {digraph_categorical_mismatch_change, digraph_categorical_mismatch_count}),
    attribute("%s_same_Category_reciprocity", kWhole,
              {"%s_matching_reciprocity", "%s_matching_reciprocity", "%s_matching_reciprocity",
               "%s_matching_reciprocity", "%s_matching_reciprocity", "%s_matching_reciprocity",
               "%s_matching_reciprocity"},
              {digraph_categorical_matching_reciprocity_change,
               digraph_categorical_matching_reciprocity_count}),
    attribute("%s_diff_Category_reciprocity", kWhole,
              {"%s_mismatch_reciprocity", "%s_mismatch_reciprocity", "%s_mismatch_reciprocity",
               "%s_mismatch_reciprocity", "%s_mismatch_reciprocity", "%s_mismatch_reciprocity",
               "%s_mismatch_reciprocity"},
              {digraph_categorical_mismatch_reciprocity_change,
               digraph_categorical_mismatch_reciprocity_count}),
});

constexpr auto kCovariates = std::to_array<AttributeEffect>({
    attribute("%s_arc", kReal,
              {"%s_arc", "%s_arc", "%s_arc", "%s_arc", "%s_arc", "%s_arc", "%s_arc"},
              {digraph_covariate_arc_change, digraph_covariate_arc_count}, PairTable::covariate),
});

// Rows of the setup file and of the update files.
constexpr auto kBinaryRows =
    rows_of(kBinary, {"%s_interaction", "%s_sender", "%s_receiver", "%s_sender_missing",
                      "%s_receiver_missing", "%s_activity_reciprocity",
                      "%s_interaction_reciprocity", "%s_out2star", "%s_path2", "%s_in2star"});
static_assert(kBinaryRows.size() == kBinary.size());

constexpr auto kAllBinary = all_rows(kBinary);
constexpr auto kAllContinuous = all_rows(kContinuous);
constexpr auto kAllCategorical = all_rows(kCategorical);
constexpr auto kAllCovariates = all_rows(kCovariates);

// The parameter vector of a continuous attribute has twelve groups, without one for "sum" and with
// prod before diff; assembly, and it alone, then writes prod_reciprocity a second time. The
// evaluator, the statistics and every label follow the thirteen rows, so in a model that selects
// "sum", both "diff" and "prod", or "prod_reciprocity", parameters and statistics are out of step.
// Hosts have stored estimates in this order; it stays.
constexpr auto kContinuousStored =
    without(kContinuous, moved(kContinuous, kAllContinuous, "%s_prod", "%s_diff"), {"%s_sum"});
constexpr auto kContinuousAssembled =
    followed_by(kContinuous, kContinuousStored, "%s_prod_reciprocity");

const Catalogue kCatalogue = {
    .kind = NetworkKind::directed,
    .effects = kEffects,
    .setup_order = kRows,
    .update_order = kUpdates,
    .output_orders = {kParameters, kColumns, kVariables, kResults, kResults, kResults, kResults,
                      kParameters, std::span<const int>(), kVariables},
    // The full model hands out 42 positions and counts 43: attributes begin at 43, and position 42
    // stays empty.
    .full_model_surplus = 1,
    .groups = {{{.effects = kBinary,
                 .setup_order = kBinaryRows,
                 .store_order = kAllBinary,
                 .assembly_order = kAllBinary},
                {.effects = kContinuous,
                 .setup_order = kAllContinuous,
                 .store_order = kContinuousStored,
                 .assembly_order = kContinuousAssembled},
                {.effects = kCategorical,
                 .setup_order = kAllCategorical,
                 .store_order = kAllCategorical,
                 .assembly_order = kAllCategorical},
                {.effects = kCovariates,
                 .setup_order = kAllCovariates,
                 .store_order = kAllCovariates,
                 .assembly_order = kAllCovariates}}}};

}  // namespace

const Catalogue& digraph_catalogue() { return kCatalogue; }

namespace digraph_effect {
constinit const int kArc = row_of(kEffects, "arc");
constinit const int kTransitiveTriad = row_of(kEffects, "Transitive-Triad");
constinit const int kCyclicTriad = row_of(kEffects, "Cyclic-Triad");
}  // namespace digraph_effect
