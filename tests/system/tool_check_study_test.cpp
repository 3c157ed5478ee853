// "ovri check" of model files, and of the same things as options.
#include <nlohmann/json.hpp>

#include "support/tool_runner.h"

namespace {

using Json = nlohmann::json;

constexpr const char* kFriends =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\nFay,Gus\nGus,Hal\n"
    "Hal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\nBen,Hal\n";

class ToolCheckStudy : public ToolTest {
  protected:
    ToolCheckStudy() { scratch.write("friends.csv", kFriends); }

    const ToolResult& ovri(const std::vector<std::string>& words) {
        result = run_tool(words, scratch.path().string());
        return result;
    }
    // A model file of these effects.
    const ToolResult& check_effects(const std::string& effects) {
        scratch.write("friends.toml",
                      "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = [" +
                          effects + "]\n");
        return ovri({"check", "friends.toml"});
    }
    bool out_says(const std::string& piece) const {
        return result.out.find(piece) != std::string::npos;
    }
};

}  // namespace

TEST_F(ToolCheckStudy, TellsWhatWasReadOfASoundModel) {
    ASSERT_EQ(check_effects(R"x("edge", "AT(2)")x").status, 0) << result.out;
    EXPECT_TRUE(out_says("friends.csv: 10 actors, 14 ties")) << result.out;
    EXPECT_TRUE(out_says("friends.toml: no errors, no warnings\n")) << result.out;
    EXPECT_EQ(result.err, "");
}

TEST_F(ToolCheckStudy, FindingsNameFileLineAndColumn) {
    EXPECT_EQ(check_effects(R"("edge", "triangel")").status, 1);
    EXPECT_TRUE(out_says("friends.toml:5:21: error: effect `triangel`\n")) << result.out;
    EXPECT_TRUE(out_says("    found:    an unknown effect\n")) << result.out;
    EXPECT_TRUE(out_says("`triangle`")) << result.out;
    EXPECT_TRUE(out_says("friends.toml: 1 error, 0 warnings\n")) << result.out;
}

TEST_F(ToolCheckStudy, FindsWhatAnEstimationWouldStumbleOver) {
    EXPECT_EQ(check_effects(R"("edge", "4-clique")").status, 1);
    EXPECT_TRUE(out_says("minus infinity")) << result.out;
    EXPECT_EQ(check_effects(R"("edge", "3Path")").status, 1);
    EXPECT_TRUE(out_says("drift")) << result.out;
    EXPECT_EQ(ovri({"estimate", "friends.toml"}).status, 1);
    EXPECT_NE(result.err.find("drift"), std::string::npos) << result.err;
    scratch.write("nodes.csv",
                  "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\nEve,f\nFay,f\nGus,m\nHal,m\n"
                  "Ida,f\nJon,m\n");
    EXPECT_EQ(ovri({"check", "friends.toml", "--nodes", "nodes.csv", "--effects",
                    "edge,same(sex),different(sex)"})
                  .status,
              1);
    EXPECT_TRUE(out_says("--effects: error: effect `different(sex)`\n")) << result.out;
    EXPECT_TRUE(out_says("depend on each other")) << result.out;
}

TEST_F(ToolCheckStudy, TakesAModelAsOptions) {
    EXPECT_EQ(
        ovri({"check", "--network", "friends.csv", "--undirected", "--effects", "edge"}).status, 0)
        << result.out;
    EXPECT_EQ(ovri({"check", "--network", "friends.csv"}).status, 2);
    EXPECT_EQ(ovri({"check"}).status, 2);
    EXPECT_NE(result.err.find("FILE is missing"), std::string::npos) << result.err;
}

TEST_F(ToolCheckStudy, JsonHoldsEveryFinding) {
    check_effects(R"x("edge", "AS(0.5)")x");
    ovri({"check", "friends.toml", "--json"});
    EXPECT_EQ(result.status, 1);
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["format"], "ovri-check/1");
    EXPECT_EQ(json["errors"], 1);
    ASSERT_EQ(json["findings"].size(), 1U);
    const Json& finding = json["findings"][0];
    EXPECT_EQ(finding["severity"], "error");
    EXPECT_EQ(finding["file"], "friends.toml");
    EXPECT_EQ(finding["line"], 5);
    EXPECT_EQ(finding["column"], 21);
    EXPECT_EQ(finding["about"], "effect `AS(0.5)`");
    EXPECT_EQ(json["network"]["actors"], 10);
    ASSERT_EQ(check_effects(R"("edge")").status, 0);
    ovri({"check", "friends.toml", "--json"});
    EXPECT_EQ(Json::parse(result.out)["findings"], Json::array());
    EXPECT_EQ(Json::parse(result.out)["effects"], Json::array({"edge"}));
}

TEST_F(ToolCheckStudy, JsonOfASetupFileHasItsFindingsToo) {
    ToolSetup setup;
    setup.network = "absent.txt";
    scratch.write("net.setup", setup.text());
    ovri({"check", "net.setup", "--json"});
    EXPECT_EQ(result.status, 1);
    const Json json = Json::parse(result.out);
    EXPECT_GE(json["errors"].get<int>(), 1);
    EXPECT_TRUE(json["findings"][0]["column"].is_null());
    EXPECT_TRUE(json["network"].is_null());
}
