#include "fit/fit_samples.h"

#include <cmath>
#include <span>

#include "base/conversions.h"
#include "base/sample_summaries.h"
#include "measures/descriptives.h"
#include "measures/geodesics.h"
#include "measures/triad_census.h"
#include "network/network_verbs.h"

const FitTexts& fit_texts(NetworkKind kind) {
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
        .triads = false,
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
        .triads = true,
    };
    return kind == NetworkKind::directed ? digraph : graph;
}

namespace {

std::size_t size_of(int count) { return static_cast<std::size_t>(count > 0 ? count : 0); }

std::span<const double> row_of(const Matrix& table, int row) {
    return {table[row], static_cast<std::size_t>(table.columns)};
}

struct Comparison {
    double mean;
    double deviation;
    double t;
};

Comparison compare(double observed, std::span<const double> values) {
    const double centre = mean(values);
    const double deviation = standard_deviation(values);
    return {centre, deviation, (observed - centre) / deviation};
}

void write_comparison(TextWriter& out, const char* format, double observed,
                      std::span<const double> values) {
    const Comparison row = compare(observed, values);
    out.text("\t");
    out.number(format, observed);
    out.print("\t%.3f\t%.3f\t%.3f\n", row.mean, row.deviation, row.t);
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

void write_quartile(TextWriter& out, const QuartileTexts& texts, const std::vector<int>& sorted,
                    int observed) {
    out.print("%s\n", texts.title);
    out.print("Median of sample %ss: %d\n", texts.name, entry_at(sorted, 0.5));
    out.print("Interquartile range: %d\n", entry_at(sorted, 0.75) - entry_at(sorted, 0.25));
    out.print("%s: %d\n", texts.observed, observed);
    out.print("in model samples, %.2f%% of graphs have lower %s.\n",
              static_cast<double>(100.0F * share_below(sorted, observed)), texts.name);
    out.print("in model samples, %.2f%% of graphs have higher %s.\n\n",
              static_cast<double>(100.0F * share_above(sorted, observed)), texts.name);
}

// Sum over i, then j, of ((x[j] - mean[j]) x inverse[i][j]) x (x[i] - mean[i]).
template <class Value>
double squared_distance(int size, const std::vector<double>& means, const Matrix& inverse,
                        Value value) {
    double sum = 0.0;
    for (int i = 0; i < size; ++i) {
        const double of_i = value(i) - means[static_cast<std::size_t>(i)];
        for (int j = 0; j < size; ++j) {
            const double of_j = value(j) - means[static_cast<std::size_t>(j)];
            sum += of_j * inverse[i][j] * of_i;
        }
    }
    return sum;
}

Matrix sample_covariance(const FitSamples& samples, const std::vector<double>& means) {
    const int size = samples.p + samples.descriptives;
    Matrix covariance = matrix_create(size, size, 0.0);
    std::vector<double> deviation(size_of(size));
    for (int s = 0; s < samples.taken; ++s) {
        for (int i = 0; i < size; ++i) {
            const auto place = static_cast<std::size_t>(i);
            deviation[place] = samples.table[i][s] - means[place];
        }
        for (int i = 0; i < size; ++i) {
            for (int j = 0; j < size; ++j) {
                covariance[i][j] +=
                    deviation[static_cast<std::size_t>(j)] * deviation[static_cast<std::size_t>(i)];
            }
        }
    }
    for (double& cell : covariance.cells) {
        cell /= samples.taken;
    }
    return covariance;
}

void write_columns(const FitSamples& samples, const std::string& path) {
    TextWriter out = writer_append(path);
    for (int s = 0; s < samples.planned; ++s) {
        out.print("%d\t", s + 1);
        for (int row = 0; row < samples.table.rows; ++row) {
            out.print("%lf\t", samples.table[row][s]);
        }
        out.text("\n");
    }
}

}  // namespace

template <class Network>
FitSamples fit_samples_create(Network& observed, const EffectSelection& selection, int planned) {
    FitSamples samples;
    const std::vector<double> measures = descriptive_measures(observed, selection);
    samples.p = static_cast<int>(observed.statistics.size());
    samples.descriptives = static_cast<int>(measures.size());
    samples.planned = planned > 0 ? planned : 0;
    samples.table = matrix_create(samples.p + samples.descriptives + 1, samples.planned, 0.0);
    samples.observed = observed.statistics;
    samples.observed.insert(samples.observed.end(), measures.begin(), measures.end());
    samples.observed.push_back(0.0);
    for (std::vector<int>& row : samples.quartiles) {
        row.assign(size_of(samples.planned), 0);
    }
    samples.observed_quartiles = geodesic_quartiles(observed);
    if constexpr (kDirected<Network>) {
        samples.triads = matrix_create(16, samples.planned, 0.0);
        samples.observed_triads = observed.triad_census;
    }
    return samples;
}

template <class Network>
void fit_samples_add(FitSamples& samples, Network& network, const EffectSelection& selection) {
    const int column = samples.taken;
    if (column >= samples.planned) {
        return;
    }
    int row = 0;
    for (const double value : network.statistics) {
        samples.table[row++][column] = value;
    }
    for (const double value : descriptive_measures(network, selection)) {
        samples.table[row++][column] = value;
    }
    const std::array<int, 4> quartiles = geodesic_quartiles(network);
    for (std::size_t quarter = 0; quarter < quartiles.size(); ++quarter) {
        samples.quartiles[quarter][static_cast<std::size_t>(column)] = quartiles[quarter];
    }
    if constexpr (kDirected<Network>) {
        for (int triad = 0; triad < 16; ++triad) {
            samples.triads[triad][column] = network.triad_census[static_cast<std::size_t>(triad)];
        }
    }
    ++samples.taken;
}

template FitSamples fit_samples_create<Graph>(Graph&, const EffectSelection&, int);
template FitSamples fit_samples_create<Digraph>(Digraph&, const EffectSelection&, int);
template void fit_samples_add<Graph>(FitSamples&, Graph&, const EffectSelection&);
template void fit_samples_add<Digraph>(FitSamples&, Digraph&, const EffectSelection&);

void write_fit_table(TextWriter& out, const FitSamples& samples, const EffectSelection& selection,
                     Output rows) {
    const FitTexts& texts = fit_texts(selection.catalogue->kind);
    out.text("\n\n");
    out.text(texts.table_head);
    for (const OutputRow& row : output_rows(selection, rows)) {
        out.text(row.label);
        write_comparison(out, row.format, samples.observed[static_cast<std::size_t>(row.position)],
                         row_of(samples.table, row.position));
    }
    int row = samples.p;
    for (const char* name : texts.descriptives) {
        out.text(name);
        write_comparison(out, "%.3f", samples.observed[static_cast<std::size_t>(row)],
                         row_of(samples.table, row));
        ++row;
    }
}

void write_fit_distributions(TextWriter& out, FitSamples& samples, const FitTexts& texts) {
    out.text("SAMPLE GEODESIC DISTRIBUTION\n");
    out.text(
        "Note: geodesic = shortest path between two nodes.\n"
        "The geodesic distribution is not based on semi-paths.\n\n");
    for (std::size_t quarter = 0; quarter < kQuartiles.size(); ++quarter) {
        sort_ints(samples.quartiles[quarter]);
        write_quartile(out, kQuartiles[quarter], samples.quartiles[quarter],
                       samples.observed_quartiles[quarter]);
    }
    if (!texts.triads) {
        return;
    }
    out.text("\nGOF on Triad Census\nTriad\tobserved\tmean\tstddev\tt-ratio\n");
    for (std::size_t triad = 0; triad < kTriadNames.size(); ++triad) {
        out.text(kTriadNames[triad]);
        write_comparison(out, "%.0f", samples.observed_triads[triad],
                         row_of(samples.triads, static_cast<int>(triad)));
    }
}

void write_fit_distance(TextWriter& out, FitSamples& samples, const FitTexts& texts,
                        const std::string& table_path) {
    const int size = samples.p + samples.descriptives;
    std::vector<double> means(size_of(size));
    for (int row = 0; row < size; ++row) {
        means[static_cast<std::size_t>(row)] = mean(row_of(samples.table, row));
    }
    // A statistic that never moved makes this singular; the distances then come out of what the
    // half-done inverse holds.
    Matrix inverse = sample_covariance(samples, means);
    matrix_invert(inverse, size);
    for (int s = 0; s < samples.planned; ++s) {
        samples.table[size][s] =
            squared_distance(size, means, inverse, [&](int row) { return samples.table[row][s]; });
    }
    write_columns(samples, table_path);
    const double observed = squared_distance(size, means, inverse, [&](int row) {
        return samples.observed[static_cast<std::size_t>(row)];
    });
    double smaller = 0.0;
    for (const double distance : row_of(samples.table, size)) {
        smaller += observed > distance ? 1.0 : 0.0;
    }
    out.print(texts.distance, std::sqrt(observed), observed);
    out.print(texts.percentage, 100.0 * smaller / samples.planned);
}
