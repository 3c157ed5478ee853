#include "effects/continuous_attributes.h"

namespace {

double pair_change(const EffectData& data, int i, int j) { return (*data.pairs)[i][j]; }

// The pair table summed over ties i < j in row order.
double pair_sum(const Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for (int i = 0; i < graph.vertices; ++i) {
        members_for_each(graph.neighbours, graph.adjacency, i, [&](int j) {
            if (i < j) {
                sum += static_cast<double>((*data.pairs)[i][j]);
            }
        });
    }
    return sum;
}

// The pair table summed over arcs in row order.
template <class Holds>
double arc_sum(const Digraph& digraph, const EffectData& data, Holds holds) {
    double sum = 0.0;
    for (int i = 0; i < digraph.vertices; ++i) {
        members_for_each(digraph.receivers, digraph.adjacency, i, [&](int j) {
            if (holds(i, j)) {
                sum += static_cast<double>((*data.pairs)[i][j]);
            }
        });
    }
    return sum;
}

double all_arcs_sum(const Digraph& digraph, const EffectData& data) {
    return arc_sum(digraph, data, [](int, int) { return true; });
}

// The reciprocity counts look only at the arc from the lower to the higher actor and never at the
// arc back, although the changes ask for it: a recount is not the sum of the changes, and files of
// past runs show it so.
double upward_arcs_sum(const Digraph& digraph, const EffectData& data) {
    return arc_sum(digraph, data, [](int i, int j) { return i < j; });
}

double mutual_pair_change(const Digraph& digraph, const EffectData& data, int i, int j) {
    return digraph_has_arc(digraph, j, i) ? pair_change(data, i, j) : 0.0;
}

// count x value in single precision, then widened.
double times(int count, float value) {
    return static_cast<double>(static_cast<float>(count) * value);
}

int cell(const std::vector<int>& counts, int actor) {
    return counts[static_cast<std::size_t>(actor)];
}

template <class Term>
double actor_sum(const Digraph& digraph, const EffectData& data, Term term) {
    double sum = 0.0;
    for (int actor = 0; actor < digraph.vertices; ++actor) {
        sum += term(actor, data.reals[actor]);
    }
    return sum;
}

// Sum over the actors of 0.5 x degree x (degree - 1) x value.
double star_sum(const Digraph& digraph, const EffectData& data, const std::vector<int>& degrees) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        const int degree = cell(degrees, actor);
        const float product = static_cast<float>(degree) * value * static_cast<float>(degree - 1);
        return static_cast<double>(product) * 0.5;
    });
}

double known(float value) { return value == kMissing ? 0.0 : static_cast<double>(value); }
double missing(float value) { return value == kMissing ? 1.0 : 0.0; }

}  // namespace

// Sum, absolute difference and product of the values over the ties.
double continuous_sum_change(const Graph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double continuous_sum_count(Graph& graph, const EffectData& data) { return pair_sum(graph, data); }
double continuous_diff_change(const Graph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double continuous_diff_count(Graph& graph, const EffectData& data) { return pair_sum(graph, data); }
double continuous_prod_change(const Graph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double continuous_prod_count(Graph& graph, const EffectData& data) { return pair_sum(graph, data); }

// Values of the senders and receivers of arcs; missing ones add nothing here and are counted apart.
double digraph_continuous_sender_change(const Digraph&, const EffectData& data, int i, int, int) {
    return known(data.reals[i]);
}
double digraph_continuous_sender_count(Digraph& digraph, const EffectData& data) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        return value == kMissing ? 0.0 : times(cell(digraph.out_degree, actor), value);
    });
}
double digraph_continuous_receiver_change(const Digraph&, const EffectData& data, int, int j, int) {
    return known(data.reals[j]);
}
double digraph_continuous_receiver_count(Digraph& digraph, const EffectData& data) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        return value == kMissing ? 0.0 : times(cell(digraph.in_degree, actor), value);
    });
}
double digraph_continuous_sender_missing_change(const Digraph&, const EffectData& data, int i, int,
                                                int) {
    return missing(data.reals[i]);
}
double digraph_continuous_sender_missing_count(Digraph& digraph, const EffectData& data) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        return value == kMissing ? cell(digraph.out_degree, actor) : 0.0;
    });
}
double digraph_continuous_receiver_missing_change(const Digraph&, const EffectData& data, int,
                                                  int j, int) {
    return missing(data.reals[j]);
}
double digraph_continuous_receiver_missing_count(Digraph& digraph, const EffectData& data) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        return value == kMissing ? cell(digraph.in_degree, actor) : 0.0;
    });
}

// Sum, absolute difference and product over the arcs.
double digraph_continuous_sum_change(const Digraph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double digraph_continuous_sum_count(Digraph& digraph, const EffectData& data) {
    return all_arcs_sum(digraph, data);
}
double digraph_continuous_diff_change(const Digraph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double digraph_continuous_diff_count(Digraph& digraph, const EffectData& data) {
    return all_arcs_sum(digraph, data);
}
double digraph_continuous_prod_change(const Digraph&, const EffectData& data, int i, int j, int) {
    return pair_change(data, i, j);
}
double digraph_continuous_prod_count(Digraph& digraph, const EffectData& data) {
    return all_arcs_sum(digraph, data);
}

// The same over mutual dyads (see upward_arcs_sum for the counts).
double digraph_continuous_sum_reciprocity_change(const Digraph& digraph, const EffectData& data,
                                                 int i, int j, int) {
    return mutual_pair_change(digraph, data, i, j);
}
double digraph_continuous_sum_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return upward_arcs_sum(digraph, data);
}
double digraph_continuous_diff_reciprocity_change(const Digraph& digraph, const EffectData& data,
                                                  int i, int j, int) {
    return mutual_pair_change(digraph, data, i, j);
}
double digraph_continuous_diff_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return upward_arcs_sum(digraph, data);
}
double digraph_continuous_prod_reciprocity_change(const Digraph& digraph, const EffectData& data,
                                                  int i, int j, int) {
    return mutual_pair_change(digraph, data, i, j);
}
double digraph_continuous_prod_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return upward_arcs_sum(digraph, data);
}

// Two-stars and two-paths weighted by the value of their centre. These do not test for a missing
// value: it enters as the number 9999.
double digraph_continuous_in2star_change(const Digraph& digraph, const EffectData& data, int, int j,
                                         int) {
    return times(cell(digraph.in_degree, j), data.reals[j]);
}
double digraph_continuous_in2star_count(Digraph& digraph, const EffectData& data) {
    return star_sum(digraph, data, digraph.in_degree);
}
double digraph_continuous_out2star_change(const Digraph& digraph, const EffectData& data, int i,
                                          int, int) {
    return times(cell(digraph.out_degree, i), data.reals[i]);
}
double digraph_continuous_out2star_count(Digraph& digraph, const EffectData& data) {
    return star_sum(digraph, data, digraph.out_degree);
}
double digraph_continuous_path2_change(const Digraph& digraph, const EffectData& data, int i, int j,
                                       int) {
    const int back = digraph_has_arc(digraph, j, i) ? 1 : 0;
    return times(cell(digraph.in_degree, i) - back, data.reals[i]) +
           times(cell(digraph.out_degree, j) - back, data.reals[j]);
}
double digraph_continuous_path2_count(Digraph& digraph, const EffectData& data) {
    return actor_sum(digraph, data, [&](int actor, float value) {
        return times(cell(digraph.in_degree, actor) * cell(digraph.out_degree, actor) -
                         cell(digraph.mutual_degree, actor),
                     value);
    });
}
