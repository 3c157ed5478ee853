#include "base/matrix_file.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

TEST(MatrixFile, MissingCellsStayZero) {
    const ScratchDirectory scratch;
    const Matrix read = matrix_read(scratch.write("c.txt", "1.5\t0.25\n-2e-1\t"), 2);
    EXPECT_EQ(read.cells, std::vector<double>({1.5, 0.25, -0.2, 0.0}));
    const Matrix none = matrix_read((scratch.path() / "absent.txt").string(), 2);
    EXPECT_EQ(none.cells, std::vector<double>(4, 0.0));
}

}  // namespace
