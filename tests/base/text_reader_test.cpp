#include "base/text_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "support/scratch_directory.h"

namespace {

// A reader over a text.
struct Source {
    explicit Source(const std::string& text) : reader(reader_open(directory.write("text", text))) {}
    // What is left to read.
    std::string rest() {
        std::string text;
        for (int next = reader_character(reader); next >= 0; next = reader_character(reader)) {
            text.push_back(static_cast<char>(next));
        }
        return text;
    }
    ScratchDirectory directory;
    TextReader reader;
};

TEST(TextReader, AnIntegerTakesTheWhiteSpaceBehindItAlong) {
    Source source(" \t 12 \r\n\n\v\f -7x");
    int value = 0;
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(value, 12);
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(value, -7);
    EXPECT_EQ(source.rest(), "x");
}

TEST(TextReader, ACellLeavesTheWhiteSpaceBehindIt) {
    Source source("1 0\n2");
    int value = 0;
    EXPECT_TRUE(reader_cell(source.reader, value));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(source.rest(), " 0\n2");
}

TEST(TextReader, AFailedReadLeavesItsTargetAndTheTextThatDoesNotMatch) {
    Source source("  abc 5");
    int integer = 41;
    float single = 4.5F;
    double real = 8.25;
    EXPECT_FALSE(reader_int(source.reader, integer));
    EXPECT_FALSE(reader_cell(source.reader, integer));
    EXPECT_FALSE(reader_float(source.reader, single));
    EXPECT_FALSE(reader_double(source.reader, real));
    EXPECT_EQ(integer, 41);
    EXPECT_EQ(single, 4.5F);
    EXPECT_EQ(real, 8.25);
    EXPECT_EQ(source.rest(), "abc 5");
}

TEST(TextReader, AtTheEndOfTheFileEveryReadFailsAndLeavesItsTarget) {
    Source source(" \n ");
    int integer = 3;
    double real = 2.5;
    EXPECT_FALSE(reader_int(source.reader, integer));
    EXPECT_FALSE(reader_double(source.reader, real));
    EXPECT_FALSE(reader_int(source.reader, integer));
    EXPECT_EQ(integer, 3);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(reader_character(source.reader), -1);
    EXPECT_TRUE(reader_at_end(source.reader));
}

TEST(TextReader, AFileThatIsNotThereReadsAsAnEmptyOne) {
    const ScratchDirectory directory;
    TextReader reader = reader_open((directory.path() / "none").string());
    EXPECT_FALSE(reader.opened());
    int integer = 3;
    float single = 1.5F;
    double real = 2.5;
    EXPECT_FALSE(reader_int(reader, integer));
    EXPECT_FALSE(reader_cell(reader, integer));
    EXPECT_FALSE(reader_float(reader, single));
    EXPECT_FALSE(reader_double(reader, real));
    EXPECT_EQ(integer, 3);
    EXPECT_EQ(single, 1.5F);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(reader_label(reader), "");
    EXPECT_EQ(reader_line(reader), "");
    EXPECT_EQ(reader_character(reader), -1);
    EXPECT_EQ(reader_offset(reader), -1);
    EXPECT_TRUE(reader_at_end(reader));
    reader_skip_space(reader);
}

TEST(TextReader, AnIntegerStopsAtAPointAndARealGoesOn) {
    Source source("3.75");
    int integer = 0;
    double real = 0.0;
    EXPECT_TRUE(reader_int(source.reader, integer));
    EXPECT_EQ(integer, 3);
    EXPECT_TRUE(reader_double(source.reader, real));
    EXPECT_EQ(real, 0.75);
}

TEST(TextReader, ASignAloneFailsAndIsConsumed) {
    for (const char* text : {"-x", "+x"}) {
        Source source(text);
        int integer = 9;
        EXPECT_FALSE(reader_int(source.reader, integer));
        EXPECT_EQ(integer, 9);
        EXPECT_EQ(source.rest(), "x");
        Source again(text);
        double real = 9.5;
        EXPECT_FALSE(reader_double(again.reader, real));
        EXPECT_EQ(real, 9.5);
        EXPECT_EQ(again.rest(), "x");
    }
}

TEST(TextReader, NamesOfInfinityAndOfNoNumberAreReals) {
    Source source("inf -INF infinity nan -NaN nan(12)");
    double value = 0.0;
    EXPECT_TRUE(reader_double(source.reader, value));
    EXPECT_EQ(value, HUGE_VAL);
    EXPECT_TRUE(reader_double(source.reader, value));
    EXPECT_EQ(value, -HUGE_VAL);
    EXPECT_TRUE(reader_double(source.reader, value));
    EXPECT_EQ(value, HUGE_VAL);
    for (int repeat = 0; repeat < 2; ++repeat) {
        value = 0.0;
        EXPECT_TRUE(reader_double(source.reader, value));
        EXPECT_TRUE(std::isnan(value));
    }
}

TEST(TextReader, HexadecimalRealsAreReals) {
    Source source("0x1.8p1 0xA -0x.8");
    double real = 0.0;
    float single = 0.0F;
    EXPECT_TRUE(reader_double(source.reader, real));
    EXPECT_EQ(real, 3.0);
    EXPECT_TRUE(reader_float(source.reader, single));
    EXPECT_EQ(single, 10.0F);
    EXPECT_TRUE(reader_double(source.reader, real));
    EXPECT_EQ(real, -0.5);
}

TEST(TextReader, IntegersAreDecimalOnly) {
    Source source("0x10 010");
    int value = 7;
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(value, 0);
    EXPECT_EQ(reader_label(source.reader), "x10");
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(value, 10);
}

TEST(TextReader, SinglesAreRoundedOnceFromTheText) {
    Source source("0.1 1e39 16777217");
    float value = 0.0F;
    EXPECT_TRUE(reader_float(source.reader, value));
    EXPECT_EQ(value, 0.1F);
    EXPECT_TRUE(reader_float(source.reader, value));
    EXPECT_TRUE(std::isinf(value));
    EXPECT_TRUE(reader_float(source.reader, value));
    EXPECT_EQ(value, 16777216.0F);
}

TEST(TextReader, ACommaEndsANumber) {
    Source source("2,5");
    double value = 0.0;
    EXPECT_TRUE(reader_double(source.reader, value));
    EXPECT_EQ(value, 2.0);
    EXPECT_EQ(source.rest(), ",5");
}

// Texts on which scanners are known to disagree about what is read or consumed.
const std::vector<std::string> kNastyTexts = {
    "",        " ",      "-",       "+",     "--5",        "+-5",      "5",       "5 \n\t6",
    "-0",      "007",    "1e",      "1e+",   "1e5x",       "1E-3 4",   ".",       ".5",
    "5.",      "-.5e1",  "..5",     "0x",    "0xg",        "0x1p",     "0x1p+",   "0x.p1",
    "in",      "inx",    "inf",     "infi",  "infinit",    "infinity", "na",      "nanx",
    "nan(",    "nan(a)", "i nf",    "1,5",   "12abc",      "abc",      "\r\n7\r", "1\0022",
    "9999999", "1e400",  "-1e-400", "1e-46", "4294967297", "1 000",    "1'000",   "\xC2\xA0 5",
    "5\xC2",   "#5",     "5#",      "%d",    "1.5.2",      "1..2",     "0e0",     "+0x1",
    "1_000",   "True",   "\"5\"",   "5\"6",  "\v5\f6",     "-inf 3",   "-na 3",   "2147483647",
};

// The reader and the C library's own scan read one number each; results, targets and what is left
// must be the same.
template <class Number, class Read>
void expect_scan_as_the_library(const char* format, Number before, Read read) {
    for (const std::string& text : kNastyTexts) {
        SCOPED_TRACE("text \"" + text + "\", format " + format);
        Source source(text);
        const ScratchDirectory directory;
        std::FILE* file = std::fopen(directory.write("text", text).c_str(), "r");
        ASSERT_NE(file, nullptr);
        Number expected = before;
        Number found = before;
        // The scan is the point of the test, so its format is no literal here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        const bool scanned = std::fscanf(file, format, &expected) == 1;
#pragma GCC diagnostic pop
        EXPECT_EQ(read(source.reader, found), scanned);
        EXPECT_TRUE(found == expected || (found != found && expected != expected));
        EXPECT_EQ(reader_offset(source.reader), std::ftell(file));
        std::fclose(file);
    }
}

TEST(TextReader, ScansNumbersAsTheCLibraryDoesConsumptionIncluded) {
    expect_scan_as_the_library<int>("%d\n", 31, reader_int);
    expect_scan_as_the_library<int>("%d", 31, reader_cell);
    expect_scan_as_the_library<float>("%f\n", 2.5F, reader_float);
    expect_scan_as_the_library<double>("%lf\n", 2.5, reader_double);
}

TEST(TextReader, ALabelIsOneTokenWithTheWhiteSpaceBehindIt) {
    Source source(" \n actors:\t\r\n \n 5");
    EXPECT_EQ(reader_label(source.reader), "actors:");
    EXPECT_EQ(source.rest(), "5");
}

TEST(TextReader, ALabelMayHaveAnyLength) {
    const std::string label(100000, 'x');
    Source source(label + " 5\n");
    EXPECT_EQ(reader_label(source.reader), label);
    int value = 0;
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(value, 5);
}

TEST(TextReader, ALabelKeepsEveryByteThatIsNotWhiteSpace) {
    Source source("a\xC3\xA4\xA0,%s\x01 b");
    EXPECT_EQ(reader_label(source.reader), "a\xC3\xA4\xA0,%s\x01");
    EXPECT_EQ(reader_label(source.reader), "b");
    EXPECT_EQ(reader_label(source.reader), "");
}

TEST(TextReader, ALineKeepsItsBlanksAndItsCarriageReturn) {
    Source source("C:\\my files\\x.txt \t\r\n\n  next");
    EXPECT_EQ(reader_line(source.reader), "C:\\my files\\x.txt \t\r");
    EXPECT_EQ(source.rest(), "next");
}

TEST(TextReader, ALineEndsAtTheEndOfTheFile) {
    Source source("last line ");
    EXPECT_EQ(reader_line(source.reader), "last line ");
    EXPECT_EQ(reader_line(source.reader), "");
    EXPECT_TRUE(reader_at_end(source.reader));
}

TEST(TextReader, ALineMayHaveAnyLengthAndHoldAnyByteButALineFeed) {
    std::string line(100000, 'y');
    line += std::string("\0\xFF\x1A", 3);
    Source source(line + "\nz");
    EXPECT_EQ(reader_line(source.reader), line);
    EXPECT_EQ(source.rest(), "z");
}

TEST(TextReader, AnEmptyLineIsEmptyAndTakesTheBlankLinesBehindItAlong) {
    Source source("\n\n \nnext");
    EXPECT_EQ(reader_line(source.reader), "");
    EXPECT_EQ(source.rest(), "next");
}

TEST(TextReader, CharactersComeAsUnsignedAndThenTheEnd) {
    Source source("\xFF\n");
    EXPECT_EQ(reader_character(source.reader), 255);
    EXPECT_EQ(reader_character(source.reader), '\n');
    EXPECT_EQ(reader_character(source.reader), -1);
    EXPECT_EQ(reader_character(source.reader), -1);
}

TEST(TextReader, TheOffsetIsThatOfTheNextCharacter) {
    Source source("ab  7 x");
    EXPECT_EQ(reader_offset(source.reader), 0);
    EXPECT_EQ(reader_label(source.reader), "ab");
    EXPECT_EQ(reader_offset(source.reader), 4);
    int value = 0;
    EXPECT_TRUE(reader_int(source.reader, value));
    EXPECT_EQ(reader_offset(source.reader), 6);
    EXPECT_FALSE(reader_at_end(source.reader));
    EXPECT_EQ(reader_offset(source.reader), 6);
}

}  // namespace
