// Whole fits: what the log says recomputed from the sample table, and fits with nothing to compare.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <utility>

#include "reference/descriptives.h"
#include "reference/summaries.h"
#include "support/run_outputs.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"
#include "support/text_pieces.h"

namespace {

using Rows = std::vector<std::vector<double>>;

// The rows of a sample table without their numbers in front; the head is the first line.
Rows table_rows(const std::string& text) {
    const std::vector<std::string> lines = lines_of(text);
    Rows rows;
    for (std::size_t line = 1; line < lines.size(); ++line) {
        std::istringstream stream(lines[line]);
        int number = 0;
        stream >> number;
        EXPECT_EQ(number, static_cast<int>(line));
        rows.emplace_back();
        for (double cell = 0.0; stream >> cell;) {
            rows.back().push_back(cell);
        }
    }
    return rows;
}

std::vector<double> column_of(const Rows& rows, std::size_t column) {
    std::vector<double> values;
    for (const std::vector<double>& row : rows) {
        values.push_back(row[column]);
    }
    return values;
}

std::string line_after(const std::string& text, const std::string& start) {
    const std::size_t at = text.find("\n" + start);
    if (at == std::string::npos) {
        return {};
    }
    return text.substr(at + 1, text.find('\n', at + 1) - at - 1);
}

// Solves the system by elimination with the largest pivot of each column.
std::vector<double> solve(Rows matrix, std::vector<double> right) {
    const std::size_t n = right.size();
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t best = k;
        for (std::size_t row = k; row < n; ++row) {
            best = std::fabs(matrix[row][k]) > std::fabs(matrix[best][k]) ? row : best;
        }
        std::swap(matrix[k], matrix[best]);
        std::swap(right[k], right[best]);
        for (std::size_t row = 0; row < n; ++row) {
            if (row != k) {
                const double factor = matrix[row][k] / matrix[k][k];
                for (std::size_t column = k; column < n; ++column) {
                    matrix[row][column] -= factor * matrix[k][column];
                }
                right[row] -= factor * right[k];
            }
        }
    }
    for (std::size_t k = 0; k < n; ++k) {
        right[k] /= matrix[k][k];
    }
    return right;
}

// Squared distances of points from the mean of the samples, by their covariance over n.
class Distances {
  public:
    Distances(const Rows& samples, std::size_t size) : means_(size), covariance_(size) {
        for (std::size_t i = 0; i < size; ++i) {
            means_[i] = reference::mean(column_of(samples, i));
        }
        for (std::size_t i = 0; i < size; ++i) {
            for (std::size_t j = 0; j < size; ++j) {
                double sum = 0.0;
                for (const std::vector<double>& sample : samples) {
                    sum += (sample[i] - means_[i]) * (sample[j] - means_[j]);
                }
                covariance_[i].push_back(sum / static_cast<double>(samples.size()));
            }
        }
    }
    double of(const std::vector<double>& point) const {
        std::vector<double> deviation(means_.size());
        for (std::size_t i = 0; i < means_.size(); ++i) {
            deviation[i] = point[i] - means_[i];
        }
        const std::vector<double> solved = solve(covariance_, deviation);
        double sum = 0.0;
        for (std::size_t i = 0; i < solved.size(); ++i) {
            sum += solved[i] * deviation[i];
        }
        return sum;
    }

  private:
    std::vector<double> means_;
    Rows covariance_;
};

std::string cell(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.3f", value);
    return text.data();
}

SetupText fit_setup() {
    SetupText setup;
    setup.mode = 3;
    setup.actors = 12;
    setup.effects = {{"edge", -1.2}, {"2-star", 0.05}, {"AT", 0.2, 2.0F}};
    setup.switches = {0, 0, 1, 0, 0, 0, 0};
    setup.burn_in = "500";
    setup.iterations = "20000";
    setup.samples = "200";
    return setup;
}

struct FitRun {
    Graph observed;
    RunOutputs outputs;
    std::string log() const { return outputs.files.at("gof_net.txt"); }
    std::string table() const { return outputs.files.at("simulation_net.txt"); }
};

FitRun run_fit(const SetupText& setup) {
    const ScratchDirectory scratch;
    FitRun run;
    run.observed = random_network(ChainModel<Graph>({}), setup.actors, 0.3, 6);
    scratch.write("run.setup", setup_text(setup));
    scratch.write("network.txt", matrix_text(run.observed));
    scratch.write("covariance.txt",
                  "0.04\t0.001\t0.002\t\n0.001\t0.01\t0.0\t\n0.002\t0.0\t0.02\t\n");
    run.outputs = run_in_directory(scratch.path());
    return run;
}

