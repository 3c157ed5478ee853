// What one run writes, and its ends that depend on exact values.
//
// A chain without a free dyad never moves: its statistics stay at the observation, so what a test
// lays into the scaling matrix beforehand decides every number of the result.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/estimation_runs.h"

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

Graph small_graph() { return network_of_code<Graph>(5, 0b0100110011); }

const Graph& no_dyads() {
    static const Graph none = empty_network<Graph>(5);
    return none;
}

// A run that never moves. With 10 steps in phases 1 and 3 the variance laid in is the variance of
// the result.
void hold_still(EstimationRun<Graph>& run, double variance) {
    run.free_dyads = &no_dyads().adjacency;
    run.settings = {.sub_phases = 0,
                    .a_value = 0.1F,
                    .multiplication_factor = 1,
                    .phase3_steps = 10,
                    .estimation_runs = 1};
    run.scaling_matrix[0][0] = variance;
}

std::string result_row(const EstimationRun<Graph>& run) {
    const std::string log = run.log();
    const std::string head = "effects\testimates\tstderr\tt-ratio\n";
    const std::size_t begin = log.find(head) + head.size();
    return log.substr(begin, log.find('\n', begin) - begin);
}

TEST(EstimationLog, AModelThatNeverMovesIsDegenerate) {
    EstimationRun<Graph> run({{"edge", 0.0}, {"7-clique", 0.0}}, small_graph());
    EXPECT_FALSE(run.estimate(5));
    EXPECT_TRUE(run.log().ends_with("Degenerate Model!\n"));
    EXPECT_FALSE(contains(run.log(), "Phase 2"));
    EXPECT_FALSE(contains(run.log(), "END PHASE1"));
    EXPECT_FALSE(std::filesystem::exists(run.paths.covariance));
    EXPECT_EQ(run.parameters, std::vector<double>({0.0, 0.0}));
}

TEST(EstimationLog, AnEmptyAndACompleteNetworkMakeNoProposalAndAreDegenerate) {
    for (const std::uint32_t code : {0U, 0b1111111111U}) {
        EstimationRun<Graph> run({{"edge", 0.5}}, network_of_code<Graph>(5, code));
        EXPECT_FALSE(run.estimate(5));
        EXPECT_TRUE(contains(run.log(), "num of iterations in each step = 0.000000\n"));
        EXPECT_TRUE(run.log().ends_with("Degenerate Model!\n"));
        EXPECT_EQ(code_of_network(run.network), code);
    }
}

TEST(EstimationLog, PhaseOneTakesSevenStepsAndThreeForEachParameter) {
    const std::vector<std::string_view> rows = {"edge", "2-star", "Triangle", "AT"};
    std::vector<ModelTerm> terms;
    for (std::size_t p = 1; p <= rows.size(); ++p) {
        terms.push_back({rows[p - 1]});
        EstimationRun<Graph> run(terms, small_graph());
        run.estimate(5);
        const std::string head =
            "Phase1 started with the following setup:\na = 0.100000\nnum of "
            "steps = ";
        EXPECT_TRUE(contains(run.log(), head + std::to_string(7 + 3 * p) + "\n"));
    }
}

TEST(EstimationLog, BeginsWithTheTargetAndTheStartingParameters) {
    EstimationRun<Graph> run({{"edge", -0.25}, {"Triangle", 0.5}}, small_graph());
    run.estimate(5);
    EXPECT_TRUE(run.log().starts_with(
        "original statistics:5.000000\t1.000000\t\nstarting parameters:-0.250000\t0.500000\t\n"
        "Phase1 started with the following setup:\n"))
        << run.log().substr(0, 120);
}

