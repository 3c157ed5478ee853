// Estimations and simulations of models whose files cannot be written, or that a person ends.
#include <filesystem>

#include "support/child_process.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

constexpr const char* kFriends =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\nFay,Gus\nGus,Hal\n"
    "Hal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\nBen,Hal\n";

// Waits until the child catches Ctrl-C, then ends it by one.
constexpr const char* kInterrupt =
    "until [ $((0x$(sed -n 's/^SigCgt:\\t//p' /proc/$child/status) & 2)) -ne 0 ]\n"
    "do sleep 0.01; done\n"
    "sleep 0.1; kill -INT $child; wait $child; echo \"status $?\" >&2";

class StudyInTrouble : public ToolTest {
  protected:
    StudyInTrouble() {
        scratch.write("friends.csv", kFriends);
        write_model("");
    }
    void write_model(const std::string& sections) const {
        scratch.write("friends.toml",
                      "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                      "[\"edge\", \"AS(2)\"]\nstart = { edge = -1, \"AS(2)\" = 0 }\n[run]\nseed = "
                      "3\n" +
                          sections);
    }
    void estimate_with(const std::string& settings) const {
        write_model("[estimation]\nmethod = \"stochastic-approximation\"\n" + settings);
    }
    // Ends the estimation by Ctrl-C when there are estimates: they are kept and marked.
    ChildResult interrupted_with_estimates() const {
        ChildResult run =
            shell(std::string("$OVRI estimate friends.toml >/dev/null & child=$!\n") + kInterrupt);
        EXPECT_TRUE(run.errors.ends_with("status 130\n")) << run.output << run.errors;
        EXPECT_TRUE(has(run.errors, "it has the estimates so far\n")) << run.errors;
        EXPECT_FALSE(scratch.exists("friends.results/result.json"));
        const std::string estimates = scratch.read("friends.results/estimates.csv");
        EXPECT_TRUE(has(estimates, "\nedge,")) << estimates;
        EXPECT_FALSE(has(estimates, "\nedge,,")) << estimates;
        return run;
    }
};

}  // namespace

TEST_F(StudyInTrouble, AFolderThatCannotBeMadeStopsItBeforeItBegins) {
    for (const char* command : {"estimate", "simulate"}) {
        const ChildResult run =
            shell(std::string("$OVRI ") + command + " friends.toml -o friends.csv/results");
        EXPECT_EQ(run.status, 1) << run.errors;
        EXPECT_TRUE(has(run.errors, "the results folder `friends.csv/results` cannot be made"))
            << run.errors;
    }
    EXPECT_EQ(scratch.read("friends.csv"), kFriends);
}

TEST_F(StudyInTrouble, AnEstimationOnAFullDiskEndsInStatusThreeAndLooksIncomplete) {
    estimate_with("attempts = 1\nsamples = 1000\n");
    const ChildResult run = shell("ulimit -f 4; $OVRI estimate friends.toml -q");
    EXPECT_EQ(run.status, 3) << run.output << run.errors;
    EXPECT_TRUE(has(run.errors, "friends.results/sample.csv could not be written\n")) << run.errors;
    // The numbers are shown, and nothing that says they were kept.
    EXPECT_TRUE(run.output.starts_with("effect ")) << run.output;
    EXPECT_FALSE(has(run.output, "results: ")) << run.output;
    EXPECT_FALSE(has(run.output, "converged")) << run.output;
    EXPECT_EQ(shell("ulimit -f 4; $OVRI estimate friends.toml -q --json").output, "");
    EXPECT_FALSE(scratch.exists("friends.results/result.json"));
    EXPECT_FALSE(scratch.exists("friends.results/sample.csv"));
    EXPECT_TRUE(scratch.exists("friends.results/model.toml"));
}

