// "ovri new": a first model file for a network, and what comes of it.
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/child_process.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

using Json = nlohmann::json;

constexpr const char* kFriends =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\nFay,Gus\nGus,Hal\n"
    "Hal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\nBen,Hal\n";
constexpr const char* kNodes =
    "name,sex,age\nAnn,f,21\nBen,m,25\nCid,m,24\nDot,f,31\nEve,f,28\nFay,f,22\nGus,m,41\nHal,m,38\n"
    "Ida,f,35\nJon,m,29\n";

class ToolNew : public ToolTest {
  protected:
    ToolNew() {
        scratch.write("friends.csv", kFriends);
        scratch.write("nodes.csv", kNodes);
    }
    const ToolResult& ovri(const std::vector<std::string>& words) {
        result = run_tool(words, scratch.path().string());
        return result;
    }
    bool err_says(const std::string& piece) const {
        return result.err.find(piece) != std::string::npos;
    }
    std::size_t files() const {
        const std::filesystem::directory_iterator all(scratch.path());
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }
};

}  // namespace

TEST_F(ToolNew, WritesAModelFileThatCanBeEstimatedAtOnce) {
    ASSERT_EQ(ovri({"new", "friends.csv", "--nodes", "nodes.csv"}).status, 0) << result.err;
    EXPECT_EQ(result.out, "friends.toml\n");
    EXPECT_TRUE(err_says("10 actors, 14 ties")) << result.err;
    EXPECT_TRUE(err_says("next: ovri estimate friends.toml\n")) << result.err;
    const std::string text = scratch.read("friends.toml");
    EXPECT_TRUE(has(text,
                    "[network]\nfile = \"friends.csv\"\ndirected = false\n"
                    "nodes = \"nodes.csv\"\n"))
        << text;
    EXPECT_TRUE(has(text, "sex = \"binary\"\nage = \"continuous\"\n")) << text;
    EXPECT_TRUE(has(text, "#   triangles: 4\n")) << text;
    EXPECT_TRUE(has(text, "\neffects = [\"edge\", \"AT(2)\"]\n")) << text;
    EXPECT_TRUE(has(text, "\n# effects = [\"edge\", \"AT(2)\", \"AS(2)\"]\n")) << text;
    EXPECT_TRUE(
        has(text, "\n# effects = [\"edge\", \"AT(2)\", \"same(sex)\", \"difference(age)\"]\n"))
        << text;
    ASSERT_EQ(ovri({"check", "friends.toml"}).status, 0) << result.out;
    ASSERT_EQ(ovri({"estimate", "friends.toml", "--seed", "1", "--json"}).status, 0)
        << result.out << result.err;
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["verdict"], "converged");
    EXPECT_EQ(json["effects"][1]["name"], "AT(2)");
    EXPECT_EQ(json["network"]["ties"], 14);
}

TEST_F(ToolNew, AColumnThatIsLeftOutIsToldInOneLineOfTheModelFile) {
    scratch.write("nodes.csv",
                  "name,age\nAnn,21\nBen,25\nCid,\nDot,31\nEve,28\nFay,22\nGus,41\nHal,38\n"
                  "Ida,35\nJon,29\n");
    ASSERT_EQ(ovri({"new", "friends.csv", "--nodes", "nodes.csv"}).status, 0) << result.err;
    const std::string text = scratch.read("friends.toml");
    EXPECT_TRUE(has(text, "expected a number; write the value; or take the actor out")) << text;
    EXPECT_EQ(ovri({"check", "friends.toml"}).status, 0) << result.out;
}

TEST_F(ToolNew, PathsInTheFileAreAsSeenFromIt) {
    std::filesystem::create_directory(scratch.path() / "models");
    ASSERT_EQ(ovri({"new", "friends.csv", "--nodes", "nodes.csv", "-o", "models/one.toml"}).status,
              0);
    EXPECT_TRUE(has(scratch.read("models/one.toml"), "file = \"../friends.csv\"\n"));
    EXPECT_EQ(ovri({"check", "models/one.toml"}).status, 0) << result.out;
}

