// Square tables of numbers, one line and one column an actor, with or without names.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "formats/text_file.h"
#include "formats/ties.h"

// Where the names of a matrix stand.
struct MatrixShape {
    char delimiter = ',';
    bool head = false;          // names in the first line
    bool first_column = false;  // names in the first column
    bool corner = false;        // a cell above the first column
    std::size_t columns = 0;    // of numbers
};

// The shape of a file that must be a matrix, from its first lines.
MatrixShape matrix_shape(const TextFile& file);

// Whether the file looks like a matrix rather than like a list: square, or with more columns of
// numbers than a list has. Looks at the first lines and counts no more lines than columns.
bool looks_like_matrix(const TextFile& file);

struct MatrixCell {
    int row = 0;
    int column = 0;
    double value = 0.0;
    int line = 0;
    int file_column = 0;  // in characters, from 1
    std::string text = {};
};

// Names of the rows ("1", "2", ... without), and whether they stand in the file.
struct MatrixNames {
    std::vector<std::string> names;
    bool named = false;
};

// Calls visit(cell) for every cell off the diagonal and every diagonal cell that holds a number,
// row by row, and returns the names. Cells of the diagonal may be empty or "-". Problems: a matrix
// that is not square, names that differ between head and first column or come twice, a cell that is
// no number. `missing_mend` is the way out where a value is not known. `visit` returns false to end
// the reading.
MatrixNames read_matrix_cells(const TextFile& file, const MatrixShape& shape,
                              const char* missing_mend,
                              const std::function<bool(const MatrixCell&)>& visit,
                              Problems& problems);

// Reads a network. Cells are 0 or 1, or any number where there is a threshold.
void read_matrix_network(const TextFile& file, std::optional<double> threshold, TieTable& table,
                         Problems& problems);
