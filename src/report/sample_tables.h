// The per-sample outputs of a run: sample table, distributions and sample graphs.
#pragma once

#include <string>

#include "effects/effect_selection.h"
#include "network/digraph.h"
#include "network/graph.h"
#include "report/output_paths.h"

// The head of the sample table, replacing the file.
void write_sample_head(const EffectSelection& selection, const std::string& path);

// Appends one row: the proposal number, then the statistics in the order of the head.
void write_sample_row(const EffectSelection& selection, const std::vector<double>& statistics,
                      double proposal, const std::string& path);

// Appends the heads of the switched-on distribution files.
void write_distribution_heads(const Graph& graph, const OutputSwitches& switches,
                              const OutputPaths& paths);
void write_distribution_heads(const Digraph& digraph, const OutputSwitches& switches,
                              const OutputPaths& paths);

// Appends one row to each switched-on distribution file. Geodesics and clustering are written as
// last refreshed. With the ET switch the two ET counts are recounted when either effect is off.
void write_distribution_rows(Graph& graph, const EffectSelection& selection,
                             const OutputSwitches& switches, const OutputPaths& paths);
void write_distribution_rows(Digraph& digraph, const EffectSelection& selection,
                             const OutputSwitches& switches, const OutputPaths& paths);

// The statistics report of a sample under the prefix with its number, and its Pajek record.
template <class Network>
void write_sample_graph(Network& network, const EffectSelection& selection, double number,
                        const OutputPaths& paths);
