// A directed network as a plain adjacency matrix, and the situations in which an arc can be
// evaluated on it. The directed twin of plain_graph.h.
#pragma once

#include "plain_graph.h"

#include <vector>

namespace reference {

// Actors 0 .. n - 1; arc[a][b] is 1 when a sends an arc to b. The diagonal is 0.
struct PlainDigraph {
    int n = 0;
    IntTable arc;
};

PlainDigraph empty_digraph(int n);
PlainDigraph complete_digraph(int n);
PlainDigraph make_digraph(int n, const ActorPairs& arcs);

// Copies of a network with the arc i to j present or absent.
PlainDigraph with_arc(const PlainDigraph& digraph, int i, int j);
PlainDigraph without_arc(const PlainDigraph& digraph, int i, int j);

bool has_arc(const PlainDigraph& digraph, int a, int b);
bool mutual(const PlainDigraph& digraph, int a, int b);
int arc_count(const PlainDigraph& digraph);
int mutual_dyad_count(const PlainDigraph& digraph);
int in_degree(const PlainDigraph& digraph, int actor);
int out_degree(const PlainDigraph& digraph, int actor);

// Number of an actor's mutual dyads.
int mutual_degree(const PlainDigraph& digraph, int actor);

// Cell [a][b] is the number of actors x with a to x to b, with both a and b to x, and with x to
// both a and b; the diagonals are 0.
IntTable two_path_table(const PlainDigraph& digraph);
IntTable shared_receiver_table(const PlainDigraph& digraph);
IntTable shared_sender_table(const PlainDigraph& digraph);

// What a change statistic is given: the matrix (degrees follow from it) and three lagging tables.
struct DirectedState {
    PlainDigraph bits;
    IntTable two_paths;
    IntTable shared_receivers;
    IntTable shared_senders;
    int adding = 1;
};

// The stages of plain_graph.h for the arc i to j.
DirectedState evaluation_state(const PlainDigraph& digraph, int i, int j, Stage stage);

bool has_arc(const DirectedState& state, int a, int b);
int in_degree(const DirectedState& state, int actor);
int out_degree(const DirectedState& state, int actor);
int mutual_degree(const DirectedState& state, int actor);

}  // namespace reference
