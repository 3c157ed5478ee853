// The evaluator of a proposed tie and the whole-network statistics of a model.
#include "effects/evaluation.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "effects/cliques.h"
#include "support/attribute_effect_checks.h"
#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::PlainGraph;
using reference::Stage;

constexpr int kActors = 9;

// All rows of the setup file, two attributes of each kind with everything on.
struct WholeModel {
    explicit WholeModel(std::uint32_t seed) : selection(selection_create(NetworkKind::undirected)) {
        TestRandom random(seed);
        selection.actors = kActors;
        for (const int id : selection.catalogue->setup_order) {
            StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
            choice.position = selection.structural_count++;
            choice.lambda = 2.0F;
        }
        AttributeTable& table = selection.table;
        table.actors = kActors;
        for (int attribute = 0; attribute < 2; ++attribute) {
            table.binary.push_back(coded_attribute(random_codes(random, kActors, {0, 1, 9999})));
            table.categorical.push_back(coded_attribute(random_codes(random, kActors, {1, 2})));
            table.continuous.push_back(
                continuous_attribute(random_reals(random, kActors, {0.1F, 2.5F, 9999.0F})));
            ::FloatTable covariate(kActors, kActors);
            for (float& cell : covariate.cells) {
                cell = static_cast<float>(draw_unit(random)) - 0.3F;
            }
            table.covariates.push_back(covariate);
        }
        for (const AttributeGroup group : kAllGroups) {
            selection_resize_group(selection, group, 2);
            AttributeSelection& chosen = group_of(selection, group);
            chosen.attributes = 2;
            for (auto& row : chosen.choices) {
                for (AttributeChoice& choice : row) {
                    choice.flag = 1;
                    ++chosen.selected;
                }
            }
        }
        assemble_parameters(selection);
        effects = active_model<Graph>(selection);
        for (int place = 0; place < selection_size(selection); ++place) {
            parameters.push_back(draw_unit(random) - 0.5);
        }
    }
    WholeModel(const WholeModel&) = delete;
    WholeModel& operator=(const WholeModel&) = delete;

    EffectSelection selection;
    std::vector<double> parameters;
    ActiveModel<Graph> effects;
};

TEST(Evaluation, WithoutAnyEffectReturnsZeroAndTouchesNoChange) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    EXPECT_TRUE(assemble_parameters(selection).empty());
    const auto effects = active_model<Graph>(selection);
    Graph graph = engine_graph(reference::complete_graph(4));
    double change = 77.0;
    EXPECT_EQ(evaluate_toggle(graph, effects, nullptr, &change, 0, 1, 1), 0.0);
    EXPECT_EQ(change, 77.0);
}

TEST(Evaluation, StoresTheChangeOfAnEffectWithParameterZeroAndDoesNotMoveTheSum) {
    const StructuralModel model({"edge", "Triangle"}, 2.0F);
    Graph graph = engine_graph(reference::without_tie(reference::complete_graph(4), 0, 1));
    const double parameters[] = {0.75, 0.0};
    double changes[] = {-1.0, -1.0};
    EXPECT_EQ(evaluate_toggle(graph, model.effects, parameters, changes, 0, 1, 1), 0.75);
    EXPECT_EQ(changes[0], 1.0);
    EXPECT_EQ(changes[1], 2.0);
}

TEST(Evaluation, AnInfiniteChangeWithParameterZeroAddsNothing) {
    const float infinity = std::numeric_limits<float>::infinity();
    const PlainGraph empty = reference::empty_graph(2);
    const EngineAttribute covariate(reference::FloatTable(2, std::vector<float>(2, infinity)));
    const auto& functions = graph_attribute_effect(AttributeGroup::covariate, "edge").graph;
    ActiveModel<Graph> effects;
    effects.push_back({functions.change, functions.count, covariate.data(), 0, false});
    Graph graph = engine_graph(empty);
    const double parameter = 0.0;
    double change = 0.0;
    EXPECT_EQ(evaluate_toggle(graph, effects, &parameter, &change, 0, 1, 1), 0.0);
    EXPECT_EQ(change, std::numeric_limits<double>::infinity());
}

