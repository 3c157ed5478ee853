#include "formats/network_file.h"

#include <algorithm>
#include <array>

#include "base/named_value.h"
#include "formats/csv.h"
#include "formats/dl_file.h"
#include "formats/edge_list.h"
#include "formats/igraph_files.h"
#include "formats/matrix_file.h"
#include "study/names.h"

namespace {

constexpr std::array<NamedValue<NetworkFormat>, 7> kFormats = {
    {{NetworkFormat::edge_list, "edge-list"},
     {NetworkFormat::matrix, "matrix"},
     {NetworkFormat::pajek, "pajek"},
     {NetworkFormat::graphml, "graphml"},
     {NetworkFormat::gml, "gml"},
     {NetworkFormat::dl, "dl"},
     {NetworkFormat::dot, "dot"}}};

// Characters of a file that a guess of its format looks at.
constexpr std::size_t kHead = 4096;

bool starts_with(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && names_match(text.substr(0, word.size()), word);
}

NetworkFormat format_of_content(const TextFile& file) {
    const std::string_view head = without_space(std::string_view(file.text).substr(0, kHead));
    if (starts_with(head, "*vertices") || starts_with(head, "*network")) {
        return NetworkFormat::pajek;
    }
    if (starts_with(head, "<?xml") || starts_with(head, "<graphml")) {
        return NetworkFormat::graphml;
    }
    if (starts_with(head, "graph [") || starts_with(head, "graph[") ||
        starts_with(head, "creator ")) {
        return NetworkFormat::gml;
    }
    if (starts_with(head, "dl ") || starts_with(head, "dl\t") || starts_with(head, "dl\n")) {
        return NetworkFormat::dl;
    }
    return looks_like_matrix(file) ? NetworkFormat::matrix : NetworkFormat::edge_list;
}

// Numbers alone, two or three a line.
struct NumberRows {
    std::size_t lines = 0;
    std::size_t columns = 0;
    bool zeros_and_ones = true;

