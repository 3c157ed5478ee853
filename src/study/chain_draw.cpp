#include "study/chain_draw.h"

#include <algorithm>
#include <cmath>

#include "study/positive_matrix.h"

namespace {

// Solves L y = x for each row.
Matrix whitened(Matrix rows, const Matrix& lower) {
    for (int row = 0; row < rows.rows; ++row) {
        solve_lower(lower, rows[row]);
    }
    return rows;
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
    draw.deviation = deviations(draw, frame);
    draw.times = influence_times(draw.deviation, draw.inverse, frame.chains);
    std::vector<double> target = draw.excess;
    solve_lower(*lower, target.data());
    draw.ray = hull_ray(whitened(draw.deviation, *lower), target);
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
    std::vector<double> normal = draw.ray.normal;
    solve_transposed(draw.lower, normal.data());  // in terms of the statistics
    for (std::size_t k = 0; k < normal.size(); ++k) {
        const int at = frame.free[k];
        normal[k] *= std::sqrt(draw.moments.covariance[at][at]);
    }
    return normal;
}
