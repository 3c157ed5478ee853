#include <cmath>

#include "report/change_dump.h"
#include "report/estimation_log.h"
#include "report/statistics_report.h"
#include "report/update_files.h"
#include "run/run_context.h"

namespace {

// A tie effect that starts at exactly 0.0 starts at the log-odds of the observed density instead.
template <class Network>
void start_at_density(const RunContext& run, const Network& network,
                      std::vector<double>& parameters) {
    const int tie = kDirected<Network> ? digraph_effect::kArc : graph_effect::kEdge;
    const int position = run.selection.structural[static_cast<std::size_t>(tie)].position;
    if (position >= 0 && parameters[static_cast<std::size_t>(position)] == 0.0) {
        const double d = network_density(network);
        parameters[static_cast<std::size_t>(position)] = std::log(d / (1.0 - d));
    }
}

void write_dump(RunContext& run, Graph& observed, const AssembledModel<Graph>& model) {
    change_statistics_dump(observed, run.selection, model.active, model.parameters,
                           run.paths.change_statistics, run.paths.logodds);
}
// A directed estimation leaves no tables of change statistics.
void write_dump(RunContext&, Digraph&, const AssembledModel<Digraph>&) {}

// Estimates go back to the selection and, through the update files, to the host.
void hand_back(RunContext& run, const std::vector<double>& parameters) {
    store_parameters(run.selection, parameters);
    write_update_files(run.selection, run.paths);
}

// Runs until one converges, each from the observed network and from the parameters and the scaling
// matrix that the run before left behind. What a run has found is in its files before the next
// begins. True when one has converged.
template <class Network>
bool estimation_runs(RunContext& run, Network& network, AssembledModel<Network>& model,
                     const std::optional<BitMatrix>& free_dyads) {
    const EstimationSettings& settings = run.settings.estimation;
    const EstimationLog log(run.outputs());
    Network observed = network;
    Matrix scaling_matrix = matrix_create(model.size(), model.size(), 0.0);
    bool converged = false;
    for (int number = 1; number <= settings.estimation_runs && !converged; ++number) {
        write_estimation_run_head(number, run.paths.estimation);
        Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
        const EstimationResult found =
            estimate(chain, settings, model.parameters, scaling_matrix, run.progress, log);
        copy_network(observed, network);
        write_estimation_run_end(run.paths.estimation);
        converged = found.verdict == EstimationVerdict::converged;
        if (converged) {
            write_dump(run, observed, model);
        }
        hand_back(run, model.parameters);
    }
    return converged;
}

}  // namespace

template <class Network>
void estimation_sequence(RunContext& run) {
    read_attribute_files(run);
    AssembledModel<Network> model(run.selection);
    const std::optional<BitMatrix> free_dyads = read_free_dyads<Network>(run);
    bool converged = false;
    {
        Network network = read_observed<Network>(run, model.size());
        start_at_density(run, network, model.parameters);
        write_estimation_head(run.settings.estimation, run.settings.network_name,
                              run.paths.estimation);
        prepare_network(network, model.active);
        report_statistics(network, run.selection, run.paths.start_statistics);
        converged = estimation_runs(run, network, model, free_dyads);
    }
    if (run.settings.estimation.estimation_runs < 1) {
        hand_back(run, model.parameters);
    }
    if (run.settings.gof_after_estimation == 1 && converged) {
        fit_after_estimation<Network>(run, free_dyads);
    }
}

template void estimation_sequence<Graph>(RunContext&);
template void estimation_sequence<Digraph>(RunContext&);
