// "ovri selftest", driven as a person would.
#include <cmath>
#include <nlohmann/json.hpp>

#include "support/tool_runner.h"

namespace {

using Json = nlohmann::json;

}  // namespace

TEST(ToolSelftest, FindsEveryAnswerOnAnyNumberOfThreads) {
    const ToolResult one = run_tool({"selftest", "--json", "--threads", "1"});
    ASSERT_EQ(one.status, 0) << one.out << one.err;
    const Json json = Json::parse(one.out);
    EXPECT_EQ(json["as_expected"], true);
    for (const Json& check : json["checks"]) {
        const std::string name =
            check["model"].get<std::string>() + ": " + check["quantity"].get<std::string>();
        const double gap = check["found"].get<double>() - check["expected"].get<double>();
        EXPECT_LE(std::fabs(gap), check["allowed"].get<double>() * check["unit"].get<double>())
            << name;
        EXPECT_EQ(check["verdict"], "as expected") << name;
    }
    const ToolResult three = run_tool({"selftest", "--json", "--threads", "3"});
    EXPECT_EQ(Json::parse(three.out)["checks"], json["checks"]);
}

TEST(ToolSelftest, ShowsATable) {
    const ToolResult result = run_tool({"selftest"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("check ")) << result.out;
    EXPECT_NE(result.out.find("karate club: edge, AT(2)"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\nall "), std::string::npos) << result.out;
    EXPECT_EQ(run_tool({"selftest", "--threads", "0"}).status, 2);
}
