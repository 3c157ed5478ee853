// What a host may rely on from call to call: nothing is kept, memory does not grow, paths may hold
// any character, and a path that leads nowhere does no harm.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "java/java_machine.h"
#include "support/direct_call.h"

namespace fs = std::filesystem;

namespace {

// What the probe told of its calls.
struct ProbeReport {
    std::vector<int> returned;
    std::vector<long> resident;
    bool alive = false;
};

ProbeReport report_of(const ChildResult& child) {
    ProbeReport report;
    std::istringstream stream(child.errors);
    for (std::string line; std::getline(stream, line);) {
        int returned = -1;
        long resident = -1;
        if (std::sscanf(line.c_str(), "returned %d resident %ld", &returned, &resident) == 2) {
            report.returned.push_back(returned);
            report.resident.push_back(resident);
        }
        report.alive = report.alive || line == "alive";
    }
    return report;
}

std::string call_name(std::size_t call) {
    std::string name = "call";
    return name.append(std::to_string(call));
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// The inputs of a case in a directory of their own below `root`, with a setup file that names them
// from `root`, so that many cases can be run from one current directory.
std::string place_case(const std::string& name, const fs::path& root, const std::string& below) {
    copy_golden_inputs(name, root / below);
    std::string setup = file_text(root / below / "run.setup");
    for (const auto& [file, text] : files_in(root / below)) {
        setup = replaced(setup, " " + file + "\n", " " + below + "/" + file + "\n");
    }
    std::ofstream(root / below / "run.setup", std::ios::binary) << setup;
    return below + "/run.setup";
}

class JavaCalls : public JavaTest {
  protected:
    ScratchDirectory scratch_;
};

class RepeatedCalls : public JavaTest, public testing::WithParamInterface<std::string> {};

TEST_P(RepeatedCalls, OfOneProcessAreAllEqualToTheDirectCall) {
    constexpr std::size_t kCalls = kSanitized ? 3 : 20;
    const ScratchDirectory scratch;
    const fs::path direct = scratch.path() / "direct";
    const fs::path java = scratch.path() / "java";
    copy_golden_inputs(GetParam(), direct);
    copy_golden_inputs(GetParam(), java);
    call_directly(direct, "run.setup");
    const FileTexts expected = outputs_in(direct, GetParam());

    std::vector<std::string> arguments(kCalls, "run.setup");
    arguments.insert(arguments.begin(), "--part");
    const ChildResult child = run_probe(java, arguments);

    EXPECT_EQ(child.status, 0) << child.errors;
    EXPECT_EQ(report_of(child).returned, std::vector<int>(kCalls, 0));
    for (std::size_t call = 1; call <= kCalls; ++call) {
        EXPECT_EQ(difference(expected, files_in(java / call_name(call))), "") << "call " << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, RepeatedCalls,
                         testing::Values("graph_estimation_and_fit_attributes",
                                         "digraph_estimation_and_fit_attributes",
                                         "graph_simulation_all_outputs"),
                         [](const testing::TestParamInfo<std::string>& each) {
                             return each.param;
                         });

TEST_F(JavaCalls, OfEveryModeAndKindInOneProcessDoNotTouchEachOther) {
    const std::vector<std::string> names = golden_case_names();
    const fs::path java = scratch_.path() / "java";
    std::vector<std::string> setups;
    for (const std::string& name : names) {
        setups.push_back(place_case(name, java, name));
    }
    std::vector<std::string> arguments = {"--part"};
    arguments.insert(arguments.end(), setups.begin(), setups.end());
    arguments.insert(arguments.end(), setups.rbegin(), setups.rend());
    const ChildResult child = run_probe(java, arguments);
    ASSERT_EQ(child.status, 0) << child.errors;

    for (std::size_t k = 0; k < names.size(); ++k) {
        const fs::path direct = scratch_.path() / ("direct_" + names[k]);
        call_directly(direct.parent_path() / "java", setups[k]);
        FileTexts expected = files_in(java);
        EXPECT_FALSE(expected.empty());
        for (const auto& [file, text] : expected) {
            fs::remove(java / file);
        }
        EXPECT_EQ(difference(expected, files_in(java / call_name(k + 1))), "") << names[k];
        EXPECT_EQ(difference(expected, files_in(java / call_name(2 * names.size() - k))), "")
            << names[k] << ", the second time";
    }
}

// A network that is large enough for one table left behind by a call to show in the process.
std::string large_setup(const std::string& mode_and_kind) {
    const bool directed = mode_and_kind.back() == '2';
    const std::string name =
        directed ? "digraph_simulation_all_outputs" : "graph_simulation_all_outputs";
    std::istringstream lines(
        file_text(fs::path(OVRI_SOURCE_DIRECTORY) / "tests/golden" / name / "run.setup"));
    std::string setup;
    for (std::string line; std::getline(lines, line);) {
        const std::string label = line.substr(0, line.find(' '));
        const auto set = [&](const std::string& value) { line = label + " " + value; };
        if (label == "Actors") {
            set("400");
        } else if (label == "Density") {
            set("0.01");
        } else if (label == "Burn_in" || label == "Iterations") {
            set("200");
        } else if (label == "Samples") {
            set("2");
        }
        setup += line + "\n";
    }
    return setup;
}

class MemoryOfTheProcess : public JavaTest, public testing::WithParamInterface<std::string> {};

TEST_P(MemoryOfTheProcess, DoesNotGrowFromTheFifthCallToTheTwentieth) {
#ifdef OVRI_SANITIZER_RUNTIME
    GTEST_SKIP() << "the sanitizers keep what is released";
#endif
    const ScratchDirectory scratch;
    scratch.write("run.setup", large_setup(GetParam()));
    std::vector<std::string> arguments(20, "run.setup");
    arguments.insert(arguments.begin(), "--part");
    const ChildResult child = run_probe(scratch.path(), arguments);
    const ProbeReport report = report_of(child);
    ASSERT_EQ(report.resident.size(), 20U) << child.errors;
    const long growth = report.resident[19] - report.resident[4];
    // One table of 400 by 400 integers is 625 kB; fifteen of them are 9375 kB.
    EXPECT_LT(growth, 1000) << "from " << report.resident[4] << " kB to " << report.resident[19];
    EXPECT_FALSE(files_in(scratch.path() / "call20").empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, MemoryOfTheProcess, testing::Values("1 1", "1 2"),
                         [](const testing::TestParamInfo<std::string>& each) {
                             return each.param == "1 1" ? "Graph" : "Digraph";
                         });

TEST_F(JavaCalls, TakePathsWithBlanksAndCharactersOfEveryScript) {
    const std::string names[] = {"with blank", "n\xC3\xA4hr \xC3\xB8", "\xE7\xBD\x91\xE7\xBB\x9C",
                                 "\xF0\x9F\x98\x80 smile"};
    for (const std::string& name : names) {
        const fs::path direct = scratch_.path() / "direct";
        const fs::path java = scratch_.path() / "java";
        const std::string below = name + "/deeper " + name;
        const std::string case_name = "digraph_fit";
        place_case(case_name, direct, below);
        const std::string setup = place_case(case_name, java, below);
        for (const fs::path& root : {direct, java}) {
            const std::string text = file_text(root / setup);
            std::ofstream(root / setup, std::ios::binary)
                << replaced(text, " out\n", " " + below + "/out " + name + "\n");
        }
        call_directly(direct, setup);
        const ChildResult child = run_host(java, {setup});
        EXPECT_EQ(child.status, 0) << child.errors;
        const FileTexts expected = outputs_in(direct / below, case_name);
        EXPECT_TRUE(expected.contains("out " + name + "\\gof_net.txt")) << name;
        EXPECT_EQ(difference(expected, outputs_in(java / below, case_name)), "") << name;
        fs::remove_all(direct);
        fs::remove_all(java);
    }
}

TEST_F(JavaCalls, WithABadPathReturnZeroAndLeaveTheMachineAlive) {
    scratch_.write("empty.setup", "");
    scratch_.write("binary.setup", std::string("\0\x01\xFF\xFE\n\0\x80 1 1 1", 14));
    fs::create_directory(scratch_.path() / "directory");
    const FileTexts before = files_in(scratch_.path());
    const ChildResult child =
        run_probe(scratch_.path(),
                  {"no/such/file.setup", "", "null", "directory", "empty.setup", "binary.setup"});
    EXPECT_EQ(child.status, 0) << child.errors;
    const ProbeReport report = report_of(child);
    EXPECT_EQ(report.returned, std::vector<int>(6, 0));
    EXPECT_TRUE(report.alive);
    EXPECT_EQ(difference(before, files_in(scratch_.path())), "");
}

TEST_F(JavaCalls, AfterABadPathAreAsGoodAsBefore) {
    copy_golden_inputs("graph_fit", scratch_.path());
    const ChildResult child =
        run_probe(scratch_.path(), {"--part", "run.setup", "none.setup", "run.setup"});
    EXPECT_EQ(child.status, 0) << child.errors;
    const FileTexts first = files_in(scratch_.path() / "call1");
    EXPECT_FALSE(first.empty());
    EXPECT_TRUE(files_in(scratch_.path() / "call2").empty());
    EXPECT_EQ(difference(first, files_in(scratch_.path() / "call3")), "");
}

TEST_F(JavaCalls, OfTheHostNameTheSetupFileThatIsMissingAndRunTheOthers) {
    copy_golden_inputs("graph_fit", scratch_.path());
    const ChildResult child = run_host(scratch_.path(), {"none.setup", "run.setup"});
    EXPECT_EQ(child.status, 1);
    EXPECT_NE(child.errors.find("none.setup: there is no such setup file"), std::string::npos);
    EXPECT_TRUE(fs::exists(scratch_.path() / "out\\gof_net.txt"));
}

TEST_F(JavaCalls, OfTheHostWithoutAnArgumentTellItsUse) {
    const ChildResult child = run_host(scratch_.path(), {});
    EXPECT_EQ(child.status, 2);
    EXPECT_NE(child.errors.find("usage: java -jar ovri.jar SETUP..."), std::string::npos);
}

}  // namespace
