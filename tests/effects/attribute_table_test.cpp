// The files of actor attributes and dyadic covariates.
#include "effects/attribute_table.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "reference/attributes.h"
#include "support/random_networks.h"
#include "support/scratch_directory.h"

namespace {

using Strings = std::vector<std::string>;
using Ints = std::vector<int>;
using Floats = std::vector<float>;

// Reads a text as one of the files and keeps what the console was told.
class Reading {
  public:
    template <class Read>
    Reading(Read read, const std::string& text, int actors, int count) {
        const std::string path = directory_.write("input", text);
        run(read, path, actors, count);
    }
    // A file that is not there.
    template <class Read>
    Reading(Read read, int actors, int count) {
        run(read, (directory_.path() / "none").string(), actors, count);
    }

    const AttributeTable& table() const { return table_; }
    std::string console() const { return directory_.read("console"); }

  private:
    template <class Read>
    void run(Read read, const std::string& path, int actors, int count) {
        std::FILE* console = std::fopen((directory_.path() / "console").c_str(), "w");
        ASSERT_NE(console, nullptr);
        read(table_, actors, count, path, console);
        std::fclose(console);
    }

    ScratchDirectory directory_;
    AttributeTable table_;
};

TEST(AttributeFiles, HoldALineOfNamesAndARowForEachActor) {
    const Reading binary(attribute_read_binary, "sex,member\n1\t0\n0\t1\n1\t9999\n", 3, 2);
    EXPECT_EQ(binary.table().binary_names, (Strings{"sex", "member"}));
    ASSERT_EQ(binary.table().binary.size(), 2U);
    EXPECT_EQ(binary.table().binary[0].values, (Ints{1, 0, 1}));
    EXPECT_EQ(binary.table().binary[1].values, (Ints{0, 1, 9999}));
    EXPECT_EQ(binary.console(), "sex\tmember\t");

    const Reading categorical(attribute_read_categorical, "group\n3\n-1\n3\n", 3, 1);
    EXPECT_EQ(categorical.table().categorical_names, Strings{"group"});
    EXPECT_EQ(categorical.table().categorical[0].values, (Ints{3, -1, 3}));
    EXPECT_EQ(categorical.console(), "group\t");

    const Reading continuous(attribute_read_continuous, "age,wealth\n1.5 2\n-3e1 .25\n", 2, 2);
    EXPECT_EQ(continuous.table().continuous_names, (Strings{"age", "wealth"}));
    EXPECT_EQ(continuous.table().continuous[0].values, (Floats{1.5F, -30.0F}));
    EXPECT_EQ(continuous.table().continuous[1].values, (Floats{2.0F, 0.25F}));
    EXPECT_EQ(continuous.console(), "age\twealth\t");
}

TEST(AttributeFiles, TheLastNameMayEndAtItsLineFeedOrAtACommaBeforeIt) {
    const Reading without(attribute_read_binary, "a,b\n1 0\n", 1, 2);
    EXPECT_EQ(without.table().binary_names, (Strings{"a", "b"}));
    EXPECT_EQ(without.table().binary[1].values, Ints{0});
    const Reading with(attribute_read_binary, "a,b,\n1 0\n", 1, 2);
    EXPECT_EQ(with.table().binary_names, (Strings{"a", "b"}));
    EXPECT_EQ(with.table().binary[0].values, Ints{1});
}

TEST(AttributeFiles, NamesKeepBlanksAndCarriageReturns) {
    const Reading reading(attribute_read_binary, "first name, second\r\n1 1\n", 1, 2);
    EXPECT_EQ(reading.table().binary_names, (Strings{"first name", " second\r"}));
    EXPECT_EQ(reading.console(), "first name\t second\r\t");
    EXPECT_EQ(reading.table().binary[1].values, Ints{1});
}

TEST(AttributeFiles, NamesMayHaveAnyLengthAndAnyCharacter) {
    const std::string name(5000, 'n');
    const Reading reading(attribute_read_binary, name + ",%s%n\n1 0\n", 1, 2);
    EXPECT_EQ(reading.table().binary_names, (Strings{name, "%s%n"}));
    EXPECT_EQ(reading.console(), name + "\t%s%n\t");
}

TEST(AttributeFiles, TooFewNamesTakeTheRowsForNames) {
    const Reading reading(attribute_read_binary, "only\n1 0\n0 1\n", 2, 2);
    EXPECT_EQ(reading.table().binary_names, (Strings{"only", "1 0"}));
    EXPECT_EQ(reading.table().binary[0].values, (Ints{0, 0}));
    EXPECT_EQ(reading.table().binary[1].values, (Ints{1, 0}));
}

TEST(AttributeFiles, TooFewRowsLeaveZeros) {
    const Reading binary(attribute_read_binary, "a\n1\n1\n", 4, 1);
    EXPECT_EQ(binary.table().binary[0].values, (Ints{1, 1, 0, 0}));
    const Reading continuous(attribute_read_continuous, "a\n2.5\n", 3, 1);
    EXPECT_EQ(continuous.table().continuous[0].values, (Floats{2.5F, 0.0F, 0.0F}));
}

TEST(AttributeFiles, AValueThatCannotBeReadLeavesZerosFromThereOn) {
    const Reading reading(attribute_read_categorical, "a\n1\nx\n2\n", 3, 1);
    EXPECT_EQ(reading.table().categorical[0].values, (Ints{1, 0, 0}));
    const Reading fraction(attribute_read_binary, "a\n1.5\n1\n", 2, 1);
    EXPECT_EQ(fraction.table().binary[0].values, (Ints{1, 0}));
}

TEST(AttributeFiles, ASignAloneCostsItsOwnCellOnly) {
    const Reading reading(attribute_read_binary, "a\n-\n1\n", 2, 1);
    EXPECT_EQ(reading.table().binary[0].values, (Ints{0, 1}));
}

TEST(AttributeFiles, AFileThatIsNotThereGivesEmptyNamesAndZeros) {
    const Reading binary(attribute_read_binary, 2, 2);
    EXPECT_EQ(binary.table().binary_names, (Strings{"", ""}));
    EXPECT_EQ(binary.table().binary[1].values, (Ints{0, 0}));
    EXPECT_EQ(binary.console(), "\t\t");
    const Reading continuous(attribute_read_continuous, 2, 1);
    EXPECT_EQ(continuous.table().continuous[0].values, (Floats{0.0F, 0.0F}));
}

TEST(AttributeFiles, ACountOfZeroOrBelowReadsNoNameAndNoValue) {
    for (const int count : {0, -3}) {
        const Reading reading(attribute_read_binary, "a\n1\n", 1, count);
        EXPECT_TRUE(reading.table().binary_names.empty());
        EXPECT_TRUE(reading.table().binary.empty());
        EXPECT_EQ(reading.console(), "");
    }
}

TEST(AttributeFiles, AreReadAnewWhenReadTwice) {
    const ScratchDirectory directory;
    const std::string path = directory.write("input", "a\n1\n0\n");
    AttributeTable table;
    for (int repeat = 0; repeat < 2; ++repeat) {
        attribute_read_binary(table, 2, 1, path, nullptr);
        attribute_read_continuous(table, 2, 1, path, nullptr);
        attribute_read_categorical(table, 2, 1, path, nullptr);
    }
    EXPECT_EQ(table.binary.size(), 1U);
    EXPECT_EQ(table.continuous.size(), 1U);
    EXPECT_EQ(table.categorical_names.size(), 1U);
}

TEST(CodedAttributes, KnowTheirOnesAndWhatIsNotZero) {
    TestRandom random(61);
    for (const int n : {0, 1, 63, 64, 65, 130}) {
        const Ints values = random_codes(random, n, {0, 1, 2, -1, 9999});
        const CodedAttribute attribute = coded_attribute(values);
        for (int actor = 0; actor < n; ++actor) {
            const int value = values[static_cast<std::size_t>(actor)];
            EXPECT_EQ(row_has(attribute.ones.row(), actor), value == 1);
            EXPECT_EQ(row_has(attribute.nonzero.row(), actor), value != 0);
        }
    }
}

TEST(ContinuousTables, AreThoseOfThePlainLoops) {
    TestRandom random(62);
    for (int n = 0; n < 12; ++n) {
        const Floats values = random_reals(random, n, {0.1F, 1e6F, -3.3F, 9999.0F, 9998.999F});
        const ContinuousAttribute attribute = continuous_attribute(values);
        const reference::ContinuousData plain = reference::continuous_data(values);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                EXPECT_EQ(attribute.sums[i][j], reference::cell(plain.sum, i, j));
                EXPECT_EQ(attribute.differences[i][j], reference::cell(plain.difference, i, j));
                EXPECT_EQ(attribute.products[i][j], reference::cell(plain.product, i, j));
            }
        }
    }
}

