// Text set in lines of a width, counted in characters of UTF-8.
#pragma once

#include <cstddef>
#include <string>

// Characters, not bytes. Each takes one column.
std::size_t text_width(const std::string& text);

// The text's words in lines of at most `width` columns, each ended by a line feed: the first begins
// with `lead`, the others with as many blanks. A word that is longer has a line of its own.
std::string wrapped(const std::string& text, std::size_t width, const std::string& lead = "");
