#include "report/fit_report.h"

#include <cmath>

#include "base/conversions.h"
#include "base/sample_summaries.h"
#include "measures/triad_census.h"
#include "network/network_verbs.h"

namespace {

// What the two kinds of network say differently in a fit.
struct FitTexts {
    // Names of the descriptive measures.
    std::vector<const char*> descriptives;
    const char* run_head;  // two numbers: proposals, interval
    const char* accepted;  // one number
    const char* table_head;
    const char* distance;    // the distance, and for a digraph its square
    const char* percentage;  // one number
};

const FitTexts& texts_of(NetworkKind kind) {
    static const FitTexts graph = {
        .descriptives = {"Std Dev degree dist", "Skew degree dist", "Global Clustering",
                         "Mean Local Clustering", "Variance Local Clustering"},
        .run_head = "Proposed %.0f graphs.\nSamples were picked up at 1 per %.0f graphs.\n",
        .accepted = "Accepted %.0f proposed graphs.",
        .table_head =
            "obeservation, sample mean (standard error), t-statistic for observed network\n"
            "t-statistics = (observation - sample mean)/standard deviation\n\n"
            "effects\tobserved\tmean\tstddev\tt-ratio\n",
        .distance = "Mahalanobis distance =%lf\n",
        .percentage =
            "%.0lf%% simulated samples have smaller Mahalanobis distances than the "
            "observed network\n",
    };
    static const FitTexts digraph = {
        .descriptives = {"Std Dev in-degree dist", "Skew in-degree dist", "Std Dev out-degree dist",
                         "Skew out-degree dist", "CorrCoef in-out-degree dists",
                         "Global Clustering Cto", "Global Clustering Cti", "Global Clustering Ctm",
                         "Global Clustering Ccm", "Global Clustering AKC-T",
                         "Global Clustering AKC-D", "Global Clustering AKC-U",
                         "Global Clustering AKC-C"},
        .run_head =
            "Simulated %.0f digraphs.\nStatistic samples are picked up at 1 per %.0f "
            "digraphs.\n",
        .accepted = "Accepted %.0f proposed digraphs.",
        .table_head =
            "observation, sample mean (standard error), t-statistic\n"
            "t-statistics = (observation - sample mean)/standard deviation\n\n"
            "effects\tobserved\tmean\tstddev\tt-ratio\n",
        .distance = "Mahalanobis distance =%lf (%lf)\n",
        .percentage =
            "%.0lf%% simulated samples have smaller Mahalanobis distances than the "
            "observed network.\n",
    };
    return kind == NetworkKind::directed ? digraph : graph;
}

void write_comparison(TextWriter& out, const char* format, double observed,
                      std::span<const double> values) {
    const FitComparison row = fit_compare(observed, values);
    out.text("\t");
    out.number(format, observed);
    out.print("\t%.3f\t%.3f\t%.3f\n", row.mean, row.deviation, row.t);
}

// The table of effects and descriptive measures.
void write_table(TextWriter& out, const FitSamples& samples, const EffectSelection& selection,
                 Output rows) {
    const FitTexts& texts = texts_of(selection.catalogue->kind);
    out.text("\n\n");
    out.text(texts.table_head);
    for (const OutputRow& row : output_rows(selection, rows)) {
        out.text(row.label);
        write_comparison(out, row.format, samples.observed[static_cast<std::size_t>(row.position)],
                         fit_row(samples.table, row.position));
    }
    int row = samples.p;
    for (const char* name : texts.descriptives) {
        out.text(name);
        write_comparison(out, "%.3f", samples.observed[static_cast<std::size_t>(row)],
                         fit_row(samples.table, row));
        ++row;
    }
}

// Entry of a sorted row; an index past its end reads 0.
int entry_at(const std::vector<int>& sorted, double share) {
    const int index = truncate_to_int((static_cast<double>(sorted.size()) + 1.0) * share);
    return index >= 0 && static_cast<std::size_t>(index) < sorted.size()
               ? sorted[static_cast<std::size_t>(index)]
               : 0;
}

struct QuartileTexts {
    const char* title;
    const char* observed;  // the third says first quartile, and readers know it so
    const char* name;
};
constexpr std::array<QuartileTexts, 3> kQuartiles = {{
    {"FIRST QUARTILES", "Observed first quartile geodesic", "G25"},
    {"SECOND QUARTILES", "Observed median geodesic", "G50"},
    {"THIRD QUARTILES", "Observed first quartile geodesic", "G75"},
}};

void write_quartile(TextWriter& out, const QuartileTexts& texts, std::vector<int> sampled,
                    int observed) {
    sort_ints(sampled);
    out.print("%s\n", texts.title);
    out.print("Median of sample %ss: %d\n", texts.name, entry_at(sampled, 0.5));
    out.print("Interquartile range: %d\n", entry_at(sampled, 0.75) - entry_at(sampled, 0.25));
    out.print("%s: %d\n", texts.observed, observed);
    out.print("in model samples, %.2f%% of graphs have lower %s.\n",
              static_cast<double>(100.0F * share_below(sampled, observed)), texts.name);
    out.print("in model samples, %.2f%% of graphs have higher %s.\n\n",
              static_cast<double>(100.0F * share_above(sampled, observed)), texts.name);
}

// The part that both kinds of fit end with.
void write_samples(TextWriter& log, const OutputContext& outputs, const FitResult& found) {
    const NetworkKind kind = outputs.selection.catalogue->kind;
    write_fit_distributions(log, found.samples, kind);
    write_fit_columns(found.samples, outputs.paths.simulation);
    write_fit_distance(log, found, kind);
}

}  // namespace

