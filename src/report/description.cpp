#include "report/description.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/sample_summaries.h"
#include "effects/digraph_alternating.h"
#include "effects/digraph_stars.h"
#include "effects/digraph_triads.h"
#include "effects/geometric_weights.h"
#include "effects/graph_walk.h"
#include "effects/triangles.h"

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

void refresh_geodesics(const BitMatrix& adjacency, IntTable& geodesics) {
    BreadthFirst search(adjacency);
    for (int actor = 0; actor < adjacency.actors; ++actor) {
        search.distances_from(actor, geodesics[actor]);
    }
}

// Counts pairs by distance; with `both` each ordered pair, else each unordered one.
void refresh_distribution(const IntTable& geodesics, bool both, std::vector<int>& distribution) {
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

double ratio_or_zero(double numerator, double denominator) {
    return denominator == 0.0 ? 0.0 : numerator / denominator;
}

}  // namespace

void graph_refresh_descriptives(Graph& graph) {
    for (std::size_t actor = 0; actor < graph.clustering.size(); ++actor) {
        // Tied pairs of neighbours are the actor's triangles.
        const double pairs = pairs_of(graph.degree[actor]);
        graph.clustering[actor] = pairs > 0.0 ? graph.triangles[actor] / pairs : 0.0;
    }
    refresh_geodesics(graph.adjacency, graph.geodesics);
    refresh_distribution(graph.geodesics, false, graph.geodesic_distribution);
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

void digraph_refresh_descriptives(Digraph& digraph) {
    refresh_geodesics(digraph.adjacency, digraph.geodesics);
    refresh_distribution(digraph.geodesics, true, digraph.geodesic_distribution);
    digraph_count_triads(digraph);
}

void digraph_count_triads(Digraph& digraph) {
    const EffectData none;
    const int n = digraph.vertices;
    const double out_stars = digraph_out2star_count(digraph, none);
    const double in_stars = digraph_in2star_count(digraph, none);
    const double mixed_stars = digraph_path2_count(digraph, none);
    const double with_mutual = wrapping_product(wrapping_sum(n, -2), digraph.mutual_dyads);
    const double with_arc = wrapping_product(wrapping_sum(n, -2), digraph.arcs);
    // Truncated towards zero, like every quotient of integers in the files.
    const int triples =
        wrapping_product(wrapping_product(n, wrapping_sum(n, -1)), wrapping_sum(n, -2)) / 6;
    const double all = triples;
    const double t300 = digraph_t1_count(digraph, none);
    const double t210 = digraph_t2_count(digraph, none) - 6.0 * t300;
    const double t120c = digraph_t3_count(digraph, none) - 2.0 * t210 - 6.0 * t300;
    const double t120d = digraph_t4_count(digraph, none) - t210 - 3.0 * t300;
    const double t120u = digraph_t5_count(digraph, none) - t210 - 3.0 * t300;
    const double t201 = digraph_t6_count(digraph, none) - t210 - 3.0 * t300;
    const double t111d = digraph_t7_count(digraph, none) -
                         (2.0 * t120d + t120c + 2.0 * t201 + 3.0 * t210 + 6.0 * t300);
    const double t111u = digraph_t8_count(digraph, none) -
                         (2.0 * t120u + t120c + 2.0 * t201 + 3.0 * t210 + 6.0 * t300);
    const double t030t = digraph_t9_count(digraph, none) -
                         (2.0 * t120d + t120c + 2.0 * t120u + 3.0 * t210 + 6.0 * t300);
    const double t030c = digraph_t10_count(digraph, none) - (t120c + t210 + 2.0 * t300);
    const double t102 = with_mutual - (t111u + t111d + t120c + t120d + t120u + 2.0 * t201 +
                                       2.0 * t210 + 3.0 * t300);
    const double t021d =
        out_stars - (t030t + t111u + t120c + t120d + 2.0 * t120u + t201 + 2.0 * t210 + 3.0 * t300);
    const double t021c =
        mixed_stars - (3.0 * t030c + t030t + t111u + t111d + 3.0 * t120c + 2.0 * t120d +
                       2.0 * t120u + 2.0 * t201 + 4.0 * t210 + 6.0 * t300);
    const double t021u =
        in_stars - (t030t + t111d + t120c + 2.0 * t120d + t120u + t201 + 2.0 * t210 + 3.0 * t300);
    const double t012 =
        with_arc - (2.0 * (t021u + t021c + t021d + t102) + 3.0 * (t030c + t030t + t111u + t111d) +
                    4.0 * (t201 + t120u + t120d + t120c) + 5.0 * t210 + 6.0 * t300);
    std::vector<double>& census = digraph.triad_census;
    census = {t300,  t210,  t120c, t120d, t120u, t201,  t111d, t111u,
              t030t, t030c, t102,  t021d, t021c, t021u, t012,  0.0};
    double others = 0.0;
    for (const double triads : census) {
        others += triads;
    }
    census.back() = all - others;
}

double mean_degree(const Graph& graph) { return 2.0 * graph.edges / graph.vertices; }

double mean_degree(const Digraph& digraph) {
    double sum = 0.0;
    for (const int degree : digraph.in_degree) {
        sum += degree;
    }
    return sum / digraph.vertices;
}

double mean_local_clustering(const Graph& graph) {
    double sum = 0.0;
    double actors = 0.0;
    for (std::size_t actor = 0; actor < graph.clustering.size(); ++actor) {
        sum += graph.clustering[actor];
        actors += graph.degree[actor] > 1 ? 1.0 : 0.0;
    }
    return ratio_or_zero(actors == 0.0 ? 0.0 : sum, actors);
}

double global_clustering(const Graph& graph) {
    double stars = 0.0;
    for (const int degree : graph.degree) {
        stars += pairs_of(degree);
    }
    return ratio_or_zero(3.0 * graph_triangle_count(graph), stars);
}

DirectedClustering directed_clustering(Digraph& digraph,
                                       const std::vector<float>& default_weights) {
    EffectData data;
    data.lambda = kDefaultLambda;
    data.weights = default_weights.data();
    const double transitive = digraph_t9_count(digraph, data);
    const double cyclic = digraph_t10_count(digraph, data);
    const double mixed = digraph_path2_count(digraph, data);
    const double paths_t = digraph_a2p_t_count(digraph, data);
    DirectedClustering clustering{};
    clustering.cto = ratio_or_zero(0.5 * transitive, digraph_out2star_count(digraph, data));
    clustering.cti = ratio_or_zero(0.5 * transitive, digraph_in2star_count(digraph, data));
    clustering.ctm = ratio_or_zero(transitive, mixed);
    clustering.ccm = ratio_or_zero(3.0 * cyclic, mixed);
    clustering.akc_t = ratio_or_zero(digraph_at_t_count(digraph, data), paths_t);
    clustering.akc_d =
        ratio_or_zero(0.5 * digraph_at_d_count(digraph, data), digraph_a2p_d_count(digraph, data));
    clustering.akc_u =
        ratio_or_zero(0.5 * digraph_at_u_count(digraph, data), digraph_a2p_u_count(digraph, data));
    clustering.akc_c = ratio_or_zero(digraph_at_c_count(digraph, data), paths_t);
    return clustering;
}

template <class Network>
std::array<int, 4> geodesic_quartiles(const Network& network) {
    std::array<int, 4> quartiles{};
    distance_quantiles(network.geodesic_distribution, 4, quartiles.data());
    return quartiles;
}

template std::array<int, 4> geodesic_quartiles<Graph>(const Graph&);
template std::array<int, 4> geodesic_quartiles<Digraph>(const Digraph&);
