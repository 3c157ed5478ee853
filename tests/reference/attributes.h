// Effects of actor attributes and dyadic covariates, each by the plain loop over what it counts.
// Names are those of the statistics reports, without the attribute's own name in front.
#pragma once

#include "effect_table.h"
#include "plain_digraph.h"
#include "plain_graph.h"

#include <string_view>
#include <vector>

namespace reference {

// Marks a missing value, an ordinary number to every effect that does not look for it.
inline constexpr int missing_integer = 9999;
inline constexpr float missing_real = 9999.0F;

// One real value per actor with its three pair tables, single precision throughout; a pair with a
// missing value on either side holds 0.
struct ContinuousData {
    std::vector<float> values;
    FloatTable sum;
    FloatTable difference;
    FloatTable product;
};

ContinuousData continuous_data(const std::vector<float>& values);

using Codes = std::vector<int>;

using BinaryEffect = Effect<EvaluationState, PlainGraph, const Codes&>;
using ContinuousEffect = Effect<EvaluationState, PlainGraph, const ContinuousData&>;
using CategoricalEffect = Effect<EvaluationState, PlainGraph, const Codes&>;
using CovariateEffect = Effect<EvaluationState, PlainGraph, const FloatTable&>;

using DirectedBinaryEffect = Effect<DirectedState, PlainDigraph, const Codes&>;
using DirectedContinuousEffect = Effect<DirectedState, PlainDigraph, const ContinuousData&>;
using DirectedCategoricalEffect = Effect<DirectedState, PlainDigraph, const Codes&>;
using DirectedCovariateEffect = Effect<DirectedState, PlainDigraph, const FloatTable&>;

// The rows of each table in the order of the statistics; find_effect picks one by name.

// "t3u", "t2u", "t1u", "o3u", "o2au", "o2bu", "o1au", "o1bu", "interaction", "activity".
const std::vector<BinaryEffect>& binary_effects();

// "sum", "diff", "prod".
const std::vector<ContinuousEffect>& continuous_effects();

// "same_Category", "diff_Category".
const std::vector<CategoricalEffect>& categorical_effects();

// "edge", "S21", "S22", "t1", "t2", "t3".
const std::vector<CovariateEffect>& covariate_effects();

// "interaction", "sender", "receiver", "sender_missing", "receiver_missing",
// "interaction_reciprocity", "activity_reciprocity", "in2star", "path2", "out2star".
const std::vector<DirectedBinaryEffect>& directed_binary_effects();

// "sender", "Receiver", "Sender_missing", "Receiver_missing", "sum", "diff", "prod",
// "sum_reciprocity", "diff_reciprocity", "prod_reciprocity", "2-in-star", "2-out-star", "path2".
const std::vector<DirectedContinuousEffect>& directed_continuous_effects();

// "matching", "mismatch", "matching_reciprocity", "mismatch_reciprocity".
const std::vector<DirectedCategoricalEffect>& directed_categorical_effects();

// "arc".
const std::vector<DirectedCovariateEffect>& directed_covariate_effects();

}  // namespace reference
