// The help pages, made of the rows of the command table and of the options that are declared.
#pragma once

#include <string>
#include <vector>

#include "commands/commands.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

// The page of a command; the overview for the tool itself.
std::string help_page(const CLI::App& app);

// "ovri run SETUP [options]".
std::string usage(const CLI::App& app);

// The row of the command's table; that of the overview, which has no name, for the tool itself.
const Command& page_of(const CLI::App& app);

// What the command takes, without what is hidden: words first, the option of help last.
std::vector<const CLI::Option*> shown_options(const CLI::App& app);

// The name of what the option takes, "DIR", or of the word, "SETUP"; empty for a flag.
std::string value_of(const CLI::Option& option);
