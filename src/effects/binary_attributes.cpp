#include "effects/binary_attributes.h"

#include "effects/graph_walk.h"

namespace {

double value_of(const EffectData& data, int actor) {
    return data.coded->values[static_cast<std::size_t>(actor)];
}
// A whole number without the sign of a zero, which a product with a negative value may have.
double whole(double value) { return value + 0.0; }

bool has_one(const EffectData& data, int actor) { return row_has(data.coded->ones.row(), actor); }
bool has_nonzero(const EffectData& data, int actor) {
    return row_has(data.coded->nonzero.row(), actor);
}

// Sum of the values over a row without one actor. Of a long row the ones are counted by words, and
// only other values are looked up; sums of whole numbers are the same in any order.
double value_sum(const Graph& graph, const EffectData& data, int of, int without) {
    if (graph.neighbours.listed(of)) {
        double sum = 0.0;
        for_each_neighbour(graph, of, without, [&](int k) { sum += value_of(data, k); });
        return sum;
    }
    const std::uint64_t* row = graph.adjacency[of];
    const std::uint64_t* ones = data.coded->ones.row();
    const std::uint64_t* nonzero = data.coded->nonzero.row();
    double sum = 0.0;
    for (int word = 0; word < words_of(graph); ++word) {
        sum += bit_count(row[word] & ones[word]);
        word_for_each(actor_order(row[word] & nonzero[word] & ~ones[word]), word * 64,
                      [&](int k) { sum += value_of(data, k); });
    }
    return row_has(row, without) ? sum - value_of(data, without) : sum;
}

// Neighbours of an actor that are in a set.
int bearers(const Graph& graph, int of, const ActorSet& set) {
    if (!graph.neighbours.listed(of)) {
        return row_and_count(graph.adjacency[of], set.row(), words_of(graph));
    }
    int count = 0;
    for (const std::int32_t k : graph.neighbours.of(of)) {
        count += row_has(set.row(), k) ? 1 : 0;
    }
    return count;
}

// Neighbours of an actor other than one.
double neighbours(const Graph& graph, int of, int without) {
    const int degree = degree_of(graph, of);
    return graph_has_edge(graph, of, without) ? degree - 1 : degree;
}

// Neighbours with a nonzero value, other than one.
double nonzero_neighbours(const Graph& graph, const EffectData& data, int of, int without) {
    const int count = bearers(graph, of, data.coded->nonzero);
    return graph_has_edge(graph, of, without) && has_nonzero(data, without) ? count - 1 : count;
}

// Neighbours of an actor whose value is exactly 1.
double ones_around(const Graph& graph, const EffectData& data, int actor) {
    return bearers(graph, actor, data.coded->ones);
}

// Sum over the centres q of (d_q - 1) x the values around q: each leaf of each two-path once.
template <class Counts>
double leaf_sum(const Graph& graph, const EffectData& data, Counts counts) {
    double sum = 0.0;
    for (int q = 0; q < graph.vertices; ++q) {
        const double degree = graph.degree[static_cast<std::size_t>(q)];
        if (degree > 1.0 && counts(q)) {
            sum += (degree - 1.0) * value_sum(graph, data, q, q);
        }
    }
    return sum;
}

}  // namespace

// Triangles whose three actors all bear the attribute.
double binary_t3u_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    if (!has_nonzero(data, i) || !has_nonzero(data, j)) {
        return 0.0;
    }
    double count = 0.0;
    for_each_common(graph, i, j, [&](int k) { count += has_nonzero(data, k) ? 1.0 : 0.0; });
    return count;
}
double binary_t3u_count(Graph& graph, const EffectData& data) {
    double count = 0.0;
    for_each_triangle(graph, [&](int i, int j, int k) {
        count += has_nonzero(data, i) && has_nonzero(data, j) && has_nonzero(data, k) ? 1.0 : 0.0;
    });
    return count;
}

// Pairs of bearers in triangles.
double binary_t2u_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const double sum = value_of(data, i) + value_of(data, j);
    const double product = value_of(data, i) * value_of(data, j);
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) { change += value_of(data, k) * sum + product; });
    return change;
}
double binary_t2u_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_triangle(graph, [&](int i, int j, int k) {
        sum += value_of(data, k) * (value_of(data, i) + value_of(data, j)) +
               value_of(data, i) * value_of(data, j);
    });
    return sum;
}

