// Tables of text for terminals.
#pragma once

#include <string>
#include <vector>

// Columns as wide as their widest cell, two blanks between them: the first to the left, the others
// to the right. Every row has as many cells as the first.
std::string text_table(const std::vector<std::vector<std::string>>& rows);

// A number with so many decimals; "-" where there is none.
std::string decimals_or_dash(double value, int places);

// The same with blanks for the decimals that are fewer than `most`, so that the points of a column
// stand below each other.
std::string aligned_decimals(double value, int places, int most);
