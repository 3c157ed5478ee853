// Settings beyond reason: runs that would take more than a day or more memory than there is.
#include <algorithm>
#include <cmath>

#include "check/checks.h"
#include "check/memory.h"

namespace {

constexpr double kProposalsPerSecond = 1e6;
constexpr double kSecondsPerDay = 86400.0;
// Each sub-phase is 2.5 times as long as the one before; this many take 10^8 steps.
constexpr int kManySubPhases = 15;

std::string number_text(const char* format, double number) {
    char text[64];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

// The steps of one estimation run, those that a sub-phase adds at its end left out.
double steps_of(const SetupView& view) {
    const EstimationSettings& settings = view.setup.settings.estimation;
    const double effects = selection_size(view.setup.selection);
    double steps = 7.0 + 3.0 * effects + 1.1 * std::max(settings.phase3_steps, 0);
    for (int number = 0; number < std::min(settings.sub_phases, kManySubPhases); ++number) {
        steps += std::pow(2.0, 4.0 * number / 3.0) * (effects + 7.0);
    }
    return steps;
}

double proposals_of_estimation(const SetupView& view, const Ties& observed) {
    const EstimationSettings& settings = view.setup.settings.estimation;
    const double n = observed.actors;
    const auto cells =
        static_cast<double>(std::count(observed.cells.begin(), observed.cells.end(), char{1}));
    const double density = cells / (n * (n - 1.0));
    return std::max(settings.estimation_runs, 1) * steps_of(view) * settings.multiplication_factor *
           density * (1.0 - density) * n * n;
}

void check_proposals(const SetupView& view, const Ties* observed, Findings& findings) {
    const RunSettings& settings = view.setup.settings;
    double proposals = 0.0;
    SetupId id = SetupId::iterations;
    const char* mend = "lower the burn-in or the iterations";
    if (is_mode(view, RunMode::estimation)) {
        proposals = observed != nullptr ? proposals_of_estimation(view, *observed) : 0.0;
        id = SetupId::multiplication_factor;
        mend = "lower the multiplication factor, the steps of phase 3, the sub-phases or the runs";
    } else if (is_mode(view, RunMode::bayesian_fit)) {
        proposals = settings.burn_in * settings.sample_count;
        id = SetupId::burn_in;
        mend = "lower the burn-in or the sample count";
    } else {
        proposals = settings.burn_in + settings.iterations;
    }
    const double days = proposals / kProposalsPerSecond / kSecondsPerDay;
    const ReadItem* item = find_item(view, id);
    if (item != nullptr && std::isfinite(days) && days > 1.0) {
        add_warning(findings, where_item(view, *item),
                    "about " + number_text("%.2g", proposals) + " proposals in all",
                    "a run of a day at most",
                    std::string(mend) + ": at a million proposals a second it takes " +
                        number_text("%.3g", days) + " days");
    }
}

void check_sub_phases(const SetupView& view, Findings& findings) {
    const ReadItem* item = find_item(view, SetupId::sub_phases);
    if (item != nullptr && view.setup.settings.estimation.sub_phases > kManySubPhases) {
        add_warning(
            findings, where_item(view, *item), quoted_value(view, *item),
            "some sub-phases, 5 as a rule",
            "write a smaller number: each sub-phase is 2.5 times as long as the one "
            "before, and the last of these would take " +
                number_text(
                    "%.2g",
                    std::pow(2.0, 4.0 / 3.0 * (view.setup.settings.estimation.sub_phases - 1.0))) +
                " times the steps of the first");
    }
}

}  // namespace

bool check_memory(const SetupView& view, Findings& findings) {
    const std::optional<MemoryShortage> shortage = memory_shortage(view.setup);
    if (!shortage) {
        return true;
    }
    const SetupKey key = shortage->largest.id;
    const ReadItem* item = find_item(view, key);
    add_error(findings, where_key(view, key),
              item != nullptr ? quoted_value(view, *item) : "a run too large",
              "a run that fits into the memory of this machine",
              "write a smaller number, or take a larger machine: the run " +
                  shortage_text(*shortage) + "; " + largest_part_text(*shortage));
    return shortage->largest.id != SetupId::actor_count;
}

void check_sizes(const SetupView& view, const Ties* observed, Findings& findings) {
    if (view.setup.selection.catalogue == nullptr || !is_sound(view)) {
        return;
    }
    check_sub_phases(view, findings);
    check_proposals(view, observed, findings);
}
