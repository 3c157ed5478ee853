// "ovri gof", driven as a person would.
#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/club.h"
#include "support/json_schema.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ToolGof : public ClubTest {
  protected:
    Json document(const std::string& path) const { return Json::parse(scratch.read(path)); }

    void mark_unconverged(const std::string& folder, const std::string& verdict, int status) {
        Json json = document(folder + "/result.json");
        json["verdict"] = verdict;
        json["exit_status"] = status;
        scratch.write(folder + "/result.json", json.dump());
    }
};

std::vector<std::string> keys(const Json& json) {
    std::vector<std::string> names;
    for (const auto& [name, value] : json.items()) {
        names.push_back(name);
    }
    return names;
}

}  // namespace

TEST_F(ToolGof, ComparesAResultsFolder) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.out << result.err;
    ASSERT_EQ(ovri({"gof", "club.results", "--seed", "2"}).status, 0) << result.out << result.err;
    EXPECT_NE(result.out.find("fits "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("40 networks, seed 2\nresults: club.results\n"), std::string::npos)
        << result.out;
    const Json json = document("club.results/gof.json");
    EXPECT_EQ(json["format"], "ovri-gof/1");
    EXPECT_EQ(json["samples"], 40);
    EXPECT_EQ(keys(json["statistics"][0]),
              (std::vector<std::string>{"mean", "median", "name", "observed", "p_value", "q05",
                                        "q95", "sd", "t_ratio"}));
    EXPECT_EQ(keys(json["distributions"][0]), (std::vector<std::string>{"name", "rows"}));
    EXPECT_EQ(
        keys(json["distributions"][0]["rows"][0]),
        (std::vector<std::string>{"at", "mean", "median", "observed", "q05", "q25", "q75", "q95"}));
    EXPECT_TRUE(json["mahalanobis"].is_number());
    EXPECT_EQ(json["statistics"][0]["name"], "edge");
    EXPECT_EQ(json["statistics"][0]["observed"], 8.0);
    // 21 dyads at a density of 8 / 21.
    EXPECT_NEAR(json["statistics"][0]["mean"].get<double>(), 8.0, 2.5);
    std::vector<std::string> names;
    for (const Json& each : json["distributions"]) {
        names.push_back(each["name"].get<std::string>());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"degree", "edgewise-shared-partners",
                                               "dyadwise-shared-partners", "geodesic",
                                               "component-size", "triad-census", "mixing(sex)"}));
    EXPECT_EQ(json["distributions"][0]["rows"][0]["at"], 0);
    EXPECT_TRUE(scratch.read("club.results/gof.csv").starts_with("kind,name,at,observed,mean,"));
    EXPECT_NE(scratch.read("club.results/run.log").find("gof: ovri gof club.results --seed 2\n"),
              std::string::npos);
}

TEST_F(ToolGof, PrintsItsFilesAndRepeatsItself) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"gof", "club.results", "--json", "--seed", "2", "--threads", "1"}).status, 0)
        << result.err;
    const std::string first = result.out;
    EXPECT_EQ(first, scratch.read("club.results/gof.json"));
    ASSERT_EQ(
        ovri({"gof", "club.results", "--json", "--seed", "2", "--threads", "3", "--overwrite"})
            .status,
        0)
        << result.err;
    EXPECT_EQ(result.out, first);
    ASSERT_EQ(ovri({"gof", "club.results", "--csv", "--seed", "3", "--overwrite"}).status, 0)
        << result.err;
    EXPECT_EQ(result.out, scratch.read("club.results/gof.csv"));
    EXPECT_NE(scratch.read("club.results/gof.json"), first);
}

TEST_F(ToolGof, AModelIsEstimatedFirst) {
    ASSERT_EQ(ovri({"gof", "club.toml", "--samples", "20", "--json"}).status, 0) << result.err;
    EXPECT_NE(result.err.find("club.toml has no estimates yet"), std::string::npos) << result.err;
    EXPECT_EQ(Json::parse(result.out)["samples"], 20);
    EXPECT_TRUE(scratch.exists("club.results/result.json"));
    EXPECT_TRUE(scratch.exists("club.results/gof.json"));
    const int status =
        ovri({"gof", "--network", "club.csv", "--undirected", "--effects", "edge,2-star",
              "--samples", "20", "--bayesian", "--seed", "4", "-o", "other", "-q"})
            .status;
    EXPECT_EQ(status, document("other/result.json")["exit_status"]) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(document("other/gof.json")["bayesian"], true);
}

TEST_F(ToolGof, EstimatesThatAreNotToBeUsedAreSaidToBe) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.err;
    for (const auto& [verdict, status] :
         {std::pair{"not_converged", 4}, std::pair{"degenerate", 5}}) {
        mark_unconverged("club.results", verdict, status);
        EXPECT_EQ(ovri({"gof", "club.results", "--overwrite"}).status, status);
        EXPECT_NE(result.out.find("not to be used"), std::string::npos) << result.out;
        EXPECT_NE(result.err.find("not to be used"), std::string::npos) << result.err;
        EXPECT_EQ(document("club.results/gof.json")["verdict"], verdict);
    }
}

