// The random source of one run: a 32-bit linear congruential generator whose draws lie in
// 0..32767, the range on which the uniform numbers and the normal deviates are built.
//
// A run reseeds it from its clock at every start of a driver (random start network, burn-in,
// simulation, estimation, fit, parameter draws), so two drivers that start within one second repeat
// each other's stream. Whoever draws takes a RandomSource&; a function without one does not draw.
#pragma once

#include <bit>
#include <cstdint>
#include <functional>

// Seconds of the run's clock. Called exactly once at each reseeding.
using ClockSeconds = std::function<std::int64_t()>;

struct RandomSource {
    std::uint32_t state = 1;
    ClockSeconds clock_seconds;
};

// The state becomes the clock's seconds, modulo 2^32.
void random_reseed(RandomSource& random);

// How many different draws there are.
constexpr int kDraws = 32768;

// What reseeding `k` (from 0) of a run takes from the run's seed: a number of 32 bits in which
// every bit depends on every bit of both, so that the streams of neighbouring seeds and those of
// one seed have nothing to do with each other. Steele, Lea and Flood (2014), Fast splittable
// pseudorandom number generators: the finaliser of SplitMix64.
std::uint32_t mixed_seed(std::uint32_t seed, std::uint32_t k);

// From a state to a later one.
struct RandomJump {
    std::uint32_t factor = 1;
    std::uint32_t summand = 0;

    constexpr std::uint32_t operator()(std::uint32_t state) const {
        return state * factor + summand;
    }
};
constexpr RandomJump kNextState = {214013U, 2531011U};

// Over so many draws at once, without waiting for those between.
constexpr RandomJump random_jump(int draws) {
    RandomJump jump;
    for (int draw = 0; draw < draws; ++draw) {
        jump = {jump.factor * kNextState.factor, kNextState(jump.summand)};
    }
    return jump;
}

// One draw, 0..32767: bits 16 to 30 of the next state. The second form is for loops that keep the
// state to themselves.
inline int draw_at(std::uint32_t next_state) {
    return static_cast<int>((next_state >> 16U) & 0x7FFFU);
}
inline int draw_of_state(std::uint32_t& state) {
    state = kNextState(state);
    return draw_at(state);
}
inline int random_draw(RandomSource& random) { return draw_of_state(random.state); }

// An integer in 0..n-1, the draw modulo n; n must be positive.
inline int random_below(RandomSource& random, int n) { return random_draw(random) % n; }

// The uniform number in [0, 1], both ends included, that a draw stands for: the quotient is formed
// in single precision.
inline double uniform_of_draw(int draw) {
    return static_cast<double>(static_cast<float>(draw) / 32767.0F);
}
inline double random_uniform(RandomSource& random) { return uniform_of_draw(random_draw(random)); }

// Remainders of draws by one divisor, by a multiplication in place of a division. The inverse is
// 2^32 / n rounded up; that is exact, as a draw times the rounding's excess (less than n) stays
// below 2^32 for n up to 2^17, and beyond that the quotient is 0 as it should be.
class Remainder {
  public:
    explicit Remainder(int n)
        : n_(static_cast<std::uint32_t>(n)), inverse_(((std::uint64_t{1} << 32U) + n_ - 1) / n_) {}

    int of(int draw) const {
        const auto value = static_cast<std::uint32_t>(draw);
        const auto quotient = static_cast<std::uint32_t>((value * inverse_) >> 32U);
        return static_cast<int>(value - quotient * n_);
    }
    int divisor() const { return static_cast<int>(n_); }

  private:
    std::uint32_t n_;
    std::uint64_t inverse_;
};

// Notices that a series of draws below n has come round and can only repeat itself.
//
// The lower bits of a state never depend on its higher ones. A draw shows bits 16 to 30, and below
// a power of two 2^k only bits 16 to 15 + k: whatever stands above has no influence on any later
// draw. So the series is over as soon as the bits below return, after 2^31 draws at most.
class DrawCycle {
  public:
    explicit DrawCycle(int n)
        : shown_(std::has_single_bit(static_cast<unsigned>(n)) && n <= 0x8000
                     ? (static_cast<std::uint32_t>(n) << 16U) - 1U
                     : 0x7FFFFFFFU) {}

    // Whether the source is where it was at the first call, as far as draws can show. To be asked
    // at the same place of every trial of equally many draws.
    bool closed(const RandomSource& random) {
        const std::uint32_t now = random.state & shown_;
        if (!begun_) {
            begun_ = true;
            first_ = now;
            return false;
        }
        return now == first_;
    }

  private:
    std::uint32_t shown_;
    std::uint32_t first_ = 0;
    bool begun_ = false;
};
