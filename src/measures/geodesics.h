// The distribution of the shortest paths between all actors, and its quartiles. Snapshots: a toggle
// never touches them. The paths themselves are not kept.
#pragma once

#include <array>

#include "network/digraph.h"
#include "network/graph.h"

// A path of this length counts as none, as it always has.
constexpr int kUnreachable = 9999;

// Recomputes `geodesic_distribution` and, for a Graph, `largest_component`. Breadth-first from 256
// actors at a time: O(n (n + ties) / 64) for each level of the search at worst.
void refresh_geodesics(Graph& graph);
void refresh_geodesics(Digraph& digraph);

// The quartiles of the geodesic distribution as last refreshed, n standing for unreachable pairs;
// four zeros with fewer than two actors.
template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network);
