#include "base/sample_summaries.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "reference/descriptives.h"
#include "reference/summaries.h"

namespace {

using Doubles = std::vector<double>;
using Ints = std::vector<int>;

CountTable table_of(const reference::IntTable& plain) {
    const int n = static_cast<int>(plain.size());
    CountTable table(n, n);
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column) {
            table[row][column] = static_cast<std::uint16_t>(reference::cell(plain, row, column));
        }
    }
    return table;
}

// Equal, or both not a number.
void expect_same(double found, double expected) {
    EXPECT_TRUE(found == expected || (std::isnan(found) && std::isnan(expected)))
        << found << " against " << expected;
}

TEST(SampleSummaries, OfAConstantListHaveNoSpreadAndNoSkew) {
    const Doubles values(7, 3.25);
    EXPECT_EQ(mean(values), 3.25);
    EXPECT_EQ(variance(values), 0.0);
    EXPECT_EQ(standard_deviation(values), 0.0);
    EXPECT_EQ(skew(values), 0.0);
}

TEST(SampleSummaries, OfOneAndThreeAreTwoTwoAndTheRootOfTwo) {
    EXPECT_EQ(mean(Doubles{1, 3}), 2.0);
    EXPECT_EQ(variance(Doubles{1, 3}), 2.0);
    EXPECT_EQ(standard_deviation(Doubles{1, 3}), std::sqrt(2.0));
    EXPECT_EQ(skew(Doubles{1, 3}), 0.0);
    EXPECT_EQ(mean_int(Ints{1, 3}), 2.0);
    EXPECT_EQ(variance_int(Ints{1, 3}), 2.0);
    EXPECT_EQ(standard_deviation_int(Ints{1, 3}), std::sqrt(2.0));
    EXPECT_EQ(skew_int(Ints{1, 3}), 0.0);
}

TEST(SampleSummaries, OfNothingHaveNoMeanButTheSpreadOfNoDeviation) {
    EXPECT_TRUE(std::isnan(mean(Doubles{})));
    EXPECT_TRUE(std::isnan(mean_int(Ints{})));
    // 0 over -1.
    EXPECT_EQ(variance(Doubles{}), 0.0);
    EXPECT_TRUE(std::signbit(variance(Doubles{})));
    EXPECT_EQ(skew(Doubles{}), 0.0);
}

TEST(SampleSummaries, OfOneValueHaveASpreadThatIsNotANumber) {
    EXPECT_EQ(mean(Doubles{5}), 5.0);
    EXPECT_TRUE(std::isnan(variance(Doubles{5})));
    EXPECT_TRUE(std::isnan(standard_deviation_int(Ints{5})));
    EXPECT_TRUE(std::isnan(skew(Doubles{5})));
}

TEST(SampleSummaries, MeanSumsFromFirstToLast) {
    EXPECT_EQ(mean(Doubles{1e16, 1, -1e16}), 0.0);
    EXPECT_EQ(mean(Doubles{1e16, -1e16, 1}), 1.0 / 3.0);
}

TEST(SampleSummaries, SkewDividesByTheCountAndByTheDeviationOneAtATime) {
    const Doubles values = {1, 2, 4, 9};
    const double centre = 4.0;
    const double deviation = std::sqrt((9.0 + 4.0 + 0.0 + 25.0) / 3.0);
    double cubes = 0.0;
    for (const double value : values) {
        cubes += (value - centre) * (value - centre) * (value - centre);
    }
    EXPECT_EQ(skew(values), cubes / 4.0 / deviation / deviation / deviation);
}

TEST(SampleSummaries, AreThoseOfThePlainFormulasOnRandomLists) {
    std::mt19937 random(21);
    for (int size = 0; size < 40; ++size) {
        Doubles doubles;
        Ints ints;
        Ints others;
        for (int entry = 0; entry < size; ++entry) {
            doubles.push_back(static_cast<double>(random()) / 1e7 - 200.0);
            ints.push_back(static_cast<int>(random() % 50U) - 20);
            others.push_back(static_cast<int>(random() % 50U) - 20);
        }
        expect_same(mean(doubles), reference::mean(doubles));
        expect_same(variance(doubles), reference::variance(doubles));
        expect_same(standard_deviation(doubles), reference::standard_deviation(doubles));
        expect_same(skew(doubles), reference::skew(doubles));
        expect_same(mean_int(ints), reference::mean(ints));
        expect_same(variance_int(ints), reference::variance(ints));
        expect_same(standard_deviation_int(ints), reference::standard_deviation(ints));
        expect_same(skew_int(ints), reference::skew(ints));
        expect_same(correlation(ints, others), reference::correlation(ints, others));
        for (const int value : {-21, -5, 0, 29, 30}) {
            expect_same(share_above(ints, value), reference::share_above(ints, value));
            expect_same(share_below(ints, value), reference::share_below(ints, value));
        }
    }
}

TEST(DyadSummaries, AreThoseOfThePlainFormulasAndReadTheUpperTriangleOnly) {
    std::mt19937 random(22);
    for (int n = 0; n < 12; ++n) {
        reference::IntTable plain = reference::square_table(n, 0);
        for (auto& row : plain) {
            for (int& cell : row) {
                cell = static_cast<int>(random() % 9U);
            }
        }
        const CountTable table = table_of(plain);
        expect_same(dyad_mean(table, n), reference::dyad_mean(plain));
        expect_same(dyad_standard_deviation(table, n), reference::dyad_standard_deviation(plain));
        expect_same(dyad_skew(table, n), reference::dyad_skew(plain));
        for (int row = 0; row < n; ++row) {
            for (int column = 0; column <= row; ++column) {
                reference::cell(plain, row, column) = 1000;
            }
        }
        expect_same(dyad_mean(table_of(plain), n), dyad_mean(table, n));
        expect_same(dyad_skew(table_of(plain), n), dyad_skew(table, n));
    }
}

