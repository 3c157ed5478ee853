// The families from which the table of directed structural effects is put together.
#pragma once

#include "directed_structural.h"

#include <vector>

namespace reference {

// Arcs, mutual dyads, stars, paths, sinks, sources, isolates and alternating stars.
std::vector<DirectedEffect> directed_degree_effects();

// The ten triad configurations.
std::vector<DirectedEffect> directed_triad_effects();

// Alternating triangles and two-paths with their mixtures.
std::vector<DirectedEffect> directed_alternating_effects();

}  // namespace reference
