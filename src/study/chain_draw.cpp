#include "study/chain_draw.h"

#include <algorithm>
#include <cmath>

#include "study/positive_matrix.h"

namespace {

// Solves L y = x for each row.
Matrix whitened(const Matrix& rows, const Matrix& lower) {
    Matrix white = rows;
    for (int row = 0; row < rows.rows; ++row) {
        for (int i = 0; i < rows.columns; ++i) {
            double sum = white[row][i];
            for (int k = 0; k < i; ++k) {
                sum -= lower[i][k] * white[row][k];
            }
            white[row][i] = sum / lower[i][i];
        }
    }
    return white;
}

// How much each sample moves each parameter: deviations times the inverse covariance.
std::vector<double> influence_times(const Matrix& deviation, const Matrix& inverse, int chains) {
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(deviation.columns));
    for (int k = 0; k < deviation.columns; ++k) {
        std::vector<double> influence(static_cast<std::size_t>(deviation.rows), 0.0);
        for (int row = 0; row < deviation.rows; ++row) {
            for (int i = 0; i < deviation.columns; ++i) {
                influence[static_cast<std::size_t>(row)] += deviation[row][i] * inverse[i][k];
            }
        }
        times.push_back(autocorrelation_time(influence, chains));
    }
    return times;
}

}  // namespace

double ChainDraw::effective(std::size_t k) const { return samples.statistics.rows / times[k]; }

double ChainDraw::effective() const {
    return times.empty() ? 0.0
                         : samples.statistics.rows / *std::max_element(times.begin(), times.end());
}

void measure(ChainDraw& draw, const DrawFrame& frame) {
    draw.moments = sample_moments(draw.samples.statistics);
    const Matrix covariance = submatrix(draw.moments.covariance, frame.free);
    draw.dependent = dependent_set(covariance);
    const auto lower = cholesky(covariance);
    if (!draw.dependent.empty() || !lower) {
        return;
    }
    draw.lower = *lower;
    draw.inverse = cholesky_inverse(*lower);
    for (const int k : frame.free) {
        const auto at = static_cast<std::size_t>(k);
        draw.excess.push_back(frame.observed[at] - draw.moments.means[at]);
    }
    draw.distance = inverse_form(*lower, draw.excess);
    const Matrix deviation = deviations(draw, frame);
    draw.times = influence_times(deviation, draw.inverse, frame.chains);
    Matrix target = matrix_create(1, deviation.columns, 0.0);
    std::copy(draw.excess.begin(), draw.excess.end(), target[0]);
    draw.ray = hull_ray(whitened(deviation, *lower), whitened(target, *lower).cells);
}

Matrix deviations(const ChainDraw& draw, const DrawFrame& frame) {
    const Matrix& all = draw.samples.statistics;
    Matrix some = matrix_create(all.rows, static_cast<int>(frame.free.size()), 0.0);
    for (int row = 0; row < all.rows; ++row) {
        for (int k = 0; k < some.columns; ++k) {
            const int column = frame.free[static_cast<std::size_t>(k)];
            some[row][k] = all[row][column] - draw.moments.means[static_cast<std::size_t>(column)];
        }
    }
    return some;
}

double t_ratio(const ChainDraw& draw, const DrawFrame& frame, int effect) {
    const auto at = static_cast<std::size_t>(effect);
    return (frame.observed[at] - draw.moments.means[at]) /
           std::sqrt(draw.moments.covariance[effect][effect]);
}

double largest_t_ratio(const ChainDraw& draw, const DrawFrame& frame) {
    double largest = 0.0;
    for (const int k : frame.free) {
        largest = std::max(largest, std::fabs(t_ratio(draw, frame, k)));
    }
    return largest;
}

std::vector<double> hull_face(const ChainDraw& draw, const DrawFrame& frame) {
    // In terms of the statistics: L'^-1 x normal.
    std::vector<double> normal = draw.ray.normal;
    for (int i = draw.lower.rows - 1; i >= 0; --i) {
        double sum = normal[static_cast<std::size_t>(i)];
        for (int k = i + 1; k < draw.lower.rows; ++k) {
            sum -= draw.lower[k][i] * normal[static_cast<std::size_t>(k)];
        }
        normal[static_cast<std::size_t>(i)] = sum / draw.lower[i][i];
    }
    for (std::size_t k = 0; k < normal.size(); ++k) {
        const int at = frame.free[k];
        normal[k] *= std::sqrt(draw.moments.covariance[at][at]);
    }
    return normal;
}
