#include "study/dyad_independent.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "study/identification.h"
#include "study/study_chain.h"

namespace {

// One pair of actors: the changes of its one or two dyads, and which of its states it may be in. A
// state is the sum of its bits: 1 for the dyad i to j (the only one when undirected), 2 for j to i.
struct Pair {
    std::vector<double> first;         // i to j, without the way back
    std::vector<double> second;        // j to i, without the way back
    std::vector<double> second_after;  // j to i, beside i to j
    unsigned observed = 0;
    unsigned free = 0;
};

constexpr unsigned kStates = 4;

// Calls visit(pair) for each pair of actors with a free dyad.
template <class Network>
class PairWalk {
  public:
    PairWalk(const Study& study, const StudySelection& resolved)
        : study_(study),
          model_(active_model<Network>(resolved.selection)),
          network_(empty_network_for<Network>(static_cast<int>(study.network.actors.size()),
                                              resolved.selection,
                                              selection_size(resolved.selection))),
          observed_(bits_of(study.network.ties)) {
        if (study.dyads.restricted) {
            free_ = bits_of(study.dyads.free);
        }
        const std::vector<Dependence> dependences = effect_dependences(resolved);
        effects_.assign(resolved.places.size(), nullptr);
        for (std::size_t k = 0; k < effects_.size(); ++k) {
            for (const ActiveEffect<Network>& each : model_) {
                if (each.position == resolved.places[k] &&
                    dependences[k] != Dependence::other_dyads) {
                    effects_[k] = &each;
                    reverse_ = reverse_ || dependences[k] == Dependence::reverse_arc;
                }
            }
        }
    }

    template <class Visit>
    void each(Visit visit) {
        Pair pair;
        const auto p = effects_.size();
        pair.first.assign(p, 0.0);
        pair.second.assign(p, 0.0);
        pair.second_after.assign(p, 0.0);
        for (int i = 0; i < network_.vertices; ++i) {
            for (int j = i + 1; j < network_.vertices; ++j) {
                pair.free = state(free_, i, j, true);
                if (pair.free != 0) {
                    pair.observed = state(observed_, i, j, false);
                    look_at(i, j, pair);
                    visit(pair);
                }
            }
        }
    }

  private:
    BitMatrix bits_of(const std::vector<ActorTie>& ties) const {
        BitMatrix bits(static_cast<int>(study_.network.actors.size()));
        for (const ActorTie& tie : ties) {
            row_set(bits[tie.from], tie.to);
        }
        return bits;
    }

    static unsigned state(const std::optional<BitMatrix>& bits, int i, int j, bool without) {
        const bool there = bits ? bits->has(i, j) : without;
        const bool back = kDirected<Network> && (bits ? bits->has(j, i) : without);
        return (there ? 1U : 0U) + (back ? 2U : 0U);
    }

    void changes(int i, int j, std::vector<double>& change) {
        for (std::size_t k = 0; k < effects_.size(); ++k) {
            if (effects_[k] != nullptr) {
                change[k] = effects_[k]->change(network_, effects_[k]->data, i, j, 1);
            }
        }
    }

    // In the empty network; what these effects see of others is nothing.
    void look_at(int i, int j, Pair& pair) {
        changes(i, j, pair.first);
        if constexpr (kDirected<Network>) {
            changes(j, i, pair.second);
            if (reverse_) {
                add_bit(network_, i, j);
                changes(j, i, pair.second_after);
                remove_bit(network_, i, j);
            } else {
                pair.second_after = pair.second;
            }
        }
    }

    const Study& study_;
    ActiveModel<Network> model_;
    Network network_;
    std::optional<BitMatrix> observed_;
    std::optional<BitMatrix> free_;
    std::vector<const ActiveEffect<Network>*> effects_;  // null for those that depend on others
    bool reverse_ = false;
};

double product(const std::vector<double>& a, const std::vector<double>& b) {
    double sum = 0.0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        sum += a[k] * b[k];
    }
    return sum;
}

// The statistics of a state less those of the empty pair.
double state_statistic(const Pair& pair, unsigned state, std::size_t k) {
    switch (state) {
        case 1:
            return pair.first[k];
        case 2:
            return pair.second[k];
        case 3:
            return pair.first[k] + pair.second_after[k];
        default:
            return 0.0;
    }
}

bool may_be(const Pair& pair, unsigned state) {
    return ((state ^ pair.observed) & ~pair.free & (kStates - 1)) == 0;
}

// Sums over pairs. Pairs that are the same in everything are counted before they are evaluated: all
// of them where no attribute tells them apart.
class PairSum {
  public:
    PairSum(const std::vector<double>& parameters, bool derivatives)
        : parameters_(parameters), derivatives_(derivatives), mean_(parameters.size(), 0.0) {
        const auto p = static_cast<int>(parameters.size());
        sum_.gradient.assign(parameters.size(), 0.0);
        sum_.information = matrix_create(p, p, 0.0);
    }

    void add(const Pair& pair) {
        Alike& alike = alike_.at(std::size_t{pair.free} * kStates + pair.observed);
        if (alike.count > 0.0 && alike.pair.first == pair.first &&
            alike.pair.second == pair.second && alike.pair.second_after == pair.second_after) {
            alike.count += 1.0;
            return;
        }
        evaluate(alike);
        alike.pair = pair;
        alike.count = 1.0;
    }

    DyadicLikelihood total() {
        for (Alike& alike : alike_) {
            evaluate(alike);
            alike.count = 0.0;
        }
        return sum_;
    }

