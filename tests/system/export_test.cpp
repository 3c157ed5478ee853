// The built library as a host uses it.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/golden_cases.h"
#include "support/sanitized.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

constexpr const char* kReturnedAndReleased = "returned 0, 0 not released\n";

ChildResult run_host(const std::filesystem::path& directory,
                     const std::vector<std::string>& arguments,
                     std::chrono::seconds limit = std::chrono::seconds(300)) {
    std::vector<std::string> command = {OVRI_EXPORT_HOST_PATH};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run_child({command,
                      directory,
                      {{"LD_PRELOAD", OVRI_HELD_CLOCK_PATH},
                       {"OVRI_HELD_CLOCK", std::to_string(kGoldenClock)},
                       // The held clock comes before the sanitizer's runtime; it needs none of it.
                       {"ASAN_OPTIONS", "verify_asan_link_order=0"}},
                      limit});
}

std::string replaced_everywhere(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// What the exported function leaves in the current directory for a golden case: output names
// joined by a backslash, update files under their own names.
FileTexts as_exported(const std::string& name) {
    FileTexts texts;
    for (const auto& [file, text] : files_in(std::filesystem::path(OVRI_SOURCE_DIRECTORY) /
                                             "tests" / "golden" / name / "expected")) {
        if (file == "console.txt") {
            continue;
        }
        const bool update = file.ends_with("update.ovri");
        std::string exported = update ? "" : "out\\";
        exported += file;
        texts[exported] = replaced_everywhere(text, "out/", "out\\");
    }
    return texts;
}

std::string console_of(const std::string& name) {
    return file_text(std::filesystem::path(OVRI_SOURCE_DIRECTORY) / "tests" / "golden" / name /
                     "expected" / "console.txt");
}

class ExportedCase : public testing::TestWithParam<const char*> {};

TEST_P(ExportedCase, LeavesTheGoldenBytesUnderBackslashNames) {
    const ScratchDirectory scratch;
    copy_golden_inputs(GetParam(), scratch.path() / "run");
    const ChildResult result = run_host(scratch.path() / "run", {"run.setup"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, kReturnedAndReleased);
    EXPECT_EQ(result.output, console_of(GetParam()));
    EXPECT_EQ(difference(as_exported(GetParam()), outputs_in(scratch.path() / "run", GetParam())),
              "");
}

INSTANTIATE_TEST_SUITE_P(Cases, ExportedCase,
                         testing::Values("florentine_estimation", "graph_simulation_all_outputs",
                                         "digraph_simulation_all_outputs", "digraph_estimation",
                                         "graph_fit", "digraph_bayesian_fit"),
                         [](const testing::TestParamInfo<const char*>& named) {
                             return std::string(named.param);
                         });

TEST(ExportedFunction, RunsOneSetupAfterAnotherInOneProcess) {
    const ScratchDirectory scratch;
    const std::string name = "digraph_simulation_toggle";
    copy_golden_inputs(name, scratch.path() / "run");
    // The estimation's outputs go elsewhere; its traces must not reach the second run.
    copy_golden_inputs("graph_estimation_attributes", scratch.path() / "other");
    const std::string other = (scratch.path() / "other" / "run.setup").string();
    const ChildResult result = run_host(scratch.path() / "run", {other, "run.setup"});
    EXPECT_EQ(result.errors, std::string(kReturnedAndReleased) + kReturnedAndReleased);
    const FileTexts outputs = outputs_in(scratch.path() / "run", name);
    EXPECT_EQ(outputs.at("out\\simulation_net.txt"),
              as_exported(name).at("out\\simulation_net.txt"));
}

TEST(ExportedFunction, ReturnsZeroForANullPath) {
    const ScratchDirectory scratch;
    const ChildResult result = run_host(scratch.path(), {"--null"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "returned 0\n");
    EXPECT_TRUE(files_in(scratch.path()).empty());
}

TEST(ExportedFunction, ReturnsZeroWhenTheHostCannotGiveThePath) {
    const ScratchDirectory scratch;
    const ChildResult result = run_host(scratch.path(), {"--unreadable", "run.setup"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, kReturnedAndReleased);
}

TEST(ExportedFunction, ReturnsZeroForFilesThatAreNoSetup) {
    const ScratchDirectory scratch;
    scratch.write("empty.setup", "");
    scratch.write("binary.setup", std::string("\0\x01\xff\x80 \n\x00", 7));
    const ChildResult result =
        run_host(scratch.path(), {"absent.setup", "empty.setup", "binary.setup", "."});
    EXPECT_EQ(result.status, 0);
    std::string four;
    for (int call = 0; call < 4; ++call) {
        four += kReturnedAndReleased;
    }
    EXPECT_EQ(result.errors, four);
    EXPECT_EQ(result.output, "");
}

SetupText without_memory(NetworkKind kind, int mode, int actors) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.actors = actors;
    return setup;
}

TEST(ExportedFunction, ReturnsZeroWhenMemoryRunsOut) {
    if (kSanitized) {
        GTEST_SKIP() << "a sanitizer's own memory does not fit under a limit";
    }
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            for (const int actors : {30000, 2147483647}) {
                const ScratchDirectory scratch;
                scratch.write("network.txt", "0 1 0\n");
                scratch.write("run.setup", setup_text(without_memory(kind, mode, actors)));
                const ChildResult result =
                    run_host(scratch.path(), {"--memory", "300", "run.setup"});
                EXPECT_EQ(result.status, 0) << "mode " << mode << ", actors " << actors;
                EXPECT_EQ(result.errors, kReturnedAndReleased);
            }
        }
    }
}

TEST(ExportedFunction, ReturnsZeroForCountsThatNoMemoryHolds) {
    if (kSanitized) {
        GTEST_SKIP() << "a sanitizer's own memory does not fit under a limit";
    }
    const auto expect_return = [](const SetupText& setup) {
        const ScratchDirectory scratch;
        scratch.write("network.txt", "0 1 0 1\n1 0 1 0\n0 1 0 1\n1 0 1 0\n");
        scratch.write("run.setup", setup_text(setup));
        const ChildResult result = run_host(scratch.path(), {"--memory", "300", "run.setup"});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, kReturnedAndReleased);
    };
    SetupText sets = without_memory(NetworkKind::undirected, 4, 4);
    sets.samples = "2147483647";
    sets.effects = {{"edge", -1.0}};
    expect_return(sets);
    SetupText steps = without_memory(NetworkKind::directed, 2, 4);
    steps.effects = {{"arc", -1.0}};
    steps.phase3_steps = 2147483647;
    steps.factor = 0;
    expect_return(steps);
    SetupText attributes = without_memory(NetworkKind::undirected, 1, 4);
    attributes.attributes = "Attributes 1\nBinary 1\n2147483647\nFile binary.txt\n";
    expect_return(attributes);
}

