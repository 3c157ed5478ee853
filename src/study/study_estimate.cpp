#include "study/study_estimate.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "base/no_number.h"
#include "estimation/estimator.h"
#include "study/choice_estimate.h"
#include "study/estimability.h"
#include "study/monte_carlo_likelihood.h"
#include "study/study_chain.h"
#include "study/study_likelihood.h"

namespace {

constexpr double kConverged = 0.1;
// Samples more alike than this are too close to each other.
constexpr double kTooAlike = 0.4;
// More than these no picture can show.
constexpr int kMostPathSteps = 300;

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// Standard deviation of a column, by its number of rows.
double column_sd(const Matrix& samples, int column, double mean) {
    double sum = 0.0;
    for (int row = 0; row < samples.rows; ++row) {
        const double deviation = samples[row][column] - mean;
        sum += deviation * deviation;
    }
    return samples.rows > 0 ? std::sqrt(sum / samples.rows) : kNoNumber;
}

double largest_autocorrelation(const Matrix& samples, const std::vector<double>& means) {
    double largest = 0.0;
    for (int column = 0; column < samples.columns; ++column) {
        const double mean = means[static_cast<std::size_t>(column)];
        double products = 0.0;
        double squares = 0.0;
        for (int row = 0; row < samples.rows; ++row) {
            const double deviation = samples[row][column] - mean;
            squares += deviation * deviation;
            products += row > 0 ? deviation * (samples[row - 1][column] - mean) : 0.0;
        }
        largest = squares > 0.0 ? std::max(largest, products / squares) : largest;
    }
    return largest;
}

// The largest in size; infinite where one is not a number.
double largest_size(const std::vector<double>& values) {
    double largest = 0.0;
    for (const double value : values) {
        largest = std::isnan(value) ? std::numeric_limits<double>::infinity()
                                    : std::max(largest, std::fabs(value));
    }
    return largest;
}

bool all_finite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(),
                       [](double value) { return std::isfinite(value); });
}

EstimationSettings settings_of(const StudyEstimation& estimation) {
    EstimationSettings settings;
    settings.sub_phases = estimation.subphases;
    settings.a_value = static_cast<float>(estimation.gain);
    settings.multiplication_factor = estimation.multiplication;
    settings.phase3_steps = estimation.samples;
    return settings;
}

// Whether the model says where its tie effect begins, be it at zero.
bool has_start_at(const Study& study, const StudySelection& resolved, int place) {
    for (std::size_t k = 0; k < resolved.places.size(); ++k) {
        if (resolved.places[k] == place) {
            return study.model.effects[k].start.has_value();
        }
    }
    return false;
}

// A tie effect without a start begins at the log-odds of the observed density.
template <class Network>
void start_at_density(const Study& study, const StudySelection& resolved, const Network& network,
                      std::vector<double>& parameters) {
    const int tie = kDirected<Network> ? digraph_effect::kArc : graph_effect::kEdge;
    const int place = resolved.selection.structural[static_cast<std::size_t>(tie)].position;
    if (place >= 0 && !has_start_at(study, resolved, place) && !study.network.ties.empty()) {
        const double d = network_density(network);
        parameters[static_cast<std::size_t>(place)] = std::log(d / (1.0 - d));
    }
}

// A matrix over places as one over the study's effects.
Matrix by_effect(const Matrix& matrix, const std::vector<int>& places) {
    const int p = static_cast<int>(places.size());
    Matrix ordered = matrix_create(p, p, kNoNumber);
    for (int i = 0; i < p && matrix.rows == p; ++i) {
        for (int j = 0; j < p; ++j) {
            ordered[i][j] =
                matrix[places[static_cast<std::size_t>(i)]][places[static_cast<std::size_t>(j)]];
        }
    }
    return ordered;
}

Matrix samples_by_effect(const Matrix& samples, const std::vector<int>& places) {
    Matrix ordered = matrix_create(samples.rows, static_cast<int>(places.size()), 0.0);
    for (int row = 0; row < samples.rows; ++row) {
        for (std::size_t k = 0; k < places.size(); ++k) {
            ordered[row][static_cast<int>(k)] = samples[row][places[k]];
        }
    }
    return ordered;
}

