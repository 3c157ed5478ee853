// Rows of effects that stand in another place than their labels say.
//
// The engine reads labels for nothing: a row whose label is the name of another row of its section
// would silently be that other effect.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "check/setup_view.h"

// The first row whose label names another effect than the one read there.
std::optional<std::size_t> first_misplaced_row(const SetupView& view);

// A sentence that tells which effect is read there and what the label says.
std::string describe_misplaced_row(const SetupView& view, std::size_t index);
