// Ratios of constants where they are known: log-odds that are normal at one end of a path are
// normal everywhere on it, with the same variance.
#include "study/bridges.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "base/random_stream.h"

namespace {

constexpr double kVariance = 4.0;

// At `at` the mean is at x variance; the log of the constant is at^2 x variance / 2.
Bridge normal_bridge(double at, int samples, std::uint64_t seed) {
    Bridge bridge;
    bridge.at = at;
    bridge.drawn.resize(8);
    for (std::size_t chain = 0; chain < bridge.drawn.size(); ++chain) {
        RandomStream random(seed, chain);
        for (int k = 0; k < samples; ++k) {
            const double radius = std::sqrt(-2.0 * std::log(uniform_of_bits(random.bits())));
            const double angle = 2.0 * std::numbers::pi * uniform_of_bits(random.bits());
            bridge.drawn[chain].push_back(at * kVariance +
                                          std::sqrt(kVariance) * radius * std::cos(angle));
        }
    }
    bridge_measure(bridge);
    return bridge;
}

double known_ratio(double low, double high) { return (high * high - low * low) * kVariance / 2.0; }

TEST(Bridges, RatioOfNormalNeighboursIsTheKnownOne) {
    const Bridge low = normal_bridge(0.2, 2000, 1);
    const Bridge high = normal_bridge(0.7, 2000, 2);
    // The standard error is near 0.5 x 2 / sqrt(2 x 16000).
    EXPECT_NEAR(log_ratio(low, high, -1), known_ratio(0.2, 0.7), 0.03);
    EXPECT_NEAR(log_ratio(low, high, 3), known_ratio(0.2, 0.7), 0.03);
    EXPECT_NE(log_ratio(low, high, 3), log_ratio(low, high, 4));
}

TEST(Bridges, RatioHoldsForUnequalNumbersOfSamples) {
    const Bridge low = normal_bridge(0.2, 200, 1);
    const Bridge high = normal_bridge(0.7, 5000, 2);
    EXPECT_NEAR(log_ratio(low, high, -1), known_ratio(0.2, 0.7), 0.08);
}

TEST(Bridges, EqualNetworksHaveARatioByTheirWidthAlone) {
    Bridge low;
    low.drawn = {{3.0, 3.0}, {3.0, 3.0}};
    Bridge high = low;
    high.at = 0.5;
    EXPECT_NEAR(log_ratio(low, high, -1), 1.5, 1e-9);
    bridge_measure(low);
    EXPECT_EQ(low.deviation, 0.0);
}

TEST(Bridges, MeasureDeviationAndTime) {
    Bridge bridge = normal_bridge(0.5, 2000, 3);
    EXPECT_NEAR(bridge.deviation, 2.0, 0.05);
    EXPECT_NEAR(bridge.time, 1.0, 0.1);
    bridge.interval = 40;
    // Each value twice: two samples are worth one.
    for (std::vector<double>& chain : bridge.drawn) {
        std::vector<double> twice;
        for (const double value : chain) {
            twice.insert(twice.end(), {value, value});
        }
        chain = twice;
    }
    bridge_measure(bridge);
    EXPECT_NEAR(bridge.time, 80.0, 8.0);
    EXPECT_EQ(samples_of(bridge), 4000);
    EXPECT_EQ(samples_of(Bridge{}), 0);
}

TEST(Bridges, LoadsAreWidthTimesDeviationTimesTheRootOfTime) {
    std::vector<Bridge> path(3);
    path[1].at = 0.25;
    path[2].at = 1.0;
    for (Bridge& each : path) {
        each.deviation = 4.0;
        each.time = 9.0;
    }
    const std::vector<double> expected = {1.5, 6.0, 4.5};
    EXPECT_EQ(bridge_loads(path), expected);
}

}  // namespace
