// Effects of a binary attribute on undirected networks. Changes and counts take a value of 9999,
// the mark of a missing one, for different things in some rows: files of past runs show it so.
#include "effects/binary_attributes.h"

#include <gtest/gtest.h>

#include "support/attribute_effect_checks.h"

namespace {

using reference::Codes;
using reference::PlainGraph;
using reference::Stage;

constexpr AttributeGroup kGroup = AttributeGroup::binary;
const std::vector<int> kClean = {0, 1};
const std::vector<int> kWithMissing = {0, 1, 1, 9999};
const std::vector<int> kAnything = {0, 1, 2, -1, 9999};

PlainGraphs small_graphs() { return graphs_of_all_densities(7001, 2, 12, 2); }
PlainGraphs fewer_graphs() { return graphs_of_all_densities(7002, 3, 10, 2); }

double change_of(std::string_view name, const PlainGraph& plain, const Codes& codes, int i, int j) {
    const EngineAttribute attribute(codes);
    const EngineState state = engine_state(plain, i, j, Stage::addition);
    return graph_attribute_effect(kGroup, name)
        .graph.change(state.graph, attribute.data(), i, j, state.adding);
}

double count_of(std::string_view name, const PlainGraph& plain, const Codes& codes) {
    const EngineAttribute attribute(codes);
    Graph graph = engine_graph(plain);
    return graph_attribute_effect(kGroup, name).graph.count(graph, attribute.data());
}

double difference_of(std::string_view name, const PlainGraph& plain, const Codes& codes, int i,
                     int j) {
    return count_of(name, reference::with_tie(plain, i, j), codes) -
           count_of(name, reference::without_tie(plain, i, j), codes);
}

void expect_reference(const std::vector<int>& values, std::uint32_t seed) {
    TestRandom random(seed);
    for (const PlainGraph& plain : small_graphs()) {
        const Codes codes = random_codes(random, plain.n, values);
        for (const reference::BinaryEffect& twin : reference::binary_effects()) {
            ASSERT_TRUE(attribute_changes_match(kGroup, twin, plain, codes));
            ASSERT_TRUE(attribute_count_matches(kGroup, twin, plain, codes));
        }
    }
}

TEST(BinaryAttributes, ChangesAndCountsOfZerosAndOnesAreThoseOfThePlainLoops) {
    expect_reference(kClean, 7003);
}

TEST(BinaryAttributes, ChangesAndCountsWithMissingValuesAreThoseOfThePlainLoops) {
    expect_reference(kWithMissing, 7004);
}

TEST(BinaryAttributes, ChangesAndCountsOfAnyValuesAreThoseOfThePlainLoops) {
    expect_reference(kAnything, 7005);
}

TEST(BinaryAttributes, ReadRowsOfMoreThanOneWord) {
    TestRandom random(7006);
    for (const PlainGraph& plain : graphs_across_words(7007)) {
        for (const auto& values : {kClean, kWithMissing}) {
            const Codes codes = random_codes(random, plain.n, values);
            for (const reference::BinaryEffect& twin : reference::binary_effects()) {
                EXPECT_TRUE(attribute_changes_match(kGroup, twin, plain, codes, 4));
                EXPECT_TRUE(attribute_count_matches(kGroup, twin, plain, codes));
            }
        }
    }
}

TEST(BinaryAttributes, AChangeIsTheDifferenceOfTheCountsForZerosAndOnes) {
    TestRandom random(7008);
    for (const PlainGraph& plain : fewer_graphs()) {
        const Codes codes = random_codes(random, plain.n, kClean);
        for (const reference::BinaryEffect& twin : reference::binary_effects()) {
            ASSERT_TRUE(attribute_change_is_difference(kGroup, twin.name, plain, codes, 0.0));
        }
    }
}

TEST(BinaryAttributes, FiveRowsKeepTheirDifferenceWithMissingValues) {
    TestRandom random(7009);
    for (const PlainGraph& plain : fewer_graphs()) {
        const Codes codes = random_codes(random, plain.n, kAnything);
        for (const char* name : {"t3u", "t2u", "t1u", "o1bu", "activity"}) {
            ASSERT_TRUE(attribute_change_is_difference(kGroup, name, plain, codes, 0.0));
        }
    }
}

// Two ties 0-1-2 are the two-path of the tests below; its last tie 1-2 is the one that changes.
const PlainGraph kOneTie = reference::make_graph(3, {{0, 1}});

TEST(BinaryAttributes, O3uCountsOnlyOnesThoughItsChangeTakesMissingValuesForBearers) {
    EXPECT_EQ(change_of("o3u", kOneTie, {9999, 1, 1}, 1, 2), 1.0);
    EXPECT_EQ(difference_of("o3u", kOneTie, {9999, 1, 1}, 1, 2), 0.0);
    EXPECT_EQ(change_of("o3u", kOneTie, {1, 9999, 1}, 1, 2), 1.0);
    EXPECT_EQ(difference_of("o3u", kOneTie, {1, 9999, 1}, 1, 2), 0.0);
}

TEST(BinaryAttributes, O2auCountsACentreOnceThoughItsChangeMultipliesByItsValue) {
    EXPECT_EQ(change_of("o2au", kOneTie, {1, 9999, 1}, 1, 2), 2.0 * 9999.0);
    EXPECT_EQ(difference_of("o2au", kOneTie, {1, 9999, 1}, 1, 2), 2.0);
}

TEST(BinaryAttributes, O2buCountsOnlyOnesThoughItsChangeMultipliesTheLeaves) {
    EXPECT_EQ(change_of("o2bu", kOneTie, {9999, 0, 1}, 1, 2), 9999.0);
    EXPECT_EQ(difference_of("o2bu", kOneTie, {9999, 0, 1}, 1, 2), 0.0);
}

TEST(BinaryAttributes, O1auCountsOnlyOnesThoughItsChangeMultipliesByTheCentre) {
    EXPECT_EQ(change_of("o1au", kOneTie, {0, 9999, 0}, 1, 2), 9999.0);
    EXPECT_EQ(difference_of("o1au", kOneTie, {0, 9999, 0}, 1, 2), 0.0);
}

TEST(BinaryAttributes, InteractionCountsATieOnceThoughItsChangeIsTheProduct) {
    EXPECT_EQ(change_of("interaction", kOneTie, {0, 9999, 1}, 1, 2), 9999.0);
    EXPECT_EQ(difference_of("interaction", kOneTie, {0, 9999, 1}, 1, 2), 1.0);
    EXPECT_EQ(change_of("interaction", kOneTie, {0, 9999, 9999}, 1, 2), 9999.0 * 9999.0);
}

TEST(BinaryAttributes, SumsOfProductsBeyond32BitsDoNotWrap) {
    // Every one of ten common neighbours adds three products of about a hundred million.
    const int n = 12;
    const Codes missing(static_cast<std::size_t>(n), 9999);
    const double product = 9999.0 * 9999.0;
    EXPECT_EQ(change_of("t2u", reference::complete_graph(n), missing, 0, 1), 30.0 * product);
    EXPECT_EQ(count_of("t2u", reference::complete_graph(n), missing), 220.0 * 3.0 * product);
    EXPECT_EQ(change_of("o2au", reference::complete_graph(n), missing, 0, 1), 40.0 * product);
}

TEST(BinaryAttributes, AnActorWithAMissingValueAddsItToTheActivityOfATie) {
    EXPECT_EQ(change_of("activity", kOneTie, {0, 1, 9999}, 1, 2), 10000.0);
    EXPECT_EQ(count_of("activity", kOneTie, {1, 9999, 0}), 10000.0);
}

TEST(BinaryAttributes, NetworksWithoutTiesHaveNone) {
    for (const reference::BinaryEffect& twin : reference::binary_effects()) {
        EXPECT_EQ(count_of(twin.name, reference::empty_graph(5), {1, 9999, 1, 0, 1}), 0.0);
    }
}

TEST(BinaryAttributes, AnEndWithoutTheAttributeChangesNeitherT3uNorO3u) {
    const PlainGraph complete = reference::complete_graph(6);
    for (const Codes& codes : {Codes{0, 1, 1, 1, 1, 1}, Codes{1, 0, 1, 1, 1, 1}}) {
        EXPECT_EQ(change_of("t3u", complete, codes, 0, 1), 0.0);
        EXPECT_EQ(change_of("o3u", complete, codes, 0, 1), 0.0);
    }
}

TEST(BinaryAttributes, OfAllOnesAreStarsAndTriangles) {
    for (const PlainGraph& plain : fewer_graphs()) {
        const Codes ones(static_cast<std::size_t>(plain.n), 1);
        EXPECT_EQ(count_of("o1au", plain, ones), engine_count(plain, "2-star"));
        EXPECT_EQ(count_of("t3u", plain, ones), engine_count(plain, "Triangle"));
        EXPECT_EQ(count_of("t1u", plain, ones), 3.0 * engine_count(plain, "Triangle"));
        EXPECT_EQ(count_of("interaction", plain, ones), engine_count(plain, "edge"));
    }
}

}  // namespace
