// Stochastic approximation by several chains (Robbins and Monro 1951, Annals of Mathematical
// Statistics 22; Snijders 2002, Journal of Social Structure 3), where Newton steps lead astray.
#pragma once

#include <vector>

#include "study/chain_draw.h"
#include "study/study_chains.h"
#include "study/study_estimate.h"

// The parameters (p of them) to which four sub-phases of decreasing gain lead from the draw's: its
// covariance scales the steps, and the mean of each sub-phase is where the next begins. The chains
// go on from where they stand. Adds what was proposed, and each step, to the estimate. Throws
// RunStopped when `progress` asks for the end.
std::vector<double> approximated_point(const ChainDraw& from, const DrawFrame& frame,
                                       StudyChains& chains, StudyEstimate& estimate,
                                       RunProgress& progress);

// The parameters moved by `step`, which has a number for each estimated effect.
std::vector<double> moved(std::vector<double> parameters, const DrawFrame& frame,
                          const std::vector<double>& step);
