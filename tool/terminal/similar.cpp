#include "terminal/similar.h"

#include "study/names.h"

std::string unknown_word(const std::string& what, const std::string& typed,
                         const std::vector<std::string>& words, const std::string& hint) {
    const std::string similar = nearest_name(typed, words);
    return "unknown " + what + " `" + typed + "`; " +
           (similar.empty() ? hint : "a similar one is `" + similar + "`");
}
