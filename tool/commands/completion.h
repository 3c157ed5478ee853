// Completion of command lines by shells, made of the command table and of the options declared.
#pragma once

#include <string>

namespace CLI {
class App;
}

// The script for the shell, "bash" or "zsh".
std::string completion_script(const CLI::App& tool, const std::string& shell);
