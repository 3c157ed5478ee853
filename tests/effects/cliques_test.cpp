// Cliques of three actors and more, whole and through one dyad, and their alternating sum.
#include "effects/cliques.h"

#include <gtest/gtest.h>

#include "reference/structural.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::PlainGraph;
using reference::Stage;

const Names kCliques = {"4-clique", "5-clique", "6-clique", "7-clique"};

PlainGraphs small_graphs() { return graphs_of_all_densities(5001, 3, 12, 14); }
PlainGraphs fewer_graphs() { return graphs_of_all_densities(5002, 3, 10, 2); }

std::vector<double> clique_changes_of(const PlainGraph& plain, int i, int j, Stage stage,
                                      int depth) {
    EngineState state = engine_state(plain, i, j, stage, depth);
    state.graph.clique_changes.assign(state.graph.clique_changes.size(), 99.0);
    graph_clique_changes(state.graph, i, j);
    return state.graph.clique_changes;
}

std::vector<double> clique_counts_of(const PlainGraph& plain, int depth) {
    Graph graph = engine_graph(plain, 0, depth);
    graph.clique_counts.assign(graph.clique_counts.size(), 99.0);
    graph_count_cliques(graph);
    return graph.clique_counts;
}

TEST(Cliques, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kCliques, {0.0F}, small_graphs()));
}

TEST(Cliques, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kCliques, {0.0F}, small_graphs()));
}

TEST(Cliques, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kCliques, {0.0F}, small_graphs()));
}

TEST(Cliques, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kCliques, {0.0F}, fewer_graphs(), 0.0));
}

TEST(Cliques, ReadRowsOfMoreThanOneWord) {
    const PlainGraphs graphs = graphs_across_words(5003);
    EXPECT_TRUE(changes_match_reference(kCliques, {0.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kCliques, {0.0F}, graphs));
    // A dyad inside the clique that lies across the boundary of two words.
    for (const PlainGraph& plain : {graphs[2], graphs[3]}) {
        const auto changes = clique_changes_of(plain, 63, 64, Stage::deletion, 8);
        EXPECT_EQ(changes[4], 1.0);
        EXPECT_EQ(changes,
                  reference::clique_changes(
                      reference::evaluation_state(plain, 63, 64, Stage::deletion), 63, 64, 8));
    }
}

TEST(Cliques, TablesOfEveryDepthAreThoseOfThePlainEnumeration) {
    for (const PlainGraph& plain : fewer_graphs()) {
        for (int depth = 0; depth <= 8; ++depth) {
            EXPECT_EQ(clique_counts_of(plain, depth), reference::clique_counts(plain, depth));
            for (int j = 1; j < plain.n; ++j) {
                for (const Stage stage : {Stage::addition, Stage::deletion, Stage::as_it_stands}) {
                    EXPECT_EQ(clique_changes_of(plain, 0, j, stage, depth),
                              reference::clique_changes(
                                  reference::evaluation_state(plain, 0, j, stage), 0, j, depth));
                }
            }
        }
    }
}

TEST(Cliques, NoDepthTouchesNothing) {
    Graph graph = engine_graph(reference::complete_graph(6));
    graph.clique_changes = {3.0, 4.0};
    graph.clique_counts = {5.0, 6.0};
    graph_clique_changes(graph, 0, 1);
    graph_count_cliques(graph);
    EXPECT_EQ(graph.clique_changes, (std::vector<double>{3.0, 4.0}));
    EXPECT_EQ(graph.clique_counts, (std::vector<double>{5.0, 6.0}));
}

TEST(Cliques, ADyadWithoutACommonNeighbourCompletesNone) {
    const PlainGraph path = reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}});
    EXPECT_EQ(clique_changes_of(path, 0, 3, Stage::addition, 8),
              (std::vector<double>{0, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(Cliques, TwoTiedCommonNeighboursCompleteTwoTrianglesAndAClique) {
    const PlainGraph nearly = reference::without_tie(reference::complete_graph(4), 0, 1);
    EXPECT_EQ(clique_changes_of(nearly, 0, 1, Stage::addition, 8),
              (std::vector<double>{0, 1, 2, 1, 0, 0, 0, 0}));
}

TEST(Cliques, TheTieThatFiveMutualActorsLackCompletesThreeTrianglesThreeCliquesAndTheWhole) {
    const PlainGraph nearly = reference::without_tie(reference::complete_graph(5), 2, 4);
    for (const Stage stage : {Stage::addition, Stage::deletion}) {
        EXPECT_EQ(clique_changes_of(nearly, 2, 4, stage, 8),
                  (std::vector<double>{0, 1, 3, 3, 1, 0, 0, 0}));
    }
}

TEST(Cliques, FirstTwoEntriesOfTheCountsReadZeroAboveDepthTwo) {
    for (int depth = 3; depth <= 8; ++depth) {
        const auto counts = clique_counts_of(reference::complete_graph(9), depth);
        EXPECT_EQ(counts[0], 0.0);
        EXPECT_EQ(counts[1], 0.0);
        EXPECT_EQ(counts[2], 84.0);
    }
    EXPECT_EQ(clique_counts_of(reference::complete_graph(9), 1), (std::vector<double>{9}));
    EXPECT_EQ(clique_counts_of(reference::complete_graph(9), 2), (std::vector<double>{9, 36}));
}

TEST(Cliques, ADepthShorterThanAnEffectLooksForLeavesItAtZero) {
    Graph graph = engine_graph(reference::complete_graph(9), 0, 4);
    graph_count_cliques(graph);
    const EffectData data;
    EXPECT_EQ(clique4_count(graph, data), 126.0);
    EXPECT_EQ(clique5_count(graph, data), 0.0);
    EXPECT_EQ(clique7_count(graph, data), 0.0);
}

TEST(AlternatingCliques, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference({"AC"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingCliques, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference({"AC"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingCliques, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions({"AC"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingCliques, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences({"AC"}, all_lambdas(), fewer_graphs(), 1e-10));
}

TEST(AlternatingCliques, AreDeadBelowLambdaOne) {
    const PlainGraph complete = reference::complete_graph(8);
    EXPECT_EQ(engine_count(complete, "AC", 0.9F), 0.0);
    for (int i = 0; i < 8; ++i) {
        for (int j = i + 1; j < 8; ++j) {
            EXPECT_EQ(engine_change(complete, i, j, Stage::deletion, "AC", 0.9F), 0.0);
        }
    }
}

TEST(AlternatingCliques, ArePlainAlternatingCountsUpToEightCliquesAtLambdaOne) {
    // 9 mutual actors: 126 - 126 + 84 - 36 + 9 cliques of 4 to 8 actors; the one of 9 is left out.
    EXPECT_EQ(engine_count(reference::complete_graph(9), "AC", 1.0F), 126.0 - 126 + 84 - 36 + 9);
    EXPECT_EQ(engine_change(reference::complete_graph(9), 0, 1, Stage::deletion, "AC", 1.0F),
              21.0 - 35 + 35 - 21 + 7);
}

TEST(AlternatingCliques, TakeTheReciprocalOfLambdaInSinglePrecision) {
    const double third = static_cast<double>(1.0F / 3.0F);
    EXPECT_EQ(engine_count(reference::complete_graph(5), "AC", 3.0F), 5.0 - third);
}

}  // namespace
