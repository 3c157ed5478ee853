#include "estimation/estimator.h"

#include <cmath>
#include <utility>

namespace {

// What one run works with.
template <class Network>
struct Estimation {
    Chain<Network>& chain;
    std::vector<double>& parameters;
    Matrix& scaling_matrix;
    RunProgress& progress;
    const EstimationObserver& observer;
    EstimationResult result;
    int p;
    float gain;
};

template <class Network>
void announce(Estimation<Network>& run, EstimationEvent event) {
    run.result.parameters = run.parameters;
    run.observer.reached(event, run.result);
}

// Makes as many proposals as a counter 0, 1, 2, .. stays below a step's length.
template <class Network>
const std::vector<double>& make_step(Estimation<Network>& run) {
    chain_run(run.chain, run.result.proposals_per_step,
              [&](double) { progress_check(run.progress); });
    return run.chain.network.statistics;
}

template <class Network>
PhaseSamples collect_samples(Estimation<Network>& run, int steps) {
    PhaseSamples samples{matrix_create(steps, run.p, 0.0),
                         std::vector<double>(run.parameters.size(), 0.0)};
    for (int step = 0; step < steps; ++step) {
        const std::vector<double>& statistics = make_step(run);
        for (int i = 0; i < run.p; ++i) {
            const auto place = static_cast<std::size_t>(i);
            samples.statistics[step][i] = statistics[place];
            samples.means[place] += statistics[place];
        }
        progress_work(run.progress, step + 1);
    }
    for (double& value : samples.means) {
        value /= steps;
    }
    return samples;
}

// Adds the deviation products of the samples to the scaling matrix and divides it by their number.
// The matrix is not cleared first: what an earlier phase or run left in it stands in the sum.
template <class Network>
void add_covariance(Estimation<Network>& run, const PhaseSamples& samples, int steps) {
    Matrix& matrix = run.scaling_matrix;
    std::vector<double> deviation(samples.means.size());
    for (int step = 0; step < steps; ++step) {
        for (std::size_t i = 0; i < deviation.size(); ++i) {
            deviation[i] = samples.statistics[step][i] - samples.means[i];
        }
        for (int i = 0; i < run.p; ++i) {
            for (int j = 0; j < run.p; ++j) {
                matrix[i][j] +=
                    deviation[static_cast<std::size_t>(i)] * deviation[static_cast<std::size_t>(j)];
            }
        }
    }
    for (int i = 0; i < run.p; ++i) {
        for (int j = 0; j < run.p; ++j) {
            matrix[i][j] /= steps;
        }
    }
}

// Steps of a sub-phase: more than so many, and some further ones at most.
double least_steps(int p, int number) { return std::pow(2.0, 4.0 * number / 3.0) * (p + 7); }
constexpr double kFurtherSteps = 200.0;
constexpr double kPhase3BurnIn = 0.1;  // of its steps

// Steps at most from the beginning of a sub-phase to the end of the run, for whoever shows
// progress.
template <class Network>
double steps_from(const Estimation<Network>& run, int number) {
    const EstimationSettings& settings = run.result.settings;
    double steps = settings.phase3_steps * (1.0 + kPhase3BurnIn);
    for (; number < settings.sub_phases; ++number) {
        steps += least_steps(run.p, number) + kFurtherSteps;
    }
    return steps;
}

// False for a degenerate model.
template <class Network>
bool phase1(Estimation<Network>& run) {
    const int steps = 7 + 3 * run.p;
    progress_start(run.progress, RunStage::phase1, steps, steps_from(run, 0));
    run.result.phase1 = collect_samples(run, steps);
    add_covariance(run, run.result.phase1, steps);
    const bool regular = matrix_invert(run.scaling_matrix, run.p) == 1;
    if (!regular) {
        run.result.verdict = EstimationVerdict::degenerate;
    }
    announce(run, EstimationEvent::phase1_ended);
    return regular;
}

// Steps until the products of successive deviations are all negative (after more than the smallest
// number of steps) or the largest number is reached.
template <class Network>
void make_sub_phase(Estimation<Network>& run, int number, SubPhase& sub_phase) {
    const double smallest = least_steps(run.p, number);
    const double largest = smallest + kFurtherSteps;
    progress_start(run.progress, RunStage::phase2, largest, steps_from(run, number + 1));
    progress_step(run.progress, number, run.result.settings.sub_phases);
    const double* observed = run.result.observed.data();
    std::vector<double> lag_products(run.parameters.size(), 0.0);
    std::vector<double> sum(run.parameters.size(), 0.0);
    std::vector<double> previous;
    double steps = 0.0;
    while (largest > steps) {
        if (steps > smallest && lag_products_all_negative(run.p, lag_products.data()) == 1) {
            break;
        }
        previous = run.chain.network.statistics;
        const std::vector<double>& statistics = make_step(run);
        parameters_step(run.parameters.data(), run.p, statistics.data(), observed,
                        run.scaling_matrix, sub_phase.gain);
        lag_products_add(run.p, previous.data(), statistics.data(), observed, lag_products.data());
        for (std::size_t i = 0; i < sum.size(); ++i) {
            sum[i] += run.parameters[i];
        }
        sub_phase.path.cells.insert(sub_phase.path.cells.end(), run.parameters.begin(),
                                    run.parameters.end());
        ++sub_phase.path.rows;
        steps += 1.0;
        progress_work(run.progress, steps);
    }
    // The first sub-phase keeps its last value, every later one its mean.
    for (std::size_t i = 0; number != 0 && i < sum.size(); ++i) {
        run.parameters[i] = sum[i] / steps;
    }
    sub_phase.parameters = run.parameters;
}

template <class Network>
void phase2(Estimation<Network>& run) {
    for (int number = 0; number < run.result.settings.sub_phases; ++number) {
        // Doubled once, then halved at every end: the gains are a, a, a/2, a/4, ..
        if (number == 1) {
            run.gain = static_cast<float>(static_cast<double>(run.gain) * 2.0);
        }
        SubPhase& sub_phase = run.result.sub_phases.emplace_back();
        sub_phase.gain = static_cast<double>(run.gain);
        sub_phase.path.columns = run.p;
        announce(run, EstimationEvent::sub_phase_started);
        make_sub_phase(run, number, sub_phase);
        announce(run, EstimationEvent::sub_phase_ended);
        run.gain = static_cast<float>(static_cast<double>(run.gain) / 2.0);
    }
    announce(run, EstimationEvent::phase2_ended);
}

// A ratio that is not a number passes for converged.
template <class Network>
void find_t_ratios(Estimation<Network>& run, const std::vector<double>& variance) {
    EstimationResult& result = run.result;
    result.verdict = EstimationVerdict::converged;
    for (std::size_t i = 0; i < variance.size(); ++i) {
        const double ratio =
            -(std::sqrt(1.0 / variance[i]) * (result.phase3.means[i] - result.observed[i]));
        if (std::fabs(ratio) >= 0.1) {
            result.verdict = EstimationVerdict::not_converged;
        }
        result.t_ratios.push_back(ratio);
    }
}

template <class Network>
void phase3(Estimation<Network>& run) {
    const int steps = run.result.settings.phase3_steps;
    const double burn_in = steps * kPhase3BurnIn * run.result.proposals_per_step;
    progress_start(run.progress, RunStage::burn_in, burn_in, steps * run.result.proposals_per_step);
    burn_in_run(run.chain, burn_in, run.progress);
    announce(run, EstimationEvent::phase3_started);
    progress_start(run.progress, RunStage::phase3, steps, 0.0);
    run.result.phase3 = collect_samples(run, steps);
    add_covariance(run, run.result.phase3, steps);
    std::vector<double> variance;
    variance.reserve(run.parameters.size());
    for (int i = 0; i < run.p; ++i) {
        variance.push_back(run.scaling_matrix[i][i]);
    }
    matrix_invert(run.scaling_matrix, run.p);
    run.result.covariance = run.scaling_matrix;
    find_t_ratios(run, variance);
    announce(run, EstimationEvent::ended);
}

}  // namespace

