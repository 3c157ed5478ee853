#include "effects/stars.h"

#include "base/conversions.h"
#include "effects/geometric_weights.h"
#include "effects/graph_walk.h"

namespace {

// C(d, k), its products in 32 bits; 0.0 when k exceeds d.
template <int k>
double choose(int d) {
    if (d < k) {
        return 0.0;
    }
    const auto times = [](int a, int b) { return wrapping_product(a, b); };
    if constexpr (k == 1) {
        return d;
    } else if constexpr (k == 2) {
        return times(d - 1, d) * 0.5;
    } else if constexpr (k == 3) {
        return times(times(d - 2, d - 1), d) / 6.0;
    } else if constexpr (k == 4) {
        return times(times(times(d - 3, d - 2), d - 1), d) / 24.0;
    } else {
        return times(times(times(times(d - 4, d - 3), d - 2), d - 1), d) / 120.0;
    }
}

template <int k>
double both_ends(const Graph& graph, int i, int j) {
    return choose<k>(degree_of(graph, i)) + choose<k>(degree_of(graph, j));
}

double star_count(const Graph& graph, int k) {
    double sum = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        sum += star_change(graph, actor, k);
    }
    return sum;
}

}  // namespace

double star_change(const Graph& graph, int actor, int k) {
    const int d = degree_of(graph, actor);
    switch (k) {
        case 1:
            return choose<1>(d);
        case 2:
            return choose<2>(d);
        case 3:
            return choose<3>(d);
        case 4:
            return choose<4>(d);
        case 5:
            return choose<5>(d);
        default:
            return 0.0;
    }
}

// A tie. Change 1.
double edge_change(const Graph&, const EffectData&, int, int, int) { return 1.0; }
double edge_count(Graph& graph, const EffectData&) { return graph.edges; }

// k ties that share an actor: an added tie makes one k-star of each k - 1 ties already there, at
// either end. Change O(1), count O(n).
double star2_change(const Graph& graph, const EffectData&, int i, int j, int) {
    return both_ends<1>(graph, i, j);
}
double star2_count(Graph& graph, const EffectData&) { return star_count(graph, 2); }
double star3_change(const Graph& graph, const EffectData&, int i, int j, int) {
    return both_ends<2>(graph, i, j);
}
double star3_count(Graph& graph, const EffectData&) { return star_count(graph, 3); }
double star4_change(const Graph& graph, const EffectData&, int i, int j, int) {
    return both_ends<3>(graph, i, j);
}
double star4_count(Graph& graph, const EffectData&) { return star_count(graph, 4); }
double star5_change(const Graph& graph, const EffectData&, int i, int j, int) {
    return both_ends<4>(graph, i, j);
}
double star5_count(Graph& graph, const EffectData&) { return star_count(graph, 5); }

// An actor without ties; each end that has none stops being one.
double isolates_change(const Graph& graph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    if (degree_of(graph, i) == 0) {
        change -= 1.0;
    }
    if (degree_of(graph, j) == 0) {
        change -= 1.0;
    }
    return change;
}
double isolates_count(Graph& graph, const EffectData&) {
    double count = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        count += degree_of(graph, actor) == 0 ? 1.0 : 0.0;
    }
    return count;
}

// The alternating star cut off after its second term: 2-stars minus half the 3-stars.
double two_three_star_change(const Graph& graph, const EffectData&, int i, int j, int) {
    const int di = degree_of(graph, i);
    const int dj = degree_of(graph, j);
    const int pairs = wrapping_sum(wrapping_product(dj - 1, dj), wrapping_product(di - 1, di));
    return wrapping_sum(di, dj) - pairs * 0.25;
}
double two_three_star_count(Graph& graph, const EffectData&) {
    double sum = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        const int d = degree_of(graph, actor);
        if (d < 2) {
            continue;
        }
        if (d == 2) {
            sum += 1.0;
        } else if (d == 3) {
            sum += 2.5;
        } else {
            sum += (1.0 - (d - 2) / 6.0) * (wrapping_product(d - 1, d) * 0.5);
        }
    }
    return sum;
}

// Alternating k-star: the weight of a further tie at an actor falls by 1 - 1/lambda with each tie
// it has. At lambda 1 only the first tie of an actor counts nothing and every further one 1; below
// 1 the effect is dead. Change O(1), count O(n).
double alternating_star_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const int di = degree_of(graph, i);
    const int dj = degree_of(graph, j);
    if (data.lambda > 1.0F) {
        return static_cast<double>(data.lambda) *
               (2.0 - geometric_weight(di, data.weights) - geometric_weight(dj, data.weights));
    }
    if (data.lambda == 1.0F) {
        return (di > 0 ? 1.0 : 0.0) + (dj > 0 ? 1.0 : 0.0);
    }
    return 0.0;
}
double alternating_star_count(Graph& graph, const EffectData& data) {
    if (data.lambda > 1.0F) {
        double sum = 0.0;
        for (int actor = 0; actor < graph.vertices; ++actor) {
            const int d = degree_of(graph, actor);
            const float share = static_cast<float>(d) / data.lambda;
            sum += geometric_weight(d, data.weights) - 1.0 + static_cast<double>(share);
        }
        return static_cast<double>(data.lambda * data.lambda) * sum;
    }
    if (data.lambda == 1.0F) {
        double isolates = 0.0;
        for (int actor = 0; actor < graph.vertices; ++actor) {
            isolates += degree_of(graph, actor) == 0 ? 1.0 : 0.0;
        }
        return 2.0 * graph.edges + isolates - graph.vertices;
    }
    return 0.0;
}
