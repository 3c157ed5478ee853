// Programs of the system that the tool starts, without a shell.
#pragma once

#include <string>
#include <vector>

// Runs a program found by the system's path and waits for it; its exit status, -1 when there is no
// such program. Its standard output goes to standard error.
int run_program(const std::vector<std::string>& words);

// Opens a file with the program that the system has for it. False when there is none.
bool open_with_system(const std::string& path);
