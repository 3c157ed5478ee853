#include "summaries.h"

#include <cmath>
#include <utility>

namespace reference {

namespace {

std::vector<double> widened(const std::vector<int>& values) {
    std::vector<double> result;
    for (const int value : values) {
        result.push_back(value);
    }
    return result;
}

std::vector<double> upper_triangle(const IntTable& table) {
    const int n = static_cast<int>(table.size());
    std::vector<double> result;
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j) {
            result.push_back(cell(table, i, j));
        }
    }
    return result;
}

double sum_of_squares(const std::vector<double>& values, double centre) {
    double sum = 0.0;
    for (const double value : values) {
        const double d = value - centre;
        sum += d * d;
    }
    return sum;
}

double sum_of_cubes(const std::vector<double>& values, double centre) {
    double sum = 0.0;
    for (const double value : values) {
        const double d = value - centre;
        sum += d * d * d;
    }
    return sum;
}

}  // namespace

double mean(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double value : values) {
        sum += value;
    }
    return sum / static_cast<double>(values.size());
}

double mean(const std::vector<int>& values) { return mean(widened(values)); }

double variance(const std::vector<double>& values) {
    return sum_of_squares(values, mean(values)) / (static_cast<double>(values.size()) - 1.0);
}

double variance(const std::vector<int>& values) { return variance(widened(values)); }

double standard_deviation(const std::vector<double>& values) { return std::sqrt(variance(values)); }

double standard_deviation(const std::vector<int>& values) {
    return standard_deviation(widened(values));
}

double skew(const std::vector<double>& values) {
    const double sd = standard_deviation(values);
    if (sd == 0.0) {
        return 0.0;
    }
    return sum_of_cubes(values, mean(values)) / static_cast<double>(values.size()) / sd / sd / sd;
}

double skew(const std::vector<int>& values) { return skew(widened(values)); }

double dyad_mean(const IntTable& table) { return mean(upper_triangle(table)); }

double dyad_variance(const IntTable& table) { return variance(upper_triangle(table)); }

double dyad_standard_deviation(const IntTable& table) { return std::sqrt(dyad_variance(table)); }

double dyad_skew(const IntTable& table) {
    const double sd = dyad_standard_deviation(table);
    if (sd == 0.0) {
        return 0.0;
    }
    const double actors = static_cast<double>(table.size());
    return sum_of_cubes(upper_triangle(table), dyad_mean(table)) / actors / sd / sd / sd;
}

double correlation(const std::vector<int>& a, const std::vector<int>& b) {
    const double mean_a = mean(a);
    const double mean_b = mean(b);
    double sum = 0.0;
    for (std::size_t x = 0; x < a.size(); ++x) {
        sum += (a[x] - mean_a) * (b[x] - mean_b);
    }
    return sum / static_cast<double>(a.size()) / standard_deviation(a) / standard_deviation(b);
}

void sort_ints(std::vector<int>& values, int first, int last) {
    for (int place = first; place < last; ++place) {
        int smallest = place;
        for (int other = place + 1; other <= last; ++other) {
            if (item(values, other) < item(values, smallest)) {
                smallest = other;
            }
        }
        std::swap(item(values, place), item(values, smallest));
    }
}

float share_above(const std::vector<int>& values, int value) {
    int count = 0;
    for (const int entry : values) {
        if (entry > value) {
            ++count;
        }
    }
    return static_cast<float>(count) / static_cast<float>(values.size());
}

float share_below(const std::vector<int>& values, int value) {
    int count = 0;
    for (const int entry : values) {
        if (entry < value) {
            ++count;
        }
    }
    return static_cast<float>(count) / static_cast<float>(values.size());
}

}  // namespace reference
