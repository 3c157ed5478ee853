// A test of fit whose samples are drawn in parts.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "commands/gof_source.h"
#include "parts/part_run.h"
#include "study/study_gof.h"

// Each command that draws finds the interval once, which is the same everywhere; the measures of
// the samples go through the files of parts, every number exact.
class DividedGof {
  public:
    // Both outlive it.
    DividedGof(const Tested& tested, const GofSettings& settings, bool with_progress)
        : tested_(tested), settings_(settings), with_progress_(with_progress) {}

    // Draws and takes in the parts that are asked for, in the folder; see run_parts. `own`: see
    // find_gof.
    std::optional<int> run(const std::string& directory, const PartRun& run, ResultsFolder* own);

    // With the samples of all parts, once they are taken in.
    StudyGof comparison() const;

  private:
    PartDrawn draw(const WorkPart& part, nlohmann::ordered_json& records);
    std::string take(const nlohmann::ordered_json& records);

    const Tested& tested_;
    const GofSettings& settings_;
    bool with_progress_;
    std::optional<GofInterval> interval_;  // as it was found by this command
    GofInterval taken_;                    // as the parts have it
    std::vector<GofMeasures> samples_;
    double proposals_ = 0.0;
};
