#include "structural_families.h"
#include "weights.h"

namespace reference {

namespace {

// Ties: the new tie itself.
double edge_change(const EvaluationState&, int, int, float) { return 1.0; }

double edge_value(const PlainGraph& graph, float) { return edge_count(graph); }

// k-stars: one actor with k of its neighbours. The new tie makes a k-star with any k - 1 ties that
// either end already has.
template <int k>
double star_change(const EvaluationState& state, int i, int j, float) {
    return wrapping_choose(degree(state, i), k - 1) + wrapping_choose(degree(state, j), k - 1);
}

template <int k>
double star_value(const PlainGraph& graph, float) {
    double sum = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        sum += wrapping_choose(degree(graph, v), k);
    }
    return sum;
}

// Actors without a tie: each end that had none stops being one.
double isolates_change(const EvaluationState& state, int i, int j, float) {
    double change = 0.0;
    if (degree(state, i) == 0) {
        change -= 1.0;
    }
    if (degree(state, j) == 0) {
        change -= 1.0;
    }
    return change;
}

double isolates_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        if (degree(graph, v) == 0) {
            count += 1.0;
        }
    }
    return count;
}

// 2-stars less half the 3-stars.
double two3star_change(const EvaluationState& state, int i, int j, float) {
    const int di = degree(state, i);
    const int dj = degree(state, j);
    const int pairs = wrapping_sum(wrapping_product(dj - 1, dj), wrapping_product(di - 1, di));
    return (di + dj) - pairs * 0.25;
}

double two3star_value(const PlainGraph& graph, float) {
    double sum = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        const int d = degree(graph, v);
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

// Alternating stars: 2-stars less 3-stars over lambda, and so on with alternating signs, in closed
// form. At lambda 1 only the step from one tie to two and more counts, below it nothing does.
double alternating_star_change(const EvaluationState& state, int i, int j, float lambda) {
    const int di = degree(state, i);
    const int dj = degree(state, j);
    if (lambda > 1.0F) {
        return lambda * (2.0 - geometric_weight(di, lambda) - geometric_weight(dj, lambda));
    }
    if (lambda == 1.0F) {
        double count = 0.0;
        if (di > 0) {
            count += 1.0;
        }
        if (dj > 0) {
            count += 1.0;
        }
        return count;
    }
    return 0.0;
}

double alternating_star_value(const PlainGraph& graph, float lambda) {
    if (lambda > 1.0F) {
        double sum = 0.0;
        for (int v = 0; v < graph.n; ++v) {
            const int d = degree(graph, v);
            const float linear = static_cast<float>(d) / lambda;
            sum += geometric_weight(d, lambda) - 1.0 + static_cast<double>(linear);
        }
        const float squared = lambda * lambda;
        return squared * sum;
    }
    if (lambda == 1.0F) {
        return 2.0 * edge_count(graph) + isolates_value(graph, lambda) - graph.n;
    }
    return 0.0;
}

}  // namespace

std::vector<StructuralEffect> degree_effects() {
    return {
        {"edge", edge_change, edge_value},
        {"2-star", star_change<2>, star_value<2>},
        {"3-star", star_change<3>, star_value<3>},
        {"4-star", star_change<4>, star_value<4>},
        {"5-star", star_change<5>, star_value<5>},
        {"Isolates", isolates_change, isolates_value},
        {"two3star", two3star_change, two3star_value},
        {"AS", alternating_star_change, alternating_star_value},
        {"AS2", alternating_star_change, alternating_star_value},
    };
}

}  // namespace reference
