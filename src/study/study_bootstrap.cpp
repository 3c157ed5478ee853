#include "study/study_bootstrap.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <future>
#include <memory>

#include "base/no_number.h"
#include "base/random_stream.h"
#include "study/gof_summary.h"
#include "study/shared_work.h"
#include "study/study_chains.h"

namespace {

using Clock = std::chrono::steady_clock;

// Ten autocorrelation times, of which an interval is a third; where nothing was simulated, as many
// proposals as pick every tie some 25 times.
std::int64_t burn_in_of(const Study& study, const StudyEstimate& estimate) {
    constexpr std::int64_t kIntervals = 30;
    constexpr std::int64_t kATie = 50;
    constexpr std::int64_t kFewest = 16;
    const auto ties = static_cast<std::int64_t>(study.network.ties.size());
    return estimate.diagnosis.interval > 0 ? kIntervals * estimate.diagnosis.interval
                                           : kATie * std::max(ties, kFewest);
}

// The study that a replicate estimates: from the values its network is drawn with, on one thread.
Study replicated_study(const Study& study, const StudyEstimate& estimate) {
    constexpr double kPrecision = 0.1;
    Study replicated = study;
    replicated.settings.run.threads = 1;
    double& precision = replicated.settings.estimation.precision;
    precision = std::max(precision, kPrecision);
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        StudyEffect& effect = replicated.model.effects[k];
        if (!effect.fixed) {
            effect.start = estimate.effects[k].estimate;
        }
    }
    return replicated;
}

class Replicates {
  public:
    Replicates(const Study& study, const StudySelection& resolved, const StudyEstimate& estimate,
               const WorkPart& part, RunProgress& progress)
        : study_(study),
          resolved_(resolved),
          replicated_(replicated_study(study, estimate)),
          parameters_(estimates_of(estimate)),
          burn_in_(burn_in_of(study, estimate)),
          seed_(estimate.seed),
          progress_(progress),
          first_(static_cast<std::size_t>(part.first)),
          all_(static_cast<std::size_t>(part.count)) {}

    // The caller's thread tells how far the others are, and passes the wish to end on to them.
    std::vector<BootstrapReplicate> carry_out() {
        const auto count = static_cast<int>(all_.size());
        const int threads = threads_for(study_.settings.run.threads, count);
        progress_start(progress_, RunStage::simulation, static_cast<double>(count));
        const auto own = std::make_unique<RunProgress[]>(static_cast<std::size_t>(threads));
        // Where the machine gives no more threads it is done below.
        constexpr auto kAny = std::launch::async | std::launch::deferred;
        std::future<void> work = std::async(kAny, [&] {
            share_work(count, threads, [&](int thread, int number) {
                const auto at = static_cast<std::size_t>(number);
                all_[at] = replicate(first_ + at, own[static_cast<std::size_t>(thread)]);
                ++done_;
            });
        });
        constexpr std::chrono::milliseconds kGlance(50);
        while (work.wait_for(kGlance) == std::future_status::timeout) {
            progress_.work_done.store(done_, std::memory_order_relaxed);
            for (int thread = 0; progress_.stop && thread < threads; ++thread) {
                own[static_cast<std::size_t>(thread)].stop = true;
            }
        }
        progress_check(progress_);
        work.get();
        return std::move(all_);
    }

  private:
    BootstrapReplicate replicate(std::size_t number, RunProgress& own) const {
        constexpr std::uint64_t kStreams = 0x626F6F7473747261U;
        RandomStream random(seed_ ^ kStreams, number);
        Study study = replicated_;
        {
            StudyChains chain(study_, resolved_, random.bits(), 1, 1);
            chain.run(parameters_, burn_in_, 1, 1, own,
                      [&study](int, int, const SampledNetwork& network) {
                          study.network.ties = ties_of(network);
                      });
        }
        StudySelection resolved = study_selection(study);
        const StudyEstimate found = study_estimate_alone(
            study, resolved, static_cast<std::uint32_t>(random.bits() >> 32U), own);
        BootstrapReplicate replicate;
        replicate.verdict = found.verdict;
        replicate.proposals = found.proposals;
        replicate.estimates = estimates_of(found);
        for (const EffectEstimate& each : found.effects) {
            replicate.standard_errors.push_back(each.standard_error);
        }
        return replicate;
    }

