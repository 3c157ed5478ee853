#include "show/result_table.h"

#include <fmt/core.h>

#include <cmath>
#include <vector>

#include "show/text_table.h"
#include "study/counted.h"

namespace {

using Row = std::vector<std::string>;

// Odds ratios range from nearly nothing to very much.
std::string odds(double value) {
    return std::isfinite(value) ? fmt::format("{:#.3g}", value) : "-";
}

std::string p_text(double value) {
    return !std::isfinite(value) ? "-" : value < 0.001 ? "<0.001" : fmt::format("{:.3f}", value);
}

std::string stars(double p) { return p < 0.001 ? "***" : p < 0.01 ? "**" : p < 0.05 ? "*" : ""; }

// The t-ratio with the stars of the p-value behind it.
std::string marked_t_ratio(const ResultEffect& effect) {
    return fmt::format("{} {:<3}", decimals_or_dash(effect.t_ratio, 3), stars(effect.p_value));
}

// `most`: decimals of the estimate that has most of them.
Row row_of(const ResultEffect& effect, int most) {
    const auto estimated = [places = table_decimals(effect), most](double value) {
        return aligned_decimals(value, places, most);
    };
    if (effect.fixed) {
        return {effect.name, estimated(effect.estimate), "held", "", "",
                "",          odds(effect.odds_ratio),    "",     "", marked_t_ratio(effect)};
    }
    return {effect.name,
            estimated(effect.estimate),
            estimated(effect.standard_error),
            decimals_or_dash(effect.mc_error, 4),
            estimated(effect.lower),
            estimated(effect.upper),
            odds(effect.odds_ratio),
            decimals_or_dash(effect.z, 2),
            p_text(effect.p_value),
            marked_t_ratio(effect)};
}

}  // namespace

std::string estimates_table(const ResultRecord& result) {
    const int most = most_decimals(result);
    std::vector<Row> rows = {{"effect", "estimate", "std. error", "mc error", "lower 95%",
                              "upper 95%", "odds ratio", "z", "p",
                              fmt::format("{} {:<3}", "t-ratio", "")}};
    for (const ResultEffect& effect : result.effects) {
        rows.push_back(row_of(effect, most));
    }
    return text_table(rows);
}

std::string likelihood_line(const ResultRecord& result) {
    const ResultLikelihood& likelihood = result.likelihood;
    if (!std::isfinite(likelihood.value)) {
        return "";
    }
    return fmt::format(
        "log-likelihood {:.2f}{}, deviance {:.2f}, AIC {:.2f}, BIC {:.2f}\n", likelihood.value,
        likelihood.mc_error > 0.0 ? fmt::format(" (Monte Carlo error {:.2f})", likelihood.mc_error)
                                  : "",
        likelihood.deviance, likelihood.aic, likelihood.bic);
}

std::string bootstrap_table(const ResultBootstrap& bootstrap) {
    std::string failed;
    const auto add = [&failed](int count, const char* verdict) {
        failed += count > 0 ? fmt::format(", {} {}", count, verdict) : "";
    };
    add(bootstrap.not_converged, "not converged");
    add(bootstrap.not_identified, "not identified");
    add(bootstrap.degenerate, "degenerate");
    std::vector<Row> rows = {
        {"effect", "mean", "std. error", "lower 95%", "upper 95%", "coverage"}};
    for (const ResultBootstrapEffect& each : bootstrap.effects) {
        rows.push_back({each.name, decimals_or_dash(each.mean, 4),
                        decimals_or_dash(each.standard_error, 4), decimals_or_dash(each.lower, 4),
                        decimals_or_dash(each.upper, 4), decimals_or_dash(each.coverage, 3)});
    }
    return fmt::format("bootstrap: {} of the model, {} converged{}\n{}",
                       counted(bootstrap.replicates, "network"), bootstrap.converged, failed,
                       text_table(rows));
}

std::string simulation_table(const ResultRecord& result) {
    std::vector<Row> rows = {
        {"effect", "value", "observed", "simulated mean", "simulated sd", "t-ratio"}};
    for (const ResultEffect& effect : result.effects) {
        rows.push_back(
            {effect.name, decimals_or_dash(effect.estimate, 4),
             decimals_or_dash(effect.observed, 4), decimals_or_dash(effect.simulated_mean, 4),
             decimals_or_dash(effect.simulated_sd, 4), decimals_or_dash(effect.t_ratio, 3)});
    }
    return text_table(rows);
}
