// Goodness of fit: compares the observed network with networks simulated at fixed parameters
// (Hunter, Goodreau and Handcock 2008), or at parameters drawn around an estimate.
#pragma once

#include "base/matrix.h"
#include "report/run_setting.h"
#include "sampling/chain.h"

// Simulates `proposals` steps from the chain's network, taking a sample at every `interval`-th, and
// writes the fit log, the sample table and the switched-on per-sample outputs. Refreshes the
// observed network's descriptives. With an interval of 0 no sample is taken.
template <class Network>
void fit_run(Chain<Network>& chain, Network& observed, const RunSetting& setting, double proposals,
             double interval);

// Takes one sample per row of `parameter_sets` (p columns; `planned` is the number asked for, as
// the log shows it), after `burn_in` proposals at that row's parameters; the network goes on from
// one set to the next. Every burn-in reseeds, so sets begun within one second repeat their random
// sequence.
template <class Network>
void bayesian_fit_run(Chain<Network>& chain, Network& observed, const RunSetting& setting,
                      const Matrix& parameter_sets, int planned, double burn_in);
