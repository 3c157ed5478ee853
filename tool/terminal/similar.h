// What a mistyped word was meant to be.
#pragma once

#include <string>
#include <vector>

// The word of the list that is nearest to the typed one, counting letters that are put in, left
// out, exchanged or swapped with their neighbour; empty when none is near.
std::string similar_word(const std::string& typed, const std::vector<std::string>& words);

// "unknown option `--sed`; a similar one is `--seed`", or the hint where none is similar.
std::string unknown_word(const std::string& what, const std::string& typed,
                         const std::vector<std::string>& words, const std::string& hint);
