#include "show/check_document.h"

#include <nlohmann/json.hpp>

#include "show/document_pieces.h"

namespace {

using Json = nlohmann::ordered_json;

Json place_or_null(int place) { return place > 0 ? Json(place) : Json(nullptr); }

Json finding_fields(const Finding& finding) {
    const Where& where = finding.where;
    return {{"severity", finding.severity == Severity::error ? "error" : "warning"},
            {"file", json_text(where.file)},
            {"line", place_or_null(where.line)},
            {"column", place_or_null(where.column)},
            {"about", json_text(where.field)},
            {"found", json_text(finding.found)},
            {"expected", json_text(finding.expected)},
            {"mend", json_text(finding.mend)}};
}

}  // namespace

std::string check_document(const CheckRecord& record) {
    Json document = {{"format", "ovri-check/1"},
                     {"ovri", record.ovri},
                     {"file", record.file},
                     {"errors", count_findings(record.findings, Severity::error)},
                     {"warnings", count_findings(record.findings, Severity::warning)},
                     {"findings", Json::array()},
                     {"network", record.network ? json_network(*record.network) : Json()},
                     {"effects", record.effects},
                     {"notes", record.notes}};
    for (const Finding& finding : record.findings.list) {
        document["findings"].push_back(finding_fields(finding));
    }
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
