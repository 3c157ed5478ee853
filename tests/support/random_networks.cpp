#include "support/random_networks.h"

#include <algorithm>

using reference::PlainGraph;

int draw_below(TestRandom& random, int n) {
    return static_cast<int>(random() % static_cast<std::uint32_t>(n));
}

double draw_unit(TestRandom& random) { return static_cast<double>(random()) / 4294967296.0; }

PlainGraph random_graph(TestRandom& random, int n, double density) {
    PlainGraph graph = reference::empty_graph(n);
    for (int a = 0; a < n; ++a) {
        for (int b = a + 1; b < n; ++b) {
            if (draw_unit(random) < density) {
                reference::cell(graph.tie, a, b) = 1;
                reference::cell(graph.tie, b, a) = 1;
            }
        }
    }
    return graph;
}

std::vector<PlainGraph> graphs_of_all_densities(std::uint32_t seed, int smallest, int largest,
                                                int effort) {
    TestRandom random(seed);
    std::vector<PlainGraph> graphs;
    for (int n = smallest; n <= largest; ++n) {
        // Dyads grow with the square of n, so their total stays of one order over the sizes.
        const int repeats = effort * std::max(1, 140 / (n * n));
        for (const double density : {0.0, 0.1, 0.25, 0.5, 0.75, 0.9, 1.0}) {
            const bool fixed = density == 0.0 || density == 1.0;
            for (int repeat = 0; repeat < (fixed ? 1 : repeats); ++repeat) {
                graphs.push_back(random_graph(random, n, density));
            }
        }
    }
    return graphs;
}

std::vector<PlainGraph> graphs_across_words(std::uint32_t seed) {
    TestRandom random(seed);
    std::vector<PlainGraph> graphs;
    for (const int n : {64, 65, 70, 130}) {
        PlainGraph graph = random_graph(random, n, 4.0 / n);
        for (int boundary = 64; boundary < n; boundary += 64) {
            for (int a = boundary - 3; a < std::min(n, boundary + 2); ++a) {
                for (int b = boundary - 3; b < std::min(n, boundary + 2); ++b) {
                    reference::cell(graph.tie, a, b) = a != b ? 1 : 0;
                }
            }
        }
        graphs.push_back(graph);
    }
    return graphs;
}

Graph engine_graph(const PlainGraph& plain, int statistic_count, int clique_depth) {
    Graph graph = graph_create(plain.n, statistic_count, clique_depth);
    for (int a = 0; a < plain.n; ++a) {
        for (int b = a + 1; b < plain.n; ++b) {
            if (reference::tied(plain, a, b)) {
                graph_add_tie(graph, a, b);
            }
        }
    }
    return graph;
}

EngineState engine_state(const PlainGraph& plain, int i, int j, reference::Stage stage,
                         int clique_depth) {
    using reference::Stage;
    switch (stage) {
        case Stage::addition:
            return {engine_graph(reference::without_tie(plain, i, j), 0, clique_depth), 1};
        case Stage::deletion: {
            EngineState state{engine_graph(reference::with_tie(plain, i, j), 0, clique_depth), 0};
            graph_remove_edge(state.graph, i, j);
            return state;
        }
        case Stage::as_it_stands:
            break;
    }
    return {engine_graph(plain, 0, clique_depth), reference::tied(plain, i, j) ? 0 : 1};
}

std::vector<int> random_codes(TestRandom& random, int n, const std::vector<int>& values) {
    std::vector<int> codes;
    for (int actor = 0; actor < n; ++actor) {
        codes.push_back(
            reference::item(values, draw_below(random, static_cast<int>(values.size()))));
    }
    return codes;
}

std::vector<float> random_reals(TestRandom& random, int n, const std::vector<float>& values) {
    std::vector<float> reals;
    for (int actor = 0; actor < n; ++actor) {
        reals.push_back(
            reference::item(values, draw_below(random, static_cast<int>(values.size()))));
    }
    return reals;
}

reference::FloatTable random_pair_table(TestRandom& random, int n,
                                        const std::vector<float>& values) {
    reference::FloatTable table;
    for (int row = 0; row < n; ++row) {
        table.push_back(random_reals(random, n, values));
    }
    return table;
}
