// The path from a model whose normalising constant is known to one whose constant is not.
//
// Bridges are laid from the far end on, each a given number of standard deviations from the one
// before. Then the chains walk up and down between them, drawing at each as many networks as its
// share of the error asks for. Two errors are found: what the autocorrelation times say, and what
// leaving out one chain at a time shows, the chains knowing nothing of each other. The larger one
// counts.
#pragma once

#include <cstdint>
#include <vector>

#include "study/bridges.h"
#include "study/study_chains.h"

struct LikelihoodSettings {
    double precision = 0.1;  // largest Monte Carlo error, in units of log-likelihood
    // In all; where they do not suffice, the error that they left is told.
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

    // Afterwards: the standard error of that, the number of bridges, proposals in all.
    double error() const { return error_; }
    int bridges() const { return static_cast<int>(bridges_.size()); }
    double proposals() const { return proposals_; }

  private:
    double aim() const;
    double expected_error() const;
    void draw(Bridge& bridge, int samples);
    void stand_on(Bridge& bridge);
    void first_bridge(Bridge& bridge);
    void lay_bridges();
    void stand_between();
    std::vector<int> missing_samples(double wanted) const;
    bool go_on(bool up, double wanted);
    double total(int without) const;
    void evaluate();

    std::vector<double> from_;
    std::vector<double> to_;
    const LikelihoodSettings& settings_;
    RunProgress& progress_;
    StudyChains chains_;
    std::size_t tied_;
    std::vector<Bridge> bridges_;
    double value_ = 0.0;
    double error_ = 0.0;
    double proposals_ = 0.0;
};
