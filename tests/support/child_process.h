// Programs run as a person or a host would run them.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

struct ChildSetting {
    std::vector<std::string> command;
    std::filesystem::path directory;
    // Added to the environment of the tests.
    std::vector<std::pair<std::string, std::string>> environment;
    std::chrono::microseconds limit = std::chrono::seconds(300);
};

struct ChildResult {
    // The exit status; 128 + the signal for a child that a signal ended; -1 when it could not
    // start.
    int status = -1;
    bool timed_out = false;
    std::string output;
    std::string errors;
};

// Runs the command in the directory, waits for its end and kills it when the limit has passed.
ChildResult run_child(const ChildSetting& setting);
