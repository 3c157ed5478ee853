// Diagnoses of samples whose answers are known.
#include "study/sample_diagnosis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

// Chains of x' = a x + noise: its integrated autocorrelation time is (1 + a) / (1 - a).
std::vector<double> autoregression(double a, int chains, int length, double apart = 0.0) {
    std::mt19937_64 random(7);
    std::normal_distribution<double> normal;
    std::vector<double> values;
    for (int chain = 0; chain < chains; ++chain) {
        double x = normal(random) / std::sqrt(1.0 - a * a);
        for (int t = 0; t < length; ++t) {
            x = a * x + normal(random);
            values.push_back(x + apart * chain);
        }
    }
    return values;
}

TEST(SampleDiagnosis, AutocorrelationTimesOfAutoregressions) {
    EXPECT_NEAR(autocorrelation_time(autoregression(0.0, 4, 10000), 4), 1.0, 0.1);
    EXPECT_NEAR(autocorrelation_time(autoregression(0.5, 4, 10000), 4), 3.0, 0.3);
    EXPECT_NEAR(autocorrelation_time(autoregression(0.9, 4, 20000), 4), 19.0, 3.0);
    EXPECT_EQ(autocorrelation_time(std::vector<double>(60, 2.0), 3), 60.0);
    // Chains that do not agree are worth no more than they are many.
    EXPECT_GT(autocorrelation_time(autoregression(0.0, 4, 1000, 20.0), 4), 300.0);
}

TEST(SampleDiagnosis, ChainsThatAgreeAndThoseThatDoNot) {
    EXPECT_NEAR(gelman_rubin(autoregression(0.3, 8, 2000), 8), 1.0, 0.02);
    EXPECT_GT(gelman_rubin(autoregression(0.3, 8, 2000, 1.0), 8), 1.5);
    EXPECT_TRUE(std::isnan(gelman_rubin(std::vector<double>(8, 1.0), 4)));
    EXPECT_TRUE(std::isnan(gelman_rubin(autoregression(0.3, 1, 100), 1)));
    // Two chains, 1 2 3 and 3 4 5: within 1, between the means 2.
    EXPECT_NEAR(gelman_rubin({1, 2, 3, 3, 4, 5}, 2), std::sqrt(2.0 / 3.0 + 2.0), 1e-12);
}

Matrix two_columns(const std::vector<double>& one, const std::vector<double>& other) {
    Matrix samples = matrix_create(static_cast<int>(one.size()), 2, 0.0);
    for (int row = 0; row < samples.rows; ++row) {
        samples[row][0] = one[static_cast<std::size_t>(row)];
        samples[row][1] = other[static_cast<std::size_t>(row)];
    }
    return samples;
}

TEST(SampleDiagnosis, MomentsAndTheCovarianceOfTheMean) {
    const SampleMoments moments = sample_moments(two_columns({1, 2, 3}, {2, 4, 9}));
    EXPECT_EQ(moments.means, (std::vector<double>{2, 5}));
    EXPECT_NEAR(moments.covariance[0][0], 2.0 / 3.0, 1e-12);
    EXPECT_NEAR(moments.covariance[0][1], 7.0 / 3.0, 1e-12);
    const std::vector<double> slow = autoregression(0.5, 8, 4000);
    const std::vector<double> quick = autoregression(0.0, 8, 4000);
    const MeanCovariance found = covariance_of_mean(two_columns(slow, quick), 8);
    EXPECT_EQ(found.batches, 64);
    // Variance 4 / 3, three samples worth one.
    EXPECT_NEAR(found.covariance[0][0] * 32000.0 / 4.0, 1.0, 0.5);
    EXPECT_NEAR(found.covariance[1][1] * 32000.0, 1.0, 0.5);
}

TEST(SampleDiagnosis, TailsOfTheFDistribution) {
    EXPECT_NEAR(f_upper_tail(4.965, 1, 10), 0.05, 1e-4);
    EXPECT_NEAR(f_upper_tail(3.708, 3, 10), 0.05, 1e-4);
    EXPECT_NEAR(f_upper_tail(2.37, 5, 60), 0.05, 5e-4);
    // With two numerator degrees of freedom: (1 + 2 f / d)^(-d / 2).
    EXPECT_NEAR(f_upper_tail(1.5, 2, 7), std::pow(1.0 + 3.0 / 7.0, -3.5), 1e-12);
    EXPECT_EQ(f_upper_tail(0.0, 3, 10), 1.0);
}

