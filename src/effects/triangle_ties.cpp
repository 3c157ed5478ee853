#include "effects/triangle_ties.h"

#include <cmath>

#include "effects/geometric_weights.h"
#include "effects/graph_walk.h"

namespace {

// Triangles of an end without the tie under evaluation: a deleted tie is still in the table.
double triangles_without(const Graph& graph, int actor, int common, int adding) {
    return adding == 1 ? triangles_of(graph, actor) : triangles_of(graph, actor) - common;
}

// Sums t(v) x share(d(v)) over the actors.
template <class Share>
double triangle_tie_sum(const Graph& graph, Share share) {
    double sum = 0.0;
    for (int v = 0; v < graph.vertices; ++v) {
        if (triangles_of(graph, v) > 0) {
            sum += static_cast<double>(triangles_of(graph, v)) *
                   share(static_cast<double>(degree_of(graph, v)));
        }
    }
    return sum;
}

template <class Counts>
double count_free_ties(Graph& graph, std::vector<int>& cells, Counts counts) {
    double total = 0.0;
    for (int v = 0; v < graph.vertices; ++v) {
        int& cell = cells[static_cast<std::size_t>(v)];
        cell = 0;
        const int triangles = triangles_of(graph, v);
        if (triangles <= 0) {
            continue;
        }
        for_each_neighbour(graph, v, v, [&](int u) {
            if (graph.two_paths[v][u] == 0 && counts(u)) {
                cell += triangles;
                total += triangles;
            }
        });
    }
    return total;
}

}  // namespace

// A triangle and one further tie at one of its actors. Change O(c), count O(n).
double et1_change(const Graph& graph, const EffectData&, int i, int j, int adding) {
    const int common = two_paths_of(graph, i, j);
    const double di = degree_of(graph, i);
    const double dj = degree_of(graph, j);
    double change = triangles_without(graph, i, common, adding) +
                    triangles_without(graph, j, common, adding) + (di + dj - 2.0) * common;
    for_each_common(graph, i, j, [&](int k) { change += degree_of(graph, k) - 2; });
    return change;
}
double et1_count(Graph& graph, const EffectData&) {
    return triangle_tie_sum(graph, [](double d) { return d - 2.0; });
}

// A triangle and two further ties at one of its actors. Change O(c), count O(n).
double et2_change(const Graph& graph, const EffectData&, int i, int j, int adding) {
    const int common = two_paths_of(graph, i, j);
    const double di = degree_of(graph, i);
    const double dj = degree_of(graph, j);
    double around = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        const double dk = degree_of(graph, k);
        around += (dk - 3.0) * (dk - 2.0);
    });
    return ((dj - 2.0) * (dj - 1.0) + (di - 2.0) * (di - 1.0)) * common * 0.5 + 0.5 * around +
           (dj - 2.0) * triangles_without(graph, j, common, adding) +
           (di - 2.0) * triangles_without(graph, i, common, adding);
}
double et2_count(Graph& graph, const EffectData&) {
    return triangle_tie_sum(graph, [](double d) { return (d - 2.0) * (d - 3.0) / 2.0; });
}

// The alternating triangle-and-tie cut off after its second term.
double one_two_et_change(const Graph& graph, const EffectData& data, int i, int j, int adding) {
    return et1_change(graph, data, i, j, adding) - et2_change(graph, data, i, j, adding) * 0.5;
}
double one_two_et_count(Graph& graph, const EffectData&) {
    return triangle_tie_sum(graph,
                            [](double d) { return (d - 2.0) - (d - 2.0) * 0.25 * (d - 3.0); });
}

double et_uncarried_change(const Graph&, const EffectData&, int, int, int) { return 0.0; }
double et0_count(Graph& graph, const EffectData&) { return graph_count_0et(graph); }
double etnt_count(Graph& graph, const EffectData&) { return graph_count_etnt(graph); }

double graph_count_0et(Graph& graph) {
    return count_free_ties(graph, graph.et0, [](int) { return true; });
}

double graph_count_etnt(Graph& graph) {
    return count_free_ties(graph, graph.etnt,
                           [&graph](int u) { return triangles_of(graph, u) == 0; });
}

