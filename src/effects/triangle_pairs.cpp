#include "effects/triangle_pairs.h"

#include <array>
#include <cstdint>
#include <initializer_list>

#include "effects/graph_walk.h"
#include "effects/triangles.h"

namespace {

using Row = const std::uint64_t*;

void copy_row(const Graph& graph, Row from, std::uint64_t* to) {
    for (int word = 0; word < words_of(graph); ++word) {
        to[word] = from[word];
    }
}

void clear_actors(std::uint64_t* set, std::initializer_list<int> actors) {
    for (const int actor : actors) {
        row_clear(set, actor);
    }
}

// set = row without the other rows.
void without_rows(const Graph& graph, std::uint64_t* set, Row row,
                  std::initializer_list<Row> others) {
    for (int word = 0; word < words_of(graph); ++word) {
        std::uint64_t rest = row[word];
        for (Row other : others) {
            rest &= ~other[word];
        }
        set[word] = rest;
    }
}

// The ties inside a set of actors. O(set x n / 64).
double ties_inside(const Graph& graph, Row set) {
    double twice = 0.0;
    row_for_each(set, words_of(graph), [&](int actor) {
        twice += row_and_count(graph.adjacency[actor], set, words_of(graph));
    });
    return twice / 2.0;
}

// The triangles inside a set of actors. O(ties inside x n / 64).
double triangles_inside(const Graph& graph, Row set) {
    double six_times = 0.0;
    row_for_each(set, words_of(graph), [&](int p) {
        row_and_for_each(graph.adjacency[p], set, words_of(graph), [&](int q) {
            six_times +=
                row_and_count(graph.adjacency[p], graph.adjacency[q], set, words_of(graph));
        });
    });
    return six_times / 6.0;
}

// All actors but those named.
void everyone_but(const Graph& graph, std::uint64_t* set, std::initializer_list<int> actors) {
    for (int word = 0; word < words_of(graph); ++word) {
        set[word] = 0;
    }
    for (int actor = 0; actor < graph.vertices; ++actor) {
        row_flip(set, actor);
    }
    clear_actors(set, actors);
}

// Triangles through x that avoid two other actors.
double triangles_at(const Graph& graph, int x, int avoid_a, int avoid_b) {
    std::uint64_t* around = graph_working_set(graph, 0);
    copy_row(graph, graph.adjacency[x], around);
    clear_actors(around, {avoid_a, avoid_b});
    return ties_inside(graph, around);
}

struct DisjointTriangles {
    double no_tie_between = 0.0;
    double one_tie_between = 0.0;
};

// Given a (possibly not yet closed) triangle of three actors: the triangles that avoid them, by the
// number of ties between the two sets. Actors with no tie into the set and with just one are told
// apart by whole words. With `one` false only those without a tie between are counted.
DisjointTriangles disjoint_triangles(const Graph& graph, int a, int b, int c, bool one) {
    std::uint64_t* none = graph_working_set(graph, 1);
    std::uint64_t* single = graph_working_set(graph, 2);
    std::uint64_t* around = graph_working_set(graph, 3);
    everyone_but(graph, none, {a, b, c});
    Row row_a = graph.adjacency[a];
    Row row_b = graph.adjacency[b];
    Row row_c = graph.adjacency[c];
    for (int word = 0; word < words_of(graph); ++word) {
        const std::uint64_t odd = row_a[word] ^ row_b[word] ^ row_c[word];
        const std::uint64_t all = row_a[word] & row_b[word] & row_c[word];
        single[word] = none[word] & odd & ~all;
        none[word] &= ~(row_a[word] | row_b[word] | row_c[word]);
    }
    DisjointTriangles found;
    found.no_tie_between = triangles_inside(graph, none);
    if (one) {
        row_for_each(single, words_of(graph), [&](int x) {
            for (int word = 0; word < words_of(graph); ++word) {
                around[word] = none[word] & graph.adjacency[x][word];
            }
            found.one_tie_between += ties_inside(graph, around);
        });
    }
    return found;
}

// Visits the triangles {x, p, q}, p < q, that avoid one other actor.
template <class Visit>
void for_each_triangle_at(const Graph& graph, int x, int avoid, Visit visit) {
    row_for_each(graph.adjacency[x], words_of(graph), [&](int p) {
        if (p == avoid) {
            return;
        }
        for_each_common(graph, x, p, [&](int q) {
            if (q > p && q != avoid) {
                visit(p, q);
            }
        });
    });
}

// The pairs of disjoint triangles, one at i and one at j, by the ties between them without (i, j).
DisjointTriangles triangles_across(const Graph& graph, int i, int j) {
    DisjointTriangles found;
    for_each_triangle_at(graph, i, j, [&](int p, int q) {
        for_each_triangle_at(graph, j, i, [&](int r, int s) {
            if (p == r || p == s || q == r || q == s) {
                return;
            }
            int between = 0;
            for (const int of_i : {p, q}) {
                for (const int of_j : {j, r, s}) {
                    between += graph_has_edge(graph, of_i, of_j) ? 1 : 0;
                }
            }
            between += graph_has_edge(graph, i, r) ? 1 : 0;
            between += graph_has_edge(graph, i, s) ? 1 : 0;
            found.no_tie_between += between == 0 ? 1.0 : 0.0;
            found.one_tie_between += between == 1 ? 1.0 : 0.0;
        });
    });
    return found;
}

}  // namespace

