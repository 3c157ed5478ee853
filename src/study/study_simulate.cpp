#include "study/study_simulate.h"

#include <algorithm>
#include <cmath>

#include "base/random_stream.h"
#include "study/study_chain.h"
#include "study/study_chains.h"

namespace {

std::int64_t chosen_interval(double dyads, double step) {
    constexpr double kEnoughProposals = 10000.0;
    return static_cast<std::int64_t>(
        std::ceil(std::max({step, std::min(dyads, kEnoughProposals), 1.0})));
}

// A simulation at the study's own network, with the proposals that it will take.
template <class Network>
StudySimulation planned(const Study& study, StudyChain<Network>& run,
                        const StudySampling& sampling) {
    constexpr double kMultiplication = 30.0;
    constexpr std::int64_t kBurnInIntervals = 10;
    Network& network = run.network();
    StudySimulation simulation;
    simulation.observed = run.by_effect(network.statistics.data());
    simulation.interval = sampling.interval > 0
                              ? sampling.interval
                              : chosen_interval(dyads_in(study.network),
                                                proposals_per_step(network, kMultiplication));
    simulation.burn_in =
        sampling.burn_in > 0 ? sampling.burn_in : kBurnInIntervals * simulation.interval;
    return simulation;
}

template <class Network>
StudySimulation simulate(const Study& study, const StudySelection& resolved,
                         std::vector<double> placed, const StudySampling& sampling,
                         std::uint32_t seed, RunProgress& progress,
                         const std::function<void(const StudySample&)>& visit) {
    StudyChain<Network> run(study, resolved, std::move(placed), seed);
    Network& network = run.network();
    StudySimulation simulation = planned(study, run, sampling);
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

template <class Network>
StudySimulation simulate_part(const Study& study, const StudySelection& resolved,
                              const std::vector<double>& parameters, const StudySampling& sampling,
                              std::uint32_t seed, const WorkPart& part, RunProgress& progress,
                              const std::function<void(const StudySample&)>& visit) {
    constexpr std::uint64_t kStreams = 0x73696D756C617465U;
    StudyChain<Network> counter(study, resolved, study_parameters(study, resolved), seed);
    StudySimulation simulation = planned(study, counter, sampling);
    RandomStream seeds(seed ^ kStreams, static_cast<std::uint64_t>(part.number));
    StudyChains chain(study, resolved, seeds.bits(), 1, 1);
    const auto interval = static_cast<double>(simulation.interval);
    progress_start(progress, RunStage::simulation,
                   static_cast<double>(simulation.burn_in) + interval * part.count);
    const ChainSamples drawn =
        chain.run(parameters, simulation.burn_in, simulation.interval, part.count, progress,
                  [&](int, int draw, const SampledNetwork& network) {
                      const std::vector<ActorTie> ties = ties_of(network);
                      counter.take_network(ties);
                      visit({part.first + draw,
                             counter.by_effect(counter.network().statistics.data()), ties});
                  });
    simulation.samples = part.count;
    simulation.proposals = drawn.proposals;
    return simulation;
}

}  // namespace

StudySimulation study_simulate(const Study& study, const StudySelection& resolved,
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

StudySimulation study_simulate_part(const Study& study, const StudySelection& resolved,
                                    const std::vector<double>& parameters,
                                    const StudySampling& sampling, std::uint32_t seed,
                                    const WorkPart& part, RunProgress& progress,
                                    const std::function<void(const StudySample&)>& visit) {
    return study.network.directed ? simulate_part<Digraph>(study, resolved, parameters, sampling,
                                                           seed, part, progress, visit)
                                  : simulate_part<Graph>(study, resolved, parameters, sampling,
                                                         seed, part, progress, visit);
}
