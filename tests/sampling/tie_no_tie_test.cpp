// Tie/no-tie chains against every network on a handful of actors: the exact transition matrix of
// the documented proposal, and where the code goes in the long run and in a single step.
#include "sampling/tie_no_tie.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

#include "support/exact_distributions.h"

namespace {

constexpr int kUncapped = std::numeric_limits<int>::max();
constexpr std::uint32_t kAll = 0xFFFFFFFFU;

std::vector<ModelTerm> terms_of(NetworkKind kind) {
    if (kind == NetworkKind::undirected) {
        return {{"edge", -0.9}, {"2-star", 0.15}, {"Triangle", 0.3}, {"Isolates", 0.4}};
    }
    return {{"arc", -0.9}, {"reciprocity", 0.7}, {"path2", 0.1}, {"AinS", 0.2, 2.0F}};
}

// Which networks on n actors a chain may visit: the dyads of `free` (bits of a code) may change,
// the others stay as in `start`, and no actor has more than `cap` (outgoing) ties.
struct Restriction {
    int n = 5;
    std::uint32_t free = kAll;
    std::uint32_t start = 0;
    int cap = kUncapped;
};

bool within_cap(const Graph& graph, int cap) {
    return std::all_of(graph.degree.begin(), graph.degree.end(), [&](int d) { return d <= cap; });
}
bool within_cap(const Digraph& digraph, int cap) {
    return std::all_of(digraph.out_degree.begin(), digraph.out_degree.end(),
                       [&](int d) { return d <= cap; });
}

// Everything there is to know of a chain under a restriction, by enumeration.
template <class Network>
class World {
  public:
    explicit World(const Restriction& restriction)
        : restriction_(restriction),
          model_(terms_of(kDirected<Network> ? NetworkKind::directed : NetworkKind::undirected)),
          dyads_(all_dyads<Network>(restriction.n)) {
        for (std::size_t k = 0; k < dyads_.size(); ++k) {
            if (((restriction.free >> k) & 1U) != 0) {
                free_.push_back(static_cast<int>(k));
            }
        }
        log_weights_.assign(network_total<Network>(restriction.n), 0.0);
        allowed_.assign(log_weights_.size(), 0);
        const std::uint32_t fixed = ~restriction.free;
        for (std::uint32_t code = 0; code < log_weights_.size(); ++code) {
            Network network = state(code);
            allowed_[code] = (code & fixed) == (restriction.start & fixed) &&
                                     within_cap(network, restriction.cap)
                                 ? 1
                                 : 0;
            for (std::size_t m = 0; m < model_.parameters.size(); ++m) {
                log_weights_[code] += model_.parameters[m] * network.statistics[m];
            }
        }
    }

    Network state(std::uint32_t code) const {
        Network network = network_of_code<Network>(restriction_.n, code, model_.size(),
                                                   clique_depth(model_.selection));
        count_statistics(network, model_.active);
        return network;
    }

    Distribution exact() const {
        Distribution weights(log_weights_.size(), 0.0);
        for (std::size_t code = 0; code < weights.size(); ++code) {
            weights[code] = allowed_[code] != 0 ? std::exp(log_weights_[code]) : 0.0;
        }
        normalize(weights);
        return weights;
    }

    // Where one step leads, by the proposal's description; with the documented ratio or without.
    std::map<std::uint32_t, double> step(std::uint32_t code, bool with_ratio) const {
        int ties = 0;
        for (const int k : free_) {
            ties += static_cast<int>((code >> static_cast<unsigned>(k)) & 1U);
        }
        const auto n = static_cast<double>(free_.size());
        std::map<std::uint32_t, double> to;
        double stays = 1.0;
        for (const int k : free_) {
            const std::uint32_t bit = 1U << static_cast<unsigned>(k);
            const bool tied = (code & bit) != 0;
            const double proposed = (ties == 0 ? 1.0 : 0.5) / n + (tied ? 0.5 / ties : 0.0);
            const std::uint32_t next = code ^ bit;
            if (allowed_[next] == 0) {
                continue;
            }
            const double ratio = with_ratio ? tie_no_tie_ratio(ties, n, !tied) : 1.0;
            const double moves =
                proposed * std::min(1.0, std::exp(log_weights_[next] - log_weights_[code]) * ratio);
            to[next] = moves;
            stays -= moves;
        }
        to[code] = stays;
        return to;
    }