TEST_F(StudyInTrouble, ASimulationOnAFullDiskEndsInStatusThree) {
    const ChildResult run =
        shell("ulimit -f 4; $OVRI simulate friends.toml -q --samples 2000 --interval 10");
    EXPECT_EQ(run.status, 3) << run.output << run.errors;
    EXPECT_TRUE(has(run.errors, "could not be written\n")) << run.errors;
    EXPECT_FALSE(scratch.exists("friends.results/result.json"));
}

TEST_F(StudyInTrouble, AFullStandardOutputEndsInStatusThreeWithTheResultsComplete) {
    estimate_with("");
    const ChildResult run = shell("$OVRI estimate friends.toml -q >/dev/full");
    EXPECT_EQ(run.status, 3) << run.errors;
    EXPECT_TRUE(has(run.errors, "standard output could not be written")) << run.errors;
    EXPECT_TRUE(scratch.exists("friends.results/result.json"));
}

TEST_F(StudyInTrouble, AnInterruptedEstimationIsMarked) {
    estimate_with("multiplication = 1000000\nsamples = 10000000\n");
    const ChildResult run =
        shell(std::string("$OVRI estimate friends.toml >/dev/null & child=$!\n") + kInterrupt);
    EXPECT_TRUE(run.errors.ends_with("status 130\n")) << run.errors;
    EXPECT_TRUE(has(run.errors, "interrupted; friends.results has no result.json")) << run.errors;
    EXPECT_TRUE(scratch.exists("friends.results/model.toml"));
    EXPECT_FALSE(scratch.exists("friends.results/result.json"));
    EXPECT_TRUE(has(scratch.read("friends.results/run.log"), "\ninterrupted: by Ctrl-C at "));
    EXPECT_TRUE(has(scratch.read("friends.results/run.log"), "; no estimates yet\n"));
    // The name is taken: what was interrupted stays as it is.
    estimate_with("");
    EXPECT_TRUE(has(shell("$OVRI estimate friends.toml").output, "results: friends.results.2\n"));
}

TEST_F(StudyInTrouble, AnInterruptedEstimationKeepsItsBestRun) {
    // With so small a gain it never leaves its start; each run takes twice as long as the one
    // before.
    scratch.write(
        "friends.toml",
        "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
        "[\"edge\", \"AS(2)\"]\nstart = { edge = -3, \"AS(2)\" = 1 }\n[estimation]\nmethod = "
        "\"stochastic-approximation\"\nmultiplication = 1\nsubphases = 1\nsamples = "
        "1000\nattempts = 1000\ngain = 0.000001\n[run]\nseed = 1\n");
    const ChildResult run = interrupted_with_estimates();
    EXPECT_TRUE(has(scratch.read("friends.results/run.log"),
                    "estimates.csv holds the best estimates so far, not to be used\n"));
}

TEST_F(StudyInTrouble, InterruptedChainsKeepTheirBestPoint) {
    write_model("[estimation]\nprecision = 0.00002\n");
    const ChildResult run = interrupted_with_estimates();
    EXPECT_FALSE(has(run.errors, "stage ")) << run.errors;
}

