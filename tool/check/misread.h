// The first place where a setup file was not read as its writer must have meant it.
//
// Reading is by position, so one number too few or a blank in a label moves all that follows. Only
// the first such place is explained: what stands behind it is a consequence.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "check/setup_view.h"

// The first item that could not be read, or whose number is only a part of the word that stands
// there ("16.5" where a whole number is read).
std::optional<std::size_t> first_misread(const SetupView& view);

// Adds the error that explains it.
void explain_misread(const SetupView& view, std::size_t index, Findings& findings);
