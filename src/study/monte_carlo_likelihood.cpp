#include "study/monte_carlo_likelihood.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

#include "network/network_verbs.h"
#include "study/chain_approximation.h"
#include "study/chain_draw.h"
#include "study/choice_estimate.h"
#include "study/drawn_estimate.h"
#include "study/positive_matrix.h"
#include "study/start_points.h"
#include "study/study_chains.h"
#include "study/weighted_steps.h"

namespace {

using Clock = std::chrono::steady_clock;

// Samples whose autocorrelation time is this long are neither wasted nor too alike.
constexpr double kSamplesATime = 3.0;
// Independent samples that a step far from the end rests on.
constexpr double kCoarse = 150.0;
constexpr double kConverged = 0.1;
// Hotelling's test passes at this p-value.
constexpr double kPasses = 0.05;
constexpr int kMostRuns = 60;
constexpr int kMostSetbacks = 6;
// Proposals in all: while every step led somewhere, and once some led astray.
constexpr double kMostProposals = 2e8;
constexpr double kMostAstray = 3e7;

class Search {
  public:
    Search(const Study& study, StudySelection& resolved, StudyEstimate& estimate,
           RunProgress& progress)
        : study_(study),
          resolved_(resolved),
          estimate_(estimate),
          progress_(progress),
          chains_(study, resolved, estimate.seed, study.settings.estimation.chains,
                  study.settings.run.threads),
          held_(held_effects(study)),
          precision_(wanted_precision(study)) {
        for (std::size_t k = 0; k < held_.size(); ++k) {
            if (held_[k] == 0) {
                frame_.free.push_back(static_cast<int>(k));
            }
        }
        frame_.observed = chains_.observed();
        frame_.chains = chains_.chains();
        const auto n = static_cast<double>(study.network.actors.size());
        observed_ties_ = static_cast<double>(study.network.ties.size());
        interval_ = static_cast<std::int64_t>(std::max({observed_ties_ / 2.0, n / 4.0, 8.0}));
    }

    void run() {
        progress_part(progress_);
        progress_start(progress_, RunStage::pseudo_likelihood, 0.0);
        start_ = pseudo_start(study_, resolved_);
        progress_part(progress_);
        try {
            search();
        } catch (const RunStopped&) {
            keep_so_far();
            throw;
        }
    }

  private:
    void search() {
        for (int round = 0; round < 2; ++round) {
            if (newton()) {
                return;
            }
            if (round == 0 && best_ && !late()) {
                approximate();
            }
        }
        give_up();
    }

    // What is kept of the point before.
    struct Past {
        std::vector<double> parameters;
        double distance = 0.0;
        bool far = false;
    };

    bool late() const {
        const double limit = study_.settings.estimation.time_limit;
        return limit > 0.0 && std::chrono::duration<double>(Clock::now() - begin_).count() > limit;
    }
    bool spent() const {
        return runs_ >= kMostRuns || late() ||
               estimate_.proposals > (setbacks_ > 0 ? kMostAstray : kMostProposals);
    }

    bool is_far(const ChainDraw& draw) const {
        constexpr double kFar = 0.25;
        return std::fabs(draw.mean_ties - observed_ties_) > kFar * chains_.dyads();
    }

    // Samples a chain for this many independent ones.
    int samples_for(double effective) const {
        constexpr double kMost = 2e5;
        const double q = static_cast<double>(frame_.free.size());
        const double wanted = std::max(effective * kSamplesATime * 1.1, 20.0 * q) / frame_.chains;
        return static_cast<int>(std::ceil(std::clamp(wanted, 16.0, kMost)));
    }

