#include "network/digraph.h"

#include <algorithm>

namespace {

void move_count(std::vector<int>& histogram, int from, int to) {
    --histogram[static_cast<std::size_t>(from)];
    ++histogram[static_cast<std::size_t>(to)];
}

void toggle_member(NeighbourLists& lists, const BitMatrix& rows, int actor, int member, int by,
                   int degree) {
    if (by == 1) {
        lists.add(actor, member);
    } else {
        lists.remove(actor, member, rows[actor], rows.words_per_row, degree);
    }
}

// Everything a toggle of the bit (i, j) moves, `by` being 1 or -1.
void toggle_arc(Digraph& digraph, int i, int j, int by) {
    digraph.arcs += by;
    row_flip(digraph.adjacency[i], j);
    row_flip(digraph.adjacency_in[j], i);
    toggle_member(digraph.receivers, digraph.adjacency, i, j, by,
                  digraph.out_degree[static_cast<std::size_t>(i)] + by);
    toggle_member(digraph.senders, digraph.adjacency_in, j, i, by,
                  digraph.in_degree[static_cast<std::size_t>(j)] + by);
    int& sent = digraph.out_degree[static_cast<std::size_t>(i)];
    int& received = digraph.in_degree[static_cast<std::size_t>(j)];
    if (digraph_has_arc(digraph, j, i)) {
        digraph.mutual_dyads += by;
        digraph.mutual_degree[static_cast<std::size_t>(i)] += by;
        digraph.mutual_degree[static_cast<std::size_t>(j)] += by;
    }
    move_count(digraph.out_degree_distribution, sent, sent + by);
    move_count(digraph.in_degree_distribution, received, received + by);
    sent += by;
    received += by;
}

// The cell [a][b]; `any` and its transpose follow when it becomes or stops being 0.
void change_cell(CountTable& table, BitMatrix& any, BitMatrix& any_in, int a, int b, int by) {
    const int before = table[a][b];
    const auto after = static_cast<std::uint16_t>(before + by);
    table[a][b] = after;
    if ((before == 0) != (after == 0)) {
        row_flip(any[a], b);
        row_flip(any_in[b], a);
    }
}

// The cells [a][b] and [b][a] of a symmetric table.
void change_pair(CountTable& table, BitMatrix& any, int a, int b, int by) {
    table[b][a] = static_cast<std::uint16_t>(table[b][a] + by);
    change_cell(table, any, any, a, b, by);
}

}  // namespace

Digraph digraph_create(int vertices, int statistic_count) {
    const auto actors = static_cast<std::size_t>(std::max(vertices, 0));
    Digraph digraph;
    digraph.vertices = vertices;
    digraph.adjacency = BitMatrix(vertices);
    digraph.adjacency_in = BitMatrix(vertices);
    digraph.receivers = NeighbourLists(vertices);
    digraph.senders = NeighbourLists(vertices);
    digraph.geodesics = IntTable(vertices, vertices, 9999);
    digraph.in_degree.assign(actors, 0);
    digraph.out_degree.assign(actors, 0);
    digraph.mutual_degree.assign(actors, 0);
    digraph.in_degree_distribution.assign(actors, 0);
    digraph.out_degree_distribution.assign(actors, 0);
    digraph.geodesic_distribution.assign(actors, 0);
    digraph.shared_receivers = CountTable(vertices, vertices);
    digraph.shared_senders = CountTable(vertices, vertices);
    digraph.two_paths = CountTable(vertices, vertices);
    digraph.any_shared_receivers = BitMatrix(vertices);
    digraph.any_shared_senders = BitMatrix(vertices);
    digraph.any_two_paths = BitMatrix(vertices);
    digraph.any_two_paths_in = BitMatrix(vertices);
    digraph.statistics.assign(static_cast<std::size_t>(std::max(statistic_count, 0)), 0.0);
    digraph.triad_census.assign(16, 0.0);
    if (actors > 0) {
        digraph.in_degree_distribution[0] = vertices;
        digraph.out_degree_distribution[0] = vertices;
    }
    return digraph;
}

void digraph_add_arc(Digraph& digraph, int i, int j) {
    if (!digraph_has_arc(digraph, i, j)) {
        toggle_arc(digraph, i, j, 1);
    }
}

void digraph_remove_arc(Digraph& digraph, int i, int j) {
    if (digraph_has_arc(digraph, i, j)) {
        toggle_arc(digraph, i, j, -1);
    }
}

void digraph_update_two_paths(Digraph& digraph, int i, int j, int adding) {
    const int by = adding == 1 ? 1 : -1;
    members_for_each(digraph.receivers, digraph.adjacency, i, [&](int k) {
        if (k != j) {
            change_pair(digraph.shared_senders, digraph.any_shared_senders, k, j, by);
        }
    });
    members_for_each(digraph.senders, digraph.adjacency_in, j, [&](int k) {
        if (k != i) {
            change_pair(digraph.shared_receivers, digraph.any_shared_receivers, k, i, by);
        }
    });
    members_for_each(digraph.senders, digraph.adjacency_in, i, [&](int k) {
        if (k != j) {
            change_cell(digraph.two_paths, digraph.any_two_paths, digraph.any_two_paths_in, k, j,
                        by);
        }
    });
    members_for_each(digraph.receivers, digraph.adjacency, j, [&](int k) {
        if (k != i) {
            change_cell(digraph.two_paths, digraph.any_two_paths, digraph.any_two_paths_in, i, k,
                        by);
        }
    });
}

void digraph_add_tie(Digraph& digraph, int i, int j) {
    digraph_add_arc(digraph, i, j);
    digraph_update_two_paths(digraph, i, j, 1);
}

void digraph_copy(const Digraph& source, Digraph& target) {
    const int vertices = target.vertices;
    target = source;
    target.vertices = vertices;
}

double network_density(const Digraph& digraph) {
    const double n = digraph.vertices;
    return static_cast<double>(digraph.arcs) / n / (n - 1.0);
}
