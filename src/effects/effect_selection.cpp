#include "effects/effect_selection.h"

#include <algorithm>
#include <cmath>

#include "base/text_writer.h"
#include "effects/triangle_ties.h"

namespace {

StructuralChoice& choice_of(EffectSelection& selection, int id) {
    return selection.structural[static_cast<std::size_t>(id)];
}
const StructuralChoice& choice_of(const EffectSelection& selection, int id) {
    return selection.structural[static_cast<std::size_t>(id)];
}

PowerTable power_table(float base, int size) {
    PowerTable powers(static_cast<std::size_t>(std::max(size, 0)));
    for (std::size_t m = 0; m < powers.size(); ++m) {
        powers[m] = std::pow(static_cast<double>(base), static_cast<double>(m));
    }
    return powers;
}

void build_tables(StructuralChoice& choice, const StructuralEffect& effect, int actors) {
    if (effect.traits.weighted) {
        choice.weights = geometric_weight_table(choice.lambda, kWeightTableLength);
    }
    if (effect.traits.powers) {
        choice.powers_a = power_table(alternating_et_base_a(choice.lambda), actors);
        choice.powers_b = power_table(alternating_et_base_b(choice.lambda), actors);
    }
}

}  // namespace

EffectSelection selection_create(NetworkKind kind) {
    EffectSelection selection;
    selection.catalogue = &catalogue_of(kind);
    selection.structural.resize(selection.catalogue->effects.size());
    if (kind == NetworkKind::directed) {
        for (StructuralChoice& choice : selection.structural) {
            choice.lambda = kDefaultLambda;
        }
    }
    for (const AttributeGroup group : kAllGroups) {
        selection_resize_group(selection, group, 0);
    }
    selection.default_weights = geometric_weight_table(kDefaultLambda, kWeightTableLength);
    return selection;
}

std::vector<std::string>& names_of(AttributeTable& table, AttributeGroup group) {
    switch (group) {
        case AttributeGroup::binary:
            return table.binary_names;
        case AttributeGroup::continuous:
            return table.continuous_names;
        case AttributeGroup::categorical:
            return table.categorical_names;
        case AttributeGroup::covariate:
            break;
    }
    return table.covariate_names;
}

void selection_resize_group(EffectSelection& selection, AttributeGroup group, int attributes) {
    const std::size_t rows = group_catalogue(*selection.catalogue, group).effects.size();
    const auto count = static_cast<std::size_t>(std::max(attributes, 0));
    group_of(selection, group).choices.assign(rows, std::vector<AttributeChoice>(count));
}

const std::vector<std::string>& attribute_names(const EffectSelection& selection,
                                                AttributeGroup group) {
    switch (group) {
        case AttributeGroup::binary:
            return selection.table.binary_names;
        case AttributeGroup::continuous:
            return selection.table.continuous_names;
        case AttributeGroup::categorical:
            return selection.table.categorical_names;
        case AttributeGroup::covariate:
            break;
    }
    return selection.table.covariate_names;
}

int selection_size(const EffectSelection& selection) {
    int size = selection.structural_count;
    for (const AttributeSelection& group : selection.groups) {
        size += group.selected;
    }
    return size;
}

bool is_selected(const EffectSelection& selection, int id) {
    return choice_of(selection, id).position >= 0;
}

int clique_depth(const EffectSelection& selection) {
    int depth = 0;
    for (std::size_t id = 0; id < selection.structural.size(); ++id) {
        if (selection.structural[id].position >= 0) {
            depth = std::max(depth, selection.catalogue->effects[id].traits.cliques);
        }
    }
    return depth;
}

std::vector<double> assemble_parameters(EffectSelection& selection) {
    std::vector<double> parameters(static_cast<std::size_t>(selection_size(selection)), 0.0);
    const auto write = [&parameters](int place, double value) {
        if (place >= 0 && static_cast<std::size_t>(place) < parameters.size()) {
            parameters[static_cast<std::size_t>(place)] = value;
        }
    };
    const Catalogue& catalogue = *selection.catalogue;
    for (std::size_t id = 0; id < catalogue.effects.size(); ++id) {
        StructuralChoice& choice = selection.structural[id];
        if (choice.position >= 0) {
            write(choice.position, choice.value);
            build_tables(choice, catalogue.effects[id], selection.actors);
        }
    }
    // The order of assembly is not the order of the statistics; a place past the vector's end has
    // no effect.
    int place = selection.structural_count;
    for (const AttributeGroup group : kAllGroups) {
        for (const int row : group_catalogue(catalogue, group).assembly_order) {
            for (const AttributeChoice& choice :
                 group_of(selection, group).choices[static_cast<std::size_t>(row)]) {
                if (choice.flag == 1) {
                    write(place, choice.value);
                    ++place;
                }
            }
        }
    }
    return parameters;
}

void store_parameters(EffectSelection& selection, const std::vector<double>& parameters) {
    const auto read = [&parameters](int place, double& target) {
        if (place >= 0 && static_cast<std::size_t>(place) < parameters.size()) {
            target = parameters[static_cast<std::size_t>(place)];
        }
    };
    for (StructuralChoice& choice : selection.structural) {
        read(choice.position, choice.value);
    }
    int place = selection.structural_count;
    for (const AttributeGroup group : kAllGroups) {
        for (const int row : group_catalogue(*selection.catalogue, group).store_order) {
            for (AttributeChoice& choice :
                 group_of(selection, group).choices[static_cast<std::size_t>(row)]) {
                if (choice.flag == 1) {
                    read(place, choice.value);
                    ++place;
                }
            }
        }
    }
}

void assign_full_model(EffectSelection& selection) {
    const Catalogue& catalogue = *selection.catalogue;
    int count = 0;
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        if (!effect.traits.full_model) {
            continue;
        }
        StructuralChoice& choice = choice_of(selection, id);
        choice.position = count++;
        if (effect.traits.alternating && choice.lambda == 0.0F) {
            choice.lambda = effect.traits.full_model_lambda;
        }
    }
    selection.structural_count = count + catalogue.full_model_surplus;
    for (AttributeSelection& group : selection.groups) {
        if (group.attributes == 0) {
            continue;
        }
        group.selected = 0;
        for (auto& row : group.choices) {
            for (AttributeChoice& choice : row) {
                choice.flag = 1;
                ++group.selected;
            }
        }
    }
}

std::vector<OutputRow> output_rows(const EffectSelection& selection, Output output) {
    const Catalogue& catalogue = *selection.catalogue;
    std::vector<OutputRow> rows;
    for (const int id : output_order(catalogue, output)) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const StructuralChoice& choice = choice_of(selection, id);
        const OutputText text = output_text(effect.labels, effect.formats, output);
        if (choice.position >= 0 && text.label != nullptr) {
            rows.push_back({effect.traits.alternating ? text_with_lambda(text.label, choice.lambda)
                                                      : std::string(text.label),
                            text.format, choice.position, id, AttributeGroup::binary, -1});
        }
    }
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int position) {
            const AttributeEffect& effect =
                group_catalogue(catalogue, group).effects[static_cast<std::size_t>(row)];
            const OutputText text = output_text(effect.labels, effect.formats, output);
            if (text.label == nullptr) {
                return;
            }
            const auto& names = attribute_names(selection, group);
            const auto index = static_cast<std::size_t>(attribute);
            rows.push_back({text_with_name(text.label, index < names.size() ? names[index] : ""),
                            text.format, position, -1, group, row});
        });
    return rows;
}
