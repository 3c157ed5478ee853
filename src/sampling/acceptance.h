// The acceptance decision without an exponential.
//
// A proposal is accepted when the exponential of its log-odds is not less than (or greater than) a
// uniform number, and that number takes 32768 values only. For each there is a smallest log-odds
// that is accepted. These thresholds are known to more than double precision: a decision by them is
// the one that the correctly rounded exponential gives, on every machine, whatever its C library.
//
// A threshold takes some thousand operations to compute. A chain compares with a logarithm in
// single precision first, and asks for the threshold only where the log-odds stand so near to it
// that the logarithm cannot tell: one time in some ten thousand.
#pragma once

#include <cmath>
#include <vector>

#include "base/random_source.h"

// What the exponential has to be, compared with the uniform number, for a proposal to be accepted.
enum class AcceptedWhen { not_less, greater };

// The smallest x for which exp(x), rounded to double, is not less than the uniform number of the
// draw; minus infinity for draw 0.
double not_less_threshold(int draw);

// The same for exp(x) greater than the uniform number.
double greater_threshold(int draw);

// One entry per draw: the logarithm of its uniform number, and not-a-number for draw 0. Both
// thresholds lie within kLogarithmError of it.
const std::vector<float>& uniform_logarithms();
constexpr double kLogarithmError = 1e-5;

// Whether log-odds are accepted at a draw; those that are not a number are not. `logarithms` are
// those of the table above.
template <AcceptedWhen when>
bool accepted_at(int draw, double log_odds, const float* logarithms) {
    const double above = log_odds - static_cast<double>(logarithms[draw]);
    if (std::fabs(above) > kLogarithmError) [[likely]] {
        return above > 0.0;
    }
    return log_odds >=
           (when == AcceptedWhen::not_less ? not_less_threshold(draw) : greater_threshold(draw));
}
