// Models at a terminal under Windows: the table of an edge list is that of the tool here, and
// formats that a build without igraph cannot read are named with the way out.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/tool_runner.h"
#include "windows/wine.h"

namespace {

std::string without_carriage_returns(std::string text) {
    std::erase(text, '\r');
    return text;
}

class WindowsModels : public testing::Test {
  protected:
    void SetUp() override {
        if (const std::string reason = no_wine(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
    }
    ScratchDirectory scratch_;
};

TEST_F(WindowsModels, AnEdgeListGivesTheTableThatItGivesHere) {
    // A name of another script, and lines as a spreadsheet ends them.
    scratch_.write("friends.csv",
                   "from,to\r\nAnn,Ben\r\nBen,Cid\r\nAnn,Cid\r\nCid,\xC5\x81ucja\r\n"
                   "\xC5\x81ucja,Eve\r\nEve,Fay\r\nFay,\xC5\x81ucja\r\n");
    const std::vector<std::string> words = {"estimate",     "--network", "friends.csv",
                                            "--undirected", "--effects", "edge,triangle",
                                            "--seed",       "1",         "--overwrite"};
    const ChildResult child = run_wine(scratch_.path(), "ovri.exe", words);
    EXPECT_EQ(child.status, 0) << child.errors;
    const std::string csv = scratch_.read("friends.results/estimates.csv");
    EXPECT_TRUE(csv.starts_with("effect,estimate,")) << csv;
    EXPECT_EQ(without_carriage_returns(child.output),
              run_tool(words, scratch_.path().string()).out);
}

TEST_F(WindowsModels, AFormatThatNeedsIgraphIsNamedWithTheWayOut) {
    scratch_.write("friends.net", "*Vertices 3\n1 \"Ann\"\n2 \"Ben\"\n3 \"Cid\"\n*Edges\n1 2\n");
    const ChildResult child =
        run_wine(scratch_.path(), "ovri.exe",
                 {"estimate", "--network", "friends.net", "--undirected", "--effects", "edge"});
    EXPECT_EQ(child.status, 1) << child.output << child.errors;
    for (const char* piece :
         {"friends.net", "`pajek`", "this build has no igraph", "export the network as CSV"}) {
        EXPECT_NE(child.errors.find(piece), std::string::npos) << piece << "\n" << child.errors;
    }
    EXPECT_FALSE(scratch_.exists("friends.results"));
}

}  // namespace
