// Holds the plain reference against values worked out by hand on small networks, and against
// itself: changes against differences of whole values, additions against deletions.
#include "attributes.h"
#include "descriptives.h"
#include "directed_structural.h"
#include "structural.h"
#include "summaries.h"
#include "weights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace reference {
namespace {

double value(const PlainGraph& graph, std::string_view name, float lambda = 2.0F) {
    return structural_effect(name).count(graph, lambda);
}

double change(const PlainGraph& graph, int i, int j, std::string_view name, float lambda = 2.0F,
              Stage stage = Stage::addition) {
    return structural_effect(name).change(evaluation_state(graph, i, j, stage), i, j, lambda);
}

double value(const PlainDigraph& digraph, std::string_view name, float lambda = 2.0F) {
    return directed_effect(name).count(digraph, lambda);
}

double change(const PlainDigraph& digraph, int i, int j, std::string_view name, float lambda = 2.0F,
              Stage stage = Stage::addition) {
    return directed_effect(name).change(evaluation_state(digraph, i, j, stage), i, j, lambda);
}

PlainGraph triangle_graph() { return complete_graph(3); }

PlainGraph cycle_of_four() { return make_graph(4, {{0, 1}, {1, 2}, {2, 3}, {3, 0}}); }

PlainGraph star_of_four() { return make_graph(5, {{0, 1}, {0, 2}, {0, 3}, {0, 4}}); }

PlainGraph path_of_three() { return make_graph(4, {{0, 1}, {1, 2}, {2, 3}}); }

PlainGraph triangle_with_pendant() { return make_graph(4, {{0, 1}, {0, 2}, {1, 2}, {2, 3}}); }

PlainGraph two_triangles() {
    return make_graph(6, {{0, 1}, {0, 2}, {1, 2}, {3, 4}, {3, 5}, {4, 5}});
}

PlainGraph bow_tie() { return make_graph(5, {{0, 1}, {0, 2}, {1, 2}, {0, 3}, {0, 4}, {3, 4}}); }

PlainGraph random_graph(std::mt19937& random, int n, double density) {
    PlainGraph graph = empty_graph(n);
    std::bernoulli_distribution tie(density);
    for (int a = 0; a < n; ++a) {
        for (int b = a + 1; b < n; ++b) {
            if (tie(random)) {
                graph = with_tie(graph, a, b);
            }
        }
    }
    return graph;
}

PlainDigraph random_digraph(std::mt19937& random, int n, double density) {
    PlainDigraph digraph = empty_digraph(n);
    std::bernoulli_distribution arc(density);
    for (int a = 0; a < n; ++a) {
        for (int b = 0; b < n; ++b) {
            if (a != b && arc(random)) {
                digraph = with_arc(digraph, a, b);
            }
        }
    }
    return digraph;
}

bool one_of(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

TEST(ReferenceWeights, FollowThePowersAndStopAtTheTablesEnd) {
    const auto table = geometric_weight_table(2.0F);
    ASSERT_EQ(table.size(), 101U);
    EXPECT_EQ(table[0], 0.0F);
    EXPECT_EQ(geometric_weight(-1, table), 0.0);
    EXPECT_EQ(geometric_weight(0, table), 1.0);
    EXPECT_EQ(geometric_weight(1, table), 0.5);
    EXPECT_EQ(geometric_weight(3, table), 0.125);
    EXPECT_EQ(geometric_weight(101, table), geometric_weight(100, table));
    EXPECT_EQ(geometric_weight(5000, table), geometric_weight(100, table));
    EXPECT_EQ(geometric_weight(0, geometric_weight_table(1.0F)), 1.0);
    EXPECT_EQ(geometric_weight(7, geometric_weight_table(1.0F)), 0.0);
    EXPECT_EQ(geometric_weight(1, geometric_weight_table(2.0F, 0)), 0.0);
    for (const float lambda : {0.5F, 1.0F, 1.5F, 3.0F, 100.0F}) {
        for (const int m : {-3, 0, 1, 2, 50, 100, 101}) {
            EXPECT_EQ(geometric_weight(m, lambda),
                      geometric_weight(m, geometric_weight_table(lambda)));
        }
    }
}

TEST(ReferenceWeights, StarsWrapIn32Bits) {
    EXPECT_EQ(wrapping_choose(2, 3), 0.0);
    EXPECT_EQ(wrapping_choose(6, 4), 15.0);
    EXPECT_EQ(wrapping_choose(75, 5), 17259390.0);
    EXPECT_NE(wrapping_choose(90, 5), choose(90, 5));
    EXPECT_EQ(choose(90, 5), 43949268.0);
}

TEST(ReferenceStructural, ValuesOfATriangle) {
    const PlainGraph g = triangle_graph();
    EXPECT_EQ(value(g, "edge"), 3.0);
    EXPECT_EQ(value(g, "2-star"), 3.0);
    EXPECT_EQ(value(g, "3-star"), 0.0);
    EXPECT_EQ(value(g, "Triangle"), 1.0);
    EXPECT_EQ(value(g, "P0"), 1.0);
    EXPECT_EQ(value(g, "one2triangle"), 1.0);
    EXPECT_EQ(value(g, "3Path"), 0.0);
    EXPECT_EQ(value(g, "AT"), 3.0);
    EXPECT_EQ(value(g, "AT", 1.0F), 3.0);
    EXPECT_EQ(value(g, "A2P"), 3.0);
    EXPECT_EQ(value(g, "AS"), 3.0);
    EXPECT_EQ(value(g, "AS", 1.0F), 3.0);
    EXPECT_EQ(value(g, "AET"), 0.0);
    EXPECT_EQ(value(g, "0ET"), 0.0);
    EXPECT_EQ(value(g, "ETNT"), 0.0);
    EXPECT_EQ(change(g, 0, 1, "3Path"), 3.0);
}

TEST(ReferenceStructural, ValuesOfACycleOfFour) {
    const PlainGraph g = cycle_of_four();
    EXPECT_EQ(value(g, "2-star"), 4.0);
    EXPECT_EQ(value(g, "cycle4"), 1.0);
    EXPECT_EQ(value(g, "3Path"), 4.0);
    EXPECT_EQ(value(g, "Triangle"), 0.0);
    EXPECT_EQ(value(g, "A2P"), 3.0);
    EXPECT_EQ(value(g, "AT"), 0.0);
    EXPECT_EQ(change(g, 0, 2, "Triangle"), 2.0);
    EXPECT_EQ(change(g, 0, 2, "Triangle2"), 1.0);
    EXPECT_EQ(change(g, 0, 2, "Q10"), 1.0);
    EXPECT_EQ(change(path_of_three(), 0, 3, "cycle4"), 1.0);
}

TEST(ReferenceStructural, ValuesOfAStar) {
    const PlainGraph g = star_of_four();
    EXPECT_EQ(value(g, "2-star"), 6.0);
    EXPECT_EQ(value(g, "3-star"), 4.0);
    EXPECT_EQ(value(g, "4-star"), 1.0);
    EXPECT_EQ(value(g, "5-star"), 0.0);
    EXPECT_EQ(value(g, "two3star"), 4.0);
    EXPECT_EQ(value(g, "AS"), 4.25);
    EXPECT_EQ(value(g, "AS", 0.5F), 0.0);
    EXPECT_EQ(value(g, "A2P"), 6.0);
    EXPECT_EQ(mean_local_clustering(g), 0.0);
}

TEST(ReferenceStructural, ValuesOfAPath) {
    const PlainGraph g = path_of_three();
    EXPECT_EQ(value(g, "3Path"), 1.0);
    EXPECT_EQ(change(g, 1, 2, "3Path"), 1.0);
    EXPECT_EQ(value(g, "2-star"), 2.0);
}

TEST(ReferenceStructural, TyingTwoIsolates) {
    const PlainGraph g = empty_graph(2);
    EXPECT_EQ(value(g, "Isolates"), 2.0);
    EXPECT_EQ(change(g, 0, 1, "Isolates"), -2.0);
    EXPECT_EQ(change(g, 0, 1, "AS"), 0.0);
    EXPECT_EQ(change(g, 0, 1, "2-star"), 0.0);
}

TEST(ReferenceStructural, CliquesOfFiveActorsWithoutOneTie) {
    const PlainGraph g = without_tie(complete_graph(5), 0, 1);
    const auto state = evaluation_state(g, 0, 1, Stage::addition);
    const auto changes = clique_changes(state, 0, 1, 8);
    EXPECT_EQ(changes, (std::vector<double>{0, 1, 3, 3, 1, 0, 0, 0}));
    EXPECT_EQ(clique_counts(g, 8), (std::vector<double>{0, 0, 7, 2, 0, 0, 0, 0}));
    EXPECT_EQ(clique_counts(g, 2), (std::vector<double>{5, 9}));
    EXPECT_TRUE(clique_changes(state, 0, 1, 0).empty());
    EXPECT_EQ(change(g, 0, 1, "AC", 0.9F), 0.0);
    EXPECT_EQ(change(g, 0, 1, "AC", 1.0F), 2.0);
    EXPECT_EQ(change(g, 0, 1, "AC", 2.0F), 2.5);
    EXPECT_EQ(value(complete_graph(5), "AC"), 4.5);
    EXPECT_EQ(value(complete_graph(7), "7-clique"), 1.0);
}

TEST(ReferenceStructural, TwoTrianglesAndATieAcross) {
    const PlainGraph apart = two_triangles();
    EXPECT_EQ(value(apart, "P3"), 1.0);
    EXPECT_EQ(value(apart, "Q30"), 1.0);
    EXPECT_EQ(value(apart, "Q31"), 0.0);
    EXPECT_EQ(change(apart, 2, 3, "Q30"), -1.0);
    EXPECT_EQ(change(apart, 2, 3, "Q31"), 1.0);
    const PlainGraph joined = with_tie(apart, 2, 3);
    EXPECT_EQ(value(joined, "P3"), 1.0);
    EXPECT_EQ(value(joined, "Q30"), 0.0);
    EXPECT_EQ(value(joined, "Q31"), 1.0);
    EXPECT_EQ(value(joined, "1ET"), 2.0);
    EXPECT_EQ(value(joined, "0ET"), 2.0);
    EXPECT_EQ(value(joined, "ETNT"), 0.0);
    EXPECT_EQ(change(joined, 2, 3, "Q31", 2.0F, Stage::as_it_stands), 1.0);
    EXPECT_EQ(change(joined, 2, 3, "Q30", 2.0F, Stage::as_it_stands), -1.0);
}

TEST(ReferenceStructural, TriangleWithAPendantTie) {
    const PlainGraph g = triangle_with_pendant();
    EXPECT_EQ(value(g, "1ET"), 1.0);
    EXPECT_EQ(value(g, "2ET"), 0.0);
    EXPECT_EQ(value(g, "one2et"), 1.0);
    EXPECT_EQ(value(g, "0ET"), 1.0);
    EXPECT_EQ(value(g, "ETNT"), 1.0);
    EXPECT_EQ(value(g, "AET"), 1.0);
    EXPECT_EQ(et0_terms(g), (std::vector<int>{0, 0, 1, 0}));
}

TEST(ReferenceStructural, BowTie) {
    const PlainGraph g = bow_tie();
    EXPECT_EQ(value(g, "Bow_tie"), 1.0);
    EXPECT_EQ(value(g, "Q20"), 1.0);
    EXPECT_EQ(value(g, "1ET"), 4.0);
    EXPECT_EQ(value(g, "2ET"), 2.0);
    EXPECT_EQ(value(g, "one2et"), 3.0);
    EXPECT_EQ(change(g, 1, 3, "Q20"), -1.0);
    EXPECT_EQ(change(without_tie(g, 1, 2), 1, 2, "Bow_tie"), 1.0);
}

TEST(ReferenceStructural, AlternatingTrianglesAtOneCountAThirdActorTwiceWhenAdding) {
    const PlainGraph g = triangle_graph();
    EXPECT_EQ(change(g, 0, 1, "AT", 1.0F, Stage::addition), 3.0);
    EXPECT_EQ(change(g, 0, 1, "AT", 1.0F, Stage::deletion), 2.0);
    EXPECT_EQ(change(g, 0, 1, "AT", 1.0F, Stage::as_it_stands), 2.0);
}

TEST(ReferenceStructural, AlternatingTriangleAndTieOnFourActors) {
    const PlainGraph g = complete_graph(4);
    EXPECT_EQ(value(g, "AEAT"), 24.0);
    EXPECT_EQ(change(g, 0, 1, "AEAT", 2.0F, Stage::addition), 8.0);
    EXPECT_EQ(change(g, 0, 1, "AEAT", 2.0F, Stage::deletion), 12.0);
    EXPECT_EQ(change(triangle_graph(), 0, 1, "AEAT"), 0.0);
}

TEST(ReferenceStructural, NothingOfTrianglesInAnEmptyNetwork) {
    const PlainGraph g = empty_graph(6);
    for (const auto& effect : structural_effects()) {
        const double expected = effect.name == "Isolates" ? 6.0 : 0.0;
        EXPECT_EQ(effect.count(g, 2.0F), expected) << effect.name;
    }
}

TEST(ReferenceStructural, ChangesAreDifferencesWhereTheyShouldBe) {
    std::mt19937 random(7);
    for (int round = 0; round < 120; ++round) {
        const int n = 3 + round % 5;
        const PlainGraph g = random_graph(random, n, (round % 11) / 10.0);
        for (int i = 0; i < n; ++i) {
            for (int j = i + 1; j < n; ++j) {
                const auto adding = evaluation_state(g, i, j, Stage::addition);
                const auto deleting = evaluation_state(g, i, j, Stage::deletion);
                const PlainGraph with = with_tie(g, i, j);
                const PlainGraph without = without_tie(g, i, j);
                for (const auto& effect : structural_effects()) {
                    for (const float lambda : {0.5F, 1.0F, 2.0F, 4.0F}) {
                        if (!has_lambda(effect) && lambda != 2.0F) {
                            continue;
                        }
                        const double up = effect.change(adding, i, j, lambda);
                        const double down = effect.change(deleting, i, j, lambda);
                        const std::string what =
                            std::string(effect.name) + " at lambda " + std::to_string(lambda);
                        const bool at_one = one_of(effect.name, {"AT", "AT2"}) && lambda == 1.0F;
                        if (!at_one && effect.name != "AEAT") {
                            EXPECT_EQ(up, down) << what;
                        }
                        if (at_one || one_of(effect.name, {"AEAT", "0ET", "ETNT"})) {
                            continue;
                        }
                        double expected =
                            effect.count(with, lambda) - effect.count(without, lambda);
                        if (effect.name == "3Path") {
                            expected += 3.0 * common_neighbours(g, i, j);
                        }
                        EXPECT_NEAR(up, expected, 1e-5) << what;
                    }
                }
            }
        }
    }
}

TEST(ReferenceDirected, MutualDyads) {
    PlainDigraph d = make_digraph(3, {{0, 1}, {1, 0}});
    EXPECT_EQ(value(d, "reciprocity"), 1.0);
    for (const char* name : {"T6", "T7", "T8"}) {
        EXPECT_EQ(value(d, name), 0.0) << name;
    }
    EXPECT_EQ(value(d, "path2"), 0.0);
    d = with_arc(with_arc(d, 0, 2), 2, 0);
    EXPECT_EQ(value(d, "T6"), 1.0);
    EXPECT_EQ(value(d, "T7"), 2.0);
    EXPECT_EQ(value(d, "T8"), 2.0);
    EXPECT_EQ(value(d, "path2"), 2.0);
    EXPECT_EQ(change(d, 0, 1, "reciprocity"), 1.0);
    EXPECT_EQ(change(d, 0, 1, "path2"), 1.0);
}

TEST(ReferenceDirected, CycleAndTransitiveTriple) {
    const PlainDigraph cycle = make_digraph(3, {{0, 1}, {1, 2}, {2, 0}});
    EXPECT_EQ(value(cycle, "Cyclic-Triad"), 1.0);
    EXPECT_EQ(value(cycle, "Transitive-Triad"), 0.0);
    EXPECT_EQ(value(cycle, "AT-C"), 3.0);
    EXPECT_EQ(value(cycle, "AT-T"), 0.0);
    EXPECT_EQ(change(cycle, 2, 0, "Cyclic-Triad"), 1.0);
    const PlainDigraph triple = make_digraph(3, {{0, 1}, {0, 2}, {2, 1}});
    EXPECT_EQ(value(triple, "Transitive-Triad"), 1.0);
    EXPECT_EQ(value(triple, "Cyclic-Triad"), 0.0);
    EXPECT_EQ(value(triple, "AT-T"), 1.0);
    EXPECT_EQ(value(triple, "A2P-T"), 1.0);
    EXPECT_EQ(value(triple, "AT-T", 1.0F), 1.0);
    EXPECT_EQ(value(triple, "AT-T", 0.5F), 0.0);
    EXPECT_EQ(directed_clustering(triple).akc_t, 1.0);
    EXPECT_EQ(directed_clustering(triple).ctm, 1.0);
}

TEST(ReferenceDirected, SinksSourcesAndIsolates) {
    const PlainDigraph none = empty_digraph(2);
    EXPECT_EQ(change(none, 0, 1, "isolates"), -2.0);
    EXPECT_EQ(change(none, 0, 1, "Source"), 1.0);
    EXPECT_EQ(change(none, 0, 1, "Sink"), 1.0);
    EXPECT_EQ(change(make_digraph(3, {{2, 0}}), 0, 1, "Sink"), 0.0);
}

TEST(ReferenceDirected, AlternatingStars) {
    const PlainDigraph star = make_digraph(4, {{1, 0}, {2, 0}, {3, 0}});
    EXPECT_EQ(value(star, "AinS"), 2.5);
    EXPECT_EQ(value(star, "AinS", 1.0F), 2.0);
    EXPECT_EQ(value(star, "AoutS"), 0.0);
    EXPECT_EQ(change(star, 3, 0, "AinS"), 1.5);
    const PlainDigraph path = make_digraph(3, {{0, 1}, {1, 2}});
    EXPECT_EQ(value(path, "1inAoutS"), 1.0);
    EXPECT_EQ(value(path, "Ain1outS"), 1.0);
    EXPECT_EQ(value(path, "AinAoutS"), 1.0);
    EXPECT_EQ(change(path, 1, 2, "1inAoutS"), 1.0);
}

TEST(ReferenceDirected, ClassesOfTriples) {
    const auto class_of = [](const ActorPairs& arcs) {
        const PlainDigraph d = make_digraph(3, arcs);
        return triad_classes[static_cast<std::size_t>(triad_class(d, 0, 1, 2))];
    };
    EXPECT_EQ(class_of({}), "003");
    EXPECT_EQ(class_of({{0, 1}}), "012");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}}), "102");
    EXPECT_EQ(class_of({{0, 1}, {0, 2}}), "021D");
    EXPECT_EQ(class_of({{1, 0}, {2, 0}}), "021U");
    EXPECT_EQ(class_of({{0, 1}, {1, 2}}), "021C");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {2, 0}}), "111D");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}}), "111U");
    EXPECT_EQ(class_of({{0, 1}, {0, 2}, {2, 1}}), "030T");
    EXPECT_EQ(class_of({{0, 1}, {1, 2}, {2, 0}}), "030C");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}, {2, 0}}), "201");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {2, 0}, {2, 1}}), "120D");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}, {1, 2}}), "120U");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}, {2, 1}}), "120C");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}, {2, 0}, {1, 2}}), "210");
    EXPECT_EQ(class_of({{0, 1}, {1, 0}, {0, 2}, {2, 0}, {1, 2}, {2, 1}}), "300");
}

