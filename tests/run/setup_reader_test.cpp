// What the reader makes of setup files.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "run/setup_file.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

SetupFile read_text(const std::string& text) {
    const ScratchDirectory scratch;
    return read_setup(scratch.write("run.setup", text));
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

const StructuralChoice& choice(const SetupFile& setup, std::string_view row) {
    const auto& effects = setup.selection.catalogue->effects;
    for (std::size_t id = 0; id < effects.size(); ++id) {
        if (effects[id].row == row) {
            return setup.selection.structural[id];
        }
    }
    ADD_FAILURE() << row;
    return setup.selection.structural.front();
}

SetupText rich_setup(NetworkKind kind, int mode) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.cap = 4;
    setup.effects = kind == NetworkKind::directed
                        ? std::vector<ModelTerm>{{"arc", -1.0}, {"AT-T", 0.25, 1.5F}}
                        : std::vector<ModelTerm>{{"edge", -1.0}, {"AT", 0.25, 1.5F}};
    setup.attributes = attribute_section(kind, 1, "0.5");
    setup.covariates = covariate_section(kind, 1, "0.125");
    setup.free_dyads = "free dyads.txt";
    setup.switches = {1, 0, 1, 0, 1, 0, 1};
    return setup;
}

// Everything that a run works with, as text.
std::string described(const SetupFile& setup) {
    const RunSettings& s = setup.settings;
    std::string text = s.network_name + "|" + s.output_directory + "|" + s.network_path + "|" +
                       s.free_dyads_path + "|" + s.covariance_path;
    for (const double value : {static_cast<double>(s.proposal_kind),
                               static_cast<double>(s.actor_count),
                               static_cast<double>(s.density),
                               static_cast<double>(s.max_degree),
                               static_cast<double>(s.free_dyads_flag),
                               s.burn_in,
                               s.iterations,
                               static_cast<double>(s.sample_count),
                               static_cast<double>(s.estimation.sub_phases),
                               static_cast<double>(s.estimation.a_value),
                               static_cast<double>(s.estimation.multiplication_factor),
                               static_cast<double>(s.estimation.phase3_steps),
                               static_cast<double>(s.estimation.estimation_runs),
                               static_cast<double>(s.gof_after_estimation),
                               static_cast<double>(s.switches.sample_graphs),
                               static_cast<double>(s.switches.degree_distribution),
                               static_cast<double>(s.switches.geodesic_distribution),
                               static_cast<double>(s.switches.cluster_giant),
                               static_cast<double>(s.switches.triangle_distribution),
                               static_cast<double>(s.switches.two_path_distribution),
                               static_cast<double>(s.switches.et_distribution)}) {
        text += "|" + std::to_string(value);
    }
    for (const StructuralChoice& c : setup.selection.structural) {
        text += "|" + std::to_string(c.position) + " " + std::to_string(c.value) + " " +
                std::to_string(c.lambda);
    }
    for (const AttributeSelection& group : setup.selection.groups) {
        text += "|" + group.path + " " + std::to_string(group.selected);
        for (const auto& row : group.choices) {
            for (const AttributeChoice& c : row) {
                text += " " + std::to_string(c.flag) + ":" + std::to_string(c.value);
            }
        }
    }
    return text;
}

