#include "commands/outcome.h"

#include <system_error>

#include "commands/commands.h"

namespace {

std::string count_text(std::size_t files) {
    return files == 0   ? "no file was written"
           : files == 1 ? "1 file was written"
                        : std::to_string(files) + " files were written";
}

void list(std::FILE* out, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        std::fprintf(out, "  %s\n", path.c_str());
    }
}

void tell_failures(const Outcome& outcome, const std::string& setup,
                   const std::vector<std::string>& written, std::FILE* out) {
    std::fprintf(out, "%s: not everything could be written\n", setup.c_str());
    for (const WriteFailure& failure : outcome.failures.files) {
        std::fprintf(out, "  %s: %s\n", failure.path.c_str(),
                     std::generic_category().message(failure.error).c_str());
    }
    if (outcome.failures.further > 0) {
        std::fprintf(out, "  and %zu more\n", outcome.failures.further);
    }
    if (outcome.console_lost) {
        std::fprintf(out, "  standard output\n");
    }
    std::fprintf(out,
                 "What is there of these files ends with the last section that could be written "
                 "whole.\n");
    std::vector<std::string> complete;
    for (const std::string& path : written) {
        if (!has_write_failure(outcome.failures, path)) {
            complete.push_back(path);
        }
    }
    if (outcome.end == Outcome::End::complete && !complete.empty()) {
        std::fprintf(out, "Complete are:\n");
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
    const char* name = setup.c_str();
    switch (outcome.end) {
        case Outcome::End::interrupted:
            std::fprintf(out, "%s: interrupted; %s, each closed behind its last whole line\n", name,
                         count_text(written.size()).c_str());
            break;
        case Outcome::End::no_memory:
            std::fprintf(out, "%s: memory ran out; what is written so far is incomplete\n", name);
            break;
        case Outcome::End::broken_off:
            std::fprintf(out, "%s: the run broke off: %s; what is written so far is incomplete\n",
                         name, outcome.reason.c_str());
            break;
        case Outcome::End::complete:
            break;
    }
    if (!outcome.failures.none() || outcome.console_lost) {
        tell_failures(outcome, setup, written, out);
    }
}
