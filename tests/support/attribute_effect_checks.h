// Holds the engine's undirected attribute effects against the plain reference: the twins of the
// checks in graph_effect_checks.h for effects that read an attribute instead of a lambda.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

#include "effects/attribute_table.h"
#include "effects/catalogue.h"
#include "reference/attributes.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

// An attribute effect as the catalogue has it, by its name in the statistics reports without the
// attribute's own ("o3u", "S21"); fails the test without one.
const AttributeEffect& graph_attribute_effect(AttributeGroup group, std::string_view name);

// One coded attribute or one pair table in the engine's form, as an effect reads it.
class EngineAttribute {
  public:
    explicit EngineAttribute(const reference::Codes& codes);
    explicit EngineAttribute(const reference::FloatTable& pairs);
    EngineAttribute(const EngineAttribute&) = delete;
    EngineAttribute& operator=(const EngineAttribute&) = delete;

    const EffectData& data() const { return data_; }

  private:
    CodedAttribute coded_;
    ::FloatTable pairs_;
    EffectData data_;
};

testing::AssertionResult attribute_number_differs(std::string_view name, const char* what,
                                                  const reference::PlainGraph& plain, int i, int j,
                                                  double found, double expected);

// Every change in all three states, with the two actors in either order, is the reference's double.
template <class Twin, class Values>
testing::AssertionResult attribute_changes_match(AttributeGroup group, const Twin& twin,
                                                 const reference::PlainGraph& plain,
                                                 const Values& values, int dyads = 0) {
    using reference::Stage;
    const AttributeEffect& effect = graph_attribute_effect(group, twin.name);
    const EngineAttribute attribute(values);
    const int all = plain.n * (plain.n - 1);
    const int step = dyads > 0 && all > dyads ? all / dyads : 1;
    int index = 0;
    for (int i = 0; i < plain.n; ++i) {
        for (int j = 0; j < plain.n; ++j) {
            if (i == j || index++ % step != 0) {
                continue;
            }
            for (const Stage stage : {Stage::addition, Stage::deletion, Stage::as_it_stands}) {
                const EngineState state = engine_state(plain, i, j, stage);
                const double found =
                    effect.graph.change(state.graph, attribute.data(), i, j, state.adding);
                const double expected =
                    twin.change(reference::evaluation_state(plain, i, j, stage), i, j, values);
                if (!same_number(found, expected)) {
                    return attribute_number_differs(twin.name, "change", plain, i, j, found,
                                                    expected);
                }
            }
        }
    }
    return testing::AssertionSuccess();
}

template <class Twin, class Values>
testing::AssertionResult attribute_count_matches(AttributeGroup group, const Twin& twin,
                                                 const reference::PlainGraph& plain,
                                                 const Values& values) {
    const AttributeEffect& effect = graph_attribute_effect(group, twin.name);
    const EngineAttribute attribute(values);
    Graph graph = engine_graph(plain);
    const double found = effect.graph.count(graph, attribute.data());
    const double expected = twin.count(plain, values);
    return same_number(found, expected)
               ? testing::AssertionSuccess()
               : attribute_number_differs(twin.name, "count", plain, -1, -1, found, expected);
}

// The change of an addition, that of the deletion of the same tie, and the difference of the whole
// values with and without it: the first two are the same double, the third within `tolerance`.
template <class Values>
testing::AssertionResult attribute_change_is_difference(AttributeGroup group, std::string_view name,
                                                        const reference::PlainGraph& plain,
                                                        const Values& values, double tolerance) {
    using reference::Stage;
    const AttributeEffect& effect = graph_attribute_effect(group, name);
    const EngineAttribute attribute(values);
    for (int i = 0; i < plain.n; ++i) {
        for (int j = i + 1; j < plain.n; ++j) {
            const EngineState addition = engine_state(plain, i, j, Stage::addition);
            const EngineState deletion = engine_state(plain, i, j, Stage::deletion);
            const double added = effect.graph.change(addition.graph, attribute.data(), i, j, 1);
            const double deleted = effect.graph.change(deletion.graph, attribute.data(), i, j, 0);
            if (!same_number(added, deleted)) {
                return attribute_number_differs(name, "deletion", plain, i, j, deleted, added);
            }
            Graph more = engine_graph(reference::with_tie(plain, i, j));
            Graph less = engine_graph(reference::without_tie(plain, i, j));
            const double difference = effect.graph.count(more, attribute.data()) -
                                      effect.graph.count(less, attribute.data());
            if (!(added - difference <= tolerance && difference - added <= tolerance)) {
                return attribute_number_differs(name, "difference", plain, i, j, added, difference);
            }
        }
    }
    return testing::AssertionSuccess();
}
