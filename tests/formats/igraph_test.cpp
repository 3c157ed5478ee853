// Pajek, GraphML and GML by igraph; and every format written and read back.
#include "formats/igraph_files.h"

#include <gtest/gtest.h>

#include "formats/network_writer.h"
#include "formats/study_files.h"
#include "support/scratch_directory.h"

namespace {

NetworkFile read_as(const std::string& name, const std::string& text,
                    const NetworkOptions& options = {}) {
    return read_network(text_file_of(name, text), options, nullptr);
}

std::string problems_of(const NetworkFile& file) {
    std::string text;
    for (const Problem& problem : file.problems) {
        text += problem_text(problem) + "\n";
    }
    return text;
}

StudyNetwork small_network(bool directed) {
    StudyNetwork network;
    network.actors = {"Ann Lee", "Bob & Co", "Zo\xC3\xA9", "lone"};
    network.directed = directed;
    network.ties = {{0, 1}, {0, 2}, {1, 2}};
    return network;
}

class Formats : public testing::Test {
  protected:
    void SetUp() override {
        if (!has_igraph()) {
            GTEST_SKIP() << "built without igraph";
        }
    }
};

TEST_F(Formats, WhatIsWrittenReadsBack) {
    for (const bool directed : {false, true}) {
        const StudyNetwork network = small_network(directed);
        for (const NetworkFormat format :
             {NetworkFormat::matrix, NetworkFormat::pajek, NetworkFormat::graphml,
              NetworkFormat::gml, NetworkFormat::dl}) {
            const char* name = network_format_name(format);
            const NetworkFile file =
                read_as("network", network_text(network, format), {.format = format});
            ASSERT_TRUE(file.ok()) << name << ": " << problems_of(file);
            EXPECT_EQ(file.network.actors, network.actors) << name;
            EXPECT_EQ(file.network.directed, directed) << name;
            EXPECT_EQ(file.network.ties, network.ties) << name;
        }
    }
}

TEST_F(Formats, AreToldApartByContentAndExtension) {
    for (const NetworkFormat format :
         {NetworkFormat::edge_list, NetworkFormat::matrix, NetworkFormat::pajek,
          NetworkFormat::graphml, NetworkFormat::gml, NetworkFormat::dl}) {
        const NetworkFile file =
            read_as("network", network_text(small_network(true), format), {.directed = true});
        EXPECT_EQ(file.format, format) << problems_of(file);
    }
    EXPECT_EQ(format_of_path("a.NET"), NetworkFormat::pajek);
    EXPECT_EQ(format_of_path("a.csv"), std::nullopt);
    EXPECT_EQ(network_format_of("Edge_List"), NetworkFormat::edge_list);
}

TEST_F(Formats, PajekProjectsGiveTheirFirstNetwork) {
    const NetworkFile file = read_as("a.paj",
                                     "*Network one\r\n*Vertices 3\r\n1 \"x\"\r\n2 \"y\"\r\n3 "
                                     "\"z\"\r\n*Edges\r\n1 2\r\n2 3\r\n*Partition p\r\n*Vertices "
                                     "3\r\n1\r\n2\r\n1\r\n");
    ASSERT_TRUE(file.ok()) << problems_of(file);
    EXPECT_EQ(file.network.actors, (ActorList{"x", "y", "z"}));
    EXPECT_FALSE(file.network.directed);
    EXPECT_EQ(file.counts.ties, 2);
}

TEST_F(Formats, PajekWithoutNamesHasNumbers) {
    const NetworkFile file = read_as("a.net", "*Vertices 3\n*Arcs\n1 2 1\n3 1 1\n");
    ASSERT_TRUE(file.ok()) << problems_of(file);
    EXPECT_EQ(file.network.actors, (ActorList{"1", "2", "3"}));
    EXPECT_TRUE(file.network.directed);
    EXPECT_EQ(file.network.ties, (std::vector<ActorTie>{{0, 1}, {2, 0}}));
}

TEST_F(Formats, WeightsNeedAThresholdToo) {
    const std::string text = "*Vertices 3\n*Edges\n1 2 3\n2 3 0.5\n";
    const NetworkFile file = read_as("a.net", text);
    ASSERT_FALSE(file.ok());
    EXPECT_NE(file.problems[0].mend.find("threshold"), std::string::npos);
    EXPECT_EQ(read_as("a.net", text, {.threshold = 1.0}).counts.ties, 1);
}

TEST_F(Formats, WhatCannotBeParsedIsAProblemWithItsLine) {
    const NetworkFile pajek = read_as("a.net", "*Vertices 3\n1 \"x\"\n*Arcs\n1 2\nnonsense ( 5\n");
    ASSERT_FALSE(pajek.ok());
    EXPECT_EQ(pajek.problems[0].line, 5) << problems_of(pajek);
    EXPECT_FALSE(read_as("a.graphml", "<graphml><graph>").ok());
    EXPECT_FALSE(read_as("a.gml", "graph [ node [ id 1 ] edge [ source 1 target 7 ] ]").ok());
    EXPECT_FALSE(read_as("a.net", "just words\n").ok());
}

constexpr const char* kMembers =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<graphml xmlns=\"http://graphml.graphdrawing.org/xmlns\">\n"
    "<key id=\"n\" for=\"node\" attr.name=\"name\" attr.type=\"string\"/>\n"
    "<key id=\"s\" for=\"node\" attr.name=\"sex\" attr.type=\"string\"/>\n"
    "<key id=\"a\" for=\"node\" attr.name=\"age\" attr.type=\"double\"/>\n"
    "<graph edgedefault=\"undirected\">\n"
    "<node id=\"x\"><data key=\"n\">10</data><data key=\"s\">f</data><data "
    "key=\"a\">21.5</data></node>\n"
    "<node id=\"y\"><data key=\"n\">9</data><data key=\"s\">m</data><data "
    "key=\"a\">30</data></node>\n"
    "<node id=\"z\"><data key=\"n\">8</data><data key=\"s\">f</data></node>\n"
    "<edge source=\"x\" target=\"y\"/>\n</graph>\n</graphml>\n";

TEST_F(Formats, AttributesOfActorsAreReadWithTheNetwork) {
    const NetworkFile file = read_as("members.graphml", kMembers);
    ASSERT_TRUE(file.ok()) << problems_of(file);
    // Numbers come in ascending order, and their attributes with them.
    ASSERT_EQ(file.network.actors, (ActorList{"8", "9", "10"}));
    ASSERT_EQ(file.columns.size(), 2U);
    EXPECT_EQ(file.columns[0].name, "sex");
    EXPECT_EQ(file.columns[0].values, (std::vector<std::string>{"f", "m", "f"}));
    EXPECT_EQ(file.columns[1].values, (std::vector<std::string>{"", "30", "21.5"}));
}

TEST_F(Formats, AttributesOfTheNetworksFileServeAModel) {
    const ScratchDirectory scratch;
    ModelFile model;
    model.network.file = scratch.write("members.graphml", kMembers);
    add_effects("edge,same(sex)", model);
    const StudyFiles files = load_study(model);
    ASSERT_TRUE(files.ok()) << problem_text(files.problems[0]);
    // The age of one is missing: it is left out, for the model does not use it.
    ASSERT_EQ(files.study.attributes.size(), 1U);
    EXPECT_EQ(files.study.attributes[0].values, (std::vector<double>{0, 1, 0}));
    model.model = {};
    model.effect_places.clear();
    add_effects("edge,sum(age)", model);
    const StudyFiles missing = load_study(model);
    ASSERT_FALSE(missing.ok());
    EXPECT_NE(problem_text(missing.problems[0]).find("actor `8`, column `age`"), std::string::npos)
        << problem_text(missing.problems[0]);
    model.network.nodes = scratch.write("nodes.csv", "name,age\n8,1\n9,2\n10,4\n");
    const StudyFiles other = load_study(model);
    ASSERT_TRUE(other.ok()) << problem_text(other.problems[0]);
    EXPECT_EQ(other.study.attributes.size(), 1U);
    EXPECT_TRUE(std::any_of(other.notes.begin(), other.notes.end(), [](const std::string& note) {
        return note.find("attributes in its file were not read") != std::string::npos;
    }));
}

TEST(Writing, EdgeListsHaveAHeadAndQuotes) {
    EXPECT_EQ(network_text(small_network(false), NetworkFormat::edge_list),
              "from,to\nAnn Lee,Bob & Co\nAnn Lee,Zo\xC3\xA9\nBob & Co,Zo\xC3\xA9\n");
    StudyNetwork network;
    network.actors = {"a,b", "c \"d\""};
    network.ties = {{0, 1}};
    EXPECT_EQ(network_text(network, NetworkFormat::edge_list),
              "from,to\n\"a,b\",\"c \"\"d\"\"\"\n");
}

TEST(Writing, DotNamesTheActors) {
    EXPECT_EQ(network_text(small_network(true), NetworkFormat::dot),
              "digraph {\n  \"Ann Lee\";\n  \"Bob & Co\";\n  \"Zo\xC3\xA9\";\n  \"lone\";\n"
              "  \"Ann Lee\" -> \"Bob & Co\";\n  \"Ann Lee\" -> \"Zo\xC3\xA9\";\n"
              "  \"Bob & Co\" -> \"Zo\xC3\xA9\";\n}\n");
    const NetworkFile file = read_as("a.dot", "graph {}\n");
    ASSERT_FALSE(file.ok());
    EXPECT_NE(file.problems[0].found.find("not read"), std::string::npos);
}

}  // namespace
