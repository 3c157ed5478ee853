// Places of directed effects in the vectors: the order of assembly, the order of the statistics,
// and where the two part.
#include <gtest/gtest.h>

#include "effects/effect_selection.h"
#include "support/directed_models.h"

namespace {

using Vector = std::vector<double>;

// Rows of a directed continuous attribute, in the order of the statistics.
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

// The value of row r is 10 (r + 1) for the first attribute, one more for the second.
double value_of(std::size_t row, std::size_t attribute) {
    return 10.0 * static_cast<double>(row + 1) + static_cast<double>(attribute);
}

// "arc" at place 0 with the value 0.5, and continuous attributes of which the rows are on.
EffectSelection selection_with(const std::vector<std::size_t>& rows, int attributes = 1) {
    EffectSelection selection = selection_create(NetworkKind::directed);
    selection.structural[digraph_effect::kArc].position = 0;
    selection.structural[digraph_effect::kArc].value = 0.5;
    selection.structural_count = 1;
    selection_resize_group(selection, AttributeGroup::continuous, attributes);
    AttributeSelection& group = group_of(selection, AttributeGroup::continuous);
    group.flag = 1;
    group.attributes = attributes;
    for (const std::size_t row : rows) {
        for (std::size_t attribute = 0; attribute < group.choices[row].size(); ++attribute) {
            group.choices[row][attribute] = {1, value_of(row, attribute)};
            ++group.selected;
        }
    }
    for (int attribute = 0; attribute < attributes; ++attribute) {
        selection.table.continuous_names.push_back(
            std::string(1, static_cast<char>('a' + attribute)));
    }
    return selection;
}

// One attribute of another group with its first row on.
void add_group(EffectSelection& selection, AttributeGroup which, double value) {
    selection_resize_group(selection, which, 1);
    AttributeSelection& group = group_of(selection, which);
    group.flag = 1;
    group.attributes = 1;
    group.selected = 1;
    group.choices[0][0] = {1, value};
}

double stored(const EffectSelection& selection, AttributeGroup which, std::size_t row) {
    return group_of(selection, which).choices[row][0].value;
}

const std::vector<std::size_t> kAllRows = {
    kSender,         kReceiver,        kSenderMissing,   kReceiverMissing, kSum,      kDiff, kProd,
    kSumReciprocity, kDiffReciprocity, kProdReciprocity, kIn2star,         kOut2star, kPath2};

TEST(DigraphSelection, StructuralPlacesFollowTheSetupRows) {
    const std::vector<std::string> expected = {
        "arc",          "reciprocity", "in2star",  "out2star",
        "in-3-star",    "out-3-star",  "path2",    "Transitive-Triad",
        "Cyclic-Triad", "T7",          "T8",       "T4",
        "T5",           "T3",          "T6",       "T2",
        "T1",           "Sink",        "Source",   "isolates",
        "AinS",         "AoutS",       "AinS2",    "AoutS2",
        "AinAoutS",     "Ain1outS",    "1inAoutS", "AT-T",
        "AT-C",         "AT-D",        "AT-U",     "AT-TD",
        "AT-TU",        "AT-DU",       "AT-TDU",   "A2P-T",
        "A2P-D",        "A2P-U",       "A2P-TD",   "A2P-TU",
        "A2P-DU",       "A2P-TDU"};
    std::vector<std::string> rows;
    for (const int id : digraph_catalogue().setup_order) {
        rows.emplace_back(digraph_catalogue().effects[static_cast<std::size_t>(id)].row);
    }
    EXPECT_EQ(rows, expected);
}

TEST(DigraphSelection, LambdasStartAtTwo) {
    for (const StructuralChoice& choice : selection_create(NetworkKind::directed).structural) {
        EXPECT_EQ(choice.lambda, 2.0F);
        EXPECT_EQ(choice.position, -1);
        EXPECT_EQ(choice.value, 0.0);
    }
}

TEST(DigraphSelection, AllContinuousRowsLeaveNoPlaceForTheSumAndRepeatTheReciprocalProduct) {
    EffectSelection selection = selection_with(kAllRows);
    EXPECT_EQ(assemble_parameters(selection),
              (Vector{0.5, 10, 20, 30, 40, 70, 60, 80, 90, 100, 110, 120, 130, 100}));
}

TEST(DigraphSelection, TheSumAloneCountsAPlaceThatStaysZero) {
    EffectSelection selection = selection_with({kSum});
    EXPECT_EQ(selection_size(selection), 2);
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 0}));
}

