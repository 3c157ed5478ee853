// Manual pages and completion scripts, which are made of what the help pages are made of.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "support/child_process.h"
#include "support/text_pieces.h"
#include "support/tool_runner.h"

namespace {

namespace fs = std::filesystem;

std::string help(const std::vector<std::string>& words) {
    std::vector<std::string> all = {"help"};
    all.insert(all.end(), words.begin(), words.end());
    const ToolResult result = run_tool(all);
    EXPECT_EQ(result.status, 0) << result.err;
    return result.out;
}

// The commands that the overview lists.
std::vector<std::string> commands() {
    std::vector<std::string> names;
    std::istringstream lines(help({}));
    std::string line;
    while (std::getline(lines, line) && line != "Commands:") {
    }
    while (std::getline(lines, line) && !line.empty()) {
        if (line.starts_with("  ") && line[2] != ' ') {
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
        }
    }
    return names;
}

// The options that a page lists: "--output" and its like.
std::vector<std::string> options_of(const std::string& command) {
    std::vector<std::string> names;
    std::istringstream lines(help({command}));
    std::string line;
    while (std::getline(lines, line) && line != "Options:") {
    }
    while (std::getline(lines, line) && !line.empty()) {
        if (line.starts_with("  -")) {
            const std::size_t place = line.find("--");
            names.push_back(line.substr(place, line.find(' ', place) - place));
        }
    }
    return names;
}

// What a program makes of the text of a file: its output, then its errors.
ChildResult filtered(std::vector<std::string> command, const std::string& text) {
    const ScratchDirectory scratch;
    command.push_back(scratch.write("page", text));
    return run_child({command, scratch.path(), {}});
}

bool is_there(const std::string& program) {
    return run_child({{"sh", "-c", "command -v " + program}, "/", {}}).status == 0;
}

// A page as a terminal shows it, without overstrikes, its runs of blanks and line ends as one
// blank; empty where groff is not there.
std::string shown(const std::string& page) {
    const ChildResult child =
        filtered({"groff", "-man", "-ww", "-Tascii", "-P-cbou", "-rHY=0", "-rLL=400n"}, page);
    EXPECT_EQ(child.errors, "") << page;
    std::istringstream words(child.output);
    std::string text;
    for (std::string word; words >> word;) {
        text += word + " ";
    }
    return text;
}

std::string one_line(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;) {
        line += word + " ";
    }
    return line;
}

// -- Manual pages

TEST(ManualPages, HaveTheSectionsOfOne) {
    for (const std::string& command : commands()) {
        const std::string page = help({command, "--man"});
        std::size_t place = 0;
        for (const char* section : {".TH OVRI\\-", "\n.SH NAME\n", "\n.SH SYNOPSIS\n",
                                    "\n.SH EXAMPLES\n", "\n.SH OPTIONS\n", "\n.SH SEE ALSO\n"}) {
            const std::size_t found = page.find(section, place);
            ASSERT_NE(found, std::string::npos) << command << section;
            place = found;
        }
    }
    const std::string page = help({"--man"});
    EXPECT_TRUE(page.starts_with(".TH OVRI 1 ")) << page;
    for (const std::string& command : commands()) {
        EXPECT_TRUE(has(page, ".BR ovri\\-" + command + " (1)")) << command;
    }
}

TEST(ManualPages, AreSetWithoutAWarningAndSayWhatTheHelpSays) {
    if (!is_there("groff")) {
        GTEST_SKIP() << "groff was not found";
    }
    shown(help({"--man"}));
    for (const std::string& command : commands()) {
        const std::string page = shown(help({command, "--man"}));
        for (const std::string& option : options_of(command)) {
            EXPECT_TRUE(has(page, option + " ")) << command << " " << option;
        }
    }
    const std::string page = shown(help({"run", "--man"}));
    EXPECT_TRUE(has(page, "OVRI-RUN(1)")) << page;
    EXPECT_TRUE(has(page, "ovri run SETUP [options]")) << page;
    EXPECT_TRUE(has(page, one_line("Hold the clock at second N: every reseeding uses N."))) << page;
    EXPECT_TRUE(has(page, "ovri run examples/karate/karate_fit.setup --quiet > console.txt"));
    EXPECT_TRUE(has(page, "EXIT STATUS 0 the run is done; 1 the check found errors")) << page;
    // Signs that mean something to roff stand for themselves.
    EXPECT_TRUE(has(shown(help({"simulate", "--man"})), "'edge,AT(2)' \\ --values")) << page;
}

// -- bash

// What bash proposes for the last word of a command line, words cut as bash cuts them.
std::set<std::string> proposed(const std::vector<std::string>& words, const std::string& folder) {
    const ScratchDirectory scratch;
    const std::string script = scratch.write("completion", help({"--completion", "bash"}));
    std::string line = "source '" + script + "'; COMP_WORDS=(";
    for (const std::string& word : words) {
        line += "'" + word + "' ";
    }
    line += "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _ovri; printf '%s\\n' \"${COMPREPLY[@]}\"";
    const ChildResult child = run_child({{"bash", "--norc", "-uc", line}, folder, {}});
    EXPECT_EQ(child.status, 0) << child.errors;
    EXPECT_EQ(child.errors, "");
    std::set<std::string> found;
    std::istringstream lines(child.output);
    for (std::string each; std::getline(lines, each);) {
        found.insert(each);
    }
    found.erase("");
    return found;
}

