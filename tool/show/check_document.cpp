#include "show/check_document.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

Json place_or_null(int place) { return place > 0 ? Json(place) : Json(nullptr); }

Json text_or_null(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json finding_fields(const Finding& finding) {
    const Where& where = finding.where;
    return {{"severity", finding.severity == Severity::error ? "error" : "warning"},
            {"file", text_or_null(where.file)},
            {"line", place_or_null(where.line)},
            {"column", place_or_null(where.column)},
            {"about", text_or_null(where.field)},
            {"found", text_or_null(finding.found)},
            {"expected", text_or_null(finding.expected)},
            {"mend", text_or_null(finding.mend)}};
}

Json network_fields(const ResultNetwork& network) {
    return {{"file", network.file},
            {"directed", network.directed},
            {"actors", network.actors},
            {"ties", network.ties},
            {"density", network.density == network.density ? Json(network.density) : Json()}};
}

}  // namespace

std::string check_document(const CheckRecord& record) {
    Json document = {{"format", "ovri-check/1"},
                     {"ovri", record.ovri},
                     {"file", record.file},
                     {"errors", count_findings(record.findings, Severity::error)},
                     {"warnings", count_findings(record.findings, Severity::warning)},
                     {"findings", Json::array()},
                     {"network", record.network ? network_fields(*record.network) : Json()},
                     {"effects", record.effects},
                     {"notes", record.notes}};
    for (const Finding& finding : record.findings.list) {
        document["findings"].push_back(finding_fields(finding));
    }
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
