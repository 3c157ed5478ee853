#include <algorithm>

#include "base/text_writer.h"
#include "check/checks.h"
#include "check/files.h"

namespace {

std::string without_first_word(const std::string& text) {
    const auto begin = std::find_if(text.begin(), text.end(), is_blank);
    return {std::find_if_not(begin, text.end(), is_blank), text.end()};
}

std::string trimmed_end(const std::string& text) {
    std::size_t size = text.size();
    while (size > 0 && is_blank(text[size - 1])) {
        --size;
    }
    return text.substr(0, size);
}

bool exists(const std::string& path, FileKind kind) {
    return !path.empty() && file_kind(path) == kind;
}

// What is likely wrong with a path that leads nowhere.
std::string mend_path(const SetupView& view, const ReadItem* item, const std::string& path,
                      FileKind kind) {
    if (!path.empty() && path.back() == '\r') {
        return "save the setup file with Unix line ends: a carriage return at the end of the line "
               "became part of the path";
    }
    if (exists(trimmed_end(path), kind)) {
        return "remove the blanks at the end of the line: they are part of the path";
    }
    if (exists(without_first_word(path), kind)) {
        return "make the label one word: its second word became part of the path";
    }
    std::string slashes = path;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    if (slashes != path && exists(slashes, kind)) {
        return "write / for \\ in the path";
    }
    if (item != nullptr && !item->label.empty() &&
        line_at(view, item->label_offset) != line_at(view, item->value_offset)) {
        return "write the path behind its label, on line " +
               std::to_string(line_at(view, item->label_offset)) +
               ": nothing stands there, so the next line was taken";
    }
    if (exists(beside(view.path, path), kind)) {
        return "start in the directory that the path is meant from, or write " +
               quoted(beside(view.path, path)) +
               ": relative paths start at the current directory, not at the setup file";
    }
    return kind == FileKind::directory
               ? "make the directory first (mkdir -p), or name another one"
               : "correct the path; relative paths start at the current directory";
}

// The longest name that a file may have on the usual file systems, in bytes.
constexpr std::size_t kLongestName = 255;

// How long a network's name may be, by the longest name of an output file without it.
std::size_t longest_network_name() {
    std::size_t longest = 0;
    for (const OutputFile& file : output_files()) {
        if (!is_update_file(file)) {
            longest = std::max(longest, text_with_name(file.name, "").size());
        }
    }
    return kLongestName - longest;
}

void check_name(const SetupView& view, Findings& findings) {
    const ReadItem* item = find_item(view, SetupId::network_name);
    if (item == nullptr) {
        return;
    }
    const std::string& name = view.setup.settings.network_name;
    if (name.size() > longest_network_name()) {
        add_error(findings, where_item(view, *item),
                  "a name of " + counted(static_cast<long long>(name.size()), "character"),
                  "at most " + std::to_string(longest_network_name()),
                  "write a shorter name: it is part of every output file's name");
    }
    const std::string output = paths_of(view, '/').start_statistics;
    if (name.find_first_of("/\\") != std::string::npos &&
        file_kind(parent_directory(output)) != FileKind::directory) {
        add_error(findings, where_item(view, *item),
                  quoted(name) + ", which leads into another directory", "a name without / and \\",
                  "write a name that can be part of a file name");
    }
}

void check_existing(const SetupView& view, const Where& where, Findings& findings) {
    const OutputPaths paths = paths_of(view, '/');
    for (const OutputFile* file : files_of(view)) {
        const std::string& path = paths.*file->path;
        const FileKind kind = is_sample_report(*file) ? FileKind::missing : file_kind(path);
        if (kind == FileKind::directory || (kind == FileKind::file && !is_writable(path))) {
            add_error(findings, where,
                      path + (kind == FileKind::directory ? ", which is a directory"
                                                          : ", which may not be written"),
                      "an output file that can be written",
                      "move it away, or name another output directory");
        }
    }
}

}  // namespace

bool check_readable(const SetupView& view, const SetupKey& key, const std::string& path,
                    const std::string& expected, Findings& findings) {
    const std::string problem = open_problem(path);
    if (problem.empty()) {
        return true;
    }
    add_error(findings, where_key(view, key), quoted(path) + ", which cannot be opened: " + problem,
              expected, mend_path(view, find_item(view, key), path, FileKind::file));
    return false;
}

void check_outputs(const SetupView& view, Findings& findings) {
    const ReadItem* item = find_item(view, SetupId::output_directory);
    if (item == nullptr && view.output.empty()) {
        return;
    }
    const std::string& directory = output_directory(view);
    const Where where = view.output.empty()
                            ? where_item(view, *item)
                            : Where{"command line", 0, name_of(view, SetupId::output_directory)};
    const FileKind kind = file_kind(directory);
    if (kind != FileKind::directory) {
        add_error(
            findings, where,
            quoted(directory) +
                (kind == FileKind::file ? ", which is not a directory" : ", which does not exist"),
            "a directory for the results",
            mend_path(view, view.output.empty() ? item : nullptr, directory, FileKind::directory));
        return;
    }
    if (!is_writable(directory)) {
        add_error(findings, where, quoted(directory) + ", where no file can be made",
                  "a directory for the results",
                  "change its permissions, or name another output directory");
        return;
    }
    check_name(view, findings);
    check_existing(view, where, findings);
}
