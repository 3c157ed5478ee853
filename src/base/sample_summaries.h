// Means, spreads and ranks of a list of values, one formula each.
//
// None of them guards its divisor: a list of length 0 or 1 gives what floating-point division gives
// (the variance of one value is 0 / 0), and readers of the files know such cells.
#pragma once

#include <span>

#include "base/table.h"

double mean(std::span<const double> values);
double mean_int(std::span<const int> values);

// Sum of squared deviations / (n - 1).
double variance(std::span<const double> values);
double variance_int(std::span<const int> values);

double standard_deviation(std::span<const double> values);
double standard_deviation_int(std::span<const int> values);

// 0.0 when the standard deviation is exactly 0.0, else the sum of cubed deviations / n / sd / sd /
// sd with sd by n - 1.
double skew(std::span<const double> values);
double skew_int(std::span<const int> values);

// The same over the upper triangle of an n x n table of dyad counts. The mean divides by the
// n (n - 1) / 2 dyads and the variance by one less, but the skew divides by the n actors: the files
// have always shown it so.
double dyad_mean(const CountTable& table, int n);
double dyad_standard_deviation(const CountTable& table, int n);
double dyad_skew(const CountTable& table, int n);

// Covariance by n over standard deviations by n - 1: a list with itself gives (n - 1) / n.
double correlation(std::span<const int> a, std::span<const int> b);

// Ascending, in place.
void sort_ints(std::span<int> values);

// Share of the entries above (below) the value, in single precision; an empty list gives 0 / 0.
float share_above(std::span<const int> values, int value);
float share_below(std::span<const int> values, int value);

// The `parts` quantiles of a distance histogram whose entry t counts pairs at distance t + 1: the
// j-th is the entry at index trunc((count - 1) x j / parts) of the ascending list of distances, the
// fraction being summed up in double. Without any pair every quantile is 0.
void distance_quantiles(std::span<const int> histogram, int parts, int* quantiles);
