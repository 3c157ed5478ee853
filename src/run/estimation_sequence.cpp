#include <cmath>

#include "estimation/estimator.h"
#include "estimation/update_files.h"
#include "report/change_dump.h"
#include "report/statistics_report.h"
#include "run/run_context.h"

namespace {

void write_log_head(const RunContext& run) {
    const EstimationSettings& settings = run.settings.estimation;
    TextWriter log = writer_append(run.paths.estimation);
    log.text("STOCHASTIC ESTIMATION FOR NETWORK " + run.settings.network_name + "\n");
    log.text("ESTIMATION SETTINGS\n");
    log.print("Number of sub-phases in estimation (phase 2) = %d\n", settings.sub_phases);
    log.print("starting a-value in estimation (phase 2) = %f\n",
              static_cast<double>(settings.a_value));
    log.print("Multiplication factor for estimation (phase 2) = %d\n",
              settings.multiplication_factor);
    log.print("Number of steps in final simulation (phase 3) = %d\n", settings.phase3_steps);
    log.print("Number of estimation runs = %d\n\n", settings.estimation_runs);
}

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

// Runs until one converges, each from the observed network and from the parameters and the scaling
// matrix that the run before left behind.
template <class Network>
int estimation_runs(RunContext& run, Network& network, AssembledModel<Network>& model,
                    const std::optional<Network>& free_dyads) {
    Network observed = network;
    Matrix scaling_matrix = matrix_create(model.size(), model.size(), 0.0);
    int converged = 0;
    for (int number = 1; number <= run.settings.estimation.estimation_runs && converged == 0;
         ++number) {
        writer_append(run.paths.estimation).print("STOCHASTIC APPROXIMATION RUN %d\n\n", number);
        Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
        converged = estimate(chain, run.setting(), run.settings.estimation, model.parameters,
                             scaling_matrix);
        copy_network(observed, network);
        writer_append(run.paths.estimation).text("\n\n");
        if (converged == 1) {
            write_dump(run, observed, model);
        }
    }
    return converged;
}

}  // namespace

template <class Network>
void estimation_sequence(RunContext& run) {
    read_attribute_files(run);
    AssembledModel<Network> model(run.selection);
    const std::optional<Network> free_dyads = read_free_dyads<Network>(run);
    int converged = 0;
    {
        Network network = read_observed<Network>(run, model.size());
        start_at_density(run, network, model.parameters);
        write_log_head(run);
        prepare_network(network, model.active);
        report_statistics(network, run.selection, run.paths.start_statistics);
        converged = estimation_runs(run, network, model, free_dyads);
        store_parameters(run.selection, model.parameters);
    }
    write_update_files(run.selection, run.paths);
    if (run.settings.gof_after_estimation == 1 && converged == 1) {
        fit_after_estimation<Network>(run, free_dyads);
    }
}

template void estimation_sequence<Graph>(RunContext&);
template void estimation_sequence<Digraph>(RunContext&);
