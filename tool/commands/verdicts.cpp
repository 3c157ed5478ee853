#include "commands/verdicts.h"

#include <algorithm>
#include <cmath>

#include "commands/commands.h"
#include "study/effect_resolution.h"
#include "study/monte_carlo_likelihood.h"
#include "study/names.h"
#include "terminal/print.h"

namespace {

using Names = std::vector<std::string>;

Names names_of(const std::vector<int>& effects, const StudyInput& input) {
    Names names;
    for (const int effect : effects) {
        names.push_back(input.resolved.names[static_cast<std::size_t>(effect)]);
    }
    return names;
}

std::string joined(const Names& names) {
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : ",") + name;
    }
    return list;
}

// All effects of the model but one.
Names without(const Names& names, const std::string& left_out) {
    Names rest;
    std::copy_if(names.begin(), names.end(), std::back_inserter(rest),
                 [&](const std::string& name) { return name != left_out; });
    return rest;
}

bool has(const Names& names, const std::string& start) {
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return names_match(name.substr(0, name.find('(')), start);
    });
}

// Counts of configurations that make networks fall apart, and the alternating effect that takes
// their place.
struct Replacement {
    const char* count;
    const char* undirected;
    const char* directed;
};
constexpr Replacement kReplacements[] = {
    {"2-star", "AS(2)", "AoutS(2)"},        {"3-star", "AS(2)", "AoutS(2)"},
    {"4-star", "AS(2)", "AoutS(2)"},        {"2-in-star", "AinS(2)", "AinS(2)"},
    {"2-out-star", "AoutS(2)", "AoutS(2)"}, {"triangle", "AT(2)", "AT-T(2)"},
    {"030T", "AT-T(2)", "AT-T(2)"}};

bool is_held(const StudyModel& model, std::size_t effect) {
    return effect < model.effects.size() && model.effects[effect].fixed.has_value();
}

// The model with alternating effects in place of plain counts; the same when it has none of those.
// An effect that is held stays as it is.
Names tamed(const Names& names, const StudyInput& input) {
    const bool directed = input.files.study.network.directed;
    const Names known = effect_names(directed ? NetworkKind::directed : NetworkKind::undirected);
    Names effects;
    for (std::size_t k = 0; k < names.size(); ++k) {
        std::string taken = names[k];
        for (const Replacement& each : kReplacements) {
            const std::string other = directed ? each.directed : each.undirected;
            if (!is_held(input.model.model, k) && names_match(names[k], each.count) &&
                has(known, other.substr(0, other.find('(')))) {
                taken = other;
            }
        }
        if (std::find(effects.begin(), effects.end(), taken) == effects.end()) {
            effects.push_back(taken);
        }
    }
    return effects;
}

// Alternating effects with a lambda half as large again, but for those that are held.
Names softened(const Names& names, const StudyModel& model) {
    Names effects = names;
    for (std::size_t k = 0; k < effects.size() && k < model.effects.size(); ++k) {
        EffectExpression expression = model.effects[k].expression;
        if (expression.lambda && !is_held(model, k)) {
            expression.name = effects[k].substr(0, effects[k].find('('));
            expression.lambda = *expression.lambda * 1.5;
            effects[k] = effect_text(expression);
        }
    }
    return effects;
}

std::string with_effects(const AdviceWords& words, const Names& effects) {
    return "ovri estimate " + words.model + " --effects " + shell_word(joined(effects)) +
           (words.method.empty() ? "" : " --method " + words.method);
}

const EstimationAttempt* used_attempt(const StudyEstimate& estimate) {
    const auto place = std::find_if(estimate.attempts.begin(), estimate.attempts.end(),
                                    [](const EstimationAttempt& each) { return each.used; });
    return place == estimate.attempts.end() ? nullptr : &*place;
}

// Of Monte Carlo maximum likelihood.
void add_imprecise_reasons(const StudyEstimate& estimate, const StudyInput& input, Names& reasons) {
    for (const int effect : estimate.faulty) {
        const EffectEstimate& each = estimate.effects[static_cast<std::size_t>(effect)];
        reasons.push_back(
            std::fabs(each.t_ratio) < 0.1
                ? fmt::format("the Monte Carlo error of `{}` is {:.3f} standard errors, not below "
                              "{}",
                              each.name, each.mc_error / each.standard_error,
                              number_text(wanted_precision(input.files.study)))
                : fmt::format("the t-ratio of `{}` is {:.3f}, not below 0.1 in size", each.name,
                              each.t_ratio));
    }
    if (estimate.faulty.empty()) {
        reasons.push_back(
            fmt::format("observed and simulated statistics still differ together (Hotelling's "
                        "test: p = {:.3f})",
                        estimate.diagnosis.hotelling_p_value));
    }
    reasons.push_back(fmt::format("the search ended after {} of the chains",
                                  counted(estimate.diagnosis.runs, "run")));
}

