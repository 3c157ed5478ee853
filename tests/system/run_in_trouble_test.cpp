// Runs of the tool whose files cannot be written, whose reader goes away, or that a person ends.
#include <sys/types.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

ToolSetup simulation(int samples, int interval) {
    ToolSetup setup;
    setup.mode = 1;
    setup.actors = "30";
    setup.effects = {{"edge", "1 -1.5"}};
    setup.iterations = std::to_string(static_cast<long long>(samples) * interval);
    setup.samples = std::to_string(samples);
    return setup;
}

class RunInTrouble : public ToolTest {
  protected:
    void write_setup(const ToolSetup& setup) const { scratch.write("net.setup", setup.text()); }
    // The rows that the same run writes where nothing is in its way.
    std::string whole(const std::string& file) const {
        fs::create_directory(scratch.path() / "whole");
        EXPECT_EQ(shell("$OVRI run net.setup --output whole --clock 5 --quiet").status, 0);
        return scratch.read("whole/" + file);
    }
};

bool ends_with_a_line(const std::string& text) { return text.empty() || text.back() == '\n'; }

}  // namespace

TEST_F(RunInTrouble, WithAnOutputThatIsFullEndsInStatusThreeAndNamesIt) {
    write_setup(simulation(10, 100));
    fs::create_symlink("/dev/full", scratch.path() / "out/simulation_net.txt");
    const ChildResult run = shell("$OVRI run net.setup --clock 5");
    EXPECT_EQ(run.status, 3) << run.errors;
    EXPECT_NE(run.errors.find("out/simulation_net.txt: No space left on device\n"),
              std::string::npos)
        << run.errors;
    EXPECT_EQ(run.errors.find("Done"), std::string::npos) << run.errors;
    const std::size_t complete = run.errors.find("Complete are:\n");
    ASSERT_NE(complete, std::string::npos) << run.errors;
    EXPECT_NE(run.errors.find("  out/accept_net.txt\n", complete), std::string::npos);
    EXPECT_EQ(run.errors.find("  out/simulation_net.txt\n", complete), std::string::npos);
    EXPECT_EQ(scratch.read("out/accept_net.txt"), whole("accept_net.txt"));
}

TEST_F(RunInTrouble, PastALimitOnFilesLeavesWholeRowsOnly) {
    write_setup(simulation(1000, 10));
    const ChildResult run = shell("ulimit -f 8; $OVRI run net.setup --clock 5 >/dev/null");
    EXPECT_EQ(run.status, 3) << run.errors;
    EXPECT_NE(run.errors.find("out/simulation_net.txt: File too large\n"), std::string::npos)
        << run.errors;
    const std::string rows = scratch.read("out/simulation_net.txt");
    const std::string expected = whole("simulation_net.txt");
    EXPECT_GT(rows.size(), 4000U);
    EXPECT_LT(rows.size(), expected.size());
    EXPECT_TRUE(ends_with_a_line(rows));
    EXPECT_TRUE(expected.starts_with(rows));
}

TEST_F(RunInTrouble, WithoutADirectoryEndsInStatusThree) {
    write_setup(simulation(10, 100));
    const ChildResult run = shell("$OVRI run net.setup --no-check --output gone --clock 5");
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.errors.find("gone/simulation_net.txt: No such file or directory\n"),
              std::string::npos)
        << run.errors;
}

TEST_F(RunInTrouble, WhoseDirectoryGoesAwayMidwayNamesItsFiles) {
    write_setup(simulation(2000000, 50));
    const ChildResult run = shell(
        "$OVRI run net.setup --clock 5 >/dev/null & child=$!\n"
        "until [ -s out/accept_net.txt ]; do sleep 0.01; done\n"
        "mv out gone\n"
        "sleep 0.1; kill -INT $child; wait $child; echo \"status $?\" >&2");
    EXPECT_TRUE(run.errors.ends_with("status 130\n")) << run.errors;
    EXPECT_NE(run.errors.find("out/simulation_net.txt: No such file or directory\n"),
              std::string::npos)
        << run.errors;
}

TEST_F(RunInTrouble, WithStandardOutputFullEndsInStatusThree) {
    write_setup(simulation(10, 100));
    const ChildResult run = shell("$OVRI run net.setup --clock 5 >/dev/full");
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.errors.find("standard output"), std::string::npos) << run.errors;
    EXPECT_EQ(scratch.read("out/simulation_net.txt"), whole("simulation_net.txt"));
}

