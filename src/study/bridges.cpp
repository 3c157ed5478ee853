#include "study/bridges.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "study/sample_diagnosis.h"

namespace {

double logistic(double x) { return 1.0 / (1.0 + std::exp(-x)); }

// What Bennett's equation is about: the log-odds between two neighbours of the networks of each.
struct Pair {
    std::vector<double> values;  // of both
    double high_share = 0.0;     // the higher one's number of samples
    double shift = 0.0;          // log of the ratio of the two numbers
    double start = 0.0;          // half-way between the two means
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();
};

// Adds a bridge's samples; how many.
double add_samples(const Bridge& bridge, double width, int without, Pair& pair) {
    double count = 0.0;
    double sum = 0.0;
    for (std::size_t chain = 0; chain < bridge.drawn.size(); ++chain) {
        if (static_cast<int>(chain) == without) {
            continue;
        }
        for (const double each : bridge.drawn[chain]) {
            const double value = each * width;
            pair.values.push_back(value);
            pair.least = std::min(pair.least, value);
            pair.most = std::max(pair.most, value);
            sum += value;
            count += 1.0;
        }
    }
    pair.start += sum / (2.0 * count);
    return count;
}

}  // namespace

int samples_of(const Bridge& bridge) {
    return bridge.drawn.empty() ? 0 : static_cast<int>(bridge.drawn.front().size());
}

void bridge_measure(Bridge& bridge) {
    std::vector<double> values;
    for (const std::vector<double>& chain : bridge.drawn) {
        values.insert(values.end(), chain.begin(), chain.end());
    }
    const auto count = static_cast<double>(values.size());
    double sum = 0.0;
    for (const double value : values) {
        sum += value;
    }
    double squares = 0.0;
    for (const double value : values) {
        squares += (value - sum / count) * (value - sum / count);
    }
    bridge.deviation = std::sqrt(squares / count);
    const double samples = bridge.deviation > 0.0
                               ? autocorrelation_time(values, static_cast<int>(bridge.drawn.size()))
                               : 1.0;
    bridge.time = samples * static_cast<double>(bridge.interval);
}

double log_ratio(const Bridge& low, const Bridge& high, int without) {
    const double width = high.at - low.at;
    Pair pair;
    const double low_count = add_samples(low, width, without, pair);
    pair.high_share = add_samples(high, width, without, pair);
    pair.shift = std::log(pair.high_share / low_count);
    // The root lies between the least and the greatest; Newton steps that leave them are halved.
    double ratio = pair.start;
    for (int round = 0; round < 60; ++round) {
        double surplus = -pair.high_share;
        double slope = 0.0;
        for (const double value : pair.values) {
            const double share = logistic(value - ratio + pair.shift);
            surplus += share;
            slope += share * (1.0 - share);
        }
        (surplus > 0.0 ? pair.least : pair.most) = ratio;
        const double next = slope > 0.0 ? ratio + surplus / slope : pair.least;
        const double kept =
            next > pair.least && next < pair.most ? next : 0.5 * (pair.least + pair.most);
        if (std::fabs(kept - ratio) <= 1e-10 * (1.0 + std::fabs(ratio))) {
            return kept;
        }
        ratio = kept;
    }
    return ratio;
}

std::vector<double> bridge_loads(const std::vector<Bridge>& path) {
    std::vector<double> loads;
    for (std::size_t k = 0; k < path.size(); ++k) {
        const double below = k > 0 ? path[k].at - path[k - 1].at : 0.0;
        const double above = k + 1 < path.size() ? path[k + 1].at - path[k].at : 0.0;
        loads.push_back(0.5 * (below + above) * path[k].deviation * std::sqrt(path[k].time));
    }
    return loads;
}
