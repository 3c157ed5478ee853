// One directed network over a fixed set of actors: the directed twin of Graph.
//
// The same two-step contract holds: digraph_add_arc and digraph_remove_arc change bits, degrees and
// mutual counts at once, digraph_update_two_paths brings the three two-path tables up to date
// afterwards. While a deletion is evaluated those tables still count the arc.
#pragma once

#include <vector>

#include "base/table.h"
#include "network/bit_rows.h"
#include "network/neighbour_lists.h"

struct Digraph {
    int vertices = 0;
    int arcs = 0;
    // Dyads with arcs both ways.
    int mutual_dyads = 0;
    // Bit (i, j) is the arc i to j; the diagonal stays clear. `adjacency_in` is its transpose: row
    // j holds the senders of arcs to j.
    BitMatrix adjacency;
    BitMatrix adjacency_in;
    // The rows of the two as sorted lists where they are short.
    NeighbourLists receivers;
    NeighbourLists senders;
    std::vector<int> in_degree;
    std::vector<int> out_degree;
    // Mutual dyads of each actor.
    std::vector<int> mutual_degree;
    std::vector<int> in_degree_distribution;
    std::vector<int> out_degree_distribution;
    // Over ordered pairs, as in Graph; a snapshot.
    std::vector<int> geodesic_distribution;
    // [a][b] = number of x with a to x and b to x; symmetric.
    CountTable shared_receivers;
    // [a][b] = number of x with x to a and x to b; symmetric.
    CountTable shared_senders;
    // [a][b] = number of x with a to x and x to b; not symmetric.
    CountTable two_paths;
    // Bit (a, b): the cell [a][b] of the table is not 0; the last one is the transpose of its
    // neighbour.
    BitMatrix any_shared_receivers;
    BitMatrix any_shared_senders;
    BitMatrix any_two_paths;
    BitMatrix any_two_paths_in;
    // One entry per selected effect, in model order; carried by the samplers.
    std::vector<double> statistics;
    // One cell per triad class, 300 first; a snapshot.
    std::vector<double> triad_census;
};

// An empty network. Sizes below zero count as zero.
Digraph digraph_create(int vertices, int statistic_count);

inline bool digraph_has_arc(const Digraph& digraph, int i, int j) {
    return digraph.adjacency.has(i, j);
}

// First half of a toggle. No-ops on an arc that is there already, or is not there.
void digraph_add_arc(Digraph& digraph, int i, int j);
void digraph_remove_arc(Digraph& digraph, int i, int j);

// Second half, after digraph_add_arc (adding = 1) or digraph_remove_arc (adding = 0) of the same
// arc.
void digraph_update_two_paths(Digraph& digraph, int i, int j, int adding);

// Brings the tables of the second half up to date from the arcs alone, whatever they held; see
// graph_count_two_paths.
void digraph_count_two_paths(Digraph& digraph);

// Both halves of an addition.
void digraph_add_tie(Digraph& digraph, int i, int j);

// Copies everything but `vertices`; both records have the same n.
void digraph_copy(const Digraph& source, Digraph& target);

// arcs / n / (n - 1), in double.
double network_density(const Digraph& digraph);
