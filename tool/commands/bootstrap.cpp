#include "commands/bootstrap.h"

#include <fmt/core.h>

#include "formats/csv.h"
#include "show/document_pieces.h"

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