TEST(DigraphSelection, ProductAndDifferenceStandInTheOtherOrderThanTheirStatistics) {
    EffectSelection selection = selection_with({kDiff, kProd});
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 70, 60}));
    std::vector<std::string> labels;
    for (const OutputRow& row : output_rows(selection, Output::result)) {
        labels.push_back(row.label + " at " + std::to_string(row.position));
    }
    EXPECT_EQ(labels, (std::vector<std::string>{"arc at 0", "a_diff at 1", "a_prod at 2"}));
}

TEST(DigraphSelection, TheRepeatBehindTheLastPlaceHasNoEffect) {
    EffectSelection selection = selection_with({kProdReciprocity});
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 100}));
}

TEST(DigraphSelection, TheRepeatStandsBehindThePathsWhereThereIsAPlace) {
    EffectSelection selection = selection_with({kSum, kProdReciprocity, kPath2});
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 100, 130, 100}));
}

TEST(DigraphSelection, TheRepeatMovesWhatFollowsByAPlaceAnAttribute) {
    EffectSelection selection = selection_with({kProdReciprocity}, 2);
    add_group(selection, AttributeGroup::categorical, 500);
    add_group(selection, AttributeGroup::covariate, 600);
    // Five places; both repeats, and then no room for the covariate nor the category.
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 100, 101, 100, 101}));

    EffectSelection with_sum = selection_with({kSum, kProdReciprocity}, 1);
    add_group(with_sum, AttributeGroup::categorical, 500);
    add_group(with_sum, AttributeGroup::covariate, 600);
    EXPECT_EQ(assemble_parameters(with_sum), (Vector{0.5, 100, 100, 500, 600}));
}

TEST(DigraphSelection, TheSumWithoutARepeatDrawsWhatFollowsForward) {
    EffectSelection selection = selection_with({kSum, kPath2});
    add_group(selection, AttributeGroup::categorical, 500);
    add_group(selection, AttributeGroup::covariate, 600);
    EXPECT_EQ(assemble_parameters(selection), (Vector{0.5, 130, 500, 600, 0}));
}

TEST(DigraphSelection, TwoAttributesAreGroupedByKind) {
    EffectSelection selection = selection_with(kAllRows, 2);
    EXPECT_EQ(assemble_parameters(selection),
              (Vector{0.5, 10, 11, 20,  21,  30,  31,  40,  41,  70,  71,  60,  61, 80,
                      81,  90, 91, 100, 101, 110, 111, 120, 121, 130, 131, 100, 101}));
}

TEST(DigraphSelection, StoringWalksTwelveGroupsAndGoesStraightOn) {
    EffectSelection selection = selection_with(kAllRows);
    add_group(selection, AttributeGroup::categorical, 500);
    add_group(selection, AttributeGroup::covariate, 600);
    Vector estimates;
    for (int place = 0; place < 16; ++place) {
        estimates.push_back(0.25 + place);
    }
    store_parameters(selection, estimates);
    EXPECT_EQ(selection.structural[digraph_effect::kArc].value, 0.25);
    const Vector expected = {1.25, 2.25, 3.25, 4.25,  50.0,  6.25, 5.25,
                             7.25, 8.25, 9.25, 10.25, 11.25, 12.25};
    for (std::size_t row = 0; row < expected.size(); ++row) {
        EXPECT_EQ(stored(selection, AttributeGroup::continuous, row), expected[row]) << row;
    }
    EXPECT_EQ(stored(selection, AttributeGroup::categorical, 0), 13.25);
    EXPECT_EQ(stored(selection, AttributeGroup::covariate, 0), 14.25);
}

