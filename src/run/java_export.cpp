// The one function that the library exports, for a host in a Java virtual machine.
//
// The host declares a static native method `ovri` of class `Ovri` that takes a String. Of the
// machine's function table only two entries are needed, so their places are declared here and the
// library builds without a JDK.
#include <array>
#include <cstdint>

#include "run/java_path.h"
#include "run/run.h"

namespace {

// Entries of the native interface's function table.
constexpr std::size_t kGetStringUtfChars = 169;
constexpr std::size_t kReleaseStringUtfChars = 170;

struct JavaFunctions {
    std::array<void*, kReleaseStringUtfChars + 1> entries;
};
using JavaEnvironment = const JavaFunctions*;
using JavaString = void*;
using GetStringUtfChars = const char* (*)(JavaEnvironment*, JavaString, unsigned char*);
using ReleaseStringUtfChars = void (*)(JavaEnvironment*, JavaString, const char*);

void run_path(const char* path) {
    try {
        run_setup_file(path_from_java(path), HostOptions());
    } catch (...) {
        // Memory ran out, or the file holds a count that it cannot follow up: the host reads what
        // was written so far.
    }
}

}  // namespace

#if defined(_WIN32)
#define OVRI_EXPORT __declspec(dllexport)
#else
#define OVRI_EXPORT __attribute__((visibility("default")))
#endif

// Performs the run of the setup file at `path` and returns 0, whatever happened; results are files.
extern "C" OVRI_EXPORT std::int32_t Java_Ovri_ovri(JavaEnvironment* environment, void*,
                                                   JavaString path) {
    if (environment == nullptr || *environment == nullptr || path == nullptr) {
        return 0;
    }
    const auto& entries = (*environment)->entries;
    const auto get = reinterpret_cast<GetStringUtfChars>(entries[kGetStringUtfChars]);
    const auto release = reinterpret_cast<ReleaseStringUtfChars>(entries[kReleaseStringUtfChars]);
    const char* characters = get(environment, path, nullptr);
    if (characters == nullptr) {
        return 0;
    }
    run_path(characters);
    release(environment, path, characters);
    return 0;
}
