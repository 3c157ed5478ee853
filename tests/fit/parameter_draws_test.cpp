// Draws around an estimate: the square root of their covariance, and what 100,000 of them show.
#include "fit/parameter_draws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

// A symmetric matrix with the given eigenvalues, by random rotations.
Matrix symmetric_matrix(const std::vector<double>& eigenvalues, unsigned seed) {
    const int n = static_cast<int>(eigenvalues.size());
    std::mt19937 random(seed);
    Matrix matrix = matrix_create(n, n, 0.0);
    for (int i = 0; i < n; ++i) {
        matrix[i][i] = eigenvalues[static_cast<std::size_t>(i)];
    }
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j) {
            const double angle = static_cast<double>(random()) / 4294967296.0 * 6.2831853;
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            for (int k = 0; k < n; ++k) {
                const double x = matrix[k][i];
                matrix[k][i] = c * x - s * matrix[k][j];
                matrix[k][j] = s * x + c * matrix[k][j];
            }
            for (int k = 0; k < n; ++k) {
                const double x = matrix[i][k];
                matrix[i][k] = c * x - s * matrix[j][k];
                matrix[j][k] = s * x + c * matrix[j][k];
            }
        }
    }
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
            matrix[i][j] = matrix[j][i];
        }
    }
    return matrix;
}

double largest_difference(const Matrix& a, const Matrix& b) {
    double largest = 0.0;
    for (std::size_t cell = 0; cell < a.cells.size(); ++cell) {
        const double difference = std::fabs(a.cells[cell] - b.cells[cell]);
        largest = difference <= largest ? largest : difference;
    }
    return largest;
}

TEST(SquareRoot, SquaredGivesTheMatrixBack) {
    const std::vector<std::vector<double>> spectra = {
        {2.0},
        {1.0, 4.0},
        {0.04, 0.25, 9.0},
        {1.0, 1.0, 1.0, 1.0},
        {1e-6, 1e-3, 1.0, 1e3},
        {5.0, 4.0, 3.0, 2.0, 1.0, 0.5, 0.25, 0.125, 0.1, 0.01},
    };
    unsigned seed = 1;
    for (const std::vector<double>& spectrum : spectra) {
        const int n = static_cast<int>(spectrum.size());
        const Matrix matrix = symmetric_matrix(spectrum, seed++);
        const Matrix root = matrix_square_root(matrix, n);
        double scale = 0.0;
        for (const double value : spectrum) {
            scale = std::max(scale, value);
        }
        EXPECT_LT(largest_difference(matrix_product(n, root, root), matrix), 1e-9 * scale);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < i; ++j) {
                EXPECT_NEAR(root[i][j], root[j][i], 1e-9 * scale);
            }
        }
    }
}

TEST(SquareRoot, OfADiagonalMatrixIsExact) {
    Matrix matrix = matrix_create(3, 3, 0.0);
    matrix[0][0] = 4.0;
    matrix[1][1] = 0.09;
    matrix[2][2] = 2.0;
    const Matrix root = matrix_square_root(matrix, 3);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            EXPECT_EQ(root[i][j], i == j ? std::sqrt(matrix[i][i]) : 0.0);
        }
    }
}

TEST(SquareRoot, OfAMatrixOfZerosOrOfNoRowsIsJustThat) {
    EXPECT_EQ(matrix_square_root(matrix_create(3, 3, 0.0), 3).cells, std::vector<double>(9, 0.0));
    EXPECT_TRUE(matrix_square_root(matrix_create(0, 0, 0.0), 0).cells.empty());
}

TEST(SquareRoot, OfASingularMatrixSquaresToIt) {
    Matrix matrix = matrix_create(2, 2, 0.5);
    const Matrix root = matrix_square_root(matrix, 2);
    // The eigenvalue 0 may come out a rounding below it, and has no root then.
    if (!std::isnan(root[0][0])) {
        EXPECT_LT(largest_difference(matrix_product(2, root, root), matrix), 1e-7);
    }
}

TEST(SquareRoot, OfANegativeEigenvalueIsNotANumber) {
    Matrix matrix = matrix_create(2, 2, 0.0);
    matrix[0][0] = -1.0;
    matrix[1][1] = 1.0;
    EXPECT_TRUE(std::isnan(matrix_square_root(matrix, 2)[0][0]));
}

