// The seconds that a run's reseedings take, and what is told about them.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>

#include "base/random_source.h"

// Keeps count of the reseedings of one run; it must outlive the clock that it lends.
class Reseeding {
  public:
    // At most one of the two is set.
    Reseeding(std::optional<std::uint32_t> clock, std::optional<std::uint32_t> seed)
        : clock_(clock), seed_(seed) {}

    // The clock of the run: held at N by --clock, N + k - 1 at reseeding k by --seed, else real.
    ClockSeconds clock();

    // Tells before the run which random numbers it draws; silent for the real clock.
    void announce(std::FILE* out) const;

    // Tells after the run how to repeat it.
    void summarise(std::FILE* out) const;

  private:
    std::int64_t next();

    std::optional<std::uint32_t> clock_;
    std::optional<std::uint32_t> seed_;
    std::int64_t count_ = 0;
    std::int64_t first_ = 0;
    std::int64_t last_ = 0;
};
