// Symmetric positive definite matrices: covariances and information matrices.
#pragma once

#include <optional>
#include <vector>

#include "base/matrix.h"

// The lower triangle L of a matrix that is L L'; none where it is not positive definite: a pivot at
// or below 1e-13 of its diagonal, or a number that is not finite. O(p^3).
std::optional<Matrix> cholesky(const Matrix& matrix);

// Solve L y = b and L' x = b, in place of b.
void solve_lower(const Matrix& lower, double* b);
void solve_transposed(const Matrix& lower, double* b);

// The solution x of L L' x = b.
std::vector<double> cholesky_solve(const Matrix& lower, std::vector<double> b);

// (L L')^-1, exactly symmetric.
Matrix cholesky_inverse(const Matrix& lower);

// b' (L L')^-1 b.
double inverse_form(const Matrix& lower, const std::vector<double>& b);

// The rows and columns of these numbers, in their order; and back among `size`, 0 elsewhere.
Matrix submatrix(const Matrix& matrix, const std::vector<int>& chosen);
Matrix spread_matrix(const Matrix& matrix, const std::vector<int>& chosen, int size);
