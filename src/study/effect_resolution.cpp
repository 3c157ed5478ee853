#include "study/effect_resolution.h"

#include <algorithm>
#include <cmath>

#include "study/names.h"

namespace {

struct Resolver {
    const Study& study;
    const Catalogue& catalogue;
    StudySelection& result;
    std::vector<ResolvedEffect> effects = {};
};

const char* kind_name(bool directed) { return directed ? "directed" : "undirected"; }

const AttributeEffect& attribute_effect(const Catalogue& catalogue, AttributeGroup group, int row) {
    return group_catalogue(catalogue, group).effects[static_cast<std::size_t>(row)];
}

void add_problem(Resolver& resolver, std::size_t effect, std::string found, std::string expected,
                 std::string mend) {
    const StudyEffect& written = resolver.study.model.effects[effect];
    resolver.result.problems.push_back({.field = "effect `" + effect_text(written.expression) + "`",
                                        .found = std::move(found),
                                        .expected = std::move(expected),
                                        .mend = std::move(mend)});
    resolver.result.faulty_effects.push_back(static_cast<int>(effect));
}

// The text in the parentheses; an attribute may be called by a number.
std::string argument_of(const EffectExpression& expression) {
    return expression.lambda ? number_text(*expression.lambda) : expression.argument;
}

// Any group that has an attribute effect of this name.
std::vector<AttributeGroup> groups_with(const Catalogue& catalogue, const std::string& name) {
    std::vector<AttributeGroup> groups;
    for (const AttributeGroup group : kAllGroups) {
        if (find_effect(group_catalogue(catalogue, group), name) >= 0) {
            groups.push_back(group);
        }
    }
    return groups;
}

const char* group_name(AttributeGroup group) {
    switch (group) {
        case AttributeGroup::binary:
            return "binary";
        case AttributeGroup::continuous:
            return "continuous";
        case AttributeGroup::categorical:
            return "categorical";
        case AttributeGroup::covariate:
            break;
    }
    return "covariate";
}

// The groups whose effects an attribute of this type serves, its own first.
std::vector<AttributeGroup> groups_for(AttributeType type) {
    switch (type) {
        case AttributeType::continuous:
            return {AttributeGroup::continuous};
        case AttributeType::categorical:
            return {AttributeGroup::categorical};
        case AttributeType::binary:
            break;
    }
    return {AttributeGroup::binary, AttributeGroup::categorical, AttributeGroup::continuous};
}

std::vector<std::string> names_of_group(const Catalogue& catalogue, AttributeGroup group) {
    std::vector<std::string> names;
    for (const int row : group_catalogue(catalogue, group).setup_order) {
        names.emplace_back(attribute_effect(catalogue, group, row).facts.name);
    }
    return names;
}

void unknown_effect(Resolver& resolver, std::size_t effect) {
    const std::string& name = resolver.study.model.effects[effect].expression.name;
    const bool directed = resolver.study.network.directed;
    const Catalogue& other = catalogue_of(kind_of(!directed));
    // The tie itself has a name of its own in each kind.
    const bool tie = names_match(name, directed ? "edge" : "arc");
    const std::string nearest = tie ? (directed ? "arc" : "edge")
                                    : nearest_name(name, effect_names(resolver.catalogue.kind));
    const std::string similar =
        nearest.empty() ? "`ovri effects` lists all"
                        : "a similar one is `" + nearest + "`; `ovri effects` lists all";
    const std::string expected = std::string("an effect of ") + kind_name(directed) + " networks";
    if (find_effect(other, name) >= 0 || !groups_with(other, name).empty()) {
        add_problem(resolver, effect,
                    std::string("an effect of ") + kind_name(!directed) + " networks", expected,
                    similar + "; or write `directed = " + (directed ? "false" : "true") +
                        "` under [network], or add --" + kind_name(!directed));
    } else {
        add_problem(resolver, effect, "an unknown effect", expected, similar);
    }
}

// The attribute's own effects, when the one that is written is for another type.
void wrong_type(Resolver& resolver, std::size_t effect, const StudyAttribute& attribute,
                const std::vector<AttributeGroup>& groups) {
    const char* type = attribute_type_name(attribute.type);
    const AttributeGroup own = groups_for(attribute.type)[0];
    add_problem(
        resolver, effect, "the " + std::string(type) + " attribute `" + attribute.name + "`",
        std::string("a ") + group_name(groups[0]) + " one",
        "effects of " + std::string(type) + " attributes are " +
            listed_names(names_of_group(resolver.catalogue, own)) + "; or change its type: " +
            "\"" + attribute.name + "\" = \"" + group_name(groups[0]) + "\" under [attributes]");
}

template <class Entry>
void missing_name(Resolver& resolver, std::size_t effect, const char* what,
                  const std::vector<Entry>& entries) {
    const EffectExpression& expression = resolver.study.model.effects[effect].expression;
    const std::string argument = argument_of(expression);
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const Entry& entry : entries) {
        names.push_back(entry.name);
    }
    const std::string there = names.empty() ? (what[0] == 'a' ? "an " : "a ") + std::string(what)
                                            : "one of " + listed_names(names);
    if (argument.empty()) {
        add_problem(resolver, effect, std::string("no ") + what, there,
                    "write the name of the " + std::string(what) + ": " + expression.name + "(" +
                        (names.empty() ? what : names[0]) + ")");
        return;
    }
    const std::string nearest = nearest_name(argument, names);
    std::string mend = nearest.empty() ? "" : "a similar one is `" + nearest + "`";
    if (names.empty()) {
        mend = std::string("the study has no ") + what + "; name its file in the model file";
    }
    add_problem(resolver, effect, "`" + argument + "`, which is no " + what + " of the study",
                there, mend.empty() ? "mend the name" : mend);
}

