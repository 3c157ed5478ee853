// Numbers of a sampled network whose means over the model are known to be zero: control variates
// for the means of its statistics.
//
// Given the rest of the network a tie x is there with probability pi, the inverse logit of its
// log-odds, so that a function a of the rest, times (x - pi), has mean zero. For each effect the
// sum over all dyads is formed with a its change statistic: what the statistic would gain in one
// step of a chain that draws a dyad anew, up to sign and the number of dyads (Dellaportas and
// Kontoyiannis 2012, Journal of the Royal Statistical Society B 74). Where dyads are independent a
// statistic differs from its sum by a constant alone; elsewhere the two still move together.
#pragma once

#include <vector>

#include "effects/evaluation.h"
#include "study/study_chains.h"

class BalanceControls {
  public:
    // What is given outlives the controls. No cap on degrees: it would change the probabilities.
    BalanceControls(const Study& study, const StudySelection& resolved);

    // The sums of one network drawn at `parameters`, written to `sums`: both have a value for each
    // effect in the study's order. The network is as before afterwards. O(dyads x cost of a
    // change). Several threads may measure networks of their own at the same time.
    void measure(const SampledNetwork& network, const std::vector<double>& parameters,
                 double* sums) const;

  private:
    template <class Network>
    void measure(Network& network, const ActiveModel<Network>& model,
                 const std::vector<double>& parameters, double* sums) const;

    const Study& study_;
    const StudySelection& resolved_;
    ActiveModel<Graph> graph_model_;
    ActiveModel<Digraph> digraph_model_;
};
