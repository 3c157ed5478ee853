#include "study/study_estimate.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "base/named_value.h"
#include "base/no_number.h"
#include "study/approximation_runs.h"
#include "study/choice_estimate.h"
#include "study/estimability.h"
#include "study/monte_carlo_likelihood.h"
#include "study/study_chain.h"
#include "study/study_likelihood.h"

namespace {

// More than these no picture can show.
constexpr int kMostPathSteps = 300;

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// What stands before any run: numbers that do not exist, but for the observed ones.
template <class Network>
void describe_model(const Study& study, StudyChain<Network>& run, const StudySelection& resolved,
                    StudyEstimate& estimate) {
    const std::vector<double> observed = run.by_effect(run.network().statistics.data());
    const auto p = static_cast<int>(observed.size());
    estimate.covariance = matrix_create(p, p, kNoNumber);
    for (std::size_t k = 0; k < observed.size(); ++k) {
        estimate.effects.push_back({.name = resolved.names[k],
                                    .estimate = kNoNumber,
                                    .standard_error = kNoNumber,
                                    .mc_error = kNoNumber,
                                    .t_ratio = kNoNumber,
                                    .observed = observed[k],
                                    .simulated_mean = kNoNumber,
                                    .simulated_sd = kNoNumber,
                                    .fixed = study.model.effects[k].fixed.has_value()});
    }
}

constexpr std::array<NamedValue<StudyVerdict>, 4> kVerdicts = {
    {{StudyVerdict::converged, "converged"},
     {StudyVerdict::not_converged, "not_converged"},
     {StudyVerdict::not_identified, "not_identified"},
     {StudyVerdict::degenerate, "degenerate"}}};

// Dyads that may change, and how many of them are tied.
struct FreeTies {
    double dyads = 0.0;
    double ties = 0.0;
};

FreeTies free_ties(const Study& study) {
    const std::vector<ActorTie>& ties = study.network.ties;
    if (!study.dyads.restricted) {
        return {free_dyads(study), static_cast<double>(ties.size())};
    }
    FreeTies free{free_dyads(study), 0.0};
    for (const ActorTie& dyad : study.dyads.free) {
        free.ties += std::binary_search(ties.begin(), ties.end(), dyad) ? 1.0 : 0.0;
    }
    return free;
}

// Whether it is known before any estimation that there is no estimate.
bool has_no_estimate(const Study& study, StudySelection& resolved, StudyEstimate& estimate) {
    const FreeTies free = free_ties(study);
    estimate.all_alike = free.ties == 0.0 ? -1 : free.ties == free.dyads ? 1 : 0;
    estimate.dependent = dependent_dyadic_effects(study, resolved);
    estimate.infinite = infinite_dyadic_estimates(study, resolved);
    for (const InfiniteEstimate& each : least_counts(study, resolved)) {
        estimate.infinite.push_back(each);
    }
    return estimate.all_alike != 0 || !estimate.dependent.empty() || !estimate.infinite.empty();
}

// Of estimates that may be used and whose likelihood is not known yet. Those of the
// pseudo-likelihood do not maximise it.
void add_likelihood(const Study& study, const StudySelection& resolved, StudyEstimate& estimate,
                    RunProgress& progress) {
    if (estimate.verdict != StudyVerdict::converged || !std::isnan(estimate.log_likelihood) ||
        estimate.method == EstimationMethod::mple) {
        return;
    }
    // A held effect may drift; what chains then draw from is no model with a likelihood.
    Study all_estimated = study;
    for (StudyEffect& effect : all_estimated.model.effects) {
        effect.fixed.reset();
    }
    if (!drifting_effects(all_estimated, resolved).ok()) {
        return;
    }
    LikelihoodSettings settings;
    settings.chains = study.settings.estimation.chains;
    settings.threads = study.settings.run.threads;
    const StudyLikelihood found = study_likelihood(study, resolved, estimates_of(estimate),
                                                   estimate.seed, settings, progress);
    estimate.log_likelihood = found.value;
    estimate.log_likelihood_error = found.mc_error;
    estimate.proposals += found.proposals;
}

bool has_estimates(const StudyEstimate& estimate) {
    return std::any_of(estimate.effects.begin(), estimate.effects.end(),
                       [](const EffectEstimate& each) { return !std::isnan(each.estimate); });
}

// Estimates by the settings' method.
template <class Network>
void find_estimates(const Study& study, StudySelection& resolved, StudyChain<Network>& run,
                    Clock::time_point begin, RunProgress& progress, StudyEstimate& estimate) {
    const EstimationMethod method = study.settings.estimation.method;
    if (has_no_estimate(study, resolved, estimate)) {
        estimate.verdict = StudyVerdict::not_identified;
        // None was begun: the one that would have been.
        estimate.method = method == EstimationMethod::automatic ? EstimationMethod::mcmle : method;
    } else if (method == EstimationMethod::mple) {
        estimate_by_pseudo_likelihood(study, resolved, estimate);
    } else if (method == EstimationMethod::stochastic_approximation) {
        progress_part(progress);
        estimate_by_approximation(study, resolved, run, begin, progress, estimate);
    } else if (method == EstimationMethod::mcmle || !estimate_exactly(study, resolved, estimate)) {
        estimate_by_simulation(study, resolved, estimate, progress);
    }
    estimate.path = thinned(estimate.path, kMostPathSteps);
}

template <class Network>
StudyEstimate estimate_model(const Study& study, StudySelection& resolved, std::uint32_t seed,
                             RunProgress& progress) {
    const Clock::time_point begin = Clock::now();
    StudyEstimate estimate;
    estimate.seed = seed;
    StudyChain<Network> run(study, resolved, study_parameters(study, resolved), seed);
    describe_model(study, run, resolved, estimate);
    try {
        find_estimates(study, resolved, run, begin, progress, estimate);
    } catch (const RunStopped&) {
        if (!has_estimates(estimate)) {
            throw;
        }
        estimate.interrupted = true;
        estimate.verdict = StudyVerdict::not_converged;
    }
    estimate.seconds = seconds_since(begin);
    return estimate;
}

// Starts and held values that are not finite.
void add_number_problems(const Study& study, Problems& problems) {
    for (const StudyEffect& effect : study.model.effects) {
        for (const auto& value : {effect.start, effect.fixed}) {
            if (value && !std::isfinite(*value)) {
                problems.push_back(
                    {.field = "effect `" + effect_text(effect.expression) + "`",
                     .found = "a value that is not finite",
                     .expected = "a finite number",
                     .mend = "write a number in `start` or `fixed`, or leave it out"});
            }
        }
    }
}

}  // namespace

