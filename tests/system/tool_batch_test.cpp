// "ovri batch", driven as a person, a scheduler and a power cut would.
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include <chrono>

#include "support/child_process.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

// Villages of ten people, the same but for a few ties.
constexpr const char* kVillage =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\nFay,Gus\nGus,Hal\n"
    "Hal,Ida\nGus,Ida\nIda,Jon\n";
constexpr const char* kPlan =
    "networks = \"villages/*.csv\"\ndirected = false\n"
    "models = [[\"edge\"], \"stars.toml\"]\nseeds = [1, 2]\n[settings]\nattempts = 3\n"
    "samples = 200\nmethod = \"stochastic-approximation\"\n";

class ToolBatch : public ToolTest {
  protected:
    ToolBatch() {
        fs::create_directories(scratch.path() / "villages");
        scratch.write("villages/a.csv", std::string(kVillage) + "Ann,Dot\n");
        scratch.write("villages/b.csv", std::string(kVillage) + "Ben,Hal\nAnn,Jon\n");
        scratch.write("villages/c.csv", std::string(kVillage) + "Cid,Jon\nBen,Eve\nAnn,Hal\n");
        scratch.write("stars.toml", "[model]\neffects = [\"edge\", \"AS(2)\"]\n");
        scratch.write("plan.toml", kPlan);
    }
    const ToolResult& batch(std::vector<std::string> words) {
        words.insert(words.begin(), {"batch", "plan.toml"});
        result = run_tool(words, scratch.path().string());
        return result;
    }
    // What tells two folders' results apart: the summary without times.
    std::string summary(const std::string& folder) {
        batch({"-o", folder, "--collect", "--no-times", "--quiet"});
        return scratch.read(folder + "/summary.csv") + scratch.read(folder + "/summary.json");
    }
    // The summary of a local run that nothing disturbs.
    std::string expected() {
        EXPECT_EQ(batch({"-o", "expected", "--workers", "2"}).status, 0)
            << result.out << result.err;
        return summary("expected");
    }
    ChildSetting child(std::vector<std::string> command) const {
        ChildSetting setting;
        setting.command = std::move(command);
        setting.directory = scratch.path();
        setting.environment = {{"OVRI", OVRI_TOOL_PATH}};
        return setting;
    }
    // Runs lines of a shell in the scratch directory; "$OVRI" is the tool.
    ChildResult shell(const std::string& lines) const {
        return run_child(child({"sh", "-c", lines}));
    }
    bool err_says(const std::string& piece) const {
        return result.err.find(piece) != std::string::npos;
    }
};

bool is_installed(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

}  // namespace

TEST_F(ToolBatch, LeavesAFolderAJobAndASummary) {
    ASSERT_EQ(batch({}).status, 0) << result.out << result.err;
    const std::vector<std::string> rows = lines_of(scratch.read("plan.results/summary.csv"));
    ASSERT_EQ(rows.size(), 1U + 6U + 12U);
    EXPECT_EQ(rows[0],
              "job,network,model,seed,verdict,effect,estimate,standard_error,t_ratio,seconds");
    EXPECT_TRUE(rows[1].starts_with("1,villages/a.csv,edge,1,converged,edge,-")) << rows[1];
    EXPECT_TRUE(rows[4].starts_with("3,villages/a.csv,stars.toml,1,converged,AS(2),")) << rows[4];
    EXPECT_TRUE(rows[18].starts_with("12,villages/c.csv,stars.toml,2,converged,AS(2),"));
    for (const char* file : {"result.json", "estimates.csv", "covariance.csv", "sample.csv",
                             "model.toml", "run.log", "inputs.json"}) {
        EXPECT_TRUE(scratch.exists(std::string("plan.results/jobs/0012/") + file)) << file;
    }
    const Json json = Json::parse(scratch.read("plan.results/summary.json"));
    EXPECT_EQ(json["format"], "ovri-summary/1");
    EXPECT_EQ(json["counts"]["converged"], 12);
    EXPECT_EQ(json["jobs"][2]["effects"][1]["name"], "AS(2)");
    ASSERT_EQ(json["pooled"].size(), 2U);
    EXPECT_EQ(json["pooled"][1]["model"], "stars.toml");
    EXPECT_EQ(json["pooled"][1]["effects"][1]["networks"], 3);
    EXPECT_EQ(json["pooled"][1]["effects"][1]["q_degrees"], 2);
    EXPECT_NE(result.out.find("12 jobs: 12 converged"), std::string::npos) << result.out;
}

