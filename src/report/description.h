// Description of one network: measures that are no model statistics. They are snapshots, refreshed
// all together when a run says so and never by a toggle.
#pragma once

#include <array>
#include <span>

#include "network/digraph.h"
#include "network/graph.h"

constexpr int kUnreachable = 9999;

// Recomputes, in this order, `clustering`, `geodesics`, `geodesic_distribution` and
// `largest_component`. Geodesics are breadth-first over bit rows: O(n (n + ties) n / 64) at worst.
void graph_refresh_descriptives(Graph& graph);

// Recomputes `geodesics`, `geodesic_distribution` and `triad_census`.
void digraph_refresh_descriptives(Digraph& digraph);

// The triad census alone (places: 300, 210, 120C, 120D, 120U, 201, 111D, 111U, 030T, 030C, 102,
// 021D, 021C, 021U, 012, 003), solved from the ten configuration counts (Holland and Leinhardt 1976
// for the classes). The products of n are formed in 32-bit integers and wrap for a large n.
void digraph_count_triads(Digraph& digraph);
constexpr std::array<const char*, 16> kTriadNames = {"300",  "210",  "120C", "120D", "120U", "201",
                                                     "111D", "111U", "030T", "030C", "102",  "021D",
                                                     "021C", "021U", "012",  "003"};

double mean_degree(const Graph& graph);
double mean_degree(const Digraph& digraph);

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

// The quartiles of the geodesic distribution as last refreshed, n standing for unreachable pairs;
// four zeros with fewer than two actors.
template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network);
