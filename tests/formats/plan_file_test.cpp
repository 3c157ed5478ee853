// Plans of many runs: what they say, and what is wrong with them.
#include "formats/plan_file.h"

#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace {

class PlanFile : public testing::Test {
  protected:
    PlanFile() {
        for (const char* name : {"v/1.csv", "v/2.csv", "v/1.nodes.csv", "v/2.nodes.csv"}) {
            std::filesystem::create_directories(scratch.path() / "v");
            scratch.write(name, "a,b\n");
        }
        scratch.write("closure.toml",
                      "[network]\nthreshold = 2\n[model]\neffects = [\"edge\"]\n[estimation]\n"
                      "attempts = 7\nsamples = 50\n");
    }
    Plan read(const std::string& text) const {
        return read_plan(text_file_of((scratch.path() / "plan.toml").string(), text));
    }
    // The one problem of a plan that is whole but for one thing.
    Problem problem_of(const std::string& text) const {
        const Plan plan = read(text);
        EXPECT_EQ(plan.problems.size(), 1U) << text;
        for (const Problem& each : plan.problems) {
            EXPECT_FALSE(each.file.empty() || each.found.empty() || each.expected.empty() ||
                         each.mend.empty())
                << problem_text(each);
        }
        return plan.problems.empty() ? Problem() : plan.problems[0];
    }
    std::string path(const std::string& name) const { return (scratch.path() / name).string(); }

    ScratchDirectory scratch;
};

constexpr const char* kRest = "models = [[\"edge\"]]\nseeds = [1]\n";

TEST_F(PlanFile, SaysEverything) {
    const Plan plan = read(
        "networks = \"v/*.csv\"\nnodes = \"v/*.nodes.csv\"\ndirected = true\n"
        "models = [[\"edge\", \"as(2.0)\"], \"closure.toml\"]\nseeds = [3, 1]\n"
        "[settings]\nsamples = 80\nthreads = 2\n");
    ASSERT_TRUE(plan.ok()) << problem_text(plan.problems[0]);
    ASSERT_EQ(plan.networks.size(), 2U);
    EXPECT_EQ(plan.networks[1].name, "v/2.csv");
    EXPECT_EQ(plan.networks[1].file, path("v/2.csv"));
    EXPECT_EQ(plan.networks[1].nodes, path("v/2.nodes.csv"));
    EXPECT_EQ(plan.directed, true);
    EXPECT_EQ(plan.seeds, (std::vector<std::uint32_t>{3, 1}));
    ASSERT_EQ(plan.models.size(), 2U);
    EXPECT_EQ(plan.models[0].name, "edge,as(2)");
    EXPECT_EQ(plan.models[0].model.effect_places[1].line, 4);
    EXPECT_EQ(plan.models[1].name, "closure.toml");
    EXPECT_EQ(plan.models[1].model.network.options.threshold, 2.0);
}

TEST_F(PlanFile, SettingsTakeThePlaceOfThoseThatAModelFileWrites) {
    const Plan plan = read(
        "networks = \"v/1.csv\"\nmodels = [[\"edge\"], \"closure.toml\"]\nseeds = [1]\n"
        "[settings]\nsamples = 80\nbootstrap = 20\nmethod = \"stochastic-approximation\"\n");
    ASSERT_TRUE(plan.ok());
    const StudyEstimation& listed = plan.models[0].model.settings.estimation;
    const StudyEstimation& written = plan.models[1].model.settings.estimation;
    EXPECT_EQ(listed.samples, 80);
    EXPECT_EQ(listed.attempts, StudyEstimation().attempts);
    EXPECT_EQ(written.samples, 80);
    EXPECT_EQ(written.bootstrap, 20);
    EXPECT_EQ(written.attempts, 7);
    EXPECT_EQ(written.method, EstimationMethod::stochastic_approximation);
}

TEST_F(PlanFile, ASeriesOfSeedsIsCounted) {
    const Plan plan = read(
        "networks = \"v/1.csv\"\nmodels = [[\"edge\"]]\nseeds = { from = 4294967293, count = 3 }");
    ASSERT_TRUE(plan.ok());
    EXPECT_EQ(plan.seeds, (std::vector<std::uint32_t>{4294967293U, 4294967294U, 4294967295U}));
}

