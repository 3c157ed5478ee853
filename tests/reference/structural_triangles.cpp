#include "structural_families.h"

#include <algorithm>
#include <array>

namespace reference {

namespace {

template <std::size_t size>
bool all_distinct(const std::array<int, size>& actors) {
    for (std::size_t a = 0; a < size; ++a) {
        for (std::size_t b = a + 1; b < size; ++b) {
            if (actors[a] == actors[b]) {
                return false;
            }
        }
    }
    return true;
}

bool triangle(const PlainGraph& graph, int a, int b, int c) {
    return tied(graph, a, b) && tied(graph, a, c) && tied(graph, b, c);
}

// Ties between two disjoint sets of three actors.
int ties_between(const PlainGraph& graph, const std::array<int, 3>& one,
                 const std::array<int, 3>& other) {
    int count = 0;
    for (const int a : one) {
        for (const int b : other) {
            if (tied(graph, a, b)) {
                ++count;
            }
        }
    }
    return count;
}

// Triangles: one for each actor tied to both ends.
double triangle_change(const EvaluationState& state, int i, int j, float) {
    return two_paths(state, i, j);
}

double triangle_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int i = 0; i < graph.n; ++i) {
        for (int j = i + 1; j < graph.n; ++j) {
            for (int k = j + 1; k < graph.n; ++k) {
                if (triangle(graph, i, j, k)) {
                    count += 1.0;
                }
            }
        }
    }
    return count;
}

// Pairs of triangles that share a tie: pairs on the new tie, and each new triangle with every old
// one on its two other ties.
double triangle2_change(const EvaluationState& state, int i, int j, float) {
    const int c = two_paths(state, i, j);
    double change = c * (c - 1) / 2;
    for (const int k : shared_neighbours(state, i, j)) {
        change += two_paths(state, j, k) + two_paths(state, i, k) + 2 * state.adding - 2;
    }
    return change;
}

