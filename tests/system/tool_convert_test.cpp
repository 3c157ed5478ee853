// "ovri convert": networks between formats, model files and setup files both ways.
#include <filesystem>
#include <sstream>

#include "support/golden_cases.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kFriends =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nDot,Fay\nEve,Fay\n";

class ToolConvert : public ToolTest {
  protected:
    ToolConvert() { scratch.write("friends.csv", kFriends); }

    const ToolResult& convert(std::vector<std::string> words) {
        words.insert(words.begin(), "convert");
        result = run_tool(words, scratch.path().string());
        return result;
    }
    bool err_says(const std::string& piece) const {
        return result.err.find(piece) != std::string::npos;
    }
};

}  // namespace

TEST_F(ToolConvert, NetworksGoThroughEveryFormatAndBack) {
    const ToolResult matrix = convert({"friends.csv", "-", "--undirected", "--to", "matrix"});
    ASSERT_EQ(matrix.status, 0) << matrix.err;
    EXPECT_TRUE(matrix.out.starts_with(",Ann,Ben,Cid,Dot,Eve,Fay\nAnn,0,1,1,0,0,0\n"))
        << matrix.out;
    for (const std::string extension : {"net", "graphml", "gml", "dl", "matrix"}) {
        const std::string file = "friends." + extension;
        convert({"friends.csv", file, "--undirected"});
        ASSERT_EQ(result.status, 0) << result.err;
        convert({file, "-", "--to", "edge-list"});
        if (result.status == 1 && err_says("no igraph")) {
            continue;
        }
        ASSERT_EQ(result.status, 0) << file << result.err;
        EXPECT_EQ(result.out, kFriends) << file;
    }
    EXPECT_EQ(convert({"friends.csv", "-", "--undirected", "--to", "dot"}).status, 0);
    EXPECT_TRUE(has(result.out, "\"Ann\" -- \"Ben\";")) << result.out;
}

TEST_F(ToolConvert, NothingThatIsThereIsReplacedUnasked) {
    scratch.write("friends.net", "mine");
    EXPECT_EQ(convert({"friends.csv", "friends.net"}).status, 1);
    EXPECT_TRUE(err_says("friends.net exists")) << result.err;
    EXPECT_EQ(scratch.read("friends.net"), "mine");
    EXPECT_EQ(convert({"friends.csv", "friends.net", "--overwrite"}).status, 0);
    EXPECT_TRUE(scratch.read("friends.net").starts_with("*Vertices 6\n"));
    // Data files beside a setup file count as well.
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\"]\n");
    scratch.write("m_network.txt", "mine");
    EXPECT_EQ(convert({"m.toml", "m.setup"}).status, 1);
    EXPECT_TRUE(err_says("m_network.txt exists")) << result.err;
    EXPECT_FALSE(scratch.exists("m.setup"));
    EXPECT_EQ(scratch.read("m_network.txt"), "mine");
}

TEST_F(ToolConvert, ANameThatTellsNoFormatIsNotUnderstood) {
    for (const char* out : {"friends.xyz", "friends", "friends.xlsx"}) {
        EXPECT_EQ(convert({"friends.csv", out}).status, 2) << out;
        EXPECT_TRUE(err_says("tells no format; end it in .csv")) << result.err;
        EXPECT_TRUE(err_says(".graphml")) << result.err;
        EXPECT_FALSE(scratch.exists(out));
    }
    EXPECT_EQ(convert({"friends.csv", "friends.xyz", "--to", "matrix"}).status, 0) << result.err;
    EXPECT_TRUE(scratch.read("friends.xyz").starts_with(",Ann,"));
    EXPECT_EQ(convert({"friends.csv", "friends.tsv"}).status, 0) << result.err;
    EXPECT_TRUE(scratch.read("friends.tsv").starts_with("from\tto\nAnn\tBen\n"));
    // A model file becomes a setup file, whatever its name; that of a network is a mistake.
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\"]\n");
    EXPECT_EQ(convert({"m.toml", "m.graphml"}).status, 2);
    EXPECT_TRUE(err_says("`m.toml` is a model file")) << result.err;
    EXPECT_FALSE(scratch.exists("m.graphml"));
}

