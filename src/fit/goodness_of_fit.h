// Goodness of fit: compares the observed network with networks simulated at fixed parameters
// (Hunter, Goodreau and Handcock 2008), or at parameters drawn around an estimate.
//
// What was found comes back as numbers. Whoever writes a row a sample passes an observer.
#pragma once

#include "fit/fit_samples.h"
#include "sampling/chain.h"

struct FitResult {
    FitSamples samples;
    // Samples that lie closer to the samples' mean than the observed network does.
    int closer = 0;
    // Proposals between the first and the last sample, and how many were accepted; 0.0 where
    // parameters were drawn.
    double proposals = 0.0;
    double accepted = 0.0;
};

// Told of each sample, its snapshots fresh.
template <class Network>
struct FitObserver {
    FitObserver() = default;
    FitObserver(const FitObserver&) = default;
    FitObserver& operator=(const FitObserver&) = default;
    virtual ~FitObserver() = default;
    // At fixed parameters the ET counts are still those of the sample before: their recount
    // follows. At drawn ones they have been recounted.
    virtual void described(Network&) const {}
    // Everything is up to date. `number` is the proposal, or the parameter set from 1; `accepted`
    // counts the proposals accepted since the sample before.
    virtual void sampled(Network&, double /*number*/, double /*accepted*/) const {}
};

// Simulates `proposals` steps from the chain's network, taking a sample at every `interval`-th.
// Refreshes the observed network's descriptives. With an interval of 0 no sample is taken.
template <class Network>
FitResult goodness_of_fit(Chain<Network>& chain, Network& observed,
                          const EffectSelection& selection, double proposals, double interval,
                          RunProgress& progress,
                          const FitObserver<Network>& observer = FitObserver<Network>());

// Takes one sample per row of `parameter_sets` (p columns), after `burn_in` proposals at that row's
// parameters; the network goes on from one set to the next. Every burn-in reseeds, so sets begun
// within one second repeat their random sequence.
template <class Network>
FitResult bayesian_goodness_of_fit(Chain<Network>& chain, Network& observed,
                                   const EffectSelection& selection, const Matrix& parameter_sets,
                                   double burn_in, RunProgress& progress,
                                   const FitObserver<Network>& observer = FitObserver<Network>());
