#include "measures/geodesics.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "base/sample_summaries.h"
#include "network/all_members.h"

namespace {

// Sources of one search: bit s of the words stands for the s-th of them.
constexpr int kSources = 256;
constexpr int kSourceWords = kSources / 64;
using Sources = std::array<std::uint64_t, kSourceWords>;

// Counts of pairs by distance, from many sources at a time: one step of the search moves all
// sources that stand at an actor on to its neighbours.
class DistanceCounts {
  public:
    DistanceCounts(const BitMatrix& adjacency, const NeighbourLists& lists)
        : actors_(adjacency.actors),
          neighbours_(lists, adjacency),
          seen_(size()),
          at_(size()),
          next_(size()) {}

    // Entry d - 1: ordered pairs at distance d; the last entry: pairs without a path.
    std::vector<std::int64_t> count() {
        std::vector<std::int64_t> pairs(size(), 0);
        if (pairs.empty()) {
            return pairs;
        }
        const auto n = static_cast<std::int64_t>(actors_);
        std::int64_t apart = n * (n - 1);
        for (int first = 0; first < actors_; first += kSources) {
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
    std::size_t size() const { return static_cast<std::size_t>(actors_); }

    void start(int first) {
        std::fill(seen_.begin(), seen_.end(), Sources{});
        standing_.clear();
        for (int source = first; source < std::min(first + kSources, actors_); ++source) {
            const auto index = static_cast<std::size_t>(source);
            const auto place = static_cast<std::size_t>(source - first);
            at_[index] = Sources{};
            at_[index][place / 64] = std::uint64_t{1} << (place % 64);
            seen_[index] = at_[index];
            standing_.push_back(source);
        }
    }

    // Moves every source one tie on; the number of pairs reached for the first time.
    std::int64_t step() {
        for (const int actor : standing_) {
            const Sources sources = at_[static_cast<std::size_t>(actor)];
            for (const int neighbour : neighbours_.of(actor)) {
                Sources& arriving = next_[static_cast<std::size_t>(neighbour)];
                for (std::size_t word = 0; word < kSourceWords; ++word) {
                    arriving[word] |= sources[word];
                }
            }
        }
        standing_.clear();
        std::int64_t reached = 0;
        for (std::size_t index = 0; index < size(); ++index) {
            std::uint64_t any = 0;
            for (std::size_t word = 0; word < kSourceWords; ++word) {
                const std::uint64_t fresh = next_[index][word] & ~seen_[index][word];
                next_[index][word] = 0;
                seen_[index][word] |= fresh;
                at_[index][word] = fresh;
                any |= fresh;
            }
            if (any != 0) {
                standing_.push_back(static_cast<int>(index));
                for (const std::uint64_t fresh : at_[index]) {
                    reached += bit_count(fresh);
                }
            }
        }
        return reached;
    }

    int actors_;
    AllMembers neighbours_;
    // Sources that have been at each actor, that stand at it, and that arrive there.
    std::vector<Sources> seen_;
    std::vector<Sources> at_;
    std::vector<Sources> next_;
    // Actors where a source stands.
    std::vector<int> standing_;
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
