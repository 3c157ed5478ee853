// Effects of a continuous attribute, undirected and directed.
//
// The pairwise effects read prepared pair tables, whose cells are 0.0 where either value is missing
// (9999.0). Products of counts and values are formed in single precision and then widened.
#pragma once

#include "effects/effect.h"

double continuous_sum_change(const Graph&, const EffectData&, int i, int j, int adding);
double continuous_sum_count(Graph&, const EffectData&);
double continuous_diff_change(const Graph&, const EffectData&, int i, int j, int adding);
double continuous_diff_count(Graph&, const EffectData&);
double continuous_prod_change(const Graph&, const EffectData&, int i, int j, int adding);
double continuous_prod_count(Graph&, const EffectData&);

double digraph_continuous_sender_change(const Digraph&, const EffectData&, int i, int j,
                                        int adding);
double digraph_continuous_sender_count(Digraph&, const EffectData&);
double digraph_continuous_receiver_change(const Digraph&, const EffectData&, int i, int j,
                                          int adding);
double digraph_continuous_receiver_count(Digraph&, const EffectData&);
double digraph_continuous_sender_missing_change(const Digraph&, const EffectData&, int i, int j,
                                                int adding);
double digraph_continuous_sender_missing_count(Digraph&, const EffectData&);
double digraph_continuous_receiver_missing_change(const Digraph&, const EffectData&, int i, int j,
                                                  int adding);
double digraph_continuous_receiver_missing_count(Digraph&, const EffectData&);
double digraph_continuous_sum_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_continuous_sum_count(Digraph&, const EffectData&);
double digraph_continuous_diff_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_continuous_diff_count(Digraph&, const EffectData&);
double digraph_continuous_prod_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_continuous_prod_count(Digraph&, const EffectData&);
double digraph_continuous_sum_reciprocity_change(const Digraph&, const EffectData&, int i, int j,
                                                 int adding);
double digraph_continuous_sum_reciprocity_count(Digraph&, const EffectData&);
double digraph_continuous_diff_reciprocity_change(const Digraph&, const EffectData&, int i, int j,
                                                  int adding);
double digraph_continuous_diff_reciprocity_count(Digraph&, const EffectData&);
double digraph_continuous_prod_reciprocity_change(const Digraph&, const EffectData&, int i, int j,
                                                  int adding);
double digraph_continuous_prod_reciprocity_count(Digraph&, const EffectData&);
double digraph_continuous_in2star_change(const Digraph&, const EffectData&, int i, int j,
                                         int adding);
double digraph_continuous_in2star_count(Digraph&, const EffectData&);
double digraph_continuous_out2star_change(const Digraph&, const EffectData&, int i, int j,
                                          int adding);
double digraph_continuous_out2star_count(Digraph&, const EffectData&);
double digraph_continuous_path2_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_continuous_path2_count(Digraph&, const EffectData&);
