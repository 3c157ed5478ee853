#include "report/estimation_log.h"

#include <cmath>

#include "base/text_writer.h"

namespace {

void write_values(TextWriter& out, const char* name, const std::vector<double>& values,
                  const char* format = "%f\t") {
    out.text(name);
    for (const double value : values) {
        out.number(format, value);
    }
    out.text("\n");
}

void write_start(TextWriter& log, const EstimationResult& found) {
    write_values(log, "original statistics:", found.observed);
    write_values(log, "starting parameters:", found.start);
    log.text("Phase1 started with the following setup:\n");
    log.print(
        "a = %f\nnum of steps = %d\nnum of iterations in each step = %f\n"
        "************************************\n",
        static_cast<double>(found.settings.a_value), 7 + 3 * static_cast<int>(found.start.size()),
        found.proposals_per_step);
}

void write_phase1_end(TextWriter& log, const EstimationResult& found) {
    write_values(log, "mean statistics in phase1:", found.phase1.means);
    if (found.verdict == EstimationVerdict::degenerate) {
        log.text("Degenerate Model!\n");
        return;
    }
    write_values(log, "END PHASE1 parameter:", found.parameters);
    log.text("Phase 2 started\n");
}

void write_sub_phase_end(TextWriter& log, const EstimationResult& found) {
    const int number = static_cast<int>(found.sub_phases.size()) - 1;
    const SubPhase& sub_phase = found.sub_phases.back();
    log.print("\nSubphase %d has gone up to %d steps\n", number, sub_phase.path.rows);
    log.print("Parameter after Subphase %d:", number);
    write_values(log, "", sub_phase.parameters, "%8.5f\t");
}

// The star marks a converged and significant effect.
void write_estimates(TextWriter& log, const EstimationResult& found,
                     const EffectSelection& selection) {
    log.text(
        "\nEstimation Result for Network SUMMARY (parameter, standard error, t-statistics)\n"
        "NOTE: t-statistics = (observation - sample mean)/standard error\n"
        "effects\testimates\tstderr\tt-ratio\n");
    for (const OutputRow& row : output_rows(selection, Output::result)) {
        const auto place = static_cast<std::size_t>(row.position);
        const double estimate = found.parameters[place];
        const double error = std::sqrt(found.covariance[row.position][row.position]);
        const double ratio = found.t_ratios[place];
        const bool starred = std::fabs(ratio) < 0.1 && std::fabs(estimate) > 2.0 * error;
        log.text(row.label + "\t");
        log.print(row.format, estimate, error, ratio);
        log.text(starred ? "\t*\n" : "\t\n");
    }
}

void write_covariance(TextWriter& out, const Matrix& covariance) {
    for (int i = 0; i < covariance.rows; ++i) {
        for (int j = 0; j < covariance.columns; ++j) {
            out.print("%f\t", covariance[i][j]);
        }
        out.text("\n");
    }
    out.text("\n");
}

void write_end(TextWriter& log, const EstimationResult& found, const OutputContext& outputs) {
    write_values(log, "mean statistics in phase3:", found.phase3.means);
    write_estimates(log, found, outputs.selection);
    log.text("\nEstimated Covariance Matrix\n");
    write_covariance(log, found.covariance);
    TextWriter covariance = writer_replace(outputs.paths.covariance);
    write_covariance(covariance, found.covariance);
    if (outputs.selection.catalogue->kind == NetworkKind::directed) {
        TextWriter console(outputs.console);
        write_values(console, "", found.t_ratios, "%lf\t");
    }
}

}  // namespace

void write_estimation_head(const EstimationSettings& settings, const std::string& network,
                           const std::string& path) {
    TextWriter log = writer_append(path);
    log.text("STOCHASTIC ESTIMATION FOR NETWORK " + network + "\n");
    log.text("ESTIMATION SETTINGS\n");
    log.print("Number of sub-phases in estimation (phase 2) = %d\n", settings.sub_phases);
    log.print("starting a-value in estimation (phase 2) = %f\n",
              static_cast<double>(settings.a_value));
    log.print("Multiplication factor for estimation (phase 2) = %d\n",
              settings.multiplication_factor);
    log.print("Number of steps in final simulation (phase 3) = %d\n", settings.phase3_steps);
    log.print("Number of estimation runs = %d\n\n", settings.estimation_runs);
}

void write_estimation_run_head(int number, const std::string& path) {
    writer_append(path).print("STOCHASTIC APPROXIMATION RUN %d\n\n", number);
}

void write_estimation_run_end(const std::string& path) { writer_append(path).text("\n\n"); }

void EstimationLog::reached(EstimationEvent event, const EstimationResult& found) const {
    TextWriter log = writer_append(outputs_.paths.estimation);
    switch (event) {
        case EstimationEvent::started:
            write_start(log, found);
            break;
        case EstimationEvent::phase1_ended:
            write_phase1_end(log, found);
            break;
        case EstimationEvent::sub_phase_started:
            log.print("\n\nSubphase %d started with a valued %f\n",
                      static_cast<int>(found.sub_phases.size()) - 1, found.sub_phases.back().gain);
            break;
        case EstimationEvent::sub_phase_ended:
            write_sub_phase_end(log, found);
            break;
        case EstimationEvent::phase2_ended:
            write_values(log, "END PHASE2 parameter:", found.parameters);
            break;
        case EstimationEvent::phase3_started:
            log.text("Phase3 started with the following setup:\n");
            log.print(
                "num of steps = %d\nnum of iterations in each step = %f\n"
                "***************************************\n",
                found.settings.phase3_steps, found.proposals_per_step);
            break;
        case EstimationEvent::ended:
            write_end(log, found, outputs_);
            break;
    }
}
