#include "study/estimability.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "study/names.h"
#include "study/study_chain.h"

namespace {

// What an effect of the model is in the catalogue.
struct EffectOrigin {
    const EffectFacts* facts = nullptr;
    bool structural = false;
    float lambda = 0.0F;
    AttributeGroup group = AttributeGroup::binary;
    std::size_t attribute = 0;
};

std::vector<EffectOrigin> effect_origins(const StudySelection& resolved) {
    const EffectSelection& selection = resolved.selection;
    std::vector<EffectOrigin> origins(resolved.places.size());
    const auto note = [&](int place, const EffectOrigin& origin) {
        const auto at = std::find(resolved.places.begin(), resolved.places.end(), place);
        if (at != resolved.places.end()) {
            origins[static_cast<std::size_t>(at - resolved.places.begin())] = origin;
        }
    };
    for (std::size_t id = 0; id < selection.structural.size(); ++id) {
        const StructuralChoice& choice = selection.structural[id];
        if (choice.position >= 0) {
            note(choice.position,
                 {&selection.catalogue->effects[id].facts, true, choice.lambda, {}, 0});
        }
    }
    for_each_attribute_effect(
        selection, [&](AttributeGroup group, int row, int attribute, int place) {
            const auto& effects = group_catalogue(*selection.catalogue, group).effects;
            note(place, {&effects[static_cast<std::size_t>(row)].facts, false, 0.0F, group,
                         static_cast<std::size_t>(attribute)});
        });
    return origins;
}

// Whether the effect counts something, so that its statistic is never below 0. Of effects of
// attributes only those of coded values are sure to: other values may be negative.
bool is_count(const EffectOrigin& origin) {
    return origin.structural ? !is_difference(*origin.facts)
                             : origin.group == AttributeGroup::categorical ||
                                   origin.group == AttributeGroup::binary;
}

bool drifts(const EffectOrigin& origin) {
    if (!origin.facts->carried) {
        return true;
    }
    return origin.structural &&
           (origin.facts->agreement == Agreement::never ||
            (origin.facts->agreement == Agreement::above_lambda_one && origin.lambda == 1.0F));
}

void add_problem(Estimability& found, const StudySelection& resolved, int effect, std::string what,
                 std::string expected, std::string mend) {
    found.problems.push_back(
        {.field = "effect `" + resolved.names[static_cast<std::size_t>(effect)] + "`",
         .found = std::move(what),
         .expected = std::move(expected),
         .mend = std::move(mend)});
    found.faulty_effects.push_back(effect);
}

void add_infinite(Estimability& found, const StudySelection& resolved,
                  const InfiniteEstimate& infinite) {
    const bool least = infinite.sign < 0;
    add_problem(found, resolved, infinite.effect,
                std::string("a statistic that is the ") + (least ? "least" : "greatest") +
                    " that it can be",
                "one between its bounds",
                std::string("leave the effect out: its estimate would be ") +
                    (least ? "minus" : "plus") + " infinity");
}

void add_dependent(Estimability& found, const StudySelection& resolved, const DependentSet& set) {
    if (set.size() == 1) {
        add_problem(found, resolved, set[0], "a statistic that no tie changes",
                    "an effect that some ties change",
                    "leave the effect out: nothing tells its parameter");
        return;
    }
    std::vector<std::string> names;
    for (const int effect : set) {
        names.push_back(resolved.names[static_cast<std::size_t>(effect)]);
    }
    add_problem(found, resolved, set.back(), listed_names(names) + ", which depend on each other",
                "effects of which none follows from the others", "leave one of them out");
}

template <class Network>
std::vector<InfiniteEstimate> counts_at_zero(const Study& study, const StudySelection& resolved) {
    // Alternating sums that are not 0 are far larger.
    constexpr double kZero = 1e-6;
    StudyChain<Network> run(study, resolved, study_parameters(study, resolved), 0);
    const std::vector<double> observed = run.by_effect(run.network().statistics.data());
    const std::vector<EffectOrigin> origins = effect_origins(resolved);
    std::vector<InfiniteEstimate> found;
    for (std::size_t k = 0; k < origins.size(); ++k) {
        if (!study.model.effects[k].fixed && origins[k].facts->dependence != Dependence::none &&
            is_count(origins[k]) && std::fabs(observed[k]) < kZero) {
            found.push_back({static_cast<int>(k), -1});
        }
    }
    return found;
}

}  // namespace

bool is_difference(const EffectFacts& facts) {
    constexpr std::array<std::string_view, 4> kDifferences = {"two3star", "one2triangle", "one2et",
                                                              "AC"};
    return std::find(kDifferences.begin(), kDifferences.end(), facts.name) != kDifferences.end();
}

Estimability drifting_effects(const Study& study, const StudySelection& resolved) {
    Estimability found;
    const std::vector<EffectOrigin> origins = effect_origins(resolved);
    for (std::size_t k = 0; k < origins.size(); ++k) {
        if (study.model.effects[k].fixed || !drifts(origins[k])) {
            continue;
        }
        const bool at_one = origins[k].facts->agreement == Agreement::above_lambda_one;
        add_problem(found, resolved, static_cast<int>(k),
                    at_one ? "the lambda 1 in an estimation" : "an effect that drifts",
                    at_one ? "a lambda above 1" : "an effect whose changes are those of its count",
                    std::string(at_one ? "write a larger lambda" : "leave the effect out") +
                        ": the statistic that a simulation carries drifts from the network's, so "
                        "nothing can be estimated from it");
    }
    return found;
}

std::vector<InfiniteEstimate> least_counts(const Study& study, const StudySelection& resolved) {
    return study.network.directed ? counts_at_zero<Digraph>(study, resolved)
                                  : counts_at_zero<Graph>(study, resolved);
}

Estimability study_estimability(const Study& study, StudySelection& resolved) {
    Estimability found = drifting_effects(study, resolved);
    for (const InfiniteEstimate& each : infinite_dyadic_estimates(study, resolved)) {
        add_infinite(found, resolved, each);
    }
    for (const InfiniteEstimate& each : least_counts(study, resolved)) {
        add_infinite(found, resolved, each);
    }
    if (const DependentSet set = dependent_dyadic_effects(study, resolved);
        found.ok() && !set.empty()) {
        add_dependent(found, resolved, set);
    }
    return found;
}
