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
class EstimatePool {
  public:
    // The q estimates that a draw led to.
    void add(const ChainDraw& draw, const DrawFrame& frame, const std::vector<double>& estimate);

    bool empty() const { return parts_.empty(); }
    double total() const { return total_; }  // independent samples
    double value(std::size_t k) const { return weighted_[k] / worth_[k]; }
    // Monte Carlo error in standard errors.
    double error(std::size_t k) const;
    double largest_error() const;
    // The statistics' covariance (q x q) at the pool's estimates: that of every draw's samples,
    // weighted by the ratio of likelihoods. Where statistics are skewed it differs much between
    // points a few hundredths of a standard error apart.
    Matrix covariance() const;

  private:
    // A draw: where it was made (q), its samples' deviations, how many independent ones they are.
    struct Part {
        std::vector<double> at;
        Matrix deviation;
        double effective = 0.0;
    };
    std::vector<Part> parts_;
    std::vector<double> weighted_;  // sum of worth x estimate, of each estimated effect
    std::vector<double> worth_;
    double total_ = 0.0;
};
