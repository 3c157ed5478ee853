// Estimates that need no simulation: of models whose dyads are independent, and by
// pseudo-likelihood of any model.
#pragma once

#include "study/study_estimate.h"

// Fills the estimate with the exact maximum of the likelihood, its information, expected statistics
// and log-likelihood; false, the estimate as it was, where dyads depend on each other. `estimate`
// names the effects and holds the observed statistics.
bool estimate_exactly(const Study& study, StudySelection& resolved, StudyEstimate& estimate);

// The same by the maximum of the pseudo-likelihood; exactly where that is possible. The standard
// errors are those of a logistic regression: too small where ties depend on each other. There are
// neither t-ratios nor a log-likelihood, as nothing was simulated.
void estimate_by_pseudo_likelihood(const Study& study, StudySelection& resolved,
                                   StudyEstimate& estimate);

// Which effects are held, one flag an effect.
std::vector<char> held_effects(const Study& study);

// The values to start from: held values, starts that the model gives, zero elsewhere.
std::vector<double> given_values(const Study& study);