// The configurations hold in classes of more arcs a known number of times.
TEST(ReferenceDirected, CensusAgreesWithTheConfigurations) {
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        const int n = 3 + round % 5;
        const PlainDigraph d = random_digraph(random, n, (round % 9) / 8.0);
        const auto census = triad_census(d);
        const auto c = [&](std::string_view name) {
            const auto* const place = std::find(triad_classes.begin(), triad_classes.end(), name);
            return census[static_cast<std::size_t>(place - triad_classes.begin())];
        };
        EXPECT_EQ(c("300"), value(d, "T1"));
        EXPECT_EQ(c("210"), value(d, "T2") - 6 * c("300"));
        EXPECT_EQ(c("120C"), value(d, "T3") - 2 * c("210") - 6 * c("300"));
        EXPECT_EQ(c("120D"), value(d, "T4") - c("210") - 3 * c("300"));
        EXPECT_EQ(c("120U"), value(d, "T5") - c("210") - 3 * c("300"));
        EXPECT_EQ(c("201"), value(d, "T6") - c("210") - 3 * c("300"));
        EXPECT_EQ(c("111D"), value(d, "T7") - (2 * c("120D") + c("120C") + 2 * c("201") +
                                               3 * c("210") + 6 * c("300")));
        EXPECT_EQ(c("111U"), value(d, "T8") - (2 * c("120U") + c("120C") + 2 * c("201") +
                                               3 * c("210") + 6 * c("300")));
        EXPECT_EQ(c("030T"),
                  value(d, "Transitive-Triad") -
                      (2 * c("120D") + c("120C") + 2 * c("120U") + 3 * c("210") + 6 * c("300")));
        EXPECT_EQ(c("030C"), value(d, "Cyclic-Triad") - (c("120C") + c("210") + 2 * c("300")));
        EXPECT_EQ(c("102"), (n - 2) * value(d, "reciprocity") -
                                (c("111U") + c("111D") + c("120C") + c("120D") + c("120U") +
                                 2 * c("201") + 2 * c("210") + 3 * c("300")));
        EXPECT_EQ(c("021D"),
                  value(d, "out2star") - (c("030T") + c("111U") + c("120C") + c("120D") +
                                          2 * c("120U") + c("201") + 2 * c("210") + 3 * c("300")));
        EXPECT_EQ(c("021C"),
                  value(d, "path2") -
                      (3 * c("030C") + c("030T") + c("111U") + c("111D") + 3 * c("120C") +
                       2 * c("120D") + 2 * c("120U") + 2 * c("201") + 4 * c("210") + 6 * c("300")));
        EXPECT_EQ(c("021U"),
                  value(d, "in2star") - (c("030T") + c("111D") + c("120C") + 2 * c("120D") +
                                         c("120U") + c("201") + 2 * c("210") + 3 * c("300")));
        double sum = 0.0;
        for (const double count : census) {
            sum += count;
        }
        EXPECT_EQ(sum, choose(n, 3));
    }
}

