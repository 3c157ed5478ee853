// The table of commands. A command is one file of this folder, which defines its row, and a line in
// commands.cpp.
#pragma once

#include <functional>
#include <span>
#include <string>

namespace CLI {
class App;
}

// Exit statuses.
constexpr int kDone = 0;
constexpr int kErrorsFound = 1;
constexpr int kNotUnderstood = 2;
constexpr int kNotCompleted = 3;
constexpr int kNotConverged = 4;
constexpr int kNotIdentified = 5;
constexpr int kInterrupted = 130;

struct Command {
    const char* name;
    // What it does, in one line.
    const char* summary;
    // The first page of its help: what to type, and what it is good for.
    const char* examples;
    // What the help says between the examples and the options.
    const char* details;
    // The last words of the help: what the exit statuses mean.
    const char* statuses;
    // Declares the words and options that it takes; what it returns performs the command, once they
    // are read, and gives the exit status.
    std::function<int()> (*declare)(CLI::App& app);
};

// In the order of the help.
std::span<const Command* const> command_table();

// Null when there is no such command.
const Command* find_command(const std::string& name);

// The message that there is no such command, and which one is similar.
std::string unknown_command(const std::string& name);
