// Pages of the help that are about no single command.
#pragma once

#include <string>
#include <vector>

struct HelpTopic {
    const char* name;
    // What it is about, in one line.
    const char* summary;
    std::string (*text)();
};

// In the order of the help.
const std::vector<HelpTopic>& help_topics();

// Null when there is none of that name.
const HelpTopic* find_help_topic(const std::string& name);
