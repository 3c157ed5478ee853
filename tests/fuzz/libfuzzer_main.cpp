// The entry that libFuzzer calls. The environment variable OVRI_FUZZ_TARGET names the target.
#include <cstdlib>

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const char* const name = std::getenv("OVRI_FUZZ_TARGET");
    static const FuzzTarget* const target = find_fuzz_target(name != nullptr ? name : "");
    if (target == nullptr) {
        std::abort();
    }
    target->run(data, size);
    return 0;
}
