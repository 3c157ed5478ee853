// Several chains over one study.
#include "study/study_chains.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <limits>
#include <map>
#include <mutex>
#include <set>
#include <stdexcept>

#include "study/study_chain.h"
#include "support/small_studies.h"

namespace {

struct Drawing {
    std::int64_t burn_in = 500;
    std::int64_t interval = 100;
    int samples = 20;
};

// Samples of chains on a study that stays alive beside them.
class Chains {
  public:
    explicit Chains(Study study, std::uint64_t seed = 1, int count = 8, int threads = 1)
        : study_(std::move(study)),
          resolved_(study_selection(study_)),
          chains(study_, resolved_, seed, count, threads) {
        EXPECT_TRUE(resolved_.ok());
    }

    ChainSamples run(const std::vector<double>& parameters, const Drawing& drawing = {},
                     const VisitSample& visit = {}) {
        return chains.run(parameters, drawing.burn_in, drawing.interval, drawing.samples, progress,
                          visit);
    }

    // Statistics of these ties, counted.
    std::vector<double> counted(std::vector<ActorTie> ties) const {
        Study study = study_;
        study.network.ties = std::move(ties);
        return StudyChains(study, resolved_, 1, 1, 1).observed();
    }

  private:
    Study study_;
    StudySelection resolved_;

