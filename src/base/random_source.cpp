#include "base/random_source.h"

#include <ctime>

void random_reseed(RandomSource& random) {
    const std::int64_t seconds = random.clock_seconds
                                     ? random.clock_seconds()
                                     : static_cast<std::int64_t>(std::time(nullptr));
    random.state = static_cast<std::uint32_t>(static_cast<std::uint64_t>(seconds));
}

std::uint32_t mixed_seed(std::uint32_t seed, std::uint32_t k) {
    constexpr std::uint64_t kGolden = 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = ((std::uint64_t{seed} << 32U) | k) + kGolden;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return static_cast<std::uint32_t>((mixed ^ (mixed >> 31U)) >> 32U);
}
