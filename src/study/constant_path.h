// The path from a model whose normalising constant is known to one whose constant is not.
//
// Along a straight line between the parameters the log of the constant changes by the mean of the
// networks' log-odds between the two ends; the ratio of the constants is the integral of that mean
// (path sampling: Gelman and Meng 1998, Statistical Science 13; Hunter and Handcock 2006). The mean
// is found at a few points of the line, from networks drawn there, with the controls of
// study/balance_controls.h where a network's sums cost no more than they save; Boole's rule puts
// the points together. Where Simpson's rule says something else, points are added between.
//
// The error told is made of two: that of the means, the larger one of what the samples say and of
// what the chains, which know nothing of each other, differ by; and the difference of the rules.
#pragma once

#include <cstdint>
#include <vector>

#include "study/balance_controls.h"
#include "study/controlled_mean.h"
#include "study/study_chains.h"

struct LikelihoodSettings {
    double precision = 0.1;  // largest Monte Carlo error, in units of log-likelihood
    // Proposals in all, a dyad of a network's controls counting as half of one; where they do not
    // suffice, the error that they left is told.
    double most_proposals = 5e7;
    int chains = kDefaultChains;
    int threads = 0;
};

class ConstantPath {
  public:
    // From `from` to `to`, parameters in the order of the study's effects. What is given by
    // reference outlives the path.
    ConstantPath(const Study& study, const StudySelection& resolved, std::vector<double> from,
                 std::vector<double> to, std::uint64_t seed, const LikelihoodSettings& settings,
                 RunProgress& progress);

    // The observed network's log-likelihood at `to` less that at `from`. Throws RunStopped when the
    // progress asks for the end.
    double walk();

    // Afterwards: the standard error of that, the number of points, proposals in all.
    double error() const { return error_; }
    int points() const { return static_cast<int>(points_.size()); }
    double proposals() const { return proposals_; }

  private:
    // A place on the line: 0 at one end, 1 at the other.
    struct Point {
        double at = 0.0;
        std::int64_t interval = 1;  // proposals between samples
        // The log-odds of each sampled network between the ends, less those of the observed one.
        ControlledSamples samples = {};
        ControlledMean mean = {};
        double weight = 0.0;  // in the integral
    };
    // A stretch of the line with five points, its ends among them.
    static constexpr int kCellPoints = 5;
    struct Cell {
        double from = 0.0;
        double width = 1.0;
        double place(int k) const { return from + width * k / (kCellPoints - 1); }
    };
    struct RuleError {
        double size = 0.0;   // difference of the two rules
        double noise = 0.0;  // of this, its standard error
    };

    std::int64_t interval_at(double at, std::int64_t interval);
    std::int64_t first_interval();
    int first_samples(std::int64_t interval) const;
    void add_points(const Cell& cell, std::int64_t interval);
    Point& point_at(double at);
    void run(double at, std::int64_t burn_in, std::int64_t interval, int samples, bool controlled,
             ControlledSamples& drawn);
    void draw(Point& point, std::int64_t burn_in, int samples);
    double cost(std::int64_t interval) const;
    double load(const Point& point) const;
    double loads() const;
    double aim() const;
    double sampling_error() const;
    double chain_error() const;
    RuleError rule_error(const Cell& cell);
    double rule_errors();
    bool split_cell();
    std::vector<int> missing_samples() const;
    bool draw_missing(bool up);
    void evaluate();

    const LikelihoodSettings& settings_;
    std::vector<double> from_;
    std::vector<double> to_;
    RunProgress& progress_;
    StudyChains chains_;
    BalanceControls controls_;
    double measuring_ = 0.0;  // what the controls of one network cost, in proposals; 0 without them
    std::size_t tied_;
    std::vector<Point> points_;  // ascending
    std::vector<Cell> cells_ = {Cell{}};
    double value_ = 0.0;
    double error_ = 0.0;
    double proposals_ = 0.0;
    double spent_ = 0.0;  // of the most proposals
};
