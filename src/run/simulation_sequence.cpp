#include "base/conversions.h"
#include "report/statistics_report.h"
#include "report/syntax_file.h"
#include "run/run_context.h"
#include "run/simulation_run.h"

namespace {

// A random start network. Its ties are n (n - 1) x density in single precision, for a graph halved,
// and truncated.
template <class Network>
Network random_network(RunContext& run, int p) {
    const int n = run.settings.actor_count;
    const float ties =
        static_cast<float>(wrapping_product(n, wrapping_sum(n, -1))) * run.settings.density;
    if constexpr (kDirected<Network>) {
        return digraph_random_with_arcs(n, truncate_to_int(static_cast<double>(ties)), p,
                                        run.random);
    } else {
        return graph_random_with_edges(n, truncate_to_int(static_cast<double>(ties) * 0.5), p,
                                       clique_depth(run.selection), run.random);
    }
}

}  // namespace

template <class Network>
void simulation_sequence(RunContext& run) {
    const RunSettings& settings = run.settings;
    read_attribute_files(run);
    write_syntax(run.selection, run.paths.simulation, run.paths.sim);
    const AssembledModel<Network> model(run.selection);
    const int sample_interval = truncate_to_int(settings.iterations / settings.sample_count);

    Network network = random_network<Network>(run, model.size());
    prepare_network(network, model.active);
    report_statistics(network, run.selection, run.paths.start_statistics);
    const std::optional<BitMatrix> free_dyads = read_free_dyads<Network>(run);

    Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
    progress_start(run.progress, RunStage::burn_in, settings.burn_in);
    burn_in_run(chain, settings.burn_in, run.progress);
    refresh_descriptives(network);
    simulation_run(chain, run.outputs(), run.progress, settings.iterations, sample_interval);
    report_statistics(network, run.selection, run.paths.end_statistics);
}

template void simulation_sequence<Graph>(RunContext&);
template void simulation_sequence<Digraph>(RunContext&);
