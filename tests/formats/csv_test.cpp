// Lines and fields of text tables.
#include "formats/csv.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::vector<std::string>>;

Lines lines_of(std::string_view text, char delimiter) {
    Lines lines;
    CsvScanner scanner(text, delimiter);
    while (scanner.next()) {
        auto& line = lines.emplace_back();
        for (const CsvField& field : scanner.fields()) {
            line.emplace_back(field.text);
        }
    }
    return lines;
}

TEST(Csv, CutsAtDelimitersAndDropsSpaceAroundFields) {
    EXPECT_EQ(lines_of("a, b ,c\n1,,3\n", ','), (Lines{{"a", "b", "c"}, {"1", "", "3"}}));
    EXPECT_EQ(lines_of("a\t\tb\n", '\t'), (Lines{{"a", "", "b"}}));
    EXPECT_EQ(lines_of("  1   2\t3  \n4 5 6", kBlanks), (Lines{{"1", "2", "3"}, {"4", "5", "6"}}));
}

TEST(Csv, EveryLineEndWillDo) {
    const Lines expected = {{"a", "b"}, {"c", "d"}};
    EXPECT_EQ(lines_of("a,b\nc,d\n", ','), expected);
    EXPECT_EQ(lines_of("a,b\r\nc,d\r\n", ','), expected);
    EXPECT_EQ(lines_of("a,b\rc,d", ','), expected);
}

TEST(Csv, QuotedFieldsHoldAnything) {
    EXPECT_EQ(lines_of("\"a, b\",\"say \"\"no\"\"\",\" x \"\n", ','),
              (Lines{{"a, b", "say \"no\"", " x "}}));
    EXPECT_EQ(lines_of("\"two\nlines\",b\nc,d", ','), (Lines{{"two\nlines", "b"}, {"c", "d"}}));
}

TEST(Csv, LinesAndColumnsAreCountedFromOne) {
    CsvScanner scanner("# comment\n\n\"\xC3\xA9\na\", b\n\nc,d\n", ',');
    ASSERT_TRUE(scanner.next());
    EXPECT_EQ(scanner.line(), 3);
    ASSERT_TRUE(scanner.next());
    EXPECT_EQ(scanner.line(), 6);
    EXPECT_EQ(scanner.column(1), 3);
    CsvScanner accents("\xC3\xA9\xC3\xA9,b\n", ',');
    ASSERT_TRUE(accents.next());
    EXPECT_EQ(accents.column(1), 4);
}

TEST(Csv, CommentsStandBeforeTheDataOnly) {
    EXPECT_EQ(lines_of("# a\n% b\n1,2\n#3,4\n", ','), (Lines{{"1", "2"}, {"#3", "4"}}));
}

TEST(Csv, AQuoteThatNeverClosesIsFoundWithoutReadingOn) {
    const std::string text = "a,b\nc,\"d\n" + std::string(10000000, 'x');
    CsvScanner scanner(text, ',');
    EXPECT_TRUE(scanner.next());
    EXPECT_FALSE(scanner.next());
    EXPECT_TRUE(scanner.unclosed());
    EXPECT_EQ(unclosed_quote("f", scanner).line, 2);
}

TEST(Csv, DelimitersAreGuessed) {
    EXPECT_EQ(guess_delimiter("a,b\nc,d\n"), ',');
    EXPECT_EQ(guess_delimiter("a;b;3,5\nc;d;1,0\n"), ';');
    EXPECT_EQ(guess_delimiter("a\tb c\nd\te\n"), '\t');
    EXPECT_EQ(guess_delimiter("1 2\n2 3\n"), kBlanks);
    EXPECT_EQ(guess_delimiter("Ann Lee,Bob May\nCid Fox,Ann Lee\n"), ',');
    EXPECT_EQ(guess_delimiter("name\nAnn Lee\nBob May\n", true), ',');
}

TEST(Csv, WrittenFieldsReadBack) {
    for (const std::string text : {"plain", "a, b", "say \"no\"", " x", "", "#1", "two\nlines"}) {
        EXPECT_EQ(lines_of(csv_field(text) + ",z\n", ','), (Lines{{text, "z"}}));
    }
}

}  // namespace
