// Dyadic covariates as matrices and lists.
#include "formats/covariates.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

StudyNetwork network_of(const ActorList& actors, bool directed) {
    StudyNetwork network;
    network.actors = actors;
    network.directed = directed;
    return network;
}

const StudyNetwork kPeople = network_of({"ann", "bob", "cid", "dan"}, false);
const StudyNetwork kThree = network_of({"ann", "bob", "cid"}, true);

CovariateFile read_text(const std::string& text, const StudyNetwork& network,
                        std::optional<double> missing = {}) {
    const ScratchDirectory directory;
    return read_covariate(directory.write("d.csv", text), "distance", network, missing);
}

Problem problem_of(const CovariateFile& file) {
    EXPECT_FALSE(file.ok());
    return file.ok() ? Problem() : file.problems[0];
}

using Cells = std::vector<float>;

TEST(Covariate, MatricesAreMatchedByName) {
    const CovariateFile file = read_text(
        ",dan,ann,bob,cid\ndan,0,3,5,6\nann,3,0,1,2\nbob,5,1,0,4\ncid,6,2,4,0\n", kPeople);
    ASSERT_TRUE(file.ok()) << problem_text(file.problems[0]);
    EXPECT_EQ(file.covariate.values.cells, (Cells{0, 1, 2, 3, 1, 0, 4, 5, 2, 4, 0, 6, 3, 5, 6, 0}));
    EXPECT_EQ(file.covariate.name, "distance");
}

TEST(Covariate, MatricesWithoutNamesFollowTheActors) {
    const CovariateFile file = read_text("0 1.5 2 3\n1.5 0 4 5\n2 4 0 6\n3 5 6 0\n", kPeople);
    ASSERT_TRUE(file.ok()) << problem_text(file.problems[0]);
    EXPECT_EQ(file.covariate.values[0][1], 1.5F);
    EXPECT_EQ(file.covariate.values[3][2], 6.0F);
    EXPECT_FALSE(read_text("0 1 2\n1 0 4\n2 4 0\n", kPeople).ok());
}

TEST(Covariate, MatricesOfUndirectedNetworksAreSymmetric) {
    const Problem problem = problem_of(read_text("0 1 2 3\n1 0 4 5\n2 9 0 6\n3 5 6 0\n", kPeople));
    EXPECT_EQ(problem.field, "actors `bob` and `cid`");
    EXPECT_EQ(problem.found, "4 one way, 9 the other");
    EXPECT_TRUE(read_text("0 1 2\n5 0 4\n2 9 0\n", kThree).ok());
}

TEST(Covariate, ListsGiveEachPair) {
    const CovariateFile file = read_text(
        "from,to,km\nann,bob,1\nann,cid,2\ndan,ann,3\nbob,cid,4\nbob,dan,5\ncid,dan,6\n", kPeople);
    ASSERT_TRUE(file.ok()) << problem_text(file.problems[0]);
    EXPECT_EQ(file.covariate.values.cells, (Cells{0, 1, 2, 3, 1, 0, 4, 5, 2, 4, 0, 6, 3, 5, 6, 0}));
    const CovariateFile directed = read_text("ann,bob,1\nbob,ann,2\nann,cid,3\n", kThree, 0.0);
    ASSERT_TRUE(directed.ok()) << problem_text(directed.problems[0]);
    EXPECT_EQ(directed.covariate.values.cells, (Cells{0, 1, 3, 2, 0, 0, 0, 0, 0}));
}

TEST(Covariate, PairsThatAreNotThereNeedAWord) {
    const std::string text = "ann,bob,1\nann,cid,2\n";
    const Problem problem = problem_of(read_text(text, kPeople));
    EXPECT_EQ(problem.field, "actors `ann` and `dan`");
    EXPECT_EQ(problem.found, "no value for the pair, nor for 3 others");
    const CovariateFile file = read_text(text, kPeople, -1.0);
    EXPECT_EQ(file.covariate.values[3][0], -1.0F);
    EXPECT_EQ(file.covariate.values[3][3], 0.0F);
    EXPECT_EQ(file.notes.at(0), "4 pairs not in the list take -1");
}

TEST(Covariate, MistakesHaveTheirPlace) {
    const Problem stranger = problem_of(read_text("ann,bob,1\nann,eve,2\n", kPeople, 0.0));
    EXPECT_EQ(stranger.line, 2);
    EXPECT_EQ(stranger.column, 5);
    const Problem comma = problem_of(read_text("ann;bob;1,5\nann;cid;2\n", kPeople, 0.0));
    EXPECT_EQ(comma.found, "\"1,5\", a decimal comma");
    const Problem word = problem_of(read_text("ann,bob,1\nann,cid,far\n", kPeople, 0.0));
    EXPECT_EQ(word.column, 9);
    const Problem twice = problem_of(read_text("ann,bob,1\nbob,ann,2\n", kPeople, 0.0));
    EXPECT_EQ(twice.found, "2, and 1 before");
    const Problem four = problem_of(read_text("ann,bob,1,2\nann,cid,1,2\n", kPeople, 0.0));
    EXPECT_EQ(four.found, "4 columns");
}

TEST(Covariate, AsymmetryIsToldWhereItStands) {
    // Rows in another order than the network's.
    const Problem problem = problem_of(
        read_text("# distances\n,dan,ann,bob,cid\ndan,0,3,5,6\nann,3,0,1,2.5\nbob,5,1,0,4\n"
                  "cid,6,2,4,0\n",
                  kPeople));
    EXPECT_EQ(problem.field, "actors `ann` and `cid`");
    EXPECT_EQ(problem.line, 4);
    EXPECT_EQ(problem.column, 11);
    EXPECT_EQ(problem.found, "2.5 one way, 2 the other");
}

TEST(Covariate, TheMendOfALeftOutPairIsToml) {
    const ScratchDirectory directory;
    const CovariateFile file = read_covariate(
        directory.write("d.csv", "from,to,value\nann,bob,1\n"), "road km", kPeople, {});
    EXPECT_NE(problem_of(file).mend.find("\"road km\" = { file ="), std::string::npos)
        << problem_of(file).mend;
}

}  // namespace
