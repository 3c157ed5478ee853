// What a stream of text for people is: a terminal or not, coloured or not.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

// Has terminals show UTF-8. Call it once, before anything is printed.
void prepare_terminal();

bool is_terminal(std::FILE* stream);

// Columns of the terminal; 80 of what is none or does not tell.
std::size_t terminal_width(std::FILE* stream);

enum class ColourChoice { automatic, always, never };

// A stream and whether words on it are coloured.
struct Screen {
    std::FILE* stream;
    bool colours;
};

// By itself a terminal is coloured, unless the environment has a NO_COLOR that is not empty or
// calls the terminal dumb.
Screen screen_on(std::FILE* stream, ColourChoice choice);

enum class Colour { red = 31, yellow = 33 };

// The word, in colour where the screen is coloured.
std::string painted(const Screen& screen, Colour colour, const std::string& word);
