// Where a search for the estimates begins.
#pragma once

#include <vector>

#include "study/study_selection.h"

// Starts that the model gives; for the other effects, the maximum of the pseudo-likelihood, or of
// the penalised one where that has none.
std::vector<double> pseudo_start(const Study& study, StudySelection& resolved);

// Starts that the model gives; for the others 0, but for the effect that counts ties: it makes
// their expected number the observed one. A model that is never degenerate. `dyads`: how many may
// change.
std::vector<double> plain_start(const Study& study, const StudySelection& resolved, double dyads);
