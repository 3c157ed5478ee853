// What a parametric bootstrap found, as a record, as a file and as what its parts keep.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "commands/study_input.h"
#include "show/result_record.h"
#include "study/study_bootstrap.h"

ResultBootstrap result_bootstrap(const StudyBootstrap& found);

// One row a replicate: its number, from 1, its verdict, and the estimate of each effect; empty
// where it did not converge.
std::string bootstrap_csv(const StudyBootstrap& found);

// Replicates on their way through the file of a part, every number exact.
struct BootstrapRecords {
    std::vector<BootstrapReplicate> replicates;
    double seconds = 0.0;

    nlohmann::ordered_json json() const;
    // Adds those of a part. Throws nlohmann::ordered_json::exception where they cannot be read.
    void add(const nlohmann::ordered_json& records);
};

BootstrapRecords drawn_replicates(const StudyInput& input, const StudyEstimate& estimate,
                                  const WorkPart& part, RunProgress& progress);
