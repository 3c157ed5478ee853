// The three-parameter models on which proposals and whole fits are measured: parameters near those
// that keep a random start network at its density.
#pragma once

#include <cmath>
#include <type_traits>

#include "bench_support.h"
#include "effects/cliques.h"
#include "sampling/chain.h"

inline double log_odds(double mean_degree, int actors) {
    const double density = mean_degree / (actors - 1);
    return std::log(density / (1.0 - density));
}

inline EffectSelection small_graph_model(int actors) {
    return structural_selection(NetworkKind::undirected, actors,
                                {{"edge", log_odds(6.0, actors)}, {"AS", -0.01}, {"AT", 0.05}});
}

inline EffectSelection small_digraph_model(int actors) {
    return structural_selection(
        NetworkKind::directed, actors,
        {{"arc", log_odds(3.0, actors)}, {"reciprocity", 0.1}, {"AT-T", 0.05}});
}

// A random start network of the model's mean degree with its statistics counted.
template <class Network>
Network start_network(int actors, const EffectSelection& selection) {
    const BenchModel<Network> model(selection);
    if constexpr (std::is_same_v<Network, Graph>) {
        Graph graph = random_graph(actors, 6, model.size(), clique_depth(selection));
        graph_count_cliques(graph);
        compute_statistics(graph, model.active);
        return graph;
    } else {
        Digraph digraph = random_digraph(actors, 3, model.size());
        compute_statistics(digraph, model.active);
        return digraph;
    }
}
