// Independent choices: the likelihood of a logistic regression, and of its relative with four
// outcomes in place of two.
//
// Two likelihoods of networks have this form. The pseudo-likelihood takes every dyad's tie as
// chosen by itself, given the rest of the network (Strauss and Ikeda 1990). And where dyads do not
// depend on each other at all it is the likelihood itself: each tie is a choice of two outcomes,
// each pair of arcs, whose two arcs may depend on each other, one of four (Holland and Leinhardt
// 1981).
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/matrix.h"
#include "study/identification.h"

// Outcomes beside the empty one that a choice has at most.
constexpr int kMostAlternatives = 3;

// Choices of one sort. Those with equal changes stand in one row with how often each outcome was
// taken, so that a network of millions of dyads is a few rows where its effects take few values.
class ChoiceTable {
  public:
    // p effects; 1 alternative beside the empty outcome, or 3.
    ChoiceTable(int effects, int alternatives) : effects_(effects), alternatives_(alternatives) {}

    // One choice: of each alternative the p statistics beyond the empty outcome's, and which
    // outcome was taken: 0, the empty one, or the number of the alternative from 1.
    void add(const double* changes, int taken);

    int effects() const { return effects_; }
    int alternatives() const { return alternatives_; }
    int rows() const { return static_cast<int>(taken_.size()); }
    // p numbers of an alternative, numbered from 1.
    const double* changes(int row, int alternative) const {
        return cells_.data() +
               (static_cast<std::size_t>(row) * static_cast<std::size_t>(alternatives_) +
                static_cast<std::size_t>(alternative) - 1) *
                   static_cast<std::size_t>(effects_);
    }
    // How often each outcome was taken, the empty one at 0.
    const std::array<double, kMostAlternatives + 1>& taken(int row) const {
        return taken_[static_cast<std::size_t>(row)];
    }

  private:
    int find_row(const double* changes);
    void grow();

    int effects_;
    int alternatives_;
    std::vector<double> cells_;
    std::vector<std::array<double, kMostAlternatives + 1>> taken_;
    // Row numbers by the hash of their cells, -1 where free.
    std::vector<std::int32_t> slots_;
};

// Tables over the same effects.
using IndependentChoices = std::vector<ChoiceTable>;

struct ChoiceLikelihood {
    double value = 0.0;            // log-likelihood
    std::vector<double> gradient;  // p: observed less expected statistics
    Matrix information;            // p x p: covariance of the statistics
};
ChoiceLikelihood choice_likelihood(const IndependentChoices& choices,
                                   const std::vector<double>& parameters);

enum class ChoiceOutcome {
    maximum,    // found
    dependent,  // effects depend on each other: see `dependent`
    infinite,   // the likelihood grows without bound: see `infinite`
    failed      // the start is not finite, or no step went up
};

struct ChoiceEstimate {
    ChoiceOutcome outcome = ChoiceOutcome::failed;
    std::vector<double> parameters;  // p, the held ones included
    ChoiceLikelihood likelihood;     // at the parameters
    Matrix covariance;               // p x p, inverse information; 0 for held ones
    DependentSet dependent;
    // Parameters that grow without bound, with the direction in which they do.
    std::vector<InfiniteEstimate> infinite;
};

// The greatest likelihood by Newton's method, which for these likelihoods is iteratively reweighted
// least squares (McCullagh and Nelder 1989), steps halved until they go up. `held` parameters (one
// flag an effect) stay at their start. The estimate is exact to rounding: the last step is below
// 1e-9 standard errors.
//
// The likelihood has no maximum exactly where some direction speaks against no choice that was made
// and for some (Albert and Anderson 1984). Newton's steps turn into it; a step that is such a
// direction ends the search, its effects named.
ChoiceEstimate maximise_choices(const IndependentChoices& choices, std::vector<double> start,
                                const std::vector<char>& held);

// The same with a small penalty on every parameter, worth one more choice: it has a maximum
// whatever was observed. A start for methods that go on from it.
std::vector<double> penalised_choices(const IndependentChoices& choices, std::vector<double> start,
                                      const std::vector<char>& held);
