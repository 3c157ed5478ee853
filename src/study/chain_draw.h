// What the chains of Monte Carlo maximum likelihood drew at one point, and what it says of the way
// to the observation.
#pragma once

#include <cstdint>
#include <vector>

#include "base/matrix.h"
#include "base/no_number.h"
#include "study/identification.h"
#include "study/sample_diagnosis.h"
#include "study/study_chains.h"

// What every draw of one search is measured against. Effects are numbered from 0 in the study's
// order, p of them; q of them are estimated.
struct DrawFrame {
    std::vector<int> free;         // the estimated effects, q of p
    std::vector<double> observed;  // statistics of the observed network, p
    int chains = 0;
};

struct ChainDraw {
    std::vector<double> parameters;  // p
    ChainSamples samples;
    SampleMoments moments;
    double mean_ties = 0.0;
    TieClusters clusters;
    std::int64_t burn_in = 0;
    std::int64_t interval = 0;
    // Of the estimated effects, by their numbers among these. None but the first where effects
    // depend on each other in the samples.
    DependentSet dependent;
    // Their statistics less the means: one row a sample, q columns.
    Matrix deviation;
    Matrix lower;                // Cholesky factor of their covariance
    Matrix inverse;              // and its inverse
    std::vector<double> excess;  // observed less mean statistics
    double distance = 0.0;       // squared, in units of the covariance
    std::vector<double> times;   // autocorrelation time of each parameter's influence, in samples
    HullRay ray;
    double p_value = kNoNumber;  // of Hotelling's test of observed against simulated means

    // How many independent samples it is worth: to the k-th estimated effect, and to the one whose
    // samples are most alike; 0 where effects depend on each other.
    double effective(std::size_t k) const;
    double effective() const;
};

// Fills in what follows from the samples: moments to ray.
void measure(ChainDraw& draw, const DrawFrame& frame);

// (observed - simulated mean) / simulated standard deviation of an effect; and the largest size of
// an estimated one.
double t_ratio(const ChainDraw& draw, const DrawFrame& frame, int effect);
double largest_t_ratio(const ChainDraw& draw, const DrawFrame& frame);

// The normal of the face through which the ray to the observation leaves the samples' convex hull:
// q numbers, each in standard deviations of its statistic.
std::vector<double> hull_face(const ChainDraw& draw, const DrawFrame& frame);
