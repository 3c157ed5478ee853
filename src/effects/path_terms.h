// Sums of alternating weights over cells of a two-path table.
//
// The weights are single-precision numbers. While all that are added are whole multiples of 2^-45
// and there are no more than 128 of them, every partial sum in double precision is exact, and the
// order of the terms cannot be seen in the result. Such a sum may be taken list by list, its zero
// cells by their number; any other one is taken in ascending order of the actors.
#pragma once

#include <algorithm>
#include <cstdint>

#include "effects/effect.h"
#include "effects/geometric_weights.h"

// What a sum over third actors adds for one two-path cell: its weight without the tie under
// evaluation, or, at lambda 1, whether it is the cell's first path.
class PathTerm {
  public:
    PathTerm(const EffectData& data, int adding)
        : weights_(data.weights),
          counted_(data.lambda == 1.0F),
          lag_(adding - 1),
          largest_exact_(counted_ ? kAnyCell : data.exact_weights - lag_) {}

    double operator()(int cell) const {
        const int paths = cell + lag_;
        return counted_ ? (paths == 0 ? 1.0 : 0.0) : geometric_weight(paths, weights_);
    }

    bool counted() const { return counted_; }

    // Whether the terms of this cell and of all smaller ones are exact in the sense above.
    bool exact(int cell) const { return cell <= largest_exact_; }

  private:
    static constexpr int kAnyCell = 1 << 20;

    const float* weights_;
    bool counted_;
    int lag_;
    int largest_exact_;
};

// A sum in any order, good only if it proves to be exact.
class UnorderedSum {
  public:
    // Terms of an exact sum.
    static constexpr int kTerms = 128;

    explicit UnorderedSum(const PathTerm& term) : term_(term) {}

    void add(int cell) {
        largest_ = std::max(largest_, cell);
        sum_ += term_(cell);
    }

    // Adds cell(k) for the members k but one of a set of `size`. `any` has a bit for each cell that
    // is not 0; the others are never read.
    template <class Cell>
    void add_cells(const Members& members, int size, int without, const std::uint64_t* any,
                   Cell cell) {
        double sum = 0.0;
        int largest = 0;
        int zeros = members.has(without) ? size - 1 : size;
        const auto visit = [&](int k) {
            if (k != without) {
                const int value = cell(k);
                largest = std::max(largest, value);
                sum += term_(value);
                --zeros;
            }
        };
        if (members.listed()) {
            for (const std::int32_t k : members.list()) {
                if (row_has(any, k)) {
                    visit(k);
                }
            }
        } else {
            const std::uint64_t* row = members.row();
            for (int word = 0; word < members.rows.words_per_row; ++word) {
                word_for_each_unordered(row[word] & any[word], word * 64, visit);
            }
        }
        sum_ += sum;
        zeros_ += zeros;
        largest_ = std::max(largest_, largest);
    }

    bool exact() const { return term_.exact(largest_); }
    double value() const { return sum_ + static_cast<double>(zeros_) * term_(0); }

  private:
    PathTerm term_;
    double sum_ = 0.0;
    int zeros_ = 0;
    int largest_ = 0;
};
