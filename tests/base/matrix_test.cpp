#include "base/matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Matrix matrix_of(std::initializer_list<std::initializer_list<double>> rows) {
    const int size = static_cast<int>(rows.size());
    Matrix matrix = matrix_create(size, size, 0.0);
    int row = 0;
    for (const auto& values : rows) {
        int column = 0;
        for (const double value : values) {
            matrix[row][column++] = value;
        }
        ++row;
    }
    return matrix;
}

Matrix random_matrix(std::mt19937& random, int n) {
    Matrix matrix = matrix_create(n, n, 0.0);
    for (double& cell : matrix.cells) {
        cell = static_cast<double>(random() % 2001U) / 100.0 - 10.0;
    }
    return matrix;
}

TEST(Matrix, IsCreatedWithEveryEntryAtTheFillValue) {
    const Matrix matrix = matrix_create(2, 3, 1.5);
    EXPECT_EQ(matrix.rows, 2);
    EXPECT_EQ(matrix.columns, 3);
    EXPECT_EQ(matrix.cells, std::vector<double>(6, 1.5));
}

TEST(Matrix, OfNoSizeOrANegativeOneIsEmpty) {
    EXPECT_TRUE(matrix_create(0, 0, 1.0).cells.empty());
    EXPECT_TRUE(matrix_create(-3, 4, 1.0).cells.empty());
}

TEST(MatrixProduct, SumsRowsTimesColumns) {
    const Matrix product =
        matrix_product(2, matrix_of({{1, 2}, {3, 4}}), matrix_of({{5, 6}, {7, 8}}));
    EXPECT_EQ(product.cells, (std::vector<double>{19, 22, 43, 50}));
}

TEST(MatrixProduct, SumsInAscendingOrder) {
    // In ascending order the 1 is lost in the large number before that is taken away again.
    const Matrix row = matrix_of({{1e16, 1, -1e16}, {0, 0, 0}, {0, 0, 0}});
    const Matrix ones = matrix_of({{1, 0, 0}, {1, 0, 0}, {1, 0, 0}});
    EXPECT_EQ(matrix_product(3, row, ones)[0][0], 0.0);
}

TEST(MatrixInvert, LeavesReciprocalsOnTheDiagonalOfADiagonalMatrix) {
    Matrix matrix = matrix_of({{2, 0, 0}, {0, -4, 0}, {0, 0, 0.5}});
    EXPECT_EQ(matrix_invert(matrix, 3), 1);
    EXPECT_EQ(matrix.cells, (std::vector<double>{0.5, 0, 0, 0, -0.25, 0, 0, 0, 2}));
}

TEST(MatrixInvert, UndoesAPermutation) {
    Matrix matrix = matrix_of({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}});
    EXPECT_EQ(matrix_invert(matrix, 3), 1);
    EXPECT_EQ(matrix.cells, (std::vector<double>{0, 0, 1, 1, 0, 0, 0, 1, 0}));
}

TEST(MatrixInvert, GivesTheIdentityWhenMultipliedBack) {
    std::mt19937 random(11);
    for (int n = 1; n <= 12; ++n) {
        for (int repeat = 0; repeat < 20; ++repeat) {
            const Matrix matrix = random_matrix(random, n);
            Matrix inverse = matrix;
            ASSERT_EQ(matrix_invert(inverse, n), 1);
            double largest = 1.0;
            for (const double cell : inverse.cells) {
                largest = std::fmax(largest, std::fabs(cell));
            }
            const Matrix product = matrix_product(n, matrix, inverse);
            for (int i = 0; i < n; ++i) {
                for (int j = 0; j < n; ++j) {
                    EXPECT_NEAR(product[i][j], i == j ? 1.0 : 0.0, 1e-11 * largest * n);
                }
            }
        }
    }
}

TEST(MatrixInvert, OfNoSizeSucceedsAndTouchesNothing) {
    Matrix matrix = matrix_of({{3, 1}, {1, 3}});
    const Matrix before = matrix;
    EXPECT_EQ(matrix_invert(matrix, 0), 1);
    EXPECT_EQ(matrix.cells, before.cells);
    Matrix empty;
    EXPECT_EQ(matrix_invert(empty, 0), 1);
}

TEST(MatrixInvert, FailsOnZerosAtTheFirstStep) {
    Matrix matrix = matrix_create(3, 3, 0.0);
    EXPECT_EQ(matrix_invert(matrix, 3), 0);
    EXPECT_EQ(matrix.cells, std::vector<double>(9, 0.0));
}

TEST(MatrixInvert, FailsOnANegativeZeroPivot) {
    Matrix matrix = matrix_create(1, 1, -0.0);
    EXPECT_EQ(matrix_invert(matrix, 1), 0);
}

TEST(MatrixInvert, FailsOnAZeroRowOnceOnlyThatRowIsLeftAndStaysPartlyOverwritten) {
    Matrix matrix = matrix_of({{4, 0, 0}, {0, 0, 0}, {0, 0, 2}});
    EXPECT_EQ(matrix_invert(matrix, 3), 0);
    EXPECT_EQ(matrix.cells, (std::vector<double>{0.25, 0, 0, 0, 0, 0, 0, 0, 0.5}));
}

TEST(MatrixInvert, OfEqualSizesTheLastScannedIsThePivot) {
    // The half-done matrix shows which of the four equal entries was taken first.
    Matrix matrix = matrix_of({{3, 3, 0}, {3, 3, 0}, {0, 0, 0}});
    EXPECT_EQ(matrix_invert(matrix, 3), 0);
    EXPECT_EQ(matrix.cells, (std::vector<double>{0, -1, 0, 1, 1.0 / 3.0, 0, 0, 0, 0}));
}

