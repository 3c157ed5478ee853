#include "effects/geometric_weights.h"

#include <gtest/gtest.h>

#include <cmath>

#include "reference/weights.h"
#include "support/graph_effect_checks.h"

namespace {

TEST(GeometricWeights, HaveOneEntryMoreThanTheirLengthAndLeaveEntryZeroAlone) {
    const auto table = geometric_weight_table(2.0F, kWeightTableLength);
    ASSERT_EQ(table.size(), 101U);
    EXPECT_EQ(table[0], 0.0F);
}

TEST(GeometricWeights, AreTheReferenceTableAtEveryLambda) {
    for (const float lambda : all_lambdas()) {
        EXPECT_EQ(geometric_weight_table(lambda, kWeightTableLength),
                  reference::geometric_weight_table(lambda))
            << "lambda " << lambda;
    }
}

TEST(GeometricWeights, NegativeCountsWeighNothingAndZeroWeighsOne) {
    for (const float lambda : all_lambdas()) {
        const auto table = geometric_weight_table(lambda, kWeightTableLength);
        EXPECT_EQ(geometric_weight(-1, table.data()), 0.0) << "lambda " << lambda;
        EXPECT_EQ(geometric_weight(0, table.data()), 1.0) << "lambda " << lambda;
    }
}

TEST(GeometricWeights, HalveWithEachCountAtLambdaTwo) {
    const auto table = geometric_weight_table(2.0F, kWeightTableLength);
    EXPECT_EQ(geometric_weight(1, table.data()), 0.5);
    EXPECT_EQ(geometric_weight(2, table.data()), 0.25);
    EXPECT_EQ(geometric_weight(3, table.data()), 0.125);
}

TEST(GeometricWeights, StopFallingAtTheTablesEnd) {
    const auto table = geometric_weight_table(100.0F, kWeightTableLength);
    const double last = static_cast<double>(table[100]);
    EXPECT_LT(last, geometric_weight(99, table.data()));
    EXPECT_EQ(geometric_weight(100, table.data()), last);
    EXPECT_EQ(geometric_weight(101, table.data()), last);
    EXPECT_EQ(geometric_weight(5000, table.data()), last);
}

TEST(GeometricWeights, AreAllZeroAtLambdaOne) {
    const auto table = geometric_weight_table(1.0F, kWeightTableLength);
    EXPECT_EQ(table, std::vector<float>(101, 0.0F));
    EXPECT_EQ(geometric_weight(1, table.data()), 0.0);
    EXPECT_EQ(geometric_weight(400, table.data()), 0.0);
}

TEST(GeometricWeights, AlternateInSignBelowLambdaOne) {
    const auto table = geometric_weight_table(0.5F, kWeightTableLength);
    EXPECT_EQ(geometric_weight(1, table.data()), -1.0);
    EXPECT_EQ(geometric_weight(2, table.data()), 1.0);
}

TEST(GeometricWeights, TakeTheBaseInDoublePrecision) {
    const auto table = geometric_weight_table(3.0F, kWeightTableLength);
    const double base = 1.0 - 1.0 / 3.0;
    EXPECT_EQ(table[2], static_cast<float>(base * base));
    EXPECT_EQ(table[1], static_cast<float>(base));
}

TEST(GeometricWeights, AreZerosForALengthBelowOne) {
    EXPECT_EQ(geometric_weight_table(2.0F, 0), std::vector<float>(1, 0.0F));
    EXPECT_EQ(geometric_weight_table(2.0F, -5), std::vector<float>(1, 0.0F));
}

TEST(GeometricWeights, AreExactAsFarAsTheyAreWholeMultiplesOfTwoToTheMinus45) {
    EXPECT_EQ(exact_weight_count(geometric_weight_table(2.0F, kWeightTableLength)), 45);
    for (const float lambda : {1.1F, 1.5F, 3.0F, 10.0F}) {
        const auto table = geometric_weight_table(lambda, kWeightTableLength);
        const int count = exact_weight_count(table);
        ASSERT_GT(count, 3);
        for (int m = 1; m <= count; ++m) {
            const double multiple =
                std::ldexp(static_cast<double>(table[static_cast<std::size_t>(m)]), 45);
            EXPECT_EQ(multiple, std::trunc(multiple)) << lambda << " " << m;
        }
        if (count < kWeightTableLength) {
            const double next =
                std::ldexp(static_cast<double>(table[static_cast<std::size_t>(count) + 1]), 45);
            EXPECT_NE(next, std::trunc(next)) << lambda;
        }
    }
}

}  // namespace