TEST_F(ToolConvert, WhatOutCannotHoldIsKeptBesideIt) {
    scratch.write("four.dl",
                  "DL n=4\nformat=fullmatrix\nlabels:\nAnn,\"Ben, B\",Cid,Dot\ndata:\n"
                  "0 1 0 0\n1 0 1 0\n0 1 0 0\n0 0 0 0\n");
    ASSERT_EQ(convert({"four.dl", "four.csv"}).status, 0) << result.err;
    EXPECT_TRUE(
        err_says("leaves out 1 actor without ties; they are in four_nodes.csv: read it "
                 "with --nodes four_nodes.csv"))
        << result.err;
    EXPECT_EQ(scratch.read("four_nodes.csv"), "actor\nAnn\n\"Ben, B\"\nCid\nDot\n");
    ASSERT_EQ(convert({"four.csv", "-", "--nodes", "four_nodes.csv", "--undirected", "--to", "dl"})
                  .status,
              0)
        << result.err;
    EXPECT_TRUE(result.out.ends_with("0 1 0 0\n1 0 1 0\n0 1 0 0\n0 0 0 0\n")) << result.out;
    // Whoever has a nodes file is told of it, and gets none.
    ASSERT_EQ(convert({"four.csv", "five.csv", "--nodes", "four_nodes.csv"}).status, 0);
    EXPECT_TRUE(err_says("read it with --nodes four_nodes.csv")) << result.err;
    EXPECT_FALSE(scratch.exists("five_nodes.csv"));
    ASSERT_EQ(convert({"four.dl", "-"}).status, 0);
    EXPECT_TRUE(err_says("standard output: edge-list leaves out 1 actor without ties"))
        << result.err;
    // A nodes file that is there stays.
    scratch.write("six_nodes.csv", "mine");
    EXPECT_EQ(convert({"four.dl", "six.csv"}).status, 1);
    EXPECT_EQ(scratch.read("six_nodes.csv"), "mine");
    EXPECT_FALSE(scratch.exists("six.csv"));
}

TEST_F(ToolConvert, AttributesOfAFileGoIntoANodesFile) {
    scratch.write("two.gml",
                  "graph [ directed 0\n node [ id 1 label \"Ann\" age 30 ]\n node [ id 2 label "
                  "\"Ben\" age 41 ]\n edge [ source 1 target 2 ] ]\n");
    if (convert({"two.gml", "two.csv"}).status == 1 && err_says("no igraph")) {
        GTEST_SKIP() << "no igraph";
    }
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(err_says("leaves out the attributes `age`")) << result.err;
    EXPECT_EQ(scratch.read("two_nodes.csv"), "actor,age\nAnn,30\nBen,41\n");
}

TEST_F(ToolConvert, NamesThatAFormatCannotWriteAreTold) {
    scratch.write("quotes.csv", "from,to\n\"Ann \"\"A\"\"\",Ben\nBen,Cid\n");
    for (const char* out : {"quotes.net", "quotes.dl"}) {
        ASSERT_EQ(convert({"quotes.csv", out, "--undirected"}).status, 0) << result.err;
        EXPECT_TRUE(err_says("apostrophes")) << result.err;
        EXPECT_TRUE(has(scratch.read(out), "\"Ann 'A'\"")) << scratch.read(out);
    }
    ASSERT_EQ(convert({"quotes.csv", "quotes.graphml", "--undirected"}).status, 0);
    EXPECT_FALSE(err_says("apostrophes")) << result.err;
    // Two names that would become one are not written.
    scratch.write("alike.csv", "from,to\n\"Ann \"\"A\"\"\",Ben\nAnn 'A',Ben\n");
    EXPECT_EQ(convert({"alike.csv", "alike.net", "--undirected"}).status, 1);
    EXPECT_TRUE(err_says("the name of two actors")) << result.err;
    EXPECT_FALSE(scratch.exists("alike.net"));
}

