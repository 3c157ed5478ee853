// Effects of a categorical attribute: whether tied actors share a category. Codes are compared for
// equality only, so a missing mark is one more category.
#pragma once

#include "effects/effect.h"

double categorical_same_change(const Graph&, const EffectData&, int i, int j, int adding);
double categorical_same_count(Graph&, const EffectData&);
double categorical_diff_change(const Graph&, const EffectData&, int i, int j, int adding);
double categorical_diff_count(Graph&, const EffectData&);

double digraph_categorical_matching_change(const Digraph&, const EffectData&, int i, int j,
                                           int adding);
double digraph_categorical_matching_count(Digraph&, const EffectData&);
double digraph_categorical_mismatch_change(const Digraph&, const EffectData&, int i, int j,
                                           int adding);
double digraph_categorical_mismatch_count(Digraph&, const EffectData&);
double digraph_categorical_matching_reciprocity_change(const Digraph&, const EffectData&, int i,
                                                       int j, int adding);
double digraph_categorical_matching_reciprocity_count(Digraph&, const EffectData&);
double digraph_categorical_mismatch_reciprocity_change(const Digraph&, const EffectData&, int i,
                                                       int j, int adding);
double digraph_categorical_mismatch_reciprocity_count(Digraph&, const EffectData&);
