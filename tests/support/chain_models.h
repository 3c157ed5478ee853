// Small models and networks for tests of chains, under one name for both records; and networks as
// numbers, so that every network on a handful of actors can be enumerated.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "effects/evaluation.h"
#include "network/network_verbs.h"
#include "sampling/chain.h"

struct ModelTerm {
    std::string_view row;  // name in update files
    double value = 0.0;
    float lambda = 2.0F;
};

// A model of structural effects; places follow the order of setup rows.
template <class Network>
struct ChainModel {
    explicit ChainModel(const std::vector<ModelTerm>& terms);
    ChainModel(const ChainModel&) = delete;
    ChainModel& operator=(const ChainModel&) = delete;

    int size() const { return static_cast<int>(parameters.size()); }
    // Place of an effect in the vectors.
    int place(std::string_view row) const;

    EffectSelection selection;
    std::vector<double> parameters;
    ActiveModel<Network> active;
};

// A term for every effect that a setup file can select, all with this value and lambda; effects
// whose lambda is usually 1.0 too.
std::vector<ModelTerm> all_terms(NetworkKind kind, double value, float lambda);

// The dyads of n actors: i < j, or both orders for a digraph; their index is their bit in a code.
using ActorPair = std::pair<int, int>;
template <class Network>
std::vector<ActorPair> all_dyads(int n);

void tie(Graph& graph, int i, int j);
void tie(Digraph& digraph, int i, int j);

// An empty network with room for p statistics.
template <class Network>
Network empty_network(int n, int p = 0, int cliques = 0);

// The network whose dyads are tied where the code has a bit, and back.
template <class Network>
Network network_of_code(int n, std::uint32_t code, int p = 0, int cliques = 0);
template <class Network>
std::uint32_t code_of_network(const Network& network);

// Counts every statistic of the model anew.
void count_statistics(Graph& graph, const ActiveModel<Graph>& model);
void count_statistics(Digraph& digraph, const ActiveModel<Digraph>& model);

// A random network with the model's statistics counted.
template <class Network>
Network random_network(const ChainModel<Network>& model, int n, double density, std::uint32_t seed);

// A chain on the network at the model's parameters, ready to step.
template <class Network>
Chain<Network> test_chain(Network& network, const ChainModel<Network>& model, RandomSource& random,
                          int proposal_kind = 0) {
    Chain<Network> chain{network, model.active, model.parameters.data(), random};
    chain.proposal_kind = proposal_kind;
    chain_prepare(chain);
    return chain;
}