// Alternating triangle-and-tie: a triangle's actor with further ties, each weighing less. The
// formula stays the same at lambda 1; below, the effect is dead. Change O(c), count O(n).
double alternating_et_change(const Graph& graph, const EffectData& data, int i, int j, int adding) {
    if (!(data.lambda >= 1.0F)) {
        return 0.0;
    }
    const int common = two_paths_of(graph, i, j);
    const int di = degree_of(graph, i);
    const int dj = degree_of(graph, j);
    const auto rest = [&data](int m) { return 1.0 - geometric_weight(m, data.weights); };
    const auto with = [&](int actor) {
        return static_cast<double>(adding == 1 ? triangles_of(graph, actor) + common
                                               : triangles_of(graph, actor));
    };
    double around = 0.0;
    for_each_common(graph, i, j, [&](int k) { around += rest(degree_of(graph, k) - 2); });
    return static_cast<double>(data.lambda) *
           (around + rest(dj - 1) * with(j) + rest(di - 1) * with(i) -
            rest(di - 2) * triangles_without(graph, i, common, adding) -
            rest(dj - 2) * triangles_without(graph, j, common, adding));
}
double alternating_et_count(Graph& graph, const EffectData& data) {
    if (!(data.lambda >= 1.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int v = 0; v < graph.vertices; ++v) {
        sum += static_cast<double>(triangles_of(graph, v)) *
               (1.0 - geometric_weight(degree_of(graph, v) - 2, data.weights));
    }
    return static_cast<double>(data.lambda) * sum;
}

float alternating_et_base_a(float lambda) { return 1.0F - 2.0F / lambda; }
float alternating_et_base_b(float lambda) { return -1.0F / lambda; }

namespace {

// base^m by the power function, from the table where it reaches.
double power(const PowerTable* powers, float base, int m) {
    if (m >= 0 && powers != nullptr && static_cast<std::size_t>(m) < powers->size()) {
        return (*powers)[static_cast<std::size_t>(m)];
    }
    return std::pow(static_cast<double>(base), m);
}

}  // namespace

// Alternating triangle-and-tie on each tie: over the ordered ties, alternating in the tie's common
// neighbours and in the first actor's further ties.
//
// Change and count are two different measures, and both are known as AEAT: the change alternates
// with the negative base -1/lambda and carries lambda squared only in the new tie's own term, so
// the changes do not add up to the count, and the two states of `adding` need not agree. A run
// accumulates the change. Change O(d_i + d_j), count O(ties).
double alternating_et_each_change(const Graph& graph, const EffectData& data, int i, int j,
                                  int adding) {
    if (!(data.lambda >= 1.0F)) {
        return 0.0;
    }
    const float base_a = alternating_et_base_a(data.lambda);
    const float base_b = alternating_et_base_b(data.lambda);
    const auto a = [&](int m) { return power(data.powers_a, base_a, m); };
    const auto b = [&](int m) { return power(data.powers_b, base_b, m); };
    const auto w = [&data](int m) { return geometric_weight(m, data.weights); };
    const int di = degree_of(graph, i);
    const int dj = degree_of(graph, j);
    const int lag = adding - 1;
    double v = 0.0;
    for_each_near(graph, i, j, [&](int k, bool near_i, bool near_j) {
        const int paths_i = two_paths_of(graph, i, k);
        const int paths_j = two_paths_of(graph, j, k);
        if (near_j && dj > 1 && paths_j > 0) {
            v += (b(paths_j) - a(paths_j)) * w(dj - paths_j - 1);
        }
        if (near_i && di > 1 && paths_i > 0) {
            v += (b(paths_i) - a(paths_i)) * w(di - paths_i - 1);
        }
        if (near_j && di > 1) {
            const int m = paths_i + lag;
            v -= w(di - paths_i + lag) * a(m) - w(m);
        }
        if (near_i && dj > 1) {
            const int m = paths_j + lag;
            v -= w(dj - paths_j + lag) * a(m) - w(m);
        }
        const int dk = degree_of(graph, k);
        if (near_i && near_j && dk >= 3) {
            const int m1 = paths_j + lag;
            const int m2 = paths_i + lag;
            v -= w(dk - paths_i + lag - 1) * a(m2) + (w(dk - paths_j + lag - 1) * a(m1) - w(m1)) -
                 w(m2);
        }
    });
    const int common = two_paths_of(graph, i, j);
    double u = 0.0;
    if (di > 1 && common > 0) {
        u = 1.0 - w(common) + w(di - common) * (a(common) - b(common));
    }
    if (dj > 1 && common > 0) {
        u += 1.0 - w(common) + w(dj - common) * (a(common) - b(common));
    }
    const auto lambda = static_cast<double>(data.lambda);
    return lambda * u * lambda + lambda * v;
}

double alternating_et_each_count(Graph& graph, const EffectData& data) {
    if (!(data.lambda >= 1.0F)) {
        return 0.0;
    }
    const float base_a = alternating_et_base_a(data.lambda);
    const auto w = [&data](int m) { return geometric_weight(m, data.weights); };
    double sum = 0.0;
    for (int p = 0; p < graph.vertices; ++p) {
        for_each_neighbour(graph, p, p, [&](int q) {
            const int m = graph.two_paths[p][q];
            if (m > 1) {
                sum += w(degree_of(graph, p) - m - 1) * (power(data.powers_a, base_a, m) - w(m)) -
                       w(m) + 1.0;
            }
        });
    }
    return static_cast<double>(data.lambda * data.lambda) * sum;
}