double triangle2_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            if (!tied(graph, p, q)) {
                continue;
            }
            for (int r = 0; r < graph.n; ++r) {
                for (int s = 0; s < graph.n; ++s) {
                    if (r != s && tied(graph, r, p) && tied(graph, r, q) && tied(graph, s, p) &&
                        tied(graph, s, q)) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count * 0.25;
}

// Triangles less half the pairs that share a tie.
double one2triangle_change(const EvaluationState& state, int i, int j, float lambda) {
    return two_paths(state, i, j) - triangle2_change(state, i, j, lambda) * 0.5;
}

double one2triangle_value(const PlainGraph& graph, float lambda) {
    return triangle_value(graph, lambda) - triangle2_value(graph, lambda) * 0.5;
}

// Pairs of triangles with exactly one actor in common, whatever other ties there are.
double bow_tie_change(const EvaluationState& state, int i, int j, float) {
    double count = 0.0;
    for (const int k : shared_neighbours(state, i, j)) {
        for (int p = 0; p < state.bits.n; ++p) {
            for (int q = 0; q < state.bits.n; ++q) {
                if (!all_distinct<5>({i, j, k, p, q}) || !tied(state, p, q)) {
                    continue;
                }
                for (const int x : {i, j, k}) {
                    if (tied(state, p, x) && tied(state, q, x)) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count * 0.5;
}

double bow_tie_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            for (int r = 0; r < graph.n; ++r) {
                if (!triangle(graph, p, q, r)) {
                    continue;
                }
                for (int s = 0; s < graph.n; ++s) {
                    for (int u = 0; u < graph.n; ++u) {
                        if (triangle(graph, p, s, u) && all_distinct<5>({p, q, r, s, u})) {
                            count += 1.0;
                        }
                    }
                }
            }
        }
    }
    return count * 0.125;
}

// Pairs of triangles without a common actor, whatever ties run between them.
double p3_change(const EvaluationState& state, int i, int j, float) {
    const PlainGraph& graph = state.bits;
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            for (int r = 0; r < graph.n; ++r) {
                if (!all_distinct<5>({i, j, p, q, r}) || !triangle(graph, p, q, r)) {
                    continue;
                }
                for (int k = 0; k < graph.n; ++k) {
                    if (all_distinct<6>({i, j, p, q, r, k}) && tied(graph, k, i) &&
                        tied(graph, k, j)) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count / 6.0;
}

double p3_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            for (int r = 0; r < graph.n; ++r) {
                if (!triangle(graph, p, q, r)) {
                    continue;
                }
                for (int s = 0; s < graph.n; ++s) {
                    for (int u = 0; u < graph.n; ++u) {
                        for (int v = 0; v < graph.n; ++v) {
                            if (triangle(graph, s, u, v) && all_distinct<6>({p, q, r, s, u, v})) {
                                count += 1.0;
                            }
                        }
                    }
                }
            }
        }
    }
    return count / 72.0;
}

// Four actors with five ties: two triangles on one tie, their far corners not tied. The new tie can
// be an outer tie of either triangle (1, 2), the shared one (3), or the sixth that spoils it (4).
double q10_change(const EvaluationState& state, int i, int j, float) {
    double change = 0.0;
    for (int p = 0; p < state.bits.n; ++p) {
        for (int q = 0; q < state.bits.n; ++q) {
            if (!all_distinct<4>({i, j, p, q})) {
                continue;
            }
            const bool pi = tied(state, p, i);
            const bool pj = tied(state, p, j);
            const bool qi = tied(state, q, i);
            const bool qj = tied(state, q, j);
            const bool pq = tied(state, p, q);
            if (!pi && qi && qj && pj && pq) {
                change += 1.0;
            }
            if (pi && !pj && qi && qj && pq) {
                change += 1.0;
            }
            if (!pq && pi && pj && qi && qj) {
                change += 0.5;
            }
            if (pq && pi && pj && qi && qj) {
                change -= 0.5;
            }
        }
    }
    return change;
}

double q10_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            if (!tied(graph, p, q)) {
                continue;
            }
            for (int r = 0; r < graph.n; ++r) {
                for (int s = 0; s < graph.n; ++s) {
                    if (r != s && !tied(graph, r, s) && tied(graph, r, p) && tied(graph, r, q) &&
                        tied(graph, s, p) && tied(graph, s, q)) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count * 0.25;
}

// Bow-ties without a tie among the four outer actors. The new triangle i, j, k can be one half with
// i, j or k in the middle (1 to 3); or the new tie spoils a bow-tie around k whose outer pairs
// are i, p and j, q (4).
double q20_change(const EvaluationState& state, int i, int j, float) {
    double change = 0.0;
    for (const int k : shared_neighbours(state, i, j)) {
        for (int p = 0; p < state.bits.n; ++p) {
            for (int q = 0; q < state.bits.n; ++q) {
                if (!all_distinct<5>({i, j, k, p, q})) {
                    continue;
                }
                const bool pi = tied(state, p, i);
                const bool pj = tied(state, p, j);
                const bool pk = tied(state, p, k);
                const bool qi = tied(state, q, i);
                const bool qj = tied(state, q, j);
                const bool qk = tied(state, q, k);
                const bool pq = tied(state, p, q);
                if (pi && qi && pq && !pj && !pk && !qj && !qk) {
                    change += 0.5;
                }
                if (pj && qj && pq && !pi && !pk && !qi && !qk) {
                    change += 0.5;
                }
                if (pk && qk && pq && !pi && !pj && !qi && !qj) {
                    change += 0.5;
                }
                if (pi && pk && qj && qk && !pj && !qi && !pq) {
                    change -= 1.0;
                }
            }
        }
    }
    return change;
}

double q20_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = 0; q < graph.n; ++q) {
            for (int r = q + 1; r < graph.n; ++r) {
                if (!triangle(graph, p, q, r)) {
                    continue;
                }
                for (int s = q + 1; s < graph.n; ++s) {
                    for (int u = s + 1; u < graph.n; ++u) {
                        if (triangle(graph, p, s, u) && all_distinct<5>({p, q, r, s, u}) &&
                            !tied(graph, q, s) && !tied(graph, q, u) && !tied(graph, r, s) &&
                            !tied(graph, r, u)) {
                            count += 1.0;
                        }
                    }
                }
            }
        }
    }
    return count;
}

