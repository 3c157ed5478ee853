// Directed effects of a continuous attribute, against the plain reference and by hand.
#include <gtest/gtest.h>

#include "effects/continuous_attributes.h"
#include "support/directed_models.h"

using reference::ContinuousData;
using reference::PlainDigraph;

namespace {

constexpr std::size_t kSender = 0;
constexpr std::size_t kReceiver = 1;
constexpr std::size_t kSenderMissing = 2;
constexpr std::size_t kReceiverMissing = 3;
constexpr std::size_t kSum = 4;
constexpr std::size_t kDiff = 5;
constexpr std::size_t kProd = 6;
constexpr std::size_t kSumReciprocity = 7;
constexpr std::size_t kDiffReciprocity = 8;
constexpr std::size_t kProdReciprocity = 9;
constexpr std::size_t kIn2star = 10;
constexpr std::size_t kOut2star = 11;
constexpr std::size_t kPath2 = 12;

std::vector<float> fractions(int n, std::mt19937& random, bool missing) {
    std::vector<float> values;
    for (int i = 0; i < n; ++i) {
        const bool none = missing && random() % 5U == 0;
        values.push_back(none ? 9999.0F : static_cast<float>(random() % 20001U) / 777.0F - 11.0F);
    }
    return values;
}

// Small whole numbers, whose sums and products no rounding touches.
std::vector<float> whole_numbers(int n, std::mt19937& random, bool missing) {
    std::vector<float> values;
    for (int i = 0; i < n; ++i) {
        const bool none = missing && random() % 5U == 0;
        values.push_back(none ? 9999.0F : static_cast<float>(random() % 9U) - 3.0F);
    }
    return values;
}

EffectSelection selection_of(const std::vector<std::vector<float>>& attributes) {
    EffectSelection selection =
        directed_group_selection(AttributeGroup::continuous, static_cast<int>(attributes.size()));
    for (const std::vector<float>& values : attributes) {
        selection.table.continuous.push_back(continuous_attribute(values));
    }
    return selection;
}

// Whole values of the thirteen rows.
std::vector<double> values(const PlainDigraph& plain, const std::vector<float>& z) {
    EffectSelection selection = selection_of({z});
    Digraph digraph = engine_digraph(plain, 13);
    compute_statistics(digraph, active_model<Digraph>(selection));
    return digraph.statistics;
}

bool is_reciprocity(std::size_t row) { return row >= kSumReciprocity && row <= kProdReciprocity; }

TEST(DigraphContinuous, ChangesAndWholeValuesEqualTheReference) {
    std::mt19937 random(551);
    for (const PlainDigraph& plain : random_digraphs(2, 9, 552)) {
        const std::vector<std::vector<float>> attributes = {fractions(plain.n, random, false),
                                                            fractions(plain.n, random, true)};
        std::vector<ContinuousData> data;
        for (const std::vector<float>& z : attributes) {
            data.push_back(reference::continuous_data(z));
        }
        EffectSelection selection = selection_of(attributes);
        expect_group_equals_reference(plain, selection, reference::directed_continuous_effects(),
                                      data);
    }
}

TEST(DigraphContinuous, ChangesAreTheDifferencesOfWholeValuesButForReciprocity) {
    std::mt19937 random(553);
    for (const bool missing : {false, true}) {
        for (const PlainDigraph& plain : random_digraphs(2, 8, 554)) {
            EffectSelection selection = selection_of({whole_numbers(plain.n, random, missing)});
            for_each_group_difference(
                plain, selection, [&](std::size_t row, double change, double difference) {
                    if (!is_reciprocity(row)) {
                        EXPECT_EQ(change, difference)
                            << reference::directed_continuous_effects()[row].name;
                    }
                });
        }
    }
}

TEST(DigraphContinuous, ReciprocityLooksAtTheArcBackInTheChangeAndNotInTheWholeValue) {
    // 0 to 1 is not answered, 3 to 2 neither.
    const PlainDigraph plain = reference::make_digraph(4, {{0, 1}, {3, 2}});
    const std::vector<float> z = {2.0F, 5.0F, 7.0F, 11.0F};
    const std::vector<double> counts = values(plain, z);
    EXPECT_EQ(counts[kSumReciprocity], 7.0);
    EXPECT_EQ(counts[kDiffReciprocity], 3.0);
    EXPECT_EQ(counts[kProdReciprocity], 10.0);

    EffectSelection selection = selection_of({z});
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    const std::vector<double> parameters(13, 1.0);
    std::vector<double> change(13);
    Digraph digraph = engine_digraph(plain);
    // The answer to 3 to 2: a change, though 2 to 3 is also what the whole value looks at.
    evaluate_toggle(digraph, model, parameters.data(), change.data(), 2, 3, 1);
    EXPECT_EQ(change[kSumReciprocity], 18.0);
    EXPECT_EQ(change[kDiffReciprocity], 4.0);
    EXPECT_EQ(change[kProdReciprocity], 77.0);
    // The answer to 0 to 1: a change that the whole value does not show.
    evaluate_toggle(digraph, model, parameters.data(), change.data(), 1, 0, 1);
    EXPECT_EQ(change[kSumReciprocity], 7.0);
    EXPECT_EQ(values(reference::with_arc(plain, 1, 0), z)[kSumReciprocity], 7.0);
    // No answer, no change; yet the whole value takes it.
    evaluate_toggle(digraph, model, parameters.data(), change.data(), 0, 2, 1);
    EXPECT_EQ(change[kSumReciprocity], 0.0);
    EXPECT_EQ(values(reference::with_arc(plain, 0, 2), z)[kSumReciprocity], 16.0);
}

TEST(DigraphContinuous, AMissingValueLeavesThePairTablesAtZero) {
    const PlainDigraph plain = reference::make_digraph(3, {{0, 1}, {1, 2}, {2, 0}});
    const std::vector<double> counts = values(plain, {9999.0F, 3.0F, 4.0F});
    EXPECT_EQ(counts[kSum], 7.0);
    EXPECT_EQ(counts[kDiff], 1.0);
    EXPECT_EQ(counts[kProd], 12.0);
    EXPECT_EQ(counts[kSender], 7.0);
    EXPECT_EQ(counts[kReceiver], 7.0);
    EXPECT_EQ(counts[kSenderMissing], 1.0);
    EXPECT_EQ(counts[kReceiverMissing], 1.0);
}

TEST(DigraphContinuous, StarsAndPathsTakeAMissingValueForANumber) {
    // Actor 0 is missing: it receives two arcs and sends one.
    const PlainDigraph plain = reference::make_digraph(4, {{1, 0}, {2, 0}, {0, 3}});
    const std::vector<double> counts = values(plain, {9999.0F, 1.0F, 1.0F, 1.0F});
    EXPECT_EQ(counts[kIn2star], 9999.0);
    EXPECT_EQ(counts[kOut2star], 0.0);
    EXPECT_EQ(counts[kPath2], 2.0 * 9999.0);
}

TEST(DigraphContinuous, WithOnesPathsOfTwoAreTheStructuralOnes) {
    const PlainDigraph plain = reference::make_digraph(5, {{0, 1}, {1, 2}, {2, 3}, {4, 1}, {1, 3}});
    const std::vector<double> counts = values(plain, std::vector<float>(5, 1.0F));
    // Over actor 1: two in, two out; over actor 2: one in, one out.
    EXPECT_EQ(counts[kPath2], 5.0);
    EXPECT_EQ(counts[kSender], 5.0);
    EXPECT_EQ(counts[kDiff], 0.0);
}

TEST(DigraphContinuous, ProductsAreRoundedToSinglePrecisionBeforeTheyAreSummed) {
    // 0.1 is no binary fraction: three times it, rounded once, is neither 0.3 nor 3 x 0.1 in
    // double.
    const float tenth = 0.1F;
    PlainDigraph plain = reference::empty_digraph(4);
    for (int k = 1; k < 4; ++k) {
        reference::cell(plain.arc, k, 0) = 1;
    }
    const std::vector<double> counts = values(plain, {tenth, 0.0F, 0.0F, 0.0F});
    const double three_tenths = static_cast<double>(3.0F * tenth);
    EXPECT_EQ(counts[kReceiver], three_tenths);
    EXPECT_NE(counts[kReceiver], 3.0 * static_cast<double>(tenth));
    EXPECT_EQ(counts[kIn2star], static_cast<double>(3.0F * tenth * 2.0F) * 0.5);

    const ContinuousAttribute attribute = continuous_attribute({tenth, 0.3F, 0.0F, 0.0F});
    EffectData data;
    data.reals = attribute.values.data();
    const Digraph digraph =
        engine_digraph(reference::make_digraph(4, {{1, 0}, {2, 0}, {3, 0}, {1, 2}, {1, 3}}));
    EXPECT_EQ(digraph_continuous_path2_change(digraph, data, 0, 1, 1),
              static_cast<double>(2.0F * tenth) + static_cast<double>(2.0F * 0.3F));
    EXPECT_EQ(digraph_continuous_in2star_change(digraph, data, 1, 0, 1), three_tenths);
}

}  // namespace
