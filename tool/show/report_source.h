// What a report is made of: one results folder, read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "show/gof_record.h"
#include "show/result_record.h"
#include "study/study.h"

// One effect's statistics by chain and draw.
struct SampledStatistic {
    std::string effect;
    std::vector<std::vector<double>> chains;
};

struct ReportSource {
    std::string name;  // of the folder
    ResultRecord result;
    // Null where the files that the model names are no longer there; `missing` says why.
    std::optional<Study> study;
    std::string missing;
    std::vector<SampledStatistic> samples;
    std::optional<GofRecord> gof;
    std::string model_text;
    std::string log_text;
};

// Whether the estimates may be used.
inline bool is_usable(const ResultRecord& result) { return result.exit_status == 0; }

// The columns of sample.csv behind chain and draw; none of a text that is no such table.
std::vector<SampledStatistic> read_samples(const std::string& text);

// "path: text" of the members of a result's diagnosis; none without one.
std::vector<std::string> diagnosis_lines(const ResultRecord& result);
