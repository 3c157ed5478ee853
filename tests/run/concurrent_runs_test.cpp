// Runs side by side in one process: nothing of one run can be seen by another.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "run/run.h"
#include "support/golden_cases.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRuns = 200;
constexpr int kThreads = 8;
constexpr int kActors = 8;

// A small run of each mode and kind, with attributes, covariates and every output there is.
SetupText setup_of(int number) {
    SetupText setup;
    setup.kind = number % 2 == 0 ? NetworkKind::undirected : NetworkKind::directed;
    setup.mode = 1 + number / 2 % 4;
    setup.proposal = number / 8 % 3;
    setup.actors = kActors;
    setup.effects = setup.kind == NetworkKind::directed ? std::vector<ModelTerm>{{"arc", -0.5}}
                                                        : std::vector<ModelTerm>{{"edge", -0.5}};
    setup.attributes = attribute_section(setup.kind, 1, "0.01");
    setup.covariates = covariate_section(setup.kind, 1, "0.001");
    setup.free_dyads = number % 5 == 0 ? "free.txt" : "";
    setup.switches = {1, 1, 1, 1, 1, 1, 1};
    setup.phase3_steps = 20;
    setup.runs = 2;
    return setup;
}

// Each run has a directory of its own, named in full: the current directory is the process's.
class Runs {
  public:
    Runs() {
        const ChainModel<Digraph> none({});
        const std::string cells = matrix_text(random_network(none, kActors, 0.4, 3));
        const std::string free_dyads = matrix_text(random_network(none, kActors, 0.8, 4));
        for (int number = 0; number < kRuns; ++number) {
            const std::string below = std::to_string(number) + "/";
            for (const auto& [name, text] : attribute_files(kActors)) {
                scratch_.write(below + name, text);
            }
            scratch_.write(below + "network.txt", cells);
            scratch_.write(below + "free.txt", free_dyads);
            scratch_.write(below + "covariance.txt", "0.01\n");
            scratch_.write(below + "run.setup", with_full_paths(number));
        }
    }

    FileTexts perform(int number) const {
        const fs::path place = directory(number);
        // Some outputs tell where others are, so both rounds write to one place.
        const fs::path outputs = place / "out";
        fs::remove_all(outputs);
        fs::create_directory(outputs);
        HostOptions options;
        options.path_separator = '/';
        options.updates_beside_outputs = true;
        options.output_directory = outputs.string();
        options.console = nullptr;
        options.clock_seconds = [number] { return 20000 + number; };
        run_setup_file((place / "run.setup").string(), options);
        return files_in(outputs);
    }

  private:
    fs::path directory(int number) const { return scratch_.path() / std::to_string(number); }

    std::string with_full_paths(int number) const {
        std::string text = setup_text(setup_of(number));
        for (const std::string file :
             {"binary.txt", "continuous.txt", "categorical.txt", "covariates.txt", "network.txt",
              "free.txt", "covariance.txt"}) {
            const std::size_t place = text.find(file + "\n");
            if (place != std::string::npos) {
                text.insert(place, directory(number).string() + "/");
            }
        }
        return text;
    }

    ScratchDirectory scratch_;
};

}  // namespace

TEST(ConcurrentRuns, LeaveTheBytesOfRunsAlone) {
    const Runs runs;
    std::vector<FileTexts> alone;
    for (int number = 0; number < kRuns; ++number) {
        alone.push_back(runs.perform(number));
        ASSERT_GT(alone.back().size(), 3U) << number;
    }
    // Different clocks, different numbers.
    EXPECT_NE(alone[0], alone[80]);

    std::vector<FileTexts> together(kRuns);
    std::atomic<int> next{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&] {
            for (int number = next++; number < kRuns; number = next++) {
                together[static_cast<std::size_t>(number)] = runs.perform(number);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int number = 0; number < kRuns; ++number) {
        const auto place = static_cast<std::size_t>(number);
        EXPECT_EQ(difference(alone[place], together[place]), "") << "run " << number;
    }
}
