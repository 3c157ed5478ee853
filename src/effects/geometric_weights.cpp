#include "effects/geometric_weights.h"

#include <algorithm>
#include <cmath>

std::vector<float> geometric_weight_table(float lambda, int length) {
    std::vector<float> table(static_cast<std::size_t>(std::max(length, 0)) + 1, 0.0F);
    const double base = 1.0 - 1.0 / static_cast<double>(lambda);
    for (int m = 1; m <= length; ++m) {
        table[static_cast<std::size_t>(m)] = static_cast<float>(std::pow(base, m));
    }
    return table;
}

int exact_weight_count(const std::vector<float>& table) {
    int count = 0;
    for (std::size_t m = 1; m < table.size(); ++m) {
        const double multiple = std::ldexp(static_cast<double>(table[m]), 45);
        if (!(multiple == std::floor(multiple))) {
            break;
        }
        ++count;
    }
    return count;
}
