// The two commands that do work. Both return the exit status of the tool.
#pragma once

#include "commands/arguments.h"

// Exit statuses.
constexpr int kDone = 0;
constexpr int kErrorsFound = 1;
constexpr int kNotUnderstood = 2;
constexpr int kNotCompleted = 3;
constexpr int kInterrupted = 130;

int run_command(const Arguments& arguments);
int check_command(const Arguments& arguments);
