// "ovri estimate", driven as a person would, and its results folder.
#include <cmath>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

// A friendship network of ten people: two groups with a bridge.
constexpr const char* kFriends =
    "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\nFay,Gus\nGus,Hal\n"
    "Hal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\nBen,Hal\n";
constexpr const char* kModel =
    "[network]\nfile = \"friends.csv\"\ndirected = false\n\n[model]\neffects = [\"edge\", "
    "\"AS(2)\"]\n\n[run]\nseed = 3\n";

class ToolEstimate : public ToolTest {
  protected:
    ToolEstimate() {
        scratch.write("friends.csv", kFriends);
        scratch.write("friends.toml", kModel);
    }
    const ToolResult& estimate(std::vector<std::string> words) {
        words.insert(words.begin(), "estimate");
        result = run_tool(words, scratch.path().string());
        return result;
    }
    Json document(const std::string& folder) const {
        return Json::parse(scratch.read(folder + "/result.json"));
    }
    bool out_says(const std::string& piece) const {
        return result.out.find(piece) != std::string::npos;
    }
    bool err_says(const std::string& piece) const {
        return result.err.find(piece) != std::string::npos;
    }
    int folders() const {
        int count = 0;
        for (const auto& each : fs::directory_iterator(scratch.path())) {
            count += each.path().filename().string().find(".results") != std::string::npos ? 1 : 0;
        }
        return count;
    }
};

std::vector<double> numbers_of(const Json& result, const char* key) {
    std::vector<double> numbers;
    for (const Json& effect : result["effects"]) {
        numbers.push_back(effect[key].get<double>());
    }
    return numbers;
}

}  // namespace

TEST_F(ToolEstimate, BootstrapTellsPercentilesAndIsTheSameOnAnyNumberOfThreads) {
    const std::vector<std::string> words = {"friends.toml", "--effects", "edge", "--bootstrap",
                                            "40"};
    const auto with_threads = [&](const char* threads, const char* folder) {
        std::vector<std::string> all = words;
        all.insert(all.end(), {"--threads", threads, "-o", folder});
        EXPECT_EQ(estimate(all).status, 0) << result.err;
        return scratch.read(std::string(folder) + "/bootstrap.csv");
    };
    const std::string one = with_threads("1", "one");
    EXPECT_TRUE(out_says("bootstrap: 40 networks of the model, 40 converged")) << result.out;
    EXPECT_TRUE(out_says("log-likelihood ")) << result.out;
    EXPECT_TRUE(one.starts_with("replicate,verdict,edge\n1,converged,")) << one;
    EXPECT_EQ(one, with_threads("3", "three"));
    const Json bootstrap = document("one")["bootstrap"];
    EXPECT_EQ(bootstrap["replicates"], 40);
    const Json& edge = bootstrap["effects"][0];
    EXPECT_LT(edge["lower"].get<double>(), edge["mean"].get<double>());
    EXPECT_GT(edge["upper"].get<double>(), edge["mean"].get<double>());
    EXPECT_GT(edge["coverage"].get<double>(), 0.8);
    const Json likelihood = document("one")["likelihood"];
    EXPECT_DOUBLE_EQ(likelihood["deviance"].get<double>(),
                     -2.0 * likelihood["value"].get<double>());
    estimate({"friends.toml", "-o", "none"});
    EXPECT_TRUE(document("none")["bootstrap"].is_null());
}