TEST(ReferenceDirected, ChangesAreDifferencesWhereTheyShouldBe) {
    std::mt19937 random(13);
    for (int round = 0; round < 120; ++round) {
        const int n = 3 + round % 4;
        const PlainDigraph d = random_digraph(random, n, (round % 9) / 8.0);
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < n; ++j) {
                if (i == j) {
                    continue;
                }
                const auto adding = evaluation_state(d, i, j, Stage::addition);
                const auto deleting = evaluation_state(d, i, j, Stage::deletion);
                const PlainDigraph with = with_arc(d, i, j);
                const PlainDigraph without = without_arc(d, i, j);
                for (const auto& effect : directed_effects()) {
                    for (const float lambda : {0.5F, 1.0F, 2.0F, 4.0F}) {
                        if (!has_lambda(effect) && lambda != 2.0F) {
                            continue;
                        }
                        const std::string what =
                            std::string(effect.name) + " at lambda " + std::to_string(lambda);
                        const bool own_rule_at_one =
                            lambda == 1.0F && one_of(effect.name, {"A2P-D", "A2P-U", "A2P-TD",
                                                                   "A2P-TU", "A2P-DU", "A2P-TDU"});
                        if (own_rule_at_one) {
                            continue;
                        }
                        const double up = effect.change(adding, i, j, lambda);
                        EXPECT_EQ(up, effect.change(deleting, i, j, lambda)) << what;
                        EXPECT_NEAR(up, effect.count(with, lambda) - effect.count(without, lambda),
                                    1e-5)
                            << what;
                    }
                }
            }
        }
    }
}

