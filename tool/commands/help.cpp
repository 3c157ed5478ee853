#include "commands/help.h"

#include <CLI/CLI.hpp>

#include "commands/completion.h"
#include "commands/help_topics.h"
#include "commands/man_page.h"
#include "commands/options.h"
#include "commands/page_files.h"
#include "terminal/print.h"

namespace {

// The page of the tool itself.
constexpr Command kOverview = {
    .name = "",
    .summary = "simulate, estimate and test exponential random graph models",
    .examples = R"(
  ovri new friends.csv --nodes people.csv
  ovri check friends.toml
  ovri estimate friends.toml
  ovri effects AT
  ovri simulate friends.results
)",
    .details = R"(
A model file names a network, its actors and a model; `ovri new` writes one. Results
are a folder of text files. --json prints them for scripts, where a command has it.
`ovri run` performs the run that a host program's setup file describes, `ovri check`
looks at files of both kinds.
)",
    .statuses = R"(
Exit status: 0 done; 1 the check found errors and nothing was written; 2 the
command line was not understood; 3 begun and not completed; 4 not converged; 5 not
identified or degenerate; 130 interrupted by Ctrl-C.
)",
    .declare = nullptr};

constexpr std::size_t kWidth = 80;
constexpr std::size_t kIndent = 18;

// "-o, --output DIR", or the name of a word that stands without an option.
std::string option_head(const CLI::Option& option) {
    std::string head;
    for (const std::string& name : option.get_snames()) {
        head += "-" + name + ", ";
    }
    for (const std::string& name : option.get_lnames()) {
        head += "--" + name + " ";
    }
    head += value_of(option);
    head.resize(head.find_last_not_of(' ') + 1);
    return head;
}

// Behind the head, or below it when that is long, the text in lines of the page's width.
std::string entry(const std::string& head, const std::string& text) {
    std::string page;
    std::string line = "  " + head;
    if (line.size() >= kIndent) {
        page = line + "\n";
        line.clear();
    }
    line.resize(kIndent - 1, ' ');
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (line.size() + 1 + word.size() > kWidth) {
            page += line + "\n";
            line.assign(kIndent - 1, ' ');
        }
        line += " " + word;
    }
    return page + line + "\n";
}

std::string options_text(const CLI::App& app) {
    std::string text;
    for (const CLI::Option* option : shown_options(app)) {
        text += entry(option_head(*option), option->get_description());
    }
    return text;
}

std::string commands_text() {
    std::string text;
    for (const Command* command : command_table()) {
        text += entry(command->name, command->summary);
    }
    return text;
}

std::string topics_text() {
    std::string text;
    for (const HelpTopic& topic : help_topics()) {
        text += entry(topic.name, topic.summary);
    }
    return text;
}

struct HelpOptions {
    std::string topic;
    bool man = false;
    std::string shell;
    std::string directory;
};

int help(const CLI::App& tool, const HelpOptions& options) {
    if (const HelpTopic* topic = find_help_topic(options.topic)) {
        print(stdout, "ovri help {} - {}\n\n{}", topic->name, topic->summary, topic->text());
        return kDone;
    }
    if (!options.topic.empty() && find_command(options.topic) == nullptr) {
        print(stderr, "ovri: {}\n", unknown_command(options.topic));
        return kNotUnderstood;
    }
    const CLI::App& app = options.topic.empty() ? tool : *tool.get_subcommand(options.topic);
    if (!options.directory.empty()) {
        return write_pages(tool, options.directory) ? kDone : kNotCompleted;
    }
    print(stdout, "{}",
          !options.shell.empty() ? completion_script(tool, options.shell)
          : options.man          ? man_page(app)
                                 : help_page(app));
    return kDone;
}

std::function<int()> declare_help(CLI::App& app) {
    const auto options = std::make_shared<HelpOptions>();
    app.add_option("COMMAND", options->topic, "The command or topic that help is wanted on.");
    app.add_flag("--man", options->man, "Print the page as a manual page, for man -l -.");
    add_shell(app, options->shell);
    // For the installation: every manual page and completion script, below the directory.
    app.add_option("--pages", options->directory, "")->type_name("DIR")->group("");
    return [tool = app.get_parent(), options] { return help(*tool, *options); };
}

}  // namespace

extern const Command kHelpCommand = {.name = "help",
                                     .summary = "show the page of a command, or the overview",
                                     .examples = R"(
  ovri help
  ovri help run
  ovri help estimation
  ovri help run --man | man -l -
  source <(ovri help --completion bash)
)",
                                     .details = "",
                                     .statuses = "",
                                     .declare = declare_help};

const Command& page_of(const CLI::App& app) {
    const Command* command = find_command(app.get_name());
    return command != nullptr ? *command : kOverview;
}

std::vector<const CLI::Option*> shown_options(const CLI::App& app) {
    std::vector<const CLI::Option*> options = app.get_options();
    std::erase_if(options, [](const CLI::Option* option) { return option->get_group().empty(); });
    const auto place = [&](const CLI::Option* option) {
        return option->get_positional() ? 0 : option == app.get_help_ptr() ? 2 : 1;
    };
    std::stable_sort(options.begin(), options.end(),
                     [&](const auto* one, const auto* other) { return place(one) < place(other); });
    return options;
}

std::string value_of(const CLI::Option& option) {
    return option.get_positional()         ? option.get_name(true)
           : option.get_expected_max() > 0 ? option.get_type_name()
                                           : "";
}

std::string usage(const CLI::App& app) {
    if (app.get_parent() == nullptr) {
        return "ovri COMMAND [options]";
    }
    std::string line = "ovri " + app.get_name();
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional()) {
            const std::string name = option->get_name(true);
            line += option->get_required() ? " " + name : " [" + name + "]";
        }
    }
    return line + " [options]";
}

std::string help_page(const CLI::App& app) {
    const Command& page = page_of(app);
    const bool whole = app.get_parent() == nullptr;
    return fmt::format(
        "ovri{} - {}\n\nExamples:{}\nUsage:\n  {}\n{}{}\nOptions:\n{}{}",
        whole ? "" : fmt::format(" {}", page.name), page.summary, page.examples, usage(app),
        whole ? "\nCommands:\n" + commands_text() + "\nTopics of `ovri help`:\n" + topics_text()
              : "",
        page.details, options_text(app), page.statuses);
}
