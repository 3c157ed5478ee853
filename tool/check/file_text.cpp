#include "check/file_text.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "check/files.h"
#include "check/findings.h"
#include "check/setup_view.h"

namespace {

std::string lower_letters(const std::string& word) {
    std::string letters;
    for (const char character : word) {
        letters.push_back(character >= 'A' && character <= 'Z'
                              ? static_cast<char>(character - 'A' + 'a')
                              : character);
    }
    return letters;
}

bool is_one_of(const std::string& word, std::initializer_list<const char*> words) {
    const std::string letters = lower_letters(word);
    return std::any_of(words.begin(), words.end(),
                       [&letters](const char* each) { return letters == each; });
}

// Calls visit(line) with each line of the text, without its end, from the first on; line numbers
// are left to the caller.
template <class Visit>
void for_each_line(const std::string& text, Visit visit) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        visit(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

// Calls visit(word, line, row, column) with each word; rows and columns count from 1.
template <class Visit>
void for_each_word(const std::string& text, Visit visit) {
    int line = 0;
    int row = 0;
    for_each_line(text, [&](const std::string& written) {
        ++line;
        int column = 0;
        std::size_t k = 0;
        while (k < written.size()) {
            while (k < written.size() && is_blank(written[k])) {
                ++k;
            }
            const std::size_t begin = k;
            while (k < written.size() && !is_blank(written[k])) {
                ++k;
            }
            if (k > begin) {
                row += column == 0 ? 1 : 0;
                visit(written.substr(begin, k - begin), line, row, ++column);
            }
        }
    });
}

// The number of words in each row, and the line of each.
struct Row {
    int line = 0;
    int words = 0;
};

std::vector<Row> rows_of(const std::string& text) {
    std::vector<Row> rows;
    int line = 0;
    for_each_line(text, [&](const std::string& written) {
        ++line;
        if (const int words = count_words(written); words > 0) {
            rows.push_back({line, words});
        }
    });
    return rows;
}

// Whether each row names two actors, by number or by name, and perhaps a weight.
bool is_edge_list(const std::string& text, const std::vector<Row>& rows, int actors) {
    const int width = rows.empty() ? 0 : rows.front().words;
    if ((width != 2 && width != 3) || width == actors ||
        std::any_of(rows.begin(), rows.end(), [&](const Row& row) { return row.words != width; })) {
        return false;
    }
    bool beyond_cells = false;
    for_each_word(text, [&](const std::string& word, int, int, int column) {
        beyond_cells = beyond_cells || (column <= 2 && word != "0" && word != "1");
    });
    return beyond_cells;
}

std::optional<TextTrouble> explain_edge_list(const std::string& text, int actors) {
    if (is_one_of(text.substr(0, 9), {"*vertices"}) || is_one_of(text.substr(0, 8), {"*network"})) {
        return TextTrouble{
            1, "a Pajek file",
            "write the matrix alone: " + squared(actors) + " cells, 1 for a tie and 0 for none"};
    }
    const std::vector<Row> rows = rows_of(text);
    if (!is_edge_list(text, rows, actors)) {
        return std::nullopt;
    }
    return TextTrouble{rows.front().line,
                       "an edge list: " + counted(static_cast<long long>(rows.size()), "line") +
                           " of " + std::to_string(rows.front().words) +
                           " words, each line one tie",
                       "write the ties as a matrix: a row of " + counted(actors, "cell") +
                           " for each actor, 1 in row i and column j for a tie of i and j, else 0"};
}

// Words that no cell can be.
struct StrangeWord {
    long long count = 0;
    std::string word;
    int line = 0;
    int row = 0;
    int column = 0;

    void meet(const std::string& met, int at_line, int at_row, int at_column) {
        if (count++ == 0) {
            word = met;
            line = at_line;
            row = at_row;
            column = at_column;
        }
    }
    std::string found() const {
        return quoted(word) + " in row " + std::to_string(row) + ", column " +
               std::to_string(column) +
               (count > 1 ? " and in " + counted(count - 1, "more cell") : "");
    }
};

std::optional<TextTrouble> explain_words(const std::string& text) {
    StrangeWord missing;
    StrangeWord truth;
    bool head = false;
    for_each_word(text, [&](const std::string& word, int line, int row, int column) {
        if (stands_for_missing(word)) {
            missing.meet(word, line, row, column);
        } else if (digit_of_truth(word) != 0) {
            truth.meet(word, line, row, column);
        } else {
            head = head || (row == 1 && !integer_word(word).number);
        }
    });
    // Among names "f" and "na" are names too.
    if (head) {
        return std::nullopt;
    }
    if (missing.count > 0) {
        return TextTrouble{missing.line, missing.found(),
                           "write 1 or 0 there: a network file has no missing values, so decide "
                           "each unknown tie or leave the actors out whose ties are not known"};
    }
    if (truth.count > 0) {
        const char digit = digit_of_truth(truth.word);
        return TextTrouble{truth.line, truth.found(),
                           "write " + std::string(1, digit) + " for " + ::quoted(truth.word) +
                               (digit == '1' ? ", and 0 for no tie" : ", and 1 for a tie")};
    }
    return std::nullopt;
}

std::optional<TextTrouble> explain_rows(const std::string& text, int actors) {
    const std::optional<OddRow> odd = first_odd_row(text, 1, actors, 0);
    if (!odd) {
        return std::nullopt;
    }
    const int lacking = actors - odd->words;
    return TextTrouble{odd->line, describe_odd_row(*odd, "cell"),
                       lacking > 0 ? "write the missing " + counted(lacking, "cell") + " of the row"
                                   : "remove " + counted(-lacking, "cell") + " from the row"};
}

long long count_cells(const std::string& text) {
    long long cells = 0;
    for (const Row& row : rows_of(text)) {
        cells += row.words;
    }
    return cells;
}

}  // namespace

std::optional<TextTrouble> foreign_encoding(const std::string& text) {
    if (text.starts_with("\xEF\xBB\xBF")) {
        return TextTrouble{1, "a byte order mark (BOM) at the begin of the file",
                           "save the file as UTF-8 without a byte order mark"};
    }
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return TextTrouble{1, "text in UTF-16",
                           "save the file as plain text: UTF-8 without a byte order mark"};
    }
    return std::nullopt;
}