    bool square() const { return lines == columns; }
};

// None for other files, and for those that can be nothing but a list: more lines than columns, and
// other numbers than 0 and 1.
std::optional<NumberRows> number_rows(const TextFile& file) {
    constexpr std::size_t kWeighted = 3;
    NumberRows rows;
    CsvScanner scanner(file.text, guess_delimiter(file.text));
    while (scanner.next()) {
        const std::vector<CsvField>& fields = scanner.fields();
        rows.columns = rows.lines == 0 ? fields.size() : rows.columns;
        ++rows.lines;
        for (const CsvField& field : fields) {
            const std::optional<double> value = number_of(field.text);
            if (!value) {
                return std::nullopt;
            }
            rows.zeros_and_ones = rows.zeros_and_ones && (*value == 0.0 || *value == 1.0);
        }
        const bool list = rows.lines > rows.columns && !rows.zeros_and_ones;
        if (fields.size() != rows.columns || rows.columns > kWeighted || list) {
            return std::nullopt;
        }
    }
    return rows.lines > 1 && rows.columns > 1 ? std::optional(rows) : std::nullopt;
}

// None as well where a head, or the names of the actors, say that zeros and ones are a list.
std::optional<NumberRows> unclear_rows(const TextFile& file, const NetworkOptions& options,
                                       const ActorList* nodes) {
    const bool named =
        nodes != nullptr && std::find(nodes->begin(), nodes->end(), "0") != nodes->end();
    return options.head == true || named ? std::nullopt : number_rows(file);
}

std::string lines_of(const NumberRows& rows) {
    return std::to_string(rows.lines) + " lines of " + std::to_string(rows.columns);
}

// A list of zeros and ones would be one of two actors.
Problem neither_format(const TextFile& file, const NumberRows& rows) {
    return {.file = file.path,
            .found = lines_of(rows) + " zeros and ones",
            .expected = "a square matrix, one row and one column an actor",
            .mend =
                "give every actor a row and a column; if the lines are ties of two actors, 0 "
                "and 1, say under [network] what the file is: format = \"edge-list\"; `ovri "
                "new FILE --format edge-list` writes a model file that does"};
}

// How numbers were read that may be something else.
std::string guess_note(const NumberRows& rows, NetworkFormat format) {
    const bool matrix = format == NetworkFormat::matrix;
    const std::string ties = rows.columns == 2 ? "ties (from, to)" : "ties (from, to, weight)";
    const std::string other =
        network_format_name(matrix ? NetworkFormat::edge_list : NetworkFormat::matrix);
    return lines_of(rows) + " numbers were read as " + (matrix ? "a matrix" : ties) +
           "; if they are " + (matrix ? ties : "a matrix") + ", write `format = \"" + other +
           "\"` under [network], or give `ovri new` --format " + other;
}

TieTable read_ties(const TextFile& file, const NetworkOptions& options, const ActorList* nodes,
                   NetworkFormat format, Problems& problems) {
    TieTable table;
    switch (format) {
        case NetworkFormat::edge_list:
            read_edge_list(file, {options.threshold, options.head, nodes}, table, problems);
            break;
        case NetworkFormat::matrix:
            read_matrix_network(file, options.threshold, table, problems);
            break;
        case NetworkFormat::dl:
            read_dl_file(file, options.threshold, table, problems);
            break;
        case NetworkFormat::dot:
            problems.push_back({.file = file.path,
                                .field = "format",
                                .found = "`dot`, which is written and not read",
                                .expected = "one of " + listed_names(readable_formats()),
                                .mend = "export the network in one of these"});
            break;
        default:
            read_igraph_file(file, format, options.threshold, table, problems);
            break;
    }
    return table;
}

// The ties of a file whose format was guessed. What went wrong may be the guess.
TieTable read_guessed(const TextFile& file, const NetworkOptions& options, const ActorList* nodes,
                      NetworkFile& result) {
    const std::optional<NumberRows> rows = unclear_rows(file, options, nodes);
    if (rows && rows->zeros_and_ones && !rows->square()) {
        result.problems.push_back(neither_format(file, *rows));
        return {};
    }
    TieTable table = read_ties(file, options, nodes, result.format, result.problems);
    if (rows && !rows->zeros_and_ones && rows->square()) {
        const std::string note = guess_note(*rows, result.format);
        table.notes.insert(table.notes.begin(), note);
        if (!result.ok()) {
            result.problems.front().mend += "; " + note;
        }
    }
    return table;
}

// The direction: what the caller says, else the format, else what can be seen.
bool find_direction(const TextFile& file, const NetworkOptions& options, const TieTable& table,
                    NetworkFile& result) {
    if (options.directed) {
        return *options.directed;
    }
    if (table.directed) {
        return *table.directed;
    }
    const bool directed = looks_directed(table);
    if (table.whole || options.guess_direction) {
        const char* why =
            table.whole ? (directed ? "the matrix is not symmetric" : "the matrix is symmetric")
                        : (directed ? "some ties stand there in both orders, some not"
                                    : "no tie says otherwise");
        result.notes.push_back(std::string(directed ? "directed" : "undirected") + ": " + why);
        return directed;
    }
    result.problems.push_back(
        {.file = file.path,
         .field = "directed",
         .found = "an edge list, which does not say whether ties have a direction",
         .expected = "`directed = true` or `directed = false`",
         .mend = directed
                     ? "write `directed = true` under [network], or add --directed (some ties "
                       "stand there in both orders, some not)"
                     : "write `directed = false` under [network], or add --undirected; `true` or "
                       "--directed if from and to have a meaning"});
    return directed;
}

// A symmetric network given as directed is read as it is; told, for it is rarely meant.
void note_symmetric(const NetworkOptions& options, const TieTable& table, NetworkFile& result) {
    if (options.directed == true && table.whole && !table.ties.empty() && !looks_directed(table)) {
        result.notes.emplace_back("the matrix is symmetric although the network is directed");
    }
}

// The attributes in the order of the network's actors.
void take_columns(const TieTable& table, NetworkFile& result) {
    for (const ActorColumn& column : table.columns) {
        ActorColumn ordered{column.name, {}};
        for (const std::string& actor : result.network.actors) {
            const int place = table.actors.find(actor);
            ordered.values.push_back(place >= 0 ? column.values[static_cast<std::size_t>(place)]
                                                : "");
        }
        result.columns.push_back(std::move(ordered));
    }
}

}  // namespace

