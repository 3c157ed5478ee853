#include "report/sample_tables.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>

#include "base/sample_summaries.h"
#include "base/text_writer.h"
#include "effects/triangle_ties.h"
#include "measures/clustering.h"
#include "measures/descriptives.h"
#include "measures/geodesics.h"
#include "network/network_files.h"
#include "report/statistics_report.h"

namespace {

// Column heads by a format with one integer, from `first` to `last`.
void write_numbered(TextWriter& out, const char* before, std::int64_t first, std::int64_t last) {
    for (std::int64_t number = first; number <= last; ++number) {
        out.print("%s%lld\t", before, static_cast<long long>(number));
    }
}

void write_int_summary(TextWriter& out, std::span<const int> values) {
    out.print("%f\t", mean_int(values));
    out.print("%f\t", standard_deviation_int(values));
    out.print("%f\t", skew_int(values));
}

void write_geodesic_head(int vertices, const std::string& path) {
    TextWriter out = writer_append(path);
    write_numbered(out, "geo", 1, static_cast<std::int64_t>(vertices) - 1);
    out.text("geoInf\n");
}

template <class Network>
void write_geodesic_row(const Network& network, const OutputPaths& paths) {
    {
        TextWriter out = writer_append(paths.geodesic_quartiles);
        out.cells(geodesic_quartiles(network));
        out.text("\n");
    }
    TextWriter out = writer_append(paths.geodesic_distribution);
    out.cells(network.geodesic_distribution);
    out.text("\n");
}

void write_et_head(const Graph& graph, const std::string& path) {
    TextWriter out = writer_append(path);
    for (const char* block : {"et0_v", "etnt_v"}) {
        write_numbered(out, block, 1, graph.vertices);
        out.text("mean\tstddev\tskew\t");
    }
    write_numbered(out, "etntratio_v", 1, graph.vertices);
    out.text("mean\tstddev\tskew\n");
}

void write_et_row(Graph& graph, const EffectSelection& selection, const std::string& path) {
    if (!is_selected(selection, graph_effect::k0et) ||
        !is_selected(selection, graph_effect::kEtnt)) {
        graph_count_0et(graph);
        graph_count_etnt(graph);
    }
    refresh_et_ratios(graph);
    TextWriter out = writer_append(path);
    out.cells(graph.et0);
    write_int_summary(out, graph.et0);
    out.cells(graph.etnt);
    write_int_summary(out, graph.etnt);
    for (const double ratio : graph.etnt_ratio) {
        out.print("%f\t", ratio);
    }
    out.print("%f\t", mean(graph.etnt_ratio));
    out.print("%f\t", standard_deviation(graph.etnt_ratio));
    out.print("%f\t", skew(graph.etnt_ratio));
    out.text("\n");
}

}  // namespace

void write_sample_head(const EffectSelection& selection, const std::string& path) {
    TextWriter out = writer_replace(path);
    out.text("id\t");
    for (const OutputRow& row : output_rows(selection, Output::simulation)) {
        out.text(row.label + "\t");
    }
    out.text("\n");
}

void write_sample_row(const EffectSelection& selection, const std::vector<double>& statistics,
                      double proposal, const std::string& path) {
    TextWriter out = writer_append(path);
    out.print("%.0f\t", proposal);
    for (const OutputRow& row : output_rows(selection, Output::simulation)) {
        out.number(row.format, statistics[static_cast<std::size_t>(row.position)]);
        out.text("\t");
    }
    out.text("\n");
}

// The triangle and two-path heads have no line feed of their own: the first row goes on in the same
// line, and readers of these files count on that.
void write_distribution_heads(const Graph& graph, const OutputSwitches& switches,
                              const OutputPaths& paths) {
    const std::int64_t n = graph.vertices;
    if (switches.degree_distribution) {
        TextWriter out = writer_append(paths.degree_distribution);
        write_numbered(out, "d", 0, n - 1);
        out.text("stddev\tskew\n");
    }
    if (switches.geodesic_distribution) {
        write_geodesic_head(graph.vertices, paths.geodesic_distribution);
    }
    if (switches.cluster_giant) {
        writer_append(paths.cluster_giant).text("mlocal\tglobal\tgiant\n");
    }
    if (switches.triangle_distribution) {
        TextWriter out = writer_append(paths.triangle_distribution);
        write_numbered(out, "t", 0, (n - 1) * (n - 2) / 2);
        out.text("mean\tstddev\tskew\t");
    }
    if (switches.two_path_distribution) {
        TextWriter out = writer_append(paths.twopath_distribution);
        write_numbered(out, "tp", 0, n - 2);
        out.text("mean\tstddev\tskew\t");
    }
    if (switches.et_distribution) {
        write_et_head(graph, paths.et0nt_distribution);
    }
}

