// Models that no estimation by simulation can fit.
#include <algorithm>
#include <string_view>

#include "check/checks.h"
#include "check/dependence.h"
#include "check/extremes.h"
#include "check/loaded_model.h"

namespace {

float lambda_of(const EffectSelection& selection, const ModelEffect& effect) {
    return effect.flag.id == SetupId::structural_flag
               ? selection.structural[static_cast<std::size_t>(effect.flag.row)].lambda
               : 0.0F;
}

// The statistic that a chain carries is not a statistic of its network. Where the changes of an
// attribute's effect are not those of its count they are still those of another count, which is
// then what is estimated.
bool drifts(const EffectSelection& selection, const ModelEffect& effect) {
    if (!effect.facts->carried) {
        return true;
    }
    return effect.flag.id == SetupId::structural_flag &&
           (effect.facts->agreement == Agreement::never ||
            (effect.facts->agreement == Agreement::above_lambda_one &&
             lambda_of(selection, effect) == 1.0F));
}

void check_drift(const SetupView& view, const std::vector<ModelEffect>& effects,
                 Findings& findings) {
    const EffectSelection& selection = view.setup.selection;
    for (const ModelEffect& effect : effects) {
        if (!drifts(selection, effect)) {
            continue;
        }
        const bool at_one = effect.facts->agreement == Agreement::above_lambda_one;
        add_error(findings, where_key(view, effect.flag),
                  quoted(effect.name) + (at_one ? " at lambda 1" : "") + " in an estimation",
                  "an effect whose changes are those of its statistic",
                  at_one ? "write a lambda above 1, or leave the effect out: at 1 the statistic "
                           "that a simulation carries drifts from the network's"
                         : "leave the effect out: the statistic that a simulation carries drifts "
                           "from the network's, so nothing can be estimated from it");
    }
}

// Two rows of one effect at one lambda.
bool are_same(const EffectSelection& selection, const ModelEffect& a, const ModelEffect& b) {
    if (a.flag.id != SetupId::structural_flag || b.flag.id != SetupId::structural_flag) {
        return false;
    }
    return std::string_view(a.facts->name) == b.facts->name &&
           lambda_of(selection, a) == lambda_of(selection, b);
}

void check_repeats(const SetupView& view, const std::vector<ModelEffect>& effects,
                   Findings& findings) {
    for (auto second = effects.begin(); second != effects.end(); ++second) {
        const auto first = std::find_if(effects.begin(), second, [&](const ModelEffect& effect) {
            return are_same(view.setup.selection, effect, *second);
        });
        if (first != second) {
            add_error(findings, where_key(view, second->flag),
                      quoted(first->name) + " and " + quoted(second->name) + " of one lambda",
                      "each effect once",
                      "leave one of them out or give it another lambda: no data tell the "
                      "parameters of the two apart");
        }
    }
}

template <class Network>
void check_data(const SetupView& view, const Ties* free_dyads, Findings& findings) {
    EffectSelection selection = read_selection(view);
    LoadedModel<Network> model(selection, view.setup.settings.network_path, free_dyads);
    std::vector<ModelEffect> effects = selected_effects(selection);
    check_extremes(view, selection, model, effects, findings);
    check_dependence(view, model, effects, findings);
}

bool has_ties_and_gaps(const Ties& ties) {
    const auto tied = std::count(ties.cells.begin(), ties.cells.end(), char{1});
    return tied > 0 && tied < static_cast<std::ptrdiff_t>(ties.actors) * (ties.actors - 1);
}

}  // namespace

void check_estimability(const SetupView& view, const Ties* observed, const Ties* free_dyads,
                        Findings& findings) {
    if (!is_mode(view, RunMode::estimation) || view.setup.selection.catalogue == nullptr ||
        !is_sound(view)) {
        return;
    }
    const bool known = count_findings(findings, Severity::error) == 0;
    const std::vector<ModelEffect> effects = selected_effects(view.setup.selection);
    check_drift(view, effects, findings);
    check_repeats(view, effects, findings);
    // The data are looked at when they could be read in full and the model can be evaluated.
    if (!known || observed == nullptr || !has_ties_and_gaps(*observed) ||
        count_findings(findings, Severity::error) > 0) {
        return;
    }
    if (is_directed(view)) {
        check_data<Digraph>(view, free_dyads, findings);
    } else {
        check_data<Graph>(view, free_dyads, findings);
    }
}
