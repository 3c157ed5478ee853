// The ten triad configurations of the directed network. Each counts configurations, not classes of
// the triad census: further arcs may be present. Every change is the exact difference of the
// counts.
#pragma once

#include "effects/effect.h"

double digraph_t1_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t1_count(Digraph&, const EffectData&);
double digraph_t2_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t2_count(Digraph&, const EffectData&);
double digraph_t3_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t3_count(Digraph&, const EffectData&);
double digraph_t4_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t4_count(Digraph&, const EffectData&);
double digraph_t5_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t5_count(Digraph&, const EffectData&);
double digraph_t6_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t6_count(Digraph&, const EffectData&);
double digraph_t7_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t7_count(Digraph&, const EffectData&);
double digraph_t8_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t8_count(Digraph&, const EffectData&);
double digraph_t9_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t9_count(Digraph&, const EffectData&);
double digraph_t10_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_t10_count(Digraph&, const EffectData&);
