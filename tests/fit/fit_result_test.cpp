// A fit as numbers, without a file.
#include <gtest/gtest.h>

#include <vector>

#include "fit/goodness_of_fit.h"
#include "report/fit_report.h"
#include "support/chain_models.h"
#include "support/run_outputs.h"
#include "support/scratch_directory.h"

namespace {

template <class Network>
struct Fit {
    explicit Fit(const ModelTerm& tie) : model({tie}), observed(random_network(model, 8, 0.4, 3)) {}

    FitResult run(const FitObserver<Network>& observer) {
        Network network = observed;
        RandomSource random{1, [] { return 77; }};
        Chain<Network> chain = test_chain(network, model, random);
        RunProgress progress;
        return goodness_of_fit(chain, observed, model.selection, 400.0, 40.0, progress, observer);
    }

    ChainModel<Network> model;
    Network observed;
};

template <class Network>
void expect_same_without_files(const ModelTerm& tie) {
    Fit<Network> fit(tie);
    const ScratchDirectory scratch;
    const CurrentDirectory inside(scratch.path());
    const FitResult quiet = fit.run(FitObserver<Network>());
    EXPECT_TRUE(files_below(scratch.path()).empty());
    const OutputPaths paths = output_paths(scratch.path().string(), "net", '/');
    OutputSwitches switches;
    switches.degree_distribution = true;
    const OutputContext outputs{fit.model.selection, paths, switches, nullptr};
    const FitResult written = fit.run(FitSampleFiles<Network>(outputs, fit.observed, 40.0));
    EXPECT_FALSE(files_below(scratch.path()).empty());
    EXPECT_EQ(quiet.samples.taken, 10);
    EXPECT_GT(quiet.accepted, 0.0);
    EXPECT_EQ(quiet.accepted, written.accepted);
    EXPECT_EQ(quiet.samples.table.cells, written.samples.table.cells);
    EXPECT_EQ(quiet.samples.quartiles, written.samples.quartiles);
    EXPECT_EQ(quiet.samples.triads.cells, written.samples.triads.cells);
    EXPECT_EQ(quiet.closer, written.closer);
}

TEST(FitResult, IsTheSameWhetherFilesAreWrittenOrNot) {
    expect_same_without_files<Graph>({"edge", -0.4});
    expect_same_without_files<Digraph>({"arc", -0.4});
}

TEST(FitResult, QuartilesStayInTheOrderOfTheSamples) {
    Fit<Graph> fit({"edge", -1.5});
    const FitResult found = fit.run(FitObserver<Graph>());
    const ScratchDirectory scratch;
    const OutputPaths paths = output_paths(scratch.path().string(), "net", '/');
    OutputSwitches switches;
    switches.geodesic_distribution = true;
    const OutputContext outputs{fit.model.selection, paths, switches, nullptr};
    fit.run(FitSampleFiles<Graph>(outputs, fit.observed, 40.0));
    std::string rows;
    for (std::size_t sample = 0; sample < found.samples.quartiles[0].size(); ++sample) {
        for (const std::vector<int>& quartile : found.samples.quartiles) {
            rows += std::to_string(quartile[sample]) + "\t";
        }
        rows += "\n";
    }
    EXPECT_EQ(file_text(paths.geodesic_quartiles), rows);
}

}  // namespace
