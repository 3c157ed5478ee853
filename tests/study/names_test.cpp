// Names as people type them.
#include "study/names.h"

#include <gtest/gtest.h>

namespace {

TEST(Names, MatchWithoutRegardToCaseAndJoiners) {
    EXPECT_TRUE(names_match("AT-TDU", "at_tdu"));
    EXPECT_TRUE(names_match("Two-Star", "twostar"));
    EXPECT_FALSE(names_match("AT-T", "AT-D"));
    EXPECT_FALSE(names_match("2-star", "3-star"));
}

TEST(Names, DistanceCountsEditsAndSwaps) {
    EXPECT_EQ(edit_distance("", ""), 0);
    EXPECT_EQ(edit_distance("edge", ""), 4);
    EXPECT_EQ(edit_distance("triangle", "triangel"), 1);
    EXPECT_EQ(edit_distance("edge", "egde"), 1);
    EXPECT_EQ(edit_distance("kitten", "sitting"), 3);
    EXPECT_EQ(edit_distance("sitting", "kitten"), 3);
}

TEST(Names, NearestIsOneThatMayHaveBeenMeant) {
    const std::vector<std::string> names = {"edge", "triangle", "2-star", "AT", "AS"};
    EXPECT_EQ(nearest_name("triangel", names), "triangle");
    EXPECT_EQ(nearest_name("Edges", names), "edge");
    EXPECT_EQ(nearest_name("2star", names), "2-star");
    EXPECT_EQ(nearest_name("A", names), "AT");
    EXPECT_EQ(nearest_name("reciprocity", names), "");
    EXPECT_EQ(nearest_name("x", {}), "");
    EXPECT_EQ(nearest_name(std::string(100000, 'e'), names), "");
}

TEST(Names, AreListed) {
    EXPECT_EQ(listed_names({"a"}), "`a`");
    EXPECT_EQ(listed_names({"a", "b"}), "`a` and `b`");
    EXPECT_EQ(listed_names({"a", "b", "c"}), "`a`, `b` and `c`");
}

}  // namespace
