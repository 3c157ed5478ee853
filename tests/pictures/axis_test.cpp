// Ticks that people can read, and scales.
#include "pictures/axis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(Ticks, AreReadableAndNeverTooMany) {
    for (const double low : {-1234.5, -3.0, -0.001, 0.0, 17.0, 1e6}) {
        for (const double width : {1e-6, 0.3, 1.0, 7.7, 99.0, 12345.0}) {
            for (const int most : {2, 4, 6, 10}) {
                const std::vector<double> ticks = readable_ticks(low, low + width, most);
                ASSERT_LE(ticks.size(), static_cast<std::size_t>(most));
                for (std::size_t k = 0; k < ticks.size(); ++k) {
                    EXPECT_GE(ticks[k], low - width * 1e-6);
                    EXPECT_LE(ticks[k], low + width * (1.0 + 1e-6));
                }
                if (ticks.size() > 1) {
                    const double step = ticks[1] - ticks[0];
                    const double digit =
                        step / std::pow(10.0, std::floor(std::log10(step * 1.0001)));
                    EXPECT_TRUE(std::fabs(digit - 1.0) < 1e-3 || std::fabs(digit - 2.0) < 1e-3 ||
                                std::fabs(digit - 5.0) < 1e-3)
                        << step;
                }
            }
        }
    }
}

TEST(Ticks, OfNoWidthOrNoNumber) {
    EXPECT_EQ(readable_ticks(3.0, 3.0, 5), std::vector<double>{3.0});
    EXPECT_TRUE(readable_ticks(std::numeric_limits<double>::quiet_NaN(), 1.0, 5).empty());
}

TEST(Ticks, HaveTheDecimalsThatTellThemApart) {
    EXPECT_EQ(tick_texts({-0.5, 0.0, 0.5}), (std::vector<std::string>{"\xE2\x88\x92"
                                                                      "0.5",
                                                                      "0.0", "0.5"}));
    EXPECT_EQ(tick_texts({10, 20}), (std::vector<std::string>{"10", "20"}));
    EXPECT_EQ(tick_texts({0.02, 0.04}), (std::vector<std::string>{"0.02", "0.04"}));
}

TEST(Numbers, HaveTheDigitsThatCount) {
    EXPECT_EQ(number_for_people(1234.567), "1235");
    EXPECT_EQ(number_for_people(-0.0123456),
              "\xE2\x88\x92"
              "0.01235");
    EXPECT_EQ(number_for_people(78.0), "78");
    EXPECT_EQ(number_for_people(0.0), "0");
    EXPECT_EQ(number_for_people(std::numeric_limits<double>::infinity()), "\xE2\x80\x93");
}

TEST(Scales, RunFromOneEndToTheOther) {
    const Scale scale(10.0, 20.0, 100.0, 0.0);
    EXPECT_DOUBLE_EQ(scale.at(10.0), 100.0);
    EXPECT_DOUBLE_EQ(scale.at(20.0), 0.0);
    EXPECT_DOUBLE_EQ(scale.at(15.0), 50.0);
    const Scale flat(5.0, 5.0, 0.0, 10.0);
    EXPECT_DOUBLE_EQ(flat.at(5.0), 5.0);
}

TEST(Scales, OfRootsKeepTheirTicksApart) {
    for (const double high : {1.0, 7.0, 40.0, 999.0, 123456.0}) {
        const Scale scale(0.0, high, 100.0, 0.0, true);
        const std::vector<double> ticks = scale.ticks(6);
        for (std::size_t k = 1; k < ticks.size(); ++k) {
            EXPECT_GT(scale.at(ticks[k - 1]) - scale.at(ticks[k]), 4.0) << high;
            EXPECT_LE(ticks[k], high);
        }
        EXPECT_EQ(ticks[0], 0.0);
    }
}

}  // namespace
