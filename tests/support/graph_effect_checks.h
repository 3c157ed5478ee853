// Holds the engine's undirected effects against the plain reference, dyad by dyad.
//
// A check looks at every dyad of every network in three states (addition, deletion, and the dyad as
// it stands) and stops at the first number that is not the same double; its message says which.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "effects/effect_selection.h"
#include "effects/evaluation.h"
#include "reference/plain_graph.h"

using Names = std::vector<std::string_view>;
using PlainGraphs = std::vector<reference::PlainGraph>;

// What an alternating effect is tried with: dead, special, ordinary, and slow to fall.
const std::vector<float>& all_lambdas();

// Equal, or both not a number.
bool same_number(double a, double b);

// A model of named structural effects at one lambda, with all parameters 0.0.
struct StructuralModel {
    StructuralModel(const Names& names, float lambda);
    StructuralModel(const StructuralModel&) = delete;
    StructuralModel& operator=(const StructuralModel&) = delete;

    EffectSelection selection;
    std::vector<double> parameters;
    ActiveModel<Graph> effects;
};

// Catalogue id of a structural effect by the name of its row; fails the test without one.
int structural_id(std::string_view name);

// One change, or one whole-network value, of the engine.
double engine_change(const reference::PlainGraph& plain, int i, int j, reference::Stage stage,
                     std::string_view name, float lambda = 2.0F);
double engine_count(const reference::PlainGraph& plain, std::string_view name, float lambda = 2.0F);

// Every change in all three states is the reference's double. With `dyads` above 0 only that many
// dyads of each network, spread evenly, are looked at.
testing::AssertionResult changes_match_reference(const Names& names,
                                                 const std::vector<float>& lambdas,
                                                 const PlainGraphs& graphs, int dyads = 0);

// Every whole-network value is the reference's double.
testing::AssertionResult counts_match_reference(const Names& names,
                                                const std::vector<float>& lambdas,
                                                const PlainGraphs& graphs);

// The change of an addition and that of the deletion of the same tie are the same double.
testing::AssertionResult additions_match_deletions(const Names& names,
                                                   const std::vector<float>& lambdas,
                                                   const PlainGraphs& graphs);

// The change is the whole value with the tie less that without it, within `tolerance` x lambda^2 x
// n (0.0: exactly).
testing::AssertionResult changes_are_differences(const Names& names,
                                                 const std::vector<float>& lambdas,
                                                 const PlainGraphs& graphs, double tolerance);