TEST(DigraphSelection, WhatIsAssembledAndStoredAgainMovesBehindTheRepeat) {
    EffectSelection selection = selection_with({kProdReciprocity});
    add_group(selection, AttributeGroup::categorical, 500);
    add_group(selection, AttributeGroup::covariate, 600);
    const Vector assembled = assemble_parameters(selection);
    EXPECT_EQ(assembled, (Vector{0.5, 100, 100, 500}));
    store_parameters(selection, assembled);
    EXPECT_EQ(stored(selection, AttributeGroup::categorical, 0), 100.0);
    EXPECT_EQ(stored(selection, AttributeGroup::covariate, 0), 500.0);
}

TEST(DigraphSelection, BinaryParametersFollowTheirStatistics) {
    EffectSelection selection = directed_group_selection(AttributeGroup::binary, 1);
    AttributeSelection& group = group_of(selection, AttributeGroup::binary);
    Vector expected;
    for (std::size_t row = 0; row < group.choices.size(); ++row) {
        group.choices[row][0].value = value_of(row, 0);
        expected.push_back(value_of(row, 0));
    }
    EXPECT_EQ(assemble_parameters(selection), expected);
}

TEST(DigraphSelection, StatisticsFollowTheThirteenRows) {
    EffectSelection selection = selection_with(kAllRows);
    selection.table.continuous = {continuous_attribute({2.0F, 5.0F})};
    const ActiveModel<Digraph> model = active_model<Digraph>(selection);
    Digraph digraph = engine_digraph(reference::make_digraph(2, {{0, 1}}), 14);
    compute_statistics(digraph, model);
    EXPECT_EQ(digraph.statistics, (Vector{1, 2, 5, 0, 0, 7, 3, 10, 7, 3, 10, 0, 0, 0}));
}

TEST(DigraphSelection, TheFullModelHoldsAPlaceThatItHandsToNobody) {
    EffectSelection selection = selection_with({});
    add_group(selection, AttributeGroup::categorical, 500);
    // Flags of every row come on, selected or not.
    group_of(selection, AttributeGroup::categorical).choices[0][0].flag = 0;
    selection.structural[static_cast<std::size_t>(directed_place("AinS2"))].lambda = 0.0F;
    selection.structural[static_cast<std::size_t>(directed_place("AoutS2"))].lambda = 0.0F;
    selection.structural[static_cast<std::size_t>(directed_place("AoutS"))].lambda = 0.0F;
    selection.structural[static_cast<std::size_t>(directed_place("A2P-TDU"))].lambda = 0.0F;
    selection.structural[static_cast<std::size_t>(directed_place("AT-T"))].lambda = 3.0F;
    assign_full_model(selection);

    EXPECT_EQ(selection.structural_count, 43);
    int place = 0;
    for (const int id : digraph_catalogue().setup_order) {
        EXPECT_EQ(selection.structural[static_cast<std::size_t>(id)].position, place++);
    }
    EXPECT_EQ(place, 42);
    EXPECT_EQ(selection.structural[static_cast<std::size_t>(directed_place("4-in-star"))].position,
              -1);
    EXPECT_EQ(selection.structural[static_cast<std::size_t>(directed_place("4-out-star"))].position,
              -1);
    // 13 rows of the continuous attribute, 4 of the categorical one.
    EXPECT_EQ(selection_size(selection), 43 + 13 + 4);
    const Vector parameters = assemble_parameters(selection);
    ASSERT_EQ(parameters.size(), 60U);
    EXPECT_EQ(parameters[42], 0.0);
    for (const OutputRow& row : output_rows(selection, Output::simulation)) {
        EXPECT_NE(row.position, 42) << row.label;
    }
    for (const ActiveEffect<Digraph>& effect : active_model<Digraph>(selection)) {
        EXPECT_NE(effect.position, 42);
    }

    const auto lambda = [&](std::string_view name) {
        return selection.structural[static_cast<std::size_t>(directed_place(name))].lambda;
    };
    EXPECT_EQ(lambda("AinS2"), 1.0F);
    EXPECT_EQ(lambda("AoutS2"), 1.0F);
    EXPECT_EQ(lambda("AoutS"), 2.0F);
    EXPECT_EQ(lambda("A2P-TDU"), 2.0F);
    EXPECT_EQ(lambda("AT-T"), 3.0F);
    EXPECT_EQ(lambda("AT-U"), 2.0F);
}

}  // namespace
