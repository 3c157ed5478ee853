// Sorted lists beside rows of bits: the lists and the walks over them against the rows alone.
#include "network/neighbour_lists.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

namespace {

// Rows with their lists, toggled together.
struct Listed {
    BitMatrix rows;
    NeighbourLists lists;

    explicit Listed(int actors) : rows(actors), lists(actors) {}

    void toggle(int actor, int member) {
        const bool there = rows.has(actor, member);
        row_flip(rows[actor], member);
        if (there) {
            lists.remove(actor, member, rows[actor], rows.words_per_row,
                         row_count(rows[actor], rows.words_per_row));
        } else {
            lists.add(actor, member);
        }
    }
    Members members(int actor) const { return {lists, rows, actor}; }
};

using Actors = std::vector<int>;

Actors row_of(const Listed& listed, int actor) {
    Actors actors;
    for (int member = 0; member < listed.rows.actors; ++member) {
        if (listed.rows.has(actor, member)) {
            actors.push_back(member);
        }
    }
    return actors;
}

Actors list_of(const Listed& listed, int actor) {
    const auto list = listed.lists.of(actor);
    return {list.begin(), list.end()};
}

TEST(NeighbourLists, AreTheRowsInAscendingOrderWhileTheseAreShort) {
    std::mt19937 random(3);
    Listed listed(600);
    for (int toggle = 0; toggle < 4000; ++toggle) {
        const int actor = static_cast<int>(random() % 3U);
        listed.toggle(actor, static_cast<int>(random() % 90U));
        const Actors row = row_of(listed, actor);
        if (listed.lists.listed(actor)) {
            ASSERT_EQ(list_of(listed, actor), row);
        }
        ASSERT_TRUE(listed.lists.listed(actor) || row.size() > kRelistLength);
        ASSERT_TRUE(!listed.lists.listed(actor) || row.size() <= kListLength);
    }
}

TEST(NeighbourLists, GiveUpARowThatGetsLongAndTakeItBackWhenItIsShortAgain) {
    Listed listed(600);
    for (int member = 0; member < kListLength; ++member) {
        listed.toggle(7, 2 * member);
    }
    EXPECT_TRUE(listed.lists.listed(7));
    listed.toggle(7, 1);
    EXPECT_FALSE(listed.lists.listed(7));
    for (int member = 0; member < kListLength - kRelistLength; ++member) {
        listed.toggle(7, 2 * member);
        EXPECT_FALSE(listed.lists.listed(7));
    }
    listed.toggle(7, 1);
    EXPECT_TRUE(listed.lists.listed(7));
    EXPECT_EQ(list_of(listed, 7), row_of(listed, 7));
}

TEST(NeighbourLists, AreNotKeptInASmallNetwork) {
    Listed small(64 * kWordsAlone);
    Listed large(64 * kWordsAlone + 1);
    EXPECT_FALSE(small.lists.listed(3));
    EXPECT_TRUE(large.lists.listed(3));
    small.toggle(3, 5);
    small.toggle(3, 5);
    EXPECT_FALSE(small.lists.listed(3));
}

TEST(NeighbourLists, OfOtherActorsAreNotTouched) {
    Listed listed(600);
    listed.toggle(1, 4);
    listed.toggle(2, 0);
    listed.toggle(1, 0);
    EXPECT_EQ(list_of(listed, 0), Actors{});
    EXPECT_EQ(list_of(listed, 1), (Actors{0, 4}));
    EXPECT_EQ(list_of(listed, 2), Actors{0});
}

// Two rows with the given numbers of members out of `actors`.
Listed two_rows(std::mt19937& random, int actors, int first, int second) {
    Listed listed(actors);
    for (const auto& [actor, size] : {std::tuple{0, first}, std::tuple{1, second}}) {
        for (int added = 0; added < size;) {
            const int member = static_cast<int>(random() % static_cast<unsigned>(actors));
            if (!listed.rows.has(actor, member)) {
                listed.toggle(actor, member);
                ++added;
            }
        }
    }
    return listed;
}

// Short beside short, short beside long, long beside long, in one word and in many.
std::vector<Listed> all_kinds() {
    std::mt19937 random(11);
    std::vector<Listed> kinds;
    for (const int actors : {20, 64, 65, 300, 513, 1000, 5000}) {
        for (const int first : {0, 1, 6, 20, 63, 64, 150}) {
            for (const int second : {0, 5, 20, 63, 200}) {
                if (first <= actors && second <= actors) {
                    kinds.push_back(two_rows(random, actors, first, second));
                }
            }
        }
    }
    return kinds;
}

TEST(NeighbourLists, WalksMeetTheMembersInAscendingOrder) {
    for (const Listed& listed : all_kinds()) {
        Actors met;
        members_for_each(listed.lists, listed.rows, 0, [&](int actor) { met.push_back(actor); });
        EXPECT_EQ(met, row_of(listed, 0));
    }
}

TEST(NeighbourLists, CommonMembersAreThoseOfBothRows) {
    for (const Listed& listed : all_kinds()) {
        Actors expected;
        for (const int actor : row_of(listed, 0)) {
            if (listed.rows.has(1, actor)) {
                expected.push_back(actor);
            }
        }
        Actors met;
        common_for_each(listed.members(0), listed.members(1),
                        [&](int actor) { met.push_back(actor); });
        EXPECT_EQ(met, expected);
    }
}

TEST(NeighbourLists, MembersOfEitherRowComeWithTheRowsTheyAreIn) {
    for (const Listed& listed : all_kinds()) {
        std::vector<std::tuple<int, bool, bool>> expected;
        for (int actor = 0; actor < listed.rows.actors; ++actor) {
            const bool in_a = listed.rows.has(0, actor);
            const bool in_b = listed.rows.has(1, actor);
            if (in_a || in_b) {
                expected.emplace_back(actor, in_a, in_b);
            }
        }
        std::vector<std::tuple<int, bool, bool>> met;
        either_for_each(listed.members(0), listed.members(1), [&](int actor, bool in_a, bool in_b) {
            met.emplace_back(actor, in_a, in_b);
        });
        EXPECT_EQ(met, expected);
    }
}

}  // namespace
