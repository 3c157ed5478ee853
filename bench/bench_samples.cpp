// What one sample costs beside the chain, at 500 actors: refreshing the descriptive measures and
// recounting what toggles do not carry; and the same with every switched-on row formatted and
// written to nowhere.
#include "bench_support.h"
#include "measures/clustering.h"
#include "measures/descriptives.h"
#include "report/sample_tables.h"

namespace {

constexpr int kActors = 500;
constexpr OutputSwitches kAllButGraphs = {false, true, true, true, true, true, true};

void measure_graph(benchmark::State& state, bool rows) {
    const BenchModel<Graph> model(structural_selection(
        NetworkKind::undirected, kActors, {{"edge", 1.0}, {"0ET", 0.0}, {"ETNT", 0.0}}));
    Graph graph = random_graph(kActors, 6, model.size(), 0);
    compute_statistics(graph, model.active);
    const OutputPaths paths = discarded_outputs();
    for (auto iteration : state) {
        (void)iteration;
        refresh_descriptives(graph);
        recount_uncarried(graph, model.selection);
        if (rows) {
            write_sample_row(model.selection, graph.statistics, 1.0, paths.simulation);
            write_distribution_rows(graph, model.selection, kAllButGraphs, paths);
        }
    }
    state.counters["checksum"] = graph.statistics[1] + graph.statistics[2] +
                                 static_cast<double>(graph.largest_component) +
                                 mean_local_clustering(graph);
}

void measure_digraph(benchmark::State& state, bool rows) {
    const BenchModel<Digraph> model(
        structural_selection(NetworkKind::directed, kActors, {{"arc", 1.0}}));
    Digraph digraph = random_digraph(kActors, 3, model.size());
    compute_statistics(digraph, model.active);
    const OutputPaths paths = discarded_outputs();
    for (auto iteration : state) {
        (void)iteration;
        refresh_descriptives(digraph);
        if (rows) {
            write_sample_row(model.selection, digraph.statistics, 1.0, paths.simulation);
            write_distribution_rows(digraph, model.selection, kAllButGraphs, paths);
        }
    }
    state.counters["checksum"] = digraph.triad_census[15] + digraph.geodesic_distribution[2];
}

void add(const char* name, void (*measure)(benchmark::State&, bool), bool rows) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        measure(state, rows);
    })->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
    add("undirected/measures", measure_graph, false);
    add("undirected/measures_and_rows", measure_graph, true);
    add("directed/measures", measure_digraph, false);
    add("directed/measures_and_rows", measure_digraph, true);
    return run_benchmarks(argc, argv);
}