TEST(MatrixInvert, GoesAheadWithATinyPivot) {
    Matrix matrix = matrix_of({{1e-300, 0}, {0, 1}});
    EXPECT_EQ(matrix_invert(matrix, 2), 1);
    EXPECT_EQ(matrix[0][0], 1.0 / 1e-300);
}

TEST(MatrixInvert, MayPassDuplicateRowsWithHugeEntries) {
    Matrix matrix = matrix_of({{0.8, 0.5, 0.6}, {0.8, 0.5, 0.6}, {0.2, 0.6, 0.9}});
    EXPECT_EQ(matrix_invert(matrix, 3), 1);
    double largest = 0.0;
    for (const double cell : matrix.cells) {
        largest = std::fmax(largest, std::fabs(cell));
    }
    EXPECT_GT(largest, 1e10);
}

TEST(MatrixInvert, WithoutAnyNumberKeepsThePlaceOfTheStepBeforeAndEnds) {
    Matrix matrix = matrix_create(3, 3, kNan);
    EXPECT_EQ(matrix_invert(matrix, 3), 1);
    for (const double cell : matrix.cells) {
        EXPECT_TRUE(std::isnan(cell));
    }
}

TEST(MatrixInvert, WhereOnlyNoNumberIsLeftThePivotOfTheStepBeforeIsTakenAgain) {
    Matrix matrix = matrix_of({{kNan, 0}, {0, 2}});
    EXPECT_EQ(matrix_invert(matrix, 2), 1);
    EXPECT_TRUE(std::isnan(matrix[0][0]));
    EXPECT_EQ(matrix[1][1], 2.0);
}

TEST(MatrixInvert, LeavesCellsOutsideTheLeadingBlockAlone) {
    Matrix matrix = matrix_of({{2, 0, 8}, {0, 4, 9}, {5, 6, 7}});
    EXPECT_EQ(matrix_invert(matrix, 2), 1);
    EXPECT_EQ(matrix.cells, (std::vector<double>{0.5, 0, 8, 0, 0.25, 9, 5, 6, 7}));
}

TEST(LagProducts, AddTheProductOfBothDeviations) {
    const double previous[] = {3.0, 1.0};
    const double current[] = {5.0, 4.0};
    const double centre[] = {1.0, 2.0};
    double sums[] = {10.0, 20.0};
    lag_products_add(2, previous, current, centre, sums);
    EXPECT_EQ(sums[0], 10.0 + 4.0 * 2.0);
    EXPECT_EQ(sums[1], 20.0 + 2.0 * -1.0);
}

TEST(LagProducts, AreAllNegativeOnlyWithoutAZeroOrAPositiveEntry) {
    const double negative[] = {-1.0, -1e-300};
    const double zero[] = {-1.0, 0.0};
    const double negative_zero[] = {-1.0, -0.0};
    const double positive[] = {1.0, -1.0};
    EXPECT_EQ(lag_products_all_negative(2, negative), 1);
    EXPECT_EQ(lag_products_all_negative(2, zero), 0);
    EXPECT_EQ(lag_products_all_negative(2, negative_zero), 0);
    EXPECT_EQ(lag_products_all_negative(2, positive), 0);
}

TEST(LagProducts, WhatIsNotANumberCountsAsNegative) {
    const double sums[] = {kNan, -1.0};
    EXPECT_EQ(lag_products_all_negative(2, sums), 1);
}

TEST(LagProducts, NoneAtAllAreAllNegative) {
    const double sums[] = {1.0};
    EXPECT_EQ(lag_products_all_negative(0, sums), 1);
    EXPECT_EQ(lag_products_all_negative(-4, sums), 1);
}

TEST(ParametersStep, MultipliesByTheTransposeOfTheMatrix) {
    double parameters[] = {0.0, 0.0};
    const double current[] = {1.0, 10.0};
    const double target[] = {0.0, 0.0};
    parameters_step(parameters, 2, current, target, matrix_of({{1, 2}, {3, 4}}), 1.0);
    EXPECT_EQ(parameters[0], -(1.0 * 1 + 10.0 * 3));
    EXPECT_EQ(parameters[1], -(1.0 * 2 + 10.0 * 4));
}

TEST(ParametersStep, FormsEachTermFromLeftToRightAndSubtractsOneByOne) {
    const double current[] = {0.3, 0.7, 0.11};
    const double target[] = {0.1, 0.9, 0.5};
    const Matrix matrix = matrix_of({{0.1, 0.2, 0.3}, {0.7, 0.9, 0.4}, {0.6, 0.13, 0.17}});
    const double gain = 0.37;
    double parameters[] = {0.1, 0.2, 0.3};
    double expected[] = {0.1, 0.2, 0.3};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            const double deviation = current[j] - target[j];
            const double gained = deviation * gain;
            expected[i] -= gained * matrix[j][i];
        }
    }
    parameters_step(parameters, 3, current, target, matrix, gain);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(parameters[i], expected[i]);
    }
}

TEST(ParametersStep, OfNoSizeDoesNothing) {
    double parameters[] = {4.0};
    const double value[] = {1.0};
    parameters_step(parameters, 0, value, value, Matrix(), 1.0);
    EXPECT_EQ(parameters[0], 4.0);
}

}  // namespace