ResolvedEffect resolve_covariate(Resolver& resolver, std::size_t effect, int row) {
    const EffectExpression& expression = resolver.study.model.effects[effect].expression;
    const StudyCovariate* covariate = find_covariate(resolver.study, argument_of(expression));
    if (covariate == nullptr) {
        missing_name(resolver, effect, "covariate", resolver.study.covariates);
        return {};
    }
    return {.group = AttributeGroup::covariate, .row = row, .attribute = covariate->name};
}

ResolvedEffect resolve_attribute(Resolver& resolver, std::size_t effect,
                                 const std::vector<AttributeGroup>& groups) {
    const EffectExpression& expression = resolver.study.model.effects[effect].expression;
    const StudyAttribute* attribute = find_attribute(resolver.study, argument_of(expression));
    if (attribute == nullptr) {
        missing_name(resolver, effect, "attribute", resolver.study.attributes);
        return {};
    }
    for (const AttributeGroup group : groups_for(attribute->type)) {
        const int row = find_effect(group_catalogue(resolver.catalogue, group), expression.name);
        if (row >= 0) {
            return {.group = group, .row = row, .attribute = attribute->name};
        }
    }
    wrong_type(resolver, effect, *attribute, groups);
    return {};
}

// False, with a problem, unless the parentheses hold what the effect wants.
bool check_lambda(Resolver& resolver, std::size_t effect, int id) {
    const EffectExpression& expression = resolver.study.model.effects[effect].expression;
    const StructuralEffect& entry = structural_effect(resolver.catalogue, id);
    const std::string name = entry.facts.name;
    const std::string with_lambda = "`" + name + "(lambda)`, lambda from 1";
    if (!entry.traits.alternating) {
        const bool bare = !expression.lambda && expression.argument.empty();
        if (!bare) {
            add_problem(resolver, effect, expression.lambda ? "a lambda" : "an attribute",
                        "`" + name + "` alone", "leave the parentheses out");
        }
        return bare;
    }
    if (!expression.lambda) {
        add_problem(resolver, effect,
                    expression.argument.empty() ? "no lambda"
                                                : shown_text(expression.argument) + " as a lambda",
                    with_lambda, "write `" + name + "(2)`: 2 is the usual lambda");
        return false;
    }
    if (!(*expression.lambda >= 1.0) || !std::isfinite(static_cast<float>(*expression.lambda))) {
        add_problem(resolver, effect, "the lambda " + number_text(*expression.lambda), with_lambda,
                    "write `" + name + "(2)`: 2 is the usual lambda");
        return false;
    }
    return true;
}