TEST(FitRun, RowsOfTheLogAreThoseOfTheSampleTable) {
    const FitRun run = run_fit(fit_setup());
    const Rows rows = table_rows(run.table());
    ASSERT_EQ(rows.size(), 200U);
    ASSERT_EQ(rows.front().size(), 9U);
    const std::vector<std::string> labels = {"edge\t",
                                             "2-star\t",
                                             "AT(2.00)\t",
                                             "Std Dev degree dist\t",
                                             "Skew degree dist\t",
                                             "Global Clustering\t",
                                             "Mean Local Clustering\t",
                                             "Variance Local Clustering\t"};
    const std::string table = run.log().substr(run.log().find("effects\tobserved"));
    for (std::size_t column = 0; column < labels.size(); ++column) {
        const std::vector<double> values = column_of(rows, column);
        std::string expected = "\t";
        expected += cell(reference::mean(values));
        expected += "\t";
        expected += cell(reference::standard_deviation(values));
        expected += "\t";
        const std::string line = line_after(table, labels[column]);
        EXPECT_NE(line.find(expected), std::string::npos) << line << " should hold " << expected;
        // observed, mean, deviation, ratio.
        std::istringstream stream(line.substr(labels[column].size()));
        double observed = 0.0;
        double mean = 0.0;
        double deviation = 0.0;
        double ratio = 0.0;
        stream >> observed >> mean >> deviation >> ratio;
        EXPECT_NEAR(ratio, (observed - mean) / deviation, 0.03) << line;
    }
}

TEST(FitRun, TheDistancesFollowFromTheSampleTable) {
    const FitRun run = run_fit(fit_setup());
    const Rows rows = table_rows(run.table());
    const std::size_t size = rows.front().size() - 1;
    const Distances distances(rows, size);
    for (const std::vector<double>& row : rows) {
        EXPECT_NEAR(distances.of(row), row.back(), 0.01 * (1.0 + row.back()));
    }
    const ChainModel<Graph> model(fit_setup().effects);
    Graph observed = run.observed;
    observed.statistics.assign(3, 0.0);
    count_statistics(observed, model.active);
    reference::PlainGraph plain = reference::empty_graph(observed.vertices);
    for (const auto& [i, j] : all_dyads<Graph>(observed.vertices)) {
        plain.tie[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] =
            has_tie(observed, i, j) ? 1 : 0;
        plain.tie[static_cast<std::size_t>(j)][static_cast<std::size_t>(i)] =
            has_tie(observed, i, j) ? 1 : 0;
    }
    const std::vector<double> local = reference::local_clustering(plain);
    std::vector<double> point = observed.statistics;
    point.push_back(reference::standard_deviation(observed.degree));
    point.push_back(reference::skew(observed.degree));
    point.push_back(reference::global_clustering(plain));
    point.push_back(reference::mean_local_clustering(plain));
    point.push_back(reference::variance(local));
    const double squared = distances.of(point);
    const double shown = std::stod(run.log().substr(run.log().find("Mahalanobis distance =") + 22));
    EXPECT_NEAR(shown, std::sqrt(squared), 0.01 * shown);
    double smaller = 0.0;
    for (const std::vector<double>& row : rows) {
        smaller += shown * shown > row.back() ? 0.5 : 0.0;
    }
    EXPECT_NE(run.log().find("\n" + std::to_string(static_cast<int>(std::lround(smaller))) +
                             "% simulated samples"),
              std::string::npos)
        << smaller << run.log();
}

TEST(FitRun, QuartilesOfTheLogAreThoseOfTheQuartileFile) {
    const FitRun run = run_fit(fit_setup());
    std::array<std::vector<int>, 4> sampled;
    std::istringstream stream(run.outputs.files.at("geodesic_quartiles_net.txt"));
    for (int value = 0, at = 0; stream >> value; ++at) {
        sampled[static_cast<std::size_t>(at % 4)].push_back(value);
    }
    const std::array<const char*, 3> names = {"G25s", "G50s", "G75s"};
    for (std::size_t quarter = 0; quarter < names.size(); ++quarter) {
        std::vector<int>& values = sampled[quarter];
        ASSERT_EQ(values.size(), 200U);
        std::sort(values.begin(), values.end());
        std::string expected = "Median of sample ";
        expected += names[quarter];
        expected += ": " + std::to_string(values[100]);
        expected += "\nInterquartile range: " + std::to_string(values[150] - values[50]) + "\n";
        EXPECT_NE(run.log().find(expected), std::string::npos) << expected;
    }
}