TEST(SetupReader, FindsEverySettingOfEveryModeAndKind) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            const SetupFile setup = read_text(setup_text(rich_setup(kind, mode)));
            EXPECT_TRUE(setup.opened);
            EXPECT_EQ(setup.settings.run_mode, mode);
            EXPECT_EQ(setup.settings.network_name, "net");
            EXPECT_EQ(setup.settings.output_directory, "out");
            EXPECT_EQ(setup.settings.actor_count, 6);
            EXPECT_EQ(setup.settings.max_degree, 4);
            EXPECT_EQ(setup.settings.free_dyads_flag, 1);
            EXPECT_EQ(setup.settings.free_dyads_path, "free dyads.txt");
            const bool directed = kind == NetworkKind::directed;
            const StructuralChoice& triangles = choice(setup, directed ? "AT-T" : "AT");
            EXPECT_EQ(triangles.position, 1);
            EXPECT_EQ(triangles.value, 0.25);
            EXPECT_EQ(triangles.lambda, 1.5F);
            EXPECT_EQ(selection_size(setup.selection),
                      directed ? 2 + 10 + 26 + 4 + 1 : 2 + 10 + 6 + 2 + 6);
            if (mode == 1) {
                EXPECT_EQ(setup.settings.density, 0.3F);
            } else {
                EXPECT_EQ(setup.settings.network_path, "network.txt");
            }
            if (mode == 2) {
                EXPECT_EQ(setup.settings.estimation.phase3_steps, 50);
                EXPECT_EQ(setup.settings.estimation.estimation_runs, 1);
            } else {
                EXPECT_EQ(setup.settings.burn_in, 50.0);
                EXPECT_EQ(setup.settings.iterations, mode == 4 ? 0.0 : 200.0);
                EXPECT_EQ(setup.settings.sample_count, 4);
                EXPECT_TRUE(setup.settings.switches.sample_graphs);
                EXPECT_FALSE(setup.settings.switches.degree_distribution);
                EXPECT_TRUE(setup.settings.switches.et_distribution);
            }
            EXPECT_EQ(setup.settings.covariance_path, mode == 4 ? "covariance.txt" : "");
        }
    }
}

TEST(SetupReader, BlankLinesAndLineBreaksBetweenItemsChangeNothing) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            const std::string plain = setup_text(rich_setup(kind, mode));
            std::string airy;
            for (const char c : plain) {
                airy += c == '\n'  ? std::string("\n\n\n")
                        : c == ' ' ? std::string("\n \t")
                                   : std::string(1, c);
            }
            // A text line keeps its own blanks.
            airy = replaced(airy, "free\n \tdyads.txt", "free dyads.txt");
            EXPECT_EQ(described(read_text(airy)), described(read_text(plain)));
        }
    }
}

TEST(SetupReader, AFlagOfTwoLeavesAnEffectOffAndKeepsItsValue) {
    SetupText text;
    text.effects = {{"edge", -1.5}, {"AT", 0.75, 3.0F}};
    std::string file = setup_text(text);
    file = replaced(file, "edge 1 -1.5", "edge 2 -1.5");
    file = replaced(file, "AT 1 0.75 3", "AT 2 0.75 3");
    const SetupFile setup = read_text(file);
    EXPECT_EQ(choice(setup, "edge").position, -1);
    EXPECT_EQ(choice(setup, "edge").value, -1.5);
    EXPECT_EQ(choice(setup, "AT").position, -1);
    EXPECT_EQ(choice(setup, "AT").lambda, 3.0F);
    EXPECT_EQ(selection_size(setup.selection), 0);
}

TEST(SetupReader, SectionsThatAreOffHaveNoRowsAndPlacesBeginAtZero) {
    SetupText text;
    text.structural = false;
    text.attributes = attribute_section(NetworkKind::undirected, 1, "0.5");
    const SetupFile setup = read_text(setup_text(text));
    for (const StructuralChoice& c : setup.selection.structural) {
        EXPECT_EQ(c.position, -1);
        EXPECT_EQ(c.lambda, 0.0F);
    }
    EXPECT_EQ(setup.selection.structural_count, 0);
    EXPECT_EQ(selection_size(setup.selection), 18);
    EXPECT_EQ(setup.settings.sample_count, 4);
}

TEST(SetupReader, DirectedLambdasAreTwoWithoutAStructuralSection) {
    SetupText text;
    text.kind = NetworkKind::directed;
    text.structural = false;
    for (const StructuralChoice& c : read_text(setup_text(text)).selection.structural) {
        EXPECT_EQ(c.lambda, 2.0F);
    }
}

TEST(SetupReader, ACapStandsOnlyBehindAFlagOfOne) {
    SetupText text;
    EXPECT_EQ(read_text(setup_text(text)).settings.max_degree, 9999);
    text.cap = 7;
    EXPECT_EQ(read_text(setup_text(text)).settings.max_degree, 7);
    // With a flag of 2 the reader takes what follows for the next item.
    const std::string off = replaced(setup_text(text), "Degree_cap 1\n7\n", "Degree_cap 2\n");
    EXPECT_EQ(read_text(off).settings.max_degree, 9999);
    EXPECT_EQ(read_text(off).settings.sample_count, 4);
}

