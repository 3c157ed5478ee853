// The directed record: its tables under toggles, against tables counted from the matrix.
#include "network/digraph.h"

#include <gtest/gtest.h>

#include "reference/descriptives.h"
#include "support/random_digraphs.h"

using reference::PlainDigraph;

namespace {

void expect_list(const NeighbourLists& lists, const BitMatrix& rows, int actor) {
    std::vector<std::int32_t> members;
    row_for_each(rows[actor], rows.words_per_row, [&](int member) { members.push_back(member); });
    if (lists.listed(actor)) {
        const auto list = lists.of(actor);
        EXPECT_EQ(std::vector<std::int32_t>(list.begin(), list.end()), members);
    } else {
        EXPECT_TRUE(members.size() > kRelistLength || rows.words_per_row <= kWordsAlone);
    }
}

void expect_table(const CountTable& table, const BitMatrix& any,
                  const reference::IntTable& expected, const char* name) {
    for (int a = 0; a < static_cast<int>(expected.size()); ++a) {
        for (int b = 0; b < static_cast<int>(expected.size()); ++b) {
            EXPECT_EQ(table[a][b], reference::cell(expected, a, b)) << name << " " << a << " " << b;
            EXPECT_EQ(any.has(a, b), table[a][b] != 0) << name << " " << a << " " << b;
        }
    }
}

// Bits, degrees and histograms: what changes with the first half of a toggle.
void expect_first_half(const Digraph& digraph, const PlainDigraph& plain) {
    EXPECT_EQ(digraph.vertices, plain.n);
    EXPECT_EQ(digraph.arcs, reference::arc_count(plain));
    EXPECT_EQ(digraph.mutual_dyads, reference::mutual_dyad_count(plain));
    for (int a = 0; a < plain.n; ++a) {
        EXPECT_EQ(reference::item(digraph.in_degree, a), reference::in_degree(plain, a));
        EXPECT_EQ(reference::item(digraph.out_degree, a), reference::out_degree(plain, a));
        EXPECT_EQ(reference::item(digraph.mutual_degree, a), reference::mutual_degree(plain, a));
        for (int b = 0; b < plain.n; ++b) {
            EXPECT_EQ(digraph_has_arc(digraph, a, b), reference::has_arc(plain, a, b));
            EXPECT_EQ(digraph.adjacency_in.has(b, a), reference::has_arc(plain, a, b));
        }
        expect_list(digraph.receivers, digraph.adjacency, a);
        expect_list(digraph.senders, digraph.adjacency_in, a);
    }
    EXPECT_EQ(digraph.in_degree_distribution, reference::in_degree_distribution(plain));
    EXPECT_EQ(digraph.out_degree_distribution, reference::out_degree_distribution(plain));
}

void expect_second_half(const Digraph& digraph, const PlainDigraph& plain) {
    expect_table(digraph.two_paths, digraph.any_two_paths, reference::two_path_table(plain),
                 "two_paths");
    expect_table(digraph.shared_receivers, digraph.any_shared_receivers,
                 reference::shared_receiver_table(plain), "shared_receivers");
    expect_table(digraph.shared_senders, digraph.any_shared_senders,
                 reference::shared_sender_table(plain), "shared_senders");
    for (int a = 0; a < plain.n; ++a) {
        for (int b = 0; b < plain.n; ++b) {
            EXPECT_EQ(digraph.any_two_paths_in.has(b, a), digraph.any_two_paths.has(a, b));
        }
    }
}

TEST(DigraphRecord, OfNoActorsOrANegativeNumberHasEmptyTables) {
    for (const int n : {0, -1, -2, -50}) {
        SCOPED_TRACE(n);
        const Digraph digraph = digraph_create(n, -1);
        EXPECT_EQ(digraph.vertices, n);
        EXPECT_EQ(digraph.arcs, 0);
        EXPECT_EQ(digraph.mutual_dyads, 0);
        EXPECT_TRUE(digraph.adjacency.words.empty());
        EXPECT_TRUE(digraph.adjacency_in.words.empty());
        EXPECT_TRUE(digraph.two_paths.cells.empty());
        EXPECT_TRUE(digraph.shared_receivers.cells.empty());
        EXPECT_TRUE(digraph.shared_senders.cells.empty());
        EXPECT_TRUE(digraph.in_degree.empty());
        EXPECT_TRUE(digraph.out_degree.empty());
        EXPECT_TRUE(digraph.mutual_degree.empty());
        EXPECT_TRUE(digraph.in_degree_distribution.empty());
        EXPECT_TRUE(digraph.out_degree_distribution.empty());
        EXPECT_TRUE(digraph.geodesic_distribution.empty());
        EXPECT_TRUE(digraph.statistics.empty());
        EXPECT_EQ(digraph.triad_census, std::vector<double>(16, 0.0));
    }
}

TEST(DigraphRecord, ANewOneIsEmpty) {
    const Digraph digraph = digraph_create(9, 3);
    EXPECT_EQ(digraph.arcs, 0);
    EXPECT_EQ(digraph.mutual_dyads, 0);
    EXPECT_EQ(digraph.in_degree_distribution, (std::vector<int>{9, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(digraph.out_degree_distribution, (std::vector<int>{9, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(digraph.statistics, (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(digraph.triad_census, std::vector<double>(16, 0.0));
    expect_first_half(digraph, reference::empty_digraph(9));
    expect_second_half(digraph, reference::empty_digraph(9));
}

TEST(DigraphRecord, SizesBelowOneMakeARecordWithoutActors) {
    for (const int n : {0, -3}) {
        const Digraph digraph = digraph_create(n, -1);
        EXPECT_TRUE(digraph.in_degree.empty());
        EXPECT_TRUE(digraph.statistics.empty());
        EXPECT_EQ(digraph.triad_census.size(), 16U);
    }
}

TEST(DigraphRecord, AnArcIsOneBitMostSignificantFirst) {
    Digraph digraph = digraph_create(17, 0);
    digraph_add_tie(digraph, 3, 0);
    digraph_add_tie(digraph, 3, 7);
    digraph_add_tie(digraph, 3, 8);
    digraph_add_tie(digraph, 3, 16);
    const auto* bytes = reinterpret_cast<const unsigned char*>(digraph.adjacency[3]);
    EXPECT_EQ(bytes[0], 0x81);
    EXPECT_EQ(bytes[1], 0x80);
    EXPECT_EQ(bytes[2], 0x80);
}

TEST(DigraphRecord, ArcsBothWaysAreAMutualDyad) {
    Digraph digraph = digraph_create(4, 0);
    digraph_add_tie(digraph, 1, 2);
    EXPECT_EQ(digraph.mutual_dyads, 0);
    digraph_add_tie(digraph, 2, 1);
    EXPECT_EQ(digraph.mutual_dyads, 1);
    EXPECT_EQ(digraph.arcs, 2);
    EXPECT_EQ(digraph.mutual_degree, (std::vector<int>{0, 1, 1, 0}));
}

TEST(DigraphRecord, RemovingOneOfTwoArcsEndsTheMutualDyad) {
    Digraph digraph = digraph_create(4, 0);
    digraph_add_tie(digraph, 1, 2);
    digraph_add_tie(digraph, 2, 1);
    digraph_remove_arc(digraph, 1, 2);
    digraph_update_two_paths(digraph, 1, 2, 0);
    EXPECT_EQ(digraph.mutual_dyads, 0);
    EXPECT_EQ(digraph.arcs, 1);
    EXPECT_EQ(digraph.mutual_degree, (std::vector<int>{0, 0, 0, 0}));
    EXPECT_TRUE(digraph_has_arc(digraph, 2, 1));
}

TEST(DigraphRecord, APathOfTwoCountsInItsDirectionOnly) {
    Digraph digraph = digraph_create(3, 0);
    digraph_add_tie(digraph, 0, 1);
    digraph_add_tie(digraph, 1, 2);
    EXPECT_EQ(digraph.two_paths[0][2], 1);
    EXPECT_EQ(digraph.two_paths[2][0], 0);
}

TEST(DigraphRecord, TwoSendersOfOneActorShareAReceiver) {
    Digraph digraph = digraph_create(3, 0);
    digraph_add_tie(digraph, 0, 1);
    digraph_add_tie(digraph, 2, 1);
    EXPECT_EQ(digraph.shared_receivers[0][2], 1);
    EXPECT_EQ(digraph.shared_receivers[2][0], 1);
    EXPECT_EQ(digraph.shared_senders[0][2], 0);
}

TEST(DigraphRecord, AddingAnArcThatIsThereAndRemovingOneThatIsNotChangeNothing) {
    const PlainDigraph plain = reference::make_digraph(5, {{0, 1}, {1, 0}, {3, 4}});
    Digraph digraph = engine_digraph(plain);
    digraph_add_arc(digraph, 0, 1);
    digraph_remove_arc(digraph, 4, 3);
    expect_first_half(digraph, plain);
    expect_second_half(digraph, plain);
}

TEST(DigraphRecord, TheFirstHalfOfAToggleLeavesTheTwoPathTablesBehind) {
    const PlainDigraph plain = reference::make_digraph(4, {{0, 1}, {1, 2}, {3, 1}});
    Digraph digraph = engine_digraph(plain);
    digraph_remove_arc(digraph, 0, 1);
    expect_first_half(digraph, reference::without_arc(plain, 0, 1));
    expect_second_half(digraph, plain);
    digraph_add_arc(digraph, 0, 1);
    expect_first_half(digraph, plain);
    expect_second_half(digraph, plain);
}

TEST(DigraphRecord, TablesFollowRandomTogglesToEverySize) {
    std::mt19937 random(601);
    for (const int n : {2, 3, 5, 8, 11, 65}) {
        PlainDigraph plain = random_digraph(n, 0.3, random);
        Digraph digraph = engine_digraph(plain);
        expect_second_half(digraph, plain);
        for (int step = 0; step < 60; ++step) {
            const int i = static_cast<int>(random() % static_cast<unsigned>(n));
            const int j = static_cast<int>(random() % static_cast<unsigned>(n));
            if (i == j) {
                continue;
            }
            const bool there = reference::has_arc(plain, i, j);
            plain = there ? reference::without_arc(plain, i, j) : reference::with_arc(plain, i, j);
            if (there) {
                digraph_remove_arc(digraph, i, j);
            } else {
                digraph_add_arc(digraph, i, j);
            }
            digraph_update_two_paths(digraph, i, j, there ? 0 : 1);
        }
        expect_first_half(digraph, plain);
        expect_second_half(digraph, plain);
    }
}

template <class Values>
void fill(Values& values, typename Values::value_type value) {
    std::fill(values.begin(), values.end(), value);
}

TEST(DigraphRecord, TablesCountedAnewAreRightWhateverTheyHeld) {
    std::mt19937 random(603);
    for (const int n : {1, 2, 3, 8, 65, 530}) {
        const PlainDigraph plain = random_digraph(n, n > 100 ? 0.005 : 0.3, random);
        Digraph digraph = engine_digraph(plain);
        for (CountTable* table :
             {&digraph.two_paths, &digraph.shared_receivers, &digraph.shared_senders}) {
            fill(table->cells, 7);
        }
        for (BitMatrix* any : {&digraph.any_two_paths, &digraph.any_two_paths_in,
                               &digraph.any_shared_receivers, &digraph.any_shared_senders}) {
            fill(any->words, ~std::uint64_t{0});
        }
        digraph_count_two_paths(digraph);
        expect_second_half(digraph, plain);
    }
}

TEST(DigraphRecord, AToggleBackRestoresEveryTable) {
    for (const PlainDigraph& plain : random_digraphs(2, 7, 602)) {
        Digraph digraph = engine_digraph(plain);
        for_each_ordered_pair(plain.n, [&](int i, int j) {
            const bool there = reference::has_arc(plain, i, j);
            for (const bool remove : {there, !there}) {
                if (remove) {
                    digraph_remove_arc(digraph, i, j);
                } else {
                    digraph_add_arc(digraph, i, j);
                }
                digraph_update_two_paths(digraph, i, j, remove ? 0 : 1);
            }
        });
        expect_first_half(digraph, plain);
        expect_second_half(digraph, plain);
    }
}

TEST(DigraphRecord, ACopyTakesEverythingButTheNumberOfActors) {
    const PlainDigraph plain = reference::make_digraph(4, {{0, 1}, {1, 0}, {2, 3}});
    Digraph source = engine_digraph(plain, 2);
    source.statistics = {1.5, -2.0};
    source.geodesic_distribution[2] = 7;
    source.triad_census[4] = 9.0;
    Digraph target = digraph_create(4, 2);
    digraph_copy(source, target);
    expect_first_half(target, plain);
    expect_second_half(target, plain);
    EXPECT_EQ(target.statistics, source.statistics);
    EXPECT_EQ(target.geodesic_distribution[2], 7);
    EXPECT_EQ(target.triad_census[4], 9.0);
    digraph_remove_arc(target, 0, 1);
    EXPECT_TRUE(digraph_has_arc(source, 0, 1));
}

TEST(DigraphRecord, DensityIsTheShareOfOrderedPairs) {
    EXPECT_EQ(network_density(engine_digraph(reference::make_digraph(4, {{0, 1}, {1, 0}, {2, 3}}))),
              0.25);
    EXPECT_EQ(network_density(engine_digraph(reference::complete_digraph(5))), 1.0);
    EXPECT_EQ(network_density(digraph_create(5, 0)), 0.0);
}

}  // namespace
