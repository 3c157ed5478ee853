// Triangles with further ties at their actors, plain, uncarried and alternating.
#include "effects/triangle_ties.h"

#include <gtest/gtest.h>

#include <numeric>

#include "reference/structural.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::ActorPairs;
using reference::PlainGraph;
using reference::Stage;

const Names kPlain = {"1ET", "2ET", "one2et"};
const Names kUncarried = {"0ET", "ETNT"};
const std::vector<float> kAlive = {1.0F, 1.5F, 2.0F, 3.0F, 100.0F};

PlainGraphs small_graphs() { return graphs_of_all_densities(4001, 3, 12, 16); }
PlainGraphs fewer_graphs() { return graphs_of_all_densities(4002, 3, 10, 6); }

PlainGraph triangle_with_pendant() {
    return reference::make_graph(4, {{0, 1}, {0, 2}, {1, 2}, {2, 3}});
}

// A triangle 0, 1, 2 whose actor 0 has further neighbours.
PlainGraph triangle_with_tail(int further) {
    ActorPairs ties = {{0, 1}, {0, 2}, {1, 2}};
    for (int leaf = 3; leaf < 3 + further; ++leaf) {
        ties.emplace_back(0, leaf);
    }
    return reference::make_graph(3 + further, ties);
}

TEST(TriangleTies, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kPlain, {0.0F}, small_graphs()));
}

TEST(TriangleTies, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kPlain, {0.0F}, small_graphs()));
}

TEST(TriangleTies, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kPlain, {0.0F}, small_graphs()));
}

TEST(TriangleTies, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kPlain, {0.0F}, small_graphs(), 0.0));
}