TEST_F(ToolNew, NothingThatIsThereIsReplacedUnasked) {
    scratch.write("friends.toml", "mine");
    EXPECT_EQ(ovri({"new", "friends.csv"}).status, 1);
    EXPECT_TRUE(err_says("friends.toml exists")) << result.err;
    EXPECT_EQ(scratch.read("friends.toml"), "mine");
    EXPECT_EQ(ovri({"new", "friends.csv", "--overwrite", "--quiet"}).status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(has(scratch.read("friends.toml"), "[model]"));
}

TEST_F(ToolNew, StandardOutputTakesTheFileAndNothingElse) {
    ASSERT_EQ(ovri({"new", "friends.csv", "-o", "-"}).status, 0);
    EXPECT_TRUE(result.out.starts_with("# ")) << result.out;
    EXPECT_TRUE(has(result.out, "\n[model]\n")) << result.out;
    EXPECT_FALSE(scratch.exists("friends.toml"));
}

TEST_F(ToolNew, TheDirectionIsGuessedAndTold) {
    scratch.write("letters.csv", "a,b\nb,a\na,c\nb,c\nc,d\nd,a\nb,d\n");
    ASSERT_EQ(ovri({"new", "letters.csv", "-o", "-"}).status, 0) << result.err;
    EXPECT_TRUE(has(result.out, "directed = true")) << result.out;
    EXPECT_TRUE(has(result.out, "[\"arc\", \"reciprocity\", \"AT-T(2)\"]")) << result.out;
    EXPECT_TRUE(has(result.out, "dyads tied both ways: 1, one way: 5")) << result.out;
    EXPECT_TRUE(err_says("directed: some ties stand there in both orders")) << result.err;
    ASSERT_EQ(ovri({"new", "friends.csv", "--directed", "-o", "-"}).status, 0);
    EXPECT_TRUE(has(result.out, "directed = true")) << result.out;
}

TEST_F(ToolNew, NetworksThatNoModelCanBeEstimatedFromAreRefused) {
    const std::size_t before = files();
    scratch.write("empty.txt", "0 0 0 0\n0 0 0 0\n0 0 0 0\n0 0 0 0\n");
    scratch.write("full.txt", "0 1 1 1\n1 0 1 1\n1 1 0 1\n1 1 1 0\n");
    EXPECT_EQ(ovri({"new", "empty.txt"}).status, 1);
    EXPECT_TRUE(err_says("empty.txt: found a network without ties, expected")) << result.err;
    EXPECT_EQ(ovri({"new", "full.txt"}).status, 1);
    EXPECT_TRUE(err_says("every tie is there")) << result.err;
    EXPECT_EQ(ovri({"new", "absent.csv"}).status, 1);
    EXPECT_TRUE(err_says("absent.csv: found no such file")) << result.err;
    EXPECT_EQ(ovri({"new"}).status, 2);
    EXPECT_EQ(files(), before + 2);
}

TEST_F(ToolNew, WeightsNeedAThreshold) {
    scratch.write("calls.csv", "from,to,calls\na,b,3\nb,c,1\nc,a,2\nc,d,5\nd,e,2\n");
    EXPECT_EQ(ovri({"new", "calls.csv"}).status, 1);
    EXPECT_TRUE(err_says("column `calls`")) << result.err;
    ASSERT_EQ(ovri({"new", "calls.csv", "--threshold", "2"}).status, 0) << result.err;
    EXPECT_TRUE(has(scratch.read("calls.toml"), "threshold = 2\n"));
    EXPECT_EQ(ovri({"check", "calls.toml"}).status, 0) << result.out;
}

TEST_F(ToolNew, AModelOfStandardInputSaysHowToGiveItAgain) {
    ASSERT_EQ(ovri({"new", "friends.csv", "-o", "-"}).status, 0);
    EXPECT_FALSE(has(result.out, "Standard input"));
    ChildSetting setting;
    setting.command = {"bash", "-c", "$OVRI new - < friends.csv"};
    setting.directory = scratch.path();
    setting.environment = {{"OVRI", OVRI_TOOL_PATH}};
    const ChildResult run = run_child(setting);
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(has(run.errors, "next: ovri estimate model.toml < NETWORK\n")) << run.errors;
    EXPECT_TRUE(has(scratch.read("model.toml"),
                    "# Standard input: give the network again, as in `ovri estimate MODEL.toml < "
                    "NETWORK`\nfile = \"-\"\n"))
        << scratch.read("model.toml");
}
