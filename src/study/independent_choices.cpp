#include "study/independent_choices.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "study/positive_matrix.h"

namespace {

using Odds = std::array<double, kMostAlternatives + 1>;

std::uint64_t hash_of(const double* cells, std::size_t count) {
    std::uint64_t hash = 0x9E3779B97F4A7C15ULL;
    for (std::size_t k = 0; k < count; ++k) {
        hash = (hash ^ std::bit_cast<std::uint64_t>(cells[k])) * 0xBF58476D1CE4E5B9ULL;
        hash ^= hash >> 29U;
    }
    return hash;
}

double product(const double* changes, const std::vector<double>& parameters) {
    double sum = 0.0;
    for (std::size_t k = 0; k < parameters.size(); ++k) {
        sum += changes[k] * parameters[k];
    }
    return sum;
}

double total(const ChoiceTable& table, int row) {
    double sum = 0.0;
    for (const double each : table.taken(row)) {
        sum += each;
    }
    return sum;
}

// Turns log-odds into probabilities; returns the log of the sum of their exponentials.
double normalise(Odds& odds, int alternatives) {
    const double largest = *std::max_element(odds.begin(), odds.begin() + alternatives + 1);
    double sum = 0.0;
    for (int s = 0; s <= alternatives; ++s) {
        double& each = odds[static_cast<std::size_t>(s)];
        each = std::exp(each - largest);
        sum += each;
    }
    for (int s = 0; s <= alternatives; ++s) {
        odds[static_cast<std::size_t>(s)] /= sum;
    }
    return largest + std::log(sum);
}

// What one row adds to value, gradient and information.
void add_row(const ChoiceTable& table, int row, const std::vector<double>& parameters,
             std::vector<double>& mean, ChoiceLikelihood& sum) {
    const int p = table.effects();
    const double choices = total(table, row);
    Odds odds{};
    for (int s = 1; s <= table.alternatives(); ++s) {
        odds[static_cast<std::size_t>(s)] = product(table.changes(row, s), parameters);
        sum.value +=
            table.taken(row)[static_cast<std::size_t>(s)] * odds[static_cast<std::size_t>(s)];
    }
    sum.value -= choices * normalise(odds, table.alternatives());
    std::fill(mean.begin(), mean.end(), 0.0);
    for (int s = 1; s <= table.alternatives(); ++s) {
        const double* changes = table.changes(row, s);
        const double weight = odds[static_cast<std::size_t>(s)];
        const double surplus = table.taken(row)[static_cast<std::size_t>(s)] - choices * weight;
        for (int i = 0; i < p; ++i) {
            mean[static_cast<std::size_t>(i)] += weight * changes[i];
            sum.gradient[static_cast<std::size_t>(i)] += surplus * changes[i];
        }
    }
    // Deviations from the row's mean, the empty outcome's among them.
    for (int s = 0; s <= table.alternatives(); ++s) {
        const double weight = choices * odds[static_cast<std::size_t>(s)];
        for (int i = 0; i < p; ++i) {
            const double at = s == 0 ? 0.0 : table.changes(row, s)[i];
            const double deviation = weight * (at - mean[static_cast<std::size_t>(i)]);
            for (int j = 0; j <= i && deviation != 0.0; ++j) {
                const double other = s == 0 ? 0.0 : table.changes(row, s)[j];
                sum.information[i][j] += deviation * (other - mean[static_cast<std::size_t>(j)]);
            }
        }
    }
}

// Sums of squares and products of the changes: what can be told apart at all.
Matrix products_of(const IndependentChoices& choices, int p) {
    Matrix products = matrix_create(p, p, 0.0);
    for (const ChoiceTable& table : choices) {
        for (int row = 0; row < table.rows(); ++row) {
            const double weight = total(table, row);
            for (int s = 1; s <= table.alternatives(); ++s) {
                const double* changes = table.changes(row, s);
                for (int i = 0; i < p; ++i) {
                    for (int j = 0; j < p; ++j) {
                        products[i][j] += weight * changes[i] * changes[j];
                    }
                }
            }
        }
    }
    return products;
}

// How much a direction speaks for the choices that were made: least and greatest over all outcomes
// that were taken and those that were not.
struct Support {
    double least = 0.0;
    double greatest = 0.0;
};

Support support_of(const IndependentChoices& choices, const std::vector<double>& direction) {
    Support support;
    for (const ChoiceTable& table : choices) {
        for (int row = 0; row < table.rows(); ++row) {
            Odds value{};
            for (int s = 1; s <= table.alternatives(); ++s) {
                value[static_cast<std::size_t>(s)] = product(table.changes(row, s), direction);
            }
            for (int s = 0; s <= table.alternatives(); ++s) {
                for (int other = 0; other <= table.alternatives(); ++other) {
                    const double gain =
                        value[static_cast<std::size_t>(s)] - value[static_cast<std::size_t>(other)];
                    if (table.taken(row)[static_cast<std::size_t>(s)] > 0.0) {
                        support.least = std::min(support.least, gain);
                        support.greatest = std::max(support.greatest, gain);
                    }
                }
            }
        }
    }
    return support;
}

// Whether the likelihood grows for ever in this direction.
bool separates(const IndependentChoices& choices, const std::vector<double>& direction) {
    constexpr double kRounding = 1e-7;
    // A step of a search that nears a maximum gets small; one that separates does not.
    constexpr double kWide = 0.1;
    const Support support = support_of(choices, direction);
    return support.greatest > kWide && support.least >= -kRounding * support.greatest;
}

std::vector<InfiniteEstimate> growing_effects(const std::vector<double>& direction,
                                              const Matrix& products) {
    constexpr double kPart = 1e-5;
    double largest = 0.0;
    std::vector<double> sizes;
    sizes.reserve(direction.size());
    for (std::size_t k = 0; k < direction.size(); ++k) {
        const int at = static_cast<int>(k);
        sizes.push_back(std::fabs(direction[k]) * std::sqrt(products[at][at]));
        largest = std::max(largest, sizes.back());
    }
    std::vector<InfiniteEstimate> growing;
    for (std::size_t k = 0; k < direction.size(); ++k) {
        if (sizes[k] > kPart * largest) {
            growing.push_back({static_cast<int>(k), direction[k] < 0.0 ? -1 : 1});
        }
    }
    return growing;
}

std::vector<int> free_effects(const std::vector<char>& held) {
    std::vector<int> free;
    for (std::size_t k = 0; k < held.size(); ++k) {
        if (held[k] == 0) {
            free.push_back(static_cast<int>(k));
        }
    }
    return free;
}

// The likelihood with `penalty[k]` x parameter^2 / 2 taken off.
ChoiceLikelihood penalised(const IndependentChoices& choices, const std::vector<double>& parameters,
                           const std::vector<double>& penalty) {
    ChoiceLikelihood found = choice_likelihood(choices, parameters);
    for (std::size_t k = 0; k < penalty.size(); ++k) {
        const int at = static_cast<int>(k);
        found.value -= 0.5 * penalty[k] * parameters[k] * parameters[k];
        found.gradient[k] -= penalty[k] * parameters[k];
        found.information[at][at] += penalty[k];
    }
    return found;
}

// One search; `penalty` is empty without one.
class Search {
  public:
    Search(const IndependentChoices& choices, std::vector<double> start,
           const std::vector<char>& held, std::vector<double> penalty)
        : choices_(choices),
          free_(free_effects(held)),
          penalty_(std::move(penalty)),
          at_(std::move(start)),
          here_(penalised(choices_, at_, penalty_)) {}

