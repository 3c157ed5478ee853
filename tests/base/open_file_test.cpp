#include "base/open_file.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

TEST(OpenFile, AFileIsFoundByItsNameInUtf8) {
    const ScratchDirectory scratch;
    const std::string name = "\xF0\x9F\x98\x80 n\xC3\xA4.txt";
    scratch.write(name, "7");
    const FileHandle file = open_file((scratch.path() / name).string(), "r");
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