TEST(SquareRoot, EndsOnAMatrixThatIsNotANumber) {
    const Matrix matrix = matrix_create(3, 3, std::nan(""));
    EXPECT_EQ(matrix_square_root(matrix, 3).cells.size(), 9U);
}

TEST(NormalDeviates, HaveMeanZeroVarianceOneAndNoSkew) {
    RandomSource random{1, {}};
    constexpr int count = 200000;
    double sum = 0.0;
    double squares = 0.0;
    double cubes = 0.0;
    double fourths = 0.0;
    for (int draw = 0; draw < count; ++draw) {
        const double z = normal_deviate(random);
        sum += z;
        squares += z * z;
        cubes += z * z * z;
        fourths += z * z * z * z;
    }
    EXPECT_NEAR(sum / count, 0.0, 0.01);
    EXPECT_NEAR(squares / count, 1.0, 0.015);
    EXPECT_NEAR(cubes / count, 0.0, 0.03);
    EXPECT_NEAR(fourths / count, 3.0, 0.1);
}

TEST(NormalDeviates, ThrowAwayTheSecondOfEachPair) {
    // From state 1 the draws are 41 18467 6334 26500 ...; u = 2 x 41 / 32768 - 1 is near -1, so
    // that the first pair may lie outside of the circle and the next one counts.
    RandomSource random{1, {}};
    RandomSource other{1, {}};
    double u = 0.0;
    double s = 2.0;
    while (s > 1.0 || s == 0.0) {
        u = 2.0 * random_draw(other) / 32768.0 - 1.0;
        const double v = 2.0 * random_draw(other) / 32768.0 - 1.0;
        s = u * u + v * v;
    }
    EXPECT_EQ(normal_deviate(random), u * std::sqrt(-2.0 * std::log(s) / s));
    EXPECT_EQ(random.state, other.state);
}

TEST(ParameterDraws, HaveTheMeansAndTheCovariance) {
    const std::vector<double> means = {-1.5, 0.25, 3.0};
    const Matrix covariance = symmetric_matrix({0.5, 0.02, 1.25}, 9);
    constexpr int rows = 100000;
    RandomSource random{77, [] { return 1; }};
    const Matrix draws = draw_parameters(means, covariance, rows, random);
    ASSERT_EQ(draws.rows, rows);
    std::vector<double> centre(3, 0.0);
    for (int row = 0; row < rows; ++row) {
        for (int i = 0; i < 3; ++i) {
            centre[static_cast<std::size_t>(i)] += draws[row][i] / rows;
        }
    }
    for (int i = 0; i < 3; ++i) {
        const auto at = static_cast<std::size_t>(i);
        EXPECT_NEAR(centre[at], means[at], 4.0 * std::sqrt(covariance[i][i] / rows));
        for (int j = 0; j < 3; ++j) {
            double sum = 0.0;
            for (int row = 0; row < rows; ++row) {
                sum += (draws[row][i] - centre[at]) *
                       (draws[row][j] - centre[static_cast<std::size_t>(j)]);
            }
            const double scale = std::sqrt(covariance[i][i] * covariance[j][j]);
            EXPECT_NEAR(sum / rows, covariance[i][j], 0.025 * scale) << i << ", " << j;
        }
    }
}

TEST(ParameterDraws, ReseedOnceAndRepeatWithinASecond) {
    int readings = 0;
    RandomSource random{77, [&readings] {
                            ++readings;
                            return 42;
                        }};
    const Matrix covariance = symmetric_matrix({0.5, 0.2}, 3);
    const Matrix first = draw_parameters({1.0, 2.0}, covariance, 50, random);
    const Matrix second = draw_parameters({1.0, 2.0}, covariance, 50, random);
    EXPECT_EQ(readings, 2);
    EXPECT_EQ(first.cells, second.cells);
}

TEST(ParameterDraws, OfNoParametersOrNoRowsAreEmpty) {
    RandomSource random{77, [] { return 1; }};
    EXPECT_TRUE(draw_parameters({}, matrix_create(0, 0, 0.0), 5, random).cells.empty());
    const Matrix covariance = symmetric_matrix({0.5}, 3);
    EXPECT_TRUE(draw_parameters({1.0}, covariance, 0, random).cells.empty());
    EXPECT_TRUE(draw_parameters({1.0}, covariance, -3, random).cells.empty());
}

}  // namespace
