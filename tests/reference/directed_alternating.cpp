#include "directed_families.h"
#include "weights.h"

namespace reference {

namespace {

// Sums the terms of one alternating effect over third actors. A term is a cell of a lagging table,
// taken when the arcs that `when` stands for are there: above lambda 1 its weight without the arc
// under evaluation, at lambda 1 a count when the new arc makes the cell's first configuration.
class Terms {
  public:
    Terms(const DirectedState& state, float own_lambda)
        : adding(state.adding), lambda(own_lambda) {}

    void weigh(bool when, int table_value) {
        if (when) {
            sum += geometric_weight(table_value + adding - 1, lambda);
        }
    }

    void test(bool when, int table_value) {
        if (when && table_value == 1 - adding) {
            firsts += 1.0;
        }
    }

    void take(bool when, int table_value) {
        weigh(when, table_value);
        test(when, table_value);
    }

    // The change of an alternating triangle with the given number of bases of the new arc.
    double triangle(int base) const {
        if (lambda > 1.0F) {
            return lambda * (1 - geometric_weight(base, lambda)) + sum;
        }
        if (lambda == 1.0F) {
            return base > 0 ? firsts + 1.0 : firsts;
        }
        return 0.0;
    }

    // The change of an alternating two-path.
    double two_path() const {
        if (lambda > 1.0F) {
            return sum;
        }
        return lambda == 1.0F ? firsts : 0.0;
    }

  private:
    int adding;
    float lambda;
    double sum = 0.0;
    double firsts = 0.0;
};

// Arcs weighted by a count for each, of which more and more weigh less and less; at lambda 1 the
// arcs with a positive count. `count_of` gives the count of the arc a to b.
template <typename CountOf>
double weighted_arcs(const PlainDigraph& digraph, float lambda, CountOf count_of) {
    double sum = 0.0;
    double positive = 0.0;
    for (int a = 0; a < digraph.n; ++a) {
        const int out = out_degree(digraph, a);
        if (out == 0) {
            continue;
        }
        sum += out;
        for (int b = 0; b < digraph.n; ++b) {
            if (!has_arc(digraph, a, b)) {
                continue;
            }
            const int count = count_of(a, b);
            sum -= geometric_weight(count, lambda);
            if (count > 0) {
                positive += 1.0;
            }
        }
    }
    if (lambda > 1.0F) {
        return lambda * sum;
    }
    return lambda == 1.0F ? positive : 0.0;
}

// Ordered pairs, joined by an arc or not, weighted in the same way by the cells of a table.
double weighted_pairs(const IntTable& table, float lambda) {
    const int n = static_cast<int>(table.size());
    double sum = 0.0;
    double positive = 0.0;
    for (int a = 0; a < n; ++a) {
        for (int b = 0; b < n; ++b) {
            if (a == b) {
                continue;
            }
            const int count = cell(table, a, b);
            sum += 1 - geometric_weight(count, lambda);
            if (count > 0) {
                positive += 1.0;
            }
        }
    }
    if (lambda > 1.0F) {
        return lambda * sum;
    }
    return lambda == 1.0F ? positive : 0.0;
}

// Alternating transitive triangles: arcs a to b by the number of paths a to x to b.
double at_t_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.take(has_arc(state, i, k) && has_arc(state, j, k), cell(state.two_paths, i, k));
        terms.take(has_arc(state, k, i) && has_arc(state, k, j), cell(state.two_paths, k, j));
    }
    return terms.triangle(cell(state.two_paths, i, j));
}

double at_t_value(const PlainDigraph& digraph, float lambda) {
    const IntTable table = two_path_table(digraph);
    return weighted_arcs(digraph, lambda, [&](int a, int b) { return cell(table, a, b); });
}

// Alternating cyclic triangles: arcs a to b by the number of paths b to x to a.
double at_c_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        const bool cyclic = has_arc(state, j, k) && has_arc(state, k, i);
        terms.take(cyclic, cell(state.two_paths, k, j));
        terms.take(cyclic, cell(state.two_paths, i, k));
    }
    return terms.triangle(cell(state.two_paths, j, i));
}

double at_c_value(const PlainDigraph& digraph, float lambda) {
    const IntTable table = two_path_table(digraph);
    return weighted_arcs(digraph, lambda, [&](int a, int b) { return cell(table, b, a); });
}

// Alternating triangles over shared senders: arcs a to b by the number of actors that send to both.
double at_d_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.take(has_arc(state, i, k) && has_arc(state, j, k), cell(state.shared_senders, j, k));
        terms.take(has_arc(state, i, k) && has_arc(state, k, j), cell(state.shared_senders, k, j));
    }
    return terms.triangle(cell(state.shared_senders, i, j));
}

double at_d_value(const PlainDigraph& digraph, float lambda) {
    const IntTable table = shared_sender_table(digraph);
    return weighted_arcs(digraph, lambda, [&](int a, int b) { return cell(table, a, b); });
}

