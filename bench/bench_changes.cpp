// What one change statistic costs: nanoseconds per call, averaged over random dyads of a network of
// 200 actors, undirected at mean degree 6 and directed at mean out-degree 3. A tied dyad is taken
// out of bits and degrees first, as a sampler does it.
#include <array>

#include "bench_support.h"

namespace {

constexpr int kActors = 200;
constexpr std::size_t kDyads = 4096;

struct Dyad {
    int i;
    int j;
};

std::array<Dyad, kDyads> random_dyads() {
    RandomSource random = seeded_random();
    random_reseed(random);
    std::array<Dyad, kDyads> dyads{};
    for (Dyad& dyad : dyads) {
        dyad.i = random_below(random, kActors);
        do {
            dyad.j = random_below(random, kActors);
        } while (dyad.j == dyad.i);
    }
    return dyads;
}

bool tied(const Graph& graph, Dyad dyad) { return graph_has_edge(graph, dyad.i, dyad.j); }
bool tied(const Digraph& digraph, Dyad dyad) { return digraph_has_arc(digraph, dyad.i, dyad.j); }
void untie(Graph& graph, Dyad dyad) { graph_remove_edge(graph, dyad.i, dyad.j); }
void untie(Digraph& digraph, Dyad dyad) { digraph_remove_arc(digraph, dyad.i, dyad.j); }
void tie(Graph& graph, Dyad dyad) { graph_add_edge(graph, dyad.i, dyad.j); }
void tie(Digraph& digraph, Dyad dyad) { digraph_add_arc(digraph, dyad.i, dyad.j); }

template <class Network>
double evaluate(Network& network, const PartedModel<Network>& model, double* change, Dyad dyad) {
    if (!tied(network, dyad)) {
        return evaluate_weighted(network, model, change, dyad.i, dyad.j, 1);
    }
    untie(network, dyad);
    const double sum = evaluate_weighted(network, model, change, dyad.i, dyad.j, 0);
    tie(network, dyad);
    return sum;
}

// The checksum is the sum over all dyads.
template <class Network>
void measure(benchmark::State& state, Network network, const EffectSelection& selection) {
    const BenchModel<Network> model(selection);
    PartedModel<Network> parted;
    part_model(model.active, model.parameters.data(), parted);
    const std::array<Dyad, kDyads> dyads = random_dyads();
    std::vector<double> change(static_cast<std::size_t>(model.size()), 0.0);
    std::size_t next = 0;
    for (auto iteration : state) {
        (void)iteration;
        benchmark::DoNotOptimize(evaluate(network, parted, change.data(), dyads[next]));
        next = (next + 1) % kDyads;
    }
    double sum = 0.0;
    for (const Dyad dyad : dyads) {
        sum += evaluate(network, parted, change.data(), dyad);
    }
    state.counters["checksum"] = sum;
}

}  // namespace

int main(int argc, char** argv) {
    for_each_effect(NetworkKind::undirected, kActors,
                    [](const std::string& name, const EffectSelection& selection) {
                        benchmark::RegisterBenchmark(
                            ("undirected/" + name).c_str(), [selection](benchmark::State& state) {
                                measure(state, random_graph(kActors, 6, 1, clique_depth(selection)),
                                        selection);
                            });
                    });
    for_each_effect(NetworkKind::directed, kActors,
                    [](const std::string& name, const EffectSelection& selection) {
                        benchmark::RegisterBenchmark(
                            ("directed/" + name).c_str(), [selection](benchmark::State& state) {
                                measure(state, random_digraph(kActors, 3, 1), selection);
                            });
                    });
    return run_benchmarks(argc, argv);
}
