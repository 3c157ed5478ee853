// Alternating effects of the directed network: against the plain reference for every lambda, and
// where their forms are, and are not, differences of whole values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/directed_models.h"

using reference::PlainDigraph;
using reference::Stage;

namespace {

const std::vector<std::string_view> kNames = {
    "AinS",  "AoutS", "AinS2",  "AoutS2", "Ain1outS", "1inAoutS", "AinAoutS", "AT-T",
    "AT-C",  "AT-D",  "AT-U",   "AT-TD",  "AT-TU",    "AT-DU",    "AT-TDU",   "A2P-T",
    "A2P-D", "A2P-U", "A2P-TD", "A2P-TU", "A2P-DU",   "A2P-TDU"};

// At lambda 1 their change counts two conditions where above it there is one.
const std::vector<std::string_view> kOddAtOne = {"A2P-D",  "A2P-U",  "A2P-TD",
                                                 "A2P-TU", "A2P-DU", "A2P-TDU"};

bool is_odd_at_one(std::string_view name) {
    return std::find(kOddAtOne.begin(), kOddAtOne.end(), name) != kOddAtOne.end();
}

double value(const PlainDigraph& plain, std::string_view name, float lambda) {
    const DirectedStructuralModel model(lambda);
    Digraph digraph = engine_digraph(plain);
    return reference::item(model.counts(digraph), directed_place(name));
}

double change(const PlainDigraph& plain, std::string_view name, float lambda, int i, int j,
              Stage stage = Stage::addition) {
    const DirectedStructuralModel model(lambda);
    Digraph digraph = engine_digraph(plain);
    stage_evaluation(digraph, i, j, stage);
    return reference::item(model.changes(digraph, i, j, stage == Stage::addition ? 1 : 0),
                           directed_place(name));
}

// Calls visit(name, change with adding 1, change with adding 0, difference of whole values).
template <class Visit>
void for_each_change(const PlainDigraph& plain, float lambda, Visit visit) {
    const DirectedStructuralModel model(lambda);
    for_each_ordered_pair(plain.n, [&](int i, int j) {
        Digraph with = engine_digraph(reference::with_arc(plain, i, j));
        Digraph without = engine_digraph(reference::without_arc(plain, i, j));
        const std::vector<double> after = model.counts(with);
        const std::vector<double> before = model.counts(without);
        const std::vector<double> added = model.changes(without, i, j, 1);
        stage_evaluation(with, i, j, Stage::deletion);
        const std::vector<double> deleted = model.changes(with, i, j, 0);
        for (const std::string_view name : kNames) {
            const int place = directed_place(name);
            visit(name, reference::item(added, place), reference::item(deleted, place),
                  reference::item(after, place) - reference::item(before, place));
        }
    });
}

class DigraphAlternatingAtLambda : public ::testing::TestWithParam<float> {};

TEST_P(DigraphAlternatingAtLambda, ChangesEqualTheReferenceWhetherAddingOrDeleting) {
    const float lambda = GetParam();
    const DirectedStructuralModel model(lambda);
    for (const PlainDigraph& plain : random_digraphs(2, 10, 531)) {
        expect_directed_changes(plain, model, lambda, kNames);
    }
}

TEST_P(DigraphAlternatingAtLambda, WholeValuesEqualTheReference) {
    const float lambda = GetParam();
    const DirectedStructuralModel model(lambda);
    for (const PlainDigraph& plain : random_digraphs(1, 10, 532)) {
        Digraph digraph = engine_digraph(plain);
        const std::vector<double> counts = model.counts(digraph);
        for (const std::string_view name : kNames) {
            const double expected = reference::directed_effect(name).count(plain, lambda);
            // The order in which a whole value is summed is free.
            EXPECT_NEAR(reference::item(counts, directed_place(name)), expected,
                        1e-13 * std::fabs(expected))
                << name << " among " << plain.n << " actors";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Lambdas, DigraphAlternatingAtLambda,
                         ::testing::Values(0.5F, 1.0F, 1.5F, 2.0F, 3.0F));

TEST(DigraphAlternating, AboveOneChangesAreTheDifferencesOfWholeValues) {
    for (const float lambda : {1.5F, 2.0F, 3.0F}) {
        for (const PlainDigraph& plain : random_digraphs(2, 8, 533)) {
            for_each_change(
                plain, lambda,
                [&](std::string_view name, double added, double deleted, double difference) {
                    EXPECT_EQ(added, deleted) << name << ", lambda " << lambda;
                    // Weights are in single precision, so the two routes part beyond its digits.
                    EXPECT_NEAR(added, difference, 2e-5) << name << ", lambda " << lambda;
                });
        }
    }
}

TEST(DigraphAlternating, AtOneChangesAreTheDifferencesOfWholeValuesButForSomeTwoPaths) {
    for (const PlainDigraph& plain : random_digraphs(2, 8, 534)) {
        for_each_change(
            plain, 1.0F,
            [&](std::string_view name, double added, double deleted, double difference) {
                if (is_odd_at_one(name)) {
                    return;
                }
                EXPECT_EQ(added, deleted) << name;
                EXPECT_NEAR(added, difference, 1e-12) << name;
            });
    }
}

TEST(DigraphAlternating, AtOneSomeTwoPathsDisagreeBothWithDeletionAndWithTheDifference) {
    for (const std::string_view odd : kOddAtOne) {
        bool states_disagree = false;
        bool difference_disagrees = false;
        for (const PlainDigraph& plain : random_digraphs(3, 6, 535)) {
            for_each_change(
                plain, 1.0F,
                [&](std::string_view name, double added, double deleted, double difference) {
                    if (name == odd) {
                        states_disagree |= added != deleted;
                        difference_disagrees |= std::fabs(added - difference) > 1e-9;
                    }
                });
        }
        EXPECT_TRUE(states_disagree) << odd;
        EXPECT_TRUE(difference_disagrees) << odd;
    }
}

TEST(DigraphAlternating, AtOneTwoPathsFromSharedSendersCountTheArcsAroundTheNewOne) {
    // The only arc is 1 to 2. Actors 0 and 2 share no sender, so the arc 0 to 1 counts one, though
    // no pair gains its first shared sender; counted as a deletion it is none.
    const PlainDigraph onward = reference::make_digraph(3, {{1, 2}});
    EXPECT_EQ(change(onward, "A2P-D", 1.0F, 0, 1), 1.0);
    EXPECT_EQ(change(onward, "A2P-D", 1.0F, 0, 1, Stage::deletion), 0.0);
    EXPECT_EQ(change(onward, "A2P-U", 1.0F, 0, 1), 1.0);
    EXPECT_EQ(change(onward, "A2P-U", 1.0F, 0, 1, Stage::deletion), 0.0);
    EXPECT_EQ(change(onward, "A2P-DU", 1.0F, 0, 1), 1.0);
    // The arc 1 to 2 also counts one as a path of two, so the three together make one.
    EXPECT_EQ(change(onward, "A2P-T", 1.0F, 0, 1), 1.0);
    EXPECT_EQ(change(onward, "A2P-T", 1.0F, 0, 1, Stage::deletion), 1.0);
    EXPECT_EQ(change(onward, "A2P-TDU", 1.0F, 0, 1), 1.0);
    EXPECT_EQ(change(onward, "A2P-TD", 1.0F, 0, 1, Stage::deletion), 0.5);

    // Adding 0 to 1 where 0 sends to 2 gives 1 and 2 their first shared sender, which at lambda 1
    // the change does not see.
    const PlainDigraph sender = reference::make_digraph(3, {{0, 2}});
    EXPECT_EQ(change(sender, "A2P-D", 1.0F, 0, 1), 0.0);
    EXPECT_EQ(value(reference::with_arc(sender, 0, 1), "A2P-D", 1.0F), 1.0);
    EXPECT_EQ(change(sender, "A2P-D", 2.0F, 0, 1), 1.0);
    EXPECT_EQ(change(sender, "A2P-D", 2.0F, 0, 1, Stage::deletion), 1.0);
}

TEST(DigraphAlternating, BelowOneEveryChangeAndWholeValueIsZero) {
    for (const float lambda : {0.25F, 0.5F, 0.99F}) {
        const DirectedStructuralModel model(lambda);
        for (const PlainDigraph& plain : random_digraphs(3, 6, 536)) {
            Digraph digraph = engine_digraph(plain);
            const std::vector<double> counts = model.counts(digraph);
            for (const std::string_view name : kNames) {
                EXPECT_EQ(reference::item(counts, directed_place(name)), 0.0) << name;
            }
            for_each_change(plain, lambda,
                            [&](std::string_view name, double added, double deleted, double) {
                                EXPECT_EQ(added, 0.0) << name;
                                EXPECT_EQ(deleted, 0.0) << name;
                            });
        }
    }
}

TEST(DigraphAlternating, AtOneTheMixedStarsAreDead) {
    for (const PlainDigraph& plain : random_digraphs(3, 6, 537)) {
        for_each_change(
            plain, 1.0F,
            [&](std::string_view name, double added, double deleted, double difference) {
                if (name == "Ain1outS" || name == "1inAoutS" || name == "AinAoutS") {
                    EXPECT_EQ(added, 0.0) << name;
                    EXPECT_EQ(deleted, 0.0) << name;
                    EXPECT_EQ(difference, 0.0) << name;
                }
            });
    }
}

TEST(DigraphAlternating, StarsOfASmallNetworkAreWorkedByHand) {
    // In-degrees 0 1 2, out-degrees 2 1 0; at lambda 2 a weight is a power of one half.
    const PlainDigraph plain = reference::make_digraph(3, {{0, 1}, {0, 2}, {1, 2}});
    // 4 x ((1 - 1 + 0) + (0.5 - 1 + 0.5) + (0.25 - 1 + 1)).
    EXPECT_EQ(value(plain, "AinS", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "AoutS", 2.0F), 1.0);
    // 9 x (4/9 - 1 + 2/3) at lambda 3.
    EXPECT_NEAR(value(plain, "AinS2", 3.0F), 1.0, 1e-6);
    // Arcs + actors that receive none - n.
    EXPECT_EQ(value(plain, "AinS", 1.0F), 1.0);
    EXPECT_EQ(value(plain, "AoutS", 1.0F), 1.0);
    // 2 x (1 - w(1)) where actor 1 is sent to once more.
    EXPECT_EQ(change(plain, "AinS", 2.0F, 2, 1), 1.0);
    EXPECT_EQ(change(plain, "AinS", 1.0F, 2, 1), 1.0);
    EXPECT_EQ(change(plain, "AinS", 2.0F, 2, 0), 0.0);
    EXPECT_EQ(change(plain, "AinS", 1.0F, 2, 0), 0.0);
}

TEST(DigraphAlternating, TrianglesOfATransitiveTripleAreWorkedByHand) {
    const PlainDigraph plain = reference::make_digraph(3, {{0, 1}, {0, 2}, {1, 2}});
    // One arc (0 to 2) over one path: 2 x (1 - 0.5). D: 1 and 2 share sender 0 on the arc between
    // them. U: 0 and 1 share receiver 2. No cycle.
    EXPECT_EQ(value(plain, "AT-T", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "AT-C", 2.0F), 0.0);
    EXPECT_EQ(value(plain, "AT-D", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "AT-U", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "AT-TDU", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "AT-T", 1.0F), 1.0);
    EXPECT_EQ(value(plain, "AT-C", 1.0F), 0.0);
    EXPECT_EQ(value(plain, "A2P-T", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "A2P-D", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "A2P-U", 2.0F), 1.0);
    EXPECT_EQ(value(plain, "A2P-TDU", 1.0F), 1.0);

    const PlainDigraph cycle = reference::make_digraph(3, {{0, 1}, {1, 2}, {2, 0}});
    // Three arcs, each closed by a path back.
    EXPECT_EQ(value(cycle, "AT-C", 2.0F), 3.0);
    EXPECT_EQ(value(cycle, "AT-C", 1.0F), 3.0);
    EXPECT_EQ(value(cycle, "AT-T", 2.0F), 0.0);
    EXPECT_EQ(value(cycle, "A2P-T", 2.0F), 3.0);
}

TEST(DigraphAlternating, AMixtureIsTheMeanOfItsParts) {
    std::mt19937 random(538);
    const PlainDigraph plain = random_digraph(9, 0.35, random);
    for (const float lambda : {1.0F, 1.5F, 2.0F}) {
        for_each_ordered_pair(plain.n, [&](int i, int j) {
            const DirectedStructuralModel model(lambda);
            Digraph digraph = engine_digraph(plain);
            stage_evaluation(digraph, i, j, Stage::addition);
            const std::vector<double> changes = model.changes(digraph, i, j, 1);
            const auto of = [&](std::string_view name) {
                return reference::item(changes, directed_place(name));
            };
            for (const std::string family : {"AT-", "A2P-"}) {
                const double t = of(family + "T");
                const double d = of(family + "D");
                const double u = of(family + "U");
                EXPECT_EQ(of(family + "TD"), (t + d) * 0.5);
                EXPECT_EQ(of(family + "TU"), (t + u) * 0.5);
                EXPECT_EQ(of(family + "DU"), (d + u) * 0.5);
                EXPECT_NEAR(of(family + "TDU"), (t + d + u) / 3.0, 1e-14);
            }
        });
    }
}

TEST(DigraphAlternating, WeightsEndWithTheTable) {
    // Beyond a hundred shared actors the last weight stands, which at lambda 100 is not yet small.
    constexpr int kShared = 130;
    PlainDigraph plain = reference::empty_digraph(kShared + 2);
    for (int k = 2; k < kShared + 2; ++k) {
        reference::cell(plain.arc, 0, k) = 1;
        reference::cell(plain.arc, k, 1) = 1;
    }
    const double last = static_cast<double>(static_cast<float>(std::pow(0.99, 100.0)));
    const double lambda = 100.0;
    EXPECT_EQ(change(plain, "AT-T", 100.0F, 0, 1), lambda * (1.0 - last));
    EXPECT_EQ(change(plain, "AinS", 100.0F, 0, 1), lambda * (1.0 - last));
    EXPECT_EQ(change(plain, "AoutS", 100.0F, 0, 1), lambda * (1.0 - last));
}

}  // namespace
