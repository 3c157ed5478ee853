// Bridges between two models whose networks hardly overlap: points of a path, each so near to the
// next that their networks do.
//
// The ratio of two neighbours' normalising constants is estimated from the networks of both
// (Bennett 1976, Journal of Computational Physics 22; Meng and Wong 1996, Statistica Sinica 6),
// that of the ends is the sum over the path (Gelman and Meng 1998, Statistical Science 13).
#pragma once

#include <cstdint>
#include <vector>

struct Bridge {
    double at = 0.0;            // its place on the path: 0 at one end, 1 at the other
    std::int64_t interval = 1;  // proposals between samples
    // Of each chain, the log-odds of every sampled network between the path's two ends, less those
    // of the observed network. Every chain has as many.
    std::vector<std::vector<double>> drawn;
    double deviation = 0.0;  // standard deviation of these
    double time = 1.0;       // their integrated autocorrelation time, in proposals
};

// Samples of each chain.
int samples_of(const Bridge& bridge);

// Finds the deviation and the autocorrelation time of what was drawn.
void bridge_measure(Bridge& bridge);

// The log of the higher bridge's constant over the lower one's, without the samples of one chain
// (-1 for none).
double log_ratio(const Bridge& low, const Bridge& high, int without);

// What each bridge of a path, in ascending order, adds to the error: the part of the path that it
// stands for times its deviation, times the root of its autocorrelation time. With P proposals at
// every bridge the squared error is the sum of squared loads / P; shares in proportion to the loads
// give the least error for a number of proposals in all, its square being (sum of loads)^2 / all.
std::vector<double> bridge_loads(const std::vector<Bridge>& path);
