// Files that are text, and those that are not.
#include "formats/text_file.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

Problem problem_of(const TextFile& file) {
    EXPECT_FALSE(file.ok());
    return file.ok() ? Problem() : file.problems[0];
}

TEST(TextFile, IsReadWithoutItsByteOrderMark) {
    const ScratchDirectory directory;
    EXPECT_EQ(read_text_file(directory.write("a.csv",
                                             "\xEF\xBB\xBF"
                                             "a,b\n"))
                  .text,
              "a,b\n");
    EXPECT_EQ(read_text_file(directory.write("b.csv", "\xC3\xA9,b\n")).text, "\xC3\xA9,b\n");
}

TEST(TextFile, WhatIsNoFileIsToldApart) {
    const ScratchDirectory directory;
    const std::string path = directory.path().string();
    EXPECT_EQ(problem_of(read_text_file(path)).found, "a directory");
    EXPECT_EQ(problem_of(read_text_file(path + "/none.csv")).found, "no such file");
    EXPECT_EQ(problem_of(read_text_file(directory.write("e.csv", ""))).found, "an empty file");
    EXPECT_EQ(problem_of(read_text_file(directory.write("s.csv", " \n\n"))).found, "an empty file");
}

TEST(TextFile, BinaryFilesAreRefused) {
    const ScratchDirectory directory;
    const std::string zip("PK\x03\x04\x00\x00", 6);
    EXPECT_NE(problem_of(read_text_file(directory.write("a.xlsx", zip))).found.find("binary"),
              std::string::npos);
    const std::string wide(
        "\xFF\xFE"
        "a\0,\0",
        6);
    EXPECT_EQ(problem_of(read_text_file(directory.write("w.csv", wide))).found, "text in UTF-16");
    EXPECT_EQ(read_text_file(directory.write("z.csv", zip)).text, "");
}

TEST(TextFile, Latin1IsFoundWithItsPlaceAndLetter) {
    const ScratchDirectory directory;
    const Problem problem =
        problem_of(read_text_file(directory.write("l.csv", "name,age\nJos\xE9,3\n")));
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.column, 4);
    EXPECT_NE(problem.found.find("0xE9"), std::string::npos);
    EXPECT_NE(problem.found.find("\xC3\xA9"), std::string::npos);
    EXPECT_NE(problem.mend.find("UTF-8"), std::string::npos);
}

TEST(TextFile, OverlongAndSurrogateBytesAreNoUtf8) {
    for (const char* text : {"\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\x80"}) {
        EXPECT_FALSE(text_file_of("t", std::string("abcdefghij") + text).ok()) << text;
    }
    EXPECT_TRUE(text_file_of("t", "abcdefgh\xE2\x82\xAC\xF0\x9F\x98\x80").ok());
}

TEST(TextFile, NumbersHaveADecimalPoint) {
    EXPECT_EQ(number_of(" 1.5 "), 1.5);
    EXPECT_EQ(number_of("+2"), 2.0);
    EXPECT_EQ(number_of("-1e3"), -1000.0);
    for (const char* text : {"", "1,5", "1.5x", "nan", "inf", "0x10", "1 2", "+-1"}) {
        EXPECT_FALSE(number_of(text)) << text;
    }
    EXPECT_TRUE(is_decimal_comma("3,5"));
    EXPECT_FALSE(is_decimal_comma("3.5"));
    EXPECT_FALSE(is_decimal_comma("a,b"));
}

TEST(TextFile, ADeviceThatTakesNoMoreStaysWhereItIs) {
    const ScratchDirectory scratch;
    const std::string link = (scratch.path() / "full").string();
    std::filesystem::create_symlink("/dev/full", link);
    EXPECT_FALSE(write_text_file(link, "text"));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    EXPECT_TRUE(write_text_file((scratch.path() / "file").string(), "text"));
    EXPECT_EQ(file_text(scratch.path() / "file"), "text");
}

TEST(TextFile, PathsAreRelativeToTheFileThatNamesThem) {
    EXPECT_EQ(path_beside("dir/model.toml", "karate.csv"), "dir/karate.csv");
    EXPECT_EQ(path_beside("model.toml", "karate.csv"), "karate.csv");
    EXPECT_EQ(path_beside("dir/model.toml", "-"), "-");
    EXPECT_EQ(path_beside("fx.results/model.toml", "../friends.csv"), "friends.csv");
    EXPECT_EQ(path_beside("../fx.results/model.toml", "../friends.csv"), "../friends.csv");
    EXPECT_EQ(path_extension("a.b/Karate.CSV"), "csv");
    EXPECT_EQ(path_extension("a.b/karate"), "");
}

TEST(TextFile, AWayUpBehindALinkStaysAsItIs) {
    const ScratchDirectory directory;
    std::filesystem::create_directories(directory.path() / "far/results");
    std::filesystem::create_directory_symlink(directory.path() / "far/results",
                                              directory.path() / "results");
    const std::string model = (directory.path() / "results/model.toml").string();
    EXPECT_EQ(path_beside(model, "../friends.csv"),
              (directory.path() / "results").string() + "/../friends.csv");
}

}  // namespace
