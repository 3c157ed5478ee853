#include "show/report_page.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "pictures/axis.h"
#include "show/page_pieces.h"
#include "study/counted.h"
#include "study/effect_expression.h"

namespace {

std::string ties_words(const ResultNetwork& network) {
    return counted(network.ties, network.directed ? "arc" : "tie");
}

// -- Verdict

const char* meaning_of(const ResultRecord& result) {
    if (result.verdict == "converged" && result.method == "exact") {
        return "In this model dyads do not depend on each other, so the maximum of the likelihood "
               "was "
               "computed; nothing was simulated. The estimates can be used.";
    }
    if (result.verdict == "converged") {
        return "Networks simulated at the estimates have, on average, the statistics of the "
               "observed network: every t-ratio is below 0.1 in size. The estimates can be used.";
    }
    if (result.verdict == "not_converged") {
        return "Networks simulated at the estimates do not have the statistics of the observed "
               "network. The estimates are not to be used; neither is what follows from them.";
    }
    if (result.verdict == "not_identified") {
        return "The data cannot tell some parameters apart, or one of them would be infinite. "
               "The estimates are not to be used.";
    }
    if (result.verdict == "degenerate") {
        return "Networks of the model fall apart into nearly empty and nearly complete ones, or "
               "never move. The estimates are not to be used.";
    }
    return "Networks were simulated at values that were given; nothing was estimated.";
}

std::string verdict_section(const ReportSource& source) {
    const ResultRecord& result = source.result;
    std::string words = verdict_words(result);
    words = words.empty() ? "not estimated" : words;
    std::string text = fmt::format("<section class=\"verdict{}\">\n<h3>{}: {}</h3>\n<p>{}</p>\n",
                                   is_usable(result) ? "" : " bad", name_text(source.name),
                                   escaped(words), meaning_of(result));
    if (!result.reasons.empty()) {
        text += "<ul>\n";
        for (const std::string& reason : result.reasons) {
            text += "<li>" + escaped(reason) + "</li>\n";
        }
        text += "</ul>\n";
    }
    if (!result.advice.empty()) {
        text += "<p>What to try next, in order:</p>\n<pre>";
        for (const std::string& command : result.advice) {
            text += escaped(command) + "\n";
        }
        text += "</pre>\n";
    }
    return text + "</section>\n";
}

// -- Estimates

std::string estimates_table(const ReportSource& source) {
    std::string text =
        "<div class=\"scroll\"><table>\n<caption>" + name_text(source.name) +
        (is_usable(source.result) ? ""
                                  : " \xE2\x80\x93 " + escaped(verdict_words(source.result)) +
                                        ": do not use these estimates") +
        "</caption>\n<thead>" +
        row("th", {"effect", "estimate", "std. error", "lower 95%", "upper 95%", "odds ratio", "p",
                   "t-ratio"}) +
        "</thead>\n<tbody>\n";
    for (const ResultEffect& each : source.result.effects) {
        const int places = supported_decimals(each);
        text += row("td", {name_text(each.name), decimals(each.estimate, places),
                           each.fixed ? "held" : decimals(each.standard_error, places),
                           decimals(each.lower, places), decimals(each.upper, places),
                           std::isfinite(each.odds_ratio) ? fmt::format("{:.3g}", each.odds_ratio)
                                                          : "\xE2\x80\x93",
                           p_text(each.p_value), decimals(each.t_ratio, 3)});
    }
    return text + "</tbody></table></div>\n";
}

// -- Figures

// The figures of one part of the page; `number` counts all of the page.
std::string figures_of(FigurePart part, const std::vector<ReportSource>& sources,
                       const std::vector<NamedFigure>& figures, int source = -1) {
    std::string text;
    for (const NamedFigure& figure : figures) {
        if (figure.part != part || (source >= 0 && figure.source != source)) {
            continue;
        }
        std::string caption = escaped(figure.drawing.title());
        if (figure.source >= 0 && sources.size() > 1) {
            caption += ", " + name_text(sources[static_cast<std::size_t>(figure.source)].name);
        }
        text += figure_element(figure, caption);
    }
    return figure_grid(text);
}

// -- Fit

std::string fit_table(const GofRecord& record) {
    std::string text =
        "<details><summary>all statistics</summary>\n<div class=\"scroll\"><table>\n<thead>" +
        row("th", {"statistic", "observed", "mean", "sd", "5%", "95%", "t-ratio", "p"}) +
        "</thead>\n<tbody>\n";
    for (const GofStatistic& each : record.gof.statistics) {
        text += row("td", {name_text(each.name), number_for_people(each.observed),
                           number_for_people(each.mean), number_for_people(each.sd),
                           number_for_people(each.q05), number_for_people(each.q95),
                           decimals(each.t_ratio, 2), p_text(each.p_value)});
    }
    return text + "</tbody></table></div></details>\n";
}

std::string fit_section(const std::vector<ReportSource>& sources,
                        const std::vector<NamedFigure>& figures) {
    std::string text = "<h2>Goodness of fit</h2>\n";
    bool any = false;
    for (const ReportSource& source : sources) {
        if (!source.gof) {
            continue;
        }
        any = true;
        const GofRecord& gof = *source.gof;
        text += fmt::format("<p>{}: {}{}. {}.{}</p>\n", name_text(source.name),
                            counted(gof.gof.samples, "simulated network"),
                            gof.bayesian ? " at parameters drawn around the estimates" : "",
                            escaped(gof.conclusion),
                            gof.exit_status == 0 ? "" : " The estimates are not to be used.");
    }
    if (!any) {
        std::string folders;
        for (const ReportSource& source : sources) {
            folders += escaped("ovri gof " + source.name) + "\n";
        }
        return text + "<p>Not tested yet:</p>\n<pre>" + folders + "</pre>\n";
    }
    text +=
        "<p>In the figures of distributions a box spans the middle half of the simulated "
        "networks, its whiskers reach the 5% and 95% points, the line in it is the median and "
        "the diamond the mean; dots are the observed network.</p>\n";
    text += figures_of(FigurePart::fit, sources, figures);
    for (const ReportSource& source : sources) {
        text += source.gof ? fit_table(*source.gof) : "";
    }
    return text;
}

// -- For a paper

struct Reference {
    const char* key;
    const char* text;
};
constexpr std::array kReferences = std::to_array<Reference>({
    {"Frank and Strauss 1986",
     "Frank, O., and Strauss, D. (1986). Markov graphs. Journal of the American Statistical "
     "Association 81, 832\xE2\x80\x93"
     "842."},
    {"Geyer and Thompson 1992",
     "Geyer, C. J., and Thompson, E. A. (1992). Constrained Monte Carlo maximum likelihood for "
     "dependent data. Journal of the Royal Statistical Society B 54, 657\xE2\x80\x93"
     "699."},
    {"Hunter and Handcock 2006",
     "Hunter, D. R., and Handcock, M. S. (2006). Inference in curved exponential family models "
     "for networks. Journal of Computational and Graphical Statistics 15, 565\xE2\x80\x93"
     "583."},
    {"Hunter, Goodreau and Handcock 2008",
     "Hunter, D. R., Goodreau, S. M., and Handcock, M. S. (2008). Goodness of fit of social "
     "network models. Journal of the American Statistical Association 103, 248\xE2\x80\x93"
     "258."},
    {"Lusher, Koskinen and Robins 2013",
     "Lusher, D., Koskinen, J., and Robins, G. (eds.) (2013). Exponential Random Graph Models for "
     "Social Networks. Cambridge University Press."},
    {"Snijders 2002",
     "Snijders, T. A. B. (2002). Markov chain Monte Carlo estimation of exponential random graph "
     "models. Journal of Social Structure 3 (2)."},
    {"Snijders et al. 2006",
     "Snijders, T. A. B., Pattison, P. E., Robins, G. L., and Handcock, M. S. (2006). New "
     "specifications for exponential random graph models. Sociological Methodology 36, "
     "99\xE2\x80\x93"
     "153."},
    {"Strauss and Ikeda 1990",
     "Strauss, D., and Ikeda, M. (1990). Pseudolikelihood estimation for social networks. Journal "
     "of the American Statistical Association 85, 204\xE2\x80\x93"
     "212."},
});

std::string method_words(const std::string& method) {
    if (method == "mcmle") {
        return "Monte Carlo maximum likelihood (Geyer and Thompson 1992; Hunter and Handcock 2006)";
    }
    if (method == "exact") {
        return "maximum likelihood, computed, since dyads do not depend on each other in it";
    }
    if (method == "mple") {
        return "maximum pseudolikelihood (Strauss and Ikeda 1990)";
    }
    return "stochastic approximation of the maximum likelihood (Snijders 2002)";
}

std::string estimates_sentence(const ResultRecord& result) {
    std::string list;
    double largest = 0.0;
    for (const ResultEffect& each : result.effects) {
        const int places = supported_decimals(each);
        list += (list.empty() ? "" : ", ") + each.name + " " + decimals(each.estimate, places) +
                (each.fixed ? " (held)"
                            : " (standard error " + decimals(each.standard_error, places) + ")");
        largest =
            std::isfinite(each.t_ratio) ? std::max(largest, std::fabs(each.t_ratio)) : largest;
    }
    return "The estimates are: " + list +
           (largest > 0.0 ? fmt::format(". The model converged: the largest t-ratio of a statistic "
                                        "was {:.3f} in size.",
                                        largest)
                          : ".");
}

std::string paper_words(const ReportSource& source) {
    const ResultRecord& result = source.result;
    if (result.verdict != "converged") {
        return source.name + ": " +
               (result.verdict.empty() ? "nothing was estimated."
                                       : "the estimation ended " + verdict_words(result) +
                                             "; its estimates are not to be reported.");
    }
    const ResultNetwork& network = result.network;
    std::string text = fmt::format(
        "We fitted an exponential random graph model (Frank and Strauss 1986; Lusher, Koskinen and "
        "Robins 2013) to the {} network of {} and {} (density {:.3f}) with ovri {}, seed "
        "{}. The parameters were estimated by {}.",
        network.directed ? "directed" : "undirected", counted(network.actors, "actor"),
        ties_words(network), network.density, result.ovri, result.seed,
        method_words(result.method));
    const bool alternating =
        std::any_of(result.effects.begin(), result.effects.end(), [](const ResultEffect& each) {
            return parse_effect(each.name).expression.lambda.has_value();
        });
    if (alternating) {
        text +=
            " Alternating effects are those of Snijders et al. 2006, with the lambda in "
            "parentheses.";
    }
    text += " " + estimates_sentence(result);
    if (std::isfinite(result.likelihood.value)) {
        text += fmt::format(" The log-likelihood is {:.2f}, AIC {:.2f} and BIC {:.2f}.",
                            result.likelihood.value, result.likelihood.aic, result.likelihood.bic);
    }
    if (source.gof) {
        text += fmt::format(
            " We compared the observed network with {} simulated {} "
            "(Hunter, Goodreau and Handcock 2008): {}.",
            counted(source.gof->gof.samples, "network"),
            source.gof->bayesian ? "at parameters drawn around the estimates" : "at the estimates",
            source.gof->conclusion);
    }
    return text;
}

std::string paper_section(const std::vector<ReportSource>& sources) {
    std::string words;
    std::string text = "<h2>How to describe this in a paper</h2>\n";
    for (const ReportSource& source : sources) {
        const std::string paragraph = paper_words(source);
        words += paragraph;
        text += "<p>" + escaped(paragraph) + "</p>\n";
    }
    std::string list;
    for (const Reference& each : kReferences) {
        // "Snijders 2002" in the text, with or without its parentheses.
        if (words.find(each.key) != std::string::npos) {
            list += "<li>" + escaped(each.text) + "</li>\n";
        }
    }
    return list.empty() ? text : text + "<p>References</p>\n<ul>\n" + list + "</ul>\n";
}

// -- The rest

std::string diagnosis_section(const ReportSource& source) {
    const std::vector<std::string> lines = diagnosis_lines(source.result);
    if (lines.empty()) {
        return "";
    }
    std::string text = "<h3>" + name_text(source.name) + "</h3>\n<ul>\n";
    for (const std::string& line : lines) {
        text += "<li>" + escaped(line) + "</li>\n";
    }
    return text + "</ul>\n";
}

std::string repeat_section(const ReportSource& source) {
    std::string text = fmt::format("<h3>{}</h3>\n<p>ovri {}, seed {}, {}</p>\n",
                                   name_text(source.name), escaped(source.result.ovri),
                                   source.result.seed, escaped(source.result.network.file));
    if (!source.model_text.empty()) {
        text += "<details><summary>model.toml</summary><pre>" + escaped(source.model_text) +
                "</pre></details>\n";
    }
    if (!source.log_text.empty()) {
        text += "<details><summary>run.log</summary><pre>" + escaped(source.log_text) +
                "</pre></details>\n";
    }
    return text;
}

std::string title_of(const std::vector<ReportSource>& sources) {
    std::string title;
    for (const ReportSource& source : sources) {
        title += (title.empty() ? "" : ", ") + source.name;
    }
    return title;
}

}  // namespace