// Bearers in triangles.
double binary_t1u_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const double ends = value_of(data, i) + value_of(data, j);
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) { change += ends + value_of(data, k); });
    return change;
}
double binary_t1u_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_triangle(graph, [&](int i, int j, int k) {
        sum += value_of(data, i) + value_of(data, j) + value_of(data, k);
    });
    return sum;
}

// Two-paths whose three actors all bear the attribute. The change takes any nonzero value for a
// bearer, the count only the value 1: with missing values the two part.
double binary_o3u_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    if (!has_nonzero(data, i) || !has_nonzero(data, j)) {
        return 0.0;
    }
    return nonzero_neighbours(graph, data, i, j) + nonzero_neighbours(graph, data, j, i);
}
double binary_o3u_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        if (has_one(data, actor)) {
            sum += pairs_of(ones_around(graph, data, actor));
        }
    }
    return sum;
}

// Two-paths by centre and one leaf. The change multiplies by the centre's value, the count asks
// only whether it is nonzero.
double binary_o2au_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    const double ai = value_of(data, i);
    const double aj = value_of(data, j);
    return whole(ai * aj * (neighbours(graph, i, j) + neighbours(graph, j, i)) +
                 aj * value_sum(graph, data, j, i) + ai * value_sum(graph, data, i, j));
}
double binary_o2au_count(Graph& graph, const EffectData& data) {
    return leaf_sum(graph, data, [&data](int q) { return has_nonzero(data, q); });
}

// Two-paths whose both leaves bear the attribute. The change multiplies values, the count asks for
// the value 1.
double binary_o2bu_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    return whole(value_of(data, i) * value_sum(graph, data, j, i) +
                 value_of(data, j) * value_sum(graph, data, i, j));
}
double binary_o2bu_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        sum += pairs_of(ones_around(graph, data, actor));
    }
    return sum;
}

// Two-paths whose centre bears the attribute. The change multiplies by the value, the count asks
// for the value 1.
double binary_o1au_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    return whole(value_of(data, j) * neighbours(graph, j, i) +
                 value_of(data, i) * neighbours(graph, i, j));
}
double binary_o1au_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for (int actor = 0; actor < graph.vertices; ++actor) {
        if (has_one(data, actor)) {
            sum += pairs_of(graph.degree[static_cast<std::size_t>(actor)]);
        }
    }
    return sum;
}

// Leaves of two-paths that bear the attribute.
double binary_o1bu_change(const Graph& graph, const EffectData& data, int i, int j, int) {
    return whole(value_of(data, j) * neighbours(graph, i, j) +
                 value_of(data, i) * neighbours(graph, j, i) + value_sum(graph, data, i, j) +
                 value_sum(graph, data, j, i));
}
double binary_o1bu_count(Graph& graph, const EffectData& data) {
    return leaf_sum(graph, data, [](int) { return true; });
}

// Ties between bearers. The change is the product of the values, the count 1 for each tie of two
// nonzero ones.
double binary_interaction_change(const Graph&, const EffectData& data, int i, int j, int) {
    return whole(value_of(data, i) * value_of(data, j));
}
double binary_interaction_count(Graph& graph, const EffectData& data) {
    double count = 0.0;
    for_each_tie(graph, [&](int i, int j) {
        count += has_nonzero(data, i) && has_nonzero(data, j) ? 1.0 : 0.0;
    });
    return count;
}

// Ends of ties that bear the attribute.
double binary_activity_change(const Graph&, const EffectData& data, int i, int j, int) {
    return value_of(data, i) + value_of(data, j);
}
double binary_activity_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for_each_tie(graph, [&](int i, int j) { sum += value_of(data, i) + value_of(data, j); });
    return sum;
}

namespace {

bool is_missing(const EffectData& data, int actor) {
    return data.coded->values[static_cast<std::size_t>(actor)] == kMissing;
}

double indicator(bool holds) { return holds ? 1.0 : 0.0; }

double cell(const std::vector<int>& counts, int actor) {
    return counts[static_cast<std::size_t>(actor)];
}

template <class Holds>
double count_arcs(const Digraph& digraph, Holds holds) {
    double count = 0.0;
    for (int i = 0; i < digraph.vertices; ++i) {
        members_for_each(digraph.receivers, digraph.adjacency, i,
                         [&](int j) { count += indicator(holds(i, j)); });
    }
    return count;
}

template <class Holds>
double count_mutual(const Digraph& digraph, Holds holds) {
    return count_arcs(digraph, [&](int i, int j) {
        return i < j && digraph_has_arc(digraph, j, i) && holds(i, j);
    });
}

template <class Term>
double sum_over_ones(const Digraph& digraph, const EffectData& data, Term term) {
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        if (has_one(data, actor)) {
            sum += term(actor);
        }
    }
    return sum;
}

}  // namespace

