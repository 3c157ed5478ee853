#include "measures/clustering.h"

#include "effects/digraph_alternating.h"
#include "effects/digraph_stars.h"
#include "effects/digraph_triads.h"
#include "effects/geometric_weights.h"
#include "effects/graph_walk.h"
#include "effects/triangles.h"

namespace {

double ratio_or_zero(double numerator, double denominator) {
    return denominator == 0.0 ? 0.0 : numerator / denominator;
}

}  // namespace

void refresh_local_clustering(Graph& graph) {
    for (std::size_t actor = 0; actor < graph.clustering.size(); ++actor) {
        // Tied pairs of neighbours are the actor's triangles.
        const double pairs = pairs_of(graph.degree[actor]);
        graph.clustering[actor] = pairs > 0.0 ? graph.triangles[actor] / pairs : 0.0;
    }
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
