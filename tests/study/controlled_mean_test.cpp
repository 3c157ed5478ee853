#include "study/controlled_mean.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/random_stream.h"

namespace {

constexpr int kChains = 8;

double uniform(RandomStream& random) { return uniform_of_bits(random.bits()) - 0.5; }

// Values that are 3 and twice the first control and some noise; the controls' true means are zero,
// those of the samples are not. The second control has nothing to say.
ControlledSamples drawn(int length, double noise, std::uint64_t seed) {
    ControlledSamples samples;
    samples.controls = 2;
    for (int chain = 0; chain < kChains; ++chain) {
        RandomStream random(seed, static_cast<std::uint64_t>(chain));
        std::vector<double> values;
        std::vector<double> zeros;
        for (int k = 0; k < length; ++k) {
            zeros.push_back(uniform(random));
            zeros.push_back(uniform(random));
            values.push_back(3.0 + 2.0 * zeros[zeros.size() - 2] + noise * uniform(random));
        }
        samples.values.push_back(values);
        samples.zeros.push_back(zeros);
    }
    return samples;
}

TEST(ControlledMean, TakesAwayWhatControlsExplain) {
    const ControlledMean mean = controlled_mean(drawn(20, 0.0, 1));
    EXPECT_NEAR(mean.value, 3.0, 1e-7);
    EXPECT_NEAR(mean.deviation, 0.0, 1e-6);
    ASSERT_EQ(mean.by_chain.size(), 8U);
    EXPECT_NEAR(mean.by_chain[5], 3.0, 1e-7);
}

TEST(ControlledMean, KeepsTheNoiseThatIsLeft) {
    const ControlledSamples samples = drawn(400, 1.0, 2);
    const ControlledMean mean = controlled_mean(samples);
    const double noise = std::sqrt(1.0 / 12.0);
    EXPECT_NEAR(mean.deviation, noise, 0.02);
    EXPECT_NEAR(mean.error(samples.count()), noise / std::sqrt(3200.0), 0.001);
    EXPECT_LT(std::fabs(mean.value - 3.0), 4.0 * mean.error(samples.count()));
    double by_chains = 0.0;
    for (const double each : mean.by_chain) {
        by_chains += each / kChains;
    }
    EXPECT_NEAR(by_chains, mean.value, 1e-12);
}

TEST(ControlledMean, WithoutControlsIsTheMean) {
    ControlledSamples samples;
    samples.values = {{1.0, 2.0}, {3.0, 6.0}};
    const ControlledMean mean = controlled_mean(samples);
    EXPECT_EQ(mean.value, 3.0);
    EXPECT_EQ(mean.by_chain, (std::vector<double>{1.5, 4.5}));
    EXPECT_NEAR(mean.deviation, std::sqrt(14.0 / 3.0), 1e-12);
}

TEST(ControlledMean, LeavesControlsOutOfFewSamples) {
    const ControlledSamples samples = drawn(1, 0.0, 3);
    const ControlledMean mean = controlled_mean(samples);
    double plain = 0.0;
    for (const std::vector<double>& chain : samples.values) {
        plain += chain.front() / kChains;
    }
    EXPECT_NEAR(mean.value, plain, 1e-12);
}

TEST(ControlledMean, ControlsThatFollowFromOthersChangeNothing) {
    const ControlledSamples two = drawn(50, 0.3, 4);
    ControlledSamples four = two;
    four.controls = 4;
    for (std::vector<double>& zeros : four.zeros) {
        std::vector<double> wider;
        for (std::size_t k = 0; k < zeros.size(); k += 2) {
            wider.insert(wider.end(), {zeros[k], zeros[k + 1], zeros[k] - zeros[k + 1], 0.0});
        }
        zeros = wider;
    }
    EXPECT_NEAR(controlled_mean(four).value, controlled_mean(two).value, 1e-6);
}

TEST(ControlledMean, OfEqualValuesHasNoTime) {
    ControlledSamples samples;
    samples.values = {{2.0, 2.0}, {2.0, 2.0}};
    const ControlledMean mean = controlled_mean(samples);
    EXPECT_EQ(mean.deviation, 0.0);
    EXPECT_EQ(mean.raw_time, 1.0);
    EXPECT_TRUE(std::isnan(controlled_mean(ControlledSamples{}).value));
}

}  // namespace
