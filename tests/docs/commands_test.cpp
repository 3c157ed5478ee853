// Every block of commands in README and the pages does what the page shows.
//
// A page's blocks run in order, in one scratch directory that holds a copy of examples/, with
// `ovri` in the path. In a ```console block a line that begins with "$ " is a command (one that
// ends in a backslash goes on in the next line) and the lines below it are what it prints, errors
// included. In a ```sh block every line must end in status 0; what it prints is not looked at.
//
// Before they are compared, both texts lose what changes from run to run:
//   - times: "0.4 seconds" and "0.4 s" become "N seconds" and "N s";
//   - the scratch directory's path becomes ".";
//   - blanks at the ends of lines.
// A line "..." in the page stands for any lines.
//
// Commands that make what the tests run, or need the network, are not run: see kElsewhere.
//
// With OVRI_RENEW_DOCS=1 what was printed is written into the pages instead, except into blocks
// with a line "...".
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "support/child_process.h"
#include "support/scratch_directory.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Commands that are not run here, by their first words.
constexpr std::array<const char*, 11> kElsewhere = {
    "cmake ",    "ctest ",    "git ",         "apt ",         "sudo ",      "java ",
    "./demo.sh", "./test.sh", "build/tests/", "build/bench/", "OVRI_RENEW_"};

struct Command {
    std::size_t line = 0;  // of its first line, from 0
    std::string text;
    Lines output;               // as the page shows it
    std::size_t output_at = 0;  // first line of the output
};

// A block of one page.
struct Block {
    std::size_t line = 0;
    bool console = false;
    std::vector<Command> commands;
};

