// An undirected network as a plain adjacency matrix, and the three situations in which a dyad can
// be evaluated on it. Nothing here is kept up to date: every number is counted from the matrix
// when it is asked for. Slow and obvious on purpose, so that the engine's tables can be held
// against it.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace reference {

using IntTable = std::vector<std::vector<int>>;
using FloatTable = std::vector<std::vector<float>>;

// Entry of a vector or cell of a table by actor number.
template <typename Value>
const Value& item(const std::vector<Value>& values, int index) {
    return values[static_cast<std::size_t>(index)];
}

template <typename Value>
Value& item(std::vector<Value>& values, int index) {
    return values[static_cast<std::size_t>(index)];
}

template <typename Value>
const Value& cell(const std::vector<std::vector<Value>>& table, int row, int column) {
    return item(item(table, row), column);
}

template <typename Value>
Value& cell(std::vector<std::vector<Value>>& table, int row, int column) {
    return item(item(table, row), column);
}

// n x n cells of the given value.
template <typename Value>
std::vector<std::vector<Value>> square_table(int n, Value value) {
    const std::size_t size = n > 0 ? static_cast<std::size_t>(n) : 0;
    return std::vector<std::vector<Value>>(size, std::vector<Value>(size, value));
}

// Actors 0 .. n - 1; tie[a][b] is 1 when a and b are tied. Symmetric, the diagonal is 0.
struct PlainGraph {
    int n = 0;
    IntTable tie;
};

using ActorPairs = std::vector<std::pair<int, int>>;

PlainGraph empty_graph(int n);
PlainGraph complete_graph(int n);
PlainGraph make_graph(int n, const ActorPairs& ties);

// Copies of a network with the tie {i, j} present or absent.
PlainGraph with_tie(const PlainGraph& graph, int i, int j);
PlainGraph without_tie(const PlainGraph& graph, int i, int j);

bool tied(const PlainGraph& graph, int a, int b);
int edge_count(const PlainGraph& graph);
int degree(const PlainGraph& graph, int actor);

// Number of actors tied to both a and b; 0 for a = b.
int common_neighbours(const PlainGraph& graph, int a, int b);

// Number of tied pairs among the neighbours of an actor.
int triangles_through(const PlainGraph& graph, int actor);

// The two tables over all actors.
IntTable two_path_table(const PlainGraph& graph);
std::vector<int> triangle_table(const PlainGraph& graph);

// How far the tables have followed the matrix when a dyad is evaluated.
enum class Stage {
    addition,      // the tie is absent from matrix and tables; adding = 1
    deletion,      // the matrix already lacks the tie, the tables still count it; adding = 0
    as_it_stands,  // matrix and tables are those of the network; adding = 0 for a tied dyad, else 1
};

// What a change statistic is given: the matrix (degrees follow from it) and the two lagging tables.
struct EvaluationState {
    PlainGraph bits;
    IntTable two_paths;
    std::vector<int> triangles;
    int adding = 1;
};

// Whether the dyad is tied in `graph` matters only for Stage::as_it_stands: the other two stages
// set the tie as they need it.
EvaluationState evaluation_state(const PlainGraph& graph, int i, int j, Stage stage);

// Readings of a state: bits and degrees from the matrix, the rest from the tables.
bool tied(const EvaluationState& state, int a, int b);
int degree(const EvaluationState& state, int actor);
int two_paths(const EvaluationState& state, int a, int b);
int triangles(const EvaluationState& state, int actor);

// Actors other than i and j tied to both in the matrix, ascending.
std::vector<int> shared_neighbours(const EvaluationState& state, int i, int j);

}  // namespace reference
