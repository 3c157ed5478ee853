// Options that several commands take. Each function declares one of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "terminal/terminal.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

// SETUP, the setup file that the command is about.
void add_setup(CLI::App& app, std::string& path);

// -o, --output DIR.
void add_output(CLI::App& app, std::string& directory, const std::string& text);

// --color auto|always|never.
void add_colour(CLI::App& app, ColourChoice& choice);

// An option that takes a whole number of 32 bits.
CLI::Option& add_number(CLI::App& app, const std::string& name,
                        std::optional<std::uint32_t>& number, const std::string& text);
