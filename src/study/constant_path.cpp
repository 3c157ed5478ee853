#include "study/constant_path.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "base/random_stream.h"

namespace {

// Samples of each chain when a bridge is first stood on, and when it is gone back to at least.
constexpr int kFirstSamples = 16;
constexpr int kFewest = 8;
// Intervals before the first sample: three autocorrelation times.
constexpr std::int64_t kBurnIn = 6;
// Distance between neighbouring bridges, in standard deviations of their networks' log-odds; what
// has turned out to be wider than this gets a bridge between.
constexpr double kSpacing = 1.2;
constexpr double kWidest = 1.9;
constexpr int kMostBridges = 2000;
// Samples in one autocorrelation time.
constexpr double kSamplesATime = 2.0;
// The error found by leaving out chains may be larger by so much: it is known of a few chains only.
constexpr double kSlack = 1.15;

double samples_a_time(const Bridge& bridge) {
    return bridge.time / static_cast<double>(bridge.interval);
}

// Proposals between samples that the autocorrelation asks for. What few samples tell may be far
// off, and of those that are independent only that they are too far apart.
std::int64_t better_interval(const Bridge& bridge) {
    constexpr double kIndependent = 1.2;
    constexpr double kMostChange = 4.0;
    const double times = samples_a_time(bridge);
    const double factor = times < kIndependent
                              ? 1.0 / kMostChange
                              : std::clamp(times / kSamplesATime, 1.0 / kMostChange, kMostChange);
    return std::max<std::int64_t>(1, std::llround(factor * static_cast<double>(bridge.interval)));
}

}  // namespace

ConstantPath::ConstantPath(const Study& study, const StudySelection& resolved,
                           std::vector<double> from, std::vector<double> to, std::uint64_t seed,
                           const LikelihoodSettings& settings, RunProgress& progress)
    : from_(std::move(from)),
      to_(std::move(to)),
      settings_(settings),
      progress_(progress),
      chains_(study, resolved, mixed_bits(seed ^ 0x6C696B656C69686FU), std::max(settings.chains, 2),
              settings.threads),
      tied_(study.network.ties.size()) {}

double ConstantPath::walk() {
    progress_start(progress_, RunStage::simulation, settings_.most_proposals);
    lay_bridges();
    for (bool up = true;; up = !up) {
        stand_between();
        const bool stood = std::all_of(bridges_.begin(), bridges_.end(),
                                       [](const Bridge& each) { return samples_of(each) > 0; });
        double shortfall = 1.0;
        if (stood) {
            evaluate();
            const double wanted = aim();
            if (expected_error() <= wanted && error_ <= kSlack * wanted) {
                break;
            }
            shortfall = std::max(1.0, error_ / (kSlack * wanted));
        }
        if (!go_on(up, aim() / shortfall)) {
            break;
        }
    }
    evaluate();
    return value_;
}

// The wanted error: a third of what is allowed while that is cheap, so that hardly any seed is
// further off than what is allowed.
double ConstantPath::aim() const {
    constexpr double kCheap = 1e7;
    constexpr double kSmallest = 0.33;
    constexpr double kLargest = 0.85;
    const std::vector<double> loads = bridge_loads(bridges_);
    const double sum = std::accumulate(loads.begin(), loads.end(), 0.0);
    return std::clamp(sum / std::sqrt(kCheap), kSmallest * settings_.precision,
                      kLargest * settings_.precision);
}

// What the autocorrelation times say.
double ConstantPath::expected_error() const {
    const std::vector<double> loads = bridge_loads(bridges_);
    double squares = 0.0;
    for (std::size_t k = 0; k < loads.size(); ++k) {
        const Bridge& bridge = bridges_[k];
        const double proposals = static_cast<double>(bridge.interval) * samples_of(bridge) *
                                 static_cast<double>(bridge.drawn.size());
        squares += proposals > 0.0 ? loads[k] * loads[k] / proposals : 0.0;
    }
    return std::sqrt(squares);
}

// Samples of every chain at a point of the path.
void ConstantPath::draw(Bridge& bridge, int samples) {
    std::vector<double> parameters = from_;
    for (std::size_t k = 0; k < parameters.size(); ++k) {
        parameters[k] += bridge.at * (to_[k] - from_[k]);
    }
    const ChainSamples drawn =
        chains_.run(parameters, kBurnIn * bridge.interval, bridge.interval, samples, progress_);
    proposals_ += drawn.proposals;
    bridge.drawn.resize(static_cast<std::size_t>(chains_.chains()));
    for (int row = 0; row < drawn.statistics.rows; ++row) {
        double log_odds = 0.0;
        for (std::size_t k = 0; k < parameters.size(); ++k) {
            log_odds += (to_[k] - from_[k]) *
                        (drawn.statistics[row][static_cast<int>(k)] - chains_.observed()[k]);
        }
        bridge.drawn[static_cast<std::size_t>(drawn.chain[static_cast<std::size_t>(row)])]
            .push_back(log_odds);
    }
    bridge_measure(bridge);
}

void ConstantPath::stand_on(Bridge& bridge) {
    bridge.drawn.clear();
    draw(bridge, kFirstSamples);
}