// Pairs of triangles without a common actor that have exactly `wanted` ties between them. New
// pairs come from the new triangles; old pairs gain the new tie between them.
template <int wanted>
double separate_triangles_change(const EvaluationState& state, int i, int j, float) {
    const PlainGraph& graph = state.bits;
    double change = 0.0;
    for (const int k : shared_neighbours(state, i, j)) {
        for (int p = 0; p < graph.n; ++p) {
            for (int q = p + 1; q < graph.n; ++q) {
                for (int r = q + 1; r < graph.n; ++r) {
                    if (all_distinct<6>({i, j, k, p, q, r}) && triangle(graph, p, q, r) &&
                        ties_between(graph, {p, q, r}, {i, j, k}) == wanted) {
                        change += 1.0;
                    }
                }
            }
        }
    }
    for (int p = 0; p < graph.n; ++p) {
        for (int q = p + 1; q < graph.n; ++q) {
            if (!triangle(graph, i, p, q)) {
                continue;
            }
            for (int r = 0; r < graph.n; ++r) {
                for (int s = r + 1; s < graph.n; ++s) {
                    if (!all_distinct<6>({i, p, q, j, r, s}) || !triangle(graph, j, r, s)) {
                        continue;
                    }
                    // The dyad under evaluation never counts, whether it is tied or not.
                    const int between =
                        ties_between(graph, {i, p, q}, {j, r, s}) - (tied(graph, i, j) ? 1 : 0);
                    if (between == wanted) {
                        change -= 1.0;
                    }
                    if (between + 1 == wanted) {
                        change += 1.0;
                    }
                }
            }
        }
    }
    return change;
}

template <int wanted>
double separate_triangles_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = p + 1; q < graph.n; ++q) {
            for (int r = q + 1; r < graph.n; ++r) {
                if (!triangle(graph, p, q, r)) {
                    continue;
                }
                for (int s = 0; s < graph.n; ++s) {
                    for (int u = s + 1; u < graph.n; ++u) {
                        for (int v = u + 1; v < graph.n; ++v) {
                            if (triangle(graph, s, u, v) && all_distinct<6>({p, q, r, s, u, v}) &&
                                ties_between(graph, {p, q, r}, {s, u, v}) == wanted) {
                                count += 1.0;
                            }
                        }
                    }
                }
            }
        }
    }
    return count * 0.5;
}

// Triangles through an actor as they are without the tie under evaluation.
int triangles_without(const EvaluationState& state, int actor, int c) {
    return state.adding == 1 ? triangles(state, actor) : triangles(state, actor) - c;
}

// A triangle with one further tie at one of its actors.
double one_et_change(const EvaluationState& state, int i, int j, float) {
    const int c = two_paths(state, i, j);
    double change = triangles(state, i) + triangles(state, j);
    if (state.adding == 0) {
        change -= 2.0 * c;
    }
    change += (degree(state, i) + degree(state, j) - 2) * c;
    for (const int k : shared_neighbours(state, i, j)) {
        change += degree(state, k) - 2;
    }
    return change;
}

double one_et_value(const PlainGraph& graph, float) {
    double sum = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        sum += triangles_through(graph, v) * (degree(graph, v) - 2);
    }
    return sum;
}

