// Looking into the texts that runs leave.
#pragma once

#include <sstream>
#include <string>
#include <vector>

inline bool has(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
}

// The lines of a text, without their ends.
inline std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}
