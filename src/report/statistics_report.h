// The full description of one network: matrix, model statistics, descriptive measures.
#pragma once

#include <string>

#include "effects/effect_selection.h"
#include "network/digraph.h"
#include "network/graph.h"

// Appends the report of a network to the file, section by section; the file is never truncated
// here. Descriptive measures are shown as last refreshed; density, clustering ratios, distributions
// of degrees, two-paths and triangles are of the network as it is now. The triad census is
// recounted, and where an ET effect is selected the ET ratios are set from the counts as last made.
void report_statistics(Graph& graph, const EffectSelection& selection, const std::string& path);
void report_statistics(Digraph& digraph, const EffectSelection& selection, const std::string& path);
