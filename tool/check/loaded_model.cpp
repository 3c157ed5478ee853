#include "check/loaded_model.h"

#include "base/text_writer.h"
#include "effects/attribute_table.h"

std::vector<ModelEffect> selected_effects(const EffectSelection& selection) {
    const Catalogue& catalogue = *selection.catalogue;
    std::vector<ModelEffect> effects;
    for (const int id : catalogue.setup_order) {
        const int position = selection.structural[static_cast<std::size_t>(id)].position;
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        if (position >= 0) {
            effects.push_back({{SetupId::structural_flag, id},
                               effect.row,
                               &effect.facts,
                               static_cast<std::size_t>(position)});
        }
    }
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int position) {
            const AttributeEffect& effect =
                group_catalogue(catalogue, group).effects[static_cast<std::size_t>(row)];
            const std::vector<std::string>& names = attribute_names(selection, group);
            const auto number = static_cast<std::size_t>(attribute);
            effects.push_back(
                {{SetupId::group_flag, group, row, attribute},
                 text_with_name(effect.update, number < names.size() ? names[number] : ""),
                 &effect.facts,
                 static_cast<std::size_t>(position)});
        });
    return effects;
}

EffectSelection read_selection(const SetupView& view) {
    EffectSelection selection = view.setup.selection;
    const int actors = view.setup.settings.actor_count;
    selection.actors = actors;
    selection.table.actors = actors;
    const auto read = [&](AttributeGroup group, auto reader) {
        const AttributeSelection& chosen = group_of(selection, group);
        if (chosen.attributes != 0) {
            reader(selection.table, actors, chosen.attributes, chosen.path, nullptr);
        }
    };
    read(AttributeGroup::binary, attribute_read_binary);
    read(AttributeGroup::continuous, attribute_read_continuous);
    read(AttributeGroup::categorical, attribute_read_categorical);
    read(AttributeGroup::covariate, read_covariates);
    return selection;
}
