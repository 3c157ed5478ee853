// What a mistyped word was meant to be.
#pragma once

#include <string>
#include <vector>

// "unknown option `--sed`; a similar one is `--seed`", or the hint where none is similar.
std::string unknown_word(const std::string& what, const std::string& typed,
                         const std::vector<std::string>& words, const std::string& hint);
