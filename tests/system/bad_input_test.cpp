// Files as people bring them that are no input: one message each, with its place, and nothing
// written.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>

#include "support/child_process.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

constexpr const char* kNet = "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\n";
constexpr const char* kNodes = "name,sex,age\nAnn,f,21\nBen,m,25\nCid,m,24\nDot,f,31\nEve,f,28\n";

std::string model_with(const std::string& network, const std::string& effects,
                       const std::string& rest = "") {
    return "[network]\nfile = \"" + network + "\"\ndirected = false\nnodes = \"nodes.csv\"\n" +
           "[model]\neffects = [" + effects + "]\n" + rest;
}

struct BadInput {
    const char* name;
    Files files;  // besides net.csv, nodes.csv and model.toml
    // What the message says, the place first.
    std::vector<std::string> says;
};

const std::vector<BadInput> kInputs = {
    {"UnknownKey",
     {{"model.toml", model_with("net.csv", "\"edge\"", "[estimation]\natempts = 3\n")}},
     {"model.toml:8:1: [estimation]: found the unknown key `atempts`", "`attempts`"}},
    {"UnknownEffect",
     {{"model.toml", model_with("net.csv", "\"edge\", \"triangel\"")}},
     {"model.toml:6:21: effect `triangel`: found an unknown effect", "`triangle`"}},
    {"AttributeNotThere",
     {{"model.toml", model_with("net.csv", "\"edge\", \"same(sx)\"")}},
     {"model.toml:6:21: effect `same(sx)`: found `sx`", "`sex`"}},
    {"LambdaMissing",
     {{"model.toml", model_with("net.csv", "\"edge\", \"AT\"")}},
     {"model.toml:6:21: effect `AT`: found no lambda", "`AT(2)`"}},
    {"LambdaBelowOne",
     {{"model.toml", model_with("net.csv", "\"edge\", \"AT(0.5)\"")}},
     {"model.toml:6:21: effect `AT(0.5)`: found the lambda 0.5", "`AT(2)`"}},
    {"EffectOfTheOtherKind",
     {{"model.toml", model_with("net.csv", "\"edge\", \"reciprocity\"")}},
     {"model.toml:6:21: effect `reciprocity`: found an effect of directed networks",
      "`directed = true`"}},
    {"OneColumn",
     {{"net.csv", "Ann,Ben\nBen,Cid\nDot\n"}},
     {"net.csv:3:1: found 1 column, expected two columns (from, to)", "write two actors a line"}},
    {"FourColumns",
     {{"net.csv", "from,to,x,y\nAnn,Ben,1,2\n"}},
     {"net.csv:", "found 4 columns, expected two columns (from, to)", "delete"}},
    {"ActorTwice",
     {{"nodes.csv", std::string(kNodes) + "Ann,f,20\n"}},
     {"nodes.csv:7:1: actor `Ann`: found the actor once more (first on line 2)", "delete one"}},
    {"TextAmongNumbers",
     {{"nodes.csv", "name,sex,age\nAnn,f,21\nBen,m,old\nCid,m,24\nDot,f,31\nEve,f,28\n"},
      {"model.toml", model_with("net.csv", "\"edge\", \"sum(age)\"")}},
     {"nodes.csv:3:7: actor `Ben`, column `age`: found \"old\"", "mend the value"}},
    {"MissingValue",
     {{"nodes.csv", "name,sex,age\nAnn,f,21\nBen,m,NA\nCid,m,24\nDot,f,31\nEve,f,28\n"},
      {"model.toml", model_with("net.csv", "\"edge\", \"sum(age)\"")}},
     {"nodes.csv:3:7: actor `Ben`, column `age`: found a missing value (\"NA\")",
      "missing = \"keep\""}},
    {"EmptyFile", {{"net.csv", ""}}, {"net.csv: found an empty file", "put the data into it"}},
    {"BinaryFile",
     {{"net.csv", std::string("PK\x03\x04\0\0\0\0spreadsheet", 20)}},
     {"net.csv: found a binary file (a zero byte)", "saved as CSV"}},
    {"Directory",
     {{"model.toml", model_with("out", "\"edge\"")}},
     {"out: found a directory", "name a file in it"}},
    {"DecimalComma",
     {{"nodes.csv", "name;age\nAnn;21,5\nBen;25\nCid;24\nDot;31\nEve;28\n"},
      {"model.toml", model_with("net.csv", "\"edge\", \"sum(age)\"")}},
     {"nodes.csv:2:5: actor `Ann`, column `age`: found \"21,5\", a decimal comma",
      "write decimals with a point"}},
    {"LatinOne",
     {{"net.csv", "from,to\nAnn,Zo\xE9\n"}},
     {"net.csv:2:7: found the byte 0xE9 (`\xC3\xA9` in Latin-1)", "iconv"}},
    {"MatrixNotSquare",
     {{"net.txt", "0 1 0 0\n1 0 1 0\n0 1 0 1\n"},
      {"nodes.csv", "name\nAnn\nBen\nCid\n"},
      {"model.toml", model_with("net.txt", "\"edge\"")}},
     {"net.txt", "found", "3", "4", "expected"}},
    {"MatrixAsymmetric",
     {{"net.txt", "0 1 0\n1 0 1\n0 0 0\n"},
      {"nodes.csv", "name\nAnn\nBen\nCid\n"},
      {"model.toml", model_with("net.txt", "\"edge\"")}},
     {"net.txt:2: actors `Ben` and `Cid`: found a tie one way and none the other way",
      "`directed = true`"}},
    {"FileNotThere",
     {{"model.toml", model_with("absent.csv", "\"edge\"")}},
     {"model.toml:2:1: found no file `absent.csv`", "mend the path"}},
    {"ActorNotInNodes",
     {{"nodes.csv", "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\n"}},
     {"net.csv:6: actor `Eve`: found an actor that the nodes file does not have", "add a row"}},
    {"BrokenModelFile",
     {{"model.toml", "[network\nfile = \"net.csv\"\n"}},
     {"model.toml:1:9: found", "expected TOML"}}};

