// Networks drawn from a study's model by its Metropolis chain.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "base/host_options.h"
#include "study/study_selection.h"
#include "study/work_part.h"

struct StudySample {
    int number = 0;  // from 0, of all that the run draws
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
StudySimulation study_simulate(const Study& study, const StudySelection& resolved,
                               const std::vector<double>& parameters, const StudySampling& sampling,
                               std::uint32_t seed, RunProgress& progress,
                               const std::function<void(const StudySample&)>& visit);

// Draws the samples of one part of such a run, by a chain and a stream of random numbers of its
// own: from the study's network, by tie/no-tie proposals, of which as many come before a sample and
// before the first as above. The networks follow the same distribution; they are others than those
// of a run that is not divided. (The random numbers of that run come round after 2^32, too few for
// many chains beside each other.)
StudySimulation study_simulate_part(const Study& study, const StudySelection& resolved,
                                    const std::vector<double>& parameters,
                                    const StudySampling& sampling, std::uint32_t seed,
                                    const WorkPart& part, RunProgress& progress,
                                    const std::function<void(const StudySample&)>& visit);
