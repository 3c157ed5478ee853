#include "fit/parameter_draws.h"

#include <cmath>

namespace {

// Sweeps at one threshold; a symmetric matrix needs a handful.
constexpr int kMostSweeps = 1000;

// Rotates rows and columns i and j of the symmetric matrix `a` so that a[i][j] vanishes; `vectors`
// collects the rotations. Only the lower triangle of `a` is used: at(r, c) with r >= c.
void rotate(Matrix& a, Matrix& vectors, int m, int i, int j) {
    const auto at = [&a](int r, int c) -> double& { return r >= c ? a[r][c] : a[c][r]; };
    const double off = at(i, j);
    const double d = (at(i, i) - at(j, j)) * 0.5;
    double s = -off / std::sqrt(d * d + off * off);
    if (d < 0.0) {
        s = -s;
    }
    const double sine = s / std::sqrt(2.0 * (1.0 + std::sqrt(1.0 - s * s)));
    const double cosine = std::sqrt(1.0 - sine * sine);
    for (int k = 0; k < m; ++k) {
        if (k != i && k != j) {
            const double x = at(k, i) * cosine - at(k, j) * sine;
            at(k, j) = at(k, i) * sine + at(k, j) * cosine;
            at(k, i) = x;
        }
        const double x = vectors[k][i] * cosine - vectors[k][j] * sine;
        vectors[k][j] = vectors[k][i] * sine + vectors[k][j] * cosine;
        vectors[k][i] = x;
    }
    const double cross = 2.0 * off * sine * cosine;
    const double first = at(i, i) * cosine * cosine + at(j, j) * sine * sine - cross;
    const double second = at(i, i) * sine * sine + at(j, j) * cosine * cosine + cross;
    at(i, j) = (at(i, i) - at(j, j)) * sine * cosine + off * (cosine * cosine - sine * sine);
    at(i, i) = first;
    at(j, j) = second;
}

bool sweep(Matrix& a, Matrix& vectors, int m, double threshold) {
    bool rotated = false;
    for (int j = 1; j < m; ++j) {
        for (int i = 0; i < j; ++i) {
            if (std::fabs(a[j][i]) >= threshold) {
                rotate(a, vectors, m, i, j);
                rotated = true;
            }
        }
    }
    return rotated;
}

}  // namespace

Matrix matrix_square_root(const Matrix& matrix, int m) {
    Matrix a = matrix;
    Matrix vectors = matrix_create(m, m, 0.0);
    double squares = 0.0;
    for (int i = 0; i < m; ++i) {
        vectors[i][i] = 1.0;
        for (int j = 0; j < i; ++j) {
            squares += a[i][j] * a[i][j];
        }
    }
    double threshold = std::sqrt(2.0 * squares);
    const double last = threshold * 1e-10 / m;
    while (threshold > last) {
        threshold /= m;
        for (int sweeps = 0; sweeps < kMostSweeps && sweep(a, vectors, m, threshold); ++sweeps) {
        }
    }
    Matrix inverse = vectors;
    matrix_invert(inverse, m);
    Matrix roots = matrix_create(m, m, 0.0);
    for (int i = 0; i < m; ++i) {
        roots[i][i] = std::sqrt(a[i][i]);
    }
    return matrix_product(m, matrix_product(m, vectors, roots), inverse);
}

double normal_deviate(RandomSource& random) {
    constexpr double kScale = 3.0517578125e-5;  // 1 / 32768
    for (;;) {
        const double u = 2.0 * random_draw(random) * kScale - 1.0;
        const double v = 2.0 * random_draw(random) * kScale - 1.0;
        const double s = u * u + v * v;
        if (s <= 1.0 && s != 0.0) {
            return u * std::sqrt(-2.0 * std::log(s) / s);
        }
    }
}

Matrix draw_parameters(const std::vector<double>& means, const Matrix& covariance, int rows,
                       RandomSource& random) {
    random_reseed(random);
    const int p = static_cast<int>(means.size());
    const Matrix root = matrix_square_root(covariance, p);
    Matrix draws = matrix_create(rows, p, 0.0);
    std::vector<double> z(means.size());
    for (int row = 0; row < draws.rows; ++row) {
        for (double& deviate : z) {
            deviate = normal_deviate(random);
        }
        for (int i = 0; i < p; ++i) {
            double entry = means[static_cast<std::size_t>(i)];
            for (int k = 0; k < p; ++k) {
                entry += root[k][i] * z[static_cast<std::size_t>(k)];
            }
            draws[row][i] = entry;
        }
    }
    return draws;
}
