// Directed effects of degrees and mutual dyads, against the plain reference and by hand.
#include <gtest/gtest.h>

#include "effects/digraph_stars.h"
#include "support/directed_models.h"

using reference::PlainDigraph;
using reference::Stage;

namespace {

const std::vector<std::string_view> kNames = {
    "arc",        "reciprocity", "in2star", "in-3-star", "4-in-star", "out2star",
    "out-3-star", "4-out-star",  "path2",   "Sink",      "Source",    "isolates"};

// The change of one effect were i to j added to the network, from which it must be absent.
double change(const PlainDigraph& plain, std::string_view name, int i, int j) {
    const DirectedStructuralModel model;
    Digraph digraph = engine_digraph(plain);
    return reference::item(model.changes(digraph, i, j, 1), directed_place(name));
}

TEST(DigraphStars, ChangesEqualTheReferenceWhetherAddingOrDeleting) {
    const DirectedStructuralModel model;
    for (const PlainDigraph& plain : random_digraphs(2, 10, 511)) {
        expect_directed_changes(plain, model, kDefaultLambda, kNames);
    }
}

TEST(DigraphStars, WholeValuesEqualTheReference) {
    const DirectedStructuralModel model;
    for (const PlainDigraph& plain : random_digraphs(1, 10, 512)) {
        Digraph digraph = engine_digraph(plain);
        const std::vector<double> counts = model.counts(digraph);
        for (const std::string_view name : kNames) {
            EXPECT_EQ(reference::item(counts, directed_place(name)),
                      reference::directed_effect(name).count(plain, kDefaultLambda))
                << name << " among " << plain.n << " actors";
        }
    }
}

TEST(DigraphStars, ChangesAreTheDifferencesOfWholeValues) {
    const DirectedStructuralModel model;
    for (const PlainDigraph& plain : random_digraphs(2, 8, 513)) {
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
                        << name << " of arc " << i << " to " << j << ", adding " << adding;
                }
            }
        });
    }
}

TEST(DigraphStars, AnAnsweredArcIsReciprocityOneAndTwoPathsLess) {
    // 1 to 0 is there; 2 and 3 send to 0, and 1 sends to 2, 3 and 4.
    const PlainDigraph plain =
        reference::make_digraph(5, {{1, 0}, {2, 0}, {3, 0}, {1, 2}, {1, 3}, {1, 4}});
    EXPECT_EQ(change(plain, "reciprocity", 0, 1), 1.0);
    // in(0) + out(1) - 2 = 3 + 4 - 2.
    EXPECT_EQ(change(plain, "path2", 0, 1), 5.0);
    EXPECT_EQ(change(plain, "reciprocity", 4, 0), 0.0);
    EXPECT_EQ(change(plain, "path2", 4, 0), 1.0);
}

TEST(DigraphStars, AnIsolateSendingToAnIsolateMakesASourceAndASink) {
    const PlainDigraph plain = reference::make_digraph(4, {{2, 3}});
    EXPECT_EQ(change(plain, "isolates", 0, 1), -2.0);
    EXPECT_EQ(change(plain, "Source", 0, 1), 1.0);
    EXPECT_EQ(change(plain, "Sink", 0, 1), 1.0);
}

TEST(DigraphStars, ASinkSendingToAnIsolateLeavesTheSinksAlone) {
    const PlainDigraph plain = reference::make_digraph(4, {{2, 0}});
    EXPECT_EQ(change(plain, "Sink", 0, 1), 0.0);
    EXPECT_EQ(change(plain, "isolates", 0, 1), -1.0);
    EXPECT_EQ(change(plain, "Source", 0, 1), 0.0);
}

TEST(DigraphStars, ASourceThatIsSentToIsNoSourceAnyMore) {
    const PlainDigraph plain = reference::make_digraph(4, {{1, 2}});
    EXPECT_EQ(change(plain, "Source", 0, 1), 0.0);
    EXPECT_EQ(change(plain, "Source", 2, 1), -1.0);
    EXPECT_EQ(change(plain, "Sink", 2, 1), -1.0);
}

TEST(DigraphStars, AnEmptyNetworkHasNothingButIsolates) {
    const DirectedStructuralModel model;
    Digraph digraph = digraph_create(7, 0);
    const std::vector<double> counts = model.counts(digraph);
    for (int id = 0; id < model.size(); ++id) {
        EXPECT_EQ(reference::item(counts, id), id == directed_place("isolates") ? 7.0 : 0.0)
            << digraph_catalogue().effects[static_cast<std::size_t>(id)].row;
    }
}

TEST(DigraphStars, StarsOfLargeDegreesDoNotWrapAround) {
    // 1,300 x 1,299 x 1,298 needs more than 31 bits; the undirected stars wrap there.
    constexpr int kReceived = 1300;
    Digraph digraph = digraph_create(kReceived + 2, 0);
    for (int k = 2; k < kReceived + 2; ++k) {
        digraph_add_arc(digraph, k, 1);
        digraph_add_arc(digraph, 0, k);
    }
    const EffectData data;
    EXPECT_EQ(digraph_in4star_change(digraph, data, 0, 1, 1), 365322100.0);
    EXPECT_EQ(digraph_out4star_change(digraph, data, 0, 1, 1), 365322100.0);
    EXPECT_EQ(digraph_in3star_change(digraph, data, 0, 1, 1), 844350.0);
    // 1300 choose 4.
    EXPECT_EQ(digraph_in4star_count(digraph, data), 118455690925.0);
}

TEST(DigraphStars, AStarOfMoreArcsThanThereAreIsZero) {
    const EffectData data;
    Digraph digraph = engine_digraph(reference::make_digraph(4, {{2, 1}, {0, 3}}));
    EXPECT_EQ(digraph_in2star_change(digraph, data, 0, 1, 1), 1.0);
    EXPECT_EQ(digraph_in3star_change(digraph, data, 0, 1, 1), 0.0);
    EXPECT_EQ(digraph_in4star_change(digraph, data, 0, 1, 1), 0.0);
    EXPECT_EQ(digraph_out2star_change(digraph, data, 0, 1, 1), 1.0);
    EXPECT_EQ(digraph_out3star_change(digraph, data, 0, 1, 1), 0.0);
    EXPECT_EQ(digraph_out4star_change(digraph, data, 0, 1, 1), 0.0);
}

}  // namespace
