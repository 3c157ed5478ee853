// "ovri effects": the encyclopaedia at a terminal and in scripts.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "encyclopaedia/effect_entries.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

// Characters of the longest line.
std::size_t longest_line(const std::string& text) {
    std::size_t longest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::size_t width = 0;
        for (const char byte : line) {
            width += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U ? 1 : 0;
        }
        longest = std::max(longest, width);
    }
    return longest;
}

TEST(ToolEffects, ListsEveryEffectByKindAndGroup) {
    const ToolResult result = run_tool({"effects"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out.find("Undirected networks\n"), 0U);
    EXPECT_LE(longest_line(result.out), 80U);
    for (const EffectEntry& entry : effect_entries()) {
        EXPECT_TRUE(has(result.out, "\n    " + std::string(entry.facts.name))) << entry.row;
        EXPECT_TRUE(has(result.out, "\n  " + section_title(entry))) << entry.row;
    }
}

TEST(ToolEffects, ShowsNoOtherKindThanAskedFor) {
    const std::string directed = run_tool({"effects", "--directed"}).out;
    EXPECT_EQ(directed.find("Directed networks\n"), 0U);
    EXPECT_FALSE(has(directed, "Undirected"));
    EXPECT_FALSE(has(run_tool({"effects", "--undirected"}).out, "Directed"));
    EXPECT_EQ(run_tool({"effects", "--directed", "--undirected"}).status, 2);
}

TEST(ToolEffects, TellsAllOfAnEffectUnderAnyOfItsNames) {
    const ToolResult result = run_tool({"effects", "transitive-triad"});
    EXPECT_EQ(result.status, 0);
    EXPECT_LE(longest_line(result.out), 80U);
    for (const char* piece :
         {"transitive-triad - directed networks", "sum_{i,j} x_ij p_ij", "p_ij + s_ij + r_ij",
          "`T9(030T)`: values of a simulation", "`ttriple`", "Davis, J. A."}) {
        EXPECT_TRUE(has(result.out, piece)) << piece << "\n" << result.out;
    }
    for (const char* name : {"030T", "t9", "T9(030T)", "TRANSITIVE_TRIAD", "ttriple"}) {
        EXPECT_EQ(run_tool({"effects", name}).out, result.out) << name;
    }
}

TEST(ToolEffects, TellsWhatLambdaDoesAndHowDecayConverts) {
    const std::string out = run_tool({"effects", "AT(2)"}).out;
    EXPECT_TRUE(has(out, "λ = 1.5")) << out;
    EXPECT_TRUE(has(out, "lambda = exp(α)")) << out;
    EXPECT_TRUE(has(out, "##########")) << out;
}

TEST(ToolEffects, ShowsBothKindsUnderOneNameAndAListOfMany) {
    const std::string isolates = run_tool({"effects", "isolates"}).out;
    EXPECT_TRUE(has(isolates, "isolates - undirected networks"));
    EXPECT_TRUE(has(isolates, "\nisolates - directed networks"));
    const std::string many = run_tool({"effects", "gwesp"}).out;
    EXPECT_TRUE(has(many, "\n    AT-T(lambda)"));
    EXPECT_FALSE(has(many, "Drawing"));
}

TEST(ToolEffects, NamesWhatAnUnknownNameIsLike) {
    const ToolResult result = run_tool({"effects", "triangel"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "ovri: unknown effect `triangel`; a similar one is `triangle`\n");
    EXPECT_EQ(run_tool({"effects", "zebrafish"}).err,
              "ovri: unknown effect `zebrafish`; `ovri effects` lists all, `ovri effects --search "
              "WORDS` finds some\n");
    const ToolResult other = run_tool({"effects", "arc", "--undirected"});
    EXPECT_EQ(other.status, 2);
    EXPECT_EQ(other.err, "ovri: `arc` is an effect of directed networks\n");
}

TEST(ToolEffects, SearchesNamesMeaningsAndKeywords) {
    const ToolResult result = run_tool({"effects", "--search", "closure", "--undirected"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(has(result.out, "\n    AT(lambda)"));
    EXPECT_FALSE(has(result.out, "\n    3-path"));
    const ToolResult none = run_tool({"effects", "--search", "zebra"});
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "no effect has `zebra` in its names, its meaning or its keywords\n");
    EXPECT_EQ(run_tool({"effects", "AT", "--search", "closure"}).status, 2);
}

TEST(ToolEffects, GivesADocumentWithEveryField) {
    const ToolResult result = run_tool({"effects", "--json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const nlohmann::json document = nlohmann::json::parse(result.out);
    EXPECT_EQ(document.at("format"), "ovri-effects/1");
    const nlohmann::json& effects = document.at("effects");
    ASSERT_EQ(effects.size(), effect_entries().size());
    for (std::size_t k = 0; k < effects.size(); ++k) {
        const EffectEntry& entry = effect_entries()[k];
        const nlohmann::json& effect = effects[k];
        EXPECT_EQ(effect.at("name"), entry.facts.name);
        EXPECT_EQ(effect.at("network"), kind_name(entry.kind));
        EXPECT_EQ(effect.at("count"), entry.facts.formula);
        EXPECT_EQ(effect.at("change").is_null(), entry.page->change == nullptr);
        EXPECT_EQ(effect.at("lambda").is_null(), !entry.alternating);
        EXPECT_FALSE(effect.at("host_labels").empty());
        EXPECT_EQ(effect.size(), 23U);
    }
}

TEST(ToolEffects, ADocumentHoldsWhatWasAskedFor) {
    const auto named = nlohmann::json::parse(run_tool({"effects", "AS", "--json"}).out);
    ASSERT_EQ(named.at("effects").size(), 1U);
    const nlohmann::json& effect = named.at("effects")[0];
    EXPECT_EQ(effect.at("written"), "AS(lambda)");
    EXPECT_EQ(effect.at("second_row"), "AS2");
    EXPECT_EQ(effect.at("lambda").at("weights")[1].at("values")[1], 1.0);
    const auto none =
        nlohmann::json::parse(run_tool({"effects", "--search", "zebra", "--json"}).out);
    EXPECT_TRUE(none.at("effects").empty());
}

TEST(ToolEffects, CsvIsATable) {
    const ToolResult result = run_tool({"effects", "AT", "--undirected", "--csv"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(
        result.out.starts_with("name,kind,data,written,meaning\nAT,undirected,structural,"
                               "AT(lambda),"))
        << result.out;
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2) << result.out;
    EXPECT_EQ(run_tool({"effects", "--csv", "--json"}).status, 2);
}

}  // namespace
