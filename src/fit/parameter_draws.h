// Draws from a multivariate normal distribution of parameters.
#pragma once

#include <vector>

#include "base/matrix.h"
#include "base/random_source.h"

// The symmetric square root by the threshold Jacobi method (Greenstadt 1960): V sqrt(L) V^-1 with
// the eigenvalues L and eigenvectors V. A negative eigenvalue gives entries that are not numbers.
Matrix matrix_square_root(const Matrix& matrix, int m);

// One standard normal deviate by the polar method (Marsaglia and Bray 1964); the second deviate of
// the pair is thrown away.
double normal_deviate(RandomSource& random);

// Reseeds and returns rows x p draws: each entry i is means[i] plus the sum over k of
// root[k][i] x z[k].
Matrix draw_parameters(const std::vector<double>& means, const Matrix& covariance, int rows,
                       RandomSource& random);
