#include "base/open_file.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

const std::string kSmile = "\xF0\x9F\x98\x80";                // U+1F600
const std::string kSmileOfJava = "\xED\xA0\xBD\xED\xB8\x80";  // its two surrogates

TEST(OpenFile, PathsOfEveryLengthOfCharacterBecomeUtf16) {
    EXPECT_EQ(path_to_utf16("a b"), u"a b");
    EXPECT_EQ(path_to_utf16("n\xC3\xA4"), u"n\u00E4");
    EXPECT_EQ(path_to_utf16("\xE7\xBD\x91"), u"\u7F51");
    EXPECT_EQ(path_to_utf16(kSmile), u"\U0001F600");
}

TEST(OpenFile, SurrogatesOfAJavaMachineAreTheCharacterTheyStandFor) {
    EXPECT_EQ(path_to_utf16(kSmileOfJava), u"\U0001F600");
    EXPECT_EQ(path_joining_surrogates("x" + kSmileOfJava + "/y"), "x" + kSmile + "/y");
}

TEST(OpenFile, BytesThatAreNoPairOfSurrogatesStay) {
    for (const std::string& path :
         {std::string("plain.txt"), std::string("n\xC3\xA4 me"), kSmile,
          std::string("\xED\xA0\xBD"), std::string("\xED\xB8\x80\xED\xA0\xBD"),
          std::string("\xED\xA0\xBD\xED\xB8"), std::string("\xFF\xFE"), std::string()}) {
        EXPECT_EQ(path_joining_surrogates(path), path);
    }
}

TEST(OpenFile, BytesThatAreNotUtf8GiveNoUtf16) {
    for (const std::string& path :
         {std::string("\xE4"), std::string("a\x80"), std::string("\xC3"), std::string("\xC1\x81"),
          std::string("\xE0\x80\x80"), std::string("\xF8\x88\x80\x80\x80"),
          std::string("\xF4\x90\x80\x80"), std::string("a\0b", 3)}) {
        EXPECT_TRUE(path_to_utf16(path).empty());
    }
}

TEST(OpenFile, AFileWrittenUnderTheNameIsReadUnderTheNameOfAJavaMachine) {
    const ScratchDirectory scratch;
    scratch.write(kSmile + " n\xC3\xA4.txt", "7");
    const FileHandle file =
        open_file((scratch.path() / (kSmileOfJava + " n\xC3\xA4.txt")).string(), "r");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::getc(file.get()), '7');
}

TEST(OpenFile, AFileThatIsNotThereGivesNone) {
    const ScratchDirectory scratch;
    EXPECT_EQ(open_file((scratch.path() / "none").string(), "r"), nullptr);
}

TEST(OpenFile, AppendingAddsAndReplacingDrops) {
    const ScratchDirectory scratch;
    const std::string path = (scratch.path() / "f").string();
    std::fputs("one", open_file(path, "w").get());
    std::fputs("two", open_file(path, "a").get());
    EXPECT_EQ(scratch.read("f"), "onetwo");
    std::fputs("three", open_file(path, "w").get());
    EXPECT_EQ(scratch.read("f"), "three");
}

}  // namespace