TEST(FitRun, AChainThatIsNoMultipleOfItsIntervalEndsWithoutASample) {
    SetupText setup = fit_setup();
    setup.iterations = "1000";
    setup.samples = "3";
    const FitRun run = run_fit(setup);
    EXPECT_EQ(table_rows(run.table()).size(), 3U);
    EXPECT_NE(
        run.log().find("Proposed 1000 graphs.\nSamples were picked up at 1 per 333 graphs.\n"),
        std::string::npos);
}

// A fit without any sample still writes its whole log.
void expect_whole_log_without_samples(const FitRun& run) {
    EXPECT_EQ(lines_of(run.table()).size(), 1U);
    EXPECT_NE(run.log().find("THIRD QUARTILES\nMedian of sample G75s: 0\nInterquartile range: 0\n"),
              std::string::npos)
        << run.log();
    EXPECT_NE(run.log().find("Mahalanobis distance ="), std::string::npos);
    EXPECT_NE(run.log().find("% simulated samples have smaller"), std::string::npos);
}

TEST(FitRun, MoreSamplesThanProposalsAreNone) {
    SetupText setup = fit_setup();
    setup.iterations = "10";
    setup.samples = "11";
    expect_whole_log_without_samples(run_fit(setup));
}

TEST(FitRun, NoProposalsMakeNoSample) {
    for (const char* iterations : {"0", "0.5", "-5"}) {
        SetupText setup = fit_setup();
        setup.iterations = iterations;
        expect_whole_log_without_samples(run_fit(setup));
    }
}

TEST(FitRun, ZeroSamplesWantedAreNone) {
    SetupText setup = fit_setup();
    setup.samples = "0";
    expect_whole_log_without_samples(run_fit(setup));
}

TEST(FitRun, ABayesianFitWithoutSetsHasNoSamples) {
    for (const char* samples : {"0", "-2"}) {
        SetupText setup = fit_setup();
        setup.mode = 4;
        setup.samples = samples;
        const FitRun run = run_fit(setup);
        expect_whole_log_without_samples(run);
        EXPECT_TRUE(run.log().starts_with("BAYESIAN GOODNESS OF FIT\nProposed "));
    }
}

TEST(FitRun, AStatisticThatNeverMovesLeavesTheReportWhole) {
    SetupText setup = fit_setup();
    setup.effects.push_back({"7-clique", 0.0});
    setup.samples = "20";
    const FitRun run = run_fit(setup);
    EXPECT_EQ(table_rows(run.table()).size(), 20U);
    EXPECT_NE(line_after(run.log(), "7-clique\t0\t0.000\t0.000\t").find("nan"), std::string::npos);
    EXPECT_NE(run.log().find("Mahalanobis distance ="), std::string::npos);
}

TEST(FitRun, AnEmptyNetworkThatStaysSoIsReported) {
    SetupText setup = fit_setup();
    setup.effects = {{"edge", -800.0}};
    setup.samples = "5";
    const ScratchDirectory scratch;
    scratch.write("run.setup", setup_text(setup));
    scratch.write("network.txt", "");
    const RunOutputs outputs = run_in_directory(scratch.path());
    const std::string& log = outputs.files.at("gof_net.txt");
    EXPECT_NE(log.find("edge\t0\t0.000\t0.000\t"), std::string::npos) << log;
    EXPECT_NE(log.find("ACCEPTANCE RATE: 0.0000\n"), std::string::npos);
}

TEST(FitRun, TheUnusedPlaceOfTheDirectedFullModelIsZeroInEveryRow) {
    SetupText setup;
    setup.kind = NetworkKind::directed;
    setup.mode = 4;
    setup.actors = 8;
    setup.effects = {{"arc", -1.0}, {"reciprocity", 0.5}};
    setup.samples = "6";
    const ScratchDirectory scratch;
    scratch.write("run.setup", setup_text(setup));
    scratch.write("network.txt", matrix_text(random_network(ChainModel<Digraph>({}), 8, 0.3, 6)));
    scratch.write("covariance.txt", "0.04\t0.001\t\n0.001\t0.01\t\n");
    const RunOutputs outputs = run_in_directory(scratch.path());
    const std::vector<std::string> lines = lines_of(outputs.files.at("simulation_net.txt"));
    ASSERT_EQ(lines.size(), 7U);
    // 43 places, 13 descriptive rows and the distance behind the sample's number.
    for (std::size_t line = 1; line < lines.size(); ++line) {
        std::vector<std::string> cells;
        std::istringstream stream(lines[line]);
        for (std::string text; std::getline(stream, text, '\t');) {
            cells.push_back(text);
        }
        ASSERT_EQ(cells.size(), 1U + 43U + 13U + 1U);
        EXPECT_EQ(cells[1 + 42], "0.000000");
    }
    // The head names the 42 effects only.
    EXPECT_EQ(std::count(lines.front().begin(), lines.front().end(), '\t'), 43);
}

}  // namespace
