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

}  // namespace

std::optional<std::size_t> first_misplaced_row(const SetupView& view) {
    if (view.trace.catalogue == nullptr) {
        return std::nullopt;
    }
    const Catalogue& catalogue = *view.trace.catalogue;
    std::vector<std::string> rows;
    for (const int id : catalogue.setup_order) {
        rows.push_back(lower_letters(catalogue.effects[static_cast<std::size_t>(id)].row));
    }
    for (std::size_t k = 0; k < view.trace.items.size(); ++k) {
        const ReadItem& item = view.trace.items[k];
        const std::string label = lower_letters(item.label);
        if (item.key.id == SetupId::structural_flag &&
            label != lower_letters(setup_effect(item.key, catalogue, "")) &&
            std::find(rows.begin(), rows.end(), label) != rows.end()) {
            return k;
        }
    }
    return std::nullopt;
}

std::string describe_misplaced_row(const SetupView& view, std::size_t index) {
    const ReadItem& item = view.trace.items[index];
    return "line " + std::to_string(line_at(view, item.label_offset)) + " is labelled " +
           quoted(item.label) + ", but the effect read there is \"" +
           setup_effect(item.key, *view.trace.catalogue, "") +
           "\": a row is missing, too many or out of order";
}
