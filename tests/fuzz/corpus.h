// The inputs from which fuzzing starts.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The setup files, attribute files, matrices .. of the examples and of the golden runs as inputs of
// the target, and what earlier fuzzing has left under tests/fuzz/corpus.
std::vector<std::string> seed_inputs(const std::string& target);
