// Acceptance by thresholds against the exponential in quadruple precision.
#include "sampling/acceptance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/random_source.h"

namespace {

// 113 bits, by the compiler.
__extension__ using Quad = __float128;

// exp(x) for |x| below 1000: the series at x / 2^20, squared 20 times. The squarings enlarge the
// relative error of 2^-112 to about 2^-91.
Quad exponential(double x) {
    const Quad part = static_cast<Quad>(x) / 1048576;
    // Less 1, so that small exponents lose nothing.
    Quad less_one = 0;
    for (int term = 14; term >= 1; --term) {
        less_one = (less_one + 1) * part / term;
    }
    for (int squaring = 0; squaring < 20; ++squaring) {
        less_one = less_one * 2 + less_one * less_one;
    }
    return less_one + 1;
}

// The point from which on numbers round to `value` or above.
Quad rounding_point(double value) {
    const double before = std::nextafter(value, 0.0);
    return (static_cast<Quad>(before) + static_cast<Quad>(value)) / 2;
}

// The threshold is accepted, the double before it is not, and neither lies so near the point that
// the reference could be mistaken.
void expect_smallest_accepted(double threshold, double value, int draw) {
    const Quad point = rounding_point(value);
    const double before = std::nextafter(threshold, -1000.0);
    const Quad margin = point * 0x1p-80;
    EXPECT_TRUE(exponential(threshold) > point + margin) << "draw " << draw;
    EXPECT_TRUE(exponential(before) < point - margin) << "draw " << draw;
}

TEST(Acceptance, ThresholdsAreTheSmallestLogOddsWhoseExponentialIsNotLess) {
    ASSERT_EQ(not_less_thresholds().size(), 32768U);
    for (int draw = 1; draw < kDraws - 1; ++draw) {
        expect_smallest_accepted(not_less_thresholds()[static_cast<std::size_t>(draw)],
                                 uniform_of_draw(draw), draw);
    }
}

TEST(Acceptance, ThresholdsAreTheSmallestLogOddsWhoseExponentialIsGreater) {
    ASSERT_EQ(greater_thresholds().size(), 32768U);
    for (int draw = 1; draw < kDraws - 1; ++draw) {
        expect_smallest_accepted(greater_thresholds()[static_cast<std::size_t>(draw)],
                                 std::nextafter(uniform_of_draw(draw), 2.0), draw);
    }
}

TEST(Acceptance, TheLowestUniformNumberIsNeverAboveARatioAndBelowEveryPositiveOne) {
    EXPECT_EQ(not_less_thresholds()[0], -std::numeric_limits<double>::infinity());
    const double smallest = greater_thresholds()[0];
    const Quad point = static_cast<Quad>(std::numeric_limits<double>::denorm_min()) / 2;
    EXPECT_TRUE(exponential(-smallest) < 1 / point);
    EXPECT_TRUE(exponential(-std::nextafter(smallest, -1000.0)) > 1 / point);
}

TEST(Acceptance, TheHighestUniformNumberIsOne) {
    EXPECT_EQ(uniform_of_draw(kDraws - 1), 1.0);
    EXPECT_EQ(not_less_thresholds()[kDraws - 1], -0x1p-54);
    EXPECT_EQ(greater_thresholds()[kDraws - 1], 0x1p-53);
    EXPECT_TRUE(exponential(-0x1p-54) > rounding_point(1.0));
    EXPECT_TRUE(exponential(std::nextafter(-0x1p-54, -1.0)) < rounding_point(1.0));
    EXPECT_TRUE(exponential(0x1p-53) > rounding_point(std::nextafter(1.0, 2.0)));
    EXPECT_TRUE(exponential(std::nextafter(0x1p-53, 0.0)) <
                rounding_point(std::nextafter(1.0, 2.0)));
}

// The C library's exponential is not correctly rounded, but near enough to agree away from the
// thresholds.
TEST(Acceptance, DecidesAsTheExponentialOfTheLibraryAFewPlacesFromTheThresholds) {
    for (int draw = 1; draw < kDraws; ++draw) {
        const double uniform = uniform_of_draw(draw);
        for (const auto* table : {&not_less_thresholds(), &greater_thresholds()}) {
            const double threshold = (*table)[static_cast<std::size_t>(draw)];
            const double step = 4.0 * (std::abs(threshold) + 1.0) * 0x1p-52;
            EXPECT_GT(std::exp(threshold + step), uniform);
            EXPECT_LT(std::exp(threshold - step), uniform);
        }
    }
}

TEST(RandomSource, RemaindersByMultiplicationAreThoseByDivision) {
    for (int n : {1,     2,     3,      5,      7,      10,     49,      50,        199,
                  200,   1000,  3000,   9999,   10000,  16384,  32766,   32767,     32768,
                  32769, 65536, 100000, 131071, 131072, 131073, 1 << 20, 2147483647}) {
        const Remainder remainder(n);
        for (int draw = 0; draw < kDraws; ++draw) {
            ASSERT_EQ(remainder.of(draw), draw % n) << n;
        }
    }
    for (int n = 1; n <= 3000; ++n) {
        const Remainder remainder(n);
        for (int draw = 0; draw < kDraws; draw += 1 + n % 13) {
            ASSERT_EQ(remainder.of(draw), draw % n) << n;
        }
    }
}

}  // namespace
