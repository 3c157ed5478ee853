#include "effects/digraph_alternating.h"

#include <cmath>

#include "effects/digraph_walk.h"
#include "effects/geometric_weights.h"
#include "effects/path_terms.h"

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

bool dead(const EffectData& data) { return !(data.lambda >= 1.0F); }

double base_term(const EffectData& data, int base) {
    if (data.lambda == 1.0F) {
        return base > 0 ? 1.0 : 0.0;
    }
    return static_cast<double>(data.lambda) * (1.0 - geometric_weight(base, data.weights));
}

// One part of a sum over third actors: those in both of two sets, how many there are, and the cell
// that each stands for.
template <class Cell>
struct Part {
    Members a;
    Members b;
    int size;
    Cell cell;

    bool has(int k) const { return a.has(k) && b.has(k); }
};
template <class Cell>
Part(Members, Members, int, Cell) -> Part<Cell>;

// Sum over k ascending of the term of the first part where k is in it, then of the second where k
// is in that. Small parts are walked by lists.
template <class First, class Second>
double closed_sum(const EffectData& data, int adding, const First& first, const Second& second) {
    if (first.size + second.size <= UnorderedSum::kTerms) {
        UnorderedSum unordered(data, adding);
        if (first.size > 0) {
            common_for_each(first.a, first.b, [&](int k) { unordered.add(first.cell(k)); });
        }
        if (second.size > 0) {
            common_for_each(second.a, second.b, [&](int k) { unordered.add(second.cell(k)); });
        }
        if (unordered.exact()) {
            return unordered.value();
        }
    }
    const PathTerm term(data, adding);
    const std::uint64_t* first_a = first.a.row();
    const std::uint64_t* first_b = first.b.row();
    const std::uint64_t* second_a = second.a.row();
    const std::uint64_t* second_b = second.b.row();
    double sum = 0.0;
    for (int word = 0; word < first.a.rows.words_per_row; ++word) {
        const std::uint64_t either =
            (first_a[word] & first_b[word]) | (second_a[word] & second_b[word]);
        word_for_each(actor_order(either), word * 64, [&](int k) {
            if (first.has(k)) {
                sum += term(first.cell(k));
            }
            if (second.has(k)) {
                sum += term(second.cell(k));
            }
        });
    }
    return sum;
}

// A table of two-paths: `rows` has a row of bits for each of its rows, `columns` one for each of
// its columns, set where a cell is not 0.
struct PathTable {
    const CountTable& cells;
    const BitMatrix& rows;
    const BitMatrix& columns;
};

// Sum over k ascending, i and j left out: the term of the cell [i][k] of a table where j sends to
// k, then that of [k][j] where k sends to i.
double ordered_open_sum(const Digraph& digraph, const EffectData& data, int adding,
                        const CountTable& table, int i, int j) {
    const PathTerm term(data, adding);
    double sum = 0.0;
    for_each_of_two(receivers_of(digraph, j), senders_of(digraph, i), i, j,
                    [&](int k, bool after_j, bool before_i) {
                        if (after_j) {
                            sum += term(table[i][k]);
                        }
                        if (before_i) {
                            sum += term(table[k][j]);
                        }
                    });
    return sum;
}

// The same, in any order where that cannot be seen.
inline double open_sum(const Digraph& digraph, const EffectData& data, int adding,
                       const PathTable& table, int i, int j) {
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    const std::uint16_t* from_i = table.cells[i];
    const std::uint16_t* to_j = table.cells.cells.data() + j;
    const std::ptrdiff_t stride = table.cells.columns;
    const std::optional<double> unordered =
        unordered_sum(data, adding,
                      CellSet{receivers_of(digraph, j), out_of(digraph, j) - back, table.rows[i],
                              [=](int k) { return from_i[k]; }},
                      CellSet{senders_of(digraph, i), in_of(digraph, i) - back, table.columns[j],
                              [=](int k) { return to_j[k * stride]; }});
    return unordered ? *unordered : ordered_open_sum(digraph, data, adding, table.cells, i, j);
}

// Sum over the `size` members of a set other than `of`, ascending, of the terms of row `of` of a
// symmetric table.
double row_sum(const EffectData& data, int adding, const CountTable& table, const BitMatrix& any,
               const Members& members, int size, int of) {
    const int count = members.has(of) ? size - 1 : size;
    const std::optional<double> unordered = unordered_sum(
        data, adding,
        CellSet{members, count, any[of], [cells = table[of]](int k) { return cells[k]; }});
    if (unordered) {
        return *unordered;
    }
    const PathTerm term(data, adding);
    double sum = 0.0;
    row_for_each(members.row(), members.rows.words_per_row, [&](int k) {
        if (k != of) {
            sum += term(table[of][k]);
        }
    });
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
        members_for_each(digraph.receivers, digraph.adjacency, i, [&](int j) {
            if (counted) {
                sum += paths(i, j) > 0 ? 1.0 : 0.0;
            } else {
                sum -= geometric_weight(paths(i, j), data.weights);
            }
        });
    }
    return counted ? sum : static_cast<double>(data.lambda) * sum;
}