TEST(ReferenceAttributes, BinaryEffectsOfOnesAreStructural) {
    std::mt19937 random(17);
    const PlainGraph g = random_graph(random, 7, 0.5);
    const Codes ones(7, 1);
    const auto count = [&](std::string_view name) {
        return find_effect(binary_effects(), name).count(g, ones);
    };
    EXPECT_EQ(count("t3u"), value(g, "Triangle"));
    EXPECT_EQ(count("t1u"), 3 * value(g, "Triangle"));
    EXPECT_EQ(count("t2u"), 3 * value(g, "Triangle"));
    EXPECT_EQ(count("o1au"), value(g, "2-star"));
    EXPECT_EQ(count("o3u"), value(g, "2-star"));
    EXPECT_EQ(count("o2bu"), value(g, "2-star"));
    EXPECT_EQ(count("o1bu"), 2 * value(g, "2-star"));
    EXPECT_EQ(count("o2au"), 2 * value(g, "2-star"));
    EXPECT_EQ(count("interaction"), value(g, "edge"));
    EXPECT_EQ(count("activity"), 2 * value(g, "edge"));
}

TEST(ReferenceAttributes, MissingValuesAreNumbersInUndirectedEffects) {
    const PlainGraph g = empty_graph(3);
    const Codes a = {1, missing_integer, 0};
    const auto state = evaluation_state(g, 0, 1, Stage::addition);
    EXPECT_EQ(find_effect(binary_effects(), "activity").change(state, 0, 1, a), 10000.0);
    EXPECT_EQ(find_effect(binary_effects(), "interaction").change(state, 0, 1, a), 9999.0);
    EXPECT_EQ(find_effect(binary_effects(), "interaction").count(with_tie(g, 0, 1), a), 1.0);
}

