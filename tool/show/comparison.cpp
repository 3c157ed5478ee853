#include "show/comparison.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "formats/csv.h"
#include "show/document_pieces.h"
#include "show/text_table.h"
#include "study/pooling.h"

namespace {

using Json = nlohmann::ordered_json;
using Row = std::vector<std::string>;

constexpr const char* kFormat = "ovri-compare/1";

const ResultEffect* effect_named(const ResultRecord& result, const std::string& name) {
    const auto place =
        std::find_if(result.effects.begin(), result.effects.end(),
                     [&name](const ResultEffect& each) { return each.name == name; });
    return place != result.effects.end() ? &*place : nullptr;
}

bool is_estimated(const ResultRecord& result, const std::string& name) {
    const ResultEffect* effect = effect_named(result, name);
    return effect != nullptr && !effect->fixed;
}

// Of an effect that is not estimated.
double held_value(const ResultRecord& result, const std::string& name) {
    const ResultEffect* effect = effect_named(result, name);
    return effect != nullptr ? effect->estimate : 0.0;
}

int estimated_parameters(const ResultRecord& result) {
    return static_cast<int>(std::count_if(result.effects.begin(), result.effects.end(),
                                          [](const ResultEffect& each) { return !each.fixed; }));
}

std::string verdict_of(const ResultRecord& result) {
    std::string name = result.verdict;
    std::replace(name.begin(), name.end(), '_', ' ');
    return name;
}

// A maximum of the pseudo-likelihood is none of the likelihood, whatever value stands there.
std::string why_left_out(const ResultRecord& result) {
    if (result.exit_status != 0) {
        return verdict_of(result) + ": do not use its estimates; it is in no test";
    }
    if (!std::isfinite(result.likelihood.value)) {
        return "it has no log-likelihood, and is in no test";
    }
    return result.method == "mple" ? "maximum pseudo-likelihood: it is in no test" : "";
}

void mark_best(double ResultLikelihood::*criterion, bool ComparedModel::*mark,
               std::vector<ComparedModel>& models) {
    ComparedModel* best = nullptr;
    int candidates = 0;
    for (ComparedModel& model : models) {
        const double value = model.result.likelihood.*criterion;
        if (!model.left_out.empty() || !std::isfinite(value)) {
            continue;
        }
        ++candidates;
        if (best == nullptr || value < best->result.likelihood.*criterion) {
            best = &model;
        }
    }
    if (candidates > 1) {
        best->*mark = true;
    }
}

// A likelihood that was computed has no Monte Carlo error.
double error_of(const ResultRecord& result) {
    return std::isfinite(result.likelihood.mc_error) ? result.likelihood.mc_error : 0.0;
}

LikelihoodRatio test_of(const std::vector<ComparedModel>& models, std::size_t smaller,
                        std::size_t larger) {
    const ResultRecord& less = models[smaller].result;
    const ResultRecord& more = models[larger].result;
    LikelihoodRatio test{.smaller = smaller, .larger = larger};
    test.statistic = 2.0 * (more.likelihood.value - less.likelihood.value);
    test.mc_error = 2.0 * std::hypot(error_of(more), error_of(less));
    test.degrees = models[larger].parameters - models[smaller].parameters;
    test.p_value = chi_squared_tail(test.statistic, test.degrees);
    return test;
}

// Names of the effects of all models, in the order in which they first come.
std::vector<std::string> all_effects(const Comparison& comparison) {
    std::vector<std::string> names;
    for (const ComparedModel& model : comparison.models) {
        for (const ResultEffect& effect : model.result.effects) {
            if (std::find(names.begin(), names.end(), effect.name) == names.end()) {
                names.push_back(effect.name);
            }
        }
    }
    return names;
}

// -- Table

// What stands behind an estimate.
std::string certainty(const ResultEffect& effect) {
    return effect.fixed ? " (held)"
           : std::isfinite(effect.standard_error)
               ? fmt::format(" ({:.{}f})", effect.standard_error, table_decimals(effect))
               : "";
}

// The estimates of a model stand below each other by their points.
std::string estimate_cell(const ResultRecord& result, const std::string& name) {
    const ResultEffect* effect = effect_named(result, name);
    if (effect == nullptr) {
        return "";
    }
    std::size_t widest = 0;
    for (const ResultEffect& each : result.effects) {
        widest = std::max(widest, certainty(each).size());
    }
    return aligned_decimals(effect->estimate, table_decimals(*effect), most_decimals(result)) +
           fmt::format("{:<{}}", certainty(*effect), widest);
}

std::string best_cell(double value, bool best) {
    return (best ? "best  " : "") + decimals_or_dash(value, 2);
}

template <class Cell>
Row row_of(const std::string& head, const Comparison& comparison, const Cell& cell) {
    Row row = {head};
    for (const ComparedModel& model : comparison.models) {
        row.push_back(cell(model));
    }
    return row;
}

std::string models_text(const Comparison& comparison) {
    using Model = const ComparedModel&;
    std::vector<Row> rows = {
        row_of("effect", comparison, [](Model each) { return each.name; }),
        row_of("", comparison, [](Model each) { return verdict_of(each.result); })};
    for (const std::string& name : all_effects(comparison)) {
        rows.push_back(row_of(name, comparison,
                              [&name](Model each) { return estimate_cell(each.result, name); }));
    }
    rows.push_back(row_of("", comparison, [](Model) { return std::string(); }));
    rows.push_back(row_of("parameters", comparison,
                          [](Model each) { return std::to_string(each.parameters); }));
    rows.push_back(row_of("log-likelihood", comparison, [](Model each) {
        return decimals_or_dash(each.result.likelihood.value, 2);
    }));
    rows.push_back(row_of("mc error", comparison, [](Model each) {
        return decimals_or_dash(each.result.likelihood.mc_error, 2);
    }));
    rows.push_back(row_of("AIC", comparison, [](Model each) {
        return best_cell(each.result.likelihood.aic, each.best_aic);
    }));
    rows.push_back(row_of("BIC", comparison, [](Model each) {
        return best_cell(each.result.likelihood.bic, each.best_bic);
    }));
    return text_table(rows);
}

std::string p_text(double value) { return value < 0.001 ? "<0.001" : fmt::format("{:.3f}", value); }

std::string tests_text(const Comparison& comparison) {
    if (comparison.tests.empty()) {
        return "no model is nested in another: no likelihood-ratio test\n";
    }
    std::vector<Row> rows = {
        {"likelihood-ratio test", "larger model", "statistic", "mc error", "df", "p"}};
    for (const LikelihoodRatio& test : comparison.tests) {
        rows.push_back({comparison.models[test.smaller].name, comparison.models[test.larger].name,
                        fmt::format("{:.2f}", test.statistic), fmt::format("{:.2f}", test.mc_error),
                        std::to_string(test.degrees), p_text(test.p_value)});
    }
    return text_table(rows);
}

// -- CSV and JSON

Json effect_json(const ResultEffect& effect) {
    Json json;
    json["name"] = effect.name;
    json["estimate"] = json_number(effect.estimate);
    json["standard_error"] = json_number(effect.standard_error);
    json["mc_error"] = json_number(effect.mc_error);
    json["fixed"] = effect.fixed;
    return json;
}

Json model_json(const ComparedModel& model) {
    const ResultRecord& result = model.result;
    Json json;
    json["results"] = model.name;
    json["verdict"] = result.verdict;
    json["exit_status"] = result.exit_status;
    json["left_out"] = json_text(model.left_out);
    json["method"] = result.method;
    json["seed"] = result.seed;
    json["effects"] = Json::array();
    for (const ResultEffect& effect : result.effects) {
        json["effects"].push_back(effect_json(effect));
    }
    json["parameters"] = model.parameters;
    json["log_likelihood"] = json_number(result.likelihood.value);
    json["mc_error"] = json_number(result.likelihood.mc_error);
    json["aic"] = json_number(result.likelihood.aic);
    json["bic"] = json_number(result.likelihood.bic);
    json["best_aic"] = model.best_aic;
    json["best_bic"] = model.best_bic;
    return json;
}

Json test_json(const LikelihoodRatio& test, const std::vector<ComparedModel>& models) {
    Json json;
    json["smaller"] = models[test.smaller].name;
    json["larger"] = models[test.larger].name;
    json["statistic"] = json_number(test.statistic);
    json["mc_error"] = json_number(test.mc_error);
    json["df"] = test.degrees;
    json["p_value"] = json_number(test.p_value);
    return json;
}

}  // namespace

