// Paths of three ties and rings of four.
#include "effects/paths.h"

#include <gtest/gtest.h>

#include "support/graph_effect_checks.h"
#include "support/random_networks.h"

namespace {

using reference::PlainGraph;
using reference::Stage;

const Names kPaths = {"3Path", "cycle4"};

PlainGraphs small_graphs() { return graphs_of_all_densities(6001, 3, 12, 14); }

TEST(Paths, ChangesAreThoseOfThePlainLoops) {
    EXPECT_TRUE(changes_match_reference(kPaths, {0.0F}, small_graphs()));
}

TEST(Paths, CountsAreThoseOfThePlainLoops) {
    EXPECT_TRUE(counts_match_reference(kPaths, {0.0F}, small_graphs()));
}

TEST(Paths, AnAdditionChangesAsMuchAsTheDeletionOfTheSameTie) {
    EXPECT_TRUE(additions_match_deletions(kPaths, {0.0F}, small_graphs()));
}

TEST(Paths, ReadRowsOfMoreThanOneWord) {
    const PlainGraphs graphs = graphs_across_words(6002);
    EXPECT_TRUE(changes_match_reference(kPaths, {0.0F}, graphs, 12));
    EXPECT_TRUE(counts_match_reference(kPaths, {0.0F}, graphs));
}

TEST(Paths, AFourCycleChangeIsTheDifferenceOfTheCounts) {
    EXPECT_TRUE(changes_are_differences({"cycle4"}, {0.0F}, small_graphs(), 0.0));
}

TEST(Paths, AThreePathChangeExceedsTheDifferenceOfTheCountsByThreePerCommonNeighbour) {
    int with_common_neighbours = 0;
    for (const PlainGraph& plain : graphs_of_all_densities(6003, 3, 10, 2)) {
        for (int i = 0; i < plain.n; ++i) {
            for (int j = i + 1; j < plain.n; ++j) {
                const int common = reference::common_neighbours(plain, i, j);
                const double difference =
                    engine_count(reference::with_tie(plain, i, j), "3Path") -
                    engine_count(reference::without_tie(plain, i, j), "3Path");
                EXPECT_EQ(engine_change(plain, i, j, Stage::addition, "3Path"),
                          difference + 3.0 * common);
                with_common_neighbours += common > 0 ? 1 : 0;
            }
        }
    }
    EXPECT_GT(with_common_neighbours, 100);
}

TEST(Paths, ARingOfFourIsOneCycleAndItsMissingTieChangesItByOne) {
    const PlainGraph ring = reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}, {3, 0}});
    EXPECT_EQ(engine_count(ring, "cycle4"), 1.0);
    const PlainGraph path = reference::without_tie(ring, 3, 0);
    EXPECT_EQ(engine_change(path, 0, 3, Stage::addition, "cycle4"), 1.0);
    EXPECT_EQ(engine_change(ring, 0, 3, Stage::deletion, "cycle4"), 1.0);
}

TEST(Paths, APathOfFourActorsIsOneThreePathAndSoIsTheChangeOfItsMiddleTie) {
    const PlainGraph path = reference::make_graph(4, {{0, 1}, {1, 2}, {2, 3}});
    EXPECT_EQ(engine_count(path, "3Path"), 1.0);
    EXPECT_EQ(engine_change(path, 1, 2, Stage::deletion, "3Path"), 1.0);
    EXPECT_EQ(engine_change(reference::without_tie(path, 1, 2), 1, 2, Stage::addition, "3Path"),
              1.0);
}

TEST(Paths, ATriangleHasNoThreePathThoughItsLastTieChangesItByThree) {
    EXPECT_EQ(engine_count(reference::complete_graph(3), "3Path"), 0.0);
    EXPECT_EQ(engine_change(reference::complete_graph(3), 0, 1, Stage::deletion, "3Path"), 3.0);
}

}  // namespace
