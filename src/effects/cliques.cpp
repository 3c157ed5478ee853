#include "effects/cliques.h"

#include <algorithm>
#include <cmath>

#include "effects/graph_walk.h"

namespace {

// Adds to counts[entry], counts[entry + 1], .. the cliques of 1, 2, .. actors inside a set, members
// ascending. Level after level narrows the candidates to later actors tied to all members; working
// set `level` holds them.
void count_cliques_inside(const Graph& graph, const std::uint64_t* set, int level, int entry,
                          std::vector<double>& counts) {
    const int words = graph.adjacency.words_per_row;
    counts[static_cast<std::size_t>(entry)] += row_count(set, words);
    if (entry + 1 >= static_cast<int>(counts.size())) {
        return;
    }
    std::uint64_t* later = graph_working_set(graph, level);
    row_for_each(set, words, [&](int actor) {
        const std::uint64_t* row = graph.adjacency[actor];
        const int home = actor / 64;
        bool any = false;
        for (int word = 0; word < words; ++word) {
            later[word] = word < home ? 0 : set[word] & row[word];
            if (word == home) {
                const int place = actor % 64;
                const std::uint64_t behind =
                    place == 63 ? 0 : ~0ULL >> static_cast<unsigned>(place + 1);
                later[word] &= actor_order(behind);
            }
            any = any || later[word] != 0;
        }
        if (any) {
            count_cliques_inside(graph, later, level + 1, entry + 1, counts);
        }
    });
}

double entry_of(const std::vector<double>& table, std::size_t entry) {
    return entry < table.size() ? table[entry] : 0.0;
}

// 4-cliques, less 5-cliques / lambda, and so on with falling powers up to the 8-cliques; dead below
// lambda 1.
double alternating_sum(const std::vector<double>& table, const EffectData& data) {
    if (data.lambda < 1.0F) {
        return 0.0;
    }
    const auto base = static_cast<double>(alternating_clique_base(data.lambda));
    double sum = 0.0;
    for (int m = 3; m <= 7; ++m) {
        const double cliques = entry_of(table, static_cast<std::size_t>(m));
        if (cliques == 0.0) {
            continue;
        }
        const double weight = std::pow(base, m - 3);
        if (m % 2 == 1) {
            sum += cliques * weight;
        } else {
            sum -= cliques * weight;
        }
    }
    return sum;
}

}  // namespace

void graph_count_cliques(Graph& graph) {
    std::vector<double>& counts = graph.clique_counts;
    if (graph.clique_depth == 0) {
        return;
    }
    if (graph.clique_depth <= 2) {
        counts[0] = graph.vertices;
        if (graph.clique_depth == 2) {
            counts[1] = graph.edges;
        }
        return;
    }
    std::fill(counts.begin(), counts.end(), 0.0);
    ActorSet everyone(graph.vertices);
    for (int actor = 0; actor < graph.vertices; ++actor) {
        row_flip(everyone.row(), actor);
    }
    count_cliques_inside(graph, everyone.row(), 0, 0, counts);
    // Only cliques of three and more are kept: readers of the table know its first entries as 0.
    counts[0] = 0.0;
    counts[1] = 0.0;
}

void graph_clique_changes(Graph& graph, int i, int j) {
    std::vector<double>& changes = graph.clique_changes;
    if (graph.clique_depth == 0) {
        return;
    }
    std::fill(changes.begin(), changes.end(), 0.0);
    if (graph.clique_depth == 1) {
        return;
    }
    changes[1] = 1.0;
    if (graph.clique_depth == 2) {
        return;
    }
    const int common = two_paths_of(graph, i, j);
    changes[2] = common;
    if (graph.clique_depth == 3 || common == 0) {
        return;
    }
    std::uint64_t* shared = graph_working_set(graph, 0);
    for (int word = 0; word < graph.adjacency.words_per_row; ++word) {
        shared[word] = graph.adjacency[i][word] & graph.adjacency[j][word];
    }
    changes[2] = 0.0;
    count_cliques_inside(graph, shared, 1, 2, changes);
    changes[2] = common;
}

float alternating_clique_base(float lambda) { return 1.0F / lambda; }

// k mutually tied actors. The changes read what graph_clique_changes found for this dyad. O(1).
double clique4_change(const Graph& graph, const EffectData&, int, int, int) {
    return entry_of(graph.clique_changes, 3);
}
double clique4_count(Graph& graph, const EffectData&) { return entry_of(graph.clique_counts, 3); }
double clique5_change(const Graph& graph, const EffectData&, int, int, int) {
    return entry_of(graph.clique_changes, 4);
}
double clique5_count(Graph& graph, const EffectData&) { return entry_of(graph.clique_counts, 4); }
double clique6_change(const Graph& graph, const EffectData&, int, int, int) {
    return entry_of(graph.clique_changes, 5);
}
double clique6_count(Graph& graph, const EffectData&) { return entry_of(graph.clique_counts, 5); }
double clique7_change(const Graph& graph, const EffectData&, int, int, int) {
    return entry_of(graph.clique_changes, 6);
}
double clique7_count(Graph& graph, const EffectData&) { return entry_of(graph.clique_counts, 6); }

double alternating_clique_change(const Graph& graph, const EffectData& data, int, int, int) {
    return alternating_sum(graph.clique_changes, data);
}
double alternating_clique_count(Graph& graph, const EffectData& data) {
    return alternating_sum(graph.clique_counts, data);
}