void write_distribution_heads(const Digraph& digraph, const OutputSwitches& switches,
                              const OutputPaths& paths) {
    const std::int64_t n = digraph.vertices;
    if (switches.degree_distribution) {
        TextWriter out = writer_append(paths.degree_distribution);
        write_numbered(out, "ind", 0, n - 1);
        out.text("stdin\tskewin\t");
        write_numbered(out, "outd", 0, n - 1);
        out.text("stdout\tskewout\tcorr\n");
    }
    if (switches.geodesic_distribution) {
        write_geodesic_head(digraph.vertices, paths.geodesic_distribution);
    }
    if (switches.cluster_giant) {
        // The sixth head begins with the character BEL instead of a tab and its first letter.
        writer_append(paths.cluster_giant).text("cto\tcti\tctm\tccm\takct\akcd\takcu\takcc\n");
    }
}

void write_distribution_rows(Graph& graph, const EffectSelection& selection,
                             const OutputSwitches& switches, const OutputPaths& paths) {
    if (switches.degree_distribution) {
        TextWriter out = writer_append(paths.degree_distribution);
        out.cells(graph.degree_distribution);
        out.print("%f\t%f\t\n", standard_deviation_int(graph.degree), skew_int(graph.degree));
    }
    if (switches.geodesic_distribution) {
        write_geodesic_row(graph, paths);
    }
    if (switches.cluster_giant) {
        writer_append(paths.cluster_giant)
            .print("%3.2f\t%3.2f\t%d\n", mean_local_clustering(graph), global_clustering(graph),
                   static_cast<int>(graph.largest_component));
    }
    if (switches.triangle_distribution) {
        TextWriter out = writer_append(paths.triangle_distribution);
        out.cells(graph_triangle_histogram(graph));
        write_int_summary(out, graph.triangles);
        out.text("\n");
    }
    if (switches.two_path_distribution) {
        TextWriter out = writer_append(paths.twopath_distribution);
        out.cells(graph.two_path_distribution);
        out.print("%f\t", dyad_mean(graph.two_paths, graph.vertices));
        out.print("%f\t", dyad_standard_deviation(graph.two_paths, graph.vertices));
        out.print("%f\t", dyad_skew(graph.two_paths, graph.vertices));
        out.text("\n");
    }
    if (switches.et_distribution) {
        write_et_row(graph, selection, paths.et0nt_distribution);
    }
}

void write_distribution_rows(Digraph& digraph, const EffectSelection& selection,
                             const OutputSwitches& switches, const OutputPaths& paths) {
    if (switches.degree_distribution) {
        TextWriter out = writer_append(paths.degree_distribution);
        out.cells(digraph.in_degree_distribution);
        out.print("%f\t%f\t", standard_deviation_int(digraph.in_degree),
                  skew_int(digraph.in_degree));
        out.cells(digraph.out_degree_distribution);
        out.print("%f\t%f\t", standard_deviation_int(digraph.out_degree),
                  skew_int(digraph.out_degree));
        out.print("%f\t\n", correlation(digraph.in_degree, digraph.out_degree));
    }
    if (switches.geodesic_distribution) {
        write_geodesic_row(digraph, paths);
    }
    if (switches.cluster_giant) {
        const DirectedClustering clustering =
            directed_clustering(digraph, selection.default_weights);
        writer_append(paths.cluster_giant)
            .print("%3.2f\t%3.2f\t%3.2f\t%3.2f\t%3.2f\t%3.2f\t%3.2f\t%3.2f\n", clustering.cto,
                   clustering.cti, clustering.ctm, clustering.ccm, clustering.akc_t,
                   clustering.akc_d, clustering.akc_u, clustering.akc_c);
    }
}

template <class Network>
void write_sample_graph(Network& network, const EffectSelection& selection, double number,
                        const OutputPaths& paths) {
    std::array<char, 400> digits{};
    std::snprintf(digits.data(), digits.size(), "%.0f", number);
    const std::string path = paths.sample_statistics + digits.data() + ".txt";
    report_statistics(network, selection, path);
    write_pajek_record(network, path, paths.pajek);
}

template void write_sample_graph<Graph>(Graph&, const EffectSelection&, double, const OutputPaths&);
template void write_sample_graph<Digraph>(Digraph&, const EffectSelection&, double,
                                          const OutputPaths&);