TEST(ExportedFunction, KeepsEverySampleOfARunThatIsKilled) {
    const ScratchDirectory scratch;
    SetupText setup;
    setup.actors = 30;
    setup.density = "0.1";
    setup.effects = {{"edge", -2.0}, {"Triangle", 0.1}, {"AS", 0.0, 2.0F}};
    setup.iterations = "100000000000";
    setup.samples = "1000000000";
    scratch.write("run.setup", setup_text(setup));
    const ChildResult result = run_host(scratch.path(), {"run.setup"}, std::chrono::seconds(1));
    EXPECT_TRUE(result.timed_out);
    const std::string table = files_in(scratch.path()).at("out\\simulation_net.txt");
    ASSERT_FALSE(table.empty());
    EXPECT_EQ(table.back(), '\n');
    std::istringstream lines(table);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "id\tedge\ttriangle\tas\t");
    int rows = 0;
    while (std::getline(lines, line)) {
        ++rows;
        EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 4) << line;
        EXPECT_EQ(std::stoi(line), 100 * rows);
    }
    EXPECT_GT(rows, 10);
}

TEST(ExportedFunction, IsTheOnlySymbolOfTheLibrary) {
    const ScratchDirectory scratch;
    const ChildResult result =
        run_child({{"nm", "-D", "--defined-only", OVRI_LIBRARY_PATH}, scratch.path(), {}});
    ASSERT_EQ(result.status, 0) << result.errors;
    std::istringstream lines(result.output);
    std::vector<std::string> symbols;
    for (std::string line; std::getline(lines, line);) {
        symbols.push_back(line.substr(line.rfind(' ') + 1));
    }
    EXPECT_EQ(symbols, std::vector<std::string>({"Java_Ovri_ovri"}));
}

}  // namespace
