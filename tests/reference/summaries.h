// Summaries of lists of values and of the upper triangle of a table. None guards against too few
// values: what a division by 0 gives is the answer.
#pragma once

#include "plain_graph.h"

#include <vector>

namespace reference {

double mean(const std::vector<double>& values);
double mean(const std::vector<int>& values);

// Squared deviations over n - 1.
double variance(const std::vector<double>& values);
double variance(const std::vector<int>& values);

double standard_deviation(const std::vector<double>& values);
double standard_deviation(const std::vector<int>& values);

// Cubed deviations over n, by the standard deviation three times; 0 when that is 0.
double skew(const std::vector<double>& values);
double skew(const std::vector<int>& values);

// The same over the cells above the diagonal. The skew divides by the number of actors, not pairs.
double dyad_mean(const IntTable& table);
double dyad_variance(const IntTable& table);
double dyad_standard_deviation(const IntTable& table);
double dyad_skew(const IntTable& table);

// Mean product of deviations over n, by standard deviations over n - 1: below 1 even for a list
// with itself.
double correlation(const std::vector<int>& a, const std::vector<int>& b);

// Sorts the entries first .. last ascending.
void sort_ints(std::vector<int>& values, int first, int last);

// Share of the entries above, or below, a value; single precision.
float share_above(const std::vector<int>& values, int value);
float share_below(const std::vector<int>& values, int value);

}  // namespace reference