// Two triangles that share exactly one actor, other ties allowed. Each triangle that the tie closes
// pairs with every triangle at one of its three actors that avoids the other two.
double bow_tie_change(const Graph& graph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        change += triangles_at(graph, i, j, k) + triangles_at(graph, j, i, k) +
                  triangles_at(graph, k, i, j);
    });
    return change;
}
// Pairs of triangles at each actor, less those that share a tie (seen from both its ends).
double bow_tie_count(Graph& graph, const EffectData& data) {
    double sum = 0.0;
    for (const int triangles : graph.triangles) {
        sum += pairs_of(triangles);
    }
    return sum - 2.0 * triangle2_count(graph, data);
}

// Two triangles without a common actor, other ties allowed.
double p3_change(const Graph& graph, const EffectData&, int i, int j, int) {
    std::uint64_t* rest = graph_working_set(graph, 1);
    double around = -1.0;  // triangles that avoid i and j, counted when first needed
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        if (around < 0.0) {
            everyone_but(graph, rest, {i, j});
            around = triangles_inside(graph, rest);
        }
        change += around - triangles_at(graph, k, i, j);
    });
    return change;
}
double p3_count(Graph& graph, const EffectData& data) {
    return pairs_of(graph_triangle_count(graph)) - bow_tie_count(graph, data) -
           triangle2_count(graph, data);
}

// Two triangles on one shared tie whose outer actors are not tied: four actors, exactly five ties.
// The new tie may be an outer one (with the shared tie at either end), the shared one, or the sixth
// tie that ends such a configuration.
double q10_change(const Graph& graph, const EffectData&, int i, int j, int) {
    std::uint64_t* outer = graph_working_set(graph, 0);
    const int words = words_of(graph);
    double change = 0.0;
    // q tied to both ends; p tied to q and to one end only.
    for (const auto& [near, far] : {std::array<int, 2>{j, i}, std::array<int, 2>{i, j}}) {
        without_rows(graph, outer, graph.adjacency[near], {graph.adjacency[far]});
        clear_actors(outer, {i, j});
        for_each_common(graph, i, j,
                        [&](int q) { change += row_and_count(graph.adjacency[q], outer, words); });
    }
    // p and q both tied to both ends: tied to each other or not.
    std::uint64_t* common = graph_working_set(graph, 1);
    for (int word = 0; word < words; ++word) {
        common[word] = graph.adjacency[i][word] & graph.adjacency[j][word];
    }
    const double tied = ties_inside(graph, common);
    const double untied = pairs_of(row_count(common, words)) - tied;
    return change + untied - tied;
}
double q10_count(Graph& graph, const EffectData&) {
    std::uint64_t* common = graph_working_set(graph, 1);
    const int words = words_of(graph);
    double sum = 0.0;
    for (int p = 0; p < graph.vertices; ++p) {
        row_for_each(graph.adjacency[p], words, [&](int q) {
            if (q <= p || graph.two_paths[p][q] < 2) {
                return;
            }
            for (int word = 0; word < words; ++word) {
                common[word] = graph.adjacency[p][word] & graph.adjacency[q][word];
            }
            sum += pairs_of(row_count(common, words)) - ties_inside(graph, common);
        });
    }
    return sum;
}

