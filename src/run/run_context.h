// What the steps of one run share. It lives as long as the run.
#pragma once

#include <optional>
#include <vector>

#include "base/host_options.h"
#include "effects/cliques.h"
#include "effects/evaluation.h"
#include "measures/descriptives.h"
#include "network/network_verbs.h"
#include "report/output_context.h"
#include "run/setup_file.h"

struct RunContext {
    const HostOptions& options;
    const RunSettings& settings;
    EffectSelection& selection;
    OutputPaths paths;
    RandomSource random;
    RunProgress& progress;

    OutputContext outputs() const { return {selection, paths, settings.switches, options.console}; }
};

// Reads the attribute files and covariates that the selection counts.
void read_attribute_files(RunContext& run);

// A copy of the selection's model: parameters in model order and the active effects.
template <class Network>
struct AssembledModel {
    std::vector<double> parameters;
    ActiveModel<Network> active;

    explicit AssembledModel(EffectSelection& selection)
        : parameters(assemble_parameters(selection)), active(active_model<Network>(selection)) {}
    int size() const { return static_cast<int>(parameters.size()); }
};

// The observed network with the tables of this model.
template <class Network>
Network read_observed(const RunContext& run, int p) {
    return read_network<Network>(run.settings.network_path, run.settings.actor_count, p,
                                 clique_depth(run.selection));
}

// The dyads that may be proposed, when the settings name a file of them.
template <class Network>
std::optional<BitMatrix> read_free_dyads(const RunContext& run) {
    if (run.settings.free_dyads_flag != 1) {
        return std::nullopt;
    }
    return read_dyads<Network>(run.settings.free_dyads_path, run.settings.actor_count);
}

// Snapshots and whole-network statistics of a network.
template <class Network>
void prepare_network(Network& network, const ActiveModel<Network>& model) {
    refresh_descriptives(network);
    if constexpr (!kDirected<Network>) {
        graph_count_cliques(network);
    }
    compute_statistics(network, model);
}

template <class Network>
Chain<Network> make_chain(RunContext& run, Network& network, const ActiveModel<Network>& model,
                          const std::vector<double>& parameters,
                          const std::optional<BitMatrix>& free_dyads) {
    Chain<Network> chain{network, model, parameters.data(), run.random};
    chain.free_dyads = free_dyads ? &*free_dyads : nullptr;
    chain.proposal_kind = run.settings.proposal_kind;
    chain.max_degree = run.settings.max_degree;
    chain_prepare(chain);
    return chain;
}

// The sequences of the four modes.
template <class Network>
void simulation_sequence(RunContext& run);
template <class Network>
void estimation_sequence(RunContext& run);
template <class Network>
void fit_sequence(RunContext& run);
template <class Network>
void bayesian_fit_sequence(RunContext& run);

// The fit on the full model that may follow a converged estimation.
template <class Network>
void fit_after_estimation(RunContext& run, const std::optional<BitMatrix>& free_dyads);
