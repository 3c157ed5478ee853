#include "study/problem.h"

#include <array>
#include <cstdio>

namespace {

constexpr std::size_t kMostShown = 60;

bool is_continuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0U) == 0x80U;
}

std::string shown_character(char character) {
    const auto code = static_cast<unsigned char>(character);
    switch (character) {
        case '\t':
            return "\\t";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        default:
            break;
    }
    if (code >= 0x20 && code != 0x7F) {
        return {character};
    }
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\x%02X", code);
    return escape.data();
}

}  // namespace

std::string problem_place(const Problem& problem) {
    std::string place = problem.file;
    if (problem.line > 0) {
        place += (place.empty() ? "line " : ":") + std::to_string(problem.line);
        if (problem.column > 0) {
            place += ":" + std::to_string(problem.column);
        }
    }
    return place;
}

std::string problem_text(const Problem& problem) {
    std::string text = problem_place(problem);
    const auto add = [&text](const char* link, const std::string& part) {
        if (!part.empty()) {
            text += (text.empty() ? "" : link) + part;
        }
    };
    add(": ", problem.field);
    add(": ", problem.found.empty() ? "" : "found " + problem.found);
    add(", ", problem.expected.empty() ? "" : "expected " + problem.expected);
    add("\n    ", problem.mend);
    return text;
}

std::string shown_text(const std::string& text) {
    std::string shown = "\"";
    std::size_t k = 0;
    // A character of several bytes is shown whole.
    for (; k < text.size() && (k < kMostShown || is_continuation(text[k])); ++k) {
        shown += shown_character(text[k]);
    }
    return shown + (k < text.size() ? "...\"" : "\"");
}