    // `ahead`: the independent samples that are wanted after these; negative where that is not
    // known.
    ChainDraw simulate(const std::vector<double>& parameters, int samples, double ahead) {
        constexpr std::int64_t kFirstBurnIn = 30;
        constexpr double kBurnInTimes = 4.0;
        ChainDraw draw;
        draw.parameters = parameters;
        draw.interval = interval_;
        draw.burn_in = time_ > 0.0 && !restarted_
                           ? static_cast<std::int64_t>(std::ceil(kBurnInTimes * time_))
                           : kFirstBurnIn * interval_;
        restarted_ = false;
        // No run takes more than a quarter of what there is.
        const double most = kMostProposals / 4.0 / frame_.chains;
        const double room =
            (most - static_cast<double>(draw.burn_in)) / static_cast<double>(draw.interval);
        samples = std::max(16, static_cast<int>(std::min<double>(samples, room)));
        std::vector<double> ties(
            static_cast<std::size_t>(frame_.chains) * static_cast<std::size_t>(samples), 0.0);
        tell_work(draw, samples, ahead);
        progress_step(progress_, runs_, 0);
        draw.samples = chains_.run(
            parameters, draw.burn_in, draw.interval, samples, progress_,
            [&ties, samples](int chain, int number, const SampledNetwork& network) {
                ties[static_cast<std::size_t>(chain) * static_cast<std::size_t>(samples) +
                     static_cast<std::size_t>(number)] = network.digraph != nullptr
                                                             ? tie_count(*network.digraph)
                                                             : tie_count(*network.graph);
            });
        ++runs_;
        add_step(estimate_.path, "newton", parameters);
        estimate_.proposals += draw.samples.proposals;
        draw.mean_ties =
            std::accumulate(ties.begin(), ties.end(), 0.0) / static_cast<double>(ties.size());
        draw.clusters = tie_clusters(std::move(ties), chains_.dyads());
        measure(draw, frame_);
        if (!draw.times.empty()) {
            set_interval(draw);
        }
        return draw;
    }

    // For whoever shows progress: proposals of this draw, and how many there may be after it.
    void tell_work(const ChainDraw& draw, int samples, double ahead) {
        const auto interval = static_cast<double>(draw.interval);
        const double work =
            frame_.chains * (static_cast<double>(draw.burn_in) + interval * samples);
        const double left = std::max(0.0, kMostProposals - estimate_.proposals - work);
        progress_start(progress_, RunStage::chains, work,
                       ahead < 0.0 ? -1.0 : std::min(ahead * kSamplesATime * interval, left));
    }

    // What the next run's interval rests on; a guess from few samples may be far off.
    void set_interval(const ChainDraw& draw) {
        constexpr double kMostChange = 8.0;
        const double longest = *std::max_element(draw.times.begin(), draw.times.end());
        time_ = longest * static_cast<double>(draw.interval);
        const double now = static_cast<double>(draw.interval);
        interval_ = std::max<std::int64_t>(
            1,
            std::llround(std::clamp(time_ / kSamplesATime, now / kMostChange, now * kMostChange)));
    }

    // Whether the last step was too bold: networks of two kinds, all too dense or too sparse, or
    // much further from the observation than before.
    bool astray(const ChainDraw& draw, const std::optional<Past>& past) const {
        // Nearly complete networks are all alike, which tells nothing of the effects.
        const bool lost = draw.clusters.apart || !std::isfinite(draw.distance) ||
                          (!draw.dependent.empty() && is_far(draw));
        if (!past) {
            return lost || (is_far(draw) && !plain_);
        }
        const bool leapt = is_far(draw) && !past->far;
        const bool away =
            draw.dependent.empty() && draw.distance > std::max(25.0, 4.0 * past->distance);
        return lost || leapt || away;
    }

    // Whether the draw decides that there is no estimate.
    bool decided(const ChainDraw& draw) {
        if (!draw.dependent.empty()) {
            DependentSet dependent;
            for (const int k : draw.dependent) {
                dependent.push_back(frame_.free[static_cast<std::size_t>(k)]);
            }
            take(draw);
            if (dependent.size() == 1) {
                estimate_.verdict = StudyVerdict::degenerate;
                estimate_.faulty = dependent;
            } else {
                estimate_.verdict = StudyVerdict::not_identified;
                estimate_.dependent = dependent;
            }
            return true;
        }
        return on_hull(draw);
    }

    // The mean is near the observation, yet no sample lies beyond it in some direction: it is at
    // the edge of what is possible, and the estimate would be infinite.
    bool on_hull(const ChainDraw& draw) {
        constexpr double kEnough = 100.0;
        constexpr double kPart = 0.05;
        if (is_far(draw) || draw.distance >= 1.0 || draw.effective() < kEnough ||
            draw.ray.reach > 1.0 + 1e-9) {
            return false;
        }
        const std::vector<double> normal = hull_face(draw, frame_);
        double largest = 0.0;
        for (const double each : normal) {
            largest = std::max(largest, std::fabs(each));
        }
        take(draw);
        for (std::size_t k = 0; k < normal.size(); ++k) {
            if (std::fabs(normal[k]) > kPart * largest) {
                estimate_.infinite.push_back({frame_.free[k], normal[k] < 0.0 ? -1 : 1});
                EffectEstimate& effect =
                    estimate_.effects[static_cast<std::size_t>(frame_.free[k])];
                effect.estimate = effect.standard_error = effect.mc_error = kNoNumber;
            }
        }
        estimate_.on_hull = true;
        estimate_.verdict = StudyVerdict::not_identified;
        return true;
    }

