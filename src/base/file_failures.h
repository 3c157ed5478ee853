// What could not be written (a full disk, a quota, a directory that went away) or opened for
// reading.
//
// The engine goes on without the file and says nothing; whoever lends a FileFailures learns of it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct FileFailure {
    std::string path;
    // The system's error number (errno) of the first failure.
    int error = 0;
    // Whether it was to be read: what could not be opened reads as empty.
    bool reading = false;
};

struct FileFailures {
    // Files whose failures are told one by one; a disk that is full fails every sample's report.
    static constexpr std::size_t kMostFiles = 100;

    // The first failure of each file, in the order of time.
    std::vector<FileFailure> files;
    // Failures that are not told one by one.
    std::size_t further = 0;

    bool none() const { return files.empty() && further == 0; }
};

// Keeps the first failure of a file.
void note_file_failure(FileFailures& failures, const std::string& path, int error,
                       bool reading = false) noexcept;

bool has_file_failure(const FileFailures& failures, const std::string& path);

// While it lives, every writer and reader that the calling thread opens notes its failures in the
// record. Runs in other threads have their own.
class FileFailureScope {
  public:
    explicit FileFailureScope(FileFailures& failures);
    ~FileFailureScope();
    FileFailureScope(const FileFailureScope&) = delete;
    FileFailureScope& operator=(const FileFailureScope&) = delete;

  private:
    FileFailures* previous_;
};

// The record of the innermost scope on this thread; null outside of any.
FileFailures* current_file_failures();
