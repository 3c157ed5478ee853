// Edge lists and matrices as people have them.
#include <gtest/gtest.h>

#include "formats/network_file.h"
#include "support/scratch_directory.h"

namespace {

NetworkFile read_text(const std::string& text, const NetworkOptions& options = {},
                      const ActorList* nodes = nullptr) {
    return read_network(text_file_of("net.csv", text), options, nodes);
}

// "a b,b c" by names, in the network's order.
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

bool tells(const NetworkFile& file, const std::string& text) {
    for (const std::string& note : file.notes) {
        if (note.find(text) != std::string::npos) {
            return true;
        }
    }
    return false;
}

const NetworkOptions kUndirected = {.directed = false};
const NetworkOptions kDirected = {.directed = true};

TEST(EdgeList, NamesAndNumbersWithAnyDelimiter) {
    EXPECT_EQ(ties_of(read_text("ann,bob\nbob,cid\n", kUndirected)), "ann bob,bob cid");
    EXPECT_EQ(ties_of(read_text("10 9\n9 1\n", kUndirected)), "1 9,9 10");
    EXPECT_EQ(ties_of(read_text("ann lee;bob\nbob;cid\n", kDirected)), "ann lee bob,bob cid");
    EXPECT_EQ(ties_of(read_text("a\tb\r\nb\ta\r\n", kDirected)), "a b,b a");
}

TEST(EdgeList, HeadLinesAreGuessedAndTold) {
    const NetworkFile words = read_text("from,to\nann,bob\n", kUndirected);
    EXPECT_EQ(ties_of(words), "ann bob");
    EXPECT_TRUE(tells(words, "head"));
    EXPECT_EQ(ties_of(read_text("person,friend\n1,2\n2,3\n", kUndirected)), "1 2,2 3");
    EXPECT_EQ(ties_of(read_text("giver,taker,gifts\na,b,1\nb,c,1\n", kDirected)), "a b,b c");
    const ActorList nodes = {"ann", "bob", "cid"};
    EXPECT_EQ(ties_of(read_text("who,whom\nann,bob\n", kDirected, &nodes)), "ann bob");
    EXPECT_EQ(ties_of(read_text("ann,bob\nbob,cid\n", kDirected)), "ann bob,bob cid");
    EXPECT_EQ(ties_of(read_text("a,b\nb,c\n", kDirected)), "a b,b c");
    NetworkOptions headless = kUndirected;
    headless.head = false;
    EXPECT_EQ(ties_of(read_text("from,to\nann,bob\n", headless)), "from to,ann bob");
}

TEST(EdgeList, AFirstLineWhoseNamesComeNowhereElseIsTold) {
    const std::string text = "von,nach\nann,bob\nbob,cid\n";
    const NetworkFile read = read_text(text, kUndirected);
    EXPECT_EQ(read.counts.ties, 3);
    EXPECT_TRUE(tells(read, "a tie of `von` and `nach`, who come nowhere else"));
    EXPECT_FALSE(tells(read_text("ann,bob\nbob,cid\nann,eve\n", kUndirected), "nowhere else"));
    EXPECT_FALSE(tells(read_text("1,2\n3,4\n4,5\n", kUndirected), "nowhere else"));
    NetworkOptions said = kUndirected;
    said.head = false;
    EXPECT_FALSE(tells(read_text(text, said), "nowhere else"));
    said.head = true;
    EXPECT_EQ(read_text(text, said).counts.ties, 2);
}

TEST(EdgeList, WeightsNeedAThreshold) {
    const std::string text = "from,to,hours\na,b,3\nb,c,0.5\n";
    const Problem problem = problem_of(read_text(text, kUndirected));
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.field, "column `hours`");
    EXPECT_NE(problem.mend.find("threshold = 1"), std::string::npos);
    NetworkOptions options = kUndirected;
    options.threshold = 1.0;
    const NetworkFile file = read_text(text, options);
    EXPECT_EQ(ties_of(file), "a b");
    EXPECT_EQ(file.counts.actors, 3);
    EXPECT_EQ(file.counts.below_threshold, 1);
    EXPECT_EQ(ties_of(read_text("a,b,1\nb,c,1\n", kUndirected)), "a b,b c");
}

