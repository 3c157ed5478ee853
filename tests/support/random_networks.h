// Undirected networks and attribute values drawn for tests: the same seed gives the same ones on
// every platform.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "network/graph.h"
#include "reference/attributes.h"
#include "reference/plain_graph.h"

using TestRandom = std::mt19937;

// 0 .. n - 1, and a number in [0, 1).
int draw_below(TestRandom& random, int n);
double draw_unit(TestRandom& random);

// Each dyad tied with the given probability; 0 gives the empty and 1 the complete network.
reference::PlainGraph random_graph(TestRandom& random, int n, double density);

// Networks of every size from `smallest` to `largest` at seven densities from empty to complete;
// `effort` is how many of each there are at the largest sizes, small ones come in larger numbers.
std::vector<reference::PlainGraph> graphs_of_all_densities(std::uint32_t seed, int smallest,
                                                           int largest, int effort);

// Sparse networks whose actors fill more than one 64-bit word of a row, with a clique planted
// across each word boundary.
std::vector<reference::PlainGraph> graphs_across_words(std::uint32_t seed);

// The engine's record of a network, built tie by tie.
Graph engine_graph(const reference::PlainGraph& plain, int statistic_count = 0,
                   int clique_depth = 0);

// The same, brought into the state in which the dyad is evaluated; returns what `adding` is there.
struct EngineState {
    Graph graph;
    int adding = 1;
};
EngineState engine_state(const reference::PlainGraph& plain, int i, int j, reference::Stage stage,
                         int clique_depth = 0);

// One value per actor out of the given ones.
std::vector<int> random_codes(TestRandom& random, int n, const std::vector<int>& values);
std::vector<float> random_reals(TestRandom& random, int n, const std::vector<float>& values);

// n x n cells out of the given values; not symmetric.
reference::FloatTable random_pair_table(TestRandom& random, int n,
                                        const std::vector<float>& values);
