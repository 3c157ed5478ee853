#include "formats/edge_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "formats/csv.h"
#include "study/names.h"

namespace {

constexpr int kSampleLines = 64;

using Row = std::vector<std::string>;

// The first lines, as text.
struct Sample {
    std::vector<Row> rows;
    int first_line = 0;
};

// What the sample says about the columns.
struct Layout {
    bool head = false;
    std::size_t columns = 2;
    std::string weight = "weight";
};

struct EdgeListReader {
    const TextFile& file;
    const EdgeListOptions& options;
    TieTable& table;
    Problems& problems;
    Layout layout;
    int other_weights = 0;  // that are not 1
    int first_other_line = 0;
    std::string first_other;
};

bool is_whole(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char each) { return each >= '0' && each <= '9'; });
}

// Single letters are not among them: they name actors as well.
bool is_head_word(const std::string& text) {
    constexpr std::array<const char*, 25> kWords = {
        "from",  "to",     "source", "target", "sender", "receiver", "ego",     "alter", "node1",
        "node2", "actor1", "actor2", "id1",    "id2",    "person1",  "person2", "src",   "dst",
        "tail",  "head",   "v1",     "v2",     "name1",  "name2",    "start"};
    return std::any_of(kWords.begin(), kWords.end(),
                       [&](const char* word) { return names_match(word, text); });
}

// Whether a text may name a column of numbers: it is none of them, nor one that is missing.
bool may_name_weights(const std::string& text) {
    return !number_of(text) && !is_decimal_comma(text) && !is_missing_text(text);
}

// Empty fields behind the second are trailing delimiters.
std::size_t used_fields(const std::vector<CsvField>& fields) {
    std::size_t count = fields.size();
    while (count > 2 && fields[count - 1].text.empty() && !fields[count - 1].quoted) {
        --count;
    }
    return count;
}

Sample take_sample(const TextFile& file, char delimiter) {
    Sample sample;
    CsvScanner scanner(file.text, delimiter);
    while (sample.rows.size() < kSampleLines && scanner.next()) {
        sample.first_line = sample.rows.empty() ? scanner.line() : sample.first_line;
        Row& row = sample.rows.emplace_back();
        for (std::size_t k = 0; k < used_fields(scanner.fields()); ++k) {
            row.emplace_back(scanner.fields()[k].text);
        }
    }
    return sample;
}

bool holds(const ActorList& actors, const std::string& name) {
    return std::find(actors.begin(), actors.end(), name) != actors.end();
}

// Whether every line behind the first, and there is one, passes.
template <class Test>
bool all_behind(const std::vector<Row>& rows, Test test) {
    return rows.size() > 1 && std::all_of(rows.begin() + 1, rows.end(), test);
}

bool guess_head(const std::vector<Row>& rows, const ActorList* nodes) {
    const Row& first = rows.front();
    if (first.size() < 2) {
        return false;
    }
    if (nodes != nullptr && rows.size() > 1 && rows[1].size() >= 2) {
        return !holds(*nodes, first[0]) && !holds(*nodes, first[1]) && holds(*nodes, rows[1][0]) &&
               holds(*nodes, rows[1][1]);
    }
    if (is_head_word(first[0]) && is_head_word(first[1])) {
        return true;
    }
    if (first.size() > 2 && may_name_weights(first[2]) &&
        all_behind(rows, [](const Row& row) { return row.size() > 2 && number_of(row[2]); })) {
        return true;
    }
    return !is_whole(first[0]) && !is_whole(first[1]) && all_behind(rows, [](const Row& row) {
        return row.size() >= 2 && is_whole(row[0]) && is_whole(row[1]);
    });
}

bool find_layout(const Sample& sample, EdgeListReader& reader) {
    if (sample.rows.empty()) {
        return true;
    }
    Layout& layout = reader.layout;
    layout.head = reader.options.head.value_or(guess_head(sample.rows, reader.options.nodes));
    const Row& first = sample.rows[layout.head && sample.rows.size() > 1 ? 1 : 0];
    layout.columns = first.size() == 3 ? 3 : 2;
    const Row& head = sample.rows.front();
    if (layout.head) {
        reader.table.notes.push_back("the first line was read as a head: " + head[0] +
                                     (head.size() > 1 ? ", " + head[1] : ""));
        if (head.size() > 2) {
            layout.weight = head[2];
        }
    }
    return true;
}

void add_problem(EdgeListReader& reader, const CsvScanner& scanner, std::size_t field,
                 std::string field_name, std::string found, std::string expected,
                 std::string mend) {
    reader.problems.push_back({.file = reader.file.path,
                               .line = scanner.line(),
                               .column = scanner.column(field),
                               .field = std::move(field_name),
                               .found = std::move(found),
                               .expected = std::move(expected),
                               .mend = std::move(mend)});
}

// False, with a problem, when the line has not as many columns as the first.
bool check_columns(EdgeListReader& reader, const CsvScanner& scanner, std::size_t count) {
    if (count == reader.layout.columns) {
        return true;
    }
    std::string mend = "delete what is behind the second column; a matrix is square";
    if (count < 2) {
        mend = "write two actors a line; actors without ties stand in the nodes file";
    } else if (count <= 3) {
        mend = "give every line the same columns";
    }
    const bool weighted = reader.layout.columns == 3;
    add_problem(reader, scanner, count > 3 ? 3 : 0, "",
                std::to_string(count) + (count == 1 ? " column" : " columns"),
                weighted ? "three columns (from, to, " + reader.layout.weight + ")"
                         : "two columns (from, to)",
                std::move(mend));
    return false;
}

