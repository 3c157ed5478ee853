#include "show/pooled_page.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <set>

#include "show/document_pieces.h"
#include "show/page_pieces.h"

namespace {

using Json = nlohmann::ordered_json;

PooledEstimate pooled_of(const Json& json) {
    return {json.at("networks").get<int>(),
            number_at(json, "mean"),
            number_at(json, "standard_error"),
            number_at(json, "z"),
            number_at(json, "p_value"),
            number_at(json, "variance"),
            number_at(json, "q"),
            json.at("q_degrees").get<int>(),
            number_at(json, "q_p_value")};
}

// A network's job in the pool is the first of the model's that converged.
void add_networks(const Json& jobs, PooledRuns& runs) {
    std::set<std::string> used;
    for (const Json& job : jobs) {
        const auto network = job.at("network").get<std::string>();
        if (job.at("model") != runs.model || job.at("verdict") != "converged" ||
            !used.insert(network).second) {
            continue;
        }
        for (const Json& effect : job.at("effects")) {
            const GroupEstimate found = {number_at(effect, "estimate"),
                                         number_at(effect, "standard_error")};
            for (PooledEffect& each : runs.effects) {
                if (each.name == effect.at("name") && found.standard_error > 0.0) {
                    each.networks.push_back({network, found});
                }
            }
        }
    }
}

PooledRuns runs_of(const Json& pooled, const Json& jobs) {
    PooledRuns runs;
    runs.model = pooled.at("model").get<std::string>();
    for (const Json& effect : pooled.at("effects")) {
        runs.effects.push_back({effect.at("name").get<std::string>(), {}, pooled_of(effect)});
    }
    for (const Json& each : pooled.at("left_out")) {
        runs.left_out.emplace_back(each.at("network").get<std::string>(),
                                   each.at("verdict").get<std::string>());
    }
    add_networks(jobs, runs);
    return runs;
}

SummaryRecord summary_of(const Json& json) {
    SummaryRecord summary;
    summary.ovri = json.at("ovri").get<std::string>();
    summary.plan = json.at("plan").get<std::string>();
    summary.jobs = json.at("counts").at("jobs").get<int>();
    summary.converged = json.at("counts").at("converged").get<int>();
    for (const Json& job : json.at("jobs")) {
        if (job.at("verdict") != "converged") {
            summary.troubled.push_back({std::to_string(job.at("job").get<int>()),
                                        job.at("network").get<std::string>(),
                                        job.at("model").get<std::string>(),
                                        std::to_string(job.at("seed").get<std::uint32_t>()),
                                        job.at("verdict").get<std::string>()});
        }
    }
    for (const Json& each : json.at("pooled")) {
        summary.models.push_back(runs_of(each, json.at("jobs")));
    }
    return summary;
}

DrawnEstimate drawn(const std::string& name, double estimate, double standard_error) {
    ResultEffect effect;
    effect.estimate = estimate;
    effect.standard_error = standard_error;
    judge_effect(effect, true);
    return {name, estimate, effect.lower, effect.upper, false};
}

DrawnPool drawn_pool(const PooledRuns& runs, const PooledEffect& effect) {
    DrawnPool pool;
    pool.model = runs.model;
    for (const PooledNetwork& each : effect.networks) {
        pool.networks.push_back(
            drawn(each.network, each.estimate.estimate, each.estimate.standard_error));
    }
    pool.pooled = drawn(effect.name, effect.pooled.mean, effect.pooled.standard_error);
    pool.left_out = static_cast<int>(runs.left_out.size());
    return pool;
}

// Decimals that tell a tenth of a standard error.
int places_of(double standard_error) {
    return standard_error > 0.0
               ? std::clamp(static_cast<int>(std::ceil(1.0 - std::log10(standard_error))), 0, 6)
               : 3;
}

std::string pooled_table(const PooledRuns& runs) {
    std::string text = "<div class=\"scroll\"><table>\n<thead>" +
                       row("th", {"effect", "networks", "mean", "std. error", "p", "variance", "Q",
                                  "df", "p of Q"}) +
                       "</thead>\n<tbody>\n";
    for (const PooledEffect& each : runs.effects) {
        const PooledEstimate& found = each.pooled;
        const int places = places_of(found.standard_error);
        text += row("td", {name_text(each.name), std::to_string(found.groups),
                           decimals(found.mean, places), decimals(found.standard_error, places),
                           p_text(found.p_value), decimals(found.variance, 4), decimals(found.q, 2),
                           std::to_string(found.degrees), p_text(found.q_p_value)});
    }
    text += "</tbody></table></div>\n";
    for (const auto& [network, verdict] : runs.left_out) {
        text += "<p>left out: " + name_text(network) + " (" + escaped(verdict) + ")</p>\n";
    }
    return text;
}

std::string ends_section(const SummaryRecord& summary) {
    const bool good = summary.converged == summary.jobs;
    std::string text = fmt::format(
        "<section class=\"verdict{}\">\n<h3>{} of {} jobs converged</h3>\n<p>{}</p>\n</section>\n",
        good ? "" : " bad", summary.converged, summary.jobs,
        good ? "Every job's estimates can be used."
             : "Estimates of the jobs below are not to be used, and are in no figure.");
    if (!good) {
        text += "<div class=\"scroll\"><table>\n<thead>" +
                row("th", {"job", "network", "model", "seed", "verdict"}) + "</thead>\n<tbody>\n";
        for (std::vector<std::string> cells : summary.troubled) {
            std::transform(cells.begin(), cells.end(), cells.begin(), name_text);
            text += row("td", cells);
        }
        text += "</tbody></table></div>\n";
    }
    return text;
}

}  // namespace