// At the far end chains start near where they belong. What is drawn while the interval is still too
// short is thrown away: it brings them all the way there.
void ConstantPath::first_bridge(Bridge& bridge) {
    constexpr int kRounds = 10;
    constexpr double kTooClose = 4.0;
    bridge.at = 1.0;
    bridge.interval = static_cast<std::int64_t>(tied_ / 2 + 16);
    stand_on(bridge);
    for (int round = 0; round < kRounds && proposals_ < settings_.most_proposals / 10.0; ++round) {
        const bool close = samples_a_time(bridge) > kTooClose;
        bridge.interval = better_interval(bridge);
        stand_on(bridge);
        if (!close) {
            break;
        }
    }
}

// From the parameters down to the reference.
void ConstantPath::lay_bridges() {
    bridges_.resize(1);
    first_bridge(bridges_.back());
    while (bridges_.back().at > 0.0 && bridges_.size() < kMostBridges &&
           proposals_ < settings_.most_proposals) {
        const Bridge& last = bridges_.back();
        Bridge next;
        next.interval = better_interval(last);
        const double width = last.deviation > 0.0 ? kSpacing / last.deviation : 1.0;
        next.at = last.at > 1.3 * width ? last.at - width : 0.0;
        stand_on(next);
        bridges_.push_back(std::move(next));
    }
    if (bridges_.back().at > 0.0) {
        // Too long a way: one wide step, whose error tells.
        Bridge last;
        last.interval = bridges_.back().interval;
        stand_on(last);
        bridges_.push_back(std::move(last));
    }
    std::reverse(bridges_.begin(), bridges_.end());
}

// Adds bridges where two neighbours are too far from each other. Until networks are drawn at them
// they have what their neighbours have.
void ConstantPath::stand_between() {
    std::vector<Bridge> all;
    for (std::size_t k = 0; k < bridges_.size(); ++k) {
        if (k > 0) {
            const Bridge& low = bridges_[k - 1];
            const Bridge& high = bridges_[k];
            const double deviation = std::max(low.deviation, high.deviation);
            if ((high.at - low.at) * deviation > kWidest && bridges_.size() < kMostBridges &&
                proposals_ < settings_.most_proposals) {
                Bridge between;
                between.at = 0.5 * (low.at + high.at);
                between.interval = std::max(low.interval, high.interval);
                between.deviation = deviation;
                between.time = std::max(low.time, high.time);
                all.push_back(std::move(between));
            }
        }
        all.push_back(std::move(bridges_[k]));
    }
    bridges_ = std::move(all);
}

// Samples of each chain that a bridge lacks for its share of the wanted error, but no more than
// some times what it has, as deviation and time may be far off while samples are few.
std::vector<int> ConstantPath::missing_samples(double wanted) const {
    constexpr int kMostTimes = 8;
    const std::vector<double> loads = bridge_loads(bridges_);
    const double sum = std::accumulate(loads.begin(), loads.end(), 0.0);
    std::vector<int> missing;
    for (std::size_t k = 0; k < loads.size(); ++k) {
        const int there = samples_of(bridges_[k]);
        const double all = loads[k] * sum / (wanted * wanted) /
                           (static_cast<double>(bridges_[k].interval) * chains_.chains());
        const double most = static_cast<double>(kMostTimes) * std::max(there, kFirstSamples);
        const double lack = std::ceil(std::min(all, most)) - there;
        missing.push_back(there == 0   ? std::max(kFirstSamples, static_cast<int>(lack))
                          : lack > 0.0 ? std::max(kFewest, static_cast<int>(lack))
                                       : 0);
    }
    return missing;
}

// Walks the path once more; false when there are no proposals left for that, or nothing is missing.
bool ConstantPath::go_on(bool up, double wanted) {
    std::vector<int> missing = missing_samples(wanted);
    double planned = 0.0;
    double samples = 0.0;
    for (std::size_t k = 0; k < missing.size(); ++k) {
        const double interval = static_cast<double>(bridges_[k].interval) * chains_.chains();
        samples += missing[k] * interval;
        planned += missing[k] > 0 ? (missing[k] + static_cast<double>(kBurnIn)) * interval : 0.0;
    }
    const double left = settings_.most_proposals - proposals_;
    const bool scarce = planned > left;
    const double share = scarce ? (left - (planned - samples)) / std::max(samples, 1.0) : 1.0;
    bool walked = false;
    for (std::size_t step = 0; step < missing.size(); ++step) {
        const std::size_t k = up ? step : missing.size() - 1 - step;
        const bool empty = samples_of(bridges_[k]) == 0;
        const int count = empty ? missing[k] : static_cast<int>(missing[k] * share);
        if (count >= kFewest || empty) {
            draw(bridges_[k], count);
            walked = true;
        }
    }
    return walked;
}

double ConstantPath::total(int without) const {
    double sum = 0.0;
    for (std::size_t k = 1; k < bridges_.size(); ++k) {
        sum -= log_ratio(bridges_[k - 1], bridges_[k], without);
    }
    return sum;
}

void ConstantPath::evaluate() {
    value_ = total(-1);
    const int chains = chains_.chains();
    std::vector<double> values;
    double mean = 0.0;
    for (int chain = 0; chain < chains; ++chain) {
        values.push_back(total(chain));
        mean += values.back() / chains;
    }
    double squares = 0.0;
    for (const double value : values) {
        squares += (value - mean) * (value - mean);
    }
    error_ = std::max(std::sqrt(squares * (chains - 1.0) / chains), expected_error());
}
