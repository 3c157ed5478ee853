// The caps on degrees: equality refuses an addition by a toggle, and nothing else does.
#include <gtest/gtest.h>

#include "support/chain_models.h"

namespace {

// Adds whatever is proposed and may be added.
const std::vector<ModelTerm> kAddEverything = {{"arc", 50.0}};

// An empty digraph in which an actor passes for one with so many arcs in.
Digraph digraph_with_in_degree(int actor, int received) {
    Digraph digraph = empty_network<Digraph>(6, 1);
    digraph.in_degree[static_cast<std::size_t>(actor)] = received;
    digraph.in_degree_distribution.resize(20000, 0);
    return digraph;
}

int arcs_to(const Digraph& digraph, int actor) {
    int arcs = 0;
    for (int i = 0; i < digraph.vertices; ++i) {
        arcs += i != actor && digraph_has_arc(digraph, i, actor) ? 1 : 0;
    }
    return arcs;
}

int arcs_to_after_a_run(int received, int max_degree) {
    const ChainModel<Digraph> model(kAddEverything);
    Digraph digraph = digraph_with_in_degree(2, received);
    RandomSource random{11, {}};
    Chain<Digraph> chain = test_chain(digraph, model, random);
    chain.max_degree = max_degree;
    for (int step = 0; step < 2000; ++step) {
        chain_step(chain);
    }
    // Everyone else receives from all, unless a cap on what is sent stops that.
    if (max_degree == kNoCap) {
        EXPECT_EQ(arcs_to(digraph, 3), 5);
    }
    return arcs_to(digraph, 2);
}

TEST(InDegreeCap, AnActorWith9999ArcsInReceivesNoMoreWhateverTheCapThatIsSet) {
    EXPECT_EQ(arcs_to_after_a_run(9999, kNoCap), 0);
    EXPECT_EQ(arcs_to_after_a_run(9999, 4), 0);
    EXPECT_EQ(arcs_to_after_a_run(9997, kNoCap), 2);
}

TEST(InDegreeCap, OnlyEqualityRefuses) {
    EXPECT_EQ(arcs_to_after_a_run(10000, kNoCap), 5);
    EXPECT_EQ(arcs_to_after_a_run(9000, kNoCap), 5);
}

TEST(DegreeCap, OfWhatIsSentLeavesNobodyWithMore) {
    const ChainModel<Digraph> model(kAddEverything);
    Digraph digraph = empty_network<Digraph>(6, 1);
    RandomSource random{11, {}};
    Chain<Digraph> chain = test_chain(digraph, model, random);
    chain.max_degree = 2;
    for (int step = 0; step < 2000; ++step) {
        chain_step(chain);
    }
    EXPECT_EQ(digraph.out_degree, (std::vector<int>(6, 2)));
}

TEST(DegreeCap, AnActorThatStartsAboveItIsNotRefused) {
    const ChainModel<Graph> model({{"edge", 50.0}});
    Graph graph = empty_network<Graph>(6, 1);
    for (const int j : {1, 2, 3}) {
        tie(graph, 0, j);
    }
    RandomSource random{11, {}};
    Chain<Graph> chain = test_chain(graph, model, random);
    chain.max_degree = 2;
    for (int step = 0; step < 2000; ++step) {
        chain_step(chain);
    }
    EXPECT_GT(graph.degree[0], 3);
    for (int actor = 1; actor < 6; ++actor) {
        EXPECT_LE(graph.degree[static_cast<std::size_t>(actor)], 2);
    }
}

}  // namespace
