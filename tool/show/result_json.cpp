#include "show/result_json.h"

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "show/document_pieces.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "ovri-result/1";

// The members of an effect between its name and "fixed", in the document's order.
struct EffectNumber {
    const char* key;
    double ResultEffect::*member;
};
constexpr std::array<EffectNumber, 12> kEffectNumbers = {{
    {"estimate", &ResultEffect::estimate},
    {"standard_error", &ResultEffect::standard_error},
    {"mc_error", &ResultEffect::mc_error},
    {"z", &ResultEffect::z},
    {"p_value", &ResultEffect::p_value},
    {"lower", &ResultEffect::lower},
    {"upper", &ResultEffect::upper},
    {"odds_ratio", &ResultEffect::odds_ratio},
    {"t_ratio", &ResultEffect::t_ratio},
    {"observed", &ResultEffect::observed},
    {"simulated_mean", &ResultEffect::simulated_mean},
    {"simulated_sd", &ResultEffect::simulated_sd},
}};

// A count that a double holds exactly, written as a whole number.
Json count(double value) {
    return std::isfinite(value) ? Json(std::llround(value)) : Json(nullptr);
}

Json effect_json(const ResultEffect& effect) {
    Json json;
    json["name"] = effect.name;
    for (const EffectNumber& each : kEffectNumbers) {
        json[each.key] = json_number(effect.*each.member);
    }
    json["fixed"] = effect.fixed;
    return json;
}

