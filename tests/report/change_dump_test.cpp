// The table of change statistics and the table of odds, whole for small networks.
#include "report/change_dump.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/random_networks.h"
#include "support/scratch_directory.h"

namespace {

struct Dump {
    std::string changes;
    std::string odds;
};

Dump dump(EffectSelection& selection, const reference::PlainGraph& plain) {
    const ScratchDirectory scratch;
    const std::vector<double> parameters = assemble_parameters(selection);
    const ActiveModel<Graph> model = active_model<Graph>(selection);
    Graph graph = engine_graph(plain, static_cast<int>(parameters.size()), clique_depth(selection));
    const std::vector<double> statistics = graph.statistics;
    const std::string changes = scratch.write("changes.txt", "of an earlier run");
    const std::string odds = scratch.write("odds.txt", "of an earlier run");
    change_statistics_dump(graph, selection, model, parameters, changes, odds);
    EXPECT_EQ(graph.statistics, statistics);
    EXPECT_EQ(graph.edges, reference::edge_count(plain));
    return {scratch.read("changes.txt"), scratch.read("odds.txt")};
}

void select(EffectSelection& selection, int id, double value) {
    StructuralChoice& choice = selection.structural[static_cast<std::size_t>(id)];
    choice.position = selection.structural_count++;
    choice.value = value;
}

// One covariate among `n` actors, every cell 0.
void add_covariate(EffectSelection& selection, int n) {
    selection_resize_group(selection, AttributeGroup::covariate, 1);
    group_of(selection, AttributeGroup::covariate).attributes = 1;
    selection.table.covariates = {FloatTable(n, n)};
    selection.table.covariate_names = {"trade"};
}

void select_covariate_row(EffectSelection& selection, std::size_t row, double value) {
    AttributeSelection& group = group_of(selection, AttributeGroup::covariate);
    group.choices[row][0] = {1, value};
    ++group.selected;
}

constexpr int kTwoStar = 1;

TEST(ChangeDump, LeavesTiedDyadsTied) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 4;
    select(selection, graph_effect::kEdge, -1.0);
    select(selection, kTwoStar, 0.5);
    select(selection, graph_effect::kTriangle, 0.0);
    select(selection, graph_effect::kIsolates, 0.25);
    // A path 0 1 2 and the isolate 3. Degrees of a tied dyad still count its tie: for 0 and 1 they
    // are 1 and 2.
    const Dump files = dump(selection, reference::make_graph(4, {{0, 1}, {1, 2}}));
    EXPECT_EQ(files.changes,
              "i j obs edge star2 tri iso \n"
              "0 1 1\t1.000000\t3.000000\t0.000000\t0.000000\t\n"
              "0 2 0\t1.000000\t2.000000\t1.000000\t0.000000\t\n"
              "0 3 0\t1.000000\t1.000000\t0.000000\t-1.000000\t\n"
              "1 2 1\t1.000000\t3.000000\t0.000000\t0.000000\t\n"
              "1 3 0\t1.000000\t2.000000\t0.000000\t-1.000000\t\n"
              "2 3 0\t1.000000\t1.000000\t0.000000\t-1.000000\t\n");
    // exp(0.5), exp(0), exp(-0.75), exp(-0.25).
    EXPECT_EQ(files.odds,
              "1.000000\t1.648721\t1.000000\t0.472367\t\n"
              "1.648721\t1.000000\t1.648721\t0.778801\t\n"
              "1.000000\t1.648721\t1.000000\t0.472367\t\n"
              "0.472367\t0.778801\t0.472367\t1.000000\t\n");
}

TEST(ChangeDump, ATiedDyadIsEvaluatedAsADeletionWouldBe) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 3;
    constexpr int kA2p = 32;
    select(selection, kA2p, 1.0);
    selection.structural[kA2p].lambda = 2.0F;
    // A path 0 1 2. Without the tie 0 to 1 no path of two joins 0 and 2, so the tie makes the
    // first; the tie 0 to 2 makes two first ones.
    const Dump files = dump(selection, reference::make_graph(3, {{0, 1}, {1, 2}}));
    EXPECT_EQ(files.changes,
              "i j obs a2p \n"
              "0 1 1\t1.000000\t\n"
              "0 2 0\t2.000000\t\n"
              "1 2 1\t1.000000\t\n");
}

TEST(ChangeDump, OfOneActorIsAHeadAndOneCell) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 1;
    select(selection, graph_effect::kEdge, 3.0);
    const Dump files = dump(selection, reference::empty_graph(1));
    EXPECT_EQ(files.changes, "i j obs edge \n");
    EXPECT_EQ(files.odds, "1.000000\t\n");
}

