#include "sampling/chain.h"

#include "network/network_verbs.h"
#include "sampling/acceptance.h"
#include "sampling/proposals.h"

namespace {

bool refused_by_cap(const Graph& graph, Dyad dyad, int cap) {
    return graph.degree[static_cast<std::size_t>(dyad.i)] == cap ||
           graph.degree[static_cast<std::size_t>(dyad.j)] == cap;
}
bool refused_by_cap(const Digraph& digraph, Dyad dyad, int cap) {
    return digraph.out_degree[static_cast<std::size_t>(dyad.i)] == cap ||
           digraph.in_degree[static_cast<std::size_t>(dyad.j)] == kInDegreeCap;
}

// Thresholds whose ratio is not less than, or greater than, the uniform number of a draw.
template <class Network>
const double* not_less(Chain<Network>& chain) {
    if (chain.not_less == nullptr) {
        chain.not_less = not_less_thresholds().data();
    }
    return chain.not_less;
}
template <class Network>
const double* greater(Chain<Network>& chain) {
    if (chain.greater == nullptr) {
        chain.greater = greater_thresholds().data();
    }
    return chain.greater;
}

// Draws, and decides on log-odds; those that are not a number are rejected.
bool accepted_by(const double* thresholds, double log_odds, RandomSource& random) {
    return log_odds >= thresholds[random_draw(random)];
}

template <class Network>
int toggle_step(Chain<Network>& chain) {
    Dyad dyad;
    if (chain.stuck || !draw_dyad(chain, dyad)) {
        return 0;
    }
    Network& network = chain.network;
    double* change = chain.change.data();
    double* statistics = network.statistics.data();
    const std::size_t p = chain.change.size();
    const bool tied = has_tie(network, dyad.i, dyad.j);
    if (tied) {
        remove_bit(network, dyad.i, dyad.j);
    } else if (refused_by_cap(network, dyad, chain.max_degree)) {
        return 0;
    }
    const int adding = tied ? 0 : 1;
    const double log_odds =
        evaluate_weighted(network, chain.model, chain.parameters, change, dyad.i, dyad.j, adding);
    if (!accepted_by(not_less(chain), tied ? -log_odds : log_odds, chain.random)) {
        if (tied) {
            add_bit(network, dyad.i, dyad.j);
        }
        return 0;
    }
    evaluate_unweighted(network, chain.model, chain.parameters, change, dyad.i, dyad.j, adding);
    if (tied) {
        for (std::size_t m = 0; m < p; ++m) {
            statistics[m] -= change[m];
        }
    } else {
        for (std::size_t m = 0; m < p; ++m) {
            statistics[m] += change[m];
        }
        add_bit(network, dyad.i, dyad.j);
    }
    update_tables(network, dyad.i, dyad.j, adding);
    return 1;
}

// Whether an actor is an end of the dyad or tied to one of them.
bool near(const Graph& graph, Dyad dyad, int actor) {
    return actor == dyad.i || actor == dyad.j || has_tie(graph, dyad.i, actor) ||
           has_tie(graph, dyad.j, actor);
}
bool near(const Digraph& digraph, Dyad dyad, int actor) {
    return actor == dyad.i || actor == dyad.j || has_tie(digraph, dyad.i, actor) ||
           has_tie(digraph, actor, dyad.i) || has_tie(digraph, dyad.j, actor) ||
           has_tie(digraph, actor, dyad.j);
}

// Removes one tie and adds another in one proposal.
//
// Of the tables behind the bits a change reads cells and triangles of the dyad's own two actors
// only. Where neither actor of the empty dyad is near the tie, its removal moves none of these, and
// the tables stay as they are until the swap is accepted.
template <class Network>
int swap_dyads(Chain<Network>& chain, Dyad tied, Dyad empty) {
    Network& network = chain.network;
    double* removal = chain.removal.data();
    double* addition = chain.change.data();
    remove_bit(network, tied.i, tied.j);
    const double removed =
        evaluate_weighted(network, chain.model, chain.parameters, removal, tied.i, tied.j, 0);
    const bool apart = !near(network, tied, empty.i) && !near(network, tied, empty.j);
    if (!apart) {
        update_tables(network, tied.i, tied.j, 0);
    }
    const double added =
        evaluate_weighted(network, chain.model, chain.parameters, addition, empty.i, empty.j, 1);
    if (!accepted_by(kDirected<Network> ? greater(chain) : not_less(chain), added - removed,
                     chain.random)) {
        add_bit(network, tied.i, tied.j);
        if (!apart) {
            update_tables(network, tied.i, tied.j, 1);
        }
        return 0;
    }
    if (has_unweighted(chain.model, chain.parameters)) {
        evaluate_unweighted(network, chain.model, chain.parameters, addition, empty.i, empty.j, 1);
        // The removal's own state: the tie gone from bits and degrees, still counted by the tables.
        if (!apart) {
            add_bit(network, tied.i, tied.j);
            update_tables(network, tied.i, tied.j, 1);
            remove_bit(network, tied.i, tied.j);
        }
        evaluate_unweighted(network, chain.model, chain.parameters, removal, tied.i, tied.j, 0);
        update_tables(network, tied.i, tied.j, 0);
    } else if (apart) {
        update_tables(network, tied.i, tied.j, 0);
    }
    double* statistics = network.statistics.data();
    for (std::size_t m = 0; m < chain.change.size(); ++m) {
        statistics[m] = addition[m] + statistics[m] - removal[m];
    }
    add_bit(network, empty.i, empty.j);
    update_tables(network, empty.i, empty.j, 1);
    return 1;
}

template <class Network>
int swap_step(Chain<Network>& chain) {
    Dyad tied;
    Dyad empty;
    if (tie_count(chain.network) < 2 || chain.stuck || !draw_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty);
}

int sender_swap_step(Chain<Digraph>& chain) {
    Dyad tied;
    Dyad empty;
    if (chain.stuck || !draw_sender_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty);
}

}  // namespace

template <class Network>
void chain_prepare(Chain<Network>& chain) {
    chain.change.assign(chain.network.statistics.size(), 0.0);
    chain.removal.assign(chain.network.statistics.size(), 0.0);
}
template void chain_prepare<Graph>(Chain<Graph>&);
template void chain_prepare<Digraph>(Chain<Digraph>&);

template <class Network>
int chain_step(Chain<Network>& chain) {
    if (chain.proposal_kind == 1) {
        return swap_step(chain);
    }
    if constexpr (kDirected<Network>) {
        if (chain.proposal_kind == 2) {
            return sender_swap_step(chain);
        }
    }
    return toggle_step(chain);
}
template int chain_step<Graph>(Chain<Graph>&);
template int chain_step<Digraph>(Chain<Digraph>&);

template <class Network>
void burn_in_run(Chain<Network>& chain, double proposals, RunProgress& progress) {
    random_reseed(chain.random);
    for (double counter = 0.0; counter < proposals; counter += 1.0) {
        chain_step(chain);
        progress_work(progress, counter);
    }
}
template void burn_in_run<Graph>(Chain<Graph>&, double, RunProgress&);
template void burn_in_run<Digraph>(Chain<Digraph>&, double, RunProgress&);
