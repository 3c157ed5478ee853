// Chains against a plain twin that evaluates every effect at every proposal and draws by its own
// generator: the same dyads must be proposed, the same decided, and the same doubles carried.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <type_traits>
#include <utility>

#include "support/chain_models.h"
#include "support/plain_draws.h"

namespace {

bool capped(const Graph& graph, int i, int j, int cap) {
    return graph.degree[static_cast<std::size_t>(i)] == cap ||
           graph.degree[static_cast<std::size_t>(j)] == cap;
}
bool capped(const Digraph& digraph, int i, int, int cap) {
    return digraph.out_degree[static_cast<std::size_t>(i)] == cap;
}

template <class Network>
class PlainChain {
  public:
    PlainChain(Network network_, const ChainModel<Network>& model, std::uint32_t seed)
        : network(std::move(network_)), model_(model), draws{seed} {}

    int step() {
        if (proposal_kind == 1) {
            return swap();
        }
        return proposal_kind == 2 && !std::is_same_v<Network, Graph> ? sender_swap() : toggle();
    }

    Network network;

  private:
    const ChainModel<Network>& model_;

  public:
    PlainDraws draws;
    int proposal_kind = 0;
    int cap = kNoCap;
    const Network* free_dyads = nullptr;

  private:
    bool is_free(int i, int j) const { return free_dyads == nullptr || has_tie(*free_dyads, i, j); }

    int toggle() {
        const int n = network.vertices;
        int i = draws.below(n);
        int j = i;
        if (free_dyads == nullptr) {
            while (j == i) {
                j = draws.below(n);
            }
        } else {
            while (i == j || !has_tie(*free_dyads, i, j)) {
                i = draws.below(n);
                j = draws.below(n);
            }
        }
        const bool tied = has_tie(network, i, j);
        if (!tied && capped(network, i, j, cap)) {
            return 0;
        }
        remove_bit(network, i, j);
        std::vector<double> change(network.statistics.size());
        const double odds = evaluate_toggle(network, model_.active, model_.parameters.data(),
                                            change.data(), i, j, tied ? 0 : 1);
        const double ratio = std::exp(tied ? -odds : odds);
        const bool accepted = ratio >= draws.uniform();
        if (tied != accepted) {
            add_bit(network, i, j);
        }
        if (accepted) {
            for (std::size_t m = 0; m < change.size(); ++m) {
                network.statistics[m] =
                    tied ? network.statistics[m] - change[m] : network.statistics[m] + change[m];
            }
            update_tables(network, i, j, tied ? 0 : 1);
        }
        return accepted ? 1 : 0;
    }

    int swap() {
        if (tie_count(network) < 2) {
            return 0;
        }
        const int n = network.vertices;
        int i = 0;
        int j = 0;
        int k = 0;
        int l = 0;
        while (i == j || k == l || has_tie(network, i, j) == has_tie(network, k, l) ||
               !is_free(i, j) || !is_free(k, l)) {
            if (free_dyads != nullptr) {
                j = draws.below(n);
                l = draws.below(n);
                i = draws.below(n);
                k = draws.below(n);
            } else {
                i = draws.below(n);
                k = draws.below(n);
                j = draws.below(n);
                l = draws.below(n);
            }
        }
        if (!has_tie(network, i, j)) {
            std::swap(i, k);
            std::swap(j, l);
        }
        return exchange(i, j, k, l);
    }

    int sender_swap() {
        const int n = network.vertices;
        int i = draws.below(n);
        int j = i;
        int k = i;
        while (arcs_of(i) < 2 || i == j || i == k || j == k ||
               has_tie(network, i, j) == has_tie(network, i, k) || !is_free(i, j) ||
               !is_free(i, k)) {
            if (free_dyads != nullptr) {
                j = draws.below(n);
                i = draws.below(n);
            } else {
                i = draws.below(n);
                j = draws.below(n);
            }
            k = draws.below(n);
        }
        if (!has_tie(network, i, j)) {
            std::swap(j, k);
        }
        return exchange(i, j, i, k);
    }

    int arcs_of(int i) const {
        int arcs = 0;
        for (int j = 0; j < network.vertices; ++j) {
            arcs += i != j && has_tie(network, i, j) ? 1 : 0;
        }
        return arcs;
    }

