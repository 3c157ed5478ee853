#include "formats/matrix_file.h"

#include <algorithm>
#include <map>

#include "formats/csv.h"

namespace {

constexpr std::size_t kSampleLines = 64;

using Row = std::vector<std::string>;

std::vector<Row> first_rows(const TextFile& file, char delimiter) {
    std::vector<Row> rows;
    CsvScanner scanner(file.text, delimiter);
    while (rows.size() < kSampleLines && scanner.next()) {
        Row& row = rows.emplace_back();
        for (const CsvField& field : scanner.fields()) {
            row.emplace_back(field.text);
        }
    }
    // A delimiter at the end of every line makes no column.
    const bool trailing = std::all_of(rows.begin(), rows.end(), [](const Row& row) {
        return row.size() > 1 && row.back().empty();
    });
    for (Row& row : rows) {
        row.resize(row.size() - (trailing ? 1 : 0));
    }
    return rows;
}

// Counts lines of data up to a bound.
std::size_t count_lines(const TextFile& file, char delimiter, std::size_t most) {
    CsvScanner scanner(file.text, delimiter);
    std::size_t count = 0;
    while (count <= most && scanner.next()) {
        ++count;
    }
    return count;
}

bool is_blank_cell(const std::string& text) { return text.empty() || text == "-"; }

bool is_number(const std::string& text) { return number_of(text).has_value(); }

// The share of cells that pass a test.
double share_of_cells(const std::vector<Row>& rows, std::size_t first_row, std::size_t first_column,
                      bool (*test)(const std::string&)) {
    double passed = 0.0;
    double all = 0.0;
    for (std::size_t i = first_row; i < rows.size(); ++i) {
        for (std::size_t j = first_column; j < rows[i].size(); ++j) {
            all += 1.0;
            passed += test(rows[i][j]) ? 1.0 : 0.0;
        }
    }
    return all > 0.0 ? passed / all : 0.0;
}

// Cells that are not known count as cells: that they cannot stay so is told when they are read.
bool is_number_or_blank(const std::string& text) {
    return is_number(text) || is_blank_cell(text) || is_missing_text(text);
}

bool is_zero_or_one(const std::string& text) {
    const auto value = number_of(text);
    return is_blank_cell(text) || is_missing_text(text) ||
           (value && (*value == 0.0 || *value == 1.0));
}

// The first line repeats the first column: names, numbers too. A symmetric matrix repeats it as
// well, with a number in the corner.
bool names_repeat(const std::vector<Row>& rows) {
    if (rows.size() < 3 || rows[0].size() < 2) {
        return false;
    }
    const std::size_t corner = rows[0].size() + 1 == rows[1].size() ? 0 : 1;
    if (corner == 1 && is_number(rows[0][0])) {
        return false;
    }
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const std::size_t at = i - 1 + corner;
        if (at >= rows[0].size() || rows[i].empty() || rows[i][0] != rows[0][at]) {
            return false;
        }
    }
    return true;
}

// More than half of the texts are no numbers.
bool mostly_text(const std::vector<std::string>& texts) {
    const auto count = std::count_if(texts.begin(), texts.end(), [](const std::string& each) {
        return !is_number_or_blank(each);
    });
    return 2 * count > static_cast<std::ptrdiff_t>(texts.size());
}

std::vector<std::string> below_corner(const std::vector<Row>& rows) {
    std::vector<std::string> texts;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        texts.push_back(rows[i].empty() ? "" : rows[i][0]);
    }
    return texts;
}

std::vector<std::string> behind_corner(const std::vector<Row>& rows) {
    return {rows[0].begin() + (rows[0].size() > 1 ? 1 : 0), rows[0].end()};
}

