// Ctrl-C while a run goes on, and a reader of standard output that goes away.
#pragma once

#include <atomic>
#include <cstdio>

// While it lives, the first Ctrl-C sets the flag, so that the run can close its files; the second
// one ends the process at once. A process that was started to ignore Ctrl-C goes on ignoring it.
class InterruptScope {
  public:
    explicit InterruptScope(std::atomic<bool>& stop);
    ~InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;
};

// From now on no write ends the process: neither to a pipe whose reader has gone away, as in
// "ovri run net.setup | head", nor past a limit on the size of files.
void outlive_failed_writes();

// Flushes the stream; whether something written to it is lost, other than to a reader that has gone
// away.
bool lost_output(std::FILE* stream);