TEST(EdgeList, AWeightThatIsNoNumberIsShown) {
    NetworkOptions options = kUndirected;
    options.threshold = 1.0;
    const Problem text = problem_of(read_text("a,b,3\nb,c,many\n", options));
    EXPECT_EQ(text.line, 2);
    EXPECT_EQ(text.column, 5);
    const Problem comma = problem_of(read_text("a;b;3,5\nb;c;1,0\n", options));
    EXPECT_NE(comma.found.find("decimal comma"), std::string::npos);
    EXPECT_FALSE(read_text("a,b,NA\nb,c,1\n", options).ok());
}

TEST(EdgeList, OneOrFourColumnsAreNoTies) {
    const Problem one = problem_of(read_text("ann\nbob\n", kUndirected));
    EXPECT_EQ(one.line, 1);
    EXPECT_EQ(one.found, "1 column");
    // Once is enough.
    EXPECT_EQ(read_text("ann\nbob\ncid\n", kUndirected).problems.size(), 1U);
    EXPECT_EQ(read_text("a,b\nb\nc\n", kUndirected).problems.size(), 2U);
    const Problem four = problem_of(read_text("a,b,1,x\nc,d,2,y\n", kUndirected));
    EXPECT_EQ(four.found, "4 columns");
    const Problem later = problem_of(read_text("a,b\nb,c\nc\n", kUndirected));
    EXPECT_EQ(later.line, 3);
    const Problem nameless = problem_of(read_text("a,b\n,c\n", kUndirected));
    EXPECT_EQ(nameless.line, 2);
    EXPECT_EQ(nameless.field, "from");
}

TEST(EdgeList, WhatIsLeftOutOrJoinedIsCounted) {
    const NetworkFile file = read_text("a,b\nb,a\na,b\nc,c\nb,c\n", kUndirected);
    EXPECT_EQ(ties_of(file), "a b,b c");
    EXPECT_EQ(file.counts.self_ties, 1);
    EXPECT_EQ(file.counts.duplicates, 1);
    EXPECT_EQ(file.counts.given_both_ways, 1);
    EXPECT_TRUE(tells(file, "1 tie given both ways"));
    const NetworkFile directed = read_text("a,b\nb,a\na,b\n", kDirected);
    EXPECT_EQ(ties_of(directed), "a b,b a");
    EXPECT_EQ(directed.counts.duplicates, 1);
    EXPECT_EQ(directed.counts.given_both_ways, 0);
}

TEST(EdgeList, OppositeWordsOnOneTieAreAProblem) {
    NetworkOptions options = kUndirected;
    options.threshold = 1.0;
    const Problem problem = problem_of(read_text("a,b,2\nb,a,0\n", options));
    EXPECT_NE(problem.field.find("`a` and `b`"), std::string::npos);
    EXPECT_EQ(ties_of(read_text("a,b,2\nb,a,3\n", options)), "a b");
}

TEST(EdgeList, NodesGiveOrderAndIsolates) {
    const ActorList nodes = {"zoe", "ann", "bob"};
    const NetworkFile file = read_text("ann,bob\n", kUndirected, &nodes);
    EXPECT_EQ(file.network.actors, nodes);
    EXPECT_EQ(file.counts.isolates, 1);
    EXPECT_EQ(file.counts.only_in_nodes, 1);
    const Problem stranger = problem_of(read_text("ann,bob\nann,eve\n", kUndirected, &nodes));
    EXPECT_EQ(stranger.line, 2);
    EXPECT_EQ(stranger.field, "actor `eve`");
}

TEST(EdgeList, DirectionMustBeSaidOrGuessedOnRequest) {
    EXPECT_EQ(problem_of(read_text("a,b\nb,c\n")).field, "directed");
    EXPECT_FALSE(read_text("a,b\nb,c\n", {.guess_direction = true}).network.directed);
    EXPECT_TRUE(read_text("a,b\nb,a\nb,c\n", {.guess_direction = true}).network.directed);
    EXPECT_FALSE(read_text("a,b\nb,a\n", {.guess_direction = true}).network.directed);
}