TEST_F(ToolGof, WithoutEstimatesThereIsNothingToCompare) {
    // Nobody is tied to the other sex: an estimate of `different` would be infinite.
    scratch.write("pairs.csv", "from,to\nAnn,Dot\nDot,Eve\nBen,Cid\nEve,Fay\nCid,Gil\n");
    EXPECT_EQ(ovri({"gof", "--network", "pairs.csv", "--undirected", "--nodes", "nodes.csv",
                    "--effects", "edge,different(sex)", "--seed", "1"})
                  .status,
              5)
        << result.out << result.err;
    EXPECT_NE(result.err.find("has no estimates to simulate at"), std::string::npos) << result.err;
    EXPECT_FALSE(scratch.exists("pairs.results/gof.json"));
    EXPECT_EQ(result.out, "");
}

TEST_F(ToolGof, HeldValuesNeedNoEstimation) {
    scratch.write("held.toml",
                  "[network]\nfile = \"club.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\"]\nfixed = { edge = -0.5 }\n[gof]\nsamples = 30\n[run]\nseed = 1\n");
    ASSERT_EQ(ovri({"gof", "held.toml"}).status, 0) << result.out << result.err;
    EXPECT_EQ(document("held.results/result.json")["effects"][0]["estimate"], -0.5);
    EXPECT_TRUE(document("held.results/gof.json")["verdict"].is_null());
}

TEST_F(ToolGof, MistakesLeaveNothingBehind) {
    EXPECT_EQ(ovri({"gof"}).status, 2);
    EXPECT_EQ(ovri({"gof", "nowhere.toml"}).status, 1);
    EXPECT_EQ(ovri({"gof", "club.toml", "--effects", "edgy"}).status, 1);
    EXPECT_FALSE(scratch.exists("club.results"));
    fs::create_directory(scratch.path() / "half.results");
    EXPECT_EQ(ovri({"gof", "half.results"}).status, 1);
    EXPECT_NE(result.err.find("result.json"), std::string::npos) << result.err;
}

TEST_F(ToolGof, NothingOfItIsReplacedUnasked) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"gof", "club.results", "--seed", "1"}).status, 0) << result.err;
    const std::string first = scratch.read("club.results/gof.json");
    EXPECT_EQ(ovri({"gof", "club.results", "--seed", "5"}).status, 1);
    EXPECT_NE(result.err.find("club.results/gof.json exists; add --overwrite"), std::string::npos)
        << result.err;
    EXPECT_EQ(scratch.read("club.results/gof.json"), first);
    ASSERT_EQ(ovri({"gof", "club.results", "--seed", "5", "--overwrite"}).status, 0) << result.err;
    EXPECT_NE(scratch.read("club.results/gof.json"), first);
    // The estimates stay.
    EXPECT_EQ(document("club.results/result.json")["command"], "estimate");
}

TEST_F(ToolGof, AFolderOfItsOwnIsWhole) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"gof", "club.results", "--samples", "25", "--seed", "6", "-o", "fit"}).status,
              0)
        << result.err;
    EXPECT_EQ(document("fit/result.json")["command"], "gof");
    EXPECT_EQ(document_faults(scratch.read("fit/result.json")), std::vector<std::string>());
    EXPECT_EQ(document("fit/result.json")["effects"],
              document("club.results/result.json")["effects"]);
    EXPECT_NE(scratch.read("fit/run.log")
                  .find("command: ovri gof club.results --samples 25 --seed 6 -o fit\n"),
              std::string::npos)
        << scratch.read("fit/run.log");
    // Its model compares the same networks again.
    ASSERT_EQ(ovri({"gof", "fit/model.toml", "-o", "again"}).status, 0) << result.err;
    EXPECT_EQ(document("fit/gof.json")["statistics"], document("again/gof.json")["statistics"]);
    EXPECT_EQ(document("again/gof.json")["samples"], 25);
    EXPECT_FALSE(scratch.exists("club.results/gof.json"));
}

TEST_F(ToolGof, TheModelOfAnEstimationRepeatsTheComparison) {
    ASSERT_EQ(ovri({"gof", "club.toml", "--samples", "30", "--seed", "8"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"gof", "club.results/model.toml", "-o", "again"}).status, 0) << result.err;
    EXPECT_EQ(document("club.results/gof.json")["statistics"],
              document("again/gof.json")["statistics"]);
    EXPECT_EQ(document("again/gof.json")["samples"], 30);
}

TEST_F(ToolGof, TheSeedOfTheEstimationIsNotItsOwn) {
    ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"gof", "club.results", "--json"}).status, 0) << result.err;
    const Json first = Json::parse(result.out);
    ASSERT_EQ(ovri({"gof", "club.results", "--json", "--overwrite"}).status, 0) << result.err;
    // Two of four thousand million are alike once in a while, which nobody will live to see.
    EXPECT_NE(first["seed"], Json::parse(result.out)["seed"]);
}
