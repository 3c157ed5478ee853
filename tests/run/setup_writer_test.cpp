// Setup files that are written read as what they were written from.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>

#include "run/setup_file.h"
#include "support/scratch_directory.h"
#include "support/setup_text.h"

namespace {

namespace fs = std::filesystem;

std::string written(const SetupFile& setup) {
    const ScratchDirectory scratch;
    const std::string path = (scratch.path() / "written.setup").string();
    write_setup(setup.settings, setup.selection, writer_replace(path));
    return scratch.read("written.setup");
}

SetupFile read_text(const std::string& text, SetupTrace* trace = nullptr) {
    const ScratchDirectory scratch;
    return read_setup(scratch.write("run.setup", text), trace);
}

// Whether two runs agree in one member.
struct SameMember {
    const RunSettings& a;
    const RunSettings& b;
    bool operator()(std::monostate) const { return true; }
    template <class Value>
    bool operator()(Value RunSettings::*member) const {
        return a.*member == b.*member;
    }
    template <class Value>
    bool operator()(Value EstimationSettings::*member) const {
        return a.estimation.*member == b.estimation.*member;
    }
    bool operator()(bool OutputSwitches::*member) const {
        return a.switches.*member == b.switches.*member;
    }
};

void expect_same_settings(const RunSettings& a, const RunSettings& b) {
    for (const SetupItem& item : setup_items()) {
        EXPECT_TRUE(std::visit(SameMember{a, b}, item.member)) << item.name;
    }
}

void expect_same_model(const EffectSelection& a, const EffectSelection& b) {
    ASSERT_EQ(a.catalogue, b.catalogue);
    EXPECT_EQ(a.actors, b.actors);
    EXPECT_EQ(a.structural_flag, b.structural_flag);
    EXPECT_EQ(a.structural_count, b.structural_count);
    ASSERT_EQ(a.structural.size(), b.structural.size());
    for (std::size_t id = 0; id < a.structural.size(); ++id) {
        EXPECT_EQ(a.structural[id].position, b.structural[id].position) << id;
        EXPECT_EQ(a.structural[id].value, b.structural[id].value) << id;
        EXPECT_EQ(a.structural[id].lambda, b.structural[id].lambda) << id;
    }
    for (const AttributeGroup group : kAllGroups) {
        const AttributeSelection& in_a = group_of(a, group);
        const AttributeSelection& in_b = group_of(b, group);
        EXPECT_EQ(in_a.flag, in_b.flag) << group_name(group);
        EXPECT_EQ(in_a.attributes, in_b.attributes) << group_name(group);
        EXPECT_EQ(in_a.selected, in_b.selected) << group_name(group);
        EXPECT_EQ(in_a.path, in_b.path) << group_name(group);
        ASSERT_EQ(in_a.choices.size(), in_b.choices.size());
        for (std::size_t row = 0; row < in_a.choices.size(); ++row) {
            ASSERT_EQ(in_a.choices[row].size(), in_b.choices[row].size());
            for (std::size_t k = 0; k < in_a.choices[row].size(); ++k) {
                EXPECT_EQ(in_a.choices[row][k].flag, in_b.choices[row][k].flag);
                EXPECT_EQ(in_a.choices[row][k].value, in_b.choices[row][k].value);
            }
        }
    }
}

void expect_round_trip(const SetupFile& setup) {
    const std::string text = written(setup);
    SetupTrace trace;
    const SetupFile again = read_text(text, &trace);
    expect_same_settings(setup.settings, again.settings);
    expect_same_model(setup.selection, again.selection);
    EXPECT_FALSE(trace.trailing_text);
    for (const ReadItem& item : trace.items) {
        EXPECT_TRUE(item.read) << setup_name(item.key, trace.catalogue);
    }
    EXPECT_EQ(written(again), text);
}

SetupText rich_setup(NetworkKind kind, int mode) {
    SetupText setup;
    setup.kind = kind;
    setup.mode = mode;
    setup.name = "a net";
    setup.cap = 4;
    setup.effects = kind == NetworkKind::directed
                        ? std::vector<ModelTerm>{{"arc", -1.0 / 3.0}, {"AT-T", 1e-300, 1.1F}}
                        : std::vector<ModelTerm>{{"edge", -1.0 / 3.0}, {"AT", 1e-300, 1.1F}};
    setup.attributes = attribute_section(kind, 1, "0.1");
    setup.covariates = covariate_section(kind, 1, "-0.7");
    setup.free_dyads = "free dyads.txt";
    setup.switches = {1, 0, 1, 0, 1, 0, 1};
    setup.burn_in = "3000000001";
    setup.a_value = "0.07";
    setup.fit = 1;
    return setup;
}

TEST(SetupWriter, BringsBackEveryModeAndKind) {
    for (const NetworkKind kind : {NetworkKind::undirected, NetworkKind::directed}) {
        for (const int mode : {1, 2, 3, 4}) {
            SetupText text = rich_setup(kind, mode);
            SCOPED_TRACE(mode);
            expect_round_trip(read_text(setup_text(text)));
            text.structural = false;
            text.cap = 0;
            text.attributes = "Attributes 0\n";
            text.covariates = "Covariates 0\n";
            text.free_dyads = "";
            expect_round_trip(read_text(setup_text(text)));
        }
    }
}

TEST(SetupWriter, BringsBackTheSetupFilesOfTheTree) {
    int files = 0;
    for (const char* folder : {"examples", "tests/golden"}) {
        for (const auto& entry :
             fs::recursive_directory_iterator(fs::path(OVRI_SOURCE_DIRECTORY) / folder)) {
            if (entry.path().extension() == ".setup") {
                SCOPED_TRACE(entry.path().string());
                expect_round_trip(read_setup(entry.path().string()));
                ++files;
            }
        }
    }
    EXPECT_GT(files, 40);
}

TEST(SetupWriter, NumbersKeepEveryDigit) {
    SetupFile setup = read_text(setup_text(rich_setup(NetworkKind::undirected, 1)));
    setup.settings.density = std::numeric_limits<float>::min();
    setup.settings.burn_in = 0.1 + 0.2;
    setup.settings.iterations = std::numeric_limits<double>::max();
    setup.settings.sample_count = std::numeric_limits<int>::min();
    setup.selection.structural[0].value = -std::numeric_limits<double>::denorm_min();
    expect_round_trip(setup);
}

TEST(SetupWriter, ARowIsALineOfItsEffectAndItsNumbers) {
    SetupFile setup = read_text(setup_text(rich_setup(NetworkKind::undirected, 3)));
    setup.selection.table.binary_names = {"left handed"};
    const std::string text = written(setup);
    for (const char* line :
         {"\nrun_mode 3 1\n", "\ndegree_cap_flag 1 4\n", "\n2-star 0 0\n",
          "\nAT 1 1e-300 1.10000002\n", "\nbinary_attribute_section_flag 1 1\n",
          "\nleft_handed_activity 1 0.1", "\nfree_dyads_flag 1 free dyads.txt\n", "\nnumber_of"}) {
        EXPECT_EQ(text.find(line) != std::string::npos, std::string_view(line) != "\nnumber_of")
            << line << text;
    }
}

TEST(SetupWriter, AnEmptyTextKeepsItsLine) {
    SetupFile setup = read_text(setup_text(rich_setup(NetworkKind::directed, 4)));
    setup.settings.covariance_path = "";
    const SetupFile again = read_text(written(setup));
    EXPECT_EQ(again.settings.covariance_path, "-");
    EXPECT_EQ(again.settings.sample_count, setup.settings.sample_count);
}

TEST(SetupWriter, AnUnknownModeEndsBehindTheHead) {
    RunSettings settings;
    settings.network_name = "net";
    settings.run_mode = 7;
    const std::string text = written({true, settings, {}});
    EXPECT_TRUE(text.ends_with("run_mode 7 0\n")) << text;
}

TEST(SetupItems, AreNamedByTheirEffectOrBlock) {
    const Catalogue& catalogue = digraph_catalogue();
    EXPECT_EQ(setup_name(SetupId::burn_in, nullptr), "burn-in");
    EXPECT_EQ(setup_name({SetupId::structural_value, 0}, &catalogue), "arc value");
    EXPECT_EQ(setup_name({SetupId::group_count, AttributeGroup::covariate}, &catalogue),
              "covariate count");
    EXPECT_EQ(setup_name({SetupId::group_flag, AttributeGroup::continuous, 4, 1}, &catalogue),
              "continuous attribute 2: _sum flag");
}

// A row of the table that no file holds, or whose mode is wrong, would never be read.
TEST(SetupItems, EachStandsInTheFilesOfItsModesAndInNoOther) {
    for (const int mode : {1, 2, 3, 4}) {
        SetupTrace trace;
        read_text(setup_text(rich_setup(NetworkKind::undirected, mode)), &trace);
        for (const SetupItem& item : setup_items()) {
            const bool found = std::any_of(
                trace.items.begin(), trace.items.end(),
                [&item](const ReadItem& read) { return read.key.id == item.id && read.read; });
            EXPECT_EQ(found, has_mode(item.modes, static_cast<RunMode>(mode)))
                << item.name << " in mode " << mode;
        }
    }
}

}  // namespace
