#include "formats/dl_file.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "study/names.h"

namespace {

struct Word {
    std::string text;
    int line = 0;
    int column = 0;
    bool quoted = false;
};

// The words of a text, between white space, commas and, in the head, "=" and ":".
class WordScanner {
  public:
    explicit WordScanner(std::string_view text) : text_(text) {}

    // Empty, and not quoted, at the end.
    Word next(bool head) {
        skip(head);
        Word word{.text = "", .line = line_, .column = static_cast<int>(at_ - line_begin_) + 1};
        if (at_ < text_.size() && text_[at_] == '"') {
            const std::size_t close = text_.find_first_of("\"\n", at_ + 1);
            const std::size_t end = close == std::string_view::npos ? text_.size() : close;
            word.text = text_.substr(at_ + 1, end - at_ - 1);
            word.quoted = true;
            at_ = end < text_.size() && text_[end] == '"' ? end + 1 : end;
            return word;
        }
        while (at_ < text_.size() && !separates(text_[at_], head)) {
            word.text += text_[at_++];
        }
        if (head) {
            end_key();
        }
        return word;
    }

    Word peek(bool head) {
        const WordScanner before = *this;
        Word word = next(head);
        *this = before;
        return word;
    }

  private:
    static bool separates(char each, bool head) {
        return each == ' ' || each == '\t' || each == '\r' || each == '\n' || each == ',' ||
               (head && (each == '=' || each == ':'));
    }
    // The sign behind a key belongs to it.
    void end_key() {
        const std::size_t sign = text_.find_first_not_of(" \t", at_);
        if (sign != std::string_view::npos && (text_[sign] == '=' || text_[sign] == ':')) {
            at_ = sign + 1;
        }
    }
    void skip(bool head) {
        while (at_ < text_.size() && separates(text_[at_], head)) {
            if (text_[at_] == '\n') {
                ++line_;
                line_begin_ = at_ + 1;
            }
            ++at_;
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_begin_ = 0;
    int line_ = 1;
};

bool at_end(const Word& word) { return word.text.empty() && !word.quoted; }

struct DlReader {
    const TextFile& file;
    std::optional<double> threshold;
    TieTable& table;
    Problems& problems;
    WordScanner words;
    int actors = 0;
    std::string format = "fullmatrix";
    bool embedded = false;
    bool diagonal = true;
    std::vector<std::string> labels;
};

void add_problem(DlReader& reader, const Word& word, std::string found, std::string expected,
                 std::string mend) {
    reader.problems.push_back({.file = reader.file.path,
                               .line = word.line,
                               .column = word.column,
                               .found = std::move(found),
                               .expected = std::move(expected),
                               .mend = std::move(mend)});
}

std::string found_word(const Word& word) {
    return at_end(word) ? "the end of the file" : shown_text(word.text);
}

// A whole number from 1 to kMostActors; 0 with a problem when there is none.
int read_count(DlReader& reader, const std::string& key) {
    const Word word = reader.words.next(true);
    int value = 0;
    const char* end = word.text.data() + word.text.size();
    const auto [stop, error] = std::from_chars(word.text.data(), end, value);
    if (error != std::errc() || stop != end || value < 1 || value > kMostActors) {
        add_problem(reader, word, found_word(word),
                    "a number from 1 to " + std::to_string(kMostActors) + " behind `" + key + "`",
                    "write the number of actors");
        return 0;
    }
    return value;
}

void read_labels(DlReader& reader, bool keep) {
    if (name_key(reader.words.peek(true).text) == "embedded") {
        reader.words.next(true);
        reader.embedded = true;
        return;
    }
    for (int k = 0; k < reader.actors && reader.problems.empty(); ++k) {
        const Word label = reader.words.next(false);
        if (at_end(label)) {
            add_problem(reader, label, "the end of the file", "a label for every actor",
                        "write one label for each of the " + std::to_string(reader.actors));
        } else if (keep) {
            reader.labels.push_back(label.text);
        }
    }
}

void read_square(DlReader& reader, const std::string& key) {
    const int count = read_count(reader, key);
    if (reader.actors > 0 && count > 0 && count != reader.actors) {
        add_problem(reader, reader.words.peek(true), "data of two modes", "a square matrix",
                    "give a network of one set of actors");
    }
    reader.actors = count;
}

void read_key(DlReader& reader, const Word& key) {
    const std::string name = name_key(key.text);
    if (name == "n" || name == "nr" || name == "nc") {
        read_square(reader, key.text);
    } else if (name == "nm") {
        const Word count = reader.words.next(true);
        if (count.text != "1") {
            add_problem(reader, count, found_word(count) + " matrices", "one",
                        "give each network a file of its own");
        }
    } else if (name == "format") {
        reader.format = name_key(reader.words.next(true).text);
    } else if (name == "diagonal") {
        reader.diagonal = name_key(reader.words.next(true).text) != "absent";
    } else if (name == "labels") {
        read_labels(reader, reader.labels.empty());
    } else if (name == "row" || name == "col" || name == "column") {
        if (name_key(reader.words.peek(true).text) == "labels") {
            reader.words.next(true);
        }
        read_labels(reader, name == "row");
    } else {
        add_problem(reader, key, found_word(key), "`n`, `format`, `labels` or `data`",
                    "mend the head of the file; it begins with `DL n=...`");
    }
}

void read_head(DlReader& reader) {
    const Word first = reader.words.next(true);
    if (name_key(first.text) != "dl") {
        add_problem(reader, first, found_word(first), "`DL`",
                    "begin the file with `DL n=...`, or say under [network] what it is: format = "
                    "\"...\"; `ovri new FILE --format FORMAT` writes a model file that does");
        return;
    }
    while (reader.problems.empty()) {
        const Word key = reader.words.next(true);
        if (name_key(key.text) == "data") {
            break;
        }
        read_key(reader, key);
    }
    if (reader.problems.empty() && reader.actors == 0) {
        add_problem(reader, first, "no number of actors", "`n=...`", "write it behind `DL`");
    }
}

// False when reading must end.
bool add_value(DlReader& reader, const Word& word, int from, int to, double value) {
    if (!reader.threshold && value != 0.0 && value != 1.0 && from != to) {
        add_problem(reader, word, "the value " + word.text, "0 or 1",
                    "write `threshold = 1` under [network], or add --threshold 1: values of at "
                    "least that are ties");
        return false;
    }
    if (reader.threshold ? value >= *reader.threshold : value != 0.0) {
        reader.table.ties.push_back({from, to, word.line, true});
    }
    return true;
}

bool read_cell(DlReader& reader, int from, int to) {
    const Word word = reader.words.next(false);
    const auto value = number_of(word.text);
    if (!value) {
        add_problem(
            reader, word, found_word(word),
            "a number: row " + std::to_string(from + 1) + ", column " + std::to_string(to + 1),
            "give every row " + std::to_string(reader.actors) + " numbers");
        return false;
    }
    return add_value(reader, word, from, to, *value);
}

void read_matrix(DlReader& reader) {
    const bool lower = reader.format == "lowerhalf";
    const bool upper = reader.format == "upperhalf";
    reader.table.whole = !lower && !upper;
    if (lower || upper) {
        reader.table.directed = false;
    }
    if (reader.embedded) {
        for (int k = 0; k < reader.actors; ++k) {
            reader.labels.push_back(reader.words.next(false).text);
        }
    }
    for (int i = 0; i < reader.actors; ++i) {
        if (reader.embedded) {
            reader.words.next(false);
        }
        const int first = upper ? i : 0;
        const int last = lower ? i : reader.actors - 1;
        for (int j = first; j <= last; ++j) {
            if ((i != j || reader.diagonal) && !read_cell(reader, i, j)) {
                return;
            }
        }
    }
    const Word rest = reader.words.next(false);
    if (!at_end(rest)) {
        add_problem(reader, rest, "more numbers than cells",
                    std::to_string(reader.actors) + " rows of as many numbers",
                    "mend `n`, or the data");
    }
}

// An actor of a list: a label, else a number from 1; -1 with a problem.
int find_actor(DlReader& reader, NameTable& names, const Word& word) {
    const int labelled = names.find(word.text);
    if (labelled >= 0) {
        return labelled;
    }
    if (reader.embedded && names.size() < reader.actors) {
        return names.add(word.text);
    }
    const auto number = number_of(word.text);
    if (number && *number >= 1 && *number <= reader.actors &&
        *number == static_cast<int>(*number)) {
        return static_cast<int>(*number) - 1;
    }
    add_problem(reader, word, found_word(word), "an actor: a label or a number up to `n`",
                "mend the name, or `n`");
    return -1;
}

// Words of one line of a list.
std::vector<Word> read_line(DlReader& reader) {
    std::vector<Word> line;
    while (true) {
        const Word word = reader.words.peek(false);
        if (at_end(word) || (!line.empty() && word.line != line.front().line)) {
            return line;
        }
        line.push_back(reader.words.next(false));
    }
}

bool read_tie_line(DlReader& reader, NameTable& names, const std::vector<Word>& line) {
    if (line.size() < 2 || line.size() > 3) {
        add_problem(reader, line[0], std::to_string(line.size()) + " words on a line",
                    "from, to and perhaps a value", "mend the line");
        return false;
    }
    const auto value = line.size() == 3 ? number_of(line[2].text) : 1.0;
    if (!value) {
        add_problem(reader, line[2], found_word(line[2]), "a number", "mend the value");
        return false;
    }
    const int from = find_actor(reader, names, line[0]);
    const int to = from < 0 ? -1 : find_actor(reader, names, line[1]);
    return to >= 0 && add_value(reader, line.back(), from, to, *value);
}

bool read_neighbour_line(DlReader& reader, NameTable& names, const std::vector<Word>& line) {
    const int from = find_actor(reader, names, line[0]);
    for (std::size_t k = 1; k < line.size() && from >= 0; ++k) {
        const int to = find_actor(reader, names, line[k]);
        if (to < 0) {
            return false;
        }
        reader.table.ties.push_back({from, to, line[k].line, true});
    }
    return from >= 0;
}

void read_list(DlReader& reader, bool neighbours) {
    NameTable names;
    for (const std::string& label : reader.labels) {
        names.add(label);
    }
    bool reading = true;
    while (reading) {
        const std::vector<Word> line = read_line(reader);
        reading = !line.empty() && (neighbours ? read_neighbour_line(reader, names, line)
                                               : read_tie_line(reader, names, line));
    }
    if (reader.embedded) {
        for (int k = 0; k < names.size(); ++k) {
            reader.labels.push_back(names[k]);
        }
    }
}

void read_data(DlReader& reader) {
    const std::string& format = reader.format;
    if (format == "fullmatrix" || format == "fm" || format == "lowerhalf" ||
        format == "upperhalf") {
        read_matrix(reader);
    } else if (format == "edgelist1" || format == "edgelist" || format == "el1") {
        read_list(reader, false);
    } else if (format == "nodelist1" || format == "nodelist" || format == "nl1") {
        read_list(reader, true);
    } else {
        add_problem(reader, {}, "the form `" + format + "`",
                    "fullmatrix, lowerhalf, upperhalf, edgelist1 or nodelist1",
                    "export the network in one of these forms");
    }
}

void name_actors(DlReader& reader) {
    reader.table.named = !reader.labels.empty();
    for (int k = 0; k < reader.actors; ++k) {
        const auto at = static_cast<std::size_t>(k);
        const std::string name =
            at < reader.labels.size() ? reader.labels[at] : std::to_string(k + 1);
        if (reader.table.actors.add(name) != k) {
            add_problem(reader, {}, "the label " + shown_text(name) + " twice",
                        "a name for every actor, each once", "mend the labels");
            return;
        }
    }
}

}  // namespace

void read_dl_file(const TextFile& file, std::optional<double> threshold, TieTable& table,
                  Problems& problems) {
    DlReader reader{file, threshold,    table, problems, WordScanner(file.text),
                    0,    "fullmatrix", false, true,     {}};
    read_head(reader);
    if (problems.empty()) {
        read_data(reader);
    }
    if (problems.empty()) {
        name_actors(reader);
    }
}