    // The distribution that steps without the ratio settle in.
    Distribution without_ratio() const {
        Distribution now = exact();
        std::vector<std::map<std::uint32_t, double>> rows(now.size());
        for (std::uint32_t code = 0; code < now.size(); ++code) {
            if (allowed_[code] != 0) {
                rows[code] = step(code, false);
            }
        }
        for (int round = 0; round < 300; ++round) {
            Distribution next(now.size(), 0.0);
            for (std::size_t code = 0; code < now.size(); ++code) {
                for (const auto& [to, probability] : rows[code]) {
                    next[to] += now[code] * probability;
                }
            }
            now = next;
        }
        return now;
    }

    DyadSpace space() const {
        if (free_.size() == dyads_.size()) {
            return {restriction_.n, kDirected<Network>};
        }
        std::vector<Dyad> list;
        for (const int k : free_) {
            list.push_back(dyad(k));
        }
        return DyadSpace(list);
    }

    // The ties of a state that may change.
    TieList ties(std::uint32_t code) const {
        TieList list(restriction_.n, kDirected<Network>);
        for (const int k : free_) {
            if (((code >> static_cast<unsigned>(k)) & 1U) != 0) {
                list.add(dyad(k));
            }
        }
        return list;
    }

    const ChainModel<Network>& model() const { return model_; }
    const Restriction& restriction() const { return restriction_; }
    bool allowed(std::uint32_t code) const { return allowed_[code] != 0; }
    std::size_t states() const { return allowed_.size(); }

  private:
    Dyad dyad(int k) const {
        const auto [i, j] = dyads_[static_cast<std::size_t>(k)];
        return {i, j};
    }

    Restriction restriction_;
    ChainModel<Network> model_;
    std::vector<ActorPair> dyads_;
    std::vector<int> free_;
    std::vector<double> log_weights_;
    std::vector<char> allowed_;
};

// The engine's chain in a world.
template <class Network>
struct Walker {
    Walker(const World<Network>& world, std::uint32_t code, std::uint64_t seed)
        : network(world.state(code)),
          space(world.space()),
          ties(world.ties(code)),
          random(seed, 0),
          chain{network, world.model().active,   world.model().parameters.data(), space, ties,
                random,  world.restriction().cap} {
        tie_no_tie_prepare(chain);
    }

