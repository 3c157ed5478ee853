// What the text of a data file tells where its numbers are not what a run needs: which program or
// habit it comes from, and which row is at fault.
#pragma once

#include <optional>
#include <string>

// What is wrong with the file as a whole, or at its line.
struct TextTrouble {
    int line = 0;
    std::string found;
    std::string mend;
};

// A byte order mark at the begin of the text, or text in units of two bytes.
std::optional<TextTrouble> foreign_encoding(const std::string& text);

// A row that holds another number of words than most do. Rows are the lines that are not blank.
struct OddRow {
    int line = 0;
    int row = 0;  // from 1
    int words = 0;
};

// The first odd row among the first `rows` from a line on (of all when 0); none unless most rows
// hold `width` words.
std::optional<OddRow> first_odd_row(const std::string& text, int first_line, int width, int rows);

// "row 3 holds 4 cells".
std::string describe_odd_row(const OddRow& odd, const std::string& what);

// Words that stand for an unknown value ("NA", "nan", "?", ..): how many the text holds.
bool stands_for_missing(const std::string& word);
long long count_missing(const std::string& text);

// '1' or '0' for the words of a truth value ("TRUE", "no", ..), else 0.
char digit_of_truth(const std::string& word);

// What stands in the place of a matrix of n x n cells: text in another encoding, an edge list,
// words for missing values or truth values, or rows of different lengths.
std::optional<TextTrouble> explain_matrix_text(const std::string& text, int actors);
