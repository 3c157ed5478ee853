// UCINET's DL files in their forms.
#include <gtest/gtest.h>

#include "formats/network_file.h"

namespace {

NetworkFile read_text(const std::string& text, const NetworkOptions& options = {}) {
    return read_network(text_file_of("a.dl", text), options, nullptr);
}

std::string ties_of(const NetworkFile& file) {
    std::string text;
    for (const Problem& problem : file.problems) {
        text += "[" + problem_text(problem) + "]";
    }
    for (const ActorTie& tie : file.network.ties) {
        text += (text.empty() ? "" : ",") +
                file.network.actors[static_cast<std::size_t>(tie.from)] + " " +
                file.network.actors[static_cast<std::size_t>(tie.to)];
    }
    return text;
}

Problem problem_of(const NetworkFile& file) {
    EXPECT_FALSE(file.ok()) << ties_of(file);
    return file.ok() ? Problem() : file.problems[0];
}

const std::string kMatrix = "0 1 0\n1 0 1\n0 1 0\n";

TEST(DlFile, FullMatrices) {
    EXPECT_EQ(ties_of(read_text("dl n=3\ndata:\n" + kMatrix)), "1 2,2 3");
    EXPECT_EQ(ties_of(read_text("DL N = 3, FORMAT = FULLMATRIX\nLABELS:\nann,\"bob lee\",cid\n"
                                "DATA:\n" +
                                kMatrix)),
              "ann bob lee,bob lee cid");
    EXPECT_EQ(ties_of(read_text("dl n=3 format=fullmatrix\nlabels embedded:\ndata:\nann bob cid\n"
                                "ann 0 1 0\nbob 1 0 1\ncid 0 1 0\n")),
              "ann bob,bob cid");
    EXPECT_EQ(ties_of(read_text("dl nr=3 nc=3\nrow labels:\na b c\ncol labels:\na b c\ndata:\n" +
                                kMatrix)),
              "a b,b c");
    EXPECT_EQ(ties_of(read_text("dl n=3 diagonal=absent\ndata:\n1 0\n1 1\n0 1\n")), "1 2,2 3");
    EXPECT_TRUE(read_text("dl n=3\ndata:\n0 1 0\n0 0 1\n0 0 0\n").network.directed);
}

TEST(DlFile, HalfMatricesAreUndirected) {
    const NetworkFile lower = read_text("dl n=3 format=lowerhalf\ndata:\n0\n1 0\n0 1 0\n");
    EXPECT_EQ(ties_of(lower), "1 2,2 3");
    EXPECT_FALSE(lower.network.directed);
    EXPECT_EQ(ties_of(read_text("dl n=3 format=upperhalf diagonal=absent\ndata:\n1 0\n1\n")),
              "1 2,2 3");
}

TEST(DlFile, ListsOfTiesAndOfNeighbours) {
    EXPECT_EQ(ties_of(read_text("dl n=3 format=edgelist1\nlabels:\na,b,c\ndata:\n1 2\n3 1 1\n",
                                {.directed = true})),
              "a b,c a");
    const NetworkFile embedded = read_text(
        "dl n=4 format=edgelist1\nlabels embedded\ndata:\nann bob\ncid ann\n", {.directed = true});
    EXPECT_EQ(ties_of(embedded), "ann bob,cid ann");
    EXPECT_EQ(embedded.counts.actors, 4);
    EXPECT_EQ(
        ties_of(read_text("dl n=3 format=nodelist1\ndata:\n1 2 3\n3 1\n", {.directed = true})),
        "1 2,1 3,3 1");
    EXPECT_EQ(problem_of(read_text("dl n=3 format=edgelist1\ndata:\n1 2\n")).field, "directed");
}

TEST(DlFile, ValuesNeedAThreshold) {
    const std::string text = "dl n=3\ndata:\n0 5 0\n5 0 2\n0 2 0\n";
    EXPECT_EQ(problem_of(read_text(text)).line, 3);
    EXPECT_EQ(ties_of(read_text(text, {.threshold = 3.0})), "1 2");
}

TEST(DlFile, MistakesHaveTheirPlace) {
    const Problem few = problem_of(read_text("dl n=3\ndata:\n0 1 0\n1 0\n"));
    EXPECT_EQ(few.found, "the end of the file");
    const Problem many = problem_of(read_text("dl n=2\ndata:\n0 1\n1 0\n0 1\n"));
    EXPECT_EQ(many.line, 5);
    const Problem word = problem_of(read_text("dl n=2\ndata:\n0 x\n1 0\n"));
    EXPECT_EQ(word.line, 3);
    EXPECT_EQ(word.column, 3);
    EXPECT_EQ(problem_of(read_text("dl n=2 frmat=x\ndata:\n0 1\n1 0\n")).column, 8);
    EXPECT_EQ(problem_of(read_text("dl n=2\nformat=blocks\ndata:\n0 1\n1 0\n")).found,
              "the form `blocks`");
    EXPECT_EQ(problem_of(read_text("dl nr=2 nc=3\ndata:\n0 1 1\n1 0 1\n")).found,
              "data of two modes");
    EXPECT_FALSE(read_text("dl n=2 nm=2\ndata:\n0 1\n1 0\n0 1\n1 0\n").ok());
    EXPECT_FALSE(read_text("dl n=999999999\ndata:\n0\n").ok());
    EXPECT_FALSE(read_text("dl n=2\nlabels:\na,a\ndata:\n0 1\n1 0\n").ok());
    EXPECT_FALSE(read_text("dl n=2 format=edgelist1\ndata:\n1 3\n", {.directed = true}).ok());
    EXPECT_FALSE(read_text("dl n=2").ok());
    EXPECT_FALSE(read_text("0 1\n1 0\n", {.format = NetworkFormat::dl}).ok());
}

}  // namespace
