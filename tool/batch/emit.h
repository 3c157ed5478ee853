// A plan's jobs handed to an engine that spreads them over machines: the folder gets the list of
// jobs and what that engine reads. Each job is `ovri batch PLAN --job K`.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/plan_check.h"

enum class Engine { slurm, parallel, make };

// "slurm", "parallel", "make".
std::optional<Engine> engine_of(const std::string& name);

struct EmittedFile {
    std::string name;
    std::string text;
    bool program = false;  // may be executed
};

// What the engine needs beyond the plan.
struct EmitSettings {
    std::string plan;  // as seen from the folder
    double seconds_per_proposal = 0.0;
};

// The files of the folder, jobs.tsv first. Scripts call $OVRI, or `ovri` where that is not set.
std::vector<EmittedFile> emitted_files(Engine engine, const Plan& plan, const PlanCheck& check,
                                       const EmitSettings& settings);

// What to type in the folder.
std::string emitted_command(Engine engine);
