#include "show/gof_document.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "formats/csv.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "ovri-gof/1";

template <class Record>
struct Number {
    const char* key;
    double Record::*member;
};
constexpr std::array<Number<GofStatistic>, 8> kStatisticNumbers = {{
    {"observed", &GofStatistic::observed},
    {"mean", &GofStatistic::mean},
    {"sd", &GofStatistic::sd},
    {"t_ratio", &GofStatistic::t_ratio},
    {"p_value", &GofStatistic::p_value},
    {"q05", &GofStatistic::q05},
    {"median", &GofStatistic::median},
    {"q95", &GofStatistic::q95},
}};
constexpr std::array<Number<GofRow>, 7> kRowNumbers = {{
    {"observed", &GofRow::observed},
    {"mean", &GofRow::mean},
    {"q05", &GofRow::q05},
    {"q25", &GofRow::q25},
    {"median", &GofRow::median},
    {"q75", &GofRow::q75},
    {"q95", &GofRow::q95},
}};

Json number(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

double number_at(const Json& object, const char* key) {
    const auto place = object.find(key);
    return place != object.end() && place->is_number() ? place->get<double>() : kNoNumber;
}

std::string text_at(const Json& object, const char* key) {
    const auto place = object.find(key);
    return place != object.end() && place->is_string() ? place->get<std::string>() : "";
}

template <class Record, std::size_t Size>
void put_numbers(const std::array<Number<Record>, Size>& numbers, const Record& record,
                 Json& json) {
    for (const Number<Record>& each : numbers) {
        json[each.key] = number(record.*each.member);
    }
}

template <class Record, std::size_t Size>
void take_numbers(const std::array<Number<Record>, Size>& numbers, const Json& json,
                  Record& record) {
    for (const Number<Record>& each : numbers) {
        record.*each.member = number_at(json, each.key);
    }
}

Json network_json(const ResultNetwork& network) {
    Json json;
    json["file"] = network.file;
    json["directed"] = network.directed;
    json["actors"] = network.actors;
    json["ties"] = network.ties;
    json["density"] = number(network.density);
    return json;
}

Json distribution_json(const GofDistribution& distribution) {
    Json json;
    json["name"] = distribution.name;
    json["rows"] = Json::array();
    for (const GofRow& row : distribution.rows) {
        Json entry;
        entry["at"] = row.number ? Json(*row.number) : Json(row.at);
        put_numbers(kRowNumbers, row, entry);
        json["rows"].push_back(std::move(entry));
    }
    return json;
}

GofDistribution distribution_of(const Json& json) {
    GofDistribution distribution{json.at("name").get<std::string>(), {}, true};
    distribution.judged = distribution.name != "component-size";
    for (const Json& entry : json.at("rows")) {
        GofRow row;
        const Json& at = entry.at("at");
        if (at.is_number_integer()) {
            row.number = at.get<int>();
            row.at = std::to_string(*row.number);
        } else {
            row.at = at.get<std::string>();
        }
        take_numbers(kRowNumbers, entry, row);
        row.p_value = kNoNumber;
        distribution.rows.push_back(std::move(row));
    }
    return distribution;
}

GofRecord record_of(const Json& json) {
    GofRecord record;
    record.ovri = text_at(json, "ovri");
    record.verdict = text_at(json, "verdict");
    record.exit_status = json.at("exit_status").get<int>();
    record.bayesian = json.at("bayesian").get<bool>();
    record.conclusion = text_at(json, "conclusion");
    const Json& network = json.at("network");
    record.network = {text_at(network, "file"), network.at("directed").get<bool>(),
                      network.at("actors").get<int>(), network.at("ties").get<int>(),
                      number_at(network, "density")};
    StudyGof& gof = record.gof;
    gof.samples = json.at("samples").get<int>();
    gof.effects = json.at("effects").get<int>();
    gof.seed = json.at("seed").get<std::uint32_t>();
    gof.mahalanobis = number_at(json, "mahalanobis");
    gof.mahalanobis_p_value = number_at(json, "mahalanobis_p_value");
    for (const Json& each : json.at("statistics")) {
        GofStatistic statistic{.name = each.at("name").get<std::string>()};
        take_numbers(kStatisticNumbers, each, statistic);
        gof.statistics.push_back(std::move(statistic));
    }
    for (const Json& each : json.at("distributions")) {
        gof.distributions.push_back(distribution_of(each));
    }
    return record;
}

// The shortest text that brings the same value back; empty without a number.
std::string cell(double value) { return std::isfinite(value) ? fmt::format("{}", value) : ""; }

}  // namespace

std::string gof_json(const GofRecord& record) {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = record.ovri;
    json["command"] = "gof";
    json["verdict"] = record.verdict.empty() ? Json(nullptr) : Json(record.verdict);
    json["exit_status"] = record.exit_status;
    json["network"] = network_json(record.network);
    json["seed"] = record.gof.seed;
    json["bayesian"] = record.bayesian;
    json["samples"] = record.gof.samples;
    json["effects"] = record.gof.effects;
    json["conclusion"] = record.conclusion;
    json["mahalanobis"] = number(record.gof.mahalanobis);
    json["mahalanobis_p_value"] = number(record.gof.mahalanobis_p_value);
    json["statistics"] = Json::array();
    for (const GofStatistic& statistic : record.gof.statistics) {
        Json entry;
        entry["name"] = statistic.name;
        put_numbers(kStatisticNumbers, statistic, entry);
        json["statistics"].push_back(std::move(entry));
    }
    json["distributions"] = Json::array();
    for (const GofDistribution& distribution : record.gof.distributions) {
        json["distributions"].push_back(distribution_json(distribution));
    }
    return json.dump(2) + "\n";
}

std::optional<GofRecord> read_gof_json(const std::string& text) {
    try {
        const Json json = Json::parse(text);
        if (text_at(json, "format") != kFormat) {
            return std::nullopt;
        }
        return record_of(json);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

std::string gof_csv(const GofRecord& record) {
    std::string text = "kind,name,at,observed,mean,sd,t_ratio,p_value,q05,q25,median,q75,q95\n";
    for (const GofStatistic& each : record.gof.statistics) {
        text += fmt::format("statistic,{},,{},{},{},{},{},{},,{},,{}\n", csv_field(each.name),
                            cell(each.observed), cell(each.mean), cell(each.sd), cell(each.t_ratio),
                            cell(each.p_value), cell(each.q05), cell(each.median), cell(each.q95));
    }
    for (const GofDistribution& distribution : record.gof.distributions) {
        for (const GofRow& row : distribution.rows) {
            text += fmt::format("distribution,{},{},{},{},,,,{},{},{},{},{}\n",
                                csv_field(distribution.name), csv_field(row.at), cell(row.observed),
                                cell(row.mean), cell(row.q05), cell(row.q25), cell(row.median),
                                cell(row.q75), cell(row.q95));
        }
    }
    return text;
}
