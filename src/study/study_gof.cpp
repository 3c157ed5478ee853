#include "study/study_gof.h"

#include <algorithm>
#include <cmath>
#include <mutex>

#include "fit/parameter_draws.h"
#include "study/gof_measures.h"
#include "study/gof_summary.h"
#include "study/sample_diagnosis.h"
#include "study/shared_work.h"
#include "study/study_chain.h"
#include "study/study_chains.h"

namespace {

// Proposals between samples at first, for each tie there is: half the proposals take ties.
constexpr double kProposalsPerTie = 4.0;
constexpr std::int64_t kLeastInterval = 200;
constexpr std::int64_t kBurnInIntervals = 20;
// The interval is lengthened until samples of the model's statistics are nearly independent.
constexpr int kPilotSamples = 30;  // of each chain
constexpr int kMostPilots = 5;
constexpr double kAlike = 0.2;
constexpr double kLeastLonger = 1.2;
constexpr double kMostLonger = 12.0;
// Intervals that a chain has to follow its parameters when they change.
constexpr std::int64_t kSettlingIntervals = 4;
// Streams of random numbers of a test have nothing to do with those of an estimation of that seed.
// Seeds of chains are multiples of kChainStreams, and the test's seed: 1 finds the interval, from
// 16 K on are those of part K, the first for chains at the estimates, one from the third on for
// each chain at parameters of its own. A test that is not divided draws at the estimates by the
// chains that found the interval.
constexpr std::uint64_t kChainStreams = std::uint64_t{1} << 32U;
constexpr int kSeedsOfPart = 16;
static_assert(kDefaultChains + 2 <= kSeedsOfPart);
constexpr std::uint32_t kParameterStream = 1000;

// One row a sample when parameters are drawn; none when they stay where they are.
Matrix parameter_sets(const std::vector<double>& parameters, const GofSettings& settings) {
    const int p = static_cast<int>(parameters.size());
    if (p == 0 || settings.covariance.rows != p) {
        return {};
    }
    Matrix sets = matrix_create(settings.samples, p, 0.0);
    const Matrix root = lower_root(settings.covariance);
    RandomSource random;
    random.state = mixed_seed(settings.seed, kParameterStream);
    std::vector<double> z(parameters.size(), 0.0);
    for (int row = 0; row < sets.rows; ++row) {
        for (double& deviate : z) {
            deviate = normal_deviate(random);
        }
        for (int i = 0; i < p; ++i) {
            double value = parameters[static_cast<std::size_t>(i)];
            for (int k = 0; k <= i; ++k) {
                value += root[i][k] * z[static_cast<std::size_t>(k)];
            }
            sets[row][i] = value;
        }
    }
    return sets;
}

// The samples of one test: drawn by a number of chains, each with its share of them.
template <class Network>
class GofRun {
  public:
    GofRun(const Study& study, const StudySelection& resolved,
           const std::vector<double>& parameters, const GofSettings& settings,
           RunProgress& progress)
        : study_(study),
          resolved_(resolved),
          parameters_(parameters),
          settings_(settings),
          progress_(progress),
          meter_(study),
          interval_(settings.interval) {}

    GofInterval interval() {
        StudyChains chains = pilot_chains();
        find_interval(chains);
        return {interval_, proposals_};
    }

    // The interval is known.
    GofDraws draw(const WorkPart& part) {
        begin(part);
        const Matrix sets = parameter_sets(parameters_, settings_);
        if (sets.rows > 0) {
            draw_around(sets);
        } else {
            StudyChains chains(study_, resolved_, chain_seed(0), kDefaultChains, settings_.threads);
            draw_at_estimates(chains);
        }
        return {std::move(samples_), proposals_};
    }

    StudyGof run() {
        StudyChains chains = pilot_chains();
        find_interval(chains);
        begin(undivided(std::max(settings_.samples, 0)));
        const Matrix sets = parameter_sets(parameters_, settings_);
        if (sets.rows > 0) {
            draw_around(sets);
        } else {
            chains.restart();
            draw_at_estimates(chains);
        }
        StudyGof gof = comparison(study_, resolved_, meter_, samples_);
        gof.seed = settings_.seed;
        gof.interval = interval_;
        gof.proposals = proposals_;
        return gof;
    }

    static StudyGof comparison(const Study& study, const StudySelection& resolved,
                               const GofMeter<Network>& meter,
                               const std::vector<GofMeasures>& samples) {
        StudyChain<Network> observed(study, resolved, study_parameters(study, resolved), 0);
        StudyGof gof = summarised_gof(meter.statistics(), meter.shapes(),
                                      meter.measure(observed.network()), samples);
        gof.effects = static_cast<int>(resolved.names.size());
        return gof;
    }

  private:
    StudyChains pilot_chains() const {
        return {study_, resolved_, kChainStreams + settings_.seed, kDefaultChains,
                settings_.threads};
    }

    std::uint64_t chain_seed(int number) const {
        const auto place = static_cast<std::uint64_t>(part_.number) * kSeedsOfPart +
                           static_cast<std::uint64_t>(number);
        return kChainStreams * place + settings_.seed;
    }

    void begin(const WorkPart& part) {
        part_ = part;
        samples_.resize(static_cast<std::size_t>(part.count));
    }

