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

// Draws two dyads, one of them tied and one not, until both may be proposed. The usual case by
// itself, as most of the time of a swap in a sparse network goes here. False after
// `most` draws.
template <class Network>
bool draw_unlike_dyads(Chain<Network>& chain, int most, Dyad& first, Dyad& second) {
    constexpr RandomJump kOne = random_jump(1);
    constexpr RandomJump kTwo = random_jump(2);
    constexpr RandomJump kThree = random_jump(3);
    constexpr RandomJump kFour = random_jump(4);
    std::uint32_t state = chain.random.state;
    const Remainder actors = actor_remainder(chain);
    const BitMatrix& tied = chain.network.adjacency;
    const bool wide = kWideSearch;
    bool found = false;
    for (int left = most; left > 0 && !found; --left) {
        left -= wide ? pass_alike<kSwapOrder>(tied, left, state) : 0;
        first.i = actors.of(shown_draw(kOne(state)));
        second.i = actors.of(shown_draw(kTwo(state)));
        first.j = actors.of(shown_draw(kThree(state)));
        second.j = actors.of(shown_draw(kFour(state)));
        state = kFour(state);
        // No actor is tied to itself, so a pair of one actor counts as untied here.
        found = tied.has(first.i, first.j) != tied.has(second.i, second.j) && first.i != first.j &&
                second.i != second.j;
    }
    chain.random.state = state;
    return found;
}

// The same where only some dyads may be proposed; the draws come in another order.
template <class Network>
bool draw_unlike_free_dyads(Chain<Network>& chain, int most, Dyad& first, Dyad& second) {
    RandomSource& random = chain.random;
    const Remainder actors = actor_remainder(chain);
    for (int left = most; left > 0; --left) {
        left -= pass_alike<kFreeSwapOrder>(chain.network.adjacency, left, random.state);
        first.j = draw_actor(random, actors);
        second.j = draw_actor(random, actors);
        first.i = draw_actor(random, actors);
        second.i = draw_actor(random, actors);
        if (first.i != first.j && second.i != second.j &&
            has_tie(chain.network, first.i, first.j) !=
                has_tie(chain.network, second.i, second.j) &&
            is_free(chain.free_dyads, first.i, first.j) &&
            is_free(chain.free_dyads, second.i, second.j)) {
            return true;
        }
    }
    return false;
}

// Draws two dyads of different state, the tied one first. False when there are none.
template <class Network>
bool draw_swap(Chain<Network>& chain, Dyad& tied, Dyad& empty) {
    const bool any = chain.free_dyads == nullptr;
    DrawCycle cycle(chain.network.vertices);
    int most = kProposalPatience;
    while (!(any ? draw_unlike_dyads(chain, most, tied, empty)
                 : draw_unlike_free_dyads(chain, most, tied, empty))) {
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

// Draws an actor with two arcs or more and two others, an arc going to just one of them; that one
// is the first. False when there is no such actor.
inline bool draw_sender_swap(Chain<Digraph>& chain, Dyad& tied, Dyad& empty) {
    const Digraph& digraph = chain.network;
    if (digraph.vertices < 2) {
        chain.stuck = true;
        return false;
    }
    RandomSource& random = chain.random;
    const Remainder actors = actor_remainder(chain);
    int i = draw_actor(random, actors);
    int j = i;
    int k = i;
    const auto eligible = [&] {
        return digraph.out_degree[static_cast<std::size_t>(i)] >= 2 && i != j && i != k && j != k &&
               digraph_has_arc(digraph, i, j) != digraph_has_arc(digraph, i, k) &&
               is_free(chain.free_dyads, i, j) && is_free(chain.free_dyads, i, k);
    };
    ProposalPatience patience(actors.divisor());
    while (!eligible()) {
        if (!patience.may_succeed(random, [&chain] { return scan_sender_swaps(chain); })) {
            chain.stuck = true;
            return false;
        }
        if (chain.free_dyads != nullptr) {
            patience.count(
                pass_alike<kFreeSenderSwapOrder>(digraph.adjacency, patience.left(), random.state));
            j = draw_actor(random, actors);
            i = draw_actor(random, actors);
            k = draw_actor(random, actors);
        } else {
            patience.count(
                pass_alike<kSenderSwapOrder>(digraph.adjacency, patience.left(), random.state));
            i = draw_actor(random, actors);
            j = draw_actor(random, actors);
            k = draw_actor(random, actors);
        }
    }
    tied = {i, j};
    empty = {i, k};
    if (!digraph_has_arc(digraph, i, j)) {
        std::swap(tied, empty);
    }
    return true;
}