Lines lines_of(const std::string& text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

bool goes_on(const std::string& line) { return line.ends_with("\\"); }

// The command that begins at the line; moves to the line behind it.
Command read_command(const Lines& page, std::size_t& at, std::size_t skip) {
    Command command{at, page[at].substr(skip), {}, 0};
    while (goes_on(page[at]) && at + 1 < page.size()) {
        ++at;
        command.text += "\n" + page[at];
    }
    ++at;
    command.output_at = at;
    return command;
}

Block read_block(const Lines& page, std::size_t& at) {
    Block block{at, page[at] == "```console", {}};
    for (++at; at < page.size() && page[at] != "```";) {
        if (!block.console && !page[at].empty()) {
            block.commands.push_back(read_command(page, at, 0));
        } else if (block.console && page[at].starts_with("$ ")) {
            block.commands.push_back(read_command(page, at, 2));
        } else {
            if (block.console && !block.commands.empty()) {
                block.commands.back().output.push_back(page[at]);
            }
            ++at;
        }
    }
    return block;
}

std::vector<Block> blocks_of(const Lines& page) {
    std::vector<Block> blocks;
    for (std::size_t at = 0; at < page.size(); ++at) {
        if (page[at] == "```console" || page[at] == "```sh") {
            blocks.push_back(read_block(page, at));
        } else if (page[at].starts_with("```")) {
            while (++at < page.size() && page[at] != "```") {
            }
        }
    }
    return blocks;
}

bool is_elsewhere(const std::string& command) {
    return std::any_of(kElsewhere.begin(), kElsewhere.end(), [&](const std::string& words) {
        return command.starts_with(words) || command + " " == words;
    });
}

Lines normalised(const Lines& lines, const std::string& directory) {
    static const std::regex kTime(R"([0-9]+(\.[0-9]+)?( seconds?| s\b))");
    Lines found;
    for (std::string line : lines) {
        for (std::size_t place = line.find(directory); place != std::string::npos;
             place = line.find(directory, place)) {
            line.replace(place, directory.size(), ".");
        }
        line = std::regex_replace(line, kTime, "N$2");
        line.resize(line.find_last_not_of(' ') + 1);
        found.push_back(line);
    }
    while (!found.empty() && found.back().empty()) {
        found.pop_back();
    }
    return found;
}

// Whether the lines are those of the page, where "..." stands for any.
bool fits(const Lines& page, std::size_t at, const Lines& printed, std::size_t from) {
    if (at == page.size()) {
        return from == printed.size();
    }
    if (page[at] != "...") {
        return from < printed.size() && page[at] == printed[from] &&
               fits(page, at + 1, printed, from + 1);
    }
    for (std::size_t next = from; next <= printed.size(); ++next) {
        if (fits(page, at + 1, printed, next)) {
            return true;
        }
    }
    return false;
}

std::string text_of(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

class Page {
  public:
    explicit Page(const std::string& name)
        : name_(name), path_(fs::path(OVRI_SOURCE_DIRECTORY) / name) {
        page_ = lines_of(file_text(path_));
        fs::copy(fs::path(OVRI_SOURCE_DIRECTORY) / "examples", scratch_.path() / "examples",
                 fs::copy_options::recursive);
    }

    void run() {
        for (const Block& block : blocks_of(page_)) {
            for (const Command& command : block.commands) {
                run(command, block.console);
            }
        }
    }

    void write() {
        for (auto each = renewed_.rbegin(); each != renewed_.rend(); ++each) {
            const auto first = page_.begin() + static_cast<std::ptrdiff_t>(each->first.output_at);
            const auto end = first + static_cast<std::ptrdiff_t>(each->first.output.size());
            page_.insert(page_.erase(first, end), each->second.begin(), each->second.end());
        }
        if (!renewed_.empty()) {
            std::ofstream(path_, std::ios::binary) << text_of(page_);
        }
    }

  private:
    void run(const Command& command, bool console) {
        if (is_elsewhere(command.text)) {
            return;
        }
        const std::string place = name_ + ":" + std::to_string(command.line + 1);
        const std::string directory = fs::canonical(scratch_.path()).string();
        const std::string path = fs::path(OVRI_TOOL_PATH).parent_path().string() + ":" +
                                 std::string(std::getenv("PATH"));
        const ChildResult child = run_child(
            {{"bash", "-c", "exec 2>&1\n" + command.text},
             directory,
             {{"PATH", path}, {"NO_COLOR", "1"}, {"COLUMNS", "100"}, {"LC_ALL", "C.UTF-8"}}});
        if (!console) {
            EXPECT_EQ(child.status, 0) << place << "\n" << command.text << "\n" << child.output;
            return;
        }
        const Lines printed = normalised(lines_of(child.output), directory);
        if (!fits(normalised(command.output, directory), 0, printed, 0)) {
            differs(command, place, lines_of(child.output));
        }
    }

    void differs(const Command& command, const std::string& place, const Lines& printed) {
        const bool elided =
            std::find(command.output.begin(), command.output.end(), "...") != command.output.end();
        if (std::getenv("OVRI_RENEW_DOCS") != nullptr && !elided) {
            renewed_.emplace_back(command, printed);
            return;
        }
        ADD_FAILURE() << place << ": " << command.text << "\nprinted:\n"
                      << text_of(printed) << "the page:\n"
                      << text_of(command.output) << "OVRI_RENEW_DOCS=1 writes it into the page";
    }

    std::string name_;
    fs::path path_;
    Lines page_;
    ScratchDirectory scratch_;
    std::vector<std::pair<Command, Lines>> renewed_;
};

// Every page of people's: README and its like, docs/ and examples/.
std::vector<std::string> pages() {
    std::vector<std::string> names;
    const fs::path root = OVRI_SOURCE_DIRECTORY;
    for (const char* folder : {".", "docs", "bench"}) {
        for (const auto& each : fs::directory_iterator(root / folder)) {
            if (each.path().extension() == ".md") {
                names.push_back(fs::relative(each.path(), root).generic_string());
            }
        }
    }
    for (const auto& each : fs::recursive_directory_iterator(root / "examples")) {
        if (each.path().extension() == ".md") {
            names.push_back(fs::relative(each.path(), root).generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class CommandsOfPage : public testing::TestWithParam<std::string> {};

TEST_P(CommandsOfPage, PrintWhatThePageShows) {
    Page page(GetParam());
    page.run();
    page.write();
}

std::string case_name(const testing::TestParamInfo<std::string>& page) {
    std::string name = page.param;
    for (char& each : name) {
        each = std::isalnum(static_cast<unsigned char>(each)) != 0 ? each : '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Pages, CommandsOfPage, testing::ValuesIn(pages()), case_name);

// A command that is indented only, or behind another word, would be run by nobody.
TEST(Pages, HaveTheirCommandsInBlocksThatAreRun) {
    for (const std::string& name : pages()) {
        const Lines page = lines_of(file_text(fs::path(OVRI_SOURCE_DIRECTORY) / name));
        for (std::size_t at = 0; at < page.size(); ++at) {
            const std::string& line = page[at];
            for (const char* words : {"    ovri ", "    $ ", "    ./", "    build/ovri ", "```bash",
                                      "```shell", "``` "}) {
                EXPECT_FALSE(line.starts_with(words)) << name << ":" << at + 1 << ": " << line;
            }
        }
    }
}

TEST(Pages, NameScriptsThatAreThere) {
    int found = 0;
    for (const std::string& name : pages()) {
        const Lines page = lines_of(file_text(fs::path(OVRI_SOURCE_DIRECTORY) / name));
        for (const Block& block : blocks_of(page)) {
            for (const Command& command : block.commands) {
                if (command.text.starts_with("./")) {
                    const std::string script = command.text.substr(2, command.text.find(' ') - 2);
                    EXPECT_TRUE(fs::exists(fs::path(OVRI_SOURCE_DIRECTORY) / script)) << script;
                    ++found;
                }
            }
        }
    }
    EXPECT_GE(found, 2);
}

// -- The test's own rules

TEST(PageBlocks, AreReadAsCommandsAndWhatTheyPrint) {
    const std::vector<Block> blocks = blocks_of(
        lines_of("Text\n```console\n$ a \\\n  b\none\n\ntwo\n$ c\n```\n```toml\n$ d\n```\n"
                 "```sh\ne\nf \\\n  g\n```\n"));
    ASSERT_EQ(blocks.size(), 2U);
    ASSERT_EQ(blocks[0].commands.size(), 2U);
    EXPECT_EQ(blocks[0].commands[0].text, "a \\\n  b");
    EXPECT_EQ(blocks[0].commands[0].output, (Lines{"one", "", "two"}));
    EXPECT_EQ(blocks[0].commands[1].text, "c");
    ASSERT_EQ(blocks[1].commands.size(), 2U);
    EXPECT_EQ(blocks[1].commands[1].text, "f \\\n  g");
}

TEST(PageBlocks, LoseTimesPathsAndBlanksAtTheEndOnly) {
    EXPECT_EQ(normalised({"took 0.41 seconds", "12 s, 3 samples  ", "/x/y/z at 1.5", ""}, "/x/y"),
              (Lines{"took N seconds", "N s, 3 samples", "./z at 1.5"}));
}

TEST(PageBlocks, LetThreePointsStandForAnyLines) {
    const Lines printed = {"a", "b", "c"};
    EXPECT_TRUE(fits({"a", "b", "c"}, 0, printed, 0));
    EXPECT_TRUE(fits({"...", "c"}, 0, printed, 0));
    EXPECT_TRUE(fits({"a", "...", "b", "...", "c", "..."}, 0, printed, 0));
    EXPECT_FALSE(fits({"a", "b"}, 0, printed, 0));
    EXPECT_FALSE(fits({"b", "..."}, 0, printed, 0));
}

}  // namespace
