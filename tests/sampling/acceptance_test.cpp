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
    for (int draw = 1; draw < kDraws - 1; ++draw) {
        expect_smallest_accepted(not_less_threshold(draw), uniform_of_draw(draw), draw);
    }
}

TEST(Acceptance, ThresholdsAreTheSmallestLogOddsWhoseExponentialIsGreater) {
    for (int draw = 1; draw < kDraws - 1; ++draw) {
        expect_smallest_accepted(greater_threshold(draw),
                                 std::nextafter(uniform_of_draw(draw), 2.0), draw);
    }
}

TEST(Acceptance, TheLowestUniformNumberIsNeverAboveARatioAndBelowEveryPositiveOne) {
    EXPECT_EQ(not_less_threshold(0), -std::numeric_limits<double>::infinity());
    const double smallest = greater_threshold(0);
    const Quad point = static_cast<Quad>(std::numeric_limits<double>::denorm_min()) / 2;
    EXPECT_TRUE(exponential(-smallest) < 1 / point);
    EXPECT_TRUE(exponential(-std::nextafter(smallest, -1000.0)) > 1 / point);
}

TEST(Acceptance, TheHighestUniformNumberIsOne) {
    EXPECT_EQ(uniform_of_draw(kDraws - 1), 1.0);
    EXPECT_EQ(not_less_threshold(kDraws - 1), -0x1p-54);
    EXPECT_EQ(greater_threshold(kDraws - 1), 0x1p-53);
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
        for (const double threshold : {not_less_threshold(draw), greater_threshold(draw)}) {
            const double step = 4.0 * (std::abs(threshold) + 1.0) * 0x1p-52;
            EXPECT_GT(std::exp(threshold + step), uniform);
            EXPECT_LT(std::exp(threshold - step), uniform);
        }
    }
}

// A decision by the logarithms is the one by the threshold: at it, just below it, on both sides of
// the distance from which on the logarithm decides alone, and far away.
template <AcceptedWhen when>
void expect_decisions_of(double threshold, int draw) {
    const float* logarithms = uniform_logarithms().data();
    const double infinity = std::numeric_limits<double>::infinity();
    const auto decided = [&](double log_odds) {
        return accepted_at<when>(draw, log_odds, logarithms);
    };
    ASSERT_TRUE(decided(threshold)) << draw;
    ASSERT_EQ(decided(std::nextafter(threshold, -infinity)), std::isinf(threshold)) << draw;
    for (const double away : {1e-6, 0.4, 0.99, 1.0, 1.01, 1.1, 2.0, 1e3, 1e6}) {
        ASSERT_TRUE(decided(threshold + away * kLogarithmError)) << draw << ' ' << away;
        ASSERT_EQ(decided(threshold - away * kLogarithmError), std::isinf(threshold)) << draw;
    }
    ASSERT_TRUE(decided(infinity));
    ASSERT_EQ(decided(-infinity), std::isinf(threshold));
    ASSERT_FALSE(decided(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Acceptance, DecidesByTheThresholdsAtEveryDistance) {
    for (int draw = 0; draw < kDraws; ++draw) {
        expect_decisions_of<AcceptedWhen::not_less>(not_less_threshold(draw), draw);
        expect_decisions_of<AcceptedWhen::greater>(greater_threshold(draw), draw);
    }
}

TEST(Acceptance, LogarithmsLieWellWithinTheirErrorOfTheThresholds) {
    ASSERT_EQ(uniform_logarithms().size(), 32768U);
    EXPECT_TRUE(std::isnan(uniform_logarithms()[0]));
    for (int draw = 1; draw < kDraws; ++draw) {
        const double logarithm = uniform_logarithms()[static_cast<std::size_t>(draw)];
        ASSERT_NEAR(not_less_threshold(draw), logarithm, kLogarithmError / 8) << draw;
        ASSERT_NEAR(greater_threshold(draw), logarithm, kLogarithmError / 8) << draw;
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
