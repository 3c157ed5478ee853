// Readings and walks over a directed network that several families of effects share.
#pragma once

#include "network/digraph.h"

inline int in_of(const Digraph& digraph, int actor) {
    return digraph.in_degree[static_cast<std::size_t>(actor)];
}
inline int out_of(const Digraph& digraph, int actor) {
    return digraph.out_degree[static_cast<std::size_t>(actor)];
}
inline int mutual_of(const Digraph& digraph, int actor) {
    return digraph.mutual_degree[static_cast<std::size_t>(actor)];
}

// visit(i, j) for each arc in row order.
template <class Visit>
void for_each_arc(const Digraph& digraph, Visit visit) {
    for (int i = 0; i < digraph.vertices; ++i) {
        row_for_each(digraph.adjacency[i], digraph.adjacency.words_per_row,
                     [&](int j) { visit(i, j); });
    }
}

// visit(k, in_a, in_b) over the union of two rows, ascending, i and j left out.
template <class Visit>
void for_each_of_two(const Digraph& digraph, const std::uint64_t* a, const std::uint64_t* b, int i,
                     int j, Visit visit) {
    for (int word = 0; word < digraph.adjacency.words_per_row; ++word) {
        word_for_each(actor_order(a[word] | b[word]), word * 64, [&](int k) {
            if (k != i && k != j) {
                visit(k, row_has(a, k), row_has(b, k));
            }
        });
    }
}
