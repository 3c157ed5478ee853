// Directed effects of a binary attribute, against the plain reference and by hand.
#include <gtest/gtest.h>

#include <array>

#include "effects/binary_attributes.h"
#include "support/directed_models.h"

using reference::Codes;
using reference::PlainDigraph;

namespace {

constexpr std::size_t kInteraction = 0;
constexpr std::size_t kSender = 1;
constexpr std::size_t kReceiver = 2;
constexpr std::size_t kSenderMissing = 3;
constexpr std::size_t kReceiverMissing = 4;
constexpr std::size_t kInteractionReciprocity = 5;
constexpr std::size_t kActivityReciprocity = 6;
constexpr std::size_t kIn2star = 7;
constexpr std::size_t kPath2 = 8;
constexpr std::size_t kOut2star = 9;

Codes drawn_codes(int n, std::mt19937& random, bool missing) {
    constexpr std::array<int, 4> kValues = {0, 1, 1, 9999};
    Codes codes;
    for (int i = 0; i < n; ++i) {
        codes.push_back(kValues[random() % (missing ? 4U : 3U)]);
    }
    return codes;
}

EffectSelection selection_of(const std::vector<Codes>& attributes) {
    EffectSelection selection =
        directed_group_selection(AttributeGroup::binary, static_cast<int>(attributes.size()));
    for (const Codes& codes : attributes) {
        selection.table.binary.push_back(coded_attribute(codes));
    }
    return selection;
}

// Whole values of the ten rows.
std::vector<double> values(const PlainDigraph& plain, const Codes& codes) {
    EffectSelection selection = selection_of({codes});
    Digraph digraph = engine_digraph(plain, 10);
    compute_statistics(digraph, active_model<Digraph>(selection));
    return digraph.statistics;
}

TEST(DigraphBinary, ChangesAndWholeValuesEqualTheReference) {
    std::mt19937 random(541);
    for (const PlainDigraph& plain : random_digraphs(2, 9, 542)) {
        const std::vector<Codes> attributes = {drawn_codes(plain.n, random, false),
                                               drawn_codes(plain.n, random, true)};
        EffectSelection selection = selection_of(attributes);
        expect_group_equals_reference(plain, selection, reference::directed_binary_effects(),
                                      attributes);
    }
}

TEST(DigraphBinary, ChangesCrossTheWordsOfWideRows) {
    std::mt19937 random(543);
    const PlainDigraph plain = random_digraph(67, 0.2, random);
    const Codes codes = drawn_codes(67, random, true);
    EffectSelection selection = selection_of({codes});
    assemble_parameters(selection);
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    const std::vector<double> parameters(10, 1.0);
    for (const auto& [i, j] : {std::pair{0, 66}, {66, 0}, {63, 64}, {64, 63}, {12, 40}}) {
        const auto stage = reference::Stage::addition;
        const reference::DirectedState state = reference::evaluation_state(plain, i, j, stage);
        Digraph digraph = engine_digraph(plain);
        stage_evaluation(digraph, i, j, stage);
        std::vector<double> change(10);
        evaluate_toggle(digraph, model, parameters.data(), change.data(), i, j, 1);
        for (std::size_t row = 0; row < 10; ++row) {
            EXPECT_EQ(change[row],
                      reference::directed_binary_effects()[row].change(state, i, j, codes))
                << reference::directed_binary_effects()[row].name;
        }
    }
}

TEST(DigraphBinary, WithZerosAndOnesChangesAreTheDifferencesOfWholeValues) {
    std::mt19937 random(544);
    for (const PlainDigraph& plain : random_digraphs(2, 8, 545)) {
        EffectSelection selection = selection_of({drawn_codes(plain.n, random, false)});
        for_each_group_difference(
            plain, selection, [&](std::size_t row, double change, double difference) {
                EXPECT_EQ(change, difference) << reference::directed_binary_effects()[row].name;
            });
    }
}

TEST(DigraphBinary, WithMissingValuesOnlyTheTwoStarsPartFromTheirWholeValues) {
    std::mt19937 random(546);
    bool in_parts = false;
    bool out_parts = false;
    for (const PlainDigraph& plain : random_digraphs(3, 8, 547)) {
        EffectSelection selection = selection_of({drawn_codes(plain.n, random, true)});
        for_each_group_difference(
            plain, selection, [&](std::size_t row, double change, double difference) {
                if (row == kIn2star) {
                    in_parts |= change != difference;
                } else if (row == kOut2star) {
                    out_parts |= change != difference;
                } else {
                    EXPECT_EQ(change, difference) << reference::directed_binary_effects()[row].name;
                }
            });
    }
    EXPECT_TRUE(in_parts);
    EXPECT_TRUE(out_parts);
}

TEST(DigraphBinary, ANetworkWithoutArcsGivesNothing) {
    EXPECT_EQ(values(reference::empty_digraph(5), {1, 0, 1, 9999, 1}),
              std::vector<double>(10, 0.0));
}

TEST(DigraphBinary, AMissingSenderIsCountedAsMissingOnly) {
    const std::vector<double> counts =
        values(reference::make_digraph(3, {{0, 1}, {0, 2}, {1, 0}}), {9999, 1, 0});
    EXPECT_EQ(counts[kSender], 1.0);
    EXPECT_EQ(counts[kSenderMissing], 2.0);
    EXPECT_EQ(counts[kReceiver], 1.0);
    EXPECT_EQ(counts[kReceiverMissing], 1.0);
    EXPECT_EQ(counts[kInteraction], 0.0);
}

TEST(DigraphBinary, AMutualDyadOfTwoBearersCountsOnceAsActivity) {
    const std::vector<double> counts =
        values(reference::make_digraph(4, {{0, 1}, {1, 0}, {2, 3}, {3, 2}}), {1, 1, 1, 0});
    EXPECT_EQ(counts[kInteractionReciprocity], 1.0);
    EXPECT_EQ(counts[kActivityReciprocity], 2.0);
    EXPECT_EQ(counts[kInteraction], 2.0);
}

TEST(DigraphBinary, AMissingActorHasTwoStarsInTheChangeAndNoneInTheWholeValue) {
    const PlainDigraph plain = reference::make_digraph(4, {{2, 1}, {3, 1}, {0, 2}});
    const CodedAttribute attribute = coded_attribute({9999, 9999, 0, 0});
    EffectData data;
    data.coded = &attribute;
    Digraph digraph = engine_digraph(plain);
    EXPECT_EQ(digraph_binary_in2star_change(digraph, data, 0, 1, 1), 2.0);
    EXPECT_EQ(digraph_binary_out2star_change(digraph, data, 0, 1, 1), 1.0);
    EXPECT_EQ(digraph_binary_path2_change(digraph, data, 0, 1, 1), 0.0);
    EXPECT_EQ(digraph_binary_in2star_count(digraph, data), 0.0);
    EXPECT_EQ(digraph_binary_out2star_count(digraph, data), 0.0);
}

}  // namespace
