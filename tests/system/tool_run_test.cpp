// "ovri run" and the command line, driven as a person would.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/random_source.h"
#include "support/child_process.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

class ToolRun : public ToolTest {
  protected:
    // Runs the setup with the options into a directory of its own.
    const ToolResult& run(const ToolSetup& setup, std::vector<std::string> options = {},
                          const std::string& output = "out") {
        scratch.write("net.setup", setup.text());
        fs::create_directory(scratch.path() / output);
        options.insert(options.begin(), {"run", "net.setup", "--output", output});
        result = run_tool(options, scratch.path().string());
        return result;
    }
    std::string output(const std::string& directory, const std::string& file) const {
        return scratch.read(directory + "/" + file);
    }
    bool left_nothing() const { return fs::is_empty(scratch.path() / "out"); }
    bool says(const std::string& piece) const {
        return result.err.find(piece) != std::string::npos;
    }

    static ToolSetup simulation() { return {.mode = 1, .effects = {{"edge", "1 -0.5"}}}; }
};

ToolResult ovri(const std::vector<std::string>& words) { return run_tool(words); }

}  // namespace

TEST_F(ToolRun, ARunWritesItsResultsAndNamesThem) {
    run({}, {"--clock", "7"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(output("out", "estimation_net.txt").find("STOCHASTIC ESTIMATION FOR NETWORK net"),
              std::string::npos);
    EXPECT_TRUE(says("out/estimation_net.txt\n")) << result.err;
    EXPECT_TRUE(says("out/stupdate.ovri")) << result.err;
    EXPECT_TRUE(scratch.exists("out/stupdate.ovri"));
    EXPECT_FALSE(scratch.exists("stupdate.ovri"));
}

TEST_F(ToolRun, ASecondRunTellsWhatItAddsToAndWhatItReplaces) {
    run({}, {"--clock", "7"});
    EXPECT_FALSE(says("added to the end")) << result.err;
    EXPECT_FALSE(says("replaced")) << result.err;
    // A replaced file that grows is no file that was added to.
    scratch.write("out/covariance_net.txt", "1\n");
    run({}, {"--clock", "7"});
    EXPECT_TRUE(says("estimation_net.txt (added to the end)")) << result.err;
    EXPECT_TRUE(says("covariance_net.txt (replaced)")) << result.err;
    EXPECT_TRUE(says("stupdate.ovri (replaced)")) << result.err;
}

TEST_F(ToolRun, ADirectoryInPlaceOfAnUpdateFileStopsTheRun) {
    std::filesystem::create_directory(scratch.path() / "out" / "stupdate.ovri");
    run({}, {"--clock", "7"});
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(scratch.exists("out/estimation_net.txt"));
}

TEST_F(ToolRun, StandardOutputHoldsTheRunsOwnTextAlone) {
    run(simulation(), {"--clock", "7"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find("out/"), std::string::npos) << result.out;
    EXPECT_TRUE(result.out.ends_with(" changes.\n")) << result.out;
    const std::string text = result.out;
    run(simulation(), {"--clock", "7", "--quiet"}, "other");
    EXPECT_EQ(result.out, text);
    EXPECT_EQ(result.err, "");
}

TEST_F(ToolRun, TheSameClockGivesTheSameResults) {
    run(simulation(), {"--clock", "7"}, "a");
    EXPECT_TRUE(says("clock held at second 7")) << result.err;
    run(simulation(), {"--clock", "7"}, "b");
    run(simulation(), {"--clock", "8"}, "c");
    EXPECT_EQ(output("a", "simulation_net.txt"), output("b", "simulation_net.txt"));
    EXPECT_NE(output("a", "simulation_net.txt"), output("c", "simulation_net.txt"));
}

TEST_F(ToolRun, ASeedGivesEachReseedingANumberMixedOfBoth) {
    run(simulation(), {"--seed", "7"}, "a");
    EXPECT_TRUE(says("Seed 7")) << result.err;
    run(simulation(), {"--seed", "7"}, "b");
    run(simulation(), {"--clock", std::to_string(mixed_seed(7, 0))}, "c");
    run(simulation(), {"--seed", "8"}, "d");
    EXPECT_EQ(output("a", "simulation_net.txt"), output("b", "simulation_net.txt"));
    // The start network is drawn after the first reseeding, the samples after later ones.
    EXPECT_EQ(output("a", "start_statistics_net.txt"), output("c", "start_statistics_net.txt"));
    EXPECT_NE(output("a", "simulation_net.txt"), output("c", "simulation_net.txt"));
    EXPECT_NE(output("a", "simulation_net.txt"), output("d", "simulation_net.txt"));
}

TEST_F(ToolRun, TheLargestSeedIsTaken) {
    run(simulation(), {"--seed", "4294967295"});
    EXPECT_EQ(result.status, 0) << result.err;
}

TEST_F(ToolRun, WithoutAnOptionTheSeedIsOfEachRunAloneAndRepeatsIt) {
    const auto shown_seed = [&] { return result.err.substr(5, result.err.find(" (") - 5); };
    run(simulation(), {"--quiet"}, "a");
    EXPECT_EQ(result.status, 0);
    const std::string seed = shown_seed();
    EXPECT_EQ(result.err, "Seed " + seed + " (--seed " + seed + " repeats this run)\n");
    run(simulation(), {"--seed", seed}, "b");
    EXPECT_EQ(output("a", "simulation_net.txt"), output("b", "simulation_net.txt"));
    run(simulation(), {"--quiet"}, "c");
    EXPECT_NE(shown_seed(), seed);
}

TEST_F(ToolRun, ASetupFileMayComeThroughAPipe) {
    scratch.write("net.setup", simulation().text());
    const std::string tool = OVRI_TOOL_PATH;
    const auto shell = [&](const std::string& command) {
        return run_child(
            {{"/bin/bash", "-c", command}, scratch.path(), {{"TMPDIR", scratch.path().string()}}});
    };
    for (const std::string& command :
         {"cat net.setup | " + tool + " run - --clock 7", tool + " run - --clock 7 < net.setup",
          tool + " run <(cat net.setup) --clock 7"}) {
        fs::remove_all(scratch.path() / "out");
        fs::create_directory(scratch.path() / "out");
        const ChildResult child = shell(command);
        EXPECT_EQ(child.status, 0) << child.errors;
        EXPECT_FALSE(output("out", "simulation_net.txt").empty());
    }
    const ChildResult wrong = shell("echo Name | " + tool + " check -");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_TRUE(wrong.output.starts_with("standard input:")) << wrong.output;
    EXPECT_EQ(shell("ls ovri-*.setup").output, "");
    const ChildResult full = run_child({{"/bin/bash", "-c", tool + " run - < net.setup"},
                                        scratch.path(),
                                        {{"TMPDIR", "/proc/self"}}});
    EXPECT_EQ(full.status, 3);
    EXPECT_NE(full.errors.find("TMPDIR names another directory"), std::string::npos) << full.errors;
}

TEST_F(ToolRun, WhatIsPrintedIntoAFullDiskIsNotDone) {
    scratch.write("net.setup", simulation().text());
    for (const std::string words :
         {"check net.setup", "check nowhere.setup", "help run", "--version"}) {
        const ChildResult child =
            run_child({{"/bin/sh", "-c", std::string(OVRI_TOOL_PATH " ") + words + " > /dev/full"},
                       scratch.path(),
                       {}});
        EXPECT_EQ(child.status, 3) << words;
        EXPECT_NE(child.errors.find("standard output"), std::string::npos) << child.errors;
    }
}

TEST_F(ToolRun, QuietShowsTheSeedAndNothingElse) {
    run(simulation(), {"--seed", "7", "--quiet"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "Seed 7 (--seed 7 repeats this run)\n");
}

TEST_F(ToolRun, WarningsAreShownUnlessQuietAndNeverStopARun) {
    ToolSetup setup = simulation();
    setup.samples = "5000";
    run(setup, {"--clock", "7"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(says("warning: sample count")) << result.err;
    run(setup, {"--clock", "7", "--quiet"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

TEST_F(ToolRun, ErrorsStopARunBeforeAnythingIsWritten) {
    for (const char* option : {"--clock", "--seed"}) {
        run({.network = "nowhere.txt"}, {option, "7", "--quiet"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(says("error: network file")) << result.err;
        EXPECT_TRUE(says("nothing was written")) << result.err;
        EXPECT_TRUE(left_nothing());
    }
}

TEST_F(ToolRun, TheMessagesOfARunAreThoseOfTheCheck) {
    const ToolSetup setup{.network = "nowhere.txt", .cap = "1\n-1"};
    const std::string checked = check(setup).out;
    run(setup);
    for (const char* severity : {"error", "warning"}) {
        const std::string field = severity[0] == 'e' ? "network file" : "degree cap";
        const std::string finding = find_finding(checked, severity, field, "found:");
        EXPECT_NE(finding, "") << checked;
        EXPECT_EQ(find_finding(result.err, severity, field, "found:"), finding);
    }
}

TEST_F(ToolRun, AForcedRunShowsItsErrorsAndGoesOn) {
    run({.network = "nowhere.txt"}, {"--clock", "7", "--force"});
    EXPECT_EQ(result.status, 3) << result.err;
    EXPECT_TRUE(says("error: network file")) << result.err;
    EXPECT_TRUE(says("run all the same (--force)")) << result.err;
    EXPECT_TRUE(scratch.exists("out/start_statistics_net.txt"));
}

TEST_F(ToolRun, WithoutTheCheckARunGoesOnAfterErrorsAndTellsWhatItCouldNotRead) {
    run({.network = "nowhere.txt"}, {"--clock", "7", "--no-check"});
    EXPECT_EQ(result.status, 3) << result.err;
    EXPECT_TRUE(says("nowhere.txt: could not be read, so it counts as empty: No such file"))
        << result.err;
    EXPECT_FALSE(says("error")) << result.err;
    EXPECT_TRUE(scratch.exists("out/start_statistics_net.txt"));
}

TEST_F(ToolRun, ARunThatCannotBeginIsAnErrorWithoutTheCheckToo) {
    result = run_tool({"run", "nowhere.setup", "--no-check"}, scratch.path().string());
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(says("cannot be read far enough")) << result.err;
}

TEST_F(ToolRun, ARunThatLeavesNoResultsIsNotDone) {
    scratch.write("net.setup", ToolSetup().text());
    result = run_tool({"run", "net.setup", "--no-check", "--output", "nowhere"},
                      scratch.path().string());
    EXPECT_EQ(result.status, 3);
    EXPECT_TRUE(says("left no results in nowhere")) << result.err;
}

TEST_F(ToolRun, AMissingOutputDirectoryStopsARun) {
    scratch.write("net.setup", ToolSetup().text());
    result = run_tool({"run", "net.setup", "--output", "nowhere"}, scratch.path().string());
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(says("error: output directory")) << result.err;
    result = run_tool({"run", "net.setup", "--output", "network.txt"}, scratch.path().string());
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(says("is not a directory")) << result.err;
    EXPECT_TRUE(left_nothing());
}

TEST_F(ToolRun, BlanksAndForeignLettersInPathsAreFine) {
    const std::string directory = "Läufe und Zahlen";
    scratch.write(directory + "/Netz é.setup", ToolSetup().text());
    fs::create_directory(scratch.path() / "Ergebnisse – neu");
    result = run_tool({"run", directory + "/Netz é.setup", "--output", "Ergebnisse – neu"},
                      scratch.path().string());
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(scratch.exists("Ergebnisse – neu/estimation_net.txt"));
}

TEST_F(ToolRun, NoProgressIsShownWhereStandardErrorIsNoTerminal) {
    ToolSetup setup = simulation();
    setup.iterations = "2000000";
    run(setup, {"--clock", "7"});
    EXPECT_EQ(result.status, 0);
    EXPECT_FALSE(says("\r")) << result.err;
    EXPECT_FALSE(says("%")) << result.err;
}

TEST_F(ToolRun, ProgressIsShownOnATerminalAndClearedAtTheEnd) {
    ToolSetup setup = simulation();
    setup.iterations = "6000000";
    setup.output = (scratch.path() / "out").string();
    const std::string path = scratch.write("net.setup", setup.text());
    result = run_tool_on_terminal({"run", path, "--clock", "7"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(says("\rsimulation, ")) << result.err;
    EXPECT_TRUE(says("left in this stage")) << result.err;
    const std::size_t cleared = result.err.find(" \rDone");
    EXPECT_NE(cleared, std::string::npos) << result.err;
    result = run_tool_on_terminal({"run", path, "--clock", "7", "--quiet"});
    EXPECT_EQ(result.err, "");
}

TEST(ToolCommandLine, HelpAndVersionAreWorthReading) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"help"}, {"--help"}, {"-h"}}) {
        const ToolResult result = ovri(words);
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.out.find("\n  check           explain"), std::string::npos);
        EXPECT_EQ(result.err, "");
    }
    for (const auto& [command, usage] : {std::pair{"run", "\n  ovri run SETUP ["},
                                         std::pair{"check", "\n  ovri check [FILE] ["}}) {
        const ToolResult page = ovri({"help", command});
        EXPECT_EQ(page.status, 0);
        EXPECT_NE(page.out.find(usage), std::string::npos) << page.out;
        EXPECT_EQ(ovri({command, "--help"}).out, page.out);
    }
    // Topics tell the defaults of the records that the tool itself begins with.
    const ToolResult topic = ovri({"help", "estimation"});
    EXPECT_EQ(topic.status, 0);
    EXPECT_NE(topic.out.find("multiplication = 30 "), std::string::npos) << topic.out;
    const ToolResult version = ovri({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.out.starts_with("ovri 1.")) << version.out;
}

TEST(ToolCommandLine, APageBeginsWithExamplesAndListsEveryOption) {
    const std::string page = ovri({"help", "run"}).out;
    EXPECT_LT(page.find("  ovri run examples/"), page.find("Usage:"));
    for (const char* option :
         {"  SETUP  ", "  --seed N  ", "  --clock N  ", "  -o, --output DIR\n", "  -q, --quiet  ",
          "  --force  ", "  --no-check  ", "  --color WHEN  ", "  -h, --help  "}) {
        EXPECT_NE(page.find(option), std::string::npos) << option;
    }
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 81U) << line;
    }
}

TEST(ToolCommandLine, EveryExampleOfAPageIsUnderstood) {
    for (const std::string command : {"run", "check"}) {
        std::istringstream lines(ovri({"help", command}).out);
        int examples = 0;
        for (std::string line; std::getline(lines, line) && line != "Usage:";) {
            if (line.starts_with("  ovri ")) {
                std::istringstream text(line.substr(7, line.find('>') - 7));
                std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
                // A file that is not there is status 1, not 2.
                if (!words[1].starts_with('-')) {
                    words[1] = "nowhere.setup";
                }
                EXPECT_EQ(ovri(words).status, 1) << line;
                ++examples;
            }
        }
        EXPECT_GE(examples, 2) << command;
    }
}

TEST_F(ToolRun, ColourIsForTerminalsAndForThoseWhoAskForIt) {
    const std::string red = "\033[1;31merror\033[0m";
    const std::string path = scratch.write("net.setup", ToolSetup{.network = "nowhere.txt"}.text());
    EXPECT_EQ(ovri({"check", path}).out.find('\033'), std::string::npos);
    EXPECT_NE(ovri({"check", path, "--color", "always"}).out.find(red), std::string::npos);
    EXPECT_NE(run_tool_on_terminal({"run", path}).err.find(red), std::string::npos);
    EXPECT_EQ(run_tool_on_terminal({"run", path, "--color=never"}).err.find('\033'),
              std::string::npos);
    ::setenv("NO_COLOR", "1", 1);
    EXPECT_EQ(run_tool_on_terminal({"run", path}).err.find('\033'), std::string::npos);
    ::unsetenv("NO_COLOR");
}

TEST(ToolCommandLine, WhatIsNotUnderstoodEndsWithStatusTwoAndAMessage) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> mistakes = {
        {{}, "a command is missing"},
        {{"frob"}, "unknown command `frob`; `ovri help` lists all"},
        {{"chekc", "a"}, "unknown command `chekc`; a similar one is `check`"},
        {{"--frob"}, "unknown option `--frob`; `ovri help` lists all"},
        {{"help", "chek"}, "unknown command `chek`; a similar one is `check`"},
        {{"run"}, "SETUP is missing; the command line is `ovri run SETUP [options]`"},
        {{"check"}, "FILE is missing"},
        {{"check", "a", "b"}, "`b` is one word too many"},
        {{"run", "a", "--frob"}, "unknown option `--frob`; `ovri help run` lists all"},
        {{"run", "--sed", "5", "a"}, "unknown option `--sed`; a similar one is `--seed`"},
        {{"run", "a", "--ouptut=b"}, "unknown option `--ouptut`; a similar one is `--output`"},
        {{"run", "a", "-x"}, "unknown option `-x`"},
        {{"check", "a", "--clock", "1"}, "unknown option `--clock`"},
        {{"run", "a", "--clock"}, "`--clock` takes a value"},
        {{"run", "a", "--clock", "soon"}, "`--clock` takes a whole number"},
        {{"run", "a", "--clock", "-1"}, "`--clock` takes a whole number"},
        {{"run", "a", "--clock", "1.5"}, "`--clock` takes a whole number"},
        {{"run", "a", "--seed", "4294967296"}, "`--seed` takes a whole number"},
        {{"run", "a", "--seed", ""}, "`--seed` takes a whole number"},
        {{"run", "a", "--seed", "1", "--clock", "1"}, "--seed excludes --clock"},
        {{"run", "a", "--output", ""}, "`--output` takes the name of a directory"},
        {{"run", "a", "--color", "red"}, "`--color` takes auto, always or never, not `red`"},
    };
    for (const auto& [words, message] : mistakes) {
        const ToolResult result = ovri(words);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_NE(result.err.find(message), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
    }
}
