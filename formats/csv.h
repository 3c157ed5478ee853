// Tables of text: lines of fields between delimiters, with or without quotation marks.
//
// One scanner serves everything that comes as CSV, TSV or columns between blanks. It walks through
// the text once and keeps one line, so a file costs its own size in memory and no more. Lines end
// by LF, CRLF or CR. A field may stand in quotation marks, a doubled one inside counting as one;
// such a field may hold delimiters and line ends. Blank lines are skipped, and so are comments (#
// or %) that stand before the first line of data.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "study/problem.h"

// Fields between white space of any length.
constexpr char kBlanks = ' ';

struct CsvField {
    std::string_view text;   // white space around it dropped, unless it is quoted
    std::size_t offset = 0;  // of its first character in the text
    bool quoted = false;
};

class CsvScanner {
  public:
    // The text must outlive the scanner.
    CsvScanner(std::string_view text, char delimiter) : text_(text), delimiter_(delimiter) {}

    // Moves to the next line of data. False at the end of the text, or where a quotation mark is
    // never closed.
    bool next();

    // The fields of the line; valid until the next call.
    const std::vector<CsvField>& fields() const { return fields_; }
    // Where the line begins, from 1.
    int line() const { return line_; }
    // Where a field begins on its line, in characters from 1.
    int column(std::size_t field) const;
    // True when the scanner stopped at a quotation mark that is never closed, on line().
    bool unclosed() const { return unclosed_; }

  private:
    void skip_to_data();
    bool at_line_end() const;
    void end_line();
    void read_field();
    void read_quoted();
    void read_plain();
    void unescape(std::size_t begin, std::size_t end);

    std::string_view text_;
    char delimiter_;
    std::size_t at_ = 0;
    std::size_t line_begin_ = 0;
    int line_ = 0;
    int next_line_ = 1;
    bool begun_ = false;
    bool unclosed_ = false;
    std::vector<CsvField> fields_;
    // Fields whose doubled quotation marks were made single; a deque would do as well, but these
    // are few. Their characters do not move while the line is read.
    std::vector<std::vector<char>> unescaped_;
};

// The delimiter among comma, semicolon, tab and blanks that cuts the first lines most evenly into
// two columns or more; a comma when none does. Where `strict`, blanks must cut all of them alike: a
// column of names such as "Ann Lee" is no table.
char guess_delimiter(std::string_view text, bool strict = false);

// "comma", "semicolon", "tab", "white space".
const char* delimiter_name(char delimiter);

// The text as one field of a line of CSV: in quotation marks when it needs them.
std::string csv_field(std::string_view text);

// The problem of a scanner that stopped at a quotation mark that is never closed.
Problem unclosed_quote(const std::string& file, const CsvScanner& scanner);
