// One big run in parts, drawn by one command or by many, on one machine or on several.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>

#include "support/child_process.h"
#include "support/json_schema.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

class ToolParts : public ToolTest {
  protected:
    ToolParts() {
        scratch.write("club.csv",
                      "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nDot,Fay\n"
                      "Fay,Gus\nGus,Hal\nHal,Ida\nGus,Ida\nIda,Jon\nAnn,Dot\n");
        scratch.write("club.toml",
                      "[network]\nfile = \"club.csv\"\ndirected = false\n[model]\neffects = "
                      "[\"edge\", \"AS(2)\"]\nstart = { edge = -2, \"AS(2)\" = 0.2 }\n"
                      "[simulation]\nsamples = 11\n[run]\nseed = 7\n");
    }
    const ToolResult& ovri(const Words& words) {
        result = run_tool(words, scratch.path().string());
        return result;
    }
    // The same words with others behind them.
    const ToolResult& ovri(Words words, const Words& more) {
        words.insert(words.end(), more.begin(), more.end());
        return ovri(words);
    }
    // All files of a folder by name, but for the log, and for times and threads in the others.
    std::map<std::string, std::string> contents(const std::string& folder) const {
        static const std::regex kChanging(R"re("seconds": ?[^,}\n]*|threads = \d+)re");
        std::map<std::string, std::string> files;
        for (const auto& each : fs::recursive_directory_iterator(scratch.path() / folder)) {
            const std::string name = fs::relative(each.path(), scratch.path() / folder).string();
            if (each.is_regular_file() && name != "run.log") {
                files[name] = std::regex_replace(file_text(each.path()), kChanging, "");
            }
        }
        return files;
    }
    void expect_same(const std::string& one, const std::string& other) const {
        const auto first = contents(one);
        const auto second = contents(other);
        ASSERT_FALSE(first.empty());
        for (const auto& [name, text] : first) {
            const auto place = second.find(name);
            ASSERT_NE(place, second.end()) << name << " is not in " << other;
            EXPECT_EQ(text == place->second, true) << name << " differs in " << other;
        }
        EXPECT_EQ(first.size(), second.size());
    }
    // Parts one by one, in an order of their own, on so many threads, and what they merge to.
    void draw_apart(const Words& words, const std::string& folder, const Words& order,
                    const std::string& threads) {
        for (const std::string& part : order) {
            ASSERT_EQ(ovri(words, {"-o", folder, "--part", part, "--threads", threads}).status, 0)
                << result.err;
            EXPECT_EQ(result.out, "");
            EXPECT_FALSE(scratch.exists(folder + "/result.json"));
        }
        ASSERT_EQ(ovri(words, {"-o", folder, "--collect", "--threads", threads}).status, 0)
            << result.err;
    }
    Words bootstrap_ = {"estimate", "club.toml", "--effects", "edge",   "--bootstrap",
                        "13",       "--parts",   "4",         "--quiet"};
    Words simulate_ = {"simulate", "club.toml", "--parts", "4", "--quiet"};
};

bool is_installed(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

}  // namespace

TEST_F(ToolParts, SimulatedApartAndMergedAreTheBytesOfOneRun) {
    ASSERT_EQ(ovri(simulate_, {"-o", "whole"}).status, 0) << result.err;
    EXPECT_TRUE(has(result.out, "11 networks, seed 7")) << result.out;
    draw_apart(simulate_, "apart", {"3", "1", "4", "2"}, "1");
    expect_same("whole", "apart");
    draw_apart(simulate_, "again", {"2", "4", "3", "1"}, "5");
    expect_same("whole", "again");
    ASSERT_EQ(ovri(simulate_, {"-o", "threads", "--threads", "2"}).status, 0) << result.err;
    expect_same("whole", "threads");
    EXPECT_EQ(contents("whole").count("networks/0011.csv"), 1U);
    // Standard output says the same too.
    const std::string merged = ovri(simulate_, {"-o", "apart", "--collect", "--csv"}).out;
    EXPECT_EQ(merged, scratch.read("whole/sample.csv"));
}

