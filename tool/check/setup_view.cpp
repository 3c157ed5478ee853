#include "check/setup_view.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "check/files.h"

namespace {

std::vector<long> find_lines(const std::string& text) {
    std::vector<long> starts = {0};
    for (std::size_t k = 0; k < text.size(); ++k) {
        if (text[k] == '\n') {
            starts.push_back(static_cast<long>(k) + 1);
        }
    }
    return starts;
}

bool can_begin_number(const std::string& word) { return !word.empty() && !is_blank(word[0]); }

}  // namespace

SetupView read_view(const std::string& path, const std::string& output, const std::string& name) {
    SetupView view;
    view.path = name;
    view.problem = open_problem(path);
    view.output = output;
    view.text = bytes_of_file(path);
    view.line_starts = find_lines(view.text);
    try {
        view.setup = read_setup(path, &view.trace);
    } catch (const ImpossibleCount&) {
        view.setup.opened = true;
        view.impossible_count = true;
    }
    view.sound_items = view.trace.items.size();
    return view;
}

const std::string& output_directory(const SetupView& view) {
    return view.output.empty() ? view.setup.settings.output_directory : view.output;
}

std::vector<const OutputFile*> files_of(const SetupView& view) {
    const RunSettings& settings = view.setup.settings;
    std::vector<const OutputFile*> files;
    if (view.setup.selection.catalogue != nullptr) {
        for (const OutputFile& file : output_files()) {
            if (may_write(file, static_cast<RunMode>(settings.run_mode),
                          view.setup.selection.catalogue->kind, settings.switches,
                          settings.gof_after_estimation == 1)) {
                files.push_back(&file);
            }
        }
    }
    return files;
}

OutputPaths paths_of(const SetupView& view, char separator) {
    return output_paths(output_directory(view), view.setup.settings.network_name, separator,
                        static_cast<NetworkKind>(view.setup.settings.network_kind), true);
}

int line_at(const SetupView& view, long offset) {
    const auto next =
        std::upper_bound(view.line_starts.begin(), view.line_starts.end(), std::max(offset, 0L));
    return static_cast<int>(next - view.line_starts.begin());
}

std::string word_at(const SetupView& view, long offset) {
    std::string word;
    auto k = static_cast<std::size_t>(std::max(offset, 0L));
    for (; k < view.text.size() && !is_blank(view.text[k]); ++k) {
        word.push_back(view.text[k]);
    }
    return word;
}

std::string line_text(const SetupView& view, int line) {
    if (line < 1 || line > static_cast<int>(view.line_starts.size())) {
        return "";
    }
    const auto begin =
        static_cast<std::size_t>(view.line_starts[static_cast<std::size_t>(line) - 1]);
    return view.text.substr(begin, view.text.find('\n', begin) - begin);
}

bool is_directed(const SetupView& view) {
    return view.setup.settings.network_kind == static_cast<int>(NetworkKind::directed);
}

bool is_mode(const SetupView& view, RunMode mode) {
    return view.setup.settings.run_mode == static_cast<int>(mode);
}

const ReadItem* find_item(const SetupView& view, const SetupKey& key) {
    for (std::size_t k = 0; k < view.sound_items; ++k) {
        const ReadItem& item = view.trace.items[k];
        if (item.key == key && item.read) {
            return &item;
        }
    }
    return nullptr;
}

std::string name_of(const SetupView& view, const SetupKey& key) {
    return setup_name(key, view.trace.catalogue);
}

std::string quoted_value(const SetupView& view, const ReadItem& item) {
    return quoted(word_at(view, item.value_offset));
}

Where where_item(const SetupView& view, const ReadItem& item) {
    return {view.path, line_at(view, item.value_offset), name_of(view, item.key)};
}

Where where_key(const SetupView& view, const SetupKey& key) {
    const ReadItem* item = find_item(view, key);
    return item != nullptr ? where_item(view, *item) : Where{view.path, 0, name_of(view, key)};
}

bool is_sound(const SetupView& view) {
    return view.sound_items == view.trace.items.size() && !view.impossible_count;
}

NumberWord integer_word(const std::string& word) {
    char* end = nullptr;
    const double value = static_cast<double>(std::strtoll(word.c_str(), &end, 10));
    const bool number = can_begin_number(word) && end != word.c_str();
    return {number, number && *end == '\0', value};
}

NumberWord real_word(const std::string& word) {
    char* end = nullptr;
    const double value = std::strtod(word.c_str(), &end);
    const bool number = can_begin_number(word) && end != word.c_str();
    return {number, number && *end == '\0', value};
}
