#include "study/constant_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "base/random_stream.h"

namespace {

// Intervals before the first sample at a point: three autocorrelation times.
constexpr std::int64_t kBurnIn = 6;
// Samples in one autocorrelation time.
constexpr double kSamplesATime = 2.0;
constexpr int kMostPoints = 200;
// A dyad of the controls costs about half a proposal: nothing is drawn for it, and nothing put in
// the tables.
constexpr double kDyadCost = 0.5;
// The error found by comparing chains may be larger by so much: it is known of a few chains only.
constexpr double kSlack = 1.15;

// Boole's rule over a cell of width 1; and what it differs by from Simpson's rule on the same five
// points.
constexpr std::array<double, 5> kBoole = {7.0 / 90, 32.0 / 90, 12.0 / 90, 32.0 / 90, 7.0 / 90};
constexpr std::array<double, 5> kAgainstSimpson = {-1.0 / 180, 4.0 / 180, -6.0 / 180, 4.0 / 180,
                                                   -1.0 / 180};

// Proposals between samples that the autocorrelation asks for. What few samples tell may be far
// off, and of those that are independent only that they are too far apart.
std::int64_t better_interval(double times, std::int64_t interval) {
    constexpr double kIndependent = 1.2;
    constexpr double kMostChange = 4.0;
    const double factor = times < kIndependent
                              ? 1.0 / kMostChange
                              : std::clamp(times / kSamplesATime, 1.0 / kMostChange, kMostChange);
    return std::max<std::int64_t>(1, std::llround(factor * static_cast<double>(interval)));
}

// Samples of each chain that so many controls take at a point.
int least_samples(int controls, int chains) {
    constexpr int kLeast = 3;
    constexpr int kAControl = 4;
    return std::max(kLeast, (kAControl * (controls + 1) + chains - 1) / chains);
}

// Controls leave a thirtieth of the variance or less in all but small or nearly degenerate models,
// and save as many samples; but a few networks at each point must be affordable.
bool pays(double measuring, std::int64_t interval, const LikelihoodSettings& settings) {
    constexpr double kMostIntervals = 100.0;
    constexpr double kMostNetworks = 60.0;
    return measuring <= kMostIntervals * static_cast<double>(interval) &&
           measuring * kMostNetworks <= 2.0 * settings.most_proposals;
}

}  // namespace

ConstantPath::ConstantPath(const Study& study, const StudySelection& resolved,
                           std::vector<double> from, std::vector<double> to, std::uint64_t seed,
                           const LikelihoodSettings& settings, RunProgress& progress)
    : settings_(settings),
      from_(std::move(from)),
      to_(std::move(to)),
      progress_(progress),
      chains_(study, resolved, mixed_bits(seed ^ 0x6C696B656C69686FU), std::max(settings.chains, 2),
              settings.threads),
      controls_(study, resolved),
      tied_(study.network.ties.size()) {}

double ConstantPath::walk() {
    progress_part(progress_);
    progress_start(progress_, RunStage::likelihood, 0.0);
    const std::int64_t interval = first_interval();
    const double measuring = kDyadCost * chains_.dyads();
    measuring_ = pays(measuring, interval, settings_) ? measuring : 0.0;
    add_points(cells_.front(), interval);
    evaluate();
    for (bool up = true; split_cell() || draw_missing(up); up = !up) {
        evaluate();
    }
    return value_;
}

// Networks of every chain at a place of the line; their log-odds, and the controls where they are
// measured, are added to `drawn`.
void ConstantPath::run(double at, std::int64_t burn_in, std::int64_t interval, int samples,
                       bool controlled, ControlledSamples& drawn) {
    const std::size_t p = from_.size();
    std::vector<double> parameters = from_;
    for (std::size_t k = 0; k < p; ++k) {
        parameters[k] += at * (to_[k] - from_[k]);
    }
    const auto chains = static_cast<std::size_t>(chains_.chains());
    drawn.controls = controlled ? static_cast<int>(p) : 0;
    drawn.values.resize(chains);
    drawn.zeros.resize(chains);
    VisitSample visit;
    if (controlled) {
        visit = [&](int chain, int, const SampledNetwork& network) {
            std::vector<double>& zeros = drawn.zeros[static_cast<std::size_t>(chain)];
            zeros.resize(zeros.size() + p);
            controls_.measure(network, parameters, zeros.data() + zeros.size() - p);
        };
    }
    const ChainSamples found =
        chains_.run(parameters, burn_in, interval, samples, progress_, visit);
    proposals_ += found.proposals;
    spent_ += found.proposals + (controlled ? measuring_ * found.statistics.rows : 0.0);
    for (int row = 0; row < found.statistics.rows; ++row) {
        double log_odds = 0.0;
        for (std::size_t k = 0; k < p; ++k) {
            log_odds += (to_[k] - from_[k]) *
                        (found.statistics[row][static_cast<int>(k)] - chains_.observed()[k]);
        }
        drawn.values[static_cast<std::size_t>(found.chain[static_cast<std::size_t>(row)])]
            .push_back(log_odds);
    }
}