// Two triangles that share one actor, with no further tie among the four outer actors. A new
// triangle makes one with each triangle at its own actors whose others are untied to it; and the
// new tie ends one as a further tie between two outer actors.
double q20_change(const Graph& graph, const EffectData&, int i, int j, int) {
    const int words = words_of(graph);
    std::uint64_t* set = graph_working_set(graph, 0);
    std::uint64_t* other = graph_working_set(graph, 1);
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        for (const auto& [centre, a, b] : {std::array<int, 3>{i, j, k}, std::array<int, 3>{j, i, k},
                                           std::array<int, 3>{k, i, j}}) {
            without_rows(graph, set, graph.adjacency[centre],
                         {graph.adjacency[a], graph.adjacency[b]});
            clear_actors(set, {a, b});
            change += ties_inside(graph, set);
        }
        // p tied to i and k but not j, q tied to j and k but not i, p and q not tied.
        for (int word = 0; word < words; ++word) {
            const std::uint64_t of_k = graph.adjacency[k][word];
            set[word] = of_k & graph.adjacency[i][word] & ~graph.adjacency[j][word];
            other[word] = of_k & graph.adjacency[j][word] & ~graph.adjacency[i][word];
        }
        clear_actors(set, {i, j});
        clear_actors(other, {i, j});
        const int there = row_count(other, words);
        row_for_each(set, words, [&](int p) {
            change -= there - row_and_count(graph.adjacency[p], other, words);
        });
    });
    return change;
}
double q20_count(Graph& graph, const EffectData&) {
    std::uint64_t* rest = graph_working_set(graph, 0);
    const int words = words_of(graph);
    double twice = 0.0;
    for (int centre = 0; centre < graph.vertices; ++centre) {
        row_for_each(graph.adjacency[centre], words, [&](int p) {
            for_each_common(graph, centre, p, [&](int q) {
                if (q <= p) {
                    return;
                }
                without_rows(graph, rest, graph.adjacency[centre],
                             {graph.adjacency[p], graph.adjacency[q]});
                clear_actors(rest, {p, q});
                twice += ties_inside(graph, rest);
            });
        });
    }
    return twice / 2.0;
}

// Two triangles without a common actor and with no tie between their actors. Each triangle that the
// tie closes pairs with those that have no tie to it; and the tie itself ends the pairs whose only
// tie between it becomes.
double q30_change(const Graph& graph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        change += disjoint_triangles(graph, i, j, k, false).no_tie_between;
    });
    return change - triangles_across(graph, i, j).no_tie_between;
}
double q30_count(Graph& graph, const EffectData&) {
    double twice = 0.0;
    for_each_triangle(graph, [&](int p, int q, int r) {
        twice += disjoint_triangles(graph, p, q, r, false).no_tie_between;
    });
    return twice / 2.0;
}

// The same with exactly one tie between: the tie also turns pairs without a tie into such pairs,
// and ends those that have one.
double q31_change(const Graph& graph, const EffectData&, int i, int j, int) {
    double change = 0.0;
    for_each_common(graph, i, j, [&](int k) {
        change += disjoint_triangles(graph, i, j, k, true).one_tie_between;
    });
    const DisjointTriangles across = triangles_across(graph, i, j);
    return change + across.no_tie_between - across.one_tie_between;
}
double q31_count(Graph& graph, const EffectData&) {
    double twice = 0.0;
    for_each_triangle(graph, [&](int p, int q, int r) {
        twice += disjoint_triangles(graph, p, q, r, true).one_tie_between;
    });
    return twice / 2.0;
}
