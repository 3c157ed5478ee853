// Effects of the directed network that depend on degrees and mutual dyads alone.
#pragma once

#include "effects/effect.h"

double digraph_arc_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_arc_count(Digraph&, const EffectData&);
double digraph_reciprocity_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_reciprocity_count(Digraph&, const EffectData&);
double digraph_in2star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_in2star_count(Digraph&, const EffectData&);
double digraph_in3star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_in3star_count(Digraph&, const EffectData&);
double digraph_in4star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_in4star_count(Digraph&, const EffectData&);
double digraph_out2star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_out2star_count(Digraph&, const EffectData&);
double digraph_out3star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_out3star_count(Digraph&, const EffectData&);
double digraph_out4star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_out4star_count(Digraph&, const EffectData&);
double digraph_path2_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_path2_count(Digraph&, const EffectData&);
double digraph_sinks_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_sinks_count(Digraph&, const EffectData&);
double digraph_sources_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_sources_count(Digraph&, const EffectData&);
double digraph_isolates_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_isolates_count(Digraph&, const EffectData&);
