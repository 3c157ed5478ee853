// Effects whose carried sum is not their count, in chains: held against a plain chain that knows
// nothing but a matrix, evaluates the documented change of each effect and adds it up.
#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "reference/directed_structural.h"
#include "reference/structural.h"
#include "support/chain_models.h"
#include "support/plain_draws.h"
#include "support/random_digraphs.h"
#include "support/random_networks.h"

using reference::PlainDigraph;
using reference::PlainGraph;
using reference::Stage;

namespace {

// The two matrices under one set of names.
bool has_tie(const PlainGraph& graph, int i, int j) { return reference::tied(graph, i, j); }
bool has_tie(const PlainDigraph& digraph, int i, int j) {
    return reference::has_arc(digraph, i, j);
}
PlainGraph toggled(const PlainGraph& graph, int i, int j) {
    return has_tie(graph, i, j) ? without_tie(graph, i, j) : with_tie(graph, i, j);
}
PlainDigraph toggled(const PlainDigraph& digraph, int i, int j) {
    return has_tie(digraph, i, j) ? without_arc(digraph, i, j) : with_arc(digraph, i, j);
}
const reference::StructuralEffect& effect_of(const PlainGraph&, std::string_view row) {
    return reference::structural_effect(row);
}
const reference::DirectedEffect& effect_of(const PlainDigraph&, std::string_view row) {
    return reference::directed_effect(row);
}
Graph record_of(const PlainGraph& plain, int statistics) { return engine_graph(plain, statistics); }
Digraph record_of(const PlainDigraph& plain, int statistics) {
    return engine_digraph(plain, statistics);
}

// Toggles and dyad swaps without a cap and without fixed dyads.
template <class Plain>
class PlainChain {
  public:
    PlainChain(Plain network_, std::vector<ModelTerm> terms, std::uint64_t seed)
        : network(std::move(network_)), draws{seed}, terms_(std::move(terms)) {
        for (const ModelTerm& term : terms_) {
            statistics.push_back(effect_of(network, term.row).count(network, term.lambda));
        }
    }

    int toggle() {
        const int i = draws.below(network.n);
        int j = i;
        while (j == i) {
            j = draws.below(network.n);
        }
        const bool tied = has_tie(network, i, j);
        const std::vector<double> by = change(network, i, j);
        const double odds = weighed(by);
        if (!(std::exp(tied ? -odds : odds) >= draws.uniform())) {
            return 0;
        }
        add(by, tied ? -1 : 1);
        network = toggled(network, i, j);
        return 1;
    }

    int swap() {
        int i = 0;
        int j = 0;
        int k = 0;
        int l = 0;
        while (i == j || k == l || has_tie(network, i, j) == has_tie(network, k, l)) {
            i = draws.below(network.n);
            k = draws.below(network.n);
            j = draws.below(network.n);
            l = draws.below(network.n);
        }
        if (!has_tie(network, i, j)) {
            std::swap(i, k);
            std::swap(j, l);
        }
        const std::vector<double> removal = change(network, i, j);
        const Plain without = toggled(network, i, j);
        const std::vector<double> addition = change(without, k, l);
        const double ratio = std::exp(weighed(addition) - weighed(removal));
        const double u = draws.uniform();
        if (!(std::is_same_v<Plain, PlainGraph> ? ratio >= u : ratio > u)) {
            return 0;
        }
        add(addition, 1);
        add(removal, -1);
        network = toggled(without, k, l);
        return 1;
    }

    Plain network;
    PlainDraws draws;
    // In the order of the terms.
    std::vector<double> statistics;

  private:
    std::vector<double> change(const Plain& at, int i, int j) const {
        const Stage stage = has_tie(at, i, j) ? Stage::deletion : Stage::addition;
        const auto state = evaluation_state(at, i, j, stage);
        std::vector<double> by;
        for (const ModelTerm& term : terms_) {
            by.push_back(effect_of(at, term.row).change(state, i, j, term.lambda));
        }
        return by;
    }

    double weighed(const std::vector<double>& by) const {
        double sum = 0.0;
        for (std::size_t m = 0; m < by.size(); ++m) {
            sum += terms_[m].value * by[m];
        }
        return sum;
    }

    void add(const std::vector<double>& by, int sign) {
        for (std::size_t m = 0; m < by.size(); ++m) {
            statistics[m] += sign * by[m];
        }
    }

