// "ovri report", driven as a person would.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/club.h"
#include "support/text_pieces.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class ToolReport : public ClubTest {
  protected:
    void estimate() {
        ASSERT_EQ(ovri({"estimate", "club.toml"}).status, 0) << result.out << result.err;
    }
    std::string page(const std::string& folder = "club.results") const {
        return scratch.read(folder + "/report.html");
    }
    void expect_well_formed(const std::string& path) const {
        if (!fs::exists("/usr/bin/xmllint")) {
            GTEST_SKIP() << "xmllint is not there";
        }
        const std::string file = (scratch.path() / path).string();
        EXPECT_EQ(std::system(("/usr/bin/xmllint --noout '" + file + "'").c_str()), 0) << path;
    }
};

}  // namespace

TEST_F(ToolReport, ShowsWhatTheFolderHolds) {
    estimate();
    ASSERT_EQ(ovri({"gof", "club.results"}).status, 0) << result.err;
    ASSERT_EQ(ovri({"report", "club.results"}).status, 0) << result.err;
    EXPECT_EQ(result.err, "report: club.results/report.html\n");
    EXPECT_EQ(result.out, "");
    const std::string text = page();
    for (const char* piece :
         {"converged", "id=\"estimates\"", "id=\"path-edge\"", "id=\"network\"",
          "id=\"trace-edge\"", "id=\"histogram-edge\"", "id=\"gof-degree\"",
          "id=\"gof-mixing-sex\"", "How to describe this in a paper", "Snijders",
          "Hunter, Goodreau and Handcock 2008", "model.toml", "seed 2", ">Ann</text>"}) {
        EXPECT_TRUE(has(text, piece)) << piece;
    }
    const Json json = Json::parse(scratch.read("club.results/gof.json"));
    EXPECT_TRUE(has(text, "40 simulated networks"));
    EXPECT_TRUE(has(text, json["conclusion"].get<std::string>().substr(0, 20)));
    expect_well_formed("club.results/report.html");
}

TEST_F(ToolReport, NeedsNeitherNetworkNorScript) {
    estimate();
    ASSERT_EQ(ovri({"report", "club.results", "-q"}).status, 0);
    EXPECT_EQ(result.err, "");
    const std::string text = page();
    EXPECT_FALSE(has(text, "<script"));
    EXPECT_FALSE(has(text, "<link"));
    EXPECT_FALSE(has(text, " src="));
    EXPECT_FALSE(has(text, " href="));
    EXPECT_FALSE(has(text, "url("));
    EXPECT_TRUE(has(text, "default-src 'none'"));
    EXPECT_TRUE(has(text, "ovri gof club.results"));
}

TEST_F(ToolReport, SaysOfEveryFigureThatEstimatesAreNotToBeUsed) {
    estimate();
    Json json = Json::parse(scratch.read("club.results/result.json"));
    json["verdict"] = "not_converged";
    json["exit_status"] = 4;
    json["reasons"] = {"the t-ratio of `edge` is 0.5"};
    json["advice"] = {"ovri estimate club.toml --attempts 20"};
    scratch.write("club.results/result.json", json.dump());
    EXPECT_EQ(ovri({"gof", "club.results"}).status, 4);
    ASSERT_EQ(ovri({"report", "club.results"}).status, 0) << result.err;
    const std::string text = page();
    for (std::size_t at = text.find("<figure"); at != std::string::npos;
         at = text.find("<figure", at + 1)) {
        const std::string figure = text.substr(at, text.find("</figure>", at) - at);
        EXPECT_TRUE(has(figure, "id=\"network\"") || has(figure, "not converged: do not use"))
            << figure.substr(0, 60);
    }
    EXPECT_TRUE(has(text, "ovri estimate club.toml --attempts 20"));
    EXPECT_TRUE(has(text, "not to be reported"));
    EXPECT_TRUE(has(text, "the t-ratio of `edge` is 0.5"));
}

TEST_F(ToolReport, HostileNamesAreText) {
    const std::string longest(200, 'n');
    scratch.write("evil.csv",
                  "from,to\n<script>alert(1)</script>,\"a \"\"b\"\" & 'c'\"\n"
                  "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D,<script>alert(1)</script>\n" +
                      longest + ",\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\nd," + longest + "\n");
    ASSERT_EQ(ovri({"estimate", "--network", "evil.csv", "--undirected", "--effects", "edge",
                    "--seed", "1", "-o", "<b>&'evil\""})
                  .status,
              0)
        << result.out << result.err;
    ASSERT_EQ(ovri({"report", "<b>&'evil\""}).status, 0) << result.err;
    const std::string text = page("<b>&'evil\"");
    EXPECT_FALSE(has(text, "<script"));
    EXPECT_FALSE(has(text, "<b>"));
    EXPECT_TRUE(has(text, "&lt;script&gt;alert(1)&lt;/script&gt;"));
    EXPECT_TRUE(has(text, longest));
    scratch.write("copy.html", text);
    expect_well_formed("copy.html");
}