    // Whether the search has come to its end. A step that separates stands in `step`.
    enum class Step { went_up, arrived, separates, stuck };
    Step advance() {
        // Squared length of a last step, in standard errors.
        constexpr double kArrived = 1e-18;
        const auto lower = cholesky(submatrix(here_.information, free_));
        if (!lower) {
            return Step::stuck;
        }
        std::vector<double> gradient;
        gradient.reserve(free_.size());
        for (const int k : free_) {
            gradient.push_back(here_.gradient[static_cast<std::size_t>(k)]);
        }
        const std::vector<double> solved = cholesky_solve(*lower, gradient);
        step_.assign(at_.size(), 0.0);
        for (std::size_t k = 0; k < free_.size(); ++k) {
            step_[static_cast<std::size_t>(free_[k])] = solved[k];
        }
        if (penalty_.empty() && separates(choices_, step_)) {
            return Step::separates;
        }
        const bool last = inverse_form(*lower, gradient) < kArrived;
        return go(last) || last ? (last ? Step::arrived : Step::went_up) : Step::stuck;
    }

    const std::vector<double>& parameters() const { return at_; }
    const std::vector<double>& step() const { return step_; }
    const ChoiceLikelihood& likelihood() const { return here_; }
    const std::vector<int>& free() const { return free_; }

  private:
    // Takes the step, or the first of its halves that goes up.
    bool go(bool last) {
        constexpr int kHalvings = 40;
        double part = 1.0;
        for (int k = 0; k < (last ? 1 : kHalvings); ++k, part *= 0.5) {
            std::vector<double> there = at_;
            for (std::size_t i = 0; i < there.size(); ++i) {
                there[i] += part * step_[i];
            }
            ChoiceLikelihood found = penalised(choices_, there, penalty_);
            if (found.value >= here_.value - 1e-12 * std::fabs(here_.value)) {
                at_ = std::move(there);
                here_ = std::move(found);
                return true;
            }
        }
        return false;
    }

    const IndependentChoices& choices_;
    std::vector<int> free_;
    std::vector<double> penalty_;
    std::vector<double> at_;
    ChoiceLikelihood here_;
    std::vector<double> step_;
};

constexpr int kMostSteps = 200;

bool all_finite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(),
                       [](double value) { return std::isfinite(value); });
}

}  // namespace

