// Setup files that are not what they should be: every run must come to its end.
#include <gtest/gtest.h>

#include <new>
#include <random>
#include <string>
#include <tuple>

#include "run/setup_file.h"
#include "support/run_outputs.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

constexpr int kActors = 5;

SetupText small_setup(NetworkKind kind, int mode) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.actors = kActors;
    setup.cap = 4;
    setup.effects = kind == NetworkKind::directed ? std::vector<ModelTerm>{{"arc", -0.5}}
                                                  : std::vector<ModelTerm>{{"edge", -0.5}};
    setup.attributes = attribute_section(kind, 1, "0.001");
    setup.covariates = covariate_section(kind, 1, "0.001");
    setup.free_dyads = "free.txt";
    setup.switches = {1, 1, 1, 1, 1, 1, 1};
    setup.burn_in = "5";
    setup.iterations = "20";
    setup.samples = "2";
    setup.phase3_steps = 10;
    return setup;
}

template <class Network>
void write_networks(const ScratchDirectory& scratch) {
    const ChainModel<Network> none({});
    scratch.write("network.txt", matrix_text(random_network(none, kActors, 0.4, 3)));
    scratch.write("free.txt", matrix_text(random_network(none, kActors, 1.0, 3)));
}

void write_data(const ScratchDirectory& scratch, NetworkKind kind) {
    for (const auto& [name, text] : attribute_files(kActors)) {
        scratch.write(name, text);
    }
    scratch.write("covariance.txt", "");
    if (kind == NetworkKind::directed) {
        write_networks<Digraph>(scratch);
    } else {
        write_networks<Graph>(scratch);
    }
}

// Where each token ends.
std::vector<std::size_t> token_ends(const std::string& text) {
    const auto blank = [](char c) { return c == ' ' || c == '\n' || c == '\t'; };
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!blank(text[at]) && (at + 1 == text.size() || blank(text[at + 1]))) {
            ends.push_back(at + 1);
        }
    }
    return ends;
}

class CutSetup : public testing::TestWithParam<std::tuple<NetworkKind, int>> {};

TEST_P(CutSetup, EndsItsRunWhereverItIsCut) {
    const auto [kind, mode] = GetParam();
    const std::string text = setup_text(small_setup(kind, mode));
    const std::vector<std::size_t> ends = token_ends(text);
    const ScratchDirectory scratch;
    write_data(scratch, kind);
    ASSERT_GT(ends.size(), 150U);
    for (const std::size_t end : ends) {
        scratch.write("run.setup", text.substr(0, end));
        const RunOutputs outputs = run_in_directory(scratch.path());
        // Before mode and kind there is nothing to run; the last cut spares the whole file.
        if (end < text.find("Actors") - 2) {
            EXPECT_TRUE(outputs.files.empty()) << end;
        }
        if (end == ends.back()) {
            EXPECT_FALSE(outputs.files.at("start_statistics_net.txt").empty());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ModesAndKinds, CutSetup,
                         testing::Combine(testing::Values(NetworkKind::undirected,
                                                          NetworkKind::directed),
                                          testing::Values(1, 2, 3, 4)));

TEST(BrokenSetup, AnEmptyOrAbsentFileWritesNothing) {
    const ScratchDirectory scratch;
    EXPECT_TRUE(run_in_directory(scratch.path()).files.empty());
    scratch.write("run.setup", "");
    const RunOutputs outputs = run_in_directory(scratch.path());
    EXPECT_TRUE(outputs.files.empty());
    EXPECT_EQ(outputs.console, "");
    EXPECT_EQ(outputs.clock_readings, 0);
}

TEST(BrokenSetup, RandomBytesWriteNothing) {
    const ScratchDirectory scratch;
    std::mt19937 random(5);
    for (int file = 0; file < 200; ++file) {
        std::string bytes;
        const std::size_t size = random() % 4000;
        for (std::size_t at = 0; at < size; ++at) {
            bytes += static_cast<char>(random() & 0xFFU);
        }
        scratch.write("run.setup", bytes);
        EXPECT_TRUE(run_in_directory(scratch.path()).files.empty());
    }
}

// Any token but those that say how long a run is may turn into something else.
TEST(BrokenSetup, OneWrongTokenNeverKeepsARunFromItsEnd) {
    const std::vector<std::string> wrongs = {"x", "-1", "2", "1e30", "nan", "0x7f", "\xff\xfe\x01"};
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 3, 4}) {
            const std::string text = setup_text(small_setup(kind, mode));
            const std::vector<std::size_t> ends = token_ends(text);
            const std::size_t lengths = text.find("Burn_in");
            const ScratchDirectory scratch;
            write_data(scratch, kind);
            std::mt19937 random(17);
            for (int round = 0; round < 60; ++round) {
                const std::size_t end = ends[random() % ends.size()];
                // In front of the actors' number a wrong token shifts the file's own numbers into
                // places where they are large.
                if (end > lengths || end < text.find("Degree_cap")) {
                    continue;
                }
                const std::size_t begin = text.find_last_of(" \n", end - 1) + 1;
                std::string broken = text;
                broken.replace(begin, end - begin, wrongs[random() % wrongs.size()]);
                scratch.write("run.setup", broken);
                try {
                    EXPECT_LT(run_in_directory(scratch.path()).files.size(), 60U);
                } catch (const ImpossibleCount&) {
                    // A count that no file of this size can follow up.
                    EXPECT_NE(broken, text);
                }
            }
        }
    }
}

