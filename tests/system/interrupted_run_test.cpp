// A run that is killed half-way keeps what it had completed.
#include <algorithm>
#include <filesystem>

#include "support/child_process.h"
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
