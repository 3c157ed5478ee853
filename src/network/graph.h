// One undirected network over a fixed set of actors, with every table that lets a change statistic
// be computed without rescanning the network.
//
// A toggle has two halves, and samplers depend on the gap between them: graph_add_edge and
// graph_remove_edge change bits, degrees and the degree histogram at once; graph_update_two_paths,
// called afterwards, brings two-path counts, triangles and their histograms up to date. While a
// deletion is evaluated the tie is gone from bits and degrees but still counted by those tables; a
// rejected deletion puts the tie back and has never touched them.
//
// Actors are numbered from 0; there are no loops. These functions are the only code that writes the
// tables, with three exceptions of their own subsystems: descriptive snapshots (measures), clique
// tables and the ET terms (effects), `statistics` (sampling).
#pragma once

#include <vector>

#include "base/table.h"
#include "network/bit_rows.h"
#include "network/neighbour_lists.h"

struct Graph {
    int vertices = 0;
    int edges = 0;
    // Size of the largest connected component; a snapshot, unset until descriptives are refreshed.
    unsigned largest_component = 0;
    // Length of the clique tables: 8, 7, 6, 5, 4, or 0 when no clique effect is selected.
    int clique_depth = 0;

    BitMatrix adjacency;
    // The rows of `adjacency` as sorted lists where they are short.
    NeighbourLists neighbours;
    // [a][b] = common neighbours of a and b, symmetric, 0 on the diagonal.
    CountTable two_paths;
    // Bit (a, b): two_paths[a][b] is not 0. Most pairs of a sparse network have no common
    // neighbour, and 64 of them are told by one word.
    BitMatrix any_two_paths;
    // [d] = actors of degree d; n entries.
    std::vector<int> degree_distribution;
    std::vector<int> degree;
    // Per-actor terms of the 0ET and ETNT counts, as last counted, and their ratio as last
    // reported.
    std::vector<int> et0;
    std::vector<int> etnt;
    std::vector<double> etnt_ratio;
    // [c] = unordered dyads with c common neighbours; n - 1 entries.
    std::vector<int> two_path_distribution;
    // Triangles through each actor.
    std::vector<int> triangles;
    // [t] = actors with t triangles, up to the largest number there has been;
    // graph_triangle_histogram gives all the entries that the files show.
    std::vector<int> triangle_distribution;
    // Entry d - 1 counts unordered pairs at distance d, the last entry unreachable pairs; a
    // snapshot.
    std::vector<int> geodesic_distribution;
    // Local clustering coefficient of each actor; a snapshot.
    std::vector<double> clustering;
    // One entry per selected effect, in model order; carried by the samplers.
    std::vector<double> statistics;
    // Entry m = cliques of m + 1 actors in the network (m >= 2), and those that a dyad just
    // evaluated would complete.
    std::vector<double> clique_counts;
    std::vector<double> clique_changes;
    // Rows of working sets for functions that count inside neighbourhoods, so that a proposal
    // allocates nothing; what they hold means nothing between two calls. Because of them a Graph
    // cannot be evaluated by two threads at once.
    mutable std::vector<std::uint64_t> working_sets;
};

// Rows that `working_sets` holds.
constexpr int kWorkingSets = 8;

inline std::uint64_t* graph_working_set(const Graph& graph, int index) {
    return graph.working_sets.data() +
           static_cast<std::ptrdiff_t>(index) * graph.adjacency.words_per_row;
}

// An empty network: every table zero but the histograms' entries 0 (all actors, all dyads). Sizes
// below zero count as zero.
Graph graph_create(int vertices, int statistic_count, int clique_depth);

inline bool graph_has_edge(const Graph& graph, int i, int j) { return graph.adjacency.has(i, j); }

// First half of a toggle. No-ops on a tie that is there already, or is not there.
void graph_add_edge(Graph& graph, int i, int j);
void graph_remove_edge(Graph& graph, int i, int j);

// Second half, after graph_add_edge (adding = 1) or graph_remove_edge (adding = 0) of the same
// dyad. O(d_i + d_j), for actors without a list + n / 64.
void graph_update_two_paths(Graph& graph, int i, int j, int adding);

// Brings the tables of the second half up to date from the ties alone, whatever they held. O(n^2 +
// the sum of squared degrees): for whoever made many toggles without their second halves.
void graph_count_two_paths(Graph& graph);

// Both halves of an addition.
void graph_add_tie(Graph& graph, int i, int j);

// Copies everything but `vertices`; both records have the same n.
void graph_copy(const Graph& source, Graph& target);

// `triangle_distribution` with its zeros up to the most triangles that an actor may have:
// (n - 1)(n - 2) / 2 + 1 entries. Half of n^2 integers, so it is made for a file and not kept.
std::vector<int> graph_triangle_histogram(const Graph& graph);

// 2 x edges / (n (n - 1)), in double.
double network_density(const Graph& graph);