const char* network_format_name(NetworkFormat format) { return name_in(kFormats, format); }

std::optional<NetworkFormat> network_format_of(const std::string& name) {
    return value_in(kFormats, name, names_match);
}

std::vector<std::string> readable_formats() {
    std::vector<std::string> names;
    for (const NamedValue<NetworkFormat>& each : kFormats) {
        if (each.value != NetworkFormat::dot) {
            names.emplace_back(each.name);
        }
    }
    return names;
}

std::optional<NetworkFormat> format_of_path(const std::string& path) {
    struct Extension {
        const char* extension;
        NetworkFormat format;
    };
    constexpr std::array<Extension, 8> kExtensions = {{{"net", NetworkFormat::pajek},
                                                       {"paj", NetworkFormat::pajek},
                                                       {"graphml", NetworkFormat::graphml},
                                                       {"gml", NetworkFormat::gml},
                                                       {"dl", NetworkFormat::dl},
                                                       {"dot", NetworkFormat::dot},
                                                       {"gv", NetworkFormat::dot},
                                                       {"matrix", NetworkFormat::matrix}}};
    const std::string extension = path_extension(path);
    for (const Extension& each : kExtensions) {
        if (extension == each.extension) {
            return each.format;
        }
    }
    return std::nullopt;
}

bool looks_like_data(const std::string& path, std::string_view text) {
    const std::string extension = path_extension(path);
    const std::string_view head = without_space(text);
    if (head.empty() || head.front() == '[' || extension == "toml") {
        return false;
    }
    const bool named = extension == "csv" || extension == "tsv" || extension == "graphml" ||
                       extension == "gml" || extension == "dl" || extension == "matrix";
    // Pajek, XML, or a matrix of digits: no model and no setup file begins so.
    return named || head.front() == '*' || head.front() == '<' ||
           (head.front() >= '0' && head.front() <= '9');
}

NetworkFile read_network(const std::string& path, const NetworkOptions& options,
                         const ActorList* nodes) {
    return read_network(read_text_file(path), options, nodes);
}

NetworkFile read_network(const TextFile& file, const NetworkOptions& options,
                         const ActorList* nodes) {
    NetworkFile result;
    result.problems = file.problems;
    if (!file.ok()) {
        return result;
    }
    const auto by_path = options.format ? options.format : format_of_path(file.path);
    result.format = by_path ? *by_path : format_of_content(file);
    TieTable table = by_path ? read_ties(file, options, nodes, result.format, result.problems)
                             : read_guessed(file, options, nodes, result);
    if (!result.ok()) {
        return result;
    }
    result.notes = std::move(table.notes);
    const bool directed = find_direction(file, options, table, result);
    if (!result.ok()) {
        return result;
    }
    note_symmetric(options, table, result);
    AssembledNetwork made = assemble_network(file.path, table, directed, nodes, result.problems);
    result.network = std::move(made.network);
    result.counts = made.counts;
    take_columns(table, result);
    for (std::string& note : count_notes(result.counts, directed)) {
        result.notes.push_back(std::move(note));
    }
    return result;
}

std::vector<ActorTie> read_pairs(const std::string& path, const StudyNetwork& network,
                                 Problems& problems) {
    NetworkFile file = read_network(path, {.directed = network.directed}, &network.actors);
    problems.insert(problems.end(), file.problems.begin(), file.problems.end());
    return std::move(file.network.ties);
}