TEST(EstimationLog, SubPhasesThatNeverMeetTheRuleRunToTheirLongest) {
    EstimationRun<Graph> run({{"edge", 0.0}}, small_graph());
    hold_still(run, 1.0);
    run.settings.sub_phases = 3;
    run.estimate(5);
    // 8 x 2^(4k/3) + 200, rounded up; the gains are a, a, a/2.
    EXPECT_TRUE(contains(run.log(),
                         "Subphase 0 started with a valued 0.100000\n\nSubphase 0 has "
                         "gone up to 208 steps\n"));
    EXPECT_TRUE(contains(run.log(),
                         "Subphase 1 started with a valued 0.100000\n\nSubphase 1 has "
                         "gone up to 221 steps\n"));
    EXPECT_TRUE(contains(run.log(),
                         "Subphase 2 started with a valued 0.050000\n\nSubphase 2 has "
                         "gone up to 251 steps\n"));
}

TEST(EstimationLog, WithoutParametersSubPhasesEndAtTheFirstChance) {
    EstimationRun<Graph> run({}, small_graph());
    run.settings.sub_phases = 3;
    run.settings.phase3_steps = 5;
    EXPECT_TRUE(run.estimate(5));
    // The smallest whole numbers above 7 x 2^(4k/3).
    EXPECT_TRUE(contains(run.log(), "Subphase 0 has gone up to 8 steps\n"));
    EXPECT_TRUE(contains(run.log(), "Subphase 1 has gone up to 18 steps\n"));
    EXPECT_TRUE(contains(run.log(), "Subphase 2 has gone up to 45 steps\n"));
}

TEST(EstimationLog, SubPhasesEndBetweenTheirBounds) {
    EstimationRun<Graph> run({{"edge", 0.0}, {"2-star", 0.0}, {"Triangle", 0.0}}, small_graph());
    run.settings.sub_phases = 4;
    run.estimate(5);
    for (int k = 0; k < 4; ++k) {
        std::string before = "\nSubphase ";
        before += std::to_string(k);
        before += " has gone up to ";
        const std::size_t at = run.log().find(before);
        ASSERT_NE(at, std::string::npos);
        const int steps = std::stoi(run.log().substr(at + before.size(), 10));
        const double least = std::pow(2.0, 4.0 * k / 3.0) * 10.0;
        EXPECT_GT(steps, least);
        EXPECT_LE(steps, std::ceil(least + 200.0));
    }
}

TEST(EstimationLog, WithoutSubPhasesTheParametersStay) {
    EstimationRun<Graph> run({{"edge", -0.125}}, small_graph());
    run.settings.sub_phases = 0;
    run.estimate(5);
    EXPECT_EQ(run.parameters, std::vector<double>({-0.125}));
    EXPECT_TRUE(contains(run.log(), "Phase 2 started\nEND PHASE2 parameter:-0.125000\t\n"));
    EXPECT_TRUE(
        contains(run.log(), "Phase3 started with the following setup:\nnum of steps = 500"));
}

TEST(EstimationLog, AStarNeedsAnEstimateBeyondTwoStandardErrors) {
    for (const double estimate : {4.0, -4.0}) {
        EstimationRun<Graph> at({{"edge", estimate}}, small_graph());
        hold_still(at, 4.0);
        EXPECT_TRUE(at.estimate(5));
        EXPECT_EQ(at.scaling_matrix[0][0], 4.0);
        EXPECT_FALSE(result_row(at).ends_with("*")) << result_row(at);
        EstimationRun<Graph> beyond({{"edge", estimate * 1.0000001}}, small_graph());
        hold_still(beyond, 4.0);
        EXPECT_TRUE(beyond.estimate(5));
        EXPECT_TRUE(result_row(beyond).ends_with("\t*")) << result_row(beyond);
    }
}

TEST(EstimationLog, ARowHoldsEstimateErrorAndRatio) {
    EstimationRun<Graph> run({{"edge", 1.5}}, small_graph());
    hold_still(run, 4.0);
    run.estimate(5);
    EXPECT_EQ(result_row(run), "edge\t1.500000\t2.00000\t-0.00000\t");
    EXPECT_TRUE(run.log().ends_with("\nEstimated Covariance Matrix\n4.000000\t\n\n"));
    EXPECT_EQ(file_text(run.paths.covariance), "4.000000\t\n\n");
}

