// Number conversions whose result is defined for every input.
#pragma once

#include <cstdint>

// The value truncated towards zero; a value that no 32-bit integer holds (not a number, an infinite
// or a huge quotient) gives 0, which every caller reads as "none".
inline int truncate_to_int(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0)) {
        return 0;
    }
    return static_cast<int>(value);
}

// Product and sum in 32-bit signed arithmetic that wraps around: statistics formed so are known to
// wrap at large degrees, and results must wrap with them.
inline int wrapping_product(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}
inline int wrapping_sum(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