    Network network;
    DyadSpace space;
    TieList ties;
    RandomStream random;
    TieNoTieChain<Network> chain;
};

// Pearson's statistic over its degrees of freedom, in standard deviations; cells of fewer than five
// expected visits count as one.
double chi_square_distance(const Distribution& visits, const Distribution& expected, int samples) {
    double sum = 0.0;
    double cells = 0.0;
    double rare_visits = 0.0;
    double rare_expected = 0.0;
    for (std::size_t code = 0; code < visits.size(); ++code) {
        const double seen = visits[code] * samples;
        const double due = expected[code] * samples;
        if (due < 5.0) {
            rare_visits += seen;
            rare_expected += due;
        } else {
            sum += (seen - due) * (seen - due) / due;
            cells += 1.0;
        }
    }
    if (rare_visits > 0.0 || rare_expected > 1.0) {
        sum += (rare_visits - rare_expected) * (rare_visits - rare_expected) /
               std::max(rare_expected, 1e-300);
        cells += 1.0;
    }
    const double freedom = std::max(cells - 1.0, 1.0);
    return (sum - freedom) / std::sqrt(2.0 * freedom);
}

template <class Network>
void expect_detailed_balance(const World<Network>& world) {
    const Distribution exact = world.exact();
    for (std::uint32_t code = 0; code < world.states(); ++code) {
        if (!world.allowed(code)) {
            continue;
        }
        for (const auto& [to, probability] : world.step(code, true)) {
            ASSERT_GE(probability, -1e-15);
            if (to != code) {
                const double there = exact[code] * probability;
                const double back = exact[to] * world.step(to, true).at(code);
                ASSERT_NEAR(there, back, 1e-14 * there) << code << " and " << to;
            }
        }
    }
}

template <class Network>
void expect_long_run(const World<Network>& world) {
    constexpr int kVisits = 60000;
    constexpr int kThinning = 30;
    Walker<Network> walker(world, world.restriction().start, 12345);
    Distribution visits(world.states(), 0.0);
    for (int sample = 0; sample < kVisits; ++sample) {
        for (int k = 0; k < kThinning; ++k) {
            tie_no_tie_step(walker.chain);
        }
        visits[code_of_network(walker.network)] += 1.0 / kVisits;
    }
    for (std::uint32_t code = 0; code < world.states(); ++code) {
        ASSERT_TRUE(visits[code] == 0.0 || world.allowed(code)) << code;
    }
    EXPECT_LT(chi_square_distance(visits, world.exact(), kVisits), 5.0);
    // The test of the test: steps that leave the ratio out end elsewhere.
    EXPECT_GT(chi_square_distance(visits, world.without_ratio(), kVisits), 50.0);
}

template <class Network>
void expect_exact(const Restriction& restriction) {
    const World<Network> world(restriction);
    expect_detailed_balance(world);
    expect_long_run(world);
}

TEST(TieNoTie, VisitsEveryGraphOnFiveActorsByItsProbability) { expect_exact<Graph>({}); }

TEST(TieNoTie, VisitsTheGraphsWithinACap) { expect_exact<Graph>({.cap = 2}); }

TEST(TieNoTie, ChangesFreeDyadsAlone) {
    expect_exact<Graph>({.free = 0b1110111100, .start = 0b0000000001});
}

TEST(TieNoTie, ChangesFreeDyadsWithinACap) {
    expect_exact<Graph>({.free = 0b1110111101, .start = 0b0001000010, .cap = 3});
}

TEST(TieNoTie, VisitsEveryDigraphOnThreeActorsByItsProbability) {
    expect_exact<Digraph>({.n = 3});
    expect_exact<Digraph>({.n = 3, .cap = 1});
    expect_exact<Digraph>({.n = 3, .free = 0b110110, .start = 0b000001});
    expect_exact<Digraph>({.n = 3, .free = 0b101111, .start = 0b010000, .cap = 1});
}

TEST(TieNoTie, VisitsDigraphsOnFourActorsByTheirProbability) {
    RandomStream random(8, 0);
    for (int subset = 0; subset < 3; ++subset) {
        std::uint32_t free = 0;
        for (int k = 0; k < 9; ++k) {
            free |= 1U << (random.bits() % 12);
        }
        const auto start = static_cast<std::uint32_t>(random.bits()) & ~free & 0xFFFU;
        SCOPED_TRACE(free);
        expect_exact<Digraph>({.n = 4, .free = free, .start = start});
        expect_exact<Digraph>({.n = 4, .free = free, .start = start & 0b001001001001U, .cap = 2});
    }
}

// Single steps from every digraph on three actors, the empty and the complete one among them.
TEST(TieNoTie, StepsAsItsDescriptionSays) {
    constexpr int kSteps = 20000;
    const World<Digraph> world({.n = 3});
    for (std::uint32_t code = 0; code < world.states(); ++code) {
        Distribution visits(world.states(), 0.0);
        Distribution expected(world.states(), 0.0);
        for (const auto& [to, probability] : world.step(code, true)) {
            expected[to] = probability;
        }
        Walker<Digraph> walker(world, code, 99 + code);
        const Digraph start = walker.network;
        const TieList ties = walker.ties;
        for (int k = 0; k < kSteps; ++k) {
            if (tie_no_tie_step(walker.chain) == 0) {
                visits[code] += 1.0 / kSteps;
            } else {
                visits[code_of_network(walker.network)] += 1.0 / kSteps;
                digraph_copy(start, walker.network);
                walker.ties = ties;
            }
        }
        EXPECT_LT(chi_square_distance(visits, expected, kSteps), 6.0) << code;
    }
}

template <class Network>
void expect_carried(int n) {
    const ChainModel<Network> model(
        terms_of(kDirected<Network> ? NetworkKind::directed : NetworkKind::undirected));
    Network network = random_network<Network>(model, n, 0.1, 3);
    const DyadSpace space(n, kDirected<Network>);
    TieList ties(n, kDirected<Network>);
    for (const auto& [i, j] : all_dyads<Network>(n)) {
        if (has_tie(network, i, j)) {
            ties.add({i, j});
        }
    }
    RandomStream random(5, 0);
    TieNoTieChain<Network> chain{network, model.active, model.parameters.data(),
                                 space,   ties,         random};
    tie_no_tie_prepare(chain);
    RunProgress progress;
    tie_no_tie_run(chain, 20000, progress);
    EXPECT_EQ(progress.work_done, 20000.0);
    EXPECT_EQ(ties.size(), tie_count(network));
    for (const Dyad& dyad : ties.ties()) {
        EXPECT_TRUE(has_tie(network, dyad.i, dyad.j));
    }
    const std::vector<double> carried = network.statistics;
    count_statistics(network, model.active);
    for (std::size_t m = 0; m < carried.size(); ++m) {
        EXPECT_NEAR(carried[m], network.statistics[m], 1e-9 * (1.0 + std::fabs(carried[m])));
    }
}

TEST(TieNoTie, CarriesStatisticsAndTies) {
    expect_carried<Graph>(40);
    expect_carried<Digraph>(30);
}

TEST(TieNoTie, StopsBetweenSteps) {
    const World<Graph> world({});
    Walker<Graph> walker(world, 0, 1);
    RunProgress progress;
    progress.stop = true;
    EXPECT_THROW(tie_no_tie_run(walker.chain, 10, progress), RunStopped);
    EXPECT_EQ(walker.network.edges, 0);
}

TEST(TieNoTie, WithoutFreeDyadsNothingMoves) {
    const World<Graph> world({.free = 0, .start = 0b11});
    Walker<Graph> walker(world, 0b11, 1);
    EXPECT_EQ(tie_no_tie_step(walker.chain), 0);
    EXPECT_EQ(walker.network.edges, 2);
}

TEST(TieNoTie, DrawsDyadsOfMoreActorsThanTheHostsGeneratorHasNumbers) {
    constexpr int kActors = 50000;
    for (const bool directed : {false, true}) {
        const DyadSpace space(kActors, directed);
        RandomStream random(2, 0);
        int beyond = 0;
        double mean = 0.0;
        constexpr int kDrawn = 20000;
        for (int k = 0; k < kDrawn; ++k) {
            const Dyad dyad = space.draw(random);
            ASSERT_TRUE(dyad.i != dyad.j && dyad.i >= 0 && dyad.j >= 0);
            ASSERT_TRUE(dyad.i < kActors && dyad.j < kActors);
            ASSERT_TRUE(directed || dyad.i < dyad.j);
            beyond += dyad.i >= 32768 || dyad.j >= 32768 ? 1 : 0;
            mean += (dyad.i + dyad.j) / (2.0 * kDrawn);
        }
        const double share = 1.0 - (32768.0 / kActors) * (32768.0 / kActors);
        EXPECT_NEAR(beyond, share * kDrawn, 5 * std::sqrt(kDrawn / 4.0));
        EXPECT_NEAR(mean, (kActors - 1) / 2.0, 5 * kActors / std::sqrt(24.0 * kDrawn));
    }
}

}  // namespace
