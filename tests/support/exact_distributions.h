// Distributions over all networks on a handful of actors: exact, and as a chain visits them.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "support/chain_models.h"

// Probability of each network by its code; 0.0 for those outside the class.
using Distribution = std::vector<double>;

inline double total_variation(const Distribution& a, const Distribution& b) {
    double sum = 0.0;
    for (std::size_t code = 0; code < a.size(); ++code) {
        sum += std::fabs(a[code] - b[code]);
    }
    return 0.5 * sum;
}

inline void normalize(Distribution& weights) {
    double sum = 0.0;
    for (const double weight : weights) {
        sum += weight;
    }
    for (double& weight : weights) {
        weight /= sum;
    }
}

template <class Network>
std::size_t network_total(int n) {
    return std::size_t{1} << all_dyads<Network>(n).size();
}

// exp(parameters x statistics), normalised over the networks of the class.
template <class Network>
Distribution exact_distribution(const ChainModel<Network>& model, int n,
                                const std::function<bool(const Network&)>& in_class) {
    Distribution weights(network_total<Network>(n), 0.0);
    const int depth = clique_depth(model.selection);
    for (std::size_t code = 0; code < weights.size(); ++code) {
        Network network =
            network_of_code<Network>(n, static_cast<std::uint32_t>(code), model.size(), depth);
        if (!in_class(network)) {
            continue;
        }
        count_statistics(network, model.active);
        double exponent = 0.0;
        for (std::size_t m = 0; m < model.parameters.size(); ++m) {
            exponent += model.parameters[m] * network.statistics[m];
        }
        weights[code] = std::exp(exponent);
    }
    normalize(weights);
    return weights;
}

// The share of samples that each network takes, one sample every `thinning` steps.
template <class Network>
Distribution chain_frequencies(Chain<Network>& chain, int samples, int thinning) {
    Distribution visits(network_total<Network>(chain.network.vertices), 0.0);
    for (int sample = 0; sample < samples; ++sample) {
        for (int step = 0; step < thinning; ++step) {
            chain_step(chain);
        }
        visits[code_of_network(chain.network)] += 1.0;
    }
    normalize(visits);
    return visits;
}

// Samples of one chain in these tests.
constexpr int kSamples = 150000;

// How far the frequencies of as many independent samples may lie from the truth: half as far again
// as they do on average. Over a thousand networks that is 0.05, over twenty 0.007.
inline double farthest(const Distribution& exact, int samples) {
    const double mean_of_absolute_normal = 0.7978845608028654;
    double sum = 0.0;
    for (const double probability : exact) {
        sum += std::sqrt(probability * (1.0 - probability) / samples);
    }
    return 1.5 * 0.5 * mean_of_absolute_normal * sum;
}

// Whether the frequencies tell the first distribution from the second and agree with the first.
inline void expect_near_first(const Distribution& visits, const Distribution& exact,
                              const Distribution& wrong, int samples = kSamples) {
    const double bound = farthest(exact, samples);
    EXPECT_LT(total_variation(visits, exact), bound);
    EXPECT_GT(total_variation(visits, wrong), bound);
}