TEST(ReferenceAttributes, ContinuousTablesSkipMissingValues) {
    const ContinuousData z = continuous_data({1.5F, -2.0F, missing_real});
    EXPECT_EQ(cell(z.sum, 0, 1), -0.5F);
    EXPECT_EQ(cell(z.difference, 0, 1), 3.5F);
    EXPECT_EQ(cell(z.product, 1, 0), -3.0F);
    EXPECT_EQ(cell(z.sum, 0, 2), 0.0F);
    EXPECT_EQ(cell(z.product, 2, 1), 0.0F);
    const PlainDigraph d = make_digraph(3, {{2, 0}, {0, 1}});
    const auto count = [&](std::string_view name) {
        return find_effect(directed_continuous_effects(), name).count(d, z);
    };
    EXPECT_EQ(count("sender"), 1.5);
    EXPECT_EQ(count("Receiver"), -0.5);
    EXPECT_EQ(count("Sender_missing"), 1.0);
    EXPECT_EQ(count("path2"), 1.5);
    EXPECT_EQ(count("sum_reciprocity"), -0.5);
}

TEST(ReferenceAttributes, CovariatesOfOnesAreStructural) {
    std::mt19937 random(19);
    const PlainGraph g = random_graph(random, 7, 0.5);
    const FloatTable ones = square_table(7, 1.0F);
    const auto count = [&](std::string_view name) {
        return find_effect(covariate_effects(), name).count(g, ones);
    };
    EXPECT_EQ(count("edge"), value(g, "edge"));
    EXPECT_EQ(count("S21"), 2 * value(g, "2-star"));
    EXPECT_EQ(count("S22"), value(g, "2-star"));
    EXPECT_EQ(count("t1"), 3 * value(g, "Triangle"));
    EXPECT_EQ(count("t2"), 3 * value(g, "Triangle"));
    EXPECT_EQ(count("t3"), value(g, "Triangle"));
    FloatTable negative = ones;
    cell(negative, 0, 1) = cell(negative, 1, 0) = -1.0F;
    const auto state = evaluation_state(g, 0, 1, Stage::addition);
    EXPECT_EQ(find_effect(covariate_effects(), "S22").change(state, 0, 1, negative), 0.0);
}

