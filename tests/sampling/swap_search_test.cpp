// What the search for a swap passes over, against one attempt after the other.
#include "sampling/swap_search.h"

#include <gtest/gtest.h>

#include <array>

#include "base/random_source.h"
#include "base/random_stream.h"

namespace {

BitMatrix random_ties(int n, double density, std::uint64_t seed) {
    BitMatrix ties(n);
    RandomStream random(seed, 0);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            if (i != j && uniform_of_bits(random.bits()) < density) {
                row_set(ties[i], j);
            }
        }
    }
    return ties;
}

// Whether the next attempt's dyads are unlike.
template <DrawOrder order>
bool next_unlike(const BitMatrix& ties, std::uint32_t& state) {
    std::array<int, 5> drawn = {};
    for (int draw = 1; draw <= order.draws; ++draw) {
        drawn[static_cast<std::size_t>(draw)] = draw_of_state(state) % ties.actors;
    }
    return ties.has(drawn[order.first_i], drawn[order.first_j]) !=
           ties.has(drawn[order.second_i], drawn[order.second_j]);
}

template <DrawOrder order>
void expect_first_unlike(const BitMatrix& ties, std::uint32_t seed) {
    constexpr int kMost = 500;
    std::uint32_t wide = seed;
    std::uint32_t single = seed;
    for (int search = 0; search < 200; ++search) {
        const int passed = pass_alike<order>(ties, kMost, wide);
        ASSERT_GE(passed, 0);
        ASSERT_LT(passed, kMost);
        for (int attempt = 0; attempt < passed; ++attempt) {
            ASSERT_FALSE(next_unlike<order>(ties, single)) << attempt << " of " << passed;
        }
        ASSERT_EQ(wide, single);
        const bool unlike = next_unlike<order>(ties, single);
        ASSERT_TRUE(unlike || passed >= kMost - 8) << passed;
        wide = single;
    }
}

void expect_first_unlike(const BitMatrix& ties, std::uint32_t seed) {
    expect_first_unlike<kSwapOrder>(ties, seed);
    expect_first_unlike<kFreeSwapOrder>(ties, seed);
    expect_first_unlike<kSenderSwapOrder>(ties, seed);
    expect_first_unlike<kFreeSenderSwapOrder>(ties, seed);
}

class SwapSearch : public testing::Test {
  protected:
    void SetUp() override {
        if (!kWideSearch) {
            GTEST_SKIP() << "the processor has no AVX2: attempts are made one by one";
        }
    }
};

}  // namespace

TEST_F(SwapSearch, EndsAtTheFirstAttemptWithATiedAndAnUntiedDyad) {
    for (const int n : {2, 3, 7, 32, 33, 64, 65, 200, 1000, 4001}) {
        for (const double density : {0.0, 0.001, 0.03, 0.5, 0.98, 1.0}) {
            const BitMatrix ties = random_ties(n, density, static_cast<std::uint64_t>(n));
            for (const std::uint32_t seed : {1U, 1790000000U, 0xFFFFFFFFU}) {
                expect_first_unlike(ties, seed);
            }
        }
    }
}

TEST_F(SwapSearch, ReadsEveryBitOfEveryRow) {
    constexpr int kActors = 70;
    for (int i = 0; i < kActors; ++i) {
        for (int j = 0; j < kActors; j += i % 2 == 0 ? 1 : 7) {
            BitMatrix ties(kActors);
            row_set(ties[i], j);
            std::uint32_t wide = static_cast<std::uint32_t>(i * kActors + j);
            std::uint32_t single = wide;
            int attempts = 0;
            while (!next_unlike<kSwapOrder>(ties, single)) {
                ++attempts;
            }
            ASSERT_EQ(pass_alike<kSwapOrder>(ties, attempts + 100, wide), attempts);
        }
    }
}

TEST_F(SwapSearch, LeavesFewAttemptsAndTooManyActorsToOneByOne) {
    std::uint32_t state = 7;
    EXPECT_EQ(pass_alike<kSwapOrder>(BitMatrix(50), 8, state), 0);
    EXPECT_EQ(pass_alike<kSwapOrder>(BitMatrix(50), 1, state), 0);
    EXPECT_EQ(pass_alike<kSwapOrder>(BitMatrix(50), 0, state), 0);
    EXPECT_EQ(state, 7U);
    BitMatrix none;
    none.actors = kDraws + 1;
    EXPECT_EQ(pass_alike<kSwapOrder>(none, 1000, state), 0);
    EXPECT_EQ(state, 7U);
}
