#include "study/study_likelihood.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/no_number.h"
#include "base/random_stream.h"
#include "study/dyad_independent.h"
#include "study/identification.h"

namespace {

// Samples of each chain when a bridge is first stood on.
constexpr int kFirstSamples = 32;
// Distance between neighbouring bridges, in standard deviations of their networks' log-odds.
constexpr double kSpacing = 1.0;
constexpr double kWidest = 1.6;
constexpr int kMostBridges = 2000;
// Proposals between samples, in integrated autocorrelations: from more to fewer.
constexpr double kTooClose = 4.0;
constexpr double kTooFar = 1.2;

// One point of the path: of each chain, the log-odds of every sampled network between the path's
// two ends, less those of the observed network.
struct Bridge {
    double at = 0.0;  // 0 at the reference, 1 at the parameters
    std::int64_t interval = 1;
    std::vector<std::vector<double>> drawn;
    double deviation = 0.0;
};

struct Spread {
    double deviation = 0.0;
    double autocorrelation = 1.0;  // integrated, in samples: 1 where they are independent
};

// Of the last `samples` numbers of each chain. The sum of correlations ends at five times itself
// (Sokal 1997, Monte Carlo methods in statistical mechanics).
Spread spread_of(const std::vector<std::vector<double>>& drawn, int samples) {
    double sum = 0.0;
    double count = 0.0;
    for (const auto& chain : drawn) {
        for (auto value = chain.end() - samples; value != chain.end(); ++value) {
            sum += *value;
            count += 1.0;
        }
    }
    const double mean = sum / count;
    const auto products = [&](int lag) {
        double total = 0.0;
        for (const auto& chain : drawn) {
            const double* values =
                chain.data() + (chain.size() - static_cast<std::size_t>(samples));
            for (int k = lag; k < samples; ++k) {
                total += (values[k] - mean) * (values[k - lag] - mean);
            }
        }
        return total / (static_cast<double>(drawn.size()) * (samples - lag));
    };
    const double variance = products(0);
    Spread spread;
    spread.deviation = std::sqrt(variance);
    if (!(variance > 0.0)) {
        return spread;
    }
    for (int lag = 1; lag < samples / 2; ++lag) {
        spread.autocorrelation += 2.0 * products(lag) / variance;
        if (lag >= 5.0 * spread.autocorrelation) {
            break;
        }
    }
    spread.autocorrelation = std::max(spread.autocorrelation, 1.0);
    return spread;
}

double logistic(double x) { return 1.0 / (1.0 + std::exp(-x)); }

// The log of the higher bridge's constant over the lower one's: the root of Bennett's equation in
// the samples of both, without those of one chain (-1 for none).
double log_ratio(const Bridge& low, const Bridge& high, int without) {
    const double width = high.at - low.at;
    const auto visit = [&](const Bridge& bridge, auto use) {
        for (std::size_t chain = 0; chain < bridge.drawn.size(); ++chain) {
            if (static_cast<int>(chain) != without) {
                for (const double value : bridge.drawn[chain]) {
                    use(value * width);
                }
            }
        }
    };
    double low_count = 0.0;
    double high_count = 0.0;
    double start = 0.0;
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    const auto note = [&](double& count, double value) {
        count += 1.0;
        least = std::min(least, value);
        most = std::max(most, value);
    };
    visit(low, [&](double value) { note(low_count, value); });
    visit(high, [&](double value) { note(high_count, value); });
    visit(low, [&](double value) { start += value / (2.0 * low_count); });
    visit(high, [&](double value) { start += value / (2.0 * high_count); });
    const double shift = std::log(high_count / low_count);
    // The root lies between the least and the greatest; Newton steps that leave them are halved.
    double ratio = start;
    for (int round = 0; round < 60; ++round) {
        double surplus = 0.0;
        double slope = 0.0;
        const auto add = [&](double value) {
            const double share = logistic(value - ratio + shift);
            surplus += share;
            slope += share * (1.0 - share);
        };
        visit(low, add);
        visit(high, add);
        surplus -= high_count;
        (surplus > 0.0 ? least : most) = ratio;
        const double next = slope > 0.0 ? ratio + surplus / slope : 0.5 * (least + most);
        const double kept = next > least && next < most ? next : 0.5 * (least + most);
        if (std::fabs(kept - ratio) <= 1e-10 * (1.0 + std::fabs(ratio))) {
            return kept;
        }
        ratio = kept;
    }
    return ratio;
}

// The path from the reference to the parameters.
class Path {
  public:
    Path(const Study& study, const StudySelection& resolved, std::vector<double> reference,
         std::vector<double> parameters, std::uint64_t seed, const LikelihoodSettings& settings,
         RunProgress& progress)
        : from_(std::move(reference)),
          to_(std::move(parameters)),
          settings_(settings),
          progress_(progress),
          chains_(study, resolved, mixed_bits(seed ^ 0x6C696B656C69686FU),
                  std::max(settings.chains, 2), settings.threads),
          tied_(study.network.ties.size()) {}

