#include "study/choice_estimate.h"

#include <cmath>

#include "study/pseudo_likelihood.h"

namespace {

// Parameters, standard errors and verdict.
void take_choice(const ChoiceEstimate& found, StudyEstimate& estimate) {
    estimate.dependent = found.dependent;
    estimate.infinite = found.infinite;
    estimate.separated = !found.infinite.empty();
    if (found.outcome != ChoiceOutcome::maximum) {
        const bool sought =
            found.outcome == ChoiceOutcome::dependent || found.outcome == ChoiceOutcome::infinite;
        estimate.verdict = sought ? StudyVerdict::not_identified : StudyVerdict::not_converged;
        return;
    }
    estimate.verdict = StudyVerdict::converged;
    estimate.covariance = found.covariance;
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        EffectEstimate& effect = estimate.effects[k];
        const int at = static_cast<int>(k);
        effect.estimate = found.parameters[k];
        if (!effect.fixed) {
            effect.standard_error = std::sqrt(found.covariance[at][at]);
            effect.mc_error = 0.0;
        }
    }
}

// What the likelihood itself gives beside the parameters.
void take_expectations(const ChoiceLikelihood& likelihood, StudyEstimate& estimate) {
    estimate.log_likelihood = likelihood.value;
    estimate.log_likelihood_error = 0.0;
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        EffectEstimate& effect = estimate.effects[k];
        const int at = static_cast<int>(k);
        const double sd = std::sqrt(likelihood.information[at][at]);
        // At the maximum the expectation of what is estimated is the observation.
        const double excess = effect.fixed ? likelihood.gradient[k] : 0.0;
        effect.simulated_mean = effect.observed - excess;
        effect.simulated_sd = sd;
        effect.t_ratio = excess / sd;
    }
}

}  // namespace

std::vector<char> held_effects(const Study& study) {
    std::vector<char> held;
    held.reserve(study.model.effects.size());
    for (const StudyEffect& effect : study.model.effects) {
        held.push_back(effect.fixed ? 1 : 0);
    }
    return held;
}

std::vector<double> given_values(const Study& study) {
    std::vector<double> values;
    values.reserve(study.model.effects.size());
    for (const StudyEffect& effect : study.model.effects) {
        values.push_back(effect.fixed ? *effect.fixed : effect.start.value_or(0.0));
    }
    return values;
}

bool estimate_exactly(const Study& study, StudySelection& resolved, StudyEstimate& estimate) {
    const std::optional<IndependentChoices> choices = exact_choices(study, resolved);
    if (!choices) {
        return false;
    }
    estimate.exact = true;
    const ChoiceEstimate found =
        maximise_choices(*choices, given_values(study), held_effects(study));
    take_choice(found, estimate);
    if (found.outcome == ChoiceOutcome::maximum) {
        take_expectations(found.likelihood, estimate);
    }
    return true;
}

void estimate_by_pseudo_likelihood(const Study& study, StudySelection& resolved,
                                   StudyEstimate& estimate) {
    if (estimate_exactly(study, resolved, estimate)) {
        return;
    }
    estimate.method = EstimationMethod::mple;
    take_choice(
        maximise_choices(pseudo_choices(study, resolved), given_values(study), held_effects(study)),
        estimate);
}