TEST_F(ToolEstimate, ABootstrapThatTheModelFileAsksForIsThatOfTheOption) {
    const auto bootstrap_of = [&](std::vector<std::string> words, const std::string& folder) {
        words.insert(words.end(), {"--effects", "edge", "-o", folder});
        EXPECT_EQ(estimate(words).status, 0) << result.err;
        EXPECT_EQ(out_says("bootstrap: "), scratch.exists(folder + "/bootstrap.csv"));
        return scratch.exists(folder + "/bootstrap.csv") ? scratch.read(folder + "/bootstrap.csv")
                                                         : "";
    };
    const std::string option = bootstrap_of({"friends.toml", "--bootstrap", "6"}, "option");
    ASSERT_EQ(lines_of(option).size(), 7U);
    EXPECT_NE(scratch.read("option/model.toml").find("\nbootstrap = 6\n"), std::string::npos);
    EXPECT_EQ(bootstrap_of({"option/model.toml"}, "again"), option);
    scratch.write("friends.toml", std::string(kModel) + "[estimation]\nbootstrap = 6\n");
    EXPECT_EQ(bootstrap_of({"friends.toml"}, "file"), option);
    // The option goes before the file, up or down.
    const std::string three = bootstrap_of({"friends.toml", "--bootstrap", "3"}, "three");
    EXPECT_EQ(lines_of(three).size(), 4U);
    EXPECT_TRUE(option.starts_with(three)) << three;
    EXPECT_EQ(bootstrap_of({"friends.toml", "--bootstrap", "0"}, "none"), "");
    EXPECT_NE(scratch.read("none/model.toml").find("\nbootstrap = 0\n"), std::string::npos);
    scratch.write("friends.toml", std::string(kModel) + "[estimation]\nbootstrap = 1.5\n");
    EXPECT_EQ(estimate({"friends.toml"}).status, 1);
    EXPECT_TRUE(err_says("friends.toml:11:13: `bootstrap` in [estimation]: found")) << result.err;
}

TEST_F(ToolEstimate, ShowsATableAVerdictAndTheResultsFolder) {
    estimate({"friends.toml"});
    ASSERT_EQ(result.status, 0) << result.out << result.err;
    EXPECT_TRUE(result.out.starts_with("effect ")) << result.out;
    EXPECT_TRUE(out_says("\nAS(2) ")) << result.out;
    EXPECT_TRUE(out_says("\nconverged: ")) << result.out;
    EXPECT_TRUE(out_says("Monte Carlo maximum likelihood, 8 chains, seed 3")) << result.out;
    EXPECT_TRUE(out_says("\nresults: friends.results\n")) << result.out;
    EXPECT_TRUE(err_says("10 actors, 14 ties")) << result.err;
    for (const char* file : {"result.json", "estimates.csv", "covariance.csv", "sample.csv",
                             "model.toml", "run.log"}) {
        EXPECT_TRUE(scratch.exists(std::string("friends.results/") + file)) << file;
    }
}

TEST_F(ToolEstimate, TheTableShowsTheDecimalsThatTheMonteCarloErrorSupports) {
    scratch.write("friends.toml", std::string(kModel) + "[estimation]\nprecision = 0.1\n");
    ASSERT_EQ(estimate({"friends.toml", "--quiet"}).status, 0) << result.err;
    const auto cells = [&](std::size_t row) {
        std::istringstream line(lines_of(result.out)[row]);
        return std::vector<std::string>(std::istream_iterator<std::string>(line), {});
    };
    const auto decimals = [](const std::string& cell) {
        const std::size_t point = cell.find('.');
        return point == std::string::npos ? 0 : static_cast<int>(cell.size() - point) - 1;
    };
    const Json effects = document("friends.results")["effects"];
    int fewer = 0;
    for (std::size_t row = 1; row <= effects.size(); ++row) {
        const double error = effects[row - 1]["mc_error"].get<double>();
        const int supported = std::min(4, static_cast<int>(std::ceil(-std::log10(error))));
        fewer += supported < 4 ? 1 : 0;
        // Estimate, standard error and the two ends of the interval.
        for (const std::size_t column : {1U, 2U, 4U, 5U}) {
            EXPECT_EQ(decimals(cells(row)[column]), supported) << result.out;
        }
        EXPECT_EQ(decimals(cells(row)[3]), 4) << result.out;
        EXPECT_EQ(lines_of(result.out)[row].find('.'), lines_of(result.out)[1].find('.'))
            << result.out;
    }
    EXPECT_GT(fewer, 0) << result.out;
    EXPECT_GT(effects[0]["estimate"].dump().size(), 8U);
    ASSERT_EQ(run_tool({"compare", "friends.results"}, scratch.path().string())
                      .out.find(cells(1)[1] + " (" + cells(1)[2] + ")") == std::string::npos,
              false);
    // What was computed has no Monte Carlo error.
    ASSERT_EQ(estimate({"friends.toml", "--effects", "edge", "--quiet"}).status, 0);
    EXPECT_EQ(decimals(cells(1)[1]), 4) << result.out;
}

