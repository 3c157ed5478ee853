#include "report/statistics_report.h"

#include <span>

#include "base/sample_summaries.h"
#include "base/text_writer.h"
#include "measures/clustering.h"
#include "measures/descriptives.h"
#include "measures/geodesics.h"
#include "measures/triad_census.h"
#include "network/network_files.h"

namespace {

template <class Network>
void write_rows(const Network& network, const EffectSelection& selection, TextWriter& out) {
    for (const OutputRow& row : output_rows(selection, Output::report)) {
        out.text(row.label + "\t");
        out.number(row.format, network.statistics[static_cast<std::size_t>(row.position)]);
        out.text("\n");
    }
}

void write_head(TextWriter& out, const Graph& graph) {
    out.text("***This graph contains:****\n");
    out.print("vertices\t%d\n", graph.vertices);
}
void write_head(TextWriter& out, const Digraph& digraph) {
    out.text("\n***This graph contains:****\n");
    out.print("vertices\t%8d\n", digraph.vertices);
}

void write_geodesics(TextWriter& out, std::span<const int> distribution) {
    out.text("\nGeodesic Distribution:(range[1..n-1,inf])\n");
    out.text(
        "Note: geodesic = shortest path between two nodes.\n"
        "The geodesic distribution is not based on semi-paths.\n");
    out.cells(distribution);
    out.text("\n");
}

template <class Network>
void write_quartiles(TextWriter& out, const Network& network) {
    out.text("Quartiles of the geodesic distribution.\n");
    out.text("Note: Quartiles equal to the number of nodes refer to infinite geodesics.\n");
    out.cells(geodesic_quartiles(network));
    out.text("\n");
}

void write_degrees(TextWriter& out, const Graph& graph) {
    out.text("\nDegree Distribution:(range[0..n-1])\n");
    out.cells(graph.degree_distribution);
    out.text("\n\nStandard deviation of degree distribution = ");
    out.print("%.6f\n", standard_deviation_int(graph.degree));
    out.text("Skewness of degree distribution = ");
    out.print("%.6f\n", skew_int(graph.degree));
    out.print("\nMean Degree = %.5f\n", mean_degree(graph));
}

void write_clustering(TextWriter& out, const Graph& graph) {
    out.text("\nLocal Clustering Coefficient:\n");
    for (const double value : graph.clustering) {
        out.print("%3.2f\t", value);
    }
    out.text("\n");
    out.print("Mean Local Clustering Coefficient = %.5f\n", mean_local_clustering(graph));
    out.print("\nGlobal Clustering Coefficient = %.5f\n", global_clustering(graph));
}

void write_two_paths(TextWriter& out, const Graph& graph) {
    out.text("\nTwo-Path Distribution:(range[0..n-2])\n");
    out.cells(graph.two_path_distribution);
    out.text("\nMean of two-path distribution = ");
    out.print("%.6f\n", dyad_mean(graph.two_paths, graph.vertices));
    out.text("Standard deviation of two-path distribution = ");
    out.print("%.6f\n", dyad_standard_deviation(graph.two_paths, graph.vertices));
    out.text("Skew of two-path distribution = ");
    out.print("%.6f\n", dyad_skew(graph.two_paths, graph.vertices));
}

void write_triangles(TextWriter& out, const Graph& graph) {
    out.text("Triangle Distribution:(range[0..(n-2)*(n-1)/2])\n");
    out.cells(graph_triangle_histogram(graph));
    out.text("\nMean of triangle distribution = ");
    out.print("%.6f\n", mean_int(graph.triangles));
    out.text("Standard deviation of triangle distribution = ");
    out.print("%.6f\n", standard_deviation_int(graph.triangles));
    out.text("Skewness of triangle distribution = ");
    out.print("%.6f\n", skew_int(graph.triangles));
}

void write_summary(TextWriter& out, const char* name, double centre, double deviation,
                   double skewness) {
    out.print("\nMean of %s = ", name);
    out.print("%.6f\n", centre);
    out.print("Standard deviation of %s = ", name);
    out.print("%.6f\n", deviation);
    out.print("Skew of %s = ", name);
    out.print("%.6f\n", skewness);
}

void write_et_counts(TextWriter& out, const char* name, std::span<const int> cells) {
    out.print("\n%s for each node\n", name);
    out.cells(cells);
    write_summary(out, name, mean_int(cells), standard_deviation_int(cells), skew_int(cells));
    out.text("\n");
}

void write_et(TextWriter& out, Graph& graph) {
    write_et_counts(out, "ET0", graph.et0);
    write_et_counts(out, "ETNT", graph.etnt);
    refresh_et_ratios(graph);
    out.text("\nETNT/ET0 for each node\n");
    for (const double ratio : graph.etnt_ratio) {
        out.print("%f\t", ratio);
    }
    write_summary(out, "ETNT/ET0", mean(graph.etnt_ratio), standard_deviation(graph.etnt_ratio),
                  skew(graph.etnt_ratio));
}

void write_directed_degrees(TextWriter& out, const Digraph& digraph) {
    out.text("\nIn-degree Distribution:(range[0..n-1])\n");
    out.cells(digraph.in_degree_distribution);
    out.text("\n");
    out.print("Standard deviation of in-degree distribution = %f\n",
              standard_deviation_int(digraph.in_degree));
    out.print("Skewness of in-degree distribution = %f\n", skew_int(digraph.in_degree));
    out.text("Out-degree Distribution:(range[0..n-1])\n");
    out.cells(digraph.out_degree_distribution);
    out.text("\n");
    out.print("Standard deviation of out-degree distribution = %f\n",
              standard_deviation_int(digraph.out_degree));
    out.print("Skewness of out-degree distribution = %f\n", skew_int(digraph.out_degree));
    out.print("Corr. Coef. between in and out degree distributions = %lf\n",
              correlation(digraph.in_degree, digraph.out_degree));
}

void write_directed_clustering(TextWriter& out, Digraph& digraph,
                               const EffectSelection& selection) {
    const DirectedClustering clustering = directed_clustering(digraph, selection.default_weights);
    out.print("Mean degree = %.5f\n\n", mean_degree(digraph));
    out.text("Global Clustering Coefficients:\n");
    out.print("Cto = %8.5f\n", clustering.cto);
    out.print("Cti = %8.5f\n", clustering.cti);
    out.print("Ctm = %8.5f\n", clustering.ctm);
    out.print("Ccm = %8.5f\n", clustering.ccm);
    out.print("AKC-T = %8.5f\n", clustering.akc_t);
    out.print("AKC-D = %8.5f\n", clustering.akc_d);
    out.print("AKC-U = %8.5f\n", clustering.akc_u);
    out.print("AKC-C = %8.5f\n", clustering.akc_c);
}

void write_census(TextWriter& out, Digraph& digraph) {
    refresh_triad_census(digraph);
    out.text("Triad Census:\n");
    for (std::size_t place = 0; place < kTriadNames.size(); ++place) {
        out.print("%s\t%.0f\n", kTriadNames[place], digraph.triad_census[place]);
    }
}

template <class Network>
void write_model_sections(const Network& network, const EffectSelection& selection,
                          const std::string& path) {
    {
        TextWriter out = writer_append(path);
        write_matrix(out, network);
    }
    TextWriter out = writer_append(path);
    write_head(out, network);
    write_rows(network, selection, out);
}

}  // namespace

void report_statistics(Graph& graph, const EffectSelection& selection, const std::string& path) {
    write_model_sections(graph, selection, path);
    TextWriter out = writer_append(path);
    out.print("\nGraph Density = %.5f\n", network_density(graph));
    write_degrees(out, graph);
    write_clustering(out, graph);
    write_geodesics(out, graph.geodesic_distribution);
    out.text("\n");
    write_quartiles(out, graph);
    write_two_paths(out, graph);
    write_triangles(out, graph);
    if (is_selected(selection, graph_effect::k0et) || is_selected(selection, graph_effect::kEtnt)) {
        write_et(out, graph);
    }
}

void report_statistics(Digraph& digraph, const EffectSelection& selection,
                       const std::string& path) {
    write_model_sections(digraph, selection, path);
    TextWriter out = writer_append(path);
    out.print("\nDigraph Density = %.5f\n", network_density(digraph));
    write_directed_degrees(out, digraph);
    write_directed_clustering(out, digraph, selection);
    write_geodesics(out, digraph.geodesic_distribution);
    write_quartiles(out, digraph);
    write_census(out, digraph);
}
