// The triad census, which is solved from configuration counts, against looking at every triple.
#include <gtest/gtest.h>

#include <numeric>

#include "measures/descriptives.h"
#include "measures/triad_census.h"
#include "reference/directed_structural.h"
#include "support/random_digraphs.h"

using reference::PlainDigraph;

namespace {

std::vector<double> census(const PlainDigraph& plain) {
    Digraph digraph = engine_digraph(plain);
    refresh_triad_census(digraph);
    return digraph.triad_census;
}

std::vector<double> counted(const PlainDigraph& plain) {
    const std::array<double, 16> classes = reference::triad_census(plain);
    return {classes.begin(), classes.end()};
}

// One triple of the named class.
std::vector<double> one_of(std::string_view name) {
    std::vector<double> expected(16, 0.0);
    for (std::size_t place = 0; place < kTriadNames.size(); ++place) {
        expected[place] = kTriadNames[place] == name ? 1.0 : 0.0;
    }
    return expected;
}

TEST(TriadCensus, NamesStandInTheirPlaces) {
    std::string text;
    for (const char* name : kTriadNames) {
        text += std::string(name) + " ";
    }
    EXPECT_EQ(text, "300 210 120C 120D 120U 201 111D 111U 030T 030C 102 021D 021C 021U 012 003 ");
}

TEST(TriadCensus, OfEveryDigraphOfThreeActorsIsTheClassOfItsTriple) {
    for (const PlainDigraph& plain : all_digraphs_of_three()) {
        std::vector<double> expected(16, 0.0);
        reference::item(expected, reference::triad_class(plain, 0, 1, 2)) = 1.0;
        EXPECT_EQ(census(plain), expected);
    }
}

TEST(TriadCensus, ClassesAreWorkedByHand) {
    using reference::make_digraph;
    EXPECT_EQ(census(make_digraph(3, {})), one_of("003"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}})), one_of("012"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}})), one_of("102"));
    EXPECT_EQ(census(make_digraph(3, {{1, 0}, {1, 2}})), one_of("021D"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {2, 1}})), one_of("021U"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 2}})), one_of("021C"));
    // The mutual pair 0, 1 is sent to by 2, or sends to 2.
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {2, 1}})), one_of("111D"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {1, 2}})), one_of("111U"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 2}, {0, 2}})), one_of("030T"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 2}, {2, 0}})), one_of("030C"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {1, 2}, {2, 1}})), one_of("201"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {2, 0}, {2, 1}})), one_of("120D"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {0, 2}, {1, 2}})), one_of("120U"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {0, 2}, {2, 1}})), one_of("120C"));
    EXPECT_EQ(census(make_digraph(3, {{0, 1}, {1, 0}, {0, 2}, {2, 0}, {1, 2}})), one_of("210"));
    EXPECT_EQ(census(reference::complete_digraph(3)), one_of("300"));
}

TEST(TriadCensus, OfRandomDigraphsClassifiesEveryTripleAndSumsToTheirNumber) {
    std::vector<PlainDigraph> digraphs = random_digraphs(1, 12, 711);
    std::mt19937 random(712);
    digraphs.push_back(random_digraph(40, 0.1, random));
    digraphs.push_back(random_digraph(70, 0.4, random));
    for (const PlainDigraph& plain : digraphs) {
        const std::vector<double> classes = census(plain);
        EXPECT_EQ(classes, counted(plain)) << plain.n << " actors";
        EXPECT_EQ(std::accumulate(classes.begin(), classes.end(), 0.0),
                  plain.n * (plain.n - 1) * (plain.n - 2) / 6);
    }
}

TEST(TriadCensus, OfFewerThanThreeActorsIsEmpty) {
    for (int n = 0; n < 3; ++n) {
        EXPECT_EQ(census(reference::complete_digraph(n)), std::vector<double>(16, 0.0));
    }
}

TEST(TriadCensus, IsPartOfARefresh) {
    Digraph digraph = engine_digraph(reference::make_digraph(3, {{0, 1}, {1, 2}}));
    refresh_descriptives(digraph);
    EXPECT_EQ(digraph.triad_census, one_of("021C"));
    digraph_add_tie(digraph, 2, 0);
    EXPECT_EQ(digraph.triad_census, one_of("021C"));
    refresh_descriptives(digraph);
    EXPECT_EQ(digraph.triad_census, one_of("030C"));
}

TEST(TriadCensus, TheNumberOfTriplesWrapsBeyondThirtyTwoBits) {
    // 1,292 x 1,291 x 1,290 is 2,151,683,880, as a 32-bit integer -2,143,283,416.
    Digraph digraph = digraph_create(1292, 0);
    refresh_triad_census(digraph);
    EXPECT_EQ(digraph.triad_census.back(), -357213902.0);
}

}  // namespace
