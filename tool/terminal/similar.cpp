#include "terminal/similar.h"

#include <algorithm>
#include <cctype>

namespace {

char lower(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

// The number of mistakes between two words (optimal string alignment), case aside.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::vector<std::size_t>> least(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    const auto same = [&](std::size_t i, std::size_t j) { return lower(a[i]) == lower(b[j]); };
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                least[i][j] = i + j;
                continue;
            }
            least[i][j] = std::min({least[i - 1][j] + 1, least[i][j - 1] + 1,
                                    least[i - 1][j - 1] + (same(i - 1, j - 1) ? 0U : 1U)});
            if (i > 1 && j > 1 && same(i - 1, j - 2) && same(i - 2, j - 1)) {
                least[i][j] = std::min(least[i][j], least[i - 2][j - 2] + 1);
            }
        }
    }
    return least[a.size()][b.size()];
}

}  // namespace

std::string similar_word(const std::string& typed, const std::vector<std::string>& words) {
    std::string nearest;
    // One mistake in every three letters is as far as a word may be.
    std::size_t nearer_than = (typed.size() + 2) / 3 + 1;
    for (const std::string& word : words) {
        if (const std::size_t mistakes = distance(typed, word); mistakes < nearer_than) {
            nearest = word;
            nearer_than = mistakes;
        }
    }
    return nearest;
}

std::string unknown_word(const std::string& what, const std::string& typed,
                         const std::vector<std::string>& words, const std::string& hint) {
    const std::string similar = similar_word(typed, words);
    return "unknown " + what + " `" + typed + "`; " +
           (similar.empty() ? hint : "a similar one is `" + similar + "`");
}