// Ordered pairs, tied or not, weighted by their cell of the table; `any` has the bits of cells that
// are not 0. The others would add nothing, and are nearly all.
double open_count(const Digraph& digraph, const EffectData& data, const CountTable& table,
                  const BitMatrix& any) {
    double sum = 0.0;
    if (dead(data)) {
        return sum;
    }
    const bool counted = data.lambda == 1.0F;
    for (int i = 0; i < digraph.vertices; ++i) {
        row_for_each(any[i], any.words_per_row, [&](int j) {
            const int paths = table[i][j];
            if (i != j && paths > 0) {
                sum += counted ? 1.0 : 1.0 - geometric_weight(paths, data.weights);
            }
        });
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
    const int receivers = shared_receivers_of(digraph, i, j);
    const int senders = shared_senders_of(digraph, i, j);
    const double base = base_term(data, two_paths_of(digraph, i, j));
    if (receivers + senders == 0) {
        return base;
    }
    return base + closed_sum(data, adding,
                             Part{receivers_of(digraph, i), receivers_of(digraph, j), receivers,
                                  [&](int k) { return two_paths_of(digraph, i, k); }},
                             Part{senders_of(digraph, i), senders_of(digraph, j), senders,
                                  [&](int k) { return two_paths_of(digraph, k, j); }});
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
    const int cycles = two_paths_of(digraph, j, i);
    const double base = base_term(data, cycles);
    if (cycles == 0) {
        return base;
    }
    return base + closed_sum(data, adding,
                             Part{receivers_of(digraph, j), senders_of(digraph, i), cycles,
                                  [&](int k) { return two_paths_of(digraph, k, j); }},
                             Part{receivers_of(digraph, j), senders_of(digraph, i), cycles,
                                  [&](int k) { return two_paths_of(digraph, i, k); }});
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
    const int receivers = shared_receivers_of(digraph, i, j);
    const int paths = two_paths_of(digraph, i, j);
    const double base = base_term(data, shared_senders_of(digraph, i, j));
    if (receivers + paths == 0) {
        return base;
    }
    const auto cell = [&](int k) { return shared_senders_of(digraph, j, k); };
    return base +
           closed_sum(data, adding,
                      Part{receivers_of(digraph, i), receivers_of(digraph, j), receivers, cell},
                      Part{receivers_of(digraph, i), senders_of(digraph, j), paths, cell});
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
    const int paths = two_paths_of(digraph, i, j);
    const int senders = shared_senders_of(digraph, i, j);
    const double base = base_term(data, shared_receivers_of(digraph, i, j));
    if (paths + senders == 0) {
        return base;
    }
    const auto cell = [&](int k) { return shared_receivers_of(digraph, i, k); };
    return base + closed_sum(data, adding,
                             Part{receivers_of(digraph, i), senders_of(digraph, j), paths, cell},
                             Part{senders_of(digraph, i), senders_of(digraph, j), senders, cell});
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
    return open_sum(digraph, data, adding,
                    {digraph.two_paths, digraph.any_two_paths, digraph.any_two_paths_in}, i, j);
}
double digraph_a2p_t_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.two_paths, digraph.any_two_paths);
}

namespace {

// At lambda 1 the shared-sender and shared-receiver effects ask about the neighbours that a
// two-path from i to j would have, and not about those of their form above 1: the two forms are not
// each other's limit, and both stand.
double shared_change_at_one(const Digraph& digraph, const CountTable& table, const BitMatrix& any,
                            const EffectData& data, int adding, int i, int j) {
    return open_sum(digraph, data, adding, {table, any, any}, i, j);
}

}  // namespace

// Pairs of actors that receive from the same third actors.
double digraph_a2p_d_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    if (dead(data)) {
        return 0.0;
    }
    if (data.lambda == 1.0F) {
        return shared_change_at_one(digraph, digraph.shared_senders, digraph.any_shared_senders,
                                    data, adding, i, j);
    }
    return row_sum(data, adding, digraph.shared_senders, digraph.any_shared_senders,
                   receivers_of(digraph, i), out_of(digraph, i), j);
}
double digraph_a2p_d_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.shared_senders, digraph.any_shared_senders) * 0.5;
}

// Pairs of actors that send to the same third actors.
double digraph_a2p_u_change(const Digraph& digraph, const EffectData& data, int i, int j,
                            int adding) {
    if (dead(data)) {
        return 0.0;
    }
    if (data.lambda == 1.0F) {
        return shared_change_at_one(digraph, digraph.shared_receivers, digraph.any_shared_receivers,
                                    data, adding, i, j);
    }
    return row_sum(data, adding, digraph.shared_receivers, digraph.any_shared_receivers,
                   senders_of(digraph, j), in_of(digraph, j), i);
}
double digraph_a2p_u_count(Digraph& digraph, const EffectData& data) {
    return open_count(digraph, data, digraph.shared_receivers, digraph.any_shared_receivers) * 0.5;
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
