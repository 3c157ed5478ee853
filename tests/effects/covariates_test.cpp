// Effects of a dyadic covariate on undirected networks. Each term is formed in single precision and
// widened before it is added; negative covariates part changes and counts in two rows.
#include "effects/covariates.h"

#include <gtest/gtest.h>

#include "support/attribute_effect_checks.h"

namespace {

using PairTable = reference::FloatTable;
using reference::PlainGraph;
using reference::Stage;

constexpr AttributeGroup kGroup = AttributeGroup::covariate;
const std::vector<float> kReals = {0.0F, 0.1F, 1.7F, -2.3F, 1e6F, 3.3333F, -0.0F, 0.7F};
const std::vector<float> kExact = {0.0F, 0.5F, 1.0F, 3.0F};

PlainGraphs small_graphs() { return graphs_of_all_densities(9101, 2, 12, 4); }
PlainGraphs fewer_graphs() { return graphs_of_all_densities(9102, 3, 10, 2); }

PairTable symmetric(PairTable table) {
    const int n = static_cast<int>(table.size());
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < row; ++column) {
            reference::cell(table, row, column) = reference::cell(table, column, row);
        }
    }
    return table;
}

double change_of(std::string_view name, const PlainGraph& plain, const PairTable& table, int i,
                 int j) {
    const EngineAttribute covariate(table);
    const EngineState state = engine_state(plain, i, j, Stage::addition);
    return graph_attribute_effect(kGroup, name)
        .graph.change(state.graph, covariate.data(), i, j, state.adding);
}

double count_of(std::string_view name, const PlainGraph& plain, const PairTable& table) {
    const EngineAttribute covariate(table);
    Graph graph = engine_graph(plain);
    return graph_attribute_effect(kGroup, name).graph.count(graph, covariate.data());
}

double difference_of(std::string_view name, const PlainGraph& plain, const PairTable& table, int i,
                     int j) {
    return count_of(name, reference::with_tie(plain, i, j), table) -
           count_of(name, reference::without_tie(plain, i, j), table);
}

TEST(Covariates, ChangesAndCountsAreThoseOfThePlainLoops) {
    TestRandom random(9103);
    for (const PlainGraph& plain : small_graphs()) {
        const PairTable table = random_pair_table(random, plain.n, kReals);
        for (const reference::CovariateEffect& twin : reference::covariate_effects()) {
            ASSERT_TRUE(attribute_changes_match(kGroup, twin, plain, table));
            ASSERT_TRUE(attribute_count_matches(kGroup, twin, plain, table));
        }
    }
}

TEST(Covariates, ReadRowsOfMoreThanOneWord) {
    TestRandom random(9104);
    for (const PlainGraph& plain : graphs_across_words(9105)) {
        const PairTable table = random_pair_table(random, plain.n, kReals);
        for (const reference::CovariateEffect& twin : reference::covariate_effects()) {
            EXPECT_TRUE(attribute_changes_match(kGroup, twin, plain, table, 6));
            EXPECT_TRUE(attribute_count_matches(kGroup, twin, plain, table));
        }
    }
}

TEST(Covariates, AChangeIsTheDifferenceOfTheCountsWithoutNegativeValues) {
    TestRandom random(9106);
    for (const PlainGraph& plain : fewer_graphs()) {
        const PairTable table = symmetric(random_pair_table(random, plain.n, kExact));
        for (const reference::CovariateEffect& twin : reference::covariate_effects()) {
            ASSERT_TRUE(attribute_change_is_difference(kGroup, twin.name, plain, table, 0.0));
        }
    }
}

TEST(Covariates, ANegativeValueOfTheDyadDropsTheS22ChangeButNotItsCount) {
    const PlainGraph tie = reference::make_graph(3, {{0, 1}});
    const PairTable table = {{0, 2, 0}, {2, 0, -3}, {0, -3, 0}};
    EXPECT_EQ(change_of("S22", tie, table, 1, 2), 0.0);
    EXPECT_EQ(difference_of("S22", tie, table, 1, 2), -6.0);
}

