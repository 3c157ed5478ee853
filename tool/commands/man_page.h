// Manual pages, made of what the help pages are made of.
#pragma once

#include <string>

namespace CLI {
class App;
}

// The page of a command, ovri-COMMAND(1), or of the tool, ovri(1), in the man macros of roff.
std::string man_page(const CLI::App& app);

// "ovri-run", "ovri".
std::string man_name(const CLI::App& app);
