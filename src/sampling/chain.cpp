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

template <class Network>
void update_tables(Chain<Network>& chain, Dyad dyad, int adding) {
    update_tables(chain.tables, chain.network, dyad.i, dyad.j, adding);
}

// Carries out an accepted toggle whose weighted changes stand in `change`. The bit of a deleted tie
// is gone already.
template <class Network>
void accept_toggle(Chain<Network>& chain, Dyad dyad, bool tied) {
    Network& network = chain.network;
    double* change = chain.change.data();
    double* statistics = network.statistics.data();
    const int adding = tied ? 0 : 1;
    evaluate_resting(network, chain.parted, change, dyad.i, dyad.j, adding);
    if (tied) {
        for (std::size_t m = 0; m < chain.change.size(); ++m) {
            statistics[m] -= change[m];
        }
    } else {
        for (std::size_t m = 0; m < chain.change.size(); ++m) {
            statistics[m] += change[m];
        }
        add_bit(network, dyad.i, dyad.j);
    }
    update_tables(chain, dyad, adding);
}

// A toggle of a tied dyad: changes are those of the network without the tie.
template <class Network>
bool delete_step(Chain<Network>& chain, Dyad dyad, int draw, const float* logarithms) {
    Network& network = chain.network;
    remove_bit(network, dyad.i, dyad.j);
    const double log_odds =
        evaluate_weighted(network, chain.parted, chain.change.data(), dyad.i, dyad.j, 0);
    if (!accepted_at<AcceptedWhen::not_less>(draw, -log_odds, logarithms)) {
        add_bit(network, dyad.i, dyad.j);
        return false;
    }
    accept_toggle(chain, dyad, true);
    return true;
}

// Most proposals of a sparse network are additions that are refused: what these need is kept at
// hand, the state of the random source above all. A run that may propose any dyad draws it here,
// another one by `draw_free_dyad`.
template <bool any_dyad, class Network>
int toggle_steps(Chain<Network>& chain, int steps) {
    Network& network = chain.network;
    const BitMatrix& ties = network.adjacency;
    const Remainder actors = actor_remainder(chain);
    const float* logarithms = uniform_logarithms().data();
    // A degree of an undirected network stays below the number of actors.
    const bool capped = kDirected<Network> || chain.max_degree < network.vertices;
    double* change = chain.change.data();
    std::uint32_t state = chain.random.state;
    int accepted = 0;
    for (int step = 0; step < steps; ++step) {
        Dyad dyad;
        if constexpr (any_dyad) {
            dyad.i = actors.of(draw_of_state(state));
            do {
                dyad.j = actors.of(draw_of_state(state));
            } while (dyad.j == dyad.i);
        } else {
            chain.random.state = state;
            const bool drawn = draw_free_dyad(chain, dyad);
            state = chain.random.state;
            if (!drawn) {
                break;
            }
        }
        if (ties.has(dyad.i, dyad.j)) {
            accepted += delete_step(chain, dyad, draw_of_state(state), logarithms) ? 1 : 0;
            continue;
        }
        if (capped && refused_by_cap(network, dyad, chain.max_degree)) {
            continue;
        }
        const double log_odds = evaluate_weighted(network, chain.parted, change, dyad.i, dyad.j, 1);
        if (accepted_at<AcceptedWhen::not_less>(draw_of_state(state), log_odds, logarithms)) {
            accept_toggle(chain, dyad, false);
            ++accepted;
        }
    }
    chain.random.state = state;
    return accepted;
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
    const double removed = evaluate_weighted(network, chain.parted, removal, tied.i, tied.j, 0);
    const bool apart = !near(network, tied, empty.i) && !near(network, tied, empty.j);
    if (!apart) {
        update_tables(chain, tied, 0);
    }
    const double added = evaluate_weighted(network, chain.parted, addition, empty.i, empty.j, 1);
    constexpr AcceptedWhen kWhen =
        kDirected<Network> ? AcceptedWhen::greater : AcceptedWhen::not_less;
    if (!accepted_at<kWhen>(random_draw(chain.random), added - removed,
                            uniform_logarithms().data())) {
        add_bit(network, tied.i, tied.j);
        if (!apart) {
            update_tables(chain, tied, 1);
        }
        return 0;
    }
    if (!chain.parted.resting.empty()) {
        evaluate_resting(network, chain.parted, addition, empty.i, empty.j, 1);
        // The removal's own state: the tie gone from bits and degrees, still counted by the tables.
        if (!apart) {
            add_bit(network, tied.i, tied.j);
            update_tables(chain, tied, 1);
            remove_bit(network, tied.i, tied.j);
        }
        evaluate_resting(network, chain.parted, removal, tied.i, tied.j, 0);
        update_tables(chain, tied, 0);
    } else if (apart) {
        update_tables(chain, tied, 0);
    }
    double* statistics = network.statistics.data();
    for (std::size_t m = 0; m < chain.change.size(); ++m) {
        statistics[m] = addition[m] + statistics[m] - removal[m];
    }
    add_bit(network, empty.i, empty.j);
    update_tables(chain, empty, 1);
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
    if (!draw_sender_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty);
}

