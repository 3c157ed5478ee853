#include "structural_families.h"
#include "weights.h"

#include <cmath>

namespace reference {

namespace {

// Two-paths between an end of the dyad and a third actor tied to the other end, as they are without
// the tie under evaluation.
int two_paths_without(const EvaluationState& state, int end, int k) {
    return two_paths(state, end, k) + state.adding - 1;
}

double power(double base, int exponent) { return std::pow(base, static_cast<double>(exponent)); }

// Alternating triangles: ties by the number of triangles on them, each further one weighing less.
// At lambda 1 ties in at least one triangle. There an addition counts a third actor once for each
// of its two ties that comes into its first triangle, a deletion counts it once at most.
double at_change(const EvaluationState& state, int i, int j, float lambda) {
    const int c = two_paths(state, i, j);
    if (lambda > 1.0F) {
        double sum = 0.0;
        for (const int k : shared_neighbours(state, i, j)) {
            sum += geometric_weight(two_paths_without(state, j, k), lambda) +
                   geometric_weight(two_paths_without(state, i, k), lambda);
        }
        return sum + lambda * (1 - geometric_weight(c, lambda));
    }
    if (lambda == 1.0F) {
        double count = 0.0;
        for (const int k : shared_neighbours(state, i, j)) {
            if (state.adding == 1) {
                if (two_paths(state, i, k) == 0) {
                    count += 1.0;
                }
                if (two_paths(state, j, k) == 0) {
                    count += 1.0;
                }
            } else if (two_paths(state, i, k) == 1 || two_paths(state, j, k) == 1) {
                count += 1.0;
            }
        }
        if (c >= 1) {
            count += 1.0;
        }
        return count;
    }
    return 0.0;
}

double at_value(const PlainGraph& graph, float lambda) {
    double sum = 0.0;
    double count = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            if (!tied(graph, i, j)) {
                continue;
            }
            const int shared = common_neighbours(graph, i, j);
            sum += 1 - geometric_weight(shared, lambda);
            if (shared > 0) {
                count += 1.0;
            }
        }
    }
    if (lambda > 1.0F) {
        return lambda * sum;
    }
    return lambda == 1.0F ? count : 0.0;
}

// Alternating two-paths: dyads, tied or not, by the number of two-paths between them. The new tie
// opens a two-path between j and each neighbour of i, and the other way round.
double a2p_change(const EvaluationState& state, int i, int j, float lambda) {
    const int first = 1 - state.adding;
    double sum = 0.0;
    double count = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        if (tied(state, k, j)) {
            sum += geometric_weight(two_paths_without(state, i, k), lambda);
            if (two_paths(state, i, k) == first) {
                count += 1.0;
            }
        }
        if (tied(state, k, i)) {
            sum += geometric_weight(two_paths_without(state, j, k), lambda);
            if (two_paths(state, j, k) == first) {
                count += 1.0;
            }
        }
    }
    if (lambda > 1.0F) {
        return sum;
    }
    return lambda == 1.0F ? count : 0.0;
}

double a2p_value(const PlainGraph& graph, float lambda) {
    double sum = 0.0;
    double count = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            const int shared = common_neighbours(graph, i, j);
            sum += 1 - geometric_weight(shared, lambda);
            if (shared > 0) {
                count += 1.0;
            }
        }
    }
    if (lambda > 1.0F) {
        return lambda * sum;
    }
    return lambda == 1.0F ? count : 0.0;
}

// Alternating triangles with further ties: each triangle of an actor by the number of further ties
// of that actor. Lambda 1 needs no form of its own.
double aet_change(const EvaluationState& state, int i, int j, float lambda) {
    if (!(lambda >= 1.0F)) {
        return 0.0;
    }
    const int c = two_paths(state, i, j);
    const int di = degree(state, i);
    const int dj = degree(state, j);
    const int with_i = state.adding == 1 ? triangles(state, i) + c : triangles(state, i);
    const int with_j = state.adding == 1 ? triangles(state, j) + c : triangles(state, j);
    const int without_i = state.adding == 1 ? triangles(state, i) : triangles(state, i) - c;
    const int without_j = state.adding == 1 ? triangles(state, j) : triangles(state, j) - c;
    double at_shared = 0.0;
    for (const int k : shared_neighbours(state, i, j)) {
        at_shared += 1 - geometric_weight(degree(state, k) - 2, lambda);
    }
    return lambda * (at_shared + (1 - geometric_weight(dj - 1, lambda)) * with_j +
                     (1 - geometric_weight(di - 1, lambda)) * with_i -
                     (1 - geometric_weight(di - 2, lambda)) * without_i -
                     (1 - geometric_weight(dj - 2, lambda)) * without_j);
}