TEST(ReferenceAttributes, UndirectedChangesAreDifferences) {
    std::mt19937 random(23);
    for (int round = 0; round < 60; ++round) {
        const int n = 3 + round % 5;
        const PlainGraph g = random_graph(random, n, (round % 11) / 10.0);
        Codes bits;
        Codes codes;
        std::vector<float> reals;
        FloatTable covariate = square_table(n, 0.0F);
        for (int v = 0; v < n; ++v) {
            bits.push_back(static_cast<int>(random() % 2));
            codes.push_back(static_cast<int>(random() % 3));
            reals.push_back(static_cast<float>(random() % 100) / 8.0F);
            for (int u = 0; u < v; ++u) {
                cell(covariate, u, v) = cell(covariate, v, u) =
                    static_cast<float>(random() % 9) / 4.0F;
            }
        }
        const ContinuousData z = continuous_data(reals);
        const auto check = [&](const auto& effects, const auto& data) {
            for (int i = 0; i < n; ++i) {
                for (int j = i + 1; j < n; ++j) {
                    const auto adding = evaluation_state(g, i, j, Stage::addition);
                    const auto deleting = evaluation_state(g, i, j, Stage::deletion);
                    for (const auto& effect : effects) {
                        const double up = effect.change(adding, i, j, data);
                        EXPECT_EQ(up, effect.change(deleting, i, j, data)) << effect.name;
                        EXPECT_NEAR(up,
                                    effect.count(with_tie(g, i, j), data) -
                                        effect.count(without_tie(g, i, j), data),
                                    1e-9)
                            << effect.name;
                    }
                }
            }
        };
        check(binary_effects(), bits);
        check(categorical_effects(), codes);
        check(continuous_effects(), z);
        check(covariate_effects(), covariate);
    }
}

