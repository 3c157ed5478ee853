// Several chains over one study, carried out by as many threads as the machine has.
//
// The number of chains belongs to the model's settings, not to the machine: each chain has its own
// network, its own statistics and its own stream of random numbers, made of the seed and its
// number. Threads only carry chains out, whichever is next, so that every number is the same for
// one thread and for many. The steps are those of sampling/tie_no_tie.h.
//
// Memory: a chain keeps its ties alone (8 bytes each); a network with its tables is kept for each
// thread, into which the ties of the chain that is due are put.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/host_options.h"
#include "base/matrix.h"
#include "network/digraph.h"
#include "network/graph.h"
#include "study/study_selection.h"

constexpr int kDefaultChains = 8;

struct ChainSamples {
    // One row a sample, chain by chain and in each chain in the order in which they were drawn; p
    // columns in the order of the study's effects.
    Matrix statistics;
    // Of each row: its chain, and its number in this run of the chain; both from 0.
    std::vector<int> chain;
    std::vector<int> draw;
    double proposals = 0.0;  // of all chains in this run
};

// A network that a chain has come to; just one of the two is there. Its snapshots (distances,
// clustering) may be refreshed, its ties and statistics must stay as they are.
struct SampledNetwork {
    Graph* graph = nullptr;
    Digraph* digraph = nullptr;
};
std::vector<ActorTie> ties_of(const SampledNetwork& network);

using VisitSample = std::function<void(int chain, int draw, const SampledNetwork& network)>;

class StudyChains {
  public:
    // `resolved` holds no problem; it and the study outlive the chains. At least one chain; threads
    // 0 or less means as many as the machine has, and never more than chains. Every chain starts at
    // the observed network.
    StudyChains(const Study& study, const StudySelection& resolved, std::uint64_t seed, int chains,
                int threads);
    ~StudyChains();
    StudyChains(const StudyChains&) = delete;
    StudyChains& operator=(const StudyChains&) = delete;

    int chains() const;
    // Number of dyads that may change.
    double dyads() const;
    // Statistics of the observed network, in the order of the study's effects.
    const std::vector<double>& observed() const;

    // Continues every chain from where it stands: `burn_in` proposals, then for each sample
    // `interval` proposals. `parameters` has a value for each effect in the study's order, held
    // ones too: the chains hold nothing by themselves. Ties outside the free dyads never change,
    // and no actor gets more ties than the study allows.
    //
    // Adds the proposals to the progress's work done; stage and total are the caller's to set.
    // Throws RunStopped when `progress` asks for the end, and what else was thrown in the chain of
    // the lowest number; chains that had not ended then stand where they stood before.
    ChainSamples run(const std::vector<double>& parameters, std::int64_t burn_in,
                     std::int64_t interval, int samples_per_chain, RunProgress& progress);
    // The same, handing each sampled network to `visit`: in the chain's thread, at the same time
    // for different chains, in the order of draws within one.
    ChainSamples run(const std::vector<double>& parameters, std::int64_t burn_in,
                     std::int64_t interval, int samples_per_chain, RunProgress& progress,
                     const VisitSample& visit);

    // Every chain goes back to the observed network; the streams of random numbers go on.
    void restart();

    class Ensemble;

  private:
    std::unique_ptr<Ensemble> ensemble_;
};
