// Tables of two-paths and triangles that wait: where no effect of a model reads them, a run of many
// steps leaves them alone and counts them once at its end. Statistics are carried all the while.
#pragma once

#include <algorithm>

#include "effects/evaluation.h"
#include "network/network_verbs.h"

struct WaitingTables {
    bool wait = false;
    bool behind = false;  // a step has left them behind
};

// Whether the change of some effect reads the tables.
template <class Network>
bool reads_tables(const ActiveModel<Network>& model) {
    return !std::all_of(model.begin(), model.end(),
                        [](const auto& effect) { return effect.without_tables; });
}

// The second half of an accepted toggle.
template <class Network>
void update_tables(WaitingTables& tables, Network& network, int i, int j, int adding) {
    if (tables.wait) {
        tables.behind = true;
    } else {
        update_tables(network, i, j, adding);
    }
}

// Ends the waiting.
template <class Network>
void catch_up(WaitingTables& tables, Network& network) {
    if (tables.behind) {
        count_tables(network);
    }
    tables = {};
}