    // Log-likelihood at the parameters less that at the reference.
    double walk() {
        progress_start(progress_, RunStage::simulation, settings_.most_proposals);
        lay_bridges();
        estimate();
        for (bool up = true; error_ > aimed(); up = !up) {
            stand_between();
            if (!go_on(up)) {
                break;
            }
            estimate();
        }
        return value_;
    }

    double error() const { return error_; }
    int bridges() const { return static_cast<int>(bridges_.size()); }
    double proposals() const { return proposals_; }

  private:
    // The error is itself an estimate, of a few chains: what is aimed at is below what is allowed,
    // and further below while it is cheap.
    double aimed() const {
        constexpr double kCheap = 2e6;
        return (proposals_ < kCheap ? 0.35 : 0.8) * settings_.precision;
    }

    // Samples of every chain at a point of the path.
    void draw(Bridge& bridge, std::int64_t burn_in, int samples) {
        std::vector<double> parameters = from_;
        for (std::size_t k = 0; k < parameters.size(); ++k) {
            parameters[k] += bridge.at * (to_[k] - from_[k]);
        }
        const ChainSamples drawn =
            chains_.run(parameters, burn_in, bridge.interval, samples, progress_);
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
    }

    Spread stand_on(Bridge& bridge) {
        draw(bridge, kBurnIn * bridge.interval, kFirstSamples);
        const Spread spread = spread_of(bridge.drawn, kFirstSamples);
        bridge.deviation = spread.deviation;
        return spread;
    }

    // At the parameters chains start near where they belong. What is drawn while the interval is
    // still too short is thrown away: it brings them all the way there.
    Spread first_bridge(Bridge& bridge) {
        bridge.at = 1.0;
        bridge.interval = static_cast<std::int64_t>(tied_ / 2 + 16);
        Spread spread = stand_on(bridge);
        for (int round = 0; round < 10 && proposals_ < settings_.most_proposals / 10.0; ++round) {
            const bool close = spread.autocorrelation > kTooClose;
            if (close) {
                bridge.interval *= 2;
            }
            bridge.drawn.clear();
            spread = stand_on(bridge);
            if (!close) {
                break;
            }
        }
        return spread;
    }