void ConstantPath::draw(Point& point, std::int64_t burn_in, int samples) {
    run(point.at, burn_in * point.interval, point.interval, samples, measuring_ > 0.0,
        point.samples);
    point.mean = controlled_mean(point.samples);
}

// Proposals between samples that a place of the line asks for, the chains coming from one that
// asked for `interval`. What is drawn is thrown away: it brings them all the way there.
std::int64_t ConstantPath::interval_at(double at, std::int64_t interval) {
    constexpr int kSamples = 12;
    ControlledSamples drawn;
    run(at, kBurnIn * interval, interval, kSamples, false, drawn);
    return better_interval(controlled_mean(drawn).raw_time, interval);
}

// At the far end, where chains start near where they belong.
std::int64_t ConstantPath::first_interval() {
    constexpr int kRounds = 8;
    auto interval = static_cast<std::int64_t>(tied_ / 2 + 16);
    for (int round = 0; round < kRounds && spent_ < settings_.most_proposals / 10.0; ++round) {
        const std::int64_t before = std::exchange(interval, interval_at(1.0, interval));
        if (interval <= 2 * before) {
            break;
        }
    }
    return interval;
}

// Of each chain: enough for the controls, some more where that is affordable, and many where they
// cost little: what networks that are seldom drawn add to the mean is not seen in a few.
int ConstantPath::first_samples(std::int64_t interval) const {
    constexpr double kAffordable = 0.1;
    constexpr double kLittle = 0.02;
    constexpr double kSome = 16.0;
    constexpr double kMany = 150.0;
    const int least = measuring_ > 0.0
                          ? least_samples(static_cast<int>(from_.size()), chains_.chains())
                          : static_cast<int>(kSome);
    const double all = settings_.most_proposals / (kCellPoints * chains_.chains() * cost(interval));
    return std::max(least, static_cast<int>(std::max(std::min(kAffordable * all, kSome),
                                                     std::min(kLittle * all, kMany))));
}

// The points of a cell that are not there yet, from above, each from where the one before left the
// chains.
void ConstantPath::add_points(const Cell& cell, std::int64_t interval) {
    for (int k = kCellPoints - 1; k >= 0; --k) {
        Point point;
        point.at = cell.place(k);
        const auto place =
            std::lower_bound(points_.begin(), points_.end(), point.at,
                             [](const Point& each, double at) { return each.at < at; });
        if (place != points_.end() && place->at == point.at) {
            interval = place->interval;
            continue;
        }
        if (point.at < 1.0) {
            interval = interval_at(point.at, interval);
        }
        point.interval = interval;
        draw(point, 0, first_samples(interval));
        points_.insert(place, std::move(point));
    }
}

ConstantPath::Point& ConstantPath::point_at(double at) {
    return *std::lower_bound(points_.begin(), points_.end(), at,
                             [](const Point& each, double place) { return each.at < place; });
}

// Of one sample, in proposals.
double ConstantPath::cost(std::int64_t interval) const {
    return static_cast<double>(interval) + measuring_;
}

// What a point adds to the error: with P proposals at every point the squared error is the sum of
// squared loads / P; shares in proportion to the loads give the least error for a number of
// proposals in all, its square being (sum of loads)^2 / all.
double ConstantPath::load(const Point& point) const {
    return point.weight * point.mean.deviation * std::sqrt(point.mean.time * cost(point.interval));
}

double ConstantPath::loads() const {
    return std::accumulate(points_.begin(), points_.end(), 0.0,
                           [this](double sum, const Point& point) { return sum + load(point); });
}

// The wanted error: a third of what is allowed while that is cheap, so that hardly any seed is
// further off than what is allowed.
double ConstantPath::aim() const {
    constexpr double kCheap = 3e6;
    constexpr double kSmallest = 0.33;
    constexpr double kLargest = 0.95;
    return std::clamp(loads() / std::sqrt(kCheap), kSmallest * settings_.precision,
                      kLargest * settings_.precision);
}

// What the samples say of the means.
double ConstantPath::sampling_error() const {
    double squares = 0.0;
    for (const Point& point : points_) {
        const double error = point.weight * point.mean.error(point.samples.count());
        squares += error * error;
    }
    return std::sqrt(squares);
}

// What the chains differ by.
double ConstantPath::chain_error() const {
    const int chains = chains_.chains();
    double squares = 0.0;
    for (int chain = 0; chain < chains; ++chain) {
        double difference = 0.0;
        for (const Point& point : points_) {
            difference += point.weight *
                          (point.mean.by_chain[static_cast<std::size_t>(chain)] - point.mean.value);
        }
        squares += difference * difference;
    }
    return std::sqrt(squares / (chains * (chains - 1.0)));
}

