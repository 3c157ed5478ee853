// Sums of alternating weights over cells of a two-path table.
//
// The weights are single-precision numbers. While all that are added are whole multiples of 2^-45
// and there are no more than 128 of them, every partial sum in double precision is exact, and the
// order of the terms cannot be seen in the result. Such a sum may be taken set by set, its zero
// cells by their number; any other one is taken in ascending order of the actors.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "effects/effect.h"
#include "effects/geometric_weights.h"

// What a sum over third actors adds for one two-path cell: its weight without the tie under
// evaluation, or, at lambda 1, whether it is the cell's first path.
class PathTerm {
  public:
    PathTerm(const EffectData& data, int adding)
        : weights_(data.weights), counted_(data.lambda == 1.0F), lag_(adding - 1) {}

    double operator()(int cell) const {
        const int paths = cell + lag_;
        return counted_ ? (paths == 0 ? 1.0 : 0.0) : geometric_weight(paths, weights_);
    }

  private:
    const float* weights_;
    bool counted_;
    int lag_;
};

// A sum in any order, good only if it proves to be exact.
class UnorderedSum {
  public:
    // Terms of an exact sum.
    static constexpr int kTerms = 128;

    UnorderedSum(const EffectData& data, int adding)
        : weights_(data.weights),
          lag_(adding - 1),
          largest_exact_(std::min(data.exact_weights, kWeightTableLength)),
          exact_(largest_exact_ >= 0) {}

    // At lambda 1 the weights are 0 but for that of no path, so that they count as well.
    void add(int cell) {
        const int paths = cell + lag_;
        if (paths > largest_exact_) [[unlikely]] {
            exact_ = false;
        } else if (paths > 0) {
            sum_ += static_cast<double>(weights_[paths]);
        } else if (paths == 0) {
            sum_ += 1.0;
        }
    }

    // Adds this many cells of 0.
    void add_zeros(int count) {
        if (lag_ == 0) {
            sum_ += count;
        }
    }

    bool exact() const { return exact_; }
    double value() const { return sum_; }

  private:
    const float* weights_;
    int lag_;
    int largest_exact_;
    bool exact_;
    double sum_ = 0.0;
};

// One part of a sum over third actors: a set and the cell that each of its members stands for. The
// actor whose cells these are may be a member, and is left out: `count` is the number of the
// others. `any` has a bit for each cell that is not 0, and none for that actor; the other cells are
// never read.
template <class Cell>
struct CellSet {
    Members members;
    int count;
    const std::uint64_t* any;
    Cell cell;
};
template <class Cell>
CellSet(Members, int, const std::uint64_t*, Cell) -> CellSet<Cell>;

// The terms of all cells of these sets, where their sum is exact.
template <class... Sets>
std::optional<double> unordered_sum(const EffectData& data, int adding, const Sets&... sets) {
    int zeros = (sets.count + ...);
    UnorderedSum sum(data, adding);
    if (zeros > UnorderedSum::kTerms || !sum.exact()) {
        return std::nullopt;
    }
    const auto add_word = [&](const auto& set, int word) {
        word_for_each_unordered(set.members.row()[word] & set.any[word], word * 64, [&](int k) {
            sum.add(set.cell(k));
            --zeros;
        });
    };
    const auto add_list = [&](const auto& set) {
        for (const std::int32_t k : set.members.list()) {
            if (row_has(set.any, k)) {
                sum.add(set.cell(k));
                --zeros;
            }
        }
    };
    if ((sets.members.listed() && ...)) {
        (add_list(sets), ...);
    } else {
        const int words = std::max({sets.members.rows.words_per_row...});
        for (int word = 0; word < words; ++word) {
            (add_word(sets, word), ...);
        }
    }
    sum.add_zeros(zeros);
    return sum.exact() ? std::optional(sum.value()) : std::nullopt;
}
