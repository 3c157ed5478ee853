#include "report/statistics_report.h"
#include "report/syntax_file.h"
#include "run/run_context.h"

template <class Network>
void simulation_sequence(RunContext& run) {
    const RunSettings& settings = run.settings;
    read_attribute_files(run);
    write_syntax(run.selection, run.paths.simulation, run.paths.sim);
    const AssembledModel<Network> model(run.selection);
    const int sample_interval = truncate_to_int(settings.iterations / settings.sample_count);

    Network network = KindOf<Network>::random(
        settings.actor_count, KindOf<Network>::target_ties(settings.actor_count, settings.density),
        model.size(), clique_depth(run.selection), run.random);
    prepare_network(network, model.active);
    report_statistics(network, run.selection, run.paths.start_statistics);
    const std::optional<Network> free_dyads = read_free_dyads<Network>(run);

    Chain<Network> chain = make_chain(run, network, model.active, model.parameters, free_dyads);
    progress_start(run.progress, RunStage::burn_in, settings.burn_in);
    burn_in_run(chain, settings.burn_in, run.progress);
    KindOf<Network>::refresh(network);
    KindOf<Network>::simulate(chain, run.setting(), settings.iterations, sample_interval);
    report_statistics(network, run.selection, run.paths.end_statistics);
}

template void simulation_sequence<Graph>(RunContext&);
template void simulation_sequence<Digraph>(RunContext&);
