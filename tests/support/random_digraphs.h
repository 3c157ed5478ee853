// Random directed networks, as the plain matrix and as the engine's record.
#pragma once

#include <random>
#include <vector>

#include "network/digraph.h"
#include "reference/plain_digraph.h"

// Each arc is there with the probability `density`.
reference::PlainDigraph random_digraph(int n, double density, std::mt19937& random);

// One network per size and density, from empty to complete.
std::vector<reference::PlainDigraph> random_digraphs(int smallest, int largest, unsigned seed);

// All networks on three actors, 64 of them.
std::vector<reference::PlainDigraph> all_digraphs_of_three();

// The same network as a record, with all its tables.
Digraph engine_digraph(const reference::PlainDigraph& plain, int statistic_count = 0);

// Brings the record into the state in which a sampler evaluates the arc i to j: for an addition
// the arc is nowhere, for a deletion it is still counted by the two-path tables.
void stage_evaluation(Digraph& digraph, int i, int j, reference::Stage stage);

// Calls visit(i, j) for every ordered pair of different actors.
template <class Visit>
void for_each_ordered_pair(int n, Visit visit) {
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            if (i != j) {
                visit(i, j);
            }
        }
    }
}
