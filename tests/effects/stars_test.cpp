// Ties, stars, isolates and alternating stars.
#include <gtest/gtest.h>

#include <cstdint>

#include "effects/stars.h"
#include "reference/structural.h"
#include "reference/weights.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::ActorPairs;
using reference::PlainGraph;
using reference::Stage;

const Names kWhole = {"edge", "2-star", "3-star", "4-star", "5-star", "Isolates"};
const Names kAlternating = {"AS", "AS2"};

PlainGraphs small_graphs() { return graphs_of_all_densities(1001, 2, 12, 12); }

// Actor 0 tied to all others.
PlainGraph star(int leaves) {
    ActorPairs ties;
    for (int leaf = 1; leaf <= leaves; ++leaf) {
        ties.emplace_back(0, leaf);
    }
    return reference::make_graph(leaves + 1, ties);
}

// What a number is when it is kept in 32 bits.
double wrapped(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

TEST(Stars, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kWhole, {0.0F}, small_graphs()));
    EXPECT_TRUE(changes_match_reference({"two3star"}, {0.0F}, small_graphs()));
}

TEST(Stars, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kWhole, {0.0F}, small_graphs()));
    EXPECT_TRUE(counts_match_reference({"two3star"}, {0.0F}, small_graphs()));
}

TEST(Stars, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kWhole, {0.0F}, small_graphs()));
    EXPECT_TRUE(additions_match_deletions({"two3star"}, {0.0F}, small_graphs()));
}

TEST(Stars, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kWhole, {0.0F}, small_graphs(), 0.0));
    EXPECT_TRUE(changes_are_differences({"two3star"}, {1.0F}, small_graphs(), 1e-10));
}

TEST(Stars, ReadRowsOfMoreThanOneWord) {
    const PlainGraphs graphs = graphs_across_words(1002);
    EXPECT_TRUE(changes_match_reference(kWhole, {0.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kWhole, {0.0F}, graphs));
    EXPECT_TRUE(changes_match_reference(kAlternating, {2.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kAlternating, {2.0F}, graphs));
}

TEST(Stars, AnActorBelowTheSizeOfAStarIsCentreOfNone) {
    const Graph graph = engine_graph(star(3));
    EXPECT_EQ(star_change(graph, 0, 3), 1.0);
    EXPECT_EQ(star_change(graph, 0, 4), 0.0);
    EXPECT_EQ(star_change(graph, 0, 5), 0.0);
    EXPECT_EQ(star_change(graph, 1, 2), 0.0);
}

TEST(Stars, TyingTwoIsolatesEndsBothAndMakesNoStar) {
    const PlainGraph empty = reference::empty_graph(2);
    EXPECT_EQ(engine_change(empty, 0, 1, Stage::addition, "Isolates"), -2.0);
    EXPECT_EQ(engine_change(empty, 0, 1, Stage::addition, "AS", 2.0F), 0.0);
    EXPECT_EQ(engine_change(empty, 0, 1, Stage::addition, "2-star"), 0.0);
}

TEST(Stars, ATieThatStandsLeavesNobodyToEndAsAnIsolate) {
    const PlainGraph pair = reference::complete_graph(2);
    EXPECT_EQ(engine_change(pair, 0, 1, Stage::as_it_stands, "Isolates"), 0.0);
    EXPECT_EQ(engine_change(pair, 0, 1, Stage::deletion, "Isolates"), -2.0);
}

TEST(Stars, ValuesOfTheTruncatedAlternatingStarAtEachDegree) {
    EXPECT_EQ(engine_count(star(1), "two3star"), 0.0);
    EXPECT_EQ(engine_count(star(2), "two3star"), 1.0);
    EXPECT_EQ(engine_count(star(3), "two3star"), 2.5);
    EXPECT_EQ(engine_count(star(4), "two3star"), (1.0 - 2 / 6.0) * 6.0);
}

TEST(Stars, FiveStarCountWrapsIn32Bits) {
    const PlainGraph plain = star(100);
    const std::int64_t product = 100LL * 99 * 98 * 97 * 96;
    ASSERT_GT(product, std::int64_t{INT32_MAX});
    EXPECT_EQ(engine_count(plain, "5-star"), wrapped(product) / 120.0);
    EXPECT_NE(engine_count(plain, "5-star"), reference::choose(100, 5));
}

TEST(Stars, LastFiveStarCountThatFitsIn32BitsIsExact) {
    EXPECT_EQ(engine_count(star(75), "5-star"), reference::choose(75, 5));
    EXPECT_NE(engine_count(star(76), "5-star"), reference::choose(76, 5));
}

TEST(Stars, FourStarCountAndFiveStarChangeWrapIn32Bits) {
    const PlainGraph plain = star(250);
    const std::int64_t product = 250LL * 249 * 248 * 247;
    ASSERT_GT(product, std::int64_t{INT32_MAX});
    EXPECT_EQ(engine_count(plain, "4-star"), wrapped(product) / 24.0);
    const Graph graph = engine_graph(plain);
    EXPECT_EQ(star_change(graph, 0, 4), wrapped(product) / 24.0);
    EXPECT_NE(star_change(graph, 0, 4), reference::choose(250, 4));
}

TEST(Stars, LastFourStarTermThatFitsIn32BitsIsExact) {
    EXPECT_EQ(engine_count(star(216), "4-star"), reference::choose(216, 4));
    EXPECT_NE(engine_count(star(217), "4-star"), reference::choose(217, 4));
}

TEST(Stars, WrapAsThePlainLoopsDoInLargeDenseNetworks) {
    TestRandom random(1003);
    for (const int n : {120, 200, 300}) {
        const PlainGraph plain = random_graph(random, n, 0.8);
        for (const std::string_view name : {"2-star", "3-star", "4-star", "5-star", "two3star"}) {
            EXPECT_EQ(engine_count(plain, name), reference::structural_effect(name).count(plain, 0))
                << name << ", n = " << n;
            reference::EvaluationState state;
            state.bits = reference::without_tie(plain, 3, n - 1);
            EXPECT_EQ(engine_change(plain, 3, n - 1, Stage::addition, name),
                      reference::structural_effect(name).change(state, 3, n - 1, 0))
                << name << ", n = " << n;
        }
    }
}

TEST(AlternatingStars, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kAlternating, all_lambdas(), small_graphs()));
}

