// "ovri simulate", driven as a person would.
#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ToolSimulate : public ToolTest {
  protected:
    ToolSimulate() {
        scratch.write("ring.csv",
                      "from,to\nAnn,Ben\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nFay,Ann\n");
        scratch.write("ring.toml",
                      "[network]\nfile = \"ring.csv\"\ndirected = false\n[model]\neffects = "
                      "[\"edge\"]\nstart = { edge = -0.5 }\n[simulation]\nsamples = 5\n[run]\nseed "
                      "= 2\n");
    }
    const ToolResult& ovri(const std::vector<std::string>& words) {
        result = run_tool(words, scratch.path().string());
        return result;
    }
    Json document(const std::string& folder) const {
        return Json::parse(scratch.read(folder + "/result.json"));
    }
};

long lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

}  // namespace

TEST_F(ToolSimulate, WritesNetworksAndTheirStatistics) {
    ASSERT_EQ(ovri({"simulate", "ring.toml"}).status, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("effect ")) << result.out;
    EXPECT_NE(result.out.find("5 networks, seed 2\nresults: ring.results\n"), std::string::npos)
        << result.out;
    const std::string sample = scratch.read("ring.results/sample.csv");
    EXPECT_EQ(lines(sample), 6);
    // The statistic of the first network is its number of ties.
    const long ties = lines(scratch.read("ring.results/networks/0001.csv")) - 1;
    EXPECT_TRUE(sample.starts_with("chain,draw,edge\n1,1," + std::to_string(ties) + "\n"))
        << sample;
    EXPECT_TRUE(scratch.exists("ring.results/networks/0005.csv"));
    EXPECT_FALSE(scratch.exists("ring.results/networks/0006.csv"));
    const Json json = document("ring.results");
    EXPECT_EQ(json["command"], "simulate");
    EXPECT_TRUE(json["verdict"].is_null());
    EXPECT_EQ(json["effects"][0]["estimate"], -0.5);
    EXPECT_EQ(json["effects"][0]["observed"], 6.0);
}

TEST_F(ToolSimulate, AResultsFolderIsSimulatedAtItsEstimates) {
    ASSERT_EQ(ovri({"estimate", "ring.toml"}).status, 0) << result.out << result.err;
    ASSERT_EQ(
        ovri({"simulate", "ring.results", "--samples", "400", "-o", "drawn", "--json"}).status, 0)
        << result.err;
    EXPECT_EQ(result.out, scratch.read("drawn/result.json"));
    const Json effect = document("drawn")["effects"][0];
    EXPECT_EQ(effect["estimate"], document("ring.results")["effects"][0]["estimate"]);
    // A mean of 400 draws of 15 dyads at density 0.4.
    EXPECT_NEAR(effect["simulated_mean"].get<double>(), 6.0, 0.6);
}

TEST_F(ToolSimulate, TheFormatIsTheOneAskedForAndTheSeedRepeats) {
    for (const char* folder : {"one", "two"}) {
        ASSERT_EQ(ovri({"simulate", "--network", "ring.csv", "--undirected", "--effects",
                        "edge,AT(2)", "--values", "edge=-1,AT(2)=0.5", "--samples", "3", "--seed",
                        "9", "--format", "matrix", "-o", folder})
                      .status,
                  0)
            << result.err;
    }
    EXPECT_EQ(scratch.read("one/networks/0003.txt"), scratch.read("two/networks/0003.txt"));
    EXPECT_EQ(lines(scratch.read("one/networks/0001.txt")), 7);
    ASSERT_EQ(ovri({"simulate", "one/model.toml", "--format", "matrix", "-o", "three"}).status, 0)
        << result.err;
    EXPECT_EQ(scratch.read("one/networks/0003.txt"), scratch.read("three/networks/0003.txt"));
}

TEST_F(ToolSimulate, ValuesThatAreMissingOrUnknownAreErrors) {
    EXPECT_EQ(ovri({"simulate", "ring.toml", "--effects", "edge,AT(2)"}).status, 1);
    EXPECT_NE(result.err.find("effect `AT(2)`: found no value"), std::string::npos) << result.err;
    EXPECT_EQ(ovri({"simulate", "ring.toml", "--values", "triangle=1"}).status, 1);
    fs::create_directory(scratch.path() / "half.results");
    EXPECT_EQ(ovri({"simulate", "half.results"}).status, 1);
    EXPECT_EQ(ovri({"simulate", "ring.toml", "--format", "picture"}).status, 2);
    EXPECT_FALSE(scratch.exists("ring.results"));
}

