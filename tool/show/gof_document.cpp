#include "show/gof_document.h"

#include <fmt/core.h>

#include <array>
#include <nlohmann/json.hpp>

#include "formats/csv.h"
#include "show/document_pieces.h"

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

template <class Record, std::size_t Size>
void put_numbers(const std::array<Number<Record>, Size>& numbers, const Record& record,
                 Json& json) {
    for (const Number<Record>& each : numbers) {
        json[each.key] = json_number(record.*each.member);
    }
}

template <class Record, std::size_t Size>
void take_numbers(const std::array<Number<Record>, Size>& numbers, const Json& json,
                  Record& record) {
    for (const Number<Record>& each : numbers) {
        record.*each.member = number_at(json, each.key);
    }
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
    record.network = network_at(json.at("network"));
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

}  // namespace

std::string gof_json(const GofRecord& record) {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = record.ovri;
    json["command"] = "gof";
    json["verdict"] = json_text(record.verdict);
    json["exit_status"] = record.exit_status;
    json["network"] = json_network(record.network);
    json["seed"] = record.gof.seed;
    json["bayesian"] = record.bayesian;
    json["samples"] = record.gof.samples;
    json["effects"] = record.gof.effects;
    json["conclusion"] = record.conclusion;
    json["mahalanobis"] = json_number(record.gof.mahalanobis);
    json["mahalanobis_p_value"] = json_number(record.gof.mahalanobis_p_value);
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
    std::optional<GofRecord> record;
    read_document(text, kFormat, [&record](const Json& json) { record = record_of(json); });
    return record;
}

std::string gof_csv(const GofRecord& record) {
    std::string text = "kind,name,at,observed,mean,sd,t_ratio,p_value,q05,q25,median,q75,q95\n";
    for (const GofStatistic& each : record.gof.statistics) {
        text += fmt::format("statistic,{},,{},{},{},{},{},{},,{},,{}\n", csv_field(each.name),
                            csv_number(each.observed), csv_number(each.mean), csv_number(each.sd),
                            csv_number(each.t_ratio), csv_number(each.p_value),
                            csv_number(each.q05), csv_number(each.median), csv_number(each.q95));
    }
    for (const GofDistribution& distribution : record.gof.distributions) {
        for (const GofRow& row : distribution.rows) {
            text += fmt::format("distribution,{},{},{},{},,,,{},{},{},{},{}\n",
                                csv_field(distribution.name), csv_field(row.at),
                                csv_number(row.observed), csv_number(row.mean), csv_number(row.q05),
                                csv_number(row.q25), csv_number(row.median), csv_number(row.q75),
                                csv_number(row.q95));
        }
    }
    return text;
}
