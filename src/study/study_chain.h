// What every method works with: the study's network with the tables of its model, the free dyads, a
// chain over them, and the seconds that its random source is seeded by.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "effects/cliques.h"
#include "network/network_verbs.h"
#include "sampling/chain.h"
#include "study/study_selection.h"

// A run's reseedings take numbers mixed of its seed, as the tool's `run --seed` has them: a method
// and the setup file's run draw the same numbers.
inline ClockSeconds clock_from(std::uint32_t seed) {
    return [seed, k = std::uint32_t{0}]() mutable { return std::int64_t{mixed_seed(seed, k++)}; };
}

// A network with room for p statistics.
template <class Network>
Network empty_network_for(int actors, const EffectSelection& selection, int p) {
    if constexpr (kDirected<Network>) {
        return digraph_create(actors, p);
    } else {
        return graph_create(actors, p, clique_depth(selection));
    }
}

template <class Network>
void add_ties(Network& network, const std::vector<ActorTie>& ties) {
    for (const ActorTie& tie : ties) {
        add_bit(network, tie.from, tie.to);
        update_tables(network, tie.from, tie.to, 1);
    }
}

template <class Network>
std::vector<ActorTie> ties_of(const Network& network) {
    std::vector<ActorTie> ties;
    for (int i = 0; i < network.vertices; ++i) {
        row_for_each(network.adjacency[i], network.adjacency.words_per_row, [&](int j) {
            if (kDirected<Network> || i < j) {
                ties.push_back({i, j});
            }
        });
    }
    return ties;
}

// Statistics counted anew.
template <class Network>
void count_anew(Network& network, const ActiveModel<Network>& model) {
    if constexpr (!kDirected<Network>) {
        graph_count_cliques(network);
    }
    compute_statistics(network, model);
}

// Everything of one run over a study. It refers into itself: it stays where it is made.
template <class Network>
class StudyChain {
  public:
    // `resolved` holds no problem; `parameters` stand at the places of their effects.
    StudyChain(const Study& study, const StudySelection& resolved, std::vector<double> parameters,
               std::uint32_t seed)
        : study_(study),
          resolved_(resolved),
          parameters_(std::move(parameters)),
          model_(active_model<Network>(resolved_.selection)),
          network_(empty_network_for<Network>(actors(), resolved_.selection, size())) {
        random_.clock_seconds = clock_from(seed);
        restore_network();
        if (study.dyads.restricted) {
            free_ = BitMatrix(actors());
            for (const ActorTie& dyad : study.dyads.free) {
                row_flip((*free_)[dyad.from], dyad.to);
                if (!kDirected<Network>) {
                    row_flip((*free_)[dyad.to], dyad.from);
                }
            }
        }
    }
    StudyChain(const StudyChain&) = delete;
    StudyChain& operator=(const StudyChain&) = delete;

    int size() const { return static_cast<int>(parameters_.size()); }
    int actors() const { return static_cast<int>(study_.network.actors.size()); }
    Network& network() { return network_; }
    const ActiveModel<Network>& model() const { return model_; }
    std::vector<double>& parameters() { return parameters_; }
    RandomSource& random() { return random_; }

    // The observed ties and their statistics again.
    void restore_network() { take_network(study_.network.ties); }

    // These ties and their statistics.
    void take_network(const std::vector<ActorTie>& ties) {
        network_ = empty_network_for<Network>(actors(), resolved_.selection, size());
        add_ties(network_, ties);
        count_anew(network_, model_);
    }

    Chain<Network> chain() {
        Chain<Network> chain{network_, model_, parameters_.data(), random_};
        chain.free_dyads = free_ ? &*free_ : nullptr;
        chain.max_degree = study_.dyads.max_degree.value_or(kNoCap);
        chain_prepare(chain);
        return chain;
    }

    // Values at the places of the run's vectors, in the order of the study's effects.
    std::vector<double> by_effect(const double* values) const {
        std::vector<double> ordered;
        for (const int place : resolved_.places) {
            ordered.push_back(values[place]);
        }
        return ordered;
    }

  private:
    const Study& study_;
    const StudySelection& resolved_;
    std::vector<double> parameters_;
    ActiveModel<Network> model_;
    Network network_;
    std::optional<BitMatrix> free_;
    RandomSource random_;
};

// A step's length in proposals: `multiplication` times d (1 - d) n^2, d the network's density.
template <class Network>
double proposals_per_step(const Network& network, double multiplication) {
    const double d = network_density(network);
    const double n = network.vertices;
    return multiplication * d * (1.0 - d) * n * n;
}
