#include "study/gof_model.h"

#include <algorithm>
#include <map>

#include "effects/catalogue.h"
#include "study/names.h"

namespace {

// Adds an effect unless the model has it, or as many of its name as it may have.
void add_effect(const EffectExpression& expression, int most, StudyModel& model) {
    const auto alike =
        std::count_if(model.effects.begin(), model.effects.end(), [&](const StudyEffect& each) {
            return names_match(each.expression.name, expression.name) &&
                   names_match(each.expression.argument, expression.argument);
        });
    const bool there = std::any_of(
        model.effects.begin(), model.effects.end(),
        [&](const StudyEffect& each) { return effects_match(each.expression, expression); });
    if (!there && alike < most) {
        model.effects.push_back({expression, {}, {}});
    }
}

void add_structural(const Catalogue& catalogue, StudyModel& model) {
    std::map<std::string, int> seen;
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        if (!effect.traits.full_model) {
            continue;
        }
        const int number = ++seen[effect.facts.name];
        EffectExpression expression{effect.facts.name, {}, {}};
        if (effect.traits.alternating) {
            expression.lambda = number == 1 ? double{effect.traits.full_model_lambda} : 1.0;
        }
        add_effect(expression, number, model);
    }
}

void add_group(const Catalogue& catalogue, AttributeGroup group, const std::string& argument,
               StudyModel& model) {
    const AttributeGroupCatalogue& effects = group_catalogue(catalogue, group);
    for (const int row : effects.setup_order) {
        add_effect({effects.effects[static_cast<std::size_t>(row)].facts.name, {}, argument}, 1,
                   model);
    }
}

AttributeGroup group_of_type(AttributeType type) {
    return type == AttributeType::binary       ? AttributeGroup::binary
           : type == AttributeType::continuous ? AttributeGroup::continuous
                                               : AttributeGroup::categorical;
}

}  // namespace

StudyModel gof_model(const Study& study) {
    const Catalogue& catalogue =
        catalogue_of(study.network.directed ? NetworkKind::directed : NetworkKind::undirected);
    StudyModel model = study.model;
    add_structural(catalogue, model);
    for (const StudyAttribute& attribute : study.attributes) {
        add_group(catalogue, group_of_type(attribute.type), attribute.name, model);
    }
    for (const StudyCovariate& covariate : study.covariates) {
        add_group(catalogue, AttributeGroup::covariate, covariate.name, model);
    }
    return model;
}