class BadInputTest : public ToolTest, public testing::WithParamInterface<BadInput> {
  protected:
    BadInputTest() {
        scratch.write("net.csv", kNet);
        scratch.write("nodes.csv", kNodes);
        scratch.write("model.toml", model_with("net.csv", "\"edge\""));
        for (const auto& [name, text] : GetParam().files) {
            scratch.write(name, text);
        }
    }
    std::vector<std::string> all_files() const {
        std::vector<std::string> names;
        for (const auto& each : fs::recursive_directory_iterator(scratch.path())) {
            names.push_back(each.path().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

std::size_t count_of(const std::string& text, const std::string& piece) {
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos;
         at = text.find(piece, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace

TEST_P(BadInputTest, IsToldOnceWithItsPlaceAndNothingIsWritten) {
    const std::vector<std::string> before = all_files();
    for (const char* command : {"estimate", "simulate"}) {
        const ToolResult run = run_tool({command, "model.toml"}, scratch.path().string());
        EXPECT_EQ(run.status, 1) << run.out << run.err;
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.starts_with("error: " + GetParam().says.front())) << run.err;
        for (const std::string& piece : GetParam().says) {
            EXPECT_NE(run.err.find(piece), std::string::npos) << piece << "\n" << run.err;
        }
        EXPECT_EQ(count_of(run.err, "error: "), 1U) << run.err;
    }
    const ToolResult check = run_tool({"check", "model.toml"}, scratch.path().string());
    EXPECT_EQ(check.status, 1) << check.out;
    EXPECT_NE(check.out.find("1 error, "), std::string::npos) << check.out;
    EXPECT_EQ(all_files(), before);
}

INSTANTIATE_TEST_SUITE_P(Files, BadInputTest, testing::ValuesIn(kInputs),
                         [](const testing::TestParamInfo<BadInput>& each) {
                             return std::string(each.param.name);
                         });

namespace {

class BadInputs : public ToolTest {};

}  // namespace

TEST_F(BadInputs, AResultsFolderThatExistsIsLeftAlone) {
    scratch.write("net.csv", kNet);
    fs::create_directory(scratch.path() / "mine");
    scratch.write("mine/notes.txt", "mine");
    const ToolResult run = run_tool(
        {"estimate", "--network", "net.csv", "--undirected", "--effects", "edge", "-o", "mine"},
        scratch.path().string());
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("the results folder `mine` exists; name another one by -o, or add "
                           "--overwrite"),
              std::string::npos)
        << run.err;
    EXPECT_EQ(scratch.read("mine/notes.txt"), "mine");
}

// Ten million lines that are no network: refused for its actors long before the end, in memory of
// the file's own size.
TEST_F(BadInputs, AnEndlessFileThatIsNoNetworkIsRefusedInLittleMemory) {
#ifdef OVRI_SANITIZED
    GTEST_SKIP() << "the sanitizers have a memory of their own";
#endif
    ChildSetting setting;
    setting.command = {"bash", "-c",
                       "seq 1 10000000 | sed 's/.*/line & of,a log file/' > log.csv\n"
                       "ulimit -v 1500000\n"
                       "$OVRI estimate --network log.csv --undirected --effects edge"};
    setting.directory = scratch.path();
    setting.environment = {{"OVRI", OVRI_TOOL_PATH}};
    const ChildResult run = run_child(setting);
    EXPECT_EQ(run.status, 1) << run.errors;
    EXPECT_NE(run.errors.find("log.csv: actors: found more than 65535"), std::string::npos)
        << run.errors;
    EXPECT_NE(run.errors.find("if this file is none, name another"), std::string::npos)
        << run.errors;
}
