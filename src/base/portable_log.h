// The natural logarithm by additions, multiplications and one division: the same bits on every
// machine, whatever its C library, so that decisions on random numbers are the same too.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>

// log(x) for x from the smallest normal number on, to about two units in the last place; minus
// infinity for 0. The number is parted into a power of two and m between the square roots of 1/2
// and 2; log(m) = 2 (z + z^3 / 3 + z^5 / 5 + ..) with z = (m - 1) / (m + 1), up to z^19.
inline double portable_log(double x) {
    if (x == 0.0) {
        return -std::numeric_limits<double>::infinity();
    }
    constexpr std::uint64_t kRootOfHalf = 0x3FE6A09E667F3BCDU;
    const auto bits = std::bit_cast<std::uint64_t>(x);
    const std::int64_t exponent = static_cast<std::int64_t>(bits - kRootOfHalf) >> 52;
    const auto m = std::bit_cast<double>(bits - (static_cast<std::uint64_t>(exponent) << 52U));
    const double z = (m - 1.0) / (m + 1.0);
    const double w = z * z;
    const double w2 = w * w;
    const double w4 = w2 * w2;
    // Summed in pairs, so that the processor adds several at a time.
    const double low = (1.0 + w * (1.0 / 3)) + w2 * (1.0 / 5 + w * (1.0 / 7));
    const double middle = (1.0 / 9 + w * (1.0 / 11)) + w2 * (1.0 / 13 + w * (1.0 / 15));
    const double high = 1.0 / 17 + w * (1.0 / 19);
    const double sum = low + w4 * (middle + w4 * high);
    return static_cast<double>(exponent) * 0.6931471805599453 + 2.0 * z * sum;
}
