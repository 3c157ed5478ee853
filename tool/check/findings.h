// What a check has to say, and how it is printed.
#pragma once

#include <string>
#include <vector>

#include "study/counted.h"
#include "terminal/terminal.h"

enum class Severity { error, warning };

// Where a finding stands: `line` and `column` count from 1, 0 for the file or the line as a whole.
struct Where {
    std::string file = {};
    int line = 0;
    std::string field = {};
    int column = 0;
};

struct Finding {
    Severity severity = Severity::error;
    Where where;
    std::string found;
    std::string expected;
    std::string mend;
};

struct Findings {
    std::vector<Finding> list;
};

void add_error(Findings& findings, const Where& where, const std::string& found,
               const std::string& expected, const std::string& mend);
void add_warning(Findings& findings, const Where& where, const std::string& found,
                 const std::string& expected, const std::string& mend);

int count_findings(const Findings& findings, Severity severity);

// "2 errors, 1 warning".
std::string findings_summary(const Findings& findings);

// Each finding as "FILE:LINE:COLUMN: error: FIELD" and three indented lines; without what it has
// not.
void print_findings(const Findings& findings, bool with_warnings, const Screen& out);

// The text in quotation marks, shortened, characters that do not print as escapes.
std::string quoted(const std::string& text);

// "5 x 5".
std::string squared(long long size);
