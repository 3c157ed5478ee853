// What could not be written: a full disk, a quota, a directory that went away.
//
// The engine goes on without the file and says nothing; whoever lends a WriteFailures learns of it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct WriteFailure {
    std::string path;
    // The system's error number (errno) of the first failure.
    int error = 0;
};

struct WriteFailures {
    // Files whose failures are told one by one; a disk that is full fails every sample's report.
    static constexpr std::size_t kMostFiles = 100;

    // The first failure of each file, in the order of time.
    std::vector<WriteFailure> files;
    // Failures that are not told one by one.
    std::size_t further = 0;

    bool none() const { return files.empty() && further == 0; }
};

// Keeps the first failure of a file.
void note_write_failure(WriteFailures& failures, const std::string& path, int error) noexcept;

bool has_write_failure(const WriteFailures& failures, const std::string& path);

// While it lives, every writer that the calling thread opens notes its failures in the record. Runs
// in other threads have their own.
class WriteFailureScope {
  public:
    explicit WriteFailureScope(WriteFailures& failures);
    ~WriteFailureScope();
    WriteFailureScope(const WriteFailureScope&) = delete;
    WriteFailureScope& operator=(const WriteFailureScope&) = delete;

  private:
    WriteFailures* previous_;
};

// The record of the innermost scope on this thread; null outside of any.
WriteFailures* current_write_failures();
