// The documents that the tool prints and leaves, against docs/schema/, and what holds them there.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/json_schema.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Faults = std::vector<std::string>;

// -- The validator

constexpr const char* kSchema = R"({
    "type": "object", "required": ["name", "sizes"], "additionalProperties": false,
    "properties": {
        "name": {"description": "Any.", "type": ["string", "null"]},
        "kind": {"enum": ["one", 2, null]},
        "mark": {"const": "x/1"},
        "sizes": {"type": "array", "items": {"type": "integer"}},
        "rest": {"type": "object", "properties": {"half": {"type": "number"}}}
    }})";

Faults faults_of(const std::string& document) { return schema_faults(kSchema, document); }

TEST(JsonSchema, TakesWhatFits) {
    EXPECT_EQ(faults_of(R"({"name": "a", "sizes": []})"), Faults());
    EXPECT_EQ(faults_of(R"({"name": null, "sizes": [1, -2], "kind": 2, "mark": "x/1",
                            "rest": {"half": 1, "other": true}})"),
              Faults());
}

TEST(JsonSchema, NamesThePlaceOfWhatDoesNotFit) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {R"([])", ": [] is no \"object\""},
        {R"({"name": "a"})", ": sizes is missing"},
        {R"({"name": 1, "sizes": []})", "/name: 1 is no [\"string\",\"null\"]"},
        {R"({"name": "a", "sizes": [1, 2.5]})", "/sizes/1: 2.5 is no \"integer\""},
        {R"({"name": "a", "sizes": {}})", "/sizes: {} is no \"array\""},
        {R"({"name": "a", "sizes": [], "kind": "two"})",
         "/kind: \"two\" is none of [\"one\",2,null]"},
        {R"({"name": "a", "sizes": [], "mark": "x/2"})", "/mark: \"x/2\" is none of [\"x/1\"]"},
        {R"({"name": "a", "sizes": [], "rest": {"half": "b"}})",
         "/rest/half: \"b\" is no \"number\""},
        {R"({"name": "a", "sizes": [], "more": 1})", ": more is not in the schema"},
    };
    for (const auto& [document, fault] : cases) {
        const Faults faults = faults_of(document);
        ASSERT_FALSE(faults.empty()) << document;
        EXPECT_EQ(faults.front(), fault);
    }
    EXPECT_EQ(faults_of("{").size(), 1U);
}

TEST(JsonSchema, TrustsNoKeywordThatItDoesNotKnow) {
    EXPECT_EQ(schema_faults(R"({"minimum": 3})", "5"),
              Faults{": the schema's keyword minimum is not known"});
}

TEST(JsonSchema, NeedsASchemaOfTheFormat) {
    EXPECT_EQ(document_faults(R"({"format": "ovri-nothing/1"})").size(), 1U);
    EXPECT_EQ(document_faults(R"({"name": "a"})").size(), 1U);
    EXPECT_GT(document_faults(R"({"format": "ovri-result/1"})").size(), 5U);
}

// -- The documents

class Documents : public testing::Test {
  protected:
    Documents() {
        scratch_.write("friends.csv",
                       "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\n"
                       "Fay,Gus\nGus,Hal\nHal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\nBen,Hal\n");
        scratch_.write("nodes.csv",
                       "name,sex\nAnn,f\nBen,m\nCid,m\nDot,f\nEve,f\nFay,f\nGus,m\nHal,m\n"
                       "Ida,f\nJon,m\n");
    }
    // The document of a command that ends with the status; the runner has held it to its schema.
    std::string document_of(const std::vector<std::string>& words, int status) {
        const ToolResult result = run_tool(words, scratch_.path().string());
        EXPECT_EQ(result.status, status) << result.err;
        EXPECT_TRUE(is_document(result.out)) << result.out;
        EXPECT_EQ(document_faults(result.out), Faults());
        return result.out;
    }
    std::string estimate(const std::string& effects, const std::string& folder, int status) {
        const std::string text = document_of(
            {"estimate", "--network", "friends.csv", "--nodes", "nodes.csv", "--undirected",
             "--effects", effects, "--seed", "3", "--attempts", "1", "--json", "-o", folder},
            status);
        EXPECT_EQ(text, scratch_.read(folder + "/result.json"));
        return text;
    }
    ScratchDirectory scratch_;
};

TEST_F(Documents, ResultsOfEveryVerdictFollowTheirSchema) {
    estimate("edge,AS(2)", "converged", 0);
    const std::string same = estimate("edge,same(sex),different(sex)", "same", 5);
    EXPECT_NE(same.find("\"not_identified\""), std::string::npos);
    document_of({"simulate", "converged", "--samples", "3", "--seed", "1", "--json"}, 0);
}

TEST_F(Documents, FitsFollowTheirSchema) {
    estimate("edge,AS(2)", "converged", 0);
    const std::string text =
        document_of({"gof", "converged", "--samples", "20", "--seed", "1", "--json"}, 0);
    EXPECT_EQ(text, scratch_.read("converged/gof.json"));
}

TEST_F(Documents, ChecksFollowTheirSchema) {
    const std::vector<std::string> words = {"check",        "--network", "friends.csv",
                                            "--undirected", "--json",    "--effects"};
    const auto check = [&](const std::string& effects, int status) {
        std::vector<std::string> all = words;
        all.push_back(effects);
        return document_of(all, status);
    };
    EXPECT_NE(check("edge,AT(2)", 0).find("\"actors\": 10"), std::string::npos);
    EXPECT_NE(check("edge,AT(0.5)", 1).find("\"severity\": \"error\""), std::string::npos);
    scratch_.write("run.setup", ToolSetup{.network = "nowhere.txt"}.text());
    document_of({"check", "run.setup", "--json"}, 1);
}

TEST_F(Documents, TheEncyclopaediaFollowsItsSchema) {
    document_of({"effects", "--json"}, 0);
    document_of({"effects", "AT", "--json"}, 0);
}

TEST_F(Documents, ASchemaNoticesWhatIsChanged) {
    const std::string text = estimate("edge", "edge", 0);
    EXPECT_EQ(document_faults(with(text, "\"seed\": 3", "\"seed\": \"3\"")).size(), 1U);
    EXPECT_EQ(document_faults(with(text, "\"p_value\"", "\"p\"")).size(), 2U);
    EXPECT_EQ(document_faults(with(text, "\"converged\"", "\"fine\"")).size(), 1U);
}

TEST(Schemas, AreFilesOfTheirFormats) {
    int count = 0;
    for (const auto& each :
         fs::directory_iterator(fs::path(OVRI_SOURCE_DIRECTORY) / "docs" / "schema")) {
        // A document of that format and nothing else lacks members, but has a schema.
        std::string format = each.path().stem().string();
        format[format.rfind('-')] = '/';
        const Faults faults = document_faults(R"({"format": ")" + format + "\"}");
        ASSERT_FALSE(faults.empty()) << format;
        for (const std::string& fault : faults) {
            EXPECT_TRUE(fault.ends_with(" is missing")) << format << fault;
        }
        ++count;
    }
    EXPECT_GE(count, 3);
}

}  // namespace
