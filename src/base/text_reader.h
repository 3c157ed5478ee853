// Reading of the positional text files: setup file, matrices, attribute files, covariate lists.
//
// Numbers are scanned exactly as the C library's formatted input scans them in the C locale, what
// is consumed on a failed match included: hosts write their files for such a scan, and a read that
// fails must leave its target as it was and the file where such a scan leaves it. Labels, names and
// lines may have any length. A file that cannot be opened reads as an empty one.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "base/open_file.h"

struct TextReader {
    FileHandle file;
    bool opened() const { return file != nullptr; }
};

// Opens the path for reading in text mode.
TextReader reader_open(const std::string& path);

// The offset in bytes of the next character, or -1 without a file.
long reader_offset(TextReader& reader);

// True when nothing but white space is left; skips that white space.
bool reader_at_end(TextReader& reader);

void reader_skip_space(TextReader& reader);

// One token without white space, then the white space behind it. Empty at the end of the file.
std::string reader_label(TextReader& reader);

// The characters up to the next line feed (dropped) or the end of the file, kept as they are,
// blanks and a carriage return at the end included; then the white space behind.
std::string reader_line(TextReader& reader);

// The next character as an unsigned char, or -1 at the end.
int reader_character(TextReader& reader);

// One number, then (when it could be read) the white space behind it. Returns false, leaving the
// target as it was, when no number stands there.
bool reader_int(TextReader& reader, int& target);
bool reader_float(TextReader& reader, float& target);
bool reader_double(TextReader& reader, double& target);

// One integer without the white space behind it.
bool reader_cell(TextReader& reader, int& target);

// Knows when a sequence of like reads can never succeed again: two failures in a row at one place.
// A file that is missing, short or unreadable then costs one look per remaining cell, not one scan.
class ReadSequence {
  public:
    explicit ReadSequence(TextReader& reader) : reader_(reader) {}

    // Reads one cell by `read` (reader_int, reader_cell, ..); the target stays when it fails.
    template <class Value>
    void next(bool (*read)(TextReader&, Value&), Value& target) {
        if (!stuck_ && !read(reader_, target)) {
            note_failure();
        }
    }

  private:
    void note_failure();

    TextReader& reader_;
    long failed_at_ = -2;
    bool stuck_ = false;
};

// Holds the calling thread's locale at "C" while it lives, so that the host's locale has no
// influence on what is read or written.
class CLocaleScope {
  public:
    CLocaleScope();
    ~CLocaleScope();
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

  private:
    struct Saved;
    std::unique_ptr<Saved> saved_;
};
