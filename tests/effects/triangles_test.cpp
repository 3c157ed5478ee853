// Triangles, triangles on one tie, and the alternating forms over two-path counts.
#include "effects/triangles.h"

#include <gtest/gtest.h>

#include "reference/structural.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::ActorPairs;
using reference::PlainGraph;
using reference::Stage;

const Names kPlain = {"Triangle", "P0", "Triangle2", "one2triangle"};
const Names kAlternating = {"AT", "AT2", "A2P"};
const std::vector<float> kAboveOne = {1.5F, 2.0F, 3.0F, 100.0F};

PlainGraphs small_graphs() { return graphs_of_all_densities(2001, 3, 12, 16); }
PlainGraphs fewer_graphs() { return graphs_of_all_densities(2002, 3, 10, 6); }

// Two actors 0 and 1, tied to each other and both to all the others.
PlainGraph book(int pages) {
    ActorPairs ties = {{0, 1}};
    for (int page = 2; page < pages + 2; ++page) {
        ties.emplace_back(0, page);
        ties.emplace_back(1, page);
    }
    return reference::make_graph(pages + 2, ties);
}

TEST(Triangles, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kPlain, {0.0F}, small_graphs()));
}

TEST(Triangles, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kPlain, {0.0F}, small_graphs()));
}

TEST(Triangles, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kPlain, {0.0F}, small_graphs()));
}

TEST(Triangles, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kPlain, {0.0F}, small_graphs(), 0.0));
}

TEST(Triangles, ReadRowsOfMoreThanOneWord) {
    const PlainGraphs graphs = graphs_across_words(2003);
    EXPECT_TRUE(changes_match_reference(kPlain, {0.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kPlain, {0.0F}, graphs));
    EXPECT_TRUE(changes_match_reference(kAlternating, {1.0F, 2.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kAlternating, {1.0F, 2.0F}, graphs));
}

TEST(Triangles, P0AndTriangleAreAlwaysTheSameNumber) {
    const StructuralModel both({"Triangle", "P0"}, 0.0F);
    for (const PlainGraph& plain : fewer_graphs()) {
        EXPECT_EQ(engine_count(plain, "P0"), engine_count(plain, "Triangle"));
        for (int j = 1; j < plain.n; ++j) {
            for (const Stage stage : {Stage::addition, Stage::deletion, Stage::as_it_stands}) {
                EngineState state = engine_state(plain, 0, j, stage);
                double changes[2] = {-1.0, -2.0};
                evaluate_toggle(state.graph, both.effects, both.parameters.data(), changes, 0, j,
                                state.adding);
                EXPECT_EQ(changes[0], changes[1]);
            }
        }
    }
}

TEST(Triangles, NothingChangesInAnEmptyNetwork) {
    const PlainGraph empty = reference::empty_graph(6);
    for (const std::string_view name :
         {"Triangle", "P0", "Triangle2", "one2triangle", "AT", "AT2", "A2P"}) {
        for (const float lambda : all_lambdas()) {
            EXPECT_EQ(engine_change(empty, 2, 4, Stage::addition, name, lambda), 0.0) << name;
        }
    }
}

TEST(Triangles, PairsOnOneTieAreCountedOnTheSharedTieOnly) {
    EXPECT_EQ(engine_count(book(2), "Triangle2"), 1.0);
    EXPECT_EQ(engine_count(book(5), "Triangle2"), 10.0);
    EXPECT_EQ(engine_change(book(5), 0, 1, Stage::deletion, "Triangle2"), 10.0);
    EXPECT_EQ(engine_change(book(5), 0, 2, Stage::deletion, "Triangle2"), 4.0);
    EXPECT_EQ(engine_count(book(5), "one2triangle"), 5.0 - 5.0);
}

TEST(AlternatingTriangles, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kAlternating, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangles, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kAlternating, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangles, AnAdditionChangesAsMuchAsTheDeletionAboveLambdaOne) {
    EXPECT_TRUE(additions_match_deletions(kAlternating, kAboveOne, small_graphs()));
    EXPECT_TRUE(additions_match_deletions(kAlternating, {0.5F}, fewer_graphs()));
}

TEST(AlternatingTriangles, AChangeIsTheDifferenceOfTheCountsAboveLambdaOne) {
    EXPECT_TRUE(changes_are_differences(kAlternating, kAboveOne, fewer_graphs(), 1e-6));
}

TEST(AlternatingTriangles, AnAdditionAtLambdaOneIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kAlternating, {1.0F}, fewer_graphs(), 0.0));
}