void add_unconverged_reasons(const StudyEstimate& estimate, Names& reasons) {
    for (const int effect : estimate.faulty) {
        const EffectEstimate& each = estimate.effects[static_cast<std::size_t>(effect)];
        reasons.push_back(fmt::format(
            "the t-ratio of `{}` is {:.3f} after {}, not below 0.1 "
            "in size",
            each.name, each.t_ratio, counted(static_cast<int>(estimate.attempts.size()), "run")));
    }
    const EstimationAttempt* used = used_attempt(estimate);
    if (used != nullptr && used->autocorrelation > 0.4) {
        reasons.push_back(fmt::format("samples are alike: their autocorrelation is {:.2f}",
                                      used->autocorrelation));
    }
}

void add_unconverged_advice(const StudyEstimate& estimate, const StudyInput& input,
                            const AdviceWords& words, Names& advice) {
    const Names& names = input.resolved.names;
    const int longest = estimate.attempts.empty() ? 30 : estimate.attempts.back().multiplication;
    const StudyModel& model = input.model.model;
    const bool holds = std::any_of(model.effects.begin(), model.effects.end(),
                                   [](const StudyEffect& each) { return each.fixed.has_value(); });
    // Stochastic approximation holds no parameter.
    if (!holds) {
        advice.push_back(
            fmt::format("ovri estimate {} --effects {} --method stochastic-approximation "
                        "--multiplication {} --attempts 20",
                        words.model, shell_word(joined(names)), std::max(longest, 30) * 2));
    }
    const Names calm = tamed(names, input);
    if (calm != names) {
        advice.push_back(with_effects(words, calm));
    }
    const Names soft = softened(names, input.model.model);
    if (soft != names) {
        advice.push_back(with_effects(words, soft));
    }
}

// Effects that tell ties from dyads without one, with the directions of their estimates.
std::string separation_text(const StudyEstimate& estimate, const StudyInput& input) {
    std::vector<int> effects;
    std::string directions;
    for (const InfiniteEstimate& each : estimate.infinite) {
        effects.push_back(each.effect);
        directions +=
            (directions.empty() ? "" : ", ") + std::string(each.sign < 0 ? "minus" : "plus");
    }
    const bool one = effects.size() == 1;
    return fmt::format("{} {} tied dyads from untied ones without fail: {} would be {} infinity",
                       listed_names(names_of(effects, input)), one ? "tells" : "together tell",
                       one ? "its estimate" : "their estimates", directions);
}

// Effects in whose direction no simulated network lies beyond the observed one.
std::string hull_text(const StudyEstimate& estimate, const StudyInput& input) {
    std::string effects;
    for (const InfiniteEstimate& each : estimate.infinite) {
        effects += fmt::format("{}`{}` would be {} infinity", effects.empty() ? "" : ", ",
                               input.resolved.names[static_cast<std::size_t>(each.effect)],
                               each.sign < 0 ? "minus" : "plus");
    }
    return "no simulated network lies beyond the observed one, which is at the edge of what is "
           "possible: the estimate of " +
           effects;
}

void add_dependence_reasons(const StudyEstimate& estimate, const StudyInput& input,
                            Names& reasons) {
    const Names dependent = names_of(estimate.dependent, input);
    if (dependent.size() == 1) {
        reasons.push_back("`" + dependent[0] + "` is the same in every network");
    } else if (!dependent.empty()) {
        reasons.push_back(listed_names(dependent) +
                          " depend on each other: each follows from the rest");
    }
    if (estimate.all_alike != 0) {
        reasons.push_back(estimate.all_alike < 0 ? "no dyad that may change is tied"
                                                 : "every dyad that may change is tied");
    }
    if (estimate.on_hull) {
        reasons.push_back(hull_text(estimate, input));
        return;
    }
    if (estimate.separated) {
        reasons.push_back(separation_text(estimate, input));
        return;
    }
    for (const InfiniteEstimate& each : estimate.infinite) {
        reasons.push_back(fmt::format(
            "the statistic of `{}` is the {} that it can be, so its estimate would be {} infinity",
            input.resolved.names[static_cast<std::size_t>(each.effect)],
            each.sign < 0 ? "least" : "greatest", each.sign < 0 ? "minus" : "plus"));
    }
}

