// Streams of 64-bit random numbers for chains that run beside each other.
//
// The generator is xoshiro256++ (Blackman and Vigna 2021, Scrambled linear pseudorandom number
// generators), with 2^256 - 1 numbers to its period. SplitMix64 (Steele, Lea and Flood 2014) fills
// its state from a seed and the number of a stream, so that neighbouring seeds and the streams of
// one seed have nothing to do with each other. The numbers of a stream are the same on every
// machine. Runs of setup files draw from a RandomSource instead: their files hang on its numbers.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

// The mixing function of SplitMix64: every bit of the result depends on every bit of `value`, and
// different values give different results.
constexpr std::uint64_t mixed_bits(std::uint64_t value) {
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
}

class RandomStream {
  public:
    RandomStream(std::uint64_t seed, std::uint64_t stream) {
        constexpr std::uint64_t kGolden = 0x9E3779B97F4A7C15U;
        std::uint64_t state = mixed_bits(mixed_bits(seed + kGolden) + stream);
        for (std::uint64_t& word : state_) {
            state += kGolden;
            word = mixed_bits(state);
        }
    }

    // The next 64 bits.
    std::uint64_t bits() {
        const std::uint64_t result = std::rotl(state_[0] + state_[3], 23) + state_[0];
        const std::uint64_t shifted = state_[1] << 17U;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= shifted;
        state_[3] = std::rotl(state_[3], 45);
        return result;
    }

  private:
    std::array<std::uint64_t, 4> state_{};
};

// The number in [0, 1) that the upper 53 bits stand for, a whole multiple of 2^-53.
constexpr double uniform_of_bits(std::uint64_t bits) {
    return static_cast<double>(bits >> 11U) * 0x1p-53;
}

// An integer in 0..n-1 from 32 random bits, each with the same probability: of the products with
// n, the few that would favour some results are drawn again (Lemire 2019, Fast random integer
// generation in an interval). n must be positive.
inline std::uint32_t bits_below(std::uint32_t bits, std::uint32_t n, RandomStream& stream) {
    std::uint64_t product = std::uint64_t{bits} * n;
    if (static_cast<std::uint32_t>(product) < n) [[unlikely]] {
        const std::uint32_t surplus = (0U - n) % n;
        while (static_cast<std::uint32_t>(product) < surplus) {
            product = (stream.bits() >> 32U) * n;
        }
    }
    return static_cast<std::uint32_t>(product >> 32U);
}
