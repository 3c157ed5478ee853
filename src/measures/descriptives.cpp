#include "measures/descriptives.h"

#include "base/sample_summaries.h"
#include "measures/clustering.h"
#include "measures/geodesics.h"
#include "measures/triad_census.h"

void refresh_descriptives(Graph& graph) {
    refresh_local_clustering(graph);
    refresh_geodesics(graph);
}

void refresh_descriptives(Digraph& digraph) {
    refresh_geodesics(digraph);
    refresh_triad_census(digraph);
}

double mean_degree(const Graph& graph) { return 2.0 * graph.edges / graph.vertices; }

double mean_degree(const Digraph& digraph) {
    double sum = 0.0;
    for (const int degree : digraph.in_degree) {
        sum += degree;
    }
    return sum / digraph.vertices;
}

std::vector<double> descriptive_measures(const Graph& graph, const EffectSelection&) {
    return {standard_deviation_int(graph.degree), skew_int(graph.degree), global_clustering(graph),
            mean_local_clustering(graph), variance(graph.clustering)};
}

std::vector<double> descriptive_measures(Digraph& digraph, const EffectSelection& selection) {
    const DirectedClustering clustering = directed_clustering(digraph, selection.default_weights);
    return {standard_deviation_int(digraph.in_degree),
            skew_int(digraph.in_degree),
            standard_deviation_int(digraph.out_degree),
            skew_int(digraph.out_degree),
            correlation(digraph.in_degree, digraph.out_degree),
            clustering.cto,
            clustering.cti,
            clustering.ctm,
            clustering.ccm,
            clustering.akc_t,
            clustering.akc_d,
            clustering.akc_u,
            clustering.akc_c};
}

void recount_uncarried(Graph& graph, const EffectSelection& selection) {
    for (std::size_t id = 0; id < selection.structural.size(); ++id) {
        const StructuralEffect& effect = selection.catalogue->effects[id];
        const int position = selection.structural[id].position;
        if (!effect.facts.carried && position >= 0) {
            graph.statistics[static_cast<std::size_t>(position)] = effect.graph.count(graph, {});
        }
    }
}

void refresh_et_ratios(Graph& graph) {
    for (std::size_t actor = 0; actor < graph.et0.size(); ++actor) {
        if (graph.et0[actor] != 0) {
            graph.etnt_ratio[actor] = static_cast<double>(static_cast<float>(graph.etnt[actor]) /
                                                          static_cast<float>(graph.et0[actor]));
        }
    }
}
