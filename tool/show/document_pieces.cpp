#include "show/document_pieces.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

Json json_number(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

Json json_text(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json exact_numbers(const std::vector<double>& values) {
    Json json = Json::array();
    for (const double value : values) {
        json.push_back(std::isinf(value) ? Json(value > 0.0 ? "inf" : "-inf") : json_number(value));
    }
    return json;
}

std::vector<double> exact_numbers_at(const Json& json) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    std::vector<double> values;
    for (const Json& each : json) {
        values.push_back(each.is_null()   ? kNoNumber
                         : each == "inf"  ? kInfinity
                         : each == "-inf" ? -kInfinity
                                          : each.get<double>());
    }
    return values;
}

double number_at(const Json& object, const char* key) {
    const auto place = object.find(key);
    return place != object.end() && place->is_number() ? place->get<double>() : kNoNumber;
}

std::string text_at(const Json& object, const char* key) {
    const auto place = object.find(key);
    return place != object.end() && place->is_string() ? place->get<std::string>() : "";
}

std::string in_words(std::string key) {
    std::replace(key.begin(), key.end(), '_', ' ');
    return key;
}

Json json_network(const ResultNetwork& network) {
    Json json;
    json["file"] = network.file;
    json["directed"] = network.directed;
    json["actors"] = network.actors;
    json["ties"] = network.ties;
    json["density"] = json_number(network.density);
    return json;
}

ResultNetwork network_at(const Json& json) {
    return {text_at(json, "file"), json.at("directed").get<bool>(), json.at("actors").get<int>(),
            json.at("ties").get<int>(), number_at(json, "density")};
}

void read_document(const std::string& text, const char* format,
                   const std::function<void(const Json&)>& take) {
    try {
        const Json json = Json::parse(text);
        if (text_at(json, "format") == format) {
            take(json);
        }
    } catch (const Json::exception&) {
        return;
    }
}

std::string csv_number(double value) {
    return std::isfinite(value) ? fmt::format("{}", value) : "";
}
