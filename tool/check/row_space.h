// The space that the rows of a long table span, met row by row: which of its columns follow from
// others.
#pragma once

#include <vector>

class RowSpace {
  public:
    // One column for each scale, a number above 0: how large the column's numbers are.
    explicit RowSpace(std::vector<double> scales) : scales_(std::move(scales)) {}

    void add(const std::vector<double>& row);

    // Whether no column follows from the others; no further row can change that.
    bool full() const { return basis_.size() == scales_.size(); }

    // Columns of which each follows from the others while no smaller set among them does. The last
    // is `factors`-weighted the sum of the others; its own factor is 1.
    struct Circuit {
        std::vector<std::size_t> columns;
        std::vector<double> factors;
    };
    // The smallest such set of two columns or more; empty when there is none. A column that is 0 in
    // all rows belongs to no set.
    Circuit smallest_circuit() const;

  private:
    std::vector<double> scales_;
    // Orthonormal rows, columns scaled to be about 1.
    std::vector<std::vector<double>> basis_;
};