TEST(Evaluation, SumsFromZeroInTheOrderOfTheEffects) {
    const WholeModel model(11);
    TestRandom random(12);
    for (int repeat = 0; repeat < 60; ++repeat) {
        const PlainGraph plain = random_graph(random, kActors, 0.5);
        for (const Stage stage : {Stage::addition, Stage::deletion}) {
            EngineState state = engine_state(plain, 1, 7, stage, 8);
            std::vector<double> changes(model.parameters.size(), 99.0);
            const double sum = evaluate_toggle(state.graph, model.effects, model.parameters.data(),
                                               changes.data(), 1, 7, state.adding);
            double expected = 0.0;
            graph_clique_changes(state.graph, 1, 7);
            for (const auto& effect : model.effects) {
                const double change = effect.change(state.graph, effect.data, 1, 7, state.adding);
                const auto place = static_cast<std::size_t>(effect.position);
                EXPECT_EQ(changes[place], change);
                expected += model.parameters[place] * change;
            }
            EXPECT_EQ(sum, expected);
        }
    }
}

TEST(Evaluation, TheOrderOfTheSumIsTheEvaluatorsNotThatOfThePositions) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.structural_count = 3;
    const auto place = [&selection](const char* name, int position) {
        selection.structural[static_cast<std::size_t>(structural_id(name))].position = position;
    };
    place("edge", 2);
    place("2-star", 0);
    place("Triangle", 1);
    const auto effects = active_model<Graph>(selection);
    Graph graph = engine_graph(reference::make_graph(3, {{0, 2}, {1, 2}}));
    // edge 1e16, then two 2-stars of 0.5 each, then the triangle takes the large number back.
    const double parameters[] = {0.5, -1e16, 1e16};
    double changes[3] = {};
    EXPECT_EQ(evaluate_toggle(graph, effects, parameters, changes, 0, 1, 1), 1e16 + 1.0 - 1e16);
    EXPECT_EQ(changes[0], 2.0);
    EXPECT_EQ(changes[1], 1.0);
    EXPECT_EQ(changes[2], 1.0);
}

TEST(Evaluation, TheSameProposalGivesTheSameResultTwiceAndLeavesTheNetworkAlone) {
    const WholeModel model(13);
    TestRandom random(14);
    Graph graph = engine_graph(random_graph(random, kActors, 0.6), 0, 8);
    const Graph before = graph;
    std::vector<double> first(model.parameters.size());
    std::vector<double> second(model.parameters.size());
    for (int j = 1; j < kActors; ++j) {
        const int adding = graph_has_edge(graph, 0, j) ? 0 : 1;
        const double once = evaluate_toggle(graph, model.effects, model.parameters.data(),
                                            first.data(), 0, j, adding);
        const double twice = evaluate_toggle(graph, model.effects, model.parameters.data(),
                                             second.data(), 0, j, adding);
        EXPECT_EQ(once, twice);
        EXPECT_EQ(first, second);
    }
    EXPECT_EQ(graph.adjacency.words, before.adjacency.words);
    EXPECT_EQ(graph.two_paths.cells, before.two_paths.cells);
    EXPECT_EQ(graph.triangles, before.triangles);
    EXPECT_EQ(graph.degree, before.degree);
    EXPECT_EQ(graph.et0, before.et0);
    EXPECT_EQ(graph.clique_counts, before.clique_counts);
}

TEST(Evaluation, DeferredChangesAreThoseOfAFullEvaluation) {
    WholeModel model(15);
    for (std::size_t place = 0; place < model.parameters.size(); place += 2) {
        model.parameters[place] = 0.0;
    }
    PartedModel<Graph> parted;
    part_model(model.effects, model.parameters.data(), parted);
    ASSERT_FALSE(parted.resting.empty());
    TestRandom random(16);
    for (int repeat = 0; repeat < 60; ++repeat) {
        const PlainGraph plain = random_graph(random, kActors, 0.55);
        for (const Stage stage : {Stage::addition, Stage::deletion}) {
            EngineState state = engine_state(plain, 8, 2, stage, 8);
            std::vector<double> full(model.parameters.size(), 55.0);
            std::vector<double> deferred(model.parameters.size(), 55.0);
            const double sum = evaluate_toggle(state.graph, model.effects, model.parameters.data(),
                                               full.data(), 8, 2, state.adding);
            EXPECT_EQ(evaluate_weighted(state.graph, parted, deferred.data(), 8, 2, state.adding),
                      sum);
            for (std::size_t place = 0; place < deferred.size(); ++place) {
                EXPECT_EQ(deferred[place], place % 2 == 0 ? 55.0 : full[place]) << place;
            }
            // Another dyad's cliques in between must not show.
            graph_clique_changes(state.graph, 3, 4);
            evaluate_resting(state.graph, parted, deferred.data(), 8, 2, state.adding);
            EXPECT_EQ(deferred, full);
        }
    }
}

