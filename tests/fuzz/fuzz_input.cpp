#include "fuzz/fuzz_input.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

MemoryFile::MemoryFile()
    : file_(::memfd_create("input", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(file_)) {
    if (file_ < 0) {
        std::abort();
    }
}

MemoryFile::~MemoryFile() { ::close(file_); }

const std::string& MemoryFile::write(const std::string& text) {
    if (::ftruncate(file_, 0) != 0 ||
        ::pwrite(file_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
        std::abort();
    }
    return path_;
}
