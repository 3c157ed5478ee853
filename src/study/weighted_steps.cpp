#include "study/weighted_steps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "study/positive_matrix.h"

namespace {

// Weights of the samples at a step, the largest being 1.
struct SampleWeights {
    std::vector<double> each;
    double sum = 0.0;
    double squares = 0.0;
};

void weigh(SampleWeights& weights, const Matrix& deviation, const std::vector<double>& step) {
    double largest = -std::numeric_limits<double>::infinity();
    for (std::size_t row = 0; row < weights.each.size(); ++row) {
        weights.each[row] =
            std::inner_product(step.begin(), step.end(), deviation[static_cast<int>(row)], 0.0);
        largest = std::max(largest, weights.each[row]);
    }
    weights.sum = weights.squares = 0.0;
    for (double& weight : weights.each) {
        weight = std::exp(weight - largest);
        weights.sum += weight;
        weights.squares += weight * weight;
    }
}

struct WeightedMoments {
    std::vector<double> mean;
    Matrix covariance;
};

WeightedMoments weighted_moments(const Matrix& deviation, const SampleWeights& weights) {
    const int q = deviation.columns;
    WeightedMoments moments{std::vector<double>(static_cast<std::size_t>(q), 0.0),
                            matrix_create(q, q, 0.0)};
    for (int row = 0; row < deviation.rows; ++row) {
        const double* values = deviation[row];
        for (int i = 0; i < q; ++i) {
            const double part =
                weights.each[static_cast<std::size_t>(row)] / weights.sum * values[i];
            moments.mean[static_cast<std::size_t>(i)] += part;
            for (int j = 0; j <= i; ++j) {
                moments.covariance[i][j] += part * values[j];
            }
        }
    }
    for (int i = 0; i < q; ++i) {
        for (int j = 0; j <= i; ++j) {
            moments.covariance[i][j] -= moments.mean[static_cast<std::size_t>(i)] *
                                        moments.mean[static_cast<std::size_t>(j)];
            moments.covariance[j][i] = moments.covariance[i][j];
        }
    }
    return moments;
}

}  // namespace

std::optional<std::vector<double>> weighted_step(const Matrix& deviation,
                                                 const std::vector<double>& excess,
                                                 std::vector<double> step) {
    constexpr int kSteps = 20;
    constexpr double kLeastShare = 0.25;
    constexpr double kArrived = 1e-14;
    const auto rows = static_cast<std::size_t>(deviation.rows);
    SampleWeights weights{std::vector<double>(rows, 0.0)};
    for (int count = 0; count < kSteps; ++count) {
        weigh(weights, deviation, step);
        if (!(weights.sum * weights.sum >=
              kLeastShare * weights.squares * static_cast<double>(rows))) {
            return std::nullopt;
        }
        const WeightedMoments moments = weighted_moments(deviation, weights);
        std::vector<double> gradient = excess;
        for (std::size_t k = 0; k < gradient.size(); ++k) {
            gradient[k] -= moments.mean[k];
        }
        const auto lower = cholesky(moments.covariance);
        if (!lower) {
            return std::nullopt;
        }
        if (inverse_form(*lower, gradient) < kArrived) {
            return step;
        }
        const std::vector<double> further = cholesky_solve(*lower, gradient);
        for (std::size_t k = 0; k < step.size(); ++k) {
            step[k] += further[k];
        }
    }
    return std::nullopt;
}

void EstimatePool::add(const ChainDraw& draw, const DrawFrame& frame,
                       const std::vector<double>& estimate) {
    Part part{{}, draw.deviation, draw.effective()};
    weighted_.resize(estimate.size(), 0.0);
    worth_.resize(estimate.size(), 0.0);
    for (std::size_t k = 0; k < estimate.size(); ++k) {
        part.at.push_back(draw.parameters[static_cast<std::size_t>(frame.free[k])]);
        weighted_[k] += draw.effective(k) * estimate[k];
        worth_[k] += draw.effective(k);
    }
    total_ += part.effective;
    parts_.push_back(std::move(part));
}

double EstimatePool::error(std::size_t k) const { return 1.0 / std::sqrt(worth_[k]); }

double EstimatePool::largest_error() const {
    double largest = 0.0;
    for (std::size_t k = 0; k < worth_.size(); ++k) {
        largest = std::max(largest, error(k));
    }
    return largest;
}

Matrix EstimatePool::covariance() const {
    const auto q = static_cast<int>(worth_.size());
    Matrix sum = matrix_create(q, q, 0.0);
    for (const Part& part : parts_) {
        std::vector<double> step;
        for (std::size_t k = 0; k < worth_.size(); ++k) {
            step.push_back(value(k) - part.at[k]);
        }
        SampleWeights weights{std::vector<double>(static_cast<std::size_t>(part.deviation.rows))};
        weigh(weights, part.deviation, step);
        const Matrix covariance = weighted_moments(part.deviation, weights).covariance;
        for (std::size_t cell = 0; cell < sum.cells.size(); ++cell) {
            sum.cells[cell] += part.effective / total_ * covariance.cells[cell];
        }
    }
    return sum;
}
