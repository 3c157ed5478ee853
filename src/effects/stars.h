// Effects of the undirected network that depend on degrees alone: k-stars, isolates, the truncated
// alternating star "2_3star" and the alternating stars (Snijders, Pattison, Robins and Handcock
// 2006).
#pragma once

#include "effects/effect.h"

// C(d(x), k) for k = 1..5, the k + 1 star's change at one actor: the product of degrees is formed
// in 32-bit arithmetic, so it wraps at large degrees (k = 4 from about degree 216, k = 5 from about
// 76) and every file that shows such a count shows the wrapped number. O(1).
double star_change(const Graph& graph, int actor, int k);

double edge_change(const Graph&, const EffectData&, int i, int j, int adding);
double edge_count(Graph&, const EffectData&);
double star2_change(const Graph&, const EffectData&, int i, int j, int adding);
double star2_count(Graph&, const EffectData&);
double star3_change(const Graph&, const EffectData&, int i, int j, int adding);
double star3_count(Graph&, const EffectData&);
double star4_change(const Graph&, const EffectData&, int i, int j, int adding);
double star4_count(Graph&, const EffectData&);
double star5_change(const Graph&, const EffectData&, int i, int j, int adding);
double star5_count(Graph&, const EffectData&);
double isolates_change(const Graph&, const EffectData&, int i, int j, int adding);
double isolates_count(Graph&, const EffectData&);
double two_three_star_change(const Graph&, const EffectData&, int i, int j, int adding);
double two_three_star_count(Graph&, const EffectData&);
double alternating_star_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_star_count(Graph&, const EffectData&);
