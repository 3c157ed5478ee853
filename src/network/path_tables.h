// How the tables of two-paths are brought up to date: the cells of one actor with every member of a
// set go up or down by one, and with them the bits that tell which cells are not 0. The order of
// the members cannot be seen.
#pragma once

#include <algorithm>

#include "base/table.h"
#include "network/neighbour_lists.h"

// One column of a matrix of bits.
class BitColumn {
  public:
    BitColumn(BitMatrix& matrix, int column)
        : bytes_(reinterpret_cast<unsigned char*>(matrix.words.data()) + (column >> 3)),
          stride_(static_cast<std::ptrdiff_t>(matrix.words_per_row) * 8),
          bit_(static_cast<unsigned char>(0x80U >> static_cast<unsigned>(column & 7))) {}

    void set(int row) const { at(row) = static_cast<unsigned char>(at(row) | bit_); }
    // The bit is set.
    void clear(int row) const { at(row) = static_cast<unsigned char>(at(row) ^ bit_); }

  private:
    unsigned char& at(int row) const { return bytes_[row * stride_]; }

    unsigned char* bytes_;
    std::ptrdiff_t stride_;
    unsigned char bit_;
};

// One column of a table of counts.
class CountColumn {
  public:
    CountColumn(CountTable& table, int column)
        : cells_(table.cells.data() + column), stride_(table.columns) {}

    std::uint16_t& operator[](int row) const { return cells_[row * stride_]; }

  private:
    std::uint16_t* cells_;
    std::ptrdiff_t stride_;
};

// Calls change(k), which changes the cell of k by `by` (1 or -1) and returns its new value, for
// each of `members` but `end`, the actor whose cells these are. Bit k of `row`, and of `column` the
// bit of row k, tell whether the cell is not 0; those of `end` itself stay clear.
template <int by, class Change>
void change_cells(const Members& members, int end, std::uint64_t* row, const BitColumn& column,
                  Change change) {
    const auto visit = [&](int k) {
        if (k == end) {
            return;
        }
        const std::uint16_t after = change(k);
        if constexpr (by > 0) {
            column.set(k);
        } else if (after == 0) {
            row_flip(row, k);
            column.clear(k);
        }
    };
    if (members.listed()) {
        for (const std::int32_t k : members.list()) {
            visit(k);
            if constexpr (by > 0) {
                row_set(row, k);
            }
        }
    } else {
        const std::uint64_t* set = members.row();
        for (int word = 0; word < members.rows.words_per_row; ++word) {
            word_for_each_unordered(set[word], word * 64, visit);
            if constexpr (by > 0) {
                row[word] |= set[word];
            }
        }
    }
    if constexpr (by > 0) {
        row_clear(row, end);
    }
}

// Fills the row of `actor` anew: calls each(count) with a count(k) that adds one to the cell of k;
// the cell of the actor itself is left out. Bits of the row tell which cells are not 0.
template <class Each>
void count_row(CountTable& table, BitMatrix& any, int actor, Each each) {
    std::uint16_t* cells = table[actor];
    std::uint64_t* row = any[actor];
    std::fill_n(cells, table.columns, std::uint16_t{0});
    std::fill_n(row, any.words_per_row, std::uint64_t{0});
    each([&](int k) {
        if (k != actor) {
            ++cells[k];
            row_set(row, k);
        }
    });
}
