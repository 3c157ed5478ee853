#include "matrix_file.h"

#include <cmath>

#include "files.h"

namespace {

void note(CellSample& sample, TextReader& reader, const std::string& path, int row, int column,
          int value) {
    if (sample.count++ == 0) {
        // The reader stands behind the number, so its line is that of the character before.
        const long offset = reader_offset(reader);
        sample.row = row + 1;
        sample.column = column + 1;
        sample.line = place_in_file(path, offset > 0 ? offset - 1 : 0).line;
        sample.word = std::to_string(value);
    }
}

bool counts(int row, int column, bool directed) { return directed ? row != column : row < column; }

// Reads the cells, notes what is strange about them, and keeps the ones that are 1.
void read_cells(MatrixScan& scan, TextReader& reader, const std::string& path) {
    Ties& ties = scan.ties;
    const int n = ties.actors;
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            int value = 0;
            if (!reader_cell(reader, value)) {
                scan.end = break_off(reader, path, scan.end.read);
                return;
            }
            ++scan.end.read;
            ties.cells.push_back(value == 1 ? 1 : 0);
            if (row == column && value == 1) {
                note(scan.diagonal, reader, path, row, column, value);
            }
            if (value != 0 && value != 1 && counts(row, column, ties.directed)) {
                note(scan.strange, reader, path, row, column, value);
            }
            const auto mirror = static_cast<std::size_t>(column) * static_cast<std::size_t>(n) +
                                static_cast<std::size_t>(row);
            if (!ties.directed && column < row && ties.cells[mirror] != ties.cells.back()) {
                note(scan.uneven, reader, path, row, column, value);
            }
        }
    }
    scan.end.complete = true;
}

// Only the upper triangle of an undirected matrix makes ties, and no diagonal does.
void keep_counting_cells(Ties& ties) {
    const auto n = static_cast<std::size_t>(ties.actors);
    for (std::size_t i = 0; i < n; ++i) {
        ties.cells[i * n + i] = 0;
        for (std::size_t j = 0; !ties.directed && j < i; ++j) {
            ties.cells[i * n + j] = ties.cells[j * n + i];
        }
    }
}

}  // namespace

MatrixScan scan_matrix(const std::string& path, int actors, bool directed) {
    MatrixScan scan;
    scan.ties.actors = actors;
    scan.ties.directed = directed;
    TextReader reader = reader_open(path);
    read_cells(scan, reader, path);
    if (!scan.end.complete) {
        scan.ties = {};
        if (scan.end.at_end) {
            return scan;
        }
    } else {
        keep_counting_cells(scan.ties);
        scan.surplus = count_surplus(reader);
    }
    if (scan.end.complete && !reader_at_end(reader)) {
        const TextPlace place = place_in_file(path, reader_offset(reader));
        scan.text_behind = {1, 0, 0, place.line, place.word};
    }
    return scan;
}

Breakoff break_off(TextReader& reader, const std::string& path, long long read) {
    Breakoff end;
    end.read = read;
    end.at_end = reader_at_end(reader);
    const TextPlace place = place_in_file(path, reader_offset(reader));
    end.line = place.line;
    end.word = place.word;
    return end;
}

long long count_surplus(TextReader& reader) {
    long long surplus = 0;
    double ignored = 0.0;
    while (reader_double(reader, ignored)) {
        ++surplus;
    }
    return surplus;
}

int square_root(long long number) {
    const auto root = static_cast<long long>(std::llround(std::sqrt(static_cast<double>(number))));
    return root * root == number ? static_cast<int>(root) : 0;
}
