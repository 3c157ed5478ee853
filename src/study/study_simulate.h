// Networks drawn from a study's model by its Metropolis chain.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/host_options.h"
#include "study/study_selection.h"

struct StudySample {
    int number = 0;  // from 0
    // Counted anew, in the order of the study's effects.
    std::vector<double> statistics;
    std::vector<ActorTie> ties;  // ascending
};

struct StudySimulation {
    std::vector<double> observed;  // statistics of the study's own network
    std::int64_t burn_in = 0;      // proposals made, where the settings left the choice
    std::int64_t interval = 0;
    double proposals = 0.0;  // in all
    int samples = 0;
};

// Draws `sampling.samples` networks at `parameters` (one an effect, in the study's order), starting
// from the study's network, and hands each to `visit`. Without a word on them the interval is 30
// times d (1 - d) n^2 proposals (d the observed density), at least one per dyad that may change or
// 10000, whichever is less, and the burn-in ten intervals. The same seed gives the same networks.
// Throws RunStopped when `progress` asks for the end.
StudySimulation study_simulate(const Study& study, StudySelection& resolved,
                               const std::vector<double>& parameters, const StudySampling& sampling,
                               std::uint32_t seed, RunProgress& progress,
                               const std::function<void(const StudySample&)>& visit);
