#include "formats/toml_section.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "study/names.h"

namespace {

// A value as it was written, shortened.
std::string shown(const toml::node& node) {
    std::ostringstream text;
    node.visit([&text](const auto& value) { text << value; });
    std::string line = text.str();
    return line.size() > 60 ? line.substr(0, 60) + "..." : line;
}

const char* type_name(const toml::node& node) {
    switch (node.type()) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "a list";
        case toml::node_type::string:
            return "a text";
        case toml::node_type::integer:
        case toml::node_type::floating_point:
            return "a number";
        case toml::node_type::boolean:
            return "a truth value";
        default:
            return "a date or time";
    }
}

// People read 1000000 where the shortest text is 1e+06.
std::string bound_text(double bound) {
    constexpr double kMostInFull = 1e9;
    const bool whole = std::fabs(bound) <= kMostInFull && std::floor(bound) == bound;
    return whole ? std::to_string(static_cast<std::int64_t>(bound)) : number_text(bound);
}

std::string range_text(const NumberRange& range, const char* what) {
    if (std::isinf(range.most)) {
        return std::isinf(range.least) ? std::string(what)
                                       : std::string(what) + " from " + bound_text(range.least);
    }
    return std::string(what) + " from " + bound_text(range.least) + " to " + bound_text(range.most);
}

}  // namespace

FilePlace toml_place(const toml::source_region& region) {
    return {static_cast<int>(region.begin.line), static_cast<int>(region.begin.column)};
}

Problem no_toml(const std::string& path, const toml::parse_result& document) {
    const FilePlace at = toml_place(document.error().source());
    return {.file = path,
            .line = at.line,
            .column = at.column,
            .found = std::string(document.error().description()),
            .expected = "TOML: [section], then lines such as key = \"text\"",
            .mend = "mend the line; texts stand in quotation marks"};
}

void sort_by_place(Problems& problems) {
    std::stable_sort(problems.begin(), problems.end(), [](const Problem& a, const Problem& b) {
        return a.line != b.line ? a.line < b.line : a.column < b.column;
    });
}

void SectionReader::check_keys(const std::vector<std::string>& keys) {
    for (const auto& [key, node] : table_) {
        const std::string name(key.str());
        file_.places[full_name(name)] = toml_place(key.source());
        if (std::find(keys.begin(), keys.end(), name) == keys.end()) {
            unknown_key(name, keys);
        }
    }
}

void SectionReader::text(const char* key, std::string& target) {
    const toml::node* node = find(key);
    if (node == nullptr) {
        return;
    }
    if (const auto value = node->value_exact<std::string>()) {
        target = *value;
    } else {
        wrong_value(key, *node, "a text in quotation marks");
    }
}

void SectionReader::path(const char* key, std::string& target) {
    text(key, target);
    if (target.empty() && find(key) != nullptr && find(key)->is_string()) {
        wrong_value(key, *find(key), "the path of a file");
    }
    target = path_beside(file_.path, target);
}

void SectionReader::flag(const char* key, std::optional<bool>& target) {
    const toml::node* node = find(key);
    if (node == nullptr) {
        return;
    }
    target = node->value_exact<bool>();
    if (!target) {
        wrong_value(key, *node, "`true` or `false`");
    }
}

std::optional<double> SectionReader::number(const char* key, const NumberRange& range) {
    const toml::node* node = find(key);
    if (node == nullptr) {
        return std::nullopt;
    }
    const auto value = node->is_number() ? node->value<double>() : std::nullopt;
    if (!value || !std::isfinite(*value) || *value < range.least || *value > range.most) {
        const bool infinite = value && !std::isfinite(*value);
        wrong_value(key, *node, infinite ? "a finite number" : range_text(range, "a number"));
        return std::nullopt;
    }
    return value;
}

std::optional<std::int64_t> SectionReader::whole(const char* key, const NumberRange& range) {
    const toml::node* node = find(key);
    if (node == nullptr) {
        return std::nullopt;
    }
    const auto value = node->value_exact<std::int64_t>();
    if (!value || static_cast<double>(*value) < range.least ||
        static_cast<double>(*value) > range.most) {
        wrong_value(key, *node, range_text(range, "a whole number"));
        return std::nullopt;
    }
    return value;
}

void SectionReader::wrong_value(const std::string& key, const toml::node& node,
                                const std::string& expected, const std::string& mend) {
    const FilePlace at = toml_place(node.source());
    file_.problems.push_back(
        {.file = file_.path,
         .line = at.line,
         .column = at.column,
         .field = "`" + key + "`" + (section_.empty() ? "" : " in [" + section_ + "]"),
         .found = std::string(type_name(node)) + ", " + shown(node),
         .expected = expected,
         .mend = mend.empty() ? "write " + expected : mend});
}

void SectionReader::unknown_key(const std::string& name, const std::vector<std::string>& keys) {
    const FilePlace at = file_.places[full_name(name)];
    const std::string nearest = nearest_name(name, keys);
    file_.problems.push_back(
        {.file = file_.path,
         .line = at.line,
         .column = at.column,
         .field = section_.empty() ? "" : "[" + section_ + "]",
         .found = "the unknown key `" + name + "`",
         .expected = "one of " + listed_names(keys),
         .mend = nearest.empty() ? "delete it" : "a similar one is `" + nearest + "`"});
}
