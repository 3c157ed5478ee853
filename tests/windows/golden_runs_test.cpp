// Every golden run through ovri.dll and ovri.exe under wine, against the same run of the engine
// here. The same bytes are wanted but for the ends of lines and for how the platform writes a value
// that is not a number; a run whose numbers differ fails under its name.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>

#include "support/direct_call.h"
#include "windows/wine.h"

namespace fs = std::filesystem;

namespace {

std::string without_carriage_returns(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r' || text.compare(at, 2, "\r\n") != 0) {
            result.push_back(text[at]);
        }
    }
    return result;
}

// The spellings of values that are not numbers, as the C libraries have them.
std::string with_one_spelling(const std::string& text) {
    static const std::regex not_a_number(R"(-?\b(nan(\([a-z]+\))?|1\.#(IND|QNAN)0*)(?![A-Za-z]))");
    static const std::regex infinite(R"(\b1\.#INF0*)");
    return std::regex_replace(
        std::regex_replace(without_carriage_returns(text), not_a_number, "nan"), infinite, "inf");
}

// The names of output files that stand in output files, with the separator of other platforms.
FileTexts with_slashes(FileTexts texts) {
    for (auto& [name, text] : texts) {
        for (std::size_t at = text.find("out\\"); at != std::string::npos;
             at = text.find("out\\", at)) {
            text[at + 3] = '/';
        }
    }
    return texts;
}

FileTexts in_one_spelling(const FileTexts& texts) {
    FileTexts result;
    for (const auto& [name, text] : texts) {
        result[name] = with_one_spelling(text);
    }
    return result;
}

// A backslash in a name is a separator on Windows: what a run here leaves as "out\NAME" lies there
// as NAME in the directory "out".
FileTexts with_separators_resolved(const fs::path& directory, const std::string& case_name) {
    FileTexts texts = outputs_in(directory, case_name);
    for (const auto& [name, text] : files_in(directory / "out")) {
        texts["out\\" + name] = text;
    }
    return texts;
}

