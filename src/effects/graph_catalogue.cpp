#include "effects/catalogue.h"

#include <array>

#include "effects/binary_attributes.h"
#include "effects/categorical_attributes.h"
#include "effects/cliques.h"
#include "effects/continuous_attributes.h"
#include "effects/covariates.h"
#include "effects/paths.h"
#include "effects/row_order.h"
#include "effects/stars.h"
#include "effects/triangle_pairs.h"
#include "effects/triangle_ties.h"
#include "effects/triangles.h"

namespace {

constexpr StructuralEffect structural(const char* row, EffectTraits traits, NumberFormats formats,
                                      Labels labels, EffectFunctions<Graph> functions) {
    return {.row = row, .traits = traits, .labels = labels, .formats = formats, .graph = functions};
}
constexpr AttributeEffect attribute(const char* update, NumberFormats formats, Labels labels,
                                    EffectFunctions<Graph> functions,
                                    PairTable pairs = PairTable::none) {
    return {
        .update = update, .labels = labels, .formats = formats, .graph = functions, .pairs = pairs};
}

// Number formats: simulation, syntax, fit_parameter, fit, bayes_fit, report.
constexpr NumberFormats kWhole = {"%.0f", "F8.0", "%.5f", "%.0f", "%.0f", "%.0f"};
constexpr NumberFormats kWholeWide = {"%.0f", "F8.4", "%.5f", "%.0f", "%.0f", "%.0f"};
constexpr NumberFormats kUncarried = {"%.0f", "F8.0", "  %8.5f", "%.0f", "%.0f", "%.0f"};
constexpr NumberFormats kTruncated = {"%.2f", "F8.0", "  %8.5f", "%.0f", "%.0f", "%.0f"};
constexpr NumberFormats kAlternating = {"%.2f", "F8.0", "%.5f", "%.3f", "%.3f", "%.5f"};
constexpr NumberFormats kAlternatingWide = {"%.2f", "F8.4", "%.5f", "%.3f", "%.3f", "%.5f"};
constexpr NumberFormats kContinuous = {"%.0f", "F8.4", "%.5f", "%.3f", "%.4lf", "%.5f"};
constexpr NumberFormats kCovariate = {"%.0f", "F8.4", "%.5f", "%.0f", "%.0f", "%.5f"};

// In evaluation order. Labels: parameter, simulation, syntax, result, fit_parameter, fit, report,
// change. "P0" is a second triangle count that no setup row selects; its labels keep their places.
constexpr auto kEffects = std::to_array<StructuralEffect>({
    structural("edge", kFull, kWhole,
               {"edge", "edge", "edge", "edge", "edge", "edge", "edges", "edge "},
               {edge_change, edge_count}),
    structural("2-star", kFull, kWhole,
               {"2-star", "star2", "star2", "2-star", "2-star", "2-star", "2-star", "star2 "},
               {star2_change, star2_count}),
    structural("3-star", kFull, kWhole,
               {"3-star", "star3", "star3", "3-star", "3-star", "3-star", "3-star", "star3 "},
               {star3_change, star3_count}),
    structural("4-star", kFull, kWhole,
               {"4-star", "star4", "star4", "4-star", "4-star", "4-star", "4-star", "star4 "},
               {star4_change, star4_count}),
    structural("5-star", kFull, kWhole,
               {"5-star", "star5", "star5", "5-star", "5-star", "5-star", "5-star", "star5 "},
               {star5_change, star5_count}),
    structural("Triangle", kFull, kWholeWide,
               {"Triangle", "triangle", "triangle", "Triangle", "Triangle", "triangles", "Triangle",
                "tri "},
               {triangle_change, triangle_count}),
    structural(
        "4-clique", clique_traits(4), kWholeWide,
        {"4-clique", "clique4", "clique4", "4-clique", "4-clique", "4-clique", "4-clique", "c4 "},
        {clique4_change, clique4_count}),
    structural(
        "5-clique", clique_traits(5), kWholeWide,
        {"5-clique", "clique5", "clique5", "5-clique", "5-clique", "5-clique", "5-clique", "c5 "},
        {clique5_change, clique5_count}),
    structural(
        "6-clique", clique_traits(6), kWholeWide,
        {"6-clique", "clique6", "clique6", "6-clique", "6-clique", "6-clique", "6-clique", "c6 "},
        {clique6_change, clique6_count}),
    structural(
        "7-clique", clique_traits(7), kWholeWide,
        {"7-clique", "clique7", "clique7", "7-clique", "7-clique", "7-clique", "7-clique", "c7 "},
        {clique7_change, clique7_count}),
    structural("Isolates", kFull, kWholeWide,
               {"Isolates", "iso", "iso", "Isolates", "Isolates", "Isolates", "Isolates", "iso ",
                "triangle"},
               {isolates_change, isolates_count}),
    structural("P0", kOutside, kWhole, {"P0", "p0", "p0", "P0", "P0", "P0", "P0", "p0 "},
               {triangle_change, triangle_count}),
    structural("Triangle2", kFull, kWhole,
               {"triangle2", "triangle2", "triangle2", "Triangle2", "Triangle2", "Triangle2",
                "Triangle2", "triangle2 "},
               {triangle2_change, triangle2_count}),
    structural(
        "Bow_tie", kOutside, kWhole,
        {"Bow_tie", "bow_tie", "bow_tie", "Bow_tie", "Bow_tie", "Bow_tie", "Bow_tie", "bow_tie "},
        {bow_tie_change, bow_tie_count}),
    structural("P3", kOutside, kWhole, {"P3", "p3", "p3", "P3", "P3", "P3", "P3", "p3"},
               {p3_change, p3_count}),
    structural("Q10", kOutside, kWhole, {"Q10", "q10", "q10", "Q10", "Q10", "Q10", "Q10", "q10 "},
               {q10_change, q10_count}),
    structural("Q20", kOutside, kWhole, {"Q20", "q20", "q20", "Q20", "Q20", "Q20", "Q20", "q20 "},
               {q20_change, q20_count}),
    structural("Q30", kOutside, kWhole, {"Q30", "q30", "q30", "Q30", "Q30", "Q30", "Q30", "q30 "},
               {q30_change, q30_count}),
    structural("Q31", kOutside, kWhole, {"Q31", "q31", "q31", "Q31", "Q31", "Q31", "Q31", "q31 "},
               {q31_change, q31_count}),
    structural("3Path", kFull, kWhole,
               {"3Path", "path3", "path3", "D3", "3Path", "3Path", "3Path", "path3 "},
               {path3_change, path3_count}),
    structural("cycle4", kFull, kWhole,
               {"cycle4", "cycle4", "cycle4", "cycle4", "4Cycle", "4Cycle", "cycle4", "cycle4 "},
               {cycle4_change, cycle4_count}),
    structural("1ET", kFull, kWhole, {"1ET", "et1", "et1", "1ET", "1ET", "1ET", "1ET", "et1 "},
               {et1_change, et1_count}),
    structural("2ET", kFull, kWhole, {"2ET", "et2", "et2", "2ET", "2ET", "2ET", "2ET", "et2 "},
               {et2_change, et2_count}),
    structural("0ET", kFull, kUncarried, {"0ET", "et0", "et0", "0ET", "0ET", "0ET", "0ET", "et0 "},
               {et_uncarried_change, et0_count}),
    structural("ETNT", kFull, kUncarried,
               {nullptr, "etnt", "etnt", "ETNT", "ETNT", "ETNT", "ETNT", "etnt "},
               {et_uncarried_change, etnt_count}),
    structural("two3star", kFull, kTruncated,
               {"2_3star", "two3star", "two3star", "2_3star", "2_3star", "2_3Star", "2_3star",
                "two3star "},
               {two_three_star_change, two_three_star_count}),
    structural("one2triangle", kFull, kTruncated,
               {"1_2triangle", "one2triangle", "one2triangle", "1_2Triangle", "1_2triangle",
                "1_2Triangle", "1_2triangle", "one2triangle "},
               {one_two_triangle_change, one_two_triangle_count}),
    structural("one2et", kFull, kTruncated,
               {"1_2et", "one2et", "one2et", "1_2ET", "1_2et", "1_2ET", "1_2ET", "one2et "},
               {one_two_et_change, one_two_et_count}),
    structural("AS", kLambda, kAlternatingWide,
               {"AS(%.2f)", "as", "as", "AS(%.2f)", "AS(%.2f)", "AS(%.2f)", "AS(%.2f)", "as "},
               {alternating_star_change, alternating_star_count}),
    structural("AS2", kLambdaOne, kAlternatingWide,
               {"AS2(%.2f)", "as2", "as2", "AS2(%.2f)", "AS2(%.2f)", "AS(%.2f)", "AS2(%.2f)",
                "as2 "},
               {alternating_star_change, alternating_star_count}),
    structural("AT", kLambda, kAlternatingWide,
               {"AT(%.2f)", "at", "at", "AT(%.2f)", "AT(%.2f)", "AT(%.2f)", "AT(%.2f)", "at "},
               {alternating_triangle_change, alternating_triangle_count}),
    structural("AT2", kLambdaOne, kAlternatingWide,
               {"AT2(%.2f)", "at2", "at2", "AT2(%.2f)", "AT2(%.2f)", "AT(%.2f)", "AT2(%.2f)",
                "at2 "},
               {alternating_triangle_change, alternating_triangle_count}),
    structural("A2P", kLambda, kAlternating,
               {"A2P(%.2f)", "a2p", "a2p", "A2P(%.2f)", "A2P(%.2f)", "A2P(%.2f)", "A2P(%.2f)",
                "a2p "},
               {alternating_two_path_change, alternating_two_path_count}),
    structural("AC", kAlternatingClique, kAlternating,
               {"AC(%.2f)", "ac", "ac", "AC(%.2f)", "AC(%.2f)", "AC(%.2f)", "AC(%.2f)", "ac "},
               {alternating_clique_change, alternating_clique_count}),
    structural("AET", kLambda, kAlternating,
               {"AET(%.2f)", "aet", "aet", "AET(%.2f)", "AET(%.2f)", "AET(%.2f)", "AET(%.2f)",
                "aet "},
               {alternating_et_change, alternating_et_count}),
    structural("AEAT", kLambdaPowers, kAlternating,
               {"AEAT(%.2f)", "aeat", "aeat", "AEAT(%.2f)", "AEAT(%.2f)", "AEAT(%.2f)",
                "AEAT(%.2f)", "aeat "},
               {alternating_et_each_change, alternating_et_each_count}),
});

// The setup file and the update files have a row for every effect but "P0".
constexpr auto kRows = without(kEffects, all_rows(kEffects), {"P0"});
constexpr auto kEvaluation = all_rows(kEffects);

// The parameters of a simulation name 0ET twice and ETNT never.
constexpr auto kParameters = replaced(kEffects, kEvaluation, "ETNT", "0ET");

constexpr auto kBinary = std::to_array<AttributeEffect>({
    attribute("%s_T3u", kWhole,
              {"%s_T3u", "%s_t3u", "%s_t3u", "%s_t3u", "%s_t3u", "%s_t3u", "%s_t3u", "%s_t3u\t"},
              {binary_t3u_change, binary_t3u_count}),
    attribute("%s_T2u", kWhole,
              {"%s_T2u", "%s_t2u", "%s_t2u", "%s_t2u", "%s_t2u", "%s_t2u", "%s_t2u", "%s_t2u\t"},
              {binary_t2u_change, binary_t2u_count}),
    attribute("%s_T1u", kWhole,
              {"%s_T1u", "%s_t1u", "%s_t1u", "%s_t1u", "%s_t1u", "%s_t1u", "%s_t1u", "%s_t1u\t"},
              {binary_t1u_change, binary_t1u_count}),
    attribute("%s_O3u", kWhole,
              {"%s_O3u", "%s_o3u", "%s_o3u", "%s_o3u", "%s_o3u", "%s_o3u", "%s_o3u", "%s_o3u\t"},
              {binary_o3u_change, binary_o3u_count}),
    attribute(
        "%s_O2au", kWhole,
        {"%s_O2au", "%s_o2au", "%s_o2au", "%s_o2au", "%s_o2au", "%s_o2au", "%s_o2au", "%s_o2au\t"},
        {binary_o2au_change, binary_o2au_count}),
    attribute(
        "%s_O2b", kWhole,
        {"%s_O2b", "%s_o2bu", "%s_o2bu", "%s_o2b", "%s_o2b", "%s_o2bu", "%s_o2bu", "%s_o2bu\t"},
        {binary_o2bu_change, binary_o2bu_count}),
    attribute(
        "%s_O1au", kWhole,
        {"%s_O1au", "%s_o1au", "%s_o1au", "%s_o1au", "%s_o1au", "%s_o1au", "%s_o1au", "%s_o1auu\t"},
        {binary_o1au_change, binary_o1au_count}),
    attribute(
        "%s_O1bu", kWhole,
        {"%s_O1bu", "%s_o1bu", "%s_o1bu", "%s_o1bu", "%s_o1bu", "%s_o1bu", "%s_o1bu", "%s_o1bu\t"},
        {binary_o1bu_change, binary_o1bu_count}),
    attribute("%s_interaction", kWhole,
              {"%s_interaction", "%s_interaction", "%s_interaction", "%s_interaction",
               "%s_interaction", "%s_interaction", "%s_interaction", "%s_interaction\t"},
              {binary_interaction_change, binary_interaction_count}),
    attribute("%s_activity", kWhole,
              {"%s_activity", "%s_activity", "%s_activity", "%s_activity", "%s_activity",
               "%s_activity", "%s_activity", "%s_activity\t", "%s_activity "},
              {binary_activity_change, binary_activity_count}),
});

constexpr auto kContinuousEffects = std::to_array<AttributeEffect>({
    attribute("%s_sum_of_Continuous", kContinuous,
              {"%s_sum", "%s_sum", "%s_sum", "%s_sum", "%s_sum", "%s_sum", "%s_sum", "%s_sum\t"},
              {continuous_sum_change, continuous_sum_count}, PairTable::sums),
    attribute(
        "%s_diff_of_Continuous", kContinuous,
        {"%s_diff", "%s_diff", "%s_diff", "%s_diff", "%s_diff", "%s_diff", "%s_diff", "%s_diff\t"},
        {continuous_diff_change, continuous_diff_count}, PairTable::differences),
    attribute(
        "%s_prod_of_Continuous", kContinuous,
        {"%s_prod", "%s_prod", "%s_prod", "%s_prod", "%s_prod", "%s_prod", "%s_prod", "%s_prod\t"},
        {continuous_prod_change, continuous_prod_count}, PairTable::products),
});

constexpr auto kCategorical = std::to_array<AttributeEffect>({
    attribute("%s_Same_Category_edge", kWhole,
              {"%s_same_Category", "%s_sameC", "%s_sameEC", "%s_matching", "%s_same_Category",
               "%s_same_Category", "%s_same_Category", "%s_matching\t"},
              {categorical_same_change, categorical_same_count}),
    attribute("%s_Different_Category_edge", kWhole,
              {"%s_diff_Category", "%s_diffC", "%s_diffEC", "%s_mismatch", "%s_diff_Category",
               "%s_diff_Category", "%s_diff_Category", "%s_mismatch\t"},
              {categorical_diff_change, categorical_diff_count}),
});

// Of the covariate effects only the first is a column of the change-statistics table.
constexpr auto kCovariates = std::to_array<AttributeEffect>({
    attribute(
        "%s_edge", kCovariate,
        {"%s_edge", "%s_edge", "%s_edge", "%s_edge", "%s_edge", "%s_edge", "%s_edge", "%s_edge\t"},
        {covariate_edge_change, covariate_edge_count}, PairTable::covariate),
    attribute("%s_S21", kCovariate,
              {"%s_S21", "%s_S21", "%s_s21", "%s_S21", "%s_S21", "%s_S21", "%s_S21"},
              {covariate_s21_change, covariate_s21_count}, PairTable::covariate),
    attribute("%s_S22", kCovariate,
              {"%s_S22", "%s_S22", "%s_s22", "%s_S22", "%s_S22", "%s_S22", "%s_S22"},
              {covariate_s22_change, covariate_s22_count}, PairTable::covariate),
    attribute("%s_T1", kCovariate, {"%s_t1", "%s_t1", "%s_t1", "%s_t1", "%s_t1", "%s_t1", "%s_t1"},
              {covariate_t1_change, covariate_t1_count}, PairTable::covariate),
    attribute("%s_T2", kCovariate, {"%s_t2", "%s_t2", "%s_t2", "%s_t2", "%s_t2", "%s_t2", "%s_t2"},
              {covariate_t2_change, covariate_t2_count}, PairTable::covariate),
    attribute("%s_T3", kCovariate, {"%s_t3", "%s_t3", "%s_t3", "%s_t3", "%s_t3", "%s_t3", "%s_t3"},
              {covariate_t3_change, covariate_t3_count}, PairTable::covariate),
});

// Rows of the setup file and of the update files.
constexpr auto kBinaryRows =
    rows_of(kBinary, {"%s_activity", "%s_interaction", "%s_O1au", "%s_O1bu", "%s_O2au", "%s_O2b",
                      "%s_O3u", "%s_T1u", "%s_T2u", "%s_T3u"});
static_assert(kBinaryRows.size() == kBinary.size());

constexpr auto kAllBinary = all_rows(kBinary);
constexpr auto kAllContinuous = all_rows(kContinuousEffects);
constexpr auto kAllCategorical = all_rows(kCategorical);
constexpr auto kAllCovariates = all_rows(kCovariates);

const Catalogue kCatalogue = {
    .kind = NetworkKind::undirected,
    .effects = kEffects,
    .setup_order = kRows,
    .update_order = kRows,
    .output_orders = {kParameters, kEvaluation, kEvaluation, kEvaluation, kEvaluation, kEvaluation,
                      kEvaluation, kEvaluation, kEvaluation, kEvaluation},
    .full_model_surplus = 0,
    .groups = {{{.effects = kBinary,
                 .setup_order = kBinaryRows,
                 .store_order = kAllBinary,
                 .assembly_order = kAllBinary},
                {.effects = kContinuousEffects,
                 .setup_order = kAllContinuous,
                 .store_order = kAllContinuous,
                 .assembly_order = kAllContinuous},
                {.effects = kCategorical,
                 .setup_order = kAllCategorical,
                 .store_order = kAllCategorical,
                 .assembly_order = kAllCategorical},
                {.effects = kCovariates,
                 .setup_order = kAllCovariates,
                 .store_order = kAllCovariates,
                 .assembly_order = kAllCovariates}}}};

}  // namespace

const Catalogue& graph_catalogue() { return kCatalogue; }

namespace graph_effect {
constinit const int kEdge = row_of(kEffects, "edge");
constinit const int kClique4 = row_of(kEffects, "4-clique");
constinit const int kTriangle = row_of(kEffects, "Triangle");
constinit const int kIsolates = row_of(kEffects, "Isolates");
constinit const int kP0 = row_of(kEffects, "P0");
constinit const int k0et = row_of(kEffects, "0ET");
constinit const int kEtnt = row_of(kEffects, "ETNT");
}  // namespace graph_effect
