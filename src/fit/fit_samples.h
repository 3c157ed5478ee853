// The samples of a fit test and how the observed network compares with them.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "base/matrix.h"
#include "effects/effect_selection.h"
#include "network/digraph.h"
#include "network/graph.h"

// One row per statistic, one column per planned sample: p model statistics, the descriptive
// measures, and the squared distance from the samples' mean.
struct FitSamples {
    int p = 0;
    int descriptives = 0;
    int planned = 0;
    int taken = 0;
    Matrix table;                               // (p + descriptives + 1) x planned
    std::vector<double> observed;               // a value for each row
    std::array<std::vector<int>, 4> quartiles;  // of the geodesics, planned entries each
    std::array<int, 4> observed_quartiles{};
    Matrix triads;  // 16 x planned, for a digraph
    std::vector<double> observed_triads;
};

// Room for the samples, with the observed network's values filled in; its snapshots must be fresh.
template <class Network>
FitSamples fit_samples_create(Network& observed, const EffectSelection& selection, int planned);

// Records one sample in the next column; its snapshots must be fresh. Beyond the planned ones
// nothing is recorded.
template <class Network>
void fit_samples_add(FitSamples& samples, Network& network, const EffectSelection& selection);

// Fills the row of squared Mahalanobis distances, the observed network's too; returns how many
// samples are closer than it. A statistic that never moved makes the covariance singular; the
// distances then come out of what the half-done inverse holds.
int fit_samples_measure(FitSamples& samples);

// Mean and standard deviation of a row of samples, and (observed - mean) / deviation.
struct FitComparison {
    double mean;
    double deviation;
    double t;
};
FitComparison fit_compare(double observed, std::span<const double> sampled);

inline std::span<const double> fit_row(const Matrix& table, int row) {
    return {table[row], static_cast<std::size_t>(table.columns)};
}
