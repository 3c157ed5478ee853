// "ovri check" on the files that a setup file names.
#include "support/tool_runner.h"

namespace {

constexpr const char* kEdgeAndWealth =
    "Attributes 1\nBinary 0\nContinuous 1\n1\nFile wealth.txt\nw_sum 1 0\nw_diff 0 0\nw_prod 0 0\n"
    "Categorical 0";
constexpr const char* kTwoBinary =
    "Attributes 1\nBinary 1\n2\nFile binary.txt\n"
    "a1 0 0\na2 1 0\na3 0 0\na4 0 0\na5 0 0\na6 0 0\na7 0 0\na8 0 0\na9 0 0\na10 0 0\n"
    "b1 0 0\nb2 1 0\nb3 0 0\nb4 0 0\nb5 0 0\nb6 0 0\nb7 0 0\nb8 0 0\nb9 0 0\nb10 0 0\n"
    "Continuous 0\nCategorical 0";
constexpr const char* kOneCategory =
    "Attributes 1\nBinary 0\nContinuous 0\nCategorical 1\n1\nFile group.txt\nsame 1 0\nother 0 0";
constexpr const char* kTwoCovariates =
    "Covariates 1\n2\nFile covariates.txt\n"
    "a1 1 0\na2 0 0\na3 0 0\na4 0 0\na5 0 0\na6 0 0\nb1 0 0\nb2 0 0\nb3 0 0\nb4 0 0\nb5 0 0\nb6 0 "
    "0";
constexpr const char* kSquare = "0 1 2 3 4\n1 0 1 2 3\n2 1 0 1 2\n3 2 1 0 1\n4 3 2 1 0\n";

class ToolCheckFiles : public ToolTest {
  protected:
    void check_network(const std::string& text) {
        scratch.write("network.txt", text);
        check(ToolSetup());
    }
    void check_wealth(const std::string& text) {
        scratch.write("wealth.txt", text);
        check({.mode = 3, .attributes = kEdgeAndWealth});
    }
    void check_binary(const std::string& text) {
        scratch.write("binary.txt", text);
        check({.mode = 3, .attributes = kTwoBinary});
    }
    void check_group(const std::string& text) {
        scratch.write("group.txt", text);
        check({.mode = 3, .attributes = kOneCategory});
    }
    void check_covariates(const std::string& text) {
        scratch.write("covariates.txt", text);
        check({.covariates = kTwoCovariates});
    }
    void check_covariance(const std::string& text) {
        scratch.write("covariance.txt", text);
        check({.mode = 4, .effects = {{"edge", "1 -1.0"}, {"Triangle", "1 0.1"}}});
    }
};

}  // namespace

TEST_F(ToolCheckFiles, AMissingNetworkFileIsAnError) {
    check({.network = "nowhere.txt"});
    expect_error("network file", "net.setup:6: error");
    expect_error("network file", "\"nowhere.txt\", which cannot be opened");
}

TEST_F(ToolCheckFiles, APathMeantFromTheSetupFileIsExplained) {
    scratch.write("sub/matrix.txt", scratch.read("network.txt"));
    scratch.write("sub/net.setup", ToolSetup{.network = "matrix.txt"}.text());
    result = run_tool({"check", "sub/net.setup"}, scratch.path().string());
    expect_error("network file", "write \"sub/matrix.txt\"");
}

TEST_F(ToolCheckFiles, BackslashesInAPathAreExplained) {
    scratch.write("sub/matrix.txt", scratch.read("network.txt"));
    check({.network = "sub\\matrix.txt"});
    expect_error("network file", "write / for \\");
}

TEST_F(ToolCheckFiles, BlanksBehindAPathAreExplained) {
    check({.network = "network.txt  "});
    expect_error("network file", "remove the blanks at the end of the line");
}

TEST_F(ToolCheckFiles, TooFewCellsAreAnErrorWithTheSizeThatWouldFit) {
    check_network("0 1 0 0\n1 0 0 0\n0 0 0 1\n0 0 1 0\n");
    expect_error("network file", "the end of the file after 16 cells");
    expect_error("network file", "may be meant to be 4");
}

