#include "sampling/acceptance.h"

#include <cmath>
#include <limits>

#include "base/random_source.h"

namespace {

// An unevaluated sum of two doubles, the second at most half a unit in the last place of the first
// (Dekker 1971, Knuth 1969 for the sums and products). Good for about 100 bits.
struct Extended {
    double high = 0.0;
    double low = 0.0;
};

Extended exact_sum(double a, double b) {
    const double sum = a + b;
    const double of_b = sum - a;
    return {sum, (a - (sum - of_b)) + (b - of_b)};
}

Extended normal(double high, double low) {
    const double sum = high + low;
    return {sum, low - (sum - high)};
}

Extended exact_product(double a, double b) {
    constexpr double kSplit = 134217729.0;  // 2^27 + 1
    const double spread_a = kSplit * a;
    const double spread_b = kSplit * b;
    const double high_a = spread_a - (spread_a - a);
    const double high_b = spread_b - (spread_b - b);
    const double low_a = a - high_a;
    const double low_b = b - high_b;
    const double product = a * b;
    return {product,
            ((high_a * high_b - product) + high_a * low_b + low_a * high_b) + low_a * low_b};
}

Extended operator+(Extended a, Extended b) {
    const Extended high = exact_sum(a.high, b.high);
    const Extended low = exact_sum(a.low, b.low);
    const Extended first = normal(high.high, high.low + low.high);
    return normal(first.high, first.low + low.low);
}

Extended operator*(Extended a, Extended b) {
    const Extended product = exact_product(a.high, b.high);
    return normal(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Extended operator/(Extended a, Extended b) {
    const double first = a.high / b.high;
    const Extended back = b * Extended{first, 0.0};
    const Extended rest = a + Extended{-back.high, -back.low};
    const double second = rest.high / b.high;
    const Extended back_again = b * Extended{second, 0.0};
    const Extended last = rest + Extended{-back_again.high, -back_again.low};
    return normal(first, second) + Extended{last.high / b.high, 0.0};
}

// The natural logarithm of 2.
constexpr Extended kLogOfTwo = {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};

Extended log_of_power_of_two(int exponent) {
    return kLogOfTwo * Extended{static_cast<double>(exponent), 0.0};
}

// log((1 + z) / (1 - z)) = 2 (z + z^3 / 3 + z^5 / 5 + ..). Every term in extended precision; for z
// up to 0.2.
Extended log_by_long_series(Extended z) {
    const Extended square = z * z;
    Extended sum;
    for (int odd = 61; odd >= 1; odd -= 2) {
        sum = sum * square + Extended{1.0, 0.0} / Extended{static_cast<double>(odd), 0.0};
    }
    return sum * z * Extended{2.0, 0.0};
}

// The same for z below 2^-7, where the terms behind the second may be formed in double precision.
Extended log_by_short_series(Extended z) {
    const Extended square = z * z;
    const double w = square.high;
    const double tail =
        w * (1.0 / 5 + w * (1.0 / 7 + w * (1.0 / 9 + w * (1.0 / 11 + w * (1.0 / 13)))));
    const Extended third = Extended{1.0, 0.0} / Extended{3.0, 0.0};
    return (z + z * square * (third + Extended{tail, 0.0})) * Extended{2.0, 0.0};
}

// The logarithm of a number between 0 and 1 or just above: it is parted into a power of two, the
// nearest 64th between 0.71 and 1.42, and a quotient near 1.
Extended logarithm(Extended x) {
    constexpr double kParts = 64.0;
    int exponent = 0;
    double fraction = std::frexp(x.high, &exponent);
    if (fraction < 0.71) {
        fraction *= 2.0;
        --exponent;
    }
    const double part = std::floor(fraction * kParts + 0.5);
    const Extended log_of_part =
        log_by_long_series(Extended{part - kParts, 0.0} / Extended{part + kParts, 0.0});
    const Extended nearest{part / kParts, 0.0};
    const Extended scaled{fraction, std::ldexp(x.low, -exponent)};
    const Extended z = (scaled + Extended{-nearest.high, 0.0}) / (scaled + nearest);
    return log_of_power_of_two(exponent) + (log_of_part + log_by_short_series(z));
}

double rounded_up(Extended x) {
    return x.low > 0.0 ? std::nextafter(x.high, std::numeric_limits<double>::infinity()) : x.high;
}

// The smallest x for which exp(x), rounded to double, is not less than `value`, which is positive:
// the logarithm of the point half-way between `value` and the double before it. No exponential of a
// double other than 0 falls on such a point itself.
double threshold(double value) {
    const double before = std::nextafter(value, 0.0);
    return rounded_up(logarithm(exact_sum(value, (before - value) / 2.0)));
}

}  // namespace

double not_less_threshold(int draw) {
    return draw == 0 ? -std::numeric_limits<double>::infinity() : threshold(uniform_of_draw(draw));
}

double greater_threshold(int draw) {
    if (draw == 0) {
        // Half the smallest positive double, 2^-1075, is where exp(x) stops to be 0.
        return rounded_up(log_of_power_of_two(-1075));
    }
    return threshold(std::nextafter(uniform_of_draw(draw), 2.0));
}

const std::vector<float>& uniform_logarithms() {
    static const std::vector<float> table = [] {
        std::vector<float> logarithms(kDraws, std::numeric_limits<float>::quiet_NaN());
        for (int draw = 1; draw < kDraws; ++draw) {
            logarithms[static_cast<std::size_t>(draw)] =
                static_cast<float>(std::log(uniform_of_draw(draw)));
        }
        return logarithms;
    }();
    return table;
}