TEST_F(ToolBatch, AJobIsWhatEstimateLeaves) {
    ASSERT_EQ(batch({}).status, 0) << result.err;
    result = run_tool({"estimate", "plan.results/jobs/0003/model.toml", "-o", "alone"},
                      scratch.path().string());
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(scratch.read("alone/sample.csv"), scratch.read("plan.results/jobs/0003/sample.csv"));
    EXPECT_EQ(scratch.read("alone/estimates.csv"),
              scratch.read("plan.results/jobs/0003/estimates.csv"));
}

TEST_F(ToolBatch, AJobDrawsTheBootstrapOfItsModelFileOrOfThePlan) {
    scratch.write("stars.toml", "[model]\neffects = [\"edge\"]\n[estimation]\nbootstrap = 4\n");
    scratch.write("plan.toml",
                  "networks = \"villages/a.csv\"\ndirected = false\nmodels = [[\"edge\"], "
                  "\"stars.toml\"]\nseeds = [1]\n");
    ASSERT_EQ(batch({"-o", "file"}).status, 0) << result.err;
    EXPECT_FALSE(scratch.exists("file/jobs/0001/bootstrap.csv"));
    EXPECT_EQ(lines_of(scratch.read("file/jobs/0002/bootstrap.csv")).size(), 5U);
    scratch.write("plan.toml", scratch.read("plan.toml") + "[settings]\nbootstrap = 3\n");
    // Jobs that were done without are done again.
    ASSERT_EQ(batch({"-o", "file"}).status, 0) << result.err;
    for (const char* job : {"0001", "0002"}) {
        const std::string folder = std::string("file/jobs/") + job;
        EXPECT_EQ(lines_of(scratch.read(folder + "/bootstrap.csv")).size(), 4U) << job;
        EXPECT_EQ(Json::parse(scratch.read(folder + "/result.json"))["bootstrap"]["replicates"], 3);
    }
}

TEST_F(ToolBatch, WorkersChangeNoByte) {
    const std::string whole = expected();
    for (const char* workers : {"1", "5"}) {
        const std::string folder = std::string("w") + workers;
        ASSERT_EQ(batch({"-o", folder, "--workers", workers}).status, 0) << result.err;
        EXPECT_EQ(summary(folder), whole) << workers;
        EXPECT_EQ(scratch.read(folder + "/jobs/0004/sample.csv"),
                  scratch.read("expected/jobs/0004/sample.csv"));
        EXPECT_EQ(scratch.read(folder + "/jobs/0004/model.toml"),
                  scratch.read("expected/jobs/0004/model.toml"));
    }
    // Nor does the directory from which the command is called.
    fs::create_directories(scratch.path() / "elsewhere");
    result = run_tool({"batch", "../plan.toml", "-o", "../far"},
                      (scratch.path() / "elsewhere").string());
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(summary("far"), whole);
    EXPECT_EQ(Json::parse(scratch.read("far/jobs/0001/result.json"))["network"],
              Json::parse(scratch.read("expected/jobs/0001/result.json"))["network"]);
}