template <class Network>
EstimationResult estimate(Chain<Network>& chain, const EstimationSettings& settings,
                          std::vector<double>& parameters, Matrix& scaling_matrix,
                          RunProgress& progress, const EstimationObserver& observer) {
    random_reseed(chain.random);
    const double d = network_density(chain.network);
    const double n = chain.network.vertices;
    Estimation<Network> run{chain,
                            parameters,
                            scaling_matrix,
                            progress,
                            observer,
                            {},
                            static_cast<int>(parameters.size()),
                            settings.a_value};
    run.result.settings = settings;
    run.result.proposals_per_step = d * settings.multiplication_factor * (1.0 - d) * n * n;
    run.result.observed = chain.network.statistics;
    run.result.start = parameters;
    announce(run, EstimationEvent::started);
    if (phase1(run)) {
        phase2(run);
        phase3(run);
    }
    return std::move(run.result);
}

template EstimationResult estimate<Graph>(Chain<Graph>&, const EstimationSettings&,
                                          std::vector<double>&, Matrix&, RunProgress&,
                                          const EstimationObserver&);
template EstimationResult estimate<Digraph>(Chain<Digraph>&, const EstimationSettings&,
                                            std::vector<double>&, Matrix&, RunProgress&,
                                            const EstimationObserver&);