TEST(Matrix, WithAndWithoutNames) {
    const std::string expected = "1 2,2 3";
    EXPECT_EQ(ties_of(read_text("0 1 0\n1 0 1\n0 1 0\n")), expected);
    EXPECT_EQ(ties_of(read_text("0,1,0,\n1,0,1,\n0,1,0,\n")), expected);
    const std::string named = "ann bob,bob cid";
    EXPECT_EQ(ties_of(read_text(",ann,bob,cid\nann,0,1,0\nbob,1,0,1\ncid,0,1,0\n")), named);
    EXPECT_EQ(ties_of(read_text("ann,bob,cid\nann,0,1,0\nbob,1,0,1\ncid,0,1,0\n")), named);
    EXPECT_EQ(ties_of(read_text("x,1,2,3\n1,0,1,0\n2,1,0,1\n3,0,1,0\n")), expected);
    NetworkOptions options;
    options.format = NetworkFormat::matrix;
    EXPECT_EQ(ties_of(read_text("ann,bob,cid\n0,1,0\n1,0,1\n0,1,0\n", options)), named);
    EXPECT_EQ(ties_of(read_text("ann,,1,0\nbob,1,,1\ncid,0,1,\n", options)), named);
    const ActorList nodes = {"zoe", "ann", "bob"};
    EXPECT_EQ(ties_of(read_text("0 1 0\n1 0 1\n0 1 0\n", {}, &nodes)), "zoe ann,ann bob");
}

TEST(Matrix, SymmetryTellsTheDirection) {
    EXPECT_FALSE(read_text("0 1 0\n1 0 1\n0 1 0\n").network.directed);
    const NetworkFile directed = read_text("0 1 0\n0 0 1\n0 0 0\n");
    EXPECT_TRUE(directed.network.directed);
    EXPECT_EQ(ties_of(directed), "1 2,2 3");
    EXPECT_TRUE(tells(read_text("0 1 0\n1 0 1\n0 1 0\n", kDirected), "symmetric although"));
}

TEST(Matrix, AsymmetryWhereUndirectedWasSaidIsAProblem) {
    const Problem problem = problem_of(read_text("0 1 0\n1 0 1\n0 0 0\n", kUndirected));
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.field, "actors `2` and `3`");
    EXPECT_NE(problem.mend.find("directed = true"), std::string::npos);
}

TEST(Matrix, MustBeSquare) {
    const Problem wide = problem_of(read_text("0 1 0 1\n1 0 1 0\n0 1 0 1\n"));
    EXPECT_EQ(wide.found, "3 rows, 4 columns");
    const Problem ragged = problem_of(read_text("0 1 0 1\n1 0 1\n0 1 0 1\n0 1 0 1\n"));
    EXPECT_EQ(ragged.line, 2);
    EXPECT_EQ(ragged.found, "3 cells");
}

TEST(Matrix, ZerosAndOnesThatAreNotSquareAreNoListOfTwoActors) {
    for (const char* text : {"0 1 0\n1 0 1\n", "0,1\n1,0\n0,0\n", "0,1,1\n1,0,0\n1,0,0\n0,0,0\n"}) {
        const Problem problem = problem_of(read_text(text, kDirected));
        EXPECT_NE(problem.found.find(" zeros and ones"), std::string::npos) << problem.found;
        EXPECT_NE(problem.mend.find("format = \"edge-list\""), std::string::npos);
    }
    // Whoever says what it is gets it; others have more actors, or name these two.
    NetworkOptions options = kDirected;
    options.format = NetworkFormat::edge_list;
    EXPECT_EQ(ties_of(read_text("0 1 1\n1 0 1\n", options)), "0 1,1 0");
    EXPECT_EQ(ties_of(read_text("0,1\n1,0\n1,2\n", kDirected)), "0 1,1 0,1 2");
    EXPECT_EQ(ties_of(read_text("from,to\n0,1\n1,0\n0,1\n", kDirected)), "0 1,1 0");
    const ActorList nodes = {"0", "1", "2"};
    EXPECT_EQ(ties_of(read_text("0,1,1\n1,0,1\n", kDirected, &nodes)), "0 1,1 0");
}