TEST_F(ToolBatch, WhatIsDoneIsKeptAndWhatHasChangedIsDoneAgain) {
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    for (int job = 1; job <= 12; ++job) {
        scratch.write(
            "out/jobs/00" + std::string(job < 10 ? "0" : "") + std::to_string(job) + "/sample.csv",
            "kept");
    }
    fs::remove(scratch.path() / "out/jobs/0002/result.json");
    fs::remove(scratch.path() / "out/jobs/0003/inputs.json");
    scratch.write("out/jobs/0004/result.json", "{\"format\":");
    scratch.write("villages/b.csv", std::string(kVillage) + "Ben,Hal\nAnn,Ida\n");
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_TRUE(err_says("5 done before")) << result.err;
    const auto kept = [&](const char* job) {
        return scratch.read(std::string("out/jobs/") + job + "/sample.csv") == "kept";
    };
    for (const char* job : {"0001", "0009", "0012"}) {
        EXPECT_TRUE(kept(job)) << job;
    }
    for (const char* job : {"0002", "0003", "0004", "0005", "0008"}) {
        EXPECT_FALSE(kept(job)) << job;
    }
    ASSERT_EQ(batch({"-o", "out", "--overwrite"}).status, 0) << result.err;
    EXPECT_FALSE(kept("0012"));
}

TEST_F(ToolBatch, AKilledCoordinatorIsTakenUpAgain) {
    const std::string whole = expected();
    int killed = 0;
    for (const int milliseconds : {3, 10, 25, 60, 120}) {
        ChildSetting setting =
            child({OVRI_TOOL_PATH, "batch", "plan.toml", "-o", "out", "--workers", "2"});
        setting.limit = std::chrono::milliseconds(milliseconds);
        killed += run_child(setting).timed_out ? 1 : 0;
    }
    EXPECT_GT(killed, 0);
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_EQ(summary("out"), whole);
}

TEST_F(ToolBatch, JobsOfAnEarlierPlanAreNamedAndLeftOut) {
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_FALSE(err_says("no job of this plan")) << result.err;
    scratch.write("plan.toml",
                  "networks = \"villages/*.csv\"\ndirected = false\nmodels = [[\"edge\"]]\n"
                  "seeds = [1]\n");
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_TRUE(
        err_says("out/jobs holds what is no job of this plan and is left out: 0004, 0005, "
                 "0006, 0007, 0008, 0009, 0010, 0011, 0012"))
        << result.err;
    EXPECT_EQ(Json::parse(scratch.read("out/summary.json"))["counts"]["jobs"], 3);
}

// A plan whose jobs take some tenths of a second, so that they can be met at work.
class LongBatch : public ToolBatch {
  protected:
    LongBatch() {
        scratch.write("plan.toml",
                      "networks = \"villages/*.csv\"\ndirected = false\nmodels = "
                      "[[\"edge\"]]\nseeds = [1]\n[settings]\nsamples = 10000\n"
                      "method = \"stochastic-approximation\"\n");
    }
    // Begins the plan with one worker, waits for the worker and does something with `$pid` (the
    // coordinator) and `$worker`; the status of the batch is printed.
    ChildResult disturb(const std::string& deed) const {
        return shell(
            "env --default-signal=INT \"$OVRI\" batch plan.toml -o out --workers 1 >log 2>&1 & "
            "pid=$!\n"
            "worker=\n"
            "while [ -z \"$worker\" ] && kill -0 $pid; do "
            "worker=$(cat /proc/$pid/task/$pid/children 2>/dev/null); done\n" +
            deed + "\nwait $pid\necho \"status $?\"\n");
    }
    void skip_without_children() const {
        if (!fs::exists("/proc/self/task/" + std::to_string(::getpid()) + "/children")) {
            GTEST_SKIP() << "this system does not list the children of a process";
        }
    }
};

TEST_F(LongBatch, AKilledWorkerStopsNoOther) {
    skip_without_children();
    if (IsSkipped()) {
        return;
    }
    const std::string whole = expected();
    const ChildResult killed = disturb("kill -9 $worker");
    EXPECT_EQ(killed.output, "status 3\n") << killed.errors << scratch.read("log");
    EXPECT_NE(scratch.read("log").find("was ended by signal 9"), std::string::npos);
    const Json json = Json::parse(scratch.read("out/summary.json"));
    EXPECT_EQ(json["counts"]["not_completed"], 1);
    EXPECT_EQ(json["counts"]["converged"], 2);
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_TRUE(err_says("2 done before")) << result.err;
    EXPECT_EQ(summary("out"), whole);
}

