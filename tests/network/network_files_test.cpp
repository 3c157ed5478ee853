// Undirected networks from matrix files and at random, and on their way out.
#include "network/network_files.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "support/random_networks.h"
#include "support/scratch_directory.h"

namespace {

using reference::PlainGraph;

Graph read_text(const std::string& text, int vertices) {
    const ScratchDirectory directory;
    return graph_read_matrix(directory.write("matrix", text), vertices, 0, 0);
}

RandomSource held_clock(std::int64_t seconds) {
    RandomSource random;
    random.clock_seconds = [seconds] { return seconds; };
    return random;
}

std::string matrix_text(const Graph& graph) {
    const ScratchDirectory directory;
    const std::string path = (directory.path() / "out").string();
    {
        TextWriter out = writer_replace(path);
        write_matrix(out, graph);
    }
    return directory.read("out");
}

TEST(NetworkFiles, AMatrixIsReadWithAllItsTables) {
    TestRandom random(51);
    for (int n = 1; n <= 20; ++n) {
        const PlainGraph plain = random_graph(random, n, 0.5);
        std::string text;
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                text += reference::tied(plain, i, j) ? "1 " : "0 ";
            }
            text += "\n";
        }
        const Graph graph = read_text(text, n);
        const Graph expected = engine_graph(plain);
        EXPECT_EQ(graph.adjacency.words, expected.adjacency.words);
        EXPECT_EQ(graph.two_paths.cells, expected.two_paths.cells);
        EXPECT_EQ(graph.triangles, expected.triangles);
        EXPECT_EQ(graph.triangle_distribution, expected.triangle_distribution);
        EXPECT_EQ(graph.two_path_distribution, expected.two_path_distribution);
        EXPECT_EQ(graph.degree_distribution, expected.degree_distribution);
    }
}

TEST(NetworkFiles, CellsBelowTheDiagonalMakeNoTie) {
    EXPECT_EQ(read_text("0 0 0\n1 0 0\n1 1 0\n", 3).edges, 0);
}

TEST(NetworkFiles, CellsAboveTheDiagonalAreEnough) {
    const Graph graph = read_text("0 1 0\n0 0 1\n0 0 0\n", 3);
    EXPECT_EQ(graph.edges, 2);
    EXPECT_TRUE(graph_has_edge(graph, 1, 0));
    EXPECT_EQ(graph.two_paths[0][2], 1);
}

TEST(NetworkFiles, OnlyAOneMakesATie) {
    EXPECT_EQ(read_text("0 2 -1\n0 0 11\n0 0 0\n", 3).edges, 0);
    EXPECT_EQ(read_text("0 01 +1\n0 0 0\n0 0 0\n", 3).edges, 2);
}

TEST(NetworkFiles, ADiagonalOneMakesNoLoop) {
    const Graph graph = read_text("1 0\n0 1\n", 2);
    EXPECT_EQ(graph.edges, 0);
    EXPECT_FALSE(graph_has_edge(graph, 0, 0));
}

TEST(NetworkFiles, LineEndsAndBlanksBetweenCellsAreAllTheSame) {
    const Graph graph = read_text("\r\n0\t1 0 0\r\n0 1\n\n0 0 0", 3);
    EXPECT_EQ(graph.edges, 2);
}

TEST(NetworkFiles, AShortFileRepeatsTheLastCellItHolds) {
    EXPECT_EQ(read_text("0 0 0\n0 0 1", 3).edges, 1);
    EXPECT_EQ(read_text("0 0 1", 4).edges, 5);
    EXPECT_EQ(read_text("0 1 0", 4).edges, 1);
}

TEST(NetworkFiles, ACellThatCannotBeReadRepeatsTheLastValueFromThereOn) {
    EXPECT_EQ(read_text("0 1 x 0\n0 0 0 0\n", 4).edges, 6);
    EXPECT_EQ(read_text("x 1 1\n", 3).edges, 0);
    EXPECT_EQ(read_text("0 1.5 0\n", 3).edges, 3);
}

