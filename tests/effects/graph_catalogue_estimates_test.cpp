// The names that an undirected effect bears in an estimation log and in a fit, spelled out in full.
// Each line is the effect's label in the update files, its label in the output, and the format of
// its number.
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

TEST(GraphCatalogueEstimates, RowsOfTheResultTable) {
    expect_listing(Output::result, R"(edge | edge | %f	%.5f	%.5f
2-star | 2-star | %f	%.5f	%.5f
3-star | 3-star | %f	%.5f	%.5f
4-star | 4-star | %f	%.5f	%.5f
5-star | 5-star | %f	%.5f	%.5f
Triangle | Triangle | %f	%.5f	%.5f
4-clique | 4-clique | %f	%.5f	%.5f
5-clique | 5-clique | %f	%.5f	%.5f
6-clique | 6-clique | %f	%.5f	%.5f
7-clique | 7-clique | %f	%.5f	%.5f
Isolates | Isolates | %f	%.5f	%.5f
P0 | P0 | %f	%.5f	%.5f
Triangle2 | Triangle2 | %f	%.5f	%.5f
Bow_tie | Bow_tie | %f	%.5f	%.5f
P3 | P3 | %f	%.5f	%.5f
Q10 | Q10 | %f	%.5f	%.5f
Q20 | Q20 | %f	%.5f	%.5f
Q30 | Q30 | %f	%.5f	%.5f
Q31 | Q31 | %f	%.5f	%.5f
3Path | D3 | %f	%.5f	%.5f
cycle4 | cycle4 | %f	%.5f	%.5f
1ET | 1ET | %f	%.5f	%.5f
2ET | 2ET | %f	%.5f	%.5f
0ET | 0ET | %f	%.5f	%.5f
ETNT | ETNT | %f	%.5f	%.5f
two3star | 2_3star | %f	%.5f	%.5f
one2triangle | 1_2Triangle | %f	%.5f	%.5f
one2et | 1_2ET | %f	%.5f	%.5f
AS | AS(2.01) | %f	%.5f	%.5f
AS2 | AS2(2.02) | %f	%.5f	%.5f
AT | AT(2.03) | %f	%.5f	%.5f
AT2 | AT2(2.04) | %f	%.5f	%.5f
A2P | A2P(2.05) | %f	%.5f	%.5f
AC | AC(2.06) | %f	%.5f	%.5f
AET | AET(2.07) | %f	%.5f	%.5f
AEAT | AEAT(2.08) | %f	%.5f	%.5f
%s_T3u | %s_t3u | %f	%.5f	%.5f
%s_T2u | %s_t2u | %f	%.5f	%.5f
%s_T1u | %s_t1u | %f	%.5f	%.5f
%s_O3u | %s_o3u | %f	%.5f	%.5f
%s_O2au | %s_o2au | %f	%.5f	%.5f
%s_O2b | %s_o2b | %f	%.5f	%.5f
%s_O1au | %s_o1au | %f	%.5f	%.5f
%s_O1bu | %s_o1bu | %f	%.5f	%.5f
%s_interaction | %s_interaction | %f	%.5f	%.5f
%s_activity | %s_activity | %f	%.5f	%.5f
%s_sum_of_Continuous | %s_sum | %f	%.5f	%.5f
%s_diff_of_Continuous | %s_diff | %f	%.5f	%.5f
%s_prod_of_Continuous | %s_prod | %f	%.5f	%.5f
%s_Same_Category_edge | %s_matching | %f	%.5f	%.5f
%s_Different_Category_edge | %s_mismatch | %f	%.5f	%.5f
%s_edge | %s_edge | %f	%.5f	%.5f
%s_S21 | %s_S21 | %f	%.5f	%.5f
%s_S22 | %s_S22 | %f	%.5f	%.5f
%s_T1 | %s_t1 | %f	%.5f	%.5f
%s_T2 | %s_t2 | %f	%.5f	%.5f
%s_T3 | %s_t3 | %f	%.5f	%.5f
)");
}

TEST(GraphCatalogueEstimates, ParametersOfAFit) {
    expect_listing(Output::fit_parameter, R"(edge | edge | %.5f
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
Triangle2 | Triangle2 | %.5f
Bow_tie | Bow_tie | %.5f
P3 | P3 | %.5f
Q10 | Q10 | %.5f
Q20 | Q20 | %.5f
Q30 | Q30 | %.5f
Q31 | Q31 | %.5f
3Path | 3Path | %.5f
cycle4 | 4Cycle | %.5f
1ET | 1ET | %.5f
2ET | 2ET | %.5f
0ET | 0ET |   %8.5f
ETNT | ETNT |   %8.5f
two3star | 2_3star |   %8.5f
one2triangle | 1_2triangle |   %8.5f
one2et | 1_2et |   %8.5f
AS | AS(2.01) | %.5f
AS2 | AS2(2.02) | %.5f
AT | AT(2.03) | %.5f
AT2 | AT2(2.04) | %.5f
A2P | A2P(2.05) | %.5f
AC | AC(2.06) | %.5f
AET | AET(2.07) | %.5f
AEAT | AEAT(2.08) | %.5f
%s_T3u | %s_t3u | %.5f
%s_T2u | %s_t2u | %.5f
%s_T1u | %s_t1u | %.5f
%s_O3u | %s_o3u | %.5f
%s_O2au | %s_o2au | %.5f
%s_O2b | %s_o2b | %.5f
%s_O1au | %s_o1au | %.5f
%s_O1bu | %s_o1bu | %.5f
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

// Rows of a fit report, the format of continuous rows aside.
std::string fit_rows(const std::string& continuous) {
    return R"(edge | edge | %.0f
2-star | 2-star | %.0f
3-star | 3-star | %.0f
4-star | 4-star | %.0f
5-star | 5-star | %.0f
Triangle | triangles | %.0f
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
cycle4 | 4Cycle | %.0f
1ET | 1ET | %.0f
2ET | 2ET | %.0f
0ET | 0ET | %.0f
ETNT | ETNT | %.0f
two3star | 2_3Star | %.0f
one2triangle | 1_2Triangle | %.0f
one2et | 1_2ET | %.0f
AS | AS(2.01) | %.3f
AS2 | AS(2.02) | %.3f
AT | AT(2.03) | %.3f
AT2 | AT(2.04) | %.3f
A2P | A2P(2.05) | %.3f
AC | AC(2.06) | %.3f
AET | AET(2.07) | %.3f
AEAT | AEAT(2.08) | %.3f
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
%s_sum_of_Continuous | %s_sum | )" +
           continuous + R"(
%s_diff_of_Continuous | %s_diff | )" +
           continuous + R"(
%s_prod_of_Continuous | %s_prod | )" +
           continuous + R"(
%s_Same_Category_edge | %s_same_Category | %.0f
%s_Different_Category_edge | %s_diff_Category | %.0f
%s_edge | %s_edge | %.0f
%s_S21 | %s_S21 | %.0f
%s_S22 | %s_S22 | %.0f
%s_T1 | %s_t1 | %.0f
%s_T2 | %s_t2 | %.0f
%s_T3 | %s_t3 | %.0f
)";
}

TEST(GraphCatalogueEstimates, RowsOfAFitReport) { expect_listing(Output::fit, fit_rows("%.3f")); }

TEST(GraphCatalogueEstimates, RowsOfABayesianFitReport) {
    expect_listing(Output::bayes_fit, fit_rows("%.4lf"));
}

}  // namespace
