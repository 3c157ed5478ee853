// A study's network as independent choices: for the pseudo-likelihood, and exactly where its dyads
// do not depend on each other.
#pragma once

#include <optional>

#include "study/independent_choices.h"
#include "study/study_selection.h"

// Every dyad that may change, as a choice given the rest of the observed network; p changes an
// alternative in the order of the study's effects. O(dyads x cost of a change), and memory of one
// row for each different set of changes.
IndependentChoices pseudo_choices(const Study& study, StudySelection& resolved);

// The network as choices that are independent in truth: of ties, or of pairs of arcs where an
// effect looks at the arc back. None where an effect depends on other dyads, where degrees are
// capped, or where the changes of a pair do not add up to the same on both ways to it.
std::optional<IndependentChoices> exact_choices(const Study& study, StudySelection& resolved);