TEST(NetworkFiles, ASignAloneTakesItsCellAndTheCellsBehindItAreStillRead) {
    const Graph graph = read_text("0 - 1\n0 0 0\n0 0 0\n", 3);
    EXPECT_EQ(graph.edges, 1);
    EXPECT_TRUE(graph_has_edge(graph, 0, 2));
}

TEST(NetworkFiles, DamagedMatricesAreReadAsACellByCellScanReadsThem) {
    TestRandom random(53);
    const std::vector<std::string> tokens = {"0", "1", "1", "0", "-", "+", "x", "1.5", "--1", "1x"};
    for (int repeat = 0; repeat < 300; ++repeat) {
        const int n = 2 + draw_below(random, 6);
        std::string text;
        for (int cell = draw_below(random, n * n + 3); cell > 0; --cell) {
            const bool damaged = draw_below(random, 8) == 0;
            text += tokens[static_cast<std::size_t>(draw_below(random, damaged ? 10 : 4))];
            text += draw_below(random, 5) == 0 ? "\n" : " ";
        }
        const ScratchDirectory directory;
        const std::string path = directory.write("matrix", text);
        std::FILE* file = std::fopen(path.c_str(), "r");
        ASSERT_NE(file, nullptr);
        Graph expected = graph_create(n, 0, 0);
        int value = 0;
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                static_cast<void>(!std::fscanf(file, "%d", &value));
                if (i < j && value == 1) {
                    graph_add_tie(expected, i, j);
                }
            }
        }
        std::fclose(file);
        EXPECT_EQ(graph_read_matrix(path, n, 0, 0).adjacency.words, expected.adjacency.words)
            << text;
    }
}

TEST(NetworkFiles, WhatStandsBehindTheMatrixIsNotRead) {
    EXPECT_EQ(read_text("0 1\n1 0\n1 1 1 1 labels", 2).edges, 1);
}

TEST(NetworkFiles, AFileThatIsNotThereGivesAnEmptyNetwork) {
    const ScratchDirectory directory;
    const Graph graph = graph_read_matrix((directory.path() / "none").string(), 6, 2, 4);
    EXPECT_EQ(graph.vertices, 6);
    EXPECT_EQ(graph.edges, 0);
    EXPECT_EQ(graph.statistics.size(), 2U);
    EXPECT_EQ(graph.clique_counts.size(), 4U);
}

TEST(NetworkFiles, ANetworkOfNoActorsReadsNothing) {
    EXPECT_EQ(read_text("1 1 1", 0).edges, 0);
    EXPECT_EQ(read_text("1 1 1", -3).edges, 0);
}

TEST(NetworkFiles, ReadAsBitsAloneHaveTheTiesOfTheNetwork) {
    const ScratchDirectory directory;
    TestRandom random(52);
    for (const int n : {-2, 0, 1, 7, 70}) {
        std::string text;
        for (int cell = 0; cell < n * n - 3; ++cell) {
            text += draw_below(random, 3) == 0 ? "1 " : draw_below(random, 5) == 0 ? "2\n" : "0 ";
        }
        const std::string path = directory.write("matrix", text);
        EXPECT_EQ(graph_read_dyads(path, n).words,
                  graph_read_matrix(path, n, 0, 0).adjacency.words);
        EXPECT_EQ(digraph_read_dyads(path, n).words,
                  digraph_read_matrix(path, n, 0).adjacency.words);
    }
}

TEST(RandomStartNetwork, HasTheTiesItWasAskedFor) {
    for (int n = 2; n <= 15; ++n) {
        for (int target = 0; target <= n * (n - 1) / 2; target += n) {
            RandomSource random = held_clock(100 + n);
            const Graph graph = graph_random_with_edges(n, target, 0, 0, random);
            EXPECT_EQ(graph.edges, target);
        }
    }
}

TEST(RandomStartNetwork, DrawsBothActorsOfEachPairInTurnFromTheClocksSeed) {
    RandomSource random = held_clock(77);
    const Graph graph = graph_random_with_edges(9, 12, 0, 0, random);
    RandomSource plain;
    plain.state = 77;
    Graph expected = graph_create(9, 0, 0);
    while (expected.edges < 12) {
        const int a = random_draw(plain) % 9;
        const int b = random_draw(plain) % 9;
        if (a != b && !graph_has_edge(expected, a, b)) {
            graph_add_tie(expected, a, b);
        }
    }
    EXPECT_EQ(graph.adjacency.words, expected.adjacency.words);
    EXPECT_EQ(graph.two_paths.cells, expected.two_paths.cells);
    EXPECT_EQ(random.state, plain.state);
}

