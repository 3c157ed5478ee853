#include <algorithm>

#include "check/checks.h"
#include "check/files.h"
#include "check/misread.h"
#include "check/row_order.h"

namespace {

// Strange flags that are told one by one; the rest are counted.
constexpr int kShownFlags = 3;

bool check_text_file(const SetupView& view, Findings& findings) {
    const Where whole = {view.path, 0, "setup file"};
    if (!view.problem.empty()) {
        add_error(findings, whole, "the file cannot be opened: " + view.problem, "a setup file",
                  "correct the path; relative paths start at the current directory");
        return false;
    }
    if (view.text.find('\0') != std::string::npos) {
        add_error(findings, whole, "bytes that no text file holds", "plain text",
                  "save the setup file as plain text in UTF-8 (not UTF-16), or name another file");
        return false;
    }
    if (count_words(view.text) == 0) {
        add_error(findings, whole, "an empty file", "a setup file",
                  "name another file; examples/README.md tells how a setup file is written");
        return false;
    }
    return true;
}

void check_impossible_count(const SetupView& view, Findings& findings) {
    const std::vector<ReadItem>& items = view.trace.items;
    const auto last = std::find_if(items.rbegin(), items.rend(), [](const ReadItem& item) {
        return item.key.id == SetupId::group_count;
    });
    if (!view.impossible_count || last == items.rend()) {
        return;
    }
    add_error(findings, where_item(view, *last),
              "the count " + quoted_value(view, *last) + ", more than the file has characters",
              "one group of rows for each of them",
              "write the true count, or the rows that belong to it");
}

void check_known(const SetupView& view, Findings& findings) {
    const RunSettings& settings = view.setup.settings;
    const ReadItem* mode = find_item(view, SetupId::run_mode);
    if (mode != nullptr && (settings.run_mode < 1 || settings.run_mode > 4)) {
        add_error(findings, where_item(view, *mode), std::to_string(settings.run_mode),
                  "1 simulation, 2 estimation, 3 goodness of fit, 4 Bayesian goodness of fit",
                  "write one of these; any other mode ends the run before it begins");
    }
    const ReadItem* kind = find_item(view, SetupId::network_kind);
    if (kind != nullptr && settings.network_kind != 1 && settings.network_kind != 2) {
        add_error(findings, where_item(view, *kind), std::to_string(settings.network_kind),
                  "1 undirected, 2 directed",
                  "write 1 or 2 behind the run mode; any other kind ends the run before it begins");
    }
}

void check_flags(const SetupView& view, Findings& findings) {
    int strange = 0;
    for (std::size_t k = 0; k < view.sound_items; ++k) {
        const ReadItem& item = view.trace.items[k];
        const std::string word = word_at(view, item.value_offset);
        if (setup_item(item.key.id).value != SetupValue::flag || integer_word(word).value == 0.0 ||
            integer_word(word).value == 1.0) {
            continue;
        }
        if (++strange <= kShownFlags) {
            add_warning(findings, where_item(view, item), quoted(word), "1 for on, 0 for off",
                        "write 1 or 0; every value but 1 is read as off");
        }
    }
    if (strange > kShownFlags) {
        add_warning(findings, {view.path, 0, "flags"},
                    counted(strange - kShownFlags, "further flag") + " other than 0 and 1",
                    "1 for on, 0 for off", "write 1 or 0; every value but 1 is read as off");
    }
}

void check_counts(const SetupView& view, Findings& findings) {
    for (std::size_t k = 0; k < view.sound_items; ++k) {
        const ReadItem& item = view.trace.items[k];
        if (setup_item(item.key.id).value == SetupValue::count &&
            integer_word(word_at(view, item.value_offset)).value < 0.0) {
            add_error(findings, where_item(view, item), quoted_value(view, item),
                      "how many there are, 0 or more", "write the true count");
        }
    }
}

// A labelled item whose label stands behind another item of the same line.
std::vector<std::size_t> crowded_items(const SetupView& view) {
    std::vector<std::size_t> crowded;
    int line_of_last_label = 0;
    for (std::size_t k = 0; k < view.sound_items; ++k) {
        const ReadItem& item = view.trace.items[k];
        if (item.label_offset < 0 || item.label.empty()) {
            continue;
        }
        const int line = line_at(view, item.label_offset);
        if (line == line_of_last_label) {
            crowded.push_back(k);
        }
        line_of_last_label = line;
    }
    return crowded;
}

std::string trailing_word(const SetupView& view) {
    auto k = static_cast<std::size_t>(std::max(view.trace.end_offset, 0L));
    while (k < view.text.size() && is_blank(view.text[k])) {
        ++k;
    }
    return word_at(view, static_cast<long>(k));
}

// A label like "Phase 3 steps" reads as a value: nothing fails, but all that follows is moved.
void check_crowded(SetupView& view, Findings& findings) {
    const std::vector<std::size_t> crowded = crowded_items(view);
    // Many such lines are the habit of whoever wrote the file, not a slip.
    if (crowded.empty() || crowded.size() > view.sound_items / 4) {
        return;
    }
    const ReadItem& item = view.trace.items[crowded.front()];
    const ReadItem& before = view.trace.items[crowded.front() - 1];
    const std::string found = "two items on one line: \"" + name_of(view, before.key) +
                              "\" is read as " + quoted_value(view, before) + ", and " +
                              quoted(item.label) + " is taken for the label of \"" +
                              name_of(view, item.key) + "\"";
    const Where where = {view.path, line_at(view, item.label_offset), name_of(view, before.key)};
    if (view.trace.trailing_text) {
        add_error(findings, where,
                  found + "; the values behind it have moved, and text is left over",
                  "one label of one word, then its value",
                  "join the words of the label with underscores");
        view.sound_items = crowded.front() - 1;
    } else {
        add_warning(findings, where, found, "one item on a line",
                    "join the words of the label with underscores if they are one label");
    }
}

void check_trailing(const SetupView& view, Findings& findings) {
    const bool known = view.setup.selection.catalogue != nullptr;
    if (!view.trace.trailing_text || !is_sound(view) || !known) {
        return;
    }
    long begin = view.trace.end_offset;
    while (begin < static_cast<long>(view.text.size()) &&
           is_blank(view.text[static_cast<std::size_t>(begin)])) {
        ++begin;
    }
    add_warning(findings, {view.path, line_at(view, begin), "end of the file"},
                "text behind the last item, from " + quoted(trailing_word(view)) + " on",
                "nothing more",
                "remove it, or look further up for a value that is there twice: text behind the "
                "last item is not read");
}

void check_rows(const SetupView& view, Findings& findings) {
    const std::optional<std::size_t> row = first_misplaced_row(view);
    if (row && *row < view.sound_items && is_sound(view)) {
        const ReadItem& item = view.trace.items[*row];
        add_error(findings, {view.path, line_at(view, item.label_offset), name_of(view, item.key)},
                  describe_misplaced_row(view, *row), "the rows in their order",
                  "put the rows in order: labels are for people, only the place of a row counts");
    }
}

void check_name(const SetupView& view, Findings& findings) {
    const ReadItem* item = find_item(view, SetupId::network_name);
    if (item == nullptr) {
        return;
    }
    const std::string& name = view.setup.settings.network_name;
    if (name.back() == '\r') {
        add_warning(findings, where_item(view, *item), "a carriage return at the end of the line",
                    "lines that end in a line feed alone",
                    "save the file with Unix line ends: the carriage return becomes part of every "
                    "name and path in it");
    } else if (std::any_of(name.begin(), name.end(), is_blank)) {
        add_warning(findings, where_item(view, *item), quoted(name), "a name for the output files",
                    "every output file will have the blanks in its name; if the first word belongs "
                    "to the label, join it to the label with an underscore");
    }
}

}  // namespace

void check_setup(SetupView& view, Findings& findings) {
    if (!check_text_file(view, findings)) {
        view.sound_items = 0;
        return;
    }
    if (const std::optional<std::size_t> misread = first_misread(view)) {
        view.sound_items = *misread;
        explain_misread(view, *misread, findings);
    } else {
        check_impossible_count(view, findings);
    }
    if (view.impossible_count) {
        // Reading was given up, so no value has come through.
        view.sound_items = 0;
    }
    check_known(view, findings);
    check_crowded(view, findings);
    check_counts(view, findings);
    check_flags(view, findings);
    check_trailing(view, findings);
    check_rows(view, findings);
    check_name(view, findings);
}
