// Pairs of triangles by the actor, tie or nothing that they share.
#include "effects/triangle_pairs.h"

#include <gtest/gtest.h>

#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::PlainGraph;
using reference::Stage;

const Names kPairs = {"Bow_tie", "P3", "Q10", "Q20", "Q30", "Q31"};

PlainGraph two_triangles() {
    return reference::make_graph(6, {{0, 1}, {0, 2}, {1, 2}, {3, 4}, {3, 5}, {4, 5}});
}

PlainGraph bow_tie() {
    return reference::make_graph(5, {{0, 1}, {0, 2}, {1, 2}, {0, 3}, {0, 4}, {3, 4}});
}

TEST(TrianglePairs, ChangesInSmallNetworksAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kPairs, {0.0F}, graphs_of_all_densities(3001, 3, 7, 24)));
}

TEST(TrianglePairs, ChangesInLargerNetworksAreThoseOfThePlainLoops) {
    EXPECT_TRUE(
        changes_match_reference(kPairs, {0.0F}, graphs_of_all_densities(3002, 8, 12, 4), 24));
}

TEST(TrianglePairs, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kPairs, {0.0F}, graphs_of_all_densities(3003, 3, 12, 2)));
}

TEST(TrianglePairs, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(
        additions_match_deletions(kPairs, {0.0F}, graphs_of_all_densities(3004, 3, 12, 12)));
}

TEST(TrianglePairs, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(
        changes_are_differences(kPairs, {0.0F}, graphs_of_all_densities(3005, 3, 12, 12), 0.0));
}

TEST(TrianglePairs, ReadRowsOfMoreThanOneWord) {
    PlainGraphs graphs = graphs_across_words(3006);
    graphs.pop_back();  // the plain loops are too slow for it
    EXPECT_TRUE(changes_match_reference(kPairs, {0.0F}, graphs, 6));
    EXPECT_TRUE(counts_match_reference(kPairs, {0.0F}, graphs));
    EXPECT_TRUE(changes_are_differences(kPairs, {0.0F}, {graphs_across_words(3007)[2]}, 0.0));
}

TEST(TrianglePairs, NothingChangesInAnEmptyNetwork) {
    for (const std::string_view name : kPairs) {
        EXPECT_EQ(engine_change(reference::empty_graph(7), 1, 5, Stage::addition, name), 0.0);
    }
}

TEST(TrianglePairs, TwoDisjointTrianglesWithoutATieBetweenAreOneQ30AndOneP3) {
    EXPECT_EQ(engine_count(two_triangles(), "Q30"), 1.0);
    EXPECT_EQ(engine_count(two_triangles(), "Q31"), 0.0);
    EXPECT_EQ(engine_count(two_triangles(), "P3"), 1.0);
}

TEST(TrianglePairs, ATieAcrossTwoTrianglesTurnsAQ30IntoAQ31) {
    EXPECT_EQ(engine_change(two_triangles(), 2, 3, Stage::addition, "Q30"), -1.0);
    EXPECT_EQ(engine_change(two_triangles(), 2, 3, Stage::addition, "Q31"), 1.0);
    EXPECT_EQ(engine_change(two_triangles(), 2, 3, Stage::addition, "P3"), 0.0);
    const PlainGraph joined = reference::with_tie(two_triangles(), 2, 3);
    EXPECT_EQ(engine_count(joined, "Q30"), 0.0);
    EXPECT_EQ(engine_count(joined, "Q31"), 1.0);
}

TEST(TrianglePairs, ASecondTieAcrossEndsTheQ31) {
    const PlainGraph joined = reference::with_tie(two_triangles(), 2, 3);
    EXPECT_EQ(engine_change(joined, 1, 4, Stage::addition, "Q31"), -1.0);
    EXPECT_EQ(engine_change(joined, 1, 4, Stage::addition, "Q30"), 0.0);
}

TEST(TrianglePairs, ATieThatStandsIsNotCountedBetweenTheTrianglesItJoins) {
    const PlainGraph joined = reference::with_tie(two_triangles(), 2, 3);
    EXPECT_EQ(engine_change(joined, 2, 3, Stage::as_it_stands, "Q30"), -1.0);
    EXPECT_EQ(engine_change(joined, 2, 3, Stage::as_it_stands, "Q31"), 1.0);
}

TEST(TrianglePairs, ABowTieSharesOneActorWithOrWithoutFurtherTies) {
    EXPECT_EQ(engine_count(bow_tie(), "Bow_tie"), 1.0);
    EXPECT_EQ(engine_count(bow_tie(), "Q20"), 1.0);
    const PlainGraph chorded = reference::with_tie(bow_tie(), 1, 3);
    EXPECT_GE(engine_count(chorded, "Bow_tie"), 1.0);
    EXPECT_EQ(engine_count(chorded, "Q20"), 0.0);
    EXPECT_EQ(engine_change(bow_tie(), 1, 3, Stage::addition, "Q20"), -1.0);
}

TEST(TrianglePairs, FourActorsWithFiveTiesAreOneQ10AndTheSixthTieEndsIt) {
    const PlainGraph nearly = reference::without_tie(reference::complete_graph(4), 2, 3);
    EXPECT_EQ(engine_count(nearly, "Q10"), 1.0);
    EXPECT_EQ(engine_count(reference::complete_graph(4), "Q10"), 0.0);
    EXPECT_EQ(engine_change(nearly, 2, 3, Stage::addition, "Q10"), -1.0);
}

}  // namespace
