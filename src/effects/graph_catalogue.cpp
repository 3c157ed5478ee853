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

constexpr StructuralEffect structural(const char* row, EffectFacts facts, EffectTraits traits,
                                      NumberFormats formats, Labels labels,
                                      EffectFunctions<Graph> functions) {
    return {.row = row,
            .facts = facts,
            .traits = traits,
            .labels = labels,
            .formats = formats,
            .graph = functions};
}
constexpr AttributeEffect attribute(const char* update, EffectFacts facts, NumberFormats formats,
                                    Labels labels, EffectFunctions<Graph> functions,
                                    PairTable pairs = PairTable::none) {
    return {.update = update,
            .facts = facts,
            .labels = labels,
            .formats = formats,
            .graph = functions,
            .pairs = pairs};
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

constexpr const char* kNotation =
    "x_ij: 1 where i and j are tied, else 0; d_i: ties of i; t_i: triangles at i; p_ij: common "
    "neighbours of i and j; K_k: sets of k actors that are all tied; a_i: the attribute's value of "
    "i; c_ij: the covariate; λ: lambda; w = 1 - 1/λ; C(m,k): m choose k; [..]: 1 where it holds, "
    "else 0; sum_{i<j}: over the pairs, sum_{i,j}: over the ordered pairs of different actors";

// In evaluation order. Labels in full: parameter, simulation, syntax, result, fit_parameter, fit,
// report, change. "P0" is a second triangle count that no setup row selects; its labels keep their
// places.
constexpr auto kEffects = std::to_array<StructuralEffect>({
    structural("edge", {"edge", "ties", "sum_{i<j} x_ij", Cost::constant, Dependence::none}, kTies,
               kWhole, {"edge", "edge", "edge", "edge", "edge", "edge", "edges", "edge "},
               {edge_change, edge_count}),
    structural(
        "2-star", {"2-star", "two ties that share an actor", "sum_i C(d_i,2)", Cost::constant},
        kDegrees, kWhole, shown_as("2-star", "star2", "star2 "), {star2_change, star2_count}),
    structural(
        "3-star", {"3-star", "three ties that share an actor", "sum_i C(d_i,3)", Cost::constant},
        kDegrees, kWhole, shown_as("3-star", "star3", "star3 "), {star3_change, star3_count}),
    structural(
        "4-star", {"4-star", "four ties that share an actor", "sum_i C(d_i,4)", Cost::constant},
        kDegrees, kWhole, shown_as("4-star", "star4", "star4 "), {star4_change, star4_count}),
    structural(
        "5-star", {"5-star", "five ties that share an actor", "sum_i C(d_i,5)", Cost::constant},
        kDegrees, kWhole, shown_as("5-star", "star5", "star5 "), {star5_change, star5_count}),
    structural("Triangle", {"triangle", "three actors, all tied", "K_3", Cost::constant}, kFull,
               kWholeWide,
               {"Triangle", "triangle", "triangle", "Triangle", "Triangle", "triangles", "Triangle",
                "tri "},
               {triangle_change, triangle_count}),
    structural("4-clique", {"4-clique", "four actors, all tied", "K_4", Cost::cliques},
               clique_traits(4), kWholeWide, shown_as("4-clique", "clique4", "c4 "),
               {clique4_change, clique4_count}),
    structural("5-clique", {"5-clique", "five actors, all tied", "K_5", Cost::cliques},
               clique_traits(5), kWholeWide, shown_as("5-clique", "clique5", "c5 "),
               {clique5_change, clique5_count}),
    structural("6-clique", {"6-clique", "six actors, all tied", "K_6", Cost::cliques},
               clique_traits(6), kWholeWide, shown_as("6-clique", "clique6", "c6 "),
               {clique6_change, clique6_count}),
    structural("7-clique", {"7-clique", "seven actors, all tied", "K_7", Cost::cliques},
               clique_traits(7), kWholeWide, shown_as("7-clique", "clique7", "c7 "),
               {clique7_change, clique7_count}),
    structural("Isolates", {"isolates", "actors without a tie", "sum_i [d_i = 0]", Cost::constant},
               kDegrees, kWholeWide,
               {"Isolates", "iso", "iso", "Isolates", "Isolates", "Isolates", "Isolates", "iso ",
                "triangle"},
               {isolates_change, isolates_count}),
    structural("P0",
               {"P0", "a second place of the triangle count, which no setup row selects", "K_3",
                Cost::constant},
               kOutside, kWhole, shown_as("P0", "p0", "p0 "), {triangle_change, triangle_count}),
    structural("Triangle2",
               {"triangle2", "two triangles that share a tie", "sum_{i<j} x_ij C(p_ij,2)",
                Cost::common_neighbours},
               kFull, kWhole,
               {"triangle2", "triangle2", "triangle2", "Triangle2", "Triangle2", "Triangle2",
                "Triangle2", "triangle2 "},
               {triangle2_change, triangle2_count}),
    structural("Bow_tie",
               {"bow-tie", "two triangles that share exactly one actor, other ties allowed",
                "sum_i C(t_i,2) - 2 sum_{i<j} x_ij C(p_ij,2)", Cost::neighbourhood},
               kOutside, kWhole, shown_as("Bow_tie", "bow_tie", "bow_tie "),
               {bow_tie_change, bow_tie_count}),
    structural("P3",
               {"P3", "two triangles without a common actor, other ties allowed",
                "C(K_3,2) - sum_i C(t_i,2) + sum_{i<j} x_ij C(p_ij,2)", Cost::network},
               kOutside, kWhole, shown_as("P3", "p3", "p3"), {p3_change, p3_count}),
    structural("Q10",
               {"Q10", "two triangles that share a tie, their outer actors not tied",
                "sum_{i<j} sum_{k<l} x_ij x_ik x_jk x_il x_jl [x_kl = 0]", Cost::neighbourhood},
               kOutside, kWhole, shown_as("Q10", "q10", "q10 "), {q10_change, q10_count}),
    structural(
        "Q20",
        {"Q20", "two triangles that share one actor, no further tie among their four outer actors",
         "1/2 sum_i sum_{j<k} sum_{l<m} x_ij x_ik x_jk x_il x_im x_lm [x_jl + x_jm + x_kl + x_km = "
         "0]",
         Cost::neighbourhood},
        kOutside, kWhole, shown_as("Q20", "q20", "q20 "), {q20_change, q20_count}),
    structural("Q30",
               {"Q30", "two triangles without a common actor and no tie between them",
                "1/2 sum_{i<j<k} sum_{l<m<o} x_ij x_ik x_jk x_lm x_lo x_mo [x_il + x_im + x_io + "
                "x_jl + x_jm + x_jo + x_kl + x_km + x_ko = 0]",
                Cost::network},
               kOutside, kWhole, shown_as("Q30", "q30", "q30 "), {q30_change, q30_count}),
    structural("Q31",
               {"Q31", "two triangles without a common actor and exactly one tie between them",
                "1/2 sum_{i<j<k} sum_{l<m<o} x_ij x_ik x_jk x_lm x_lo x_mo [x_il + x_im + x_io + "
                "x_jl + x_jm + x_jo + x_kl + x_km + x_ko = 1]",
                Cost::network},
               kOutside, kWhole, shown_as("Q31", "q31", "q31 "), {q31_change, q31_count}),
    structural("3Path",
               {"3-path",
                "three ties in a row over four actors; the change also counts walks that close "
                "into a triangle",
                "sum_{i<j} x_ij (d_i - 1) (d_j - 1) - 3 K_3", Cost::neighbours,
                Dependence::other_dyads, Agreement::never},
               kFull, kWhole,
               {"3Path", "path3", "path3", "D3", "3Path", "3Path", "3Path", "path3 "},
               {path3_change, path3_count}),
    structural("cycle4",
               {"cycle4", "four ties in a ring", "1/2 sum_{i<j} C(p_ij,2)", Cost::neighbours},
               kFull, kWhole,
               {"cycle4", "cycle4", "cycle4", "cycle4", "4Cycle", "4Cycle", "cycle4", "cycle4 "},
               {cycle4_change, cycle4_count}),
    structural("1ET",
               {"1ET", "a triangle and one further tie at one of its actors", "sum_i t_i (d_i - 2)",
                Cost::common_neighbours},
               kFull, kWhole, shown_as("1ET", "et1", "et1 "), {et1_change, et1_count}),
    structural("2ET",
               {"2ET", "a triangle and two further ties at one of its actors",
                "sum_i t_i C(d_i - 2,2)", Cost::common_neighbours},
               kFull, kWhole, shown_as("2ET", "et2", "et2 "), {et2_change, et2_count}),
    structural("0ET",
               {"0ET", "a triangle and a further tie at one of its actors that is in no triangle",
                "sum_i t_i sum_j x_ij [p_ij = 0]", Cost::constant, Dependence::other_dyads,
                Agreement::never, false},
               kFull, kUncarried, shown_as("0ET", "et0", "et0 "), {et_uncarried_change, et0_count}),
    structural(
        "ETNT",
        {"ETNT", "a triangle and a further tie at one of its actors to an actor in no triangle",
         "sum_i t_i sum_j x_ij [t_j = 0]", Cost::constant, Dependence::other_dyads,
         Agreement::never, false},
        kFull, kUncarried, {nullptr, "etnt", "etnt", "ETNT", "ETNT", "ETNT", "ETNT", "etnt "},
        {et_uncarried_change, etnt_count}),
    structural(
        "two3star",
        {"two3star", "2-stars less half the 3-stars: the alternating star cut off after two terms",
         "sum_i (C(d_i,2) - 1/2 C(d_i,3))", Cost::constant},
        kDegrees, kTruncated,
        {"2_3star", "two3star", "two3star", "2_3star", "2_3star", "2_3Star", "2_3star",
         "two3star "},
        {two_three_star_change, two_three_star_count}),
    structural("one2triangle",
               {"one2triangle",
                "triangles less half the pairs that share a tie: the alternating triangle cut off "
                "after two terms",
                "K_3 - 1/2 sum_{i<j} x_ij C(p_ij,2)", Cost::common_neighbours},
               kFull, kTruncated,
               {"1_2triangle", "one2triangle", "one2triangle", "1_2Triangle", "1_2triangle",
                "1_2Triangle", "1_2triangle", "one2triangle "},
               {one_two_triangle_change, one_two_triangle_count}),
    structural("one2et",
               {"one2et", "1ET less half the 2ET: the alternating AET cut off after two terms",
                "sum_i t_i ((d_i - 2) - 1/2 C(d_i - 2,2))", Cost::common_neighbours},
               kFull, kTruncated,
               {"1_2et", "one2et", "one2et", "1_2ET", "1_2et", "1_2ET", "1_2ET", "one2et "},
               {one_two_et_change, one_two_et_count}),
    structural("AS",
               {"AS",
                "stars of two and more ties: each further tie of an actor adds more, up to lambda "
                "(alternating star)",
                "λ^2 sum_i (w^d_i - 1 + d_i/λ)", Cost::constant},
               kLambdaDegrees, kAlternatingWide, shown_as("AS(%.2f)", "as", "as "),
               {alternating_star_change, alternating_star_count}),
    structural(
        "AS2",
        {"AS", "a second alternating star beside the first, with a lambda of its own",
         "λ^2 sum_i (w^d_i - 1 + d_i/λ)", Cost::constant},
        kLambdaOneDegrees, kAlternatingWide,
        {"AS2(%.2f)", "as2", "as2", "AS2(%.2f)", "AS2(%.2f)", "AS(%.2f)", "AS2(%.2f)", "as2 "},
        {alternating_star_change, alternating_star_count}),
    structural(
        "AT",
        {"AT",
         "ties with common neighbours, each further neighbour weighing less (alternating triangle)",
         "λ sum_{i<j} x_ij (1 - w^p_ij)", Cost::common_neighbours, Dependence::other_dyads,
         Agreement::above_lambda_one},
        kLambda, kAlternatingWide, shown_as("AT(%.2f)", "at", "at "),
        {alternating_triangle_change, alternating_triangle_count}),
    structural(
        "AT2",
        {"AT", "a second alternating triangle beside the first, with a lambda of its own",
         "λ sum_{i<j} x_ij (1 - w^p_ij)", Cost::common_neighbours, Dependence::other_dyads,
         Agreement::above_lambda_one},
        kLambdaOne, kAlternatingWide,
        {"AT2(%.2f)", "at2", "at2", "AT2(%.2f)", "AT2(%.2f)", "AT(%.2f)", "AT2(%.2f)", "at2 "},
        {alternating_triangle_change, alternating_triangle_count}),
    structural(
        "A2P",
        {"A2P", "pairs with common neighbours, tied or not, each further neighbour weighing less",
         "λ sum_{i<j} (1 - w^p_ij)", Cost::neighbours},
        kLambda, kAlternating, shown_as("A2P(%.2f)", "a2p", "a2p "),
        {alternating_two_path_change, alternating_two_path_count}),
    structural(
        "AC",
        {"AC", "cliques of four to eight actors with alternating signs, each size weighing less",
         "K_4 - K_5/λ + K_6/λ^2 - K_7/λ^3 + K_8/λ^4", Cost::cliques},
        kAlternatingClique, kAlternating, shown_as("AC(%.2f)", "ac", "ac "),
        {alternating_clique_change, alternating_clique_count}),
    structural("AET",
               {"AET", "triangles at actors with further ties, each further tie weighing less",
                "λ sum_i t_i (1 - w^(d_i - 2))", Cost::common_neighbours},
               kLambda, kAlternating, shown_as("AET(%.2f)", "aet", "aet "),
               {alternating_et_change, alternating_et_count}),
    structural("AEAT",
               {"AEAT",
                "ties alternating in their common neighbours and in further ties; its change is "
                "another measure",
                "λ^2 sum_{i,j} x_ij [p_ij > 1] (1 - w^p_ij + w^(d_i - p_ij - 1) ((1 - 2/λ)^p_ij - "
                "w^p_ij))",
                Cost::neighbours, Dependence::other_dyads, Agreement::never},
               kLambdaPowers, kAlternating, shown_as("AEAT(%.2f)", "aeat", "aeat "),
               {alternating_et_each_change, alternating_et_each_count}),
});

// The setup file and the update files have a row for every effect but "P0".
constexpr auto kRows = without(kEffects, all_rows(kEffects), {"P0"});
constexpr auto kEvaluation = all_rows(kEffects);

// The parameters of a simulation name 0ET twice and ETNT never.
constexpr auto kParameters = replaced(kEffects, kEvaluation, "ETNT", "0ET");

static_assert(kRows.size() == kEffects.size() - 1 && each_once(kRows) && !each_once(kParameters));

constexpr auto kBinary = std::to_array<AttributeEffect>({
    attribute("%s_T3u",
              {"triangle-all", "triangles whose three actors all bear the attribute",
               "sum_{i<j<k} x_ij x_ik x_jk a_i a_j a_k", Cost::common_neighbours},
              kWhole, valued_as("%s_T3u", "%s_t3u", "%s_t3u\t"),
              {binary_t3u_change, binary_t3u_count}),
    attribute("%s_T2u",
              {"triangle-pair", "pairs of bearers within a triangle",
               "sum_{i<j<k} x_ij x_ik x_jk (a_i a_j + a_i a_k + a_j a_k)", Cost::common_neighbours},
              kWhole, valued_as("%s_T2u", "%s_t2u", "%s_t2u\t"),
              {binary_t2u_change, binary_t2u_count}),
    attribute("%s_T1u",
              {"triangle-one", "bearers within a triangle",
               "sum_{i<j<k} x_ij x_ik x_jk (a_i + a_j + a_k)", Cost::common_neighbours},
              kWhole, valued_as("%s_T1u", "%s_t1u", "%s_t1u\t"),
              {binary_t1u_change, binary_t1u_count}),
    attribute("%s_O3u",
              {"2-star-all", "2-stars whose three actors all bear the attribute",
               "sum_i sum_{j<k} x_ij x_ik a_i a_j a_k", Cost::neighbours, Dependence::other_dyads,
               Agreement::zero_one_values},
              kWhole, valued_as("%s_O3u", "%s_o3u", "%s_o3u\t"),
              {binary_o3u_change, binary_o3u_count}),
    attribute("%s_O2au",
              {"2-star-centre-leaf",
               "2-stars whose centre bears the attribute, once for each leaf that does",
               "sum_i sum_{j<k} x_ij x_ik a_i (a_j + a_k)", Cost::neighbours,
               Dependence::other_dyads, Agreement::zero_one_values},
              kWhole, valued_as("%s_O2au", "%s_o2au", "%s_o2au\t"),
              {binary_o2au_change, binary_o2au_count}),
    attribute(
        "%s_O2b",
        {"2-star-leaves", "2-stars whose two leaves both bear the attribute",
         "sum_i sum_{j<k} x_ij x_ik a_j a_k", Cost::neighbours, Dependence::other_dyads,
         Agreement::zero_one_values},
        kWhole,
        {"%s_O2b", "%s_o2bu", "%s_o2bu", "%s_o2b", "%s_o2b", "%s_o2bu", "%s_o2bu", "%s_o2bu\t"},
        {binary_o2bu_change, binary_o2bu_count}),
    attribute("%s_O1au",
              {"2-star-centre", "2-stars whose centre bears the attribute",
               "sum_i sum_{j<k} x_ij x_ik a_i", Cost::neighbours, Dependence::other_dyads,
               Agreement::zero_one_values},
              kWhole, valued_as("%s_O1au", "%s_o1au", "%s_o1auu\t"),
              {binary_o1au_change, binary_o1au_count}),
    attribute("%s_O1bu",
              {"2-star-leaf", "leaves of 2-stars that bear the attribute",
               "sum_i sum_{j<k} x_ij x_ik (a_j + a_k)", Cost::neighbours},
              kWhole, valued_as("%s_O1bu", "%s_o1bu", "%s_o1bu\t"),
              {binary_o1bu_change, binary_o1bu_count}),
    attribute("%s_interaction",
              {"interaction", "ties between two bearers of the attribute", "sum_{i<j} x_ij a_i a_j",
               Cost::constant, Dependence::none, Agreement::zero_one_values},
              kWhole, labelled("%s_interaction", "%s_interaction\t"),
              {binary_interaction_change, binary_interaction_count}),
    attribute("%s_activity",
              {"activity", "ends of ties that bear the attribute", "sum_{i<j} x_ij (a_i + a_j)",
               Cost::constant, Dependence::none},
              kWhole,
              {"%s_activity", "%s_activity", "%s_activity", "%s_activity", "%s_activity",
               "%s_activity", "%s_activity", "%s_activity\t", "%s_activity "},
              {binary_activity_change, binary_activity_count}),
});

constexpr auto kContinuousEffects = std::to_array<AttributeEffect>({
    attribute("%s_sum_of_Continuous",
              {"sum", "the sum of the two values, over the ties", "sum_{i<j} x_ij (a_i + a_j)",
               Cost::constant, Dependence::none},
              kContinuous, labelled("%s_sum", "%s_sum\t"),
              {continuous_sum_change, continuous_sum_count}, PairTable::sums),
    attribute("%s_diff_of_Continuous",
              {"difference", "the absolute difference of the two values, over the ties",
               "sum_{i<j} x_ij |a_i - a_j|", Cost::constant, Dependence::none},
              kContinuous, labelled("%s_diff", "%s_diff\t"),
              {continuous_diff_change, continuous_diff_count}, PairTable::differences),
    attribute("%s_prod_of_Continuous",
              {"product", "the product of the two values, over the ties", "sum_{i<j} x_ij a_i a_j",
               Cost::constant, Dependence::none},
              kContinuous, labelled("%s_prod", "%s_prod\t"),
              {continuous_prod_change, continuous_prod_count}, PairTable::products),
});

constexpr auto kCategorical = std::to_array<AttributeEffect>({
    attribute("%s_Same_Category_edge",
              {"same", "ties between actors of one category", "sum_{i<j} x_ij [a_i = a_j]",
               Cost::constant, Dependence::none},
              kWhole,
              {"%s_same_Category", "%s_sameC", "%s_sameEC", "%s_matching", "%s_same_Category",
               "%s_same_Category", "%s_same_Category", "%s_matching\t"},
              {categorical_same_change, categorical_same_count}),
    attribute("%s_Different_Category_edge",
              {"different", "ties between actors of different categories",
               "sum_{i<j} x_ij [a_i != a_j]", Cost::constant, Dependence::none},
              kWhole,
              {"%s_diff_Category", "%s_diffC", "%s_diffEC", "%s_mismatch", "%s_diff_Category",
               "%s_diff_Category", "%s_diff_Category", "%s_mismatch\t"},
              {categorical_diff_change, categorical_diff_count}),
});

// Of the covariate effects only the first is a column of the change-statistics table.
constexpr auto kCovariates = std::to_array<AttributeEffect>({
    attribute("%s_edge",
              {"covariate", "the covariate, over the ties", "sum_{i<j} x_ij c_ij", Cost::constant,
               Dependence::none},
              kCovariate, labelled("%s_edge", "%s_edge\t"),
              {covariate_edge_change, covariate_edge_count}, PairTable::covariate),
    attribute("%s_S21",
              {"covariate-2-star-sum", "the sum of the covariate on the two ties, over the 2-stars",
               "sum_i sum_{j<k} x_ij x_ik (c_ij + c_ik)", Cost::neighbours},
              kCovariate, {"%s_S21", "%s_S21", "%s_s21", "%s_S21", "%s_S21", "%s_S21", "%s_S21"},
              {covariate_s21_change, covariate_s21_count}, PairTable::covariate),
    attribute("%s_S22",
              {"covariate-2-star-product",
               "the product of the covariate on the two ties, over the 2-stars",
               "sum_i sum_{j<k} x_ij x_ik c_ij c_ik", Cost::neighbours, Dependence::other_dyads,
               Agreement::values_from_zero},
              kCovariate, {"%s_S22", "%s_S22", "%s_s22", "%s_S22", "%s_S22", "%s_S22", "%s_S22"},
              {covariate_s22_change, covariate_s22_count}, PairTable::covariate),
    attribute(
        "%s_T1",
        {"covariate-triangle-sum", "the sum of the covariate on the three ties, over the triangles",
         "sum_{i<j<k} x_ij x_ik x_jk (c_ij + c_ik + c_jk)", Cost::common_neighbours},
        kCovariate, labelled("%s_t1"), {covariate_t1_change, covariate_t1_count},
        PairTable::covariate),
    attribute("%s_T2",
              {"covariate-triangle-pairs",
               "the sum of the three products of the covariate on two ties, over the triangles",
               "sum_{i<j<k} x_ij x_ik x_jk (c_ij c_ik + c_ij c_jk + c_ik c_jk)",
               Cost::common_neighbours, Dependence::other_dyads, Agreement::values_from_zero},
              kCovariate, labelled("%s_t2"), {covariate_t2_change, covariate_t2_count},
              PairTable::covariate),
    attribute("%s_T3",
              {"covariate-triangle-product",
               "the product of the covariate on the three ties, over the triangles",
               "sum_{i<j<k} x_ij x_ik x_jk c_ij c_ik c_jk", Cost::common_neighbours},
              kCovariate, labelled("%s_t3"), {covariate_t3_change, covariate_t3_count},
              PairTable::covariate),
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
    .formula_notation = kNotation,
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
