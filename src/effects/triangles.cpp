#include "effects/triangles.h"

#include "effects/geometric_weights.h"
#include "effects/graph_walk.h"
#include "effects/path_terms.h"

double graph_triangle_count(const Graph& graph) {
    double sum = 0.0;
    for (const int triangles : graph.triangles) {
        sum += triangles;
    }
    return sum / 3.0;
}

// Three mutually tied actors; each common neighbour closes one. Change O(1), count O(n).
double triangle_change(const Graph& graph, const EffectData&, int i, int j, int) {
    return two_paths_of(graph, i, j);
}
double triangle_count(Graph& graph, const EffectData&) { return graph_triangle_count(graph); }

// Two triangles that share a tie. The new tie is the shared one of each pair of its triangles, and
// each new triangle joins those already standing on its two other ties.
double triangle2_change(const Graph& graph, const EffectData&, int i, int j, int adding) {
    double change = pairs_of(two_paths_of(graph, i, j));
    for_each_common(graph, i, j, [&](int k) {
        change += graph.two_paths[j][k] + graph.two_paths[i][k] + 2 * adding - 2;
    });
    return change;
}
double triangle2_count(Graph& graph, const EffectData&) {
    double sum = 0.0;
    for_each_tie(graph, [&](int p, int q) { sum += pairs_of(graph.two_paths[p][q]); });
    return sum;
}

// The alternating triangle cut off after its second term.
double one_two_triangle_change(const Graph& graph, const EffectData& data, int i, int j,
                               int adding) {
    return two_paths_of(graph, i, j) - triangle2_change(graph, data, i, j, adding) * 0.5;
}
double one_two_triangle_count(Graph& graph, const EffectData& data) {
    return graph_triangle_count(graph) - triangle2_count(graph, data) * 0.5;
}

// Alternating k-triangle: common neighbours of a tied dyad, each further one weighing less.
// Change O(c) over the common neighbours, count O(ties).
//
// At lambda 1 the two states of `adding` do not agree: an addition counts a common neighbour once
// for each of its two ties that gains its first triangle, a deletion counts it once even if both
// lose their last. Carried values of such a model drift from a recount, as they always have.
double alternating_triangle_change(const Graph& graph, const EffectData& data, int i, int j,
                                   int adding) {
    const int common = two_paths_of(graph, i, j);
    if (data.lambda > 1.0F) {
        const double own =
            static_cast<double>(data.lambda) * (1.0 - geometric_weight(common, data.weights));
        if (common == 0) {
            return own;
        }
        const int lag = adding - 1;
        double sum = 0.0;
        for_each_common(graph, i, j, [&](int k) {
            sum += geometric_weight(graph.two_paths[j][k] + lag, data.weights) +
                   geometric_weight(graph.two_paths[i][k] + lag, data.weights);
        });
        return sum + own;
    }
    if (data.lambda == 1.0F) {
        double sum = 0.0;
        for_each_common(graph, i, j, [&](int k) {
            const int of_i = graph.two_paths[i][k];
            const int of_j = graph.two_paths[j][k];
            if (adding == 1) {
                sum += (of_i == 0 ? 1.0 : 0.0) + (of_j == 0 ? 1.0 : 0.0);
            } else {
                sum += of_i == 1 || of_j == 1 ? 1.0 : 0.0;
            }
        });
        return sum + (common >= 1 ? 1.0 : 0.0);
    }
    return 0.0;
}
double alternating_triangle_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    if (data.lambda > 1.0F) {
        for_each_tie(graph, [&](int p, int q) {
            sum += 1.0 - geometric_weight(graph.two_paths[p][q], data.weights);
        });
        return static_cast<double>(data.lambda) * sum;
    }
    if (data.lambda == 1.0F) {
        for_each_tie(graph, [&](int p, int q) { sum += graph.two_paths[p][q] > 0 ? 1.0 : 0.0; });
    }
    return sum;
}

// Alternating two-paths: common neighbours of any dyad, tied or not. A neighbour k of j gets i as a
// dyad with one more common neighbour, and the other way round. Change O(d_i + d_j), count O(n^2).
double alternating_two_path_change(const Graph& graph, const EffectData& data, int i, int j,
                                   int adding) {
    if (!(data.lambda >= 1.0F)) {
        return 0.0;
    }
    const int tied = graph_has_edge(graph, i, j) ? 1 : 0;
    const auto cells_of = [&graph, tied](int actor, int other) {
        return CellSet{neighbours_of(graph, other), degree_of(graph, other) - tied,
                       graph.any_two_paths[actor],
                       [cells = graph.two_paths[actor]](int k) { return cells[k]; }};
    };
    if (const auto sum = unordered_sum(data, adding, cells_of(i, j), cells_of(j, i))) {
        return *sum;
    }
    const PathTerm term(data, adding);
    double sum = 0.0;
    for_each_near(graph, i, j, [&](int k, bool tied_to_i, bool tied_to_j) {
        if (tied_to_j) {
            sum += term(graph.two_paths[i][k]);
        }
        if (tied_to_i) {
            sum += term(graph.two_paths[j][k]);
        }
    });
    return sum;
}
double alternating_two_path_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    if (!(data.lambda >= 1.0F)) {
        return sum;
    }
    const bool counted = data.lambda == 1.0F;
    for (int i = 0; i < graph.vertices; ++i) {
        for (int j = i + 1; j < graph.vertices; ++j) {
            const int paths = two_paths_of(graph, i, j);
            if (paths > 0) {
                sum += counted ? 1.0 : 1.0 - geometric_weight(paths, data.weights);
            }
        }
    }
    return counted ? sum : static_cast<double>(data.lambda) * sum;
}
