// The help pages.
#pragma once

#include <cstdio>
#include <string>

// The page of a command, or the overview for an empty topic.
void print_help(const std::string& topic, std::FILE* out);

void print_version(std::FILE* out);
