// One model estimated in many groups: the distribution of a parameter over the groups, by weighted
// least squares (Snijders & Baerveldt 2003, Journal of Mathematical Sociology 27, after Cochran
// 1954).
//
// Each group's estimate is the mean parameter, plus the group's own deviation, plus an error of
// estimation of known variance.
#pragma once

#include <vector>

struct GroupEstimate {
    double estimate = 0.0;
    double standard_error = 0.0;  // above 0
};

// What does not exist is NaN: everything without a group; variance, Q and its p-value with one.
struct PooledEstimate {
    int groups = 0;
    double mean = 0.0;
    double standard_error = 0.0;
    double z = 0.0;         // mean / standard error
    double p_value = 0.0;   // of z, two-sided
    double variance = 0.0;  // of the parameter over groups; 0 where errors explain all differences
    double q = 0.0;         // tests that the variance is 0; chi-squared where it is
    int degrees = 0;        // of freedom of Q
    double q_p_value = 0.0;
};

// The variance is that of the estimates less the mean of their squared standard errors, at least 0;
// a group's weight is 1 / (variance + its squared standard error). Q weighs by the errors alone.
PooledEstimate pool_estimates(const std::vector<GroupEstimate>& groups);

// Chance of more than x in a chi-squared distribution; x >= 0, degrees >= 1. O(degrees).
double chi_squared_tail(double x, int degrees);
