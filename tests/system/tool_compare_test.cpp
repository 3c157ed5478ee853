// "ovri compare", driven as a person would.
#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/club.h"
#include "support/text_pieces.h"

namespace {

using Json = nlohmann::json;

class ToolCompare : public ClubTest {
  protected:
    // Effects whose dyads do not depend on each other: computed, not simulated.
    void estimate(const std::string& effects, const std::string& folder,
                  const std::string& network = "club.csv", const std::string& nodes = "nodes.csv") {
        ASSERT_EQ(ovri({"estimate", "--network", network, "--nodes", nodes, "--undirected",
                        "--effects", effects, "--seed", "1", "-q", "-o", folder})
                      .status,
                  0)
            << result.out << result.err;
    }
    Json document(const std::string& path) const { return Json::parse(scratch.read(path)); }
    Json compared(const std::vector<std::string>& folders) {
        std::vector<std::string> words = {"compare", "--json"};
        words.insert(words.end(), folders.begin(), folders.end());
        EXPECT_EQ(ovri(words).status, 0) << result.err;
        return Json::parse(result.out);
    }
    void expect_error_with(const std::vector<std::string>& words, const std::string& piece) {
        EXPECT_EQ(ovri(words).status, 1);
        EXPECT_NE(result.err.find(piece), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
    }
};

}  // namespace

TEST_F(ToolCompare, ShowsModelsAsTheyAreGivenAndTestsNestedOnes) {
    estimate("edge,same(sex),sum(age)", "large");
    estimate("edge", "small");
    estimate("edge,difference(age)", "other");
    const Json json = compared({"large", "small/", "other"});
    ASSERT_EQ(json["models"].size(), 3U);
    for (std::size_t k = 0; k < 3; ++k) {
        const std::string folder = std::vector<std::string>{"large", "small", "other"}[k];
        const Json& model = json["models"][k];
        const Json found = document(folder + "/result.json");
        EXPECT_EQ(model["results"], folder);
        EXPECT_EQ(model["effects"][0]["estimate"], found["effects"][0]["estimate"]);
        EXPECT_EQ(model["log_likelihood"], found["likelihood"]["value"]);
        EXPECT_EQ(model["aic"], found["likelihood"]["aic"]);
        EXPECT_EQ(model["bic"], found["likelihood"]["bic"]);
        EXPECT_EQ(model["parameters"], found["effects"].size());
    }
    // `small` is in both of the others, which are in none.
    ASSERT_EQ(json["tests"].size(), 2U);
    const Json& test = json["tests"][0];
    EXPECT_EQ(test["smaller"], "small");
    EXPECT_EQ(test["larger"], "large");
    EXPECT_EQ(test["df"], 2);
    const double statistic = 2.0 * (json["models"][0]["log_likelihood"].get<double>() -
                                    json["models"][1]["log_likelihood"].get<double>());
    EXPECT_NEAR(test["statistic"].get<double>(), statistic, 1e-12);
    // The tail of two degrees of freedom.
    EXPECT_NEAR(test["p_value"].get<double>(), std::exp(-statistic / 2.0), 1e-12);
    EXPECT_EQ(json["tests"][1]["df"], 1);
    EXPECT_NEAR(json["tests"][1]["p_value"].get<double>(),
                std::erfc(std::sqrt(json["tests"][1]["statistic"].get<double>() / 2.0)), 1e-12);
}

TEST_F(ToolCompare, TheSmallestCriterionIsTheBest) {
    estimate("edge,same(sex)", "large");
    estimate("edge", "small");
    const Json json = compared({"large", "small"});
    for (const auto& [value, mark] : {std::pair{"aic", "best_aic"}, std::pair{"bic", "best_bic"}}) {
        const bool first = json["models"][0][value] < json["models"][1][value];
        EXPECT_EQ(json["models"][0][mark], first) << value;
        EXPECT_EQ(json["models"][1][mark], !first) << value;
    }
    ASSERT_EQ(ovri({"compare", "large", "small"}).status, 0);
    EXPECT_TRUE(has(result.out, "best  ")) << result.out;
    EXPECT_TRUE(has(result.out, "likelihood-ratio test")) << result.out;
    EXPECT_FALSE(has(result.out, "*")) << result.out;
    EXPECT_FALSE(compared({"small"})["models"][0]["best_aic"]);
}

TEST_F(ToolCompare, AHeldEffectIsNestedWhereItIsFreed) {
    scratch.write("held.toml",
                  "[network]\nfile = \"club.csv\"\ndirected = false\nnodes = \"nodes.csv\"\n[model]"
                  "\neffects = [\"edge\", \"same(sex)\"]\nfixed = { \"same(sex)\" = 0.5 }\n");
    ASSERT_EQ(ovri({"estimate", "held.toml", "--seed", "1", "-o", "held"}).status, 0) << result.err;
    estimate("edge", "small");
    estimate("edge,same(sex)", "large");
    const Json json = compared({"small", "held", "large"});
    // Held at 0.5 it holds no model without the effect, though both are in the one that frees it.
    ASSERT_EQ(json["tests"].size(), 2U);
    EXPECT_EQ(json["tests"][0]["smaller"], "small");
    EXPECT_EQ(json["tests"][1]["smaller"], "held");
    EXPECT_EQ(json["tests"][1]["larger"], "large");
    EXPECT_EQ(json["tests"][1]["df"], 1);
    ASSERT_EQ(ovri({"compare", "held"}).status, 0);
    EXPECT_TRUE(has(result.out, "0.5000 (held)")) << result.out;
    const std::vector<std::string> lines = lines_of(result.out);
    EXPECT_EQ(lines[2].find('.'), lines[3].find('.')) << result.out;
}

TEST_F(ToolCompare, WhatIsNotToBeUsedIsShownAndMarkedAndInNoTest) {
    estimate("edge", "small");
    estimate("edge,same(sex)", "large");
    estimate("edge,sum(age)", "other");
    Json bad = document("large/result.json");
    bad["verdict"] = "not_converged";
    bad["exit_status"] = 4;
    bad["likelihood"]["aic"] = -1000.0;
    scratch.write("large/result.json", bad.dump());
    Json without = document("other/result.json");
    without["likelihood"]["value"] = nullptr;
    scratch.write("other/result.json", without.dump());
    const Json json = compared({"small", "large", "other"});
    EXPECT_TRUE(has(result.err, "warning: large: not converged")) << result.err;
    EXPECT_TRUE(has(result.err, "warning: other: it has no log-likelihood")) << result.err;
    EXPECT_TRUE(json["tests"].empty());
    EXPECT_TRUE(json["models"][0]["left_out"].is_null());
    EXPECT_FALSE(json["models"][1]["left_out"].is_null());
    EXPECT_FALSE(json["models"][1]["best_aic"]);
    EXPECT_TRUE(json["models"][2]["log_likelihood"].is_null());
    ASSERT_EQ(ovri({"compare", "small", "large", "other"}).status, 0);
    EXPECT_TRUE(has(result.out, "large: not converged: do not use its estimates")) << result.out;
    EXPECT_FALSE(has(result.out, " p\n")) << result.out;
    EXPECT_EQ(result.err, "");
    ASSERT_EQ(ovri({"compare", "small", "large", "--csv", "--quiet"}).status, 0);
    EXPECT_EQ(result.err, "");
}

TEST_F(ToolCompare, PrintsOneRowAModelAsCsv) {
    estimate("edge", "small");
    estimate("edge,same(sex)", "large");
    ASSERT_EQ(ovri({"compare", "small", "large", "--csv"}).status, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with(
        "results,verdict,method,parameters,log_likelihood,mc_error,aic,bic,edge,"
        "edge standard_error,same(sex),same(sex) standard_error\nsmall,converged,exact,1,"))
        << result.out;
    EXPECT_TRUE(has(result.out, ",,\nlarge,converged,exact,2,")) << result.out;
    EXPECT_EQ(ovri({"compare", "small", "--csv", "--json"}).status, 2);
}

TEST_F(ToolCompare, FoldersWithoutAResultAreErrors) {
    estimate("edge", "small");
    expect_error_with({"compare", "small", "nowhere"}, "nowhere: found no results folder");
    std::filesystem::create_directory(scratch.path() / "begun");
    expect_error_with({"compare", "small", "begun"}, "the folder is incomplete");
    ASSERT_EQ(ovri({"simulate", "small", "--samples", "3", "-q", "-o", "drawn"}).status, 0);
    expect_error_with({"compare", "drawn"}, "the result of `ovri simulate`");
    EXPECT_EQ(ovri({"compare"}).status, 2);
}

TEST_F(ToolCompare, DifferentDataAreErrors) {
    estimate("edge,same(sex)", "first");
    // As many actors and ties, of the same name, but other ties.
    std::filesystem::create_directory(scratch.path() / "copy");
    const std::string club = scratch.read("club.csv");
    scratch.write("copy/club.csv", with(club, "Gil,Ann", "Gil,Ben"));
    estimate("edge", "other", "copy/club.csv");
    expect_error_with({"compare", "first", "other"}, "network");
    // Where the files are gone their names tell.
    std::filesystem::remove_all(scratch.path() / "copy");
    EXPECT_EQ(ovri({"compare", "first", "other"}).status, 0) << result.err;
    scratch.write("copy.csv", club);
    estimate("edge", "same", "copy.csv");
    EXPECT_EQ(ovri({"compare", "first", "same"}).status, 0) << result.err;
    scratch.write("more.csv", club + "Gil,Ben\n");
    estimate("edge", "more", "more.csv");
    expect_error_with({"compare", "first", "more"}, "9 ties");
    scratch.write("swapped.csv", with(scratch.read("nodes.csv"), "Gil,m", "Gil,f"));
    estimate("edge,same(sex)", "swapped", "club.csv", "swapped.csv");
    expect_error_with({"compare", "first", "swapped"}, "`same(sex)` is ");
}

TEST_F(ToolCompare, OtherFreeDyadsAreOtherData) {
    estimate("edge", "first");
    scratch.write("free.csv", "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Gil\n");
    scratch.write("free.toml",
                  "[network]\nfile = \"club.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\"]\n[dyads]\nfree = \"free.csv\"\n");
    ASSERT_EQ(ovri({"estimate", "free.toml", "--seed", "1", "-q", "-o", "free"}).status, 0)
        << result.out << result.err;
    expect_error_with({"compare", "first", "free"}, "dyads that may change");
}
