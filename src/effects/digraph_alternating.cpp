#include "effects/digraph_alternating.h"

#include <cmath>

#include "effects/digraph_walk.h"
#include "effects/geometric_weights.h"

namespace {

int cell(const std::vector<int>& counts, int actor) {
    return counts[static_cast<std::size_t>(actor)];
}
double squared(float lambda) { return static_cast<double>(lambda * lambda); }

double star_change(const EffectData& data, int degree) {
    if (data.lambda > 1.0F) {
        return static_cast<double>(data.lambda) * (1.0 - geometric_weight(degree, data.weights));
    }
    return data.lambda == 1.0F && degree >= 1 ? 1.0 : 0.0;
}

double star_count(const Digraph& digraph, const EffectData& data, const std::vector<int>& degrees) {
    if (data.lambda > 1.0F) {
        double sum = 0.0;
        for (const int degree : degrees) {
            const float share = static_cast<float>(degree) / data.lambda;
            sum += geometric_weight(degree, data.weights) - 1.0 + static_cast<double>(share);
        }
        return squared(data.lambda) * sum;
    }
    if (data.lambda == 1.0F) {
        double none = 0.0;
        for (const int degree : degrees) {
            none += degree == 0 ? 1.0 : 0.0;
        }
        return digraph.arcs + none - digraph.vertices;
    }
    return 0.0;
}

// One degree alternates, the other counts: lambda x the sum over the actors of
// (counted - r)(1 - w(alternating)) + r (1 - w(alternating - 1)).
double mixed_star_count(const Digraph& digraph, const EffectData& data,
                        const std::vector<int>& counted, const std::vector<int>& alternating) {
    if (!(data.lambda > 1.0F)) {
        return 0.0;
    }
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        const int mutual = mutual_of(digraph, actor);
        const int degree = cell(alternating, actor);
        double term =
            (cell(counted, actor) - mutual) * (1.0 - geometric_weight(degree, data.weights));
        if (mutual > 0) {
            term += mutual * (1.0 - geometric_weight(degree - 1, data.weights));
        }
        sum += term;
    }
    return static_cast<double>(data.lambda) * sum;
}

double power(double base, int exponent) { return std::pow(base, exponent); }

// What a sum over third actors adds for one two-path cell: its weight without the arc under
// evaluation, or, at lambda 1, whether it is the cell's first path.
class PathTerm {
  public:
    PathTerm(const EffectData& data, int adding)
        : weights_(data.weights), counted_(data.lambda == 1.0F), lag_(adding - 1) {}
    double operator()(int cell_value) const {
        const int paths = cell_value + lag_;
        return counted_ ? (paths == 0 ? 1.0 : 0.0) : geometric_weight(paths, weights_);
    }
    bool counted() const { return counted_; }

  private:
    const float* weights_;
    bool counted_;
    int lag_;
};

bool dead(const EffectData& data) { return !(data.lambda >= 1.0F); }

double base_term(const EffectData& data, int base) {
    if (data.lambda == 1.0F) {
        return base > 0 ? 1.0 : 0.0;
    }
    return static_cast<double>(data.lambda) * (1.0 - geometric_weight(base, data.weights));
}

// Sum over k ascending of term 1 where k is in both rows of the first pair, then term 2 where it is
// in both rows of the second.
template <class First, class Second>
double closed_sum(const Digraph& digraph, const std::uint64_t* first_a,
                  const std::uint64_t* first_b, const std::uint64_t* second_a,
                  const std::uint64_t* second_b, First first, Second second) {
    double sum = 0.0;
    for (int word = 0; word < digraph.adjacency.words_per_row; ++word) {
        const std::uint64_t of_first = first_a[word] & first_b[word];
        const std::uint64_t of_second = second_a[word] & second_b[word];
        if ((of_first | of_second) == 0) {
            continue;
        }
        word_for_each(actor_order(of_first | of_second), word * 64, [&](int k) {
            if (row_has(first_a, k) && row_has(first_b, k)) {
                sum += first(k);
            }
            if (row_has(second_a, k) && row_has(second_b, k)) {
                sum += second(k);
            }
        });
    }
    return sum;
}

// Arcs weighted by the two-path cell that `paths(i, j)` gives for each.
template <class Paths>
double closed_count(const Digraph& digraph, const EffectData& data, Paths paths) {
    double sum = 0.0;
    if (dead(data)) {
        return sum;
    }
    const bool counted = data.lambda == 1.0F;
    for (int i = 0; i < digraph.vertices; ++i) {
        if (out_of(digraph, i) == 0) {
            continue;
        }
        if (!counted) {
            sum += out_of(digraph, i);
        }
        row_for_each(digraph.adjacency[i], digraph.adjacency.words_per_row, [&](int j) {
            if (counted) {
                sum += paths(i, j) > 0 ? 1.0 : 0.0;
            } else {
                sum -= geometric_weight(paths(i, j), data.weights);
            }
        });
    }
    return counted ? sum : static_cast<double>(data.lambda) * sum;
}

