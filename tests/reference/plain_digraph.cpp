#include "plain_digraph.h"

namespace reference {

PlainDigraph empty_digraph(int n) { return PlainDigraph{n, square_table(n, 0)}; }

PlainDigraph complete_digraph(int n) { return PlainDigraph{n, complete_graph(n).tie}; }

PlainDigraph make_digraph(int n, const ActorPairs& arcs) {
    PlainDigraph digraph = empty_digraph(n);
    for (const auto& [a, b] : arcs) {
        cell(digraph.arc, a, b) = 1;
    }
    return digraph;
}

PlainDigraph with_arc(const PlainDigraph& digraph, int i, int j) {
    PlainDigraph changed = digraph;
    cell(changed.arc, i, j) = 1;
    return changed;
}

PlainDigraph without_arc(const PlainDigraph& digraph, int i, int j) {
    PlainDigraph changed = digraph;
    cell(changed.arc, i, j) = 0;
    return changed;
}

bool has_arc(const PlainDigraph& digraph, int a, int b) { return cell(digraph.arc, a, b) == 1; }

bool mutual(const PlainDigraph& digraph, int a, int b) {
    return has_arc(digraph, a, b) && has_arc(digraph, b, a);
}

int arc_count(const PlainDigraph& digraph) {
    int count = 0;
    for (int a = 0; a < digraph.n; ++a) {
        count += out_degree(digraph, a);
    }
    return count;
}

int mutual_dyad_count(const PlainDigraph& digraph) {
    int count = 0;
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = a + 1; b < digraph.n; ++b) {
            if (mutual(digraph, a, b)) {
                ++count;
            }
        }
    }
    return count;
}

int in_degree(const PlainDigraph& digraph, int actor) {
    int count = 0;
    for (int x = 0; x < digraph.n; ++x) {
        count += cell(digraph.arc, x, actor);
    }
    return count;
}

int out_degree(const PlainDigraph& digraph, int actor) {
    int count = 0;
    for (int x = 0; x < digraph.n; ++x) {
        count += cell(digraph.arc, actor, x);
    }
    return count;
}

int mutual_degree(const PlainDigraph& digraph, int actor) {
    int count = 0;
    for (int x = 0; x < digraph.n; ++x) {
        if (mutual(digraph, actor, x)) {
            ++count;
        }
    }
    return count;
}

IntTable two_path_table(const PlainDigraph& digraph) {
    IntTable table = square_table(digraph.n, 0);
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = 0; b < digraph.n; ++b) {
            for (int x = 0; x < digraph.n; ++x) {
                if (a != b && has_arc(digraph, a, x) && has_arc(digraph, x, b)) {
                    ++cell(table, a, b);
                }
            }
        }
    }
    return table;
}

IntTable shared_receiver_table(const PlainDigraph& digraph) {
    IntTable table = square_table(digraph.n, 0);
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = 0; b < digraph.n; ++b) {
            for (int x = 0; x < digraph.n; ++x) {
                if (a != b && has_arc(digraph, a, x) && has_arc(digraph, b, x)) {
                    ++cell(table, a, b);
                }
            }
        }
    }
    return table;
}

IntTable shared_sender_table(const PlainDigraph& digraph) {
    IntTable table = square_table(digraph.n, 0);
    for (int a = 0; a < digraph.n; ++a) {
        for (int b = 0; b < digraph.n; ++b) {
            for (int x = 0; x < digraph.n; ++x) {
                if (a != b && has_arc(digraph, x, a) && has_arc(digraph, x, b)) {
                    ++cell(table, a, b);
                }
            }
        }
    }
    return table;
}

DirectedState evaluation_state(const PlainDigraph& digraph, int i, int j, Stage stage) {
    DirectedState state;
    PlainDigraph tables_of;
    switch (stage) {
        case Stage::addition:
            state.bits = without_arc(digraph, i, j);
            tables_of = state.bits;
            state.adding = 1;
            break;
        case Stage::deletion:
            state.bits = without_arc(digraph, i, j);
            tables_of = with_arc(digraph, i, j);
            state.adding = 0;
            break;
        case Stage::as_it_stands:
            state.bits = digraph;
            tables_of = digraph;
            state.adding = has_arc(digraph, i, j) ? 0 : 1;
            break;
    }
    state.two_paths = two_path_table(tables_of);
    state.shared_receivers = shared_receiver_table(tables_of);
    state.shared_senders = shared_sender_table(tables_of);
    return state;
}

bool has_arc(const DirectedState& state, int a, int b) { return has_arc(state.bits, a, b); }

int in_degree(const DirectedState& state, int actor) { return in_degree(state.bits, actor); }

int out_degree(const DirectedState& state, int actor) { return out_degree(state.bits, actor); }

int mutual_degree(const DirectedState& state, int actor) {
    return mutual_degree(state.bits, actor);
}

}  // namespace reference
