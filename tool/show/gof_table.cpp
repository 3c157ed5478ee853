#include "show/gof_table.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "terminal/wrap.h"

namespace {

using Row = std::vector<std::string>;

constexpr std::size_t kWidth = 80;

// Four digits that count, and no more than a Monte Carlo mean has.
std::string figure(double value) {
    if (!std::isfinite(value)) {
        return "-";
    }
    return value == std::floor(value) && std::fabs(value) < 1e9 ? fmt::format("{:.0f}", value)
                                                                : fmt::format("{:.4g}", value);
}

std::string p_text(double value) {
    return !std::isfinite(value) ? "-" : value < 0.001 ? "<0.001" : fmt::format("{:.3f}", value);
}

Row row_of(const GofStatistic& each) {
    return {each.name,
            figure(each.observed),
            figure(each.mean),
            figure(each.sd),
            figure(each.q05),
            figure(each.q95),
            std::isfinite(each.t_ratio) ? fmt::format("{:.2f}", each.t_ratio) : "-",
            p_text(each.p_value)};
}

std::string laid_out(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (const Row& row : rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            widths[k] = std::max(widths[k], text_width(row[k]));
        }
    }
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            const std::string blanks(widths[k] - text_width(row[k]), ' ');
            text += k == 0 ? row[k] + blanks : "  " + blanks + row[k];
        }
        text += "\n";
    }
    return text;
}

std::string section(const std::string& title, const std::vector<const GofStatistic*>& statistics) {
    if (statistics.empty()) {
        return "";
    }
    std::vector<Row> rows = {{title, "observed", "mean", "sd", "5%", "95%", "t-ratio", "p"}};
    for (const GofStatistic* each : statistics) {
        rows.push_back(row_of(*each));
    }
    return laid_out(rows) + "\n";
}

double distance(const GofStatistic& statistic) {
    return std::isfinite(statistic.t_ratio) ? std::fabs(statistic.t_ratio) : HUGE_VAL;
}

}  // namespace

std::string gof_table(const GofRecord& record) {
    std::vector<const GofStatistic*> misfits;
    std::vector<const GofStatistic*> fits;
    for (const GofStatistic& each : record.gof.statistics) {
        (is_misfit(each) ? misfits : fits).push_back(&each);
    }
    std::stable_sort(
        misfits.begin(), misfits.end(),
        [](const GofStatistic* a, const GofStatistic* b) { return distance(*a) > distance(*b); });
    std::string text = section("does not fit", misfits) + section("fits", fits);
    std::vector<Row> lines = {{"distribution", ""}};
    std::size_t width = lines[0][0].size();
    for (const GofDistribution& each : record.gof.distributions) {
        width = std::max(width, text_width(each.name));
    }
    text += "distribution\n";
    for (const GofDistribution& each : record.gof.distributions) {
        const std::string words = gof_words(each, record.gof.samples, record.network.directed);
        const std::string lead = each.name + std::string(width - text_width(each.name) + 2, ' ');
        text += wrapped(!each.judged    ? "see components, largest-component"
                        : words.empty() ? "fits"
                                        : words,
                        std::max(kWidth, width + 30), lead);
    }
    if (std::isfinite(record.gof.mahalanobis)) {
        text += fmt::format("\nall statistics together: Mahalanobis distance {}, p {}\n",
                            figure(record.gof.mahalanobis), p_text(record.gof.mahalanobis_p_value));
    }
    return text + "\n" + wrapped(record.conclusion, kWidth);
}
