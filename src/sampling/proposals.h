// Which dyads a step proposes: the draws of every proposal kind and what makes a draw eligible.
//
// The order of the draws is an interface, since at the same clock a run must give the same files. A
// draw loop that fails a million times looks the whole network over; when no proposal is eligible
// the chain is stuck for good, as only proposals could change it, and the step ends. So it does
// when the generator has come round without an eligible proposal: its period is short, and a single
// pair of dyads of a large network may be out of its reach.
#pragma once

#include <utility>

#include "network/network_verbs.h"
#include "sampling/chain.h"
#include "sampling/swap_search.h"

// Draws that may fail in a row before it is checked whether any proposal is eligible at all.
constexpr int kProposalPatience = 1000000;

inline bool is_free(const BitMatrix* free_dyads, int i, int j) {
    return free_dyads == nullptr || free_dyads->has(i, j);
}

// Counts the failed trials of one draw loop below n actors.
class ProposalPatience {
  public:
    explicit ProposalPatience(int n) : cycle_(n) {}

    // After a failed trial: whether another one may succeed. `any_eligible` looks the network over.
    template <class AnyEligible>
    bool may_succeed(const RandomSource& random, AnyEligible any_eligible) {
        if (failures_ < kProposalPatience) {
            ++failures_;
            return true;
        }
        if (!looked_over_) {
            looked_over_ = true;
            if (!any_eligible()) {
                return false;
            }
        }
        return !cycle_.closed(random);
    }

    // Failed trials that are still borne without a look.
    int left() const { return kProposalPatience - failures_; }
    // Counts trials that have failed.
    void count(int failed) { failures_ += failed; }

  private:
    DrawCycle cycle_;
    int failures_ = 0;
    bool looked_over_ = false;
};

// How actors are drawn in this chain.
template <class Network>
const Remainder& actor_remainder(Chain<Network>& chain) {
    if (chain.actors.divisor() != chain.network.vertices) {
        chain.actors = Remainder(chain.network.vertices);
    }
    return chain.actors;
}

inline int draw_actor(RandomSource& random, const Remainder& actors) {
    return actors.of(random_draw(random));
}

struct Dyad {
    int i = 0;
    int j = 0;
};

struct FreeDyads {
    bool tied = false;
    bool untied = false;
};

// Whether a tied and an untied dyad may be proposed. O(n^2); only after kProposalPatience failures.
template <class Network>
FreeDyads scan_dyads(const Chain<Network>& chain) {
    FreeDyads found;
    for (int i = 0; i < chain.network.vertices; ++i) {
        for (int j = 0; j < chain.network.vertices; ++j) {
            if (i != j && is_free(chain.free_dyads, i, j)) {
                (has_tie(chain.network, i, j) ? found.tied : found.untied) = true;
            }
        }
    }
    return found;
}

