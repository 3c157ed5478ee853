#include "effects/catalogue.h"

#include <string>

namespace {

std::string comparable(std::string_view name) {
    std::string letters;
    for (const char character : name) {
        if (character >= 'A' && character <= 'Z') {
            letters += static_cast<char>(character - 'A' + 'a');
        } else if (character != '-' && character != '_') {
            letters += character;
        }
    }
    return letters;
}

// First number of `numbers` whose name is the one sought: by canonical names, then by row names.
template <class Name, class RowName>
int find_named(std::span<const int> numbers, std::string_view sought, Name name, RowName row_name) {
    const std::string wanted = comparable(sought);
    for (const int number : numbers) {
        if (comparable(name(number)) == wanted) {
            return number;
        }
    }
    for (const int number : numbers) {
        if (comparable(row_name(number)) == wanted) {
            return number;
        }
    }
    return -1;
}

}  // namespace

OutputText output_text(const Labels& labels, const NumberFormats& formats, Output output) {
    switch (output) {
        case Output::parameter:
            return {labels.parameter, "%.5f"};
        case Output::simulation:
            return {labels.simulation, formats.simulation};
        case Output::syntax:
            return {labels.syntax, formats.syntax};
        case Output::result:
            return {labels.result, "%f\t%.5f\t%.5f"};
        case Output::fit_parameter:
            return {labels.fit_parameter, formats.fit_parameter};
        case Output::fit:
            return {labels.fit, formats.fit};
        case Output::bayes_fit:
            return {labels.fit, formats.bayes_fit};
        case Output::report:
            return {labels.report, formats.report};
        case Output::change:
            return {labels.change, "%lf\t"};
        case Output::trace:
            return {labels.trace != nullptr ? labels.trace : labels.syntax, formats.syntax};
    }
    return {nullptr, nullptr};
}

const Catalogue& catalogue_of(NetworkKind kind) {
    return kind == NetworkKind::directed ? digraph_catalogue() : graph_catalogue();
}

int find_effect(const Catalogue& catalogue, std::string_view name) {
    const auto effect = [&](int id) -> const StructuralEffect& {
        return catalogue.effects[static_cast<std::size_t>(id)];
    };
    return find_named(
        catalogue.setup_order, name, [&](int id) { return effect(id).facts.name; },
        [&](int id) { return effect(id).row; });
}

int second_effect(const Catalogue& catalogue, int id) {
    const std::string_view name = catalogue.effects[static_cast<std::size_t>(id)].facts.name;
    for (std::size_t other = static_cast<std::size_t>(id) + 1; other < catalogue.effects.size();
         ++other) {
        if (catalogue.effects[other].facts.name == name) {
            return static_cast<int>(other);
        }
    }
    return -1;
}

int find_effect(const AttributeGroupCatalogue& group, std::string_view name) {
    const auto effect = [&](int row) -> const AttributeEffect& {
        return group.effects[static_cast<std::size_t>(row)];
    };
    constexpr std::string_view kAttribute = "%s_";
    return find_named(
        group.setup_order, name, [&](int row) { return effect(row).facts.name; },
        [&](int row) { return std::string_view(effect(row).update).substr(kAttribute.size()); });
}