TEST(AlternatingTriangles, TwoPathsAgreeBetweenAdditionAndDeletionAtLambdaOneToo) {
    EXPECT_TRUE(additions_match_deletions({"A2P"}, {1.0F}, small_graphs()));
}

TEST(AlternatingTriangles, AreDeadBelowLambdaOne) {
    for (const std::string_view name : kAlternating) {
        EXPECT_EQ(engine_count(book(4), name, 0.5F), 0.0);
        EXPECT_EQ(engine_change(book(4), 0, 1, Stage::addition, name, 0.5F), 0.0);
        EXPECT_EQ(engine_change(book(4), 0, 2, Stage::deletion, name, 0.99F), 0.0);
    }
}

TEST(AlternatingTriangles, ADeletionAtLambdaOneCountsANeighbourOnceWhereAnAdditionCountsItTwice) {
    const PlainGraph path = reference::make_graph(3, {{0, 2}, {1, 2}});
    for (const std::string_view name : {"AT", "AT2"}) {
        EXPECT_EQ(engine_change(path, 0, 1, Stage::addition, name, 1.0F), 3.0);
        EXPECT_EQ(engine_change(path, 0, 1, Stage::deletion, name, 1.0F), 2.0);
    }
}

TEST(AlternatingTriangles, ADeletionAtLambdaOneFallsShortByTheNeighboursThatLoseBothTies) {
    for (const PlainGraph& plain : fewer_graphs()) {
        for (int i = 0; i < plain.n; ++i) {
            for (int j = i + 1; j < plain.n; ++j) {
                const PlainGraph with = reference::with_tie(plain, i, j);
                double both = 0.0;
                for (int k = 0; k < plain.n; ++k) {
                    if (k != i && k != j && reference::tied(with, i, k) &&
                        reference::tied(with, j, k) &&
                        reference::common_neighbours(with, i, k) == 1 &&
                        reference::common_neighbours(with, j, k) == 1) {
                        both += 1.0;
                    }
                }
                EXPECT_EQ(engine_change(plain, i, j, Stage::addition, "AT", 1.0F) -
                              engine_change(plain, i, j, Stage::deletion, "AT", 1.0F),
                          both);
            }
        }
    }
}

TEST(AlternatingTriangles, ASingleTriangleWeighsThreeAtLambdaTwo) {
    EXPECT_EQ(engine_count(reference::complete_graph(3), "AT", 2.0F), 3.0);
    EXPECT_EQ(engine_count(reference::complete_graph(3), "A2P", 2.0F), 3.0);
    EXPECT_EQ(engine_change(reference::complete_graph(3), 0, 1, Stage::deletion, "AT", 2.0F), 3.0);
    // The change of the two-paths carries no lambda of its own.
    EXPECT_EQ(engine_change(reference::complete_graph(3), 0, 1, Stage::deletion, "A2P", 2.0F), 2.0);
}

TEST(AlternatingTriangles, WeighTwoPathsBeyondTheTablesEndAsItsLastEntry) {
    for (const int pages : {99, 100, 101, 102, 130}) {
        const PlainGraphs graphs = {book(pages)};
        EXPECT_TRUE(changes_match_reference(kAlternating, all_lambdas(), graphs, 4));
        EXPECT_TRUE(counts_match_reference(kAlternating, all_lambdas(), graphs));
    }
    EXPECT_EQ(engine_change(book(101), 0, 2, Stage::addition, "AT", 100.0F),
              engine_change(book(131), 0, 2, Stage::addition, "AT", 100.0F));
}

}  // namespace
