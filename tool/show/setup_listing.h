// A setup file for reading: every line with what its values are.
#pragma once

#include <string>

#include "check/setup_view.h"

// The lines of the file, each followed by "# NAME: meaning" of the items that stand on it. The text
// is for people: a setup file itself has no comments.
std::string setup_listing(const SetupView& view, const Findings& findings);
