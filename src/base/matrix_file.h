// Square matrices from text files.
#pragma once

#include <string>

#include "base/matrix.h"

// Reads m x m numbers in row order; cells that cannot be read stay 0.
Matrix matrix_read(const std::string& path, int m);
