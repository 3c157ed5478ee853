#include "formats/nodes_table.h"

#include <algorithm>

#include "formats/csv.h"

namespace {

void add_file_problem(NodesFile& nodes, const std::string& file, const CsvScanner& scanner,
                      std::size_t field, std::string about, std::string found, std::string expected,
                      std::string mend) {
    nodes.problems.push_back({.file = file,
                              .line = scanner.line(),
                              .column = scanner.column(field),
                              .field = std::move(about),
                              .found = std::move(found),
                              .expected = std::move(expected),
                              .mend = std::move(mend)});
}

// Fields without the empty ones that trailing delimiters make.
std::size_t used_fields(const CsvScanner& scanner, std::size_t columns) {
    std::size_t count = scanner.fields().size();
    while (count > columns && scanner.fields()[count - 1].text.empty()) {
        --count;
    }
    return count;
}

void read_head(const std::string& file, const CsvScanner& scanner, NodesTable& table,
               NodesFile& nodes) {
    const std::size_t count = used_fields(scanner, 1);
    std::vector<std::string> names;
    for (std::size_t k = 0; k < count; ++k) {
        const std::string name(scanner.fields()[k].text);
        if (k > 0 && name.empty()) {
            add_file_problem(nodes, file, scanner, k, "column " + std::to_string(k + 1), "no name",
                             "a name for every column", "write a name into the head line");
        } else if (std::find(names.begin(), names.end(), name) != names.end()) {
            add_file_problem(nodes, file, scanner, k, "column `" + name + "`", "the name once more",
                             "a name for every column, each once", "rename one of the two");
        }
        names.push_back(name);
    }
    table.actors.name = names.empty() ? "" : names[0];
    for (std::size_t k = 1; k < names.size(); ++k) {
        table.columns.push_back({names[k], {}});
    }
}

void read_row(const std::string& file, const CsvScanner& scanner, NameTable& seen,
              NodesTable& table, NodesFile& nodes) {
    const std::size_t columns = table.columns.size() + 1;
    const std::size_t count = used_fields(scanner, columns);
    const std::string name(scanner.fields()[0].text);
    if (count != columns) {
        add_file_problem(nodes, file, scanner, 0, "actor `" + name + "`",
                         std::to_string(count) + (count == 1 ? " column" : " columns"),
                         std::to_string(columns) + ", as in the head line",
                         count > columns
                             ? "put a text that holds a comma into quotation marks, and "
                               "write decimals with a point"
                             : "give the row as many cells as the head line");
        return;
    }
    if (name.empty() || seen.find(name) >= 0) {
        const int first = seen.find(name);
        const std::string before =
            first < 0
                ? ""
                : " (first on line " +
                      std::to_string(table.actors.cells[static_cast<std::size_t>(first)].line) +
                      ")";
        add_file_problem(nodes, file, scanner, 0, name.empty() ? "actor" : "actor `" + name + "`",
                         name.empty() ? "no name" : "the actor once more" + before,
                         "one row an actor",
                         name.empty() ? "write the name" : "delete one of the two");
        return;
    }
    seen.add(name);
    table.actors.cells.push_back({name, scanner.line(), scanner.column(0)});
    for (std::size_t k = 1; k < columns; ++k) {
        const std::string_view text = scanner.fields()[k].text;
        // Only a cell that may be complained of needs its place to the character.
        const bool plain = number_of(text) && *number_of(text) != kMissingValue;
        table.columns[k - 1].cells.push_back(
            {std::string(text), scanner.line(), plain ? 0 : scanner.column(k)});
    }
}

}  // namespace

NodesTable read_nodes_table(const TextFile& file, NodesFile& nodes) {
    NodesTable table;
    NameTable seen;
    CsvScanner scanner(file.text, guess_delimiter(file.text, true));
    if (scanner.next()) {
        read_head(file.path, scanner, table, nodes);
    }
    while (nodes.problems.size() < kMostProblems && seen.size() <= kMostActors && scanner.next()) {
        read_row(file.path, scanner, seen, table, nodes);
    }
    if (scanner.unclosed()) {
        nodes.problems.push_back(unclosed_quote(file.path, scanner));
    }
    if (nodes.ok() && seen.size() > kMostActors) {
        add_file_problem(nodes, file.path, scanner, 0, "actors",
                         "more than " + std::to_string(kMostActors),
                         "a network of at most so many actors", "give a smaller network");
    }
    return table;
}
