// Models in which pairs of actors are independent of each other: exact sums over the pairs.
#pragma once

#include <vector>

#include "base/matrix.h"
#include "study/study_selection.h"

// The log-likelihood of the dyad-independent effects at some parameters, with its derivatives.
struct DyadicLikelihood {
    double value = 0.0;
    std::vector<double> gradient;  // observed less expected statistics
    Matrix information;            // covariance of the statistics
};

// Sums over every pair of actors with a dyad that may change. `parameters` has a value for each
// effect in the study's order; those that depend on other dyads count as 0, and so do their
// derivatives. O(n^2 p^2) without derivatives O(n^2 p).
DyadicLikelihood dyadic_likelihood(const Study& study, const StudySelection& resolved,
                                   const std::vector<double>& parameters, bool derivatives);

// Parameters near the maximum of that likelihood, for the effects that are dyad-independent; 0 for
// the others. A few Newton steps, ended early where the maximum is infinite or not unique: any
// values serve as a reference. They are rounded to multiples of 2^-20, so that a last bit of the C
// library's does not reach the chains.
std::vector<double> dyadic_reference(const Study& study, const StudySelection& resolved);
