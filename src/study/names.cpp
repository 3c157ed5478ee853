#include "study/names.h"

#include <algorithm>

std::string name_key(std::string_view name) {
    std::string key;
    for (const char character : name) {
        if (character == '-' || character == '_') {
            continue;
        }
        const bool upper = character >= 'A' && character <= 'Z';
        key.push_back(upper ? static_cast<char>(character - 'A' + 'a') : character);
    }
    return key;
}

bool names_match(std::string_view a, std::string_view b) { return name_key(a) == name_key(b); }

int edit_distance(std::string_view a, std::string_view b) {
    // Rows of the table for the first k - 2, k - 1 and k characters of a.
    std::vector<int> before(b.size() + 1);
    std::vector<int> last(b.size() + 1);
    std::vector<int> row(b.size() + 1);
    for (std::size_t m = 0; m <= b.size(); ++m) {
        last[m] = static_cast<int>(m);
    }
    for (std::size_t k = 1; k <= a.size(); ++k) {
        row[0] = static_cast<int>(k);
        for (std::size_t m = 1; m <= b.size(); ++m) {
            const int replaced = last[m - 1] + (a[k - 1] == b[m - 1] ? 0 : 1);
            row[m] = std::min({replaced, last[m] + 1, row[m - 1] + 1});
            if (k > 1 && m > 1 && a[k - 1] == b[m - 2] && a[k - 2] == b[m - 1]) {
                row[m] = std::min(row[m], before[m - 2] + 1);
            }
        }
        std::swap(before, last);
        std::swap(last, row);
    }
    return last[b.size()];
}

std::string nearest_name(std::string_view name, const std::vector<std::string>& candidates) {
    // No one types a longer name by mistake; the distance would cost its length squared.
    constexpr std::size_t kLongestName = 100;
    if (name.size() > kLongestName) {
        return "";
    }
    const std::string key = name_key(name);
    std::string nearest;
    int least = std::max(1, static_cast<int>(key.size()) / 3) + 1;
    for (const std::string& candidate : candidates) {
        const int distance = edit_distance(key, name_key(candidate));
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

std::string listed_names(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t k = 0; k < names.size(); ++k) {
        if (k > 0) {
            text += k + 1 == names.size() ? " and " : ", ";
        }
        text += "`" + names[k] + "`";
    }
    return text;
}
