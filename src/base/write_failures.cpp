#include "base/write_failures.h"

#include <algorithm>

namespace {

// Like the locale that a run holds, this belongs to the thread for the time of the run: the writers
// of sections are many and small, and none of them decides anything by it.
thread_local WriteFailures* thread_failures = nullptr;

}  // namespace

void note_write_failure(WriteFailures& failures, const std::string& path, int error) noexcept {
    try {
        if (has_write_failure(failures, path)) {
            return;
        }
        if (failures.files.size() < WriteFailures::kMostFiles) {
            failures.files.push_back({path, error});
            return;
        }
    } catch (...) {
        // No memory for the name: the failure counts all the same.
    }
    ++failures.further;
}

bool has_write_failure(const WriteFailures& failures, const std::string& path) {
    return std::any_of(failures.files.begin(), failures.files.end(),
                       [&path](const WriteFailure& failure) { return failure.path == path; });
}

WriteFailureScope::WriteFailureScope(WriteFailures& failures) : previous_(thread_failures) {
    thread_failures = &failures;
}

WriteFailureScope::~WriteFailureScope() { thread_failures = previous_; }

WriteFailures* current_write_failures() { return thread_failures; }
