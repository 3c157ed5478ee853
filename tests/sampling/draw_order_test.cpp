// The dyads that given draws propose, and the proposals that draw nothing or come to no end.
//
// From state 1 the generator draws 41 18467 6334 26500 19169 15724 11478 29358 26962 24464 5705
// 28145 23281 16827 9961 491 2995 11942 4827 5436 ...
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "sampling/proposals.h"
#include "support/chain_models.h"

namespace {

constexpr int kBeyondPatience = 40;

// A model that accepts every proposal: each ratio is 1.
const ChainModel<Graph>& graph_model() {
    static const ChainModel<Graph> model({{"edge", 0.0}});
    return model;
}
const ChainModel<Digraph>& digraph_model() {
    static const ChainModel<Digraph> model({{"arc", 0.0}});
    return model;
}

template <class Network>
Network with_ties(const ChainModel<Network>& model, int n, const std::vector<ActorPair>& ties) {
    Network network = empty_network<Network>(n, model.size());
    for (const auto& [i, j] : ties) {
        tie(network, i, j);
    }
    count_statistics(network, model.active);
    return network;
}

template <class Network>
std::vector<ActorPair> ties_of(const Network& network) {
    std::vector<ActorPair> ties;
    for (const auto& [i, j] : all_dyads<Network>(network.vertices)) {
        if (has_tie(network, i, j)) {
            ties.emplace_back(i, j);
        }
    }
    return ties;
}

using Ties = std::vector<ActorPair>;

// The state after so many draws from state 1.
std::uint32_t state_after(int draws) {
    RandomSource random{1, {}};
    for (int draw = 0; draw < draws; ++draw) {
        random_draw(random);
    }
    return random.state;
}

TEST(DrawOrder, TheGeneratorsFirstDraws) {
    RandomSource random{1, {}};
    for (const int expected : {41, 18467, 6334, 26500, 19169, 15724, 11478, 29358, 26962, 24464}) {
        EXPECT_EQ(random_draw(random), expected);
    }
}

TEST(DrawOrder, AToggleDrawsItsFirstActorThenTheSecondUntilTheyDifferThenDecides) {
    Graph graph = with_ties(graph_model(), 5, {});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    EXPECT_EQ(chain_step(chain), 1);  // 41 % 5 = 1, 18467 % 5 = 2
    EXPECT_EQ(ties_of(graph), Ties({{1, 2}}));
    EXPECT_EQ(chain_step(chain), 1);  // 26500 % 5 = 0, 19169 % 5 = 4
    EXPECT_EQ(ties_of(graph), Ties({{0, 4}, {1, 2}}));
    EXPECT_EQ(chain_step(chain), 1);  // 11478 % 5 = 3, 29358 % 5 = 3 again, 26962 % 5 = 2
    EXPECT_EQ(ties_of(graph), Ties({{0, 4}, {1, 2}, {2, 3}}));
    EXPECT_EQ(random.state, state_after(10));
}

TEST(DrawOrder, ADirectedToggleKeepsTheOrderOfItsActors) {
    Digraph digraph = with_ties(digraph_model(), 5, {});
    RandomSource random{1, {}};
    Chain<Digraph> chain = test_chain(digraph, digraph_model(), random);
    for (int step = 0; step < 3; ++step) {
        EXPECT_EQ(chain_step(chain), 1);
    }
    EXPECT_EQ(ties_of(digraph), Ties({{0, 4}, {1, 2}, {3, 2}}));
    EXPECT_EQ(random.state, state_after(10));
}

TEST(DrawOrder, AToggleOfFreeDyadsDrawsOneActorAndThenWholePairs) {
    // 41 is drawn and dropped; (18467, 6334) % 5 = (2, 4) is not free; (26500, 19169) % 5 = (0, 4).
    const Graph free_dyads = with_ties(graph_model(), 5, {{0, 4}});
    Graph graph = with_ties(graph_model(), 5, {});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    chain.free_dyads = &free_dyads.adjacency;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(graph), Ties({{0, 4}}));
    EXPECT_EQ(random.state, state_after(6));
}

