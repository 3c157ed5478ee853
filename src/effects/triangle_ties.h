// Triangles with further ties at their actors (ET effects), plain and alternating.
#pragma once

#include "effects/effect.h"

double et1_change(const Graph&, const EffectData&, int i, int j, int adding);
double et1_count(Graph&, const EffectData&);
double et2_change(const Graph&, const EffectData&, int i, int j, int adding);
double et2_count(Graph&, const EffectData&);
double one_two_et_change(const Graph&, const EffectData&, int i, int j, int adding);
double one_two_et_count(Graph&, const EffectData&);

// The change of "0ET" and "ETNT" is always 0.0: they are whole-network counts only, and a run shows
// the start network's value until a sample recounts them.
double et_uncarried_change(const Graph&, const EffectData&, int i, int j, int adding);
double et0_count(Graph&, const EffectData&);
double etnt_count(Graph&, const EffectData&);

// Ties in no triangle at actors that have triangles: each such tie of actor v adds v's triangles to
// the total and to `et0`[v]. For `etnt` the tie's other end must have no triangle at all. O(ties).
double graph_count_0et(Graph& graph);
double graph_count_etnt(Graph& graph);

double alternating_et_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_et_count(Graph&, const EffectData&);
double alternating_et_each_change(const Graph&, const EffectData&, int i, int j, int adding);
double alternating_et_each_count(Graph&, const EffectData&);

// The two bases of the "AEAT" effect at a lambda, in single precision.
float alternating_et_base_a(float lambda);
float alternating_et_base_b(float lambda);
