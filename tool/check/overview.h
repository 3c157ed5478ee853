// One line that says what a setup file is about.
#pragma once

#include <string>

#include "check/setup_view.h"

// "estimation, undirected network of 16 actors, 2 effects (edge, Triangle)"; empty when the setup
// file could not be read that far.
std::string describe_setup(const SetupView& view);
