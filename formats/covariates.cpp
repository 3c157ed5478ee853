#include "formats/covariates.h"

#include <cmath>

#include "formats/csv.h"
#include "formats/host_text.h"
#include "formats/matrix_file.h"
#include "formats/model_writer.h"

namespace {

struct CovariateReader {
    const TextFile& file;
    const StudyNetwork& network;
    std::optional<double> missing;
    CovariateFile& result;
    NameTable actors;
};

Problem problem_in(const CovariateReader& reader, int line, int column, std::string field) {
    return {.file = reader.file.path, .line = line, .column = column, .field = std::move(field)};
}

void add_problem(CovariateReader& reader, Problem place, std::string found, std::string expected,
                 std::string mend) {
    place.found = std::move(found);
    place.expected = std::move(expected);
    place.mend = std::move(mend);
    reader.result.problems.push_back(std::move(place));
}

std::string pair_text(const CovariateReader& reader, int from, int to) {
    return "actors `" + reader.network.actors[static_cast<std::size_t>(from)] + "` and `" +
           reader.network.actors[static_cast<std::size_t>(to)] + "`";
}

// The network's number of each row of a matrix.
std::vector<int> row_places(CovariateReader& reader, const MatrixNames& names) {
    std::vector<int> places;
    if (names.names.size() != reader.network.actors.size()) {
        add_problem(reader, problem_in(reader, 0, 0, ""),
                    "a matrix of " + std::to_string(names.names.size()) + " rows",
                    std::to_string(reader.network.actors.size()) + ", one an actor",
                    "give the covariate the actors of the network");
        return places;
    }
    for (std::size_t row = 0; row < names.names.size(); ++row) {
        const int place =
            names.named ? reader.actors.find(names.names[row]) : static_cast<int>(row);
        if (place < 0 && reader.result.problems.size() < kMostProblems) {
            add_problem(reader, problem_in(reader, 0, 0, "actor `" + names.names[row] + "`"),
                        "an actor that the network does not have", "an actor of the network",
                        "mend the name, or take row and column out");
        }
        places.push_back(place);
    }
    return places;
}

// The column of the file, in characters, at which a cell of a line of it stands.
int column_in_line(const TextFile& file, char delimiter, int line, std::size_t field) {
    CsvScanner scanner(file.text, delimiter);
    while (scanner.next()) {
        if (scanner.line() == line) {
            return field < scanner.fields().size() ? scanner.column(field) : 0;
        }
    }
    return 0;
}

// `rows` are the file's rows of the network's actors, `lines` the lines of the file's rows.
void check_symmetric(CovariateReader& reader, const MatrixShape& shape,
                     const std::vector<int>& rows, const std::vector<int>& lines) {
    const FloatTable& values = reader.result.covariate.values;
    for (int i = 0; i < values.rows && !reader.network.directed; ++i) {
        for (int j = i + 1; j < values.columns; ++j) {
            if (values[i][j] == values[j][i]) {
                continue;
            }
            const int line = lines[static_cast<std::size_t>(rows[static_cast<std::size_t>(i)])];
            const auto field = static_cast<std::size_t>(rows[static_cast<std::size_t>(j)]) +
                               (shape.first_column ? 1 : 0);
            add_problem(
                reader,
                problem_in(reader, line, column_in_line(reader.file, shape.delimiter, line, field),
                           pair_text(reader, i, j)),
                number_text(decimal_of(values[i][j])) + " one way, " +
                    number_text(decimal_of(values[j][i])) + " the other",
                "a symmetric matrix, for the network is undirected",
                "give both cells the same value");
            return;
        }
    }
}

void read_matrix_covariate(CovariateReader& reader) {
    const int actors = static_cast<int>(reader.network.actors.size());
    FloatTable cells(actors, actors);
    std::vector<int> lines(static_cast<std::size_t>(actors), 0);
    const auto visit = [&](const MatrixCell& cell) {
        if (cell.row < actors) {
            lines[static_cast<std::size_t>(cell.row)] = cell.line;
        }
        if (cell.row < actors && cell.column < actors && cell.row != cell.column) {
            cells[cell.row][cell.column] = static_cast<float>(cell.value);
        }
        return true;
    };
    const MatrixShape shape = matrix_shape(reader.file);
    const MatrixNames names =
        read_matrix_cells(reader.file, shape, "write the value: a covariate has one for every pair",
                          visit, reader.result.problems);
    if (!reader.result.ok()) {
        return;
    }
    const std::vector<int> places = row_places(reader, names);
    if (!reader.result.ok()) {
        return;
    }
    FloatTable& values = reader.result.covariate.values;
    std::vector<int> rows(places.size());
    for (int i = 0; i < actors; ++i) {
        rows[static_cast<std::size_t>(places[static_cast<std::size_t>(i)])] = i;
        for (int j = 0; j < actors; ++j) {
            values[places[static_cast<std::size_t>(i)]][places[static_cast<std::size_t>(j)]] =
                cells[i][j];
        }
    }
    reader.result.notes.emplace_back(names.named ? "a matrix with names"
                                                 : "a matrix in the order of the actors");
    check_symmetric(reader, shape, rows, lines);
}

// Which pairs of a list have a value.
using Given = Table<char>;

bool read_pair(CovariateReader& reader, const CsvScanner& scanner, int& from, int& to) {
    from = reader.actors.find(scanner.fields()[0].text);
    to = reader.actors.find(scanner.fields()[1].text);
    for (std::size_t k = 0; k < 2; ++k) {
        if ((k == 0 ? from : to) < 0) {
            const std::string name(scanner.fields()[k].text);
            add_problem(
                reader,
                problem_in(reader, scanner.line(), scanner.column(k), "actor `" + name + "`"),
                "an actor that the network does not have", "an actor of the network",
                "mend the name, or delete the line");
        }
    }
    return from >= 0 && to >= 0;
}

void set_value(CovariateReader& reader, const CsvScanner& scanner, Given& given, int from, int to,
               double value) {
    FloatTable& values = reader.result.covariate.values;
    const auto number = static_cast<float>(value);
    if (given[from][to] != 0 && values[from][to] != number) {
        add_problem(reader, problem_in(reader, scanner.line(), 0, pair_text(reader, from, to)),
                    number_text(value) + ", and " + number_text(values[from][to]) + " before",
                    "one value a pair", "delete one of the two lines");
        return;
    }
    given[from][to] = 1;
    values[from][to] = number;
    if (!reader.network.directed) {
        given[to][from] = 1;
        values[to][from] = number;
    }
}

void read_list_line(CovariateReader& reader, const CsvScanner& scanner, Given& given) {
    if (scanner.fields().size() != 3) {
        add_problem(reader, problem_in(reader, scanner.line(), 0, ""),
                    std::to_string(scanner.fields().size()) + " columns",
                    "three columns (from, to, value)", "give every line the three");
        return;
    }
    const std::string text(scanner.fields()[2].text);
    const auto value = number_of(text);
    if (!value) {
        const bool comma = is_decimal_comma(text);
        add_problem(
            reader, problem_in(reader, scanner.line(), scanner.column(2), "value"),
            text.empty() ? "nothing" : shown_text(text) + (comma ? ", a decimal comma" : ""),
            comma ? "a decimal point" : "a number",
            comma ? "write decimals with a point" : "write the number");
        return;
    }
    int from = 0;
    int to = 0;
    if (read_pair(reader, scanner, from, to) && from != to) {
        set_value(reader, scanner, given, from, to, *value);
    }
}

void fill_missing(CovariateReader& reader, const Given& given) {
    FloatTable& values = reader.result.covariate.values;
    long long count = 0;
    std::string first;
    for (int i = 0; i < values.rows; ++i) {
        for (int j = 0; j < values.columns; ++j) {
            if (i != j && given[i][j] == 0) {
                first = count++ == 0 ? pair_text(reader, i, j) : first;
                values[i][j] = static_cast<float>(reader.missing.value_or(0.0));
            }
        }
    }
    count /= reader.network.directed ? 1 : 2;
    if (count == 0) {
        return;
    }
    if (reader.missing) {
        reader.result.notes.push_back(std::to_string(count) + " pairs not in the list take " +
                                      number_text(*reader.missing));
        return;
    }
    add_problem(
        reader, problem_in(reader, 0, 0, first),
        "no value for the pair, nor for " + std::to_string(count - 1) + " others",
        "a value for every pair",
        "add the lines; or say what the others are: " + toml_key(reader.result.covariate.name) +
            " = { file = \"...\", missing = 0 } under [covariates]");
}

// A head names no pair of actors and no number.
bool is_head(const CovariateReader& reader, const CsvScanner& scanner) {
    const std::vector<CsvField>& fields = scanner.fields();
    return fields.size() == 3 && !number_of(fields[2].text) &&
           reader.actors.find(fields[0].text) < 0 && reader.actors.find(fields[1].text) < 0;
}

void read_list_covariate(CovariateReader& reader, char delimiter) {
    const int actors = static_cast<int>(reader.network.actors.size());
    Given given(actors, actors);
    CsvScanner scanner(reader.file.text, delimiter);
    bool first = true;
    while (reader.result.problems.size() < kMostProblems && scanner.next()) {
        const bool head = first && is_head(reader, scanner);
        first = false;
        if (!head) {
            read_list_line(reader, scanner, given);
        }
    }
    if (scanner.unclosed()) {
        reader.result.problems.push_back(unclosed_quote(reader.file.path, scanner));
    }
    if (reader.result.ok()) {
        fill_missing(reader, given);
    }
}

// A list has three columns, two of them actors.
bool is_list(const CovariateReader& reader, char delimiter) {
    if (reader.network.actors.size() != 3) {
        return !looks_like_matrix(reader.file);
    }
    CsvScanner scanner(reader.file.text, delimiter);
    int known = 0;
    while (scanner.next()) {
        known += scanner.fields().size() == 3 &&
                         reader.actors.find(scanner.fields()[0].text) >= 0 &&
                         reader.actors.find(scanner.fields()[1].text) >= 0
                     ? 1
                     : 0;
    }
    return known > 0;
}

}  // namespace

CovariateFile read_covariate(const std::string& path, const std::string& name,
                             const StudyNetwork& network, std::optional<double> missing) {
    const TextFile file = read_text_file(path);
    const int actors = static_cast<int>(network.actors.size());
    CovariateFile result;
    result.covariate.name = name;
    result.problems = file.problems;
    if (!file.ok()) {
        return result;
    }
    result.covariate.values = FloatTable(actors, actors);
    CovariateReader reader{file, network, missing, result, {}};
    for (const std::string& actor : network.actors) {
        reader.actors.add(actor);
    }
    const char delimiter = guess_delimiter(file.text);
    if (is_list(reader, delimiter)) {
        read_list_covariate(reader, delimiter);
    } else {
        read_matrix_covariate(reader);
    }
    return result;
}
