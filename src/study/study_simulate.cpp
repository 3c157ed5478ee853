#include "study/study_simulate.h"

#include <algorithm>
#include <cmath>

#include "study/study_chain.h"

namespace {

std::int64_t chosen_interval(double dyads, double step) {
    constexpr double kEnoughProposals = 10000.0;
    return static_cast<std::int64_t>(
        std::ceil(std::max({step, std::min(dyads, kEnoughProposals), 1.0})));
}

template <class Network>
StudySimulation simulate(const Study& study, const StudySelection& resolved,
                         std::vector<double> placed, const StudySampling& sampling,
                         std::uint32_t seed, RunProgress& progress,
                         const std::function<void(const StudySample&)>& visit) {
    constexpr double kMultiplication = 30.0;
    constexpr std::int64_t kBurnInIntervals = 10;
    StudyChain<Network> run(study, resolved, std::move(placed), seed);
    Network& network = run.network();
    const double n = network.vertices;
    StudySimulation simulation;
    simulation.observed = run.by_effect(network.statistics.data());
    simulation.interval = sampling.interval > 0
                              ? sampling.interval
                              : chosen_interval(n * (n - 1.0) / (kDirected<Network> ? 1.0 : 2.0),
                                                proposals_per_step(network, kMultiplication));
    simulation.burn_in =
        sampling.burn_in > 0 ? sampling.burn_in : kBurnInIntervals * simulation.interval;
    Chain<Network> chain = run.chain();
    progress_start(progress, RunStage::burn_in, static_cast<double>(simulation.burn_in));
    burn_in_run(chain, static_cast<double>(simulation.burn_in), progress);
    progress_start(progress, RunStage::simulation, sampling.samples);
    for (int number = 0; number < sampling.samples; ++number) {
        if (number > 0) {
            chain_run(chain, static_cast<double>(simulation.interval),
                      [&](double) { progress_check(progress); });
        }
        count_anew(network, run.model());
        visit({number, run.by_effect(network.statistics.data()), ties_of(network)});
        progress_work(progress, number + 1);
    }
    simulation.samples = sampling.samples;
    simulation.proposals =
        static_cast<double>(simulation.burn_in) +
        static_cast<double>(simulation.interval) * std::max(sampling.samples - 1, 0);
    return simulation;
}

}  // namespace

StudySimulation study_simulate(const Study& study, StudySelection& resolved,
                               const std::vector<double>& parameters, const StudySampling& sampling,
                               std::uint32_t seed, RunProgress& progress,
                               const std::function<void(const StudySample&)>& visit) {
    std::vector<double> placed = study_parameters(study, resolved);
    for (std::size_t k = 0; k < parameters.size(); ++k) {
        placed[static_cast<std::size_t>(resolved.places[k])] = parameters[k];
    }
    return study.network.directed ? simulate<Digraph>(study, resolved, std::move(placed), sampling,
                                                      seed, progress, visit)
                                  : simulate<Graph>(study, resolved, std::move(placed), sampling,
                                                    seed, progress, visit);
}
