#include "base/sample_summaries.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

template <class Value>
double mean_of(std::span<const Value> values) {
    double sum = 0.0;
    for (const Value value : values) {
        sum += static_cast<double>(value);
    }
    return sum / static_cast<double>(values.size());
}

template <class Value>
double variance_of(std::span<const Value> values) {
    const double centre = mean_of(values);
    double sum = 0.0;
    for (const Value value : values) {
        const double deviation = static_cast<double>(value) - centre;
        sum += deviation * deviation;
    }
    return sum / (static_cast<double>(values.size()) - 1.0);
}

template <class Value>
double skew_of(std::span<const Value> values) {
    const double deviation = std::sqrt(variance_of(values));
    if (deviation == 0.0) {
        return 0.0;
    }
    const double centre = mean_of(values);
    double sum = 0.0;
    for (const Value value : values) {
        const double distance = static_cast<double>(value) - centre;
        sum += distance * distance * distance;
    }
    return sum / static_cast<double>(values.size()) / deviation / deviation / deviation;
}

double dyad_count(int n) { return static_cast<double>(n) * (static_cast<double>(n) - 1.0) / 2.0; }

template <class Term>
double dyad_sum(const CountTable& table, int n, Term term) {
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j) {
            sum += term(static_cast<double>(table[i][j]));
        }
    }
    return sum;
}

}  // namespace

double mean(std::span<const double> values) { return mean_of(values); }
double mean_int(std::span<const int> values) { return mean_of(values); }
double variance(std::span<const double> values) { return variance_of(values); }
double variance_int(std::span<const int> values) { return variance_of(values); }
double standard_deviation(std::span<const double> values) { return std::sqrt(variance_of(values)); }
double standard_deviation_int(std::span<const int> values) {
    return std::sqrt(variance_of(values));
}
double skew(std::span<const double> values) { return skew_of(values); }
double skew_int(std::span<const int> values) { return skew_of(values); }

double dyad_mean(const CountTable& table, int n) {
    return dyad_sum(table, n, [](double value) { return value; }) / dyad_count(n);
}

double dyad_standard_deviation(const CountTable& table, int n) {
    const double centre = dyad_mean(table, n);
    const double squares =
        dyad_sum(table, n, [centre](double value) { return (value - centre) * (value - centre); });
    return std::sqrt(squares / (dyad_count(n) - 1.0));
}

double dyad_skew(const CountTable& table, int n) {
    const double deviation = dyad_standard_deviation(table, n);
    if (deviation == 0.0) {
        return 0.0;
    }
    const double centre = dyad_mean(table, n);
    const double cubes = dyad_sum(table, n, [centre](double value) {
        return (value - centre) * (value - centre) * (value - centre);
    });
    return cubes / static_cast<double>(n) / deviation / deviation / deviation;
}

double correlation(std::span<const int> a, std::span<const int> b) {
    const double mean_a = mean_int(a);
    const double mean_b = mean_int(b);
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += (static_cast<double>(a[i]) - mean_a) * (static_cast<double>(b[i]) - mean_b);
    }
    return sum / static_cast<double>(a.size()) / standard_deviation_int(a) /
           standard_deviation_int(b);
}

void sort_ints(std::span<int> values) { std::sort(values.begin(), values.end()); }

float share_above(std::span<const int> values, int value) {
    const auto count =
        std::count_if(values.begin(), values.end(), [value](int entry) { return entry > value; });
    return static_cast<float>(count) / static_cast<float>(values.size());
}

float share_below(std::span<const int> values, int value) {
    const auto count =
        std::count_if(values.begin(), values.end(), [value](int entry) { return entry < value; });
    return static_cast<float>(count) / static_cast<float>(values.size());
}

void distance_quantiles(std::span<const int> histogram, int parts, int* quantiles) {
    std::int64_t count = 0;
    for (const int cell : histogram) {
        count += cell;
    }
    double fraction = 0.0;
    for (int part = 0; part < parts; ++part) {
        fraction += 1.0 / parts;
        quantiles[part] = 0;
        if (count < 1) {
            continue;
        }
        const auto index = static_cast<std::int64_t>(static_cast<double>(count - 1) * fraction);
        std::int64_t seen = 0;
        for (std::size_t distance = 0; distance < histogram.size(); ++distance) {
            seen += histogram[distance];
            if (index < seen) {
                quantiles[part] = static_cast<int>(distance) + 1;
                break;
            }
        }
    }
}