TEST_F(ToolConvert, ActorsKeepTheirNamesThereAndBack) {
    scratch.write("distance.csv", "from,to,value\nAnn,Fay,2.5\n");
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[covariates]\ndistance = "
                  "{ file = \"distance.csv\", missing = 0 }\n[model]\neffects = [\"edge\", "
                  "\"covariate(distance)\"]\n");
    ASSERT_EQ(convert({"m.toml", "there.setup"}).status, 0) << result.err;
    ASSERT_EQ(convert({"there.setup", "back.toml"}).status, 0) << result.err;
    EXPECT_TRUE(err_says("actors are called as in there_actors.txt")) << result.err;
    EXPECT_EQ(scratch.read("back_network.csv"), kFriends);
    EXPECT_EQ(scratch.read("back_nodes.csv"), "actor\nAnn\nBen\nCid\nDot\nEve\nFay\n");
    EXPECT_EQ(scratch.read("back_covariate_1.csv"), "from,to,value\nAnn,Fay,2.5\n");
    // A file that has not a name for each is none of theirs.
    scratch.write("there_actors.txt", "Ann\nBen\n");
    ASSERT_EQ(convert({"there.setup", "again.toml"}).status, 0) << result.err;
    EXPECT_TRUE(err_says("by their numbers: there_actors.txt has not a name for each of 6"))
        << result.err;
    EXPECT_TRUE(scratch.read("again_nodes.csv").starts_with("actor\n1\n2\n"));
}

TEST_F(ToolConvert, AModelFileBecomesASetupFileThatRunsTheSame) {
    scratch.write(
        "nodes.csv",
        "name,sex,age,dept\nAnn,f,21,x\nBen,m,25.5,y\nCid,m,NA,x\nDot,f,31,z\nEve,f,28,y\n"
        "Fay,f,22,z\nIda,m,40,x\n");
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\nnodes = \"nodes.csv\"\n"
                  "[attributes]\nage = { missing = \"keep\" }\n[model]\neffects = [\"edge\", "
                  "\"AT(1.5)\", \"same(sex)\", \"sum(age)\"]\nstart = { \"AT(1.5)\" = 0.25 }\n"
                  "[estimation]\nmethod = \"stochastic-approximation\"\nattempts = 1\nsamples = "
                  "50\n[run]\nseed = 1\n");
    ASSERT_EQ(convert({"m.toml", "host.setup"}).status, 0) << result.err;
    EXPECT_TRUE(has(result.out, "host_network.txt\n")) << result.out;
    EXPECT_TRUE(result.out.ends_with("\nhost.setup\n")) << result.out;
    EXPECT_EQ(scratch.read("host_actors.txt"), "Ann\nBen\nCid\nDot\nEve\nFay\nIda\n");
    EXPECT_TRUE(has(scratch.read("host_network.txt"), "0 1 1 0 0 0 0\n1 0 1 0 0 0 0\n"));
    EXPECT_EQ(scratch.read("host_continuous.txt"), "age\n21\n25.5\n9999\n31\n28\n22\n40\n");
    EXPECT_EQ(scratch.read("host_binary.txt"), "sex\n0\n1\n1\n0\n0\n0\n1\n");
    // A binary attribute serves an effect of categories, behind the categorical ones.
    EXPECT_TRUE(scratch.read("host_categorical.txt").starts_with("dept,sex\n1\t0\n2\t1\n"));
    const ToolResult check = run_tool({"check", "host.setup"}, scratch.path().string());
    EXPECT_EQ(check.status, 0) << check.out;
    // The same seed, the same estimates.
    ASSERT_EQ(
        run_tool({"run", "host.setup", "--seed", "1", "--quiet"}, scratch.path().string()).status %
            4,
        0);
    run_tool({"estimate", "m.toml", "-o", "r"}, scratch.path().string());
    const std::string updates = scratch.read("stupdate.ovri");
    const std::string estimates = scratch.read("r/estimates.csv");
    std::istringstream lines(updates);
    std::string label;
    std::string number;
    std::getline(lines, label);
    std::getline(lines, number);
    EXPECT_EQ(label, "edge");
    const std::size_t row = estimates.find("\nedge,");
    ASSERT_NE(row, std::string::npos);
    EXPECT_NEAR(std::stod(estimates.substr(row + 6)), std::stod(number), 1e-5);
}

