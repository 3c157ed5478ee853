#include "terminal/interrupt.h"

#include <csignal>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

// A signal handler sees nothing but globals.
std::atomic<std::atomic<bool>*> wanted_stop{nullptr};
static_assert(std::atomic<std::atomic<bool>*>::is_always_lock_free &&
              std::atomic<bool>::is_always_lock_free);

extern "C" void on_interrupt(int) {
    std::atomic<bool>* stop = wanted_stop.load();
    if (stop != nullptr) {
        stop->store(true);
    }
    std::signal(SIGINT, SIG_DFL);
}

}  // namespace

InterruptScope::InterruptScope(std::atomic<bool>& stop) {
    wanted_stop.store(&stop);
    if (std::signal(SIGINT, on_interrupt) == SIG_IGN) {
        std::signal(SIGINT, SIG_IGN);
    }
}

InterruptScope::~InterruptScope() {
    if (std::signal(SIGINT, SIG_DFL) == SIG_IGN) {
        std::signal(SIGINT, SIG_IGN);
    }
    wanted_stop.store(nullptr);
}

#ifdef _WIN32

void outlive_failed_writes() {}

bool lost_output(std::FILE* stream) { return std::fflush(stream) != 0 || std::ferror(stream) != 0; }

#else

void outlive_failed_writes() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool lost_output(std::FILE* stream) {
    if (std::fflush(stream) == 0 && std::ferror(stream) == 0) {
        return false;
    }
    struct stat status {};
    const bool pipe = ::fstat(::fileno(stream), &status) == 0 &&
                      (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
    return !pipe;
}

#endif
