// What the effects of a study's model are in the catalogue.
#pragma once

#include <string>
#include <vector>

#include "effects/catalogue.h"
#include "study/study_selection.h"

struct ResolvedEffect {
    int id = -1;  // structural, else -1
    float lambda = 0.0F;
    AttributeGroup group = AttributeGroup::binary;
    int row = -1;
    std::string attribute = {};  // of the study, or covariate
};

inline NetworkKind kind_of(bool directed) {
    return directed ? NetworkKind::directed : NetworkKind::undirected;
}

inline const StructuralEffect& structural_effect(const Catalogue& catalogue, int id) {
    return catalogue.effects[static_cast<std::size_t>(id)];
}

// The effects of the model in its order; canonical names and problems (see study_selection) go to
// `result`. One with a problem is left out.
std::vector<ResolvedEffect> resolve_effects(const Study& study, StudySelection& result);

// Every canonical name that a model of this kind can use, in the catalogue's order.
std::vector<std::string> effect_names(NetworkKind kind);