TEST_F(LongBatch, OneCommandAtATimeDoesTheJobsOfAFolder) {
    skip_without_children();
    if (IsSkipped()) {
        return;
    }
    const ChildResult both =
        disturb("\"$OVRI\" batch plan.toml -o out 2>second; echo \"second $?\"");
    EXPECT_EQ(both.output, "second 1\nstatus 0\n") << both.errors << scratch.read("log");
    EXPECT_NE(scratch.read("second").find("another `ovri batch` is doing the jobs of `out`"),
              std::string::npos)
        << scratch.read("second");
}

TEST_F(LongBatch, CtrlCKeepsWhatIsDone) {
    skip_without_children();
    if (IsSkipped()) {
        return;
    }
    const std::string whole = expected();
    const ChildResult stopped = disturb("kill -INT $pid");
    EXPECT_EQ(stopped.output, "status 130\n") << stopped.errors << scratch.read("log");
    EXPECT_FALSE(scratch.exists("out/summary.csv"));
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_EQ(summary("out"), whole);
}

TEST_F(LongBatch, WorkersDieWithTheirCoordinator) {
    skip_without_children();
    if (IsSkipped()) {
        return;
    }
    const ChildResult killed = disturb(
        "kill -9 $pid\nwhile [ -d /proc/$worker ] && ! grep -q '^State:.[ZX]' "
        "/proc/$worker/status; do :; done");
    EXPECT_EQ(killed.output, "status 137\n") << killed.errors;
    EXPECT_FALSE(scratch.exists("out/jobs/0003/result.json"));
}

TEST_F(ToolBatch, JobsByThemselvesMergeToTheSameSummary) {
    const std::string whole = expected();
    for (int job = 12; job >= 1; --job) {
        EXPECT_EQ(batch({"-o", "out", "--job", std::to_string(job)}).status, 0) << result.err;
        if (job == 7) {
            EXPECT_EQ(batch({"-o", "out", "--collect"}).status, 3);
            EXPECT_NE(
                scratch.read("out/summary.csv").find("\n1,villages/a.csv,edge,1,not_completed,,"),
                std::string::npos);
        }
    }
    EXPECT_EQ(summary("out"), whole);
    EXPECT_EQ(batch({"-o", "out", "--job", "13"}).status, 2);
    EXPECT_EQ(batch({"-o", "nowhere", "--collect"}).status, 1);
}

TEST_F(ToolBatch, MakeCarriesThePlanOut) {
    if (!is_installed("make")) {
        GTEST_SKIP() << "make is not installed";
    }
    const std::string whole = expected();
    ASSERT_EQ(batch({"-o", "out dir", "--emit", "make"}).status, 0) << result.err;
    const ChildResult made = shell("cd 'out dir' && make -j2");
    EXPECT_EQ(made.status, 0) << made.output << made.errors;
    EXPECT_EQ(summary("out dir"), whole);
}

TEST_F(ToolBatch, GnuParallelCarriesThePlanOut) {
    if (!is_installed("parallel")) {
        GTEST_SKIP() << "GNU parallel is not installed";
    }
    const std::string whole = expected();
    ASSERT_EQ(batch({"-o", "out dir", "--emit", "parallel"}).status, 0) << result.err;
    const ChildResult done = shell("HOME=\"$PWD\" './out dir/run.sh'");
    EXPECT_EQ(done.status, 0) << done.output << done.errors;
    EXPECT_EQ(lines_of(scratch.read("out dir/joblog.tsv")).size(), 13U);
    EXPECT_EQ(summary("out dir"), whole);
}

