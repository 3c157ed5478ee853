#include "commands/command_line.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <utility>

#include "commands/commands.h"
#include "commands/help.h"
#include "commands/model_options.h"
#include "terminal/print.h"
#include "terminal/similar.h"

namespace {

std::string& words_obeyed() {
    static std::string words;
    return words;
}

std::string joined_words(int argc, char** argv) {
    std::string text = "ovri";
    for (int k = 1; k < argc; ++k) {
        text += " " + shell_word(argv[k]);
    }
    return text;
}

// The command that was typed, or the tool itself before there is one.
const CLI::App& chosen(const CLI::App& tool) {
    const std::vector<CLI::App*> typed = tool.get_subcommands();
    return typed.empty() ? tool : *typed.front();
}

std::string unknown_option(const CLI::App& app, const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    const std::string command = app.get_parent() != nullptr ? " " + app.get_name() : "";
    return unknown_word("option", word.substr(0, word.find('=')), names,
                        "`ovri help" + command + "` lists all");
}

// What is wrong with words that were left over; empty when none was.
std::string surplus_words(const CLI::App& app) {
    std::vector<std::string> words = app.remaining();
    std::erase(words, "--");
    for (const std::string& word : words) {
        if (word.size() > 1 && word[0] == '-') {
            return unknown_option(app, word);
        }
    }
    if (words.empty()) {
        return "";
    }
    return app.get_parent() == nullptr ? unknown_command(words.front())
                                       : "`" + words.front() +
                                             "` is one word too many (a path with blanks needs "
                                             "quotes)";
}

// The message of a mistake that CLI11 has found; its own texts begin with the option's name.
std::string describe(const CLI::App& app, const CLI::ParseError& error) {
    const std::string text = error.what();
    const std::string name = text.substr(0, text.find_first_of(": "));
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return app.get_parent() == nullptr
                   ? "a command is missing; `ovri help` lists all"
                   : name + " is missing; the command line is `" + usage(app) + "`";
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return "`" + name + "` takes a value";
    }
    const std::size_t colon = text.find(": ");
    return colon == std::string::npos ? text : "`" + name + "` " + text.substr(colon + 2);
}

// Reads the words. What they ask for beside a command is done at once: then the status, else none.
std::optional<int> read_words(CLI::App& tool, int argc, char** argv) {
    std::string mistake;
    std::string answer;
    try {
        tool.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        answer = help_page(chosen(tool));
    } catch (const CLI::CallForVersion& version) {
        answer = std::string(version.what()) + "\n";
    } catch (const CLI::ParseError& error) {
        mistake = describe(chosen(tool), error);
    }
    if (const std::string surplus = surplus_words(chosen(tool)); !surplus.empty()) {
        mistake = surplus;
    }
    if (!mistake.empty()) {
        print(stderr, "ovri: {}\n", mistake);
        return kNotUnderstood;
    }
    print(stdout, "{}", answer);
    return answer.empty() ? std::nullopt : std::optional(kDone);
}

}  // namespace

int obey(int argc, char** argv) {
    CLI::App tool("", "ovri");
    tool.allow_windows_style_options(false);
    tool.allow_extras();
    tool.require_subcommand(1);
    tool.set_help_flag("-h,--help", "Show this page.");
    tool.set_version_flag("-V,--version", "ovri " OVRI_VERSION, "Show the version.");
    tool.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    std::function<int()> perform;
    for (const Command* command : command_table()) {
        CLI::App* app = tool.add_subcommand(command->name, command->summary);
        app->final_callback([&perform, work = command->declare(*app)] { perform = work; });
    }
    const std::optional<int> answered = read_words(tool, argc, argv);
    if (answered) {
        return *answered;
    }
    // One command may have another one obeyed.
    const std::string before = std::exchange(words_obeyed(), joined_words(argc, argv));
    const int status = perform();
    words_obeyed() = before;
    return status;
}

const std::string& command_text() { return words_obeyed(); }