double at_place(const std::vector<double>& values, int place) {
    const auto at = static_cast<std::size_t>(place);
    return at < values.size() ? values[at] : kNoNumber;
}

// Proposals of one run in all its phases.
double proposals_of(const EstimationResult& found) {
    int steps = found.phase1.statistics.rows + found.phase3.statistics.rows;
    for (const SubPhase& each : found.sub_phases) {
        steps += each.path.rows;
    }
    return steps * found.proposals_per_step;
}

// The parameters after each step of phase 2, behind those of earlier attempts.
void add_path(const EstimationResult& found, const std::vector<int>& places, int attempt,
              ParameterPath& path) {
    const std::string which = attempt == 0 ? "" : "attempt " + std::to_string(attempt + 1) + ", ";
    int number = 0;
    for (const SubPhase& phase : found.sub_phases) {
        const std::string stage = which + "subphase " + std::to_string(++number);
        for (int row = 0; row < phase.path.rows; ++row) {
            std::vector<double> parameters;
            parameters.reserve(places.size());
            for (const int place : places) {
                parameters.push_back(phase.path[row][place]);
            }
            add_step(path, stage, std::move(parameters));
        }
    }
}

// Fills the estimate from a run that went through all phases or ended in the first.
void take_result(const EstimationResult& found, const StudySelection& resolved,
                 StudyEstimate& estimate) {
    const bool ended = found.verdict != EstimationVerdict::degenerate;
    const PhaseSamples& phase = ended ? found.phase3 : found.phase1;
    estimate.effects.clear();
    estimate.covariance = by_effect(found.covariance, resolved.places);
    estimate.samples = samples_by_effect(phase.statistics, resolved.places);
    estimate.sample_chain.assign(static_cast<std::size_t>(estimate.samples.rows), 0);
    estimate.sample_draw.resize(static_cast<std::size_t>(estimate.samples.rows));
    std::iota(estimate.sample_draw.begin(), estimate.sample_draw.end(), 0);
    for (std::size_t k = 0; k < resolved.places.size(); ++k) {
        const int place = resolved.places[k];
        EffectEstimate effect;
        effect.name = resolved.names[k];
        effect.estimate = at_place(found.parameters, place);
        effect.mc_error = kNoNumber;
        const double variance = estimate.covariance[static_cast<int>(k)][static_cast<int>(k)];
        effect.standard_error = variance >= 0.0 && ended ? std::sqrt(variance) : kNoNumber;
        effect.t_ratio = at_place(found.t_ratios, place);
        effect.observed = at_place(found.observed, place);
        effect.simulated_mean = at_place(phase.means, place);
        effect.simulated_sd = column_sd(phase.statistics, place, effect.simulated_mean);
        estimate.effects.push_back(std::move(effect));
    }
}

// Effects whose statistic never moved, or whose t-ratio is too large.
std::vector<int> faulty_effects(const StudyEstimate& estimate) {
    std::vector<int> faulty;
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        const EffectEstimate& effect = estimate.effects[k];
        const bool still = !(effect.simulated_sd > 0.0);
        const bool far = estimate.verdict == StudyVerdict::not_converged &&
                         !(std::fabs(effect.t_ratio) < kConverged);
        if (still || far) {
            faulty.push_back(static_cast<int>(k));
        }
    }
    return faulty;
}

// Covariance of the samples, for effects that depend on each other in every network that was seen.
Matrix sample_products(const StudyEstimate& estimate) {
    const int p = estimate.samples.columns;
    Matrix products = matrix_create(p, p, 0.0);
    for (int row = 0; row < estimate.samples.rows; ++row) {
        for (int i = 0; i < p; ++i) {
            for (int j = 0; j < p; ++j) {
                products[i][j] += (estimate.samples[row][i] -
                                   estimate.effects[static_cast<std::size_t>(i)].simulated_mean) *
                                  (estimate.samples[row][j] -
                                   estimate.effects[static_cast<std::size_t>(j)].simulated_mean);
            }
        }
    }
    return products;
}