TEST_F(PlanFile, OneNodesFileServesEveryNetwork) {
    const Plan plan = read(
        std::string("networks = [\"v/2.csv\", \"v/1.csv\"]\nnodes = \"v/1.nodes.csv\"\n") + kRest);
    ASSERT_TRUE(plan.ok());
    EXPECT_EQ(plan.networks[0].name, "v/2.csv");
    EXPECT_EQ(plan.networks[0].nodes, path("v/1.nodes.csv"));
    EXPECT_EQ(plan.networks[1].nodes, path("v/1.nodes.csv"));
}

TEST_F(PlanFile, ProblemsNameLineAndColumn) {
    const std::string networks = "networks = \"v/1.csv\"\n";
    Problem problem = problem_of("networks = \"w/*.csv\"\n" + std::string(kRest));
    EXPECT_EQ(problem_place(problem), path("plan.toml") + ":1:12");
    EXPECT_EQ(problem.field, "`networks`");
    problem = problem_of(networks + "modls = [[\"edge\"]]\n" + kRest);
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.found, "the unknown key `modls`");
    EXPECT_EQ(problem.mend, "a similar one is `models`");
    problem = problem_of(networks + "models = [[\"edge\", \"AT(\"]]\nseeds = [1]\n");
    EXPECT_EQ(problem.line, 2);
    EXPECT_GT(problem.column, 20);
    problem = problem_of(networks + kRest + "[settings]\nattemps = 3\n");
    EXPECT_EQ(problem.line, 5);
    EXPECT_EQ(problem.mend, "a similar one is `attempts`");
    problem = problem_of(networks + kRest + "[settings]\nattempts = 0\n");
    EXPECT_EQ(problem.line, 5);
    EXPECT_EQ(problem.column, 12);
    problem = problem_of(networks + "models = [\"absent.toml\"]\nseeds = [1]\n");
    EXPECT_EQ(problem.line, 2);
    EXPECT_NE(problem.found.find("absent.toml"), std::string::npos);
}

TEST_F(PlanFile, WhatCannotBeMeantIsAProblem) {
    const std::string networks = "networks = \"v/1.csv\"\n";
    const std::string models = "models = [[\"edge\"]]\n";
    problem_of(models + "seeds = [1]\n");
    problem_of(networks + "seeds = [1]\n");
    problem_of(networks + models);
    problem_of(networks + models + "seeds = 1\n");
    problem_of(networks + models + "seeds = [1, 1]\n");
    problem_of(networks + models + "seeds = [-1]\n");
    problem_of(networks + models + "seeds = { from = 1 }\n");
    problem_of(networks + models + "seeds = { from = 4294967295, count = 2 }\n");
    problem_of(networks + "models = []\nseeds = [1]\n");
    problem_of(networks + "models = [[]]\nseeds = [1]\n");
    problem_of(networks + "models = [[\"edge\"], [\"edge\"]]\nseeds = [1]\n");
    problem_of(networks + "models = [3]\nseeds = [1]\n");
    problem_of("networks = [\"v/1.csv\", \"v/?.csv\"]\nnodes = \"v/1.nodes.csv\"\n" + models +
               "seeds = [1]\n");
    problem_of("networks = [\"v/1.csv\"]\nnodes = \"v/*.nodes.csv\"\n" + models + "seeds = [1]\n");
    problem_of(networks + models + "seeds = [1]\nsettings = 1\n");
    problem_of(networks + models + "seeds = [1]\n[settings]\nsamples = 1\n");
    problem_of("networks = \n");
}

TEST_F(PlanFile, ProblemsOfAModelFileAreThoseOfThatFile) {
    scratch.write("closure.toml", "[model]\neffects = [\"edge\"]\nstrat = 1\n");
    const Problem problem =
        problem_of("networks = \"v/1.csv\"\nmodels = [\"closure.toml\"]\nseeds = [1]\n");
    EXPECT_EQ(problem_place(problem), path("closure.toml") + ":3:1");
}

}  // namespace
