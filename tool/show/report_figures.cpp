#include "show/report_figures.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <set>

#include "show/document_pieces.h"
#include "show/report_page.h"

namespace {

ResultLabel label_of(const ReportSource& source) {
    return {source.name, is_usable(source.result), verdict_words(source.result)};
}

// A name that no figure before has; of several results with the result's number.
class Names {
  public:
    explicit Names(bool several) : several_(several) {}
    std::string name(const std::string& what, int source) {
        std::string wanted = file_word(what);
        if (several_ && source >= 0) {
            wanted += "-" + std::to_string(source + 1);
        }
        std::string name = wanted;
        for (int k = 2; !taken_.insert(name).second; ++k) {
            name = wanted + "-" + std::to_string(k);
        }
        return name;
    }

  private:
    bool several_;
    std::set<std::string> taken_;
};

Drawing estimates_drawing(const std::vector<ReportSource>& sources) {
    std::vector<DrawnResult> results;
    for (const ReportSource& source : sources) {
        DrawnResult result{label_of(source), {}};
        for (const ResultEffect& each : source.result.effects) {
            result.estimates.push_back({each.name, each.estimate, each.lower, each.upper,
                                        each.fixed, supported_decimals(each)});
        }
        results.push_back(std::move(result));
    }
    return forest_figure(results);
}

bool names_attribute(const StudyModel& model, const std::string& name) {
    return std::any_of(model.effects.begin(), model.effects.end(),
                       [&](const StudyEffect& each) { return each.expression.argument == name; });
}

// The attribute that colours the network: one of the model's, else the first that has few values.
const StudyAttribute* drawn_attribute(const Study& study) {
    const StudyAttribute* first = nullptr;
    for (const StudyAttribute& each : study.attributes) {
        const std::set<double> values(each.values.begin(), each.values.end());
        if (each.type == AttributeType::continuous || values.size() > kMarks) {
            continue;
        }
        if (names_attribute(study.model, each.name)) {
            return &each;
        }
        first = first == nullptr ? &each : first;
    }
    return first;
}

bool same_network(const ReportSource& a, const ReportSource& b) {
    return a.study && b.study && a.study->network.actors == b.study->network.actors &&
           a.study->network.ties == b.study->network.ties;
}

void add_networks(const std::vector<ReportSource>& sources, Names& names,
                  std::vector<NamedFigure>& figures) {
    for (std::size_t k = 0; k < sources.size(); ++k) {
        const bool drawn = std::any_of(
            sources.begin(), sources.begin() + static_cast<std::ptrdiff_t>(k),
            [&](const ReportSource& before) { return same_network(before, sources[k]); });
        if (!sources[k].study || drawn) {
            continue;
        }
        const Study& study = *sources[k].study;
        const int number = static_cast<int>(k);
        figures.push_back(
            {names.name("network", number), FigurePart::network, number,
             network_figure(study.network, network_places(study.network), drawn_attribute(study))});
    }
}

const SampledStatistic* samples_of(const ReportSource& source, const std::string& effect) {
    const auto place =
        std::find_if(source.samples.begin(), source.samples.end(),
                     [&](const SampledStatistic& each) { return each.effect == effect; });
    return place == source.samples.end() ? nullptr : &*place;
}

double observed_of(const ReportSource& source, const std::string& effect) {
    for (const ResultEffect& each : source.result.effects) {
        if (each.name == effect) {
            return each.observed;
        }
    }
    return kNoNumber;
}

std::vector<std::string> sampled_effects(const std::vector<ReportSource>& sources) {
    std::vector<std::string> effects;
    for (const ReportSource& source : sources) {
        for (const SampledStatistic& each : source.samples) {
            if (std::find(effects.begin(), effects.end(), each.effect) == effects.end()) {
                effects.push_back(each.effect);
            }
        }
    }
    return effects;
}

// What all results together span in a statistic.
struct Span {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    void add(double value) {
        if (std::isfinite(value)) {
            low = std::min(low, value);
            high = std::max(high, value);
        }
    }
};

Span span_of(const std::vector<ReportSource>& sources, const std::string& effect) {
    Span span;
    for (const ReportSource& source : sources) {
        if (const SampledStatistic* sampled = samples_of(source, effect)) {
            for (const std::vector<double>& chain : sampled->chains) {
                for (const double value : chain) {
                    span.add(value);
                }
            }
            span.add(observed_of(source, effect));
        }
    }
    return span;
}

// Whether any step of the way is known, and the effect was not held on it.
bool has_path(const ReportSource& source, std::size_t effect) {
    return effect < source.result.effects.size() && !source.result.effects[effect].fixed &&
           std::any_of(source.result.path.begin(), source.result.path.end(),
                       [&](const PathStage& stage) { return !stage.parameters.empty(); });
}

DrawnPath drawn_path(const ReportSource& source, std::size_t effect) {
    DrawnPath path{label_of(source),
                   source.result.effects[effect].name,
                   source.result.effects[effect].estimate,
                   {},
                   {},
                   supported_decimals(source.result.effects[effect])};
    for (const PathStage& stage : source.result.path) {
        path.stages.push_back(stage.name);
        path.values.emplace_back();
        for (const std::vector<double>& row : stage.parameters) {
            path.values.back().push_back(effect < row.size() ? row[effect] : kNoNumber);
        }
    }
    return path;
}

void add_paths(const std::vector<ReportSource>& sources, Names& names,
               std::vector<NamedFigure>& figures) {
    for (std::size_t k = 0; k < sources.size(); ++k) {
        for (std::size_t effect = 0; effect < sources[k].result.effects.size(); ++effect) {
            if (has_path(sources[k], effect)) {
                const int number = static_cast<int>(k);
                figures.push_back(
                    {names.name("path-" + sources[k].result.effects[effect].name, number),
                     FigurePart::path, number, path_figure(drawn_path(sources[k], effect))});
            }
        }
    }
}

void add_samples(const std::vector<ReportSource>& sources, Names& names,
                 std::vector<NamedFigure>& figures) {
    for (const std::string& effect : sampled_effects(sources)) {
        const Span span = span_of(sources, effect);
        for (std::size_t k = 0; k < sources.size(); ++k) {
            const SampledStatistic* sampled = samples_of(sources[k], effect);
            if (sampled == nullptr || !(span.low <= span.high)) {
                continue;
            }
            const int number = static_cast<int>(k);
            const DrawnSample sample{label_of(sources[k]), effect, observed_of(sources[k], effect),
                                     sampled->chains};
            figures.push_back({names.name("trace-" + effect, number), FigurePart::samples, number,
                               trace_figure(sample)});
            figures.push_back({names.name("histogram-" + effect, number), FigurePart::samples,
                               number, histogram_figure(sample, span.low, span.high)});
        }
    }
}

const GofDistribution* distribution_of(const ReportSource& source, const std::string& name) {
    if (!source.gof) {
        return nullptr;
    }
    for (const GofDistribution& each : source.gof->gof.distributions) {
        if (each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

// The label of a test of fit is that of the estimates it was made at.
ResultLabel fit_label(const ReportSource& source) {
    ResultLabel label = label_of(source);
    label.usable = label.usable && source.gof->exit_status == 0;
    return label;
}

void add_fit(const std::vector<ReportSource>& sources, Names& names,
             std::vector<NamedFigure>& figures) {
    std::vector<std::string> distributions;
    for (std::size_t k = 0; k < sources.size(); ++k) {
        if (!sources[k].gof) {
            continue;
        }
        const int number = static_cast<int>(k);
        figures.push_back(
            {names.name("gof-statistics", number), FigurePart::fit, number,
             statistics_figure(sources[k].gof->gof.statistics, fit_label(sources[k]))});
        for (const GofDistribution& each : sources[k].gof->gof.distributions) {
            if (std::find(distributions.begin(), distributions.end(), each.name) ==
                distributions.end()) {
                distributions.push_back(each.name);
            }
        }
    }
    for (const std::string& name : distributions) {
        double highest = 0.0;
        for (const ReportSource& source : sources) {
            if (const GofDistribution* each = distribution_of(source, name)) {
                highest = std::max(highest, highest_of(*each));
            }
        }
        for (std::size_t k = 0; k < sources.size(); ++k) {
            if (const GofDistribution* each = distribution_of(sources[k], name)) {
                const int number = static_cast<int>(k);
                figures.push_back({names.name("gof-" + name, number), FigurePart::fit, number,
                                   distribution_figure(*each, fit_label(sources[k]), highest)});
            }
        }
    }
}

}  // namespace

std::string file_word(const std::string& text) {
    std::string word;
    for (const char each : text) {
        const auto byte = static_cast<unsigned char>(each);
        if (byte < 0x80 && std::isalnum(byte) != 0) {
            word += each;
        } else if (!word.empty() && word.back() != '-') {
            word += '-';
        }
    }
    while (!word.empty() && word.back() == '-') {
        word.pop_back();
    }
    return word.substr(0, 60);
}

std::string verdict_words(const ResultRecord& result) { return in_words(result.verdict); }

std::vector<NamedFigure> report_figures(const std::vector<ReportSource>& sources) {
    Names names(sources.size() > 1);
    std::vector<NamedFigure> figures;
    figures.push_back(
        {names.name("estimates", -1), FigurePart::estimates, -1, estimates_drawing(sources)});
    add_networks(sources, names, figures);
    add_paths(sources, names, figures);
    add_samples(sources, names, figures);
    add_fit(sources, names, figures);
    return figures;
}
