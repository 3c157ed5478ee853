// What `ovri gof` compares with the observed network.
#pragma once

#include <string>
#include <vector>

#include "commands/model_options.h"
#include "commands/study_input.h"

// What is compared: a model at parameters, one an effect.
struct Tested {
    StudyInput input;
    std::vector<double> parameters;
    Matrix covariance;
    std::string verdict;
    int exit_status = 0;
    ResultNetwork network;
};

// The model of a results folder at what its result.json found, with what the words say in its
// place; the seed is theirs alone. Problems stand in the input.
Tested tested_folder(ModelOptions words, const std::string& directory);