TEST_F(ToolSimulate, OverwritesResultsAloneAndNeverWhatItReads) {
    ASSERT_EQ(ovri({"simulate", "ring.toml", "-o", "drawn"}).status, 0) << result.err;
    EXPECT_EQ(ovri({"simulate", "ring.toml", "-o", "drawn", "--overwrite"}).status, 0);
    // A folder of the user's own, though its files bear names that results have too.
    scratch.write("mine/model.toml", "# my notes\n");
    scratch.write("mine/networks/a.csv", "from,to\nAnn,Ben\n");
    EXPECT_EQ(ovri({"simulate", "ring.toml", "-o", "mine", "--overwrite"}).status, 1);
    EXPECT_NE(result.err.find("other things than results"), std::string::npos) << result.err;
    EXPECT_EQ(scratch.read("mine/model.toml"), "# my notes\n");
    EXPECT_TRUE(scratch.exists("mine/networks/a.csv"));
    // Results that the run itself reads.
    EXPECT_EQ(ovri({"simulate", "drawn", "-o", "drawn", "--overwrite"}).status, 1);
    EXPECT_NE(result.err.find("which this run reads"), std::string::npos) << result.err;
    EXPECT_TRUE(scratch.exists("drawn/result.json"));
}

TEST_F(ToolSimulate, NoNetworksAtAllAreNotUnderstood) {
    EXPECT_EQ(ovri({"simulate", "ring.toml", "--samples", "0"}).status, 2);
    EXPECT_EQ(ovri({"gof", "ring.toml", "--samples", "1"}).status, 2);
    EXPECT_FALSE(scratch.exists("ring.results"));
}

TEST_F(ToolSimulate, TheModelOfTheResultsDrawsTheSameNetworksAgain) {
    ASSERT_EQ(ovri({"simulate", "ring.toml", "--samples", "3", "--format", "pajek", "--seed", "9",
                    "--values", "edge=-1", "-o", "a"})
                  .status,
              0)
        << result.err;
    const std::string model = scratch.read("a/model.toml");
    for (const char* piece : {"samples = 3\n", "format = \"pajek\"\n", "seed = 9\n"}) {
        EXPECT_NE(model.find(piece), std::string::npos) << model;
    }
    const std::string log = scratch.read("a/run.log");
    EXPECT_NE(log.find("command: ovri simulate ring.toml --samples 3 --format pajek --seed 9 "
                       "--values edge=-1 -o a\n"),
              std::string::npos)
        << log;
    // What the chain chose stands there, too.
    const std::size_t simulation = model.find("[simulation]");
    EXPECT_EQ(model.find("burn_in = 0\n", simulation), std::string::npos) << model;
    EXPECT_EQ(model.find("interval = 0\n", simulation), std::string::npos) << model;
    ASSERT_EQ(ovri({"simulate", "a/model.toml", "-o", "b"}).status, 0) << result.err;
    EXPECT_EQ(scratch.read("a/sample.csv"), scratch.read("b/sample.csv"));
    EXPECT_EQ(scratch.read("a/networks/0003.net"), scratch.read("b/networks/0003.net"));
}

TEST_F(ToolSimulate, ActorsWithoutTiesAreInANodesFile) {
    ASSERT_EQ(ovri({"simulate", "ring.toml", "--values", "edge=-3", "-o", "a"}).status, 0);
    EXPECT_NE(result.err.find("whom an edge list leaves out: read them with --nodes a/nodes.csv"),
              std::string::npos)
        << result.err;
    EXPECT_EQ(scratch.read("a/nodes.csv"), "actor\nAnn\nBen\nCid\nDot\nEve\nFay\n");
    ASSERT_EQ(
        ovri({"simulate", "ring.toml", "--values", "edge=-3", "--format", "dl", "-o", "b"}).status,
        0);
    EXPECT_FALSE(scratch.exists("b/nodes.csv"));
    EXPECT_EQ(result.err.find("leaves out"), std::string::npos) << result.err;
    // A nodes file of the model's own serves.
    ASSERT_EQ(
        ovri({"simulate", "ring.toml", "--nodes", "a/nodes.csv", "--values", "edge=-3", "-o", "c"})
            .status,
        0);
    EXPECT_NE(result.err.find("with --nodes a/nodes.csv"), std::string::npos) << result.err;
    EXPECT_FALSE(scratch.exists("c/nodes.csv"));
}
