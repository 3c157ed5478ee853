// The values of effects that networks are drawn at.
#pragma once

#include <string>

#include "formats/model_file.h"

// The estimates of a results folder become the values that its model simulates at; told when they
// are not to be used.
void take_estimates(const std::string& directory, ModelFile& model);

// "edge=-2,AT(2)=0.5": values in place of the model's. A problem where one is none, or of no effect
// of the model.
void take_values(const std::string& list, ModelFile& model);
