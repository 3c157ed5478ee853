// UCINET's DL files: a head of keys, then a matrix, a list of ties or a list of neighbours.
#pragma once

#include <optional>

#include "formats/text_file.h"
#include "formats/ties.h"

// Reads the forms fullmatrix, lowerhalf, upperhalf, edgelist1 and nodelist1, with labels before the
// data or embedded in them. Values other than 0 and 1 need a threshold. Problems: a key or form
// that is not known, two-mode data, several matrices, too few or too many numbers, an actor that is
// not there.
void read_dl_file(const TextFile& file, std::optional<double> threshold, TieTable& table,
                  Problems& problems);
