// What one proposal costs, by kind of proposal and size of model: a small model, the full model of
// a fit with the same three parameters (every other one exactly 0.0, so that its effect is
// evaluated on acceptance only), and the full model with every parameter at work.
#include <cmath>

#include "bench_models.h"

namespace {

constexpr int kActors = 100;

template <class Network>
void measure(benchmark::State& state, Network network, const EffectSelection& selection,
             int proposal_kind, bool every_parameter) {
    BenchModel<Network> model(selection);
    if (every_parameter) {
        for (double& parameter : model.parameters) {
            if (parameter == 0.0) {
                parameter = 1e-9;
            }
        }
    }
    RandomSource random = seeded_random();
    Chain<Network> chain{network, model.active, model.parameters.data(), random};
    chain.proposal_kind = proposal_kind;
    chain_prepare(chain);
    double accepted = 0.0;
    for (auto iteration : state) {
        (void)iteration;
        accepted += chain_step(chain);
    }
    state.counters["accepted"] = accepted / static_cast<double>(state.iterations());
    state.counters["checksum"] = checksum(network);
}

// The number of proposals is fixed, so that the checksum means something.
template <class Network>
void add(const std::string& name, const EffectSelection& selection, int proposal_kind,
         bool every_parameter, benchmark::IterationCount proposals) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        measure(state, start_network<Network>(kActors, selection), selection, proposal_kind,
                every_parameter);
    })->Iterations(proposals);
}

template <class Network>
void add_kind(const std::string& kind, const EffectSelection& small, int proposal_kind) {
    EffectSelection full = small;
    assign_full_model(full);
    add<Network>(kind + "/small_model", small, proposal_kind, false, 200000);
    add<Network>(kind + "/full_model", full, proposal_kind, false, 200000);
    add<Network>(kind + "/full_model_all_parameters", full, proposal_kind, true, 20000);
}

}  // namespace

int main(int argc, char** argv) {
    add_kind<Graph>("undirected_toggle", small_graph_model(kActors), 0);
    add_kind<Graph>("undirected_swap", small_graph_model(kActors), 1);
    add_kind<Digraph>("directed_toggle", small_digraph_model(kActors), 0);
    add_kind<Digraph>("directed_swap", small_digraph_model(kActors), 1);
    add_kind<Digraph>("directed_sender_swap", small_digraph_model(kActors), 2);
    return run_benchmarks(argc, argv);
}
