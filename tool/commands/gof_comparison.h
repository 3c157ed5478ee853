// The comparison that `ovri gof` makes and writes, whatever it is of.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "commands/gof_source.h"
#include "commands/results_folder.h"
#include "parts/part_options.h"
#include "study/study_gof.h"
#include "terminal/terminal.h"

struct GofOptions {
    ModelOptions model;
    FolderOptions folder;
    std::optional<std::uint32_t> samples;
    std::optional<std::uint32_t> burn_in;
    std::optional<std::uint32_t> interval;
    bool bayesian = false;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
    PartOptions parts;
};

// The options stand in place of what the model says, from here on.
void take_options(const GofOptions& options, StudyInput& input);

// What was found, or the exit status where there is nothing to write, told.
struct FoundGof {
    std::optional<StudyGof> gof;
    double seconds = 0.0;
    int status = 0;
};

// Draws the networks and compares, or does so in parts that are kept in the folder. The seed is
// settled and the options are taken. `own` is a folder that holds nothing but the comparison; null
// where it stands beside estimates.
FoundGof find_gof(const Tested& tested, const GofOptions& options, const std::string& directory,
                  ResultsFolder* own);

// Writes gof.json and gof.csv into a folder that is there, and shows what was found.
int write_gof(const Tested& tested, const GofOptions& options, const std::string& directory,
              const FoundGof& found);
