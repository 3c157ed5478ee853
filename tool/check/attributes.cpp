#include <algorithm>
#include <cmath>

#include "check/checks.h"
#include "check/file_text.h"
#include "check/files.h"
#include "check/numbers.h"

namespace {

struct AttributeFile {
    AttributeGroup group;
    const char* expected;  // of one value
};

constexpr AttributeFile kFiles[] = {
    {AttributeGroup::binary, "0, 1, or 9999 for a missing value"},
    {AttributeGroup::continuous, "a number, or 9999 for a missing value"},
    {AttributeGroup::categorical, "a whole number, the code of a category"},
};

// What one check of a file works with.
struct Subject {
    const SetupView& view;
    const AttributeFile& kind;
    const std::string& path;
    int actors;
    int count;
    SetupKey key() const { return {SetupId::group_file, kind.group}; }
    Where where(int line) const { return {path, line, name_of(view, key())}; }
    std::string shape() const { return counted(actors, "row") + " of " + counted(count, "value"); }
};

// The names of the first line, each ended by a comma or the line's end.
std::vector<std::string> names_of_line(const std::string& line) {
    std::vector<std::string> names = {""};
    for (const char character : line) {
        if (character == ',') {
            names.emplace_back();
        } else {
            names.back().push_back(character);
        }
    }
    if (names.back().empty() || names.back() == "\r") {
        names.pop_back();
    }
    return names;
}

bool all_numbers(const std::vector<std::string>& names) {
    return !names.empty() && std::all_of(names.begin(), names.end(), [](const std::string& name) {
        return real_word(name).whole_word;
    });
}

// False when the values cannot be found because the number of names is wrong.
bool check_name_count(const Subject& subject, const std::vector<std::string>& names,
                      Findings& findings) {
    const auto found = static_cast<int>(names.size());
    if (found == subject.count) {
        return true;
    }
    std::string mend =
        "end each name with a comma or the line's end, and make the count in the "
        "setup file agree: it says " +
        std::to_string(subject.count);
    const std::string line = line_of_file(subject.path, 1);
    if (found == 1 && count_words(line) == subject.count) {
        mend = "separate the names by commas, not by blanks";
    } else if (all_numbers(names) || count_words(line) == 0) {
        mend = "begin the file with a line of names, separated by commas";
    }
    add_error(findings, subject.where(1),
              counted(found, "name") + " on the first line: " + quoted(line),
              counted(subject.count, "name"), mend);
    return false;
}

void check_names(const Subject& subject, const std::vector<std::string>& names,
                 Findings& findings) {
    for (std::size_t k = 0; k < names.size(); ++k) {
        const std::string& name = names[k];
        if (std::find(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(k), name) !=
            names.begin() + static_cast<std::ptrdiff_t>(k)) {
            add_warning(findings, subject.where(1), "the name " + quoted(name) + " twice",
                        "a name of its own for each attribute",
                        "rename one: results tell effects apart by name");
        } else if (name.empty() || std::any_of(name.begin(), name.end(), is_blank)) {
            add_warning(findings, subject.where(1), "the name " + quoted(name),
                        "a name without blanks",
                        name.ends_with('\r')
                            ? "save the file with Unix line ends: the carriage return is kept as "
                              "part of the name"
                            : "remove the blanks or write underscores: the name goes into every "
                              "table as it stands, and columns and syntax files break at blanks");
        }
    }
    if (all_numbers(names)) {
        add_warning(findings, subject.where(1), "numbers for names", "a line of names",
                    "begin the file with a line of names; its first line is never read as values");
    }
}

void check_mark(const Subject& subject, Findings& findings) {
    if (const auto trouble = foreign_encoding(line_of_file(subject.path, 1))) {
        add_warning(findings, subject.where(trouble->line), trouble->found, "plain text",
                    trouble->mend + ": the mark becomes part of the first name");
    }
}

// The first line of values that does not hold one value per attribute; 0 when all do.
int odd_line(const Subject& subject) {
    const std::string text = bytes_of_file(subject.path);
    int number = 1;
    std::size_t begin = text.find('\n');
    while (begin != std::string::npos && begin + 1 < text.size()) {
        ++number;
        const std::size_t end = text.find('\n', begin + 1);
        const int words =
            count_words(text.substr(begin + 1, end == std::string::npos ? end : end - begin - 1));
        if (words != 0 && words != subject.count) {
            return number;
        }
        begin = end;
    }
    return 0;
}

std::string odd_line_text(const Subject& subject) {
    const int line = odd_line(subject);
    return line == 0 ? ""
                     : "; line " + std::to_string(line) + " holds " +
                           counted(count_words(line_of_file(subject.path, line)), "value");
}

// Reads the values as a run does.
NumberBlock<double> read_values(const Subject& subject, TextReader& reader) {
    const long long wanted = static_cast<long long>(subject.actors) * subject.count;
    if (subject.kind.group == AttributeGroup::continuous) {
        const auto block = read_numbers<float>(reader, subject.path, wanted, reader_float);
        return {{block.values.begin(), block.values.end()}, block.end, block.begin};
    }
    const auto block = read_numbers<int>(reader, subject.path, wanted, reader_int);
    return {{block.values.begin(), block.values.end()}, block.end, block.begin};
}

// What to write in the place of a word that is no value.
std::string mend_word(const Subject& subject, const std::string& word) {
    const bool categorical = subject.kind.group == AttributeGroup::categorical;
    if (stands_for_missing(word)) {
        const long long count = count_missing(bytes_of_file(subject.path));
        return (count > 1 ? "write a number for each of the " + counted(count, "missing value")
                          : std::string("write a number")) +
               (categorical ? ": a category has no code for missing values, so give each unknown "
                              "actor a code that no other has"
                            : ": 9999 stands for a missing value");
    }
    if (const char digit = digit_of_truth(word); digit != 0) {
        return "write " + std::string(1, digit) + " for " + quoted(word);
    }
    if (!word.empty() && (word[0] == '.' || word[0] == ',')) {
        return subject.kind.group == AttributeGroup::continuous
                   ? "write a decimal point, and blanks between values"
                   : "write whole numbers, with blanks between them";
    }
    return categorical ? "write the code of a category there"
                       : "write a number there; 9999 stands for a missing value";
}

void report_break(const Subject& subject, const Breakoff& end, Findings& findings) {
    const Where where = subject.where(end.place.line);
    if (end.at_end) {
        const std::optional<OddRow> odd =
            first_odd_row(bytes_of_file(subject.path), 2, subject.count, 0);
        add_error(findings, odd ? subject.where(odd->line) : where,
                  "the end of the file after " + counted(end.index, "value") +
                      (odd ? "; " + describe_odd_row(*odd, "value") : odd_line_text(subject)),
                  subject.shape(),
                  "write the missing " + counted(end.unread, "value") +
                      ", or correct the counts in the setup file");
        return;
    }
    const std::string& word = end.place.word;
    const std::string what = end.unread > 1 ? "this and " + counted(end.unread - 1, "more value") +
                                                  " cannot be read and stay 0"
                                            : std::string("it cannot be read and stays 0");
    add_error(findings, where,
              quoted(word) + " where value " + std::to_string(end.index % subject.count + 1) +
                  " of actor " + std::to_string(end.index / subject.count + 1) + " is read; " +
                  what,
              subject.kind.expected, mend_word(subject, word));
}

bool is_strange(const Subject& subject, double value) {
    return subject.kind.group == AttributeGroup::binary
               ? value != 0.0 && value != 1.0 && value != kMissing
               : !std::isfinite(value);
}

void check_values(const Subject& subject, const std::vector<double>& values, Findings& findings) {
    const auto strange = [&subject](double value) { return is_strange(subject, value); };
    const auto first = std::find_if(values.begin(), values.end(), strange);
    if (first == values.end()) {
        return;
    }
    const auto place = first - values.begin();
    const auto more = std::count_if(values.begin(), values.end(), strange) - 1;
    const auto actor = place / subject.count + 1;
    // One row a line is the rule; where it is not kept, no line is told.
    const int line = odd_line(subject) == 0 ? static_cast<int>(actor) + 1 : 0;
    add_warning(findings, subject.where(line),
                (std::isfinite(*first) ? std::to_string(static_cast<int>(*first))
                                       : "a value that is not finite") +
                    " for actor " + std::to_string(actor) +
                    (more > 0 ? " and " + counted(more, "more such value") : ""),
                subject.kind.expected, "correct the value; it is used as it stands");
}

bool any_effect_selected(const Subject& subject, int attribute) {
    const AttributeSelection& chosen = group_of(subject.view.setup.selection, subject.kind.group);
    return std::any_of(chosen.choices.begin(), chosen.choices.end(), [attribute](const auto& row) {
        return row[static_cast<std::size_t>(attribute)].flag == 1;
    });
}

// An attribute that is the same for everyone says nothing that ties alone do not say.
void check_variation(const Subject& subject, const std::vector<std::string>& names,
                     const std::vector<double>& values, Findings& findings) {
    for (int attribute = 0; attribute < subject.count; ++attribute) {
        const auto value = [&](int actor) {
            return values[static_cast<std::size_t>(actor) *
                              static_cast<std::size_t>(subject.count) +
                          static_cast<std::size_t>(attribute)];
        };
        bool varies = false;
        for (int actor = 1; actor < subject.actors; ++actor) {
            varies = varies || value(actor) != value(0);
        }
        if (!varies && any_effect_selected(subject, attribute)) {
            add_warning(
                findings, subject.where(0),
                quoted(names[static_cast<std::size_t>(attribute)]) + " is the same for all actors",
                "values that differ",
                "leave its effects out: they are always 0 or repeat a tie effect, and an "
                "estimation with them is degenerate");
        }
    }
}

// Values beyond those of the actors: the row that holds too many has moved all behind it.
void report_surplus(const Subject& subject, long long surplus, Findings& findings) {
    const std::optional<OddRow> odd =
        first_odd_row(bytes_of_file(subject.path), 2, subject.count, 0);
    add_error(findings, subject.where(odd ? odd->line : 0),
              counted(surplus, "value") + " more than are read" +
                  (odd ? "; " + describe_odd_row(*odd, "value") : odd_line_text(subject)),
              subject.shape(), "remove what is too much, or correct the counts in the setup file");
}

void check_values_file(const Subject& subject, Findings& findings) {
    const std::vector<std::string> names = names_of_line(line_of_file(subject.path, 1));
    if (!check_name_count(subject, names, findings)) {
        return;
    }
    check_names(subject, names, findings);
    check_mark(subject, findings);
    TextReader reader = reader_open(subject.path);
    reader_line(reader);
    const NumberBlock<double> block = read_values(subject, reader);
    if (!block.complete()) {
        report_break(subject, block.end, findings);
        return;
    }
    check_values(subject, block.values, findings);
    check_variation(subject, names, block.values, findings);
    if (const long long surplus = count_surplus(reader); surplus > 0) {
        report_surplus(subject, surplus, findings);
    } else if (!reader_at_end(reader)) {
        const TextPlace place = place_in_file(subject.path, reader_offset(reader));
        add_warning(findings, subject.where(place.line),
                    quoted(place.word) + " behind the last value", subject.shape(),
                    "remove it; it is ignored");
    } else if (const int line = odd_line(subject); line != 0) {
        add_warning(
            findings, subject.where(line),
            counted(count_words(line_of_file(subject.path, line)), "value") + " on the line",
            subject.shape(), "write one row per actor; values are read across line ends");
    }
}

}  // namespace

void check_attributes(const SetupView& view, Findings& findings) {
    for (const AttributeFile& kind : kFiles) {
        const AttributeSelection& chosen = group_of(view.setup.selection, kind.group);
        const Subject subject = {view, kind, chosen.path, view.setup.settings.actor_count,
                                 chosen.attributes};
        if (find_item(view, subject.key()) == nullptr) {
            continue;
        }
        const bool readable =
            check_readable(view, subject.key(), chosen.path,
                           "a file with a line of " + counted(chosen.attributes, "name") + " and " +
                               subject.shape(),
                           findings);
        if (readable && has_actor_count(view) && chosen.attributes > 0) {
            check_values_file(subject, findings);
        }
    }
}
