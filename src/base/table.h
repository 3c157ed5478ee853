// A rectangular table of plain values in one block, rows addressed by actor number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

template <class Value>
struct Table {
    int rows = 0;
    int columns = 0;
    std::vector<Value> cells;

    Table() = default;
    // Negative sizes give an empty table.
    Table(int row_count, int column_count, Value fill = Value())
        : rows(row_count > 0 ? row_count : 0),
          columns(column_count > 0 ? column_count : 0),
          cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), fill) {}

    Value* operator[](int row) { return cells.data() + static_cast<std::ptrdiff_t>(row) * columns; }
    const Value* operator[](int row) const {
        return cells.data() + static_cast<std::ptrdiff_t>(row) * columns;
    }
};

using IntTable = Table<int>;
// Counts of third actors for each pair: 16 bits, so 65535 actors are its bound and counts wrap
// there.
using CountTable = Table<std::uint16_t>;
using FloatTable = Table<float>;
