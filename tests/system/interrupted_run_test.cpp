// A run that is killed half-way keeps what it had completed.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "support/child_process.h"
#include "support/golden_cases.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

constexpr int kInterval = 20000;

// A simulation that takes a sample every kInterval proposals.
ToolSetup simulation(long samples) {
    ToolSetup setup;
    setup.mode = 1;
    setup.actors = "30";
    setup.effects = {{"edge", "1 -1.5"}, {"Triangle", "1 0.01"}};
    setup.iterations = std::to_string(samples * kInterval);
    setup.samples = std::to_string(samples);
    return setup;
}

long count_lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

std::string whole_lines(const std::string& text) {
    return text.substr(0, text.find_last_of('\n') + 1);
}

class InterruptedRun : public ToolTest {
  protected:
    std::vector<std::string> command(const ToolSetup& setup, const std::string& output) const {
        scratch.write(output + ".setup", setup.text());
        fs::create_directory(scratch.path() / output);
        return {"run", output + ".setup", "--output", output, "--clock", "11", "--no-check"};
    }
};

}  // namespace

TEST_F(InterruptedRun, KeepsEveryCompleteSampleRow) {
    std::vector<std::string> words = command(simulation(90000), "killed");
    words.insert(words.begin(), OVRI_TOOL_PATH);
    ChildSetting setting;
    setting.command = words;
    setting.directory = scratch.path();
    setting.limit = std::chrono::seconds(2);
    const ChildResult killed = run_child(setting);
    ASSERT_TRUE(killed.timed_out);
    const std::string rows = whole_lines(scratch.read("killed/simulation_net.txt"));
    const long samples = count_lines(rows) - 1;  // the head is a line too
    ASSERT_GE(samples, 2);
    // The same run, asked for just that many samples and left alone, writes the same rows.
    ASSERT_EQ(run_tool(command(simulation(samples), "whole"), scratch.path().string()).status, 0);
    EXPECT_EQ(rows, scratch.read("whole/simulation_net.txt"));
    // Its acceptance file keeps a row for each sample, but for one that was just being written.
    EXPECT_GE(count_lines(scratch.read("killed/accept_net.txt")), samples);
}

namespace {

// Files that a run adds to only grow; the others are written anew.
bool is_replaced(const std::string& file) {
    return file.ends_with(".ovri") || file.starts_with("covariance_");
}

class KilledRun : public ToolTest, public testing::WithParamInterface<int> {
  protected:
    static constexpr int kRuns = 3;  // of an estimation, none of which converges

    ToolSetup setup(int runs) const {
        ToolSetup setup;
        setup.mode = GetParam();
        setup.effects = {{"edge", setup.mode == 2 ? "1 -3.0" : "1 -0.5"}};
        setup.a_value = "0.0";
        setup.multiplication_factor = "100";
        setup.phase3_steps = "2000";
        setup.estimation_runs = std::to_string(runs);
        setup.sample_graphs = setup.mode == 3 ? "1" : "0";
        setup.burn_in = "500";
        setup.iterations = "200000";
        setup.samples = "400";
        return setup;
    }

    ChildSetting call(int runs) const {
        scratch.write("net.setup", setup(runs).text());
        fs::remove_all(scratch.path() / "out");
        fs::create_directory(scratch.path() / "out");
        ChildSetting setting;
        setting.command = {OVRI_TOOL_PATH, "run",     "net.setup", "--no-check",
                           "--quiet",      "--clock", "5"};
        setting.directory = scratch.path();
        return setting;
    }

    // What the whole run leaves, and at what sizes its files were closed.
    FileTexts whole(int runs) {
        ChildSetting setting = call(runs);
        const std::string notes = (scratch.path() / ("sections" + std::to_string(runs))).string();
        setting.environment = {{"LD_PRELOAD", OVRI_FAILING_CALLS_PATH}, {"OVRI_SECTIONS", notes}};
        EXPECT_EQ(run_child(setting).status, 0);
        std::istringstream lines(file_text(notes));
        std::size_t size = 0;
        std::string path;
        while (lines >> size && std::getline(lines >> std::ws, path)) {
            sections_[fs::path(path).filename().string()].insert(size);
        }
        return files_in(scratch.path() / "out");
    }

    std::map<std::string, std::set<std::size_t>> sections_;
};

}  // namespace

TEST_P(KilledRun, LeavesWholeSectionsOfTheRunWheneverItIsKilled) {
#ifdef OVRI_SANITIZED
    GTEST_SKIP() << "the sanitizers take no preloaded library";
#endif
    ASSERT_TRUE(fs::exists(scratch.write("covariance.txt", "0.01\n")));
    std::vector<FileTexts> wholes;
    for (int runs = GetParam() == 2 ? 1 : kRuns; runs <= kRuns; ++runs) {
        wholes.push_back(whole(runs));
    }
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run_child(call(kRuns)).status, 0);
    const auto lasted = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - begin);
    std::mt19937 random(7);
    for (int kill = 0; kill < 50; ++kill) {
        const auto moment =
            std::chrono::microseconds(random() % static_cast<unsigned>(lasted.count()));
        ChildSetting killed = call(kRuns);
        killed.limit = moment;
        run_child(killed);
        for (const auto& [file, text] : files_in(scratch.path() / "out")) {
            EXPECT_TRUE(text.empty() || sections_[file].contains(text.size()))
                << file << " ends at " << text.size();
            const bool expected =
                is_replaced(file)
                    ? text.empty() || std::any_of(wholes.begin(), wholes.end(),
                                                  [&](const FileTexts& texts) {
                                                      return texts.at(file) == text;
                                                  })
                    : wholes.back().contains(file) && wholes.back().at(file).starts_with(text);
            EXPECT_TRUE(expected) << file;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, KilledRun, testing::Values(1, 2, 3, 4));