TEST(ReferenceAttributes, DirectedChangesAreDifferences) {
    std::mt19937 random(29);
    for (int round = 0; round < 60; ++round) {
        const int n = 3 + round % 4;
        const PlainDigraph d = random_digraph(random, n, (round % 9) / 8.0);
        Codes bits;
        Codes codes;
        std::vector<float> reals;
        FloatTable covariate = square_table(n, 0.0F);
        for (int v = 0; v < n; ++v) {
            bits.push_back(static_cast<int>(random() % 2));
            codes.push_back(static_cast<int>(random() % 3));
            reals.push_back(static_cast<float>(random() % 100) / 8.0F);
            for (int u = 0; u < n; ++u) {
                cell(covariate, u, v) = static_cast<float>(random() % 9) / 4.0F - 1.0F;
            }
        }
        const ContinuousData z = continuous_data(reals);
        const auto check = [&](const auto& effects, const auto& data) {
            for (int i = 0; i < n; ++i) {
                for (int j = 0; j < n; ++j) {
                    if (i == j) {
                        continue;
                    }
                    const auto adding = evaluation_state(d, i, j, Stage::addition);
                    const auto deleting = evaluation_state(d, i, j, Stage::deletion);
                    for (const auto& effect : effects) {
                        if (&data == static_cast<const void*>(&z) &&
                            effect.name.ends_with("_reciprocity")) {
                            continue;
                        }
                        const double up = effect.change(adding, i, j, data);
                        EXPECT_EQ(up, effect.change(deleting, i, j, data)) << effect.name;
                        EXPECT_NEAR(up,
                                    effect.count(with_arc(d, i, j), data) -
                                        effect.count(without_arc(d, i, j), data),
                                    1e-9)
                            << effect.name;
                    }
                }
            }
        };
        check(directed_binary_effects(), bits);
        check(directed_categorical_effects(), codes);
        check(directed_continuous_effects(), z);
        check(directed_covariate_effects(), covariate);
    }
}