ConstantPath::RuleError ConstantPath::rule_error(const Cell& cell) {
    double difference = 0.0;
    double squares = 0.0;
    for (int k = 0; k < kCellPoints; ++k) {
        const Point& point = point_at(cell.place(k));
        const double weight = cell.width * kAgainstSimpson[static_cast<std::size_t>(k)];
        const double noise = weight * point.mean.error(point.samples.count());
        difference += weight * point.mean.value;
        squares += noise * noise;
    }
    return {std::fabs(difference), std::sqrt(squares)};
}

double ConstantPath::rule_errors() {
    double sum = 0.0;
    for (const Cell& cell : cells_) {
        sum += rule_error(cell).size;
    }
    return sum;
}

// Halves the cell in which the rules differ most, while that is more than noise and more than half
// of the wanted error; false where there is none.
bool ConstantPath::split_cell() {
    constexpr double kShare = 0.5;
    constexpr double kBeyondNoise = 2.0;
    if (rule_errors() <= kShare * aim() || points() + kCellPoints > kMostPoints ||
        spent_ >= settings_.most_proposals) {
        return false;
    }
    double largest = 0.0;
    std::size_t worst = cells_.size();
    for (std::size_t k = 0; k < cells_.size(); ++k) {
        const RuleError error = rule_error(cells_[k]);
        if (error.size > std::max(largest, kBeyondNoise * error.noise)) {
            largest = error.size;
            worst = k;
        }
    }
    if (worst == cells_.size()) {
        return false;
    }
    Cell& lower = cells_[worst];
    lower.width *= 0.5;
    const Cell upper = {lower.from + lower.width, lower.width};
    const std::int64_t interval = point_at(upper.place(kCellPoints - 1)).interval;
    const Cell split = lower;
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(worst) + 1, upper);
    add_points(upper, interval);
    add_points(split, interval);
    return true;
}

// Samples of each chain that a point lacks for its share of the wanted error, but no more than some
// times what it has, as deviation and time may be far off while samples are few.
std::vector<int> ConstantPath::missing_samples() const {
    constexpr double kMostTimes = 8.0;
    constexpr int kFewest = 2;
    const double wanted = aim();
    const double shortfall =
        std::max(1.0, chain_error() / (kSlack * std::max(wanted, sampling_error())));
    if (sampling_error() <= wanted && shortfall <= 1.0) {
        return {};
    }
    const double sum = loads();
    const double squared = wanted * wanted / (shortfall * shortfall);
    std::vector<int> missing;
    for (const Point& point : points_) {
        const double there = point.samples.count();
        const double all =
            std::min(load(point) * sum / (squared * cost(point.interval)), kMostTimes * there);
        const double lack = std::ceil((all - there) / chains_.chains());
        missing.push_back(lack > 0.0 ? std::max(kFewest, static_cast<int>(lack)) : 0);
    }
    return missing;
}

// Walks the line once more; false when there are no proposals left for that, or nothing is missing.
bool ConstantPath::draw_missing(bool up) {
    const std::vector<int> missing = missing_samples();
    double burn_in = 0.0;
    double samples = 0.0;
    double proposals = 0.0;
    for (std::size_t k = 0; k < missing.size(); ++k) {
        const std::int64_t interval = points_[k].interval;
        proposals += missing[k] * static_cast<double>(interval) * chains_.chains();
        samples += missing[k] * cost(interval) * chains_.chains();
        burn_in +=
            missing[k] > 0 ? static_cast<double>(kBurnIn * interval) * chains_.chains() : 0.0;
    }
    const double left = settings_.most_proposals - spent_ - burn_in;
    const double share = std::min(1.0, left / std::max(samples, 1.0));
    // What is known to be missing; a later walk may add to it.
    progress_.work_total.store(proposals_ + burn_in + share * proposals, std::memory_order_relaxed);
    bool walked = false;
    for (std::size_t step = 0; step < missing.size(); ++step) {
        const std::size_t k = up ? step : missing.size() - 1 - step;
        const int count = static_cast<int>(missing[k] * share);
        if (count > 0) {
            draw(points_[k], kBurnIn, count);
            walked = true;
        }
    }
    return walked;
}

void ConstantPath::evaluate() {
    for (Point& point : points_) {
        point.weight = 0.0;
    }
    for (const Cell& cell : cells_) {
        for (int k = 0; k < kCellPoints; ++k) {
            point_at(cell.place(k)).weight += cell.width * kBoole[static_cast<std::size_t>(k)];
        }
    }
    value_ = 0.0;
    for (const Point& point : points_) {
        value_ -= point.weight * point.mean.value;
    }
    error_ = std::hypot(std::max(sampling_error(), chain_error()), rule_errors());
}
