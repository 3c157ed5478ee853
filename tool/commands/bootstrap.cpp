#include "commands/bootstrap.h"

#include <fmt/core.h>

#include <chrono>
#include <nlohmann/json.hpp>

#include "formats/csv.h"
#include "show/document_pieces.h"

namespace {

using Json = nlohmann::ordered_json;

// Throws where there is no such verdict.
StudyVerdict verdict_at(const Json& json) {
    Json verdicts;
    for (const StudyVerdict each : {StudyVerdict::converged, StudyVerdict::not_converged,
                                    StudyVerdict::not_identified, StudyVerdict::degenerate}) {
        verdicts[study_verdict_name(each)] = static_cast<int>(each);
    }
    return static_cast<StudyVerdict>(verdicts.at(json.at("verdict").get<std::string>()).get<int>());
}

}  // namespace

ResultBootstrap result_bootstrap(const StudyBootstrap& found) {
    ResultBootstrap result;
    result.replicates = static_cast<int>(found.verdicts.size());
    result.converged = replicates_with(found, StudyVerdict::converged);
    result.not_converged = replicates_with(found, StudyVerdict::not_converged);
    result.not_identified = replicates_with(found, StudyVerdict::not_identified);
    result.degenerate = replicates_with(found, StudyVerdict::degenerate);
    result.proposals = found.proposals;
    result.seconds = found.seconds;
    for (const BootstrapEffect& each : found.effects) {
        result.effects.push_back(
            {each.name, each.mean, each.standard_error, each.lower, each.upper, each.coverage});
    }
    return result;
}

std::string bootstrap_csv(const StudyBootstrap& found) {
    std::string text = "replicate,verdict";
    for (const BootstrapEffect& each : found.effects) {
        text += "," + csv_field(each.name);
    }
    text += "\n";
    for (int row = 0; row < found.estimates.rows; ++row) {
        text += fmt::format("{},{}", row + 1,
                            study_verdict_name(found.verdicts[static_cast<std::size_t>(row)]));
        for (int k = 0; k < found.estimates.columns; ++k) {
            text += "," + csv_number(found.estimates[row][k]);
        }
        text += "\n";
    }
    return text;
}

Json BootstrapRecords::json() const {
    Json records;
    records["seconds"] = seconds;
    records["replicates"] = Json::array();
    for (const BootstrapReplicate& each : replicates) {
        Json json;
        json["verdict"] = study_verdict_name(each.verdict);
        json["proposals"] = each.proposals;
        json["estimates"] = exact_numbers(each.estimates);
        json["standard_errors"] = exact_numbers(each.standard_errors);
        records["replicates"].push_back(std::move(json));
    }
    return records;
}

void BootstrapRecords::add(const Json& records) {
    seconds += records.at("seconds").get<double>();
    for (const Json& json : records.at("replicates")) {
        replicates.push_back({verdict_at(json), exact_numbers_at(json.at("estimates")),
                              exact_numbers_at(json.at("standard_errors")),
                              json.at("proposals").get<double>()});
    }
}

BootstrapRecords drawn_replicates(const StudyInput& input, const StudyEstimate& estimate,
                                  const WorkPart& part, RunProgress& progress) {
    const auto begin = std::chrono::steady_clock::now();
    BootstrapRecords drawn;
    drawn.replicates =
        bootstrap_replicates(input.files.study, input.resolved, estimate, part, progress);
    drawn.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    return drawn;
}
