// Networks enter as plain integer matrices, or at random; they leave as matrices in reports and in
// Pajek files.
#pragma once

#include <string>

#include "base/random_source.h"
#include "base/text_writer.h"
#include "network/digraph.h"
#include "network/graph.h"

// Reads vertices x vertices integers in row order. Only a cell above the diagonal that is exactly 1
// makes a tie. A cell that cannot be read repeats the last value read (0 before the first); a file
// that cannot be opened gives an empty network.
Graph graph_read_matrix(const std::string& path, int vertices, int statistic_count,
                        int clique_depth);

// The same; every cell off the diagonal that is exactly 1 makes an arc.
Digraph digraph_read_matrix(const std::string& path, int vertices, int statistic_count);

// The ties that either would read, as bits alone (of both directions for an undirected file).
BitMatrix graph_read_dyads(const std::string& path, int vertices);
BitMatrix digraph_read_dyads(const std::string& path, int vertices);

// Reseeds, then adds ties between random pairs until there are `target_edges`, or no untied dyad is
// left that the generator can draw.
Graph graph_random_with_edges(int vertices, int target_edges, int statistic_count, int clique_depth,
                              RandomSource& random);
Digraph digraph_random_with_arcs(int vertices, int target_arcs, int statistic_count,
                                 RandomSource& random);

// The matrix with its two head lines: "*vertices", "*matrix" for a Graph, without asterisks for a
// Digraph. Pajek's own form has them; hosts read both as they are.
void write_matrix(TextWriter& out, const Graph& graph);
void write_matrix(TextWriter& out, const Digraph& digraph);

// Appends a Pajek record: head with the name, matrix, two line feeds.
void write_pajek_record(const Graph& graph, const std::string& name, const std::string& path);
void write_pajek_record(const Digraph& digraph, const std::string& name, const std::string& path);
