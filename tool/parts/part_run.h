// Carries out the parts of a run that the options ask for, or merges those that are there.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "parts/part_files.h"
#include "parts/part_options.h"

enum class PartDrawn { done, interrupted, failed };

struct PartCalls {
    // Draws a part and puts what it found into the records. What failed has been told.
    std::function<PartDrawn(const WorkPart& part, nlohmann::ordered_json& records)> draw;
    // Adds the records of a part behind those of the parts before; what is wrong with them, or
    // nothing. May throw nlohmann::ordered_json::exception.
    std::function<std::string(const nlohmann::ordered_json& records)> take;
};

struct PartRun {
    PartOptions options;
    bool overwrite = false;  // parts that are there are done again
    bool quiet = false;
};

// One run does the same as its parts one by one and their merging: every part leaves its file, and
// what is merged has been read from, or could be read from, the files. None when all parts have
// been taken and the results can be written; else the exit status, told.
std::optional<int> run_parts(const PartFiles& files, const PartRun& run, const PartCalls& calls);

// Tells that what a part drew does not go with the others or with this run; the exit status.
int tell_unlike(const PartFiles& files, int number, const std::string& mistake);