std::optional<OddRow> first_odd_row(const std::string& text, int first_line, int width, int rows) {
    std::vector<Row> all = rows_of(text);
    std::erase_if(all, [first_line](const Row& row) { return row.line < first_line; });
    if (rows > 0 && static_cast<std::size_t>(rows) < all.size()) {
        all.resize(static_cast<std::size_t>(rows));
    }
    const auto usual = [width](const Row& row) { return row.words == width; };
    const auto odd = std::find_if_not(all.begin(), all.end(), usual);
    const auto count = static_cast<std::size_t>(std::count_if(all.begin(), all.end(), usual));
    if (odd == all.end() || count * 2 <= all.size()) {
        return std::nullopt;
    }
    return OddRow{odd->line, static_cast<int>(odd - all.begin()) + 1, odd->words};
}

std::string describe_odd_row(const OddRow& odd, const std::string& what) {
    return "row " + std::to_string(odd.row) + " holds " + counted(odd.words, what);
}

bool stands_for_missing(const std::string& word) {
    return is_one_of(word, {"na", "n/a", "nan", "<na>", "null", "none", "missing", "unknown", ".",
                            "?", "-", "--"});
}

long long count_missing(const std::string& text) {
    long long count = 0;
    for_each_word(text, [&count](const std::string& word, int, int, int) {
        count += stands_for_missing(word) ? 1 : 0;
    });
    return count;
}

char digit_of_truth(const std::string& word) {
    if (is_one_of(word, {"true", "t", "yes", "y"})) {
        return '1';
    }
    return is_one_of(word, {"false", "f", "no", "n"}) ? '0' : '\0';
}

std::optional<TextTrouble> explain_matrix_text(const std::string& text, int actors) {
    if (std::optional<TextTrouble> trouble = foreign_encoding(text)) {
        return trouble;
    }
    if (std::optional<TextTrouble> trouble = explain_edge_list(text, actors)) {
        return trouble;
    }
    if (std::optional<TextTrouble> trouble = explain_words(text)) {
        return trouble;
    }
    // Rows may be broken anywhere while their cells are as many as they should be.
    return count_cells(text) == static_cast<long long>(actors) * actors
               ? std::nullopt
               : explain_rows(text, actors);
}
