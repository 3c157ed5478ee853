#include "study/enumeration.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>

#include "base/no_number.h"
#include "study/positive_matrix.h"

namespace {

constexpr int kMostSteps = 200;

// How many networks have these statistics.
using Histogram = std::map<std::vector<double>, double>;

std::size_t cell(int i, int j, int n) {
    return static_cast<std::size_t>(i) * static_cast<std::size_t>(n) + static_cast<std::size_t>(j);
}

void tie(const ActorTie& each, const StudyNetwork& network, TieCells& ties) {
    const int n = static_cast<int>(network.actors.size());
    ties[cell(each.from, each.to, n)] = 1;
    if (!network.directed) {
        ties[cell(each.to, each.from, n)] = 1;
    }
}

std::vector<ActorTie> all_dyads(const StudyNetwork& network) {
    const int n = static_cast<int>(network.actors.size());
    std::vector<ActorTie> dyads;
    for (int i = 0; i < n; ++i) {
        for (int j = network.directed ? 0 : i + 1; j < n; ++j) {
            if (i != j) {
                dyads.push_back({i, j});
            }
        }
    }
    return dyads;
}

Histogram all_networks(const StudyNetwork& network, const CountStatistics& count) {
    const int n = static_cast<int>(network.actors.size());
    const std::vector<ActorTie> dyads = all_dyads(network);
    Histogram histogram;
    for (std::uint32_t code = 0; code < std::uint32_t{1} << dyads.size(); ++code) {
        TieCells ties(cell(n, 0, n), 0);
        for (std::size_t k = 0; k < dyads.size(); ++k) {
            if ((code >> k & 1U) != 0) {
                tie(dyads[k], network, ties);
            }
        }
        histogram[count(ties, n)] += 1.0;
    }
    return histogram;
}

double product(const std::vector<double>& a, const std::vector<double>& b) {
    double sum = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        sum += a[k] * b[k];
    }
    return sum;
}

// The distribution at parameters, as far as Newton's method needs it.
struct Moments {
    double log_likelihood = 0.0;
    std::vector<double> mean;
    Matrix covariance;
};

Moments moments_at(const std::vector<double>& parameters, const Histogram& histogram,
                   const std::vector<double>& observed) {
    const std::size_t p = observed.size();
    Moments moments{0.0, std::vector<double>(p, 0.0),
                    matrix_create(static_cast<int>(p), static_cast<int>(p), 0.0)};
    double total = 0.0;
    const double level = product(parameters, observed);
    const auto weight = [&](const auto& entry) {
        return entry.second * std::exp(product(parameters, entry.first) - level);
    };
    for (const auto& entry : histogram) {
        total += weight(entry);
        for (std::size_t k = 0; k < p; ++k) {
            moments.mean[k] += weight(entry) * entry.first[k];
        }
    }
    for (double& each : moments.mean) {
        each /= total;
    }
    for (const auto& entry : histogram) {
        for (std::size_t i = 0; i < p; ++i) {
            for (std::size_t j = 0; j < p; ++j) {
                moments.covariance[static_cast<int>(i)][static_cast<int>(j)] +=
                    weight(entry) / total * (entry.first[i] - moments.mean[i]) *
                    (entry.first[j] - moments.mean[j]);
            }
        }
    }
    moments.log_likelihood = -std::log(total);
    return moments;
}

ExactAnswers answers_at(const std::vector<double>& parameters, const Moments& moments,
                        const Matrix& lower) {
    ExactAnswers answers{parameters, {}, moments.log_likelihood};
    const Matrix covariance = cholesky_inverse(lower);
    for (int k = 0; k < covariance.rows; ++k) {
        answers.standard_errors.push_back(std::sqrt(covariance[k][k]));
    }
    return answers;
}

}  // namespace

ExactAnswers enumerate_answers(const StudyNetwork& network, const CountStatistics& count) {
    const int n = static_cast<int>(network.actors.size());
    TieCells ties(cell(n, 0, n), 0);
    for (const ActorTie& each : network.ties) {
        tie(each, network, ties);
    }
    const std::vector<double> observed = count(ties, n);
    const Histogram histogram = all_networks(network, count);
    std::vector<double> parameters(observed.size(), 0.0);
    double share = 1.0;
    Moments moments = moments_at(parameters, histogram, observed);
    for (int step = 0; step < kMostSteps; ++step) {
        const std::optional<Matrix> lower = cholesky(moments.covariance);
        if (!lower) {
            break;
        }
        std::vector<double> gap = observed;
        for (std::size_t k = 0; k < gap.size(); ++k) {
            gap[k] -= moments.mean[k];
        }
        const std::vector<double> direction = cholesky_solve(*lower, gap);
        // The squares of standard errors, too, grow with a parameter that has no maximum; its steps
        // do not become smaller.
        if (product(direction, gap) < 1e-24 && product(direction, direction) < 1e-18) {
            return answers_at(parameters, moments, *lower);
        }
        std::vector<double> next = parameters;
        for (std::size_t k = 0; k < next.size(); ++k) {
            next[k] += share * direction[k];
        }
        Moments there = moments_at(next, histogram, observed);
        if (there.log_likelihood >= moments.log_likelihood - 1e-12) {
            parameters = std::move(next);
            moments = std::move(there);
            share = 1.0;
        } else {
            share /= 2.0;
        }
    }
    const std::vector<double> none(observed.size(), kNoNumber);
    return {none, none, kNoNumber};
}

std::vector<double> count_edges_and_alternating_triangles(const TieCells& ties, int actors) {
    double edges = 0.0;
    double triangles = 0.0;
    for (int i = 0; i < actors; ++i) {
        for (int j = i + 1; j < actors; ++j) {
            if (ties[cell(i, j, actors)] == 0) {
                continue;
            }
            int common = 0;
            for (int k = 0; k < actors; ++k) {
                common += ties[cell(i, k, actors)] * ties[cell(j, k, actors)];
            }
            edges += 1.0;
            triangles += 2.0 * (1.0 - std::pow(0.5, common));
        }
    }
    return {edges, triangles};
}

std::vector<double> count_arcs_mutuals_and_transitive_triads(const TieCells& ties, int actors) {
    double arcs = 0.0;
    double mutuals = 0.0;
    double transitive = 0.0;
    for (int i = 0; i < actors; ++i) {
        for (int k = 0; k < actors; ++k) {
            if (ties[cell(i, k, actors)] == 0) {
                continue;
            }
            arcs += 1.0;
            mutuals += i < k ? ties[cell(k, i, actors)] : 0.0;
            for (int j = 0; j < actors; ++j) {
                transitive += ties[cell(i, j, actors)] * ties[cell(j, k, actors)];
            }
        }
    }
    return {arcs, mutuals, transitive};
}