void find_verdict(const EstimationResult& found, StudyEstimate& estimate) {
    estimate.dependent = dependent_set(sample_products(estimate));
    if (estimate.dependent.size() == 1) {
        estimate.verdict = StudyVerdict::degenerate;
        estimate.dependent.clear();
    } else if (!estimate.dependent.empty()) {
        estimate.verdict = StudyVerdict::not_identified;
    } else if (found.verdict == EstimationVerdict::degenerate) {
        estimate.verdict = StudyVerdict::degenerate;
    } else {
        estimate.verdict = largest_size(found.t_ratios) < kConverged ? StudyVerdict::converged
                                                                     : StudyVerdict::not_converged;
    }
    estimate.faulty = faulty_effects(estimate);
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

template <class Network>
void run_attempts(const Study& study, const StudySelection& resolved, StudyChain<Network>& run,
                  Clock::time_point begin, RunProgress& progress, StudyEstimate& estimate) {
    const StudyEstimation& wanted = study.settings.estimation;
    EstimationSettings settings = settings_of(wanted);
    std::vector<double> kept = run.parameters();
    double best = std::numeric_limits<double>::infinity();
    for (int attempt = 0; attempt < wanted.attempts; ++attempt) {
        if (!all_finite(run.parameters())) {
            run.parameters() = kept;
        }
        Matrix scaling_matrix = matrix_create(run.size(), run.size(), 0.0);
        Chain<Network> chain = run.chain();
        const EstimationResult found =
            ::estimate(chain, settings, run.parameters(), scaling_matrix, progress);
        run.restore_network();
        estimate.proposals += proposals_of(found);
        add_path(found, resolved.places, attempt, estimate.path);
        const bool ended = found.verdict != EstimationVerdict::degenerate;
        const double largest =
            ended ? largest_size(found.t_ratios) : std::numeric_limits<double>::infinity();
        const double alike = largest_autocorrelation(found.phase3.statistics, found.phase3.means);
        estimate.attempts.push_back({settings.multiplication_factor, largest, alike, false});
        if (attempt == 0 || largest < best) {
            best = largest;
            kept = all_finite(run.parameters()) ? run.parameters() : kept;
            for (EstimationAttempt& each : estimate.attempts) {
                each.used = false;
            }
            estimate.attempts.back().used = true;
            take_result(found, resolved, estimate);
            find_verdict(found, estimate);
        }
        const bool late = wanted.time_limit > 0.0 && seconds_since(begin) > wanted.time_limit;
        if (estimate.verdict != StudyVerdict::not_converged || late) {
            return;
        }
        settings.multiplication_factor *= alike > kTooAlike ? 2 : 1;
    }
}

// Dyads that may change, and how many of them are tied.
struct FreeTies {
    double dyads = 0.0;
    double ties = 0.0;
};

FreeTies free_ties(const Study& study) {
    const StudyNetwork& network = study.network;
    const auto n = static_cast<double>(network.actors.size());
    if (!study.dyads.restricted) {
        return {n * (n - 1.0) / (network.directed ? 1.0 : 2.0),
                static_cast<double>(network.ties.size())};
    }
    FreeTies free{static_cast<double>(study.dyads.free.size()), 0.0};
    for (const ActorTie& dyad : study.dyads.free) {
        free.ties += std::binary_search(network.ties.begin(), network.ties.end(), dyad) ? 1.0 : 0.0;
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
    std::vector<double> parameters;
    for (const EffectEstimate& each : estimate.effects) {
        parameters.push_back(each.estimate);
    }
    LikelihoodSettings settings;
    settings.chains = study.settings.estimation.chains;
    settings.threads = study.settings.run.threads;
    const StudyLikelihood found =
        study_likelihood(study, resolved, parameters, estimate.seed, settings, progress);
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
        start_at_density(study, resolved, run.network(), run.parameters());
        run_attempts(study, resolved, run, begin, progress, estimate);
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

const char* study_verdict_name(StudyVerdict verdict) {
    switch (verdict) {
        case StudyVerdict::converged:
            return "converged";
        case StudyVerdict::not_converged:
            return "not_converged";
        case StudyVerdict::not_identified:
            return "not_identified";
        case StudyVerdict::degenerate:
            break;
    }
    return "degenerate";
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
