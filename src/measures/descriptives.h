// What describes one network beside its model's statistics. Snapshots are refreshed all together
// when a run says so, and never by a toggle.
#pragma once

#include <vector>

#include "effects/effect_selection.h"
#include "network/digraph.h"
#include "network/graph.h"

// Recomputes every snapshot: local clustering and geodesics of a Graph, geodesics and triad census
// of a Digraph.
void refresh_descriptives(Graph& graph);
void refresh_descriptives(Digraph& digraph);

double mean_degree(const Graph& graph);
double mean_degree(const Digraph& digraph);

// The measures that a fit compares beside the statistics; snapshots must be fresh. Of a Graph:
// standard deviation and skewness of the degrees, global clustering, mean and variance of local
// clustering. Of a Digraph: standard deviation and skewness of in- and out-degrees, their
// correlation, and the eight of DirectedClustering.
std::vector<double> descriptive_measures(const Graph& graph, const EffectSelection& selection);
std::vector<double> descriptive_measures(Digraph& digraph, const EffectSelection& selection);

// Where 0ET and ETNT are selected, sets their statistics from the network: toggles do not carry
// them.
void recount_uncarried(Graph& graph, const EffectSelection& selection);
inline void recount_uncarried(Digraph&, const EffectSelection&) {}

// etnt / et0 per actor, a single-precision quotient; where et0 is 0 the ratio keeps its value.
void refresh_et_ratios(Graph& graph);
