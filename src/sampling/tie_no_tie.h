// The tie/no-tie step: one Metropolis-Hastings proposal of which half the time a tie is picked
// among the present ones, half the time any dyad (Morris, Handcock and Hunter 2008, Journal of
// Statistical Software 24(4)). In a sparse network almost every dyad is empty, and a chain that
// picks dyads alone spends its time proposing ties that are then refused.
//
// With E ties and N dyads that may change, a proposal picks
//
//     E = 0     each dyad with probability 1 / N
//     E > 0     each tie with probability 1 / (2 E) + 1 / (2 N), each empty dyad with 1 / (2 N)
//
// and is accepted with probability min(1, exp(parameters x changes) x ratio), the ratio being the
// probability of the way back over that of the way there:
//
//     adding a tie to E = 0        (N + 1) / 2       removing the only tie      2 / (N + 1)
//     adding a tie to E > 0     1 + N / (E + 1)      removing one of E > 1       E / (E + N)
//
// An addition beyond the cap on degrees is refused, and the network counts once more.
//
// Chains of setup files are those of sampling/chain.h, whose draws hosts rely on; these here draw
// from 64-bit streams, know no bound on the number of actors but memory, and give the same networks
// on every machine.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "base/host_options.h"
#include "base/random_stream.h"
#include "effects/evaluation.h"
#include "sampling/proposals.h"
#include "sampling/waiting_tables.h"

// The dyads that may change; in an undirected network each has i < j.
class DyadSpace {
  public:
    DyadSpace() = default;
    // Every dyad of n actors.
    DyadSpace(int n, bool directed);
    // These dyads alone, each given once; i < j in an undirected network. 8 bytes a dyad.
    explicit DyadSpace(std::vector<Dyad> dyads);

    double count() const { return count_; }

    // Each with the same probability. There must be one.
    Dyad draw(RandomStream& random) const {
        const std::uint64_t bits = random.bits();
        const auto upper = static_cast<std::uint32_t>(bits >> 32U);
        if (actors_ == 0) {
            return dyads_[bits_below(upper, static_cast<std::uint32_t>(dyads_.size()), random)];
        }
        const auto n = static_cast<std::uint32_t>(actors_);
        const auto i = static_cast<int>(bits_below(upper, n, random));
        const auto other =
            static_cast<int>(bits_below(static_cast<std::uint32_t>(bits), n - 1, random));
        const int j = other + (other >= i ? 1 : 0);
        return directed_ || i < j ? Dyad{i, j} : Dyad{j, i};
    }

  private:
    int actors_ = 0;  // 0 where the dyads are listed
    bool directed_ = false;
    double count_ = 0.0;
    std::vector<Dyad> dyads_;
};

// The present ties among the dyads that may change, in an order that depends on how they came: one
// is picked, added or taken out at once. Takes 4 bytes for each dyad of the network (half as many
// dyads when undirected) and 8 for each tie; room for ties grows by doubling, never otherwise.
class TieList {
  public:
    TieList(int n, bool directed);

    int size() const { return static_cast<int>(ties_.size()); }
    Dyad operator[](int k) const { return ties_[static_cast<std::size_t>(k)]; }
    const std::vector<Dyad>& ties() const { return ties_; }

    // The dyad must not be in the list; to be taken out, it must be. i < j when undirected.
    void add(Dyad dyad) {
        place(dyad) = static_cast<std::int32_t>(ties_.size());
        ties_.push_back(dyad);
    }
    void remove(Dyad dyad) {
        const std::int32_t at = place(dyad);
        const Dyad last = ties_.back();
        ties_[static_cast<std::size_t>(at)] = last;
        place(last) = at;
        ties_.pop_back();
    }
    void clear() { ties_.clear(); }

  private:
    std::int32_t& place(Dyad dyad) {
        const auto i = static_cast<std::size_t>(dyad.i);
        const auto j = static_cast<std::size_t>(dyad.j);
        return places_[directed_ ? i * actors_ + j : j * (j - 1) / 2 + i];
    }

    std::size_t actors_;
    bool directed_;
    std::vector<Dyad> ties_;
    std::vector<std::int32_t> places_;  // of a dyad in `ties_`, where it is tied
};

// What a step works on. `ties` holds the network's ties among `dyads`; both are changed by steps
// alone. Statistics are carried by their changes. One thread at a time.
template <class Network>
struct TieNoTieChain {
    Network& network;
    const ActiveModel<Network>& model;
    const double* parameters;  // p values; may be changed between steps
    const DyadSpace& dyads;
    TieList& ties;
    RandomStream& random;
    // No actor gets more ties (out-going ones, when directed). One who has more can only lose some.
    int max_degree = std::numeric_limits<int>::max();
    std::vector<double> change = {};
    // The model parted by its parameters; set at the start of each run of steps.
    PartedModel<Network> parted = {};
    // They wait for the end of a run of steps whose model does not read them.
    WaitingTables tables = {};
};

// Probability of the proposal that leads back over that of the one that adds (removes) a tie, in a
// network with this many ties among this many dyads.
constexpr double tie_no_tie_ratio(int ties, double dyads, bool adding) {
    const double e = ties;
    if (adding) {
        return ties == 0 ? (dyads + 1.0) / 2.0 : (dyads + e + 1.0) / (e + 1.0);
    }
    return ties == 1 ? 2.0 / (dyads + 1.0) : e / (e + dyads);
}

// Makes room for the change vector.
template <class Network>
void tie_no_tie_prepare(TieNoTieChain<Network>& chain);

// One step; 1 when the proposal was accepted, else 0. Log-odds that are not a number are refused.
// Where no dyad may change, nothing is drawn.
template <class Network>
int tie_no_tie_step(TieNoTieChain<Network>& chain);

// Makes `proposals` steps and adds them to the work done, a few thousand at a time. Throws
// RunStopped, between two steps, once `progress` asks for the end. However it ends, the network's
// tables are up to date.
template <class Network>
void tie_no_tie_run(TieNoTieChain<Network>& chain, std::int64_t proposals, RunProgress& progress);

// Around several runs of so many steps in all, between which nobody looks at the network: its
// tables need not be up to date before the last of them has ended.
template <class Network>
void tie_no_tie_tables_begin(TieNoTieChain<Network>& chain, std::int64_t proposals);
template <class Network>
void tie_no_tie_tables_end(TieNoTieChain<Network>& chain);
