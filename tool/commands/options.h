// Options that several commands take. Each function declares one of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "commands/results_folder.h"
#include "formats/network_file.h"
#include "terminal/terminal.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

// The words of which an option's value is one, by the name that the help gives the value: "WHEN",
// "FORMAT". None for a value that can be anything.
std::vector<std::string> choices_of(const std::string& value);

// SETUP, the setup file that the command is about.
void add_setup(CLI::App& app, std::string& path);

// -o, --output DIR.
void add_output(CLI::App& app, std::string& directory, const std::string& text);

// -o, --output DIR and --overwrite, of a results folder.
void add_folder(CLI::App& app, FolderOptions& folder);

// --json and --csv: what standard output takes in place of a table.
void add_forms(CLI::App& app, bool& json, bool& csv);

// A format of networks, by name.
void add_format(CLI::App& app, const std::string& name, std::optional<NetworkFormat>& format,
                const std::string& text);

// --completion SHELL: the shell, "bash" or "zsh".
void add_shell(CLI::App& app, std::string& shell);

// -q, --quiet.
void add_quiet(CLI::App& app, bool& quiet);

// --color auto|always|never.
void add_colour(CLI::App& app, ColourChoice& choice);

// An option that takes a whole number of 32 bits.
CLI::Option& add_number(CLI::App& app, const std::string& name,
                        std::optional<std::uint32_t>& number, const std::string& text);
