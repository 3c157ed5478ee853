// Walks over an undirected network that several families of effects share. All are ascending, and
// none of them meets an actor as its own neighbour.
#pragma once

#include "network/graph.h"

inline int words_of(const Graph& graph) { return graph.adjacency.words_per_row; }

inline int degree_of(const Graph& graph, int actor) {
    return graph.degree[static_cast<std::size_t>(actor)];
}

inline int triangles_of(const Graph& graph, int actor) {
    return graph.triangles[static_cast<std::size_t>(actor)];
}

// C(count, 2) of a whole number held as a double; never a negative zero, which would print its
// sign.
inline double pairs_of(double count) { return count < 2.0 ? 0.0 : count * (count - 1.0) / 2.0; }

// visit(k) for each neighbour of an actor other than `without`.
template <class Visit>
void for_each_neighbour(const Graph& graph, int of, int without, Visit visit) {
    row_for_each(graph.adjacency[of], words_of(graph), [&](int k) {
        if (k != without) {
            visit(k);
        }
    });
}

// visit(k) for each common neighbour of i and j.
template <class Visit>
void for_each_common(const Graph& graph, int i, int j, Visit visit) {
    row_and_for_each(graph.adjacency[i], graph.adjacency[j], words_of(graph), visit);
}

// visit(k, tied_to_i, tied_to_j) for each actor other than i and j that is tied to either.
template <class Visit>
void for_each_near(const Graph& graph, int i, int j, Visit visit) {
    const std::uint64_t* row_i = graph.adjacency[i];
    const std::uint64_t* row_j = graph.adjacency[j];
    for (int word = 0; word < words_of(graph); ++word) {
        word_for_each(actor_order(row_i[word] | row_j[word]), word * 64, [&](int k) {
            if (k != i && k != j) {
                visit(k, row_has(row_i, k), row_has(row_j, k));
            }
        });
    }
}

// visit(p, q) for each tie p < q in row order.
template <class Visit>
void for_each_tie(const Graph& graph, Visit visit) {
    for (int p = 0; p < graph.vertices; ++p) {
        row_for_each(graph.adjacency[p], words_of(graph), [&](int q) {
            if (p < q) {
                visit(p, q);
            }
        });
    }
}

// visit(p, q, r) for each triangle p < q < r.
template <class Visit>
void for_each_triangle(const Graph& graph, Visit visit) {
    for_each_tie(graph, [&](int p, int q) {
        for_each_common(graph, p, q, [&](int r) {
            if (q < r) {
                visit(p, q, r);
            }
        });
    });
}
