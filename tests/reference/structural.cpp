#include "structural.h"

#include "structural_families.h"

#include <array>

namespace reference {

namespace {

constexpr std::array<std::string_view, 36> evaluation_order = {
    "edge",      "2-star",   "3-star",       "4-star",   "5-star",   "Triangle",
    "4-clique",  "5-clique", "6-clique",     "7-clique", "Isolates", "P0",
    "Triangle2", "Bow_tie",  "P3",           "Q10",      "Q20",      "Q30",
    "Q31",       "3Path",    "cycle4",       "1ET",      "2ET",      "0ET",
    "ETNT",      "two3star", "one2triangle", "one2et",   "AS",       "AS2",
    "AT",        "AT2",      "A2P",          "AC",       "AET",      "AEAT",
};

std::vector<StructuralEffect> in_evaluation_order() {
    std::vector<StructuralEffect> known;
    for (const auto& family : {degree_effects(), triangle_effects(), clique_and_path_effects(),
                               alternating_triangle_effects()}) {
        known.insert(known.end(), family.begin(), family.end());
    }
    std::vector<StructuralEffect> ordered;
    for (const std::string_view name : evaluation_order) {
        ordered.push_back(find_effect(known, name));
    }
    return ordered;
}

}  // namespace

const std::vector<StructuralEffect>& structural_effects() {
    static const std::vector<StructuralEffect> effects = in_evaluation_order();
    return effects;
}

const StructuralEffect& structural_effect(std::string_view name) {
    return find_effect(structural_effects(), name);
}

bool has_lambda(const StructuralEffect& effect) {
    for (const std::string_view name : {"AS", "AS2", "AT", "AT2", "A2P", "AC", "AET", "AEAT"}) {
        if (effect.name == name) {
            return true;
        }
    }
    return false;
}

}  // namespace reference
