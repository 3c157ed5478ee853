// The value of a number that does not exist: no error was simulated, no test made, nothing to
// divide by. Tables leave its place empty and documents write null.
#pragma once

#include <limits>

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