bool is_nested(const ResultRecord& smaller, const ResultRecord& larger) {
    bool more = false;
    for (const ResultEffect& effect : larger.effects) {
        const bool estimated = is_estimated(smaller, effect.name);
        if (effect.fixed && (estimated || held_value(smaller, effect.name) != effect.estimate)) {
            return false;
        }
        more = more || (!effect.fixed && !estimated);
    }
    // What only the smaller one names, the larger one holds at 0.
    return more && std::all_of(smaller.effects.begin(), smaller.effects.end(),
                               [&larger](const ResultEffect& effect) {
                                   return effect_named(larger, effect.name) != nullptr ||
                                          (effect.fixed && effect.estimate == 0.0);
                               });
}

Comparison comparison_of(std::vector<ComparedModel> models) {
    for (ComparedModel& model : models) {
        model.parameters = estimated_parameters(model.result);
        model.left_out = why_left_out(model.result);
    }
    mark_best(&ResultLikelihood::aic, &ComparedModel::best_aic, models);
    mark_best(&ResultLikelihood::bic, &ComparedModel::best_bic, models);
    Comparison comparison{.ovri = OVRI_VERSION, .models = std::move(models), .tests = {}};
    const std::vector<ComparedModel>& all = comparison.models;
    for (std::size_t smaller = 0; smaller < all.size(); ++smaller) {
        for (std::size_t larger = 0; larger < all.size(); ++larger) {
            if (all[smaller].left_out.empty() && all[larger].left_out.empty() &&
                is_nested(all[smaller].result, all[larger].result)) {
                comparison.tests.push_back(test_of(all, smaller, larger));
            }
        }
    }
    return comparison;
}

