#include "support/catalogue_lists.h"

#include <sstream>

#include "base/text_writer.h"

EffectSelection full_selection(NetworkKind kind, const std::vector<std::string>& names,
                               bool slots) {
    EffectSelection selection = selection_create(kind);
    float lambda = 2.0F;
    for (const int id : selection.catalogue->setup_order) {
        StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
        choice.position = selection.structural_count++;
        if (selection.catalogue->effects[static_cast<std::size_t>(id)].traits.alternating) {
            lambda += 0.01F;
            choice.lambda = lambda;
        }
    }
    for (StructuralChoice& choice : selection.structural) {
        if (slots && choice.position < 0) {
            choice.position = selection.structural_count++;
        }
    }
    selection.structural_flag = 1;
    for (const AttributeGroup which : kAllGroups) {
        selection_resize_group(selection, which, static_cast<int>(names.size()));
        AttributeSelection& group = group_of(selection, which);
        group.flag = 1;
        group.attributes = static_cast<int>(names.size());
        for (auto& row : group.choices) {
            for (AttributeChoice& choice : row) {
                choice.flag = 1;
                ++group.selected;
            }
        }
    }
    selection.table.binary_names = names;
    selection.table.continuous_names = names;
    selection.table.categorical_names = names;
    selection.table.covariate_names = names;
    return selection;
}

std::string output_listing(const EffectSelection& selection, Output output) {
    const Catalogue& catalogue = *selection.catalogue;
    // Attribute effects that an output leaves out still take a place.
    std::vector<std::string> updates(static_cast<std::size_t>(selection_size(selection)));
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int position) {
            const auto& effects = group_catalogue(catalogue, group).effects;
            updates[static_cast<std::size_t>(position)] = text_with_name(
                effects[static_cast<std::size_t>(row)].update,
                attribute_names(selection, group)[static_cast<std::size_t>(attribute)]);
        });
    std::string text;
    for (const OutputRow& row : output_rows(selection, output)) {
        std::string update;
        if (row.id >= 0) {
            const auto id = static_cast<std::size_t>(row.id);
            update = selection.structural[id].position == row.position ? catalogue.effects[id].row
                                                                       : "elsewhere";
        } else {
            update = updates[static_cast<std::size_t>(row.position)];
        }
        text += update + " | " + row.label + " | " + row.format + "\n";
    }
    return text;
}

std::string output_labels(const EffectSelection& selection, Output output, const std::string& end) {
    std::string text;
    for (const OutputRow& row : output_rows(selection, output)) {
        text += row.label + end;
    }
    return text;
}

std::string for_names(const std::string& text, const std::vector<std::string>& names) {
    std::istringstream lines(text);
    std::string expanded;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("%s") == std::string::npos) {
            expanded += line + "\n";
            continue;
        }
        for (const std::string& name : names) {
            std::string filled = line;
            for (std::size_t at = filled.find("%s"); at != std::string::npos;
                 at = filled.find("%s", at + name.size())) {
                filled.replace(at, 2, name);
            }
            expanded += filled + "\n";
        }
    }
    return expanded;
}

std::string group_listing(const AttributeGroupCatalogue& group, std::span<const int> order) {
    std::string text;
    for (const int row : order) {
        text += std::string(group.effects[static_cast<std::size_t>(row)].update) + "\n";
    }
    return text;
}
