#include "directed_families.h"

namespace reference {

namespace {

// The six arcs between a third actor k and the ends of the arc i to j, as 0 or 1.
struct ThirdActor {
    int ik;
    int ki;
    int jk;
    int kj;
};

// Adds term(arcs of k) over every actor k other than i and j.
template <typename Term>
double over_third_actors(const DirectedState& state, int i, int j, Term term) {
    double sum = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        sum += term(ThirdActor{cell(state.bits.arc, i, k), cell(state.bits.arc, k, i),
                               cell(state.bits.arc, j, k), cell(state.bits.arc, k, j)});
    }
    return sum;
}

// Number of ordered triples of different actors for which `holds` is true.
template <typename Holds>
double ordered_triples(const PlainDigraph& digraph, Holds holds) {
    double count = 0.0;
    for (int p = 0; p < digraph.n; ++p) {
        for (int q = 0; q < digraph.n; ++q) {
            for (int k = 0; k < digraph.n; ++k) {
                if (p != q && p != k && q != k && holds(p, q, k)) {
                    count += 1.0;
                }
            }
        }
    }
    return count;
}

bool arc_back(const DirectedState& state, int i, int j) { return has_arc(state, j, i); }

// All three dyads mutual.
double t1_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return 0.0;
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return k.ki * k.ik * k.jk * k.kj; });
}

double t1_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph,
                           [&](int p, int q, int k) {
                               return mutual(digraph, p, q) && mutual(digraph, q, k) &&
                                      mutual(digraph, p, k);
                           }) /
           6.0;
}

// An actor in mutual dyads with two others, and an arc from one of these to the other.
double t2_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return over_third_actors(state, i, j,
                                 [](const ThirdActor& k) { return k.jk * k.kj * k.ik * k.ki; });
    }
    return over_third_actors(state, i, j, [](const ThirdActor& k) {
        const int x = k.kj;
        const int y = k.ki;
        const int u = k.jk;
        const int v = k.ik;
        return ((x + 1) * y + x) * u * v + y * x * v + u * y * x;
    });
}

double t2_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int centre) {
        return mutual(digraph, centre, p) && mutual(digraph, centre, q) && has_arc(digraph, p, q);
    });
}

// A mutual dyad and a path of two arcs from one of its actors over a third to the other.
double t3_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return over_third_actors(state, i, j,
                                 [](const ThirdActor& k) { return (k.kj + k.ik) * k.jk * k.ki; });
    }
    return over_third_actors(state, i, j, [](const ThirdActor& k) {
        const int a = k.jk;
        const int b = k.ki;
        const int p = k.ik;
        const int q = k.kj;
        return a * b * (p + q + 1) + p * q;
    });
}

double t3_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int k) {
        return mutual(digraph, p, q) && has_arc(digraph, p, k) && has_arc(digraph, k, q);
    });
}

// A mutual dyad and a third actor that sends to both of its actors.
double t4_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return over_third_actors(state, i, j,
                                 [](const ThirdActor& k) { return k.kj * k.ik * k.jk; });
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return k.kj * (k.ik * k.jk + k.ki); });
}

double t4_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph,
                           [&](int p, int q, int k) {
                               return mutual(digraph, p, q) && has_arc(digraph, k, p) &&
                                      has_arc(digraph, k, q);
                           }) *
           0.5;
}

// A mutual dyad and a third actor that receives from both of its actors.
double t5_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return over_third_actors(state, i, j,
                                 [](const ThirdActor& k) { return k.kj * k.ki * k.ik; });
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return (k.kj * k.ki + k.jk) * k.ik; });
}

double t5_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph,
                           [&](int p, int q, int k) {
                               return mutual(digraph, p, q) && has_arc(digraph, p, k) &&
                                      has_arc(digraph, q, k);
                           }) *
           0.5;
}

// An actor in mutual dyads with two others.
double t6_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return 0.0;
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return k.jk * k.kj + k.ik * k.ki; });
}

double t6_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int centre) {
        return p < q && mutual(digraph, centre, p) && mutual(digraph, centre, q);
    });
}

// A mutual dyad and an arc into one of its actors from a third.
double t7_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return mutual_degree(state, j);
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return k.jk * k.kj + k.ki + k.kj; });
}

double t7_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int k) {
        return mutual(digraph, p, q) && has_arc(digraph, k, p);
    });
}

// A mutual dyad and an arc from one of its actors to a third.
double t8_change(const DirectedState& state, int i, int j, float) {
    if (!arc_back(state, i, j)) {
        return mutual_degree(state, i);
    }
    return over_third_actors(state, i, j,
                             [](const ThirdActor& k) { return k.ki * k.ik + k.jk + k.ik; });
}

double t8_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int k) {
        return mutual(digraph, p, q) && has_arc(digraph, p, k);
    });
}

// A path of two arcs closed by an arc from its start to its end.
double transitive_change(const DirectedState& state, int i, int j, float) {
    return over_third_actors(
        state, i, j, [](const ThirdActor& k) { return k.ki * k.kj + k.ik * k.kj + k.ik * k.jk; });
}

double transitive_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph, [&](int p, int q, int k) {
        return has_arc(digraph, p, q) && has_arc(digraph, p, k) && has_arc(digraph, k, q);
    });
}

// A cycle of three arcs.
double cyclic_change(const DirectedState& state, int i, int j, float) {
    return over_third_actors(state, i, j, [](const ThirdActor& k) { return k.jk * k.ki; });
}

double cyclic_value(const PlainDigraph& digraph, float) {
    return ordered_triples(digraph,
                           [&](int p, int q, int k) {
                               return has_arc(digraph, p, q) && has_arc(digraph, q, k) &&
                                      has_arc(digraph, k, p);
                           }) /
           3.0;
}

}  // namespace

std::vector<DirectedEffect> directed_triad_effects() {
    return {
        {"T1", t1_change, t1_value},
        {"T2", t2_change, t2_value},
        {"T3", t3_change, t3_value},
        {"T4", t4_change, t4_value},
        {"T5", t5_change, t5_value},
        {"T6", t6_change, t6_value},
        {"T7", t7_change, t7_value},
        {"T8", t8_change, t8_value},
        {"Transitive-Triad", transitive_change, transitive_value},
        {"Cyclic-Triad", cyclic_change, cyclic_value},
    };
}

}  // namespace reference
