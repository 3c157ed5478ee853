#include "show/result_record.h"

#include <cmath>

void judge_effect(ResultEffect& effect, bool usable) {
    // The normal distribution's point with 2.5% above it.
    constexpr double kQuantile = 1.959963984540054;
    effect.odds_ratio = std::exp(effect.estimate);
    if (!usable || !(effect.standard_error > 0.0)) {
        return;
    }
    effect.z = effect.estimate / effect.standard_error;
    effect.p_value = std::erfc(std::fabs(effect.z) / std::sqrt(2.0));
    effect.lower = effect.estimate - kQuantile * effect.standard_error;
    effect.upper = effect.estimate + kQuantile * effect.standard_error;
}
