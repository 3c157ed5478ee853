#include "base/matrix.h"

#include <cmath>
#include <utility>
#include <vector>

Matrix matrix_create(int rows, int columns, double fill) { return {rows, columns, fill}; }

Matrix matrix_product(int n, const Matrix& a, const Matrix& b) {
    Matrix product = matrix_create(n, n, 0.0);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            double sum = 0.0;
            for (int k = 0; k < n; ++k) {
                sum += a[i][k] * b[k][j];
            }
            product[i][j] = sum;
        }
    }
    return product;
}

namespace {

struct Pivot {
    int row = 0;
    int column = 0;
};

// The entry of largest size outside the rows and columns already used; of equal sizes the last
// scanned wins. Where no entry takes over (all are not numbers), the place of the step before
// stays.
Pivot find_pivot(const Matrix& matrix, int n, const std::vector<int>& used, Pivot previous) {
    Pivot pivot = previous;
    double largest = 0.0;
    for (int row = 0; row < n; ++row) {
        if (used[static_cast<std::size_t>(row)] == 1) {
            continue;
        }
        for (int column = 0; column < n; ++column) {
            if (used[static_cast<std::size_t>(column)] != 0) {
                continue;
            }
            const double size = std::fabs(matrix[row][column]);
            if (size >= largest) {
                largest = size;
                pivot = {row, column};
            }
        }
    }
    return pivot;
}

void swap_rows(Matrix& matrix, int n, int a, int b) {
    for (int column = 0; column < n; ++column) {
        std::swap(matrix[a][column], matrix[b][column]);
    }
}

void swap_columns(Matrix& matrix, int n, int a, int b) {
    for (int row = 0; row < n; ++row) {
        std::swap(matrix[row][a], matrix[row][b]);
    }
}

void eliminate(Matrix& matrix, int n, int place) {
    const double reciprocal = 1.0 / matrix[place][place];
    matrix[place][place] = 1.0;
    for (int column = 0; column < n; ++column) {
        matrix[place][column] *= reciprocal;
    }
    for (int row = 0; row < n; ++row) {
        if (row == place) {
            continue;
        }
        const double factor = matrix[row][place];
        matrix[row][place] = 0.0;
        for (int column = 0; column < n; ++column) {
            matrix[row][column] -= matrix[place][column] * factor;
        }
    }
}

}  // namespace

int matrix_invert(Matrix& matrix, int n) {
    if (n < 1) {
        return 1;
    }
    std::vector<int> used(static_cast<std::size_t>(n), 0);
    std::vector<Pivot> pivots(static_cast<std::size_t>(n));
    Pivot pivot;
    for (int step = 0; step < n; ++step) {
        pivot = find_pivot(matrix, n, used, pivot);
        ++used[static_cast<std::size_t>(pivot.column)];
        if (pivot.row != pivot.column) {
            swap_rows(matrix, n, pivot.row, pivot.column);
        }
        pivots[static_cast<std::size_t>(step)] = pivot;
        if (matrix[pivot.column][pivot.column] == 0.0) {
            return 0;
        }
        eliminate(matrix, n, pivot.column);
    }
    for (int step = n - 1; step >= 0; --step) {
        const Pivot& done = pivots[static_cast<std::size_t>(step)];
        if (done.row != done.column) {
            swap_columns(matrix, n, done.row, done.column);
        }
    }
    return 1;
}

void lag_products_add(int n, const double* previous, const double* current, const double* centre,
                      double* sums) {
    for (int i = 0; i < n; ++i) {
        sums[i] += (current[i] - centre[i]) * (previous[i] - centre[i]);
    }
}

int lag_products_all_negative(int n, const double* sums) {
    for (int i = 0; i < n; ++i) {
        if (sums[i] >= 0.0) {
            return 0;
        }
    }
    return 1;
}

void parameters_step(double* parameters, int n, const double* current, const double* target,
                     const Matrix& matrix, double gain) {
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            parameters[i] -= (current[j] - target[j]) * gain * matrix[j][i];
        }
    }
}
