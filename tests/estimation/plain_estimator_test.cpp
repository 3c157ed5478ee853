// The estimator against a plain twin that keeps every sample: all doubles must agree, what one
// phase leaves in the scaling matrix for the next included.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/estimation_runs.h"

namespace {

using Rows = std::vector<std::vector<double>>;

template <class Network>
class PlainEstimator {
  public:
    PlainEstimator(const std::vector<ModelTerm>& terms, const Network& observed)
        : model_(terms), observed_(observed), parameters(model_.parameters) {
        observed_.statistics.assign(parameters.size(), 0.0);
        count_statistics(observed_, model_.active);
        scaling = matrix_create(model_.size(), model_.size(), 0.0);
    }

    bool estimate(std::uint32_t clock, const EstimationSettings& settings, int proposal_kind) {
        Network network = observed_;
        RandomSource random{clock, {}};
        Chain<Network> chain = test_chain(network, model_, random, proposal_kind);
        chain.parameters = parameters.data();
        const double n = network.vertices;
        const double d = network_density(network);
        const double length = d * settings.multiplication_factor * (1.0 - d) * n * n;
        const auto step = [&] {
            for (int proposal = 0; proposal < std::ceil(length); ++proposal) {
                chain_step(chain);
            }
            return network.statistics;
        };
        const std::size_t p = parameters.size();
        Rows samples;
        for (std::size_t s = 0; s < 7 + 3 * p; ++s) {
            samples.push_back(step());
        }
        add_covariance(samples);
        if (matrix_invert(scaling, static_cast<int>(p)) == 0) {
            return 0;
        }
        double gain = static_cast<double>(settings.a_value);
        for (int k = 0; k < settings.sub_phases; ++k) {
            gain = k == 1 ? gain * 2.0 : gain;
            steps_made.push_back(sub_phase(k, gain, step, network));
            gain /= 2.0;
        }
        random.state = clock;
        for (double c = 0.0; c < settings.phase3_steps * 0.1 * length; c += 1.0) {
            chain_step(chain);
        }
        samples.clear();
        for (int s = 0; s < settings.phase3_steps; ++s) {
            samples.push_back(step());
        }
        const std::vector<double> means = add_covariance(samples);
        int converged = 1;
        for (std::size_t i = 0; i < p; ++i) {
            const int place = static_cast<int>(i);
            const double t =
                (observed_.statistics[i] - means[i]) / std::sqrt(scaling[place][place]);
            t_ratios.push_back(t);
            converged = std::fabs(t) < 0.1 ? converged : 0;
        }
        matrix_invert(scaling, static_cast<int>(p));
        return converged;
    }

  private:
    ChainModel<Network> model_;
    Network observed_;

  public:
    std::vector<double> parameters;
    Matrix scaling;
    std::vector<int> steps_made;
    std::vector<double> t_ratios;

  private:
    // What the matrix holds already stays in the sum.
    std::vector<double> add_covariance(const Rows& samples) {
        const std::size_t p = parameters.size();
        const auto count = static_cast<double>(samples.size());
        std::vector<double> means(p, 0.0);
        for (const std::vector<double>& sample : samples) {
            for (std::size_t i = 0; i < p; ++i) {
                means[i] += sample[i];
            }
        }
        for (double& value : means) {
            value /= count;
        }
        for (std::size_t i = 0; i < p; ++i) {
            for (std::size_t j = 0; j < p; ++j) {
                double& cell = scaling[static_cast<int>(i)][static_cast<int>(j)];
                for (const std::vector<double>& sample : samples) {
                    cell += (sample[i] - means[i]) * (sample[j] - means[j]);
                }
                cell /= count;
            }
        }
        return means;
    }

