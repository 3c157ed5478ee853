#include "check/dependence.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "check/row_space.h"

namespace {

// Changes can agree on all dyads of one network by chance: on a sparse one hardly any cliques are
// there to tell effects apart. So they are looked at in denser networks too, in which the dyads
// among this many actors are tied at random.
constexpr int kMixedActors = 60;
constexpr double kMixedDensities[] = {0.15, 0.5};

// How many changes are evaluated at most, weighed by their costs. When they do not suffice, nothing
// is said.
constexpr double kBudget = 2e7;

double cost_of(const ModelEffect& effect, int actors) {
    switch (effect.facts->cost) {
        case Cost::constant:
            return 1.0;
        case Cost::common_neighbours:
        case Cost::neighbours:
            return 4.0;
        case Cost::neighbourhood:
        case Cost::cliques:
            return 100.0;
        case Cost::network:
            break;
    }
    return 10.0 * actors;
}

// The changes of the effects on one dyad after another.
template <class Network>
class Changes {
  public:
    Changes(LoadedModel<Network>& model, const std::vector<ModelEffect>& effects)
        : model_(model), effects_(effects) {
        for (const ModelEffect& effect : effects) {
            cost_ += cost_of(effect, model.actors());
        }
    }
    // False once the budget is spent.
    bool affordable() const { return spent_ <= kBudget; }

    const std::vector<double>& on(int i, int j) {
        spent_ += cost_;
        const std::vector<double>& change = model_.change(i, j);
        row_.clear();
        for (const ModelEffect& effect : effects_) {
            row_.push_back(change[effect.place]);
        }
        return row_;
    }

  private:
    LoadedModel<Network>& model_;
    const std::vector<ModelEffect>& effects_;
    double cost_ = 0.0;
    double spent_ = 0.0;
    std::vector<double> row_;
};

std::vector<int> all_actors(int actors) {
    std::vector<int> all(static_cast<std::size_t>(actors));
    std::iota(all.begin(), all.end(), 0);
    return all;
}

// Makes each free dyad of these actors tied with a probability.
template <class Network>
void mix(LoadedModel<Network>& model, const std::vector<int>& actors, double density,
         std::mt19937& random) {
    std::vector<std::pair<int, int>> to_toggle;
    model.for_each_free_dyad(actors, [&](int i, int j) {
        // The standard's distributions differ between libraries; this quotient does not.
        const bool wanted = static_cast<double>(random()) < density * 4294967296.0;
        if (wanted != model.tied(i, j)) {
            to_toggle.emplace_back(i, j);
        }
        return true;
    });
    for (const auto& [i, j] : to_toggle) {
        model.toggle(i, j);
    }
}

// How large the changes of each effect become on the dyads of these actors.
template <class Network>
std::vector<double> scales_of(LoadedModel<Network>& model, Changes<Network>& changes,
                              std::size_t effects, const std::vector<int>& actors) {
    std::vector<double> scales(effects, 0.0);
    model.for_each_free_dyad(actors, [&](int i, int j) {
        const std::vector<double>& change = changes.on(i, j);
        for (std::size_t k = 0; k < effects; ++k) {
            scales[k] = std::max(scales[k], std::fabs(change[k]));
        }
        return changes.affordable();
    });
    std::replace_if(
        scales.begin(), scales.end(),
        [](double scale) { return !(scale > 0.0) || !std::isfinite(scale); }, 1.0);
    return scales;
}

// Meets the changes on the dyads of these actors; true when all were met and some column still
// follows from others.
template <class Network>
bool meet(LoadedModel<Network>& model, Changes<Network>& changes, RowSpace& space,
          const std::vector<int>& actors) {
    return model.for_each_free_dyad(actors, [&](int i, int j) {
        space.add(changes.on(i, j));
        return !space.full() && changes.affordable();
    });
}

std::string described(const std::vector<ModelEffect>& effects, const RowSpace::Circuit& circuit) {
    std::string text = quoted(effects[circuit.columns.back()].name) + " =";
    for (std::size_t k = 0; k + 1 < circuit.columns.size(); ++k) {
        char factor[32];
        std::snprintf(factor, sizeof factor, "%.4g", circuit.factors[k]);
        text += (k == 0 ? " " : " + ") + (std::string(factor) + " x ") +
                quoted(effects[circuit.columns[k]].name);
    }
    return text;
}

}  // namespace

template <class Network>
void check_dependence(const SetupView& view, LoadedModel<Network>& model,
                      const std::vector<ModelEffect>& effects, Findings& findings) {
    if (effects.size() < 2) {
        return;
    }
    const std::vector<int> all = all_actors(model.actors());
    std::mt19937 random(1);
    std::vector<int> some = all;
    // By hand, because the standard's shuffles differ between libraries.
    for (std::size_t k = 0; k + 1 < some.size(); ++k) {
        std::swap(some[k], some[k + random() % (some.size() - k)]);
    }
    some.resize(std::min<std::size_t>(some.size(), kMixedActors));
    std::sort(some.begin(), some.end());
    Changes<Network> changes(model, effects);
    RowSpace space(scales_of(model, changes, effects.size(), some));
    bool dependent = meet(model, changes, space, all);
    for (const double density : kMixedDensities) {
        if (dependent) {
            mix(model, some, density, random);
            dependent = meet(model, changes, space, some);
        }
    }
    const RowSpace::Circuit circuit = dependent ? space.smallest_circuit() : RowSpace::Circuit();
    if (!circuit.columns.empty()) {
        add_error(findings, where_key(view, effects[circuit.columns.back()].flag),
                  "effects that say the same: " + described(effects, circuit) +
                      " on every dyad that may change",
                  "effects none of which follows from the others",
                  "leave one of them out: no data tell their parameters apart");
    }
}
template void check_dependence<Graph>(const SetupView&, LoadedModel<Graph>&,
                                      const std::vector<ModelEffect>&, Findings&);
template void check_dependence<Digraph>(const SetupView&, LoadedModel<Digraph>&,
                                        const std::vector<ModelEffect>&, Findings&);
