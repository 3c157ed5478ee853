// The one writer through which every output file leaves.
//
// A section is opened, written and closed, so that an interrupted run keeps what is complete. A
// file that cannot be opened swallows what is written to it. A section that cannot be written whole
// is taken back, and nothing more is added to its file: what stands there ends with a whole
// section. Failures are noted in the record of the thread's FileFailureScope and told nowhere
// else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

#include "base/open_file.h"

struct FileFailures;

class TextWriter {
  public:
    // Writes to a stream that somebody else owns (the run's console); null swallows. Whether it
    // could be written is the owner's to ask.
    explicit TextWriter(std::FILE* stream) : stream_(stream) {}
    // Writes to a file of its own and closes it at the end. `failures` may be null.
    TextWriter(std::string path, FileHandle file, FileFailures* failures);
    ~TextWriter();
    TextWriter(TextWriter&&) noexcept = default;
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(TextWriter&&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    // printf-style. Formats stand next to the effect catalogue or in the writer that uses them.
    [[gnu::format(printf, 2, 3)]] void print(const char* format, ...);

    // Text as it stands, whatever characters it holds.
    void text(const std::string& text);
    void text(const char* text);

    // One number by a format that holds exactly one floating-point conversion.
    void number(const char* format, double value);

    // Every value by "%d\t".
    void cells(std::span<const int> values);

    // Ends a section inside an opening of the file: what was written so far leaves in one piece and
    // stays, whatever becomes of the rest.
    void end_section();

  private:
    // A section up to this size leaves in one piece, whenever the process is killed.
    static constexpr std::size_t kBufferSize = 1U << 16U;

    // Keeps the first error of the section.
    void expect(bool written);
    void take_back() const;

    // Outlives the file that writes from it.
    std::unique_ptr<char[]> buffer_;
    std::FILE* stream_;
    FileHandle owned_;
    std::string path_;
    FileFailures* failures_ = nullptr;
    // Size of the file before the section; -1 where there is no such thing (a pipe, a device).
    std::int64_t begin_ = -1;
    int error_ = 0;
};

// Opens the file to add at its end.
TextWriter writer_append(const std::string& path);

// Opens the file anew, dropping what it held.
TextWriter writer_replace(const std::string& path);

// `text` with its first "%s" replaced by `name`, whatever characters the name holds.
std::string text_with_name(const char* text, const std::string& name);

// `text` with its "%.2f" filled in.
std::string text_with_lambda(const char* text, float lambda);
