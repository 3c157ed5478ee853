// Triangles of the undirected network and the alternating effects built on common neighbours.
#pragma once

#include "effects/effect.h"

// Triangles, each once. O(n).
double graph_triangle_count(const Graph& graph);

double triangle_change(const Graph&, const EffectData&, int i, int j, int adding);
double triangle_count(Graph&, const EffectData&);
double triangle2_change(const Graph&, const EffectData&, int i, int j, int adding);
double triangle2_count(Graph&, const EffectData&);
double one_two_triangle_change(const Graph&, const EffectData&, int i, int j, int adding);
double one_two_triangle_count(Graph&, const EffectData&);
double alternating_triangle_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_triangle_count(Graph&, const EffectData&);
double alternating_two_path_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_two_path_count(Graph&, const EffectData&);
