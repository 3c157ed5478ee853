// The order of a run's steps, seen from outside.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "run/run.h"
#include "support/run_outputs.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

constexpr NetworkKind kUndirected = NetworkKind::undirected;
constexpr NetworkKind kDirected = NetworkKind::directed;

template <class Network>
std::string random_matrix(int n, double density, std::uint32_t seed) {
    return matrix_text(random_network(ChainModel<Network>({}), n, density, seed));
}

RunOutputs run_setup(const SetupText& setup, const std::string& network,
                     std::int64_t clock = 20000) {
    const ScratchDirectory scratch;
    scratch.write("run.setup", setup_text(setup));
    scratch.write("network.txt", network);
    scratch.write("covariance.txt", "0.04\t0.001\t\n0.001\t0.01\t\n");
    for (const auto& [name, text] : attribute_files(setup.actors)) {
        scratch.write(name, text);
    }
    return run_in_directory(scratch.path(), clock);
}

int count_of(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

SetupText estimation(NetworkKind kind) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = 2;
    setup.actors = 8;
    setup.effects = kind == kDirected ? std::vector<ModelTerm>{{"arc", 0.0}, {"reciprocity", 0.0}}
                                      : std::vector<ModelTerm>{{"edge", 0.0}, {"2-star", 0.0}};
    setup.runs = 3;
    setup.phase3_steps = 200;
    setup.factor = 5;
    return setup;
}

std::string network_for(NetworkKind kind, int n) {
    return kind == kDirected ? random_matrix<Digraph>(n, 0.35, 8)
                             : random_matrix<Graph>(n, 0.35, 8);
}

const std::string& log_of(const RunOutputs& outputs) {
    return outputs.files.at("estimation_net.txt");
}

// The first run whose estimation ends in its second of three runs.
RunOutputs converged_in_run_two(const SetupText& setup) {
    for (std::int64_t clock = 1; clock <= 200; ++clock) {
        RunOutputs outputs = run_setup(setup, network_for(setup.kind, setup.actors), clock);
        if (count_of(log_of(outputs), "STOCHASTIC APPROXIMATION RUN") == 2) {
            return outputs;
        }
    }
    ADD_FAILURE() << "no clock made an estimation converge in its second run";
    return {};
}

TEST(EstimationSequence, ConvergenceInRunTwoStopsTheRunsAndKeepsItsValues) {
    for (const NetworkKind kind : {kUndirected, kDirected}) {
        const RunOutputs outputs = converged_in_run_two(estimation(kind));
        ASSERT_FALSE(outputs.files.empty());
        const std::string& log = log_of(outputs);
        EXPECT_NE(log.find("STOCHASTIC APPROXIMATION RUN 2\n\n"), std::string::npos);
        EXPECT_EQ(log.find("STOCHASTIC APPROXIMATION RUN 3"), std::string::npos);
        // The last result row of the first effect, to five decimals.
        const std::string label = kind == kDirected ? "\narc\t" : "\nedge\t";
        const double estimate = std::stod(log.substr(log.rfind(label) + label.size()));
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "%.5f", estimate);
        const std::string& update =
            outputs.files.at(kind == kDirected ? "distupdate.ovri" : "stupdate.ovri");
        const std::size_t second_line = update.find('\n') + 1;
        const double stored = std::stod(update.substr(second_line));
        EXPECT_NEAR(stored, std::stod(line.data()), 1.1e-5) << update.substr(0, 40);
        EXPECT_EQ(outputs.files.contains("change_statistics_net.txt"), kind == kUndirected);
        EXPECT_EQ(outputs.files.contains("logodds_net.txt"), kind == kUndirected);
    }
}

// An estimation that never converges: its effect never moves.
SetupText degenerate(NetworkKind kind) {
    SetupText setup = estimation(kind);
    setup.effects.push_back({kind == kDirected ? "T1" : "7-clique", 0.25});
    setup.fit = 1;
    return setup;
}

