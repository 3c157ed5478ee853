#include "study/controlled_mean.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/no_number.h"
#include "study/positive_matrix.h"
#include "study/sample_diagnosis.h"

namespace {

// One row a sample, chain by chain.
struct Rows {
    std::vector<double> values;
    std::vector<double> zeros;
};

Rows rows_of(const ControlledSamples& samples) {
    Rows rows;
    for (std::size_t chain = 0; chain < samples.values.size(); ++chain) {
        const std::vector<double>& values = samples.values[chain];
        rows.values.insert(rows.values.end(), values.begin(), values.end());
        if (samples.controls > 0) {
            const std::vector<double>& zeros = samples.zeros[chain];
            rows.zeros.insert(rows.zeros.end(), zeros.begin(), zeros.end());
        }
    }
    return rows;
}

// Least squares, the controls in units of their own; the slight ridge leaves those that follow from
// the others what they share.
std::vector<double> coefficients(const Rows& rows, int controls) {
    constexpr double kRidge = 1e-9;
    const auto q = static_cast<std::size_t>(controls);
    const std::size_t count = rows.values.size();
    std::vector<double> means(q + 1, 0.0);
    for (std::size_t row = 0; row < count; ++row) {
        for (std::size_t k = 0; k < q; ++k) {
            means[k] += rows.zeros[row * q + k] / static_cast<double>(count);
        }
        means[q] += rows.values[row] / static_cast<double>(count);
    }
    Matrix products(controls, controls);
    std::vector<double> with_value(q, 0.0);
    for (std::size_t row = 0; row < count; ++row) {
        const double* zeros = rows.zeros.data() + row * q;
        for (std::size_t k = 0; k < q; ++k) {
            const double deviation = zeros[k] - means[k];
            with_value[k] += deviation * (rows.values[row] - means[q]);
            for (std::size_t m = 0; m <= k; ++m) {
                products[static_cast<int>(k)][m] += deviation * (zeros[m] - means[m]);
            }
        }
    }
    std::vector<double> scale(q, 1.0);
    for (std::size_t k = 0; k < q; ++k) {
        const double squares = products[static_cast<int>(k)][k];
        scale[k] = squares > 0.0 ? 1.0 / std::sqrt(squares) : 0.0;
        with_value[k] *= scale[k];
    }
    for (std::size_t k = 0; k < q; ++k) {
        for (std::size_t m = 0; m < k; ++m) {
            double& product = products[static_cast<int>(k)][m];
            product *= scale[k] * scale[m];
            products[static_cast<int>(m)][k] = product;
        }
        products[static_cast<int>(k)][k] = 1.0 + kRidge;
    }
    const std::optional<Matrix> lower = cholesky(products);
    if (!lower) {
        return std::vector<double>(q, 0.0);
    }
    std::vector<double> found = cholesky_solve(*lower, with_value);
    for (std::size_t k = 0; k < q; ++k) {
        found[k] *= scale[k];
    }
    return found;
}

// 1 where all are equal.
double time_of(const std::vector<double>& values, int chains) {
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return *least < *most ? autocorrelation_time(values, chains) : 1.0;
}

}  // namespace

int ControlledSamples::count() const {
    return std::accumulate(values.begin(), values.end(), 0,
                           [](int sum, const std::vector<double>& chain) {
                               return sum + static_cast<int>(chain.size());
                           });
}

double ControlledMean::error(int count) const {
    return deviation * std::sqrt(time / static_cast<double>(count));
}

ControlledMean controlled_mean(const ControlledSamples& samples) {
    constexpr int kSamplesAControl = 3;
    const int count = samples.count();
    const int q = count > kSamplesAControl * (samples.controls + 1) ? samples.controls : 0;
    const auto chains = static_cast<int>(samples.values.size());
    Rows rows = rows_of(samples);
    ControlledMean mean;
    mean.value = kNoNumber;
    if (count == 0) {
        return mean;
    }
    mean.raw_time = time_of(rows.values, chains);
    if (q > 0) {
        const std::vector<double> slopes = coefficients(rows, q);
        for (std::size_t row = 0; row < rows.values.size(); ++row) {
            for (std::size_t k = 0; k < slopes.size(); ++k) {
                rows.values[row] -= slopes[k] * rows.zeros[row * slopes.size() + k];
            }
        }
    }
    const std::ptrdiff_t length = count / chains;
    mean.value = 0.0;
    for (int chain = 0; chain < chains; ++chain) {
        const auto first = rows.values.begin() + chain * length;
        mean.by_chain.push_back(std::accumulate(first, first + length, 0.0) /
                                static_cast<double>(length));
        mean.value += mean.by_chain.back() / chains;
    }
    double squares = 0.0;
    for (const double value : rows.values) {
        squares += (value - mean.value) * (value - mean.value);
    }
    mean.deviation = std::sqrt(squares / std::max(count - q - 1, 1));
    mean.time = time_of(rows.values, chains);
    return mean;
}
