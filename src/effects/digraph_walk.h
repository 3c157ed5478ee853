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
        members_for_each(digraph.receivers, digraph.adjacency, i, [&](int j) { visit(i, j); });
    }
}

// Cells of the two-path tables; those of 0 are told by their bits.
inline int two_paths_of(const Digraph& digraph, int a, int b) {
    return digraph.any_two_paths.has(a, b) ? digraph.two_paths[a][b] : 0;
}
inline int shared_receivers_of(const Digraph& digraph, int a, int b) {
    return digraph.any_shared_receivers.has(a, b) ? digraph.shared_receivers[a][b] : 0;
}
inline int shared_senders_of(const Digraph& digraph, int a, int b) {
    return digraph.any_shared_senders.has(a, b) ? digraph.shared_senders[a][b] : 0;
}

// The actors that an actor sends to, and those that send to it.
inline Members receivers_of(const Digraph& digraph, int actor) {
    return {digraph.receivers, digraph.adjacency, actor};
}
inline Members senders_of(const Digraph& digraph, int actor) {
    return {digraph.senders, digraph.adjacency_in, actor};
}

// visit(k, in_a, in_b) over the union of two sets, ascending, i and j left out.
template <class Visit>
void for_each_of_two(const Members& a, const Members& b, int i, int j, Visit visit) {
    either_for_each(a, b, [&](int k, bool in_a, bool in_b) {
        if (k != i && k != j) {
            visit(k, in_a, in_b);
        }
    });
}