TEST_F(ToolCheckFiles, TooManyCellsAreAnError) {
    check_network("0 1 0 0 0 0\n1 0 0 0 0 0\n0 0 0 1 0 0\n0 0 1 0 0 0\n0 0 0 0 0 0\n0 0 0 0 0 0\n");
    expect_error("network file", "11 cells more than are read");
    expect_error("network file", "its first line holds 6 numbers");
    expect_error("network file", "may be meant to be 6");
}

TEST_F(ToolCheckFiles, TextInAMatrixIsAnErrorWithItsPlace) {
    check_network("0 1 1 0 0\n1 0 x 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "network.txt:2: error");
    expect_error("network file", "\"x\" in row 2, column 3; this and 17 more cells cannot be read");
}

TEST_F(ToolCheckFiles, ACellThatIsSwallowedRepeatsTheOneBefore) {
    check_network("0 1 1 0 0\n1 0 -x 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "\"-x\" in row 2, column 3");
}

TEST_F(ToolCheckFiles, MissingCellsAreCountedAndAnswered) {
    check_network("0 1 NA 0 0\n1 0 1 0 0\nNA 1 0 NA 0\n0 0 NA 0 0\n0 0 0 0 0\n");
    expect_error("network file", "network.txt:1: error");
    expect_error("network file", "\"NA\" in row 1, column 3 and in 3 more cells");
    expect_error("network file", "a network file has no missing values");
    check_network("0 1 9999 0 0\n1 0 1 0 0\n9999 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "a network file has no missing values");
}

TEST_F(ToolCheckFiles, TruthValuesAreAnsweredWithTheirDigits) {
    check_network("F T T F F\nT F T F F\nT T F T F\nF F T F F\nF F F F F\n");
    expect_error("network file", "write 0 for \"F\", and 1 for a tie");
    check_network("0 TRUE 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "\"TRUE\" in row 1, column 2");
    expect_error("network file", "write 1 for \"TRUE\"");
}

TEST_F(ToolCheckFiles, AnEdgeListIsCalledAnEdgeList) {
    for (const char* list :
         {"1 2\n1 3\n2 3\n3 4\n", "anna bert\nanna carl\n", "1 2 1\n1 3 1\n2 3 1\n",
          "1 2\n1 3\n1 4\n1 5\n2 3\n2 4\n2 5\n3 4\n3 5\n4 5\n2 1\n3 1\n4 1\n"}) {
        check_network(list);
        expect_error("network file", "network.txt:1: error");
        expect_error("network file", "an edge list");
        EXPECT_NE(result.out.find(" 1 error, 0 warnings"), std::string::npos) << result.out;
    }
    check_network("*Vertices 5\n1 \"a\"\n*Edges\n1 2\n");
    expect_error("network file", "a Pajek file");
}

TEST_F(ToolCheckFiles, AByteOrderMarkIsCalledByItsName) {
    const std::string matrix = scratch.read("network.txt");
    check_network("\xEF\xBB\xBF" + matrix);
    expect_error("network file", "a byte order mark (BOM)");
    check_network("\xFF\xFE" + matrix);
    expect_error("network file", "UTF-16");
    scratch.write("network.txt", matrix);
    check_wealth("\xEF\xBB\xBFwealth\n1\n2\n3\n4\n5\n");
    expect_warning("continuous attribute file", "the mark becomes part of the first name");
}

TEST_F(ToolCheckFiles, AShortRowIsReportedAtItsOwnLineAndRow) {
    check_network("\n0 1 1 0 0\n1 0 1 0 0\n\n1 1 0 1\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "network.txt:5: error");
    expect_error("network file", "row 3 holds 4 cells");
    expect_error("network file", "write the missing 1 cell");
    check_network("0 1 1 0 0\n1 0 1 0 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "network.txt:2: error");
    expect_error("network file", "remove 1 cell from the row");
    // Rows may be broken anywhere while their cells are complete.
    check_network("0 1 1\n0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_nothing();
}

TEST_F(ToolCheckFiles, HalfAMatrixIsAnErrorOfAnUndirectedNetwork) {
    check_network("0 1 1 0 0\n0 0 1 0 0\n0 0 0 1 0\n0 0 0 0 0\n0 0 0 0 0\n");
    expect_error("network file", "write each tie below the diagonal too");
    check_network("0 0 0 0 0\n1 0 0 0 0\n1 1 0 0 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "this network has no tie");
}

TEST_F(ToolCheckFiles, AHeadLineInAMatrixIsExplained) {
    check_network("a b c d e\n0 1 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "remove heads and names");
    // Though words of truth values and of missing ones are among the names.
    check_network("f n t na e\n0 1 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "remove heads and names");
}

TEST_F(ToolCheckFiles, CommasInAMatrixAreExplained) {
    check_network("0,1,1,0,0\n1,0,1,0,0\n1,1,0,1,0\n0,0,1,0,0\n0,0,0,0,0\n");
    expect_error("network file", "not by commas");
}

TEST_F(ToolCheckFiles, TextBehindAMatrixIsSurprising) {
    check_network("0 1 1 0 0\n1 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\nend\n");
    expect_warning("network file", "\"end\" behind the last cell");
}

TEST_F(ToolCheckFiles, CellsOtherThanZeroAndOneAreErrors) {
    check_network("0 2 1 0 0\n0 0 1 0 3\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n");
    expect_error("network file", "\"2\" in row 1, column 2 and 1 more cell");
}

TEST_F(ToolCheckFiles, TiesOnTheDiagonalAreSurprising) {
    check_network("0 1 1 0 0\n1 1 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 1\n");
    expect_warning("network file", "a tie of actor 2 to itself and 1 more such cell");
}

TEST_F(ToolCheckFiles, AnAsymmetricMatrixIsAnErrorOfAnUndirectedNetworkOnly) {
    const std::string matrix = "0 1 1 0 0\n0 0 1 0 0\n1 1 0 1 0\n0 0 1 0 0\n0 0 0 0 0\n";
    check_network(matrix);
    expect_error("network file", "network.txt:2: error");
    expect_error("network file", "row 2, column 1 differs from its mirror cell");
    check({.kind = 2, .effects = {{"arc", "1 0.0"}}});
    expect_nothing();
}

TEST_F(ToolCheckFiles, AnEmptyAndACompleteNetworkAreErrorsOfAnEstimation) {
    check_network("0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n0 0 0 0 0\n");
    expect_error("network file", "without ties");
    check({.mode = 3});
    expect_warning("network file", "without ties");
    check_network("0 1 1 1 1\n1 0 1 1 1\n1 1 0 1 1\n1 1 1 0 1\n1 1 1 1 0\n");
    expect_error("network file", "a complete observed network");
    check({.mode = 3});
    expect_warning("network file", "a complete observed network");
}

TEST_F(ToolCheckFiles, AMissingAttributeFileIsAnError) {
    check({.attributes = kEdgeAndWealth});
    expect_error("continuous attribute file", "\"wealth.txt\", which cannot be opened");
}

TEST_F(ToolCheckFiles, GoodAttributesHaveNoFindings) {
    check_wealth("wealth\n1.5\n2\n9999\n4\n-5e1\n");
    expect_nothing();
    check_binary("old,tall\n0 1\n1 0\n9999 0\n1 1\n0 0\n");
    expect_nothing();
    check_group("group,\n1\n2\n2\n3\n1\n");
    expect_nothing();
}

TEST_F(ToolCheckFiles, TheNumberOfNamesMustAgreeWithTheCount) {
    check_binary("old\n0 1\n1 0\n1 0\n1 1\n0 0\n");
    expect_error("binary attribute file", "1 name on the first line");
    check_wealth("wealth,age\n1\n2\n3\n4\n5\n");
    expect_error("continuous attribute file", "2 names on the first line");
}

TEST_F(ToolCheckFiles, NamesThatAreSeparatedByBlanksAreExplained) {
    check_binary("old tall\n0 1\n1 0\n1 0\n1 1\n0 0\n");
    expect_error("binary attribute file", "separate the names by commas");
}

TEST_F(ToolCheckFiles, AMissingLineOfNamesIsExplained) {
    check_wealth("1\n2\n3\n4\n5\n");
    expect_error("continuous attribute file", "after 4 values");
    EXPECT_NE(find_finding(result.out, "warning", "continuous attribute file", "numbers for names"),
              "");
    check_binary("0 1\n1 0\n1 0\n1 1\n0 0\n");
    expect_error("binary attribute file", "1 name on the first line");
}

TEST_F(ToolCheckFiles, TooFewAttributeValuesAreAnError) {
    check_binary("old,tall\n0 1\n1 0\n1\n1 1\n0 0\n");
    expect_error("binary attribute file", "binary.txt:4: error");
    expect_error("binary attribute file", "after 9 values; row 3 holds 1 value");
}

TEST_F(ToolCheckFiles, TooManyAttributeValuesAreAnError) {
    check_wealth("wealth\n1\n2\n3\n4\n5\n6\n");
    expect_error("continuous attribute file", "1 value more than are read");
    // One row too wide gives its own second value to the next actor, and so on.
    check_binary("old,tall\n0 1\n1 0 1\n1 0\n1 1\n0 0\n");
    expect_error("binary attribute file", "binary.txt:3: error");
    expect_error("binary attribute file", "row 2 holds 3 values");
    check_wealth("wealth\n1\n2\n3\n4\n5\nend\n");
    expect_warning("continuous attribute file", "\"end\" behind the last value");
}

TEST_F(ToolCheckFiles, RowsThatAreBrokenUnevenlyAreSurprising) {
    check_binary("old,tall\n0 1 1\n0 1\n0\n1 1\n0 0\n");
    expect_warning("binary attribute file", "binary.txt:2: warning");
    expect_warning("binary attribute file", "3 values on the line");
}

TEST_F(ToolCheckFiles, AttributeValuesThatAreNoNumbersAreErrors) {
    check_wealth("wealth\n1\n2\nNA\n4\n5\n");
    expect_error("continuous attribute file", "wealth.txt:4: error");
    // A word that begins like a number that is none is swallowed, and reading goes on behind it.
    expect_error("continuous attribute file",
                 "\"NA\" where value 1 of actor 3 is read; it cannot be read and stays 0");
    expect_error("continuous attribute file", "9999 stands for a missing value");
    check_wealth("wealth\n1\n2\n?\n4\n5\n");
    expect_error("continuous attribute file", "\"?\" where value 1 of actor 3 is read; this and 2");
    check_wealth("wealth\n1\nNA\nNA\n4\n5\n");
    expect_error("continuous attribute file", "for each of the 2 missing values: 9999");
    check_binary("old,tall\n0 TRUE\n1 0\n1 0\n1 1\n0 0\n");
    expect_error("binary attribute file", "write 1 for \"TRUE\"");
    check_group("group\n1\nNA\n2\n3\n1\n");
    expect_error("categorical attribute file", "a code that no other has");
}

TEST_F(ToolCheckFiles, BinaryValuesOtherThanZeroOneAndMissingAreSurprising) {
    check_binary("old,tall\n0 1\n1 2\n9999 0\n1 3\n0 0\n");
    expect_warning("binary attribute file", "binary.txt:3: warning");
    expect_warning("binary attribute file", "2 for actor 2 and 1 more such value");
}

TEST_F(ToolCheckFiles, CategoricalCodesThatAreNotWholeAreErrors) {
    check_group("group\n1\n2.5\n2\n3\n1\n");
    expect_error("categorical attribute file", "\".5\" where value 1 of actor 3 is read");
    expect_error("categorical attribute file", "write whole numbers");
}

TEST_F(ToolCheckFiles, NamesWithBlanksAndRepeatedNamesAreSurprising) {
    check_binary("old age,tall\n0 1\n1 0\n1 0\n1 1\n0 0\n");
    expect_warning("binary attribute file", "the name \"old age\"");
    check_binary("old,old\n0 1\n1 0\n1 0\n1 1\n0 0\n");
    expect_warning("binary attribute file", "the name \"old\" twice");
}

TEST_F(ToolCheckFiles, AnAttributeThatDoesNotVaryIsSurprising) {
    check_group("group\n2\n2\n2\n2\n2\n");
    expect_warning("categorical attribute file", "\"group\" is the same for all actors");
}

TEST_F(ToolCheckFiles, GoodCovariatesHaveNoFindings) {
    check_covariates(std::string("near\n") + kSquare + "far\n" + kSquare);
    expect_nothing();
}

TEST_F(ToolCheckFiles, ACovariateWithTooFewRowsIsFoundByTheNextName) {
    const std::string rows = kSquare;
    check_covariates("near\n" + rows.substr(0, rows.rfind('4')) + "\nfar\n" + rows);
    expect_error("covariate 1 of 2", "\"far\" after");
    check_covariates("near\n" + rows.substr(0, rows.size() - 10) + "far\n" + rows);
    expect_error("covariate 1 of 2", "write the missing 1 row");
}

TEST_F(ToolCheckFiles, ACovariateWithTooManyRowsIsFoundByItsNumbersForAName) {
    check_covariates(std::string("near\n") + kSquare + "5 4 3 2 1\nfar\n" + kSquare);
    expect_error("covariate 2 of 2", "remove the rows that covariate 1 has more than 5");
}

TEST_F(ToolCheckFiles, AShortRowOfACovariateIsReportedAtItsOwnLine) {
    const std::string short_row = with(kSquare, "2 1 0 1 2", "2 1 0 1");
    check_covariates("near\n" + short_row + "far\n" + kSquare);
    expect_error("covariate 1 of 2", "covariates.txt:4: error");
    expect_error("covariate 1 of 2", "row 3 holds 4 values");
}

TEST_F(ToolCheckFiles, MissingValuesOfACovariateAreCountedAndAnswered) {
    check_covariates("near\n" + with(with(kSquare, "2 1 0", "NA 1 0"), "0 1 2 3", "0 1 NA 3") +
                     "far\n" + kSquare);
    expect_error("covariate 1 of 2", "for each of the 2 missing values");
}

TEST_F(ToolCheckFiles, ACovariateFileThatEndsEarlyIsAnError) {
    check_covariates(std::string("near\n") + kSquare + "far\n0 1 2\n");
    expect_error("covariate 2 of 2", "the end of the file after 3 values of \"far\"");
}

TEST_F(ToolCheckFiles, CovariateNamesWithBlanksAndRepeatedNamesAreSurprising) {
    check_covariates(std::string("so near\n") + kSquare + "far\n" + kSquare);
    expect_warning("covariate 1 of 2", "the name \"so near\"");
    check_covariates(std::string("near\n") + kSquare + "near\n" + kSquare);
    expect_warning("covariate 2 of 2", "the name \"near\" twice");
}

TEST_F(ToolCheckFiles, AnAsymmetricCovariateOfAnUndirectedNetworkIsSurprising) {
    check_covariates(std::string("near\n") + with(kSquare, "0 1 2", "0 7 2") + "far\n" + kSquare);
    expect_warning("covariate 1 of 2", "1 pair of \"near\" with two different values");
}

TEST_F(ToolCheckFiles, TextBehindTheCovariatesIsSurprising) {
    check_covariates(std::string("near\n") + kSquare + "far\n" + kSquare + "third\n");
    expect_warning("covariate file", "\"third\" behind the last value");
}

TEST_F(ToolCheckFiles, TheCovarianceHasARowAndAColumnForEachEffect) {
    check_covariance("1 0.5\n0.5 2\n");
    expect_nothing();
    check_covariance("1 0.5\n");
    expect_error("covariance file", "the end of the file after 2 numbers");
    expect_error("covariance file", "2 x 2 numbers, for the 2 effects selected");
    check_covariance("1 0 0\n0 1 0\n0 0 1\n");
    expect_error("covariance file", "9 numbers");
    check_covariance("1 nought\n0 1\n");
    expect_error("covariance file", "\"nought\" after 1 number");
}

TEST_F(ToolCheckFiles, AMatrixThatIsNoCovarianceIsSurprising) {
    check_covariance("1 0.5\n0.2 2\n");
    expect_warning("covariance file", "1 pair of cells that differ");
    check_covariance("1 0\n0 -2\n");
    expect_warning("covariance file", "1 negative variance");
}
