// Monte Carlo maximum likelihood of a study's model.
//
// From the pseudo-likelihood's estimate on, chains draw networks, and a Newton step leads to where
// their mean statistics would be the observed ones. Far from there the aim is a point on the way
// which the samples' convex hull still holds (Hummel, Hunter and Handcock 2012, Journal of
// Computational and Graphical Statistics 21); near it the samples are weighted by the ratio of
// likelihoods (Geyer and Thompson 1992, Journal of the Royal Statistical Society B 54). Distance
// between samples and their number follow from the integrated autocorrelation time of what each
// sample adds to each parameter, which also gives the Monte Carlo error of every estimate.
//
// It ends where Hotelling's test sees no difference between observed and simulated means, every
// t-ratio is below 0.1 and every Monte Carlo error is below the wanted share of its standard error.
// Estimates of several runs of the chains near the end are averaged by what their samples are
// worth. Where steps lead astray again and again, stochastic approximation (Robbins and Monro 1951;
// Snijders 2002, Journal of Social Structure 3) goes on from the best point, and the Newton steps
// after it.
//
// All limits count proposals and steps, not time, so that the same seed gives the same numbers on
// every machine and for any number of threads.
#pragma once

#include "study/study_estimate.h"

// Fills the estimate; its effects hold names and observed statistics. Throws RunStopped when
// `progress` asks for the end; the estimate then holds the best point so far, and where no chain
// had run the parameters alone, from which they were to start.
void estimate_by_simulation(const Study& study, StudySelection& resolved, StudyEstimate& estimate,
                            RunProgress& progress);

// The Monte Carlo error that an estimate may have, in its standard errors.
double wanted_precision(const Study& study);