  public:
    StudyChains chains;
    RunProgress progress;
};

const std::vector<double> kParameters = {-1.6, 0.3};
Study graph_study() { return ring_study(20, false, "edge,AT(2)"); }
Study digraph_study() { return ring_study(14, true, "arc,reciprocity"); }

TEST(StudyChains, ThreadsDoNotMatter) {
    for (const Study& study : {graph_study(), digraph_study()}) {
        std::vector<std::vector<double>> found;
        for (const int threads : {1, 2, 7}) {
            Chains chains(study, 7, 8, threads);
            chains.run(kParameters);
            found.push_back(chains.run(kParameters).statistics.cells);
            const auto more = chains.run({-1.0, 0.0}, {0, 37, 5}).statistics.cells;
            found.back().insert(found.back().end(), more.begin(), more.end());
        }
        EXPECT_EQ(found[0], found[1]);
        EXPECT_EQ(found[0], found[2]);
    }
}

TEST(StudyChains, GiveARowForEachSampleChainByChain) {
    Chains chains(graph_study(), 1, 3, 2);
    const ChainSamples drawn = chains.run(kParameters, {10, 5, 4});
    EXPECT_EQ(drawn.statistics.rows, 12);
    EXPECT_EQ(drawn.statistics.columns, 2);
    EXPECT_EQ(drawn.chain, (std::vector<int>{0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2}));
    EXPECT_EQ(drawn.draw, (std::vector<int>{0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3}));
    EXPECT_EQ(drawn.proposals, 3 * (10 + 4 * 5));
    EXPECT_EQ(chains.progress.work_done, drawn.proposals);
    EXPECT_EQ(chains.chains.chains(), 3);
    EXPECT_EQ(chains.chains.dyads(), 190.0);
    EXPECT_EQ(chains.chains.observed(), (std::vector<double>{20.0, 0.0}));
}

TEST(StudyChains, SeedsAndChainsAreStreamsOfTheirOwn) {
    Chains one(graph_study(), 1);
    Chains other(graph_study(), 2);
    const Matrix first = one.run(kParameters).statistics;
    EXPECT_NE(first.cells, other.run(kParameters).statistics.cells);
    std::set<std::vector<double>> chains;
    for (int chain = 0; chain < 8; ++chain) {
        chains.insert({first[chain * 20], first[chain * 20] + 40});
    }
    EXPECT_EQ(chains.size(), 8U);
    // A chain's numbers do not hang on how many others there are.
    Chains fewer(graph_study(), 1, 2);
    const Matrix two = fewer.run(kParameters).statistics;
    EXPECT_TRUE(std::equal(two.cells.begin(), two.cells.end(), first.cells.begin()));
}

TEST(StudyChains, GoOnFromWhereTheyStand) {
    for (const int threads : {1, 3}) {
        Chains whole(graph_study(), 5, 4, threads);
        Chains parts(graph_study(), 5, 4, threads);
        const Matrix together = whole.run(kParameters, {100, 50, 6}).statistics;
        const Matrix first = parts.run(kParameters, {100, 50, 2}).statistics;
        const Matrix second = parts.run(kParameters, {0, 50, 4}).statistics;
        for (int chain = 0; chain < 4; ++chain) {
            for (int draw = 0; draw < 6; ++draw) {
                const double* part =
                    draw < 2 ? first[chain * 2 + draw] : second[chain * 4 + draw - 2];
                EXPECT_EQ(together[chain * 6 + draw][0], part[0]);
                EXPECT_EQ(together[chain * 6 + draw][1], part[1]);
            }
        }
    }
}

TEST(StudyChains, RestartAtTheObservedNetwork) {
    Chains chains(graph_study(), 5, 4, 2);
    chains.run({1.0, 0.0});
    chains.chains.restart();
    const Matrix still = chains.run(kParameters, {0, 0, 1}).statistics;
    for (int chain = 0; chain < 4; ++chain) {
        EXPECT_EQ(still[chain][0], 20.0);
        EXPECT_EQ(still[chain][1], 0.0);
    }
}

TEST(StudyChains, StatisticsAreThoseOfTheNetworksHandedOver) {
    for (const Study& study : {graph_study(), digraph_study()}) {
        Chains chains(study, 3, 5, 3);
        std::mutex guard;
        std::map<std::pair<int, int>, std::vector<ActorTie>> seen;
        std::vector<int> next(5, 0);
        const ChainSamples drawn =
            chains.run(kParameters, {}, [&](int chain, int draw, const SampledNetwork& network) {
                const std::lock_guard<std::mutex> lock(guard);
                EXPECT_EQ(draw, next[static_cast<std::size_t>(chain)]++);
                seen[{chain, draw}] = ties_of(network);
            });
        ASSERT_EQ(seen.size(), 100U);
        for (int row = 0; row < drawn.statistics.rows; ++row) {
            const auto at = static_cast<std::size_t>(row);
            const auto counted = chains.counted(seen[{drawn.chain[at], drawn.draw[at]}]);
            for (std::size_t m = 0; m < 2; ++m) {
                ASSERT_NEAR(drawn.statistics[row][static_cast<int>(m)], counted[m], 1e-9);
            }
        }
    }
}

TEST(StudyChains, IndependentTiesHaveTheirLogOdds) {
    const double p = 1.0 / (1.0 + std::exp(1.5));
    for (const bool directed : {false, true}) {
        const double n = directed ? 380 : 190;
        Chains chains(ring_study(20, directed, directed ? "arc" : "edge"), 1, 8, 2);
        const Matrix drawn = chains.run({-1.5}, {3000, 1500, 500}).statistics;
        double sum = 0.0;
        double squares = 0.0;
        for (const double ties : drawn.cells) {
            sum += ties - n * p;
            squares += (ties - n * p) * (ties - n * p);
        }
        EXPECT_NEAR(sum / 4000, 0.0, 5 * std::sqrt(n * p * (1 - p) / 4000));
        EXPECT_NEAR(squares / 4000 / (n * p * (1 - p)), 1.0, 5 * std::sqrt(2.0 / 4000));
    }
}

TEST(StudyChains, ChangeFreeDyadsAlone) {
    Study study = ring_study(8, false, "edge");
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 2}, {3, 4}};
    Chains chains(study, 1, 4, 2);
    EXPECT_EQ(chains.chains.dyads(), 3.0);
    std::mutex guard;
    std::set<std::vector<ActorTie>> seen;
    chains.run({0.0}, {0, 5, 100}, [&](int, int, const SampledNetwork& network) {
        const std::lock_guard<std::mutex> lock(guard);
        seen.insert(ties_of(network));
    });
    EXPECT_EQ(seen.size(), 8U);
    for (const auto& ties : seen) {
        const std::set<ActorTie> now(ties.begin(), ties.end());
        for (const ActorTie& tie : study.network.ties) {
            EXPECT_TRUE(now.count(tie) > 0 || tie == (ActorTie{0, 1}) || tie == (ActorTie{3, 4}));
        }
        EXPECT_LE(now.size(), 9U);
    }
}

