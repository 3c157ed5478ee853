// The help pages, made of the rows of the command table and of the options that are declared.
#pragma once

#include <string>

namespace CLI {
class App;
}

// The page of a command; the overview for the tool itself.
std::string help_page(const CLI::App& app);

// "ovri run SETUP [options]".
std::string usage(const CLI::App& app);
