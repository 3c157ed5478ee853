// The samples of a fit test and the report that compares the observed network with them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/matrix.h"
#include "base/text_writer.h"
#include "effects/effect_selection.h"
#include "network/digraph.h"
#include "network/graph.h"
#include "report/output_paths.h"

// What the two kinds of network say differently in a fit.
struct FitTexts {
    // Names of the descriptive rows that follow the model's statistics.
    std::vector<const char*> descriptives;
    const char* run_head;  // two numbers: proposals, interval
    const char* accepted;  // one number
    const char* table_head;
    const char* distance;    // the distance, and for a digraph its square
    const char* percentage;  // one number
    bool triads;
};
const FitTexts& fit_texts(NetworkKind kind);

// One row per statistic, one column per planned sample: p model statistics, the descriptive rows,
// and the squared distance of each sample.
struct FitSamples {
    int p = 0;
    int descriptives = 0;
    int planned = 0;
    int taken = 0;
    Matrix table;                               // (p + descriptives + 1) x planned
    std::vector<double> observed;               // p + descriptives + 1, the last unused
    std::array<std::vector<int>, 4> quartiles;  // planned entries each
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

// The table of effects and descriptive measures, from its opening on.
void write_fit_table(TextWriter& out, const FitSamples& samples, const EffectSelection& selection,
                     Output rows);

// The geodesic quartiles (sorts the samples' quartiles), and for a digraph the triads.
void write_fit_distributions(TextWriter& out, FitSamples& samples, const FitTexts& texts);

// The Mahalanobis distance of the observed network and of each sample from the samples' mean;
// appends all columns of the table to the sample table file.
void write_fit_distance(TextWriter& out, FitSamples& samples, const FitTexts& texts,
                        const std::string& table_path);
