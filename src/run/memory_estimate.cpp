#include "run/memory_estimate.h"

#include <algorithm>

namespace {

// Per cell of an actors x actors table, in bytes.
constexpr double kBit = 1.0 / 8.0;
constexpr double kCount = 2.0;   // a counter of 16 bits
constexpr double kNumber = 4.0;  // an integer or a number in single precision
constexpr double kDouble = 8.0;

double square(std::int64_t n) {
    const double actors = n > 0 ? static_cast<double>(n) : 0.0;
    return actors * actors;
}

struct Run {
    const RunSettings& settings;
    const EffectSelection& selection;
    std::int64_t n;
    bool directed;
    RunMode mode;
    // Statistics of the model, the full one where the run ends with it.
    double p;
};

Run run_of(const SetupFile& setup) {
    const auto mode = static_cast<RunMode>(setup.settings.run_mode);
    EffectSelection model = setup.selection;
    if (mode == RunMode::bayesian_fit ||
        (mode == RunMode::estimation && setup.settings.gof_after_estimation == 1)) {
        assign_full_model(model);
    }
    return {setup.settings,
            setup.selection,
            std::max(setup.settings.actor_count, 0),
            setup.settings.network_kind == static_cast<int>(NetworkKind::directed),
            mode,
            static_cast<double>(selection_size(model))};
}

// Every mode but the simulation keeps the observed network beside the one that moves.
double network_tables(const Run& run) {
    const double one = run.directed ? digraph_bytes(run.n) : graph_bytes(run.n);
    return run.mode == RunMode::simulation ? one : 2.0 * one;
}

double attribute_tables(const Run& run) {
    const double continuous =
        std::max(group_of(run.selection, AttributeGroup::continuous).attributes, 0);
    const double covariates =
        std::max(group_of(run.selection, AttributeGroup::covariate).attributes, 0);
    return (3.0 * continuous + covariates) * kNumber * square(run.n);
}

double samples_of_fit(const Run& run, double samples) {
    const double rows = run.p + (run.directed ? 14.0 + 16.0 : 6.0);
    return std::max(samples, 0.0) * (rows * kDouble + 4.0 * kNumber);
}

double sample_tables(const Run& run) {
    const RunSettings& settings = run.settings;
    switch (run.mode) {
        case RunMode::simulation:
            return 0.0;
        case RunMode::estimation: {
            const double steps = std::max(settings.estimation.phase3_steps, 0);
            const double fit = settings.gof_after_estimation == 1 ? samples_of_fit(run, 1000) : 0.0;
            return std::max(steps * run.p * kDouble, fit);
        }
        case RunMode::fit:
            return samples_of_fit(run, settings.sample_count);
        case RunMode::bayesian_fit:
            // Each draw as it is drawn and spread over the full model.
            return samples_of_fit(run, settings.sample_count) +
                   2.0 * std::max(settings.sample_count, 0) * run.p * kDouble;
    }
    return 0.0;
}

}  // namespace

double graph_bytes(std::int64_t n) {
    // Two tables of bits and the common neighbours.
    return (2.0 * kBit + kCount) * square(n);
}

double digraph_bytes(std::int64_t n) {
    // Six tables of bits and the three of two-paths.
    return (6.0 * kBit + 3.0 * kCount) * square(n);
}

std::vector<MemoryPart> memory_parts(const SetupFile& setup) {
    if (setup.selection.catalogue == nullptr) {
        return {};
    }
    const Run run = run_of(setup);
    const bool dumped = run.mode == RunMode::estimation && !run.directed;
    std::vector<MemoryPart> parts = {
        {"tables of the networks", network_tables(run)},
        {"tables of attributes and covariates", attribute_tables(run)},
        // The histogram of triangles has a cell for each dyad of two others.
        {"reports", run.directed ? 0.0 : kNumber / 2.0 * square(run.n)},
        {"free dyads", run.settings.free_dyads_flag == 1 ? kBit * square(run.n) : 0.0},
        {"log-odds of all dyads", dumped ? kDouble * square(run.n) : 0.0},
        {"statistics of the samples", sample_tables(run),
         run.mode == RunMode::estimation ? SetupId::phase3_steps : SetupId::sample_count}};
    std::stable_sort(parts.begin(), parts.end(),
                     [](const MemoryPart& a, const MemoryPart& b) { return a.bytes > b.bytes; });
    return parts;
}

double memory_total(const std::vector<MemoryPart>& parts) {
    double total = 0.0;
    for (const MemoryPart& part : parts) {
        total += part.bytes;
    }
    return total;
}
