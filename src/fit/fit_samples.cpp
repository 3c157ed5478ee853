#include "fit/fit_samples.h"

#include "base/sample_summaries.h"
#include "measures/descriptives.h"
#include "measures/geodesics.h"
#include "network/network_verbs.h"

namespace {

std::size_t size_of(int count) { return static_cast<std::size_t>(count > 0 ? count : 0); }

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

int fit_samples_measure(FitSamples& samples) {
    const int size = samples.p + samples.descriptives;
    std::vector<double> means(size_of(size));
    for (int row = 0; row < size; ++row) {
        means[static_cast<std::size_t>(row)] = mean(fit_row(samples.table, row));
    }
    Matrix inverse = sample_covariance(samples, means);
    matrix_invert(inverse, size);
    const double observed = squared_distance(size, means, inverse, [&](int row) {
        return samples.observed[static_cast<std::size_t>(row)];
    });
    samples.observed.back() = observed;
    int closer = 0;
    for (int s = 0; s < samples.planned; ++s) {
        const double distance =
            squared_distance(size, means, inverse, [&](int row) { return samples.table[row][s]; });
        samples.table[size][s] = distance;
        closer += observed > distance ? 1 : 0;
    }
    return closer;
}

FitComparison fit_compare(double observed, std::span<const double> sampled) {
    const double centre = mean(sampled);
    const double deviation = standard_deviation(sampled);
    return {centre, deviation, (observed - centre) / deviation};
}