// Whether some actor can swap one of its arcs for another: an actor with two arcs, one of them to a
// free dyad, and a free dyad without one.
inline bool scan_sender_swaps(const Chain<Digraph>& chain) {
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

// Draws a dyad that may be proposed where not all may. False when there is none.
template <class Network>
bool draw_free_dyad(Chain<Network>& chain, Dyad& dyad) {
    RandomSource& random = chain.random;
    const Remainder actors = actor_remainder(chain);
    dyad.i = draw_actor(random, actors);
    dyad.j = dyad.i;
    ProposalPatience patience(actors.divisor());
    const auto any_eligible = [&chain] {
        const FreeDyads found = scan_dyads(chain);
        return found.tied || found.untied;
    };
    while (dyad.i == dyad.j || !chain.free_dyads->has(dyad.i, dyad.j)) {
        if (!patience.may_succeed(random, any_eligible)) {
            chain.stuck = true;
            return false;
        }
        dyad.i = draw_actor(random, actors);
        dyad.j = draw_actor(random, actors);
    }
    return true;
}

// The dyads of one attempt at a swap.
template <DrawOrder order>
void draw_dyads(std::uint32_t& state, const Remainder& actors, Dyad& first, Dyad& second) {
    constexpr RandomJump kFirstI = random_jump(order.first_i);
    constexpr RandomJump kFirstJ = random_jump(order.first_j);
    constexpr RandomJump kSecondI = random_jump(order.second_i);
    constexpr RandomJump kSecondJ = random_jump(order.second_j);
    constexpr RandomJump kAll = random_jump(order.draws);
    const auto actor = [&](RandomJump jump) { return actors.of(draw_at(jump(state))); };
    first = {actor(kFirstI), actor(kFirstJ)};
    second = {actor(kSecondI), actor(kSecondJ)};
    state = kAll(state);
}

// Whether one of two dyads is tied and one not, and both may be proposed. No actor is tied to
// itself, so a pair of one actor counts as untied at first.
template <class Network>
bool may_swap(const Chain<Network>& chain, Dyad first, Dyad second) {
    return has_tie(chain.network, first.i, first.j) != has_tie(chain.network, second.i, second.j) &&
           first.i != first.j && second.i != second.j &&
           is_free(chain.free_dyads, first.i, first.j) &&
           is_free(chain.free_dyads, second.i, second.j);
}

// Draws two dyads until they may be swapped; most of the time of a swap in a sparse network goes
// here. False after `most` attempts.
template <DrawOrder order, class Network>
bool draw_unlike_dyads(Chain<Network>& chain, int most, Dyad& first, Dyad& second) {
    const Remainder actors = actor_remainder(chain);
    std::uint32_t state = chain.random.state;
    bool found = false;
    for (int left = most; left > 0 && !found; --left) {
        left -= pass_alike<order>(chain.network.adjacency, left, state);
        draw_dyads<order>(state, actors, first, second);
        found = may_swap(chain, first, second);
    }
    chain.random.state = state;
    return found;
}

// Draws two dyads of different state, the tied one first. False when there are none.
template <class Network>
bool draw_swap(Chain<Network>& chain, Dyad& tied, Dyad& empty) {
    const bool any = chain.free_dyads == nullptr;
    DrawCycle cycle(chain.network.vertices);
    int most = kProposalPatience;
    while (!(any ? draw_unlike_dyads<kSwapOrder>(chain, most, tied, empty)
                 : draw_unlike_dyads<kFreeSwapOrder>(chain, most, tied, empty))) {
        if (most == kProposalPatience) {
            const FreeDyads found = scan_dyads(chain);
            chain.stuck = !found.tied || !found.untied;
            most = 1;
        }
        chain.stuck = chain.stuck || cycle.closed(chain.random);
        if (chain.stuck) {
            return false;
        }
    }
    if (!has_tie(chain.network, tied.i, tied.j)) {
        std::swap(tied, empty);
    }
    return true;
}

// Draws two dyads of an actor with two arcs or more until they may be swapped. False when there are
// none.
template <DrawOrder order>
bool draw_sender_dyads(Chain<Digraph>& chain, Dyad& first, Dyad& second) {
    RandomSource& random = chain.random;
    const Remainder actors = actor_remainder(chain);
    ProposalPatience patience(actors.divisor());
    // An actor is drawn before any attempt, for nothing.
    random_draw(random);
    do {
        if (!patience.may_succeed(random, [&chain] { return scan_sender_swaps(chain); })) {
            chain.stuck = true;
            return false;
        }
        patience.count(pass_alike<order>(chain.network.adjacency, patience.left(), random.state));
        draw_dyads<order>(random.state, actors, first, second);
    } while (chain.network.out_degree[static_cast<std::size_t>(first.i)] < 2 ||
             !may_swap(chain, first, second));
    return true;
}

// Draws an actor with two arcs or more and two others, an arc going to just one of them; that one
// is the first. False when there is no such actor.
inline bool draw_sender_swap(Chain<Digraph>& chain, Dyad& tied, Dyad& empty) {
    chain.stuck = chain.stuck || chain.network.vertices < 2;
    if (chain.stuck || !(chain.free_dyads == nullptr
                             ? draw_sender_dyads<kSenderSwapOrder>(chain, tied, empty)
                             : draw_sender_dyads<kFreeSenderSwapOrder>(chain, tied, empty))) {
        return false;
    }
    if (!digraph_has_arc(chain.network, tied.i, tied.j)) {
        std::swap(tied, empty);
    }
    return true;
}
