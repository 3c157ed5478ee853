#include "measures/geodesics.h"

#include <algorithm>

#include "base/sample_summaries.h"

namespace {

// Distances from one actor, level by level: each level is the union of the rows of the one before,
// less everyone seen.
class BreadthFirst {
  public:
    explicit BreadthFirst(const BitMatrix& adjacency)
        : adjacency_(adjacency),
          seen_(adjacency.actors),
          level_(adjacency.actors),
          next_(adjacency.actors) {}

    void distances_from(int source, int* distances) {
        const int words = adjacency_.words_per_row;
        std::fill(seen_.words.begin(), seen_.words.end(), 0);
        std::fill(level_.words.begin(), level_.words.end(), 0);
        std::fill(distances, distances + adjacency_.actors, kUnreachable);
        row_flip(seen_.row(), source);
        row_flip(level_.row(), source);
        distances[source] = 0;
        bool any = true;
        for (int distance = 1; any; ++distance) {
            std::fill(next_.words.begin(), next_.words.end(), 0);
            row_for_each(level_.row(), words, [&](int actor) {
                const std::uint64_t* row = adjacency_[actor];
                for (int word = 0; word < words; ++word) {
                    next_.row()[word] |= row[word];
                }
            });
            any = false;
            for (int word = 0; word < words; ++word) {
                next_.row()[word] &= ~seen_.row()[word];
                seen_.row()[word] |= next_.row()[word];
                any = any || next_.row()[word] != 0;
            }
            row_for_each(next_.row(), words, [&](int actor) { distances[actor] = distance; });
            std::swap(level_.words, next_.words);
        }
    }

  private:
    const BitMatrix& adjacency_;
    ActorSet seen_;
    ActorSet level_;
    ActorSet next_;
};

void measure_distances(const BitMatrix& adjacency, IntTable& geodesics) {
    BreadthFirst search(adjacency);
    for (int actor = 0; actor < adjacency.actors; ++actor) {
        search.distances_from(actor, geodesics[actor]);
    }
}

// Counts pairs by distance; with `both` each ordered pair, else each unordered one.
void count_distances(const IntTable& geodesics, bool both, std::vector<int>& distribution) {
    std::fill(distribution.begin(), distribution.end(), 0);
    for (int i = 0; i < geodesics.rows; ++i) {
        for (int j = both ? 0 : i + 1; j < geodesics.columns; ++j) {
            if (i == j) {
                continue;
            }
            const int distance = geodesics[i][j];
            if (distance == kUnreachable) {
                ++distribution.back();
            } else {
                ++distribution[static_cast<std::size_t>(distance) - 1];
            }
        }
    }
}

}  // namespace

void refresh_geodesics(Graph& graph) {
    measure_distances(graph.adjacency, graph.geodesics);
    count_distances(graph.geodesics, false, graph.geodesic_distribution);
    unsigned largest = 0;
    for (int i = 0; i < graph.geodesics.rows; ++i) {
        unsigned reached = 0;
        for (int j = 0; j < graph.geodesics.columns; ++j) {
            const int distance = graph.geodesics[i][j];
            reached += distance != 0 && distance != kUnreachable ? 1U : 0U;
        }
        largest = std::max(largest, reached);
    }
    graph.largest_component = largest + 1;
}

void refresh_geodesics(Digraph& digraph) {
    measure_distances(digraph.adjacency, digraph.geodesics);
    count_distances(digraph.geodesics, true, digraph.geodesic_distribution);
}

template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network) {
    std::array<int, 4> quartiles{};
    distance_quantiles(network.geodesic_distribution, 4, quartiles.data());
    return quartiles;
}

template std::array<int, 4> geodesic_quartiles<Graph>(const Graph&);
template std::array<int, 4> geodesic_quartiles<Digraph>(const Digraph&);