    int exchange(int i, int j, int k, int l) {
        std::vector<double> removal(network.statistics.size());
        std::vector<double> addition(network.statistics.size());
        remove_bit(network, i, j);
        const double removed = evaluate_toggle(network, model_.active, model_.parameters.data(),
                                               removal.data(), i, j, 0);
        update_tables(network, i, j, 0);
        const double added = evaluate_toggle(network, model_.active, model_.parameters.data(),
                                             addition.data(), k, l, 1);
        const double ratio = std::exp(added - removed);
        const double u = draws.uniform();
        const bool accepted = std::is_same_v<Network, Graph> ? ratio >= u : ratio > u;
        if (!accepted) {
            add_bit(network, i, j);
            update_tables(network, i, j, 1);
            return 0;
        }
        for (std::size_t m = 0; m < addition.size(); ++m) {
            network.statistics[m] = addition[m] + network.statistics[m] - removal[m];
        }
        add_bit(network, k, l);
        update_tables(network, k, l, 1);
        return 1;
    }
};

struct TwinCase {
    int proposal_kind = 0;
    int cap = kNoCap;
    bool free_dyads = false;
};

template <class Network>
void expect_twins(const std::vector<ModelTerm>& terms, const TwinCase& tried, int steps) {
    const ChainModel<Network> model(terms);
    constexpr int n = 11;
    Network network = random_network(model, n, 0.3, 17);
    const ChainModel<Network> none({});
    const Network free_dyads = random_network(none, n, 0.7, 23);
    PlainChain<Network> plain(network, model, 2024);
    plain.proposal_kind = tried.proposal_kind;
    plain.cap = tried.cap;
    plain.free_dyads = tried.free_dyads ? &free_dyads : nullptr;
    RandomSource random{2024, {}};
    Chain<Network> chain = test_chain(network, model, random, tried.proposal_kind);
    chain.max_degree = tried.cap;
    chain.free_dyads = tried.free_dyads ? &free_dyads.adjacency : nullptr;
    for (int step = 0; step < steps; ++step) {
        ASSERT_EQ(chain_step(chain), plain.step()) << "step " << step;
        ASSERT_EQ(random.state, plain.draws.state) << "draws of step " << step;
        ASSERT_EQ(network.statistics, plain.network.statistics) << "step " << step;
    }
    EXPECT_EQ(network.adjacency.words, plain.network.adjacency.words);
    EXPECT_EQ(network.two_paths.cells, plain.network.two_paths.cells);
}

template <class Network>
void expect_twins_everywhere(const std::vector<ModelTerm>& terms, int steps) {
    for (const int kind : {0, 1, 2, 3}) {
        for (const bool free_dyads : {false, true}) {
            SCOPED_TRACE("proposal kind " + std::to_string(kind));
            expect_twins<Network>(terms, {kind, kNoCap, free_dyads}, steps);
            expect_twins<Network>(terms, {kind, 3, free_dyads}, steps);
        }
    }
}

// Every effect is on, but only a few weigh: the others are evaluated when a proposal is accepted.
std::vector<ModelTerm> mostly_zero(NetworkKind kind, const std::vector<ModelTerm>& weighed) {
    std::vector<ModelTerm> terms = all_terms(kind, 0.0, 1.5F);
    for (ModelTerm& term : terms) {
        for (const ModelTerm& other : weighed) {
            term.value = term.row == other.row ? other.value : term.value;
        }
    }
    return terms;
}

TEST(PlainChain, AgreesWithGraphChainsOfMostlyZeroParameters) {
    expect_twins_everywhere<Graph>(
        mostly_zero(NetworkKind::undirected,
                    {{"edge", -0.7}, {"AT", 0.2}, {"4-clique", 0.1}, {"AS", -0.05}}),
        700);
}

TEST(PlainChain, AgreesWithGraphChainsThatWeighNothing) {
    expect_twins_everywhere<Graph>(mostly_zero(NetworkKind::undirected, {}), 300);
}

TEST(PlainChain, AgreesWithGraphChainsThatWeighEverything) {
    expect_twins_everywhere<Graph>(all_terms(NetworkKind::undirected, -0.002, 2.0F), 500);
}

TEST(PlainChain, AgreesWithDigraphChainsOfMostlyZeroParameters) {
    expect_twins_everywhere<Digraph>(
        mostly_zero(NetworkKind::directed, {{"arc", -0.7}, {"reciprocity", 0.5}, {"AT-T", 0.1}}),
        700);
}

TEST(PlainChain, AgreesWithDigraphChainsThatWeighNothing) {
    expect_twins_everywhere<Digraph>(mostly_zero(NetworkKind::directed, {}), 300);
}

TEST(PlainChain, AgreesWithDigraphChainsThatWeighEverything) {
    expect_twins_everywhere<Digraph>(all_terms(NetworkKind::directed, -0.002, 2.0F), 500);
}

TEST(PlainChain, AgreesOnChangesThatDependOnTheStateOfTheTables) {
    // At lambda 1 a removal is evaluated by tables that still count the tie.
    expect_twins_everywhere<Graph>({{"edge", -0.6}, {"AT", 0.0, 1.0F}, {"AT2", 0.1, 1.0F}}, 1000);
    expect_twins_everywhere<Digraph>({{"arc", -0.6}, {"A2P-D", 0.0, 1.0F}, {"A2P-U", 0.05, 1.0F}},
                                     1000);
}

}  // namespace
