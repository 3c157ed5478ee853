#include "check/row_order.h"

#include <algorithm>

#include "base/text_writer.h"

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

bool is_misplaced_structural(const ReadItem& item, const Catalogue& catalogue) {
    const std::string label = lower_letters(item.label);
    const auto bears_label = [&](int id) {
        return label == lower_letters(catalogue.effects[static_cast<std::size_t>(id)].row);
    };
    return !bears_label(item.key.row) &&
           std::any_of(catalogue.setup_order.begin(), catalogue.setup_order.end(), bears_label);
}

// How many letters at the end of the label are a name of the effect, attribute left out.
std::size_t named_letters(const AttributeEffect& effect, const std::string& label) {
    std::size_t most = 0;
    for (const char* shown : {effect.update, effect.labels.parameter, effect.labels.simulation,
                              effect.labels.result, effect.labels.fit, effect.labels.report}) {
        const std::string name = lower_letters(shown != nullptr ? text_with_name(shown, "") : "");
        most = label.ends_with(name) ? std::max(most, name.size()) : most;
    }
    return most;
}

// Several effects may share a name in one of the outputs: the row's own counts first.
bool is_misplaced_in_block(const ReadItem& item, const Catalogue& catalogue) {
    const AttributeGroupCatalogue& group = group_catalogue(catalogue, item.key.group);
    const std::string label = lower_letters(item.label);
    const std::size_t own =
        named_letters(group.effects[static_cast<std::size_t>(item.key.row)], label);
    return std::any_of(
        group.effects.begin(), group.effects.end(),
        [&](const AttributeEffect& effect) { return named_letters(effect, label) > own; });
}

}  // namespace

std::optional<std::size_t> first_misplaced_row(const SetupView& view) {
    if (view.trace.catalogue == nullptr) {
        return std::nullopt;
    }
    const Catalogue& catalogue = *view.trace.catalogue;
    for (std::size_t k = 0; k < view.trace.items.size(); ++k) {
        const ReadItem& item = view.trace.items[k];
        if ((item.key.id == SetupId::structural_flag && is_misplaced_structural(item, catalogue)) ||
            (item.key.id == SetupId::group_flag && is_misplaced_in_block(item, catalogue))) {
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
