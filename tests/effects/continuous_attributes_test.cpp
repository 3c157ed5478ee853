// Effects of a continuous attribute on undirected networks, read from its three pair tables.
#include "effects/continuous_attributes.h"

#include <gtest/gtest.h>

#include "support/attribute_effect_checks.h"

namespace {

using reference::ContinuousData;
using reference::PlainGraph;
using reference::Stage;

const std::vector<float> kValues = {0.0F, 0.1F, 1.7F, -2.3F, 1e6F, 3.3333F, 9999.0F, 9998.5F};

// One attribute with all three effects selected, so that each reads the table of its own row.
struct ContinuousModel {
    explicit ContinuousModel(const std::vector<float>& values)
        : selection(selection_create(NetworkKind::undirected)) {
        selection.table.continuous.push_back(continuous_attribute(values));
        selection.table.continuous_names = {"z"};
        selection_resize_group(selection, AttributeGroup::continuous, 1);
        AttributeSelection& group = group_of(selection, AttributeGroup::continuous);
        group.attributes = 1;
        group.selected = 3;
        for (auto& row : group.choices) {
            row[0].flag = 1;
        }
        effects = active_model<Graph>(selection);
    }
    EffectSelection selection;
    ActiveModel<Graph> effects;
};

PlainGraphs graphs() { return graphs_of_all_densities(8001, 2, 12, 6); }

TEST(ContinuousAttributes, ChangesAndCountsAreThoseOfThePlainLoops) {
    TestRandom random(8002);
    PlainGraphs all = graphs();
    for (const PlainGraph& plain : graphs_across_words(8003)) {
        all.push_back(plain);
    }
    for (const PlainGraph& plain : all) {
        const std::vector<float> values = random_reals(random, plain.n, kValues);
        const ContinuousData twin_data = reference::continuous_data(values);
        const ContinuousModel model(values);
        ASSERT_EQ(model.effects.size(), 3U);
        Graph graph = engine_graph(plain);
        for (std::size_t row = 0; row < 3; ++row) {
            const auto& effect = model.effects[row];
            const auto& twin = reference::continuous_effects()[row];
            EXPECT_EQ(effect.count(graph, effect.data), twin.count(plain, twin_data)) << twin.name;
            for (int i = 0; i < plain.n; ++i) {
                for (int j = 0; j < plain.n; ++j) {
                    if (i == j) {
                        continue;
                    }
                    // The pair alone decides, whatever the state of the tie.
                    const double expected = twin.change({}, i, j, twin_data);
                    EXPECT_EQ(effect.change(graph, effect.data, i, j, 0), expected) << twin.name;
                    EXPECT_EQ(effect.change(graph, effect.data, i, j, 1), expected) << twin.name;
                }
            }
        }
    }
}

TEST(ContinuousAttributes, AChangeIsTheDifferenceOfTheCounts) {
    TestRandom random(8004);
    // Eighths and their products are exact in both precisions.
    const std::vector<float> exact = {0.125F, -2.5F, 7.0F, 0.0F, 9999.0F};
    for (const PlainGraph& plain : graphs()) {
        const ContinuousModel model(random_reals(random, plain.n, exact));
        for (const auto& effect : model.effects) {
            for (int j = 1; j < plain.n; ++j) {
                Graph more = engine_graph(reference::with_tie(plain, 0, j));
                Graph less = engine_graph(reference::without_tie(plain, 0, j));
                EXPECT_EQ(effect.change(less, effect.data, 0, j, 1),
                          effect.count(more, effect.data) - effect.count(less, effect.data));
            }
        }
    }
}

TEST(ContinuousAttributes, SumsProductsAndDifferencesAreSinglePrecision) {
    const float a = 0.1F;
    const float b = 1e6F;
    const ContinuousModel model({a, b});
    const Graph graph = graph_create(2, 0, 0);
    const auto change = [&](std::size_t row) {
        return model.effects[row].change(graph, model.effects[row].data, 0, 1, 1);
    };
    EXPECT_EQ(change(0), static_cast<double>(a + b));
    EXPECT_EQ(change(1), static_cast<double>(b - a));
    EXPECT_EQ(change(2), static_cast<double>(a * b));
    EXPECT_NE(change(0), static_cast<double>(a) + static_cast<double>(b));
    EXPECT_NE(change(2), static_cast<double>(a) * static_cast<double>(b));
}

TEST(ContinuousAttributes, AMissingValueOnEitherSideMakesAllThreeZero) {
    const ContinuousModel model({9999.0F, 5.0F, 2.0F});
    Graph graph = engine_graph(reference::complete_graph(3));
    for (const auto& effect : model.effects) {
        EXPECT_EQ(effect.change(graph, effect.data, 0, 1, 1), 0.0);
        EXPECT_EQ(effect.change(graph, effect.data, 2, 0, 1), 0.0);
        EXPECT_NE(effect.change(graph, effect.data, 1, 2, 1), 0.0);
        EXPECT_EQ(effect.count(graph, effect.data), effect.change(graph, effect.data, 1, 2, 1));
    }
}

TEST(ContinuousAttributes, DifferencesAreSymmetricAndNeverNegativeAndZeroBetweenEqualValues) {
    const ContinuousAttribute attribute = continuous_attribute({-3.5F, 2.25F, 2.25F, 9999.0F});
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_GE(attribute.differences[i][j], 0.0F);
            EXPECT_EQ(attribute.differences[i][j], attribute.differences[j][i]);
        }
    }
    EXPECT_EQ(attribute.differences[1][2], 0.0F);
    EXPECT_EQ(attribute.differences[0][1], 5.75F);
}

}  // namespace
