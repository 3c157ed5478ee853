// Whether an estimation can find a model's parameters from the study's data, as far as it can be
// told before any chain runs. Effects whose parameter is held are left out.
#pragma once

#include <vector>

#include "study/identification.h"
#include "study/problem.h"
#include "study/study_selection.h"

// What stands in the way of an estimation, and the effect (by its number in the model) that each
// problem is about.
struct Estimability {
    Problems problems;
    std::vector<int> faulty_effects;
    bool ok() const { return problems.empty(); }
};

// Whether the effect's count is one number less another, so that it may be negative.
bool is_difference(const EffectFacts& facts);

// Effects whose statistic, as a chain carries it, drifts from the network's own: no method that
// simulates can estimate them.
Estimability drifting_effects(const Study& study, const StudySelection& resolved);

// Counts whose change depends on other ties and that are 0 in the study's network, the least that
// a count can be: their estimate would be minus infinity. O(one count of the model).
std::vector<InfiniteEstimate> least_counts(const Study& study, const StudySelection& resolved);

// All of it: effects that drift, whose estimate would be infinite, that no dyad changes, or that
// depend on each other in every network. O(n^2 p^2).
Estimability study_estimability(const Study& study, StudySelection& resolved);
