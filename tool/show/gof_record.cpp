#include "show/gof_record.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// What stands at an entry of a distribution: "{}" takes the entries.
struct Wording {
    const char* name;
    const char* undirected;
    const char* directed;
};
constexpr std::array<Wording, 7> kWordings = {{
    {"degree", "actors of degree {}", "actors of degree {}"},
    {"in-degree", "actors with {} arcs in", "actors with {} arcs in"},
    {"out-degree", "actors with {} arcs out", "actors with {} arcs out"},
    {"edgewise-shared-partners", "ties with {} shared partners", "arcs with {} shared partners"},
    {"dyadwise-shared-partners", "pairs with {} shared partners",
     "ordered pairs with {} shared partners"},
    {"geodesic", "pairs at distance {}", "ordered pairs at distance {}"},
    {"triad-census", "triads with {} ties", "triads of class {}"},
}};

std::string described(const std::string& name, const std::string& entries, bool directed) {
    for (const Wording& each : kWordings) {
        if (name == each.name) {
            std::string text = directed ? each.directed : each.undirected;
            return text.replace(text.find("{}"), 2, entries);
        }
    }
    return (directed ? "arcs " : "ties ") + entries;
}

// "0, 3 and 10 to 17": the rows in ascending order, runs of three and more as ranges.
std::string listed(const GofDistribution& distribution, const std::vector<std::size_t>& rows) {
    std::vector<std::string> parts;
    for (std::size_t k = 0; k < rows.size();) {
        std::size_t end = k;
        while (end + 1 < rows.size() && rows[end + 1] == rows[end] + 1 &&
               distribution.rows[rows[end + 1]].number) {
            ++end;
        }
        const std::string& first = distribution.rows[rows[k]].at;
        if (end > k + 1 && distribution.rows[rows[k]].number) {
            parts.push_back(first + " to " + distribution.rows[rows[end]].at);
            k = end + 1;
        } else {
            parts.push_back(first == "inf" ? "infinity" : first);
            ++k;
        }
    }
    std::string text;
    for (std::size_t k = 0; k < parts.size(); ++k) {
        text += (k == 0 ? "" : k + 1 == parts.size() ? " and " : ", ") + parts[k];
    }
    return text;
}

std::string most_off(const StudyGof& gof, const std::vector<std::size_t>& misfits) {
    const auto size = [&gof](std::size_t k) {
        const double t = gof.statistics[k].t_ratio;
        return std::isfinite(t) ? std::fabs(t) : HUGE_VAL;
    };
    const std::size_t worst =
        *std::max_element(misfits.begin(), misfits.end(),
                          [&](std::size_t a, std::size_t b) { return size(a) < size(b); });
    const GofStatistic& statistic = gof.statistics[worst];
    const char* side = statistic.observed > statistic.mean ? "more" : "less";
    return std::isfinite(statistic.t_ratio)
               ? fmt::format("`{}`, {} than the model gives (t {:.1f})", statistic.name, side,
                             statistic.t_ratio)
               : fmt::format("`{}`, which is the same in every sample", statistic.name);
}

}  // namespace

std::string gof_words(const GofDistribution& distribution, int samples, bool directed) {
    std::vector<std::size_t> more;
    std::vector<std::size_t> fewer;
    for (const std::size_t row : misfit_rows(distribution, samples)) {
        const GofRow& each = distribution.rows[row];
        (each.observed > each.median ? more : fewer).push_back(row);
    }
    std::string text;
    if (!more.empty()) {
        text = "more " + described(distribution.name, listed(distribution, more), directed);
    }
    if (!fewer.empty()) {
        text += (more.empty() ? "fewer " : ", fewer ") +
                described(distribution.name, listed(distribution, fewer), directed);
    }
    return text.empty() ? text : text + " than the model gives";
}

std::string gof_conclusion(const StudyGof& gof, bool directed) {
    std::vector<std::size_t> misfits;
    for (std::size_t k = 0; k < gof.statistics.size(); ++k) {
        if (is_misfit(gof.statistics[k])) {
            misfits.push_back(k);
        }
    }
    std::string distributions;
    for (const GofDistribution& each : gof.distributions) {
        const std::string words = gof_words(each, gof.samples, directed);
        distributions += words.empty() ? "" : "; " + each.name + ": " + words;
    }
    const std::size_t all = gof.statistics.size();
    if (misfits.empty()) {
        return distributions.empty()
                   ? fmt::format(
                         "the model fits: none of {} statistics is more than two standard "
                         "deviations off, and no distribution stands out",
                         all)
                   : fmt::format("none of {} statistics is more than two standard deviations off",
                                 all) +
                         distributions;
    }
    return fmt::format(
               "the model misses {} of {} statistics (chance alone: about {:.0f}), most "
               "of all {}",
               misfits.size(), all, std::ceil(0.05 * static_cast<double>(all)),
               most_off(gof, misfits)) +
           distributions;
}