TEST_F(ToolParts, ABootstrapInPartsIsTheBootstrapThatIsNotDivided) {
    const Words chained = {"estimate", "club.toml",   "--effects", "edge,AS(2)",
                           "--quiet",  "--bootstrap", "5"};
    Words divided = chained;
    divided.insert(divided.end(), {"--parts", "3"});
    for (const auto& [plain, parts] :
         {std::pair{Words(bootstrap_.begin(), bootstrap_.begin() + 6), bootstrap_},
          std::pair{chained, divided}}) {
        const std::string name = parts == divided ? "chained" : "exact";
        ASSERT_EQ(ovri(plain, {"-o", name}).status, 0) << result.err;
        ASSERT_EQ(ovri(parts, {"-o", name + "-whole"}).status, 0) << result.err;
        const Words order = parts == divided ? Words{"2", "3", "1"} : Words{"4", "2", "3", "1"};
        draw_apart(parts, name + "-1", order, "1");
        draw_apart(parts, name + "-5", order, "5");
        expect_same(name + "-whole", name + "-1");
        expect_same(name + "-whole", name + "-5");
        EXPECT_TRUE(scratch.exists(name + "/bootstrap.csv"));
        fs::remove_all(scratch.path() / (name + "-1/parts"));
        expect_same(name, name + "-1");
    }
}