  private:
    struct Alike {
        Pair pair;
        double count = 0.0;
    };

    void evaluate(const Alike& alike) {
        if (alike.count == 0.0) {
            return;
        }
        const Pair& pair = alike.pair;
        const double first = product(parameters_, pair.first);
        const std::array<double, kStates> log_weights = {
            0.0, first, product(parameters_, pair.second),
            first + product(parameters_, pair.second_after)};
        double largest = log_weights.at(pair.observed);
        for (unsigned state = 0; state < kStates; ++state) {
            largest = may_be(pair, state) ? std::max(largest, log_weights.at(state)) : largest;
        }
        std::array<double, kStates> probabilities{};
        double total = 0.0;
        for (unsigned state = 0; state < kStates; ++state) {
            if (may_be(pair, state)) {
                probabilities.at(state) = std::exp(log_weights.at(state) - largest);
                total += probabilities.at(state);
            }
        }
        sum_.value += alike.count * (log_weights.at(pair.observed) - largest - std::log(total));
        if (derivatives_) {
            for (double& probability : probabilities) {
                probability /= total;
            }
            add_derivatives(pair, probabilities, alike.count);
        }
    }

    void add_derivatives(const Pair& pair, const std::array<double, kStates>& probabilities,
                         double count) {
        const std::size_t p = mean_.size();
        for (std::size_t k = 0; k < p; ++k) {
            mean_[k] = 0.0;
            for (unsigned state = 1; state < kStates; ++state) {
                mean_[k] += probabilities.at(state) * state_statistic(pair, state, k);
            }
            sum_.gradient[k] += count * (state_statistic(pair, pair.observed, k) - mean_[k]);
        }
        for (unsigned state = 0; state < kStates; ++state) {
            if (probabilities.at(state) == 0.0) {
                continue;
            }
            for (std::size_t k = 0; k < p; ++k) {
                const double weighted =
                    count * probabilities.at(state) * (state_statistic(pair, state, k) - mean_[k]);
                for (std::size_t m = 0; m < p; ++m) {
                    sum_.information[static_cast<int>(k)][static_cast<int>(m)] +=
                        weighted * (state_statistic(pair, state, m) - mean_[m]);
                }
            }
        }
    }

    const std::vector<double>& parameters_;
    bool derivatives_;
    DyadicLikelihood sum_;
    std::vector<double> mean_;
    // The last pair of each kind: by what is free, and by what was observed.
    std::array<Alike, std::size_t{kStates} * kStates> alike_;
};

template <class Network>
DyadicLikelihood sum_over_pairs(const Study& study, const StudySelection& resolved,
                                const std::vector<double>& parameters, bool derivatives) {
    PairSum sum(parameters, derivatives);
    PairWalk<Network>(study, resolved).each([&](const Pair& pair) { sum.add(pair); });
    return sum.total();
}

// The Newton step of those parameters; small in directions of which little is known. Empty where
// there is none.
std::vector<double> newton_step(const DyadicLikelihood& at) {
    const auto p = static_cast<int>(at.gradient.size());
    Matrix inverse = at.information;
    for (int k = 0; k < p; ++k) {
        inverse[k][k] = inverse[k][k] > 0.0 ? inverse[k][k] * (1.0 + 1e-6) + 1e-6 : 1.0;
    }
    if (matrix_invert(inverse, p) == 0) {
        return {};
    }
    std::vector<double> step(at.gradient.size(), 0.0);
    for (int k = 0; k < p; ++k) {
        for (int m = 0; m < p; ++m) {
            step[static_cast<std::size_t>(k)] +=
                inverse[k][m] * at.gradient[static_cast<std::size_t>(m)];
        }
    }
    return step;
}

bool all_within(const std::vector<double>& values, double bound) {
    return std::all_of(values.begin(), values.end(),
                       [bound](double value) { return std::fabs(value) <= bound; });
}

}  // namespace

DyadicLikelihood dyadic_likelihood(const Study& study, const StudySelection& resolved,
                                   const std::vector<double>& parameters, bool derivatives) {
    return study.network.directed
               ? sum_over_pairs<Digraph>(study, resolved, parameters, derivatives)
               : sum_over_pairs<Graph>(study, resolved, parameters, derivatives);
}

std::vector<double> dyadic_reference(const Study& study, const StudySelection& resolved) {
    constexpr int kMostSteps = 20;
    constexpr double kFarthest = 20.0;
    constexpr double kNearEnough = 1e-3;
    constexpr double kGrain = 1048576.0;
    std::vector<double> parameters(resolved.places.size(), 0.0);
    DyadicLikelihood at = dyadic_likelihood(study, resolved, parameters, true);
    for (int round = 0; round < kMostSteps; ++round) {
        const std::vector<double> step = newton_step(at);
        if (step.empty()) {
            break;
        }
        const double gain = product(step, at.gradient);
        std::vector<double> next = parameters;
        for (std::size_t k = 0; k < next.size(); ++k) {
            next[k] += step[k];
        }
        DyadicLikelihood there = dyadic_likelihood(study, resolved, next, true);
        if (!all_within(next, kFarthest) || !(there.value >= at.value)) {
            break;
        }
        parameters = std::move(next);
        at = std::move(there);
        if (gain < kNearEnough) {
            break;
        }
    }
    for (double& parameter : parameters) {
        parameter = std::round(parameter * kGrain) / kGrain;
    }
    return parameters;
}
