// The numbers that a run's reseedings take, and what is told about them.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>

#include "base/random_source.h"

// Keeps count of the reseedings of one run; it must outlive the clock that it lends.
class Reseeding {
  public:
    // At most one of the two is set; with neither, the seed comes from the system's entropy.
    Reseeding(std::optional<std::uint32_t> clock, std::optional<std::uint32_t> seed);

    // The clock of the run: held at N by --clock, else the seed mixed with the number of the
    // reseeding.
    ClockSeconds clock();

    // Tells before the run how to repeat it; silent for a held clock.
    void announce(std::FILE* out) const;

    // Tells after the run which random numbers it drew.
    void summarise(std::FILE* out) const;

  private:
    std::optional<std::uint32_t> clock_;
    std::uint32_t seed_;
    std::uint32_t count_ = 0;
};
