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
    std::string standard_input;  // the text of a network that came from there
    // What was read and guessed, one line each, for the log and the terminal.
    std::vector<std::string> notes;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads network, nodes, covariates and free dyads. Problems of an attribute that the model does not
// use are notes, and the attribute is left out. Whether the effects exist is not looked at.
StudyFiles load_study(const ModelFile& model);

// Problems of effects, each with the number of its effect, with the places where these stand: in
// the model file, or in the option `--effects`.
Problems placed_problems(const ModelFile& model, Problems problems,
                         const std::vector<int>& effects);