TEST_F(ToolEstimate, JsonIsTheDocumentOfTheFolderAndNothingElse) {
    estimate({"friends.toml", "--json", "--quiet"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, scratch.read("friends.results/result.json"));
    const Json json = Json::parse(result.out);
    std::vector<std::string> keys;
    const auto ordered = nlohmann::ordered_json::parse(result.out);
    for (const auto& [key, value] : ordered.items()) {
        keys.push_back(key);
    }
    const std::vector<std::string> expected = {
        "format",  "ovri",       "command",    "verdict",   "exit_status", "reasons",
        "advice",  "network",    "method",     "seed",      "proposals",   "seconds",
        "effects", "covariance", "likelihood", "diagnosis", "bootstrap",   "path"};
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(json["format"], "ovri-result/1");
    EXPECT_EQ(json["verdict"], "converged");
    EXPECT_EQ(json["method"], "mcmle");
    EXPECT_EQ(json["diagnosis"]["chains"], 8);
    EXPECT_EQ(json["diagnosis"]["effective_samples"].size(), 2U);
    EXPECT_NEAR(json["diagnosis"]["correlation"][0][0].get<double>(), 1.0, 1e-12);
    EXPECT_GT(json["diagnosis"]["hotelling_p_value"].get<double>(), 0.0);
    EXPECT_EQ(json["seed"], 3);
    EXPECT_EQ(json["network"]["ties"], 14);
    EXPECT_NEAR(json["network"]["density"].get<double>(), 14.0 / 45.0, 1e-12);
    EXPECT_GT(json["proposals"].get<double>(), 0.0);
    EXPECT_NEAR(json["likelihood"]["null"].get<double>(), -45.0 * std::log(2.0), 1e-9);
    const Json& likelihood = json["likelihood"];
    const double value = likelihood["value"].get<double>();
    EXPECT_GT(value, likelihood["null"].get<double>());
    EXPECT_LT(value, 0.0);
    EXPECT_GT(likelihood["mc_error"].get<double>(), 0.0);
    EXPECT_LE(likelihood["mc_error"].get<double>(), 0.1);
    EXPECT_NEAR(likelihood["aic"].get<double>(), -2.0 * value + 4.0, 1e-9);
    EXPECT_NEAR(likelihood["bic"].get<double>(), -2.0 * value + 2.0 * std::log(45.0), 1e-9);
    const Json& edge = json["effects"][0];
    EXPECT_EQ(edge["name"], "edge");
    EXPECT_EQ(edge["observed"], 14.0);
    EXPECT_GT(edge["mc_error"].get<double>(), 0.0);
    EXPECT_LT(edge["mc_error"].get<double>(), 0.0201 * edge["standard_error"].get<double>());
    EXPECT_EQ(edge["fixed"], false);
    const double error = edge["standard_error"].get<double>();
    EXPECT_NEAR(edge["z"].get<double>(), edge["estimate"].get<double>() / error, 1e-12);
    EXPECT_NEAR(edge["upper"].get<double>() - edge["lower"].get<double>(), 2 * 1.96 * error, 1e-3);
    EXPECT_NEAR(json["covariance"][0][0].get<double>(), error * error, 1e-12);
}

TEST_F(ToolEstimate, CsvIsTheEstimatesFile) {
    estimate({"friends.toml", "--csv"});
    ASSERT_EQ(result.status, 0);
    EXPECT_EQ(result.out, scratch.read("friends.results/estimates.csv"));
    EXPECT_TRUE(result.out.starts_with("effect,estimate,standard_error,")) << result.out;
    EXPECT_TRUE(
        scratch.read("friends.results/sample.csv").starts_with("chain,draw,edge,AS(2)\n1,1,"));
    EXPECT_TRUE(
        scratch.read("friends.results/covariance.csv").starts_with("effect,edge,AS(2)\nedge,"));
}

TEST_F(ToolEstimate, TheModelOfTheResultsGivesTheSameNumbersAgain) {
    ASSERT_EQ(
        estimate({"--network", "friends.csv", "--undirected", "--effects", "edge,AS(2)"}).status, 0)
        << result.err;
    ASSERT_EQ(estimate({"friends.results/model.toml", "-o", "again"}).status, 0) << result.err;
    const Json one = document("friends.results");
    const Json other = document("again");
    EXPECT_EQ(one["seed"], other["seed"]);
    EXPECT_EQ(numbers_of(one, "estimate"), numbers_of(other, "estimate"));
    EXPECT_EQ(scratch.read("friends.results/sample.csv"), scratch.read("again/sample.csv"));
}

TEST_F(ToolEstimate, EarlierResultsStayUnlessTheyMayBeOverwritten) {
    ASSERT_EQ(estimate({"friends.toml"}).status, 0);
    ASSERT_EQ(estimate({"friends.toml", "--seed", "4"}).status, 0);
    EXPECT_TRUE(out_says("results: friends.results.2\n")) << result.out;
    EXPECT_EQ(document("friends.results")["seed"], 3);
    EXPECT_EQ(document("friends.results.2")["seed"], 4);
    EXPECT_EQ(estimate({"friends.toml", "-o", "friends.results"}).status, 1);
    EXPECT_TRUE(err_says("`friends.results` exists")) << result.err;
    ASSERT_EQ(estimate({"friends.toml", "--seed", "5", "--overwrite"}).status, 0);
    EXPECT_EQ(document("friends.results")["seed"], 5);
    EXPECT_EQ(folders(), 2);
}

TEST_F(ToolEstimate, AModelThatDoesNotConvergeIsMarkedAndAdvised) {
    // Ten samples of a model that moves in jumps do not come near the observation.
    scratch.write("friends.toml",
                  std::string(kModel) +
                      "[estimation]\nmethod = \"stochastic-approximation\"\nattempts = "
                      "1\nmultiplication = 1\nsubphases "
                      "= 1\nsamples = 10\n");
    estimate({"friends.toml", "--effects", "edge,2-star,triangle"});
    ASSERT_EQ(result.status, 4) << result.out << result.err;
    EXPECT_TRUE(out_says("not converged: do not use these estimates")) << result.out;
    EXPECT_FALSE(out_says("*")) << result.out;
    EXPECT_FALSE(out_says("<0.001")) << result.out;
    EXPECT_TRUE(out_says("  ovri estimate friends.toml --effects 'edge,AS(2),AT(2)'\n"))
        << result.out;
    const Json json = document("friends.results");
    EXPECT_EQ(json["verdict"], "not_converged");
    EXPECT_EQ(json["exit_status"], 4);
    EXPECT_FALSE(json["reasons"].empty());
    for (const Json& effect : json["effects"]) {
        EXPECT_TRUE(effect["p_value"].is_null());
        EXPECT_TRUE(effect["z"].is_null());
        EXPECT_FALSE(effect["estimate"].is_null());
    }
}

TEST_F(ToolEstimate, EffectsThatDependOnEachOtherAreNamed) {
    scratch.write("nodes.csv",
                  "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\nEve,f\nFay,f\nGus,m\nHal,m\n"
                  "Ida,f\nJon,m\n");
    estimate(
        {"friends.toml", "--nodes", "nodes.csv", "--effects", "edge,same(sex),different(sex)"});
    ASSERT_EQ(result.status, 5) << result.out << result.err;
    const Json json = document("friends.results");
    EXPECT_EQ(json["verdict"], "not_identified");
    EXPECT_TRUE(json["effects"][0]["estimate"].is_null());
    EXPECT_TRUE(out_says("`edge`, `same(sex)` and `different(sex)` depend on each other"))
        << result.out;
    EXPECT_EQ(json["advice"][0],
              "ovri estimate friends.toml --nodes nodes.csv --effects 'edge,same(sex)'");
    // Its advice can be followed.
    ASSERT_EQ(
        estimate({"friends.toml", "--nodes", "nodes.csv", "--effects", "edge,same(sex)"}).status, 0)
        << result.out << result.err;
}

TEST_F(ToolEstimate, ANetworkWithoutTiesHasAnInfiniteEstimate) {
    scratch.write("empty.txt", "0 0 0 0\n0 0 0 0\n0 0 0 0\n0 0 0 0\n");
    estimate({"--network", "empty.txt", "--undirected", "--effects", "edge"});
    EXPECT_EQ(result.status, 5) << result.out << result.err;
    EXPECT_TRUE(out_says("minus infinity")) << result.out;
    EXPECT_TRUE(out_says("before anything was simulated")) << result.out;
    EXPECT_FALSE(out_says("stochastic approximation")) << result.out;
}

TEST_F(ToolEstimate, WhatIsWrongIsToldAndNothingIsWritten) {
    estimate({"friends.toml", "--effects", "edge,triangel"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(err_says("triangel")) << result.err;
    EXPECT_TRUE(err_says("`triangle`")) << result.err;
    EXPECT_EQ(estimate({"absent.toml"}).status, 1);
    EXPECT_TRUE(err_says("absent.toml")) << result.err;
    scratch.write("held.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\n"
                  "effects = [\"edge\"]\nfixed = { edge = -1.0 }\n");
    EXPECT_EQ(estimate({"held.toml"}).status, 1);
    EXPECT_TRUE(err_says("every effect is held")) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folders(), 0);
}

TEST_F(ToolEstimate, MethodsOfTheCommandLine) {
    ASSERT_EQ(estimate({"friends.toml", "--effects", "edge"}).status, 0) << result.out;
    EXPECT_TRUE(out_says("converged (exact")) << result.out;
    EXPECT_EQ(document("friends.results")["method"], "exact");
    EXPECT_NEAR(document("friends.results")["likelihood"]["value"].get<double>(),
                14.0 * std::log(14.0 / 45.0) + 31.0 * std::log(31.0 / 45.0), 1e-9);
    ASSERT_EQ(estimate({"friends.toml", "--method", "mple"}).status, 0) << result.out;
    EXPECT_TRUE(out_says("pseudo-likelihood")) << result.out;
    EXPECT_EQ(document("friends.results.2")["method"], "mple");
    EXPECT_TRUE(document("friends.results.2")["likelihood"]["value"].is_null());
    EXPECT_TRUE(document("friends.results.2")["diagnosis"].is_null());
    EXPECT_EQ(estimate({"friends.toml", "--method", "guess"}).status, 2);
    EXPECT_EQ(estimate({"friends.toml", "--threads", "0"}).status, 2);
    EXPECT_TRUE(err_says("a whole number from 1")) << result.err;
    EXPECT_EQ(folders(), 2);
}

TEST_F(ToolEstimate, WordsThatNameNoModelAreNotUnderstood) {
    EXPECT_EQ(estimate({}).status, 2);
    EXPECT_EQ(estimate({"--network", "friends.csv"}).status, 2);
    EXPECT_TRUE(err_says("`--effects` is missing")) << result.err;
    EXPECT_EQ(estimate({"friends.toml", "--directed", "--undirected"}).status, 2);
    EXPECT_EQ(estimate({"friends.toml", "--json", "--csv"}).status, 2);
    EXPECT_EQ(folders(), 0);
}

TEST_F(ToolEstimate, OptionsThatTheMethodHasNoUseForAreTold) {
    for (const char* option : {"--attempts", "--multiplication"}) {
        EXPECT_EQ(estimate({"friends.toml", option, "3"}).status, 0) << result.err;
        EXPECT_TRUE(err_says("serves stochastic approximation alone; the method is auto"))
            << result.err;
        EXPECT_EQ(estimate({"friends.toml", option, "3", "--method", "mcmle"}).status, 0);
        EXPECT_TRUE(err_says("the method is mcmle")) << result.err;
        EXPECT_EQ(
            estimate({"friends.toml", option, "30", "--method", "stochastic-approximation"}).status,
            0);
        EXPECT_FALSE(err_says("serves stochastic approximation")) << result.err;
    }
    EXPECT_EQ(estimate({"friends.toml", "--effects", ""}).status, 2);
    EXPECT_TRUE(err_says("`--effects` takes a word that is not empty")) << result.err;
}

TEST_F(ToolEstimate, WeightsTakeAThresholdOnTheCommandLine) {
    scratch.write("weights.csv", "from,to,times\nAnn,Ben,3\nBen,Cid,1\nCid,Dot,2\nDot,Eve,5\n");
    const std::vector<std::string> words = {
        "--network", "weights.csv", "--undirected", "--effects", "edge", "--seed", "1"};
    EXPECT_EQ(estimate(words).status, 1);
    EXPECT_TRUE(err_says("or add --threshold 1")) << result.err;
    std::vector<std::string> more = words;
    more.insert(more.end(), {"--threshold", "2", "--json"});
    ASSERT_EQ(estimate(more).status, 0) << result.err;
    EXPECT_EQ(Json::parse(result.out)["network"]["ties"], 3);
}

TEST_F(ToolEstimate, TheLogHasTheCommandAsItWasTyped) {
    ASSERT_EQ(
        estimate({"friends.toml", "--effects", "edge,AS(2)", "--seed", "7", "-o", "r"}).status, 0);
    EXPECT_NE(
        scratch.read("r/run.log")
            .find("command: ovri estimate friends.toml --effects 'edge,AS(2)' --seed 7 -o r\n"),
        std::string::npos)
        << scratch.read("r/run.log");
    // Where nothing is simulated there are no samples.
    ASSERT_EQ(estimate({"friends.toml", "--method", "mple", "-o", "m"}).status, 0) << result.err;
    EXPECT_FALSE(scratch.exists("m/sample.csv"));
    EXPECT_TRUE(scratch.exists("r/sample.csv"));
}

TEST_F(ToolEstimate, AdviceKeepsTheMethodAndWhatIsHeld) {
    // The fourth effect follows from the others.
    scratch.write(
        "nodes.csv",
        "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\nEve,f\nFay,f\nGus,m\nHal,m\nIda,f\nJon,m\n");
    EXPECT_EQ(estimate({"--network", "friends.csv", "--undirected", "--nodes", "nodes.csv",
                        "--effects", "edge,same(sex),different(sex)", "--method", "mple", "--json"})
                  .status,
              5);
    const Json json = Json::parse(result.out);
    ASSERT_FALSE(json["advice"].empty());
    for (const Json& each : json["advice"]) {
        EXPECT_TRUE(each.get<std::string>().ends_with(" --method mple")) << each;
    }
    // A held count stays what it is; without it there would be another one in its place.
    scratch.write("held.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\", \"triangle\", \"AS(2)\"]\nfixed = { triangle = 9, \"AS(2)\" = 0.1 }\n"
                  "[estimation]\ntime_limit = 0.000001\n[run]\nseed = 1\n");
    const int status = estimate({"held.toml", "--json"}).status;
    ASSERT_TRUE(status == 4 || status == 5) << result.out << result.err;
    const Json found = Json::parse(result.out);
    for (const Json& each : found["advice"]) {
        const auto text = each.get<std::string>();
        EXPECT_TRUE(text.find("--effects 'edge,triangle,AS(2)'") != std::string::npos ||
                    text.find("--effects edge") != std::string::npos)
            << text;
        EXPECT_EQ(text.find("stochastic"), std::string::npos) << text;
    }
}

TEST_F(ToolEstimate, AdviceOfStandardInputNamesWhatTheFolderKeeps) {
    scratch.write("empty.csv", "from,to\nAnn,Ben\n");
    const ToolResult run = run_tool(
        {"estimate", "--network", "empty.csv", "--undirected", "--effects", "edge", "--json"},
        scratch.path().string());
    EXPECT_EQ(run.status, 5) << run.out;
    // Every dyad is tied: no model can be estimated, and the same again would be no advice.
    EXPECT_EQ(Json::parse(run.out)["advice"],
              Json({"ovri check --network empty.csv --undirected --effects edge"}));
}

TEST_F(ToolEstimate, ATimeLimitThatWasReachedIsNamed) {
    scratch.write("late.toml",
                  "[network]\nfile = \"friends.csv\"\ndirected = false\n[model]\neffects = "
                  "[\"edge\", \"AT(2)\"]\n[estimation]\ntime_limit = 0.000001\n[run]\nseed = 1\n");
    ASSERT_EQ(estimate({"late.toml"}).status, 4) << result.out;
    EXPECT_TRUE(out_says("the time limit of 1e-06 seconds was reached")) << result.out;
}

TEST_F(ToolEstimate, DataInPlaceOfAModelAreSaidToBe) {
    EXPECT_EQ(estimate({"friends.csv"}).status, 1);
    EXPECT_TRUE(err_says("friends.csv: found data, such as a network")) << result.err;
    EXPECT_TRUE(err_says("`ovri new friends.csv` writes a model file")) << result.err;
    const ToolResult check = run_tool({"check", "friends.csv"}, scratch.path().string());
    EXPECT_EQ(check.status, 1);
    EXPECT_NE(check.out.find("ovri new "), std::string::npos) << check.out;
    const ToolResult quiet = run_tool({"check", "friends.toml", "-q"}, scratch.path().string());
    EXPECT_EQ(quiet.status, 0);
    EXPECT_EQ(quiet.out + quiet.err, "");
}
