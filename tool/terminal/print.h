// Text for people.
#pragma once

#include <fmt/core.h>

#include <cstdio>
#include <string>
#include <utility>

#include "study/counted.h"

// Writes the formatted text. A stream that takes no more keeps its error mark and stops nothing.
template <class... Values>
void print(std::FILE* out, fmt::format_string<Values...> text, Values&&... values) {
    const std::string line = fmt::format(text, std::forward<Values>(values)...);
    std::fwrite(line.data(), 1, line.size(), out);
}
