#include "study/identification.h"

#include <cmath>
#include <functional>

#include "study/study_chain.h"

namespace {

// The effects to estimate whose change is the same in every network.
std::vector<std::size_t> dyadic_effects(const Study& study, const StudySelection& resolved) {
    const std::vector<Dependence> dependences = effect_dependences(resolved);
    std::vector<std::size_t> effects;
    for (std::size_t k = 0; k < dependences.size(); ++k) {
        if (dependences[k] == Dependence::none && !study.model.effects[k].fixed) {
            effects.push_back(k);
        }
    }
    return effects;
}

using DyadVisit = std::function<void(bool tied, const std::vector<double>& change)>;

// Calls visit for each dyad that may change, with the changes of these effects.
template <class Network>
void for_each_dyad(const Study& study, StudySelection& resolved,
                   const std::vector<std::size_t>& effects, const DyadVisit& visit) {
    StudyChain<Network> run(study, resolved, study_parameters(study, resolved), 0);
    Network& network = run.network();
    std::vector<const ActiveEffect<Network>*> active(effects.size(), nullptr);
    for (const ActiveEffect<Network>& each : run.model()) {
        for (std::size_t k = 0; k < effects.size(); ++k) {
            if (resolved.places[effects[k]] == each.position) {
                active[k] = &each;
            }
        }
    }
    std::vector<double> change(effects.size(), 0.0);
    const auto look_at = [&](int i, int j) {
        for (std::size_t k = 0; k < effects.size(); ++k) {
            change[k] = active[k]->change(network, active[k]->data, i, j, 1);
        }
        visit(has_tie(network, i, j), change);
    };
    if (study.dyads.restricted) {
        for (const ActorTie& dyad : study.dyads.free) {
            look_at(dyad.from, dyad.to);
        }
        return;
    }
    for (int i = 0; i < network.vertices; ++i) {
        for (int j = kDirected<Network> ? 0 : i + 1; j < network.vertices; ++j) {
            if (i != j) {
                look_at(i, j);
            }
        }
    }
}

template <class Network>
DependentSet dependent(const Study& study, StudySelection& resolved) {
    const std::vector<std::size_t> effects = dyadic_effects(study, resolved);
    const int p = static_cast<int>(effects.size());
    Matrix products = matrix_create(p, p, 0.0);
    for_each_dyad<Network>(study, resolved, effects, [&](bool, const std::vector<double>& change) {
        for (int i = 0; i < p; ++i) {
            for (int j = 0; j < p; ++j) {
                products[i][j] +=
                    change[static_cast<std::size_t>(i)] * change[static_cast<std::size_t>(j)];
            }
        }
    });
    DependentSet set;
    for (const int k : dependent_set(products)) {
        set.push_back(static_cast<int>(effects[static_cast<std::size_t>(k)]));
    }
    return set;
}

template <class Network>
std::vector<InfiniteEstimate> infinite(const Study& study, StudySelection& resolved) {
    const std::vector<std::size_t> effects = dyadic_effects(study, resolved);
    // Whether some dyad's word speaks against the statistic being at its least, at its greatest.
    std::vector<char> above_least(effects.size(), 0);
    std::vector<char> below_greatest(effects.size(), 0);
    for_each_dyad<Network>(
        study, resolved, effects, [&](bool tied, const std::vector<double>& change) {
            for (std::size_t k = 0; k < change.size(); ++k) {
                if (change[k] != 0.0) {
                    ((change[k] > 0.0) == tied ? above_least : below_greatest)[k] = 1;
                }
            }
        });
    std::vector<InfiniteEstimate> found;
    for (std::size_t k = 0; k < effects.size(); ++k) {
        if (above_least[k] != below_greatest[k]) {
            found.push_back({static_cast<int>(effects[k]), above_least[k] != 0 ? 1 : -1});
        }
    }
    return found;
}

}  // namespace

std::vector<Dependence> effect_dependences(const StudySelection& resolved) {
    const EffectSelection& selection = resolved.selection;
    std::vector<Dependence> dependences(resolved.places.size(), Dependence::other_dyads);
    const auto mark = [&](int place, Dependence dependence) {
        for (std::size_t k = 0; k < resolved.places.size(); ++k) {
            if (resolved.places[k] == place) {
                dependences[k] = dependence;
            }
        }
    };
    for (std::size_t id = 0; id < selection.structural.size(); ++id) {
        if (selection.structural[id].position >= 0) {
            mark(selection.structural[id].position,
                 selection.catalogue->effects[id].facts.dependence);
        }
    }
    for_each_attribute_effect(selection, [&](AttributeGroup group, int row, int, int place) {
        mark(place, group_catalogue(*selection.catalogue, group)
                        .effects[static_cast<std::size_t>(row)]
                        .facts.dependence);
    });
    return dependences;
}

DependentSet dependent_set(const Matrix& products) {
    constexpr double kTiny = 1e-9;
    const int p = products.rows;
    // Row k of `factors` expresses what is left of k by the ones before it (Cholesky, in order).
    Matrix factors = matrix_create(p, p, 0.0);
    for (int k = 0; k < p; ++k) {
        double left = products[k][k];
        for (int m = 0; m < k; ++m) {
            double sum = products[k][m];
            for (int l = 0; l < m; ++l) {
                sum -= factors[k][l] * factors[m][l];
            }
            factors[k][m] = sum / factors[m][m];
            left -= factors[k][m] * factors[k][m];
        }
        if (left > kTiny * products[k][k]) {
            factors[k][k] = std::sqrt(left);
            continue;
        }
        // Its coefficients on the ones before, from the last: those that count belong to the set.
        std::vector<double> weights(static_cast<std::size_t>(k), 0.0);
        DependentSet set;
        for (int m = k - 1; m >= 0; --m) {
            double sum = factors[k][m];
            for (int l = m + 1; l < k; ++l) {
                sum -= factors[l][m] * weights[static_cast<std::size_t>(l)];
            }
            weights[static_cast<std::size_t>(m)] = sum / factors[m][m];
        }
        for (int m = 0; m < k; ++m) {
            const double size =
                std::fabs(weights[static_cast<std::size_t>(m)]) * std::sqrt(products[m][m]);
            if (size > 1e-6 * std::sqrt(products[k][k])) {
                set.push_back(m);
            }
        }
        set.push_back(k);
        return set;
    }
    return {};
}

DependentSet dependent_dyadic_effects(const Study& study, StudySelection& resolved) {
    return study.network.directed ? dependent<Digraph>(study, resolved)
                                  : dependent<Graph>(study, resolved);
}

std::vector<InfiniteEstimate> infinite_dyadic_estimates(const Study& study,
                                                        StudySelection& resolved) {
    return study.network.directed ? infinite<Digraph>(study, resolved)
                                  : infinite<Graph>(study, resolved);
}