TEST_F(ToolConvert, WhatNoSetupFileCanSayIsRefused) {
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\", \"AT(2)\"]\nfixed = { \"AT(2)\" = 0.5 }\n");
    EXPECT_EQ(convert({"m.toml", "m.setup"}).status, 1);
    EXPECT_TRUE(err_says("effect `AT(2)`: found a parameter that is held")) << result.err;
    EXPECT_FALSE(scratch.exists("m.setup"));
    // Of a simulation it is a value like any other.
    EXPECT_EQ(convert({"m.toml", "m.setup", "--run", "simulation"}).status, 0) << result.err;
    EXPECT_TRUE(has(scratch.read("m.setup"), "\nAT 1 0.5 2\n")) << scratch.read("m.setup");
    EXPECT_EQ(convert({"m.toml", "-"}).status, 2);
    EXPECT_EQ(convert({"m.toml", "b.setup", "--run", "bayesian-gof"}).status, 1);
    EXPECT_TRUE(err_says("no `covariance`")) << result.err;
    EXPECT_EQ(convert({"m.toml", "b.setup", "--run", "nothing"}).status, 2);
    scratch.write("m.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\"]\n[estimation]\nbootstrap = 9\n");
    EXPECT_EQ(convert({"m.toml", "c.setup"}).status, 0) << result.err;
    EXPECT_TRUE(err_says("a setup file's run has no bootstrap")) << result.err;
}

TEST_F(ToolConvert, ASetupFileIsExplainedLineByLine) {
    ToolSetup setup;
    scratch.write("net.setup", setup.text());
    ASSERT_EQ(convert({"net.setup", "-", "--explain"}).status, 0) << result.err;
    std::istringstream lines(setup.text());
    std::istringstream listed(result.out);
    std::string line;
    std::string with_comment;
    while (std::getline(lines, line) && std::getline(listed, with_comment)) {
        EXPECT_TRUE(with_comment.starts_with(line)) << with_comment;
        if (!line.empty()) {
            EXPECT_TRUE(has(with_comment, "  # ")) << with_comment;
        }
    }
    EXPECT_TRUE(has(result.out, "# edge: ties; in the model\n")) << result.out;
    EXPECT_TRUE(has(result.out, "# actor count: how many actors the network has")) << result.out;
    EXPECT_TRUE(has(result.out, "; not in the model\n")) << result.out;
    EXPECT_EQ(convert({"absent.setup", "-", "--explain"}).status, 1);
}

namespace {

// Every case of the golden tests that its own check calls sound.
class RoundTrip : public ToolTest, public testing::WithParamInterface<const char*> {
  protected:
    std::string example(const std::string& name) const {
        return std::string(OVRI_SOURCE_DIRECTORY "/") + name;
    }
    // What a run of the setup file leaves, console aside.
    FileTexts run(const std::string& setup) {
        // Some files hold the name of the directory: it is the same for both runs.
        const std::string output = "ran";
        fs::remove_all(scratch.path() / output);
        fs::create_directories(scratch.path() / output);
        const ToolResult done =
            run_tool({"run", setup, "--output", output, "--clock", "7", "--quiet", "--no-check"},
                     scratch.path().string());
        EXPECT_NE(done.status, 3) << done.err;
        return files_in(scratch.path() / output);
    }
};

}  // namespace

TEST_P(RoundTrip, ThereAndBackAsksForTheSameRun) {
    // Paths of the examples are as seen from the root of the source tree.
    fs::create_directory_symlink(example("examples"), scratch.path() / "examples");
    const std::string setup = std::string("examples/") + GetParam();
    ToolResult step = run_tool({"convert", setup, "there.toml"}, scratch.path().string());
    ASSERT_EQ(step.status, 0) << step.err;
    ASSERT_EQ(run_tool({"check", "there.toml", "--json"}, scratch.path().string()).err, "");
    step = run_tool({"convert", "there.toml", "back.setup"}, scratch.path().string());
    ASSERT_EQ(step.status, 0) << step.err;
    const FileTexts before = run(setup);
    const FileTexts after = run("back.setup");
    ASSERT_GT(before.size(), 1U);
    EXPECT_EQ(before, after) << scratch.read("there.toml") << scratch.read("back.setup");
}

INSTANTIATE_TEST_SUITE_P(Examples, RoundTrip,
                         testing::Values("karate/karate.setup", "karate/karate_faction.setup",
                                         "florentine/florentine_wealth.setup",
                                         "florentine/florentine_simulation.setup",
                                         "managers/managers_gof.setup",
                                         "managers/managers_department.setup", "mixed/mixed.setup",
                                         "mixed/mixed_simulation.setup",
                                         "simulation/simulation.setup"));
