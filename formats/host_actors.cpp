#include "formats/host_actors.h"

#include <filesystem>
#include <set>
#include <sstream>

#include "base/native_path.h"
#include "formats/host_text.h"
#include "formats/text_file.h"

namespace {

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    }
    return lines;
}

std::vector<std::string> numbers_to(int count) {
    std::vector<std::string> names;
    for (int k = 1; k <= count; ++k) {
        names.push_back(std::to_string(k));
    }
    return names;
}

}  // namespace

std::string host_actors_path(const std::string& setup_path) {
    return path_stem(setup_path) + "_actors.txt";
}

std::string host_actors_text(const std::vector<std::string>& actors) {
    std::string text;
    for (std::string name : actors) {
        for (char& each : name) {
            each = each == '\n' || each == '\r' ? ' ' : each;
        }
        text += name + "\n";
    }
    return text;
}

std::vector<std::string> host_actors(const std::string& setup_path, int count,
                                     std::vector<std::string>& notes) {
    const std::string path = host_actors_path(setup_path);
    std::error_code problem;
    if (setup_path == kStandardInput ||
        !std::filesystem::is_regular_file(native_path(path), problem)) {
        return numbers_to(count);
    }
    const TextFile file = read_text_file(path);
    std::vector<std::string> names = file.ok() ? lines_of(file.text) : std::vector<std::string>();
    const std::set<std::string> unique(names.begin(), names.end());
    const auto all = static_cast<std::size_t>(count);
    if (names.size() == all && unique.size() == all && unique.count("") == 0) {
        notes.push_back("actors are called as in " + path);
        return names;
    }
    notes.push_back("actors are called by their numbers: " + path + " has not a name for each of " +
                    std::to_string(count) + " actors, each once");
    return numbers_to(count);
}
