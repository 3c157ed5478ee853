#include "network/graph.h"

#include <algorithm>
#include <cstdint>

#include "network/path_tables.h"

namespace {

std::size_t size_of(std::int64_t count) {
    return static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
}

// Moves one count of a histogram. A network of one actor has no cell of two-paths at all.
void move_count(std::vector<int>& histogram, int from, int to) {
    --histogram[static_cast<std::size_t>(from)];
    ++histogram[static_cast<std::size_t>(to)];
}

// One end of a toggled tie: bit, degree and list.
void toggle_end(Graph& graph, int actor, int other, int by) {
    row_flip(graph.adjacency[actor], other);
    int& degree = graph.degree[static_cast<std::size_t>(actor)];
    move_count(graph.degree_distribution, degree, degree + by);
    degree += by;
    if (by == 1) {
        graph.neighbours.add(actor, other);
    } else {
        graph.neighbours.remove(actor, other, graph.adjacency[actor], graph.adjacency.words_per_row,
                                degree);
    }
}

// One two-path more or less (`by`) between `end` and each neighbour of `of` but `end` itself.
template <int by>
void change_two_paths(Graph& graph, int of, int end) {
    std::uint16_t* row = graph.two_paths[end];
    const CountColumn column(graph.two_paths, end);
    int* histogram = graph.two_path_distribution.data();
    change_cells<by>({graph.neighbours, graph.adjacency, of}, end, graph.any_two_paths[end],
                     BitColumn(graph.any_two_paths, end), [&](int k) {
                         const int before = row[k];
                         const auto after = static_cast<std::uint16_t>(before + by);
                         row[k] = after;
                         column[k] = after;
                         --histogram[before];
                         ++histogram[before + by];
                         return after;
                     });
}

void change_triangles(Graph& graph, int actor, int by) {
    int& triangles = graph.triangles[static_cast<std::size_t>(actor)];
    const auto after = static_cast<std::size_t>(triangles + by);
    if (after >= graph.triangle_distribution.size()) {
        graph.triangle_distribution.resize(after + 1, 0);
    }
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
    graph.neighbours = NeighbourLists(vertices);
    graph.two_paths = CountTable(vertices, vertices);
    graph.any_two_paths = BitMatrix(vertices);
    graph.degree_distribution.assign(actors, 0);
    graph.degree.assign(actors, 0);
    graph.et0.assign(actors, 0);
    graph.etnt.assign(actors, 0);
    graph.etnt_ratio.assign(actors, 0.0);
    graph.two_path_distribution.assign(size_of(n - 1), 0);
    graph.triangles.assign(actors, 0);
    graph.triangle_distribution.assign(1, vertices);
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
    toggle_end(graph, i, j, 1);
    toggle_end(graph, j, i, 1);
}

void graph_remove_edge(Graph& graph, int i, int j) {
    if (!graph_has_edge(graph, i, j)) {
        return;
    }
    --graph.edges;
    toggle_end(graph, i, j, -1);
    toggle_end(graph, j, i, -1);
}

void graph_update_two_paths(Graph& graph, int i, int j, int adding) {
    const int by = adding == 1 ? 1 : -1;
    if (by == 1) {
        change_two_paths<1>(graph, i, j);
        change_two_paths<1>(graph, j, i);
    } else {
        change_two_paths<-1>(graph, i, j);
        change_two_paths<-1>(graph, j, i);
    }
    if (!graph.any_two_paths.has(i, j)) {
        return;
    }
    common_for_each(Members{graph.neighbours, graph.adjacency, i},
                    Members{graph.neighbours, graph.adjacency, j},
                    [&](int k) { change_triangles(graph, k, by); });
    const int common = graph.two_paths[i][j];
    change_triangles(graph, i, by * common);
    change_triangles(graph, j, by * common);
}

void graph_count_two_paths(Graph& graph) {
    const AllMembers neighbours(graph.neighbours, graph.adjacency);
    std::int64_t twice_pairs = 0;
    std::fill(graph.two_path_distribution.begin(), graph.two_path_distribution.end(), 0);
    std::fill(graph.triangle_distribution.begin(), graph.triangle_distribution.end(), 0);
    for (int i = 0; i < graph.vertices; ++i) {
        count_row(graph.two_paths, graph.any_two_paths, i, neighbours.of(i), neighbours,
                  graph.adjacency);
        const std::uint16_t* cells = graph.two_paths[i];
        const std::uint64_t* any = graph.any_two_paths[i];
        twice_pairs += row_count(any, graph.any_two_paths.words_per_row);
        // Each pair once, from its later actor.
        row_for_each(any, words_for(i),
                     [&](int k) { graph.two_path_distribution[cells[k]] += k < i ? 1 : 0; });
        int twice_triangles = 0;
        for (const int k : neighbours.of(i)) {
            twice_triangles += cells[k];
        }
        graph.triangles[static_cast<std::size_t>(i)] = 0;
        ++graph.triangle_distribution[0];
        change_triangles(graph, i, twice_triangles / 2);
    }
    if (!graph.two_path_distribution.empty()) {
        const std::int64_t n = graph.vertices;
        graph.two_path_distribution[0] = static_cast<int>((n * (n - 1) - twice_pairs) / 2);
    }
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

std::vector<int> graph_triangle_histogram(const Graph& graph) {
    const std::int64_t n = graph.vertices;
    std::vector<int> histogram = graph.triangle_distribution;
    histogram.resize(size_of((n - 1) * (n - 2) / 2 + 1), 0);
    return histogram;
}

double network_density(const Graph& graph) {
    const double n = graph.vertices;
    return 2.0 * graph.edges / (n * (n - 1.0));
}