void add_dependence_advice(const StudyEstimate& estimate, const StudyInput& input,
                           const AdviceWords& words, Names& advice) {
    const Names& names = input.resolved.names;
    Names left_out = names_of(estimate.dependent, input);
    for (const InfiniteEstimate& each : estimate.infinite) {
        left_out.push_back(names[static_cast<std::size_t>(each.effect)]);
    }
    // The last effect was named last: the earlier ones are the better known.
    std::reverse(left_out.begin(), left_out.end());
    for (const std::string& name : left_out) {
        const Names rest = without(names, name);
        if (!rest.empty()) {
            advice.push_back(with_effects(words, rest));
        }
    }
}

void add_degenerate_reasons(const StudyEstimate& estimate, const StudyInput& input,
                            Names& reasons) {
    const Names still = names_of(estimate.faulty, input);
    if (!still.empty()) {
        reasons.push_back("the statistic of " + listed_names(still) +
                          " never moved in the networks that were simulated");
    } else {
        reasons.push_back(
            "networks of the model fall apart into nearly empty and nearly complete "
            "ones");
        if (estimate.degenerate_share > 0.0) {
            reasons.push_back(
                fmt::format("in one run of the chains near the best point found {:.0f} in 100 "
                            "networks were nearly "
                            "complete, the others sparse",
                            100.0 * estimate.degenerate_share));
        }
    }
}

void add_degenerate_advice(const StudyEstimate& estimate, const StudyInput& input,
                           const AdviceWords& words, Names& advice) {
    const Names& names = input.resolved.names;
    const Names calm = tamed(names, input);
    if (calm != names) {
        advice.push_back(with_effects(words, calm));
    }
    for (const std::string& name : names_of(estimate.faulty, input)) {
        const Names rest = without(names, name);
        if (!rest.empty() && rest != names) {
            advice.push_back(with_effects(words, rest));
        }
    }
    const Names soft = softened(names, input.model.model);
    if (soft != names) {
        advice.push_back(with_effects(words, soft));
    }
}

}  // namespace

int verdict_status(StudyVerdict verdict) {
    switch (verdict) {
        case StudyVerdict::converged:
            return kDone;
        case StudyVerdict::not_converged:
            return kNotConverged;
        case StudyVerdict::not_identified:
        case StudyVerdict::degenerate:
            break;
    }
    return kNotIdentified;
}

std::vector<std::string> verdict_reasons(const StudyEstimate& estimate, const StudyInput& input) {
    Names reasons;
    const double limit = input.files.study.settings.estimation.time_limit;
    const bool ended = estimate.verdict == StudyVerdict::not_converged ||
                       estimate.verdict == StudyVerdict::degenerate;
    if (ended && limit > 0.0 && estimate.seconds >= limit) {
        reasons.push_back(
            fmt::format("the time limit of {} seconds was reached", number_text(limit)));
    }
    switch (estimate.verdict) {
        case StudyVerdict::converged:
            break;
        case StudyVerdict::not_converged:
            if (estimate.method == EstimationMethod::mcmle && !estimate.exact &&
                estimate.diagnosis.chains == 0) {
                reasons.push_back("the search ended before anything was found");
            } else if (estimate.diagnosis.chains > 0) {
                add_imprecise_reasons(estimate, input, reasons);
            } else if (estimate.exact || estimate.method == EstimationMethod::mple) {
                reasons.push_back("the likelihood has no maximum that could be found");
            } else {
                add_unconverged_reasons(estimate, reasons);
            }
            break;
        case StudyVerdict::not_identified:
            add_dependence_reasons(estimate, input, reasons);
            break;
        case StudyVerdict::degenerate:
            add_degenerate_reasons(estimate, input, reasons);
            break;
    }
    return reasons;
}

std::vector<std::string> verdict_advice(const StudyEstimate& estimate, const StudyInput& input,
                                        const AdviceWords& words) {
    Names advice;
    switch (estimate.verdict) {
        case StudyVerdict::converged:
            return advice;
        case StudyVerdict::not_converged:
            add_unconverged_advice(estimate, input, words, advice);
            break;
        case StudyVerdict::not_identified:
            add_dependence_advice(estimate, input, words, advice);
            break;
        case StudyVerdict::degenerate:
            add_degenerate_advice(estimate, input, words, advice);
            break;
    }
    const Names& names = input.resolved.names;
    std::erase(advice, with_effects(words, names));
    const Names ties = {input.files.study.network.directed ? "arc" : "edge"};
    if (estimate.all_alike != 0 || (advice.empty() && names == ties)) {
        // No model of these ties can be estimated: the check tells what is there.
        return {"ovri check " + words.model + " --effects " + shell_word(joined(names))};
    }
    if (advice.empty()) {
        advice.push_back(with_effects(words, ties));
    }
    return advice;
}
