#include "study/approximation_runs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "estimation/estimator.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr double kConverged = 0.1;
// Samples more alike than this are too close to each other.
constexpr double kTooAlike = 0.4;

// Standard deviation of a column, by its number of rows.
double column_sd(const Matrix& samples, int column, double mean) {
    double sum = 0.0;
    for (int row = 0; row < samples.rows; ++row) {
        const double deviation = samples[row][column] - mean;
        sum += deviation * deviation;
    }
    return samples.rows > 0 ? std::sqrt(sum / samples.rows) : kNoNumber;
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

}  // namespace

template <class Network>
void estimate_by_approximation(const Study& study, const StudySelection& resolved,
                               StudyChain<Network>& run, Clock::time_point begin,
                               RunProgress& progress, StudyEstimate& estimate) {
    start_at_density(study, resolved, run.network(), run.parameters());
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
        const double alike =
            largest_autocorrelation(found.phase3.statistics, found.phase3.means, 1);
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
        const bool late =
            wanted.time_limit > 0.0 &&
            std::chrono::duration<double>(Clock::now() - begin).count() > wanted.time_limit;
        if (estimate.verdict != StudyVerdict::not_converged || late) {
            return;
        }
        settings.multiplication_factor *= alike > kTooAlike ? 2 : 1;
    }
}
template void estimate_by_approximation<Graph>(const Study&, const StudySelection&,
                                               StudyChain<Graph>&, Clock::time_point, RunProgress&,
                                               StudyEstimate&);
template void estimate_by_approximation<Digraph>(const Study&, const StudySelection&,
                                                 StudyChain<Digraph>&, Clock::time_point,
                                                 RunProgress&, StudyEstimate&);
