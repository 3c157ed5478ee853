#include "support/golden_cases.h"

#include <algorithm>
#include <sstream>

#include "support/scratch_directory.h"

namespace fs = std::filesystem;

namespace {

fs::path golden_directory() { return fs::path(OVRI_SOURCE_DIRECTORY) / "tests" / "golden"; }

std::string first_parting_line(const std::string& expected, const std::string& actual) {
    std::istringstream a(expected);
    std::istringstream b(actual);
    std::string line_a;
    std::string line_b;
    int number = 0;
    bool more = true;
    while (more && line_a == line_b) {
        ++number;
        const bool more_a = static_cast<bool>(std::getline(a, line_a));
        const bool more_b = static_cast<bool>(std::getline(b, line_b));
        if (!more_a) {
            line_a = "(end)";
        }
        if (!more_b) {
            line_b = "(end)";
        }
        more = more_a && more_b;
    }
    return "line " + std::to_string(number) + "\n  expected: " + line_a + "\n  actual:   " + line_b;
}

}  // namespace

std::vector<std::string> golden_case_names() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(golden_directory())) {
        if (fs::exists(entry.path() / "run.setup")) {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

void copy_golden_inputs(const std::string& name, const fs::path& directory) {
    fs::create_directories(directory);
    for (const auto& [file, text] : files_in(golden_directory() / name)) {
        fs::copy_file(golden_directory() / name / file, directory / file);
    }
}

FileTexts files_in(const fs::path& directory) {
    FileTexts texts;
    if (fs::is_directory(directory)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
            if (entry.is_regular_file()) {
                texts[entry.path().filename().string()] = file_text(entry.path());
            }
        }
    }
    return texts;
}

FileTexts outputs_in(const fs::path& directory, const std::string& case_name) {
    FileTexts texts = files_in(directory);
    for (const auto& [file, text] : files_in(golden_directory() / case_name)) {
        texts.erase(file);
    }
    return texts;
}

std::string difference(const FileTexts& expected, const FileTexts& actual) {
    for (const auto& [name, text] : expected) {
        const auto other = actual.find(name);
        if (other == actual.end()) {
            return name + " is missing";
        }
        if (other->second != text) {
            return name + ", " + first_parting_line(text, other->second);
        }
    }
    for (const auto& [name, text] : actual) {
        if (!expected.contains(name)) {
            return name + " should not be there";
        }
    }
    return "";
}