TEST(BrokenSetup, NegativeAndHugeCountsDoNotHarm) {
    for (const char* count : {"-1", "-2147483648", "2147483647", "99999999999999999999"}) {
        SetupText setup = small_setup(NetworkKind::undirected, 1);
        setup.attributes = "Attributes 1\nBinary 1\n";
        setup.attributes += count;
        setup.attributes += "\nFile binary.txt\n";
        const ScratchDirectory scratch;
        write_data(scratch, NetworkKind::undirected);
        scratch.write("run.setup", setup_text(setup));
        try {
            EXPECT_LT(run_in_directory(scratch.path()).files.size(), 60U);
        } catch (const ImpossibleCount&) {
            EXPECT_EQ(std::string(count).find('-'), std::string::npos) << count;
        }
    }
}

// A report of a network without a row in its matrix and without a tie.
void expect_empty_network(const std::string& report, NetworkKind kind, int actors) {
    const std::string number = std::to_string(actors);
    const auto holds = [&](const std::string& piece) {
        EXPECT_NE(report.find(piece), std::string::npos) << piece << "\n" << report.substr(0, 400);
    };
    const bool directed = kind == NetworkKind::directed;
    holds(directed ? "\narc\t0\n" : "\nvertices\t" + number + "\nedges\t0\n");
    if (actors == 1) {
        return;
    }
    holds("vertices " + number + (directed ? "\nmatrix\n\n***" : "\n*matrix\n***"));
    holds(directed ? "\nIn-degree Distribution:(range[0..n-1])\n\n"
                   : "\nDegree Distribution:(range[0..n-1])\n\n");
    if (!directed && actors < 0) {
        holds("(range[0..(n-2)*(n-1)/2])\n-3\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t\n");
    }
}

TEST(BrokenSetup, NegativeActorsMakeAnEmptyNetwork) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            for (const int actors : {-3, 0, 1}) {
                SetupText setup = small_setup(kind, mode);
                setup.actors = actors;
                const ScratchDirectory scratch;
                write_data(scratch, kind);
                scratch.write("run.setup", setup_text(setup));
                const RunOutputs outputs = run_in_directory(scratch.path());
                expect_empty_network(outputs.files.at("start_statistics_net.txt"), kind, actors);
            }
        }
    }
}

TEST(BrokenSetup, ImpossibleActorCountsMakeAnEmptyNetwork) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            for (const int actors : {-2147483647, -50000, 2147483647}) {
                SetupText setup = small_setup(kind, mode);
                setup.actors = actors;
                const ScratchDirectory scratch;
                write_data(scratch, kind);
                scratch.write("run.setup", setup_text(setup));
                const RunOutputs outputs = run_in_directory(scratch.path());
                expect_empty_network(outputs.files.at("start_statistics_net.txt"), kind, 0);
                for (const auto& [name, text] : outputs.files) {
                    EXPECT_LT(text.size(), 100000U) << name << " of " << actors << " actors";
                }
            }
        }
    }
}

TEST(BrokenSetup, DataFilesThatAreAbsentReadAsEmpty) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            const ScratchDirectory scratch;
            SetupText setup = small_setup(kind, mode);
            setup.free_dyads = "";
            scratch.write("run.setup", setup_text(setup));
            const RunOutputs outputs = run_in_directory(scratch.path());
            EXPECT_FALSE(outputs.files.at("start_statistics_net.txt").empty());
        }
    }
}

}  // namespace
