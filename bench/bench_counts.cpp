// What counting a whole network costs: every undirected statistic at 200 actors and mean degree 6,
// every directed one and the triad census at 500 actors and mean out-degree 3.
#include "bench_support.h"
#include "effects/cliques.h"
#include "measures/triad_census.h"

namespace {

constexpr int kActors = 200;
constexpr int kDirectedActors = 500;

void measure_graph(benchmark::State& state, const EffectSelection& selection) {
    const BenchModel<Graph> model(selection);
    Graph graph = random_graph(kActors, 6, model.size(), clique_depth(selection));
    for (auto iteration : state) {
        (void)iteration;
        graph_count_cliques(graph);
        compute_statistics(graph, model.active);
    }
    state.counters["checksum"] = graph.statistics[0];
}

void measure_digraph(benchmark::State& state, const EffectSelection& selection) {
    const BenchModel<Digraph> model(selection);
    Digraph digraph = random_digraph(kDirectedActors, 3, model.size());
    for (auto iteration : state) {
        (void)iteration;
        compute_statistics(digraph, model.active);
    }
    state.counters["checksum"] = digraph.statistics[0];
}

void measure_census(benchmark::State& state) {
    Digraph digraph = random_digraph(kDirectedActors, 3, 0);
    for (auto iteration : state) {
        (void)iteration;
        refresh_triad_census(digraph);
    }
    double sum = 0.0;
    for (std::size_t triad = 0; triad < digraph.triad_census.size(); ++triad) {
        sum += static_cast<double>(triad + 1) * digraph.triad_census[triad];
    }
    state.counters["checksum"] = sum;
}

}  // namespace

int main(int argc, char** argv) {
    for_each_effect(NetworkKind::undirected, kActors,
                    [](const std::string& name, const EffectSelection& selection) {
                        benchmark::RegisterBenchmark(("undirected/" + name).c_str(),
                                                     [selection](benchmark::State& state) {
                                                         measure_graph(state, selection);
                                                     })
                            ->Unit(benchmark::kMicrosecond);
                    });
    for_each_effect(NetworkKind::directed, kDirectedActors,
                    [](const std::string& name, const EffectSelection& selection) {
                        benchmark::RegisterBenchmark(("directed/" + name).c_str(),
                                                     [selection](benchmark::State& state) {
                                                         measure_digraph(state, selection);
                                                     })
                            ->Unit(benchmark::kMicrosecond);
                    });
    benchmark::RegisterBenchmark("directed/triad_census", measure_census)
        ->Unit(benchmark::kMicrosecond);
    return run_benchmarks(argc, argv);
}