TEST_F(ToolReport, SeveralResultsShareAPage) {
    estimate();
    ASSERT_EQ(ovri({"estimate", "club.toml", "--effects", "edge,same(sex)", "-o", "second"}).status,
              0)
        << result.out << result.err;
    ASSERT_EQ(ovri({"report", "club.results", "second/"}).status, 0) << result.err;
    const std::string text = scratch.read("report.html");
    EXPECT_TRUE(has(text, "id=\"histogram-edge-1\"") && has(text, "id=\"histogram-edge-2\""));
    EXPECT_TRUE(has(text, "same(sex)"));
    expect_well_formed("report.html");
    EXPECT_EQ(ovri({"report", "club.results", "second"}).status, 1);
    EXPECT_EQ(ovri({"report", "club.results", "second", "--overwrite"}).status, 0);
    EXPECT_EQ(ovri({"report", "club.results", "second", "-o", "pages/both"}).status, 0);
    EXPECT_TRUE(scratch.exists("pages/both/report.html"));
}

TEST_F(ToolReport, OfTwoThousandActorsStaysBelowThreeMegabytes) {
    constexpr int kActors = 2000;
    std::string ties = "from,to\n";
    std::string actors = "name,kind\n";
    for (int i = 0; i < kActors; ++i) {
        actors += "a" + std::to_string(i) + ",k" + std::to_string(i * i % 7) + "\n";
        for (const int step : {1, 7, i % 40 + 50}) {
            ties += "a" + std::to_string(i) + ",a" + std::to_string((i + step) % kActors) + "\n";
        }
    }
    scratch.write("big.csv", ties);
    scratch.write("kinds.csv", actors);
    ASSERT_EQ(ovri({"estimate", "--network", "big.csv", "--undirected", "--nodes", "kinds.csv",
                    "--effects", "edge,same(kind)", "--seed", "1", "-o", "big"})
                  .status,
              0)
        << result.err;
    ASSERT_EQ(ovri({"gof", "big", "--samples", "10"}).status, 0) << result.err;
    // As many samples as a simulated model of this size may have.
    std::string samples = "chain,draw,edge,same(kind)\n";
    for (int row = 0; row < 16000; ++row) {
        samples += std::to_string(row / 2000 + 1) + "," + std::to_string(row % 2000 + 1) + "," +
                   std::to_string(6000 + row * 37 % 101) + "," +
                   std::to_string(900 + row * 53 % 89) + "\n";
    }
    scratch.write("big/sample.csv", samples);
    ASSERT_EQ(ovri({"report", "big"}).status, 0) << result.err;
    const std::string text = page("big");
    EXPECT_TRUE(has(text, "id=\"network-kind\"") || has(text, "id=\"network\"")) << text.size();
    EXPECT_TRUE(has(text, "id=\"trace-edge\""));
    EXPECT_TRUE(has(text, "2000 actors, 6000 ties")) << text.substr(0, 9000);
    EXPECT_LT(text.size(), 3000000U);
}

TEST_F(ToolReport, FiguresAreFilesOfTheirOwn) {
    estimate();
    ASSERT_EQ(ovri({"report", "club.results", "--figures", "svg"}).status, 0) << result.err;
    for (const char* name : {"estimates", "network", "trace-edge", "histogram-edge"}) {
        const std::string path = std::string("club.results/figures/") + name + ".svg";
        ASSERT_TRUE(scratch.exists(path)) << path;
        expect_well_formed(path);
    }
    EXPECT_TRUE(has(scratch.read("club.results/figures/estimates.svg"), "width=\"88mm\""));
    EXPECT_EQ(ovri({"report", "club.results", "--figures", "pdf"}).status, 1);
    EXPECT_TRUE(has(result.err, "club.results/report.html exists; add --overwrite")) << result.err;
    EXPECT_EQ(ovri({"report", "club.results"}).status, 1);
    fs::remove(scratch.path() / "club.results/report.html");
    EXPECT_EQ(ovri({"report", "club.results", "--figures", "pdf"}).status, 1);
    EXPECT_TRUE(has(result.err, "club.results/figures exists; add --overwrite")) << result.err;
    const int status = ovri({"report", "club.results", "--figures", "pdf", "--overwrite"}).status;
    if (fs::exists("/usr/bin/rsvg-convert")) {
        EXPECT_EQ(status, 0) << result.err;
        EXPECT_TRUE(scratch.read("club.results/figures/estimates.pdf").starts_with("%PDF"));
    } else {
        EXPECT_EQ(status, 3);
        EXPECT_TRUE(has(result.err, "librsvg2-bin")) << result.err;
    }
}

TEST_F(ToolReport, WithoutItsNetworkTheRestIsShown) {
    estimate();
    fs::remove(scratch.path() / "club.csv");
    ASSERT_EQ(ovri({"report", "club.results"}).status, 0) << result.err;
    EXPECT_FALSE(has(page(), "id=\"network\""));
    EXPECT_TRUE(has(page(), "The network is not drawn"));
    expect_well_formed("club.results/report.html");
}

TEST_F(ToolReport, MistakesAreTold) {
    EXPECT_EQ(ovri({"report"}).status, 2);
    EXPECT_EQ(ovri({"report", "club.results"}).status, 1);
    EXPECT_TRUE(has(result.err, "no results folder")) << result.err;
    EXPECT_EQ(ovri({"report", "club.results", "--figures", "gif"}).status, 2);
    estimate();
    scratch.write("club.results/gof.json", "{}");
    EXPECT_EQ(ovri({"report", "club.results"}).status, 1);
    EXPECT_FALSE(scratch.exists("club.results/report.html"));
}