TEST(EstimationLog, ARatioThatIsNotANumberLeavesTheRunConvergedAndUnstarred) {
    EstimationRun<Graph> run({{"edge", 9.0}}, small_graph());
    hold_still(run, -4.0);
    EXPECT_TRUE(run.estimate(5));
    EXPECT_TRUE(contains(result_row(run), "nan")) << result_row(run);
    EXPECT_FALSE(contains(result_row(run), "*"));
}

TEST(EstimationLog, ARatioOfATenthOrMoreGetsNoStarAndDoesNotConverge) {
    // At a parameter far off, phase 3 lies far from the observation.
    EstimationRun<Graph> run({{"edge", 3.0}}, small_graph());
    run.settings.sub_phases = 0;
    EXPECT_FALSE(run.estimate(5));
    EXPECT_FALSE(contains(result_row(run), "*"));
}

TEST(EstimationLog, TheCovarianceFileIsReplacedByEachRun) {
    EstimationRun<Graph> run({{"edge", 0.0}}, small_graph());
    run.estimate(5);
    const std::string first = file_text(run.paths.covariance);
    run.estimate(6);
    const std::string second = file_text(run.paths.covariance);
    EXPECT_NE(first, second);
    EXPECT_EQ(std::count(second.begin(), second.end(), '\n'), 2);
}

// The numbers of a log line behind its opening text, tabs between them.
std::vector<double> numbers_behind(const std::string& log, const std::string& opening) {
    std::istringstream line(log.substr(log.find(opening) + opening.size()));
    std::vector<double> numbers;
    for (double number = 0.0; line.peek() != '\n' && line >> number;) {
        numbers.push_back(number);
        line.get();
    }
    return numbers;
}

void expect_near(const std::vector<double>& written, const std::vector<double>& found,
                 double tolerance) {
    ASSERT_EQ(written.size(), found.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(written[i], found[i], tolerance);
    }
}

TEST(EstimationLog, ShowsTheNumbersOfTheRecord) {
    EstimationRun<Graph> run({{"edge", 0.0}, {"2-star", 0.0}}, small_graph());
    run.settings.sub_phases = 3;
    run.estimate(5);
    const EstimationResult& found = run.found;
    expect_near(numbers_behind(run.log(), "original statistics:"), found.observed, 5e-7);
    expect_near(numbers_behind(run.log(), "starting parameters:"), found.start, 5e-7);
    expect_near(numbers_behind(run.log(), "statistics in phase1:"), found.phase1.means, 5e-7);
    expect_near(numbers_behind(run.log(), "END PHASE2 parameter:"), found.parameters, 5e-7);
    expect_near(numbers_behind(run.log(), "statistics in phase3:"), found.phase3.means, 5e-7);
    ASSERT_EQ(found.sub_phases.size(), 3U);
    for (std::size_t k = 0; k < found.sub_phases.size(); ++k) {
        const std::string number = std::to_string(k);
        const SubPhase& sub_phase = found.sub_phases[k];
        expect_near(numbers_behind(run.log(), "Subphase " + number + " started with a valued "),
                    {sub_phase.gain}, 5e-7);
        EXPECT_TRUE(contains(run.log(), "Subphase " + number + " has gone up to " +
                                            std::to_string(sub_phase.path.rows) + " steps\n"));
        expect_near(numbers_behind(run.log(), "Parameter after Subphase " + number + ":"),
                    sub_phase.parameters, 5e-6);
    }
    expect_near(numbers_behind(run.log(), "\nedge\t"),
                {found.parameters[0], std::sqrt(found.covariance[0][0]), found.t_ratios[0]}, 5e-6);
    expect_near(numbers_behind(run.log(), "Covariance Matrix\n"),
                {found.covariance[0][0], found.covariance[0][1]}, 5e-7);
}

}  // namespace