std::string sparse_network(NetworkKind kind) {
    Digraph digraph = empty_network<Digraph>(8);
    for (int i = 0; i < 4; ++i) {
        tie(digraph, i, i + 1);
        if (kind == kUndirected) {
            tie(digraph, i + 1, i);
        }
    }
    return matrix_text(digraph);
}

TEST(EstimationSequence, WithoutConvergenceEveryRunIsMadeAndTheUpdatesAreWritten) {
    const SetupText setup = degenerate(kUndirected);
    const RunOutputs outputs = run_setup(setup, sparse_network(kUndirected));
    EXPECT_EQ(count_of(log_of(outputs), "STOCHASTIC APPROXIMATION RUN"), 3);
    EXPECT_EQ(count_of(log_of(outputs), "Degenerate Model!\n"), 3);
    EXPECT_NE(outputs.files.at("stupdate.ovri").find("7-clique\n0.25000\n"), std::string::npos);
    EXPECT_FALSE(outputs.files.contains("gof_net.txt"));
    EXPECT_FALSE(outputs.files.contains("end_statistics_net.txt"));
    EXPECT_FALSE(outputs.files.contains("change_statistics_net.txt"));
}

TEST(EstimationSequence, TheUpdatesAndTheLogAreWholeAtEveryStage) {
    const ScratchDirectory scratch;
    scratch.write("run.setup", setup_text(degenerate(kUndirected)));
    scratch.write("network.txt", sparse_network(kUndirected));
    const CurrentDirectory inside(scratch.path());
    std::filesystem::create_directory("out");
    std::vector<bool> updated;
    std::vector<int> runs_logged;
    HostOptions options;
    options.path_separator = '/';
    options.updates_beside_outputs = true;
    options.console = nullptr;
    // Read at the start of each of the three runs.
    options.clock_seconds = [&] {
        updated.push_back(!file_text("out/stupdate.ovri").empty());
        runs_logged.push_back(count_of(file_text("out/estimation_net.txt"), "Degenerate Model!\n"));
        return 20000;
    };
    run_setup_file("run.setup", options);
    EXPECT_EQ(updated, std::vector<bool>({false, true, true}));
    EXPECT_EQ(runs_logged, std::vector<int>({0, 1, 2}));
}

TEST(EstimationSequence, UndirectedUpdatesOfSectionsThatAreOffStayEmpty) {
    const RunOutputs outputs = run_setup(degenerate(kUndirected), sparse_network(kUndirected));
    EXPECT_FALSE(outputs.files.at("stupdate.ovri").empty());
    for (const char* name :
         {"biupdate.ovri", "contupdate.ovri", "catupdate.ovri", "covupdate.ovri"}) {
        EXPECT_EQ(outputs.files.at(name), "") << name;
    }
}

std::string starting_parameters(const RunOutputs& outputs) {
    const std::string& log = log_of(outputs);
    const std::string label = "starting parameters:";
    const std::size_t at = log.find(label) + label.size();
    return log.substr(at, log.find('\n', at) - at);
}

TEST(EstimationSequence, AnEdgeThatStartsAtZeroStartsAtTheLogOddsOfTheDensity) {
    // Four ties of 28 dyads, four arcs of 56.
    SetupText setup = estimation(kUndirected);
    setup.runs = 1;
    EXPECT_EQ(starting_parameters(run_setup(setup, sparse_network(kUndirected))),
              "-1.791759\t0.000000\t");
    setup = estimation(kDirected);
    setup.runs = 1;
    EXPECT_EQ(starting_parameters(run_setup(setup, sparse_network(kDirected))),
              "-2.564949\t0.000000\t");
}

TEST(EstimationSequence, AnEdgeThatStartsElsewhereStaysThere) {
    SetupText setup = estimation(kUndirected);
    setup.runs = 1;
    setup.effects = {{"edge", 0.000001}, {"2-star", 0.0}};
    EXPECT_EQ(starting_parameters(run_setup(setup, sparse_network(kUndirected))),
              "0.000001\t0.000000\t");
    setup.effects = {{"2-star", 0.0}};
    EXPECT_EQ(starting_parameters(run_setup(setup, sparse_network(kUndirected))), "0.000000\t");
}

