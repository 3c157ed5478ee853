// The evaluator: the change statistics of one proposed tie, and the whole-network statistics.
//
// A model is a flat list of the selected effects in evaluation order, so that the evaluator never
// looks at one that is off. An effect whose parameter is exactly 0.0 cannot move a proposal's odds:
// its change is needed only when the proposal is accepted, and the samplers ask for it then, in the
// very state in which the weighted effects were evaluated.
#pragma once

#include <vector>

#include "effects/effect_selection.h"

template <class Network>
struct ActiveEffect {
    ChangeFunction<Network> change;
    CountFunction<Network> count;
    EffectData data;
    int position;
    bool reads_cliques;
};

template <class Network>
using ActiveModel = std::vector<ActiveEffect<Network>>;

// The selected effects with the data they read; refers into the selection, which must outlive it
// and stay as it is. assemble_parameters must have built the weight tables.
template <class Network>
ActiveModel<Network> active_model(const EffectSelection& selection);

// Sums parameter x change over the effects whose parameter is not exactly 0.0, in evaluation order,
// and stores their changes at their places. The sum starts at 0.0.
double evaluate_weighted(Graph& graph, const ActiveModel<Graph>& model, const double* parameters,
                         double* change, int i, int j, int adding);
double evaluate_weighted(Digraph& digraph, const ActiveModel<Digraph>& model,
                         const double* parameters, double* change, int i, int j, int adding);

// Whether any selected effect has a parameter of exactly 0.0.
template <class Network>
bool has_unweighted(const ActiveModel<Network>& model, const double* parameters) {
    for (const ActiveEffect<Network>& effect : model) {
        if (parameters[effect.position] == 0.0) {
            return true;
        }
    }
    return false;
}

// Stores the changes of the effects whose parameter is exactly 0.0.
void evaluate_unweighted(Graph& graph, const ActiveModel<Graph>& model, const double* parameters,
                         double* change, int i, int j, int adding);
void evaluate_unweighted(Digraph& digraph, const ActiveModel<Digraph>& model,
                         const double* parameters, double* change, int i, int j, int adding);

// Both: every selected effect's change at its place; returns the weighted sum, which is the log of
// the odds of adding the tie.
template <class Network>
double evaluate_toggle(Network& network, const ActiveModel<Network>& model,
                       const double* parameters, double* change, int i, int j, int adding) {
    const double sum = evaluate_weighted(network, model, parameters, change, i, j, adding);
    evaluate_unweighted(network, model, parameters, change, i, j, adding);
    return sum;
}

// Fills `statistics` from scratch; positions without an effect keep what they hold. For a Graph the
// clique tables must have been counted.
template <class Network>
void compute_statistics(Network& network, const ActiveModel<Network>& model);
