#include "base/random_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <set>
#include <vector>

namespace {

RandomSource seeded(std::uint32_t state) {
    RandomSource random;
    random.state = state;
    return random;
}

RandomSource with_clock(std::int64_t seconds) {
    RandomSource random;
    random.clock_seconds = [seconds] { return seconds; };
    return random;
}

TEST(RandomSource, FirstDrawsOfStateOneAreTheKnownSequence) {
    RandomSource random = seeded(1);
    std::vector<int> draws;
    for (int draw = 0; draw < 8; ++draw) {
        draws.push_back(random_draw(random));
    }
    EXPECT_EQ(draws, (std::vector<int>{41, 18467, 6334, 26500, 19169, 15724, 11478, 29358}));
}

TEST(RandomSource, ADrawIsBitsSixteenToThirtyOfTheNextState) {
    RandomSource random = seeded(0);
    EXPECT_EQ(random_draw(random), 2531011 >> 16);
    EXPECT_EQ(random.state, 2531011U);
    random = seeded(0xFFFFFFFFU);
    const std::uint32_t next = 0xFFFFFFFFU * 214013U + 2531011U;
    EXPECT_EQ(random_draw(random), static_cast<int>((next >> 16U) & 0x7FFFU));
    EXPECT_EQ(random.state, next);
}

TEST(RandomSource, StateWrapsAt32Bits) {
    RandomSource random = seeded(0x80000000U);
    random_draw(random);
    EXPECT_EQ(random.state, static_cast<std::uint32_t>((0x80000000ULL * 214013ULL + 2531011ULL) %
                                                       0x100000000ULL));
}

TEST(RandomSource, DrawsReachBothEndsOfTheirRangeAndNeverLeaveIt) {
    RandomSource random = seeded(7);
    int smallest = 99999;
    int largest = -1;
    for (int draw = 0; draw < 1000000; ++draw) {
        const int value = random_draw(random);
        smallest = value < smallest ? value : smallest;
        largest = value > largest ? value : largest;
    }
    EXPECT_EQ(smallest, 0);
    EXPECT_EQ(largest, 32767);
}

TEST(RandomSource, AnIntegerBelowNIsTheDrawModuloN) {
    for (const int n : {1, 2, 7, 100, 32767, 40000}) {
        RandomSource plain = seeded(99);
        RandomSource reduced = seeded(99);
        for (int draw = 0; draw < 200; ++draw) {
            EXPECT_EQ(random_below(reduced, n), random_draw(plain) % n);
        }
    }
}

TEST(RandomSource, AUniformNumberIsTheSinglePrecisionQuotientOfItsDraw) {
    RandomSource plain = seeded(5);
    RandomSource uniform = seeded(5);
    bool differs_from_double = false;
    for (int draw = 0; draw < 1000; ++draw) {
        const int value = random_draw(plain);
        const double found = random_uniform(uniform);
        EXPECT_EQ(found, static_cast<double>(static_cast<float>(value) / 32767.0F));
        differs_from_double = differs_from_double || found != value / 32767.0;
        EXPECT_GE(found, 0.0);
        EXPECT_LE(found, 1.0);
    }
    EXPECT_TRUE(differs_from_double);
}

// A state whose next draw is the wanted one.
RandomSource before_draw(int wanted) {
    for (std::uint32_t state = 0;; ++state) {
        RandomSource next = seeded(state);
        if (random_draw(next) == wanted) {
            return seeded(state);
        }
    }
}

TEST(RandomSource, AUniformNumberTakesBothEnds) {
    RandomSource zero = before_draw(0);
    RandomSource one = before_draw(32767);
    EXPECT_EQ(random_uniform(zero), 0.0);
    EXPECT_EQ(random_uniform(one), 1.0);
}

TEST(RandomSource, ReseedingSetsTheStateToTheClocksSeconds) {
    RandomSource random = with_clock(1700000000);
    random.state = 12;
    random_reseed(random);
    EXPECT_EQ(random.state, 1700000000U);
}

TEST(RandomSource, ReseedingTakesTheClockModuloTwoToTheThirtyTwo) {
    RandomSource beyond = with_clock((std::int64_t{1} << 32) + 5);
    random_reseed(beyond);
    EXPECT_EQ(beyond.state, 5U);
    RandomSource negative = with_clock(-1);
    random_reseed(negative);
    EXPECT_EQ(negative.state, 0xFFFFFFFFU);
}

TEST(RandomSource, ReseedingAsksTheClockExactlyOnce) {
    int asked = 0;
    RandomSource random;
    random.clock_seconds = [&asked] { return static_cast<std::int64_t>(++asked); };
    random_reseed(random);
    EXPECT_EQ(asked, 1);
    random_draw(random);
    random_below(random, 10);
    random_uniform(random);
    EXPECT_EQ(asked, 1);
}

TEST(RandomSource, TwoReseedingsWithinOneSecondRepeatTheStream) {
    RandomSource random = with_clock(1234);
    random_reseed(random);
    const int first = random_draw(random);
    random_draw(random);
    random_reseed(random);
    EXPECT_EQ(random_draw(random), first);
}

TEST(MixedSeed, IsTheUpperHalfOfTheKnownMixer) { EXPECT_EQ(mixed_seed(0, 0), 0xE220A839U); }

TEST(MixedSeed, EverySeedAndReseedingHasAStreamOfItsOwn) {
    // The highest bit of the state never reaches a draw.
    std::set<std::uint32_t> streams;
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        for (std::uint32_t k = 0; k < 20; ++k) {
            streams.insert(mixed_seed(seed, k) & 0x7FFFFFFFU);
        }
    }
    EXPECT_EQ(streams.size(), 4000U);
}

