#include "commands/man_page.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <sstream>

#include "commands/help.h"
#include "terminal/print.h"

namespace {

// The character as roff writes one that stands for itself. Behind a letter or a digit a hyphen
// joins words; elsewhere it is the sign that is typed.
std::string escaped(char character, char before) {
    switch (character) {
        case '\\':
            return "\\e";
        case '\'':
            return "\\(aq";
        case '"':
            return "\\(dq";
        case '`':
            return "\\(ga";
        case '^':
            return "\\(ha";
        case '~':
            return "\\(ti";
        case '-':
            return std::isalnum(static_cast<unsigned char>(before)) != 0 ? "-" : "\\-";
        default:
            return std::string(1, character);
    }
}

// A line of prose; what stands between backticks is bold.
std::string prose(const std::string& line) {
    std::string text;
    bool bold = false;
    char before = ' ';
    for (const char character : line) {
        if (character == '`') {
            bold = !bold;
            text += bold ? "\\fB" : "\\fR";
        } else {
            text += escaped(character, before);
        }
        before = character;
    }
    if (bold) {
        text += "\\fR";
    }
    return (text.starts_with(".") ? "\\&" : "") + text + "\n";
}

// A line that is shown as it is, every hyphen one that can be typed.
std::string literal(const std::string& line) {
    std::string text;
    for (const char character : line) {
        text += escaped(character, ' ');
    }
    return (text.starts_with(".") ? "\\&" : "") + text + "\n";
}

// Paragraphs, and lines that begin with a blank as they stand.
std::string body(const std::string& text) {
    std::string page;
    bool as_it_is = false;
    bool parted = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) {
            parted = !page.empty();
            continue;
        }
        if (as_it_is && line.front() != ' ') {
            page += ".fi\n";
            as_it_is = false;
        }
        page += parted ? ".PP\n" : "";
        parted = false;
        if (!as_it_is && line.front() == ' ') {
            page += ".nf\n";
            as_it_is = true;
        }
        page += as_it_is ? literal(line) : prose(line);
    }
    return page + (as_it_is ? ".fi\n" : "");
}

std::string bold(const std::string& word) {
    std::string text = literal(word);
    text.pop_back();
    return "\\fB" + text + "\\fR";
}

std::string italic(const std::string& word) { return "\\fI" + word + "\\fR"; }

std::string option_entry(const CLI::Option& option) {
    std::string head;
    for (const std::string& name : option.get_snames()) {
        head += (head.empty() ? "" : ", ") + bold("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        head += (head.empty() ? "" : ", ") + bold("--" + name);
    }
    if (const std::string value = value_of(option); !value.empty()) {
        head += (head.empty() ? "" : " ") + italic(value);
    }
    return ".TP\n" + head + "\n" + prose(option.get_description());
}

std::string options_section(const CLI::App& app) {
    std::string text = ".SH OPTIONS\n";
    for (const CLI::Option* option : shown_options(app)) {
        text += option_entry(*option);
    }
    return text;
}

std::string commands_section() {
    std::string text = ".SH COMMANDS\n";
    for (const Command* command : command_table()) {
        text += ".TP\n" + bold(command->name) + "\n" + prose(command->summary);
    }
    return text;
}

// Without the words that the section's title says.
std::string statuses_section(const std::string& statuses) {
    const std::string lead = "Exit status: ";
    const std::size_t place = statuses.find(lead);
    return place == std::string::npos
               ? ""
               : ".SH EXIT STATUS\n" + body(statuses.substr(place + lead.size()));
}

std::string see_also(const CLI::App& app) {
    std::string text = ".SH SEE ALSO\n";
    if (app.get_parent() != nullptr) {
        return text + ".BR ovri (1)\n";
    }
    std::string between;
    for (const CLI::App* command : app.get_subcommands({})) {
        text += between + ".BR " + literal(man_name(*command));
        text.pop_back();
        text += " (1)";
        between = ",\n";
    }
    return text + "\n";
}

}  // namespace

std::string man_name(const CLI::App& app) {
    return app.get_parent() == nullptr ? "ovri" : "ovri-" + app.get_name();
}

std::string man_page(const CLI::App& app) {
    const Command& page = page_of(app);
    std::string name = literal(man_name(app));
    name.pop_back();
    std::string title = name;
    std::transform(title.begin(), title.end(), title.begin(),
                   [](unsigned char each) { return static_cast<char>(std::toupper(each)); });
    const std::string head = fmt::format(
        ".TH {} 1 \"\" \"ovri " OVRI_VERSION
        "\" \"Ovri\"\n.SH NAME\n{} \\- {}.SH SYNOPSIS\n{}.SH EXAMPLES\n{}",
        title, name, prose(page.summary), prose("`" + usage(app) + "`"), body(page.examples));
    const std::string details = body(page.details);
    return head + (details.empty() ? "" : ".SH DESCRIPTION\n" + details) +
           (app.get_parent() == nullptr ? commands_section() : "") + options_section(app) +
           statuses_section(page.statuses) + see_also(app);
}
