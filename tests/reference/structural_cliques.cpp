#include "structural_families.h"

#include <cmath>

namespace reference {

namespace {

constexpr int alternating_clique_depth = 8;

bool tied_to_all(const PlainGraph& graph, const std::vector<int>& members, int actor) {
    for (const int member : members) {
        if (!tied(graph, member, actor)) {
            return false;
        }
    }
    return true;
}

// Adds up the cliques of each size that extend `members` by later candidates.
void count_extensions(const PlainGraph& graph, const std::vector<int>& candidates, int from,
                      std::vector<int>& members, std::vector<double>& by_size) {
    const int size = static_cast<int>(members.size());
    if (size >= static_cast<int>(by_size.size())) {
        return;
    }
    item(by_size, size) += 1.0;
    for (int next = from; next < static_cast<int>(candidates.size()); ++next) {
        const int actor = item(candidates, next);
        if (tied_to_all(graph, members, actor)) {
            members.push_back(actor);
            count_extensions(graph, candidates, next + 1, members, by_size);
            members.pop_back();
        }
    }
}

// Entry s is the number of cliques of s actors among the candidates, s up to `largest`.
std::vector<double> cliques_by_size(const PlainGraph& graph, const std::vector<int>& candidates,
                                    int largest) {
    std::vector<double> by_size(static_cast<std::size_t>(largest) + 1, 0.0);
    std::vector<int> members;
    count_extensions(graph, candidates, 0, members, by_size);
    return by_size;
}

// Cliques of `size` actors, all tied to one another.
template <int size>
double clique_change(const EvaluationState& state, int i, int j, float) {
    return clique_changes(state, i, j, size).back();
}

template <int size>
double clique_value(const PlainGraph& graph, float) {
    return clique_counts(graph, size).back();
}

// 4-cliques less 5-cliques over lambda, and so on with alternating signs up to 8-cliques.
double alternating_cliques(const std::vector<double>& cliques, float lambda) {
    if (lambda < 1.0F) {
        return 0.0;
    }
    const float ratio = 1.0F / lambda;
    double sum = 0.0;
    for (int m = 3; m < alternating_clique_depth; ++m) {
        const double power = std::pow(static_cast<double>(ratio), static_cast<double>(m - 3));
        if (m % 2 == 1) {
            sum += item(cliques, m) * power;
        } else {
            sum -= item(cliques, m) * power;
        }
    }
    return sum;
}

double alternating_clique_change(const EvaluationState& state, int i, int j, float lambda) {
    return alternating_cliques(clique_changes(state, i, j, alternating_clique_depth), lambda);
}

double alternating_clique_value(const PlainGraph& graph, float lambda) {
    return alternating_cliques(clique_counts(graph, alternating_clique_depth), lambda);
}

// Paths of three ties. The change takes every walk through the new tie, closed ones included: it
// exceeds the true difference by three for each actor tied to both ends.
double three_path_change(const EvaluationState& state, int i, int j, float) {
    double change = degree(state, i) * degree(state, j);
    for (int k = 0; k < state.bits.n; ++k) {
        if (k == i || k == j) {
            continue;
        }
        if (tied(state, k, j)) {
            change += degree(state, k) - 1;
        }
        if (tied(state, k, i)) {
            change += degree(state, k) - 1;
        }
    }
    return change;
}

// Paths d, a, b, c of four different actors, each found from both its ends.
double three_path_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int a = 0; a < graph.n; ++a) {
        for (int b = 0; b < graph.n; ++b) {
            if (!tied(graph, a, b)) {
                continue;
            }
            for (int c = 0; c < graph.n; ++c) {
                if (!tied(graph, c, b) || c == a) {
                    continue;
                }
                for (int d = 0; d < graph.n; ++d) {
                    if (tied(graph, d, a) && d != b && d != c) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count * 0.5;
}

// Cycles of four ties, chords or not: a neighbour k of j and a two-path from k to i that avoids j.
double cycle4_change(const EvaluationState& state, int i, int j, float) {
    double change = 0.0;
    for (int k = 0; k < state.bits.n; ++k) {
        if (k != i && k != j && tied(state, k, j)) {
            change += two_paths(state, i, k) + state.adding - 1;
        }
    }
    return change;
}

double cycle4_value(const PlainGraph& graph, float) {
    double count = 0.0;
    for (int a = 0; a < graph.n; ++a) {
        for (int b = 0; b < graph.n; ++b) {
            if (!tied(graph, a, b)) {
                continue;
            }
            for (int c = 0; c < graph.n; ++c) {
                if (!tied(graph, c, b) || c == a || c == b) {
                    continue;
                }
                for (int d = 0; d < graph.n; ++d) {
                    if (tied(graph, d, c) && tied(graph, d, a) && d != a && d != b && d != c) {
                        count += 1.0;
                    }
                }
            }
        }
    }
    return count * 0.125;
}

}  // namespace

std::vector<double> clique_counts(const PlainGraph& graph, int depth) {
    std::vector<double> counts(depth > 0 ? static_cast<std::size_t>(depth) : 0, 0.0);
    if (depth == 1 || depth == 2) {
        item(counts, 0) = graph.n;
    }
    if (depth == 2) {
        item(counts, 1) = edge_count(graph);
    }
    if (depth < 3) {
        return counts;
    }
    std::vector<int> everyone;
    for (int v = 0; v < graph.n; ++v) {
        everyone.push_back(v);
    }
    const std::vector<double> by_size = cliques_by_size(graph, everyone, depth);
    for (int m = 2; m < depth; ++m) {
        item(counts, m) = item(by_size, m + 1);
    }
    return counts;
}

std::vector<double> clique_changes(const EvaluationState& state, int i, int j, int depth) {
    std::vector<double> changes(depth > 0 ? static_cast<std::size_t>(depth) : 0, 0.0);
    if (depth < 2) {
        return changes;
    }
    item(changes, 1) = 1.0;
    if (depth == 2) {
        return changes;
    }
    item(changes, 2) = two_paths(state, i, j);
    const std::vector<double> by_size =
        cliques_by_size(state.bits, shared_neighbours(state, i, j), depth);
    for (int m = 3; m < depth; ++m) {
        item(changes, m) = item(by_size, m - 1);
    }
    return changes;
}

std::vector<StructuralEffect> clique_and_path_effects() {
    return {
        {"4-clique", clique_change<4>, clique_value<4>},
        {"5-clique", clique_change<5>, clique_value<5>},
        {"6-clique", clique_change<6>, clique_value<6>},
        {"7-clique", clique_change<7>, clique_value<7>},
        {"AC", alternating_clique_change, alternating_clique_value},
        {"3Path", three_path_change, three_path_value},
        {"cycle4", cycle4_change, cycle4_value},
    };
}

}  // namespace reference
