// Runs of many steps: they are the steps one by one, and leave every table as these do.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "sampling/tie_no_tie.h"
#include "support/chain_models.h"
#include "support/every_effect.h"

namespace {

bool same_tables(const Graph& a, const Graph& b) {
    return a.two_paths.cells == b.two_paths.cells &&
           a.any_two_paths.words == b.any_two_paths.words && a.triangles == b.triangles &&
           a.two_path_distribution == b.two_path_distribution &&
           graph_triangle_histogram(a) == graph_triangle_histogram(b) && a.degree == b.degree;
}
bool same_tables(const Digraph& a, const Digraph& b) {
    return a.two_paths.cells == b.two_paths.cells &&
           a.shared_receivers.cells == b.shared_receivers.cells &&
           a.shared_senders.cells == b.shared_senders.cells &&
           a.any_two_paths.words == b.any_two_paths.words &&
           a.any_two_paths_in.words == b.any_two_paths_in.words &&
           a.any_shared_receivers.words == b.any_shared_receivers.words &&
           a.any_shared_senders.words == b.any_shared_senders.words &&
           a.out_degree == b.out_degree && a.in_degree == b.in_degree;
}

// A run of `proposals` against as many single steps.
template <class Network>
void expect_single_steps(const std::vector<ModelTerm>& terms, int n, double density,
                         double proposals, int proposal_kind = 0) {
    const ChainModel<Network> model(terms);
    const Network start = random_network(model, n, density, 5);
    Network by_run = start;
    Network by_step = start;
    RandomSource run_source{12345, {}};
    RandomSource step_source{12345, {}};
    Chain<Network> run = test_chain(by_run, model, run_source, proposal_kind);
    Chain<Network> steps = test_chain(by_step, model, step_source, proposal_kind);
    double made = 0.0;
    const double accepted = chain_run(run, proposals, [&](double done) {
        EXPECT_GT(done, made);
        made = done;
    });
    double expected = 0.0;
    for (double counter = 0.0; counter < proposals; counter += 1.0) {
        expected += chain_step(steps);
    }
    EXPECT_GT(accepted, 0.0);
    EXPECT_EQ(accepted, expected);
    EXPECT_EQ(made, std::ceil(proposals));
    EXPECT_EQ(run_source.state, step_source.state);
    EXPECT_EQ(by_run.adjacency.words, by_step.adjacency.words);
    EXPECT_EQ(by_run.statistics, by_step.statistics);
    EXPECT_TRUE(same_tables(by_run, by_step));
}

// Long enough for the tables to wait where nothing reads them, and too short.
const double kLengths[] = {5000.0, 40.0, 2345.5};

TEST(LongRuns, OfUndirectedModelsAreTheirSteps) {
    for (const double length : kLengths) {
        expect_single_steps<Graph>({{"edge", -1.5}}, 30, 0.2, length);
        expect_single_steps<Graph>({{"edge", -1.5}, {"2-star", 0.01}, {"AS", 0.1}}, 30, 0.2,
                                   length);
        expect_single_steps<Graph>({{"edge", -1.5}, {"Triangle", 0.1}}, 30, 0.2, length);
        expect_single_steps<Graph>({{"edge", -1.5}, {"AT", 0.0}}, 30, 0.2, length);
        expect_single_steps<Graph>({{"edge", -1.5}, {"2-star", 0.01}}, 30, 0.2, length, 1);
    }
}

TEST(LongRuns, OfDirectedModelsAreTheirSteps) {
    for (const double length : kLengths) {
        expect_single_steps<Digraph>({{"arc", -1.5}}, 30, 0.2, length);
        expect_single_steps<Digraph>({{"arc", -1.5}, {"reciprocity", 0.5}, {"in2star", 0.01}}, 30,
                                     0.2, length);
        expect_single_steps<Digraph>({{"arc", -1.5}, {"A2P-T", -0.01}}, 30, 0.2, length);
        expect_single_steps<Digraph>({{"arc", -1.5}, {"out2star", 0.01}}, 30, 0.2, length, 1);
        expect_single_steps<Digraph>({{"arc", -1.5}, {"out2star", 0.01}}, 30, 0.2, length, 2);
    }
}

// Every effect that is said to read no table, of attributes too: its changes with tables that hold
// nothing true.
template <class Network>
void expect_no_table_read(int least) {
    TestRandom random{3};
    const every_effect::EveryEffect<Network> every(2.0F, every_effect::strange_values(random));
    const Network network = every.record(every_effect::random_ties<Network>(random, 0.4));
    Network emptied = network;
    const Network empty = every.record(every_effect::random_ties<Network>(random, 0.0));
    emptied.two_paths = empty.two_paths;
    emptied.any_two_paths = empty.any_two_paths;
    if constexpr (std::is_same_v<Network, Graph>) {
        emptied.triangles = empty.triangles;
    } else {
        emptied.any_two_paths_in = empty.any_two_paths_in;
        emptied.shared_receivers = empty.shared_receivers;
        emptied.shared_senders = empty.shared_senders;
        emptied.any_shared_receivers = empty.any_shared_receivers;
        emptied.any_shared_senders = empty.any_shared_senders;
    }
    int found = 0;
    for (const ActiveEffect<Network>& effect : every.model()) {
        if (!effect.without_tables) {
            continue;
        }
        ++found;
        for (const auto& [i, j] : every_effect::all_pairs<Network>()) {
            if (!has_tie(network, i, j)) {
                EXPECT_EQ(effect.change(emptied, effect.data, i, j, 1),
                          effect.change(network, effect.data, i, j, 1))
                    << effect.position;
            }
        }
    }
    EXPECT_GE(found, least);
}

TEST(LongRuns, EffectsSaidToReadNoTableReadNone) {
    expect_no_table_read<Graph>(17);
    expect_no_table_read<Digraph>(30);
}

TEST(LongRuns, ThatAreStoppedLeaveTheTablesRight) {
    const ChainModel<Graph> model({{"edge", -1.0}});
    Graph graph = random_network(model, 25, 0.2, 8);
    RandomSource random{99, {}};
    Chain<Graph> chain = test_chain(graph, model, random);
    RunProgress progress;
    progress.stop = true;
    const Graph start = graph;
    EXPECT_THROW(chain_run(chain, 1e9, [&](double) { progress_check(progress); }), RunStopped);
    EXPECT_NE(graph.adjacency.words, start.adjacency.words);
    Graph counted = graph;
    graph_count_two_paths(counted);
    EXPECT_TRUE(same_tables(graph, counted));
}

// A run of tie/no-tie steps against as many single ones.
template <class Network>
void expect_single_tie_steps(const std::vector<ModelTerm>& terms, bool tables_wait) {
    constexpr int kActors = 30;
    constexpr int kProposals = 3000;
    const ChainModel<Network> model(terms);
    Network by_run = random_network(model, kActors, 0.2, 5);
    Network by_step = by_run;
    TieList run_ties(kActors, kDirected<Network>);
    for (const auto& [i, j] : all_dyads<Network>(kActors)) {
        if (has_tie(by_run, i, j)) {
            run_ties.add({i, j});
        }
    }
    TieList step_ties = run_ties;
    const DyadSpace space(kActors, kDirected<Network>);
    RandomStream run_random(5, 0);
    RandomStream step_random(5, 0);
    TieNoTieChain<Network> run{by_run, model.active, model.parameters.data(),
                               space,  run_ties,     run_random};
    TieNoTieChain<Network> steps{by_step, model.active, model.parameters.data(),
                                 space,   step_ties,    step_random};
    tie_no_tie_prepare(run);
    tie_no_tie_prepare(steps);
    RunProgress progress;
    tie_no_tie_run(run, kProposals, progress);
    for (int step = 0; step < kProposals; ++step) {
        tie_no_tie_step(steps);
    }
    EXPECT_TRUE(same_tables(by_run, by_step));
    // Two runs that nobody looks between.
    tie_no_tie_tables_begin(run, 2 * kProposals);
    EXPECT_EQ(run.tables.wait, tables_wait);
    tie_no_tie_run(run, kProposals, progress);
    tie_no_tie_run(run, kProposals, progress);
    EXPECT_EQ(run.tables.behind, tables_wait);
    tie_no_tie_tables_end(run);
    for (int step = 0; step < 2 * kProposals; ++step) {
        tie_no_tie_step(steps);
    }
    EXPECT_EQ(by_run.adjacency.words, by_step.adjacency.words);
    EXPECT_EQ(by_run.statistics, by_step.statistics);
    EXPECT_TRUE(same_tables(by_run, by_step));
}

TEST(LongRuns, OfTieNoTieStepsAreTheirSteps) {
    expect_single_tie_steps<Graph>({{"edge", -1.5}, {"2-star", 0.01}}, true);
    expect_single_tie_steps<Graph>({{"edge", -1.5}, {"Triangle", 0.1}}, false);
    expect_single_tie_steps<Digraph>({{"arc", -1.5}, {"reciprocity", 0.5}}, true);
    expect_single_tie_steps<Digraph>({{"arc", -1.5}, {"A2P-T", -0.01}}, false);
}

TEST(LongRuns, LookAtTheHostsWishesOften) {
    const ChainModel<Digraph> model({{"arc", -1.0}});
    Digraph digraph = random_network(model, 25, 0.2, 8);
    RandomSource random{99, {}};
    for (const int kind : {0, 1, 2}) {
        const Chain<Digraph> chain = test_chain(digraph, model, random, kind);
        EXPECT_LE(steps_at_once(chain, 1e12), 1024) << kind;
        EXPECT_EQ(steps_at_once(chain, 0.25), 1) << kind;
        EXPECT_EQ(steps_at_once(chain, 3.0), 3) << kind;
    }
}

TEST(StepsToSample, GoToAWholePointAheadAndToTheEndWhereNoneComes) {
    EXPECT_EQ(steps_to_sample(0.0, 10.0, 100.0), 10.0);
    EXPECT_EQ(steps_to_sample(10.0, 20.0, 15.5), 5.5);
    EXPECT_EQ(steps_to_sample(0.0, 2.5, 100.0), 100.0);
    EXPECT_EQ(steps_to_sample(7.0, 7.0, 100.0), 93.0);
    EXPECT_EQ(steps_to_sample(7.0, 0.0, 100.0), 93.0);
    EXPECT_EQ(steps_to_sample(7.0, -3.0, 100.0), 93.0);
    EXPECT_EQ(steps_to_sample(7.0, std::numeric_limits<double>::quiet_NaN(), 100.0), 93.0);
}

}  // namespace