TEST(AlternatingStars, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kAlternating, all_lambdas(), small_graphs()));
}

TEST(AlternatingStars, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kAlternating, all_lambdas(), small_graphs()));
}

TEST(AlternatingStars, AChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences(kAlternating, all_lambdas(), small_graphs(), 1e-6));
}

TEST(AlternatingStars, AreDeadBelowLambdaOne) {
    for (const PlainGraph& plain : graphs_of_all_densities(1004, 2, 8, 1)) {
        EXPECT_EQ(engine_count(plain, "AS", 0.5F), 0.0);
        for (int j = 1; j < plain.n; ++j) {
            EXPECT_EQ(engine_change(plain, 0, j, Stage::addition, "AS", 0.5F), 0.0);
        }
    }
}

TEST(AlternatingStars, CountTheTiedEndsAtLambdaOne) {
    const PlainGraph path = reference::make_graph(5, {{0, 1}, {1, 2}});
    EXPECT_EQ(engine_change(path, 0, 2, Stage::addition, "AS", 1.0F), 2.0);
    EXPECT_EQ(engine_change(path, 0, 3, Stage::addition, "AS", 1.0F), 1.0);
    EXPECT_EQ(engine_change(path, 3, 4, Stage::addition, "AS", 1.0F), 0.0);
    EXPECT_EQ(engine_count(path, "AS", 1.0F), 2.0 * 2 + 2 - 5);
}

TEST(AlternatingStars, SquareTheLambdaInSinglePrecision) {
    // 1.1 squared is not the same number in the two precisions.
    const float lambda = 1.1F;
    const float squared = lambda * lambda;
    ASSERT_NE(static_cast<double>(squared), static_cast<double>(lambda) * lambda);
    const auto table = reference::geometric_weight_table(lambda);
    const double sum =
        reference::geometric_weight(1, table) - 1.0 + static_cast<double>(1.0F / lambda);
    EXPECT_EQ(engine_count(reference::complete_graph(2), "AS", lambda),
              static_cast<double>(squared) * (sum + sum));
}

TEST(AlternatingStars, WeighDegreesBeyondTheTablesEndAsItsLastEntry) {
    // At lambda 100 the weight still falls visibly at degree 100.
    const float lambda = 100.0F;
    const auto table = reference::geometric_weight_table(lambda);
    ASSERT_GT(table[99], table[100]);
    const Graph graph = engine_graph(star(150));
    EffectData data;
    data.lambda = lambda;
    data.weights = table.data();
    const double last = static_cast<double>(table[100]);
    EXPECT_EQ(alternating_star_change(graph, data, 0, 1, 1),
              static_cast<double>(lambda) * (2.0 - last - static_cast<double>(table[1])));
    for (const int leaves : {99, 100, 101, 150}) {
        const PlainGraphs graphs = {star(leaves)};
        EXPECT_TRUE(changes_match_reference(kAlternating, all_lambdas(), graphs, 3));
        EXPECT_TRUE(counts_match_reference(kAlternating, all_lambdas(), graphs));
    }
}

}  // namespace