class BashCompletion : public testing::Test {
  protected:
    BashCompletion() {
        scratch_.write("friends.toml", "");
        fs::create_directory(scratch_.path() / "friends.results");
    }
    std::set<std::string> after(const std::vector<std::string>& words) const {
        return proposed(words, scratch_.path().string());
    }
    ScratchDirectory scratch_;
};

using Words = std::set<std::string>;

TEST_F(BashCompletion, ProposesEveryCommandAndWhatBeginsLikeTheWord) {
    const Words all = after({"ovri", ""});
    for (const std::string& command : commands()) {
        EXPECT_TRUE(all.contains(command)) << command;
    }
    EXPECT_EQ(after({"ovri", "est"}), Words{"estimate"});
    EXPECT_EQ(after({"ovri", "--ver"}), Words{"--version"});
    EXPECT_EQ(after({"ovri", "help", "sim"}), Words{"simulate"});
}

TEST_F(BashCompletion, ProposesEveryOptionOfACommandAndNoHiddenOne) {
    for (const std::string& command : commands()) {
        const Words all = after({"ovri", command, "-"});
        for (const std::string& option : options_of(command)) {
            EXPECT_TRUE(all.contains(option)) << command << " " << option;
        }
    }
    EXPECT_FALSE(after({"ovri", "help", "-"}).contains("--pages"));
}

TEST_F(BashCompletion, ProposesWhatAnOptionTakes) {
    EXPECT_EQ(after({"ovri", "run", "a", "--color", "a"}), (Words{"auto", "always"}));
    EXPECT_EQ(after({"ovri", "run", "a", "--color", "=", "n"}), Words{"never"});
    EXPECT_EQ(after({"ovri", "run", "a", "--color", "="}), (Words{"auto", "always", "never"}));
    EXPECT_TRUE(after({"ovri", "simulate", "a", "--format", "graph"}).contains("graphml"));
    EXPECT_EQ(after({"ovri", "estimate", "-o", "f"}), Words{"friends.results"});
    EXPECT_EQ(after({"ovri", "estimate", "f", "--nodes", "friends.t"}), Words{"friends.toml"});
    EXPECT_EQ(after({"ovri", "estimate", "fr"}), (Words{"friends.toml", "friends.results"}));
    EXPECT_EQ(after({"ovri", "estimate", "f", "--seed", ""}), Words());
    EXPECT_TRUE(after({"ovri", "effects", "tri"}).contains("triangle"));
}

TEST(Completion, RefusesAShellThatItDoesNotKnow) {
    const ToolResult result = run_tool({"help", "--completion", "fish"});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(has(result.err, "takes bash or zsh, not `fish`")) << result.err;
}

// -- zsh

TEST(ZshCompletion, IsAScriptWithEveryCommandAndOption) {
    const std::string script = help({"--completion", "zsh"});
    EXPECT_TRUE(script.starts_with("#compdef ovri\n"));
    for (const std::string& command : commands()) {
        EXPECT_TRUE(has(script, "\n        '" + command + ":")) << command;
        EXPECT_TRUE(has(script, "\n        " + command + ")\n")) << command;
        for (const std::string& option : options_of(command)) {
            EXPECT_TRUE(has(script, option)) << option;
        }
    }
    if (!is_there("zsh")) {
        GTEST_SKIP() << "zsh was not found: its script was not read by it";
    }
    const ChildResult child = filtered({"zsh", "-n"}, script);
    EXPECT_EQ(child.status, 0) << child.errors;
    EXPECT_EQ(child.errors, "");
}

// -- The files of an installation

TEST(PageFiles, AreThePagesAndScripts) {
    const ScratchDirectory scratch;
    const std::string root = (scratch.path() / "share").string();
    ASSERT_EQ(run_tool({"help", "--pages", root}).status, 0);
    const fs::path manual = fs::path(root) / "man" / "man1";
    EXPECT_EQ(file_text(manual / "ovri.1"), help({"--man"}));
    std::size_t pages = 1;
    for (const std::string& command : commands()) {
        EXPECT_EQ(file_text(manual / ("ovri-" + command + ".1")), help({command, "--man"}));
        ++pages;
    }
    EXPECT_EQ(static_cast<std::size_t>(std::distance(fs::directory_iterator(manual), {})), pages);
    EXPECT_EQ(file_text(fs::path(root) / "bash-completion/completions/ovri"),
              help({"--completion", "bash"}));
    EXPECT_EQ(file_text(fs::path(root) / "zsh/site-functions/_ovri"),
              help({"--completion", "zsh"}));
    EXPECT_EQ(run_tool({"help", "--pages", "/proc/none"}).status, 3);
}

}  // namespace