    int share() const {
        return (static_cast<int>(samples_.size()) + kDefaultChains - 1) / kDefaultChains;
    }

    std::int64_t burn_in() const {
        return settings_.burn_in > 0 ? settings_.burn_in : kBurnInIntervals * interval_;
    }

    void find_interval(StudyChains& chains) {
        progress_start(progress_, RunStage::burn_in, 0.0);
        if (interval_ > 0) {
            return;
        }
        interval_ =
            std::max(kLeastInterval,
                     static_cast<std::int64_t>(kProposalsPerTie *
                                               static_cast<double>(study_.network.ties.size())));
        std::int64_t before = burn_in();
        for (int pilots = 0; pilots < kMostPilots; ++pilots) {
            const ChainSamples pilot =
                chains.run(parameters_, before, interval_, kPilotSamples, progress_);
            proposals_ += pilot.proposals;
            before = 0;
            const double alike = largest_autocorrelation(
                pilot.statistics, sample_moments(pilot.statistics).means, kDefaultChains);
            if (alike < kAlike) {
                return;
            }
            // As if correlations fell by a constant factor with each proposal.
            const double longer = std::log(kAlike) / std::log(std::min(alike, 0.999));
            interval_ = static_cast<std::int64_t>(std::ceil(
                static_cast<double>(interval_) * std::clamp(longer, kLeastLonger, kMostLonger)));
        }
    }

    void start_progress(std::int64_t proposals) {
        progress_start(progress_, RunStage::fit, static_cast<double>(proposals));
    }

    // The k-th sample of a chain stands as many places behind the one before as there are chains.
    void take(int chain, int draw, const SampledNetwork& network) {
        const auto place =
            static_cast<std::size_t>(draw) * kDefaultChains + static_cast<std::size_t>(chain);
        if (place >= samples_.size()) {
            return;
        }
        if constexpr (kDirected<Network>) {
            samples_[place] = meter_.measure(*network.digraph);
        } else {
            samples_[place] = meter_.measure(*network.graph);
        }
    }

    void draw_at_estimates(StudyChains& chains) {
        start_progress(kDefaultChains * (burn_in() + interval_ * share()));
        const ChainSamples drawn =
            chains.run(parameters_, burn_in(), interval_, share(), progress_,
                       [this](int chain, int draw, const SampledNetwork& network) {
                           take(chain, draw, network);
                       });
        proposals_ += drawn.proposals;
    }

    // Each sample has parameters of its own: a chain runs by itself, from set to set.
    void draw_around(const Matrix& sets) {
        start_progress(kDefaultChains *
                       (burn_in() + interval_ * (kSettlingIntervals + 1) * share()));
        share_work(kDefaultChains, threads_for(settings_.threads, kDefaultChains),
                   [&](int, int number) { draw_around(sets, number); });
    }

    void draw_around(const Matrix& sets, int number) {
        StudyChains chain(study_, resolved_, chain_seed(number + 2), 1, 1);
        for (int draw = 0; draw * kDefaultChains + number < part_.count; ++draw) {
            const double* values = sets[part_.first + draw * kDefaultChains + number];
            const ChainSamples drawn = chain.run(
                {values, values + sets.columns},
                draw == 0 ? burn_in() : kSettlingIntervals * interval_, interval_, 1, progress_,
                [&](int, int, const SampledNetwork& network) { take(number, draw, network); });
            const std::lock_guard<std::mutex> lock(mutex_);
            proposals_ += drawn.proposals;
        }
    }

    const Study& study_;
    const StudySelection& resolved_;
    const std::vector<double>& parameters_;
    const GofSettings& settings_;
    RunProgress& progress_;
    const GofMeter<Network> meter_;
    std::int64_t interval_;
    WorkPart part_;
    std::vector<GofMeasures> samples_;
    std::mutex mutex_;
    double proposals_ = 0.0;
};

}  // namespace

GofInterval gof_interval(const Study& study, const StudySelection& resolved,
                         const std::vector<double>& parameters, const GofSettings& settings,
                         RunProgress& progress) {
    return study.network.directed
               ? GofRun<Digraph>(study, resolved, parameters, settings, progress).interval()
               : GofRun<Graph>(study, resolved, parameters, settings, progress).interval();
}

GofDraws gof_draws(const Study& study, const StudySelection& resolved,
                   const std::vector<double>& parameters, const GofSettings& settings,
                   const WorkPart& part, RunProgress& progress) {
    return study.network.directed
               ? GofRun<Digraph>(study, resolved, parameters, settings, progress).draw(part)
               : GofRun<Graph>(study, resolved, parameters, settings, progress).draw(part);
}

StudyGof gof_comparison(const Study& study, const StudySelection& resolved,
                        const std::vector<GofMeasures>& samples) {
    return study.network.directed
               ? GofRun<Digraph>::comparison(study, resolved, GofMeter<Digraph>(study), samples)
               : GofRun<Graph>::comparison(study, resolved, GofMeter<Graph>(study), samples);
}

StudyGof study_gof(const Study& study, const StudySelection& resolved,
                   const std::vector<double>& parameters, const GofSettings& settings,
                   RunProgress& progress) {
    return study.network.directed
               ? GofRun<Digraph>(study, resolved, parameters, settings, progress).run()
               : GofRun<Graph>(study, resolved, parameters, settings, progress).run();
}
