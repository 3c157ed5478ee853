#include "measures/geodesics.h"

#include <algorithm>

#include "base/sample_summaries.h"

namespace {

// Counts of pairs by distance, from 64 sources at a time: bit s of a word stands for source s, and
// one step of the search moves all sources that stand at an actor on to its neighbours.
class DistanceCounts {
  public:
    DistanceCounts(const BitMatrix& adjacency, const NeighbourLists& lists)
        : adjacency_(adjacency),
          lists_(lists),
          seen_(actors(), 0),
          at_(actors(), 0),
          next_(actors(), 0) {}

    // Entry d - 1: ordered pairs at distance d; the last entry: pairs without a path.
    std::vector<std::int64_t> count() {
        std::vector<std::int64_t> pairs(actors(), 0);
        if (pairs.empty()) {
            return pairs;
        }
        const auto n = static_cast<std::int64_t>(actors());
        std::int64_t apart = n * (n - 1);
        for (int first = 0; first < adjacency_.actors; first += 64) {
            start(first);
            for (int distance = 1; !standing_.empty(); ++distance) {
                const std::int64_t reached = step();
                if (reached > 0 && distance != kUnreachable) {
                    pairs[static_cast<std::size_t>(distance) - 1] += reached;
                    apart -= reached;
                }
            }
        }
        pairs.back() += apart;
        return pairs;
    }

  private:
    std::size_t actors() const { return static_cast<std::size_t>(adjacency_.actors); }

    void start(int first) {
        std::fill(seen_.begin(), seen_.end(), 0);
        standing_.clear();
        for (int source = first; source < std::min(first + 64, adjacency_.actors); ++source) {
            const auto index = static_cast<std::size_t>(source);
            seen_[index] = at_[index] = std::uint64_t{1} << static_cast<unsigned>(source - first);
            standing_.push_back(source);
        }
    }

    // Moves every source one tie on; the number of pairs reached for the first time.
    std::int64_t step() {
        met_.clear();
        for (const int actor : standing_) {
            const std::uint64_t sources = at_[static_cast<std::size_t>(actor)];
            members_for_each(lists_, adjacency_, actor, [&](int neighbour) {
                std::uint64_t& arriving = next_[static_cast<std::size_t>(neighbour)];
                if (arriving == 0) {
                    met_.push_back(neighbour);
                }
                arriving |= sources;
            });
        }
        standing_.clear();
        std::int64_t reached = 0;
        for (const int actor : met_) {
            const auto index = static_cast<std::size_t>(actor);
            const std::uint64_t fresh = next_[index] & ~seen_[index];
            next_[index] = 0;
            if (fresh != 0) {
                seen_[index] |= fresh;
                at_[index] = fresh;
                standing_.push_back(actor);
                reached += std::popcount(fresh);
            }
        }
        return reached;
    }

    const BitMatrix& adjacency_;
    const NeighbourLists& lists_;
    // Sources that have been at each actor, that stand at it, and that arrive there.
    std::vector<std::uint64_t> seen_;
    std::vector<std::uint64_t> at_;
    std::vector<std::uint64_t> next_;
    // Actors where a source stands, and those where one arrives.
    std::vector<int> standing_;
    std::vector<int> met_;
};

// Actors of the largest connected component; 1 without any.
unsigned largest_component(const Graph& graph) {
    std::vector<bool> seen(graph.degree.size(), false);
    std::vector<int> queue;
    std::size_t largest = 1;
    for (int start = 0; start < graph.vertices; ++start) {
        if (seen[static_cast<std::size_t>(start)]) {
            continue;
        }
        queue.assign(1, start);
        seen[static_cast<std::size_t>(start)] = true;
        for (std::size_t next = 0; next < queue.size(); ++next) {
            members_for_each(graph.neighbours, graph.adjacency, queue[next], [&](int neighbour) {
                if (!seen[static_cast<std::size_t>(neighbour)]) {
                    seen[static_cast<std::size_t>(neighbour)] = true;
                    queue.push_back(neighbour);
                }
            });
        }
        largest = std::max(largest, queue.size());
    }
    return static_cast<unsigned>(largest);
}

}  // namespace

void refresh_geodesics(Graph& graph) {
    const auto pairs = DistanceCounts(graph.adjacency, graph.neighbours).count();
    // Each unordered pair has been met from both its ends.
    std::transform(pairs.begin(), pairs.end(), graph.geodesic_distribution.begin(),
                   [](std::int64_t both) { return static_cast<int>(both / 2); });
    graph.largest_component = largest_component(graph);
}

void refresh_geodesics(Digraph& digraph) {
    const auto pairs = DistanceCounts(digraph.adjacency, digraph.receivers).count();
    std::transform(pairs.begin(), pairs.end(), digraph.geodesic_distribution.begin(),
                   [](std::int64_t ordered) { return static_cast<int>(ordered); });
}

template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network) {
    std::array<int, 4> quartiles{};
    distance_quantiles(network.geodesic_distribution, 4, quartiles.data());
    return quartiles;
}

template std::array<int, 4> geodesic_quartiles<Graph>(const Graph&);
template std::array<int, 4> geodesic_quartiles<Digraph>(const Digraph&);
