#include "effects/covariates.h"

#include "effects/graph_walk.h"

namespace {

float value(const EffectData& data, int x, int y) { return (*data.pairs)[x][y]; }

double widened(float single) { return static_cast<double>(single); }

}  // namespace

// The covariate over the ties.
double covariate_edge_change(const Graph&, const EffectData& data, int i, int j, int) {
    return value(data, i, j);
}
double covariate_edge_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) { sum += widened(value(data, i, j)); });
    return sum;
}

// Two-stars by the covariate's sum on their two ties.
double covariate_s21_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const float own = value(data, i, j);
    double change = 0.0;
    for_each_near(graph, i, j, [&](int k, bool near_i, bool near_j) {
        if (near_i) {
            change += widened(value(data, k, i) + own);
        }
        if (near_j) {
            change += widened(value(data, k, j) + own);
        }
    });
    return change;
}
double covariate_s21_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        for (const int end : {j, i}) {
            const int degree = graph.degree[static_cast<std::size_t>(end)];
            if (degree > 1) {
                sum += widened(static_cast<float>(degree - 1) * value(data, i, j));
            }
        }
    });
    return sum;
}

// Two-stars by the covariate's product on their two ties. The change is 0 for a negative value of
// the dyad, the count skips only the value 0.0: negative covariates part the two.
double covariate_s22_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const float own = value(data, i, j);
    if (!(own > 0.0F)) {
        return 0.0;
    }
    double change = 0.0;
    for_each_near(graph, i, j, [&](int k, bool near_i, bool near_j) {
        if (near_i) {
            change += widened(value(data, k, i) * own);
        }
        if (near_j) {
            change += widened(value(data, k, j) * own);
        }
    });
    return change;
}
double covariate_s22_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        const float own = value(data, i, j);
        if (own == 0.0F) {
            return;
        }
        for_each_near(graph, i, j, [&](int k, bool near_i, bool near_j) {
            if (near_j) {
                sum += widened(value(data, j, k) * own);
            }
            if (near_i) {
                sum += widened(value(data, i, k) * own);
            }
        });
    });
    return sum * 0.5;
}

// Triangles by the covariate on their three ties, one at a time.
double covariate_t1_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const int common = two_paths_of(graph, i, j);
    if (common < 1) {
        return 0.0;
    }
    double change = widened(static_cast<float>(common) * value(data, i, j));
    for_each_common(graph, i, j,
                    [&](int k) { change += widened(value(data, k, j) + value(data, i, k)); });
    return change;
}
double covariate_t1_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        const int common = two_paths_of(graph, i, j);
        if (common > 0) {
            sum += widened(static_cast<float>(common) * value(data, i, j));
        }
    });
    return sum;
}

// Two at a time: the second term of the change is dropped for a negative value of the dyad, the
// count has no such test.
double covariate_t2_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    if (two_paths_of(graph, i, j) < 1) {
        return 0.0;
    }
    const float own = value(data, i, j);
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        change += widened(value(data, k, j) * value(data, i, k));
        if (own > 0.0F) {
            change += widened((value(data, j, k) + value(data, i, k)) * own);
        }
    });
    return change;
}
double covariate_t2_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        for_each_common(graph, i, j,
                        [&](int k) { sum += widened(value(data, i, k) * value(data, j, k)); });
    });
    return sum;
}

// All three at a time.
double covariate_t3_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    if (two_paths_of(graph, i, j) < 1) {
        return 0.0;
    }
    const float own = value(data, i, j);
    double change = 0.0;
    for_each_common(graph, i, j,
                    [&](int k) { change += widened(value(data, j, k) * value(data, i, k) * own); });
    return change;
}
double covariate_t3_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        const float own = value(data, i, j);
        for_each_common(graph, i, j, [&](int k) {
            if (k > j) {
                sum += widened(value(data, i, k) * own * value(data, j, k));
            }
        });
    });
    return sum;
}

// The covariate over the arcs.
double digraph_covariate_arc_change(const Digraph&, const EffectData& data, int i, int j, int) {
    return value(data, i, j);
}
double digraph_covariate_arc_count(Digraph& digraph, const EffectData& data) {
    double sum = 0.0;
    for (int i = 0; i < digraph.vertices; ++i) {
        members_for_each(digraph.receivers, digraph.adjacency, i,
                         [&](int j) { sum += widened(value(data, i, j)); });
    }
    return sum;
}
