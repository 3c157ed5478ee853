// Counts in sentences.
#pragma once

#include <string>

// "1 tie", "2 ties".
inline std::string counted(long long count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}