TEST_F(ToolBatch, SlurmIsAskedForAnArrayWithTimeAndMemory) {
    ASSERT_EQ(batch({"-o", "out", "--emit", "slurm"}).status, 0) << result.err;
    const std::string array = scratch.read("out/array.sh");
    EXPECT_NE(array.find("#SBATCH --array=1-12\n"), std::string::npos) << array;
    EXPECT_NE(array.find("#SBATCH --time="), std::string::npos) << array;
    EXPECT_NE(array.find("#SBATCH --mem="), std::string::npos) << array;
    EXPECT_EQ(lines_of(scratch.read("out/jobs.tsv")).size(), 13U);
    // A task of the array, as the scheduler would start it, does its job and no other.
    const ChildResult task = shell("cd out && SLURM_ARRAY_TASK_ID=4 sh ./array.sh");
    EXPECT_EQ(task.status, 0) << task.errors;
    EXPECT_TRUE(scratch.exists("out/jobs/0004/result.json"));
    EXPECT_FALSE(scratch.exists("out/jobs/0005"));
    EXPECT_EQ(shell("sh -n out/submit.sh && sh -n out/collect.sh").status, 0);
}

TEST_F(ToolBatch, SlurmIsAskedForTheTimeOfABootstrap) {
    scratch.write("plan.toml", std::string(kPlan) + "bootstrap = 1000000\n");
    ASSERT_EQ(batch({"-o", "out", "--emit", "slurm"}).status, 0) << result.err;
    const std::string asked = "#SBATCH --time=";
    const std::string array = scratch.read("out/array.sh");
    const std::size_t place = array.find(asked);
    ASSERT_NE(place, std::string::npos) << array;
    // A million replicates of a millisecond each, at the least.
    EXPECT_GT(std::stod(array.substr(place + asked.size())), 16.0) << array;
}

