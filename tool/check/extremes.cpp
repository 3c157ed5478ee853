#include "check/extremes.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "study/estimability.h"

namespace {

// Statistics are sums in floating point: this small is 0, since counts and alternating sums that
// are not 0 are far larger.
constexpr double kZero = 1e-6;

// What the free dyads tell of a statistic whose changes do not depend on other ties: it is smallest
// when all that would raise it are empty and all that would lower it are tied, and the reverse.
struct Bounds {
    bool smallest = true;
    bool largest = true;
    bool moves = false;

    void meet(double change, bool tied) {
        if (std::fabs(change) < kZero) {
            return;
        }
        moves = true;
        const bool raised = (change > 0.0) == tied;
        smallest = smallest && !raised;
        largest = largest && raised;
    }
};

template <class Network>
std::vector<Bounds> find_bounds(LoadedModel<Network>& model,
                                const std::vector<ModelEffect>& effects) {
    std::vector<Bounds> bounds(effects.size());
    std::vector<int> all(static_cast<std::size_t>(model.actors()));
    std::iota(all.begin(), all.end(), 0);
    const auto meet = [&](int i, int j) {
        const std::vector<double>& change = model.change(i, j);
        const bool tied = model.tied(i, j);
        for (std::size_t k = 0; k < effects.size(); ++k) {
            bounds[k].meet(change[effects[k].place], tied);
        }
        return true;
    };
    // On a large network the changes of the other effects would take long.
    model.with_only(effects, [&] { model.for_each_free_dyad(all, meet); });
    return bounds;
}

// Whether the effect counts something, so that its statistic is never below 0. Of effects of
// attributes only those of coded values are sure to: other values may be negative.
bool is_count(const ModelEffect& effect, const EffectSelection& selection) {
    if (effect.flag.id == SetupId::structural_flag) {
        return !is_difference(*effect.facts);
    }
    if (effect.flag.group == AttributeGroup::categorical) {
        return true;
    }
    const auto attribute = static_cast<std::size_t>(effect.flag.attribute);
    if (effect.flag.group != AttributeGroup::binary) {
        return false;
    }
    const std::vector<int>& values = selection.table.binary[attribute].values;
    return std::all_of(values.begin(), values.end(), [](int value) { return value >= 0; });
}

void add_extreme(const SetupView& view, const ModelEffect& effect, const char* which,
                 double statistic, Findings& findings) {
    char value[32];
    std::snprintf(value, sizeof value, "%.6g", statistic);
    add_error(findings, where_key(view, effect.flag),
              "an observed statistic of " + std::string(value) + " for " + quoted(effect.name) +
                  ", the " + which + " that it can have",
              "a statistic between its bounds",
              "leave the effect out: no finite parameter fits such a statistic, so the estimation "
              "could not converge");
}

void add_constant(const SetupView& view, const ModelEffect& effect, Findings& findings) {
    add_error(findings, where_key(view, effect.flag),
              "a statistic that no free dyad changes, for " + quoted(effect.name),
              "an effect that some ties change",
              "leave the effect out: nothing tells its parameter");
}

}  // namespace

template <class Network>
void check_extremes(const SetupView& view, const EffectSelection& selection,
                    LoadedModel<Network>& model, std::vector<ModelEffect>& effects,
                    Findings& findings) {
    const std::vector<double> statistics = model.statistics();
    std::vector<ModelEffect> independent;
    std::vector<ModelEffect> kept;
    for (const ModelEffect& effect : effects) {
        const double statistic = statistics[effect.place];
        if (effect.facts->dependence == Dependence::none) {
            independent.push_back(effect);
        } else if (is_count(effect, selection) && std::fabs(statistic) < kZero) {
            add_extreme(view, effect, "smallest", statistic, findings);
        } else {
            kept.push_back(effect);
        }
    }
    const std::vector<Bounds> bounds =
        independent.empty() ? std::vector<Bounds>() : find_bounds(model, independent);
    for (std::size_t k = 0; k < independent.size(); ++k) {
        const double statistic = statistics[independent[k].place];
        if (!bounds[k].moves) {
            add_constant(view, independent[k], findings);
        } else if (bounds[k].smallest || bounds[k].largest) {
            add_extreme(view, independent[k], bounds[k].smallest ? "smallest" : "largest",
                        statistic, findings);
        } else {
            kept.push_back(independent[k]);
        }
    }
    effects = kept;
}
template void check_extremes<Graph>(const SetupView&, const EffectSelection&, LoadedModel<Graph>&,
                                    std::vector<ModelEffect>&, Findings&);
template void check_extremes<Digraph>(const SetupView&, const EffectSelection&,
                                      LoadedModel<Digraph>&, std::vector<ModelEffect>&, Findings&);
