// The falling geometric weights of the alternating effects, and the two binomial forms.
#pragma once

#include <vector>

namespace reference {

// Number of weights that a table holds beyond entry 0; larger counts take the last weight.
inline constexpr int weight_table_length = 100;

// Entry m is (1 - 1 / lambda)^m, computed in double and stored in single precision; entry 0 is 0.
// A length below 1 gives nothing but zeros.
std::vector<float> geometric_weight_table(float lambda, int length = weight_table_length);

// Weight of a count read from a table of the given length: 0 below zero, 1 at zero, then the
// entries, the last one for every larger count.
double geometric_weight(int count, const std::vector<float>& table);

// The same weight computed without a table, by the same rounding.
double geometric_weight(int count, float lambda);

// Subsets of size k (1 to 5) of d things, each product formed in wrapping 32-bit integers.
double wrapping_choose(int d, int k);

// Subsets of size k of d things in double precision throughout.
double choose(int d, int k);

// Product and sum of 32-bit integers that wrap around.
int wrapping_product(int a, int b);
int wrapping_sum(int a, int b);

}  // namespace reference