TEST_F(ToolParts, ABootstrapIsTakenUpAndNoticesAnotherModel) {
    ASSERT_EQ(ovri(bootstrap_, {"-o", "whole"}).status, 0) << result.err;
    ASSERT_EQ(ovri(bootstrap_, {"-o", "out", "--part", "3"}).status, 0) << result.err;
    const auto before = contents("out");
    EXPECT_EQ(ovri(bootstrap_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_TRUE(has(result.err, "part number 1 of 4 (networks 1 to 3) is missing")) << result.err;
    EXPECT_EQ(contents("out"), before);
    ASSERT_EQ(ovri(bootstrap_, {"-o", "out"}).status, 0) << result.err;
    expect_same("whole", "out");
    EXPECT_EQ(ovri(bootstrap_, {"-o", "out", "--collect", "--seed", "8"}).status, 3);
    EXPECT_TRUE(has(result.err, "was drawn from other inputs")) << result.err;
    EXPECT_EQ(ovri({"estimate", "club.toml", "--parts", "2"}).status, 2);
    EXPECT_TRUE(has(result.err, "add --bootstrap N")) << result.err;
    EXPECT_EQ(ovri({"estimate", "club.toml", "--bootstrap", "2", "--parts", "3"}).status, 2);
    // The model file may say how many networks there are.
    scratch.write("asks.toml", scratch.read("club.toml") + "[estimation]\nbootstrap = 13\n");
    ASSERT_EQ(ovri({"estimate", "asks.toml", "--effects", "edge", "--parts", "4", "--quiet", "-o",
                    "asked"})
                  .status,
              0)
        << result.err;
    expect_same("whole", "asked");
    EXPECT_EQ(ovri({"estimate", "asks.toml", "--bootstrap", "0", "--parts", "2"}).status, 2);
    EXPECT_EQ(document_faults(scratch.read("out/parts/bootstrap-0001.json")),
              std::vector<std::string>());
}

// Another mathematical library may round otherwise, and then parts would not go together.
TEST_F(ToolParts, PartsOfAMachineThatFindsOtherNumbersAreNotMerged) {
    ASSERT_EQ(ovri(bootstrap_, {"-o", "out"}).status, 0) << result.err;
    const auto edit = [&](const std::string& name, const std::string& from, const std::string& to) {
        scratch.write(name, with(scratch.read(name), from, to));
    };
    const std::string estimate = "\"drawn_at\":[-0.";
    const std::string other = "\"drawn_at\":[-1.";
    edit("out/parts/bootstrap-0003.json", estimate, other);
    EXPECT_EQ(ovri(bootstrap_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_TRUE(has(result.err,
                    "bootstrap-0003.json was drawn at other estimates than the parts before it; "
                    "draw it again by --part=3 --overwrite"))
        << result.err;
    for (const char* part : {"1", "2", "4"}) {
        edit(std::string("out/parts/bootstrap-000") + part + ".json", estimate, other);
    }
    EXPECT_EQ(ovri(bootstrap_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_TRUE(has(result.err, "at other estimates than this machine finds")) << result.err;
    const Words gof = {"gof", "out", "--samples", "30", "--parts", "3", "--seed", "1", "-q"};
    ASSERT_EQ(ovri(gof).status, 0) << result.err;
    edit("out/parts/gof-0002.json", "\"interval\":", "\"interval\":1");
    EXPECT_EQ(ovri(gof, {"--collect", "--overwrite"}).status, 3);
    EXPECT_TRUE(has(result.err, "gof-0002.json has another interval than the parts before it"))
        << result.err;
    ASSERT_EQ(ovri(gof, {"--part", "2", "--overwrite"}).status, 0) << result.err;
    EXPECT_EQ(ovri(gof, {"--collect", "--overwrite"}).status, 0) << result.err;
}

TEST_F(ToolParts, EstimatesThatAreNotToBeUsedHaveNoBootstrapInPartsEither) {
    scratch.write("full.csv", "from,to\nAnn,Ben\nAnn,Cid\nBen,Cid\n");
    const Words words = {"estimate",    "club.toml", "--network", "full.csv", "--effects", "edge",
                         "--bootstrap", "4",         "--parts",   "2",        "--quiet"};
    const int status = ovri(words, {"-o", "whole"}).status;
    ASSERT_EQ(status, 5) << result.out;
    for (const char* part : {"2", "1"}) {
        EXPECT_EQ(ovri(words, {"-o", "apart", "--part", part}).status, 0) << result.err;
    }
    EXPECT_EQ(ovri(words, {"-o", "apart", "--collect"}).status, status) << result.err;
    expect_same("whole", "apart");
    EXPECT_FALSE(scratch.exists("apart/bootstrap.csv"));
}

TEST_F(ToolParts, AFitInPartsIsTheBytesOfOneRun) {
    ASSERT_EQ(ovri({"estimate", "club.toml", "--effects", "edge", "-o", "club"}).status, 0);
    scratch.write("held.toml", with(scratch.read("club.toml"), "start", "fixed"));
    Words held = {"gof", "held.toml", "--samples", "50", "--parts", "3", "--quiet"};
    Words folder = {"gof", "club", "--samples", "50", "--seed", "3", "--parts", "3", "--quiet"};
    Words around = folder;
    around.emplace_back("--bayesian");
    int number = 0;
    for (const Words& words : {held, folder, around}) {
        const std::string name = "fit" + std::to_string(++number);
        ASSERT_EQ(ovri(words, {"-o", name}).status, 0) << result.err;
        draw_apart(words, name + "-1", {"3", "1", "2"}, "1");
        draw_apart(words, name + "-5", {"2", "3", "1"}, "5");
        expect_same(name, name + "-1");
        expect_same(name, name + "-5");
        EXPECT_EQ(nlohmann::json::parse(scratch.read(name + "/gof.json"))["samples"], 50);
        EXPECT_EQ(document_faults(scratch.read(name + "/parts/gof-0002.json")),
                  std::vector<std::string>());
    }
    EXPECT_NE(scratch.read("fit2/gof.csv"), scratch.read("fit3/gof.csv"));
}

TEST_F(ToolParts, AFitStandsBesideTheEstimatesAndTheirBootstrap) {
    ASSERT_EQ(ovri(bootstrap_, {"-o", "club"}).status, 0) << result.err;
    const auto estimates = contents("club");
    const Words words = {"gof", "club", "--samples", "40", "--seed", "3", "--parts", "2", "-q"};
    EXPECT_EQ(ovri(words, {"--collect"}).status, 3);
    EXPECT_TRUE(has(result.err, "part number 1 of 2 (networks 1 to 20) is missing")) << result.err;
    EXPECT_EQ(ovri(words, {"--part", "2"}).status, 0) << result.err;
    EXPECT_EQ(ovri(words).status, 0) << result.err;
    auto both = contents("club");
    for (const char* added :
         {"gof.json", "gof.csv", "parts/gof-0001.json", "parts/gof-0002.json"}) {
        EXPECT_EQ(both.erase(added), 1U) << added;
    }
    EXPECT_EQ(both, estimates);
    // As everywhere nothing is replaced unasked; a part of another test is drawn again.
    EXPECT_EQ(ovri(words, {"--collect"}).status, 1);
    EXPECT_TRUE(has(result.err, "add --overwrite")) << result.err;
    EXPECT_EQ(ovri(words, {"--collect", "--overwrite"}).status, 0) << result.err;
    EXPECT_EQ(ovri(words, {"--bayesian", "--collect", "--overwrite"}).status, 3);
    EXPECT_TRUE(has(result.err, "was drawn from other inputs")) << result.err;
}

TEST_F(ToolParts, AFitInPartsNeedsEstimatesAndASeed) {
    EXPECT_EQ(ovri({"gof", "club.toml", "--parts", "2", "--part", "1"}).status, 2);
    EXPECT_TRUE(has(result.err, "estimate it first by `ovri estimate`")) << result.err;
    ASSERT_EQ(ovri({"estimate", "club.toml", "--effects", "edge", "-o", "club"}).status, 0);
    EXPECT_EQ(ovri({"gof", "club", "--parts", "2", "--part", "1"}).status, 2);
    EXPECT_TRUE(has(result.err, "add --seed N")) << result.err;
    EXPECT_EQ(ovri({"gof", "club", "--samples", "9", "--parts", "10"}).status, 2);
    EXPECT_FALSE(scratch.exists("club/parts"));
}

TEST_F(ToolParts, APartHasRandomNumbersOfItsOwn) {
    ASSERT_EQ(ovri(simulate_, {"-o", "four"}).status, 0) << result.err;
    const std::vector<std::string> rows = lines_of(scratch.read("four/sample.csv"));
    ASSERT_EQ(rows.size(), 12U);
    ASSERT_EQ(ovri({"simulate", "club.toml", "--parts", "3", "-o", "three", "-q"}).status, 0);
    EXPECT_NE(scratch.read("four/sample.csv"), scratch.read("three/sample.csv"));
    // Samples 1, 3, 6 and 9 are the first ones of the four parts.
    EXPECT_NE(scratch.read("four/networks/0001.csv"), scratch.read("four/networks/0003.csv"));
    EXPECT_NE(scratch.read("four/networks/0003.csv"), scratch.read("four/networks/0006.csv"));
}

TEST_F(ToolParts, WhatIsThereIsKeptAndWhatIsOutdatedIsDrawnAgain) {
    ASSERT_EQ(ovri(simulate_, {"-o", "whole"}).status, 0) << result.err;
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "2"}).status, 0) << result.err;
    scratch.write("out/networks/0003.csv", "kept");
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "2"}).status, 0) << result.err;
    EXPECT_EQ(scratch.read("out/networks/0003.csv"), "kept");
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "2", "--overwrite"}).status, 0);
    EXPECT_NE(scratch.read("out/networks/0003.csv"), "kept");
    // One run goes on from the parts that are there.
    scratch.write("out/networks/0003.csv", "kept");
    ASSERT_EQ(ovri(simulate_, {"-o", "out"}).status, 0) << result.err;
    EXPECT_EQ(scratch.read("out/networks/0003.csv"), "kept");
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--overwrite"}).status, 0) << result.err;
    expect_same("whole", "out");
    // A tie more: every part is another.
    scratch.write("club.csv", scratch.read("club.csv") + "Ben,Hal\n");
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_TRUE(has(result.err, "part number 1 of 4 (networks 1 to 2) was drawn from other inputs"))
        << result.err;
    EXPECT_TRUE(has(result.err, "carry out these parts")) << result.err;
    expect_same("whole", "out");
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "1"}).status, 0) << result.err;
    EXPECT_FALSE(scratch.exists("out/result.json"));
    ASSERT_EQ(ovri(simulate_, {"-o", "out"}).status, 0) << result.err;
    ASSERT_EQ(ovri(simulate_, {"-o", "fresh"}).status, 0) << result.err;
    expect_same("fresh", "out");
}

