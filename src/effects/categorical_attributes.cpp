#include "effects/categorical_attributes.h"

namespace {

bool same(const EffectData& data, int i, int j) {
    return data.coded->values[static_cast<std::size_t>(i)] ==
           data.coded->values[static_cast<std::size_t>(j)];
}

double indicator(bool holds) { return holds ? 1.0 : 0.0; }

template <class Network, class Holds>
double count_cells(const Network& network, Holds holds) {
    double count = 0.0;
    for (int i = 0; i < network.vertices; ++i) {
        row_for_each(network.adjacency[i], network.adjacency.words_per_row,
                     [&](int j) { count += indicator(holds(i, j)); });
    }
    return count;
}

}  // namespace

// Ties within a category, and between categories.
double categorical_same_change(const Graph&, const EffectData& data, int i, int j, int) {
    return indicator(same(data, i, j));
}
double categorical_same_count(Graph& graph, const EffectData& data) {
    return count_cells(graph, [&](int i, int j) { return i < j && same(data, i, j); });
}
double categorical_diff_change(const Graph&, const EffectData& data, int i, int j, int) {
    return indicator(!same(data, i, j));
}
double categorical_diff_count(Graph& graph, const EffectData& data) {
    return count_cells(graph, [&](int i, int j) { return i < j && !same(data, i, j); });
}

// Arcs within a category, and between categories.
double digraph_categorical_matching_change(const Digraph&, const EffectData& data, int i, int j,
                                           int) {
    return indicator(same(data, i, j));
}
double digraph_categorical_matching_count(Digraph& digraph, const EffectData& data) {
    return count_cells(digraph, [&](int i, int j) { return same(data, i, j); });
}
double digraph_categorical_mismatch_change(const Digraph&, const EffectData& data, int i, int j,
                                           int) {
    return indicator(!same(data, i, j));
}
double digraph_categorical_mismatch_count(Digraph& digraph, const EffectData& data) {
    return count_cells(digraph, [&](int i, int j) { return !same(data, i, j); });
}

// Mutual dyads within a category, and between categories.
double digraph_categorical_matching_reciprocity_change(const Digraph& digraph,
                                                       const EffectData& data, int i, int j, int) {
    return indicator(digraph_has_arc(digraph, j, i) && same(data, i, j));
}
double digraph_categorical_matching_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return count_cells(digraph, [&](int i, int j) {
        return i < j && digraph_has_arc(digraph, j, i) && same(data, i, j);
    });
}
double digraph_categorical_mismatch_reciprocity_change(const Digraph& digraph,
                                                       const EffectData& data, int i, int j, int) {
    return indicator(digraph_has_arc(digraph, j, i) && !same(data, i, j));
}
double digraph_categorical_mismatch_reciprocity_count(Digraph& digraph, const EffectData& data) {
    return count_cells(digraph, [&](int i, int j) {
        return i < j && digraph_has_arc(digraph, j, i) && !same(data, i, j);
    });
}
