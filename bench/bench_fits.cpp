// What a whole fit costs: the full model at 100 actors with three parameters at work, 1,000,000
// proposals and 1,000 samples, report and distances included.
#include "bench_models.h"
#include "report/fit_report.h"

namespace {

constexpr int kActors = 100;
constexpr double kProposals = 1000000.0;
constexpr double kInterval = 1000.0;

template <class Network>
void measure(benchmark::State& state, EffectSelection selection) {
    assign_full_model(selection);
    const BenchModel<Network> model(std::move(selection));
    const OutputPaths paths = discarded_outputs();
    RunProgress progress;
    const OutputContext outputs{model.selection, paths, {}, nullptr};
    for (auto iteration : state) {
        (void)iteration;
        Network network = start_network<Network>(kActors, model.selection);
        Network observed = network;
        RandomSource random = seeded_random();
        Chain<Network> chain{network, model.active, model.parameters.data(), random};
        chain_prepare(chain);
        const FitSampleFiles<Network> files(outputs, network, kInterval);
        write_fit_report(outputs, goodness_of_fit(chain, observed, model.selection, kProposals,
                                                  kInterval, progress, files));
        state.counters["checksum"] = checksum(network);
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::RegisterBenchmark(
        "undirected_fit",
        [](benchmark::State& state) { measure<Graph>(state, small_graph_model(kActors)); })
        ->Unit(benchmark::kSecond)
        ->Iterations(1);
    benchmark::RegisterBenchmark(
        "directed_fit",
        [](benchmark::State& state) { measure<Digraph>(state, small_digraph_model(kActors)); })
        ->Unit(benchmark::kSecond)
        ->Iterations(1);
    return run_benchmarks(argc, argv);
}
