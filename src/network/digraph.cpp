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

// A cell that goes up was 0 when it was 0 before, one that goes down is 0 when it is so now.
bool passes_zero(int before, int by) { return before == (by == 1 ? 0 : 1); }

// One more or less (`by`) in the cells [k][end] and [end][k] of a symmetric table, for each k of
// `members` but `without`.
void change_shared(CountTable& table, BitMatrix& any, const Members& members, int without, int end,
                   int by) {
    std::uint16_t* row = table[end];
    std::uint64_t* any_row = any[end];
    members_for_each(members.lists, members.rows, members.actor, [&](int k) {
        if (k == without) {
            return;
        }
        const int before = row[k];
        const auto after = static_cast<std::uint16_t>(before + by);
        row[k] = after;
        table[k][end] = after;
        if (passes_zero(before, by)) {
            row_flip(any_row, k);
            row_flip(any[k], end);
        }
    });
}

// The cell [a][b] of `two_paths`.
void change_two_path(Digraph& digraph, int a, int b, int by) {
    std::uint16_t& cell = digraph.two_paths[a][b];
    if (passes_zero(cell, by)) {
        row_flip(digraph.any_two_paths[a], b);
        row_flip(digraph.any_two_paths_in[b], a);
    }
    cell = static_cast<std::uint16_t>(cell + by);
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
    const Members from_i{digraph.receivers, digraph.adjacency, i};
    const Members to_i{digraph.senders, digraph.adjacency_in, i};
    const Members from_j{digraph.receivers, digraph.adjacency, j};
    const Members to_j{digraph.senders, digraph.adjacency_in, j};
    change_shared(digraph.shared_senders, digraph.any_shared_senders, from_i, j, j, by);
    change_shared(digraph.shared_receivers, digraph.any_shared_receivers, to_j, i, i, by);
    members_for_each(to_i.lists, to_i.rows, i, [&](int k) {
        if (k != j) {
            change_two_path(digraph, k, j, by);
        }
    });
    members_for_each(from_j.lists, from_j.rows, j, [&](int k) {
        if (k != i) {
            change_two_path(digraph, i, k, by);
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