Json matrix_json(const Matrix& matrix) {
    Json rows = Json::array();
    for (int i = 0; i < matrix.rows; ++i) {
        Json row = Json::array();
        for (int j = 0; j < matrix.columns; ++j) {
            row.push_back(json_number(matrix[i][j]));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

Json likelihood_json(const ResultLikelihood& likelihood) {
    Json json;
    json["value"] = json_number(likelihood.value);
    json["mc_error"] = json_number(likelihood.mc_error);
    json["null"] = json_number(likelihood.null_model);
    json["deviance"] = json_number(likelihood.deviance);
    json["aic"] = json_number(likelihood.aic);
    json["bic"] = json_number(likelihood.bic);
    return json;
}

Json numbers_json(const std::vector<double>& numbers) {
    Json json = Json::array();
    for (const double each : numbers) {
        json.push_back(json_number(each));
    }
    return json;
}

Json bootstrap_json(const std::optional<ResultBootstrap>& bootstrap) {
    if (!bootstrap) {
        return nullptr;
    }
    Json json;
    json["replicates"] = bootstrap->replicates;
    json["converged"] = bootstrap->converged;
    json["not_converged"] = bootstrap->not_converged;
    json["not_identified"] = bootstrap->not_identified;
    json["degenerate"] = bootstrap->degenerate;
    json["proposals"] = count(bootstrap->proposals);
    json["seconds"] = json_number(bootstrap->seconds);
    json["effects"] = Json::array();
    for (const ResultBootstrapEffect& each : bootstrap->effects) {
        json["effects"].push_back({{"name", each.name},
                                   {"mean", json_number(each.mean)},
                                   {"standard_error", json_number(each.standard_error)},
                                   {"lower", json_number(each.lower)},
                                   {"upper", json_number(each.upper)},
                                   {"coverage", json_number(each.coverage)}});
    }
    return json;
}

Json path_json(const ParameterPath& path) {
    Json json = Json::array();
    for (const PathStage& stage : path) {
        Json rows = Json::array();
        for (const std::vector<double>& row : stage.parameters) {
            rows.push_back(numbers_json(row));
        }
        json.push_back({{"stage", stage.name}, {"parameters", std::move(rows)}});
    }
    return json;
}

ResultEffect effect_of(const Json& json) {
    ResultEffect effect;
    effect.name = json.at("name").get<std::string>();
    for (const EffectNumber& each : kEffectNumbers) {
        effect.*each.member = number_at(json, each.key);
    }
    effect.fixed = json.at("fixed").get<bool>();
    return effect;
}

Matrix matrix_of(const Json& json) {
    const int rows = static_cast<int>(json.size());
    const int columns = rows > 0 ? static_cast<int>(json[0].size()) : 0;
    Matrix matrix = matrix_create(rows, columns, kNoNumber);
    for (int i = 0; i < rows; ++i) {
        const Json& row = json.at(static_cast<std::size_t>(i));
        for (int j = 0; j < columns; ++j) {
            const Json& cell = row.at(static_cast<std::size_t>(j));
            matrix[i][j] = cell.is_number() ? cell.get<double>() : kNoNumber;
        }
    }
    return matrix;
}

ResultLikelihood likelihood_of(const Json& json) {
    return {number_at(json, "value"),    number_at(json, "mc_error"), number_at(json, "null"),
            number_at(json, "deviance"), number_at(json, "aic"),      number_at(json, "bic")};
}

std::vector<double> numbers_of(const Json& json) {
    std::vector<double> numbers;
    for (const Json& each : json) {
        numbers.push_back(each.is_number() ? each.get<double>() : kNoNumber);
    }
    return numbers;
}

// None in documents of versions that had no diagnosis.
std::optional<ResultDiagnosis> diagnosis_of(const Json& document) {
    const auto place = document.find("diagnosis");
    if (place == document.end() || place->is_null()) {
        return std::nullopt;
    }
    const Json& json = *place;
    ResultDiagnosis diagnosis;
    diagnosis.chains = json.at("chains").get<int>();
    diagnosis.burn_in = number_at(json, "burn_in");
    diagnosis.interval = number_at(json, "interval");
    diagnosis.samples = json.at("samples").get<int>();
    diagnosis.runs = json.at("runs").get<int>();
    diagnosis.approximated = json.at("approximated").get<bool>();
    diagnosis.hotelling_p_value = number_at(json, "hotelling_p_value");
    diagnosis.two_kinds = json.at("two_kinds").get<bool>();
    diagnosis.dense_share = number_at(json, "dense_share");
    diagnosis.effective_samples = numbers_of(json.at("effective_samples"));
    diagnosis.gelman_rubin = numbers_of(json.at("gelman_rubin"));
    diagnosis.correlation = matrix_of(json.at("correlation"));
    return diagnosis;
}

// None in documents without one, and of versions that had none.
std::optional<ResultBootstrap> bootstrap_of(const Json& document) {
    const auto place = document.find("bootstrap");
    if (place == document.end() || place->is_null()) {
        return std::nullopt;
    }
    const Json& json = *place;
    ResultBootstrap bootstrap{
        json.at("replicates").get<int>(),    json.at("converged").get<int>(),
        json.at("not_converged").get<int>(), json.at("not_identified").get<int>(),
        json.at("degenerate").get<int>(),    number_at(json, "proposals"),
        number_at(json, "seconds"),          {}};
    for (const Json& each : json.at("effects")) {
        bootstrap.effects.push_back({text_at(each, "name"), number_at(each, "mean"),
                                     number_at(each, "standard_error"), number_at(each, "lower"),
                                     number_at(each, "upper"), number_at(each, "coverage")});
    }
    return bootstrap;
}

// None in documents of versions that kept no path.
ParameterPath path_of(const Json& document) {
    ParameterPath path;
    const auto place = document.find("path");
    if (place == document.end()) {
        return path;
    }
    for (const Json& stage : *place) {
        path.push_back({text_at(stage, "stage"), {}});
        for (const Json& row : stage.at("parameters")) {
            path.back().parameters.push_back(numbers_of(row));
        }
    }
    return path;
}

ResultRecord record_of(const Json& json) {
    ResultRecord result;
    result.ovri = text_at(json, "ovri");
    result.command = text_at(json, "command");
    result.verdict = text_at(json, "verdict");
    result.exit_status = json.at("exit_status").get<int>();
    result.reasons = json.at("reasons").get<std::vector<std::string>>();
    result.advice = json.at("advice").get<std::vector<std::string>>();
    result.network = network_at(json.at("network"));
    result.method = text_at(json, "method");
    result.seed = json.at("seed").get<std::uint32_t>();
    result.proposals = number_at(json, "proposals");
    result.seconds = number_at(json, "seconds");
    for (const Json& each : json.at("effects")) {
        result.effects.push_back(effect_of(each));
    }
    result.covariance = matrix_of(json.at("covariance"));
    result.likelihood = likelihood_of(json.at("likelihood"));
    result.diagnosis = diagnosis_of(json);
    result.bootstrap = bootstrap_of(json);
    result.path = path_of(json);
    return result;
}

}  // namespace

Json diagnosis_json(const std::optional<ResultDiagnosis>& diagnosis) {
    if (!diagnosis) {
        return nullptr;
    }
    Json json;
    json["chains"] = diagnosis->chains;
    json["burn_in"] = count(diagnosis->burn_in);
    json["interval"] = count(diagnosis->interval);
    json["samples"] = diagnosis->samples;
    json["runs"] = diagnosis->runs;
    json["approximated"] = diagnosis->approximated;
    json["hotelling_p_value"] = json_number(diagnosis->hotelling_p_value);
    json["two_kinds"] = diagnosis->two_kinds;
    json["dense_share"] = json_number(diagnosis->dense_share);
    json["effective_samples"] = numbers_json(diagnosis->effective_samples);
    json["gelman_rubin"] = numbers_json(diagnosis->gelman_rubin);
    json["correlation"] = matrix_json(diagnosis->correlation);
    return json;
}

std::string result_json(const ResultRecord& result) {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = result.ovri;
    json["command"] = result.command;
    json["verdict"] = json_text(result.verdict);
    json["exit_status"] = result.exit_status;
    json["reasons"] = result.reasons;
    json["advice"] = result.advice;
    json["network"] = json_network(result.network);
    json["method"] = json_text(result.method);
    json["seed"] = result.seed;
    json["proposals"] = count(result.proposals);
    json["seconds"] = json_number(result.seconds);
    json["effects"] = Json::array();
    for (const ResultEffect& effect : result.effects) {
        json["effects"].push_back(effect_json(effect));
    }
    json["covariance"] = matrix_json(result.covariance);
    json["likelihood"] = likelihood_json(result.likelihood);
    json["diagnosis"] = diagnosis_json(result.diagnosis);
    json["bootstrap"] = bootstrap_json(result.bootstrap);
    json["path"] = path_json(result.path);
    return json.dump(2) + "\n";
}

std::optional<ResultRecord> read_result_json(const std::string& text) {
    std::optional<ResultRecord> record;
    read_document(text, kFormat, [&record](const Json& json) { record = record_of(json); });
    return record;
}
