// The model files of examples/, estimated as a reader would.
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/tool_runner.h"

namespace {

using Json = nlohmann::json;

// Maximum likelihood estimates with their standard errors, from the SOURCE.md of each folder.
struct Known {
    const char* effect;
    double observed;  // NaN where it is not among the counts to check against
    double estimate;
    double error;
};
struct Example {
    const char* path;
    int ties;
    std::vector<Known> effects;
};

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

const std::vector<Example> kExamples = {
    {"florentine/florentine.toml",
     20,
     {{"edge", 20, -2.5271, 0.5360},
      {"sum(wealth)", 2168, 0.0045, 0.0068},
      {"difference(wealth)", 1146, 0.0111, 0.0090}}},
    {"karate/karate.toml", 78, {{"edge", 78, -3.02, 0.25}, {"AT(2)", 88.732422, 0.684, 0.130}}},
    {"managers/managers.toml",
     102,
     {{"arc", 102, -1.7170, 0.1675},
      {"reciprocity", 23, 1.2135, 0.3588},
      {"same(department)", 38, 0.8103, 0.2295}}},
    {"mixed/mixed.toml",
     190,
     {{"arc", 190, -0.6016, 0.3035},
      {"reciprocity", 45, 0.5838, 0.3294},
      {"receiver(senior)", 71, 1.0007, 0.2976},
      {"sender(tenure)", 1880.750, -0.0635, 0.0190},
      {"receiver(tenure)", 2586.245, 0.0849, 0.0188},
      {"difference(tenure)", 1386.661, -0.0793, 0.0205},
      {"same(department)", 46, -0.1319, 0.2789},
      {"covariate(friendship)", 60, 0.8028, 0.2678},
      {"covariate(reports_to)", kUnknown, 2.2831, 1.1201}}}};

class ToolExamples : public ToolTest {
  protected:
    static std::string path_of(const std::string& name) {
        return std::string(OVRI_SOURCE_DIRECTORY "/examples/") + name;
    }
};

}  // namespace

TEST_F(ToolExamples, AreSoundAndGiveTheKnownEstimates) {
    for (const Example& example : kExamples) {
        const std::string path = path_of(example.path);
        ASSERT_EQ(run_tool({"check", path}).status, 0) << example.path;
        const ToolResult run =
            run_tool({"estimate", path, "--seed", "1", "--json"}, scratch.path().string());
        ASSERT_EQ(run.status, 0) << example.path << "\n" << run.out << run.err;
        const Json json = Json::parse(run.out);
        EXPECT_EQ(json["verdict"], "converged");
        EXPECT_EQ(json["seed"], 1);
        EXPECT_EQ(json["network"]["ties"], example.ties);
        ASSERT_EQ(json["effects"].size(), example.effects.size()) << example.path;
        for (std::size_t k = 0; k < example.effects.size(); ++k) {
            const Known& known = example.effects[k];
            const Json& found = json["effects"][k];
            EXPECT_EQ(found["name"], known.effect);
            if (known.observed == known.observed) {
                EXPECT_NEAR(found["observed"].get<double>(), known.observed, 2e-3);
            }
            EXPECT_NEAR(found["estimate"].get<double>(), known.estimate, 0.35 * known.error)
                << known.effect;
            EXPECT_NEAR(found["standard_error"].get<double>(), known.error, 0.3 * known.error)
                << known.effect;
        }
    }
}

TEST_F(ToolExamples, HoldTheSameNetworksAsTheirMatrices) {
    struct Pair {
        const char* list;
        const char* nodes;
        const char* matrix;
        const char* direction;
    };
    constexpr Pair kPairs[] = {
        {"florentine/marriage.csv", "florentine/families.csv", "florentine/marriage.txt",
         "--undirected"},
        {"karate/karate.csv", "karate/members.csv", "karate/karate.txt", "--undirected"},
        {"managers/friendship.csv", "managers/managers.csv", "managers/friendship.txt",
         "--directed"},
        {"mixed/advice.csv", "mixed/managers.csv", "mixed/advice.txt", "--directed"}};
    for (const Pair& pair : kPairs) {
        // The nodes file gives the matrix without names the same actors.
        const std::string nodes = path_of(pair.nodes);
        const ToolResult list = run_tool({"convert", path_of(pair.list), "-", "--nodes", nodes,
                                          pair.direction, "--to", "matrix"});
        const ToolResult matrix = run_tool({"convert", path_of(pair.matrix), "-", "--nodes", nodes,
                                            pair.direction, "--to", "matrix"});
        ASSERT_EQ(list.status, 0) << list.err;
        ASSERT_EQ(matrix.status, 0) << matrix.err;
        EXPECT_EQ(list.out, matrix.out) << pair.list;
    }
}
