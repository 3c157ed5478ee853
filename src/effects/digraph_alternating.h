// Alternating stars, triangles and two-paths of the directed network (Robins, Pattison and Wang
// 2009).
//
// For triangles and two-paths T follows transitive, C cyclic, D shared-sender ("down") and U
// shared-receiver ("up") configurations; the mixtures are means. At lambda 1 a change counts the
// two-path cells that become or stop being positive; below 1 every alternating effect is dead.
#pragma once

#include "effects/effect.h"

double digraph_alternating_in_star_change(const Digraph&, const EffectData&, int i, int j,
                                          int adding);
double digraph_alternating_in_star_count(Digraph&, const EffectData&);
double digraph_alternating_out_star_change(const Digraph&, const EffectData&, int i, int j,
                                           int adding);
double digraph_alternating_out_star_count(Digraph&, const EffectData&);
double digraph_alternating_in_one_out_change(const Digraph&, const EffectData&, int i, int j,
                                             int adding);
double digraph_alternating_in_one_out_count(Digraph&, const EffectData&);
double digraph_one_in_alternating_out_change(const Digraph&, const EffectData&, int i, int j,
                                             int adding);
double digraph_one_in_alternating_out_count(Digraph&, const EffectData&);
double digraph_alternating_in_alternating_out_change(const Digraph&, const EffectData&, int i,
                                                     int j, int adding);
double digraph_alternating_in_alternating_out_count(Digraph&, const EffectData&);
double digraph_at_t_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_t_count(Digraph&, const EffectData&);
double digraph_at_c_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_c_count(Digraph&, const EffectData&);
double digraph_at_d_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_d_count(Digraph&, const EffectData&);
double digraph_at_u_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_u_count(Digraph&, const EffectData&);
double digraph_at_td_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_td_count(Digraph&, const EffectData&);
double digraph_at_tu_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_tu_count(Digraph&, const EffectData&);
double digraph_at_du_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_du_count(Digraph&, const EffectData&);
double digraph_at_tdu_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_at_tdu_count(Digraph&, const EffectData&);
double digraph_a2p_t_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_t_count(Digraph&, const EffectData&);
double digraph_a2p_d_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_d_count(Digraph&, const EffectData&);
double digraph_a2p_u_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_u_count(Digraph&, const EffectData&);
double digraph_a2p_td_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_td_count(Digraph&, const EffectData&);
double digraph_a2p_tu_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_tu_count(Digraph&, const EffectData&);
double digraph_a2p_du_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_du_count(Digraph&, const EffectData&);
double digraph_a2p_tdu_change(const Digraph&, const EffectData&, int i, int j, int adding);
double digraph_a2p_tdu_count(Digraph&, const EffectData&);
