// An estimation as numbers: what the record holds, and that nothing else is left behind.
#include <gtest/gtest.h>

#include <vector>

#include "support/estimation_runs.h"
#include "support/run_outputs.h"

namespace {

Graph graph_of_nine() { return random_network(ChainModel<Graph>({}), 9, 0.4, 12); }

const std::vector<ModelTerm> kTerms = {{"edge", -0.4}, {"2-star", 0.0}};

std::vector<double> row_of(const Matrix& matrix, int row) {
    return {matrix[row], matrix[row] + matrix.columns};
}

// Summed up from the first row on, like the estimator's own.
std::vector<double> mean_row(const Matrix& matrix) {
    std::vector<double> means(static_cast<std::size_t>(matrix.columns), 0.0);
    for (int row = 0; row < matrix.rows; ++row) {
        for (std::size_t i = 0; i < means.size(); ++i) {
            means[i] += matrix[row][i];
        }
    }
    for (double& value : means) {
        value /= matrix.rows;
    }
    return means;
}

TEST(EstimationResult, HoldsEveryPhase) {
    EstimationRun<Graph> run(kTerms, graph_of_nine());
    run.settings.sub_phases = 4;
    run.settings.phase3_steps = 120;
    run.estimate(500);
    const EstimationResult& found = run.found;
    EXPECT_EQ(found.start, std::vector<double>({-0.4, 0.0}));
    EXPECT_EQ(found.observed, run.observed.statistics);
    EXPECT_EQ(found.phase1.statistics.rows, 7 + 3 * 2);
    EXPECT_EQ(found.phase1.means, mean_row(found.phase1.statistics));
    EXPECT_EQ(found.phase3.statistics.rows, 120);
    EXPECT_EQ(found.phase3.means, mean_row(found.phase3.statistics));
    EXPECT_EQ(found.parameters, run.parameters);
    EXPECT_EQ(found.covariance.cells, run.scaling_matrix.cells);
    EXPECT_EQ(found.t_ratios.size(), 2U);
    ASSERT_EQ(found.sub_phases.size(), 4U);
    EXPECT_EQ(found.sub_phases[3].parameters, found.parameters);
}

TEST(EstimationResult, ASubPhaseEndsAtItsLastStepOrAtItsMean) {
    EstimationRun<Graph> run(kTerms, graph_of_nine());
    run.settings.sub_phases = 3;
    run.estimate(500);
    ASSERT_EQ(run.found.sub_phases.size(), 3U);
    for (const SubPhase& sub_phase : run.found.sub_phases) {
        const bool first = &sub_phase == run.found.sub_phases.data();
        EXPECT_EQ(sub_phase.parameters, first ? row_of(sub_phase.path, sub_phase.path.rows - 1)
                                              : mean_row(sub_phase.path));
    }
}

TEST(EstimationResult, WithoutAnObserverIsTheSameAndNoFileIsWritten) {
    EstimationRun<Graph> logged(kTerms, graph_of_nine());
    logged.estimate(500);
    EXPECT_FALSE(files_below(logged.scratch.path()).empty());
    EstimationRun<Graph> quiet(kTerms, graph_of_nine());
    const CurrentDirectory inside(quiet.scratch.path());
    const EstimationResult found = quiet.estimate(500, EstimationObserver());
    EXPECT_TRUE(files_below(quiet.scratch.path()).empty());
    EXPECT_EQ(found.verdict, logged.found.verdict);
    EXPECT_EQ(found.parameters, logged.found.parameters);
    EXPECT_EQ(found.t_ratios, logged.found.t_ratios);
    EXPECT_EQ(found.covariance.cells, logged.found.covariance.cells);
}

struct EventList : EstimationObserver {
    void reached(EstimationEvent event, const EstimationResult&) const override {
        events.push_back(event);
    }
    mutable std::vector<EstimationEvent> events;
};

TEST(EstimationResult, EventsComeInTheOrderOfThePhases) {
    EstimationRun<Graph> run(kTerms, graph_of_nine());
    run.settings.sub_phases = 2;
    const EventList list;
    run.estimate(500, list);
    using enum EstimationEvent;
    EXPECT_EQ(list.events,
              (std::vector<EstimationEvent>{started, phase1_ended, sub_phase_started,
                                            sub_phase_ended, sub_phase_started, sub_phase_ended,
                                            phase2_ended, phase3_started, ended}));
}

TEST(EstimationResult, OfADegenerateModelEndsWithPhaseOne) {
    EstimationRun<Graph> run({{"edge", 0.0}, {"7-clique", 0.0}}, graph_of_nine());
    const EventList list;
    const EstimationResult found = run.estimate(500, list);
    EXPECT_EQ(found.verdict, EstimationVerdict::degenerate);
    EXPECT_EQ(found.phase1.statistics.rows, 7 + 3 * 2);
    EXPECT_TRUE(found.sub_phases.empty());
    EXPECT_EQ(list.events, (std::vector<EstimationEvent>{EstimationEvent::started,
                                                         EstimationEvent::phase1_ended}));
}

}  // namespace