TEST(ReferenceDescriptives, TwoTriangles) {
    const PlainGraph g = two_triangles();
    EXPECT_EQ(largest_component(g), 3);
    EXPECT_EQ(geodesic_distribution(g), (std::vector<int>{6, 0, 0, 0, 0, 9}));
    EXPECT_EQ(geodesic_quartiles(geodesic_distribution(g)), (std::vector<int>{1, 6, 6, 6}));
    EXPECT_EQ(two_path_distribution(g), (std::vector<int>{9, 6, 0, 0, 0}));
    EXPECT_EQ(degree_distribution(g), (std::vector<int>{0, 0, 6, 0, 0, 0}));
    EXPECT_EQ(triangle_distribution(g)[1], 6);
    EXPECT_EQ(triangle_distribution(g).size(), 11U);
    EXPECT_EQ(global_clustering(g), 1.0);
    EXPECT_EQ(density(g), 0.4);
}

TEST(ReferenceDescriptives, EmptyAndCompleteNetworks) {
    const auto none = geodesic_distribution(empty_graph(4));
    EXPECT_EQ(geodesic_quartiles(none), (std::vector<int>{4, 4, 4, 4}));
    EXPECT_EQ(density(empty_graph(4)), 0.0);
    EXPECT_EQ(largest_component(empty_graph(0)), 1);
    EXPECT_EQ(geodesic_quartiles({}), (std::vector<int>{0, 0, 0, 0}));
    const PlainGraph all = complete_graph(5);
    EXPECT_EQ(geodesic_quartiles(geodesic_distribution(all)), (std::vector<int>{1, 1, 1, 1}));
    EXPECT_EQ(mean_local_clustering(all), 1.0);
    EXPECT_EQ(global_clustering(all), 1.0);
}

TEST(ReferenceDescriptives, DirectedPath) {
    const PlainDigraph d = make_digraph(3, {{0, 1}, {1, 2}});
    EXPECT_EQ(cell(geodesics(d), 0, 2), 2);
    EXPECT_EQ(cell(geodesics(d), 2, 0), unreachable);
    EXPECT_EQ(geodesic_distribution(d), (std::vector<int>{2, 1, 3}));
    EXPECT_EQ(cell(two_path_table(d), 0, 2), 1);
    EXPECT_EQ(cell(two_path_table(d), 2, 0), 0);
    EXPECT_EQ(in_degree_distribution(d), (std::vector<int>{1, 2, 0}));
    const PlainDigraph into = make_digraph(3, {{0, 1}, {2, 1}});
    EXPECT_EQ(cell(shared_receiver_table(into), 0, 2), 1);
    EXPECT_EQ(cell(shared_sender_table(into), 0, 2), 0);
}

TEST(ReferenceSummaries, HandWorkedLists) {
    const std::vector<double> flat(4, 2.5);
    EXPECT_EQ(variance(flat), 0.0);
    EXPECT_EQ(skew(flat), 0.0);
    const std::vector<int> two = {1, 3};
    EXPECT_EQ(mean(two), 2.0);
    EXPECT_EQ(variance(two), 2.0);
    EXPECT_EQ(standard_deviation(two), std::sqrt(2.0));
    EXPECT_EQ(skew(two), 0.0);
    EXPECT_NEAR(correlation({1, 2, 4, 9}, {1, 2, 4, 9}), 0.75, 1e-12);
    EXPECT_TRUE(std::isnan(variance(std::vector<double>{1.0})));
    EXPECT_EQ(share_above({1, 2, 3}, 3), 0.0F);
    EXPECT_EQ(share_below({1, 2, 3, 4}, 3), 0.5F);
    std::vector<int> list = {5, 1, 4, 1, 3};
    sort_ints(list, 2, 2);
    EXPECT_EQ(list, (std::vector<int>{5, 1, 4, 1, 3}));
    sort_ints(list, 0, 4);
    EXPECT_EQ(list, (std::vector<int>{1, 1, 3, 4, 5}));
    const IntTable table = {{0, 1, 3}, {1, 0, 5}, {3, 5, 0}};
    EXPECT_EQ(dyad_mean(table), 3.0);
    EXPECT_EQ(dyad_variance(table), 4.0);
    EXPECT_EQ(dyad_skew(table), 0.0);
}

}  // namespace
}  // namespace reference
