// A study read from the files that a model file names.
#pragma once

#include <string>
#include <vector>

#include "formats/model_file.h"
#include "formats/network_file.h"
#include "study/study_selection.h"

struct StudyFiles {
    Study study;
    NetworkFormat format = NetworkFormat::edge_list;
    NetworkCounts counts;
    // What was read and guessed, one line each, for the log and the terminal.
    std::vector<std::string> notes;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads network, nodes, covariates and free dyads. Problems of an attribute that the model does not
// use are notes, and the attribute is left out. Whether the effects exist is not looked at.
StudyFiles load_study(const ModelFile& model);

// The problems of a selection with the places of their effects in the model file.
Problems placed_problems(const ModelFile& model, const StudySelection& selection);
