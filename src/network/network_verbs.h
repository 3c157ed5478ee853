// The verbs of a network under one name for both records, so that what treats them alike is written
// once.
#pragma once

#include <string>
#include <type_traits>

#include "network/digraph.h"
#include "network/graph.h"
#include "network/network_files.h"

template <class Network>
inline constexpr bool kDirected = std::is_same_v<Network, Digraph>;

inline bool has_tie(const Graph& graph, int i, int j) { return graph_has_edge(graph, i, j); }
inline bool has_tie(const Digraph& digraph, int i, int j) { return digraph_has_arc(digraph, i, j); }

inline int tie_count(const Graph& graph) { return graph.edges; }
inline int tie_count(const Digraph& digraph) { return digraph.arcs; }

// The two halves of a toggle: bits and degrees, then the tables of two-paths.
inline void add_bit(Graph& graph, int i, int j) { graph_add_edge(graph, i, j); }
inline void add_bit(Digraph& digraph, int i, int j) { digraph_add_arc(digraph, i, j); }
inline void remove_bit(Graph& graph, int i, int j) { graph_remove_edge(graph, i, j); }
inline void remove_bit(Digraph& digraph, int i, int j) { digraph_remove_arc(digraph, i, j); }
inline void update_tables(Graph& graph, int i, int j, int adding) {
    graph_update_two_paths(graph, i, j, adding);
}
inline void update_tables(Digraph& digraph, int i, int j, int adding) {
    digraph_update_two_paths(digraph, i, j, adding);
}
inline void count_tables(Graph& graph) { graph_count_two_paths(graph); }
inline void count_tables(Digraph& digraph) { digraph_count_two_paths(digraph); }

inline void copy_network(const Graph& source, Graph& target) { graph_copy(source, target); }
inline void copy_network(const Digraph& source, Digraph& target) { digraph_copy(source, target); }

// The network of a matrix file. A digraph has no clique tables.
template <class Network>
Network read_network(const std::string& path, int vertices, int statistic_count, int clique_depth) {
    if constexpr (kDirected<Network>) {
        return digraph_read_matrix(path, vertices, statistic_count);
    } else {
        return graph_read_matrix(path, vertices, statistic_count, clique_depth);
    }
}

// The ties of a matrix file as bits alone.
template <class Network>
BitMatrix read_dyads(const std::string& path, int vertices) {
    return kDirected<Network> ? digraph_read_dyads(path, vertices)
                              : graph_read_dyads(path, vertices);
}
