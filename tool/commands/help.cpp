#include "commands/help.h"

#include <CLI/CLI.hpp>

#include "commands/commands.h"
#include "terminal/print.h"

namespace {

constexpr const char* kExamples =
    R"(
  mkdir -p results
  ovri check examples/florentine/florentine.setup
  ovri run examples/florentine/florentine.setup
)";

constexpr const char* kDetails =
    R"(
A setup file names a network, a model and a kind of run: a simulation, an
estimation, a goodness of fit or a Bayesian goodness of fit. Results are text
files in its output directory.
)";

constexpr const char* kStatuses =
    R"(
Exit status: 0 done; 1 the check found errors; 2 the command line was not
understood; 3 a run began and could not be completed.
)";

constexpr std::size_t kWidth = 80;
constexpr std::size_t kIndent = 18;

// "-o, --output DIR", or the name of a word that stands without an option.
std::string option_head(const CLI::Option& option) {
    if (!option.nonpositional()) {
        return option.get_name(true);
    }
    std::string head;
    for (const std::string& name : option.get_snames()) {
        head += "-" + name + ", ";
    }
    head += "--" + option.get_lnames().front();
    return option.get_expected_max() > 0 ? head + " " + option.get_type_name() : head;
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

// The entries of what the command takes: words first, the option of help last.
std::string options_text(const CLI::App& app) {
    std::vector<const CLI::Option*> options = app.get_options();
    const auto place = [&](const CLI::Option* option) {
        return option->get_positional() ? 0 : option == app.get_help_ptr() ? 2 : 1;
    };
    std::stable_sort(options.begin(), options.end(),
                     [&](const auto* one, const auto* other) { return place(one) < place(other); });
    std::string text;
    for (const CLI::Option* option : options) {
        text += entry(option_head(*option), option->get_description());
    }
    return text;
}

std::string overview(const CLI::App& tool) {
    std::string commands;
    for (const Command* command : command_table()) {
        commands += entry(command->name, command->summary);
    }
    return fmt::format(
        "ovri - simulate, estimate and test exponential random graph models\n\n"
        "From the root of the source tree:{}\nUsage:\n  {}\n\nCommands:\n{}{}\nOptions:\n{}{}",
        kExamples, usage(tool), commands, kDetails, options_text(tool), kStatuses);
}

std::function<int()> declare_help(CLI::App& app) {
    auto topic = std::make_shared<std::string>();
    app.add_option("COMMAND", *topic, "The command that help is wanted on.");
    return [tool = app.get_parent(), topic] {
        if (!topic->empty() && find_command(*topic) == nullptr) {
            print(stderr, "ovri: {}\n", unknown_command(*topic));
            return kNotUnderstood;
        }
        print(stdout, "{}", help_page(topic->empty() ? *tool : *tool->get_subcommand(*topic)));
        return kDone;
    };
}

}  // namespace

extern const Command kHelpCommand = {.name = "help",
                                     .summary = "show the page of a command, or the overview",
                                     .examples = "\n  ovri help\n  ovri help run\n",
                                     .details = "",
                                     .statuses = "",
                                     .declare = declare_help};

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
    const Command* command = find_command(app.get_name());
    if (command == nullptr) {
        return overview(app);
    }
    return fmt::format("ovri {} - {}\n\nExamples:{}\nUsage:\n  {}\n{}\nOptions:\n{}{}",
                       command->name, command->summary, command->examples, usage(app),
                       command->details, options_text(app), command->statuses);
}
