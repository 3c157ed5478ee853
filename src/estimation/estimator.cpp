#include "estimation/estimator.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/text_writer.h"

namespace {

// Everything one run keeps between its phases.
template <class Network>
struct Estimation {
    Chain<Network>& chain;
    const RunSetting& setting;
    const EstimationSettings& settings;
    std::vector<double>& parameters;
    Matrix& scaling_matrix;
    int p;
    std::vector<double> observed;
    std::vector<double> mean_statistics;
    std::vector<double> variance;
    float a_value;
    // Proposals of a step: as many as a counter 0, 1, 2, .. stays below this.
    double iterations_per_step;
};

void write_values(TextWriter& out, const char* format, const std::vector<double>& values) {
    for (const double value : values) {
        out.number(format, value);
    }
}

template <class Network>
const std::vector<double>& make_step(Estimation<Network>& run) {
    for (double counter = 0.0; counter < run.iterations_per_step; counter += 1.0) {
        chain_step(run.chain);
        progress_check(run.setting.progress);
    }
    return run.chain.network.statistics;
}

// Makes `steps` steps and keeps each one's statistics, summing them up.
template <class Network>
Matrix collect_samples(Estimation<Network>& run, int steps) {
    Matrix samples = matrix_create(steps, run.p, 0.0);
    std::fill(run.mean_statistics.begin(), run.mean_statistics.end(), 0.0);
    for (int step = 0; step < steps; ++step) {
        const std::vector<double>& statistics = make_step(run);
        for (int i = 0; i < run.p; ++i) {
            const auto place = static_cast<std::size_t>(i);
            samples[step][i] = statistics[place];
            run.mean_statistics[place] += statistics[place];
        }
        progress_work(run.setting.progress, step + 1);
    }
    for (double& value : run.mean_statistics) {
        value /= steps;
    }
    return samples;
}

// Adds the deviation products of the samples to the scaling matrix and divides it by their number.
// The matrix is not cleared first: what an earlier phase or run left in it stands in the sum.
template <class Network>
void add_covariance(Estimation<Network>& run, Matrix& samples, int steps) {
    for (int step = 0; step < steps; ++step) {
        for (int i = 0; i < run.p; ++i) {
            samples[step][i] -= run.mean_statistics[static_cast<std::size_t>(i)];
        }
    }
    Matrix& matrix = run.scaling_matrix;
    for (int step = 0; step < steps; ++step) {
        const double* deviation = samples[step];
        for (int i = 0; i < run.p; ++i) {
            for (int j = 0; j < run.p; ++j) {
                matrix[i][j] += deviation[i] * deviation[j];
            }
        }
    }
    for (int i = 0; i < run.p; ++i) {
        for (int j = 0; j < run.p; ++j) {
            matrix[i][j] /= steps;
        }
        run.variance[static_cast<std::size_t>(i)] = matrix[i][i];
    }
}

// False for a degenerate model.
template <class Network>
bool phase1(Estimation<Network>& run, TextWriter& log) {
    const int steps = 7 + 3 * run.p;
    log.text("Phase1 started with the following setup:\n");
    log.print(
        "a = %f\nnum of steps = %d\nnum of iterations in each step = %f\n"
        "************************************\n",
        static_cast<double>(run.a_value), steps, run.iterations_per_step);
    progress_start(run.setting.progress, RunStage::phase1, steps);
    Matrix samples = collect_samples(run, steps);
    log.text("mean statistics in phase1:");
    write_values(log, "%f\t", run.mean_statistics);
    log.text("\n");
    add_covariance(run, samples, steps);
    if (matrix_invert(run.scaling_matrix, run.p) == 0) {
        log.text("Degenerate Model!\n");
        return false;
    }
    log.text("END PHASE1 parameter:");
    write_values(log, "%f\t", run.parameters);
    log.text("\n");
    return true;
}

// Steps until the products of successive deviations are all negative (after more than the smallest
// number of steps) or the largest number is reached. Returns the steps made.
template <class Network>
double sub_phase(Estimation<Network>& run, int number, std::vector<double>& lag_products,
                 std::vector<double>& parameter_sum) {
    const double smallest = std::pow(2.0, 4.0 * number / 3.0) * (run.p + 7);
    const double largest = smallest + 200.0;
    progress_start(run.setting.progress, RunStage::phase2, largest);
    progress_step(run.setting.progress, number, run.settings.sub_phases);
    std::vector<double> previous;
    double steps = 0.0;
    while (largest > steps) {
        if (steps > smallest && lag_products_all_negative(run.p, lag_products.data()) == 1) {
            break;
        }
        previous = run.chain.network.statistics;
        const std::vector<double>& statistics = make_step(run);
        parameters_step(run.parameters.data(), run.p, statistics.data(), run.observed.data(),
                        run.scaling_matrix, static_cast<double>(run.a_value));
        lag_products_add(run.p, previous.data(), statistics.data(), run.observed.data(),
                         lag_products.data());
        for (std::size_t i = 0; i < parameter_sum.size(); ++i) {
            parameter_sum[i] += run.parameters[i];
        }
        steps += 1.0;
        progress_work(run.setting.progress, steps);
    }
    return steps;
}

template <class Network>
void phase2(Estimation<Network>& run) {
    TextWriter log = writer_append(run.setting.paths.estimation);
    log.text("Phase 2 started\n");
    const auto size = static_cast<std::size_t>(run.p);
    std::vector<double> lag_products(size, 0.0);
    std::vector<double> parameter_sum(size, 0.0);
    for (int number = 0; number < run.settings.sub_phases; ++number) {
        // Doubled once, then halved at every end: the gains are a, a, a/2, a/4, ..
        if (number == 1) {
            run.a_value = static_cast<float>(static_cast<double>(run.a_value) * 2.0);
        }
        log.print("\n\nSubphase %d started with a valued %f\n", number,
                  static_cast<double>(run.a_value));
        const double steps = sub_phase(run, number, lag_products, parameter_sum);
        log.print("\nSubphase %d has gone up to %d steps\n", number, static_cast<int>(steps));
        log.print("Parameter after Subphase %d:", number);
        for (std::size_t i = 0; i < size; ++i) {
            // The first sub-phase keeps its last value, every later one its mean.
            if (number != 0) {
                run.parameters[i] = parameter_sum[i] / steps;
            }
            lag_products[i] = 0.0;
            parameter_sum[i] = 0.0;
            log.print("%8.5f\t", run.parameters[i]);
        }
        log.text("\n");
        run.a_value = static_cast<float>(static_cast<double>(run.a_value) / 2.0);
    }
    log.text("END PHASE2 parameter:");
    write_values(log, "%f\t", run.parameters);
    log.text("\n");
}

// The t-ratios (observed - mean) / deviation. They go to the console only in a directed run.
template <class Network>
std::vector<double> t_ratios(Estimation<Network>& run, int& converged) {
    const bool shown = run.setting.selection.catalogue->kind == NetworkKind::directed;
    TextWriter console(shown ? run.setting.console : nullptr);
    std::vector<double> ratios(static_cast<std::size_t>(run.p), 0.0);
    converged = 1;
    for (std::size_t i = 0; i < ratios.size(); ++i) {
        run.variance[i] = 1.0 / run.variance[i];
        ratios[i] = -(std::sqrt(run.variance[i]) * (run.mean_statistics[i] - run.observed[i]));
        if (std::fabs(ratios[i]) >= 0.1) {
            converged = 0;
        }
        console.print("%lf\t", ratios[i]);
    }
    console.text("\n");
    return ratios;
}

// The star marks a converged and significant effect.
template <class Network>
void write_results(const Estimation<Network>& run, TextWriter& log,
                   const std::vector<double>& ratios) {
    log.text(
        "\nEstimation Result for Network SUMMARY (parameter, standard error, t-statistics)\n"
        "NOTE: t-statistics = (observation - sample mean)/standard error\n"
        "effects\testimates\tstderr\tt-ratio\n");
    for (const OutputRow& row : output_rows(run.setting.selection, Output::result)) {
        const auto place = static_cast<std::size_t>(row.position);
        const double estimate = run.parameters[place];
        const double error = std::sqrt(run.scaling_matrix[row.position][row.position]);
        const double ratio = ratios[place];
        const bool starred = std::fabs(ratio) < 0.1 && std::fabs(estimate) > 2.0 * error;
        log.text(row.label + "\t");
        log.print(row.format, estimate, error, ratio);
        log.text(starred ? "\t*\n" : "\t\n");
    }
}

void write_matrix_rows(TextWriter& out, const Matrix& matrix, int p) {
    for (int i = 0; i < p; ++i) {
        for (int j = 0; j < p; ++j) {
            out.print("%f\t", matrix[i][j]);
        }
        out.text("\n");
    }
    out.text("\n");
}

template <class Network>
int phase3(Estimation<Network>& run) {
    const int steps = run.settings.phase3_steps;
    TextWriter log = writer_append(run.setting.paths.estimation);
    const double burn_in = steps * 0.1 * run.iterations_per_step;
    progress_start(run.setting.progress, RunStage::burn_in, burn_in);
    burn_in_run(run.chain, burn_in, run.setting.progress);
    log.text("Phase3 started with the following setup:\n");
    log.print(
        "num of steps = %d\nnum of iterations in each step = %f\n"
        "***************************************\n",
        steps, run.iterations_per_step);
    progress_start(run.setting.progress, RunStage::phase3, steps);
    Matrix samples = collect_samples(run, steps);
    log.text("mean statistics in phase3:");
    write_values(log, "%f\t", run.mean_statistics);
    log.text("\n");
    add_covariance(run, samples, steps);
    matrix_invert(run.scaling_matrix, run.p);
    int converged = 0;
    const std::vector<double> ratios = t_ratios(run, converged);
    write_results(run, log, ratios);
    log.text("\nEstimated Covariance Matrix\n");
    write_matrix_rows(log, run.scaling_matrix, run.p);
    TextWriter covariance = writer_replace(run.setting.paths.covariance);
    write_matrix_rows(covariance, run.scaling_matrix, run.p);
    return converged;
}

}  // namespace