TEST(Matrix, NumbersThatMayBeAListAreTold) {
    const char* const list = "1,2,1\n2,3,1\n3,1,1\n";
    EXPECT_TRUE(tells(read_text(list, kDirected),
                      "3 lines of 3 numbers were read as ties (from, to, weight); if they are a "
                      "matrix, write `format = \"matrix\"`"));
    const char* const matrix = "0,2,1\n2,0,3\n1,3,0\n";
    EXPECT_TRUE(tells(read_text(matrix, {.threshold = 2.0}),
                      "numbers were read as a matrix; if they are ties (from, to, weight), write "
                      "`format = \"edge-list\"`"));
    EXPECT_NE(problem_of(read_text(matrix)).mend.find("were read as a matrix"), std::string::npos);
    // What can be one thing alone is read without a word.
    for (const char* text : {"0 1 0\n1 0 1\n0 1 0\n", "1,2\n2,3\n3,4\n", "1,2,1\n2,3,1\n",
                             "from,to,w\n1,2,1\n2,3,1\n3,1,1\n"}) {
        EXPECT_FALSE(tells(read_text(text, kDirected), "were read as")) << text;
    }
    NetworkOptions options = kDirected;
    options.format = NetworkFormat::edge_list;
    EXPECT_FALSE(tells(read_text(list, options), "were read as"));
}

TEST(Matrix, CellsAreNumbersAndNamesAgree) {
    const Problem cell = problem_of(read_text("0 1 0 1\n1 0 NA 0\n0 1 0 1\n1 0 1 0\n"));
    EXPECT_EQ(cell.line, 2);
    EXPECT_EQ(cell.column, 5);
    EXPECT_EQ(cell.field, "row `2`, column `3`");
    NetworkOptions options;
    options.format = NetworkFormat::matrix;
    const Problem names =
        problem_of(read_text(",ann,bob,cid\nann,0,1,0\ncid,1,0,1\nbob,0,1,0\n", options));
    EXPECT_EQ(names.line, 3);
    EXPECT_FALSE(read_text(",ann,ann,cid\nann,0,1,0\nann,1,0,1\ncid,0,1,0\n", options).ok());
}

TEST(Matrix, ValuesNeedAThreshold) {
    const std::string text = "0 2 0 1\n2 0 7 0\n0 7 0 1\n1 0 1 0\n";
    const Problem problem = problem_of(read_text(text));
    EXPECT_EQ(problem.line, 1);
    EXPECT_EQ(problem.column, 3);
    EXPECT_EQ(ties_of(read_text(text, {.threshold = 2.0})), "1 2,2 3");
    EXPECT_EQ(read_text("1 1 0\n1 0 1\n0 1 0\n").counts.self_ties, 1);
}

TEST(Network, AMillionLinesAndTenThatAreNone) {
    std::string list;
    for (int k = 0; k < 1000000; ++k) {
        list += std::to_string(k % 5000) + "," + std::to_string(k * 7 % 4999) + "\n";
    }
    EXPECT_EQ(read_text(list, kDirected).counts.actors, 5000);
    std::string prose;
    for (int k = 0; k < 2000000; ++k) {
        prose += "w" + std::to_string(k) + ",v\n";
    }
    const NetworkFile strangers = read_text(prose, kDirected);
    EXPECT_EQ(problem_of(strangers).field, "actors");
}

TEST(Network, PairsOfAFileAreMatchedWithTheActors) {
    const ScratchDirectory directory;
    const NetworkFile file = read_text("a,b\nb,c\n", kUndirected);
    Problems problems;
    const auto pairs = read_pairs(directory.write("p.csv", "c,a\na,b\n"), file.network, problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(pairs, (std::vector<ActorTie>{{0, 1}, {0, 2}}));
    read_pairs(directory.write("q.csv", "c,x\n"), file.network, problems);
    EXPECT_EQ(problems.size(), 1U);
}

TEST(Network, AValueThatIsNotKnownIsToldWhereItStands) {
    for (const char* word : {"NA", "nan", "."}) {
        const std::string text =
            std::string(",a,b,c\na,0,1,") + word + "\nb,1,0,1\nc," + word + ",1,0\n";
        const Problem problem = problem_of(read_text(text));
        EXPECT_EQ(problem.line, 2) << word;
        EXPECT_EQ(problem.column, 7) << word;
        EXPECT_EQ(problem.field, "row `a`, column `c`");
        EXPECT_NE(problem.found.find("not known"), std::string::npos) << problem.found;
        EXPECT_NE(problem.mend.find("write 0 or 1"), std::string::npos) << problem.mend;
    }
}

}  // namespace
