#include "study/balance_controls.h"

#include <algorithm>
#include <cmath>

#include "study/dyad_changes.h"

BalanceControls::BalanceControls(const Study& study, const StudySelection& resolved)
    : study_(study), resolved_(resolved) {
    if (study.network.directed) {
        digraph_model_ = active_model<Digraph>(resolved.selection);
    } else {
        graph_model_ = active_model<Graph>(resolved.selection);
    }
}

void BalanceControls::measure(const SampledNetwork& network, const std::vector<double>& parameters,
                              double* sums) const {
    if (network.digraph != nullptr) {
        measure(*network.digraph, digraph_model_, parameters, sums);
    } else {
        measure(*network.graph, graph_model_, parameters, sums);
    }
}

template <class Network>
void BalanceControls::measure(Network& network, const ActiveModel<Network>& model,
                              const std::vector<double>& parameters, double* sums) const {
    const std::vector<int>& places = resolved_.places;
    std::vector<double> placed(places.size(), 0.0);
    for (std::size_t k = 0; k < places.size(); ++k) {
        placed[static_cast<std::size_t>(places[k])] = parameters[k];
    }
    std::vector<double> changes(places.size(), 0.0);
    std::vector<double> placed_sums(places.size(), 0.0);
    for_each_free_dyad(study_, [&](int i, int j) {
        const double log_odds = dyad_changes(network, model, placed.data(), i, j, changes.data());
        const double tie = has_tie(network, i, j) ? 1.0 : 0.0;
        const double surplus = tie - 1.0 / (1.0 + std::exp(-log_odds));
        for (std::size_t k = 0; k < changes.size(); ++k) {
            placed_sums[k] += changes[k] * surplus;
        }
    });
    for (std::size_t k = 0; k < places.size(); ++k) {
        sums[k] = placed_sums[static_cast<std::size_t>(places[k])];
    }
}