std::string report_page(const std::vector<ReportSource>& sources,
                        const std::vector<NamedFigure>& figures) {
    const std::string title = title_of(sources);
    std::string page = page_head(title);
    for (const ReportSource& source : sources) {
        const ResultNetwork& network = source.result.network;
        page +=
            fmt::format("<p>{}: {}, {}, density {}, {}</p>\n", name_text(network.file),
                        counted(network.actors, "actor"), ties_words(network),
                        decimals(network.density, 4), network.directed ? "directed" : "undirected");
    }
    for (const ReportSource& source : sources) {
        page += verdict_section(source);
    }
    page += "<h2>Estimates</h2>\n" + figures_of(FigurePart::estimates, sources, figures);
    for (const ReportSource& source : sources) {
        page += estimates_table(source);
    }
    page += "<h2>The network</h2>\n" + figures_of(FigurePart::network, sources, figures);
    for (const ReportSource& source : sources) {
        page += source.missing.empty() ? "" : "<p>" + escaped(source.missing) + "</p>\n";
    }
    if (const std::string drawn = figures_of(FigurePart::path, sources, figures); !drawn.empty()) {
        page += "<h2>How the estimates were found</h2>\n" + drawn;
    }
    if (const std::string drawn = figures_of(FigurePart::samples, sources, figures);
        !drawn.empty()) {
        page += "<h2>Networks simulated at the estimates</h2>\n" + drawn;
    }
    page += fit_section(sources, figures);
    std::string diagnosis;
    for (const ReportSource& source : sources) {
        diagnosis += diagnosis_section(source);
    }
    page += diagnosis.empty() ? "" : "<h2>Diagnosis</h2>\n" + diagnosis;
    page += paper_section(sources);
    page += "<h2>How to repeat this</h2>\n";
    for (const ReportSource& source : sources) {
        page += repeat_section(source);
    }
    return page + kPageEnd;
}
