#include "check/row_order.h"

#include <algorithm>

namespace {

std::string lower_letters(const std::string& text) {
    std::string letters;
    for (const char character : text) {
        if (character >= 'A' && character <= 'Z') {
            letters.push_back(static_cast<char>(character - 'A' + 'a'));
        } else if (character != '_' && character != '-' && character != ' ') {
            letters.push_back(character);
        }
    }
    return letters;
}

std::optional<std::string> row_of_flag(const SetupItem& item) {
    const std::string ending = " flag";
    if (item.field.size() <= ending.size() || !item.field.ends_with(ending)) {
        return std::nullopt;
    }
    return item.field.substr(0, item.field.size() - ending.size());
}

}  // namespace

std::optional<std::size_t> first_misplaced_row(const SetupView& view) {
    const Catalogue* catalogue = view.setup.selection.catalogue;
    if (catalogue == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> rows;
    for (const int id : catalogue->setup_order) {
        rows.push_back(lower_letters(catalogue->effects[static_cast<std::size_t>(id)].row));
    }
    for (std::size_t k = 0; k < view.trace.items.size(); ++k) {
        const std::optional<std::string> row = row_of_flag(view.trace.items[k]);
        if (!row || std::find(rows.begin(), rows.end(), lower_letters(*row)) == rows.end()) {
            continue;
        }
        const std::string label = lower_letters(view.trace.items[k].label);
        if (label != lower_letters(*row) &&
            std::find(rows.begin(), rows.end(), label) != rows.end()) {
            return k;
        }
    }
    return std::nullopt;
}

std::string describe_misplaced_row(const SetupView& view, std::size_t index) {
    const SetupItem& item = view.trace.items[index];
    return "line " + std::to_string(line_at(view, item.label_offset)) + " is labelled " +
           quoted(item.label) + ", but the effect read there is \"" +
           row_of_flag(item).value_or("") + "\": a row is missing, too many or out of order";
}
