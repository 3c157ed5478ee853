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
    members_for_each(graph.neighbours, graph.adjacency, of, [&](int k) {
        if (k != without) {
            visit(k);
        }
    });
}

// Common neighbours of i and j, as the table of two-paths counts them.
inline int two_paths_of(const Graph& graph, int i, int j) {
    return graph.any_two_paths.has(i, j) ? graph.two_paths[i][j] : 0;
}

inline Members neighbours_of(const Graph& graph, int actor) {
    return {graph.neighbours, graph.adjacency, actor};
}

// visit(k) for each common neighbour of i and j. The table of two-paths may still count a tie that
// is gone from the bits, but never misses one: where it says none there is none.
template <class Visit>
void for_each_common(const Graph& graph, int i, int j, Visit visit) {
    if (graph.any_two_paths.has(i, j)) {
        common_for_each(neighbours_of(graph, i), neighbours_of(graph, j), visit);
    }
}

// visit(k, tied_to_i, tied_to_j) for each actor other than i and j that is tied to either.
template <class Visit>
void for_each_near(const Graph& graph, int i, int j, Visit visit) {
    either_for_each(neighbours_of(graph, i), neighbours_of(graph, j),
                    [&](int k, bool tied_to_i, bool tied_to_j) {
                        if (k != i && k != j) {
                            visit(k, tied_to_i, tied_to_j);
                        }
                    });
}

// visit(p, q) for each tie p < q in row order.
template <class Visit>
void for_each_tie(const Graph& graph, Visit visit) {
    for (int p = 0; p < graph.vertices; ++p) {
        members_for_each(graph.neighbours, graph.adjacency, p, [&](int q) {
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
