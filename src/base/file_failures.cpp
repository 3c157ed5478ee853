#include "base/file_failures.h"

#include <algorithm>

namespace {

// Like the locale that a run holds, this belongs to the thread for the time of the run: the writers
// of sections are many and small, and none of them decides anything by it.
thread_local FileFailures* thread_failures = nullptr;

}  // namespace

void note_file_failure(FileFailures& failures, const std::string& path, int error,
                       bool reading) noexcept {
    try {
        if (has_file_failure(failures, path)) {
            return;
        }
        if (failures.files.size() < FileFailures::kMostFiles) {
            failures.files.push_back({path, error, reading});
            return;
        }
    } catch (...) {
        // No memory for the name: the failure counts all the same.
    }
    ++failures.further;
}

bool has_file_failure(const FileFailures& failures, const std::string& path) {
    return std::any_of(failures.files.begin(), failures.files.end(),
                       [&path](const FileFailure& failure) { return failure.path == path; });
}

FileFailureScope::FileFailureScope(FileFailures& failures) : previous_(thread_failures) {
    thread_failures = &failures;
}

FileFailureScope::~FileFailureScope() { thread_failures = previous_; }

FileFailures* current_file_failures() { return thread_failures; }