bool check_name(EdgeListReader& reader, const CsvScanner& scanner, std::size_t field) {
    if (!scanner.fields()[field].text.empty()) {
        return true;
    }
    add_problem(reader, scanner, field, field == 0 ? "from" : "to", "nothing", "an actor's name",
                "write the name, or delete the line; actors without ties stand in the nodes file");
    return false;
}

// Whether the weight makes a tie; none with a problem when it is no number.
std::optional<bool> read_weight(EdgeListReader& reader, const CsvScanner& scanner) {
    const std::string text(scanner.fields()[2].text);
    const std::optional<double> weight = number_of(text);
    if (!weight) {
        const bool comma = is_decimal_comma(text);
        add_problem(reader, scanner, 2, "column `" + reader.layout.weight + "`",
                    shown_text(text) + (comma ? ", a decimal comma" : ""),
                    comma ? "a decimal point" : "a number, the tie's weight",
                    comma ? "write decimals with a point"
                          : "give a number, or delete the column; one file holds one relation");
        return std::nullopt;
    }
    if (std::fabs(*weight - 1.0) > 0.0 && reader.other_weights++ == 0) {
        reader.first_other_line = scanner.line();
        reader.first_other = text;
    }
    return !reader.options.threshold || *weight >= *reader.options.threshold;
}

void read_line(EdgeListReader& reader, const CsvScanner& scanner) {
    const std::size_t count = used_fields(scanner.fields());
    if (!check_columns(reader, scanner, count) || !check_name(reader, scanner, 0) ||
        !check_name(reader, scanner, 1)) {
        return;
    }
    bool tied = true;
    if (count == 3) {
        const std::optional<bool> weight = read_weight(reader, scanner);
        if (!weight) {
            return;
        }
        tied = *weight;
    }
    const int from = reader.table.actors.add(scanner.fields()[0].text);
    const int to = reader.table.actors.add(scanner.fields()[1].text);
    reader.table.ties.push_back({from, to, scanner.line(), tied});
}

void check_weights(EdgeListReader& reader) {
    if (reader.layout.columns != 3 || !reader.problems.empty()) {
        return;
    }
    if (reader.options.threshold) {
        reader.table.notes.push_back("column `" + reader.layout.weight + "`: weights of at least " +
                                     number_text(*reader.options.threshold) + " are ties");
    } else if (reader.other_weights == 0) {
        reader.table.notes.push_back("column `" + reader.layout.weight +
                                     "` is 1 throughout and was not needed");
    } else {
        reader.problems.push_back(
            {.file = reader.file.path,
             .line = reader.first_other_line,
             .field = "column `" + reader.layout.weight + "`",
             .found = "weights, such as " + reader.first_other,
             .expected = "ties that are there or not",
             .mend = "write `threshold = 1` under [network], or add --threshold 1: weights of at "
                     "least that are ties; or delete the column"});
    }
}

// A head whose words are not known as one is read as a tie: its two names come nowhere else.
void tell_lone_first_line(EdgeListReader& reader) {
    constexpr std::size_t kEnough = 3;
    const std::vector<FileTie>& ties = reader.table.ties;
    if (reader.layout.head || reader.options.head || reader.options.nodes != nullptr ||
        ties.size() < kEnough) {
        return;
    }
    const auto again = [first = ties.front()](const FileTie& tie) {
        return tie.from == first.from || tie.from == first.to || tie.to == first.from ||
               tie.to == first.to;
    };
    const std::string& from = reader.table.actors[ties.front().from];
    const std::string& to = reader.table.actors[ties.front().to];
    if (is_whole(from) || is_whole(to) || std::any_of(ties.begin() + 1, ties.end(), again)) {
        return;
    }
    reader.table.notes.push_back("the first line was read as a tie of `" + from + "` and `" + to +
                                 "`, who come nowhere else: if it is a head, write `head = true` "
                                 "under [network], or call the columns from and to");
}

}  // namespace

void read_edge_list(const TextFile& file, const EdgeListOptions& options, TieTable& table,
                    Problems& problems) {
    const char delimiter = guess_delimiter(file.text);
    EdgeListReader reader{file, options, table, problems, {}, 0, 0, {}};
    find_layout(take_sample(file, delimiter), reader);
    CsvScanner scanner(file.text, delimiter);
    bool skip = reader.layout.head;
    while (problems.size() < kMostProblems && table.actors.size() <= kMostActors &&
           scanner.next()) {
        if (!skip) {
            read_line(reader, scanner);
            // Where already the first line has other columns, the rest need not be told of.
            if (table.ties.empty() && used_fields(scanner.fields()) != reader.layout.columns) {
                break;
            }
        }
        skip = false;
    }
    if (scanner.unclosed()) {
        problems.push_back(unclosed_quote(file.path, scanner));
    }
    check_weights(reader);
    tell_lone_first_line(reader);
}