TEST_F(ToolParts, AnotherDivisionLeavesNothingBehind) {
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--samples", "20", "--format", "pajek"}).status, 0);
    ASSERT_EQ(ovri({"simulate", "club.toml", "--parts", "2", "-o", "out", "-q"}).status, 0);
    ASSERT_EQ(ovri({"simulate", "club.toml", "--parts", "2", "-o", "fresh", "-q"}).status, 0);
    expect_same("fresh", "out");
}

TEST_F(ToolParts, AMissingPartIsNamedAndNothingIsMerged) {
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "1"}).status, 0) << result.err;
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "4"}).status, 0) << result.err;
    const auto before = contents("out");
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(has(result.err,
                    "part number 2 of 4 (networks 3 to 5) is missing\novri: part number 3 of 4 "
                    "(networks 6 to 8) "
                    "is missing\n"))
        << result.err;
    EXPECT_EQ(contents("out"), before);
    EXPECT_FALSE(scratch.exists("out/run.log"));
    // A file that is cut short, or edited, is no part either.
    const std::string part = scratch.read("out/parts/simulate-0001.json");
    scratch.write("out/parts/simulate-0001.json", part.substr(0, part.size() / 2));
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "2"}).status, 0);
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "3"}).status, 0);
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--collect"}).status, 3);
    scratch.write("out/parts/simulate-0001.json", with(part, "\"statistics\"", "\"numbers\""));
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--collect"}).status, 3);
    EXPECT_TRUE(has(result.err, "out/parts/simulate-0001.json is damaged")) << result.err;
}

