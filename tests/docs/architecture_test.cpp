// The folders that docs/architecture.md lists are those that src/CMakeLists.txt declares, in its
// order, in which a folder uses only what stands before it.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

std::vector<std::string> lines_of(const std::string& path) {
    std::ifstream file(std::string(OVRI_SOURCE_DIRECTORY "/") + path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> declared_folders() {
    const std::string begin = "ovri_folder(";
    std::vector<std::string> folders;
    for (const std::string& line : lines_of("src/CMakeLists.txt")) {
        if (line.starts_with(begin)) {
            folders.push_back(line.substr(begin.size()));
        }
    }
    return folders;
}

// The first words of the first block of code behind the heading.
std::vector<std::string> listed_folders() {
    const std::string indent = "    ";
    std::vector<std::string> folders;
    bool behind_heading = false;
    for (const std::string& line : lines_of("docs/architecture.md")) {
        behind_heading = behind_heading || line == "## The folders";
        if (!behind_heading) {
            continue;
        }
        if (line.starts_with(indent)) {
            // Deeper lines go on with the one before.
            if (line[indent.size()] != ' ') {
                folders.push_back(line.substr(indent.size(), line.find(' ', indent.size()) - 4));
            }
        } else if (!folders.empty()) {
            break;
        }
    }
    return folders;
}

TEST(Architecture, ListsTheFoldersInTheOrderInWhichTheyMayUseEachOther) {
    EXPECT_EQ(listed_folders(), declared_folders());
    EXPECT_GT(declared_folders().size(), 8U);
}

}  // namespace