TEST(Evaluation, NoEffectRestsWhenEveryParameterMoves) {
    const WholeModel model(17);
    PartedModel<Graph> parted;
    part_model(model.effects, model.parameters.data(), parted);
    EXPECT_TRUE(parted.resting.empty());
    const StructuralModel edge({"edge"}, 2.0F);
    const double negative_zero[] = {-0.0};
    part_model(edge.effects, negative_zero, parted);
    EXPECT_TRUE(parted.weighted.empty());
    EXPECT_EQ(parted.resting.size(), 1U);
    EXPECT_EQ(parted.start_position, -1);
}

// The effect whose change is always 1 gives the sum its start where it comes first, and only there.
TEST(Evaluation, ASumStartsAtTheParameterOfTheTiesWhereThatComesFirst) {
    const StructuralModel model({"edge", "Triangle"}, 2.0F);
    Graph graph = engine_graph(reference::without_tie(reference::complete_graph(4), 0, 1));
    const double parameters[] = {0.75, 0.5};
    double changes[] = {-1.0, -1.0};
    PartedModel<Graph> parted;
    part_model(model.effects, parameters, parted);
    EXPECT_EQ(parted.start, 0.75);
    EXPECT_EQ(parted.start_position, 0);
    ASSERT_EQ(parted.weighted.size(), 1U);
    EXPECT_EQ(evaluate_weighted(graph, parted, changes, 0, 1, 1), 1.75);
    EXPECT_EQ(changes[0], -1.0);
    EXPECT_EQ(changes[1], 2.0);

    const ActiveModel<Graph> reversed{model.effects[1], model.effects[0]};
    part_model(reversed, parameters, parted);
    EXPECT_EQ(parted.start, 0.0);
    EXPECT_EQ(parted.start_position, -1);
    EXPECT_EQ(evaluate_weighted(graph, parted, changes, 0, 1, 1), 1.75);
    EXPECT_EQ(changes[0], 1.0);
}

TEST(Evaluation, EffectsThatCountTiesChangeByOneOnAnyNetwork) {
    WholeModel model(19);
    TestRandom random(20);
    int found = 0;
    for (int repeat = 0; repeat < 20; ++repeat) {
        EngineState state =
            engine_state(random_graph(random, kActors, 0.5), 1, 7, Stage::addition, 8);
        for (const auto& effect : model.effects) {
            if (effect.counts_ties) {
                EXPECT_EQ(effect.change(state.graph, effect.data, 1, 7, state.adding), 1.0);
                ++found;
            }
        }
    }
    EXPECT_EQ(found, 20);
}

TEST(Evaluation, AnEffectOfEveryKindStandsBehindTheStructuralOnesInItsOwnOrder) {
    const WholeModel model(18);
    ASSERT_EQ(model.effects.size(), 35U + 2U * (10U + 3U + 2U + 6U));
    // Structural effects keep their positions, all others follow one by one.
    for (std::size_t index = 0; index < model.effects.size(); ++index) {
        EXPECT_EQ(model.effects[index].position, static_cast<int>(index));
    }
    Graph graph = engine_graph(reference::complete_graph(kActors), 0, 8);
    std::size_t index = 35;
    for (const AttributeGroup group : kAllGroups) {
        for (const AttributeEffect& row :
             group_catalogue(*model.selection.catalogue, group).effects) {
            for (int attribute = 0; attribute < 2; ++attribute) {
                EXPECT_EQ(model.effects[index].change, row.graph.change) << row.update;
                ++index;
            }
        }
    }
}

TEST(WholeNetworkStatistics, OfAnEmptyNetworkAreZeroButForTheIsolates) {
    const WholeModel model(19);
    Graph graph =
        engine_graph(reference::empty_graph(kActors), static_cast<int>(model.parameters.size()), 8);
    graph.statistics.assign(graph.statistics.size(), 42.0);
    graph_count_cliques(graph);
    compute_statistics(graph, model.effects);
    const int isolates = model.selection.structural[graph_effect::kIsolates].position;
    for (std::size_t place = 0; place < graph.statistics.size(); ++place) {
        EXPECT_EQ(graph.statistics[place],
                  static_cast<int>(place) == isolates ? static_cast<double>(kActors) : 0.0);
    }
}

