// Pairs of triangles in the undirected network: sharing one actor (bow-ties), sharing a tie or
// disjoint, with or without conditions on the ties between them.
//
// The change functions read the bit matrix alone, so they do not depend on `adding`. They count
// inside neighbourhoods by whole words: O(c x d x n / 64) for the bow-tie and the induced pairs on
// four and five actors, O(c x ties x n / 64) for the disjoint ones.
#pragma once

#include "effects/effect.h"

double bow_tie_change(const Graph&, const EffectData&, int i, int j, int adding);
double bow_tie_count(Graph&, const EffectData&);
double p3_change(const Graph&, const EffectData&, int i, int j, int adding);
double p3_count(Graph&, const EffectData&);
double q10_change(const Graph&, const EffectData&, int i, int j, int adding);
double q10_count(Graph&, const EffectData&);
double q20_change(const Graph&, const EffectData&, int i, int j, int adding);
double q20_count(Graph&, const EffectData&);
double q30_change(const Graph&, const EffectData&, int i, int j, int adding);
double q30_count(Graph&, const EffectData&);
double q31_change(const Graph&, const EffectData&, int i, int j, int adding);
double q31_count(Graph&, const EffectData&);