// Ordered pairs, tied or not, weighted by their cell of the table.
double open_count(const Digraph& digraph, const EffectData& data, const CountTable& table) {
    double sum = 0.0;
    if (dead(data)) {
        return sum;
    }
    const bool counted = data.lambda == 1.0F;
    for (int i = 0; i < digraph.vertices; ++i) {
        for (int j = 0; j < digraph.vertices; ++j) {
            const int paths = table[i][j];
            if (i != j && paths > 0) {
                sum += counted ? 1.0 : 1.0 - geometric_weight(paths, data.weights);
            }
        }
    }
    return counted ? sum : static_cast<double>(data.lambda) * sum;
}

}  // namespace

// Arcs into one actor, and out of one, each further one weighing less.
double digraph_alternating_in_star_change(const Digraph& digraph, const EffectData& data, int,
                                          int j, int) {
    return star_change(data, in_of(digraph, j));
}
double digraph_alternating_in_star_count(Digraph& digraph, const EffectData& data) {
    return star_count(digraph, data, digraph.in_degree);
}
double digraph_alternating_out_star_change(const Digraph& digraph, const EffectData& data, int i,
                                           int, int) {
    return star_change(data, out_of(digraph, i));
}
double digraph_alternating_out_star_count(Digraph& digraph, const EffectData& data) {
    return star_count(digraph, data, digraph.out_degree);
}

// Two-paths through an actor, alternating in its in-degree.
double digraph_alternating_in_one_out_change(const Digraph& digraph, const EffectData& data, int i,
                                             int j, int) {
    if (!(data.lambda > 1.0F)) {
        return 0.0;
    }
    const auto lambda = static_cast<double>(data.lambda);
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    const int mutual = mutual_of(digraph, j);
    const int in = in_of(digraph, j);
    return lambda + geometric_weight(in, data.weights) * (out_of(digraph, j) - mutual - back) +
           geometric_weight(in - 1, data.weights) * mutual -
           lambda * geometric_weight(in_of(digraph, i) - back, data.weights);
}
double digraph_alternating_in_one_out_count(Digraph& digraph, const EffectData& data) {
    return mixed_star_count(digraph, data, digraph.out_degree, digraph.in_degree);
}

// Two-paths through an actor, alternating in its out-degree.
double digraph_one_in_alternating_out_change(const Digraph& digraph, const EffectData& data, int i,
                                             int j, int) {
    if (!(data.lambda > 1.0F)) {
        return 0.0;
    }
    const auto lambda = static_cast<double>(data.lambda);
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    const int mutual_i = mutual_of(digraph, i);
    const int mutual_j = mutual_of(digraph, j);
    const int only_in = in_of(digraph, i) - mutual_i - back;
    const int only_out = out_of(digraph, i) - mutual_i;
    const int only_out_j = out_of(digraph, j) - mutual_j - back;
    return lambda + geometric_weight(mutual_i + only_out, data.weights) * only_in +
           geometric_weight(mutual_i + only_out - 1, data.weights) * mutual_i -
           lambda * geometric_weight(mutual_j + only_out_j, data.weights);
}
double digraph_one_in_alternating_out_count(Digraph& digraph, const EffectData& data) {
    return mixed_star_count(digraph, data, digraph.in_degree, digraph.out_degree);
}

// Two-paths through an actor, alternating in both degrees. The two bases are single-precision
// numbers; powers are taken by the power function, not from a table.
double digraph_alternating_in_alternating_out_change(const Digraph& digraph, const EffectData& data,
                                                     int i, int j, int) {
    if (!(data.lambda > 1.0F)) {
        return 0.0;
    }
    const auto lambda = static_cast<double>(data.lambda);
    const double p = 1.0F - 1.0F / data.lambda;
    const double q = 1.0F - 1.0F / (data.lambda - 1.0F);
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    const int mutual_i = mutual_of(digraph, i);
    const int mutual_j = mutual_of(digraph, j);
    return lambda * power(p, in_of(digraph, j) - mutual_j) *
               (power(p, mutual_j) - power(p, out_of(digraph, j) - back) * power(q, mutual_j)) +
           lambda * power(p, out_of(digraph, i)) *
               (1.0 - power(p, in_of(digraph, i) - mutual_i - back) * power(q, mutual_i));
}
double digraph_alternating_in_alternating_out_count(Digraph& digraph, const EffectData& data) {
    if (!(data.lambda > 1.0F)) {
        return 0.0;
    }
    const double p = 1.0 - 1.0 / static_cast<double>(data.lambda);
    const double q = 1.0F - 1.0F / (data.lambda - 1.0F);
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        const int mutual = mutual_of(digraph, actor);
        const double only_in = power(p, in_of(digraph, actor) - mutual);
        const double out = power(p, out_of(digraph, actor));
        sum += ((power(q, mutual) - 1.0) * out - (power(p, mutual) - 1.0)) * only_in +
               (only_in - 1.0) * (out - 1.0);
    }
    return squared(data.lambda) * sum;
}

