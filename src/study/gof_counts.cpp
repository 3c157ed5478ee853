#include "study/gof_counts.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace {

std::size_t index_of(int number) { return static_cast<std::size_t>(number); }

void count_at(std::vector<int>& histogram, int entry) {
    if (index_of(entry) >= histogram.size()) {
        histogram.resize(index_of(entry) + 1, 0);
    }
    ++histogram[index_of(entry)];
}

}  // namespace

SparseCounts sparse_counts(const std::vector<int>& histogram, int first) {
    SparseCounts counts;
    for (std::size_t k = 0; k < histogram.size(); ++k) {
        if (histogram[k] != 0) {
            counts.emplace_back(first + static_cast<int>(k), histogram[k]);
        }
    }
    return counts;
}

SparseCounts sparse_counts(const std::vector<double>& histogram) {
    SparseCounts counts;
    for (std::size_t k = 0; k < histogram.size(); ++k) {
        if (histogram[k] != 0.0) {
            counts.emplace_back(static_cast<int>(k), histogram[k]);
        }
    }
    return counts;
}

template <class Network>
SparseCounts edgewise_partners(const Network& network, const std::vector<ActorTie>& ties) {
    std::vector<int> histogram;
    for (const ActorTie& tie : ties) {
        count_at(histogram, network.two_paths[tie.from][tie.to]);
    }
    return sparse_counts(histogram, 0);
}

template SparseCounts edgewise_partners<Graph>(const Graph&, const std::vector<ActorTie>&);
template SparseCounts edgewise_partners<Digraph>(const Digraph&, const std::vector<ActorTie>&);

SparseCounts dyadwise_partners(const Graph& graph) {
    return sparse_counts(graph.two_path_distribution, 0);
}

SparseCounts dyadwise_partners(const Digraph& digraph) {
    std::vector<int> histogram(1, 0);
    int any = 0;
    for (int i = 0; i < digraph.vertices; ++i) {
        row_for_each(digraph.any_two_paths[i], digraph.any_two_paths.words_per_row, [&](int j) {
            if (i != j) {
                count_at(histogram, digraph.two_paths[i][j]);
                ++any;
            }
        });
    }
    histogram[0] = digraph.vertices * (digraph.vertices - 1) - any;
    return sparse_counts(histogram, 0);
}

// By union of the ties' ends.
std::vector<int> component_sizes(int actors, const std::vector<ActorTie>& ties) {
    std::vector<int> parent(index_of(actors));
    std::iota(parent.begin(), parent.end(), 0);
    const auto root = [&parent](int actor) {
        while (parent[index_of(actor)] != actor) {
            parent[index_of(actor)] = parent[index_of(parent[index_of(actor)])];
            actor = parent[index_of(actor)];
        }
        return actor;
    };
    for (const ActorTie& tie : ties) {
        parent[index_of(root(tie.from))] = root(tie.to);
    }
    std::vector<int> members(parent.size(), 0);
    for (int actor = 0; actor < actors; ++actor) {
        ++members[index_of(root(actor))];
    }
    members.erase(std::remove(members.begin(), members.end(), 0), members.end());
    return members;
}

SparseCounts size_counts(const std::vector<int>& sizes) {
    std::map<int, double> counts;
    for (const int size : sizes) {
        counts[size] += 1.0;
    }
    return {counts.begin(), counts.end()};
}

std::vector<double> triads_of(const Graph& graph) {
    const double n = graph.vertices;
    double stars = 0.0;
    double corners = 0.0;
    for (std::size_t actor = 0; actor < graph.degree.size(); ++actor) {
        const double degree = graph.degree[actor];
        stars += degree * (degree - 1.0) / 2.0;
        corners += graph.triangles[actor];
    }
    const double three = corners / 3.0;
    const double two = stars - 3.0 * three;
    const double one = graph.edges * (n - 2.0) - 2.0 * two - 3.0 * three;
    const double all = n * (n - 1.0) * (n - 2.0) / 6.0;
    return {all - one - two - three, one, two, three};
}

// The census with its last classes solved in double: the snapshot forms products of n that wrap.
std::vector<double> triads_of(const Digraph& digraph) {
    enum Class {
        t300,
        t210,
        t120c,
        t120d,
        t120u,
        t201,
        t111d,
        t111u,
        t030t,
        t030c,
        t102,
        t021d,
        t021c,
        t021u,
        t012,
        t003
    };
    std::vector<double> census = digraph.triad_census;
    const double n = digraph.vertices;
    const double mutual = digraph.mutual_dyads;
    census[t102] = (n - 2.0) * mutual -
                   (census[t111u] + census[t111d] + census[t120c] + census[t120d] + census[t120u] +
                    2.0 * census[t201] + 2.0 * census[t210] + 3.0 * census[t300]);
    const double single = digraph.arcs - 2.0 * mutual;
    census[t012] = (n - 2.0) * single -
                   (2.0 * (census[t021u] + census[t021c] + census[t021d]) + census[t111d] +
                    census[t111u] + 3.0 * (census[t030t] + census[t030c]) +
                    2.0 * (census[t120u] + census[t120d] + census[t120c]) + census[t210]);
    census[t003] = 0.0;
    const double others = std::accumulate(census.begin(), census.end(), 0.0);
    census[t003] = n * (n - 1.0) * (n - 2.0) / 6.0 - others;
    return census;
}
