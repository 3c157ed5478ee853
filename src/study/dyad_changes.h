// What every method does with each dyad that may change: go through them, and ask how the effects
// change with its tie.
#pragma once

#include <vector>

#include "effects/evaluation.h"
#include "network/network_verbs.h"
#include "study/study.h"

// Calls visit(i, j) for each dyad that may change.
template <class Visit>
void for_each_free_dyad(const Study& study, Visit visit) {
    if (study.dyads.restricted) {
        for (const ActorTie& dyad : study.dyads.free) {
            visit(dyad.from, dyad.to);
        }
        return;
    }
    const int n = static_cast<int>(study.network.actors.size());
    for (int i = 0; i < n; ++i) {
        for (int j = study.network.directed ? 0 : i + 1; j < n; ++j) {
            if (i != j) {
                visit(i, j);
            }
        }
    }
}

// The changes of a dyad's tie, whether it is there or not, at the places of their effects; returns
// the log-odds of the tie given the rest of the network. The network is as before afterwards.
template <class Network>
double dyad_changes(Network& network, const ActiveModel<Network>& model, const double* parameters,
                    int i, int j, double* placed) {
    const bool tied = has_tie(network, i, j);
    if (tied) {
        remove_bit(network, i, j);
    }
    const double log_odds = evaluate_toggle(network, model, parameters, placed, i, j, tied ? 0 : 1);
    if (tied) {
        add_bit(network, i, j);
    }
    return log_odds;
}
