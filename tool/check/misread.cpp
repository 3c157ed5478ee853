#include "check/misread.h"

#include <algorithm>
#include <limits>

#include "check/files.h"
#include "check/row_order.h"

namespace {

std::string on_line(int line) { return "line " + std::to_string(line); }

bool is_line(const ReadItem& item) { return setup_item(item.key.id).value == SetupValue::line; }
bool is_whole(const ReadItem& item) { return is_whole_number(setup_item(item.key.id).value); }

bool fits_integer(double value) {
    return value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
}

bool is_misread(const SetupView& view, const ReadItem& item) {
    if (!item.read || is_line(item)) {
        return !item.read;
    }
    const std::string word = word_at(view, item.value_offset);
    const NumberWord number = is_whole(item) ? integer_word(word) : real_word(word);
    return !number.whole_word || (is_whole(item) && !fits_integer(number.value));
}

const char* expected_text(const ReadItem& item) {
    if (is_line(item)) {
        return "a line of text";
    }
    return is_whole(item) ? "a whole number" : "a number";
}

// What one misread comes to: the three lines of its finding.
struct Explanation {
    int line = 0;
    std::string found;
    std::string mend;
};

struct Misread {
    const SetupView& view;
    std::size_t index;
    const ReadItem& item;
    const ReadItem* before;  // null for the first item
    std::string word;
    int value_line;
    int label_line;  // 0 without a label
    int before_line;

