// Cliques of four to eight actors and the alternating clique effect.
#pragma once

#include "effects/effect.h"

// Fills `clique_counts`: entry m = cliques of m + 1 actors. With a depth above 2 the entries 0 and
// 1 stay 0, not the number of actors and ties.
void graph_count_cliques(Graph& graph);

// Fills `clique_changes` for the dyad (i, j): entry m = cliques of m + 1 actors that contain it,
// counted as if it were tied, in either state of `adding`. Entry 1 is 1, entry 2 the common
// neighbours. Does nothing at depth 0. Cost bound by the cliques among the common neighbours.
void graph_clique_changes(Graph& graph, int i, int j);

// These read the tables that the two functions above fill.
double clique4_change(const Graph&, const EffectData&, int i, int j, int adding);
double clique4_count(Graph&, const EffectData&);
double clique5_change(const Graph&, const EffectData&, int i, int j, int adding);
double clique5_count(Graph&, const EffectData&);
double clique6_change(const Graph&, const EffectData&, int i, int j, int adding);
double clique6_count(Graph&, const EffectData&);
double clique7_change(const Graph&, const EffectData&, int i, int j, int adding);
double clique7_count(Graph&, const EffectData&);
double alternating_clique_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_clique_count(Graph&, const EffectData&);

// 1 / lambda in single precision, the base of the alternating clique's weights.
float alternating_clique_base(float lambda);