TEST(DrawOrder, ASwapDrawsBothFirstActorsThenBothSecond) {
    // (41, 18467, 6334, 26500) % 5 = (1, 2, 4, 0): dyads 1-4 and 2-0.
    Graph graph = with_ties(graph_model(), 5, {{1, 4}, {3, 4}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random, 1);
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(graph), Ties({{0, 2}, {3, 4}}));
    EXPECT_EQ(random.state, state_after(5));
}

TEST(DrawOrder, ASwapOfFreeDyadsDrawsBothSecondActorsFirst) {
    // (41, 18467, 6334, 26500) % 5 = (1, 2, 4, 0): dyads 4-1 and 0-2.
    const Graph free_dyads = with_ties(graph_model(), 5, {{1, 4}, {0, 2}, {1, 3}});
    Graph graph = with_ties(graph_model(), 5, {{0, 2}, {3, 4}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random, 1);
    chain.free_dyads = &free_dyads.adjacency;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(graph), Ties({{1, 4}, {3, 4}}));
    EXPECT_EQ(random.state, state_after(5));
}

TEST(DrawOrder, ADirectedSwapDrawsBothSendersThenBothReceivers) {
    Digraph digraph = with_ties(digraph_model(), 5, {{2, 0}, {3, 4}});
    RandomSource random{1, {}};
    Chain<Digraph> chain = test_chain(digraph, digraph_model(), random, 1);
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(digraph), Ties({{1, 4}, {3, 4}}));
    EXPECT_EQ(random.state, state_after(5));
}

TEST(DrawOrder, ASenderSwapDrawsOneActorAndThenTriples) {
    // 41 is dropped; (18467, 6334, 26500) % 5 = (2, 4, 0): the sender 2, its receivers 4 and 0.
    Digraph digraph = with_ties(digraph_model(), 5, {{2, 0}, {2, 1}});
    RandomSource random{1, {}};
    Chain<Digraph> chain = test_chain(digraph, digraph_model(), random, 2);
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(digraph), Ties({{2, 1}, {2, 4}}));
    EXPECT_EQ(random.state, state_after(5));
}

TEST(DrawOrder, ASenderSwapOfFreeDyadsDrawsAReceiverBeforeTheSender) {
    // 41 is dropped; (18467, 6334, 26500) % 5 = (2, 4, 0): the receiver 2, the sender 4, then 0.
    const Digraph free_dyads = with_ties(digraph_model(), 5, {{4, 0}, {4, 2}});
    Digraph digraph = with_ties(digraph_model(), 5, {{4, 0}, {4, 1}});
    RandomSource random{1, {}};
    Chain<Digraph> chain = test_chain(digraph, digraph_model(), random, 2);
    chain.free_dyads = &free_dyads.adjacency;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(digraph), Ties({{4, 1}, {4, 2}}));
    EXPECT_EQ(random.state, state_after(5));
}

