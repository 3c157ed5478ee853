#include "show/text_table.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "terminal/wrap.h"

std::string text_table(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (const auto& row : rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            widths[k] = std::max(widths[k], text_width(row[k]));
        }
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t k = 0; k < row.size(); ++k) {
            const std::string blanks(widths[k] - text_width(row[k]), ' ');
            line += k == 0 ? row[k] + blanks : "  " + blanks + row[k];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

std::string decimals_or_dash(double value, int places) {
    return std::isfinite(value) ? fmt::format("{:.{}f}", value, places) : "-";
}

std::string aligned_decimals(double value, int places, int most) {
    const int point = places == 0 && most > 0 ? 1 : 0;
    const int blanks = std::isfinite(value) ? std::max(most - places, 0) + point : 0;
    return decimals_or_dash(value, places) + std::string(static_cast<std::size_t>(blanks), ' ');
}
