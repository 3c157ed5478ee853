// Rows of bits against a plain vector of flags.
#include "network/bit_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

struct Row {
    std::vector<bool> plain;
    ActorSet set;
};

Row random_row(std::mt19937& random, int actors, unsigned share) {
    Row row{std::vector<bool>(static_cast<std::size_t>(actors)), ActorSet(actors)};
    for (int actor = 0; actor < actors; ++actor) {
        if (random() % 100U < share) {
            row.plain[static_cast<std::size_t>(actor)] = true;
            row_flip(row.set.row(), actor);
        }
    }
    return row;
}

std::vector<int> members(const std::vector<bool>& plain) {
    std::vector<int> actors;
    for (std::size_t actor = 0; actor < plain.size(); ++actor) {
        if (plain[actor]) {
            actors.push_back(static_cast<int>(actor));
        }
    }
    return actors;
}

std::vector<bool> both(const Row& a, const Row& b) {
    std::vector<bool> plain = a.plain;
    for (std::size_t actor = 0; actor < plain.size(); ++actor) {
        plain[actor] = plain[actor] && b.plain[actor];
    }
    return plain;
}

const unsigned char* bytes_of(const std::uint64_t* row) {
    return reinterpret_cast<const unsigned char*>(row);
}

TEST(BitRows, CountAndWalkAsAPlainVectorDoes) {
    std::mt19937 random(31);
    for (const int actors : {0, 1, 2, 7, 8, 9, 31, 63, 64, 65, 127, 128, 129, 200}) {
        const int words = words_for(actors);
        EXPECT_EQ(words, (actors + 63) / 64);
        for (const unsigned share : {0U, 5U, 50U, 95U, 100U}) {
            const Row a = random_row(random, actors, share);
            const Row b = random_row(random, actors, 50);
            const Row c = random_row(random, actors, 70);
            const std::vector<int> of_a = members(a.plain);
            const std::vector<int> of_both = members(both(a, b));
            std::vector<bool> plain_all = both(a, b);
            for (std::size_t actor = 0; actor < plain_all.size(); ++actor) {
                plain_all[actor] = plain_all[actor] && c.plain[actor];
            }
            EXPECT_EQ(row_count(a.set.row(), words), static_cast<int>(of_a.size()));
            EXPECT_EQ(row_and_count(a.set.row(), b.set.row(), words),
                      static_cast<int>(of_both.size()));
            EXPECT_EQ(row_and_count(a.set.row(), b.set.row(), c.set.row(), words),
                      static_cast<int>(members(plain_all).size()));
            std::vector<int> walked;
            row_for_each(a.set.row(), words, [&walked](int actor) { walked.push_back(actor); });
            EXPECT_EQ(walked, of_a);
            walked.clear();
            row_and_for_each(a.set.row(), b.set.row(), words,
                             [&walked](int actor) { walked.push_back(actor); });
            EXPECT_EQ(walked, of_both);
            for (int actor = 0; actor < actors; ++actor) {
                EXPECT_EQ(row_has(a.set.row(), actor), a.plain[static_cast<std::size_t>(actor)]);
            }
        }
    }
}

TEST(BitRows, SettingAndClearingTwiceIsSettingAndClearingOnce) {
    ActorSet set(70);
    row_set(set.row(), 69);
    row_set(set.row(), 69);
    EXPECT_TRUE(row_has(set.row(), 69));
    EXPECT_EQ(row_count(set.row(), 2), 1);
    row_clear(set.row(), 69);
    row_clear(set.row(), 69);
    EXPECT_FALSE(row_has(set.row(), 69));
    row_flip(set.row(), 3);
    row_flip(set.row(), 3);
    EXPECT_EQ(row_count(set.row(), 2), 0);
}

TEST(BitRows, AnActorDivisibleByEightIsTheTopBitOfItsByte) {
    ActorSet set(80);
    row_flip(set.row(), 0);
    row_flip(set.row(), 64);
    EXPECT_EQ(bytes_of(set.row())[0], 0x80);
    EXPECT_EQ(bytes_of(set.row())[8], 0x80);
}

TEST(BitRows, ActorSevenIsTheLowestBitOfTheFirstByte) {
    ActorSet set(8);
    row_flip(set.row(), 7);
    EXPECT_EQ(bytes_of(set.row())[0], 0x01);
}

TEST(BitRows, TheFirstActorOfAWordIsItsMostSignificantBitInActorOrder) {
    ActorSet set(64);
    row_flip(set.row(), 0);
    EXPECT_EQ(actor_order(set.words[0]), 0x8000000000000000ULL);
    row_flip(set.row(), 0);
    row_flip(set.row(), 63);
    EXPECT_EQ(actor_order(set.words[0]), 1ULL);
}

TEST(BitRows, RowsOfAMatrixDoNotTouchEachOther) {
    BitMatrix matrix(65);
    EXPECT_EQ(matrix.words_per_row, 2);
    row_flip(matrix[1], 64);
    EXPECT_TRUE(matrix.has(1, 64));
    EXPECT_EQ(row_count(matrix[0], 2), 0);
    EXPECT_EQ(row_count(matrix[2], 2), 0);
    EXPECT_EQ(BitMatrix(0).words.size(), 0U);
    EXPECT_EQ(BitMatrix(-4).actors, 0);
}

TEST(BitRows, AnUnorderedWalkOfAWordMeetsTheSameActors) {
    std::mt19937 random(5);
    for (const int actors : {1, 7, 8, 63, 64}) {
        for (const unsigned share : {0U, 10U, 50U, 100U}) {
            const Row row = random_row(random, actors, share);
            std::vector<int> met;
            word_for_each_unordered(row.set.row()[0], 0, [&](int actor) { met.push_back(actor); });
            std::sort(met.begin(), met.end());
            EXPECT_EQ(met, members(row.plain));
        }
    }
}

}  // namespace