    std::string name_before() const { return name_of(view, before->key); }
};

Misread describe(const SetupView& view, std::size_t index) {
    const ReadItem& item = view.trace.items[index];
    const ReadItem* before = index > 0 ? &view.trace.items[index - 1] : nullptr;
    return {view,
            index,
            item,
            before,
            word_at(view, item.value_offset),
            line_at(view, item.value_offset),
            item.label.empty() ? 0 : line_at(view, item.label_offset),
            before != nullptr ? line_at(view, before->value_offset) : 0};
}

bool at_end(const Misread& misread) {
    return misread.word.empty() &&
           misread.item.value_offset >= static_cast<long>(misread.view.text.size());
}

Explanation explain_end(const Misread& misread) {
    const std::string after =
        misread.before != nullptr ? ", behind the item \"" + misread.name_before() + "\"" : "";
    return {misread.value_line, "the end of the file" + after,
            "write the missing lines, or look further up for a line that was left out"};
}

// "0,5": the number stops at the comma, and the rest is taken for the next item.
bool has_decimal_comma(const std::string& word) {
    std::string with_point = word;
    std::replace(with_point.begin(), with_point.end(), ',', '.');
    return with_point != word && real_word(with_point).whole_word;
}

std::optional<Explanation> explain_number(const Misread& misread) {
    if (is_line(misread.item)) {
        return std::nullopt;
    }
    if (has_decimal_comma(misread.word)) {
        return Explanation{misread.value_line, quoted(misread.word) + ", with a decimal comma",
                           "write a decimal point"};
    }
    const NumberWord real = real_word(misread.word);
    if (real.whole_word) {
        return Explanation{misread.value_line, quoted(misread.word),
                           fits_integer(real.value)
                               ? "write a whole number, without point or exponent"
                               : "write a number from -2147483648 to 2147483647"};
    }
    return std::nullopt;
}

// A number in the place of a label: the line before holds one number more than is read there.
std::optional<Explanation> explain_numeric_label(const Misread& misread) {
    const ReadItem& item = misread.item;
    if (misread.label_line == 0 || !real_word(item.label).whole_word || misread.before == nullptr ||
        misread.label_line != misread.before_line) {
        return std::nullopt;
    }
    std::string mend = "remove " + quoted(item.label) + " from " + on_line(misread.label_line) +
                       ": \"" + misread.name_before() + "\" is the last value there";
    if (misread.before->key == SetupId::degree_cap && is_directed(misread.view)) {
        mend += "; a directed network has one cap, on out-degrees, and in-degrees cannot be capped";
    }
    return Explanation{misread.label_line,
                       "the number " + quoted(item.label) + " where a label is expected, and " +
                           quoted(misread.word) + " behind it",
                       mend};
}

// The words from the label to the first number on its line, joined by underscores; empty when no
// number follows.
std::string joined_label(const Misread& misread) {
    const std::string line = line_text(misread.view, misread.label_line);
    const auto begin = misread.item.label_offset -
                       misread.view.line_starts[static_cast<std::size_t>(misread.label_line) - 1];
    std::string joined;
    auto k = static_cast<std::size_t>(begin);
    while (k < line.size()) {
        std::string word;
        for (; k < line.size() && !is_blank(line[k]); ++k) {
            word.push_back(line[k]);
        }
        if (!joined.empty() && real_word(word).whole_word) {
            return joined;
        }
        joined += (joined.empty() ? "" : "_") + word;
        for (; k < line.size() && is_blank(line[k]); ++k) {
        }
    }
    return "";
}

std::optional<Explanation> explain_blank_in_label(const Misread& misread) {
    if (misread.label_line == 0 || misread.label_line != misread.value_line) {
        return std::nullopt;
    }
    const std::string joined = joined_label(misread);
    if (joined.empty()) {
        return std::nullopt;
    }
    return Explanation{misread.label_line,
                       quoted(misread.word) + " behind the label " + quoted(misread.item.label),
                       "a label is one word: the blank in it moves every value behind it; write " +
                           quoted(joined)};
}

// The number was looked for on a later line than it belongs to.
std::optional<Explanation> explain_missing_number(const Misread& misread) {
    const int line = misread.label_line != 0 ? misread.label_line : misread.before_line;
    if (line == 0 || line == misread.value_line) {
        return std::nullopt;
    }
    Explanation explanation{line, "", ""};
    const std::string taken =
        "; the reader went on to " + quoted(misread.word) + " on " + on_line(misread.value_line);
    if (misread.label_line != 0) {
        explanation.found = "nothing behind the label " + quoted(misread.item.label) + taken;
        explanation.mend = "write the value behind the label, on " + on_line(line);
    } else {
        explanation.found = "nothing behind \"" + misread.name_before() + "\"" + taken;
        explanation.mend = "write the number there; it stands without a label of its own";
    }
    return explanation;
}

Explanation explain_text(const Misread& misread) {
    const std::string behind = misread.label_line != 0 ? "the label " + quoted(misread.item.label)
                               : misread.before != nullptr ? "\"" + misread.name_before() + "\""
                                                           : "nothing";
    return {misread.value_line, quoted(misread.word) + " behind " + behind,
            misread.label_line != 0 ? "write a number there"
                                    : "write a number there; it stands without a label of its own"};
}

Explanation explain(const Misread& misread) {
    if (at_end(misread)) {
        return explain_end(misread);
    }
    for (const auto& attempt :
         {explain_numeric_label, explain_number, explain_blank_in_label, explain_missing_number}) {
        if (std::optional<Explanation> explanation = attempt(misread)) {
            return *explanation;
        }
    }
    return explain_text(misread);
}

// A text value that was taken from the line behind its label's, where others stand beside theirs.
const ReadItem* stray_text(const SetupView& view, std::size_t end) {
    const ReadItem* stray = nullptr;
    bool beside_label = false;
    for (std::size_t k = 0; k < end; ++k) {
        const ReadItem& item = view.trace.items[k];
        if (!is_line(item) || item.label.empty()) {
            continue;
        }
        if (line_at(view, item.label_offset) != line_at(view, item.value_offset)) {
            stray = stray != nullptr ? stray : &item;
        } else {
            beside_label = true;
        }
    }
    return beside_label ? stray : nullptr;
}

// A likely cause further up, as a sentence.
std::string earlier_cause(const SetupView& view, std::size_t index) {
    if (const ReadItem* stray = stray_text(view, index)) {
        return "nothing stands behind the label " + quoted(stray->label) + " on " +
               on_line(line_at(view, stray->label_offset)) +
               ", so the line after it was taken for its value";
    }
    const std::optional<std::size_t> row = first_misplaced_row(view);
    return row && *row <= index ? describe_misplaced_row(view, *row) : "";
}

}  // namespace

std::optional<std::size_t> first_misread(const SetupView& view) {
    const std::vector<ReadItem>& items = view.trace.items;
    for (std::size_t k = 0; k < items.size(); ++k) {
        if (is_misread(view, items[k])) {
            return k;
        }
    }
    return std::nullopt;
}

void explain_misread(const SetupView& view, std::size_t index, Findings& findings) {
    const std::vector<ReadItem>& items = view.trace.items;
    const Explanation explanation = explain(describe(view, index));
    const std::size_t behind = items.size() - index - 1;
    std::string found = explanation.found;
    if (behind > 0) {
        found += "; " + counted(static_cast<long long>(behind), "further item") +
                 " cannot be read as meant";
    }
    // What went wrong further up explains more than the place where reading broke down.
    const std::string cause = earlier_cause(view, index);
    const std::string mend = cause.empty() ? explanation.mend : "begin further up: " + cause;
    add_error(findings, {view.path, explanation.line, name_of(view, items[index].key)}, found,
              expected_text(items[index]), mend);
}
