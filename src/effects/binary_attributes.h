// Effects of a binary attribute, undirected and directed.
//
// In the labels "t" is a triangle and "o" an open two-path; the digit is the number of its actors
// whose value is looked at; "a" looks at the centre of an open one, "b" at a leaf. The undirected
// functions take the value 9999 of a missing answer as an ordinary nonzero number.
#pragma once

#include "effects/effect.h"

double binary_t3u_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_t3u_count(Graph&, const EffectData&);
double binary_t2u_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_t2u_count(Graph&, const EffectData&);
double binary_t1u_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_t1u_count(Graph&, const EffectData&);
double binary_o3u_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_o3u_count(Graph&, const EffectData&);
double binary_o2au_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_o2au_count(Graph&, const EffectData&);
double binary_o2bu_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_o2bu_count(Graph&, const EffectData&);
double binary_o1au_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_o1au_count(Graph&, const EffectData&);
double binary_o1bu_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_o1bu_count(Graph&, const EffectData&);
double binary_interaction_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_interaction_count(Graph&, const EffectData&);
double binary_activity_change(const Graph&, const EffectData&, int i, int j, int adding);
double binary_activity_count(Graph&, const EffectData&);

double digraph_binary_interaction_change(const Digraph&, const EffectData&, int i, int j,
                                         int adding);
double digraph_binary_interaction_count(Digraph&, const EffectData&);
double digraph_binary_sender_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_binary_sender_count(Digraph&, const EffectData&);
double digraph_binary_receiver_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_binary_receiver_count(Digraph&, const EffectData&);
double digraph_binary_sender_missing_change(const Digraph&, const EffectData&, int i, int j,
                                            int adding);
double digraph_binary_sender_missing_count(Digraph&, const EffectData&);
double digraph_binary_receiver_missing_change(const Digraph&, const EffectData&, int i, int j,
                                              int adding);
double digraph_binary_receiver_missing_count(Digraph&, const EffectData&);
double digraph_binary_interaction_reciprocity_change(const Digraph&, const EffectData&, int i,
                                                     int j, int adding);
double digraph_binary_interaction_reciprocity_count(Digraph&, const EffectData&);
double digraph_binary_activity_reciprocity_change(const Digraph&, const EffectData&, int i, int j,
                                                  int adding);
double digraph_binary_activity_reciprocity_count(Digraph&, const EffectData&);
double digraph_binary_in2star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_binary_in2star_count(Digraph&, const EffectData&);
double digraph_binary_path2_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_binary_path2_count(Digraph&, const EffectData&);
double digraph_binary_out2star_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_binary_out2star_count(Digraph&, const EffectData&);