TEST(EstimationSequence, NoRunsLeaveTheLogHeadAndTheUpdates) {
    SetupText setup = estimation(kUndirected);
    setup.runs = 0;
    const RunOutputs outputs = run_setup(setup, sparse_network(kUndirected));
    EXPECT_TRUE(log_of(outputs).ends_with("Number of estimation runs = 0\n\n"));
    // The start rule alone has moved the edge.
    EXPECT_TRUE(outputs.files.at("stupdate.ovri").starts_with("edge\n-1.79176\n"));
    EXPECT_EQ(outputs.clock_readings, 0);
}

SetupText sampled(NetworkKind kind, int mode) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.actors = 8;
    setup.effects = kind == kDirected ? std::vector<ModelTerm>{{"arc", 0.0}, {"reciprocity", 0.0}}
                                      : std::vector<ModelTerm>{{"edge", 0.0}, {"2-star", 0.0}};
    return setup;
}

RunOutputs run_sampled(const SetupText& setup) {
    return run_setup(setup, network_for(setup.kind, setup.actors));
}

TEST(SimulationSequence, KeepsAnEdgeAtZero) {
    const RunOutputs outputs = run_sampled(sampled(kUndirected, 1));
    EXPECT_NE(outputs.files.at("parameter_net.txt").find("edge\t0.00000\n2-star\t0.00000\n"),
              std::string::npos);
}

TEST(SimulationSequence, TakesEverySampleThatItsIntervalMeets) {
    SetupText setup = sampled(kUndirected, 1);
    setup.iterations = "1000";
    setup.samples = "3";
    const RunOutputs outputs = run_sampled(setup);
    EXPECT_TRUE(outputs.console.starts_with("333\t666\t999\tAccepted ")) << outputs.console;
    EXPECT_EQ(count_of(outputs.files.at("simulation_net.txt"), "\n"), 4);
}

TEST(SimulationSequence, WithAnIntervalOfZeroTakesNone) {
    for (const char* samples : {"201", "0"}) {
        SetupText setup = sampled(kUndirected, 1);
        setup.samples = samples;
        const RunOutputs outputs = run_sampled(setup);
        EXPECT_EQ(outputs.console, "Accepted 0 changes.\n");
        EXPECT_EQ(count_of(outputs.files.at("simulation_net.txt"), "\n"), 1);
    }
}

TEST(SimulationSequence, WithoutProposalsWritesHeadsAndTotals) {
    SetupText setup = sampled(kDirected, 1);
    setup.iterations = "0";
    const RunOutputs outputs = run_sampled(setup);
    EXPECT_EQ(outputs.console, "Accepted 0 changes.\n");
    EXPECT_EQ(outputs.files.at("accept_net.txt"),
              "Acceptance Rate(Digraph)\nAccepted 0 proposed digraphs.");
}

TEST(SimulationSequence, StartsWithAsManyTiesAsTheDensityGivesTruncated) {
    SetupText setup = sampled(kUndirected, 1);
    setup.actors = 10;
    setup.density = "0.3";
    setup.burn_in = "0";
    setup.proposal = 1;
    setup.iterations = "20";
    setup.samples = "1";
    // 90 x 0.3 x 0.5 = 13.5
    EXPECT_NE(run_setup(setup, "").files.at("simulation_net.txt").find("\n20\t13\t"),
              std::string::npos);
    setup.kind = kDirected;
    setup.effects = {{"arc", 0.0}};
    setup.density = "0.31";
    // 90 x 0.31 = 27.9
    EXPECT_NE(run_setup(setup, "").files.at("simulation_net.txt").find("\n20\t27\t"),
              std::string::npos);
}

