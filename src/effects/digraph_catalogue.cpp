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

constexpr StructuralEffect structural(const char* row, EffectFacts facts, EffectTraits traits,
                                      NumberFormats formats, Labels labels,
                                      EffectFunctions<Digraph> functions) {
    return {.row = row,
            .facts = facts,
            .traits = traits,
            .labels = labels,
            .formats = formats,
            .digraph = functions};
}
constexpr AttributeEffect attribute(const char* update, EffectFacts facts, NumberFormats formats,
                                    Labels labels, EffectFunctions<Digraph> functions,
                                    PairTable pairs = PairTable::none) {
    return {.update = update,
            .facts = facts,
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

constexpr const char* kNotation =
    "x_ij: 1 where i sends an arc to j, else 0; y_ij = x_ij x_ji; in_i, out_i: arcs into and out "
    "of "
    "i; m_i: mutual dyads of i; p_ij: two-paths from i to j; s_ij: third actors that send to i and "
    "j; r_ij: third actors that receive from both; a_i: the attribute's value of i, 0 where it is "
    "missing; u_i: 1 where it is missing; c_ij: the covariate; λ: lambda; w = 1 - 1/λ; "
    "v = 1 - 1/(λ - 1); C(m,k): m choose k; [..]: 1 where it holds, else 0; sum_{i<j}: over the "
    "pairs, sum_{i,j}: over the ordered pairs of different actors";

// In evaluation order. Labels in full: parameter, simulation, syntax, result, fit_parameter, fit,
// report. No setup row selects the two 4-stars; their labels keep their places.
constexpr auto kEffects = std::to_array<StructuralEffect>({
    structural("arc", {"arc", "arcs", "sum_{i,j} x_ij", Cost::constant, Dependence::none}, kTies,
               kWhole, labelled("arc"), {digraph_arc_change, digraph_arc_count}),
    structural("reciprocity",
               {"reciprocity", "pairs of actors with arcs both ways", "sum_{i<j} y_ij",
                Cost::constant, Dependence::reverse_arc},
               kDegrees, kWhole, shown_as("reciprocity", "recip"),
               {digraph_reciprocity_change, digraph_reciprocity_count}),
    structural(
        "in2star", {"in-2-star", "two arcs into one actor", "sum_i C(in_i,2)", Cost::constant},
        kDegrees, kWhole,
        {"2-in-star", "in2star", "in2star", "2-in-star", "2-in-star", "2-in-star", "in-2star"},
        {digraph_in2star_change, digraph_in2star_count}),
    structural(
        "in-3-star", {"in-3-star", "three arcs into one actor", "sum_i C(in_i,3)", Cost::constant},
        kDegrees, kWhole,
        {"3-in-star", "in3star", "in3star", "3-in-star", "3-in-star", "3-in-star", "in-3star"},
        {digraph_in3star_change, digraph_in3star_count}),
    structural(
        "4-in-star",
        {"4-in-star", "four arcs into one actor (no setup row selects it)", "sum_i C(in_i,4)",
         Cost::constant},
        kOutside, kWhole,
        {"4-in-star", "in4star", "in4star", "4-in-star", "4-in-star", "4-in-star", "in-4star"},
        {digraph_in4star_change, digraph_in4star_count}),
    structural("out2star",
               {"out-2-star", "two arcs out of one actor", "sum_i C(out_i,2)", Cost::constant},
               kDegrees, kWhole,
               {"2-out-star", "out2star", "out2star", "2-out-star", "2-out-star", "2-out-star",
                "out-2star"},
               {digraph_out2star_change, digraph_out2star_count}),
    structural("out-3-star",
               {"out-3-star", "three arcs out of one actor", "sum_i C(out_i,3)", Cost::constant},
               kDegrees, kWhole,
               {"3-out-star", "out3star", "out3star", "3-out-star", "3-out-star", "3-out-star",
                "out-3star"},
               {digraph_out3star_change, digraph_out3star_count}),
    structural("4-out-star",
               {"4-out-star", "four arcs out of one actor (no setup row selects it)",
                "sum_i C(out_i,4)", Cost::constant},
               kOutside, kWhole,
               {"4-out-star", "out4star", "out4star", "4-out-star", "4-out-star", "4-out-star",
                "out-4star"},
               {digraph_out4star_change, digraph_out4star_count}),
    structural("path2",
               {"path2", "an arc into an actor and an arc out of it to a third",
                "sum_i (in_i out_i - m_i)", Cost::constant},
               kDegrees, kWhole,
               {"path2", "mix2star", "mix2star", "path2", "path2", "path2", "mixed-2-star"},
               {digraph_path2_change, digraph_path2_count}),
    structural("T7",
               {"T7", "a mutual dyad and an arc from a third actor to one of its actors (111D)",
                "sum_i m_i (in_i - 1)", Cost::constant},
               kFull, kWhole, shown_as("T7", "t7"), {digraph_t7_change, digraph_t7_count}),
    structural("T8",
               {"T8", "a mutual dyad and an arc from one of its actors to a third (111U)",
                "sum_i m_i (out_i - 1)", Cost::constant},
               kFull, kWhole, {"T8", "t8", "t8", "111U", "111U", "111U", "T8"},
               {digraph_t8_change, digraph_t8_count}),
    structural("T3",
               {"T3", "a mutual dyad and a two-path from one of its actors to the other (120C)",
                "sum_{i,j} y_ij p_ij", Cost::common_neighbours},
               kFull, kWhole, {"T3", "t3", "t3", "120C", "120C", "120C", "T3"},
               {digraph_t3_change, digraph_t3_count}),
    structural("T4",
               {"T4", "a mutual dyad and a third actor that sends to both (120D)",
                "sum_{i<j} y_ij s_ij", Cost::common_neighbours},
               kFull, kWhole, {"T4", "t4", "t4", "120D", "120D", "120D", "T4"},
               {digraph_t4_change, digraph_t4_count}),
    structural("T5",
               {"T5", "a mutual dyad and a third actor that receives from both (120U)",
                "sum_{i<j} y_ij r_ij", Cost::common_neighbours},
               kFull, kWhole, {"T5", "t5", "t5", "120U", "120U", "120U", "T5"},
               {digraph_t5_change, digraph_t5_count}),
    structural("T6",
               {"T6", "two mutual dyads that share an actor (201)", "sum_i C(m_i,2)",
                Cost::common_neighbours},
               kFull, kWhole, {"T6", "t6", "t6", "201", "201", "201", "T6"},
               {digraph_t6_change, digraph_t6_count}),
    structural("T2",
               {"T2", "two mutual dyads that share an actor and an arc between the other two (210)",
                "sum_{i,j,k} x_ij y_ik y_jk", Cost::common_neighbours},
               kFull, kWhole, {"T2", "t2", "t2", "210", "210", "210", "T2"},
               {digraph_t2_change, digraph_t2_count}),
    structural("Cyclic-Triad",
               {"cyclic-triad", "three arcs in a ring (030C)", "1/3 sum_{i,j} x_ij p_ji",
                Cost::common_neighbours},
               kFull, kWhole,
               {"T10(030C)", "t10", "t10", "030C", "T10(030C)", "T10(030C)", "T10(030C)"},
               {digraph_t10_change, digraph_t10_count}),
    structural(
        "Transitive-Triad",
        {"transitive-triad", "a two-path and the arc from its first actor to its last (030T)",
         "sum_{i,j} x_ij p_ij", Cost::common_neighbours},
        kFull, kWhole, {"T9(030T)", "t9", "t9", "030T", "T9(030T)", "T9(030T)", "T9(030T)"},
        {digraph_t9_change, digraph_t9_count}),
    structural("T1",
               {"T1", "three mutual dyads among three actors (300)", "sum_{i<j<k} y_ij y_ik y_jk",
                Cost::common_neighbours},
               kFull, kWhole, {"T1", "t1", "t1", "300", "300", "300", "T1"},
               {digraph_t1_change, digraph_t1_count}),
    structural("Sink",
               {"sink", "actors that receive and do not send", "sum_i [out_i = 0] [in_i > 0]",
                Cost::constant},
               kDegrees, kWhole, {"Sinks", "sink", "sink", "sink", "sink", "sink", "Sink"},
               {digraph_sinks_change, digraph_sinks_count}),
    structural("Source",
               {"source", "actors that send and do not receive", "sum_i [in_i = 0] [out_i > 0]",
                Cost::constant},
               kDegrees, kWhole,
               {"Sources", "source", "source", "source", "source", "source", "Source"},
               {digraph_sources_change, digraph_sources_count}),
    structural("isolates",
               {"isolates", "actors without an arc", "sum_i [in_i + out_i = 0]", Cost::constant},
               kDegrees, kWhole,
               {"Isolates", "iso", "iso", "isolates", "isolates", "isolates", "Isolates"},
               {digraph_isolates_change, digraph_isolates_count}),
    structural("AinS",
               {"AinS",
                "stars of two and more arcs into an actor: each further arc adds more, up to "
                "lambda (alternating in-star)",
                "λ^2 sum_i (w^in_i - 1 + in_i/λ)", Cost::constant},
               kLambdaDegrees, kAlternating, shown_as("AinS(%.2f)", "kinstar"),
               {digraph_alternating_in_star_change, digraph_alternating_in_star_count}),
    structural("AoutS",
               {"AoutS",
                "stars of two and more arcs out of an actor: each further arc adds more, up to "
                "lambda (alternating out-star)",
                "λ^2 sum_i (w^out_i - 1 + out_i/λ)", Cost::constant},
               kLambdaDegrees, kAlternating, shown_as("AoutS(%.2f)", "koutstar"),
               {digraph_alternating_out_star_change, digraph_alternating_out_star_count}),
    structural("AinS2",
               {"AinS2", "a second alternating in-star, with a lambda of its own",
                "λ^2 sum_i (w^in_i - 1 + in_i/λ)", Cost::constant},
               kLambdaOneDegrees, kAlternating, shown_as("AinS(%.2f)", "kinstar2"),
               {digraph_alternating_in_star_change, digraph_alternating_in_star_count}),
    structural("AoutS2",
               {"AoutS2", "a second alternating out-star, with a lambda of its own",
                "λ^2 sum_i (w^out_i - 1 + out_i/λ)", Cost::constant},
               kLambdaOneDegrees, kAlternating, shown_as("AoutS(%.2f)", "koutstar2"),
               {digraph_alternating_out_star_change, digraph_alternating_out_star_count}),
    structural("Ain1outS",
               {"Ain1outS",
                "two-paths through an actor, each further arc into it weighing less; 0 unless "
                "lambda is above 1",
                "λ sum_i ((out_i - m_i) (1 - w^in_i) + m_i (1 - w^(in_i - 1)))", Cost::constant},
               kLambdaDegrees, kAlternating, shown_as("Ain1out-star(%.2f)", "konestar"),
               {digraph_alternating_in_one_out_change, digraph_alternating_in_one_out_count}),
    structural("1inAoutS",
               {"1inAoutS",
                "two-paths through an actor, each further arc out of it weighing less; 0 unless "
                "lambda is above 1",
                "λ sum_i ((in_i - m_i) (1 - w^out_i) + m_i (1 - w^(out_i - 1)))", Cost::constant},
               kLambdaDegrees, kAlternating, shown_as("1inAout-star(%.2f)", "onelstar"),
               {digraph_one_in_alternating_out_change, digraph_one_in_alternating_out_count}),
    structural(
        "AinAoutS",
        {"AinAoutS",
         "two-paths through an actor, alternating in both its degrees; 0 unless lambda is above 1",
         "λ^2 sum_i (((v^m_i - 1) w^out_i - (w^m_i - 1)) w^(in_i - m_i) + (w^(in_i - m_i) - 1) "
         "(w^out_i - 1))",
         Cost::constant},
        kLambdaDegrees, kAlternating, shown_as("AinAout-star(%.2f)", "klstar"),
        {digraph_alternating_in_alternating_out_change,
         digraph_alternating_in_alternating_out_count}),
    structural(
        "AT-T",
        {"AT-T", "arcs closed by two-paths of the same direction, each further one weighing less",
         "λ sum_{i,j} x_ij (1 - w^p_ij)", Cost::common_neighbours},
        kLambda, kAlternating, shown_as("AT-T(%.2f)", "tktri"),
        {digraph_at_t_change, digraph_at_t_count}),
    structural("AT-C",
               {"AT-C", "arcs closed into rings by two-paths back, each further one weighing less",
                "λ sum_{i,j} x_ij (1 - w^p_ji)", Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-C(%.2f)", "cktri"),
               {digraph_at_c_change, digraph_at_c_count}),
    structural("AT-D",
               {"AT-D",
                "arcs between actors that receive from the same third actors, each further one "
                "weighing less",
                "λ sum_{i,j} x_ij (1 - w^s_ij)", Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-D(%.2f)", "dktri"),
               {digraph_at_d_change, digraph_at_d_count}),
    structural(
        "AT-U",
        {"AT-U",
         "arcs between actors that send to the same third actors, each further one weighing less",
         "λ sum_{i,j} x_ij (1 - w^r_ij)", Cost::common_neighbours},
        kLambda, kAlternating, shown_as("AT-U(%.2f)", "uktri"),
        {digraph_at_u_change, digraph_at_u_count}),
    structural("AT-TD",
               {"AT-TD", "the mean of AT-T and AT-D", "λ/2 sum_{i,j} x_ij (2 - w^p_ij - w^s_ij)",
                Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-TD(%.2f)", "attd"),
               {digraph_at_td_change, digraph_at_td_count}),
    structural("AT-TU",
               {"AT-TU", "the mean of AT-T and AT-U", "λ/2 sum_{i,j} x_ij (2 - w^p_ij - w^r_ij)",
                Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-TU(%.2f)", "attu"),
               {digraph_at_tu_change, digraph_at_tu_count}),
    structural("AT-DU",
               {"AT-DU", "the mean of AT-D and AT-U", "λ/2 sum_{i,j} x_ij (2 - w^s_ij - w^r_ij)",
                Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-DU(%.2f)", "atdu"),
               {digraph_at_du_change, digraph_at_du_count}),
    structural("AT-TDU",
               {"AT-TDU", "the mean of AT-T, AT-D and AT-U",
                "λ/3 sum_{i,j} x_ij (3 - w^p_ij - w^s_ij - w^r_ij)", Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AT-TDU(%.2f)", "attdu"),
               {digraph_at_tdu_change, digraph_at_tdu_count}),
    structural(
        "A2P-T",
        {"A2P-T", "ordered pairs joined by two-paths, tied or not, each further one weighing less",
         "λ sum_{i,j} (1 - w^p_ij)", Cost::neighbours},
        kLambda, kAlternating, shown_as("A2P-T(%.2f)", "talt2p"),
        {digraph_a2p_t_change, digraph_a2p_t_count}),
    structural(
        "A2P-D",
        {"A2P-D", "pairs that receive from the same third actors, each further one weighing less",
         "λ sum_{i<j} (1 - w^s_ij)", Cost::neighbours, Dependence::other_dyads,
         Agreement::above_lambda_one},
        kLambda, kAlternating, shown_as("A2P-D(%.2f)", "dalt2p"),
        {digraph_a2p_d_change, digraph_a2p_d_count}),
    structural("A2P-U",
               {"A2P-U", "pairs that send to the same third actors, each further one weighing less",
                "λ sum_{i<j} (1 - w^r_ij)", Cost::neighbours, Dependence::other_dyads,
                Agreement::above_lambda_one},
               kLambda, kAlternating, shown_as("A2P-U(%.2f)", "ualt2p"),
               {digraph_a2p_u_change, digraph_a2p_u_count}),
    structural("A2P-TD",
               {"A2P-TD", "the mean of A2P-T and A2P-D",
                "λ/2 (sum_{i,j} (1 - w^p_ij) + sum_{i<j} (1 - w^s_ij))", Cost::neighbours,
                Dependence::other_dyads, Agreement::above_lambda_one},
               kLambda, kAlternating, shown_as("A2P-TD(%.2f)", "a2ptd"),
               {digraph_a2p_td_change, digraph_a2p_td_count}),
    structural("A2P-TU",
               {"A2P-TU", "the mean of A2P-T and A2P-U",
                "λ/2 (sum_{i,j} (1 - w^p_ij) + sum_{i<j} (1 - w^r_ij))", Cost::neighbours,
                Dependence::other_dyads, Agreement::above_lambda_one},
               kLambda, kAlternating, shown_as("A2P-TU(%.2f)", "a2ptu"),
               {digraph_a2p_tu_change, digraph_a2p_tu_count}),
    structural("A2P-DU",
               {"A2P-DU", "the mean of A2P-D and A2P-U",
                "λ/2 (sum_{i<j} (1 - w^s_ij) + sum_{i<j} (1 - w^r_ij))", Cost::neighbours,
                Dependence::other_dyads, Agreement::above_lambda_one},
               kLambda, kAlternating, shown_as("A2P-DU(%.2f)", "a2pdu"),
               {digraph_a2p_du_change, digraph_a2p_du_count}),
    structural("A2P-TDU",
               {"A2P-TDU", "the mean of A2P-T, A2P-D and A2P-U",
                "λ/3 (sum_{i,j} (1 - w^p_ij) + sum_{i<j} (1 - w^s_ij) + sum_{i<j} (1 - w^r_ij))",
                Cost::neighbours, Dependence::other_dyads, Agreement::above_lambda_one},
               kLambda, kAlternating, shown_as("A2P-TDU(%.2f)", "a2ptdu"),
               {digraph_a2p_tdu_change, digraph_a2p_tdu_count}),
});

// The outputs differ in the order of the stars and triads at the front. Behind those all follow the
// order of evaluation, but for the row moved in setup and update files and in the syntax file.

// Rows of the setup file; the T effects come in this scrambled order, and so do their positions.
constexpr auto kRowsAndSlots = starting_with(
    kEffects, {"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star", "path2",
               "Transitive-Triad", "Cyclic-Triad", "T7", "T8", "T4", "T5", "T3", "T6", "T2", "T1"});
constexpr auto kRows = without(kEffects, moved(kEffects, kRowsAndSlots, "AinAoutS", "Ain1outS"),
                               {"4-in-star", "4-out-star"});

// Rows of the update files: the same but for the T effects, which come as they are numbered.
constexpr auto kUpdatesAndSlots = starting_with(
    kEffects, {"arc", "reciprocity", "in2star", "out2star", "in-3-star", "out-3-star", "path2",
               "Transitive-Triad", "Cyclic-Triad", "T1", "T2", "T3", "T4", "T5", "T6", "T7", "T8"});
constexpr auto kUpdates =
    without(kEffects, moved(kEffects, kUpdatesAndSlots, "AinAoutS", "Ain1outS"),
            {"4-in-star", "4-out-star"});

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

static_assert(kRows.size() == kEffects.size() - 2 && kUpdates.size() == kRows.size());
static_assert(each_once(kRows) && each_once(kUpdates) && each_once(kParameters) &&
              each_once(kColumns) && each_once(kVariables) && each_once(kResults));

constexpr auto kBinary = std::to_array<AttributeEffect>({
    attribute("%s_interaction",
              {"interaction", "arcs between two bearers of the attribute", "sum_{i,j} x_ij a_i a_j",
               Cost::constant, Dependence::none},
              kWhole, labelled("%s_interaction"),
              {digraph_binary_interaction_change, digraph_binary_interaction_count}),
    attribute("%s_sender",
              {"sender", "arcs from bearers of the attribute", "sum_{i,j} x_ij a_i", Cost::constant,
               Dependence::none},
              kWhole, labelled("%s_sender"),
              {digraph_binary_sender_change, digraph_binary_sender_count}),
    attribute("%s_receiver",
              {"receiver", "arcs to bearers of the attribute", "sum_{i,j} x_ij a_j", Cost::constant,
               Dependence::none},
              kWhole,
              {"%s_receiver", "%s_interaction", "%s_receiver", "%s_receiver", "%s_receiver",
               "%s_receiver", "%s_receiver"},
              {digraph_binary_receiver_change, digraph_binary_receiver_count}),
    attribute("%s_sender_missing",
              {"sender-missing", "arcs from actors whose value is missing", "sum_{i,j} x_ij u_i",
               Cost::constant, Dependence::none},
              kWhole, valued_as("%s_sender", "%s_sender_missing"),
              {digraph_binary_sender_missing_change, digraph_binary_sender_missing_count}),
    attribute("%s_receiver_missing",
              {"receiver-missing", "arcs to actors whose value is missing", "sum_{i,j} x_ij u_j",
               Cost::constant, Dependence::none},
              kWhole, valued_as("%s_receiver", "%s_receiver_missing"),
              {digraph_binary_receiver_missing_change, digraph_binary_receiver_missing_count}),
    attribute("%s_interaction_reciprocity",
              {"interaction-reciprocity", "mutual dyads of two bearers of the attribute",
               "sum_{i<j} y_ij a_i a_j", Cost::constant, Dependence::reverse_arc},
              kWhole, shown_as("%s_interaction_reciprocity", "%s_t2u11"),
              {digraph_binary_interaction_reciprocity_change,
               digraph_binary_interaction_reciprocity_count}),
    attribute(
        "%s_activity_reciprocity",
        {"activity-reciprocity", "mutual dyads with at least one bearer of the attribute",
         "sum_{i<j} y_ij [a_i + a_j > 0]", Cost::constant, Dependence::reverse_arc},
        kWhole, shown_as("%s_activity_reciprocity", "%s_t1u11"),
        {digraph_binary_activity_reciprocity_change, digraph_binary_activity_reciprocity_count}),
    attribute("%s_in2star",
              {"in-2-star-centre", "two arcs into a bearer of the attribute", "sum_i a_i C(in_i,2)",
               Cost::constant, Dependence::other_dyads, Agreement::zero_one_values},
              kWhole, labelled("%s_in2star"),
              {digraph_binary_in2star_change, digraph_binary_in2star_count}),
    attribute("%s_path2",
              {"path2-centre", "two-paths through a bearer of the attribute",
               "sum_i a_i (in_i out_i - m_i)", Cost::constant},
              kWhole, labelled("%s_path2"),
              {digraph_binary_path2_change, digraph_binary_path2_count}),
    attribute(
        "%s_out2star",
        {"out-2-star-centre", "two arcs out of a bearer of the attribute", "sum_i a_i C(out_i,2)",
         Cost::constant, Dependence::other_dyads, Agreement::zero_one_values},
        kWhole, labelled("%s_out2star"),
        {digraph_binary_out2star_change, digraph_binary_out2star_count}),
});

constexpr auto kContinuous = std::to_array<AttributeEffect>({
    attribute("%s_sender",
              {"sender", "the value of the sender, over the arcs", "sum_{i,j} x_ij a_i",
               Cost::constant, Dependence::none},
              kReal, labelled("%s_sender"),
              {digraph_continuous_sender_change, digraph_continuous_sender_count}),
    attribute("%s_receiver",
              {"receiver", "the value of the receiver, over the arcs", "sum_{i,j} x_ij a_j",
               Cost::constant, Dependence::none},
              kReal,
              {"%s_receiver", "%s_receiver", "%s_receiver", "%s_receiver", "%s_receiver",
               "%s_receiver", "%s_Receiver"},
              {digraph_continuous_receiver_change, digraph_continuous_receiver_count}),
    attribute("%s_sender_missing",
              {"sender-missing", "arcs from actors whose value is missing", "sum_{i,j} x_ij u_i",
               Cost::constant, Dependence::none},
              kReal,
              {"%s_sender_missing", "%s_sender_missing", "%s_sender_missing", "%s_sender_missing",
               "%s_sender_missing", "%s_sender_missing", "%s_Sender_missing"},
              {digraph_continuous_sender_missing_change, digraph_continuous_sender_missing_count}),
    attribute(
        "%s_receiver_missing",
        {"receiver-missing", "arcs to actors whose value is missing", "sum_{i,j} x_ij u_j",
         Cost::constant, Dependence::none},
        kReal,
        {"%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing", "%s_receiver_missing",
         "%s_receiver_missing", "%s_receiver_missing", "%s_Receiver_missing"},
        {digraph_continuous_receiver_missing_change, digraph_continuous_receiver_missing_count}),
    attribute("%s_sum",
              {"sum", "the sum of the two values, over the arcs", "sum_{i,j} x_ij (a_i + a_j)",
               Cost::constant, Dependence::none},
              kPairReal,
              {"%s_sum", "%s_interaction_sum", "%s_interaction_sum", "%s_sum", "%s_sum", "%s_sum",
               "%s_sum", nullptr, "%s_interaction_diff"},
              {digraph_continuous_sum_change, digraph_continuous_sum_count}, PairTable::sums),
    attribute("%s_diff",
              {"difference", "the absolute difference of the two values, over the arcs",
               "sum_{i,j} x_ij |a_i - a_j|", Cost::constant, Dependence::none},
              kPairReal,
              {"%s_diff", "%s_interaction_difff", "%s_interaction_diff", "%s_diff", "%s_diff",
               "%s_diff", "%s_diff"},
              {digraph_continuous_diff_change, digraph_continuous_diff_count},
              PairTable::differences),
    attribute("%s_prod",
              {"product", "the product of the two values, over the arcs", "sum_{i,j} x_ij a_i a_j",
               Cost::constant, Dependence::none},
              kPairReal,
              {"%s_prod", "%s_interaction_prodd", "%s_interaction_prod", "%s_prod", "%s_prod",
               "%s_prod", "%s_prod"},
              {digraph_continuous_prod_change, digraph_continuous_prod_count}, PairTable::products),
    attribute(
        "%s_sum_reciprocity",
        {"sum-reciprocity",
         "the sum of the two values, over mutual dyads; the count takes every arc to a later actor",
         "sum_{i<j} x_ij (a_i + a_j)", Cost::constant, Dependence::reverse_arc, Agreement::never},
        kReal, labelled("%s_sum_reciprocity"),
        {digraph_continuous_sum_reciprocity_change, digraph_continuous_sum_reciprocity_count},
        PairTable::sums),
    attribute(
        "%s_diff_reciprocity",
        {"difference-reciprocity",
         "the absolute difference of the two values, over mutual dyads; the count takes every arc "
         "to a later actor",
         "sum_{i<j} x_ij |a_i - a_j|", Cost::constant, Dependence::reverse_arc, Agreement::never},
        kReal, labelled("%s_diff_reciprocity"),
        {digraph_continuous_diff_reciprocity_change, digraph_continuous_diff_reciprocity_count},
        PairTable::differences),
    attribute(
        "%s_prod_reciprocity",
        {"product-reciprocity",
         "the product of the two values, over mutual dyads; the count takes every arc to a later "
         "actor",
         "sum_{i<j} x_ij a_i a_j", Cost::constant, Dependence::reverse_arc, Agreement::never},
        kReal, labelled("%s_prod_reciprocity"),
        {digraph_continuous_prod_reciprocity_change, digraph_continuous_prod_reciprocity_count},
        PairTable::products),
    attribute("%s_in2star",
              {"in-2-star-centre", "the value of the centre, over pairs of arcs into it",
               "sum_i a_i C(in_i,2)", Cost::constant},
              kReal,
              {"%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star", "%s_in2star",
               "%s_2-in-star"},
              {digraph_continuous_in2star_change, digraph_continuous_in2star_count}),
    attribute("%s_out2star",
              {"out-2-star-centre", "the value of the centre, over pairs of arcs out of it",
               "sum_i a_i C(out_i,2)", Cost::constant},
              kReal,
              {"%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star", "%s_out2star",
               "%s_out2star", "%s_2-out-star"},
              {digraph_continuous_out2star_change, digraph_continuous_out2star_count}),
    attribute("%s_path2",
              {"path2-centre", "the value of the centre, over two-paths",
               "sum_i a_i (in_i out_i - m_i)", Cost::constant},
              kReal,
              {"%s_path2", "%s_2path", "%s_twomix", "%s_path2", "%s_path2", "%s_path2", "%s_path2"},
              {digraph_continuous_path2_change, digraph_continuous_path2_count}),
});

constexpr auto kCategorical = std::to_array<AttributeEffect>({
    attribute("%s_same_Category",
              {"same", "arcs between actors of one category", "sum_{i,j} x_ij [a_i = a_j]",
               Cost::constant, Dependence::none},
              kWhole, labelled("%s_matching"),
              {digraph_categorical_matching_change, digraph_categorical_matching_count}),
    attribute("%s_diff_Category",
              {"different", "arcs between actors of different categories",
               "sum_{i,j} x_ij [a_i != a_j]", Cost::constant, Dependence::none},
              kWhole, labelled("%s_mismatch"),
              {digraph_categorical_mismatch_change, digraph_categorical_mismatch_count}),
    attribute("%s_same_Category_reciprocity",
              {"same-reciprocity", "mutual dyads of actors of one category",
               "sum_{i<j} y_ij [a_i = a_j]", Cost::constant, Dependence::reverse_arc},
              kWhole, labelled("%s_matching_reciprocity"),
              {digraph_categorical_matching_reciprocity_change,
               digraph_categorical_matching_reciprocity_count}),
    attribute("%s_diff_Category_reciprocity",
              {"different-reciprocity", "mutual dyads of actors of different categories",
               "sum_{i<j} y_ij [a_i != a_j]", Cost::constant, Dependence::reverse_arc},
              kWhole, labelled("%s_mismatch_reciprocity"),
              {digraph_categorical_mismatch_reciprocity_change,
               digraph_categorical_mismatch_reciprocity_count}),
});

constexpr auto kCovariates = std::to_array<AttributeEffect>({
    attribute("%s_arc",
              {"covariate", "the covariate, over the arcs", "sum_{i,j} x_ij c_ij", Cost::constant,
               Dependence::none},
              kReal, labelled("%s_arc"),
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
    .formula_notation = kNotation,
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
constinit const int kOut2star = row_of(kEffects, "out2star");
constinit const int kOut3star = row_of(kEffects, "out-3-star");
constinit const int kAoutS = row_of(kEffects, "AoutS");
constinit const int kAoutS2 = row_of(kEffects, "AoutS2");
constinit const int kAinAoutS = row_of(kEffects, "AinAoutS");
constinit const int kAin1outS = row_of(kEffects, "Ain1outS");
constinit const int k1inAoutS = row_of(kEffects, "1inAoutS");
}  // namespace digraph_effect
