// A bootstrap whose replicates are drawn in parts.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "commands/results_folder.h"
#include "commands/study_input.h"
#include "parts/part_run.h"
#include "study/study_bootstrap.h"

// Each command estimates once for all parts that it draws, and before it merges: estimates are the
// same everywhere, so that replicates alone go through the files of parts, every number exact.
class DividedBootstrap {
  public:
    // All outlive it. The seed is settled.
    DividedBootstrap(StudyInput& input, int replicates, bool with_progress, ResultsFolder& folder)
        : input_(input), replicates_(replicates), with_progress_(with_progress), folder_(folder) {}

    // Draws and takes in the parts that are asked for; see run_parts.
    std::optional<int> run(const PartRun& run);

    // What was found, once all parts are taken in.
    const StudyEstimate& estimate() const { return *estimate_; }
    // Of estimates that may be used.
    std::optional<StudyBootstrap> bootstrap() const;

  private:
    PartDrawn draw(const WorkPart& part, nlohmann::ordered_json& records);
    std::string take(const nlohmann::ordered_json& records);
    // Once; throws RunStopped when it was interrupted.
    void find_estimate(RunProgress& progress);
    // The estimates that replicates are drawn at; none where they are not to be used.
    std::vector<double> drawn_at() const;

    StudyInput& input_;
    int replicates_;
    bool with_progress_;
    ResultsFolder& folder_;
    std::optional<StudyEstimate> estimate_;
    std::optional<std::vector<double>> taken_at_;  // as the parts have it
    std::vector<BootstrapReplicate> all_;
    double seconds_ = 0.0;
};
