// The acceptance decision without an exponential.
//
// A proposal is accepted when the exponential of its log-odds is not less than (or greater than) a
// uniform number, and that number takes 32768 values only. For each there is a smallest log-odds
// that is accepted. These thresholds are computed once, to more than double precision: a decision
// by them is the one that the correctly rounded exponential gives, on every machine, whatever its C
// library.
#pragma once

#include <vector>

// One entry per draw of the random source: the smallest x for which exp(x), rounded to double, is
// not less than the uniform number of the draw. Entry 0 is minus infinity.
const std::vector<double>& not_less_thresholds();

// The same for exp(x) greater than the uniform number.
const std::vector<double>& greater_thresholds();
