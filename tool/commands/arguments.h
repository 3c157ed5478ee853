// What a person typed: the command, its setup file and its options.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

enum class Command { run, check, help, version };

struct Arguments {
    Command command = Command::help;
    std::string setup;
    // Replaces the setup file's output directory when not empty.
    std::string output;
    // At most one of the two is set.
    std::optional<std::uint32_t> clock;
    std::optional<std::uint32_t> seed;
    bool quiet = false;
    bool check_first = true;
    // The command that help is wanted on; empty for the overview.
    std::string help_topic;
    // What is wrong with the command line; empty when it can be obeyed.
    std::string mistake;
};

// Reads the command line. May reorder `argv`, as getopt_long does. Call it once in a process.
Arguments parse_arguments(int argc, char** argv);

// True for a command that has a help page.
bool is_command(const std::string& word);
