// What samples of chains tell beside their means: how many independent ones they are worth, whether
// the chains agree, whether the observation lies among them, whether they fall into two kinds.
//
// Samples stand chain by chain, every chain with as many.
#pragma once

#include <vector>

#include "base/matrix.h"
#include "study/identification.h"

struct SampleMoments {
    std::vector<double> means;
    Matrix covariance;  // by the number of rows
};
SampleMoments sample_moments(const Matrix& samples);

// The column's values in order.
std::vector<double> sample_column(const Matrix& samples, int column);

// Largest correlation of a column with itself one sample later in the same chain, about the
// columns' means; 0 where no column moved or every one turns.
double largest_autocorrelation(const Matrix& samples, const std::vector<double>& means, int chains);

// Integrated autocorrelation time in samples, at least 1: so many samples are worth one that is
// independent of the others. Geyer (1992), Practical Markov chain Monte Carlo, Statistical Science
// 7: the initial monotone sequence, its autocovariances about the mean of all chains, so that
// chains that do not agree count as one long memory. As many as there are values where none moved.
double autocorrelation_time(const std::vector<double>& values, int chains);

// Gelman and Rubin (1992), Inference from iterative simulation using multiple sequences,
// Statistical Science 7: near 1 where chains agree. NaN with one chain, or where nothing moved.
double gelman_rubin(const std::vector<double>& values, int chains);

// The covariance of the samples' mean by the means of batches, and how many there were: each chain
// is cut into the same number of batches, at least 8, more where there are many columns (Flegal and
// Jones 2010, Annals of Statistics 38).
struct MeanCovariance {
    Matrix covariance;
    int batches = 0;
};
MeanCovariance covariance_of_mean(const Matrix& samples, int chains);

// P(F > f) of the F distribution, by the continued fraction of the incomplete beta function
// (Abramowitz and Stegun 1964, 26.5.8).
double f_upper_tail(double f, double numerator, double denominator);

// Hotelling's test of whether the mean of the samples' chosen columns is `observed` (one value a
// column of the samples): the p-value; 0 where the batches' covariance is singular.
double hotelling_p_value(const Matrix& samples, int chains, const std::vector<int>& columns,
                         const std::vector<double>& observed);

// A ray from the origin towards `target` through the convex hull of points (one a row, the origin
// among them or inside): how often the target fits into it. Above 1 the target lies inside, below 1
// outside. `normal` x point <= 1 for every point: the face through which the ray leaves.
//
// The least sum of weights that combine the points to the target, by the revised simplex method,
// O(points x columns) a step.
struct HullRay {
    double reach = 0.0;
    std::vector<double> normal;
};
HullRay hull_ray(const Matrix& points, const std::vector<double>& target);

// Two kinds of networks among the simulated ones, by their numbers of ties.
struct TieClusters {
    // Whether there is a gap: the means of the two kinds are at least 3 tenths of all dyads apart
    // and 4 standard deviations within them, and the smaller one has at least one in a hundred.
    bool apart = false;
    double lower_mean = 0.0;
    double upper_mean = 0.0;
    double upper_share = 0.0;
};
// The split with the least variance within its two parts (Otsu 1979, IEEE Transactions on Systems,
// Man and Cybernetics 9). `ties` and `dyads` count what may change.
TieClusters tie_clusters(std::vector<double> ties, double dyads);
