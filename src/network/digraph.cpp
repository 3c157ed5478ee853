#include "network/digraph.h"

#include <algorithm>

#include "network/path_tables.h"

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

// One more or less (`by`) in the cells [k][end] and [end][k] of a symmetric table, for each k of
// `members` but `end`.
template <int by>
void change_shared(CountTable& table, BitMatrix& any, const Members& members, int end) {
    std::uint16_t* row = table[end];
    const CountColumn column(table, end);
    change_cells<by>(members, end, any[end], BitColumn(any, end), [&](int k) {
        const auto after = static_cast<std::uint16_t>(row[k] + by);
        row[k] = after;
        column[k] = after;
        return after;
    });
}

// The tables of two-paths around an arc i to j that has come or gone.
template <int by>
void change_around(Digraph& digraph, int i, int j) {
    const Members from_i{digraph.receivers, digraph.adjacency, i};
    const Members to_i{digraph.senders, digraph.adjacency_in, i};
    const Members from_j{digraph.receivers, digraph.adjacency, j};
    const Members to_j{digraph.senders, digraph.adjacency_in, j};
    change_shared<by>(digraph.shared_senders, digraph.any_shared_senders, from_i, j);
    change_shared<by>(digraph.shared_receivers, digraph.any_shared_receivers, to_j, i);
    const CountColumn to_j_cells(digraph.two_paths, j);
    change_cells<by>(
        to_i, j, digraph.any_two_paths_in[j], BitColumn(digraph.any_two_paths, j),
        [&](int k) { return to_j_cells[k] = static_cast<std::uint16_t>(to_j_cells[k] + by); });
    std::uint16_t* from_i_cells = digraph.two_paths[i];
    change_cells<by>(
        from_j, i, digraph.any_two_paths[i], BitColumn(digraph.any_two_paths_in, i),
        [&](int k) { return from_i_cells[k] = static_cast<std::uint16_t>(from_i_cells[k] + by); });
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
    if (adding == 1) {
        change_around<1>(digraph, i, j);
    } else {
        change_around<-1>(digraph, i, j);
    }
}

void digraph_count_two_paths(Digraph& digraph) {
    const AllMembers receivers(digraph.receivers, digraph.adjacency);
    const AllMembers senders(digraph.senders, digraph.adjacency_in);
    for (int i = 0; i < digraph.vertices; ++i) {
        count_row(digraph.shared_receivers, digraph.any_shared_receivers, i, receivers.of(i),
                  senders, digraph.adjacency_in);
        count_row(digraph.shared_senders, digraph.any_shared_senders, i, senders.of(i), receivers,
                  digraph.adjacency);
        count_row(digraph.two_paths, digraph.any_two_paths, i, receivers.of(i), receivers,
                  digraph.adjacency);
        unite_rows(digraph.any_two_paths_in, i, senders.of(i), digraph.adjacency_in);
    }
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