TEST_F(ToolParts, PartsMayBeginAtTheSameMoment) {
    for (int round = 0; round < 10; ++round) {
        fs::remove_all(scratch.path() / "out");
        const ChildResult done = shell(
            "for part in 1 2 3 4 5 6 7 8; do\n"
            "\"$OVRI\" simulate club.toml --parts=8 --part $part -o out -q &\ndone\nwait\n"
            "exec \"$OVRI\" simulate club.toml --parts=8 --collect -o out -q");
        ASSERT_EQ(done.status, 0) << done.errors;
    }
}

TEST_F(ToolParts, AKilledRunIsTakenUpAgain) {
    const Words words = {"simulate", "club.toml",  "--parts", "5",      "--samples",
                         "2000",     "--interval", "3000",    "--quiet"};
    ASSERT_EQ(ovri(words, {"-o", "whole"}).status, 0) << result.err;
    int killed = 0;
    for (const int milliseconds : {5, 20, 60, 100}) {
        ChildSetting setting;
        setting.command = {OVRI_TOOL_PATH};
        setting.command.insert(setting.command.end(), words.begin(), words.end());
        setting.command.insert(setting.command.end(), {"-o", "out"});
        setting.directory = scratch.path();
        setting.limit = std::chrono::milliseconds(milliseconds);
        killed += run_child(setting).timed_out ? 1 : 0;
    }
    EXPECT_GT(killed, 0);
    ASSERT_EQ(ovri(words, {"-o", "out"}).status, 0) << result.err;
    expect_same("whole", "out");
}

TEST_F(ToolParts, AFullOrLockedFolderEndsInAClearVerdict) {
    ASSERT_EQ(ovri(simulate_, {"-o", "out", "--part", "1"}).status, 0) << result.err;
    fs::create_directory(scratch.path() / "out/networks/0003.csv");
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--part", "2"}).status, 3);
    EXPECT_TRUE(has(result.err, "out/networks/0003.csv could not be written")) << result.err;
    EXPECT_FALSE(scratch.exists("out/parts/simulate-0002.json"));
    fs::create_directory(scratch.path() / "out/parts/simulate-0003.json.part");
    EXPECT_EQ(ovri(simulate_, {"-o", "out", "--part", "3"}).status, 3);
    EXPECT_TRUE(has(result.err, "out/parts/simulate-0003.json could not be written")) << result.err;
}