TEST(DyadSummaries, SkewDividesByTheActorsWhileTheMeanDividesByTheDyads) {
    const CountTable table = table_of({{0, 1, 2, 3}, {0, 0, 4, 5}, {0, 0, 0, 9}, {0, 0, 0, 0}});
    EXPECT_EQ(dyad_mean(table, 4), 4.0);
    const double deviation = std::sqrt((9.0 + 4 + 1 + 0 + 1 + 25) / 5.0);
    EXPECT_EQ(dyad_standard_deviation(table, 4), deviation);
    const double cubes = -27.0 - 8 - 1 + 0 + 1 + 125;
    EXPECT_EQ(dyad_skew(table, 4), cubes / 4.0 / deviation / deviation / deviation);
}

TEST(DyadSummaries, OfNoActorsAreNotNumbersAndOfEqualCellsHaveNoSkew) {
    EXPECT_TRUE(std::isnan(dyad_mean(CountTable(), 0)));
    EXPECT_EQ(dyad_skew(CountTable(5, 5, 3), 5), 0.0);
}

TEST(Correlation, OfAListWithItselfIsBelowOneByOneShare) {
    const Ints values = {3, 1, 4, 1, 5, 9, 2, 6};
    EXPECT_NEAR(correlation(values, values), 7.0 / 8.0, 1e-15);
}

TEST(Correlation, OfAConstantListIsNotANumber) {
    EXPECT_TRUE(std::isnan(correlation(Ints{2, 2, 2}, Ints{1, 2, 3})));
}

TEST(SortInts, PutsValuesInAscendingOrderInPlace) {
    Ints values = {5, -1, 3, 3, 0, -1};
    sort_ints(values);
    EXPECT_EQ(values, (Ints{-1, -1, 0, 3, 3, 5}));
}

TEST(SortInts, DoesNothingToOneValueOrNone) {
    Ints one = {4};
    sort_ints(one);
    EXPECT_EQ(one, Ints{4});
    Ints none;
    sort_ints(none);
    EXPECT_TRUE(none.empty());
}

TEST(SortInts, SortsOnlyTheSpanItIsGiven) {
    Ints values = {9, 3, 2, 1};
    sort_ints(std::span<int>(values).subspan(1, 2));
    EXPECT_EQ(values, (Ints{9, 2, 3, 1}));
}

TEST(Shares, AboveAValueAtOrAboveAllEntriesAreZero) {
    EXPECT_EQ(share_above(Ints{1, 5, 3}, 5), 0.0F);
    EXPECT_EQ(share_above(Ints{1, 5, 3}, 6), 0.0F);
    EXPECT_EQ(share_below(Ints{1, 5, 3}, 1), 0.0F);
}

TEST(Shares, LeaveOutEqualEntriesAndAreSinglePrecision) {
    EXPECT_EQ(share_above(Ints{1, 2, 2, 7, 9, 9, 9}, 2), 4.0F / 7.0F);
    EXPECT_EQ(share_below(Ints{1, 2, 2}, 2), 1.0F / 3.0F);
}

TEST(Shares, OfNothingAreNotNumbers) {
    EXPECT_TRUE(std::isnan(share_above(Ints{}, 0)));
    EXPECT_TRUE(std::isnan(share_below(Ints{}, 0)));
}

Ints quantiles_of(const Ints& histogram, int parts) {
    Ints quantiles(static_cast<std::size_t>(parts), -1);
    distance_quantiles(histogram, parts, quantiles.data());
    return quantiles;
}

TEST(DistanceQuantiles, OfOneDistanceAreAllThatDistance) {
    EXPECT_EQ(quantiles_of({0, 0, 6, 0}, 4), (Ints{3, 3, 3, 3}));
}

TEST(DistanceQuantiles, TruncateTheirPlaceInTheList) {
    // Distances 1 1 2 2 3 4: places 1, 2, 3 and 5.
    EXPECT_EQ(quantiles_of({2, 2, 1, 1}, 4), (Ints{1, 2, 2, 4}));
}

TEST(DistanceQuantiles, CountPairsWithoutAPathAsTheLastDistance) {
    EXPECT_EQ(quantiles_of({1, 0, 0, 0, 9}, 4), (Ints{5, 5, 5, 5}));
}

TEST(DistanceQuantiles, WithoutAnyPairAreZero) {
    EXPECT_EQ(quantiles_of({0, 0, 0}, 4), (Ints{0, 0, 0, 0}));
    EXPECT_EQ(quantiles_of({}, 4), (Ints{0, 0, 0, 0}));
}

TEST(DistanceQuantiles, SumTheirFractionUpInDouble) {
    // Ten times a tenth, added up, stays below one: the last decile is not the last entry.
    double sum = 0.0;
    for (int part = 0; part < 10; ++part) {
        sum += 1.0 / 10;
    }
    ASSERT_LT(sum, 1.0);
    EXPECT_EQ(quantiles_of({1, 1}, 10).back(), 1);
}

TEST(DistanceQuantiles, AreThoseOfThePlainListOnRandomHistograms) {
    std::mt19937 random(23);
    for (int repeat = 0; repeat < 200; ++repeat) {
        Ints histogram(1 + random() % 12U);
        for (int& cell : histogram) {
            cell = static_cast<int>(random() % 7U);
        }
        for (const int parts : {1, 2, 3, 4, 7, 10}) {
            EXPECT_EQ(quantiles_of(histogram, parts),
                      reference::geodesic_quartiles(histogram, parts));
        }
    }
}

}  // namespace
