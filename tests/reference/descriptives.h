// Descriptive measures of one network: distributions, shortest paths, clustering, components.
#pragma once

#include "plain_digraph.h"
#include "plain_graph.h"

#include <vector>

namespace reference {

// Length written for a pair without a path.
inline constexpr int unreachable = 9999;

double density(const PlainGraph& graph);
double density(const PlainDigraph& digraph);
double mean_degree(const PlainGraph& graph);
double mean_degree(const PlainDigraph& digraph);

// Histograms over actors, indexed by degree; n entries.
std::vector<int> degree_distribution(const PlainGraph& graph);
std::vector<int> in_degree_distribution(const PlainDigraph& digraph);
std::vector<int> out_degree_distribution(const PlainDigraph& digraph);

// Histogram over unordered dyads of their common neighbours; n - 1 entries.
std::vector<int> two_path_distribution(const PlainGraph& graph);

// Histogram over actors of the triangles through them; (n - 1)(n - 2) / 2 + 1 entries.
std::vector<int> triangle_distribution(const PlainGraph& graph);

// Shortest-path lengths, 0 on the diagonal.
IntTable geodesics(const PlainGraph& graph);
IntTable geodesics(const PlainDigraph& digraph);

// Entry d - 1 counts pairs at distance d, entry n - 1 those without a path. Unordered pairs of a
// graph, ordered pairs of a digraph.
std::vector<int> geodesic_distribution(const PlainGraph& graph);
std::vector<int> geodesic_distribution(const PlainDigraph& digraph);

// k quantiles of the distances in such a distribution, a pair without a path counting as n. All 0
// for a distribution without any pair.
std::vector<int> geodesic_quartiles(const std::vector<int>& distribution, int k = 4);

// Share of tied pairs among the neighbours of each actor; 0 for fewer than two neighbours.
std::vector<double> local_clustering(const PlainGraph& graph);

// Their sum over the number of actors with two neighbours and more; 0 when there is none.
double mean_local_clustering(const PlainGraph& graph);

// Three times the triangles over the 2-stars; 0 without 2-stars.
double global_clustering(const PlainGraph& graph);

// Actors in the largest component; 1 for a network without actors.
int largest_component(const PlainGraph& graph);

// Clustering of a digraph: transitive triads over out-stars, in-stars and paths, cyclic triads
// over paths, and the weighted shares of connected pairs that are joined by an arc. Each is 0 when
// its denominator is 0.
struct DirectedClustering {
    double cto = 0.0;
    double cti = 0.0;
    double ctm = 0.0;
    double ccm = 0.0;
    double akc_t = 0.0;
    double akc_d = 0.0;
    double akc_u = 0.0;
    double akc_c = 0.0;
};

DirectedClustering directed_clustering(const PlainDigraph& digraph, float lambda = 2.0F);

}  // namespace reference
