// How far neighbours of an actor are tied to one another.
#pragma once

#include <vector>

#include "network/digraph.h"
#include "network/graph.h"

// Recomputes `clustering`, each actor's share of tied pairs of neighbours; a snapshot.
void refresh_local_clustering(Graph& graph);

// Sum of `clustering` as last refreshed over the actors of degree above 1 now; 0.0 without any.
double mean_local_clustering(const Graph& graph);

// 3 x triangles / two-stars of the network as it is now; 0.0 without a two-star.
double global_clustering(const Graph& graph);

// The eight clustering measures of a digraph: transitive triples over out-, in- and mixed
// two-stars, cycles over mixed two-stars, and the shares of (weighted) connected pairs that are
// tied, by the default lambda. 0.0 where the denominator is 0.
struct DirectedClustering {
    double cto;
    double cti;
    double ctm;
    double ccm;
    double akc_t;
    double akc_d;
    double akc_u;
    double akc_c;
};
DirectedClustering directed_clustering(Digraph& digraph, const std::vector<float>& default_weights);
