// Directed effects of a categorical attribute, against the plain reference and by hand.
#include <gtest/gtest.h>

#include "support/directed_models.h"

using reference::Codes;
using reference::PlainDigraph;

namespace {

Codes drawn_codes(int n, std::mt19937& random) {
    Codes codes;
    for (int i = 0; i < n; ++i) {
        codes.push_back(static_cast<int>(random() % 4U) == 0 ? 9999
                                                             : static_cast<int>(random() % 3U) - 1);
    }
    return codes;
}

EffectSelection selection_of(const std::vector<Codes>& attributes) {
    EffectSelection selection =
        directed_group_selection(AttributeGroup::categorical, static_cast<int>(attributes.size()));
    for (const Codes& codes : attributes) {
        selection.table.categorical.push_back(coded_attribute(codes));
    }
    return selection;
}

std::vector<double> values(const PlainDigraph& plain, const Codes& codes) {
    EffectSelection selection = selection_of({codes});
    Digraph digraph = engine_digraph(plain, 4);
    compute_statistics(digraph, active_model<Digraph>(selection));
    return digraph.statistics;
}

TEST(DigraphCategorical, ChangesAndWholeValuesEqualTheReference) {
    std::mt19937 random(561);
    for (const PlainDigraph& plain : random_digraphs(2, 9, 562)) {
        const std::vector<Codes> attributes = {drawn_codes(plain.n, random),
                                               drawn_codes(plain.n, random)};
        EffectSelection selection = selection_of(attributes);
        expect_group_equals_reference(plain, selection, reference::directed_categorical_effects(),
                                      attributes);
    }
}

TEST(DigraphCategorical, ChangesAreTheDifferencesOfWholeValues) {
    std::mt19937 random(563);
    for (const PlainDigraph& plain : random_digraphs(2, 8, 564)) {
        EffectSelection selection = selection_of({drawn_codes(plain.n, random)});
        for_each_group_difference(plain, selection,
                                  [&](std::size_t row, double change, double difference) {
                                      EXPECT_EQ(change, difference)
                                          << reference::directed_categorical_effects()[row].name;
                                  });
    }
}

TEST(DigraphCategorical, MatchesAndMismatchesSumToTheArcs) {
    std::mt19937 random(565);
    for (const PlainDigraph& plain : random_digraphs(2, 9, 566)) {
        const std::vector<double> counts = values(plain, drawn_codes(plain.n, random));
        EXPECT_EQ(counts[0] + counts[1], reference::arc_count(plain));
        EXPECT_EQ(counts[2] + counts[3], reference::mutual_dyad_count(plain));
    }
}

TEST(DigraphCategorical, OneCategoryMatchesEveryArc) {
    const PlainDigraph plain = reference::make_digraph(4, {{0, 1}, {1, 0}, {2, 3}});
    EXPECT_EQ(values(plain, {7, 7, 7, 7}), (std::vector<double>{3, 0, 1, 0}));
}

TEST(DigraphCategorical, AMissingMarkIsOneMoreCategory) {
    const PlainDigraph plain = reference::make_digraph(4, {{0, 1}, {1, 0}, {1, 2}, {3, 0}});
    EXPECT_EQ(values(plain, {9999, 9999, 1, 1}), (std::vector<double>{2, 2, 1, 0}));
}

}  // namespace
