// How a run ended, and what is told about an end that is not the whole run.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "base/file_failures.h"

struct Outcome {
    enum class End { complete, interrupted, no_memory, broken_off };
    End end = End::complete;
    // Why the run broke off.
    std::string reason;
    // Files that take no more, or never did.
    FileFailures failures;
    // Whether the run's own text could not be written to standard output.
    bool console_lost = false;
};

// The exit status of a run that ended so.
int exit_status(const Outcome& outcome);

// Tells what is there after a run that is not complete; nothing after one that is. `written` are
// the files that the run has made or written.
void tell_outcome(const Outcome& outcome, const std::string& setup,
                  const std::vector<std::string>& written, std::FILE* out);