// Arcs i to j closed by two-paths i to k to j.
double digraph_at_t_change(const Digraph& digraph, const EffectData& data, int i, int j,
                           int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    const double sum = closed_sum(
        digraph, digraph.adjacency[i], digraph.adjacency[j], digraph.adjacency_in[i],
        digraph.adjacency_in[j], [&](int k) { return term(digraph.two_paths[i][k]); },
        [&](int k) { return term(digraph.two_paths[k][j]); });
    return base_term(data, digraph.two_paths[i][j]) + sum;
}
double digraph_at_t_count(Digraph& digraph, const EffectData& data) {
    return closed_count(digraph, data, [&](int i, int j) { return digraph.two_paths[i][j]; });
}

// Arcs i to j closed by two-paths j to k to i.
double digraph_at_c_change(const Digraph& digraph, const EffectData& data, int i, int j,
                           int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    const double sum = closed_sum(
        digraph, digraph.adjacency[j], digraph.adjacency_in[i], digraph.adjacency[j],
        digraph.adjacency_in[i], [&](int k) { return term(digraph.two_paths[k][j]); },
        [&](int k) { return term(digraph.two_paths[i][k]); });
    return base_term(data, digraph.two_paths[j][i]) + sum;
}
double digraph_at_c_count(Digraph& digraph, const EffectData& data) {
    return closed_count(digraph, data, [&](int i, int j) { return digraph.two_paths[j][i]; });
}

// Arcs between actors that receive from the same third actors.
double digraph_at_d_change(const Digraph& digraph, const EffectData& data, int i, int j,
                           int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    const double sum = closed_sum(
        digraph, digraph.adjacency[i], digraph.adjacency[j], digraph.adjacency[i],
        digraph.adjacency_in[j], [&](int k) { return term(digraph.shared_senders[j][k]); },
        [&](int k) { return term(digraph.shared_senders[k][j]); });
    return base_term(data, digraph.shared_senders[i][j]) + sum;
}
double digraph_at_d_count(Digraph& digraph, const EffectData& data) {
    return closed_count(digraph, data, [&](int i, int j) { return digraph.shared_senders[i][j]; });
}

// Arcs between actors that send to the same third actors.
double digraph_at_u_change(const Digraph& digraph, const EffectData& data, int i, int j,
                           int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    const double sum = closed_sum(
        digraph, digraph.adjacency[i], digraph.adjacency_in[j], digraph.adjacency_in[i],
        digraph.adjacency_in[j], [&](int k) { return term(digraph.shared_receivers[i][k]); },
        [&](int k) { return term(digraph.shared_receivers[k][i]); });
    return base_term(data, digraph.shared_receivers[i][j]) + sum;
}
double digraph_at_u_count(Digraph& digraph, const EffectData& data) {
    return closed_count(digraph, data,
                        [&](int i, int j) { return digraph.shared_receivers[i][j]; });
}

// The means.
double digraph_at_td_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    return (digraph_at_t_change(digraph, data, i, j, adding) +
            digraph_at_d_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_at_td_count(Digraph& digraph, const EffectData& data) {
    return (digraph_at_t_count(digraph, data) + digraph_at_d_count(digraph, data)) * 0.5;
}
double digraph_at_tu_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    return (digraph_at_t_change(digraph, data, i, j, adding) +
            digraph_at_u_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_at_tu_count(Digraph& digraph, const EffectData& data) {
    return (digraph_at_t_count(digraph, data) + digraph_at_u_count(digraph, data)) * 0.5;
}
double digraph_at_du_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    return (digraph_at_d_change(digraph, data, i, j, adding) +
            digraph_at_u_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_at_du_count(Digraph& digraph, const EffectData& data) {
    return (digraph_at_d_count(digraph, data) + digraph_at_u_count(digraph, data)) * 0.5;
}
double digraph_at_tdu_change(const Digraph& digraph, const EffectData& data, int i, int j,
                             int adding) {
    return (digraph_at_t_change(digraph, data, i, j, adding) +
            digraph_at_u_change(digraph, data, i, j, adding) +
            digraph_at_d_change(digraph, data, i, j, adding)) /
           3.0;
}
double digraph_at_tdu_count(Digraph& digraph, const EffectData& data) {
    return (digraph_at_t_count(digraph, data) + digraph_at_u_count(digraph, data) +
            digraph_at_d_count(digraph, data)) /
           3.0;
}

// Two-paths i to k to j of any ordered pair.
double digraph_a2p_t_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    double sum = 0.0;
    for_each_of_two(digraph, digraph.adjacency[j], digraph.adjacency_in[i], i, j,
                    [&](int k, bool from_j, bool to_i) {
                        if (from_j) {
                            sum += term(digraph.two_paths[i][k]);
                        }
                        if (to_i) {
                            sum += term(digraph.two_paths[k][j]);
                        }
                    });
    return sum;
}
double digraph_a2p_t_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.two_paths);
}

