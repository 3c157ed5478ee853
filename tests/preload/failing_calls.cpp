// Preloaded into a process, makes one call of the C library fail, as it may on a full disk or a
// crowded machine. OVRI_FAIL holds "open N", "write N" or "memory N": the N-th opening of a file by
// a stream, the N-th closing of a stream written to (what it has not written yet meets a full
// disk), or the N-th piece of memory asked for, counted from the start of main on: before it no
// program can tell of a failure. "write N on" fails from the N-th on, as a disk
// that stays full. OVRI_COUNTS names a file that receives the numbers of these calls at the end,
// OVRI_SECTIONS one that receives a line "SIZE PATH" whenever a stream written to has been closed
// or flushed.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

namespace {

struct Kind {
    const char* name;
    std::atomic<long> calls{0};
    long failing = -1;
    bool on = false;
};
Kind opening{"open "};
Kind writing{"write "};
Kind memory{"memory "};
std::atomic<bool> ready{false};

bool fails(Kind& kind) {
    if (!ready.load()) {
        return false;
    }
    const long call = ++kind.calls;
    return call == kind.failing || (kind.on && kind.failing > 0 && call > kind.failing);
}

__attribute__((constructor)) void begin() {
    const char* wanted = std::getenv("OVRI_FAIL");
    for (Kind* kind : {&opening, &writing, &memory}) {
        const std::size_t length = std::strlen(kind->name);
        if (wanted != nullptr && std::strncmp(wanted, kind->name, length) == 0) {
            kind->failing = std::atol(wanted + length);
            kind->on = std::strstr(wanted, " on") != nullptr;
        }
    }
}

__attribute__((destructor)) void end() {
    ready = false;
    const char* path = std::getenv("OVRI_COUNTS");
    const int file = path != nullptr ? ::open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600) : -1;
    if (file >= 0) {
        ::dprintf(file, "%ld %ld %ld\n", opening.calls.load(), writing.calls.load(),
                  memory.calls.load());
        ::close(file);
    }
}

template <class Function>
Function* next_of(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

using Path = std::array<char, 4096>;

// Neither may ask for memory: that could be what fails.
Path path_of(int file) {
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    Path path{};
    if (::readlink(link.data(), path.data(), path.size() - 1) < 0) {
        path[0] = '\0';
    }
    return path;
}

void note_section(const Path& path) {
    static const char* const notes = std::getenv("OVRI_SECTIONS");
    struct stat status {};
    if (notes == nullptr || ::stat(path.data(), &status) != 0) {
        return;
    }
    static const int file = ::open(notes, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    ::dprintf(file, "%lld %s\n", static_cast<long long>(status.st_size), path.data());
}

}  // namespace

using Main = int (*)(int, char**, char**);
static Main program = nullptr;

static int begin_program(int count, char** words, char** environment) {
    ready = true;
    return program(count, words, environment);
}

extern "C" int __libc_start_main(Main main, int count, char** words, void (*init)(),
                                 void (*finish)(), void (*unload)(), void* stack) {
    using Start = int(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    program = main;
    return next_of<Start>("__libc_start_main")(begin_program, count, words, init, finish, unload,
                                               stack);
}

extern "C" std::FILE* fopen(const char* path, const char* mode) {
    static auto* const real = next_of<std::FILE*(const char*, const char*)>("fopen");
    if (fails(opening)) {
        errno = EMFILE;
        return nullptr;
    }
    return real(path, mode);
}

extern "C" int fclose(std::FILE* stream) {
    static auto* const real = next_of<int(std::FILE*)>("fclose");
    const int file = ::fileno(stream);
    const bool written = (::fcntl(file, F_GETFL) & O_ACCMODE) != O_RDONLY;
    if (!written) {
        return real(stream);
    }
    if (fails(writing)) {
        const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        ::dup2(full, file);
        ::close(full);
    }
    const Path path = path_of(file);
    const int result = real(stream);
    note_section(path);
    return result;
}

extern "C" int fflush(std::FILE* stream) {
    static auto* const real = next_of<int(std::FILE*)>("fflush");
    const int result = real(stream);
    if (stream != nullptr) {
        note_section(path_of(::fileno(stream)));
    }
    return result;
}

extern "C" void* malloc(std::size_t size) noexcept {
    if (fails(memory)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
    if (fails(memory)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
    if (fails(memory)) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(block, size);
}