TEST_F(RunInTrouble, WhoseReaderGoesAwayIsRunToItsEnd) {
    write_setup(simulation(20000, 10));
    const ChildResult run =
        shell("$OVRI run net.setup --clock 5 | head -c 5; echo ${PIPESTATUS[0]} >&2");
    EXPECT_TRUE(run.errors.ends_with("\n0\n")) << run.errors;
    EXPECT_EQ(run.output.size(), 5U);
    EXPECT_EQ(scratch.read("out/simulation_net.txt"), whole("simulation_net.txt"));
}

TEST_F(RunInTrouble, ThatIsInterruptedKeepsWholeRowsAndTellsSo) {
    write_setup(simulation(1000000, 1000));
    const ChildResult run = shell(
        "$OVRI run net.setup --clock 5 >/dev/null & child=$!\n"
        "until [ -s out/accept_net.txt ]; do sleep 0.01; done\n"
        "kill -INT $child; wait $child; echo \"status $?\" >&2");
    EXPECT_NE(run.errors.find("\nstatus 130\n"), std::string::npos) << run.errors;
    EXPECT_NE(run.errors.find("net.setup: interrupted; "), std::string::npos) << run.errors;
    const std::string rows = scratch.read("out/simulation_net.txt");
    EXPECT_TRUE(ends_with_a_line(rows));
    const auto samples = static_cast<int>(std::count(rows.begin(), rows.end(), '\n')) - 1;
    ASSERT_GE(samples, 1);
    write_setup(simulation(samples, 1000));
    EXPECT_EQ(whole("simulation_net.txt"), rows);
}

TEST_F(RunInTrouble, IsEndedAtOnceByASecondInterrupt) {
    ToolSetup setup;
    setup.network = "pipe";
    write_setup(setup);
    // Nothing ever comes through the pipe, so the run waits in the midst of reading.
    const ChildResult run = shell(
        "mkfifo pipe; exec 3<>pipe\n"
        "$OVRI run net.setup --no-check --clock 5 >/dev/null & child=$!\n"
        "until [ $((0x$(sed -n 's/^SigCgt:\\t//p' /proc/$child/status) & 2)) -ne 0 ]\n"
        "do sleep 0.01; done\n"
        "kill -INT $child; sleep 0.2; kill -0 $child && echo \"still there\" >&2\n"
        "kill -INT $child; wait $child; echo \"status $?\" >&2");
    EXPECT_NE(run.errors.find("still there\n"), std::string::npos) << run.errors;
    EXPECT_NE(run.errors.find("status 130\n"), std::string::npos) << run.errors;
}

TEST_F(RunInTrouble, ForWhichTheMachineIsTooSmallIsRefusedWithBothNumbers) {
#ifdef OVRI_SANITIZED
    GTEST_SKIP() << "the sanitizers reserve more addresses than the limit leaves";
#endif
    ToolSetup setup = simulation(10, 100);
    setup.actors = "30000";
    write_setup(setup);
    for (const char* command : {"run net.setup --no-check --clock 5", "run net.setup --force",
                                "run net.setup", "check net.setup"}) {
        const ChildResult run = shell(std::string("ulimit -v 1000000; $OVRI ") + command);
        EXPECT_EQ(run.status, 1) << command;
        EXPECT_NE((run.output + run.errors)
                      .find("the run needs about 3.8 GB of memory, and there are 1.0 GB"),
                  std::string::npos)
            << command << "\n"
            << run.errors;
        EXPECT_FALSE(scratch.exists("out/start_statistics_net.txt")) << command;
    }
}

TEST_F(RunInTrouble, OfAModelForWhichTheMachineIsTooSmallIsRefusedWithBothNumbers) {
#ifdef OVRI_SANITIZED
    GTEST_SKIP() << "the sanitizers reserve more addresses than the limit leaves";
#endif
    std::string nodes = "id\n";
    for (int actor = 1; actor <= 30000; ++actor) {
        nodes += std::to_string(actor) + "\n";
    }
    scratch.write("nodes.csv", nodes);
    scratch.write("ties.csv", "from,to\n1,2\n2,3\n");
    for (const char* command : {"estimate", "simulate --values edge=-9"}) {
        const ChildResult run =
            shell(std::string("ulimit -v 1000000; $OVRI ") + command +
                  " --network ties.csv --nodes nodes.csv --undirected --effects edge -o large");
        EXPECT_EQ(run.status, 1) << command << "\n" << run.errors;
        EXPECT_NE(
            run.errors.find("30000 actors: a chain needs 2.0 GB of memory, expected a network "
                            "for the 1.0 GB that there are"),
            std::string::npos)
            << command << "\n"
            << run.errors;
        EXPECT_FALSE(scratch.exists("large")) << command;
    }
}