template <class Network>
int estimate(Chain<Network>& chain, const RunSetting& setting, const EstimationSettings& settings,
             std::vector<double>& parameters, Matrix& scaling_matrix) {
    random_reseed(chain.random);
    const std::size_t size = parameters.size();
    const double d = network_density(chain.network);
    const double n = chain.network.vertices;
    Estimation<Network> run{chain,
                            setting,
                            settings,
                            parameters,
                            scaling_matrix,
                            static_cast<int>(size),
                            chain.network.statistics,
                            std::vector<double>(size, 0.0),
                            std::vector<double>(size, 0.0),
                            settings.a_value,
                            d * settings.multiplication_factor * (1.0 - d) * n * n};
    {
        TextWriter log = writer_append(setting.paths.estimation);
        log.text("original statistics:");
        write_values(log, "%f\t", run.observed);
        log.text("\nstarting parameters:");
        write_values(log, "%f\t", parameters);
        log.text("\n");
        if (!phase1(run, log)) {
            return 0;
        }
    }
    phase2(run);
    return phase3(run);
}

template int estimate<Graph>(Chain<Graph>&, const RunSetting&, const EstimationSettings&,
                             std::vector<double>&, Matrix&);
template int estimate<Digraph>(Chain<Digraph>&, const RunSetting&, const EstimationSettings&,
                               std::vector<double>&, Matrix&);
