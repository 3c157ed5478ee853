// The evaluator: the change statistics of one proposed tie, and the whole-network statistics.
//
// A model is a flat list of the selected effects in evaluation order, so that the evaluator never
// looks at one that is off. An effect whose parameter is exactly 0.0 cannot move a proposal's odds:
// its change is needed only when the proposal is accepted, and the samplers ask for it then, in the
// very state in which the weighted effects were evaluated.
#pragma once

#include <vector>

#include "effects/cliques.h"
#include "effects/effect_selection.h"

template <class Network>
struct ActiveEffect {
    ChangeFunction<Network> change;
    CountFunction<Network> count;
    EffectData data;
    int position;
    bool reads_cliques;
    // Its change is 1, whatever the network.
    bool counts_ties = false;
    // Its change reads none of the tables of two-paths and triangles.
    bool without_tables = false;
};

template <class Network>
using ActiveModel = std::vector<ActiveEffect<Network>>;

// The selected effects with the data they read; refers into the selection, which must outlive it
// and stay as it is. assemble_parameters must have built the weight tables.
template <class Network>
ActiveModel<Network> active_model(const EffectSelection& selection);

// An effect as a chain evaluates it, with its parameter beside it.
template <class Network>
struct EffectAtWork {
    ChangeFunction<Network> change;
    const EffectData* data;
    double parameter;
    std::size_t position;
    // The first of its list that reads the clique tables: they are filled before it.
    bool lists_cliques;
};

// A model parted by its parameters, for as many steps as these stay as they are.
template <class Network>
struct PartedModel {
    // In evaluation order: the effects whose parameter is not exactly 0.0, and the others.
    std::vector<EffectAtWork<Network>> weighted;
    std::vector<EffectAtWork<Network>> resting;
    // What a sum starts at: the parameter of the ties' own effect where that is the first weighted
    // one, since its change is always 1. It is left out of `weighted` then, and every vector of
    // changes has to be given its 1 beforehand. Else 0.0 and -1.
    double start = 0.0;
    int start_position = -1;

    void give_start(std::vector<double>& change) const {
        if (start_position >= 0) {
            change[static_cast<std::size_t>(start_position)] = 1.0;
        }
    }
};

// `parted` keeps its memory from one call to the next. Refers into the model.
template <class Network>
void part_model(const ActiveModel<Network>& model, const double* parameters,
                PartedModel<Network>& parted);

template <class Network>
double change_of(Network& network, const EffectAtWork<Network>& effect, int i, int j, int adding) {
    if constexpr (std::is_same_v<Network, Graph>) {
        if (effect.lists_cliques) {
            graph_clique_changes(network, i, j);
        }
    }
    return effect.change(network, *effect.data, i, j, adding);
}

// Sums parameter x change over the weighted effects in evaluation order, and stores their changes
// at their places. The sum starts at 0.0.
template <class Network>
double evaluate_weighted(Network& network, const PartedModel<Network>& model, double* change, int i,
                         int j, int adding) {
    double sum = model.start;
    for (const EffectAtWork<Network>& effect : model.weighted) {
        const double value = change_of(network, effect, i, j, adding);
        change[effect.position] = value;
        sum += effect.parameter * value;
    }
    return sum;
}

// Stores the changes of the effects whose parameter is exactly 0.0.
template <class Network>
void evaluate_resting(Network& network, const PartedModel<Network>& model, double* change, int i,
                      int j, int adding) {
    for (const EffectAtWork<Network>& effect : model.resting) {
        change[effect.position] = change_of(network, effect, i, j, adding);
    }
}

// One dyad by itself: every selected effect's change at its place; returns the weighted sum, which
// is the log of the odds of adding the tie.
template <class Network>
double evaluate_toggle(Network& network, const ActiveModel<Network>& model,
                       const double* parameters, double* change, int i, int j, int adding);

// Fills `statistics` from scratch; positions without an effect keep what they hold. For a Graph the
// clique tables must have been counted.
template <class Network>
void compute_statistics(Network& network, const ActiveModel<Network>& model);
