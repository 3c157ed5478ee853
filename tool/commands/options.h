// The words and options of commands. Each function declares one of them.
//
// The parser's own header, of ten thousand lines, is left to options.cpp: a command declares what
// it takes by these functions alone.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/run_mode.h"
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

// A word of the command line by its place; `kind` is what the help calls it.
CLI::Option& add_word(CLI::App& app, const std::string& kind, std::string& word,
                      const std::string& text);
CLI::Option& add_needed_word(CLI::App& app, const std::string& kind, std::string& word,
                             const std::string& text);

// One word or more.
CLI::Option& add_words(CLI::App& app, const std::string& kind, std::vector<std::string>& words,
                       const std::string& text);

// An option that takes a text of some kind ("FILE").
CLI::Option& add_text(CLI::App& app, const std::string& name, std::string& value,
                      const std::string& kind, const std::string& text);

// An option that takes a text of some kind and hands it to `take`, which returns what is wrong with
// it ("takes auto, always or never"), or nothing.
CLI::Option& add_checked_text(CLI::App& app, const std::string& name,
                              const std::function<std::string(const std::string&)>& take,
                              const std::string& kind, const std::string& text);

// An option that is given or not.
CLI::Option& add_flag(CLI::App& app, const std::string& name, bool& given, const std::string& text);

// At most one of the two may be given.
void exclude(CLI::Option& one, CLI::Option& other);

// SETUP, the setup file that the command is about.
void add_setup(CLI::App& app, std::string& path);

// -o, --output DIR.
void add_output(CLI::App& app, std::string& directory, const std::string& text);

// -o, --output DIR and --overwrite, of a results folder.
void add_folder(CLI::App& app, FolderOptions& folder);

// --json and --csv: the file that standard output takes in place of a table.
void add_forms(CLI::App& app, bool& json, bool& csv, const std::string& json_file = "result.json",
               const std::string& csv_file = "estimates.csv");

// A format of networks, by name.
void add_format(CLI::App& app, const std::string& name, std::optional<NetworkFormat>& format,
                const std::string& text);

// --completion SHELL: the shell, "bash" or "zsh".
void add_shell(CLI::App& app, std::string& shell);

// --threshold X.
void add_threshold(CLI::App& app, std::optional<double>& threshold);

// --run KIND, of a setup file.
void add_run_mode(CLI::App& app, std::optional<RunMode>& mode);

// --emit ENGINE, of a plan or of parts: the engine's name.
CLI::Option& add_engine(CLI::App& app, std::string& engine);

// -q, --quiet.
void add_quiet(CLI::App& app, bool& quiet);

// --color auto|always|never.
void add_colour(CLI::App& app, ColourChoice& choice);

// --threads N, 1 or more.
void add_threads(CLI::App& app, std::optional<std::uint32_t>& threads);

// --method of an estimation, by name.
void add_method(CLI::App& app, std::string& method);

// An option that takes a whole number of 32 bits.
CLI::Option& add_number(CLI::App& app, const std::string& name,
                        std::optional<std::uint32_t>& number, const std::string& text,
                        std::uint32_t least = 0);
