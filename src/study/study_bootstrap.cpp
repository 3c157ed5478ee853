#include "study/study_bootstrap.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

#include "base/no_number.h"
#include "base/random_stream.h"
#include "study/gof_summary.h"
#include "study/study_chains.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Replicate {
    StudyVerdict verdict = StudyVerdict::not_converged;
    std::vector<double> estimates;
    std::vector<double> standard_errors;
    double proposals = 0.0;
};

std::vector<double> estimates_of(const StudyEstimate& estimate) {
    std::vector<double> values;
    for (const EffectEstimate& each : estimate.effects) {
        values.push_back(each.estimate);
    }
    return values;
}

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
               int count, RunProgress& progress)
        : study_(study),
          resolved_(resolved),
          replicated_(replicated_study(study, estimate)),
          parameters_(estimates_of(estimate)),
          burn_in_(burn_in_of(study, estimate)),
          seed_(estimate.seed),
          progress_(progress),
          all_(static_cast<std::size_t>(count)),
          failures_(all_.size()) {}

    std::vector<Replicate> carry_out() {
        const int wanted = study_.settings.run.threads > 0
                               ? study_.settings.run.threads
                               : static_cast<int>(std::thread::hardware_concurrency());
        const int threads = std::clamp(wanted, 1, std::max(static_cast<int>(all_.size()), 1));
        progress_start(progress_, RunStage::simulation, static_cast<double>(all_.size()));
        const auto inner = std::make_unique<RunProgress[]>(static_cast<std::size_t>(threads));
        std::vector<std::thread> workers;
        workers.reserve(static_cast<std::size_t>(threads));
        try {
            for (int k = 0; k < threads; ++k) {
                workers.emplace_back(
                    [this, &own = inner[static_cast<std::size_t>(k)]] { work(own); });
            }
        } catch (const std::exception&) {
            // The machine gives no more threads: those there are do the work.
        }
        watch(inner.get(), static_cast<int>(workers.size()));
        for (std::thread& worker : workers) {
            worker.join();
        }
        if (workers.empty()) {
            work(progress_);
        }
        progress_check(progress_);
        for (const std::exception_ptr& failure : failures_) {
            if (failure) {
                std::rethrow_exception(failure);
            }
        }
        return std::move(all_);
    }

  private:
    // Until all workers have ended: tells how far they are, and passes the wish to end on to them.
    void watch(RunProgress* inner, int workers) {
        constexpr std::chrono::milliseconds kGlance(50);
        std::unique_lock<std::mutex> lock(mutex_);
        while (ended_ < workers) {
            turn_.wait_for(lock, kGlance);
            progress_.work_done.store(done_, std::memory_order_relaxed);
            for (int k = 0; progress_.stop && k < workers; ++k) {
                inner[k].stop = true;
            }
        }
    }

    // The replicates that are due, until there are none.
    void work(RunProgress& own) {
        for (std::size_t number = take(); number < all_.size(); number = take()) {
            try {
                all_[number] = replicate(number, own);
            } catch (...) {
                failures_[number] = std::current_exception();
                break;
            }
        }
        const std::scoped_lock lock(mutex_);
        ++ended_;
        turn_.notify_one();
    }
    std::size_t take() {
        const std::scoped_lock lock(mutex_);
        done_ = static_cast<double>(next_);
        return next_++;
    }

    Replicate replicate(std::size_t number, RunProgress& own) const {
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
        Replicate replicate;
        replicate.verdict = found.verdict;
        replicate.proposals = found.proposals;
        for (const EffectEstimate& each : found.effects) {
            replicate.estimates.push_back(each.estimate);
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
    std::vector<Replicate> all_;
    std::vector<std::exception_ptr> failures_;
    std::mutex mutex_;  // of what follows
    std::condition_variable turn_;
    std::size_t next_ = 0;
    int ended_ = 0;
    double done_ = 0.0;
};

// `at`: the effect's number.
BootstrapEffect summarised(const std::vector<Replicate>& all, std::size_t at,
                           const EffectEstimate& drawn_with) {
    constexpr double kNormal95 = 1.959963984540054;
    constexpr double kTail = 0.025;
    BootstrapEffect effect{drawn_with.name, kNoNumber, kNoNumber, kNoNumber, kNoNumber, kNoNumber};
    std::vector<double> values;
    double sum = 0.0;
    double covered = 0.0;
    for (const Replicate& each : all) {
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

StudyBootstrap study_bootstrap(const Study& study, const StudySelection& resolved,
                               const StudyEstimate& estimate, int replicates,
                               RunProgress& progress) {
    const Clock::time_point begin = Clock::now();
    const std::vector<Replicate> all =
        Replicates(study, resolved, estimate, std::max(replicates, 0), progress).carry_out();
    const auto p = static_cast<int>(estimate.effects.size());
    StudyBootstrap bootstrap;
    bootstrap.estimates = matrix_create(static_cast<int>(all.size()), p, kNoNumber);
    int row = 0;
    for (const Replicate& each : all) {
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
    bootstrap.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    return bootstrap;
}
