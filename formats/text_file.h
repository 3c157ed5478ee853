// A text file as people have it, whole in memory, and its encoding.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "study/number_text.h"
#include "study/problem.h"

// A file read, or why it could not be. `text` is UTF-8 without a byte order mark.
struct TextFile {
    std::string path;
    std::string text;
    Problems problems;  // empty, or one
    bool ok() const { return problems.empty(); }
};

// How messages call what comes from "-".
constexpr const char* kStandardInput = "standard input";

// Reads a file; "-" is standard input. A problem: no such file, a directory, an empty file, one
// that is no text (a zero byte), text in another encoding than UTF-8, more than 4 GiB. What is no
// text is found in the first block that shows it, before the rest is read.
TextFile read_text_file(const std::string& path);

// The same checks for text that is already there.
TextFile text_file_of(std::string path, std::string text);

// Writes a file anew. False when it cannot be written whole; nothing is left behind then.
bool write_text_file(const std::string& path, const std::string& text);

// `path` as seen from the directory in which `file` stands, unless it is absolute or "-"; without
// ways down and up again.
std::string path_beside(const std::string& file, const std::string& path);

// The extension in lower case, without its dot; empty without one.
std::string path_extension(const std::string& path);

// What people write for a value that is not known: nothing, NA, N/A, NaN, null, a single point,
// #N/A, in any case.
bool is_missing_text(std::string_view text);