    std::vector<ModelTerm> terms_;
};

// Runs both chains side by side. The model holds a tie effect first and a drifting one second.
template <class Network, class Plain>
void expect_documented_chain(const Plain& start, const std::vector<ModelTerm>& terms, int kind) {
    const ChainModel<Network> model(terms);
    const auto drifting = static_cast<std::size_t>(model.place(terms[1].row));
    Network network = record_of(start, model.size());
    count_statistics(network, model.active);
    RandomSource random{77, {}};
    Chain<Network> chain = test_chain(network, model, random, kind);
    PlainChain<Plain> plain(start, terms, 77);
    int accepted = 0;
    for (int step = 0; step < 600; ++step) {
        const int moved = chain_step(chain);
        ASSERT_EQ(moved, kind == 1 ? plain.swap() : plain.toggle()) << "step " << step;
        ASSERT_EQ(random.state, plain.draws.state) << "step " << step;
        const double size = 1.0 + std::fabs(plain.statistics[1]);
        ASSERT_NEAR(network.statistics[drifting], plain.statistics[1], 1e-6 * size)
            << "step " << step;
        accepted += moved;
    }
    EXPECT_GT(accepted, 50);
    // The chain has drifted: a carried count would have failed above.
    const double count =
        effect_of(plain.network, terms[1].row).count(plain.network, terms[1].lambda);
    EXPECT_GT(std::fabs(count - plain.statistics[1]), 1e-3);
}

struct DriftingCase {
    std::string_view row;
    float lambda;
};

TEST(DriftingEffects, OfGraphsFollowTheDocumentedChangeInEveryProposal) {
    TestRandom random(41);
    const PlainGraph start = random_graph(random, 10, 0.4);
    for (const DriftingCase& tried : {DriftingCase{"3Path", 2.0F},
                                      {"AEAT", 2.0F},
                                      {"AEAT", 1.5F},
                                      {"AT", 1.0F},
                                      {"AT2", 1.0F}}) {
        for (const double value : {0.0, -0.01}) {
            for (const int kind : {0, 1}) {
                SCOPED_TRACE(std::string(tried.row) + " at " + std::to_string(value) +
                             " by proposals of kind " + std::to_string(kind));
                expect_documented_chain<Graph>(
                    start, {{"edge", -0.3}, {tried.row, value, tried.lambda}}, kind);
            }
        }
    }
}

TEST(DriftingEffects, OfDigraphsFollowTheDocumentedChangeInEveryProposal) {
    std::mt19937 random(43);
    const PlainDigraph start = random_digraph(9, 0.4, random);
    for (const std::string_view row : {"A2P-D", "A2P-U", "A2P-TD", "A2P-DU"}) {
        for (const double value : {0.0, -0.01}) {
            for (const int kind : {0, 1}) {
                SCOPED_TRACE(std::string(row) + " at " + std::to_string(value) +
                             " by proposals of kind " + std::to_string(kind));
                expect_documented_chain<Digraph>(start, {{"arc", -0.3}, {row, value, 1.0F}}, kind);
            }
        }
    }
}

TEST(DriftingEffects, ThreePathsDriftByThreeForEachCommonNeighbourOfAnAcceptedTie) {
    TestRandom random(5);
    const std::vector<ModelTerm> terms = {{"edge", -0.3}, {"3Path", -0.01}};
    PlainGraph plain = random_graph(random, 9, 0.4);
    const ChainModel<Graph> model(terms);
    const auto place = static_cast<std::size_t>(model.place("3Path"));
    Graph graph = engine_graph(plain, model.size());
    count_statistics(graph, model.active);
    RandomSource source{19, {}};
    Chain<Graph> chain = test_chain(graph, model, source);
    double drift = 0.0;
    for (int step = 0; step < 800; ++step) {
        if (chain_step(chain) == 0) {
            continue;
        }
        for (const auto& [i, j] : all_dyads<Graph>(plain.n)) {
            if (has_tie(plain, i, j) != has_tie(graph, i, j)) {
                const int shared = reference::common_neighbours(plain, i, j);
                drift += has_tie(plain, i, j) ? -3 * shared : 3 * shared;
                plain = toggled(plain, i, j);
                break;
            }
        }
        const double count = reference::structural_effect("3Path").count(plain, 2.0F);
        ASSERT_EQ(graph.statistics[place], count + drift) << "step " << step;
    }
    EXPECT_NE(drift, 0.0);
}

}  // namespace
