// The 36 structural effects of undirected networks, each by the plain loop over the
// configurations it counts.
#pragma once

#include "effect_table.h"
#include "plain_graph.h"

#include <string_view>
#include <vector>

namespace reference {

// Effects without a lambda ignore it.
using StructuralEffect = Effect<EvaluationState, PlainGraph, float>;

// All 36 in the order in which the evaluator goes through them: "edge", "2-star", "3-star",
// "4-star", "5-star", "Triangle", "4-clique", "5-clique", "6-clique", "7-clique", "Isolates", "P0",
// "Triangle2", "Bow_tie", "P3", "Q10", "Q20", "Q30", "Q31", "3Path", "cycle4", "1ET", "2ET", "0ET",
// "ETNT", "two3star", "one2triangle", "one2et", "AS", "AS2", "AT", "AT2", "A2P", "AC", "AET",
// "AEAT".
const std::vector<StructuralEffect>& structural_effects();

// The row of that name; throws std::out_of_range when there is none.
const StructuralEffect& structural_effect(std::string_view name);

// Whether the value of an effect depends on its lambda.
bool has_lambda(const StructuralEffect& effect);

// Entry m is the number of cliques of m + 1 actors. Below a depth of 3 entries 0 and 1 are the
// numbers of actors and ties; from 3 on they stay 0.
std::vector<double> clique_counts(const PlainGraph& graph, int depth);

// Entry m is the number of cliques of m + 1 actors that the tie would complete; entry 1 is the
// dyad itself, entry 0 stays 0.
std::vector<double> clique_changes(const EvaluationState& state, int i, int j, int depth);

// Per-actor terms of "0ET" and "ETNT"; the statistics are their sums.
std::vector<int> et0_terms(const PlainGraph& graph);
std::vector<int> etnt_terms(const PlainGraph& graph);

}  // namespace reference