TEST_F(ToolParts, WhatARunReadsIsNotAmongWhatItWrites) {
    ASSERT_EQ(ovri(simulate_, {"-o", "out"}).status, 0) << result.err;
    const std::string model = scratch.read("out/model.toml");
    EXPECT_EQ(ovri({"simulate", "out", "--parts", "4", "--seed", "1", "-o", "out"}).status, 1);
    EXPECT_TRUE(has(result.err, "which this run reads")) << result.err;
    EXPECT_EQ(scratch.read("out/model.toml"), model);
}

TEST_F(ToolParts, MistakesAreToldWithTheMend) {
    const auto refused = [&](const Words& words, int status, const std::string& piece) {
        EXPECT_EQ(ovri({"simulate", "club.toml"}, words).status, status) << result.err;
        EXPECT_TRUE(has(result.err, piece)) << result.err;
    };
    refused({"--part", "1"}, 2, "`--part` needs `--parts N`");
    refused({"--collect"}, 2, "`--collect` needs `--parts N`");
    refused({"--parts", "4", "--part", "5"}, 2, "`--part` takes a number from 1 to 4, not 5");
    refused({"--parts", "4", "--part", "0"}, 2, "`--part` takes a number from 1 to 4, not 0");
    refused({"--parts", "12"}, 2, "more than there are networks to draw, 11");
    refused({"--parts", "4", "--part", "1", "--collect"}, 2, "--collect");
    refused({"--parts", "4", "--collect"}, 1, "there is no folder `club.results` with parts");
    EXPECT_FALSE(scratch.exists("club.results"));
    scratch.write("open.toml", with(scratch.read("club.toml"), "seed = 7", "threads = 1"));
    EXPECT_EQ(ovri({"simulate", "open.toml", "--parts", "2", "--part", "1"}).status, 2);
    EXPECT_TRUE(has(result.err, "needs the seed that all parts share: add --seed N")) << result.err;
    EXPECT_EQ(ovri({"simulate", "open.toml", "--parts", "2"}).status, 0) << result.err;
    // Somebody's own folder is not taken for one of parts.
    scratch.write("mine/parts/list.txt", "bolts\n");
    refused({"--parts", "4", "--part", "1", "-o", "mine"}, 1, "exists");
    EXPECT_FALSE(scratch.exists("mine/networks"));
}

// What an engine's files come to, beside what the same model gives in one run.
class EmittedParts : public ToolParts {
  protected:
    EmittedParts() {
        scratch.write("held.toml", with(scratch.read("club.toml"), "start", "fixed"));
    }
    const std::vector<Words> runs_ = {
        {"simulate", "club.toml", "--parts", "3"},
        {"estimate", "club.toml", "--effects", "edge", "--bootstrap", "5", "--parts", "2"},
        {"gof", "held.toml", "--samples", "20", "--parts", "3"}};
    // Emits each run, has the engine carry it out, and compares the folder with that of the emitted
    // model in one run, typed in a folder of the same depth.
    void expect_carried_out(const std::string& engine, const std::string& script) {
        for (const Words& run : runs_) {
            const std::string folder = "out dir/" + run.front();
            ASSERT_EQ(ovri(run, {"-o", folder, "--emit", engine, "-q"}).status, 0) << result.err;
            const ChildResult done = shell("cd '" + folder + "' && " + script);
            ASSERT_EQ(done.status, 0) << done.output << done.errors;
            std::string words = run.front() + " run.toml -o ../whole-" + run.front() + " -q";
            for (std::size_t k = run.size() - 2; run[k] != "club.toml" && k > 1; k -= 2) {
                words += run[k] == "--parts" || run[k] == "--bootstrap"
                             ? " " + run[k] + " " + run[k + 1]
                             : "";
            }
            const ChildResult alone = shell("cd '" + folder + "' && \"$OVRI\" " + words);
            ASSERT_EQ(alone.status, 0) << words << alone.errors;
            auto emitted = contents(folder);
            for (const auto& [name, text] : contents("out dir/whole-" + run.front())) {
                EXPECT_EQ(emitted[name] == text, true) << folder << "/" << name;
            }
        }
    }
};

