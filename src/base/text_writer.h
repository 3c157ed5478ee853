// The one writer through which every output file leaves.
//
// A section is opened, written and closed, so that an interrupted run keeps what is complete. A
// file that cannot be opened swallows what is written to it; nothing reports that.
#pragma once

#include <cstdio>
#include <span>
#include <string>

#include "base/open_file.h"

class TextWriter {
  public:
    // Writes to a stream that somebody else owns (the run's console); null swallows.
    explicit TextWriter(std::FILE* stream) : stream_(stream) {}
    explicit TextWriter(FileHandle file) : stream_(file.get()), owned_(std::move(file)) {}

    // printf-style. Formats stand next to the effect catalogue or in the writer that uses them.
    [[gnu::format(printf, 2, 3)]] void print(const char* format, ...);

    // Text as it stands, whatever characters it holds.
    void text(const std::string& text);
    void text(const char* text);

    // One number by a format that holds exactly one floating-point conversion.
    void number(const char* format, double value);

    // Every value by "%d\t".
    void cells(std::span<const int> values);

  private:
    std::FILE* stream_;
    FileHandle owned_;
};

// Opens the file to add at its end.
TextWriter writer_append(const std::string& path);

// Opens the file anew, dropping what it held.
TextWriter writer_replace(const std::string& path);

// `text` with its first "%s" replaced by `name`, whatever characters the name holds.
std::string text_with_name(const char* text, const std::string& name);

// `text` with its "%.2f" filled in.
std::string text_with_lambda(const char* text, float lambda);