TEST(ChangeDump, WithoutAWeightEveryCellIsOne) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 3;
    select(selection, graph_effect::kEdge, 0.0);
    const Dump files = dump(selection, reference::make_graph(3, {{0, 2}}));
    EXPECT_EQ(files.changes,
              "i j obs edge \n0 1 0\t1.000000\t\n0 2 1\t1.000000\t\n1 2 0\t1.000000\t\n");
    EXPECT_EQ(files.odds,
              "1.000000\t1.000000\t1.000000\t\n1.000000\t1.000000\t1.000000\t\n"
              "1.000000\t1.000000\t1.000000\t\n");
}

TEST(ChangeDump, HasTheFirstCovariateEffectOnly) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 3;
    select(selection, graph_effect::kEdge, 0.0);
    add_covariate(selection, 3);
    selection.table.covariates[0][0][1] = 2.0F;
    selection.table.covariates[0][1][0] = 2.0F;
    selection.table.covariates[0][1][2] = -0.5F;
    selection.table.covariates[0][2][1] = -0.5F;
    select_covariate_row(selection, 0, 1.0);
    select_covariate_row(selection, 1, 100.0);
    const Dump files = dump(selection, reference::make_graph(3, {{0, 1}}));
    EXPECT_EQ(files.changes,
              "i j obs edge trade_edge\t\n"
              "0 1 1\t1.000000\t2.000000\t\n"
              "0 2 0\t1.000000\t0.000000\t\n"
              "1 2 0\t1.000000\t-0.500000\t\n");
    EXPECT_EQ(files.odds,
              "1.000000\t7.389056\t1.000000\t\n7.389056\t1.000000\t0.606531\t\n"
              "1.000000\t0.606531\t1.000000\t\n");
}

TEST(ChangeDump, AZeroParameterTimesAnInfiniteChangeIsNoNumber) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 2;
    add_covariate(selection, 2);
    selection.table.covariates[0][0][1] = std::numeric_limits<float>::infinity();
    selection.table.covariates[0][1][0] = std::numeric_limits<float>::infinity();
    select_covariate_row(selection, 0, 0.0);
    const Dump files = dump(selection, reference::empty_graph(2));
    EXPECT_EQ(files.changes, "i j obs trade_edge\t\n0 1 0\tinf\t\n");
    // The sign is the platform's.
    EXPECT_TRUE(files.odds == "1.000000\tnan\t\nnan\t1.000000\t\n" ||
                files.odds == "1.000000\t-nan\t\n-nan\t1.000000\t\n")
        << files.odds;
}

TEST(ChangeDump, TheEtCellsAreZeroAndP3HasNoSeparator) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 4;
    constexpr int kP3 = 14;
    select(selection, kP3, 0.0);
    select(selection, graph_effect::k0et, 2.0);
    select(selection, graph_effect::kEtnt, 2.0);
    const Dump files = dump(selection, reference::make_graph(4, {{0, 1}, {0, 2}, {1, 2}, {2, 3}}));
    EXPECT_EQ(files.changes,
              "i j obs p3et0 etnt \n"
              "0 1 1\t0.000000\t0.000000\t0.000000\t\n"
              "0 2 1\t0.000000\t0.000000\t0.000000\t\n"
              "0 3 0\t0.000000\t0.000000\t0.000000\t\n"
              "1 2 1\t0.000000\t0.000000\t0.000000\t\n"
              "1 3 0\t0.000000\t0.000000\t0.000000\t\n"
              "2 3 1\t0.000000\t0.000000\t0.000000\t\n");
}

TEST(ChangeDump, CountsCliquesPerDyad) {
    EffectSelection selection = selection_create(NetworkKind::undirected);
    selection.actors = 4;
    select(selection, graph_effect::kClique4, 1.0);
    // All ties of four actors but 2 to 3.
    const Dump files =
        dump(selection, reference::make_graph(4, {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}}));
    EXPECT_EQ(files.changes,
              "i j obs c4 \n"
              "0 1 1\t0.000000\t\n"
              "0 2 1\t0.000000\t\n"
              "0 3 1\t0.000000\t\n"
              "1 2 1\t0.000000\t\n"
              "1 3 1\t0.000000\t\n"
              "2 3 0\t1.000000\t\n");
    EXPECT_NE(files.odds.find("1.000000\t1.000000\t1.000000\t2.718282\t\n"), std::string::npos);
}

}  // namespace
