#include "base/matrix_file.h"

#include "base/text_reader.h"

Matrix matrix_read(const std::string& path, int m) {
    Matrix matrix = matrix_create(m, m, 0.0);
    TextReader reader = reader_open(path);
    ReadSequence cells(reader);
    for (double& cell : matrix.cells) {
        cells.next(reader_double, cell);
    }
    return matrix;
}
