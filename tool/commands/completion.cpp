#include "commands/completion.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "commands/help.h"
#include "commands/options.h"
#include "encyclopaedia/effect_entries.h"
#include "terminal/print.h"

namespace {

// What can stand in a place of the command line.
struct Values {
    enum class Kind { nothing, files, directories, words };
    Kind kind = Kind::nothing;
    std::vector<std::string> words;
};

std::vector<std::string> command_names() {
    std::vector<std::string> names;
    for (const Command* command : command_table()) {
        names.emplace_back(command->name);
    }
    return names;
}

// A word of the command line is a file unless its name says otherwise.
Values values_of(const CLI::Option& option) {
    using Kind = Values::Kind;
    const std::string value = value_of(option);
    const std::vector<std::string> choices = value == "COMMAND" ? command_names()
                                             : value == "NAME"  ? entry_names(std::nullopt)
                                                                : choices_of(value);
    if (!choices.empty()) {
        return {Kind::words, choices};
    }
    return {value == "DIR"                               ? Kind::directories
            : value == "FILE" || option.get_positional() ? Kind::files
                                                         : Kind::nothing,
            {}};
}

std::vector<std::string> option_names(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) {
        names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        names.push_back("--" + name);
    }
    return names;
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

// -- bash

std::string bash_action(const Values& values) {
    switch (values.kind) {
        case Values::Kind::files:
            return "_ovri_paths -f \"$word\"";
        case Values::Kind::directories:
            return "_ovri_paths -d \"$word\"";
        case Values::Kind::words:
            return "_ovri_words '" + joined(values.words, " ") + "' \"$word\"";
        case Values::Kind::nothing:
            break;
    }
    return ":";
}

// The cases of a command: behind an option that takes a value, options, words.
std::string bash_command(const CLI::App& command) {
    const std::string& name = command.get_name();
    std::string cases;
    std::string names;
    std::string word = ":";
    for (const CLI::Option* option : shown_options(command)) {
        if (option->get_positional()) {
            // Of several words each is taken for one of the last kind.
            word = bash_action(values_of(*option));
            continue;
        }
        names += (names.empty() ? "" : " ") + joined(option_names(*option), " ");
        if (!value_of(*option).empty()) {
            std::string patterns = joined(option_names(*option), " | " + name + ":");
            cases += fmt::format("        {}:{}) {} ;;\n", name, patterns,
                                 bash_action(values_of(*option)));
        }
    }
    return cases + fmt::format(
                       "        {0}:*)\n            case $word in\n                -*) _ovri_words "
                       "'{1}' \"$word\" ;;\n                *) {2} ;;\n            esac ;;\n",
                       name, names, word);
}

constexpr const char* kBashHead =
    R"(# Completion of ovri by bash; written by `ovri help --completion bash`.

_ovri_paths() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

_ovri_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_ovri() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' k
    # An equals sign is a word of its own: --output=results.
    if [[ $word == = ]]; then
        word=''
    elif [[ $before == = && $COMP_CWORD -ge 2 ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((k = 1; k < COMP_CWORD; k++)); do
        if [[ ${COMP_WORDS[k]} != -* ]]; then
            command=${COMP_WORDS[k]}
            break
        fi
    done
    COMPREPLY=()
    case $command:$before in
)";

std::string bash_script(const CLI::App& tool) {
    std::vector<std::string> first = command_names();
    for (const CLI::Option* option : shown_options(tool)) {
        for (const std::string& name : option_names(*option)) {
            first.push_back(name);
        }
    }
    std::string text = kBashHead;
    text += "        :*) " + bash_action({Values::Kind::words, first}) + " ;;\n";
    for (const CLI::App* command : tool.get_subcommands({})) {
        text += bash_command(*command);
    }
    return text + "    esac\n}\n\ncomplete -F _ovri ovri\n";
}

// -- zsh

// In single quotes, with the signs escaped that part the fields of what the shell is told.
std::string zsh_text(const std::string& text) {
    std::string quoted;
    for (const char character : text) {
        if (character == '\'') {
            quoted += "'\\''";
        } else {
            quoted += std::string("[]:\\").find(character) != std::string::npos ? "\\" : "";
            quoted += character;
        }
    }
    return quoted;
}

std::string zsh_action(const Values& values) {
    switch (values.kind) {
        case Values::Kind::files:
            return "_files";
        case Values::Kind::directories:
            return "_directories";
        case Values::Kind::words:
            return "(" + joined(values.words, " ") + ")";
        case Values::Kind::nothing:
            break;
    }
    return " ";
}

std::string zsh_option(const CLI::Option& option) {
    const std::string value = value_of(option);
    if (option.get_positional()) {
        return fmt::format("'*:{}:{}'", value, zsh_action(values_of(option)));
    }
    std::vector<std::string> names = option_names(option);
    const std::string others = joined(names, " ");
    const std::string tail =
        fmt::format("'[{}]{}'", zsh_text(option.get_description()),
                    value.empty() ? "" : ":" + value + ":" + zsh_action(values_of(option)));
    if (!value.empty()) {
        names.back() += "=";
    }
    const std::string words = joined(names, ",");
    return fmt::format("'({})'{}{}", others, names.size() > 1 ? "{" + words + "}" : words, tail);
}

std::string zsh_options(const CLI::App& app) {
    std::string text;
    for (const CLI::Option* option : shown_options(app)) {
        text += " \\\n                " + zsh_option(*option);
    }
    return text;
}

std::string zsh_script(const CLI::App& tool) {
    std::string text =
        "#compdef ovri\n# Completion of ovri by zsh; written by `ovri help --completion zsh`.\n\n"
        "_ovri() {\n    local -a commands=(\n";
    for (const Command* command : command_table()) {
        text += fmt::format("        '{}:{}'\n", command->name, zsh_text(command->summary));
    }
    text += "    )\n    if (( CURRENT == 2 )); then\n        _describe command commands\n";
    text += "        _arguments" + zsh_options(tool) + "\n        return\n    fi\n";
    text += "    local command=$words[2]\n    shift words\n    (( CURRENT-- ))\n";
    text += "    case $command in\n";
    for (const CLI::App* command : tool.get_subcommands({})) {
        text += fmt::format("        {})\n            _arguments{} ;;\n", command->get_name(),
                            zsh_options(*command));
    }
    return text +
           "    esac\n}\n\nif [[ $funcstack[1] == _ovri ]]; then\n    _ovri \"$@\"\nelse\n"
           "    compdef _ovri ovri\nfi\n";
}

}  // namespace

std::string completion_script(const CLI::App& tool, const std::string& shell) {
    return shell == "zsh" ? zsh_script(tool) : bash_script(tool);
}