TEST(StudyChains, KeepWithinTheCap) {
    for (const bool directed : {false, true}) {
        Study study = ring_study(10, directed, directed ? "arc" : "edge");
        study.dyads.max_degree = 3;
        Chains chains(study, 1, 4, 2);
        std::atomic<int> most = 0;
        chains.run({1.0}, {}, [&](int, int, const SampledNetwork& network) {
            for (const int degree :
                 directed ? network.digraph->out_degree : network.graph->degree) {
                most = std::max(most.load(), degree);
            }
        });
        EXPECT_EQ(most, 3);
    }
}

TEST(StudyChains, StopWhenAskedAndStandWhereTheyStood) {
    for (const int threads : {1, 3}) {
        Chains chains(graph_study(), 5, 4, threads);
        Chains undisturbed(graph_study(), 5, 4, 1);
        EXPECT_THROW(
            chains.run(kParameters, {},
                       [&](int, int, const SampledNetwork&) { chains.progress.stop = true; }),
            RunStopped);
        chains.progress.stop = false;
        EXPECT_EQ(chains.run(kParameters).statistics.cells,
                  undisturbed.run(kParameters).statistics.cells);
    }
}

TEST(StudyChains, CarryWhatIsThrownToTheCaller) {
    for (const int threads : {1, 3}) {
        Chains chains(graph_study(), 5, 4, threads);
        EXPECT_THROW(chains.run(kParameters, {},
                                [](int chain, int draw, const SampledNetwork&) {
                                    if (chain == 2 && draw == 3) {
                                        throw std::invalid_argument("no more");
                                    }
                                }),
                     std::invalid_argument);
        EXPECT_EQ(chains.run(kParameters).statistics.rows, 80);
    }
}

TEST(StudyChains, ParametersThatAreNotNumbersMoveNothing) {
    Chains chains(graph_study(), 1, 2, 1);
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double ties : chains.run({none, none}).statistics.cells) {
        EXPECT_TRUE(ties == 20.0 || ties == 0.0);
    }
}

// Keeps one of two threads at chain 1 while the other carries out the rest, so that it lags behind.
class Rendezvous {
  public:
    void at(int chain) {
        std::unique_lock<std::mutex> lock(mutex_);
        ++visited_;
        changed_.notify_all();
        // A machine that gives no second thread is not waited for for ever.
        const auto patience = std::chrono::milliseconds(200);
        if (chain == 0) {
            changed_.wait_for(lock, patience, [this] { return visited_ >= 2; });
        } else if (chain == 1) {
            changed_.wait_for(lock, patience, [this] { return visited_ >= 8; });
        }
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int visited_ = 0;
};

// What a thread still holds of a chain may be older than the chain.
TEST(StudyChains, AChainThatAnotherThreadCarriedOnIsTakenAsItIs) {
    const Study study = ring_study(12, false, "edge,2-star");
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    StudyChains one(study, resolved, 3, 8, 1);
    StudyChains two(study, resolved, 3, 8, 2);
    const std::vector<double> at = {-1.0, 0.01};
    for (int run = 0; run < 20; ++run) {
        Rendezvous meeting;
        const ChainSamples apart =
            two.run(at, 0, 20, 1, progress,
                    [&](int chain, int, const SampledNetwork&) { meeting.at(chain); });
        ASSERT_EQ(one.run(at, 0, 20, 1, progress).statistics.cells, apart.statistics.cells) << run;
        ASSERT_EQ(one.run(at, 0, 20, 1, progress).statistics.cells,
                  two.run(at, 0, 20, 1, progress).statistics.cells)
            << run;
    }
}

}  // namespace
