#include "plain_graph.h"

namespace reference {

PlainGraph empty_graph(int n) { return PlainGraph{n, square_table(n, 0)}; }

PlainGraph complete_graph(int n) {
    PlainGraph graph = empty_graph(n);
    for (int a = 0; a < n; ++a) {
        for (int b = 0; b < n; ++b) {
            cell(graph.tie, a, b) = a != b ? 1 : 0;
        }
    }
    return graph;
}

PlainGraph make_graph(int n, const ActorPairs& ties) {
    PlainGraph graph = empty_graph(n);
    for (const auto& [a, b] : ties) {
        cell(graph.tie, a, b) = 1;
        cell(graph.tie, b, a) = 1;
    }
    return graph;
}

PlainGraph with_tie(const PlainGraph& graph, int i, int j) {
    PlainGraph changed = graph;
    cell(changed.tie, i, j) = 1;
    cell(changed.tie, j, i) = 1;
    return changed;
}

PlainGraph without_tie(const PlainGraph& graph, int i, int j) {
    PlainGraph changed = graph;
    cell(changed.tie, i, j) = 0;
    cell(changed.tie, j, i) = 0;
    return changed;
}

bool tied(const PlainGraph& graph, int a, int b) { return cell(graph.tie, a, b) == 1; }

int edge_count(const PlainGraph& graph) {
    int count = 0;
    for (int a = 0; a < graph.n; ++a) {
        for (int b = a + 1; b < graph.n; ++b) {
            count += cell(graph.tie, a, b);
        }
    }
    return count;
}

int degree(const PlainGraph& graph, int actor) {
    int count = 0;
    for (int b = 0; b < graph.n; ++b) {
        count += cell(graph.tie, actor, b);
    }
    return count;
}

int common_neighbours(const PlainGraph& graph, int a, int b) {
    if (a == b) {
        return 0;
    }
    int count = 0;
    for (int k = 0; k < graph.n; ++k) {
        if (tied(graph, k, a) && tied(graph, k, b)) {
            ++count;
        }
    }
    return count;
}

int triangles_through(const PlainGraph& graph, int actor) {
    int count = 0;
    for (int b = 0; b < graph.n; ++b) {
        for (int c = b + 1; c < graph.n; ++c) {
            if (tied(graph, actor, b) && tied(graph, actor, c) && tied(graph, b, c)) {
                ++count;
            }
        }
    }
    return count;
}

IntTable two_path_table(const PlainGraph& graph) {
    IntTable table = square_table(graph.n, 0);
    for (int a = 0; a < graph.n; ++a) {
        for (int b = 0; b < graph.n; ++b) {
            cell(table, a, b) = common_neighbours(graph, a, b);
        }
    }
    return table;
}

std::vector<int> triangle_table(const PlainGraph& graph) {
    std::vector<int> table;
    for (int v = 0; v < graph.n; ++v) {
        table.push_back(triangles_through(graph, v));
    }
    return table;
}

EvaluationState evaluation_state(const PlainGraph& graph, int i, int j, Stage stage) {
    EvaluationState state;
    PlainGraph tables_of;
    switch (stage) {
        case Stage::addition:
            state.bits = without_tie(graph, i, j);
            tables_of = state.bits;
            state.adding = 1;
            break;
        case Stage::deletion:
            state.bits = without_tie(graph, i, j);
            tables_of = with_tie(graph, i, j);
            state.adding = 0;
            break;
        case Stage::as_it_stands:
            state.bits = graph;
            tables_of = graph;
            state.adding = tied(graph, i, j) ? 0 : 1;
            break;
    }
    state.two_paths = two_path_table(tables_of);
    state.triangles = triangle_table(tables_of);
    return state;
}

bool tied(const EvaluationState& state, int a, int b) { return tied(state.bits, a, b); }

int degree(const EvaluationState& state, int actor) { return degree(state.bits, actor); }

int two_paths(const EvaluationState& state, int a, int b) { return cell(state.two_paths, a, b); }

int triangles(const EvaluationState& state, int actor) { return item(state.triangles, actor); }

std::vector<int> shared_neighbours(const EvaluationState& state, int i, int j) {
    std::vector<int> shared;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k != i && k != j && tied(state, k, i) && tied(state, k, j)) {
            shared.push_back(k);
        }
    }
    return shared;
}

}  // namespace reference
