#include "formats/glob.h"

#include <algorithm>
#include <filesystem>

#include "base/native_path.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWild = "*?";

std::string name_of(const fs::path& path) {
    const std::u8string name = path.filename().u8string();
    return {name.begin(), name.end()};
}

// The first character of UTF-8 taken off.
std::string_view behind_first(std::string_view text) {
    std::size_t end = 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        ++end;
    }
    return text.substr(end);
}

// Names in a folder ("" is the working directory) that a pattern without "/" matches.
std::vector<std::string> matching_names(const std::string& folder, const std::string& pattern) {
    std::vector<std::string> names;
    std::error_code problem;
    fs::directory_iterator place(native_path(folder.empty() ? "." : folder), problem);
    for (; !problem && place != fs::directory_iterator(); place.increment(problem)) {
        const std::string name = name_of(place->path());
        if (glob_matches(pattern, name)) {
            names.push_back(name);
        }
    }
    return names;
}

// Adds what the pattern from its `begin` on finds in a folder, which ends with "/" or is empty.
void find_files(const std::string& folder, const std::string& pattern, std::size_t begin,
                std::vector<std::string>& found) {
    const std::size_t end = pattern.find('/', begin);
    const std::string part = pattern.substr(begin, end - begin);
    std::vector<std::string> names = {part};
    if (is_glob(part)) {
        names = matching_names(folder, part);
    }
    for (const std::string& name : names) {
        std::error_code problem;
        const std::string path = folder + name;
        if (end != std::string::npos) {
            find_files(path + "/", pattern, end + 1, found);
        } else if (fs::is_regular_file(native_path(path), problem)) {
            found.push_back(path);
        }
    }
}

}  // namespace

bool is_glob(std::string_view path) { return path.find_first_of(kWild) != std::string_view::npos; }

bool glob_matches(std::string_view pattern, std::string_view name) {
    if (!name.empty() && name[0] == '.' && (pattern.empty() || pattern[0] != '.')) {
        return false;
    }
    // Where the last `*` stands, and what of the name it has not taken yet.
    std::size_t star = std::string_view::npos;
    std::size_t at = 0;
    std::string_view rest;
    while (!name.empty()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            rest = name;
        } else if (at < pattern.size() && pattern[at] == '?') {
            ++at;
            name = behind_first(name);
        } else if (at < pattern.size() && pattern[at] == name[0]) {
            ++at;
            name.remove_prefix(1);
        } else if (star != std::string_view::npos) {
            rest = behind_first(rest);
            name = rest;
            at = star + 1;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

std::vector<std::string> glob_files(const std::string& pattern) {
    std::vector<std::string> found;
    find_files("", pattern, 0, found);
    const std::size_t tail = pattern.size() - pattern.find_last_of(kWild) - 1;
    const auto key = [tail](const std::string& path) {
        return std::string_view(path).substr(0, path.size() - tail);
    };
    std::sort(found.begin(), found.end(), [&](const std::string& one, const std::string& other) {
        return key(one) != key(other) ? key(one) < key(other) : one < other;
    });
    return found;
}
