// The check of a model file, or of the same things as options: everything that an estimation would
// find out before it begins.
#pragma once

#include <string>
#include <vector>

#include "check/findings.h"
#include "commands/study_input.h"

struct ModelCheck {
    StudyInput input;  // as far as it could be read
    bool read = false;
    Findings findings;
};

ModelCheck check_model(ModelFile model);

// Whether the file is a model file rather than a setup file: by its name, else by what stands
// first in it. Data that stand in place of a model are taken for one, which says so.
bool is_model_file(const std::string& path);