TEST(DrawOrder, ACapRefusesBeforeTheUniformNumberIsDrawn) {
    // The first dyad is 1-2, and actor 2 has its one tie.
    Graph graph = with_ties(graph_model(), 5, {{2, 3}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    chain.max_degree = 1;
    EXPECT_EQ(chain_step(chain), 0);
    EXPECT_EQ(random.state, state_after(2));
    EXPECT_EQ(ties_of(graph), Ties({{2, 3}}));
}

TEST(DrawOrder, ADegreeAboveTheCapIsNeverRefused) {
    Graph graph = with_ties(graph_model(), 5, {{2, 3}, {2, 4}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    chain.max_degree = 1;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(graph), Ties({{1, 2}, {2, 3}, {2, 4}}));
}

TEST(DrawOrder, ACapNeverRefusesARemoval) {
    Graph graph = with_ties(graph_model(), 5, {{1, 2}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    chain.max_degree = 1;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_EQ(ties_of(graph), Ties({}));
}

TEST(DrawOrder, ADirectedCapCountsArcsSentOnly) {
    // The first arc is 1 to 2.
    RandomSource random{1, {}};
    Digraph receives = with_ties(digraph_model(), 5, {{3, 2}, {4, 2}, {3, 1}});
    Chain<Digraph> open = test_chain(receives, digraph_model(), random);
    open.max_degree = 1;
    EXPECT_EQ(chain_step(open), 1);
    random.state = 1;
    Digraph sends = with_ties(digraph_model(), 5, {{1, 3}});
    Chain<Digraph> closed = test_chain(sends, digraph_model(), random);
    closed.max_degree = 1;
    EXPECT_EQ(chain_step(closed), 0);
    EXPECT_EQ(random.state, state_after(2));
}

TEST(DrawOrder, ARatioThatIsNotANumberIsRejectedByEveryStep) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const int kind : {0, 1}) {
        const ChainModel<Graph> model({{"edge", nan}});
        Graph graph = with_ties(model, 5, {{0, 1}, {2, 3}});
        RandomSource random{1, {}};
        Chain<Graph> chain = test_chain(graph, model, random, kind);
        for (int step = 0; step < 50; ++step) {
            EXPECT_EQ(chain_step(chain), 0);
        }
        EXPECT_EQ(ties_of(graph), Ties({{0, 1}, {2, 3}}));
    }
    for (const int kind : {0, 1, 2}) {
        const ChainModel<Digraph> model({{"arc", nan}});
        Digraph digraph = with_ties(model, 5, {{0, 1}, {0, 3}});
        RandomSource random{1, {}};
        Chain<Digraph> chain = test_chain(digraph, model, random, kind);
        for (int step = 0; step < 50; ++step) {
            EXPECT_EQ(chain_step(chain), 0);
        }
        EXPECT_EQ(ties_of(digraph), Ties({{0, 1}, {0, 3}}));
    }
}

// A state whose fifth draw is 32767, so that the uniform number of a first swap is exactly 1.
TEST(DrawOrder, OnlyDirectedSwapsRejectARatioEqualToTheUniformNumber) {
    std::uint32_t seed = 0;
    const auto matches = [](std::uint32_t state) {
        RandomSource random{state, {}};
        const int i = random_below(random, 5);
        const int k = random_below(random, 5);
        const int j = random_below(random, 5);
        const int l = random_below(random, 5);
        return i == 0 && j == 1 && k == 2 && l == 3 && random_draw(random) == 32767;
    };
    while (!matches(seed)) {
        ++seed;
    }
    RandomSource random{seed, {}};
    Graph graph = with_ties(graph_model(), 5, {{0, 1}, {0, 4}});
    Chain<Graph> undirected = test_chain(graph, graph_model(), random, 1);
    EXPECT_EQ(chain_step(undirected), 1);
    random.state = seed;
    Digraph digraph = with_ties(digraph_model(), 5, {{0, 1}, {0, 4}});
    Chain<Digraph> directed = test_chain(digraph, digraph_model(), random, 1);
    EXPECT_EQ(chain_step(directed), 0);
}

TEST(DrawOrder, ASwapWithFewerThanTwoTiesDrawsNothing) {
    RandomSource random{1, {}};
    Graph graph = with_ties(graph_model(), 5, {{0, 1}});
    Chain<Graph> chain = test_chain(graph, graph_model(), random, 1);
    EXPECT_EQ(chain_step(chain), 0);
    Digraph digraph = with_ties(digraph_model(), 5, {{0, 1}});
    Chain<Digraph> directed = test_chain(digraph, digraph_model(), random, 1);
    EXPECT_EQ(chain_step(directed), 0);
    EXPECT_EQ(random.state, 1U);
    EXPECT_EQ(ties_of(graph), Ties({{0, 1}}));
}

TEST(BurnIn, ReseedsAndThenMakesItsProposals) {
    Graph graph = with_ties(graph_model(), 5, {});
    RandomSource random{99, [] { return 1; }};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    RunProgress progress;
    burn_in_run(chain, 2.5, progress);
    EXPECT_EQ(ties_of(graph), Ties({{0, 4}, {1, 2}, {2, 3}}));
    EXPECT_EQ(random.state, state_after(10));
}

TEST(BurnIn, WithoutProposalsLeavesTheGeneratorJustSeeded) {
    for (const double proposals : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        Graph graph = with_ties(graph_model(), 5, {{0, 1}});
        RandomSource random{99, [] { return 1; }};
        Chain<Graph> chain = test_chain(graph, graph_model(), random);
        RunProgress progress;
        burn_in_run(chain, proposals, progress);
        EXPECT_EQ(ties_of(graph), Ties({{0, 1}}));
        EXPECT_EQ(random.state, 1U);
    }
}

template <class Network>
void expect_dead_end(const ChainModel<Network>& model, Network network, int kind,
                     const Network* free_dyads) {
    const Ties before = ties_of(network);
    RandomSource random{1, {}};
    Chain<Network> chain = test_chain(network, model, random, kind);
    chain.free_dyads = free_dyads != nullptr ? &free_dyads->adjacency : nullptr;
    // Every step must end; a chain that has found out so stops trying.
    for (int step = 0; step < kBeyondPatience; ++step) {
        EXPECT_EQ(chain_step(chain), 0);
    }
    EXPECT_EQ(ties_of(network), before);
}

TEST(DeadEnds, AnEmptyFreeDyadNetworkEndsEveryStep) {
    const Graph no_dyads = with_ties(graph_model(), 4, {});
    for (const int kind : {0, 1}) {
        expect_dead_end(graph_model(), with_ties(graph_model(), 4, {{0, 1}, {1, 2}}), kind,
                        &no_dyads);
    }
    const Digraph no_arcs = with_ties(digraph_model(), 4, {});
    for (const int kind : {0, 1, 2}) {
        expect_dead_end(digraph_model(), with_ties(digraph_model(), 4, {{0, 1}, {0, 2}}), kind,
                        &no_arcs);
    }
}

TEST(DeadEnds, ASwapOfACompleteNetworkEnds) {
    expect_dead_end<Graph>(graph_model(), with_ties(graph_model(), 4, all_dyads<Graph>(4)), 1,
                           nullptr);
    for (const int kind : {1, 2}) {
        expect_dead_end<Digraph>(
            digraph_model(), with_ties(digraph_model(), 4, all_dyads<Digraph>(4)), kind, nullptr);
    }
}

TEST(DeadEnds, ASwapWhoseFreeDyadsAreAllTiedEnds) {
    const Graph free_dyads = with_ties(graph_model(), 5, {{0, 1}, {1, 2}});
    expect_dead_end(graph_model(), with_ties(graph_model(), 5, {{0, 1}, {1, 2}, {3, 4}}), 1,
                    &free_dyads);
}

TEST(DeadEnds, ASenderSwapWithoutASenderOfTwoArcsEnds) {
    expect_dead_end<Digraph>(digraph_model(),
                             with_ties(digraph_model(), 4, {{0, 1}, {1, 2}, {2, 3}}), 2, nullptr);
    expect_dead_end<Digraph>(digraph_model(), with_ties(digraph_model(), 4, {}), 2, nullptr);
    // On three actors nobody who sends two arcs has a third receiver.
    expect_dead_end<Digraph>(digraph_model(),
                             with_ties(digraph_model(), 3, {{0, 1}, {0, 2}, {1, 0}}), 2, nullptr);
}

TEST(DeadEnds, ANetworkOfOneActorOrNoneEndsEveryStep) {
    for (const int n : {0, 1}) {
        for (const int kind : {0, 1}) {
            expect_dead_end<Graph>(graph_model(), with_ties(graph_model(), n, {}), kind, nullptr);
        }
        for (const int kind : {0, 1, 2}) {
            expect_dead_end<Digraph>(digraph_model(), with_ties(digraph_model(), n, {}), kind,
                                     nullptr);
        }
    }
}

TEST(DeadEnds, AChainGoesOnWhenTheOnlyEligibleProposalIsRare) {
    const Graph one_dyad = with_ties(graph_model(), 60, {{17, 42}});
    Graph graph = with_ties(graph_model(), 60, {});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random);
    chain.free_dyads = &one_dyad.adjacency;
    for (int step = 1; step <= 20; ++step) {
        EXPECT_EQ(chain_step(chain), 1);
        EXPECT_EQ(graph.edges, step % 2);
    }
}

constexpr int kFewBits = 128;  // actors; draws below a power of two have a short period
// Trials of a swap of free dyads, four draws each, before the generator comes round.
constexpr int kTrialsOfASwap = (kFewBits << 16) / 4;

struct SwapTrial {
    ActorPair first;
    ActorPair second;
};

SwapTrial draw_trial(RandomSource& random) {
    SwapTrial trial;
    trial.first.second = random_below(random, kFewBits);
    trial.second.second = random_below(random, kFewBits);
    trial.first.first = random_below(random, kFewBits);
    trial.second.first = random_below(random, kFewBits);
    return trial;
}

bool same_dyad(const ActorPair& a, const ActorPair& b) {
    return a == b || a == ActorPair(b.second, b.first);
}

TEST(DeadEnds, ASwapThatTheGeneratorNeverDrawsEnds) {
    const ActorPair tied = {3, 77};
    const ActorPair untied = {12, 90};
    RandomSource reference{1, {}};
    for (int trial = 0; trial < kTrialsOfASwap; ++trial) {
        const SwapTrial drawn = draw_trial(reference);
        ASSERT_FALSE(same_dyad(drawn.first, tied) && same_dyad(drawn.second, untied));
        ASSERT_FALSE(same_dyad(drawn.first, untied) && same_dyad(drawn.second, tied));
    }
    const Graph free_dyads = with_ties(graph_model(), kFewBits, {tied, untied});
    expect_dead_end(graph_model(), with_ties(graph_model(), kFewBits, {tied, {1, 2}}), 1,
                    &free_dyads);
}

bool is_swap_of(const SwapTrial& trial, const SwapTrial& other) {
    return (same_dyad(trial.first, other.first) && same_dyad(trial.second, other.second)) ||
           (same_dyad(trial.first, other.second) && same_dyad(trial.second, other.first));
}

TEST(DeadEnds, ASwapThatTheGeneratorDrawsLateIsWaitedFor) {
    std::vector<SwapTrial> trials;
    RandomSource reference{1, {}};
    for (int trial = 0; trial < kTrialsOfASwap; ++trial) {
        trials.push_back(draw_trial(reference));
    }
    // The last trial that is a swap at all and is drawn once only.
    const auto drawn_once = [&trials](const SwapTrial& tried) {
        return tried.first.first != tried.first.second &&
               tried.second.first != tried.second.second && !same_dyad(tried.first, tried.second) &&
               std::count_if(trials.begin(), trials.end(), [&tried](const SwapTrial& other) {
                   return is_swap_of(tried, other);
               }) == 1;
    };
    const auto late = std::find_if(trials.rbegin(), trials.rend(), drawn_once);
    ASSERT_NE(late, trials.rend());
    const auto made = static_cast<int>(std::distance(late, trials.rend()));
    ASSERT_GT(made, kProposalPatience);
    const Graph free_dyads = with_ties(graph_model(), kFewBits, {late->first, late->second});
    Graph graph = with_ties(graph_model(), kFewBits, {late->first, {1, 2}});
    RandomSource random{1, {}};
    Chain<Graph> chain = test_chain(graph, graph_model(), random, 1);
    chain.free_dyads = &free_dyads.adjacency;
    EXPECT_EQ(chain_step(chain), 1);
    EXPECT_TRUE(has_tie(graph, late->second.first, late->second.second));
    // Four draws each, and the uniform number of the decision.
    reference.state = 1;
    for (int draw = 0; draw <= 4 * made; ++draw) {
        random_draw(reference);
    }
    EXPECT_EQ(random.state, reference.state);
}

}  // namespace
