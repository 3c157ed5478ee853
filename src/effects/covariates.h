// Effects of a dyadic covariate: a real value for each ordered pair of actors. Sums and products of
// two values are formed in single precision and then widened.
#pragma once

#include "effects/effect.h"

double covariate_edge_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_edge_count(Graph&, const EffectData&);
double covariate_s21_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_s21_count(Graph&, const EffectData&);
double covariate_s22_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_s22_count(Graph&, const EffectData&);
double covariate_t1_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_t1_count(Graph&, const EffectData&);
double covariate_t2_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_t2_count(Graph&, const EffectData&);
double covariate_t3_change(const Graph&, const EffectData&, int i, int j, int adding);
double covariate_t3_count(Graph&, const EffectData&);

double digraph_covariate_arc_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_covariate_arc_count(Digraph&, const EffectData&);