TEST(SampleDiagnosis, HotellingsTestSeesWhatIsElsewhere) {
    const Matrix samples = two_columns(autoregression(0.5, 8, 1000), autoregression(0.2, 8, 1000));
    EXPECT_GT(hotelling_p_value(samples, 8, {0, 1}, {0.0, 0.0}), 0.01);
    EXPECT_LT(hotelling_p_value(samples, 8, {0, 1}, {0.3, 0.0}), 1e-3);
    EXPECT_LT(hotelling_p_value(samples, 8, {1}, {0.0, 0.3}), 1e-3);
    EXPECT_EQ(
        hotelling_p_value(two_columns(std::vector<double>(80, 1.0), autoregression(0.2, 8, 10)), 8,
                          {0, 1}, {1.0, 0.0}),
        0.0);
}

Matrix points_of(const std::vector<std::vector<double>>& rows) {
    Matrix points =
        matrix_create(static_cast<int>(rows.size()), static_cast<int>(rows[0].size()), 0.0);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        std::copy(rows[row].begin(), rows[row].end(), points[static_cast<int>(row)]);
    }
    return points;
}

TEST(SampleDiagnosis, RaysThroughASquareAndACube) {
    const Matrix square = points_of({{1, 1}, {1, -1}, {-1, 1}, {-1, -1}, {0.2, 0.1}});
    const HullRay right = hull_ray(square, {0.5, 0.0});
    EXPECT_NEAR(right.reach, 2.0, 1e-9);
    EXPECT_NEAR(right.normal[0], 1.0, 1e-9);
    EXPECT_NEAR(right.normal[1], 0.0, 1e-9);
    EXPECT_NEAR(hull_ray(square, {-4.0, 1.0}).reach, 0.25, 1e-9);
    EXPECT_NEAR(hull_ray(square, {1.0, 1.0}).reach, 1.0, 1e-9);
    EXPECT_TRUE(std::isinf(hull_ray(square, {0.0, 0.0}).reach));
    std::vector<std::vector<double>> corners;
    for (int set = 0; set < 8; ++set) {
        corners.push_back({set & 1 ? 1.0 : -1.0, set & 2 ? 2.0 : -2.0, set & 4 ? 3.0 : -3.0});
    }
    EXPECT_NEAR(hull_ray(points_of(corners), {0.1, 0.1, 1.0}).reach, 3.0, 1e-9);
    // Points on one side of the origin do not reach the other.
    EXPECT_LT(hull_ray(points_of({{1, 1}, {1, -1}, {2, 0}}), {-1.0, 0.0}).reach, 1e-5);
}

TEST(SampleDiagnosis, RaysThroughManyPointsOfABall) {
    std::mt19937_64 random(3);
    std::normal_distribution<double> normal;
    std::vector<std::vector<double>> rows;
    for (int k = 0; k < 2000; ++k) {
        std::vector<double> row = {normal(random), normal(random), normal(random), normal(random)};
        double square = 0.0;
        for (const double each : row) {
            square += each * each;
        }
        for (double& each : row) {
            each /= std::sqrt(square);
        }
        rows.push_back(row);
    }
    const Matrix points = points_of(rows);
    for (int k = 0; k < 20; ++k) {
        const HullRay ray = hull_ray(points, rows[static_cast<std::size_t>(k)]);
        EXPECT_NEAR(ray.reach, 1.0, 1e-9);
        double largest = 0.0;
        for (const auto& row : rows) {
            double value = 0.0;
            for (std::size_t m = 0; m < 4; ++m) {
                value += row[m] * ray.normal[m];
            }
            largest = std::max(largest, value);
        }
        EXPECT_NEAR(largest, 1.0, 1e-8);
    }
    EXPECT_LT(hull_ray(points, {1.0, 0.3, 0.2, 0.1}).reach, 1.0);
}

TEST(SampleDiagnosis, TwoKindsOfNetworks) {
    std::mt19937_64 random(3);
    std::normal_distribution<double> normal;
    std::vector<double> one;
    std::vector<double> two;
    for (int k = 0; k < 1000; ++k) {
        one.push_back(std::round(80.0 + 12.0 * normal(random)));
        two.push_back(k % 10 == 0 ? 550.0 : one.back());
    }
    EXPECT_FALSE(tie_clusters(one, 561.0).apart);
    const TieClusters clusters = tie_clusters(two, 561.0);
    EXPECT_TRUE(clusters.apart);
    EXPECT_NEAR(clusters.upper_share, 0.1, 1e-12);
    EXPECT_NEAR(clusters.upper_mean, 550.0, 1e-9);
    EXPECT_NEAR(clusters.lower_mean, 80.0, 2.0);
    EXPECT_FALSE(tie_clusters({}, 10.0).apart);
    // Sparse networks that spread widely are of one kind.
    for (double& each : one) {
        each = std::round(20.0 * -std::log(1.0 - std::generate_canonical<double, 53>(random)));
    }
    EXPECT_FALSE(tie_clusters(one, 120.0).apart);
}

}  // namespace
