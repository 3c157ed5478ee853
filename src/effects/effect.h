// What an effect is to the evaluator: two functions and the data they read beside the network.
//
// A change statistic always means the effect of adding the tie (i, j) to the network without it; a
// sampler that deletes a tie clears it from bits and degrees first. `adding` says only how far the
// auxiliary tables lag: 0 while a deletion is evaluated (two-path counts and triangles still count
// the tie), 1 otherwise. The dump of change statistics also asks about a tie that is still there,
// with `adding` 0; every function then leaves i and j out of its k.
#pragma once

#include <cstdint>
#include <vector>

#include "base/table.h"
#include "network/digraph.h"
#include "network/graph.h"

// An actor's value of an attribute where none is known.
constexpr int kMissing = 9999;

// One binary or categorical attribute, prepared for counting by whole words.
struct CodedAttribute {
    std::vector<int> values;
    ActorSet ones;     // value exactly 1
    ActorSet nonzero;  // value not 0
};

// Powers base^0 .. base^(size - 1), each by the C library's power function.
using PowerTable = std::vector<double>;

struct EffectData {
    // Alternating effects.
    float lambda = 0.0F;
    const float* weights = nullptr;
    // The weights 1 to this one are whole multiples of 2^-45; see path_terms.h.
    int exact_weights = 0;
    const PowerTable* powers_a = nullptr;
    const PowerTable* powers_b = nullptr;
    // Attribute effects.
    const CodedAttribute* coded = nullptr;
    const float* reals = nullptr;
    // Pair table of a continuous attribute, or a covariate network.
    const FloatTable* pairs = nullptr;
};

// The change in the statistic if (i, j) were added; allocation-free, network untouched.
template <class Network>
using ChangeFunction = double (*)(const Network&, const EffectData&, int i, int j, int adding);

// The statistic of the whole network. May write the network's own working tables (ET terms).
template <class Network>
using CountFunction = double (*)(Network&, const EffectData&);

template <class Network>
struct EffectFunctions {
    ChangeFunction<Network> change = nullptr;
    CountFunction<Network> count = nullptr;
};
