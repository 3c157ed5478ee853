// Effects of a categorical attribute on undirected networks: only equality of codes counts.
#include "effects/categorical_attributes.h"

#include <gtest/gtest.h>

#include "support/attribute_effect_checks.h"

namespace {

using reference::Codes;
using reference::PlainGraph;

constexpr AttributeGroup kGroup = AttributeGroup::categorical;
const std::vector<int> kCodes = {0, 1, 2, -7, 9999};

PlainGraphs graphs() { return graphs_of_all_densities(9001, 2, 12, 4); }

double count_of(std::string_view name, const PlainGraph& plain, const Codes& codes) {
    const EngineAttribute attribute(codes);
    Graph graph = engine_graph(plain);
    return graph_attribute_effect(kGroup, name).graph.count(graph, attribute.data());
}

TEST(CategoricalAttributes, ChangesAndCountsAreThoseOfThePlainLoops) {
    TestRandom random(9002);
    for (const PlainGraph& plain : graphs()) {
        const Codes codes = random_codes(random, plain.n, kCodes);
        for (const reference::CategoricalEffect& twin : reference::categorical_effects()) {
            ASSERT_TRUE(attribute_changes_match(kGroup, twin, plain, codes));
            ASSERT_TRUE(attribute_count_matches(kGroup, twin, plain, codes));
        }
    }
}

TEST(CategoricalAttributes, ReadRowsOfMoreThanOneWord) {
    TestRandom random(9003);
    for (const PlainGraph& plain : graphs_across_words(9004)) {
        const Codes codes = random_codes(random, plain.n, kCodes);
        for (const reference::CategoricalEffect& twin : reference::categorical_effects()) {
            EXPECT_TRUE(attribute_changes_match(kGroup, twin, plain, codes, 6));
            EXPECT_TRUE(attribute_count_matches(kGroup, twin, plain, codes));
        }
    }
}

TEST(CategoricalAttributes, AChangeIsTheDifferenceOfTheCounts) {
    TestRandom random(9005);
    for (const PlainGraph& plain : graphs()) {
        const Codes codes = random_codes(random, plain.n, kCodes);
        for (const char* name : {"same_Category", "diff_Category"}) {
            ASSERT_TRUE(attribute_change_is_difference(kGroup, name, plain, codes, 0.0));
        }
    }
}

TEST(CategoricalAttributes, OneCategoryForAllMakesEveryTieASameTie) {
    for (const PlainGraph& plain : graphs()) {
        const Codes codes(static_cast<std::size_t>(plain.n), 4);
        EXPECT_EQ(count_of("same_Category", plain, codes), reference::edge_count(plain));
        EXPECT_EQ(count_of("diff_Category", plain, codes), 0.0);
    }
}

TEST(CategoricalAttributes, TheTwoCountsAddUpToTheTies) {
    TestRandom random(9006);
    for (const PlainGraph& plain : graphs()) {
        const Codes codes = random_codes(random, plain.n, kCodes);
        EXPECT_EQ(count_of("same_Category", plain, codes) + count_of("diff_Category", plain, codes),
                  reference::edge_count(plain));
    }
}

TEST(CategoricalAttributes, AMissingValueIsOneMoreCategory) {
    const PlainGraph pair = reference::complete_graph(2);
    EXPECT_EQ(count_of("same_Category", pair, {9999, 9999}), 1.0);
    EXPECT_EQ(count_of("diff_Category", pair, {9999, 0}), 1.0);
}

}  // namespace
