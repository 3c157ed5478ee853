// The memory that a run is said to take, against what its tables take.
#include "run/memory_estimate.h"

#include <gtest/gtest.h>

#include "network/digraph.h"
#include "network/graph.h"

namespace {

template <class Value>
double bytes_of(const std::vector<Value>& values) {
    return static_cast<double>(values.capacity() * sizeof(Value));
}
template <class Value>
double bytes_of(const Table<Value>& table) {
    return bytes_of(table.cells);
}
double bytes_of(const BitMatrix& matrix) { return bytes_of(matrix.words); }

SetupFile setup_of(int mode, NetworkKind kind, int actors) {
    SetupFile setup;
    setup.selection = selection_create(kind);
    setup.settings.run_mode = mode;
    setup.settings.network_kind = static_cast<int>(kind);
    setup.settings.actor_count = actors;
    return setup;
}

double total(const SetupFile& setup) { return memory_total(memory_parts(setup)); }

}  // namespace

TEST(MemoryEstimate, OfANetworkIsWhatItsTablesHold) {
    constexpr int n = 1000;
    const Graph graph = graph_create(n, 0, 0);
    const double held =
        bytes_of(graph.adjacency) + bytes_of(graph.any_two_paths) + bytes_of(graph.two_paths);
    EXPECT_NEAR(graph_bytes(n) / held, 1.0, 0.03);
    const Digraph digraph = digraph_create(n, 0);
    const double held_directed =
        bytes_of(digraph.adjacency) + bytes_of(digraph.adjacency_in) +
        bytes_of(digraph.any_shared_receivers) + bytes_of(digraph.any_shared_senders) +
        bytes_of(digraph.any_two_paths) + bytes_of(digraph.any_two_paths_in) +
        bytes_of(digraph.shared_receivers) + bytes_of(digraph.shared_senders) +
        bytes_of(digraph.two_paths);
    EXPECT_NEAR(digraph_bytes(n) / held_directed, 1.0, 0.03);
}

TEST(MemoryEstimate, CountsTheObservedNetworkBesideTheMovingOne) {
    const double one = graph_bytes(2000);
    EXPECT_DOUBLE_EQ(total(setup_of(3, NetworkKind::undirected, 2000)) -
                         total(setup_of(1, NetworkKind::undirected, 2000)),
                     one);
    EXPECT_DOUBLE_EQ(total(setup_of(1, NetworkKind::directed, 2000)), digraph_bytes(2000));
}

TEST(MemoryEstimate, GrowsWithSamplesAndStepsAndAttributes) {
    SetupFile setup = setup_of(2, NetworkKind::undirected, 10);
    setup.selection.structural_count = 4;
    setup.settings.estimation.phase3_steps = 2000000000;
    EXPECT_NEAR(total(setup), 2e9 * 4 * 8, 1e6);
    EXPECT_EQ(memory_parts(setup).front().what, "statistics of the samples");
    EXPECT_EQ(memory_parts(setup).front().id, SetupId::phase3_steps);
    SetupFile fit = setup_of(3, NetworkKind::directed, 10);
    fit.settings.sample_count = 1000000;
    EXPECT_GT(total(fit), 1e6 * 30 * 8);
    EXPECT_EQ(memory_parts(fit).front().id, SetupId::sample_count);
    SetupFile covariates = setup_of(1, NetworkKind::undirected, 1000);
    const double without = total(covariates);
    group_of(covariates.selection, AttributeGroup::covariate).attributes = 2;
    group_of(covariates.selection, AttributeGroup::continuous).attributes = 1;
    EXPECT_DOUBLE_EQ(total(covariates) - without, 5.0 * 4.0 * 1e6);
}

TEST(MemoryEstimate, OfNoNetworkIsNothing) {
    EXPECT_EQ(total(setup_of(1, NetworkKind::undirected, -50000)), 0.0);
    EXPECT_EQ(memory_total(memory_parts(SetupFile())), 0.0);
}
