// The way that the parameters of an estimation took.
#pragma once

#include <string>
#include <vector>

// A stretch of it by one procedure: "newton", "approximation", "subphase 1", and of a further
// attempt "attempt 2, subphase 1".
struct PathStage {
    std::string name;
    std::vector<std::vector<double>> parameters;  // a row a step, by effect
};

using ParameterPath = std::vector<PathStage>;

// Adds a step; a stage begins where the one before had another name.
void add_step(ParameterPath& path, const std::string& stage, std::vector<double> parameters);

int path_steps(const ParameterPath& path);

// The path with about `most` steps: of each stage every so many-th, its first and its last.
ParameterPath thinned(const ParameterPath& path, int most);
