#include "effects/paths.h"

#include "effects/graph_walk.h"
#include "effects/triangles.h"

// Three ties in a row. The change makes no correction for common neighbours, where a walk closes
// into a triangle: it exceeds the difference of the counts by three for each, so the carried value
// of a run drifts from a recount. Every table that shows "3Path" shows it so.
// Change O(d_i + d_j), count O(n).
double path3_change(const Graph& graph, const EffectData&, int i, int j, int) {
    double change = degree_of(graph, i) * degree_of(graph, j);
    for_each_neighbour(graph, j, i, [&](int k) { change += degree_of(graph, k) - 1.0; });
    for_each_neighbour(graph, i, j, [&](int k) { change += degree_of(graph, k) - 1.0; });
    return change;
}
// Each tie is the middle of (d - 1)(d' - 1) walks, of which those over a common neighbour close.
double path3_count(Graph& graph, const EffectData&) {
    double sum = 0.0;
    for_each_tie(graph, [&](int p, int q) {
        sum += (degree_of(graph, p) - 1.0) * (degree_of(graph, q) - 1.0);
    });
    return sum - 3.0 * graph_triangle_count(graph);
}

// Four ties in a ring; each path of three ties from i to j closes one. Change O(d_j), count O(n^2):
// a ring is counted at both pairs of opposite actors.
double cycle4_change(const Graph& graph, const EffectData&, int i, int j, int adding) {
    double change = 0.0;
    for_each_neighbour(graph, j, i,
                       [&](int k) { change += two_paths_of(graph, i, k) + adding - 1; });
    return change;
}
double cycle4_count(Graph& graph, const EffectData&) {
    double twice = 0.0;
    for (int p = 0; p < graph.vertices; ++p) {
        for (int q = p + 1; q < graph.vertices; ++q) {
            twice += pairs_of(graph.two_paths[p][q]);
        }
    }
    return twice / 2.0;
}
