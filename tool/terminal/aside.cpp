#include "terminal/aside.h"

#include <fcntl.h>

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

#ifdef _WIN32
constexpr const char* kNowhere = "NUL";
int duplicate(int file) { return ::_dup(file); }
void replace(int file, int by) { ::_dup2(by, file); }
void close_file(int file) { ::_close(file); }
int number_of(std::FILE* stream) { return ::_fileno(stream); }
int open_nowhere() { return ::_open(kNowhere, _O_WRONLY); }
#else
constexpr const char* kNowhere = "/dev/null";
int duplicate(int file) { return ::fcntl(file, F_DUPFD_CLOEXEC, 0); }
void replace(int file, int by) { ::dup2(by, file); }
void close_file(int file) { ::close(file); }
int number_of(std::FILE* stream) { return ::fileno(stream); }
int open_nowhere() { return ::open(kNowhere, O_WRONLY | O_CLOEXEC); }
#endif

}  // namespace

OutputAside::OutputAside(bool quiet) : kept_(-1) {
    std::fflush(stdout);
    const int out = number_of(stdout);
    kept_ = duplicate(out);
    const int nowhere = quiet ? open_nowhere() : -1;
    replace(out, nowhere >= 0 ? nowhere : number_of(stderr));
    if (nowhere >= 0) {
        close_file(nowhere);
    }
}

OutputAside::~OutputAside() {
    std::fflush(stdout);
    if (kept_ >= 0) {
        replace(number_of(stdout), kept_);
        close_file(kept_);
    }
}