std::vector<std::string> comparison_notes(const Comparison& comparison) {
    std::vector<std::string> notes;
    for (const ComparedModel& model : comparison.models) {
        if (!model.left_out.empty()) {
            notes.push_back(model.name + ": " + model.left_out);
        }
    }
    return notes;
}

std::string comparison_table(const Comparison& comparison) {
    std::string text = models_text(comparison);
    if (comparison.models.size() > 1) {
        text += "\n" + tests_text(comparison);
    }
    const std::vector<std::string> notes = comparison_notes(comparison);
    text += notes.empty() ? "" : "\n";
    for (const std::string& note : notes) {
        text += note + "\n";
    }
    return text;
}

std::string comparison_csv(const Comparison& comparison) {
    const std::vector<std::string> effects = all_effects(comparison);
    std::string text = "results,verdict,method,parameters,log_likelihood,mc_error,aic,bic";
    for (const std::string& name : effects) {
        text += "," + csv_field(name) + "," + csv_field(name + " standard_error");
    }
    text += "\n";
    for (const ComparedModel& model : comparison.models) {
        const ResultLikelihood& likelihood = model.result.likelihood;
        text += fmt::format("{},{},{},{},{},{},{},{}", csv_field(model.name), model.result.verdict,
                            model.result.method, model.parameters, csv_number(likelihood.value),
                            csv_number(likelihood.mc_error), csv_number(likelihood.aic),
                            csv_number(likelihood.bic));
        for (const std::string& name : effects) {
            const ResultEffect* effect = effect_named(model.result, name);
            text += fmt::format(",{},{}", effect != nullptr ? csv_number(effect->estimate) : "",
                                effect != nullptr ? csv_number(effect->standard_error) : "");
        }
        text += "\n";
    }
    return text;
}

std::string comparison_json(const Comparison& comparison) {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = comparison.ovri;
    json["command"] = "compare";
    json["network"] = json_network(comparison.models[0].result.network);
    json["models"] = Json::array();
    for (const ComparedModel& model : comparison.models) {
        json["models"].push_back(model_json(model));
    }
    json["tests"] = Json::array();
    for (const LikelihoodRatio& test : comparison.tests) {
        json["tests"].push_back(test_json(test, comparison.models));
    }
    return json.dump(2) + "\n";
}
