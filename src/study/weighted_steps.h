// Steps near the maximum of the likelihood: samples weighted by the ratio of likelihoods (Geyer and
// Thompson 1992, Journal of the Royal Statistical Society B 54), and the average of several steps'
// ends.
#pragma once

#include <optional>
#include <vector>

#include "base/matrix.h"
#include "study/chain_draw.h"

// The step at which the samples, weighted by exp(step x deviation), have the observed mean:
// Newton's method on the likelihood's logarithm, from `step` on. `deviation`: one row a sample, q
// columns; `excess`: observed less mean statistics. None where the weights rest on less than a
// quarter of the samples, or where 20 steps do not end.
std::optional<std::vector<double>> weighted_step(const Matrix& deviation,
                                                 const std::vector<double>& excess,
                                                 std::vector<double> step);

// Estimates of several runs of the chains, each weighted by what its samples are worth.
struct EstimatePool {
    std::vector<double> weighted;  // sum of worth x estimate, of each estimated effect
    std::vector<double> worth;
    Matrix covariance;  // of the statistics: sum of worth x covariance
    double total = 0.0;

    // The q estimates that a draw led to, and the q x q covariance of its statistics.
    void add(const ChainDraw& draw, const std::vector<double>& estimate, const Matrix& part);
    bool empty() const { return weighted.empty(); }
    double value(std::size_t k) const { return weighted[k] / worth[k]; }
    // Monte Carlo error in standard errors.
    double error(std::size_t k) const;
    double largest_error() const;
};