// Arcs between bearers.
double digraph_binary_interaction_change(const Digraph&, const EffectData& data, int i, int j,
                                         int) {
    return indicator(has_one(data, i) && has_one(data, j));
}
double digraph_binary_interaction_count(Digraph& digraph, const EffectData& data) {
    return count_arcs(digraph,
                      [&data](int i, int j) { return has_one(data, i) && has_one(data, j); });
}

// Arcs from bearers, to bearers, from and to actors whose value is missing.
double digraph_binary_sender_change(const Digraph&, const EffectData& data, int i, int, int) {
    return indicator(has_one(data, i));
}
double digraph_binary_sender_count(Digraph& digraph, const EffectData& data) {
    return count_arcs(digraph, [&data](int i, int) { return has_one(data, i); });
}
double digraph_binary_receiver_change(const Digraph&, const EffectData& data, int, int j, int) {
    return indicator(has_one(data, j));
}
double digraph_binary_receiver_count(Digraph& digraph, const EffectData& data) {
    return count_arcs(digraph, [&data](int, int j) { return has_one(data, j); });
}
double digraph_binary_sender_missing_change(const Digraph&, const EffectData& data, int i, int,
                                            int) {
    return indicator(is_missing(data, i));
}
double digraph_binary_sender_missing_count(Digraph& digraph, const EffectData& data) {
    return count_arcs(digraph, [&data](int i, int) { return is_missing(data, i); });
}
double digraph_binary_receiver_missing_change(const Digraph&, const EffectData& data, int, int j,
                                              int) {
    return indicator(is_missing(data, j));
}
double digraph_binary_receiver_missing_count(Digraph& digraph, const EffectData& data) {
    return count_arcs(digraph, [&data](int, int j) { return is_missing(data, j); });
}

// Mutual dyads between bearers.
double digraph_binary_interaction_reciprocity_change(const Digraph& digraph, const EffectData& data,
                                                     int i, int j, int) {
    return indicator(digraph_has_arc(digraph, j, i) && has_one(data, i) && has_one(data, j));
}
double digraph_binary_interaction_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return count_mutual(digraph,
                        [&data](int i, int j) { return has_one(data, i) && has_one(data, j); });
}

// Mutual dyads with at least one bearer: two bearers count once.
double digraph_binary_activity_reciprocity_change(const Digraph& digraph, const EffectData& data,
                                                  int i, int j, int) {
    return indicator(digraph_has_arc(digraph, j, i) && (has_one(data, i) || has_one(data, j)));
}
double digraph_binary_activity_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return count_mutual(digraph,
                        [&data](int i, int j) { return has_one(data, i) || has_one(data, j); });
}

// Two-in-stars at bearers. The change takes any nonzero value for a bearer, the count only 1.
double digraph_binary_in2star_change(const Digraph& digraph, const EffectData& data, int, int j,
                                     int) {
    return has_nonzero(data, j) ? cell(digraph.in_degree, j) : 0.0;
}
double digraph_binary_in2star_count(Digraph& digraph, const EffectData& data) {
    return sum_over_ones(digraph, data,
                         [&](int actor) { return pairs_of(cell(digraph.in_degree, actor)); });
}

// Two-paths through bearers.
double digraph_binary_path2_change(const Digraph& digraph, const EffectData& data, int i, int j,
                                   int) {
    const double back = indicator(digraph_has_arc(digraph, j, i));
    return (has_one(data, j) ? cell(digraph.out_degree, j) - back : 0.0) +
           (has_one(data, i) ? cell(digraph.in_degree, i) - back : 0.0);
}
double digraph_binary_path2_count(Digraph& digraph, const EffectData& data) {
    return sum_over_ones(digraph, data, [&](int actor) {
        return cell(digraph.in_degree, actor) * cell(digraph.out_degree, actor) -
               cell(digraph.mutual_degree, actor);
    });
}

// Two-out-stars at bearers, with the same two tests as the in-stars.
double digraph_binary_out2star_change(const Digraph& digraph, const EffectData& data, int i, int,
                                      int) {
    return has_nonzero(data, i) ? cell(digraph.out_degree, i) : 0.0;
}
double digraph_binary_out2star_count(Digraph& digraph, const EffectData& data) {
    return sum_over_ones(digraph, data,
                         [&](int actor) { return pairs_of(cell(digraph.out_degree, actor)); });
}
