// The names that an undirected effect bears in an estimation log, spelled out in full, and in a fit
// where no golden file shows them. Each line is the effect's label in the update files, its label
// in the output, and the format of its number.
#include <gtest/gtest.h>

#include "support/catalogue_lists.h"

namespace {

const std::vector<std::vector<std::string>> kNames = {{"a"}, {"a", "b"}};

TEST(GraphCatalogueEstimates, RowsOfTheResultTable) {
    const std::string expected = R"(edge | edge | %f	%.5f	%.5f
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
)";
    for (const auto& names : kNames) {
        EXPECT_EQ(output_listing(full_selection(NetworkKind::undirected, names), Output::result),
                  for_names(expected, names));
    }
}

// Outside the full model, so that no fit after an estimation shows them.
TEST(GraphCatalogueEstimates, TrianglePairsInAFit) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    for (const char* name : {"Bow_tie", "P3", "Q10", "Q20", "Q30", "Q31"}) {
        const int id = find_effect(graph_catalogue(), name);
        selection.structural[static_cast<std::size_t>(id)].position = selection.structural_count++;
    }
    const std::string whole = R"(Bow_tie | Bow_tie | %.0f
P3 | P3 | %.0f
Q10 | Q10 | %.0f
Q20 | Q20 | %.0f
Q30 | Q30 | %.0f
Q31 | Q31 | %.0f
)";
    EXPECT_EQ(output_listing(selection, Output::fit), whole);
    EXPECT_EQ(output_listing(selection, Output::bayes_fit), whole);
    EXPECT_EQ(output_listing(selection, Output::fit_parameter), R"(Bow_tie | Bow_tie | %.5f
P3 | P3 | %.5f
Q10 | Q10 | %.5f
Q20 | Q20 | %.5f
Q30 | Q30 | %.5f
Q31 | Q31 | %.5f
)");
}

}  // namespace