std::optional<SummaryRecord> read_summary_json(const std::string& text) {
    try {
        const Json json = Json::parse(text);
        if (json.at("format") != "ovri-summary/1") {
            return std::nullopt;
        }
        return summary_of(json);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

std::vector<NamedFigure> pooled_figures(const SummaryRecord& summary) {
    std::vector<NamedFigure> figures;
    for (std::size_t k = 0; k < summary.models.size(); ++k) {
        for (const PooledEffect& each : summary.models[k].effects) {
            figures.push_back({fmt::format("pooled-{}-{}", k + 1, file_word(each.name)),
                               FigurePart::pooled, static_cast<int>(k),
                               pooled_figure(drawn_pool(summary.models[k], each))});
        }
    }
    return figures;
}

std::string pooled_page(const std::string& name, const SummaryRecord& summary,
                        const std::vector<NamedFigure>& figures) {
    std::string page =
        page_head(name) +
        fmt::format("<p>{}, ovri {}</p>\n", name_text(summary.plan), escaped(summary.ovri));
    page += ends_section(summary);
    for (std::size_t k = 0; k < summary.models.size(); ++k) {
        page += "<h2>" + name_text(summary.models[k].model) + " over networks</h2>\n" +
                "<p>Means by weighted least squares (Snijders and Baerveldt 2003): each network's "
                "estimate is the mean, plus a deviation of that network, plus an error of known "
                "size. Q tests that networks do not deviate.</p>\n";
        std::string drawn_here;
        for (const NamedFigure& figure : figures) {
            if (figure.source == static_cast<int>(k)) {
                drawn_here += figure_element(figure, escaped(figure.drawing.title()));
            }
        }
        page += figure_grid(drawn_here) + pooled_table(summary.models[k]);
    }
    if (summary.models.empty()) {
        page += "<p>The plan has one network: there is nothing to pool.</p>\n";
    } else {
        page +=
            "<p>Reference</p>\n<ul><li>Snijders, T. A. B., and Baerveldt, C. (2003). A multilevel "
            "network study of the effects of delinquent behavior on friendship evolution. Journal "
            "of Mathematical Sociology 27, 123\xE2\x80\x93"
            "151.</li></ul>\n";
    }
    return page + kPageEnd;
}