TEST(WholeNetworkStatistics, KeepWhatAPlaceWithoutAnEffectHolds) {
    const StructuralModel model({"edge"}, 2.0F);
    Graph graph = engine_graph(reference::complete_graph(3), 3);
    graph.statistics = {7.0, 8.0, 9.0};
    compute_statistics(graph, model.effects);
    EXPECT_EQ(graph.statistics, (std::vector<double>{3.0, 8.0, 9.0}));
}

TEST(WholeNetworkStatistics, OfEffectsThatShareAPlaceAreThoseOfTheLaterOne) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.structural_count = 1;
    selection.structural[static_cast<std::size_t>(structural_id("edge"))].position = 0;
    selection.structural[static_cast<std::size_t>(structural_id("Q10"))].position = 0;
    const auto effects = active_model<Graph>(selection);
    const PlainGraph nearly = reference::without_tie(reference::complete_graph(4), 0, 1);
    Graph graph = engine_graph(nearly, 1);
    compute_statistics(graph, effects);
    EXPECT_EQ(graph.statistics[0], 1.0);
    // The weighted sum takes both terms.
    const double parameter = 10.0;
    double change = 0.0;
    EXPECT_EQ(evaluate_toggle(graph, effects, &parameter, &change, 0, 1, 1), 10.0 - 10.0);
    EXPECT_EQ(change, -1.0);
}

TEST(WholeNetworkStatistics, StayEqualToARecountThroughATrailOfTogglesButForTheNamedFew) {
    WholeModel model(20);
    TestRandom random(21);
    // Clean data, so that the attribute effects promise it too.
    for (auto& attribute : model.selection.table.binary) {
        attribute = coded_attribute(random_codes(random, kActors, {0, 1}));
    }
    for (auto& covariate : model.selection.table.covariates) {
        for (int i = 0; i < kActors; ++i) {
            for (int j = i; j < kActors; ++j) {
                covariate[i][j] = covariate[j][i] =
                    static_cast<float>(draw_below(random, 8)) * 0.25F;
            }
        }
    }
    model.effects = active_model<Graph>(model.selection);
    const int size = static_cast<int>(model.parameters.size());
    Graph graph = engine_graph(random_graph(random, kActors, 0.8), size, 8);
    graph_count_cliques(graph);
    compute_statistics(graph, model.effects);
    const std::vector<double> start = graph.statistics;
    std::vector<double> changes(model.parameters.size());
    for (int step = 0; step < 5000; ++step) {
        const int i = draw_below(random, kActors);
        const int j = (i + 1 + draw_below(random, kActors - 1)) % kActors;
        const int adding = graph_has_edge(graph, i, j) ? 0 : 1;
        if (adding == 0) {
            graph_remove_edge(graph, i, j);
        }
        evaluate_toggle(graph, model.effects, model.parameters.data(), changes.data(), i, j,
                        adding);
        for (std::size_t place = 0; place < changes.size(); ++place) {
            graph.statistics[place] += adding == 1 ? changes[place] : -changes[place];
        }
        if (adding == 1) {
            graph_add_edge(graph, i, j);
        }
        graph_update_two_paths(graph, i, j, adding);
    }
    const std::vector<double> carried = graph.statistics;
    graph_count_cliques(graph);
    compute_statistics(graph, model.effects);
    const auto place_of = [](const char* name) {
        return static_cast<std::size_t>(structural_id(name)) -
               (structural_id(name) > graph_effect::kP0 ? 1U : 0U);
    };
    for (const auto& effect : model.effects) {
        const auto place = static_cast<std::size_t>(effect.position);
        const auto id = [&](const char* name) { return place == place_of(name); };
        if (id("0ET") || id("ETNT")) {
            EXPECT_EQ(carried[place], start[place]);
        } else if (!id("3Path") && !id("AEAT")) {
            EXPECT_NEAR(carried[place], graph.statistics[place], 1e-4) << "place " << place;
        }
    }
    // Three for each triangle more than there were: a path of three ties is counted as if it never
    // closed.
    EXPECT_EQ(carried[place_of("3Path")] - graph.statistics[place_of("3Path")],
              3.0 * (graph.statistics[place_of("Triangle")] - start[place_of("Triangle")]));
    EXPECT_NE(graph.statistics[place_of("Triangle")], start[place_of("Triangle")]);
    EXPECT_NE(carried[place_of("AEAT")], graph.statistics[place_of("AEAT")]);
}

}  // namespace
