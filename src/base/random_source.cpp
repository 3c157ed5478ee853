#include "base/random_source.h"

#include <ctime>

void random_reseed(RandomSource& random) {
    const std::int64_t seconds = random.clock_seconds
                                     ? random.clock_seconds()
                                     : static_cast<std::int64_t>(std::time(nullptr));
    random.state = static_cast<std::uint32_t>(static_cast<std::uint64_t>(seconds));
}
