// What an estimate takes from the draws of Monte Carlo maximum likelihood.
#pragma once

#include "study/chain_draw.h"
#include "study/study_estimate.h"
#include "study/weighted_steps.h"

// The samples, their means and what they say of the chains; the parameters at which they were
// drawn, with the errors that they have by themselves, where no effects depend on each other in
// them. `runs` of the chains led there.
void take_draw(StudyEstimate& estimate, const ChainDraw& draw, const DrawFrame& frame, int runs);

// The same of the last draw, with the pool's estimates and their errors. What simulation adds to
// the sampling error of an estimate is part of its standard error.
void take_pool(StudyEstimate& estimate, const ChainDraw& draw, const EstimatePool& pool,
               const DrawFrame& frame, int runs);
