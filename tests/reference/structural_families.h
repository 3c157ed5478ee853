// The families from which the table of undirected structural effects is put together.
#pragma once

#include "structural.h"

#include <vector>

namespace reference {

// Ties, stars, isolates and alternating stars.
std::vector<StructuralEffect> degree_effects();

// Triangles, pairs of triangles, triangles with further ties.
std::vector<StructuralEffect> triangle_effects();

// Cliques, alternating cliques, paths of three ties and 4-cycles.
std::vector<StructuralEffect> clique_and_path_effects();

// Alternating triangles, two-paths and triangles with further ties.
std::vector<StructuralEffect> alternating_triangle_effects();

}  // namespace reference