ResolvedEffect resolve_structural(Resolver& resolver, std::size_t effect, int id) {
    if (!check_lambda(resolver, effect, id)) {
        return {};
    }
    const EffectExpression& expression = resolver.study.model.effects[effect].expression;
    return {.id = id, .lambda = static_cast<float>(expression.lambda.value_or(0.0))};
}

ResolvedEffect resolve(Resolver& resolver, std::size_t effect) {
    const std::string& name = resolver.study.model.effects[effect].expression.name;
    const int id = find_effect(resolver.catalogue, name);
    if (id >= 0) {
        return resolve_structural(resolver, effect, id);
    }
    const std::vector<AttributeGroup> groups = groups_with(resolver.catalogue, name);
    if (groups.empty()) {
        unknown_effect(resolver, effect);
        return {};
    }
    if (groups[0] == AttributeGroup::covariate) {
        const int row = find_effect(group_catalogue(resolver.catalogue, groups[0]), name);
        return resolve_covariate(resolver, effect, row);
    }
    return resolve_attribute(resolver, effect, groups);
}

bool is_resolved(const ResolvedEffect& effect) { return effect.id >= 0 || effect.row >= 0; }

bool same_effect(const ResolvedEffect& a, const ResolvedEffect& b) {
    return a.id >= 0
               ? a.id == b.id && a.lambda == b.lambda
               : b.id < 0 && a.group == b.group && a.row == b.row && a.attribute == b.attribute;
}

// Gives a second effect of one name the place that the catalogue keeps for it. False, with a
// problem, when the effect stands in the model already.
bool make_distinct(Resolver& resolver, std::size_t effect, ResolvedEffect& resolved) {
    int alike = 0;
    for (const ResolvedEffect& before : resolver.effects) {
        if (same_effect(before, resolved)) {
            add_problem(resolver, effect, "the effect once more", "each effect once",
                        "delete one of the two");
            return false;
        }
        alike += resolved.id >= 0 && before.id >= 0 &&
                         std::string(structural_effect(resolver.catalogue, before.id).facts.name) ==
                             structural_effect(resolver.catalogue, resolved.id).facts.name
                     ? 1
                     : 0;
    }
    if (alike == 0) {
        return true;
    }
    const std::string name = structural_effect(resolver.catalogue, resolved.id).facts.name;
    const int second = second_effect(resolver.catalogue, resolved.id);
    if (alike == 1 && second >= 0) {
        resolved.id = second;
        return true;
    }
    const bool pair = second >= 0;
    add_problem(resolver, effect, std::string(pair ? "a third" : "a second") + " `" + name + "`",
                std::string(pair ? "at most two" : "one") + " with lambdas of their own",
                "delete one of them");
    return false;
}

std::string name_of(const Resolver& resolver, const ResolvedEffect& effect) {
    if (effect.id < 0) {
        const AttributeEffect& entry =
            attribute_effect(resolver.catalogue, effect.group, effect.row);
        return effect_text({entry.facts.name, {}, effect.attribute});
    }
    const StructuralEffect& entry = structural_effect(resolver.catalogue, effect.id);
    EffectExpression expression{entry.facts.name, {}, {}};
    if (entry.traits.alternating) {
        expression.lambda = static_cast<double>(effect.lambda);
    }
    return effect_text(expression);
}

}  // namespace

std::vector<ResolvedEffect> resolve_effects(const Study& study, StudySelection& result) {
    Resolver resolver{study, catalogue_of(kind_of(study.network.directed)), result};
    for (std::size_t effect = 0; effect < study.model.effects.size(); ++effect) {
        ResolvedEffect resolved = resolve(resolver, effect);
        if (is_resolved(resolved) && make_distinct(resolver, effect, resolved)) {
            resolver.effects.push_back(resolved);
            result.names.push_back(name_of(resolver, resolved));
        }
    }
    return std::move(resolver.effects);
}

std::vector<std::string> effect_names(NetworkKind kind) {
    const Catalogue& catalogue = catalogue_of(kind);
    std::vector<std::string> names;
    const auto add = [&names](const std::string& name) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    };
    for (const int id : catalogue.setup_order) {
        add(structural_effect(catalogue, id).facts.name);
    }
    for (const AttributeGroup group : kAllGroups) {
        for (const std::string& name : names_of_group(catalogue, group)) {
            add(name);
        }
    }
    return names;
}
