// Small dense linear algebra in double precision, for sizes of the order of the number of effects.
#pragma once

#include "base/table.h"

using Matrix = Table<double>;

// rows x columns, every entry at `fill`.
Matrix matrix_create(int rows, int columns, double fill);

// The product of two n x n matrices, entry [i][j] summed over k ascending.
Matrix matrix_product(int n, const Matrix& a, const Matrix& b);

// Replaces the leading n x n block by its inverse, by Gauss-Jordan elimination with full pivoting.
// Returns 1, or 0 as soon as a pivot is exactly zero; the matrix is then left half done, and what
// it holds is what later steps of a run go on with. n = 0 returns 1.
int matrix_invert(Matrix& matrix, int n);

// sums[i] += (current[i] - centre[i]) x (previous[i] - centre[i]), for i in 0..n-1.
void lag_products_add(int n, const double* previous, const double* current, const double* centre,
                      double* sums);

// 1 when no entry is at or above 0.0, else 0; an entry that is not a number counts as negative, and
// n below 1 gives 1.
int lag_products_all_negative(int n, const double* sums);

// One Robbins-Monro update: for each i, for j ascending,
// parameters[i] -= (current[j] - target[j]) x gain x matrix[j][i].
void parameters_step(double* parameters, int n, const double* current, const double* target,
                     const Matrix& matrix, double gain);