TEST(RandomStartNetwork, OfNoTiesDrawsNothingButReseeds) {
    RandomSource random = held_clock(77);
    random.state = 5;
    EXPECT_EQ(graph_random_with_edges(9, 0, 0, 0, random).edges, 0);
    EXPECT_EQ(random.state, 77U);
    EXPECT_EQ(graph_random_with_edges(9, -4, 0, 0, random).edges, 0);
}

TEST(RandomStartNetwork, CanBeComplete) {
    RandomSource random = held_clock(3);
    EXPECT_EQ(graph_random_with_edges(12, 66, 0, 0, random).edges, 66);
}

TEST(RandomStartNetwork, BeyondTheCompleteNetworkEndsThere) {
    for (const int n : {2, 5, 12}) {
        RandomSource random = held_clock(3);
        EXPECT_EQ(graph_random_with_edges(n, n * n, 0, 0, random).edges, n * (n - 1) / 2);
    }
}

TEST(RandomStartNetwork, WithoutAnyDyadEndsWithoutATie) {
    for (const int n : {-1, 0, 1}) {
        RandomSource random = held_clock(3);
        EXPECT_EQ(graph_random_with_edges(n, 4, 0, 0, random).edges, 0);
    }
}

TEST(MatrixOutput, HasTwoHeadLinesAndABlankBehindEachCell) {
    EXPECT_EQ(matrix_text(engine_graph(reference::make_graph(3, {{0, 1}, {1, 2}}))),
              "*vertices 3\n*matrix\n0 1 0 \n1 0 1 \n0 1 0 \n");
    EXPECT_EQ(matrix_text(graph_create(0, 0, 0)), "*vertices 0\n*matrix\n");
}

TEST(MatrixOutput, ReadsRowsOfMoreThanOneWordMostSignificantBitFirst) {
    const PlainGraph plain = graphs_across_words(52)[3];
    const std::string text = matrix_text(engine_graph(plain));
    std::string expected = "*vertices " + std::to_string(plain.n) + "\n*matrix\n";
    for (int i = 0; i < plain.n; ++i) {
        for (int j = 0; j < plain.n; ++j) {
            expected += reference::tied(plain, i, j) ? "1 " : "0 ";
        }
        expected += "\n";
    }
    EXPECT_EQ(text, expected);
}

TEST(MatrixOutput, TwoWritesToOneFileAreTwoMatrices) {
    const ScratchDirectory directory;
    const std::string path = (directory.path() / "out").string();
    const Graph graph = engine_graph(reference::complete_graph(2));
    for (int repeat = 0; repeat < 2; ++repeat) {
        TextWriter out = writer_append(path);
        write_matrix(out, graph);
    }
    const std::string once = "*vertices 2\n*matrix\n0 1 \n1 0 \n";
    EXPECT_EQ(directory.read("out"), once + once);
}

TEST(PajekRecord, HasItsNameTheMatrixAndTwoLineFeeds) {
    const ScratchDirectory directory;
    const std::string path = (directory.path() / "out").string();
    const Graph graph = engine_graph(reference::complete_graph(2));
    write_pajek_record(graph, "C:\\out\\a b%s_1.txt", path);
    write_pajek_record(graph, "", path);
    const std::string matrix = "*vertices 2\n*matrix\n0 1 \n1 0 \n\n\n";
    EXPECT_EQ(directory.read("out"),
              "*Network C:\\out\\a b%s_1.txt\n" + matrix + "*Network \n" + matrix);
}

TEST(PajekRecord, OfAPlaceThatCannotBeWrittenIsLost) {
    const ScratchDirectory directory;
    write_pajek_record(graph_create(2, 0, 0), "x", (directory.path() / "none" / "out").string());
    EXPECT_FALSE(directory.exists("none"));
}

}  // namespace
