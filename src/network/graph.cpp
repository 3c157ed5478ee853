#include "network/graph.h"

#include <algorithm>
#include <cstdint>

namespace {

std::size_t size_of(std::int64_t count) {
    return static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
}

// Moves one count of a histogram. A network of one actor has no cell of two-paths at all.
void move_count(std::vector<int>& histogram, int from, int to) {
    --histogram[static_cast<std::size_t>(from)];
    ++histogram[static_cast<std::size_t>(to)];
}

void change_degree(Graph& graph, int actor, int by) {
    int& degree = graph.degree[static_cast<std::size_t>(actor)];
    move_count(graph.degree_distribution, degree, degree + by);
    degree += by;
}

void change_two_paths(Graph& graph, int a, int b, int by) {
    const int before = graph.two_paths[a][b];
    graph.two_paths[a][b] = before + by;
    graph.two_paths[b][a] = before + by;
    move_count(graph.two_path_distribution, before, before + by);
}

void change_triangles(Graph& graph, int actor, int by) {
    int& triangles = graph.triangles[static_cast<std::size_t>(actor)];
    move_count(graph.triangle_distribution, triangles, triangles + by);
    triangles += by;
}

}  // namespace

Graph graph_create(int vertices, int statistic_count, int clique_depth) {
    const std::int64_t n = vertices;
    const std::size_t actors = size_of(n);
    Graph graph;
    graph.vertices = vertices;
    graph.clique_depth = clique_depth;
    graph.adjacency = BitMatrix(vertices);
    graph.two_paths = IntTable(vertices, vertices);
    graph.geodesics = IntTable(vertices, vertices, 9999);
    graph.degree_distribution.assign(actors, 0);
    graph.degree.assign(actors, 0);
    graph.et0.assign(actors, 0);
    graph.etnt.assign(actors, 0);
    graph.etnt_ratio.assign(actors, 0.0);
    graph.two_path_distribution.assign(size_of(n - 1), 0);
    graph.triangles.assign(actors, 0);
    graph.triangle_distribution.assign(size_of((n - 1) * (n - 2) / 2 + 1), 0);
    graph.geodesic_distribution.assign(actors, 0);
    graph.clustering.assign(actors, 0.0);
    graph.statistics.assign(size_of(statistic_count), 0.0);
    graph.clique_counts.assign(size_of(clique_depth), 0.0);
    graph.clique_changes.assign(size_of(clique_depth), 0.0);
    graph.working_sets.assign(static_cast<std::size_t>(kWorkingSets) *
                                  static_cast<std::size_t>(graph.adjacency.words_per_row),
                              0);
    if (!graph.degree_distribution.empty()) {
        graph.degree_distribution[0] = vertices;
    }
    if (!graph.triangle_distribution.empty()) {
        graph.triangle_distribution[0] = vertices;
    }
    if (!graph.two_path_distribution.empty()) {
        graph.two_path_distribution[0] = static_cast<int>(n * (n - 1) / 2);
    }
    return graph;
}

void graph_add_edge(Graph& graph, int i, int j) {
    if (graph_has_edge(graph, i, j)) {
        return;
    }
    ++graph.edges;
    row_flip(graph.adjacency[i], j);
    row_flip(graph.adjacency[j], i);
    change_degree(graph, i, 1);
    change_degree(graph, j, 1);
}

void graph_remove_edge(Graph& graph, int i, int j) {
    if (!graph_has_edge(graph, i, j)) {
        return;
    }
    --graph.edges;
    row_flip(graph.adjacency[i], j);
    row_flip(graph.adjacency[j], i);
    change_degree(graph, i, -1);
    change_degree(graph, j, -1);
}

void graph_update_two_paths(Graph& graph, int i, int j, int adding) {
    const int by = adding == 1 ? 1 : -1;
    const std::uint64_t* row_i = graph.adjacency[i];
    const std::uint64_t* row_j = graph.adjacency[j];
    // The bits of i and j themselves are the toggled tie, or clear; neither is a two-path's end.
    for (int word = 0; word < graph.adjacency.words_per_row; ++word) {
        const std::uint64_t of_i = actor_order(row_i[word]);
        const std::uint64_t of_j = actor_order(row_j[word]);
        word_for_each(of_i, word * 64, [&](int k) {
            if (k != j) {
                change_two_paths(graph, k, j, by);
            }
        });
        word_for_each(of_j, word * 64, [&](int k) {
            if (k != i) {
                change_two_paths(graph, k, i, by);
            }
        });
        word_for_each(of_i & of_j, word * 64, [&](int k) { change_triangles(graph, k, by); });
    }
    const int common = graph.two_paths[i][j];
    change_triangles(graph, i, by * common);
    change_triangles(graph, j, by * common);
}

void graph_add_tie(Graph& graph, int i, int j) {
    graph_add_edge(graph, i, j);
    graph_update_two_paths(graph, i, j, 1);
}

void graph_copy(const Graph& source, Graph& target) {
    const int vertices = target.vertices;
    target = source;
    target.vertices = vertices;
}

double network_density(const Graph& graph) {
    const double n = graph.vertices;
    return 2.0 * graph.edges / (n * (n - 1.0));
}