TEST(TriangleTies, ReadRowsOfMoreThanOneWord) {
    const PlainGraphs graphs = graphs_across_words(4003);
    EXPECT_TRUE(changes_match_reference(kPlain, {0.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kPlain, {0.0F}, graphs));
    EXPECT_TRUE(counts_match_reference(kUncarried, {0.0F}, graphs));
    EXPECT_TRUE(changes_match_reference({"AET", "AEAT"}, {1.0F, 2.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference({"AET", "AEAT"}, {1.0F, 2.0F}, graphs));
}

TEST(TriangleTies, NothingChangesInAnEmptyNetwork) {
    for (const std::string_view name : {"1ET", "2ET", "one2et", "0ET", "ETNT", "AET", "AEAT"}) {
        for (const float lambda : all_lambdas()) {
            EXPECT_EQ(engine_change(reference::empty_graph(5), 0, 3, Stage::addition, name, lambda),
                      0.0)
                << name;
        }
    }
}

TEST(TriangleTies, OneFurtherTieAtATriangleIsOneEt) {
    EXPECT_EQ(engine_count(triangle_with_pendant(), "1ET"), 1.0);
    EXPECT_EQ(engine_count(triangle_with_pendant(), "2ET"), 0.0);
    EXPECT_EQ(engine_count(triangle_with_tail(4), "1ET"), 4.0);
    EXPECT_EQ(engine_count(triangle_with_tail(4), "2ET"), 6.0);
    EXPECT_EQ(engine_count(triangle_with_tail(4), "one2et"), 1.0);
}

TEST(TriangleTies, ADeletedTieOfATriangleChangesWhatItChangesInANetworkBuiltWithoutIt) {
    const PlainGraph plain = triangle_with_pendant();
    EXPECT_EQ(engine_change(plain, 0, 1, Stage::deletion, "1ET"), 1.0);
    EXPECT_EQ(engine_change(plain, 0, 1, Stage::addition, "1ET"), 1.0);
}

TEST(UncarriedTriangleTies, NoToggleEverChangesThem) {
    for (const PlainGraph& plain : fewer_graphs()) {
        for (const Stage stage : {Stage::addition, Stage::deletion, Stage::as_it_stands}) {
            EXPECT_EQ(engine_change(plain, 0, plain.n - 1, stage, "0ET"), 0.0);
            EXPECT_EQ(engine_change(plain, 0, plain.n - 1, stage, "ETNT"), 0.0);
        }
    }
}

TEST(UncarriedTriangleTies, CountsAreThoseOfThePlainLoopsThoughNoChangeFollowsThem) {
    EXPECT_TRUE(counts_match_reference(kUncarried, {0.0F}, small_graphs()));
    // The pendant tie moves the counts, its change is 0 all the same.
    const PlainGraph triangle = reference::without_tie(triangle_with_pendant(), 2, 3);
    for (const std::string_view name : kUncarried) {
        EXPECT_EQ(engine_count(triangle_with_pendant(), name) - engine_count(triangle, name), 1.0);
        EXPECT_EQ(engine_change(triangle, 2, 3, Stage::addition, name), 0.0);
    }
}

TEST(UncarriedTriangleTies, ATriangleAloneHasNone) {
    EXPECT_EQ(engine_count(reference::complete_graph(3), "0ET"), 0.0);
    EXPECT_EQ(engine_count(reference::complete_graph(3), "ETNT"), 0.0);
}

TEST(UncarriedTriangleTies, APendantTieAtATriangleIsOneOfEach) {
    EXPECT_EQ(engine_count(triangle_with_pendant(), "0ET"), 1.0);
    EXPECT_EQ(engine_count(triangle_with_pendant(), "ETNT"), 1.0);
}

TEST(UncarriedTriangleTies, ATieBetweenTwoTrianglesHasNoFreeEnd) {
    const PlainGraph joined =
        reference::make_graph(6, {{0, 1}, {0, 2}, {1, 2}, {3, 4}, {3, 5}, {4, 5}, {2, 3}});
    EXPECT_EQ(engine_count(joined, "0ET"), 2.0);
    EXPECT_EQ(engine_count(joined, "ETNT"), 0.0);
}

TEST(UncarriedTriangleTies, LeaveTheirTermsWithTheActorsAndClearThoseOfOthers) {
    for (const PlainGraph& plain : fewer_graphs()) {
        Graph graph = engine_graph(plain);
        graph.et0.assign(graph.et0.size(), 77);
        graph.etnt.assign(graph.etnt.size(), 77);
        const double et0 = graph_count_0et(graph);
        const double etnt = graph_count_etnt(graph);
        EXPECT_EQ(graph.et0, reference::et0_terms(plain));
        EXPECT_EQ(graph.etnt, reference::etnt_terms(plain));
        EXPECT_EQ(et0, std::accumulate(graph.et0.begin(), graph.et0.end(), 0));
        EXPECT_EQ(etnt, std::accumulate(graph.etnt.begin(), graph.etnt.end(), 0));
    }
}

TEST(AlternatingTriangleTies, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference({"AET"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangleTies, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference({"AET"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangleTies, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions({"AET"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangleTies, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences({"AET"}, kAlive, fewer_graphs(), 1e-6));
}

TEST(AlternatingTriangleTies, KeepTheirFormulaAtLambdaOne) {
    // t (1 - w(d - 2)): only actors of more than two ties count, with every triangle they are in.
    EXPECT_EQ(engine_count(triangle_with_tail(4), "AET", 1.0F), 1.0);
    EXPECT_EQ(engine_count(reference::complete_graph(4), "AET", 1.0F), 12.0);
    EXPECT_EQ(engine_change(triangle_with_tail(4), 1, 2, Stage::deletion, "AET", 1.0F), 1.0);
}

TEST(AlternatingTriangleTies, AreDeadBelowLambdaOne) {
    for (const std::string_view name : {"AET", "AEAT"}) {
        EXPECT_EQ(engine_count(reference::complete_graph(6), name, 0.5F), 0.0);
        EXPECT_EQ(engine_change(reference::complete_graph(6), 0, 1, Stage::deletion, name, 0.5F),
                  0.0);
    }
}

TEST(AlternatingTriangleTies, WeighDegreesBeyondTheTablesEndAsItsLastEntry) {
    for (const int further : {98, 99, 100, 101, 125}) {
        const PlainGraphs graphs = {triangle_with_tail(further)};
        EXPECT_TRUE(changes_match_reference({"AET", "AEAT"}, all_lambdas(), graphs, 5));
        EXPECT_TRUE(counts_match_reference({"AET", "AEAT"}, all_lambdas(), graphs));
    }
    EXPECT_EQ(engine_count(triangle_with_tail(101), "AET", 100.0F),
              engine_count(triangle_with_tail(125), "AET", 100.0F));
    EXPECT_NE(engine_count(triangle_with_tail(98), "AET", 100.0F),
              engine_count(triangle_with_tail(125), "AET", 100.0F));
}

TEST(AlternatingTriangleTies, AgreeInLargeDenseNetworks) {
    TestRandom random(4004);
    const PlainGraphs graphs = {random_graph(random, 120, 0.95)};
    EXPECT_TRUE(changes_match_reference({"AET", "AEAT", "AT", "A2P"}, {1.0F, 100.0F}, graphs, 2));
    EXPECT_TRUE(counts_match_reference({"AET", "AEAT", "AT", "A2P"}, {1.0F, 100.0F}, graphs));
}

TEST(AlternatingTriangleTiesOnEachTie, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference({"AEAT"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangleTiesOnEachTie, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference({"AEAT"}, all_lambdas(), small_graphs()));
}

TEST(AlternatingTriangleTiesOnEachTie, AChangeIsNotTheDifferenceOfTheCounts) {
    for (const float lambda : kAlive) {
        EXPECT_FALSE(changes_are_differences({"AEAT"}, {lambda}, fewer_graphs(), 1e-3)) << lambda;
    }
}

TEST(AlternatingTriangleTiesOnEachTie, AnAdditionNeedNotChangeAsMuchAsTheDeletion) {
    for (const float lambda : kAlive) {
        EXPECT_FALSE(additions_match_deletions({"AEAT"}, {lambda}, fewer_graphs())) << lambda;
    }
}

TEST(AlternatingTriangleTiesOnEachTie,
     ClosingATriangleWithATailAtEachEndGivesTheSumWorkedOutByHand) {
    // Actors 0 and 1 share neighbour 2 and have one further tie each, to 3 and to 4; at lambda 2
    // the two bases are 0 and -1/2.
    const PlainGraph plain = reference::make_graph(5, {{0, 2}, {1, 2}, {0, 3}, {1, 4}});
    const double w1 = 0.5;
    const double w2 = 0.25;
    // No dyad of an end and a third actor has a two-path: 2 (twice), 3 and 4 add w(0) - w(2) each.
    const double v = 4 * (1.0 - w2);
    const double u = 2 * (1.0 - w1 + w1 * 0.5);
    EXPECT_EQ(engine_change(plain, 0, 1, Stage::addition, "AEAT", 2.0F), 2.0 * u * 2.0 + 2.0 * v);
}

}  // namespace