TEST(FitSequence, OnlyAnUndirectedFitReportsItsEnd) {
    for (const NetworkKind kind : {kUndirected, kDirected}) {
        const RunOutputs fit = run_sampled(sampled(kind, 3));
        EXPECT_TRUE(fit.files.contains("start_statistics_net.txt"));
        EXPECT_EQ(fit.files.contains("end_statistics_net.txt"), kind == kUndirected);
        EXPECT_EQ(fit.files.contains("accept_net.txt"), kind == kDirected);
        SetupText bayesian = sampled(kind, 4);
        bayesian.effects[0].value = -1.0;
        EXPECT_TRUE(run_sampled(bayesian).files.contains("end_statistics_net.txt"));
    }
}

TEST(ClockReadings, AreOneForEachStartOfADriver) {
    for (const NetworkKind kind : {kUndirected, kDirected}) {
        // The random network, the burn-in, the simulation.
        EXPECT_EQ(run_sampled(sampled(kind, 1)).clock_readings, 3);
        // The burn-in and the fit.
        EXPECT_EQ(run_sampled(sampled(kind, 3)).clock_readings, 2);
        // The draws, the fit, and a burn-in for each of four sets.
        SetupText bayesian = sampled(kind, 4);
        bayesian.effects[0].value = -1.0;
        EXPECT_EQ(run_sampled(bayesian).clock_readings, 2 + 4);
    }
    // A degenerate run ends before the burn-in of phase 3.
    EXPECT_EQ(run_setup(degenerate(kUndirected), sparse_network(kUndirected)).clock_readings, 3);
    for (const NetworkKind kind : {kUndirected, kDirected}) {
        EXPECT_EQ(converged_in_run_two(estimation(kind)).clock_readings, 4);
    }
}

TEST(TwoRuns, OfOneProcessLeaveTheSameFiles) {
    SetupText full = sampled(kUndirected, 1);
    full.effects = all_terms(kUndirected, 0.0, 2.0F);
    full.attributes = attribute_section(kUndirected, 1, "0.01");
    full.covariates = covariate_section(kUndirected, 1, "0.001");
    full.switches = {1, 1, 1, 1, 1, 1, 1};
    for (const SetupText& setup : {full, estimation(kDirected), sampled(kDirected, 3)}) {
        const RunOutputs first = run_sampled(setup);
        // Another run in between must leave no trace.
        run_sampled(full);
        const RunOutputs second = run_sampled(setup);
        EXPECT_EQ(first.files, second.files);
        EXPECT_EQ(first.console, second.console);
    }
}

TEST(Echoes, OfUndirectedSectionsSayWhatWasRead) {
    SetupText setup = sampled(kUndirected, 1);
    setup.iterations = "0";
    setup.attributes = attribute_section(kUndirected, 0, "0");
    setup.covariates = covariate_section(kUndirected, 0, "0");
    EXPECT_EQ(run_sampled(setup).console,
              "binary attributes\n1 binary attributes\nbinary.txt\n1 binary attributes\n"
              "continuous attributes\n2 continuous attributes\ncontinuous.txt\n"
              "1 continuous attributes\n"
              "categorical.txt\n1 categorical attributes\n"
              "member\tage\tincome\toffice\tdistance\nAccepted 0 changes.\n");
}

TEST(Echoes, OfCountsOfZeroStopBehindThem) {
    SetupText setup = sampled(kUndirected, 1);
    setup.iterations = "0";
    setup.attributes = "Attributes 1\nBinary 1\n0\nContinuous 1\n0\nCategorical 1\n0\n";
    EXPECT_EQ(run_sampled(setup).console,
              "binary attributes\n0 binary attributes\ncontinuous attributes\n"
              "0 continuous attributes\nAccepted 0 changes.\n");
}

TEST(Echoes, OfADirectedSetupAreTheNamesAlone) {
    SetupText setup = sampled(kDirected, 1);
    setup.iterations = "0";
    setup.attributes = attribute_section(kDirected, 0, "0");
    setup.covariates = covariate_section(kDirected, 0, "0");
    EXPECT_EQ(run_sampled(setup).console,
              "member\tage\tincome\toffice\tdistance\nAccepted 0 changes.\n");
}

}  // namespace
