#include "sampling/chain.h"

#include <cmath>
#include <utility>

namespace {

// Draws that may fail in a row before it is checked whether any proposal is eligible at all.
constexpr int kPatience = 1000000;

bool has(const Graph& graph, int i, int j) { return graph_has_edge(graph, i, j); }
bool has(const Digraph& digraph, int i, int j) { return digraph_has_arc(digraph, i, j); }

template <class Network>
bool is_free(const Network* free_dyads, int i, int j) {
    return free_dyads == nullptr || has(*free_dyads, i, j);
}

struct Dyad {
    int i = 0;
    int j = 0;
};

struct FreeDyads {
    bool tied = false;
    bool untied = false;
};

// Whether a tied and an untied dyad may be proposed. O(n^2); only after kPatience failures.
template <class Network>
FreeDyads scan_dyads(const Chain<Network>& chain) {
    FreeDyads found;
    for (int i = 0; i < chain.network.vertices; ++i) {
        for (int j = 0; j < chain.network.vertices; ++j) {
            if (i != j && is_free(chain.free_dyads, i, j)) {
                (has(chain.network, i, j) ? found.tied : found.untied) = true;
            }
        }
    }
    return found;
}

// Whether some actor can swap one of its arcs for another: an actor with two arcs, one of them to a
// free dyad, and a free dyad without one.
bool scan_sender_swaps(const Chain<Digraph>& chain) {
    const Digraph& digraph = chain.network;
    for (int i = 0; i < digraph.vertices; ++i) {
        FreeDyads found;
        for (int j = 0; j < digraph.vertices; ++j) {
            if (i != j && is_free(chain.free_dyads, i, j)) {
                (digraph_has_arc(digraph, i, j) ? found.tied : found.untied) = true;
            }
        }
        if (digraph.out_degree[static_cast<std::size_t>(i)] >= 2 && found.tied && found.untied) {
            return true;
        }
    }
    return false;
}

// Draws the dyad of a single toggle. False when none is eligible.
template <class Network>
bool draw_dyad(Chain<Network>& chain, Dyad& dyad) {
    const int n = chain.network.vertices;
    if (n < 2) {
        chain.stuck = true;
        return false;
    }
    RandomSource& random = chain.random;
    dyad.i = random_below(random, n);
    if (chain.free_dyads == nullptr) {
        do {
            dyad.j = random_below(random, n);
        } while (dyad.j == dyad.i);
        return true;
    }
    dyad.j = dyad.i;
    for (int failures = 0; dyad.i == dyad.j || !has(*chain.free_dyads, dyad.i, dyad.j);) {
        if (++failures > kPatience) {
            const FreeDyads found = scan_dyads(chain);
            if (!found.tied && !found.untied) {
                chain.stuck = true;
                return false;
            }
            failures = 0;
        }
        dyad.i = random_below(random, n);
        dyad.j = random_below(random, n);
    }
    return true;
}

// Draws two dyads of different state, the tied one first. False when there are none.
template <class Network>
bool draw_swap(Chain<Network>& chain, Dyad& tied, Dyad& empty) {
    const int n = chain.network.vertices;
    RandomSource& random = chain.random;
    tied = {};
    empty = {};
    const auto eligible = [&] {
        return tied.i != tied.j && empty.i != empty.j &&
               has(chain.network, tied.i, tied.j) != has(chain.network, empty.i, empty.j) &&
               is_free(chain.free_dyads, tied.i, tied.j) &&
               is_free(chain.free_dyads, empty.i, empty.j);
    };
    for (int failures = 0; !eligible();) {
        if (++failures > kPatience) {
            const FreeDyads found = scan_dyads(chain);
            if (!found.tied || !found.untied) {
                chain.stuck = true;
                return false;
            }
            failures = 0;
        }
        if (chain.free_dyads != nullptr) {
            tied.j = random_below(random, n);
            empty.j = random_below(random, n);
            tied.i = random_below(random, n);
            empty.i = random_below(random, n);
        } else {
            tied.i = random_below(random, n);
            empty.i = random_below(random, n);
            tied.j = random_below(random, n);
            empty.j = random_below(random, n);
        }
    }
    if (!has(chain.network, tied.i, tied.j)) {
        std::swap(tied, empty);
    }
    return true;
}

// Draws an actor with two arcs or more and two others, an arc going to just one of them; that one
// is the first. False when there is no such actor.
bool draw_sender_swap(Chain<Digraph>& chain, Dyad& tied, Dyad& empty) {
    const Digraph& digraph = chain.network;
    const int n = digraph.vertices;
    if (n < 2) {
        chain.stuck = true;
        return false;
    }
    RandomSource& random = chain.random;
    int i = random_below(random, n);
    int j = i;
    int k = i;
    const auto eligible = [&] {
        return digraph.out_degree[static_cast<std::size_t>(i)] >= 2 && i != j && i != k && j != k &&
               digraph_has_arc(digraph, i, j) != digraph_has_arc(digraph, i, k) &&
               is_free(chain.free_dyads, i, j) && is_free(chain.free_dyads, i, k);
    };
    for (int failures = 0; !eligible();) {
        if (++failures > kPatience) {
            if (!scan_sender_swaps(chain)) {
                chain.stuck = true;
                return false;
            }
            failures = 0;
        }
        if (chain.free_dyads != nullptr) {
            j = random_below(random, n);
            i = random_below(random, n);
            k = random_below(random, n);
        } else {
            i = random_below(random, n);
            j = random_below(random, n);
            k = random_below(random, n);
        }
    }
    tied = {i, j};
    empty = {i, k};
    if (!digraph_has_arc(digraph, i, j)) {
        std::swap(tied, empty);
    }
    return true;
}

// The same verbs for both records, so that the steps are written once.
void add_bit(Graph& graph, Dyad dyad) { graph_add_edge(graph, dyad.i, dyad.j); }
void add_bit(Digraph& digraph, Dyad dyad) { digraph_add_arc(digraph, dyad.i, dyad.j); }
void remove_bit(Graph& graph, Dyad dyad) { graph_remove_edge(graph, dyad.i, dyad.j); }
void remove_bit(Digraph& digraph, Dyad dyad) { digraph_remove_arc(digraph, dyad.i, dyad.j); }
void update_tables(Graph& graph, Dyad dyad, int adding) {
    graph_update_two_paths(graph, dyad.i, dyad.j, adding);
}
void update_tables(Digraph& digraph, Dyad dyad, int adding) {
    digraph_update_two_paths(digraph, dyad.i, dyad.j, adding);
}

bool refused_by_cap(const Graph& graph, Dyad dyad, int cap) {
    return graph.degree[static_cast<std::size_t>(dyad.i)] == cap ||
           graph.degree[static_cast<std::size_t>(dyad.j)] == cap;
}
bool refused_by_cap(const Digraph& digraph, Dyad dyad, int cap) {
    return digraph.out_degree[static_cast<std::size_t>(dyad.i)] == cap ||
           digraph.in_degree[static_cast<std::size_t>(dyad.j)] == kNoCap;
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
    const bool tied = has(network, dyad.i, dyad.j);
    if (tied) {
        remove_bit(network, dyad);
    } else if (refused_by_cap(network, dyad, chain.max_degree)) {
        return 0;
    }
    const int adding = tied ? 0 : 1;
    const double log_odds =
        evaluate_weighted(network, chain.model, chain.parameters, change, dyad.i, dyad.j, adding);
    const double ratio = std::exp(tied ? -log_odds : log_odds);
    if (!(ratio >= random_uniform(chain.random))) {
        if (tied) {
            add_bit(network, dyad);
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
        add_bit(network, dyad);
    }
    update_tables(network, dyad, adding);
    return 1;
}

// Removes one tie and adds another in one proposal. `strict` asks the ratio to be greater than the
// uniform number instead of not less.
template <class Network>
int swap_dyads(Chain<Network>& chain, Dyad tied, Dyad empty, bool strict) {
    Network& network = chain.network;
    double* removal = chain.removal.data();
    double* addition = chain.change.data();
    remove_bit(network, tied);
    const double removed =
        evaluate_weighted(network, chain.model, chain.parameters, removal, tied.i, tied.j, 0);
    update_tables(network, tied, 0);
    const double added =
        evaluate_weighted(network, chain.model, chain.parameters, addition, empty.i, empty.j, 1);
    const double ratio = std::exp(added - removed);
    const double uniform = random_uniform(chain.random);
    if (!(strict ? ratio > uniform : ratio >= uniform)) {
        add_bit(network, tied);
        update_tables(network, tied, 1);
        return 0;
    }
    if (has_unweighted(chain.model, chain.parameters)) {
        evaluate_unweighted(network, chain.model, chain.parameters, addition, empty.i, empty.j, 1);
        // The removal's own state: the tie gone from bits and degrees, still counted by the tables.
        add_bit(network, tied);
        update_tables(network, tied, 1);
        remove_bit(network, tied);
        evaluate_unweighted(network, chain.model, chain.parameters, removal, tied.i, tied.j, 0);
        update_tables(network, tied, 0);
    }
    double* statistics = network.statistics.data();
    for (std::size_t m = 0; m < chain.change.size(); ++m) {
        statistics[m] = addition[m] + statistics[m] - removal[m];
    }
    add_bit(network, empty);
    update_tables(network, empty, 1);
    return 1;
}

}  // namespace

template <class Network>
void chain_prepare(Chain<Network>& chain) {
    chain.change.assign(chain.network.statistics.size(), 0.0);
    chain.removal.assign(chain.network.statistics.size(), 0.0);
}
template void chain_prepare<Graph>(Chain<Graph>&);
template void chain_prepare<Digraph>(Chain<Digraph>&);

int graph_toggle_step(Chain<Graph>& chain) { return toggle_step(chain); }
int digraph_toggle_step(Chain<Digraph>& chain) { return toggle_step(chain); }

int graph_swap_step(Chain<Graph>& chain) {
    Dyad tied;
    Dyad empty;
    if (chain.network.edges < 2 || chain.stuck || !draw_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty, false);
}

int digraph_swap_step(Chain<Digraph>& chain) {
    Dyad tied;
    Dyad empty;
    if (chain.network.arcs < 2 || chain.stuck || !draw_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty, true);
}

int digraph_sender_swap_step(Chain<Digraph>& chain) {
    Dyad tied;
    Dyad empty;
    if (chain.stuck || !draw_sender_swap(chain, tied, empty)) {
        return 0;
    }
    return swap_dyads(chain, tied, empty, true);
}

int chain_step(Chain<Graph>& chain) {
    return chain.proposal_kind == 1 ? graph_swap_step(chain) : graph_toggle_step(chain);
}

int chain_step(Chain<Digraph>& chain) {
    switch (chain.proposal_kind) {
        case 1:
            return digraph_swap_step(chain);
        case 2:
            return digraph_sender_swap_step(chain);
        default:
            return digraph_toggle_step(chain);
    }
}

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
