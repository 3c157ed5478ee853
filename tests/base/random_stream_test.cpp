// Streams of 64-bit numbers, and the logarithm by which chains decide on them.
#include "base/random_stream.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <set>

#include "base/portable_log.h"

namespace {

// The generator as its authors define it, on a state set by hand.
TEST(RandomStream, MixesAsSplitMix64Does) {
    // The first two numbers of SplitMix64 from state 0, as published with it.
    EXPECT_EQ(mixed_bits(0x9E3779B97F4A7C15U), 0xE220A8397B1DCDAFU);
    EXPECT_EQ(mixed_bits(0x9E3779B97F4A7C15U * 2U), 0x6E789E6AA1B965F4U);
}

TEST(RandomStream, RepeatsItselfAndDiffersFromItsNeighbours) {
    std::set<std::uint64_t> seen;
    for (const std::uint64_t seed : {0ULL, 1ULL, 2ULL, 1ULL << 40U}) {
        for (std::uint64_t stream = 0; stream < 8; ++stream) {
            RandomStream first(seed, stream);
            RandomStream again(seed, stream);
            for (int k = 0; k < 1000; ++k) {
                const std::uint64_t bits = first.bits();
                ASSERT_EQ(bits, again.bits());
                seen.insert(bits);
            }
        }
    }
    EXPECT_EQ(seen.size(), 32000U);
}

TEST(RandomStream, EveryBitIsSetHalfTheTime) {
    RandomStream random(3, 5);
    constexpr int kTrials = 40000;
    std::array<int, 64> set{};
    double sum = 0.0;
    for (int k = 0; k < kTrials; ++k) {
        const std::uint64_t bits = random.bits();
        for (unsigned b = 0; b < 64; ++b) {
            set[b] += static_cast<int>((bits >> b) & 1U);
        }
        const double u = uniform_of_bits(bits);
        ASSERT_GE(u, 0.0);
        ASSERT_LT(u, 1.0);
        sum += u;
    }
    for (const int count : set) {
        EXPECT_NEAR(count, kTrials / 2.0, 5 * std::sqrt(kTrials / 4.0));
    }
    EXPECT_NEAR(sum / kTrials, 0.5, 5 / std::sqrt(12.0 * kTrials));
    EXPECT_EQ(uniform_of_bits(~0ULL), 1.0 - 0x1p-53);
}

TEST(RandomStream, IntegersBelowANumberAreEquallyLikely) {
    // Of 3 x 2^30 results the plain product would give every third twice as often.
    constexpr std::uint32_t kMany = 3U << 30U;
    RandomStream random(1, 1);
    std::array<int, 3> rest{};
    constexpr int kTrials = 60000;
    for (int k = 0; k < kTrials; ++k) {
        const std::uint32_t drawn =
            bits_below(static_cast<std::uint32_t>(random.bits()), kMany, random);
        ASSERT_LT(drawn, kMany);
        ++rest[drawn % 3];
    }
    for (const int count : rest) {
        EXPECT_NEAR(count, kTrials / 3.0, 5 * std::sqrt(kTrials * 2.0 / 9.0));
    }
    std::array<int, 7> few{};
    for (int k = 0; k < kTrials; ++k) {
        ++few.at(bits_below(static_cast<std::uint32_t>(random.bits() >> 32U), 7, random));
    }
    for (const int count : few) {
        EXPECT_NEAR(count, kTrials / 7.0, 5 * std::sqrt(kTrials * 6.0 / 49.0));
    }
}

TEST(PortableLog, IsTheLogarithm) {
    RandomStream random(9, 0);
    for (int k = 0; k < 100000; ++k) {
        const double x = std::ldexp(1.0 + uniform_of_bits(random.bits()), k % 120 - 80);
        const double exact = std::log(x);
        ASSERT_NEAR(portable_log(x), exact, 1e-15 + 4e-16 * std::fabs(exact)) << x;
    }
    EXPECT_EQ(portable_log(1.0), 0.0);
    EXPECT_EQ(portable_log(0.0), -std::numeric_limits<double>::infinity());
    // Bits that no other machine may change.
    EXPECT_EQ(std::bit_cast<std::uint64_t>(portable_log(0.3)), 0xBFF34378FCBDA720U);
}

}  // namespace