TEST_F(EmittedParts, AreCarriedOutByMake) {
    if (!is_installed("make")) {
        GTEST_SKIP() << "make is not installed";
    }
    expect_carried_out("make", "make -j2 && make -j2");
}

TEST_F(EmittedParts, AreCarriedOutByGnuParallel) {
    if (!is_installed("parallel")) {
        GTEST_SKIP() << "GNU parallel is not installed";
    }
    expect_carried_out("parallel", "HOME=\"$PWD\" ./run.sh");
}

TEST_F(EmittedParts, AreTasksOfASlurmArray) {
    expect_carried_out("slurm",
                       "sh -n submit.sh && grep -q 'sbatch --parsable' submit.sh && "
                       "for task in 2 3 1; do SLURM_ARRAY_TASK_ID=$task sh ./array.sh || exit 1; "
                       "done && sh ./collect.sh");
    const std::string array = scratch.read("out dir/simulate/array.sh");
    EXPECT_TRUE(has(array, "#SBATCH --array=1-3\n")) << array;
    EXPECT_TRUE(has(array, "#SBATCH --mem=")) << array;
    EXPECT_TRUE(has(array, "#SBATCH --cpus-per-task=1\n")) << array;
    EXPECT_EQ(scratch.read("out dir/simulate/parts.tsv"),
              "part\tfirst\tcount\n0001\t1\t3\n0002\t4\t4\n0003\t8\t4\n");
}

TEST_F(EmittedParts, OfAResultsFolderStandBesideItOrApart) {
    if (!is_installed("make")) {
        GTEST_SKIP() << "make is not installed";
    }
    ASSERT_EQ(ovri({"estimate", "club.toml", "--effects", "edge", "-o", "club"}).status, 0);
    const Words words = {"gof", "club", "--samples", "20", "--parts", "2", "--seed", "4", "-q"};
    ASSERT_EQ(ovri(words, {"--bayesian", "-o", "whole"}).status, 0) << result.err;
    ASSERT_EQ(ovri(words, {"--bayesian", "--emit", "make"}).status, 0) << result.err;
    EXPECT_EQ(result.out, "2 parts: cd club && make -j$(nproc)\n");
    ASSERT_EQ(ovri(words, {"--bayesian", "--emit", "make", "-o", "apart"}).status, 0);
    const ChildResult made = shell("make -C club && make -C apart && make -C club");
    ASSERT_EQ(made.status, 0) << made.output << made.errors;
    EXPECT_EQ(scratch.read("club/gof.csv"), scratch.read("whole/gof.csv"));
    EXPECT_EQ(scratch.read("apart/gof.csv"), scratch.read("whole/gof.csv"));
    EXPECT_TRUE(scratch.exists("apart/result.json"));
    EXPECT_EQ(ovri(words, {"--effects", "edge", "--emit", "make"}).status, 2);
}

TEST_F(EmittedParts, NeedFilesAndADivision) {
    EXPECT_EQ(ovri({"simulate", "club.toml", "--emit", "make"}).status, 2);
    EXPECT_TRUE(has(result.err, "`--emit` needs `--parts N`")) << result.err;
    const ChildResult piped = shell(
        "\"$OVRI\" simulate --network - --undirected --effects edge --values edge=-1 --parts=2 "
        "--emit make <club.csv");
    EXPECT_EQ(piped.status, 2);
    EXPECT_TRUE(has(piped.errors, "needs the network in a file")) << piped.errors;
    EXPECT_EQ(ovri({"simulate", "club.toml", "--parts", "2", "--emit", "abacus"}).status, 2);
}

TEST_F(ToolParts, FilesOfPartsFollowTheirSchema) {
    ASSERT_EQ(ovri(simulate_, {"-o", "out"}).status, 0) << result.err;
    const std::string part = scratch.read("out/parts/simulate-0002.json");
    EXPECT_EQ(document_faults(part), std::vector<std::string>());
    const auto json = nlohmann::json::parse(part);
    EXPECT_EQ(json["first"], 3);
    EXPECT_EQ(json["count"], 3);
}