double aet_value(const PlainGraph& graph, float lambda) {
    if (!(lambda >= 1.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        sum += triangles_through(graph, v) * (1 - geometric_weight(degree(graph, v) - 2, lambda));
    }
    return lambda * sum;
}

// Alternating triangles on each tie together with the further ties at its ends. The change has
// signs and factors of its own: it is not the difference of the whole values, nor the same for an
// addition and a deletion.
double aeat_change(const EvaluationState& state, int i, int j, float lambda) {
    if (!(lambda >= 1.0F)) {
        return 0.0;
    }
    const double big_a = static_cast<double>(1.0F - 2.0F / lambda);
    const double big_b = static_cast<double>(-1.0F / lambda);
    const auto w = [lambda](int count) { return geometric_weight(count, lambda); };
    const int b = state.adding - 1;
    const int c = two_paths(state, i, j);
    const int di = degree(state, i);
    const int dj = degree(state, j);
    double u = 0.0;
    double v = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        const bool tied_i = tied(state, k, i);
        const bool tied_j = tied(state, k, j);
        const int from_i = two_paths(state, i, k);
        const int from_j = two_paths(state, j, k);
        if (tied_j && dj > 1 && from_j > 0) {
            v += (power(big_b, from_j) - power(big_a, from_j)) * w(dj - from_j - 1);
        }
        if (tied_i && di > 1 && from_i > 0) {
            v += (power(big_b, from_i) - power(big_a, from_i)) * w(di - from_i - 1);
        }
        if (tied_j && di > 1) {
            const int m = from_i + b;
            v -= w(di - from_i + b) * power(big_a, m) - w(m);
        }
        if (tied_i && dj > 1) {
            const int m = from_j + b;
            v -= w(dj - from_j + b) * power(big_a, m) - w(m);
        }
        const int dk = degree(state, k);
        if (tied_i && tied_j && dk >= 3) {
            const int m1 = from_j + b;
            const int m2 = from_i + b;
            v -= w(dk - from_i + b - 1) * power(big_a, m2) +
                 (w(dk - from_j + b - 1) * power(big_a, m1) - w(m1)) - w(m2);
        }
    }
    if (di > 1 && c > 0) {
        u = 1 - w(c) + w(di - c) * (power(big_a, c) - power(big_b, c));
    }
    if (dj > 1 && c > 0) {
        u += 1 - w(c) + w(dj - c) * (power(big_a, c) - power(big_b, c));
    }
    return lambda * u * lambda + lambda * v;
}

double aeat_value(const PlainGraph& graph, float lambda) {
    if (!(lambda >= 1.0F)) {
        return 0.0;
    }
    const double big_a = static_cast<double>(1.0F - 2.0F / lambda);
    double sum = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            const int m = common_neighbours(graph, p, q);
            if (!tied(graph, p, q) || m <= 1) {
                continue;
            }
            const double tail = geometric_weight(m, lambda);
            sum += geometric_weight(degree(graph, p) - m - 1, lambda) * (power(big_a, m) - tail) -
                   tail + 1.0;
        }
    }
    const float squared = lambda * lambda;
    return squared * sum;
}

}  // namespace

std::vector<StructuralEffect> alternating_triangle_effects() {
    return {
        {"AT", at_change, at_value},       {"AT2", at_change, at_value},
        {"A2P", a2p_change, a2p_value},    {"AET", aet_change, aet_value},
        {"AEAT", aeat_change, aeat_value},
    };
}

}  // namespace reference