// Alternating triangles over shared receivers: arcs a to b by the number of actors that receive
// from both.
double at_u_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.take(has_arc(state, i, k) && has_arc(state, k, j),
                   cell(state.shared_receivers, i, k));
        terms.take(has_arc(state, k, i) && has_arc(state, k, j),
                   cell(state.shared_receivers, k, i));
    }
    return terms.triangle(cell(state.shared_receivers, i, j));
}

double at_u_value(const PlainDigraph& digraph, float lambda) {
    const IntTable table = shared_receiver_table(digraph);
    return weighted_arcs(digraph, lambda, [&](int a, int b) { return cell(table, a, b); });
}

// Alternating two-paths: ordered pairs a, b by the number of paths a to x to b.
double a2p_t_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.take(has_arc(state, j, k), cell(state.two_paths, i, k));
        terms.take(has_arc(state, k, i), cell(state.two_paths, k, j));
    }
    return terms.two_path();
}

double a2p_t_value(const PlainDigraph& digraph, float lambda) {
    return weighted_pairs(two_path_table(digraph), lambda);
}

// Alternating shared senders: pairs by the number of actors that send to both. At lambda 1 the
// change looks at other arcs than above it: the two forms are not each other's limit.
double a2p_d_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.weigh(has_arc(state, i, k), cell(state.shared_senders, j, k));
        terms.test(has_arc(state, j, k), cell(state.shared_senders, i, k));
        terms.test(has_arc(state, k, i), cell(state.shared_senders, k, j));
    }
    return terms.two_path();
}

double a2p_d_value(const PlainDigraph& digraph, float lambda) {
    return weighted_pairs(shared_sender_table(digraph), lambda) * 0.5;
}

// Alternating shared receivers: pairs by the number of actors that receive from both, with the
// same break between lambda 1 and above.
double a2p_u_change(const DirectedState& state, int i, int j, float lambda) {
    Terms terms(state, lambda);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        terms.weigh(has_arc(state, k, j), cell(state.shared_receivers, i, k));
        terms.test(has_arc(state, j, k), cell(state.shared_receivers, i, k));
        terms.test(has_arc(state, k, i), cell(state.shared_receivers, k, j));
    }
    return terms.two_path();
}

double a2p_u_value(const PlainDigraph& digraph, float lambda) {
    return weighted_pairs(shared_receiver_table(digraph), lambda) * 0.5;
}

using Change = double (*)(const DirectedState&, int, int, float);
using Value = double (*)(const PlainDigraph&, float);

// Mixtures: the mean of two or three of the above.
template <Change one, Change other>
double mean_change(const DirectedState& state, int i, int j, float lambda) {
    return (one(state, i, j, lambda) + other(state, i, j, lambda)) * 0.5;
}

template <Value one, Value other>
double mean_value(const PlainDigraph& digraph, float lambda) {
    return (one(digraph, lambda) + other(digraph, lambda)) * 0.5;
}

template <Change one, Change two, Change three>
double mean_of_three_change(const DirectedState& state, int i, int j, float lambda) {
    return (one(state, i, j, lambda) + two(state, i, j, lambda) + three(state, i, j, lambda)) / 3.0;
}

template <Value one, Value two, Value three>
double mean_of_three_value(const PlainDigraph& digraph, float lambda) {
    return (one(digraph, lambda) + two(digraph, lambda) + three(digraph, lambda)) / 3.0;
}

}  // namespace

std::vector<DirectedEffect> directed_alternating_effects() {
    return {
        {"AT-T", at_t_change, at_t_value},
        {"AT-C", at_c_change, at_c_value},
        {"AT-D", at_d_change, at_d_value},
        {"AT-U", at_u_change, at_u_value},
        {"AT-TD", mean_change<at_t_change, at_d_change>, mean_value<at_t_value, at_d_value>},
        {"AT-TU", mean_change<at_t_change, at_u_change>, mean_value<at_t_value, at_u_value>},
        {"AT-DU", mean_change<at_d_change, at_u_change>, mean_value<at_d_value, at_u_value>},
        {"AT-TDU", mean_of_three_change<at_t_change, at_u_change, at_d_change>,
         mean_of_three_value<at_t_value, at_u_value, at_d_value>},
        {"A2P-T", a2p_t_change, a2p_t_value},
        {"A2P-D", a2p_d_change, a2p_d_value},
        {"A2P-U", a2p_u_change, a2p_u_value},
        {"A2P-TD", mean_change<a2p_t_change, a2p_d_change>, mean_value<a2p_t_value, a2p_d_value>},
        {"A2P-TU", mean_change<a2p_t_change, a2p_u_change>, mean_value<a2p_t_value, a2p_u_value>},
        {"A2P-DU", mean_change<a2p_d_change, a2p_u_change>, mean_value<a2p_d_value, a2p_u_value>},
        {"A2P-TDU", mean_of_three_change<a2p_t_change, a2p_d_change, a2p_u_change>,
         mean_of_three_value<a2p_t_value, a2p_d_value, a2p_u_value>},
    };
}

}  // namespace reference