// The most frequent number of cells behind the first line.
std::size_t usual_width(const std::vector<Row>& rows) {
    std::map<std::size_t, int> counts;
    for (std::size_t i = rows.size() > 1 ? 1 : 0; i < rows.size(); ++i) {
        ++counts[rows[i].size()];
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

MatrixShape shape_of(const std::vector<Row>& rows, char delimiter) {
    MatrixShape shape{.delimiter = delimiter};
    if (rows.empty()) {
        return shape;
    }
    const bool repeat = names_repeat(rows);
    shape.head = repeat || mostly_text(behind_corner(rows));
    shape.first_column = repeat || mostly_text(below_corner(rows));
    const std::size_t body = usual_width(rows);
    shape.columns = body - (shape.first_column && body > 0 ? 1 : 0);
    shape.corner = shape.head && shape.first_column && rows[0].size() > shape.columns;
    return shape;
}

// Diagonal all zero or empty, as the first lines show it.
bool clear_diagonal(const std::vector<Row>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string cell = i < rows[i].size() ? rows[i][i] : "";
        if (!is_blank_cell(cell) && number_of(cell) != 0.0) {
            return false;
        }
    }
    return true;
}

constexpr const char* kUnknownTie =
    "write 0 or 1: a tie is there or not; or take the actor out of the network";

struct MatrixReader {
    const TextFile& file;
    const MatrixShape& shape;
    const char* missing_mend;
    const std::function<bool(const MatrixCell&)>& visit;
    Problems& problems;
    std::vector<std::string> head;
    std::vector<std::string> first_column;
    std::vector<int> lines;
    bool stopped = false;
};

void add_problem(MatrixReader& reader, int line, int column, std::string field, std::string found,
                 std::string expected, std::string mend) {
    reader.problems.push_back({.file = reader.file.path,
                               .line = line,
                               .column = column,
                               .field = std::move(field),
                               .found = std::move(found),
                               .expected = std::move(expected),
                               .mend = std::move(mend)});
}

void read_head(MatrixReader& reader, const CsvScanner& scanner) {
    const std::size_t skip = reader.shape.corner ? 1 : 0;
    for (std::size_t k = skip; k < scanner.fields().size(); ++k) {
        reader.head.emplace_back(scanner.fields()[k].text);
    }
    while (reader.head.size() > reader.shape.columns && reader.head.back().empty()) {
        reader.head.pop_back();
    }
}

std::string cell_field(const MatrixReader& reader, int row, int column) {
    const auto name = [](const std::vector<std::string>& names, int k) {
        const auto at = static_cast<std::size_t>(k);
        return at < names.size() ? names[at] : std::to_string(k + 1);
    };
    return "row `" + name(reader.first_column.empty() ? reader.head : reader.first_column, row) +
           "`, column `" + name(reader.head.empty() ? reader.first_column : reader.head, column) +
           "`";
}

void read_cell(MatrixReader& reader, const CsvScanner& scanner, int row, int column,
               std::size_t field) {
    MatrixCell cell{.row = row, .column = column, .line = scanner.line()};
    const std::string_view text = scanner.fields()[field].text;
    const std::optional<double> value = number_of(text);
    if (!value && row == column && (text.empty() || text == "-")) {
        return;
    }
    if (!value && !text.empty() && is_missing_text(text)) {
        add_problem(reader, scanner.line(), scanner.column(field), cell_field(reader, row, column),
                    shown_text(std::string(text)) + ", a value that is not known", "a number",
                    reader.missing_mend);
        return;
    }
    if (!value) {
        const bool comma = is_decimal_comma(text);
        add_problem(reader, scanner.line(), scanner.column(field), cell_field(reader, row, column),
                    text.empty()
                        ? "nothing"
                        : shown_text(std::string(text)) + (comma ? ", a decimal comma" : ""),
                    comma ? "a decimal point" : "a number",
                    comma ? "write decimals with a point" : "write a number into the cell");
        return;
    }
    cell.value = *value;
    if (*value != 0.0 && *value != 1.0) {
        cell.file_column = scanner.column(field);
        cell.text = text;
    }
    reader.stopped = !reader.visit(cell);
}

void read_row(MatrixReader& reader, const CsvScanner& scanner, int row) {
    const std::size_t skip = reader.shape.first_column ? 1 : 0;
    const std::size_t fields = scanner.fields().size();
    std::size_t columns = fields > skip ? fields - skip : 0;
    // A delimiter behind the last cell; the last cell of the last row may be an empty diagonal.
    if (columns == reader.shape.columns + 1 && scanner.fields().back().text.empty()) {
        --columns;
    }
    reader.lines.push_back(scanner.line());
    if (reader.shape.first_column) {
        reader.first_column.emplace_back(scanner.fields()[0].text);
    }
    if (columns != reader.shape.columns) {
        add_problem(reader, scanner.line(), 0, "", std::to_string(columns) + " cells",
                    std::to_string(reader.shape.columns) + " cells, as in the first line",
                    "give every line as many cells as there are actors");
        return;
    }
    for (std::size_t k = 0; k < columns && !reader.stopped; ++k) {
        if (reader.problems.size() >= kMostProblems) {
            return;
        }
        read_cell(reader, scanner, row, static_cast<int>(k), k + skip);
    }
}

void check_square(MatrixReader& reader, std::size_t rows) {
    const std::size_t head = reader.head.empty() ? reader.shape.columns : reader.head.size();
    if (rows != reader.shape.columns || head != reader.shape.columns) {
        add_problem(
            reader, 0, 0, "",
            std::to_string(rows) + " rows, " + std::to_string(reader.shape.columns) + " columns" +
                (head != reader.shape.columns ? ", " + std::to_string(head) + " names in the head"
                                              : ""),
            "a square matrix, one row and one column an actor",
            "give every actor a row and a column; if this is no matrix, say under [network] "
            "what it is: format = \"edge-list\"; `ovri new FILE --format edge-list` writes a model "
            "file that does");
    }
}

void check_names(MatrixReader& reader, const std::vector<std::string>& names) {
    NameTable seen;
    for (std::size_t k = 0; k < names.size(); ++k) {
        const int line = reader.shape.first_column ? reader.lines[k] : 0;
        const bool twice = seen.find(names[k]) >= 0;
        seen.add(names[k]);
        if (names[k].empty() || twice) {
            add_problem(reader, line, 0, "actor " + std::to_string(k + 1),
                        twice ? shown_text(names[k]) + " once more" : "no name",
                        "a name for every actor, each once", "mend the name");
        } else if (!reader.head.empty() && reader.head[k] != names[k]) {
            add_problem(reader, line, 1, "row " + std::to_string(k + 1), shown_text(names[k]),
                        shown_text(reader.head[k]) + ", as in the head",
                        "give rows and columns the same actors in the same order");
        }
        if (reader.problems.size() >= kMostProblems) {
            return;
        }
    }
}

MatrixNames names_of(MatrixReader& reader) {
    MatrixNames result;
    result.named = reader.shape.head || reader.shape.first_column;
    if (result.named) {
        result.names = reader.shape.first_column ? reader.first_column : reader.head;
        check_names(reader, result.names);
        return result;
    }
    for (std::size_t k = 0; k < reader.shape.columns; ++k) {
        result.names.push_back(std::to_string(k + 1));
    }
    return result;
}

}  // namespace

