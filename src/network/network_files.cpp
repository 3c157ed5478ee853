#include "network/network_files.h"

#include <cstdint>

#include "base/text_reader.h"

namespace {

// Draws of the random start network that may fail in a row before it is checked whether any untied
// dyad is left at all, and in the generator's reach.
constexpr int kPatience = 1000000;

// Calls visit(i, j, value) for each cell in row order.
template <class Visit>
void for_each_cell(const std::string& path, int vertices, Visit visit) {
    TextReader reader = reader_open(path);
    ReadSequence cells(reader);
    int value = 0;
    for (int i = 0; i < vertices; ++i) {
        for (int j = 0; j < vertices; ++j) {
            cells.next(reader_cell, value);
            visit(i, j, value);
        }
    }
}

void write_rows(TextWriter& out, const BitMatrix& adjacency) {
    for (int i = 0; i < adjacency.actors; ++i) {
        for (int j = 0; j < adjacency.actors; ++j) {
            out.print("%d ", adjacency.has(i, j) ? 1 : 0);
        }
        out.text("\n");
    }
}

// Adds ties between random ordered pairs while `ties()` is below the target; `all_pairs` is the
// count at which none is left to add.
template <class Ties, class Has, class Add>
void add_random_ties(int n, int target, std::int64_t all_pairs, RandomSource& random, Ties ties,
                     Has has, Add add) {
    if (n < 2) {
        return;
    }
    int failures = 0;
    DrawCycle cycle(n);
    while (ties() < target) {
        const int a = random_below(random, n);
        const int b = random_below(random, n);
        if (a != b && !has(a, b)) {
            add(a, b);
            failures = 0;
            cycle = DrawCycle(n);
        } else if (++failures >= kPatience) {
            failures = kPatience;
            if (ties() >= all_pairs || cycle.closed(random)) {
                return;
            }
        }
    }
}

}  // namespace

Graph graph_read_matrix(const std::string& path, int vertices, int statistic_count,
                        int clique_depth) {
    Graph graph = graph_create(vertices, statistic_count, clique_depth);
    for_each_cell(path, vertices, [&graph](int i, int j, int value) {
        if (i < j && value == 1) {
            graph_add_tie(graph, i, j);
        }
    });
    return graph;
}

Digraph digraph_read_matrix(const std::string& path, int vertices, int statistic_count) {
    Digraph digraph = digraph_create(vertices, statistic_count);
    for_each_cell(path, vertices, [&digraph](int i, int j, int value) {
        if (i != j && value == 1) {
            digraph_add_tie(digraph, i, j);
        }
    });
    return digraph;
}

BitMatrix graph_read_dyads(const std::string& path, int vertices) {
    BitMatrix dyads(vertices);
    for_each_cell(path, vertices, [&dyads](int i, int j, int value) {
        if (i < j && value == 1) {
            row_flip(dyads[i], j);
            row_flip(dyads[j], i);
        }
    });
    return dyads;
}

BitMatrix digraph_read_dyads(const std::string& path, int vertices) {
    BitMatrix dyads(vertices);
    for_each_cell(path, vertices, [&dyads](int i, int j, int value) {
        if (i != j && value == 1) {
            row_flip(dyads[i], j);
        }
    });
    return dyads;
}

Graph graph_random_with_edges(int vertices, int target_edges, int statistic_count, int clique_depth,
                              RandomSource& random) {
    random_reseed(random);
    Graph graph = graph_create(vertices, statistic_count, clique_depth);
    const std::int64_t n = vertices;
    add_random_ties(
        vertices, target_edges, n * (n - 1) / 2, random, [&graph] { return graph.edges; },
        [&graph](int a, int b) { return graph_has_edge(graph, a, b); },
        [&graph](int a, int b) { graph_add_tie(graph, a, b); });
    return graph;
}

Digraph digraph_random_with_arcs(int vertices, int target_arcs, int statistic_count,
                                 RandomSource& random) {
    random_reseed(random);
    Digraph digraph = digraph_create(vertices, statistic_count);
    const std::int64_t n = vertices;
    add_random_ties(
        vertices, target_arcs, n * (n - 1), random, [&digraph] { return digraph.arcs; },
        [&digraph](int a, int b) { return digraph_has_arc(digraph, a, b); },
        [&digraph](int a, int b) { digraph_add_tie(digraph, a, b); });
    return digraph;
}

void write_matrix(TextWriter& out, const Graph& graph) {
    out.print("*vertices %d\n", graph.vertices);
    out.text("*matrix\n");
    write_rows(out, graph.adjacency);
}

void write_matrix(TextWriter& out, const Digraph& digraph) {
    out.print("vertices %d\n", digraph.vertices);
    out.text("matrix\n");
    write_rows(out, digraph.adjacency);
}

void write_pajek_record(const Graph& graph, const std::string& name, const std::string& path) {
    TextWriter out = writer_append(path);
    out.text("*Network " + name + "\n");
    write_matrix(out, graph);
    out.text("\n\n");
}

void write_pajek_record(const Digraph& digraph, const std::string& name, const std::string& path) {
    TextWriter out = writer_append(path);
    out.text("Network " + name + "\n");
    write_matrix(out, digraph);
    out.text("\n\n");
}