    // From the parameters down to the reference.
    void lay_bridges() {
        bridges_.resize(1);
        Spread spread = first_bridge(bridges_.back());
        while (bridges_.back().at > 0.0 && bridges_.size() < kMostBridges &&
               proposals_ < settings_.most_proposals) {
            Bridge next;
            next.interval = bridges_.back().interval;
            if (spread.autocorrelation > kTooClose) {
                next.interval *= 2;
            } else if (spread.autocorrelation < kTooFar) {
                next.interval = std::max<std::int64_t>(next.interval * 2 / 3, 1);
            }
            const double width = spread.deviation > 0.0 ? kSpacing / spread.deviation : 1.0;
            const double left = bridges_.back().at;
            next.at = left > 1.3 * width ? left - width : 0.0;
            spread = stand_on(next);
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

    // Adds bridges where two neighbours are too far from each other.
    void stand_between() {
        std::vector<Bridge> all;
        for (std::size_t k = 0; k < bridges_.size(); ++k) {
            if (k > 0) {
                const Bridge& low = bridges_[k - 1];
                const Bridge& high = bridges_[k];
                if ((high.at - low.at) * std::max(low.deviation, high.deviation) > kWidest &&
                    bridges_.size() < kMostBridges) {
                    Bridge between;
                    between.at = 0.5 * (low.at + high.at);
                    between.interval = std::max(low.interval, high.interval);
                    all.push_back(std::move(between));
                }
            }
            all.push_back(std::move(bridges_[k]));
        }
        bridges_ = std::move(all);
    }

    static int samples_of(const Bridge& bridge) {
        return bridge.drawn.empty() ? 0 : static_cast<int>(bridge.drawn.front().size());
    }

    // Walks the path once more, with as many samples as the error asks for; false when there are no
    // proposals left for that.
    bool go_on(bool up) {
        constexpr double kMostTimes = 8.0;
        constexpr int kFewest = 16;
        const double times = std::min(std::pow(error_ / (0.9 * aimed()), 2.0), kMostTimes);
        int most = kFirstSamples;
        double an_interval = 0.0;
        for (const Bridge& bridge : bridges_) {
            most = std::max(most, samples_of(bridge));
            an_interval += static_cast<double>(bridge.interval) * chains_.chains();
        }
        const auto wanted = static_cast<int>(std::ceil(most * std::max(times, 1.25)));
        const double left = (settings_.most_proposals - proposals_) / an_interval - kBurnIn;
        const int target = std::min(wanted, most + static_cast<int>(std::clamp(left, 0.0, 1e8)));
        if (target - most < kFewest && target < wanted) {
            return false;
        }
        const auto visit = [&](Bridge& bridge) {
            draw(bridge, kBurnIn * bridge.interval, std::max(target - samples_of(bridge), kFewest));
            bridge.deviation = spread_of(bridge.drawn, samples_of(bridge)).deviation;
        };
        if (up) {
            std::for_each(bridges_.begin(), bridges_.end(), visit);
        } else {
            std::for_each(bridges_.rbegin(), bridges_.rend(), visit);
        }
        return true;
    }

    double total(int without) const {
        double sum = 0.0;
        for (std::size_t k = 1; k < bridges_.size(); ++k) {
            sum -= log_ratio(bridges_[k - 1], bridges_[k], without);
        }
        return sum;
    }

    // Chains know nothing of each other: leaving one out at a time tells the error, whatever the
    // correlation of its samples.
    void estimate() {
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
        error_ = std::sqrt(squares * (chains - 1.0) / chains);
    }

    static constexpr std::int64_t kBurnIn = 10;

    std::vector<double> from_;
    std::vector<double> to_;
    const LikelihoodSettings& settings_;
    RunProgress& progress_;
    StudyChains chains_;
    std::size_t tied_;
    std::vector<Bridge> bridges_;
    double value_ = kNoNumber;
    double error_ = kNoNumber;
    double proposals_ = 0.0;
};

double dyads_of(const Study& study) {
    const auto n = static_cast<double>(study.network.actors.size());
    return study.dyads.restricted ? static_cast<double>(study.dyads.free.size())
                                  : n * (n - 1.0) / (study.network.directed ? 1.0 : 2.0);
}

// The cap that could ever refuse a tie.
bool capped(const Study& study) {
    return study.dyads.max_degree &&
           *study.dyads.max_degree + 1 < static_cast<int>(study.network.actors.size());
}

void add_criteria(const Study& study, StudyLikelihood& found) {
    for (const StudyEffect& effect : study.model.effects) {
        found.parameters += effect.fixed ? 0 : 1;
    }
    found.deviance = -2.0 * found.value;
    found.aic = found.deviance + 2.0 * found.parameters;
    found.bic = found.deviance + std::log(found.dyads) * found.parameters;
}

}  // namespace

bool dyad_independent(const StudySelection& resolved) {
    const std::vector<Dependence> dependences = effect_dependences(resolved);
    return std::none_of(dependences.begin(), dependences.end(), [](Dependence dependence) {
        return dependence == Dependence::other_dyads;
    });
}

StudyLikelihood study_likelihood(const Study& study, const StudySelection& resolved,
                                 const std::vector<double>& parameters, std::uint64_t seed,
                                 const LikelihoodSettings& settings, RunProgress& progress) {
    StudyLikelihood found;
    found.dyads = dyads_of(study);
    found.exact = dyad_independent(resolved) && !capped(study);
    if (capped(study)) {
        found.value = kNoNumber;
        found.mc_error = kNoNumber;
        found.null_value = kNoNumber;
    } else {
        found.null_value = -found.dyads * std::log(2.0);
        const std::vector<double> reference =
            found.exact ? parameters : dyadic_reference(study, resolved);
        found.value = dyadic_likelihood(study, resolved, reference, false).value;
        if (!found.exact && found.dyads > 0.0) {
            Path path(study, resolved, reference, parameters, seed, settings, progress);
            found.value += path.walk();
            found.mc_error = path.error();
            found.bridges = path.bridges();
            found.proposals = path.proposals();
        }
    }
    add_criteria(study, found);
    return found;
}