void ChoiceTable::add(const double* changes, int taken) {
    taken_[static_cast<std::size_t>(find_row(changes))][static_cast<std::size_t>(taken)] += 1.0;
}

int ChoiceTable::find_row(const double* changes) {
    if (2 * (taken_.size() + 1) > slots_.size()) {
        grow();
    }
    const auto width = static_cast<std::size_t>(effects_) * static_cast<std::size_t>(alternatives_);
    // Minus zero is zero.
    const std::size_t end = cells_.size();
    for (std::size_t k = 0; k < width; ++k) {
        cells_.push_back(changes[k] + 0.0);
    }
    std::size_t slot = hash_of(cells_.data() + end, width) & (slots_.size() - 1);
    while (slots_[slot] >= 0) {
        const auto row = static_cast<std::size_t>(slots_[slot]);
        if (std::equal(cells_.begin() + static_cast<std::ptrdiff_t>(end), cells_.end(),
                       cells_.begin() + static_cast<std::ptrdiff_t>(row * width))) {
            cells_.resize(end);
            return slots_[slot];
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    slots_[slot] = static_cast<std::int32_t>(taken_.size());
    taken_.push_back({});
    return slots_[slot];
}

void ChoiceTable::grow() {
    constexpr std::size_t kLeast = 64;
    const auto width = static_cast<std::size_t>(effects_) * static_cast<std::size_t>(alternatives_);
    slots_.assign(std::max(kLeast, 2 * slots_.size()), -1);
    for (std::size_t row = 0; row < taken_.size(); ++row) {
        std::size_t slot = hash_of(cells_.data() + row * width, width) & (slots_.size() - 1);
        while (slots_[slot] >= 0) {
            slot = (slot + 1) & (slots_.size() - 1);
        }
        slots_[slot] = static_cast<std::int32_t>(row);
    }
}

ChoiceLikelihood choice_likelihood(const IndependentChoices& choices,
                                   const std::vector<double>& parameters) {
    const int p = static_cast<int>(parameters.size());
    ChoiceLikelihood sum;
    sum.gradient.assign(parameters.size(), 0.0);
    sum.information = matrix_create(p, p, 0.0);
    std::vector<double> mean(parameters.size(), 0.0);
    for (const ChoiceTable& table : choices) {
        for (int row = 0; row < table.rows(); ++row) {
            add_row(table, row, parameters, mean, sum);
        }
    }
    for (int i = 0; i < p; ++i) {
        for (int j = 0; j < i; ++j) {
            sum.information[j][i] = sum.information[i][j];
        }
    }
    return sum;
}

ChoiceEstimate maximise_choices(const IndependentChoices& choices, std::vector<double> start,
                                const std::vector<char>& held) {
    const int p = static_cast<int>(start.size());
    ChoiceEstimate estimate;
    estimate.parameters = start;
    if (!all_finite(start)) {
        return estimate;
    }
    const std::vector<int> free = free_effects(held);
    const Matrix products = products_of(choices, p);
    for (const int k : dependent_set(submatrix(products, free))) {
        estimate.dependent.push_back(free[static_cast<std::size_t>(k)]);
    }
    if (!estimate.dependent.empty()) {
        estimate.outcome = ChoiceOutcome::dependent;
        return estimate;
    }
    Search search(choices, std::move(start), held, {});
    Search::Step step = Search::Step::went_up;
    for (int k = 0; k < kMostSteps && step == Search::Step::went_up; ++k) {
        step = search.advance();
    }
    estimate.parameters = search.parameters();
    estimate.likelihood = search.likelihood();
    if (step == Search::Step::separates) {
        estimate.outcome = ChoiceOutcome::infinite;
        estimate.infinite = growing_effects(search.step(), products);
    } else if (const auto lower = cholesky(submatrix(estimate.likelihood.information, free));
               step == Search::Step::arrived && lower) {
        estimate.outcome = ChoiceOutcome::maximum;
        estimate.covariance = spread_matrix(cholesky_inverse(*lower), free, p);
    }
    return estimate;
}

std::vector<double> penalised_choices(const IndependentChoices& choices, std::vector<double> start,
                                      const std::vector<char>& held) {
    const int p = static_cast<int>(start.size());
    const Matrix products = products_of(choices, p);
    double count = 0.0;
    for (const ChoiceTable& table : choices) {
        for (int row = 0; row < table.rows(); ++row) {
            count += total(table, row);
        }
    }
    std::vector<double> penalty;
    penalty.reserve(start.size());
    for (int k = 0; k < p; ++k) {
        // A statistic that nothing moves keeps its start.
        penalty.push_back(products[k][k] > 0.0 ? products[k][k] / std::max(count, 1.0) : 1.0);
    }
    Search search(choices, std::move(start), held, penalty);
    for (int k = 0; k < kMostSteps && search.advance() == Search::Step::went_up; ++k) {
    }
    return search.parameters();
}