TEST(SetupReader, AnAttributeCountOfZeroHasNeitherPathNorRows) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        SetupText text;
        text.kind = kind;
        text.attributes = "Attributes 1\nBinary 1\n0\nContinuous 0\nCategorical 1\n0\n";
        const SetupFile setup = read_text(setup_text(text));
        EXPECT_EQ(group_of(setup.selection, AttributeGroup::binary).flag, 1);
        EXPECT_EQ(group_of(setup.selection, AttributeGroup::binary).attributes, 0);
        EXPECT_EQ(setup.settings.iterations, 200.0);
        EXPECT_EQ(setup.settings.sample_count, 4);
    }
}

TEST(SetupReader, OnlyAnUndirectedCovariateCountOfZeroHasItsPath) {
    SetupText text;
    text.covariates = "Covariates 1\n0\nFile covariates.txt\n";
    EXPECT_EQ(read_text(setup_text(text)).settings.sample_count, 4);
    text.kind = NetworkKind::directed;
    text.covariates = "Covariates 1\n0\n";
    EXPECT_EQ(read_text(setup_text(text)).settings.sample_count, 4);
}

TEST(SetupReader, ALabelWithABlankShiftsWhatFollows) {
    const std::string file = replaced(setup_text({}), "Proposal_kind 0", "Proposal kind 3");
    // "kind" is no number and becomes the next label; the proposal's 3 is then taken for the mode.
    const SetupFile setup = read_text(file);
    EXPECT_EQ(setup.settings.proposal_kind, 0);
    EXPECT_EQ(setup.settings.run_mode, 3);
    EXPECT_EQ(setup.settings.network_kind, 0);
}

TEST(SetupReader, TextLinesKeepWhatTheyHold) {
    SetupText text;
    text.name = "two words ";
    text.directory = "some where\r";
    const SetupFile setup = read_text(setup_text(text));
    EXPECT_EQ(setup.settings.network_name, "two words ");
    EXPECT_EQ(setup.settings.output_directory, "some where\r");
}

TEST(SetupReader, LabelsAndLinesMayHaveAnyLength) {
    SetupText text;
    text.name = std::string(70000, 'n');
    std::string file = setup_text(text);
    file = replaced(file, "Proposal_kind", std::string(70000, 'p'));
    const SetupFile setup = read_text(file);
    EXPECT_EQ(setup.settings.network_name, text.name);
    EXPECT_EQ(setup.settings.sample_count, 4);
}

TEST(SetupReader, ANumberThatCannotBeReadLeavesItsSettingAsItWas) {
    SetupText text;
    text.mode = 2;
    const std::string file = replaced(setup_text(text), "Sub_phases 2", "Sub_phases many");
    EXPECT_EQ(read_text(file).settings.estimation.sub_phases, 5);
}

TEST(SetupReader, AnUnknownModeOrKindEndsTheReading) {
    for (const char* mode : {"0 1", "5 1", "1 0", "1 3", "-1 -1"}) {
        const std::string file = replaced(setup_text({}), "Run_mode_and_network_kind 1 1",
                                          std::string("Run_mode_and_network_kind ") + mode);
        const SetupFile setup = read_text(file);
        EXPECT_TRUE(setup.opened);
        EXPECT_EQ(setup.selection.catalogue, nullptr);
        EXPECT_EQ(setup.settings.actor_count, 0);
    }
}

TEST(SetupReader, AnImpossibleAttributeCountIsRefused) {
    SetupText text;
    text.attributes = "Attributes 1\nBinary 1\n2000000000\nFile binary.txt\n";
    const std::string file = setup_text(text);
    EXPECT_THROW(read_text(file), ImpossibleCount);
}

TEST(SetupReader, AFileThatIsNotThereIsNotOpened) {
    EXPECT_FALSE(read_setup("/nowhere/at/all.setup").opened);
}

}  // namespace