    // What a series of Newton steps remembers.
    struct Series {
        std::vector<double> at;
        std::optional<Past> past;
        EstimatePool pool;
        double wanted = kCoarse;  // independent samples of the next draw
        double ahead = -1.0;      // and after it, negative while that is not known
        int setbacks = 0;
    };

    // One series of Newton steps; true when it came to a verdict.
    bool newton() {
        Series series;
        series.at = start_;
        while (!spent()) {
            ChainDraw draw = simulate(series.at, samples_for(series.wanted), series.ahead);
            if (astray(draw, series.past)) {
                if (!step_back(series, draw)) {
                    return false;
                }
                continue;
            }
            if (decided(draw)) {
                return true;
            }
            const bool near = step_on(series, draw);
            draw.p_value = hotelling_p_value(draw.samples.statistics, frame_.chains, frame_.free,
                                             frame_.observed);
            note_best(draw);
            if (arrived(series.pool, draw)) {
                take_pool(estimate_, draw, series.pool, frame_, runs_);
                estimate_.verdict = StudyVerdict::converged;
                return true;
            }
            series.wanted = near ? next_worth(series.pool) : kCoarse;
            series.ahead = near ? std::max(0.0, missing_worth(series.pool) - series.wanted) : -1.0;
            series.past = Past{draw.parameters, draw.distance, is_far(draw)};
            setbacks_ = near ? 0 : setbacks_;
        }
        return false;
    }

    // Half the way back to the point before, or to a plain start where there is none; false when
    // there is nowhere to go back to.
    bool step_back(Series& series, const ChainDraw& draw) {
        ++setbacks_;
        note_clusters(draw);
        if (++series.setbacks > kMostSetbacks || (!series.past && plain_)) {
            return false;
        }
        series.at = series.past ? midpoint(series.at, series.past->parameters)
                                : plain_start(study_, resolved_, chains_.dyads());
        plain_ = plain_ || !series.past;
        series.pool = {};
        series.wanted = kCoarse;
        series.ahead = -1.0;
        restart();
        return true;
    }

    // Moves to where the mean statistics should be the observed ones; true when that is near, and
    // the estimates of draws are pooled.
    bool step_on(Series& series, const ChainDraw& draw) {
        constexpr double kNear = 0.25;
        constexpr double kHullMargin = 1.05;
        // Of a step, in standard deviations of the statistics: they change on the way.
        constexpr double kLongest = 1.5;
        const double part =
            std::min({1.0, draw.ray.reach / kHullMargin, kLongest / std::sqrt(draw.distance)});
        const bool near = part == 1.0 && draw.distance < kNear;
        std::vector<double> aim = draw.excess;
        for (double& each : aim) {
            each *= part;
        }
        const std::vector<double> step = cholesky_solve(draw.lower, aim);
        const std::optional<std::vector<double>> exact_step =
            weighted_step(draw.deviation, aim, step);
        series.at = moved(draw.parameters, frame_, exact_step.value_or(step));
        if (near && exact_step) {
            series.pool.add(draw, frame_, chosen(series.at));
            series.at = pooled(series.pool, series.at);
        } else {
            series.pool = {};
        }
        return near;
    }

    bool arrived(const EstimatePool& pool, const ChainDraw& draw) const {
        return !pool.empty() && draw.p_value >= kPasses && pool.largest_error() <= precision_ &&
               largest_t_ratio(draw, frame_) < kConverged &&
               (!cheap() || pool.total() >= kInformed / (precision_ * precision_));
    }

    // Standard errors need more samples than estimates, where a fraction of a second gives them:
    // with so many times what the precision asks for, they are within some hundredths of
    // themselves.
    static constexpr double kInformed = 2.5;
    bool cheap() const {
        constexpr double kCheap = 1e6;
        return estimate_.proposals < kCheap;
    }

    // Independent samples of the next run once the end is near: half of what the precision asks
    // for, as two runs or more are averaged; what is missing of it; and never so few that they
    // could not tell where the average is.
    double next_worth(const EstimatePool& pool) const {
        return std::max(
            {kCoarse, std::min(0.5 * all_worth(), missing_worth(pool)), 0.3 * pool.total()});
    }
    double all_worth() const {
        return (cheap() ? 1.1 * kInformed : 1.3) / (precision_ * precision_);
    }
    double missing_worth(const EstimatePool& pool) const {
        return pool.empty() ? all_worth() : all_worth() - pool.total();
    }