void write_fit_head(const OutputContext& outputs, const double* parameters, double proposals,
                    double interval) {
    TextWriter log = writer_append(outputs.paths.gof);
    log.text("\n\n GOODNESS OF FIT\n\nParameter Values:\n");
    for (const OutputRow& row : output_rows(outputs.selection, Output::fit_parameter)) {
        log.text(row.label + "\t");
        log.number(row.format, parameters[row.position]);
        log.text("\n");
    }
    log.print(texts_of(outputs.selection.catalogue->kind).run_head, proposals, interval);
}

void write_bayesian_fit_head(const OutputContext& outputs, int sets, double burn_in) {
    TextWriter log = writer_append(outputs.paths.gof);
    log.text("BAYESIAN GOODNESS OF FIT\n");
    log.print("Proposed %d parameter sets.\nSamples were picked up with burnin %.0lf\n", sets,
              burn_in);
}

void write_fit_report(const OutputContext& outputs, const FitResult& found) {
    TextWriter(outputs.console).print("Accepted %.0f changes.\n", found.accepted);
    TextWriter log = writer_append(outputs.paths.gof);
    log.print(texts_of(outputs.selection.catalogue->kind).accepted, found.accepted);
    write_table(log, found.samples, outputs.selection, Output::fit);
    log.print("\nACCEPTANCE RATE: %.4f\n\n", found.accepted / found.proposals);
    write_samples(log, outputs, found);
}

void write_bayesian_fit_report(const OutputContext& outputs, const FitResult& found) {
    TextWriter log = writer_append(outputs.paths.gof);
    write_table(log, found.samples, outputs.selection, Output::bayes_fit);
    write_samples(log, outputs, found);
}

void write_fit_distributions(TextWriter& out, const FitSamples& samples, NetworkKind kind) {
    out.text("SAMPLE GEODESIC DISTRIBUTION\n");
    out.text(
        "Note: geodesic = shortest path between two nodes.\n"
        "The geodesic distribution is not based on semi-paths.\n\n");
    for (std::size_t quarter = 0; quarter < kQuartiles.size(); ++quarter) {
        write_quartile(out, kQuartiles[quarter], samples.quartiles[quarter],
                       samples.observed_quartiles[quarter]);
    }
    if (kind != NetworkKind::directed) {
        return;
    }
    out.text("\nGOF on Triad Census\nTriad\tobserved\tmean\tstddev\tt-ratio\n");
    for (std::size_t triad = 0; triad < kTriadNames.size(); ++triad) {
        out.text(kTriadNames[triad]);
        write_comparison(out, "%.0f", samples.observed_triads[triad],
                         fit_row(samples.triads, static_cast<int>(triad)));
    }
}

void write_fit_distance(TextWriter& out, const FitResult& found, NetworkKind kind) {
    const FitTexts& texts = texts_of(kind);
    const double squared = found.samples.observed.back();
    out.print(texts.distance, std::sqrt(squared), squared);
    out.print(texts.percentage, 100.0 * found.closer / found.samples.planned);
}

void write_fit_columns(const FitSamples& samples, const std::string& path) {
    TextWriter out = writer_append(path);
    for (int s = 0; s < samples.planned; ++s) {
        out.print("%d\t", s + 1);
        for (int row = 0; row < samples.table.rows; ++row) {
            out.print("%lf\t", samples.table[row][s]);
        }
        out.text("\n");
        out.end_section();
    }
}

template <class Network>
FitSampleFiles<Network>::FitSampleFiles(const OutputContext& outputs, const Network& network,
                                        std::optional<double> interval)
    : outputs_(outputs), interval_(kDirected<Network> ? interval : std::nullopt) {
    write_sample_head(outputs_.selection, outputs_.paths.simulation);
    write_distribution_heads(network, outputs_.switches, outputs_.paths);
    if (interval_) {
        writer_replace(outputs_.paths.accept).text("Acceptance Rate(Digraph)\n");
    }
}

template <class Network>
void FitSampleFiles<Network>::described(Network& network) const {
    write_distribution_rows(network, outputs_.selection, outputs_.switches, outputs_.paths);
}

template <class Network>
void FitSampleFiles<Network>::sampled(Network& network, double number, double accepted) const {
    if (outputs_.switches.sample_graphs) {
        write_sample_graph(network, outputs_.selection, number, outputs_.paths);
    }
    if (interval_) {
        writer_append(outputs_.paths.accept)
            .print("%8d %8.4f\n", truncate_to_int(number), accepted / *interval_);
    }
}

template class FitSampleFiles<Graph>;
template class FitSampleFiles<Digraph>;
