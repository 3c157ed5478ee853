// Files of numbers in rows and columns, read with the engine's own reader.
#pragma once

#include <string>
#include <vector>

#include "base/text_reader.h"

// A first example and a count of something that cells of a matrix have in common.
struct CellSample {
    long long count = 0;
    int row = 0;  // from 1
    int column = 0;
    int line = 0;
    std::string word;
};

// Ties of a matrix as a run would set them.
struct Ties {
    int actors = 0;
    bool directed = false;
    std::vector<char> cells;
    bool has(int i, int j) const {
        return cells[static_cast<std::size_t>(i) * static_cast<std::size_t>(actors) +
                     static_cast<std::size_t>(j)] != 0;
    }
};

// The end of a block of numbers: complete, or where it breaks off.
struct Breakoff {
    bool complete = false;
    bool at_end = false;  // the file ended; else text stands there
    long long read = 0;   // numbers before it
    int line = 0;
    std::string word;
};

struct MatrixScan {
    Breakoff end;
    // Numbers and then, perhaps, text behind the last cell.
    long long surplus = 0;
    CellSample text_behind;
    CellSample strange;   // neither 0 nor 1, where the cell counts
    CellSample diagonal;  // 1 on the diagonal
    CellSample uneven;    // differs from its mirror cell; undirected only
    Ties ties;            // complete matrices only
};

// Reads actors x actors integers.
MatrixScan scan_matrix(const std::string& path, int actors, bool directed);

// Where the reader stands now, told as the end of a block after `read` numbers.
Breakoff break_off(TextReader& reader, const std::string& path, long long read);

// Counts the numbers that are left, up to the end or the first text.
long long count_surplus(TextReader& reader);

// The whole root of a square number, 0 when it is none.
int square_root(long long number);