TEST_F(ToolBatch, NetworksThatDidNotConvergeAreLeftOutOfThePool) {
    scratch.write("villages/d.csv", "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\n");
    EXPECT_EQ(batch({}).status, 4) << result.out << result.err;
    const Json json = Json::parse(scratch.read("plan.results/summary.json"));
    EXPECT_EQ(json["jobs"][12]["verdict"], "not_identified");
    EXPECT_EQ(json["pooled"][0]["effects"][0]["networks"], 3);
    ASSERT_EQ(json["pooled"][0]["left_out"].size(), 1U);
    EXPECT_EQ(json["pooled"][0]["left_out"][0]["network"], "villages/d.csv");
    EXPECT_NE(result.out.find("left out: villages/d.csv (not_identified)"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("not identified: 0013, 0014, 0015, 0016\n"), std::string::npos)
        << result.out;
}

TEST_F(ToolBatch, TheReportDrawsEachParameterOverTheNetworks) {
    scratch.write("villages/d.csv", "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\n");
    EXPECT_EQ(batch({"-o", "out"}).status, 4) << result.err;
    result = run_tool({"report", "out", "--figures", "svg"}, scratch.path().string());
    ASSERT_EQ(result.status, 0) << result.err;
    const std::string page = scratch.read("out/report.html");
    for (const char* piece :
         {"12 of 16 jobs converged", "id=\"pooled-1-edge\"", "id=\"pooled-2-AS-2\"",
          ">villages/a.csv</text>", "left out, without estimates to be used: 1",
          "Snijders and Baerveldt 2003", "not_identified"}) {
        EXPECT_NE(page.find(piece), std::string::npos) << piece;
    }
    EXPECT_EQ(page.find(">villages/d.csv</text>"), std::string::npos);
    // Every network's estimate stands in the figure as in the summary.
    const Json json = Json::parse(scratch.read("out/summary.json"));
    EXPECT_EQ(json["pooled"][1]["effects"][1]["networks"], 3);
    const std::string figure = scratch.read("out/figures/pooled-2-AS-2.svg");
    std::size_t networks = 0;
    for (std::size_t at = figure.find("<title>villages/"); at != std::string::npos;
         at = figure.find("<title>villages/", at + 1)) {
        ++networks;
    }
    EXPECT_EQ(networks, 3U);
    fs::remove(scratch.path() / "out/summary.json");
    result = run_tool({"report", "out", "--overwrite"}, scratch.path().string());
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(err_says("ovri batch PLAN --collect -o out")) << result.err;
}

TEST_F(ToolBatch, AFullDiskLeavesJobsToBeDoneAgain) {
    const std::string whole = expected();
    // Files of more than a block or two cannot be written: a disk that is as good as full.
    const ChildResult full =
        shell("ulimit -f 1 && exec \"$OVRI\" batch plan.toml -o out --workers 1");
    EXPECT_EQ(full.status, 3) << full.output << full.errors;
    EXPECT_NE(full.errors.find("could not be written"), std::string::npos) << full.errors;
    EXPECT_FALSE(scratch.exists("out/jobs/0001/result.json"));
    EXPECT_FALSE(scratch.exists("out/jobs/0012/result.json"));
    EXPECT_FALSE(scratch.exists("out/summary.csv"));
    ASSERT_EQ(batch({"-o", "out"}).status, 0) << result.err;
    EXPECT_EQ(summary("out"), whole);
}

TEST_F(ToolBatch, StandardOutputIsTheSummaryWhereThatIsAskedFor) {
    ASSERT_EQ(batch({"-o", "out", "--quiet", "--json"}).status, 0) << result.err;
    EXPECT_EQ(result.out, scratch.read("out/summary.json"));
    EXPECT_EQ(result.err, "");
    ASSERT_EQ(batch({"-o", "out", "--quiet", "--csv", "--collect"}).status, 0) << result.err;
    EXPECT_EQ(result.out, scratch.read("out/summary.csv"));
}

TEST_F(ToolBatch, AFolderThatCannotBeMadeStopsOnlyItsJob) {
    EXPECT_EQ(batch({"-o", "plan.toml/out"}).status, 1);
    EXPECT_TRUE(err_says("name another")) << result.err;
    EXPECT_EQ(batch({"-o", "villages"}).status, 1);
    EXPECT_TRUE(err_says("holds no jobs")) << result.err;
    fs::create_directories(scratch.path() / "out/jobs");
    scratch.write("out/jobs/0002", "in the way");
    EXPECT_EQ(batch({"-o", "out"}).status, 3) << result.err;
    EXPECT_TRUE(err_says("job 0002 was not completed")) << result.err;
    EXPECT_EQ(Json::parse(scratch.read("out/summary.json"))["counts"]["converged"], 11);
}

TEST_F(ToolBatch, APlanWithErrorsBeginsNothing) {
    scratch.write("plan.toml",
                  "networks = \"villages/*.csv\"\nmodels = [[\"edge\", \"triangel\"]]\n"
                  "seeds = [1]\ndirected = false\n");
    EXPECT_EQ(batch({}).status, 1);
    EXPECT_TRUE(err_says("plan.toml:2:21: ")) << result.err;
    EXPECT_TRUE(err_says("`triangle`")) << result.err;
    EXPECT_TRUE(err_says("(network `villages/a.csv` and 2 more)")) << result.err;
    scratch.write("plan.toml", std::string(kPlan) + "attemps = 3\n");
    EXPECT_EQ(batch({}).status, 1);
    EXPECT_TRUE(err_says("plan.toml:9:1: ")) << result.err;
    EXPECT_TRUE(err_says("`attempts`")) << result.err;
    scratch.write("plan.toml", kPlan);
    scratch.write("villages/b.csv", "from,to\nAnn,Ben\nBen\n");
    EXPECT_EQ(batch({}).status, 1);
    EXPECT_TRUE(err_says("villages/b.csv:3")) << result.err;
    EXPECT_FALSE(scratch.exists("plan.results"));
    EXPECT_EQ(result.out, "");
}

TEST_F(ToolBatch, WordsThatContradictEachOtherAreNotUnderstood) {
    EXPECT_EQ(run_tool({"batch"}, scratch.path().string()).status, 2);
    EXPECT_EQ(batch({"--job", "1", "--collect"}).status, 2);
    EXPECT_EQ(batch({"--job", "1", "--emit", "make"}).status, 2);
    EXPECT_EQ(batch({"--emit", "mak"}).status, 2);
    EXPECT_EQ(batch({"--json", "--csv"}).status, 2);
    EXPECT_FALSE(scratch.exists("plan.results"));
}