TEST(ContinuousTables, AreZeroAtEveryPairWithAMissingValue) {
    const Reading reading(attribute_read_continuous, "z\n9999\n5\n-2\n", 3, 1);
    const ContinuousAttribute& attribute = reading.table().continuous[0];
    for (int other = 0; other < 3; ++other) {
        for (const auto* table : {&attribute.sums, &attribute.differences, &attribute.products}) {
            EXPECT_EQ((*table)[0][other], 0.0F);
            EXPECT_EQ((*table)[other][0], 0.0F);
        }
    }
    EXPECT_EQ(attribute.sums[1][2], 3.0F);
    EXPECT_EQ(attribute.differences[1][2], 7.0F);
    EXPECT_EQ(attribute.products[2][1], -10.0F);
    EXPECT_EQ(attribute.sums[1][1], 10.0F);
}

TEST(CovariateFiles, HoldANameAndAMatrixEach) {
    const Reading reading(read_covariates, "distance\n0 1.5\n1.5 0\nadvice given\n0 -2\n3 0\n", 2,
                          2);
    EXPECT_EQ(reading.table().covariate_names, (Strings{"distance", "advice given"}));
    EXPECT_EQ(reading.table().covariates[0].cells, (Floats{0, 1.5F, 1.5F, 0}));
    EXPECT_EQ(reading.table().covariates[1].cells, (Floats{0, -2, 3, 0}));
    EXPECT_EQ(reading.console(), "distance\nadvice given\n");
}

