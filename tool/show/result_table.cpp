#include "show/result_table.h"
#include "study/counted.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

using Row = std::vector<std::string>;

std::string decimals(double value, int places) {
    return std::isfinite(value) ? fmt::format("{:.{}f}", value, places) : "-";
}

// Odds ratios range from nearly nothing to very much.
std::string odds(double value) {
    return std::isfinite(value) ? fmt::format("{:#.3g}", value) : "-";
}

std::string p_text(double value) {
    return !std::isfinite(value) ? "-" : value < 0.001 ? "<0.001" : fmt::format("{:.3f}", value);
}

std::string stars(double p) { return p < 0.001 ? "***" : p < 0.01 ? "**" : p < 0.05 ? "*" : ""; }

Row row_of(const ResultEffect& effect) {
    if (effect.fixed) {
        return {effect.name, decimals(effect.estimate, 4), "held", "", "",
                "",          odds(effect.odds_ratio),      "",     "", decimals(effect.t_ratio, 3),
                ""};
    }
    return {effect.name,
            decimals(effect.estimate, 4),
            decimals(effect.standard_error, 4),
            decimals(effect.mc_error, 4),
            decimals(effect.lower, 4),
            decimals(effect.upper, 4),
            odds(effect.odds_ratio),
            decimals(effect.z, 2),
            p_text(effect.p_value),
            decimals(effect.t_ratio, 3),
            stars(effect.p_value)};
}

// Characters, not bytes.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char each) {
        return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U;
    }));
}

std::string padded(const std::string& text, std::size_t to, bool left) {
    const std::string blanks(to - std::min(to, width(text)), ' ');
    return left ? text + blanks : blanks + text;
}

// Columns as wide as their widest cell: the first and, where it holds stars, the last to the left.
std::string laid_out(const std::vector<Row>& rows, bool with_stars) {
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (const Row& row : rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            widths[k] = std::max(widths[k], width(row[k]));
        }
    }
    std::string text;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t k = 0; k < row.size(); ++k) {
            const bool marks = with_stars && k + 1 == row.size();
            line += (k == 0 ? "" : marks ? " " : "  ") + padded(row[k], widths[k], k == 0 || marks);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

}  // namespace

std::string estimates_table(const ResultRecord& result) {
    std::vector<Row> rows = {{"effect", "estimate", "std. error", "mc error", "lower 95%",
                              "upper 95%", "odds ratio", "z", "p", "t-ratio", ""}};
    for (const ResultEffect& effect : result.effects) {
        rows.push_back(row_of(effect));
    }
    return laid_out(rows, true);
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
        rows.push_back({each.name, decimals(each.mean, 4), decimals(each.standard_error, 4),
                        decimals(each.lower, 4), decimals(each.upper, 4),
                        decimals(each.coverage, 3)});
    }
    return fmt::format("bootstrap: {} of the model, {} converged{}\n{}",
                       counted(bootstrap.replicates, "network"), bootstrap.converged, failed,
                       laid_out(rows, false));
}

std::string simulation_table(const ResultRecord& result) {
    std::vector<Row> rows = {
        {"effect", "value", "observed", "simulated mean", "simulated sd", "t-ratio"}};
    for (const ResultEffect& effect : result.effects) {
        rows.push_back({effect.name, decimals(effect.estimate, 4), decimals(effect.observed, 4),
                        decimals(effect.simulated_mean, 4), decimals(effect.simulated_sd, 4),
                        decimals(effect.t_ratio, 3)});
    }
    return laid_out(rows, false);
}