    const Study& study_;
    const StudySelection& resolved_;
    Study replicated_;
    std::vector<double> parameters_;
    std::int64_t burn_in_;
    std::uint64_t seed_;
    RunProgress& progress_;
    std::size_t first_;
    std::vector<BootstrapReplicate> all_;
    std::atomic<int> done_{0};
};

// `at`: the effect's number.
BootstrapEffect summarised(const std::vector<BootstrapReplicate>& all, std::size_t at,
                           const EffectEstimate& drawn_with) {
    constexpr double kNormal95 = 1.959963984540054;
    constexpr double kTail = 0.025;
    BootstrapEffect effect{drawn_with.name, kNoNumber, kNoNumber, kNoNumber, kNoNumber, kNoNumber};
    std::vector<double> values;
    double sum = 0.0;
    double covered = 0.0;
    for (const BootstrapReplicate& each : all) {
        if (each.verdict == StudyVerdict::converged) {
            const double value = each.estimates[at];
            values.push_back(value);
            sum += value;
            covered +=
                std::fabs(value - drawn_with.estimate) <= kNormal95 * each.standard_errors[at]
                    ? 1.0
                    : 0.0;
        }
    }
    if (values.empty() || drawn_with.fixed) {
        return effect;
    }
    const auto count = static_cast<double>(values.size());
    effect.mean = sum / count;
    double squares = 0.0;
    for (const double value : values) {
        squares += (value - effect.mean) * (value - effect.mean);
    }
    effect.standard_error = count > 1.0 ? std::sqrt(squares / (count - 1.0)) : kNoNumber;
    std::sort(values.begin(), values.end());
    effect.lower = quantile_with_zeros(values, 0, kTail);
    effect.upper = quantile_with_zeros(values, 0, 1.0 - kTail);
    effect.coverage = covered / count;
    return effect;
}

}  // namespace

int replicates_with(const StudyBootstrap& bootstrap, StudyVerdict verdict) {
    return static_cast<int>(
        std::count(bootstrap.verdicts.begin(), bootstrap.verdicts.end(), verdict));
}

std::vector<BootstrapReplicate> bootstrap_replicates(const Study& study,
                                                     const StudySelection& resolved,
                                                     const StudyEstimate& estimate,
                                                     const WorkPart& part, RunProgress& progress) {
    return Replicates(study, resolved, estimate, part, progress).carry_out();
}

StudyBootstrap bootstrap_summary(const StudyEstimate& estimate,
                                 const std::vector<BootstrapReplicate>& all) {
    const auto p = static_cast<int>(estimate.effects.size());
    StudyBootstrap bootstrap;
    bootstrap.estimates = matrix_create(static_cast<int>(all.size()), p, kNoNumber);
    int row = 0;
    for (const BootstrapReplicate& each : all) {
        bootstrap.verdicts.push_back(each.verdict);
        bootstrap.proposals += each.proposals;
        if (each.verdict == StudyVerdict::converged) {
            std::copy(each.estimates.begin(), each.estimates.end(), bootstrap.estimates[row]);
        }
        ++row;
    }
    for (std::size_t k = 0; k < estimate.effects.size(); ++k) {
        bootstrap.effects.push_back(summarised(all, k, estimate.effects[k]));
    }
    return bootstrap;
}

StudyBootstrap study_bootstrap(const Study& study, const StudySelection& resolved,
                               const StudyEstimate& estimate, int replicates,
                               RunProgress& progress) {
    const Clock::time_point begin = Clock::now();
    StudyBootstrap bootstrap = bootstrap_summary(
        estimate, bootstrap_replicates(study, resolved, estimate,
                                       undivided(std::max(replicates, 0)), progress));
    bootstrap.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    return bootstrap;
}
