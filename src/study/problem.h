// An error in what a person brought: where it stands, what was found, what was expected, the mend.
#pragma once

#include <string>
#include <vector>

struct Problem {
    std::string file = {};
    int line = 0;            // from 1; 0 for the file as a whole
    int column = 0;          // from 1, in characters; 0 for the line as a whole
    std::string field = {};  // what it is about: a key, an actor, an attribute, an effect
    std::string found = {};
    std::string expected = {};
    std::string mend = {};
};

using Problems = std::vector<Problem>;

// "karate.csv:7:3"; without what is not known.
std::string problem_place(const Problem& problem);

// Two lines: "karate.csv:7:3: actor `Ann`: found ..., expected ..." and the mend, indented.
std::string problem_text(const Problem& problem);

// The text in quotation marks, shortened, with escapes for what does not print.
std::string shown_text(const std::string& text);
