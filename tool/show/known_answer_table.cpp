#include "show/known_answer_table.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "show/document_pieces.h"
#include "show/text_table.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "ovri-selftest/1";

const char* verdict_of(const KnownAnswer& answer) {
    return is_as_expected(answer) ? "as expected" : "differs";
}

// A small difference is told by its size: rounding is no deviation.
std::string difference_text(const KnownAnswer& answer) {
    const double value = difference(answer);
    if (!std::isfinite(value)) {
        return "-";
    }
    return value == 0.0                ? "0"
           : std::fabs(value) < 0.5e-4 ? fmt::format("{:.0e}", value)
                                       : fmt::format("{:.4f}", value);
}

}  // namespace

// Models stand in lines of their own: in the table's cells they would make it too wide.
std::string known_answer_table(const std::vector<KnownAnswer>& answers) {
    std::vector<std::vector<std::string>> rows = {
        {"check", "found", "expected", "difference", "verdict"}};
    std::vector<std::string> headings = {""};
    for (const KnownAnswer& each : answers) {
        const bool first = headings.size() == 1 || (&each - 1)->model != each.model;
        if (first) {
            rows.push_back({"", "", "", "", ""});
            headings.push_back(each.model);
        }
        rows.push_back({"  " + each.quantity, decimals_or_dash(each.found, 6),
                        decimals_or_dash(each.expected, 6), difference_text(each),
                        verdict_of(each)});
        headings.emplace_back();
    }
    std::istringstream lines(text_table(rows));
    std::string text;
    for (const std::string& heading : headings) {
        std::string line;
        std::getline(lines, line);
        text += (heading.empty() ? line : heading) + "\n";
    }
    return text;
}

std::string known_answer_json(const std::vector<KnownAnswer>& answers, double seconds) {
    Json json;
    json["format"] = kFormat;
    json["ovri"] = OVRI_VERSION;
    json["command"] = "selftest";
    json["as_expected"] = std::all_of(answers.begin(), answers.end(), is_as_expected);
    json["seconds"] = json_number(seconds);
    json["checks"] = Json::array();
    for (const KnownAnswer& each : answers) {
        Json check;
        check["model"] = each.model;
        check["quantity"] = each.quantity;
        check["found"] = json_number(each.found);
        check["expected"] = json_number(each.expected);
        check["unit"] = json_number(each.unit);
        check["difference"] = json_number(difference(each));
        check["allowed"] = json_number(each.allowed);
        check["verdict"] = verdict_of(each);
        json["checks"].push_back(std::move(check));
    }
    return json.dump(2) + "\n";
}
