// The verbs that a run sequence needs of a network record, under one name for both records.
#pragma once

#include "base/conversions.h"
#include "effects/cliques.h"
#include "effects/evaluation.h"
#include "estimation/estimator.h"
#include "fit/goodness_of_fit.h"
#include "network/network_files.h"
#include "report/description.h"
#include "sampling/simulation.h"

template <class Network>
struct KindOf;

template <>
struct KindOf<Graph> {
    static constexpr bool kDirected = false;
    static int first_effect() { return graph_effect::kEdge; }

    static Graph read(const std::string& path, int n, int p, int depth) {
        return graph_read_matrix(path, n, p, depth);
    }
    // Ties of a random start network: n (n - 1) x density in single precision, halved, truncated.
    static int target_ties(int n, float density) {
        const auto pairs = static_cast<float>(wrapping_product(n, wrapping_sum(n, -1)));
        return truncate_to_int(static_cast<double>(pairs * density) * 0.5);
    }
    static Graph random(int n, int ties, int p, int depth, RandomSource& random) {
        return graph_random_with_edges(n, ties, p, depth, random);
    }
    static void refresh(Graph& graph) { graph_refresh_descriptives(graph); }
    static void compute(Graph& graph, const ActiveModel<Graph>& model) {
        graph_count_cliques(graph);
        graph_compute_statistics(graph, model);
    }
    static void copy(const Graph& from, Graph& to) { graph_copy(from, to); }
    static void simulate(Chain<Graph>& chain, const RunSetting& setting, double iterations,
                         double sample_interval) {
        graph_simulation_run(chain, setting, iterations, sample_interval);
    }
    static int estimate(Chain<Graph>& chain, const RunSetting& setting,
                        const EstimationSettings& settings, std::vector<double>& parameters,
                        Matrix& scaling_matrix) {
        return estimate_graph(chain, setting, settings, parameters, scaling_matrix);
    }
    static void fit(Chain<Graph>& chain, Graph& observed, const RunSetting& setting,
                    double proposals, double interval) {
        gof_graph(chain, observed, setting, proposals, interval);
    }
    static void bayesian_fit(Chain<Graph>& chain, Graph& observed, const RunSetting& setting,
                             const Matrix& parameter_sets, int planned, double burn_in) {
        bayes_gof_graph(chain, observed, setting, parameter_sets, planned, burn_in);
    }
};

template <>
struct KindOf<Digraph> {
    static constexpr bool kDirected = true;
    static int first_effect() { return digraph_effect::kArc; }

    static Digraph read(const std::string& path, int n, int p, int) {
        return digraph_read_matrix(path, n, p);
    }
    // Arcs of a random start network: n (n - 1) x density in single precision, truncated.
    static int target_ties(int n, float density) {
        const auto pairs = static_cast<float>(wrapping_product(n, wrapping_sum(n, -1)));
        return truncate_to_int(static_cast<double>(pairs * density));
    }
    static Digraph random(int n, int ties, int p, int, RandomSource& random) {
        return digraph_random_with_arcs(n, ties, p, random);
    }
    static void refresh(Digraph& digraph) { digraph_refresh_descriptives(digraph); }
    static void compute(Digraph& digraph, const ActiveModel<Digraph>& model) {
        digraph_compute_statistics(digraph, model);
    }
    static void copy(const Digraph& from, Digraph& to) { digraph_copy(from, to); }
    static void simulate(Chain<Digraph>& chain, const RunSetting& setting, double iterations,
                         double sample_interval) {
        digraph_simulation_run(chain, setting, iterations, sample_interval);
    }
    static int estimate(Chain<Digraph>& chain, const RunSetting& setting,
                        const EstimationSettings& settings, std::vector<double>& parameters,
                        Matrix& scaling_matrix) {
        return estimate_digraph(chain, setting, settings, parameters, scaling_matrix);
    }
    static void fit(Chain<Digraph>& chain, Digraph& observed, const RunSetting& setting,
                    double proposals, double interval) {
        gof_digraph(chain, observed, setting, proposals, interval);
    }
    static void bayesian_fit(Chain<Digraph>& chain, Digraph& observed, const RunSetting& setting,
                             const Matrix& parameter_sets, int planned, double burn_in) {
        bayes_gof_digraph(chain, observed, setting, parameter_sets, planned, burn_in);
    }
};
