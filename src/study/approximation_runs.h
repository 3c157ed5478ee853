// Runs of the engine's stochastic approximation over a study, until one converges.
#pragma once

#include <chrono>

#include "study/study_chain.h"
#include "study/study_estimate.h"

// Fills the estimate from the run with the smallest largest t-ratio; see study_estimate. `begin` is
// when the time limit began. Throws RunStopped when `progress` asks for the end; the estimate then
// holds the best run that had ended, if one had.
template <class Network>
void estimate_by_approximation(const Study& study, const StudySelection& resolved,
                               StudyChain<Network>& run,
                               std::chrono::steady_clock::time_point begin, RunProgress& progress,
                               StudyEstimate& estimate);
