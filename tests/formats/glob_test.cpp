// Files by pattern.
#include "formats/glob.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/scratch_directory.h"

namespace {

using Names = std::vector<std::string>;

TEST(Glob, MatchesNamesByStarsAndQuestionMarks) {
    EXPECT_TRUE(glob_matches("*.csv", "a.csv"));
    EXPECT_TRUE(glob_matches("*.csv", ".csv.csv") == false);
    EXPECT_TRUE(glob_matches("*", "a"));
    EXPECT_TRUE(glob_matches("a*b*c", "a-b-b-c"));
    EXPECT_TRUE(glob_matches("?.csv", "\xC3\xA4.csv"));
    EXPECT_TRUE(glob_matches("", ""));
    EXPECT_FALSE(glob_matches("?.csv", "ab.csv"));
    EXPECT_FALSE(glob_matches("*.csv", "a.csv.txt"));
    EXPECT_FALSE(glob_matches("a*b", "ac"));
    EXPECT_FALSE(glob_matches("a?", "a"));
}

TEST(Glob, FindsFilesInFoldersOfAPattern) {
    const ScratchDirectory scratch;
    const std::string folder = scratch.path().string() + "/";
    std::filesystem::create_directories(scratch.path() / "v2");
    std::filesystem::create_directories(scratch.path() / "v1");
    std::filesystem::create_directories(scratch.path() / "v1" / "c.csv");
    scratch.write("v2/b.csv", "x");
    scratch.write("v1/a.csv", "x");
    scratch.write("v1/.hidden.csv", "x");
    EXPECT_EQ(glob_files(folder + "v?/*.csv"), (Names{folder + "v1/a.csv", folder + "v2/b.csv"}));
    EXPECT_EQ(glob_files(folder + "w/*.csv"), Names());
}

TEST(Glob, OrdersNamesAlikeForEveryPatternOfThem) {
    const ScratchDirectory scratch;
    const std::string folder = scratch.path().string() + "/";
    for (const char* stem : {"a", "a.d", "a-b", "a1"}) {
        scratch.write(std::string(stem) + ".csv", "x");
        scratch.write(std::string(stem) + ".nodes.tsv", "x");
    }
    EXPECT_EQ(glob_files(folder + "*.csv"),
              (Names{folder + "a.csv", folder + "a-b.csv", folder + "a.d.csv", folder + "a1.csv"}));
    EXPECT_EQ(glob_files(folder + "*.nodes.tsv"),
              (Names{folder + "a.nodes.tsv", folder + "a-b.nodes.tsv", folder + "a.d.nodes.tsv",
                     folder + "a1.nodes.tsv"}));
}

}  // namespace