MatrixShape matrix_shape(const TextFile& file) {
    const char delimiter = guess_delimiter(file.text);
    return shape_of(first_rows(file, delimiter), delimiter);
}

bool looks_like_matrix(const TextFile& file) {
    // A cell or two that are wrong make no list of a matrix.
    constexpr double kNearlyAll = 0.9;
    const char delimiter = guess_delimiter(file.text);
    const std::vector<Row> rows = first_rows(file, delimiter);
    const MatrixShape shape = shape_of(rows, delimiter);
    if (rows.size() < 2 || shape.columns < 2) {
        return false;
    }
    const std::size_t lines = shape.columns + (shape.head ? 1 : 0);
    const auto share = [&](bool (*test)(const std::string&)) {
        return share_of_cells(rows, shape.head ? 1 : 0, shape.first_column ? 1 : 0, test);
    };
    const double numbers = share(is_number_or_blank);
    const double zero_one = share(is_zero_or_one);
    if (names_repeat(rows)) {
        return numbers >= kNearlyAll;
    }
    const bool square = count_lines(file, delimiter, lines + 1) == lines;
    if (shape.columns >= 4) {
        return zero_one >= kNearlyAll || (square && numbers >= kNearlyAll);
    }
    if (!square || shape.head != shape.first_column) {
        return false;
    }
    const bool plain = !shape.head;
    return zero_one == 1.0 ||
           (plain && shape.columns > 2 && numbers == 1.0 && clear_diagonal(rows));
}

MatrixNames read_matrix_cells(const TextFile& file, const MatrixShape& shape,
                              const char* missing_mend,
                              const std::function<bool(const MatrixCell&)>& visit,
                              Problems& problems) {
    MatrixReader reader{file, shape, missing_mend, visit, problems, {}, {}, {}, false};
    CsvScanner scanner(file.text, shape.delimiter);
    if (shape.columns > static_cast<std::size_t>(kMostActors)) {
        add_problem(reader, 1, 0, "", std::to_string(shape.columns) + " columns",
                    "at most " + std::to_string(kMostActors), "give a smaller network");
        return {};
    }
    if (shape.head && scanner.next()) {
        read_head(reader, scanner);
    }
    std::size_t rows = 0;
    while (problems.size() < kMostProblems && !reader.stopped && scanner.next()) {
        ++rows;
        if (rows <= shape.columns) {
            read_row(reader, scanner, static_cast<int>(rows) - 1);
        }
    }
    if (scanner.unclosed()) {
        problems.push_back(unclosed_quote(file.path, scanner));
    }
    if (problems.empty() && !reader.stopped) {
        check_square(reader, rows);
    }
    return problems.empty() ? names_of(reader) : MatrixNames{};
}

void read_matrix_network(const TextFile& file, std::optional<double> threshold, TieTable& table,
                         Problems& problems) {
    const MatrixShape shape = matrix_shape(file);
    const auto visit = [&](const MatrixCell& cell) {
        if (!threshold && cell.value != 0.0 && cell.value != 1.0 && cell.row != cell.column) {
            problems.push_back({.file = file.path,
                                .line = cell.line,
                                .column = cell.file_column,
                                .field = "weights",
                                .found = "a cell with " + cell.text,
                                .expected = "0 or 1",
                                .mend = "write `threshold = 1` under [network], or add --threshold "
                                        "1: cells of at least that are ties"});
            return false;
        }
        if (threshold ? cell.value >= *threshold : cell.value != 0.0) {
            table.ties.push_back({cell.row, cell.column, cell.line, true});
        }
        return true;
    };
    const MatrixNames names = read_matrix_cells(file, shape, kUnknownTie, visit, problems);
    table.whole = true;
    table.named = names.named;
    if (threshold) {
        table.notes.push_back("cells of at least " + number_text(*threshold) + " are ties");
    }
    for (const std::string& name : names.names) {
        table.actors.add(name);
    }
}
