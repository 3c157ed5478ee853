#include <cmath>

#include "check/checks.h"

namespace {

// Above this many actors the tables of actor pairs take gigabytes.
constexpr int kManyActors = 10000;

bool is_mode(const SetupView& view, RunMode mode) {
    return view.setup.settings.run_mode == static_cast<int>(mode);
}

// The item of a field when `wrong` holds of its value.
const SetupItem* item_if(const SetupView& view, const char* field, bool wrong) {
    return wrong ? find_item(view, field) : nullptr;
}

std::string value_of(const SetupView& view, const SetupItem& item) {
    return quoted(word_at(view, item.value_offset));
}

void warn_if(const SetupView& view, const char* field, bool wrong, const char* expected,
             const char* mend, Findings& findings) {
    if (const SetupItem* item = item_if(view, field, wrong)) {
        add_warning(findings, where_item(view, *item), value_of(view, *item), expected, mend);
    }
}

void fail_if(const SetupView& view, const char* field, bool wrong, const char* expected,
             const char* mend, Findings& findings) {
    if (const SetupItem* item = item_if(view, field, wrong)) {
        add_error(findings, where_item(view, *item), value_of(view, *item), expected, mend);
    }
}

void check_actors(const SetupView& view, Findings& findings) {
    const int actors = view.setup.settings.actor_count;
    fail_if(view, "actor count", actors < 2, "2 or more actors",
            "write how many actors the network has", findings);
    warn_if(view, "actor count", actors > kManyActors, "a network of some thousand actors at most",
            "correct the count, or expect tables of actors x actors numbers that need gigabytes of "
            "memory",
            findings);
}

void check_density(const SetupView& view, Findings& findings) {
    const float density = view.setup.settings.density;
    fail_if(view, "density", !std::isfinite(density) || density > 1.0F, "a number from 0 to 1",
            "write the share of dyads that are tied at the start: there is no network above 1",
            findings);
    warn_if(view, "density", density < 0.0F, "a number from 0 to 1",
            "write 0 for a start without ties: that is what a negative density gives", findings);
}

void check_estimation(const SetupView& view, Findings& findings) {
    const EstimationSettings& settings = view.setup.settings.estimation;
    fail_if(view, "multiplication factor", settings.multiplication_factor < 1, "1 or more",
            "write a larger factor: with this one no step makes a single proposal", findings);
    fail_if(view, "starting a-value", !std::isfinite(settings.a_value), "a number above 0",
            "write a gain; 0.1 is usual", findings);
    warn_if(view, "starting a-value", settings.a_value <= 0.0F, "a number above 0",
            "write a gain above 0 (0.1 is usual): the parameters stay where they start or walk "
            "away from the estimate",
            findings);
    warn_if(view, "number of sub-phases", settings.sub_phases < 1, "1 or more",
            "write 5, the usual number: without sub-phases the parameters stay where they start",
            findings);
    warn_if(view, "steps of phase 3", settings.phase3_steps < 1, "1 or more",
            "write 500 or more: standard errors and convergence come from these steps", findings);
    warn_if(view, "number of estimation runs", settings.estimation_runs < 1, "1 or more",
            "write 1 or more: nothing is estimated without a run", findings);
}

void check_lengths(const SetupView& view, Findings& findings) {
    const RunSettings& settings = view.setup.settings;
    const bool bayesian = is_mode(view, RunMode::bayesian_fit);
    fail_if(view, "burn-in", !std::isfinite(settings.burn_in), "a number of proposals",
            "write how many proposals come before the first sample", findings);
    fail_if(view, "iterations", !std::isfinite(settings.iterations), "a number of proposals",
            "write how many proposals the run makes", findings);
    warn_if(view, "burn-in", bayesian ? settings.burn_in <= 0.0 : settings.burn_in < 0.0,
            bayesian ? "a number of proposals above 0" : "0 or more proposals",
            bayesian ? "write how many proposals are made for each set of parameters: without any "
                       "every sample is the observed network"
                     : "write 0 for none: that is what a negative number gives",
            findings);
    warn_if(view, "iterations", settings.iterations < 1.0, "1 or more proposals",
            "write how many proposals the run makes: with this number it makes none", findings);
    warn_if(view, "sample count", settings.sample_count < 1, "1 or more samples",
            "write how many samples are wanted: with this number none is taken", findings);
    if (!bayesian && settings.iterations >= 1.0) {
        warn_if(view, "sample count", settings.sample_count > settings.iterations,
                "no more samples than iterations",
                "raise the iterations or lower the sample count: no sample at all is taken",
                findings);
    }
}

void check_proposal_kind(const SetupView& view, Findings& findings) {
    const RunSettings& settings = view.setup.settings;
    const bool directed = settings.network_kind == static_cast<int>(NetworkKind::directed);
    const int kind = settings.proposal_kind;
    const bool strange = kind < 0 || kind > (directed ? 2 : 1);
    warn_if(view, "proposal kind", strange && find_item(view, "network kind") != nullptr,
            directed ? "0 single toggle, 1 dyad swap, 2 sender swap" : "0 single toggle, 1 swap",
            "write one of these: any other number is read as the single toggle", findings);
}

}  // namespace

void check_settings(const SetupView& view, Findings& findings) {
    check_actors(view, findings);
    check_density(view, findings);
    check_estimation(view, findings);
    check_lengths(view, findings);
    check_proposal_kind(view, findings);
}
