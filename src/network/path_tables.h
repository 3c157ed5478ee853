// How the tables of two-paths are brought up to date: the cells of one actor with every member of a
// set go up or down by one, and with them the bits that tell which cells are not 0. The order of
// the members cannot be seen.
#pragma once

#include <algorithm>
#include <span>

#include "base/table.h"
#include "network/all_members.h"

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

// Makes a row the actors that are in any of the rows of `among`, but for `actor` itself.
inline void unite_rows(BitMatrix& united, int actor, std::span<const int> among,
                       const BitMatrix& rows) {
    std::uint64_t* row = united[actor];
    std::fill_n(row, united.words_per_row, std::uint64_t{0});
    for (const int middle : among) {
        const std::uint64_t* onward = rows[middle];
        for (int word = 0; word < united.words_per_row; ++word) {
            row[word] |= onward[word];
        }
    }
    row_clear(row, actor);
}

// Fills the row of `actor` anew: the cell of k counts the actors of `middle` that have k among
// their members, the cell of the actor itself stays 0. Bits of the row tell which cells are not 0.
// `members` holds the lists of `rows`.
inline void count_row(CountTable& table, BitMatrix& any, int actor, std::span<const int> middle,
                      const AllMembers& members, const BitMatrix& rows) {
    std::uint16_t* cells = table[actor];
    std::fill_n(cells, table.columns, std::uint16_t{0});
    for (const int each : middle) {
        for (const int k : members.of(each)) {
            ++cells[k];
        }
    }
    cells[actor] = 0;
    unite_rows(any, actor, middle, rows);
}