TEST(CovariateFiles, NamesKeepWhatTheyHoldUpToTheirLineFeed) {
    const std::string name = " a, b \r" + std::string(3000, 'c');
    const Reading reading(read_covariates, name + "\n7\n", 1, 1);
    EXPECT_EQ(reading.table().covariate_names, Strings{name});
    EXPECT_EQ(reading.table().covariates[0].cells, Floats{7});
    EXPECT_EQ(reading.console(), name + "\n");
}

TEST(CovariateFiles, CellsThatCannotBeReadStayZero) {
    const Reading reading(read_covariates, "a\n1 2\nx 4\n", 2, 1);
    EXPECT_EQ(reading.table().covariates[0].cells, (Floats{1, 2, 0, 0}));
}

TEST(CovariateFiles, AFileThatIsNotThereGivesZeros) {
    const Reading reading(read_covariates, 2, 1);
    EXPECT_EQ(reading.table().covariate_names, Strings{""});
    EXPECT_EQ(reading.table().covariates[0].cells, Floats(4, 0.0F));
    EXPECT_EQ(reading.console(), "\n");
}

TEST(CovariateFiles, ACountOfZeroReadsNothing) {
    const Reading reading(read_covariates, "a\n1\n", 1, 0);
    EXPECT_TRUE(reading.table().covariates.empty());
    EXPECT_TRUE(reading.table().covariate_names.empty());
    EXPECT_EQ(reading.console(), "");
}

}  // namespace
