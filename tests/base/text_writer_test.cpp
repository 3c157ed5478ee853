#include "base/text_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/scratch_directory.h"

namespace {

struct Target {
    ScratchDirectory directory;
    std::string path = (directory.path() / "out").string();
    std::string text() const { return directory.read("out"); }
};

TEST(TextWriter, AppendingAddsAtTheEndAndReplacingDropsWhatWasThere) {
    const Target target;
    writer_append(target.path).text("one ");
    writer_append(target.path).text("two ");
    EXPECT_EQ(target.text(), "one two ");
    writer_replace(target.path).text("three");
    EXPECT_EQ(target.text(), "three");
}

TEST(TextWriter, ASectionIsCompleteOnceItsWriterIsGone) {
    const Target target;
    {
        TextWriter out = writer_append(target.path);
        out.print("%d\t%s\n", 5, "x");
    }
    EXPECT_EQ(target.text(), "5\tx\n");
}

TEST(TextWriter, OpeningAloneCreatesAnEmptyFile) {
    const Target target;
    static_cast<void>(writer_append(target.path));
    EXPECT_EQ(target.text(), "");
}

TEST(TextWriter, TextGoesOutAsItStands) {
    const Target target;
    TextWriter(writer_replace(target.path)).text(std::string("100%s %n \0 end", 14));
    EXPECT_EQ(target.text(), std::string("100%s %n \0 end", 14));
    TextWriter(writer_replace(target.path)).text("50%d\r\n");
    EXPECT_EQ(target.text(), "50%d\r\n");
}

TEST(TextWriter, ANumberIsFormattedAsPrintfDoes) {
    const Target target;
    {
        TextWriter out = writer_replace(target.path);
        for (const char* format : {"%.0f ", "%.5f\t", "%lf ", "  %8.5f|", "%.3f\n"}) {
            out.number(format, 2.5);
        }
    }
    EXPECT_EQ(target.text(), "2 2.50000\t2.500000    2.50000|2.500\n");
}

TEST(TextWriter, InfinityAndWhatIsNoNumberKeepTheirSign) {
    const Target target;
    {
        TextWriter out = writer_replace(target.path);
        out.number("%f ", std::numeric_limits<double>::infinity());
        out.number("%f ", -std::numeric_limits<double>::infinity());
        out.number("%f ", std::copysign(std::numeric_limits<double>::quiet_NaN(), 1.0));
        out.number("%f ", std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0));
        out.number("%.0f", -0.0);
    }
    EXPECT_EQ(target.text(), "inf -inf nan -nan -0");
}

TEST(TextWriter, CellsAreEachFollowedByATab) {
    const Target target;
    {
        TextWriter out = writer_replace(target.path);
        out.cells(std::vector<int>{3, -1, 0});
        out.cells(std::vector<int>{});
        out.text("\n");
    }
    EXPECT_EQ(target.text(), "3\t-1\t0\t\n");
}

TEST(TextWriter, APlaceThatCannotBeWrittenSwallowsEverything) {
    const ScratchDirectory directory;
    const std::string nowhere = (directory.path() / "none" / "out").string();
    for (TextWriter* out : {new TextWriter(writer_append(nowhere)),
                            new TextWriter(writer_replace(nowhere)), new TextWriter(nullptr)}) {
        out->print("%d", 1);
        out->text("x");
        out->text(std::string("y"));
        out->number("%f", 1.0);
        out->cells(std::vector<int>{1});
        delete out;
    }
    EXPECT_FALSE(directory.exists("none"));
}

TEST(TextWriter, AStreamOfSomebodyElseStaysOpen) {
    const Target target;
    std::FILE* stream = std::fopen(target.path.c_str(), "w");
    ASSERT_NE(stream, nullptr);
    { TextWriter(stream).text("engine "); }
    std::fputs("host", stream);
    EXPECT_EQ(std::fclose(stream), 0);
    EXPECT_EQ(target.text(), "engine host");
}

TEST(TextWithName, FillsInTheNameWhateverItHolds) {
    EXPECT_EQ(text_with_name("%s_O3u", "sex"), "sex_O3u");
    EXPECT_EQ(text_with_name("/PLOT %s.", "a%s%n"), "/PLOT a%s%n.");
    EXPECT_EQ(text_with_name("no name", "x"), "no name");
    EXPECT_EQ(text_with_name("%s_x", ""), "_x");
    const std::string long_name(5000, 'n');
    EXPECT_EQ(text_with_name("%s_diff", long_name), long_name + "_diff");
}

TEST(TextWithName, FillsInTheFirstPlaceOnly) {
    EXPECT_EQ(text_with_name("%s and %s", "a"), "a and %s");
}

TEST(TextWithLambda, FillsInTheLambdaWithTwoDecimals) {
    EXPECT_EQ(text_with_lambda("AS(%.2f)", 2.0F), "AS(2.00)");
    EXPECT_EQ(text_with_lambda("AET(%.2f)\t", 0.125F), "AET(0.12)\t");
    EXPECT_EQ(text_with_lambda("as", 2.0F), "as");
}

TEST(TextWithLambda, IsNotCutHoweverLongItGets) {
    const std::string tail(300, 'x');
    EXPECT_EQ(text_with_lambda(("A2P(%.2f)" + tail).c_str(), 3.0e38F),
              "A2P(300000000549775575777803994281145270272.00)" + tail);
}

}  // namespace
