#include "check/row_space.h"

#include <algorithm>
#include <cmath>

namespace {

// A rest this small is rounding: attributes and their pair tables are in single precision.
constexpr double kRounding = 3e-6;
// A factor this small is no part of a set.
constexpr double kNoFactor = 1e-4;

double dot(const std::vector<double>& a, const std::vector<double>& b) {
    double sum = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        sum += a[k] * b[k];
    }
    return sum;
}

void subtract(std::vector<double>& row, const std::vector<double>& other, double factor) {
    for (std::size_t k = 0; k < row.size(); ++k) {
        row[k] -= factor * other[k];
    }
}

// Brings the rows into reduced form; returns the leading column of each row.
std::vector<std::size_t> reduce(std::vector<std::vector<double>>& rows, std::size_t columns) {
    std::vector<std::size_t> leading;
    for (std::size_t column = 0; column < columns && leading.size() < rows.size(); ++column) {
        const std::size_t next = leading.size();
        const auto largest =
            std::max_element(rows.begin() + static_cast<std::ptrdiff_t>(next), rows.end(),
                             [column](const auto& a, const auto& b) {
                                 return std::fabs(a[column]) < std::fabs(b[column]);
                             });
        if (std::fabs((*largest)[column]) < kNoFactor) {
            continue;
        }
        std::swap(*largest, rows[next]);
        const double pivot = rows[next][column];
        std::for_each(rows[next].begin(), rows[next].end(), [pivot](double& x) { x /= pivot; });
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (row != next) {
                subtract(rows[row], rows[next], rows[row][column]);
            }
        }
        leading.push_back(column);
    }
    return leading;
}

}  // namespace

void RowSpace::add(const std::vector<double>& row) {
    if (full()) {
        return;
    }
    std::vector<double> rest = row;
    for (std::size_t k = 0; k < rest.size(); ++k) {
        rest[k] /= scales_[k];
    }
    const double size = std::sqrt(dot(rest, rest));
    if (!(size > 0.0) || !std::isfinite(size)) {
        return;
    }
    // Twice, because the first pass leaves what cancellation has lost.
    for (int pass = 0; pass < 2; ++pass) {
        for (const std::vector<double>& direction : basis_) {
            subtract(rest, direction, dot(rest, direction));
        }
    }
    const double left = std::sqrt(dot(rest, rest));
    if (left > kRounding * std::max(size, 1.0)) {
        std::for_each(rest.begin(), rest.end(), [left](double& x) { x /= left; });
        basis_.push_back(rest);
    }
}

RowSpace::Circuit RowSpace::smallest_circuit() const {
    std::vector<std::vector<double>> rows = basis_;
    const std::vector<std::size_t> leading = reduce(rows, scales_.size());
    Circuit smallest;
    for (std::size_t column = 0; column < scales_.size(); ++column) {
        if (std::find(leading.begin(), leading.end(), column) != leading.end()) {
            continue;
        }
        Circuit circuit;
        for (std::size_t row = 0; row < leading.size(); ++row) {
            if (std::fabs(rows[row][column]) > kNoFactor) {
                circuit.columns.push_back(leading[row]);
                circuit.factors.push_back(rows[row][column] * scales_[column] /
                                          scales_[leading[row]]);
            }
        }
        circuit.columns.push_back(column);
        circuit.factors.push_back(1.0);
        if (circuit.columns.size() > 1 &&
            (smallest.columns.empty() || circuit.columns.size() < smallest.columns.size())) {
            smallest = circuit;
        }
    }
    return smallest;
}
