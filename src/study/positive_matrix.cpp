#include "study/positive_matrix.h"

#include <cmath>

void solve_lower(const Matrix& lower, double* b) {
    for (int i = 0; i < lower.rows; ++i) {
        double sum = b[i];
        for (int k = 0; k < i; ++k) {
            sum -= lower[i][k] * b[k];
        }
        b[i] = sum / lower[i][i];
    }
}

void solve_transposed(const Matrix& lower, double* b) {
    for (int i = lower.rows - 1; i >= 0; --i) {
        double sum = b[i];
        for (int k = i + 1; k < lower.rows; ++k) {
            sum -= lower[k][i] * b[k];
        }
        b[i] = sum / lower[i][i];
    }
}

std::optional<Matrix> cholesky(const Matrix& matrix) {
    constexpr double kTiny = 1e-13;
    const int p = matrix.rows;
    Matrix lower = matrix_create(p, p, 0.0);
    for (int j = 0; j < p; ++j) {
        double left = matrix[j][j];
        for (int k = 0; k < j; ++k) {
            left -= lower[j][k] * lower[j][k];
        }
        if (!(left > kTiny * matrix[j][j]) || !std::isfinite(left)) {
            return std::nullopt;
        }
        lower[j][j] = std::sqrt(left);
        for (int i = j + 1; i < p; ++i) {
            double sum = matrix[i][j];
            for (int k = 0; k < j; ++k) {
                sum -= lower[i][k] * lower[j][k];
            }
            lower[i][j] = sum / lower[j][j];
        }
    }
    return lower;
}

std::vector<double> cholesky_solve(const Matrix& lower, std::vector<double> b) {
    solve_lower(lower, b.data());
    solve_transposed(lower, b.data());
    return b;
}

Matrix cholesky_inverse(const Matrix& lower) {
    const int p = lower.rows;
    Matrix inverse = matrix_create(p, p, 0.0);
    for (int j = 0; j < p; ++j) {
        std::vector<double> unit(static_cast<std::size_t>(p), 0.0);
        unit[static_cast<std::size_t>(j)] = 1.0;
        const std::vector<double> column = cholesky_solve(lower, unit);
        for (int i = j; i < p; ++i) {
            inverse[i][j] = inverse[j][i] = column[static_cast<std::size_t>(i)];
        }
    }
    return inverse;
}

double inverse_form(const Matrix& lower, const std::vector<double>& b) {
    std::vector<double> y = b;
    solve_lower(lower, y.data());
    double sum = 0.0;
    for (const double each : y) {
        sum += each * each;
    }
    return sum;
}

Matrix submatrix(const Matrix& matrix, const std::vector<int>& chosen) {
    const int q = static_cast<int>(chosen.size());
    Matrix part = matrix_create(q, q, 0.0);
    for (int i = 0; i < q; ++i) {
        for (int j = 0; j < q; ++j) {
            part[i][j] =
                matrix[chosen[static_cast<std::size_t>(i)]][chosen[static_cast<std::size_t>(j)]];
        }
    }
    return part;
}

Matrix spread_matrix(const Matrix& matrix, const std::vector<int>& chosen, int size) {
    Matrix whole = matrix_create(size, size, 0.0);
    for (int i = 0; i < matrix.rows; ++i) {
        for (int j = 0; j < matrix.columns; ++j) {
            whole[chosen[static_cast<std::size_t>(i)]][chosen[static_cast<std::size_t>(j)]] =
                matrix[i][j];
        }
    }
    return whole;
}
