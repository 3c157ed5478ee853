// The report of a fit from samples laid out by hand.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "report/fit_report.h"
#include "support/scratch_directory.h"

namespace {

// One statistic, no descriptive rows, and as many samples as there are values.
FitSamples one_statistic(const std::vector<double>& values, double observed) {
    FitSamples samples;
    samples.p = 1;
    samples.planned = static_cast<int>(values.size());
    samples.taken = samples.planned;
    samples.table = matrix_create(2, samples.planned, 0.0);
    for (int s = 0; s < samples.planned; ++s) {
        samples.table[0][s] = values[static_cast<std::size_t>(s)];
    }
    samples.observed = {observed, 0.0};
    return samples;
}

struct Written {
    std::string log;
    std::string table;
};

Written distance_report(FitSamples samples, NetworkKind kind) {
    const ScratchDirectory scratch;
    const std::string log = (scratch.path() / "log").string();
    const std::string table = (scratch.path() / "table").string();
    const int closer = fit_samples_measure(samples);
    write_fit_columns(samples, table);
    {
        TextWriter out = writer_append(log);
        write_fit_distance(out, {.samples = std::move(samples), .closer = closer}, kind);
    }
    return {file_text(log), file_text(table)};
}

TEST(FitDistance, IsCountedInStandardDeviationsOfTheSamples) {
    // Mean 0 and variance 1, by the number of samples.
    const Written written =
        distance_report(one_statistic({-1.0, 1.0, -1.0, 1.0}, 3.0), NetworkKind::undirected);
    EXPECT_EQ(written.log,
              "Mahalanobis distance =3.000000\n"
              "100% simulated samples have smaller Mahalanobis distances than the observed "
              "network\n");
    EXPECT_EQ(written.table,
              "1\t-1.000000\t1.000000\t\n2\t1.000000\t1.000000\t\n"
              "3\t-1.000000\t1.000000\t\n4\t1.000000\t1.000000\t\n");
}

TEST(FitDistance, OfADigraphShowsItsSquareAndAFullStop) {
    const Written written =
        distance_report(one_statistic({-1.0, 1.0, -1.0, 1.0}, 3.0), NetworkKind::directed);
    EXPECT_EQ(written.log,
              "Mahalanobis distance =3.000000 (9.000000)\n"
              "100% simulated samples have smaller Mahalanobis distances than the observed "
              "network.\n");
}

TEST(FitDistance, AnEqualDistanceDoesNotCount) {
    const Written written =
        distance_report(one_statistic({-1.0, 1.0, -1.0, 1.0}, 1.0), NetworkKind::undirected);
    EXPECT_EQ(written.log,
              "Mahalanobis distance =1.000000\n"
              "0% simulated samples have smaller Mahalanobis distances than the observed "
              "network\n");
}

TEST(FitDistance, CountsTheShareOfSamplesThatAreCloser) {
    // Squared distances of the samples 2 and 1, in units of the variance 2.5.
    const Written written =
        distance_report(one_statistic({-2.0, -1.0, 1.0, 2.0}, 1.5), NetworkKind::undirected);
    EXPECT_TRUE(
        written.log.ends_with("\n50% simulated samples have smaller Mahalanobis distances "
                              "than the observed network\n"))
        << written.log;
}

TEST(FitDistance, OfAStatisticThatNeverMovedEndsAllTheSame) {
    const Written written =
        distance_report(one_statistic({2.0, 2.0, 2.0}, 3.0), NetworkKind::undirected);
    EXPECT_TRUE(written.log.starts_with("Mahalanobis distance ="));
    EXPECT_EQ(written.table.substr(0, written.table.find('\n')), "1\t2.000000\t0.000000\t");
}

TEST(FitDistance, WithoutSamplesIsNotANumber) {
    const Written written = distance_report(one_statistic({}, 3.0), NetworkKind::undirected);
    EXPECT_EQ(written.table, "");
    EXPECT_NE(written.log.find("nan"), std::string::npos) << written.log;
}

std::string quartile_report(const std::vector<int>& sampled, int observed) {
    FitSamples samples = one_statistic(std::vector<double>(sampled.size(), 0.0), 0.0);
    samples.quartiles.fill(sampled);
    samples.observed_quartiles.fill(observed);
    const ScratchDirectory scratch;
    const std::string log = (scratch.path() / "log").string();
    {
        TextWriter out = writer_append(log);
        write_fit_distributions(out, samples, NetworkKind::undirected);
    }
    return file_text(log);
}

TEST(FitQuartiles, AreShownWithTheirMedianRangeAndShares) {
    EXPECT_EQ(quartile_report({4, 1, 3, 2, 5, 6, 7}, 3),
              "SAMPLE GEODESIC DISTRIBUTION\n"
              "Note: geodesic = shortest path between two nodes.\n"
              "The geodesic distribution is not based on semi-paths.\n\n"
              "FIRST QUARTILES\nMedian of sample G25s: 5\nInterquartile range: 4\n"
              "Observed first quartile geodesic: 3\n"
              "in model samples, 28.57% of graphs have lower G25.\n"
              "in model samples, 57.14% of graphs have higher G25.\n\n"
              "SECOND QUARTILES\nMedian of sample G50s: 5\nInterquartile range: 4\n"
              "Observed median geodesic: 3\n"
              "in model samples, 28.57% of graphs have lower G50.\n"
              "in model samples, 57.14% of graphs have higher G50.\n\n"
              "THIRD QUARTILES\nMedian of sample G75s: 5\nInterquartile range: 4\n"
              "Observed first quartile geodesic: 3\n"
              "in model samples, 28.57% of graphs have lower G75.\n"
              "in model samples, 57.14% of graphs have higher G75.\n\n");
}

TEST(FitQuartiles, AnIndexBehindTheSamplesReadsZero) {
    const std::string report = quartile_report({3}, 3);
    EXPECT_NE(report.find("Median of sample G25s: 0\nInterquartile range: -3\n"), std::string::npos)
        << report;
}

TEST(FitQuartiles, AnObservationEqualToEverySampleHasNoneLowerAndNoneHigher) {
    const std::string report = quartile_report({2, 2, 2, 2}, 2);
    EXPECT_NE(report.find("in model samples, 0.00% of graphs have lower G50.\n"
                          "in model samples, 0.00% of graphs have higher G50.\n"),
              std::string::npos)
        << report;
}

}  // namespace