TEST_F(StudyInTrouble, ATerminalIsToldWhichStageOfHowManyIsUnderWay) {
    write_model("[estimation]\nprecision = 0.003\n");
    const ToolResult run =
        run_tool_on_terminal({"estimate", (scratch.path() / "friends.toml").string(), "-o",
                              (scratch.path() / "results").string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(has(run.err, "\rstage 2 of 3: chains, run ")) << run.err;
    EXPECT_TRUE(has(run.err, " left in this stage")) << run.err;
}

TEST_F(StudyInTrouble, AnInterruptedSimulationIsMarked) {
    const ChildResult run = shell(
        std::string("$OVRI simulate friends.toml --samples 50000000 >/dev/null & child=$!\n") +
        kInterrupt);
    EXPECT_TRUE(run.errors.ends_with("status 130\n")) << run.errors;
    EXPECT_TRUE(has(run.errors, "interrupted; ")) << run.errors;
    EXPECT_TRUE(has(run.errors, " drawn so far\n")) << run.errors;
    EXPECT_FALSE(scratch.exists("friends.results/result.json"));
    EXPECT_TRUE(has(scratch.read("friends.results/run.log"), "\ninterrupted: by Ctrl-C at "));
    EXPECT_TRUE(scratch.read("friends.results/sample.csv").starts_with("chain,draw,edge,AS(2)\n"));
}

TEST_F(StudyInTrouble, AStatisticThatNeverMovesIsNamed) {
    // At this start no tie ever comes about.
    scratch.write("friends.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\", \"AS(2)\"]\nstart = { edge = -60 }\n[estimation]\nmethod = "
                  "\"stochastic-approximation\"\n");
    const ChildResult run = shell("$OVRI estimate friends.toml --seed 1");
    EXPECT_EQ(run.status, 5) << run.output << run.errors;
    EXPECT_TRUE(has(run.output, "degenerate: do not use these estimates")) << run.output;
    EXPECT_TRUE(has(run.output, "never moved")) << run.output;
    EXPECT_TRUE(has(scratch.read("friends.results/result.json"), "\"verdict\": \"degenerate\""));
}

TEST_F(StudyInTrouble, ANetworkOfStandardInputIsKeptBesideItsModel) {
    const ChildResult run = shell(
        "$OVRI estimate --network - --undirected --effects 'edge,AS(2)' --seed 1 < friends.csv");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(has(run.errors, "standard input: 10 actors, 14 ties")) << run.errors;
    EXPECT_TRUE(has(run.output, "results: model.results\n")) << run.output;
    EXPECT_EQ(scratch.read("model.results/network.txt"), kFriends);
    EXPECT_TRUE(has(scratch.read("model.results/model.toml"), "file = \"network.txt\"\n"));
    ASSERT_EQ(shell("$OVRI estimate model.results/model.toml -o again").status, 0);
    EXPECT_EQ(scratch.read("model.results/sample.csv"), scratch.read("again/sample.csv"));
    // Advice names what can be read again.
    scratch.write("sexes.csv",
                  "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\nEve,f\nFay,f\nGus,m\nHal,m\nIda,f\nJon,"
                  "m\n");
    const ChildResult failed = shell(
        "$OVRI estimate --network - --nodes sexes.csv --undirected --effects "
        "'edge,same(sex),different(sex)' --seed 1 -o f < friends.csv");
    ASSERT_EQ(failed.status, 5) << failed.output << failed.errors;
    EXPECT_TRUE(has(failed.output, "  ovri estimate f/model.toml --effects ")) << failed.output;
    EXPECT_FALSE(has(failed.output, "--network -")) << failed.output;
}

TEST_F(StudyInTrouble, StandardInputIsReadOnce) {
    scratch.write("nodes.csv", "name\nAnn\nBen\nCid\nDot\nEve\nFay\nGus\nHal\nIda\n");
    // An actor is missing from the nodes file: told from what was read, not from a second reading.
    const ChildResult run = shell(
        "$OVRI check --network - --nodes nodes.csv --undirected --effects edge < friends.csv");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(has(run.output, "standard input:13: error: actor `Jon`")) << run.output;
    const ChildResult both =
        shell("$OVRI check --network - --nodes - --undirected --effects edge < friends.csv");
    EXPECT_EQ(both.status, 1);
    EXPECT_TRUE(has(both.output, "two files that come from standard input")) << both.output;
    EXPECT_EQ(shell("$OVRI convert - - --undirected --to net 2>&1 < friends.csv").status, 2);
    EXPECT_TRUE(
        shell("$OVRI convert - - --undirected --to pajek < friends.csv").output.starts_with("*V"));
    EXPECT_TRUE(has(shell("$OVRI new - -o - < friends.csv").output, "file = \"-\"\n"));
}
