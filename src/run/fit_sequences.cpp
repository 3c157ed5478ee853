#include <algorithm>

#include "base/conversions.h"
#include "base/matrix_file.h"
#include "fit/parameter_draws.h"
#include "report/fit_report.h"
#include "report/statistics_report.h"
#include "report/syntax_file.h"
#include "run/run_context.h"

namespace {

// A network with the observed ties, prepared and reported as the start of a fit.
template <class Network>
Network start_network(RunContext& run, const AssembledModel<Network>& model) {
    Network network = read_observed<Network>(run, model.size());
    prepare_network(network, model.active);
    report_statistics(network, run.selection, run.paths.start_statistics);
    return network;
}

// Burns in and tests; `network` moves on, `observed` stays.
template <class Network>
void burn_in_and_fit(RunContext& run, Chain<Network>& chain, Network& observed, double burn_in,
                     double proposals, int interval) {
    progress_start(run.progress, RunStage::burn_in, burn_in);
    burn_in_run(chain, burn_in, run.progress);
    refresh_descriptives(chain.network);
    const OutputContext outputs = run.outputs();
    write_fit_head(outputs, chain.parameters, proposals, interval);
    const FitSampleFiles<Network> files(outputs, chain.network, interval);
    write_fit_report(outputs, goodness_of_fit(chain, observed, run.selection, proposals, interval,
                                              run.progress, files));
}

// Spreads each draw over the places of the full vector that are not exactly 0.0, in order; what
// does not fit has no effect.
Matrix spread_draws(const Matrix& draws, const std::vector<double>& full) {
    std::vector<int> places;
    for (std::size_t place = 0; place < full.size(); ++place) {
        if (full[place] != 0.0) {
            places.push_back(static_cast<int>(place));
        }
    }
    const int count = std::min(draws.columns, static_cast<int>(places.size()));
    Matrix sets = matrix_create(draws.rows, static_cast<int>(full.size()), 0.0);
    for (int row = 0; row < draws.rows; ++row) {
        for (int k = 0; k < count; ++k) {
            sets[row][places[static_cast<std::size_t>(k)]] = draws[row][k];
        }
    }
    return sets;
}

}  // namespace

template <class Network>
void fit_after_estimation(RunContext& run, const std::optional<BitMatrix>& free_dyads) {
    if (kDirected<Network>) {
        TextWriter(run.options.console).text("gof!");
    }
    assign_full_model(run.selection);
    write_syntax(run.selection, run.paths.simulation, run.paths.sim);
    const AssembledModel<Network> model(run.selection);
    Network network = start_network<Network>(run, model);
    Network observed = network;
    // Run lengths by density d and size n, with floors for small networks.
    const double d = network_density(observed);
    const double n = observed.vertices;
    const double factor = run.settings.estimation.multiplication_factor;
    double burn_in = d * n * n;
    if (burn_in < 100000.0) {
        burn_in = 100000.0;
    }
    double proposals = d * (1000.0 * factor) * (1.0 - d) * n * n;
    if (proposals < 1000000.0) {
        proposals = 1000000.0;
    }
    const int interval = truncate_to_int(proposals / 1000.0);
    Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
    burn_in_and_fit(run, chain, observed, burn_in, proposals, interval);
    report_statistics(network, run.selection, run.paths.end_statistics);
}

template <class Network>
void fit_sequence(RunContext& run) {
    const RunSettings& settings = run.settings;
    read_attribute_files(run);
    write_syntax(run.selection, run.paths.simulation, run.paths.sim);
    const AssembledModel<Network> model(run.selection);
    const int interval = truncate_to_int(settings.iterations / settings.sample_count);
    Network network = start_network<Network>(run, model);
    Network observed = network;
    const std::optional<BitMatrix> free_dyads = read_free_dyads<Network>(run);
    Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
    burn_in_and_fit(run, chain, observed, settings.burn_in, settings.iterations, interval);
    // A directed fit writes no end report.
    if (!kDirected<Network>) {
        report_statistics(network, run.selection, run.paths.end_statistics);
    }
}

template <class Network>
void bayesian_fit_sequence(RunContext& run) {
    const RunSettings& settings = run.settings;
    read_attribute_files(run);
    const std::vector<double> means = assemble_parameters(run.selection);
    const Matrix covariance = matrix_read(settings.covariance_path, static_cast<int>(means.size()));
    const Matrix draws = draw_parameters(means, covariance, settings.sample_count, run.random);
    assign_full_model(run.selection);
    write_syntax(run.selection, run.paths.simulation, run.paths.sim);
    const AssembledModel<Network> model(run.selection);
    const Matrix sets = spread_draws(draws, model.parameters);
    Network network = start_network<Network>(run, model);
    Network observed = network;
    const std::optional<BitMatrix> free_dyads = read_free_dyads<Network>(run);
    Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
    const OutputContext outputs = run.outputs();
    write_bayesian_fit_head(outputs, settings.sample_count, settings.burn_in);
    const FitSampleFiles<Network> files(outputs, network, std::nullopt);
    write_bayesian_fit_report(
        outputs, bayesian_goodness_of_fit(chain, observed, run.selection, sets, settings.burn_in,
                                          run.progress, files));
    report_statistics(network, run.selection, run.paths.end_statistics);
}

template void fit_after_estimation<Graph>(RunContext&, const std::optional<BitMatrix>&);
template void fit_after_estimation<Digraph>(RunContext&, const std::optional<BitMatrix>&);
template void fit_sequence<Graph>(RunContext&);
template void fit_sequence<Digraph>(RunContext&);
template void bayesian_fit_sequence<Graph>(RunContext&);
template void bayesian_fit_sequence<Digraph>(RunContext&);
