// Powers of 1 - 1/lambda, on which every alternating effect rests.
#pragma once

#include <vector>

// Longest power that a table holds; larger ones stand at this entry.
constexpr int kWeightTableLength = 100;

// The lambda of measures that no model chooses (reports).
constexpr float kDefaultLambda = 2.0F;

// length + 1 entries in single precision: entry m is (1 - 1 / lambda)^m for m = 1 .. length, the
// base in double. Entry 0 stays 0.0 and is never read. A length below 1 gives zeros.
std::vector<float> geometric_weight_table(float lambda, int length);

// The largest m such that the entries 1 to m of a table are whole multiples
// of 2^-45.
int exact_weight_count(const std::vector<float>& table);

// w(m): 0.0 below 0, 1.0 at 0, the table's entry up to its end, and the last entry beyond.
inline double geometric_weight(int m, const float* table) {
    if (m <= 0) {
        return m == 0 ? 1.0 : 0.0;
    }
    return static_cast<double>(table[m < kWeightTableLength ? m : kWeightTableLength]);
}