TEST(Covariates, ANegativeValueOfTheDyadDropsTheSecondTermOfTheT2ChangeButNotItsCount) {
    const PlainGraph path = reference::make_graph(3, {{0, 1}, {0, 2}});
    const PairTable table = {{0, 2, 5}, {2, 0, -3}, {5, -3, 0}};
    EXPECT_EQ(change_of("t2", path, table, 1, 2), 10.0);
    EXPECT_EQ(difference_of("t2", path, table, 1, 2), 10.0 - 3.0 * 7.0);
}

TEST(Covariates, OfZerosAreAllZero) {
    for (const PlainGraph& plain : fewer_graphs()) {
        const PairTable zeros = reference::square_table(plain.n, 0.0F);
        for (const reference::CovariateEffect& twin : reference::covariate_effects()) {
            EXPECT_EQ(count_of(twin.name, plain, zeros), 0.0);
            EXPECT_EQ(change_of(twin.name, plain, zeros, 0, plain.n - 1), 0.0);
        }
    }
}

TEST(Covariates, OfOnesAreTiesAndTwoStars) {
    for (const PlainGraph& plain : fewer_graphs()) {
        const PairTable ones = reference::square_table(plain.n, 1.0F);
        EXPECT_EQ(count_of("edge", plain, ones), reference::edge_count(plain));
        EXPECT_EQ(count_of("S21", plain, ones), 2.0 * engine_count(plain, "2-star"));
        EXPECT_EQ(count_of("S22", plain, ones), engine_count(plain, "2-star"));
        EXPECT_EQ(count_of("t1", plain, ones), 3.0 * engine_count(plain, "Triangle"));
        EXPECT_EQ(count_of("t2", plain, ones), 3.0 * engine_count(plain, "Triangle"));
        EXPECT_EQ(count_of("t3", plain, ones), engine_count(plain, "Triangle"));
    }
}

TEST(Covariates, ADyadWithoutACommonNeighbourChangesNoTriangle) {
    const PlainGraph path = reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}});
    const PairTable ones = reference::square_table(4, 1.0F);
    for (const char* name : {"t1", "t2", "t3"}) {
        EXPECT_EQ(change_of(name, path, ones, 0, 3), 0.0);
    }
}

TEST(Covariates, AnUnsymmetricTableIsReadAsEachTermNamesIt) {
    const PlainGraph path = reference::make_graph(3, {{0, 2}, {1, 2}});
    // cell [x][y] is 10 x + y.
    const PairTable table = {{0, 1, 2}, {10, 11, 12}, {20, 21, 22}};
    EXPECT_EQ(change_of("edge", path, table, 1, 0), 10.0);
    EXPECT_EQ(change_of("S21", path, table, 0, 1), (20.0 + 1) + (21.0 + 1));
    EXPECT_EQ(change_of("S22", path, table, 0, 1), 20.0 * 1 + 21.0 * 1);
    EXPECT_EQ(change_of("t1", path, table, 0, 1), 1.0 + (21.0 + 2.0));
    EXPECT_EQ(change_of("t2", path, table, 0, 1), 21.0 * 2.0 + (12.0 + 2.0) * 1.0);
    EXPECT_EQ(change_of("t3", path, table, 0, 1), 12.0 * 2.0 * 1.0);
}

TEST(Covariates, ProductsAreRoundedToSinglePrecisionBeforeTheyAreAdded) {
    const PlainGraph path = reference::make_graph(3, {{0, 2}, {1, 2}});
    const PairTable table(3, std::vector<float>(3, 0.1F));
    const float product = 0.1F * 0.1F;
    ASSERT_NE(static_cast<double>(product), static_cast<double>(0.1F) * static_cast<double>(0.1F));
    EXPECT_EQ(change_of("S22", path, table, 0, 1),
              static_cast<double>(product) + static_cast<double>(product));
    EXPECT_EQ(change_of("t3", path, table, 0, 1), static_cast<double>(product * 0.1F));
    EXPECT_EQ(change_of("t1", path, table, 0, 1),
              static_cast<double>(0.1F) + static_cast<double>(0.1F + 0.1F));
}

}  // namespace
