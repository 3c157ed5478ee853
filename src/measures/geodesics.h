// Shortest paths between all actors, their distribution and its quartiles. Snapshots: a toggle
// never touches them.
#pragma once

#include <array>

#include "network/digraph.h"
#include "network/graph.h"

constexpr int kUnreachable = 9999;

// Recomputes `geodesics`, `geodesic_distribution` and, for a Graph, `largest_component`.
// Breadth-first over bit rows: O(n (n + ties) n / 64) at worst.
void refresh_geodesics(Graph& graph);
void refresh_geodesics(Digraph& digraph);

// The quartiles of the geodesic distribution as last refreshed, n standing for unreachable pairs;
// four zeros with fewer than two actors.
template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network);
