#include "commands/outcome.h"

#include <algorithm>
#include <system_error>

#include "commands/commands.h"
#include "terminal/print.h"

namespace {

std::string count_text(std::size_t files) {
    return files == 0   ? "no file was written"
           : files == 1 ? "1 file was written"
                        : fmt::format("{} files were written", files);
}

void list(std::FILE* out, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        print(out, "  {}\n", path);
    }
}

std::string failure_text(const FileFailure& failure) {
    return failure.path + ": " +
           (failure.reading ? "could not be read, so it counts as empty: " : "") +
           std::generic_category().message(failure.error);
}

bool any_unwritten(const Outcome& outcome) {
    return outcome.console_lost || outcome.failures.further > 0 ||
           std::any_of(outcome.failures.files.begin(), outcome.failures.files.end(),
                       [](const FileFailure& failure) { return !failure.reading; });
}

void tell_failures(const Outcome& outcome, const std::string& setup,
                   const std::vector<std::string>& written, std::FILE* out) {
    print(out, "{}: not every file could be read and written\n", setup);
    for (const FileFailure& failure : outcome.failures.files) {
        print(out, "  {}\n", failure_text(failure));
    }
    if (outcome.failures.further > 0) {
        print(out, "  and {} more\n", outcome.failures.further);
    }
    if (outcome.console_lost) {
        print(out, "  standard output\n");
    }
    if (!any_unwritten(outcome)) {
        return;
    }
    print(out,
          "What is there of these files ends with the last section that could be written whole.\n");
    std::vector<std::string> complete;
    for (const std::string& path : written) {
        if (!has_file_failure(outcome.failures, path)) {
            complete.push_back(path);
        }
    }
    if (outcome.end == Outcome::End::complete && !complete.empty()) {
        print(out, "Complete are:\n");
        list(out, complete);
    }
}

}  // namespace

int exit_status(const Outcome& outcome) {
    if (outcome.end == Outcome::End::interrupted) {
        return kInterrupted;
    }
    const bool whole =
        outcome.end == Outcome::End::complete && outcome.failures.none() && !outcome.console_lost;
    return whole ? kDone : kNotCompleted;
}

void tell_outcome(const Outcome& outcome, const std::string& setup,
                  const std::vector<std::string>& written, std::FILE* out) {
    switch (outcome.end) {
        case Outcome::End::interrupted:
            print(out, "{}: interrupted; {}, each closed behind its last whole line\n", setup,
                  count_text(written.size()));
            break;
        case Outcome::End::no_memory:
            print(out, "{}: memory ran out; what is written so far is incomplete\n", setup);
            break;
        case Outcome::End::broken_off:
            print(out, "{}: the run broke off: {}; what is written so far is incomplete\n", setup,
                  outcome.reason);
            break;
        case Outcome::End::complete:
            break;
    }
    if (!outcome.failures.none() || outcome.console_lost) {
        tell_failures(outcome, setup, written, out);
    }
}
