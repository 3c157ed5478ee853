#include "study/study_selection.h"

#include <algorithm>

#include "study/effect_resolution.h"

namespace {

struct Assembly {
    const Study& study;
    const Catalogue& catalogue;
    const std::vector<ResolvedEffect>& effects;
    StudySelection& result;
};

// Puts the data of an attribute or covariate behind those that the group has.
void add_data(const Study& study, AttributeGroup group, const std::string& name,
              AttributeTable& table) {
    names_of(table, group).push_back(name);
    if (group == AttributeGroup::covariate) {
        table.covariates.push_back(find_covariate(study, name)->values);
        return;
    }
    const std::vector<double>& values = find_attribute(study, name)->values;
    if (group == AttributeGroup::continuous) {
        std::vector<float> numbers;
        numbers.reserve(values.size());
        for (const double value : values) {
            numbers.push_back(static_cast<float>(value));
        }
        table.continuous.push_back(continuous_attribute(std::move(numbers)));
        return;
    }
    std::vector<int> codes;
    codes.reserve(values.size());
    for (const double value : values) {
        codes.push_back(static_cast<int>(value));
    }
    (group == AttributeGroup::binary ? table.binary : table.categorical)
        .push_back(coded_attribute(std::move(codes)));
}

// The number of an attribute within its group, its data added at the first call.
std::size_t attribute_number(const Study& study, AttributeGroup group, const std::string& name,
                             AttributeTable& table) {
    const std::vector<std::string>& names = names_of(table, group);
    const auto found = std::find(names.begin(), names.end(), name);
    const auto number = static_cast<std::size_t>(found - names.begin());
    if (found == names.end()) {
        add_data(study, group, name, table);
    }
    return number;
}

double value_of(const StudyEffect& effect) {
    return effect.fixed ? *effect.fixed : effect.start.value_or(0.0);
}

void select_structural(Assembly& assembly) {
    EffectSelection& selection = assembly.result.selection;
    selection.structural_flag = 1;
    for (const int id : assembly.catalogue.setup_order) {
        for (std::size_t k = 0; k < assembly.effects.size(); ++k) {
            if (assembly.effects[k].id != id) {
                continue;
            }
            StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
            choice.position = selection.structural_count++;
            choice.value = value_of(assembly.study.model.effects[k]);
            if (structural_effect(assembly.catalogue, id).traits.alternating) {
                choice.lambda = assembly.effects[k].lambda;
            }
            assembly.result.places[k] = choice.position;
        }
    }
}

void select_attributes(Assembly& assembly) {
    EffectSelection& selection = assembly.result.selection;
    std::vector<std::size_t> numbers(assembly.effects.size(), 0);
    for (std::size_t k = 0; k < assembly.effects.size(); ++k) {
        const ResolvedEffect& effect = assembly.effects[k];
        if (effect.id < 0) {
            numbers[k] =
                attribute_number(assembly.study, effect.group, effect.attribute, selection.table);
        }
    }
    for (const AttributeGroup group : kAllGroups) {
        AttributeSelection& chosen = group_of(selection, group);
        chosen.attributes = static_cast<int>(attribute_names(selection, group).size());
        chosen.flag = chosen.attributes > 0 ? 1 : 0;
        selection_resize_group(selection, group, chosen.attributes);
    }
    for (std::size_t k = 0; k < assembly.effects.size(); ++k) {
        const ResolvedEffect& effect = assembly.effects[k];
        if (effect.id < 0) {
            AttributeSelection& chosen = group_of(selection, effect.group);
            chosen.choices[static_cast<std::size_t>(effect.row)][numbers[k]] = {
                1, value_of(assembly.study.model.effects[k])};
            ++chosen.selected;
        }
    }
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int position) {
            for (std::size_t k = 0; k < assembly.effects.size(); ++k) {
                const ResolvedEffect& effect = assembly.effects[k];
                if (effect.id < 0 && effect.group == group && effect.row == row &&
                    numbers[k] == static_cast<std::size_t>(attribute)) {
                    assembly.result.places[k] = position;
                }
            }
        });
}

}  // namespace

StudySelection study_selection(const Study& study) {
    StudySelection result;
    const NetworkKind kind = kind_of(study.network.directed);
    const std::vector<ResolvedEffect> effects = resolve_effects(study, result);
    if (!result.ok()) {
        return result;
    }
    result.places.assign(effects.size(), -1);
    result.selection = selection_create(kind);
    result.selection.actors = static_cast<int>(study.network.actors.size());
    result.selection.table.actors = result.selection.actors;
    Assembly assembly{study, catalogue_of(kind), effects, result};
    select_structural(assembly);
    select_attributes(assembly);
    // Chains read the weight tables where they are built: once, here.
    assemble_parameters(result.selection);
    return result;
}

std::vector<double> study_parameters(const Study& study, const StudySelection& resolved) {
    const auto size = static_cast<std::size_t>(selection_size(resolved.selection));
    std::vector<double> parameters(size, 0.0);
    for (std::size_t k = 0; k < resolved.places.size(); ++k) {
        parameters[static_cast<std::size_t>(resolved.places[k])] = value_of(study.model.effects[k]);
    }
    return parameters;
}
