// The estimation of a model into a results folder, for commands that estimate many.
#pragma once

#include <string>

#include "commands/results_folder.h"
#include "commands/study_input.h"

// Estimates a model that was read and found sound, and leaves in the folder what `ovri estimate`
// does. Nothing goes to standard output, and only errors to standard error. `model_path` is what
// the commands of the advice call the model. Returns the exit status.
int estimate_into(StudyInput& input, const std::string& model_path, ResultsFolder& folder);
