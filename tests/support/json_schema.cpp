#include "support/json_schema.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/scratch_directory.h"

namespace {

using Json = nlohmann::json;
using Faults = std::vector<std::string>;

void check_value(const Json& schema, const Json& value, const std::string& place, Faults& faults);

bool has_type(const Json& value, const std::string& type) {
    return (type == "object" && value.is_object()) || (type == "array" && value.is_array()) ||
           (type == "string" && value.is_string()) || (type == "boolean" && value.is_boolean()) ||
           (type == "null" && value.is_null()) || (type == "number" && value.is_number()) ||
           (type == "integer" && value.is_number_integer());
}

void check_type(const Json& types, const Json& value, const std::string& place, Faults& faults) {
    const bool fits = types.is_array()
                          ? std::any_of(types.begin(), types.end(),
                                        [&](const Json& type) { return has_type(value, type); })
                          : has_type(value, types);
    if (!fits) {
        faults.push_back(place + ": " + value.dump() + " is no " + types.dump());
    }
}

void check_enum(const Json& choices, const Json& value, const std::string& place, Faults& faults) {
    if (std::find(choices.begin(), choices.end(), value) == choices.end()) {
        faults.push_back(place + ": " + value.dump() + " is none of " + choices.dump());
    }
}

void check_required(const Json& names, const Json& value, const std::string& place,
                    Faults& faults) {
    for (const Json& name : names) {
        if (value.is_object() && !value.contains(name.get<std::string>())) {
            faults.push_back(place + ": " + name.get<std::string>() + " is missing");
        }
    }
}

void check_members(const Json& schema, const Json& value, const std::string& place,
                   Faults& faults) {
    if (!value.is_object()) {
        return;
    }
    const Json properties = schema.value("properties", Json::object());
    const bool others = schema.value("additionalProperties", true);
    for (const auto& [name, member] : value.items()) {
        if (properties.contains(name)) {
            check_value(properties[name], member, place + "/" + name, faults);
        } else if (!others) {
            faults.push_back(place + ": " + name + " is not in the schema");
        }
    }
}

void check_items(const Json& schema, const Json& value, const std::string& place, Faults& faults) {
    for (std::size_t k = 0; value.is_array() && k < value.size(); ++k) {
        check_value(schema, value[k], place + "/" + std::to_string(k), faults);
    }
}

void check_value(const Json& schema, const Json& value, const std::string& place, Faults& faults) {
    for (const auto& [keyword, rule] : schema.items()) {
        if (keyword == "type") {
            check_type(rule, value, place, faults);
        } else if (keyword == "enum") {
            check_enum(rule, value, place, faults);
        } else if (keyword == "const") {
            check_enum(Json::array({rule}), value, place, faults);
        } else if (keyword == "required") {
            check_required(rule, value, place, faults);
        } else if (keyword == "items") {
            check_items(rule, value, place, faults);
        } else if (keyword != "properties" && keyword != "additionalProperties" &&
                   keyword != "title" && keyword != "description" && keyword != "$schema") {
            faults.push_back(place + ": the schema's keyword " + keyword + " is not known");
        }
    }
    check_members(schema, value, place, faults);
}

}  // namespace

std::vector<std::string> schema_faults(const std::string& schema, const std::string& document) {
    Faults faults;
    try {
        check_value(Json::parse(schema), Json::parse(document), "", faults);
    } catch (const Json::exception& problem) {
        faults.emplace_back(problem.what());
    }
    return faults;
}

std::vector<std::string> document_faults(const std::string& document) {
    const Json json = Json::parse(document, nullptr, false);
    if (!json.is_object() || !json.contains("format") || !json["format"].is_string()) {
        return {"no document with a format"};
    }
    std::string name = json["format"];
    std::replace(name.begin(), name.end(), '/', '-');
    const std::filesystem::path path =
        std::filesystem::path(OVRI_SOURCE_DIRECTORY) / "docs" / "schema" / (name + ".json");
    if (!std::filesystem::exists(path)) {
        return {path.string() + " is not there"};
    }
    return schema_faults(file_text(path), document);
}

bool is_document(const std::string& text) { return text.starts_with("{\n  \"format\":"); }
