#include "formats/column_values.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <unordered_map>

#include "formats/csv.h"
#include "formats/model_writer.h"

namespace {

std::string lower_case(const std::string& text) {
    std::string lower = text;
    for (char& each : lower) {
        each = each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
    }
    return lower;
}

// No text of a column that has one is empty.
using Words = std::array<std::string_view, 5>;

// What people write for no and yes in one language, in small letters.
struct NoAndYes {
    Words no;
    Words yes;
};
constexpr std::array<NoAndYes, 4> kNoAndYes = {
    {{{"no", "n", "false", "f"}, {"yes", "y", "true", "t"}},
     {{"nein", "nee", "nej", "nei", "n"}, {"ja", "j"}},
     {{"non", "n"}, {"oui", "o"}},
     {{"no", "n"}, {"si", "s\xC3\xAD", "s\xC3\xAC", "s"}}}};

bool is_among(const Words& words, const std::string& text) {
    return std::find(words.begin(), words.end(), lower_case(text)) != words.end();
}

bool is_no(const std::string& text) {
    return std::any_of(kNoAndYes.begin(), kNoAndYes.end(),
                       [&text](const NoAndYes& each) { return is_among(each.no, text); });
}

bool are_no_and_yes(const std::string& no, const std::string& yes) {
    return std::any_of(kNoAndYes.begin(), kNoAndYes.end(), [&](const NoAndYes& each) {
        return is_among(each.no, no) && is_among(each.yes, yes);
    });
}

bool is_number(const Cell& cell) { return number_of(cell.text).has_value(); }

// Numbers by value, texts by their characters, numbers first.
bool sorts_before(const std::string& a, const std::string& b) {
    const auto x = number_of(a);
    const auto y = number_of(b);
    if (x && y) {
        return *x < *y || (*x == *y && a < b);
    }
    return x.has_value() != y.has_value() ? x.has_value() : a < b;
}

std::vector<std::string> distinct_texts(const Column& column) {
    std::set<std::string> texts;
    for (const Cell& cell : column.cells) {
        if (!is_missing_text(cell.text)) {
            texts.insert(cell.text);
        }
    }
    std::vector<std::string> sorted(texts.begin(), texts.end());
    std::sort(sorted.begin(), sorted.end(), sorts_before);
    return sorted;
}

struct ColumnReader {
    const std::string& file;
    const NodesTable& table;
    const Column& column;
    bool keep_missing;
    NodesColumn result;
};

Problem problem_at(const ColumnReader& reader, std::size_t row) {
    const Cell& cell = reader.column.cells[row];
    return {.file = reader.file,
            .line = cell.line,
            .column = cell.column,
            .field = "actor `" + reader.table.actors.cells[row].text + "`, column `" +
                     reader.column.name + "`"};
}

void add_problem(ColumnReader& reader, std::size_t row, std::string found, std::string expected,
                 std::string mend) {
    if (reader.result.problems.size() < kMostProblems) {
        Problem problem = problem_at(reader, row);
        problem.found = std::move(found);
        problem.expected = std::move(expected);
        problem.mend = std::move(mend);
        reader.result.problems.push_back(std::move(problem));
    }
}

std::string missing_text(const std::string& text) {
    return text.empty() ? "a missing value (an empty cell)"
                        : "a missing value (" + shown_text(text) + ")";
}

void miss_value(ColumnReader& reader, std::size_t row) {
    const bool continuous = reader.result.attribute.type == AttributeType::continuous;
    const std::string& name = reader.column.name;
    if (continuous && !reader.keep_missing) {
        add_problem(
            reader, row, missing_text(reader.column.cells[row].text), "a number",
            "write the value; or take the actor out of both files; or keep it as missing "
            "(its pairs count as 0): " +
                toml_key(name) +
                " = { type = \"continuous\", missing = \"keep\" } under [attributes] of a model "
                "file");
    } else if (!continuous) {
        add_problem(reader, row, missing_text(reader.column.cells[row].text), "a value",
                    "write the value; or take the actor out of both files; or give the missing a "
                    "category of its own, such as `unknown`" +
                        std::string(reader.keep_missing
                                        ? " (missing = \"keep\" is for continuous attributes)"
                                        : ""));
    }
    reader.result.attribute.values.push_back(kMissingValue);
}

void not_a_number(ColumnReader& reader, std::size_t row) {
    const std::string& text = reader.column.cells[row].text;
    if (is_decimal_comma(text)) {
        add_problem(reader, row, shown_text(text) + ", a decimal comma", "a decimal point",
                    "write decimals with a point");
    } else {
        add_problem(reader, row, shown_text(text) + ", a text in a column of numbers", "a number",
                    "mend the value; or write " + reader.column.name +
                        " = \"categorical\" under [attributes]");
    }
    reader.result.attribute.values.push_back(kMissingValue);
}

void read_continuous(ColumnReader& reader) {
    for (std::size_t row = 0; row < reader.column.cells.size(); ++row) {
        const std::string& text = reader.column.cells[row].text;
        const auto value = number_of(text);
        if (is_missing_text(text) || value == kMissingValue) {
            miss_value(reader, row);
        } else if (!value) {
            not_a_number(reader, row);
        } else {
            reader.result.attribute.values.push_back(*value);
        }
    }
    reader.result.note = "continuous";
    const int missing = missing_values(reader.result.attribute);
    if (missing > 0) {
        reader.result.note += ", " + std::to_string(missing) + " missing";
    }
}

// Values by the place of their texts among `labels`.
void read_coded(ColumnReader& reader, std::vector<std::string> labels) {
    std::unordered_map<std::string, std::size_t> codes;
    for (std::size_t code = 0; code < labels.size(); ++code) {
        codes.emplace(labels[code], code);
    }
    for (std::size_t row = 0; row < reader.column.cells.size(); ++row) {
        const std::string& text = reader.column.cells[row].text;
        if (is_missing_text(text)) {
            miss_value(reader, row);
            continue;
        }
        reader.result.attribute.values.push_back(static_cast<double>(codes[text]));
    }
    reader.result.attribute.labels = std::move(labels);
}

// The two texts, the one that is coded 1 behind.
std::vector<std::string> binary_labels(const std::vector<std::string>& texts) {
    return are_no_and_yes(texts[1], texts[0]) ? std::vector<std::string>{texts[1], texts[0]}
                                              : texts;
}

void read_binary(ColumnReader& reader, const std::vector<std::string>& texts) {
    if (texts.size() == 1) {
        const auto value = number_of(texts[0]);
        const bool one = value ? *value == 1.0 : !is_no(texts[0]);
        read_coded(reader, one ? std::vector<std::string>{"", texts[0]}
                               : std::vector<std::string>{texts[0], ""});
        reader.result.note = "binary: `" + texts[0] + "` throughout";
        return;
    }
    if (texts.size() != 2) {
        Problem problem{.file = reader.file,
                        .field = "column `" + reader.column.name + "`",
                        .found = std::to_string(texts.size()) + " different values",
                        .expected = "two, for a binary attribute",
                        .mend = "write another type under [attributes], or mend the values"};
        reader.result.problems.push_back(std::move(problem));
        return;
    }
    read_coded(reader, binary_labels(texts));
    const std::vector<std::string>& labels = reader.result.attribute.labels;
    reader.result.note = "binary: 1 is `" + labels[1] + "`, 0 is `" + labels[0] + "`";
}

void read_categorical(ColumnReader& reader, const std::vector<std::string>& texts) {
    // More codes than these are not spelled out.
    constexpr std::size_t kMostTold = 8;
    std::vector<std::string> labels = {""};
    labels.insert(labels.end(), texts.begin(), texts.end());
    read_coded(reader, labels);
    reader.result.note = "categorical, " + std::to_string(texts.size()) + " categories:";
    for (std::size_t code = 1; code <= std::min(texts.size(), kMostTold); ++code) {
        reader.result.note +=
            (code > 1 ? ", " : " ") + std::to_string(code) + " is `" + labels[code] + "`";
    }
    reader.result.note += texts.size() > kMostTold ? ", ..." : "";
}

// Two values are binary; numbers, decimal commas among them, continuous; the rest categorical. A
// column of numbers with a few texts in it is one of numbers, with mistakes.
AttributeType guess_type(const Column& column, const std::vector<std::string>& texts) {
    if (texts.size() == 2 && std::none_of(texts.begin(), texts.end(), is_decimal_comma)) {
        return AttributeType::binary;
    }
    const auto present =
        std::count_if(column.cells.begin(), column.cells.end(),
                      [](const Cell& cell) { return !is_missing_text(cell.text); });
    const auto numbers =
        std::count_if(column.cells.begin(), column.cells.end(), [](const Cell& cell) {
            return !is_missing_text(cell.text) && (is_number(cell) || is_decimal_comma(cell.text));
        });
    return 2 * numbers > present ? AttributeType::continuous : AttributeType::categorical;
}

}  // namespace

NodesColumn read_column(const std::string& file, const NodesTable& table, const Column& column,
                        const ColumnOption* option) {
    ColumnReader reader{file, table, column, option != nullptr && option->keep_missing, {}};
    StudyAttribute& attribute = reader.result.attribute;
    const std::vector<std::string> texts = distinct_texts(column);
    attribute.name = column.name;
    attribute.type = option != nullptr && option->type ? *option->type : guess_type(column, texts);
    if (texts.empty()) {
        reader.result.problems.push_back({.file = file,
                                          .field = "column `" + column.name + "`",
                                          .found = "no value at all",
                                          .expected = "values",
                                          .mend = "fill the column, or delete it"});
        attribute.values.assign(column.cells.size(), kMissingValue);
        return reader.result;
    }
    switch (attribute.type) {
        case AttributeType::continuous:
            read_continuous(reader);
            break;
        case AttributeType::binary:
            read_binary(reader, texts);
            break;
        case AttributeType::categorical:
            read_categorical(reader, texts);
            break;
    }
    return reader.result;
}
