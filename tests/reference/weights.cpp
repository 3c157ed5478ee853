#include "weights.h"

#include "plain_graph.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace reference {

namespace {

float single_weight(float lambda, int count) {
    const double base = 1.0 - 1.0 / static_cast<double>(lambda);
    return static_cast<float>(std::pow(base, static_cast<double>(count)));
}

}  // namespace

std::vector<float> geometric_weight_table(float lambda, int length) {
    std::vector<float> table;
    for (int m = 0; m <= length; ++m) {
        table.push_back(m == 0 ? 0.0F : single_weight(lambda, m));
    }
    return table;
}

double geometric_weight(int count, const std::vector<float>& table) {
    if (count < 0) {
        return 0.0;
    }
    if (count == 0) {
        return 1.0;
    }
    const int last = static_cast<int>(table.size()) - 1;
    return static_cast<double>(item(table, std::min(count, last)));
}

double geometric_weight(int count, float lambda) {
    if (count < 0) {
        return 0.0;
    }
    if (count == 0) {
        return 1.0;
    }
    return static_cast<double>(single_weight(lambda, std::min(count, weight_table_length)));
}

int wrapping_product(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

int wrapping_sum(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

double wrapping_choose(int d, int k) {
    if (d < k) {
        return 0.0;
    }
    int product = d;
    for (int below = 1; below < k; ++below) {
        product = wrapping_product(d - below, product);
    }
    switch (k) {
        case 1:
            return product;
        case 2:
            return product * 0.5;
        case 3:
            return product / 6.0;
        case 4:
            return product / 24.0;
        default:
            return product / 120.0;
    }
}

double choose(int d, int k) {
    if (k > d) {
        return 0.0;
    }
    double product = 1.0;
    double factorial = 1.0;
    for (int below = 0; below < k; ++below) {
        product *= static_cast<double>(d - below);
        factorial *= static_cast<double>(below + 1);
    }
    return product / factorial;
}

}  // namespace reference
