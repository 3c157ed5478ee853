// Places, values, weight tables and the full model of an undirected selection.
#include "effects/effect_selection.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "effects/evaluation.h"
#include "effects/triangle_ties.h"
#include "reference/weights.h"
#include "support/graph_effect_checks.h"

namespace {

StructuralChoice& choice_of(EffectSelection& selection, std::string_view name) {
    return selection.structural[static_cast<std::size_t>(structural_id(name))];
}

// Selects rows as the setup file's reader does: each takes the next place.
EffectSelection selection_holding(const Names& names) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    for (const std::string_view name : names) {
        choice_of(selection, name).position = selection.structural_count++;
    }
    return selection;
}

// Attributes of one group with some (row, attribute) pairs on.
void select(EffectSelection& selection, AttributeGroup group, int attributes,
            std::initializer_list<std::pair<int, int>> pairs) {
    selection_resize_group(selection, group, attributes);
    AttributeSelection& chosen = group_of(selection, group);
    chosen.attributes = attributes;
    for (const auto& [row, attribute] : pairs) {
        chosen.choices[static_cast<std::size_t>(row)][static_cast<std::size_t>(attribute)].flag = 1;
        ++chosen.selected;
    }
}

const Names kRowsOfTheFullModel = {"edge",     "2-star",    "3-star",   "4-star",   "5-star",
                                   "Triangle", "4-clique",  "5-clique", "6-clique", "7-clique",
                                   "Isolates", "Triangle2", "3Path",    "cycle4",   "1ET",
                                   "2ET",      "0ET",       "ETNT",     "two3star", "one2triangle",
                                   "one2et",   "AS",        "AS2",      "AT",       "AT2",
                                   "A2P",      "AC",        "AET",      "AEAT"};
const Names kRowsOutsideIt = {"Bow_tie", "P3", "Q10", "Q20", "Q30", "Q31"};

TEST(EffectSelection, StartsWithEveryEffectOffAtZero) {
    const EffectSelection selection = selection_create(NetworkKind::undirected);
    EXPECT_EQ(selection.structural.size(), 36U);
    for (const StructuralChoice& choice : selection.structural) {
        EXPECT_EQ(choice.position, -1);
        EXPECT_EQ(choice.value, 0.0);
        EXPECT_EQ(choice.lambda, 0.0F);
        EXPECT_TRUE(choice.weights.empty());
    }
    EXPECT_EQ(selection_size(selection), 0);
    EXPECT_EQ(selection.default_weights, reference::geometric_weight_table(2.0F));
}

TEST(EffectSelection, OfDirectedNetworksStartsWithLambdaTwo) {
    for (const StructuralChoice& choice : selection_create(NetworkKind::directed).structural) {
        EXPECT_EQ(choice.lambda, 2.0F);
        EXPECT_EQ(choice.position, -1);
    }
}