const char* study_verdict_name(StudyVerdict verdict) { return name_in(kVerdicts, verdict); }

std::optional<StudyVerdict> study_verdict_of(const std::string& name) {
    return value_in(kVerdicts, name);
}

std::vector<double> estimates_of(const StudyEstimate& estimate) {
    std::vector<double> values;
    for (const EffectEstimate& each : estimate.effects) {
        values.push_back(each.estimate);
    }
    return values;
}

const char* estimate_method_name(const StudyEstimate& estimate) {
    return estimate.exact ? "exact" : estimation_method_name(estimate.method);
}

Problems estimation_problems(const Study& study) {
    Problems problems;
    add_number_problems(study, problems);
    const std::vector<StudyEffect>& effects = study.model.effects;
    const bool all_held = std::all_of(effects.begin(), effects.end(),
                                      [](const StudyEffect& each) { return each.fixed; });
    if (all_held) {
        problems.push_back({.field = "model",
                            .found = "no parameter to estimate: every effect is held",
                            .expected = "an effect that is not in `fixed`",
                            .mend = "take an effect out of `fixed`, or simulate the model"});
    }
    const EstimationMethod method = study.settings.estimation.method;
    const bool holds = std::any_of(effects.begin(), effects.end(),
                                   [](const StudyEffect& each) { return each.fixed; });
    if (holds && method == EstimationMethod::stochastic_approximation) {
        problems.push_back({.field = "method",
                            .found = "`stochastic-approximation`, and a parameter that is held",
                            .expected = "parameters that are all estimated by this method",
                            .mend = "write method = \"auto\", or take it out of `fixed`"});
    }
    if (free_ties(study).dyads == 0.0) {
        problems.push_back({.field = "network",
                            .found = "no dyad that may change",
                            .expected = "two actors or more, and dyads among them that are free",
                            .mend = "look at the network and at `free` under [dyads]"});
    }
    return problems;
}

StudyEstimate study_estimate(const Study& study, StudySelection& resolved, std::uint32_t seed,
                             RunProgress& progress) {
    const Clock::time_point begin = Clock::now();
    StudyEstimate estimate = study_estimate_alone(study, resolved, seed, progress);
    try {
        add_likelihood(study, resolved, estimate, progress);
    } catch (const RunStopped&) {
        estimate.interrupted = true;
        estimate.verdict = StudyVerdict::not_converged;
    }
    estimate.seconds = seconds_since(begin);
    return estimate;
}

StudyEstimate study_estimate_alone(const Study& study, StudySelection& resolved, std::uint32_t seed,
                                   RunProgress& progress) {
    return study.network.directed ? estimate_model<Digraph>(study, resolved, seed, progress)
                                  : estimate_model<Graph>(study, resolved, seed, progress);
}
