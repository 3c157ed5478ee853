#include "fit/goodness_of_fit.h"

#include <cmath>

#include "base/conversions.h"
#include "measures/descriptives.h"

template <class Network>
FitResult goodness_of_fit(Chain<Network>& chain, Network& observed,
                          const EffectSelection& selection, double proposals, double interval,
                          RunProgress& progress, const FitObserver<Network>& observer) {
    Network& network = chain.network;
    random_reseed(chain.random);
    refresh_descriptives(observed);
    FitResult result;
    result.proposals = proposals;
    result.samples = fit_samples_create(observed, selection, truncate_to_int(proposals / interval));
    progress_start(progress, RunStage::fit, proposals);
    double since_sample = 0.0;
    double due = interval;
    const double whole = std::floor(proposals);
    for (double counter = 0.0; counter < whole;) {
        const double steps = steps_to_sample(counter, due, whole);
        const double accepted =
            chain_run(chain, steps, [&](double made) { progress_work(progress, counter + made); });
        result.accepted += accepted;
        since_sample += accepted;
        counter += steps;
        if (counter == due) {
            refresh_descriptives(network);
            observer.described(network);
            recount_uncarried(network, selection);
            observer.sampled(network, counter, since_sample);
            fit_samples_add(result.samples, network, selection);
            since_sample = 0.0;
            due += interval;
        }
    }
    result.closer = fit_samples_measure(result.samples);
    return result;
}

template <class Network>
FitResult bayesian_goodness_of_fit(Chain<Network>& chain, Network& observed,
                                   const EffectSelection& selection, const Matrix& parameter_sets,
                                   double burn_in, RunProgress& progress,
                                   const FitObserver<Network>& observer) {
    Network& network = chain.network;
    random_reseed(chain.random);
    refresh_descriptives(observed);
    FitResult result;
    result.samples = fit_samples_create(observed, selection, parameter_sets.rows);
    for (int set = 0; set < parameter_sets.rows; ++set) {
        chain.parameters = parameter_sets[set];
        progress_start(progress, RunStage::bayesian_fit, burn_in);
        progress_step(progress, set, parameter_sets.rows);
        burn_in_run(chain, burn_in, progress);
        recount_uncarried(network, selection);
        refresh_descriptives(network);
        observer.described(network);
        observer.sampled(network, set + 1, 0.0);
        fit_samples_add(result.samples, network, selection);
    }
    result.closer = fit_samples_measure(result.samples);
    return result;
}

template FitResult goodness_of_fit<Graph>(Chain<Graph>&, Graph&, const EffectSelection&, double,
                                          double, RunProgress&, const FitObserver<Graph>&);
template FitResult goodness_of_fit<Digraph>(Chain<Digraph>&, Digraph&, const EffectSelection&,
                                            double, double, RunProgress&,
                                            const FitObserver<Digraph>&);
template FitResult bayesian_goodness_of_fit<Graph>(Chain<Graph>&, Graph&, const EffectSelection&,
                                                   const Matrix&, double, RunProgress&,
                                                   const FitObserver<Graph>&);
template FitResult bayesian_goodness_of_fit<Digraph>(Chain<Digraph>&, Digraph&,
                                                     const EffectSelection&, const Matrix&, double,
                                                     RunProgress&, const FitObserver<Digraph>&);
