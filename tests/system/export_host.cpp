// A host without a Java machine: loads the library, hands its one function a function table with
// just the two entries it uses, and says on standard error what came back.
//
// export_host [--memory MEGABYTES] [--null] [--unreadable] SETUP...
#include <dlfcn.h>
#include <sys/resource.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kGetStringUtfChars = 169;
constexpr std::size_t kReleaseStringUtfChars = 170;

struct FunctionTable {
    // As many as a real one has.
    std::array<void*, 235> entries{};
};
using Environment = const FunctionTable*;

struct HostString {
    const char* text;
    bool readable = true;
    int given_out = 0;
};

const char* give_out(Environment*, void* string, unsigned char*) {
    auto* host_string = static_cast<HostString*>(string);
    if (!host_string->readable) {
        return nullptr;
    }
    ++host_string->given_out;
    return ::strdup(host_string->text);
}

void take_back(Environment*, void* string, const char* characters) {
    --static_cast<HostString*>(string)->given_out;
    std::free(const_cast<char*>(characters));
}

using Exported = std::int32_t (*)(Environment*, void*, void*);

Exported load() {
    void* library = ::dlopen(OVRI_LIBRARY_PATH, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", ::dlerror());
        return nullptr;
    }
    return reinterpret_cast<Exported>(::dlsym(library, "Java_Ovri_ovri"));
}

void limit_memory(const char* megabytes) {
    const auto bytes = static_cast<rlim_t>(std::atoll(megabytes)) << 20U;
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_AS, &limit);
}

}  // namespace

int main(int argc, char** argv) {
    const Exported exported = load();
    if (exported == nullptr) {
        return 3;
    }
    FunctionTable table;
    table.entries[kGetStringUtfChars] = reinterpret_cast<void*>(&give_out);
    table.entries[kReleaseStringUtfChars] = reinterpret_cast<void*>(&take_back);
    Environment environment = &table;
    bool readable = true;
    for (int at = 1; at < argc; ++at) {
        if (std::strcmp(argv[at], "--memory") == 0 && at + 1 < argc) {
            limit_memory(argv[++at]);
        } else if (std::strcmp(argv[at], "--null") == 0) {
            std::fprintf(stderr, "returned %d\n", exported(&environment, nullptr, nullptr));
        } else if (std::strcmp(argv[at], "--unreadable") == 0) {
            readable = false;
        } else {
            HostString path{argv[at], readable};
            const std::int32_t returned = exported(&environment, nullptr, &path);
            std::fprintf(stderr, "returned %d, %d not released\n", returned, path.given_out);
        }
    }
    return 0;
}
