#include "commands/reseeding.h"

#include <random>

#include "terminal/print.h"

namespace {

std::uint32_t seed_of_entropy() { return std::random_device()(); }

}  // namespace

Reseeding::Reseeding(std::optional<std::uint32_t> clock, std::optional<std::uint32_t> seed)
    : clock_(clock), seed_(clock || seed ? seed.value_or(0) : seed_of_entropy()) {}

ClockSeconds Reseeding::clock() {
    return [this] { return std::int64_t{clock_ ? *clock_ : mixed_seed(seed_, count_++)}; };
}

void Reseeding::announce(std::FILE* out) const {
    if (!clock_) {
        print(out, "Seed {0} (--seed {0} repeats this run)\n", seed_);
    }
}

void Reseeding::summarise(std::FILE* out) const {
    if (clock_) {
        print(out, "Random numbers: clock held at second {}\n", *clock_);
    } else {
        print(out, "Random numbers: seed {}\n", seed_);
    }
}
