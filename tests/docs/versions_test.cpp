// The version is the same wherever it is written.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "support/scratch_directory.h"
#include "support/tool_runner.h"

namespace {

std::string page(const char* name) {
    return file_text(std::filesystem::path(OVRI_SOURCE_DIRECTORY) / name);
}

std::string version() {
    const std::string line = run_tool({"--version"}).out;
    const std::size_t begin = std::string("ovri ").size();
    return line.substr(begin, line.find('\n') - begin);
}

TEST(Versions, OfToolAndCitationAreOne) {
    EXPECT_NE(page("CITATION.cff").find("\nversion: " + version() + "\n"), std::string::npos);
}

TEST(Versions, TheNewestOfTheChangesIsTheToolsOrInPreparation) {
    std::istringstream lines(page("CHANGELOG.md"));
    std::vector<std::string> headings;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("## ")) {
            headings.push_back(line.substr(3));
        }
    }
    ASSERT_GE(headings.size(), 2U);
    if (headings.front().ends_with(", in preparation")) {
        headings.erase(headings.begin());
    }
    EXPECT_TRUE(headings.front() == version() || headings.front().starts_with(version() + ", "))
        << headings.front();
}

}  // namespace
