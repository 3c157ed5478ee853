// One Metropolis chain: a step proposes a change of one dyad (or of two), evaluates it, accepts or
// rejects it, and on acceptance brings the network and its statistics up to date.
//
// A step allocates nothing and opens no file. Statistics are carried: a chain of millions of steps
// never recounts a network. The order of the draws is an interface: at the same clock a run must
// give the same files.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/host_options.h"
#include "base/random_source.h"
#include "effects/evaluation.h"
#include "sampling/waiting_tables.h"

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
    // The model parted by its parameters; set at the start of each run of steps.
    PartedModel<Network> parted = {};
    // They wait for the end of a long run of steps whose model does not read them.
    WaitingTables tables = {};
};

// Makes room for the change vectors.
template <class Network>
void chain_prepare(Chain<Network>& chain);

// Makes this many steps of the chain's proposal kind; returns how many proposals were accepted. A
// proposal is accepted when the ratio is not less than a uniform number (toggles and the undirected
// swap), or greater than it (the two directed swaps); a ratio that is not a number is rejected. The
// parameters stay as they are meanwhile.
template <class Network>
int chain_steps(Chain<Network>& chain, int steps);

// One step.
template <class Network>
int chain_step(Chain<Network>& chain) {
    return chain_steps(chain, 1);
}

// How many steps to make, of `left` (more than 0), before the next look at the host's wishes: so
// few that a host waits for a moment only.
template <class Network>
int steps_at_once(const Chain<Network>& chain, double left);

// Around a run of so many steps: where no effect of the model reads the tables of two-paths and
// triangles, and counting them anew costs less than keeping them, they are left alone until the
// end.
template <class Network>
void tables_begin(Chain<Network>& chain, double steps);
template <class Network>
void tables_end(Chain<Network>& chain);

// Makes a step for each of a counter 0, 1, 2, .. that stays below `proposals`, and calls
// after(steps made), which may throw, every now and then and at the end. Returns how many proposals
// were accepted. Whatever ends it, the network's tables are up to date.
template <class Network, class After>
double chain_run(Chain<Network>& chain, double proposals, After after) {
    tables_begin(chain, proposals);
    double accepted = 0.0;
    try {
        for (double made = 0.0; made < proposals;) {
            const int steps = steps_at_once(chain, proposals - made);
            accepted += chain_steps(chain, steps);
            made += steps;
            after(made);
        }
    } catch (...) {
        tables_end(chain);
        throw;
    }
    tables_end(chain);
    return accepted;
}

// Steps from `made` of `total` to the sample that is due, or to the end where none is: a point that
// is not a whole number is never met.
inline double steps_to_sample(double made, double due, double total) {
    const bool comes = due > made && due == std::floor(due);
    return comes ? std::min(due - made, total - made) : total - made;
}

// Reseeds, then makes `proposals` steps (a floating count, from 0.0 while below it). Reseeding at
// every start means that two drivers started within one second repeat each other's stream.
template <class Network>
void burn_in_run(Chain<Network>& chain, double proposals, RunProgress& progress);
