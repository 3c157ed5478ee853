// One Metropolis chain: a step proposes a change of one dyad (or of two), evaluates it, accepts or
// rejects it, and on acceptance brings the network and its statistics up to date.
//
// A step allocates nothing and opens no file. Statistics are carried: a chain of millions of steps
// never recounts a network. The order of the draws is an interface: at the same clock a run must
// give the same files.
#pragma once

#include <cstdint>
#include <vector>

#include "base/host_options.h"
#include "base/random_source.h"
#include "effects/evaluation.h"

// Degree cap where none is set.
constexpr int kNoCap = 9999;
// Cap on in-degrees. It cannot be set: an arc to an actor with this many is refused in every run.
constexpr int kInDegreeCap = 9999;

template <class Network>
struct Chain {
    Network& network;
    const ActiveModel<Network>& model;
    // p values; may be changed between steps.
    const double* parameters;
    RandomSource& random;
    // When not null, only dyads set in it may be proposed.
    const BitMatrix* free_dyads = nullptr;
    // Undirected: 1 dyad swap, else single toggle. Directed: 1 dyad swap, 2 sender swap, else
    // toggle.
    int proposal_kind = 0;
    // Cap on degrees (out-degrees) of an addition by a single toggle. Equality refuses: a network
    // that starts above its cap is never refused for it.
    int max_degree = kNoCap;
    // Set when no draw can give an eligible proposal: the network can then never change.
    bool stuck = false;
    // Change vectors of the toggle (or a swap's addition) and of a swap's removal.
    std::vector<double> change = {};
    std::vector<double> removal = {};
    // Draws of actors, by the number of these; set at the first draw.
    Remainder actors = Remainder(1);
    // The smallest accepted log-odds of each draw, for toggles and the undirected swap, and for the
    // directed swaps; set at the first step that asks for them.
    const double* not_less = nullptr;
    const double* greater = nullptr;
};

// Makes room for the change vectors.
template <class Network>
void chain_prepare(Chain<Network>& chain);

// One step of the chain's proposal kind; 1 when the proposal was accepted, else 0. Accepted when
// the ratio is not less than a uniform number (toggles and the undirected swap), or greater than it
// (the two directed swaps); a ratio that is not a number is rejected.
template <class Network>
int chain_step(Chain<Network>& chain);

// Reseeds, then makes `proposals` steps (a floating count, from 0.0 while below it). Reseeding at
// every start means that two drivers started within one second repeat each other's stream.
template <class Network>
void burn_in_run(Chain<Network>& chain, double proposals, RunProgress& progress);