    template <class Step>
    int sub_phase(int k, double gain, Step step, const Network& network) {
        const std::size_t p = parameters.size();
        const double least = std::pow(2.0, 4.0 * k / 3.0) * (static_cast<double>(p) + 7.0);
        std::vector<double> lags(p, 0.0);
        std::vector<double> sums(p, 0.0);
        int made = 0;
        while (made < least + 200.0) {
            bool negative = true;
            for (const double lag : lags) {
                negative = negative && lag < 0.0;
            }
            if (made > least && negative) {
                break;
            }
            const std::vector<double> before = network.statistics;
            const std::vector<double> now = step();
            for (std::size_t i = 0; i < p; ++i) {
                for (std::size_t j = 0; j < p; ++j) {
                    parameters[i] -= (now[j] - observed_.statistics[j]) * gain *
                                     scaling[static_cast<int>(j)][static_cast<int>(i)];
                }
                lags[i] +=
                    (now[i] - observed_.statistics[i]) * (before[i] - observed_.statistics[i]);
                sums[i] += parameters[i];
            }
            ++made;
        }
        if (k > 0) {
            for (std::size_t i = 0; i < p; ++i) {
                parameters[i] = sums[i] / made;
            }
        }
        return made;
    }
};

template <class Network>
void expect_twins(const std::vector<ModelTerm>& terms, const Network& observed,
                  const EstimationSettings& settings, int proposal_kind = 0) {
    EstimationRun<Network> run(terms, observed);
    run.settings = settings;
    run.proposal_kind = proposal_kind;
    PlainEstimator<Network> plain(terms, observed);
    // Runs of one estimation go on from each other's parameters and scaling matrix.
    for (const std::uint32_t clock : {500U, 501U, 502U}) {
        ASSERT_EQ(run.estimate(clock), plain.estimate(clock, settings, proposal_kind));
        ASSERT_EQ(run.parameters, plain.parameters);
        ASSERT_EQ(run.scaling_matrix.cells, plain.scaling.cells);
    }
    std::string lengths;
    for (std::size_t s = 0; s < plain.steps_made.size(); ++s) {
        const std::string number =
            std::to_string(s % static_cast<std::size_t>(settings.sub_phases));
        lengths = "\nSubphase ";
        lengths += number;
        lengths += " has gone up to " + std::to_string(plain.steps_made[s]) + " steps\n";
        EXPECT_NE(run.log().find(lengths), std::string::npos) << lengths;
    }
}

// Gains halve and double without rounding here, so that the plain twin may keep them in double.
constexpr EstimationSettings kSettings = {.sub_phases = 4,
                                          .a_value = 0.125F,
                                          .multiplication_factor = 3,
                                          .phase3_steps = 150,
                                          .estimation_runs = 1};

TEST(PlainEstimator, AgreesOnGraphsUnderBothProposals) {
    const Graph graph = random_network(ChainModel<Graph>({}), 9, 0.4, 12);
    expect_twins<Graph>({{"edge", -0.4}}, graph, kSettings);
    expect_twins<Graph>({{"edge", -0.4}, {"2-star", 0.0}, {"AT", 0.0, 2.0F}}, graph, kSettings);
    expect_twins<Graph>({{"2-star", 0.0}, {"Triangle", 0.0}}, graph, kSettings, 1);
}

TEST(PlainEstimator, AgreesOnDigraphsUnderEveryProposal) {
    const Digraph digraph = random_network(ChainModel<Digraph>({}), 8, 0.35, 12);
    expect_twins<Digraph>({{"arc", -0.4}, {"reciprocity", 0.0}}, digraph, kSettings);
    expect_twins<Digraph>({{"reciprocity", 0.0}, {"in2star", 0.0}}, digraph, kSettings, 1);
    expect_twins<Digraph>({{"reciprocity", 0.0}, {"in2star", 0.0}}, digraph, kSettings, 2);
}

TEST(PlainEstimator, AgreesWithoutASecondPhase) {
    EstimationSettings settings = kSettings;
    settings.sub_phases = 0;
    const Graph graph = random_network(ChainModel<Graph>({}), 9, 0.4, 12);
    EstimationRun<Graph> run({{"edge", -0.4}}, graph);
    run.settings = settings;
    PlainEstimator<Graph> plain({{"edge", -0.4}}, graph);
    EXPECT_EQ(run.estimate(77), plain.estimate(77, settings, 0));
    EXPECT_EQ(run.parameters, std::vector<double>({-0.4}));
    EXPECT_EQ(run.scaling_matrix.cells, plain.scaling.cells);
}

}  // namespace