// A triangle with two further ties at the same one of its actors.
double two_et_change(const EvaluationState& state, int i, int j, float) {
    const int c = two_paths(state, i, j);
    const int di = degree(state, i);
    const int dj = degree(state, j);
    double at_shared = 0.0;
    for (const int k : shared_neighbours(state, i, j)) {
        const int dk = degree(state, k);
        at_shared += (dk - 3) * (dk - 2);
    }
    return ((dj - 2) * (dj - 1) + (di - 2) * (di - 1)) * c * 0.5 + 0.5 * at_shared +
           (dj - 2) * triangles_without(state, j, c) + (di - 2) * triangles_without(state, i, c);
}

double two_et_value(const PlainGraph& graph, float) {
    double sum = 0.0;
    for (int v = 0; v < graph.n; ++v) {
        const int further = degree(graph, v) - 2;
        sum += triangles_through(graph, v) * (further * (further - 1) * 0.5);
    }
    return sum;
}

// Triangles with one further tie less half of those with two.
double one2et_change(const EvaluationState& state, int i, int j, float lambda) {
    return one_et_change(state, i, j, lambda) - two_et_change(state, i, j, lambda) * 0.5;
}

double one2et_value(const PlainGraph& graph, float) {
    double sum = 0.0;
    for (int p = 0; p < graph.n; ++p) {
        for (int q = p + 1; q < graph.n; ++q) {
            for (int r = q + 1; r < graph.n; ++r) {
                if (!triangle(graph, p, q, r)) {
                    continue;
                }
                for (const int v : {p, q, r}) {
                    const int d = degree(graph, v);
                    if (d > 2) {
                        sum += d - 2;
                    }
                    if (d > 3) {
                        sum -= (d - 2) * 0.25 * (d - 3);
                    }
                }
            }
        }
    }
    return sum;
}

// Effects that a toggle never moves: they are counted on whole networks only.
double no_change(const EvaluationState&, int, int, float) { return 0.0; }

double sum_of(const std::vector<int>& terms) {
    double sum = 0.0;
    for (const int term : terms) {
        sum += term;
    }
    return sum;
}

double zero_et_value(const PlainGraph& graph, float) { return sum_of(et0_terms(graph)); }

double etnt_value(const PlainGraph& graph, float) { return sum_of(etnt_terms(graph)); }

}  // namespace

// A triangle with a further tie that lies in no triangle.
std::vector<int> et0_terms(const PlainGraph& graph) {
    std::vector<int> terms;
    for (int v = 0; v < graph.n; ++v) {
        int term = 0;
        for (int u = 0; u < graph.n; ++u) {
            if (tied(graph, v, u) && common_neighbours(graph, v, u) == 0) {
                term += triangles_through(graph, v);
            }
        }
        terms.push_back(term);
    }
    return terms;
}

// The same with a far end that is in no triangle at all.
std::vector<int> etnt_terms(const PlainGraph& graph) {
    std::vector<int> terms;
    for (int v = 0; v < graph.n; ++v) {
        int term = 0;
        for (int u = 0; u < graph.n; ++u) {
            if (tied(graph, v, u) && common_neighbours(graph, v, u) == 0 &&
                triangles_through(graph, u) == 0) {
                term += triangles_through(graph, v);
            }
        }
        terms.push_back(term);
    }
    return terms;
}

std::vector<StructuralEffect> triangle_effects() {
    return {
        {"Triangle", triangle_change, triangle_value},
        {"P0", triangle_change, triangle_value},
        {"Triangle2", triangle2_change, triangle2_value},
        {"Bow_tie", bow_tie_change, bow_tie_value},
        {"P3", p3_change, p3_value},
        {"Q10", q10_change, q10_value},
        {"Q20", q20_change, q20_value},
        {"Q30", separate_triangles_change<0>, separate_triangles_value<0>},
        {"Q31", separate_triangles_change<1>, separate_triangles_value<1>},
        {"1ET", one_et_change, one_et_value},
        {"2ET", two_et_change, two_et_value},
        {"0ET", no_change, zero_et_value},
        {"ETNT", no_change, etnt_value},
        {"one2triangle", one2triangle_change, one2triangle_value},
        {"one2et", one2et_change, one2et_value},
    };
}

}  // namespace reference
