// Parts of a run handed to an engine: the folder gets the model as it will be run and what the
// engine reads.
#pragma once

#include <string>

#include "commands/results_folder.h"
#include "commands/study_input.h"
#include "parts/part_options.h"

// The name of the model's file in the folder; results never take it.
constexpr const char* kEmittedModel = "run.toml";

struct EmittedRun {
    std::string words;            // "simulate run.toml", as typed in the folder
    std::string collect_words;    // further ones of --collect; may be empty
    std::string folder = "-o .";  // where parts go; empty where the words say it
    int pieces = 0;
};

// Writes what `options.engine` needs; the exit status. The parts take the threads of the input's
// settings, one where these leave them open.
int emit_parts(const EmittedRun& run, const StudyInput& input, const PartOptions& options,
               const std::string& directory);

// The same for a model that stands in the folder from here on, with its seed. `command` stands
// before its name.
int emit_model(const std::string& command, int pieces, StudyInput& input,
               const PartOptions& options, ResultsFolder& folder);
