#include "study/pooling.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/no_number.h"

namespace {

double squared_error(const GroupEstimate& group) {
    return group.standard_error * group.standard_error;
}

struct WeightedMean {
    double mean = 0.0;
    double weights = 0.0;
};

// Weights 1 / (variance + squared error).
WeightedMean weighted_mean(const std::vector<GroupEstimate>& groups, double variance) {
    WeightedMean found;
    double sum = 0.0;
    for (const GroupEstimate& each : groups) {
        const double weight = 1.0 / (variance + squared_error(each));
        sum += weight * each.estimate;
        found.weights += weight;
    }
    found.mean = sum / found.weights;
    return found;
}

double variance_over_groups(const std::vector<GroupEstimate>& groups) {
    const auto n = static_cast<double>(groups.size());
    double sum = 0.0;
    double errors = 0.0;
    for (const GroupEstimate& each : groups) {
        sum += each.estimate;
        errors += squared_error(each);
    }
    double squares = 0.0;
    for (const GroupEstimate& each : groups) {
        squares += (each.estimate - sum / n) * (each.estimate - sum / n);
    }
    return std::max(0.0, squares / (n - 1.0) - errors / n);
}

void test_variance(const std::vector<GroupEstimate>& groups, PooledEstimate& pooled) {
    const double mean = weighted_mean(groups, 0.0).mean;
    pooled.q = 0.0;
    for (const GroupEstimate& each : groups) {
        pooled.q += (each.estimate - mean) * (each.estimate - mean) / squared_error(each);
    }
    pooled.degrees = pooled.groups - 1;
    pooled.q_p_value = chi_squared_tail(pooled.q, pooled.degrees);
}

}  // namespace

PooledEstimate pool_estimates(const std::vector<GroupEstimate>& groups) {
    PooledEstimate pooled{static_cast<int>(groups.size()),
                          kNoNumber,
                          kNoNumber,
                          kNoNumber,
                          kNoNumber,
                          kNoNumber,
                          kNoNumber,
                          0,
                          kNoNumber};
    if (groups.empty()) {
        return pooled;
    }
    if (groups.size() > 1) {
        pooled.variance = variance_over_groups(groups);
        test_variance(groups, pooled);
    }
    const double variance = groups.size() > 1 ? pooled.variance : 0.0;
    const WeightedMean found = weighted_mean(groups, variance);
    pooled.mean = found.mean;
    pooled.standard_error = 1.0 / std::sqrt(found.weights);
    pooled.z = pooled.mean / pooled.standard_error;
    pooled.p_value = std::erfc(std::fabs(pooled.z) / std::numbers::sqrt2);
    return pooled;
}

// The tail of k + 2 degrees is that of k plus (x/2)^(k/2) exp(-x/2) / Gamma(k/2 + 1). The terms are
// kept as logarithms: for large x the first ones underflow.
double chi_squared_tail(double x, int degrees) {
    if (x <= 0.0) {
        return 1.0;
    }
    const double half = x / 2.0;
    const bool odd = degrees % 2 == 1;
    double tail = odd ? std::erfc(std::sqrt(half)) : 0.0;
    double term = -half;
    if (odd) {
        term += 0.5 * std::log(half) - std::log(0.5 * std::sqrt(std::numbers::pi));
    }
    for (int k = odd ? 1 : 0; k < degrees - 1; k += 2) {
        tail += std::exp(term);
        term += std::log(half) - std::log(k / 2.0 + 1.0);
    }
    return std::min(1.0, tail);
}