namespace {

// At lambda 1 the shared-sender and shared-receiver effects ask about the neighbours that a
// two-path from i to j would have, and not about those of their form above 1: the two forms are not
// each other's limit, and both stand.
double shared_change_at_one(const Digraph& digraph, const CountTable& table, const PathTerm& term,
                            int i, int j) {
    double sum = 0.0;
    for_each_of_two(digraph, digraph.adjacency[j], digraph.adjacency_in[i], i, j,
                    [&](int k, bool from_j, bool to_i) {
                        if (from_j) {
                            sum += term(table[i][k]);
                        }
                        if (to_i) {
                            sum += term(table[k][j]);
                        }
                    });
    return sum;
}

}  // namespace

// Pairs of actors that receive from the same third actors.
double digraph_a2p_d_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    if (term.counted()) {
        return shared_change_at_one(digraph, digraph.shared_senders, term, i, j);
    }
    double sum = 0.0;
    row_for_each(digraph.adjacency[i], digraph.adjacency.words_per_row, [&](int k) {
        if (k != j) {
            sum += term(digraph.shared_senders[j][k]);
        }
    });
    return sum;
}
double digraph_a2p_d_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.shared_senders) * 0.5;
}

// Pairs of actors that send to the same third actors.
double digraph_a2p_u_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    if (dead(data)) {
        return 0.0;
    }
    const PathTerm term(data, adding);
    if (term.counted()) {
        return shared_change_at_one(digraph, digraph.shared_receivers, term, i, j);
    }
    double sum = 0.0;
    row_for_each(digraph.adjacency_in[j], digraph.adjacency.words_per_row, [&](int k) {
        if (k != i) {
            sum += term(digraph.shared_receivers[i][k]);
        }
    });
    return sum;
}
double digraph_a2p_u_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.shared_receivers) * 0.5;
}

// The means.
double digraph_a2p_td_change(const Digraph& digraph, const EffectData& data, int i, int j,
                             int adding) {
    return (digraph_a2p_t_change(digraph, data, i, j, adding) +
            digraph_a2p_d_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_a2p_td_count(Digraph& digraph, const EffectData& data) {
    return (digraph_a2p_t_count(digraph, data) + digraph_a2p_d_count(digraph, data)) * 0.5;
}
double digraph_a2p_tu_change(const Digraph& digraph, const EffectData& data, int i, int j,
                             int adding) {
    return (digraph_a2p_t_change(digraph, data, i, j, adding) +
            digraph_a2p_u_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_a2p_tu_count(Digraph& digraph, const EffectData& data) {
    return (digraph_a2p_t_count(digraph, data) + digraph_a2p_u_count(digraph, data)) * 0.5;
}
double digraph_a2p_du_change(const Digraph& digraph, const EffectData& data, int i, int j,
                             int adding) {
    return (digraph_a2p_d_change(digraph, data, i, j, adding) +
            digraph_a2p_u_change(digraph, data, i, j, adding)) *
           0.5;
}
double digraph_a2p_du_count(Digraph& digraph, const EffectData& data) {
    return (digraph_a2p_d_count(digraph, data) + digraph_a2p_u_count(digraph, data)) * 0.5;
}
double digraph_a2p_tdu_change(const Digraph& digraph, const EffectData& data, int i, int j,
                              int adding) {
    return (digraph_a2p_t_change(digraph, data, i, j, adding) +
            digraph_a2p_d_change(digraph, data, i, j, adding) +
            digraph_a2p_u_change(digraph, data, i, j, adding)) /
           3.0;
}
double digraph_a2p_tdu_count(Digraph& digraph, const EffectData& data) {
    return (digraph_a2p_t_count(digraph, data) + digraph_a2p_d_count(digraph, data) +
            digraph_a2p_u_count(digraph, data)) /
           3.0;
}