    void restart() {
        chains_.restart();
        restarted_ = true;
    }

    static std::vector<double> midpoint(const std::vector<double>& one,
                                        const std::vector<double>& other) {
        std::vector<double> middle;
        middle.reserve(one.size());
        for (std::size_t k = 0; k < one.size(); ++k) {
            middle.push_back(0.5 * (one[k] + other[k]));
        }
        return middle;
    }
    std::vector<double> chosen(const std::vector<double>& parameters) const {
        std::vector<double> some;
        some.reserve(frame_.free.size());
        for (const int k : frame_.free) {
            some.push_back(parameters[static_cast<std::size_t>(k)]);
        }
        return some;
    }
    std::vector<double> pooled(const EstimatePool& pool, std::vector<double> parameters) const {
        for (std::size_t k = 0; k < frame_.free.size(); ++k) {
            parameters[static_cast<std::size_t>(frame_.free[k])] = pool.value(k);
        }
        return parameters;
    }

    void note_best(const ChainDraw& draw) {
        if (!best_ || draw.distance < best_->distance) {
            best_ = draw;
        }
    }
    // The draw that shows best how networks fall apart.
    void note_clusters(const ChainDraw& draw) {
        if (draw.clusters.apart || is_far(draw)) {
            ++fallen_;
        }
        if (draw.clusters.apart) {
            estimate_.degenerate_share = draw.clusters.upper_share;
        }
    }

    // Stochastic approximation from the best point on; Newton steps go on from where it ends.
    void approximate() {
        restart();
        start_ = approximated_point(*best_, frame_, chains_, estimate_, progress_);
        plain_ = true;
        estimate_.approximated = true;
        restart();
    }

    void take(const ChainDraw& draw) { take_draw(estimate_, draw, frame_, runs_); }

    // What there is when the host ends the search: the best point, or where it began, of which
    // nothing but the parameters is known.
    void keep_so_far() {
        if (best_) {
            take(*best_);
            return;
        }
        for (std::size_t k = 0; k < start_.size(); ++k) {
            estimate_.effects[k].estimate = start_[k];
        }
    }

    // The best point found, marked.
    void give_up() {
        constexpr int kFallen = 2;
        // Of a search that ended before its chains drew anything nothing is known.
        estimate_.verdict = fallen_ >= kFallen || (!best_ && runs_ > 0)
                                ? StudyVerdict::degenerate
                                : StudyVerdict::not_converged;
        if (!best_) {
            return;
        }
        take(*best_);
        if (estimate_.verdict == StudyVerdict::degenerate) {
            return;
        }
        for (const int each : frame_.free) {
            const EffectEstimate& effect = estimate_.effects[static_cast<std::size_t>(each)];
            const bool precise = effect.mc_error <= precision_ * effect.standard_error;
            if (!precise || !(std::fabs(effect.t_ratio) < kConverged)) {
                estimate_.faulty.push_back(each);
            }
        }
    }

    const Study& study_;
    StudySelection& resolved_;
    StudyEstimate& estimate_;
    RunProgress& progress_;
    Clock::time_point begin_ = Clock::now();
    StudyChains chains_;
    std::vector<char> held_;
    DrawFrame frame_;
    double precision_;
    double observed_ties_ = 0.0;
    std::vector<double> start_;
    bool plain_ = false;  // started where nothing but the ties is met, or after approximation
    std::int64_t interval_ = 1;
    double time_ = 0.0;  // autocorrelation time in proposals; 0 while unknown
    bool restarted_ = false;
    int runs_ = 0;
    int setbacks_ = 0;  // since a step came near the observation
    int fallen_ = 0;    // draws whose networks fell apart
    std::optional<ChainDraw> best_;
};

}  // namespace

void estimate_by_simulation(const Study& study, StudySelection& resolved, StudyEstimate& estimate,
                            RunProgress& progress) {
    estimate.method = EstimationMethod::mcmle;
    Search(study, resolved, estimate, progress).run();
}

double wanted_precision(const Study& study) {
    constexpr std::size_t kFew = 100;
    const double wanted = study.settings.estimation.precision;
    return wanted > 0.0 ? wanted : study.network.actors.size() <= kFew ? 0.02 : 0.05;
}
