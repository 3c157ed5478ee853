// Pooling of estimates over groups, against numbers worked out by hand.
#include "study/pooling.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Pooling, TwoGroupsThatDiffer) {
    // Mean 1, variance 2 - 1 = 1, weights 1/2 each: standard error 1. Q = 1 + 1.
    const PooledEstimate found = pool_estimates({{0.0, 1.0}, {2.0, 1.0}});
    EXPECT_EQ(found.groups, 2);
    EXPECT_DOUBLE_EQ(found.mean, 1.0);
    EXPECT_DOUBLE_EQ(found.variance, 1.0);
    EXPECT_DOUBLE_EQ(found.standard_error, 1.0);
    EXPECT_DOUBLE_EQ(found.z, 1.0);
    EXPECT_NEAR(found.p_value, 0.317310508, 1e-9);
    EXPECT_DOUBLE_EQ(found.q, 2.0);
    EXPECT_EQ(found.degrees, 1);
    EXPECT_NEAR(found.q_p_value, 0.157299207, 1e-9);
}

TEST(Pooling, GroupsWeighByTheirErrors) {
    // Variance 14/2 - 9/3 = 4; weights 1/5, 1/8, 1/8; Q by weights 1, 1/4, 1/4 about 2.
    const PooledEstimate found = pool_estimates({{1.0, 1.0}, {2.0, 2.0}, {6.0, 2.0}});
    EXPECT_DOUBLE_EQ(found.variance, 4.0);
    EXPECT_DOUBLE_EQ(found.mean, 1.2 / 0.45);
    EXPECT_DOUBLE_EQ(found.standard_error, 1.0 / std::sqrt(0.45));
    EXPECT_DOUBLE_EQ(found.q, 5.0);
    EXPECT_EQ(found.degrees, 2);
    EXPECT_NEAR(found.q_p_value, std::exp(-2.5), 1e-12);
}

TEST(Pooling, GroupsNoFurtherApartThanTheirErrorsHaveNoVariance) {
    // Weights 1 and 1/4: mean (1 + 0.3) / 1.25.
    const PooledEstimate found = pool_estimates({{1.0, 1.0}, {1.2, 2.0}});
    EXPECT_EQ(found.variance, 0.0);
    EXPECT_DOUBLE_EQ(found.mean, 1.04);
    EXPECT_DOUBLE_EQ(found.standard_error, 1.0 / std::sqrt(1.25));
    EXPECT_NEAR(found.q, 0.04 / 5.0, 1e-12);
}

TEST(Pooling, OneGroupIsItselfAndNoneIsNothing) {
    const PooledEstimate one = pool_estimates({{-2.0, 0.5}});
    EXPECT_DOUBLE_EQ(one.mean, -2.0);
    EXPECT_DOUBLE_EQ(one.standard_error, 0.5);
    EXPECT_TRUE(std::isnan(one.variance));
    EXPECT_TRUE(std::isnan(one.q));
    const PooledEstimate none = pool_estimates({});
    EXPECT_EQ(none.groups, 0);
    EXPECT_TRUE(std::isnan(none.mean));
    EXPECT_TRUE(std::isnan(none.p_value));
}

TEST(Pooling, ChiSquaredTailsAreThoseOfTheTables) {
    EXPECT_NEAR(chi_squared_tail(3.841459, 1), 0.05, 1e-7);
    EXPECT_NEAR(chi_squared_tail(5.991465, 2), 0.05, 1e-7);
    EXPECT_NEAR(chi_squared_tail(7.814728, 3), 0.05, 1e-7);
    EXPECT_NEAR(chi_squared_tail(18.307038, 10), 0.05, 1e-7);
    EXPECT_NEAR(chi_squared_tail(19.675138, 11), 0.05, 1e-7);
    EXPECT_NEAR(chi_squared_tail(2100.0, 2000), 0.0591, 5e-4);
    EXPECT_EQ(chi_squared_tail(0.0, 3), 1.0);
    EXPECT_EQ(chi_squared_tail(1e6, 2), 0.0);
}

}  // namespace