double correlation_of_streams(std::uint32_t one, std::uint32_t other) {
    constexpr int kDraws = 20000;
    RandomSource first = seeded(one);
    RandomSource second = seeded(other);
    double product = 0.0;
    for (int draw = 0; draw < kDraws; ++draw) {
        product += (random_uniform(first) - 0.5) * (random_uniform(second) - 0.5);
    }
    return product / kDraws * 12.0;
}

TEST(MixedSeed, StreamsOfNeighbouringSeedsDoNotCorrelate) {
    // One standard error of independent draws is 0.007.
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        for (std::uint32_t k = 1; k < 4; ++k) {
            const std::uint32_t here = mixed_seed(seed, k);
            for (const std::uint32_t there :
                 {mixed_seed(seed + 1, k - 1), mixed_seed(seed + 1, k), mixed_seed(seed, k - 1)}) {
                EXPECT_LT(std::abs(correlation_of_streams(here, there)), 0.04) << seed << " " << k;
            }
        }
    }
}

// Draws below n come round where, and only where, the cycle says so.
TEST(DrawCycle, BelowAPowerOfTwoClosesWhenTheDrawsRepeatThemselves) {
    for (const int n : {1, 2, 8, 128}) {
        const auto period = static_cast<std::uint64_t>(n) << 16U;
        for (const std::uint32_t state : {1U, 20000U, 0x80012345U}) {
            RandomSource random = seeded(state);
            DrawCycle cycle(n);
            EXPECT_FALSE(cycle.closed(random));
            for (std::uint64_t draw = 1; draw <= period; ++draw) {
                random_draw(random);
                ASSERT_EQ(cycle.closed(random), draw == period) << n << " after " << draw;
            }
            RandomSource first = seeded(state);
            for (int draw = 0; draw < 1000; ++draw) {
                ASSERT_EQ(random_below(random, n), random_below(first, n)) << n;
            }
        }
    }
}

TEST(DrawCycle, TellsStatesApartByWhatDrawsCanShow) {
    // Bit 31 is in no draw and never comes down.
    DrawCycle any(100);
    EXPECT_FALSE(any.closed(seeded(5)));
    EXPECT_TRUE(any.closed(seeded(0x80000005U)));
    EXPECT_FALSE(any.closed(seeded(0x40000005U)));
    RandomSource low = seeded(5);
    RandomSource high = seeded(0x80000005U);
    for (int draw = 0; draw < 1000; ++draw) {
        ASSERT_EQ(random_draw(low), random_draw(high));
    }
    // Draws below 4 never see bit 18.
    DrawCycle four(4);
    EXPECT_FALSE(four.closed(seeded(5)));
    EXPECT_TRUE(four.closed(seeded(5U + (1U << 18U))));
    EXPECT_FALSE(four.closed(seeded(5U + (1U << 17U))));
    // Nor does a power of two beyond every draw ask for more than 31 bits.
    DrawCycle wide(1 << 20);
    EXPECT_FALSE(wide.closed(seeded(5)));
    EXPECT_TRUE(wide.closed(seeded(0x80000005U)));
}

TEST(RandomJump, IsAsManyDraws) {
    std::uint32_t state = 0x12345678U;
    const std::uint32_t first = state;
    EXPECT_EQ(random_jump(0)(first), first);
    for (int draws = 1; draws <= 40; ++draws) {
        draw_of_state(state);
        EXPECT_EQ(random_jump(draws)(first), state) << draws;
    }
}

}  // namespace