enum class Proposal { toggle, swap, sender_swap };

template <class Network>
Proposal proposal_of(const Chain<Network>& chain) {
    if (chain.proposal_kind == 1) {
        return Proposal::swap;
    }
    return kDirected<Network> && chain.proposal_kind == 2 ? Proposal::sender_swap
                                                          : Proposal::toggle;
}

}  // namespace

template <class Network>
void chain_prepare(Chain<Network>& chain) {
    chain.change.assign(chain.network.statistics.size(), 0.0);
    chain.removal.assign(chain.network.statistics.size(), 0.0);
    chain.parted.weighted.reserve(chain.model.size());
    chain.parted.resting.reserve(chain.model.size());
}
template void chain_prepare<Graph>(Chain<Graph>&);
template void chain_prepare<Digraph>(Chain<Digraph>&);

template <class Network>
int chain_steps(Chain<Network>& chain, int steps) {
    part_model(chain.model, chain.parameters, chain.parted);
    chain.parted.give_start(chain.change);
    chain.parted.give_start(chain.removal);
    int accepted = 0;
    switch (proposal_of(chain)) {
        case Proposal::toggle:
            chain.stuck = chain.stuck || chain.network.vertices < 2;
            if (chain.stuck) {
                break;
            }
            return chain.free_dyads == nullptr ? toggle_steps<true>(chain, steps)
                                               : toggle_steps<false>(chain, steps);
        case Proposal::swap:
            for (int step = 0; step < steps; ++step) {
                accepted += swap_step(chain);
            }
            break;
        case Proposal::sender_swap:
            if constexpr (kDirected<Network>) {
                for (int step = 0; step < steps; ++step) {
                    accepted += sender_swap_step(chain);
                }
            }
            break;
    }
    return accepted;
}
template int chain_steps<Graph>(Chain<Graph>&, int);
template int chain_steps<Digraph>(Chain<Digraph>&, int);

template <class Network>
void tables_begin(Chain<Network>& chain, double steps) {
    // In about as many steps the chain of a sparse network accepts so many toggles that to update
    // the tables for each costs what counting them costs.
    const double n = chain.network.vertices;
    chain.tables.wait = steps >= n * n / 4.0 && !reads_tables(chain.model);
}
template void tables_begin<Graph>(Chain<Graph>&, double);
template void tables_begin<Digraph>(Chain<Digraph>&, double);

template <class Network>
void tables_end(Chain<Network>& chain) {
    catch_up(chain.tables, chain.network);
}
template void tables_end<Graph>(Chain<Graph>&);
template void tables_end<Digraph>(Chain<Digraph>&);

template <class Network>
int steps_at_once(const Chain<Network>& chain, double left) {
    // A swap may have to draw for long.
    const int most = proposal_of(chain) == Proposal::toggle ? 1024 : 16;
    return left < most ? static_cast<int>(std::ceil(left)) : most;
}
template int steps_at_once<Graph>(const Chain<Graph>&, double);
template int steps_at_once<Digraph>(const Chain<Digraph>&, double);

template <class Network>
void burn_in_run(Chain<Network>& chain, double proposals, RunProgress& progress) {
    random_reseed(chain.random);
    chain_run(chain, proposals, [&](double made) { progress_work(progress, made); });
}
template void burn_in_run<Graph>(Chain<Graph>&, double, RunProgress&);
template void burn_in_run<Digraph>(Chain<Digraph>&, double, RunProgress&);
