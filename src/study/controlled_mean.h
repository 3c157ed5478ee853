// The mean of a sampled number, made more precise by others of the same samples whose means are
// known to be zero (control variates).
#pragma once

#include <vector>

// Chains of samples that know nothing of each other, all of the same length.
struct ControlledSamples {
    int controls = 0;                         // q
    std::vector<std::vector<double>> values;  // of each chain, in the order of its samples
    std::vector<std::vector<double>> zeros;   // of each chain, q for each sample
    int count() const;                        // of all chains
};

struct ControlledMean {
    double value = 0.0;
    std::vector<double> by_chain;  // its part in each chain; their mean is the value
    // Of the values less what the controls explain: standard deviation and autocorrelation time in
    // samples.
    double deviation = 0.0;
    double time = 1.0;
    double raw_time = 1.0;  // autocorrelation time of the values themselves

    // Standard error of the value, of so many samples.
    double error(int count) const;
};

// Values less their regression on the controls, whose coefficients come from the same samples;
// controls that follow from the others count once. With three samples to a control or fewer, the
// controls are left out. NaN of no samples.
ControlledMean controlled_mean(const ControlledSamples& samples);
