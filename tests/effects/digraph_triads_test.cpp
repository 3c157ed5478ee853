// The ten triad configurations, against the plain reference and by hand.
#include <gtest/gtest.h>

#include "support/directed_models.h"

using reference::PlainDigraph;
using reference::Stage;

namespace {

const std::vector<std::string_view> kNames = {
    "T1", "T2", "T3", "T4", "T5", "T6", "T7", "T8", "Transitive-Triad", "Cyclic-Triad"};

// Whole values in the order of kNames.
std::vector<double> triads(const PlainDigraph& plain) {
    const DirectedStructuralModel model;
    Digraph digraph = engine_digraph(plain);
    const std::vector<double> counts = model.counts(digraph);
    std::vector<double> values;
    for (const std::string_view name : kNames) {
        values.push_back(reference::item(counts, directed_place(name)));
    }
    return values;
}

double change(const PlainDigraph& plain, std::string_view name, int i, int j) {
    const DirectedStructuralModel model;
    Digraph digraph = engine_digraph(plain);
    return reference::item(model.changes(digraph, i, j, 1), directed_place(name));
}

void expect_counts_of_reference(const PlainDigraph& plain, const DirectedStructuralModel& model) {
    Digraph digraph = engine_digraph(plain);
    const std::vector<double> counts = model.counts(digraph);
    for (const std::string_view name : kNames) {
        EXPECT_EQ(reference::item(counts, directed_place(name)),
                  reference::directed_effect(name).count(plain, kDefaultLambda))
            << name << " among " << plain.n << " actors";
    }
}

TEST(DigraphTriads, ChangesEqualTheReferenceOnEveryDigraphOfThreeActors) {
    const DirectedStructuralModel model;
    for (const PlainDigraph& plain : all_digraphs_of_three()) {
        expect_directed_changes(plain, model, kDefaultLambda, kNames);
        expect_counts_of_reference(plain, model);
    }
}

TEST(DigraphTriads, ChangesEqualTheReferenceOnRandomDigraphs) {
    const DirectedStructuralModel model;
    for (const PlainDigraph& plain : random_digraphs(2, 10, 521)) {
        expect_directed_changes(plain, model, kDefaultLambda, kNames);
        expect_counts_of_reference(plain, model);
    }
}

TEST(DigraphTriads, ChangesAreTheDifferencesOfWholeValues) {
    const DirectedStructuralModel model;
    std::vector<PlainDigraph> digraphs = random_digraphs(4, 9, 522);
    for (const PlainDigraph& plain : all_digraphs_of_three()) {
        digraphs.push_back(plain);
    }
    for (const PlainDigraph& plain : digraphs) {
        for_each_ordered_pair(plain.n, [&](int i, int j) {
            Digraph with = engine_digraph(reference::with_arc(plain, i, j));
            Digraph without = engine_digraph(reference::without_arc(plain, i, j));
            const std::vector<double> after = model.counts(with);
            const std::vector<double> before = model.counts(without);
            for (const int adding : {0, 1}) {
                Digraph staged = engine_digraph(plain);
                stage_evaluation(staged, i, j, adding == 1 ? Stage::addition : Stage::deletion);
                const std::vector<double> changes = model.changes(staged, i, j, adding);
                for (const std::string_view name : kNames) {
                    const int place = directed_place(name);
                    EXPECT_EQ(reference::item(changes, place),
                              reference::item(after, place) - reference::item(before, place))
                        << name << " of arc " << i << " to " << j << " among " << plain.n
                        << ", adding " << adding;
                }
            }
        });
    }
}

TEST(DigraphTriads, AMutualDyadAloneMakesNoConfiguration) {
    EXPECT_EQ(triads(reference::make_digraph(4, {{0, 1}, {1, 0}})), std::vector<double>(10, 0.0));
}

TEST(DigraphTriads, TwoMutualPartnersOfOneActorMakeOneT6) {
    // T7 and T8 take each ordered mutual pair with an arc to, or from, its first actor.
    const PlainDigraph plain = reference::make_digraph(3, {{0, 1}, {1, 0}, {0, 2}, {2, 0}});
    EXPECT_EQ(triads(plain), (std::vector<double>{0, 0, 0, 0, 0, 1, 2, 2, 0, 0}));
}

TEST(DigraphTriads, ACycleOfThreeArcsIsOneCyclicTriad) {
    EXPECT_EQ(triads(reference::make_digraph(3, {{0, 1}, {1, 2}, {2, 0}})),
              (std::vector<double>{0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(change(reference::make_digraph(3, {{0, 1}, {1, 2}}), "Cyclic-Triad", 2, 0), 1.0);
}

TEST(DigraphTriads, ATransitiveTripleIsOneTransitiveTriad) {
    EXPECT_EQ(triads(reference::make_digraph(3, {{0, 1}, {1, 2}, {0, 2}})),
              (std::vector<double>{0, 0, 0, 0, 0, 0, 0, 0, 1, 0}));
    EXPECT_EQ(change(reference::make_digraph(3, {{0, 1}, {1, 2}}), "Transitive-Triad", 0, 2), 1.0);
}

TEST(DigraphTriads, ACompleteTripleHoldsEveryConfiguration) {
    EXPECT_EQ(triads(reference::complete_digraph(3)),
              (std::vector<double>{1, 6, 6, 3, 3, 3, 6, 6, 6, 2}));
}

TEST(DigraphTriads, ConfigurationsOfTenActorsTiedToOneAnotherFillEveryTriple) {
    // 120 triples, each complete.
    EXPECT_EQ(triads(reference::complete_digraph(10)),
              (std::vector<double>{120, 720, 720, 360, 360, 360, 720, 720, 720, 240}));
}

TEST(DigraphTriads, CountsCrossTheWordsOfWideRows) {
    // Seventy actors need two words a row.
    std::mt19937 random(523);
    const PlainDigraph plain = random_digraph(70, 0.15, random);
    const DirectedStructuralModel model;
    expect_counts_of_reference(plain, model);
    for (const auto& [i, j] : {std::pair{0, 69}, {69, 0}, {63, 64}, {64, 63}, {5, 6}}) {
        for (const Stage stage : {Stage::addition, Stage::deletion}) {
            Digraph digraph = engine_digraph(plain);
            stage_evaluation(digraph, i, j, stage);
            const reference::DirectedState state = reference::evaluation_state(plain, i, j, stage);
            const std::vector<double> changes =
                model.changes(digraph, i, j, stage == Stage::addition ? 1 : 0);
            for (int id = 0; id < model.size(); ++id) {
                const reference::DirectedEffect& effect =
                    reference::item(reference::directed_effects(), id);
                EXPECT_EQ(reference::item(changes, id), effect.change(state, i, j, kDefaultLambda))
                    << effect.name << " of arc " << i << " to " << j;
            }
        }
    }
}

}  // namespace
