#include <cmath>

#include "check/checks.h"

namespace {

// Above this many actors the tables of actor pairs take gigabytes.
constexpr int kManyActors = 10000;

// A finding about an item's value, when `wrong` holds of it. `expected` is the item's range where
// nothing else is said.
struct Rule {
    Severity severity;
    SetupId id;
    bool wrong;
    const char* mend;
    const char* expected = nullptr;
};

constexpr Severity kError = Severity::error;
constexpr Severity kWarning = Severity::warning;

void apply(const SetupView& view, std::initializer_list<Rule> rules, Findings& findings) {
    for (const Rule& rule : rules) {
        const ReadItem* item = rule.wrong ? find_item(view, rule.id) : nullptr;
        if (item != nullptr) {
            const auto add = rule.severity == Severity::error ? add_error : add_warning;
            add(findings, where_item(view, *item), quoted_value(view, *item),
                rule.expected != nullptr ? rule.expected : setup_item(rule.id).range, rule.mend);
        }
    }
}

void check_start(const SetupView& view, Findings& findings) {
    const int actors = view.setup.settings.actor_count;
    const float density = view.setup.settings.density;
    apply(view,
          {{kError, SetupId::actor_count, actors < 2, "write how many actors the network has"},
           {kWarning, SetupId::actor_count, actors > kManyActors,
            "correct the count, or expect tables of actors x actors numbers that need gigabytes of "
            "memory",
            "a network of some thousand actors at most"},
           {kError, SetupId::density, !std::isfinite(density) || density > 1.0F,
            "write the share of dyads that are tied at the start: there is no network above 1"},
           {kWarning, SetupId::density, density < 0.0F,
            "write 0 for a start without ties: that is what a negative density gives"}},
          findings);
}

void check_estimation(const SetupView& view, Findings& findings) {
    const EstimationSettings& settings = view.setup.settings.estimation;
    apply(
        view,
        {{kError, SetupId::multiplication_factor, settings.multiplication_factor < 1,
          "write a larger factor: with this one no step makes a single proposal"},
         {kError, SetupId::a_value, !std::isfinite(settings.a_value), "write a gain; 0.1 is usual"},
         {kWarning, SetupId::a_value, settings.a_value <= 0.0F,
          "write a gain above 0 (0.1 is usual): the parameters stay where they start or walk "
          "away from the estimate"},
         {kWarning, SetupId::sub_phases, settings.sub_phases < 1,
          "write 5, the usual number: without sub-phases the parameters stay where they start"},
         {kWarning, SetupId::phase3_steps, settings.phase3_steps < 1,
          "write 500 or more: standard errors and convergence come from these steps"},
         {kWarning, SetupId::estimation_runs, settings.estimation_runs < 1,
          "write 1 or more: nothing is estimated without a run"}},
        findings);
}

void check_lengths(const SetupView& view, Findings& findings) {
    const RunSettings& settings = view.setup.settings;
    const bool bayesian = is_mode(view, RunMode::bayesian_fit);
    apply(view,
          {{kError, SetupId::burn_in, !std::isfinite(settings.burn_in),
            "write how many proposals come before the first sample", "a number of proposals"},
           {kError, SetupId::iterations, !std::isfinite(settings.iterations),
            "write how many proposals the run makes", "a number of proposals"},
           {kWarning, SetupId::burn_in, !bayesian && settings.burn_in < 0.0,
            "write 0 for none: that is what a negative number gives"},
           {kWarning, SetupId::burn_in, bayesian && settings.burn_in <= 0.0,
            "write how many proposals are made for each set of parameters: without any every "
            "sample is the observed network",
            "a number of proposals above 0"},
           {kWarning, SetupId::iterations, settings.iterations < 1.0,
            "write how many proposals the run makes: with this number it makes none"},
           {kWarning, SetupId::sample_count, settings.sample_count < 1,
            "write how many samples are wanted: with this number none is taken"},
           {kWarning, SetupId::sample_count,
            !bayesian && settings.iterations >= 1.0 && settings.sample_count > settings.iterations,
            "raise the iterations or lower the sample count: no sample at all is taken",
            "no more samples than iterations"}},
          findings);
}

void check_proposal_kind(const SetupView& view, Findings& findings) {
    const int kind = view.setup.settings.proposal_kind;
    const bool directed = is_directed(view);
    const bool strange = kind < 0 || kind > (directed ? 2 : 1);
    apply(view,
          {{kWarning, SetupId::proposal_kind,
            strange && find_item(view, SetupId::network_kind) != nullptr,
            "write one of these: any other number is read as the single toggle",
            directed ? "0 single toggle, 1 dyad swap, 2 sender swap" : "0 single toggle, 1 swap"}},
          findings);
}

}  // namespace

void check_settings(const SetupView& view, Findings& findings) {
    check_start(view, findings);
    check_estimation(view, findings);
    check_lengths(view, findings);
    check_proposal_kind(view, findings);
}