class UnderWine : public testing::Test {
  protected:
    void SetUp() override {
        if (const std::string reason = no_wine(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
    }
    ScratchDirectory scratch_;
};

class GoldenRunOnWindows : public UnderWine, public testing::WithParamInterface<std::string> {
  protected:
    fs::path prepare(const std::string& directory) {
        const fs::path path = scratch_.path() / directory;
        copy_golden_inputs(GetParam(), path);
        fs::create_directory(path / "out");
        return path;
    }
};

TEST_P(GoldenRunOnWindows, ThroughTheLibraryGivesTheNumbersOfThisPlatform) {
    const fs::path here = prepare("here");
    const fs::path there = prepare("there");
    const DirectResult direct = call_directly(here, "run.setup");
    const ChildResult child = run_loader(there, {"run.setup"});
    ASSERT_EQ(child.status, 0) << child.errors;
    EXPECT_EQ(with_one_spelling(child.output), with_one_spelling(direct.console));
    const FileTexts expected = with_separators_resolved(here, GetParam());
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(difference(in_one_spelling(expected),
                         in_one_spelling(with_separators_resolved(there, GetParam()))),
              "");
}

TEST_P(GoldenRunOnWindows, ThroughTheToolGivesTheNumbersOfThisPlatform) {
    const fs::path here = prepare("here");
    const fs::path there = prepare("there");
    const std::vector<std::string> arguments = {"run", "run.setup", "--no-check", "--clock",
                                                std::to_string(kGoldenClock)};
    std::vector<std::string> command = {OVRI_TOOL_PATH};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const ChildResult direct = run_child({command, here, {}});
    const ChildResult child = run_wine(there, "ovri.exe", arguments);
    ASSERT_EQ(direct.status, 0) << direct.errors;
    ASSERT_EQ(child.status, 0) << child.errors;
    const FileTexts expected = files_in(here / "out");
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(difference(in_one_spelling(expected),
                         in_one_spelling(with_slashes(files_in(there / "out")))),
              "");
    EXPECT_TRUE(outputs_in(there, GetParam()).empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenRunOnWindows, testing::ValuesIn(golden_case_names()),
                         [](const testing::TestParamInfo<std::string>& each) {
                             return each.param;
                         });

TEST_F(UnderWine, SecondRunInOneProcessEqualsTheFirst) {
    const fs::path directory = scratch_.path();
    copy_golden_inputs("graph_fit", directory);
    const std::string setup = file_text(directory / "run.setup");
    for (const char* name : {"first", "second"}) {
        fs::create_directory(directory / name);
        std::string text = setup;
        text.replace(text.find(" out\n"), 5, std::string(" ") + name + "\n");
        std::ofstream(directory / (std::string(name) + ".setup"), std::ios::binary) << text;
    }
    const ChildResult child = run_loader(directory, {"first.setup", "second.setup"});
    EXPECT_EQ(child.status, 0) << child.errors;
    FileTexts second = files_in(directory / "second");
    EXPECT_FALSE(second.empty());
    // The syntax file names the directory that it lies in.
    std::string& syntax = second["sim_net.sps"];
    syntax.replace(syntax.find("second\\"), 7, "first\\");
    EXPECT_EQ(difference(files_in(directory / "first"), second), "");
}

std::string with_carriage_returns(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result.append(c == '\n' ? "\r\n" : std::string(1, c));
    }
    return result;
}

TEST_F(UnderWine, InputsWithTheLineEndsOfWindowsGiveTheSameRun) {
    const std::string name = "graph_simulation_attributes";
    const fs::path here = scratch_.path() / "here";
    const fs::path there = scratch_.path() / "there";
    copy_golden_inputs(name, here);
    copy_golden_inputs(name, there);
    fs::create_directory(there / "out");
    for (const auto& [file, text] : files_in(there)) {
        std::ofstream(there / file, std::ios::binary) << with_carriage_returns(text);
    }
    const DirectResult direct = call_directly(here, "run.setup");
    const ChildResult child = run_loader(there, {"run.setup"});
    ASSERT_EQ(child.status, 0) << child.errors;
    EXPECT_EQ(with_one_spelling(child.output), with_one_spelling(direct.console));
    EXPECT_EQ(difference(in_one_spelling(with_separators_resolved(here, name)),
                         in_one_spelling(with_separators_resolved(there, name))),
              "");
}

TEST_F(UnderWine, TheCheckOfASetupFilePointsAtTheLineWhateverItsLineEnds) {
    const std::string name = "graph_fit";
    const fs::path directory = scratch_.path();
    copy_golden_inputs(name, directory);
    fs::create_directory(directory / "out");
    std::string text = file_text(directory / "run.setup");
    const std::size_t burn_in = text.find("Burn_in ");
    text.replace(burn_in, text.find('\n', burn_in) - burn_in, "Burn_in many");
    const auto line = 1 + std::count(text.begin(), text.begin() + static_cast<long>(burn_in), '\n');
    for (const std::string& form : {text, with_carriage_returns(text)}) {
        std::ofstream(directory / "bad.setup", std::ios::binary) << form;
        const ChildResult child = run_wine(directory, "ovri.exe", {"check", "bad.setup"});
        EXPECT_EQ(child.status, 1);
        EXPECT_NE(
            (child.output + child.errors).find("bad.setup:" + std::to_string(line) + ": error"),
            std::string::npos)
            << child.output << child.errors;
        EXPECT_EQ(run_wine(directory, "ovri.exe", {"check", "run.setup"}).status, 0);
    }
}

TEST_F(UnderWine, PathsWithBlanksAndCharactersOfEveryScriptAreFound) {
    for (const std::string name : {"with blank", "n\xC3\xA4hr \xC3\xB8", "\xE7\xBD\x91\xE7\xBB\x9C",
                                   "\xF0\x9F\x98\x80 smile"}) {
        const fs::path directory = scratch_.path() / name;
        copy_golden_inputs("graph_fit", directory);
        const std::string output = name + "/out " + name;
        fs::create_directory(scratch_.path() / output);
        std::string text = file_text(directory / "run.setup");
        text.replace(text.find(" out\n"), 5, " " + output + "\n");
        for (const std::string file :
             {"network.txt", "binary.txt", "continuous.txt", "categorical.txt", "covariates.txt"}) {
            const std::size_t place = text.find(" " + file + "\n");
            ASSERT_NE(place, std::string::npos) << file;
            text.insert(place + 1, name + "/");
        }
        std::ofstream(directory / "run.setup", std::ios::binary) << text;
        const ChildResult child = run_loader(scratch_.path(), {name + "/run.setup"});
        EXPECT_EQ(child.status, 0) << child.errors;
        EXPECT_TRUE(fs::exists(scratch_.path() / output / "gof_net.txt")) << name;
        EXPECT_EQ(file_text(scratch_.path() / output / "start_statistics_net.txt").find("nan"),
                  std::string::npos);
        // The tool takes them as its words, and names them in its messages.
        const std::string own = name + "/own " + name;
        fs::create_directory(scratch_.path() / own);
        const ChildResult tool = run_wine(scratch_.path(), "ovri.exe",
                                          {"run", name + "/run.setup", "--no-check", "-o", own});
        EXPECT_EQ(tool.status, 0) << tool.errors;
        EXPECT_TRUE(fs::exists(scratch_.path() / own / "gof_net.txt")) << name;
        EXPECT_NE(tool.errors.find(own), std::string::npos) << tool.errors;
    }
}

TEST_F(UnderWine, BadPathsReturnZeroAndLeaveTheHostAlive) {
    const ChildResult child = run_loader(scratch_.path(), {"no/such/file.setup", "null", ""});
    EXPECT_EQ(child.status, 0);
    EXPECT_EQ(without_carriage_returns(child.errors), "returned 0\nreturned 0\nreturned 0\n");
    EXPECT_TRUE(files_in(scratch_.path()).empty());
}

}  // namespace