TEST(EffectSelection, ParametersStandAtTheirPlacesInTheOrderOfTheKinds) {
    EffectSelection selection = selection_holding({"Triangle", "edge"});
    choice_of(selection, "Triangle").value = 1.0;
    choice_of(selection, "edge").value = 2.0;
    // Rows 9 and 0 of the binary kind are activity and t3u: the later one stands behind.
    select(selection, AttributeGroup::binary, 2, {{9, 0}, {0, 1}, {0, 0}});
    select(selection, AttributeGroup::continuous, 1, {{2, 0}});
    select(selection, AttributeGroup::categorical, 2, {{1, 1}});
    select(selection, AttributeGroup::covariate, 1, {{5, 0}, {1, 0}});
    const auto value = [&selection](AttributeGroup group, std::size_t row, std::size_t attribute,
                                    double to) {
        group_of(selection, group).choices[row][attribute].value = to;
    };
    value(AttributeGroup::binary, 9, 0, 5.0);
    value(AttributeGroup::binary, 0, 0, 3.0);
    value(AttributeGroup::binary, 0, 1, 4.0);
    value(AttributeGroup::binary, 3, 1, -9.0);  // off
    value(AttributeGroup::continuous, 2, 0, 6.0);
    value(AttributeGroup::categorical, 1, 1, 7.0);
    value(AttributeGroup::covariate, 1, 0, 8.0);
    value(AttributeGroup::covariate, 5, 0, 9.0);
    EXPECT_EQ(selection_size(selection), 9);
    EXPECT_EQ(assemble_parameters(selection), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(EffectSelection, WithoutStructuralEffectsAttributesStartAtPlaceZero) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    select(selection, AttributeGroup::categorical, 1, {{0, 0}});
    group_of(selection, AttributeGroup::categorical).choices[0][0].value = 2.5;
    EXPECT_EQ(assemble_parameters(selection), std::vector<double>{2.5});
    int places = 0;
    for_each_attribute_effect(selection, [&places](AttributeGroup group, int row, int, int place) {
        EXPECT_EQ(group, AttributeGroup::categorical);
        EXPECT_EQ(row, 0);
        EXPECT_EQ(place, 0);
        ++places;
    });
    EXPECT_EQ(places, 1);
}

TEST(EffectSelection, StoringPutsBackWhatAssemblyTook) {
    EffectSelection selection = selection_holding({"edge", "AS", "Q30", "AEAT"});
    select(selection, AttributeGroup::binary, 3, {{1, 0}, {1, 2}, {7, 1}, {8, 0}});
    select(selection, AttributeGroup::continuous, 2, {{0, 0}, {1, 1}, {2, 0}});
    select(selection, AttributeGroup::categorical, 1, {{0, 0}, {1, 0}});
    select(selection, AttributeGroup::covariate, 2, {{0, 1}, {3, 0}, {4, 1}});
    std::vector<double> parameters;
    for (int place = 0; place < selection_size(selection); ++place) {
        parameters.push_back(100.0 + place);
    }
    ASSERT_EQ(parameters.size(), 16U);
    store_parameters(selection, parameters);
    EXPECT_EQ(assemble_parameters(selection), parameters);
    EXPECT_EQ(choice_of(selection, "Q30").value, 102.0);
    // What is off keeps its value.
    EXPECT_EQ(choice_of(selection, "2-star").value, 0.0);
    EXPECT_EQ(group_of(selection, AttributeGroup::binary).choices[1][1].value, 0.0);
}

TEST(EffectSelection, StoringTouchesNeitherLambdasNorWeights) {
    EffectSelection selection = selection_holding({"AT"});
    choice_of(selection, "AT").lambda = 3.0F;
    assemble_parameters(selection);
    const auto weights = choice_of(selection, "AT").weights;
    choice_of(selection, "AT").lambda = 5.0F;
    store_parameters(selection, {7.0});
    EXPECT_EQ(choice_of(selection, "AT").lambda, 5.0F);
    EXPECT_EQ(choice_of(selection, "AT").weights, weights);
    EXPECT_EQ(choice_of(selection, "AT").value, 7.0);
}

TEST(EffectSelection, StoringFromAShortVectorLeavesTheRestAlone) {
    EffectSelection selection = selection_holding({"edge", "2-star"});
    choice_of(selection, "2-star").value = 4.0;
    store_parameters(selection, {1.0});
    EXPECT_EQ(choice_of(selection, "edge").value, 1.0);
    EXPECT_EQ(choice_of(selection, "2-star").value, 4.0);
}

TEST(EffectSelection, AssemblyBuildsTheWeightsOfSelectedAlternatingEffectsFromTheirLambda) {
    for (const float lambda : all_lambdas()) {
        for (const std::string_view name : {"AS", "AS2", "AT", "AT2", "A2P", "AET", "AEAT"}) {
            EffectSelection selection = selection_holding({name});
            choice_of(selection, name).lambda = lambda;
            assemble_parameters(selection);
            EXPECT_EQ(choice_of(selection, name).weights,
                      reference::geometric_weight_table(lambda));
        }
    }
}

TEST(EffectSelection, ALambdaOfAnEffectThatIsOffStaysAndGivesNoTable) {
    EffectSelection selection = selection_holding({"AS"});
    choice_of(selection, "AS").lambda = 2.0F;
    choice_of(selection, "AT").lambda = 3.0F;
    assemble_parameters(selection);
    EXPECT_FALSE(choice_of(selection, "AS").weights.empty());
    EXPECT_TRUE(choice_of(selection, "AT").weights.empty());
    EXPECT_EQ(choice_of(selection, "AT").lambda, 3.0F);
}

TEST(EffectSelection, AlternatingCliquesHaveNoWeights) {
    EffectSelection selection = selection_holding({"AC"});
    choice_of(selection, "AC").lambda = 2.0F;
    assemble_parameters(selection);
    EXPECT_TRUE(choice_of(selection, "AC").weights.empty());
}

TEST(EffectSelection, AssemblyAtLambdaZeroEndsAllTheSame) {
    EffectSelection selection = selection_holding({"AS", "AEAT", "AC"});
    EXPECT_EQ(assemble_parameters(selection), (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(choice_of(selection, "AS").weights.size(), 101U);
}

TEST(EffectSelection, CliqueDepthIsTheSizeOfTheLargestCliqueAndEightWithTheirAlternatingSum) {
    EXPECT_EQ(clique_depth(selection_holding({})), 0);
    EXPECT_EQ(clique_depth(selection_holding({"edge", "Triangle", "AT"})), 0);
    EXPECT_EQ(clique_depth(selection_holding({"4-clique"})), 4);
    EXPECT_EQ(clique_depth(selection_holding({"5-clique", "4-clique"})), 5);
    EXPECT_EQ(clique_depth(selection_holding({"4-clique", "6-clique"})), 6);
    EXPECT_EQ(clique_depth(selection_holding({"7-clique"})), 7);
    EXPECT_EQ(clique_depth(selection_holding({"AC"})), 8);
    EXPECT_EQ(clique_depth(selection_holding({"4-clique", "AC"})), 8);
    EXPECT_EQ(clique_depth(selection_create(NetworkKind::directed)), 0);
}

TEST(FullModel, HandsOutTwentyNinePlacesInRowOrder) {
    EffectSelection selection = selection_holding({"AEAT", "Triangle", "edge"});
    assign_full_model(selection);
    EXPECT_EQ(selection.structural_count, 29);
    ASSERT_EQ(kRowsOfTheFullModel.size(), 29U);
    int place = 0;
    for (const std::string_view name : kRowsOfTheFullModel) {
        EXPECT_EQ(choice_of(selection, name).position, place++) << name;
    }
    for (const std::string_view name : kRowsOutsideIt) {
        EXPECT_EQ(choice_of(selection, name).position, -1) << name;
    }
    EXPECT_EQ(choice_of(selection, "P0").position, -1);
    EXPECT_EQ(clique_depth(selection), 8);
}

TEST(FullModel, LeavesRowsOutsideItOnAtThePlaceTheyHad) {
    EffectSelection selection = selection_holding({"edge", "Bow_tie", "Q31", "AS"});
    assign_full_model(selection);
    EXPECT_EQ(choice_of(selection, "Bow_tie").position, 1);
    EXPECT_EQ(choice_of(selection, "Q31").position, 2);
    EXPECT_EQ(choice_of(selection, "P3").position, -1);
    // They share those places with rows of the full model.
    EXPECT_EQ(choice_of(selection, "2-star").position, 1);
    EXPECT_EQ(choice_of(selection, "3-star").position, 2);
    EXPECT_EQ(selection_size(selection), 29);
    EXPECT_EQ(active_model<Graph>(selection).size(), 31U);
}

TEST(FullModel, TheLaterOfTwoRowsAtOnePlaceWritesItsValue) {
    EffectSelection selection = selection_holding({"edge", "Bow_tie"});
    choice_of(selection, "Bow_tie").value = 6.0;
    choice_of(selection, "2-star").value = 5.0;
    assign_full_model(selection);
    EXPECT_EQ(assemble_parameters(selection)[1], 6.0);
}

TEST(FullModel, KeepsTheValuesOfTheSetup) {
    EffectSelection selection = selection_holding({"edge"});
    choice_of(selection, "edge").value = -1.5;
    choice_of(selection, "AT").value = 0.25;
    assign_full_model(selection);
    const auto parameters = assemble_parameters(selection);
    EXPECT_EQ(parameters[0], -1.5);
    EXPECT_EQ(parameters[static_cast<std::size_t>(choice_of(selection, "AT").position)], 0.25);
}

TEST(FullModel, ReplacesLambdasThatAreExactlyZero) {
    EffectSelection selection = selection_holding({});
    assign_full_model(selection);
    for (const std::string_view name : {"AS", "AT", "A2P", "AC", "AET", "AEAT"}) {
        EXPECT_EQ(choice_of(selection, name).lambda, 2.0F) << name;
    }
    for (const std::string_view name : {"AS2", "AT2"}) {
        EXPECT_EQ(choice_of(selection, name).lambda, 1.0F) << name;
    }
}

TEST(FullModel, LeavesOtherLambdasAlone) {
    EffectSelection selection = selection_holding({});
    choice_of(selection, "AS").lambda = 0.5F;
    choice_of(selection, "AT2").lambda = 3.0F;
    choice_of(selection, "AC").lambda = -1.0F;
    assign_full_model(selection);
    EXPECT_EQ(choice_of(selection, "AS").lambda, 0.5F);
    EXPECT_EQ(choice_of(selection, "AT2").lambda, 3.0F);
    EXPECT_EQ(choice_of(selection, "AC").lambda, -1.0F);
}

TEST(FullModel, TurnsOnEveryRowOfEveryAttributeThereIs) {
    EffectSelection selection = selection_holding({});
    select(selection, AttributeGroup::binary, 2, {{3, 1}});
    select(selection, AttributeGroup::continuous, 1, {});
    select(selection, AttributeGroup::covariate, 3, {{0, 0}, {5, 2}});
    assign_full_model(selection);
    EXPECT_EQ(group_of(selection, AttributeGroup::binary).selected, 20);
    EXPECT_EQ(group_of(selection, AttributeGroup::continuous).selected, 3);
    EXPECT_EQ(group_of(selection, AttributeGroup::categorical).selected, 0);
    EXPECT_EQ(group_of(selection, AttributeGroup::covariate).selected, 18);
    EXPECT_EQ(selection_size(selection), 29 + 20 + 3 + 18);
    int last = 28;
    for_each_attribute_effect(selection, [&last](AttributeGroup, int, int, int place) {
        EXPECT_EQ(place, last + 1);
        last = place;
    });
    EXPECT_EQ(last, 29 + 20 + 3 + 18 - 1);
}

TEST(FullModel, GivesTheSamePlacesWhenItIsAssignedTwice) {
    EffectSelection selection = selection_holding({"edge", "AT"});
    select(selection, AttributeGroup::categorical, 2, {{0, 0}});
    assign_full_model(selection);
    assign_full_model(selection);
    EXPECT_EQ(selection.structural_count, 29);
    EXPECT_EQ(group_of(selection, AttributeGroup::categorical).selected, 4);
    EXPECT_EQ(choice_of(selection, "AEAT").position, 28);
}

}  // namespace
