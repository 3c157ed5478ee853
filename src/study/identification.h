// What can be known of a model before any chain runs: effects that cannot be told apart, and
// effects whose estimate would be infinite.
#pragma once

#include <vector>

#include "base/matrix.h"
#include "study/study_selection.h"

// What the change of each effect depends on, in the order of the study's model.
std::vector<Dependence> effect_dependences(const StudySelection& resolved);

// Effects, by their numbers in the study's model, of which one is a linear combination of the
// others; a single one is a statistic that never changes.
using DependentSet = std::vector<int>;

// The first such set among the rows and columns of a matrix of inner products (or covariances), if
// there is one: a pivot below 1e-9 of its diagonal. Empty when all are independent. O(p^3).
DependentSet dependent_set(const Matrix& products);

// The same for effects whose change on a dyad does not depend on the rest of the network: what
// holds for every dyad that may change holds for every network. Effects that are held are left out.
// O(n^2 p^2).
DependentSet dependent_dyadic_effects(const Study& study, StudySelection& resolved);

struct InfiniteEstimate {
    int effect = 0;  // its number in the study's model
    int sign = 0;  // -1: towards minus infinity, the statistic is at its least; +1 at its greatest
};

// Effects of that sort whose observed statistic is the least or the greatest that any network on
// the free dyads has: every dyad that would add to it is untied and every dyad that would take from
// it tied, or the reverse. Their likelihood grows without bound. Effects that are held are left
// out.
std::vector<InfiniteEstimate> infinite_dyadic_estimates(const Study& study,
                                                        StudySelection& resolved);
