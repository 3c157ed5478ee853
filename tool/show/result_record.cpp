#include "show/result_record.h"

#include <algorithm>
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

int supported_decimals(const ResultEffect& effect) {
    const double error = effect.mc_error > 0.0         ? effect.mc_error
                         : effect.standard_error > 0.0 ? effect.standard_error * 0.1
                                                       : 0.001;
    return std::isfinite(error) ? std::clamp(static_cast<int>(std::ceil(-std::log10(error))), 0, 6)
                                : 3;
}

int table_decimals(const ResultEffect& effect) {
    constexpr int kDecimals = 4;
    return effect.mc_error > 0.0 ? std::min(kDecimals, supported_decimals(effect)) : kDecimals;
}

int most_decimals(const ResultRecord& result) {
    int most = 0;
    for (const ResultEffect& effect : result.effects) {
        most = std::max(most, table_decimals(effect));
    }
    return most;
}
