// The directed effect of a dyadic covariate, against the plain reference and by hand.
#include <gtest/gtest.h>

#include "support/directed_models.h"

using reference::PlainDigraph;

namespace {

reference::FloatTable random_covariate(int n, std::mt19937& random) {
    reference::FloatTable table = reference::square_table(n, 0.0F);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            reference::cell(table, i, j) = static_cast<float>(random() % 2001U) / 333.0F - 3.0F;
        }
    }
    return table;
}

EffectSelection selection_of(const std::vector<reference::FloatTable>& covariates) {
    EffectSelection selection =
        directed_group_selection(AttributeGroup::covariate, static_cast<int>(covariates.size()));
    for (const reference::FloatTable& cells : covariates) {
        const int n = static_cast<int>(cells.size());
        FloatTable table(n, n);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                table[i][j] = reference::cell(cells, i, j);
            }
        }
        selection.table.covariates.push_back(std::move(table));
    }
    return selection;
}

TEST(DigraphCovariates, ChangesAndWholeValuesEqualTheReference) {
    std::mt19937 random(571);
    for (const PlainDigraph& plain : random_digraphs(2, 9, 572)) {
        const std::vector<reference::FloatTable> covariates = {random_covariate(plain.n, random),
                                                               random_covariate(plain.n, random)};
        EffectSelection selection = selection_of(covariates);
        expect_group_equals_reference(plain, selection, reference::directed_covariate_effects(),
                                      covariates);
    }
}

TEST(DigraphCovariates, ChangesAreTheDifferencesOfWholeValues) {
    std::mt19937 random(573);
    for (const PlainDigraph& plain : random_digraphs(2, 8, 574)) {
        EffectSelection selection = selection_of({random_covariate(plain.n, random)});
        for_each_group_difference(plain, selection,
                                  [&](std::size_t, double change, double difference) {
                                      EXPECT_NEAR(change, difference, 1e-12);
                                  });
    }
}

TEST(DigraphCovariates, AnArcTakesTheCellOfItsOwnDirection) {
    reference::FloatTable cells = reference::square_table(3, 0.0F);
    reference::cell(cells, 0, 1) = 2.5F;
    reference::cell(cells, 1, 0) = -4.0F;
    EffectSelection selection = selection_of({cells});
    Digraph digraph = engine_digraph(reference::make_digraph(3, {{0, 1}, {1, 2}}), 1);
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    compute_statistics(digraph, model);
    EXPECT_EQ(digraph.statistics[0], 2.5);
    const double parameter = 1.0;
    double change = 0.0;
    evaluate_toggle(digraph, model, &parameter, &change, 1, 0, 1);
    EXPECT_EQ(change, -4.0);
}

TEST(DigraphCovariates, ACovariateOfZerosGivesNothingAndOneOfOnesTheArcs) {
    std::mt19937 random(575);
    const PlainDigraph plain = random_digraph(7, 0.4, random);
    EffectSelection selection =
        selection_of({reference::square_table(7, 0.0F), reference::square_table(7, 1.0F)});
    Digraph digraph = engine_digraph(plain, 2);
    compute_statistics(digraph, active_model<Digraph>(selection));
    EXPECT_EQ(digraph.statistics[0], 0.0);
    EXPECT_EQ(digraph.statistics[1], reference::arc_count(plain));
}

}  // namespace
