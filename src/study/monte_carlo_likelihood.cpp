#include "study/monte_carlo_likelihood.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

#include "network/network_verbs.h"
#include "study/choice_estimate.h"
#include "study/positive_matrix.h"
#include "study/pseudo_likelihood.h"
#include "study/study_chains.h"

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

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

// What the chains drew at one point.
struct Draw {
    std::vector<double> parameters;  // p
    ChainSamples samples;
    SampleMoments moments;
    double mean_ties = 0.0;
    TieClusters clusters;
    std::int64_t burn_in = 0;
    std::int64_t interval = 0;
    // Of the estimated effects, by their numbers among these. None but the first where effects
    // depend on each other in the samples.
    DependentSet dependent;
    Matrix lower;                // Cholesky factor of their covariance
    Matrix inverse;              // and its inverse
    std::vector<double> excess;  // observed less mean statistics
    double distance = 0.0;       // squared, in units of the covariance
    std::vector<double> times;   // autocorrelation time of each parameter's influence, in samples
    HullRay ray;

    double effective(std::size_t k) const { return samples.statistics.rows / times[k]; }
    double effective() const {
        return times.empty()
                   ? 0.0
                   : samples.statistics.rows / *std::max_element(times.begin(), times.end());
    }
};

// Deviations of the chosen columns from their means, one row a sample.
Matrix deviations(const Draw& draw, const std::vector<int>& chosen) {
    const Matrix& all = draw.samples.statistics;
    Matrix some = matrix_create(all.rows, static_cast<int>(chosen.size()), 0.0);
    for (int row = 0; row < all.rows; ++row) {
        for (int k = 0; k < some.columns; ++k) {
            const int column = chosen[static_cast<std::size_t>(k)];
            some[row][k] = all[row][column] - draw.moments.means[static_cast<std::size_t>(column)];
        }
    }
    return some;
}

// Solves L y = x for each row.
Matrix whitened(const Matrix& rows, const Matrix& lower) {
    Matrix white = rows;
    for (int row = 0; row < rows.rows; ++row) {
        for (int i = 0; i < rows.columns; ++i) {
            double sum = white[row][i];
            for (int k = 0; k < i; ++k) {
                sum -= lower[i][k] * white[row][k];
            }
            white[row][i] = sum / lower[i][i];
        }
    }
    return white;
}

// How much each sample moves each parameter: deviations times the inverse covariance.
std::vector<double> influence_times(const Matrix& deviation, const Matrix& inverse, int chains) {
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(deviation.columns));
    for (int k = 0; k < deviation.columns; ++k) {
        std::vector<double> influence(static_cast<std::size_t>(deviation.rows), 0.0);
        for (int row = 0; row < deviation.rows; ++row) {
            for (int i = 0; i < deviation.columns; ++i) {
                influence[static_cast<std::size_t>(row)] += deviation[row][i] * inverse[i][k];
            }
        }
        times.push_back(autocorrelation_time(influence, chains));
    }
    return times;
}

// The step at which the samples, weighted by exp(step x deviation), have the observed mean; none
// where the weights rest on too few of them. Newton's method on the likelihood's logarithm.
std::optional<std::vector<double>> weighted_step(const Matrix& deviation,
                                                 const std::vector<double>& excess,
                                                 std::vector<double> step) {
    constexpr int kSteps = 20;
    constexpr double kLeastShare = 0.25;
    const auto rows = static_cast<std::size_t>(deviation.rows);
    const int q = deviation.columns;
    std::vector<double> weights(rows, 0.0);
    for (int count = 0; count < kSteps; ++count) {
        double largest = -std::numeric_limits<double>::infinity();
        for (std::size_t row = 0; row < rows; ++row) {
            weights[row] =
                std::inner_product(step.begin(), step.end(), deviation[static_cast<int>(row)], 0.0);
            largest = std::max(largest, weights[row]);
        }
        double sum = 0.0;
        double squares = 0.0;
        for (double& weight : weights) {
            weight = std::exp(weight - largest);
            sum += weight;
            squares += weight * weight;
        }
        if (!(sum * sum >= kLeastShare * squares * static_cast<double>(rows))) {
            return std::nullopt;
        }
        std::vector<double> gradient = excess;
        Matrix covariance = matrix_create(q, q, 0.0);
        std::vector<double> mean(excess.size(), 0.0);
        for (std::size_t row = 0; row < rows; ++row) {
            const double* values = deviation[static_cast<int>(row)];
            for (int i = 0; i < q; ++i) {
                const double part = weights[row] / sum * values[i];
                mean[static_cast<std::size_t>(i)] += part;
                for (int j = 0; j <= i; ++j) {
                    covariance[i][j] += part * values[j];
                }
            }
        }
        for (int i = 0; i < q; ++i) {
            gradient[static_cast<std::size_t>(i)] -= mean[static_cast<std::size_t>(i)];
            for (int j = 0; j <= i; ++j) {
                covariance[i][j] -=
                    mean[static_cast<std::size_t>(i)] * mean[static_cast<std::size_t>(j)];
                covariance[j][i] = covariance[i][j];
            }
        }
        const auto lower = cholesky(covariance);
        if (!lower) {
            return std::nullopt;
        }
        if (inverse_form(*lower, gradient) < 1e-14) {
            return step;
        }
        const std::vector<double> further = cholesky_solve(*lower, gradient);
        for (std::size_t k = 0; k < step.size(); ++k) {
            step[k] += further[k];
        }
    }
    return std::nullopt;
}

// Estimates of several runs of the chains, each weighted by what its samples are worth.
struct Pool {
    std::vector<double> weighted;  // sum of worth x estimate, of each estimated effect
    std::vector<double> worth;
    Matrix covariance;  // of the statistics: sum of worth x covariance
    double total = 0.0;

    void add(const Draw& draw, const std::vector<double>& estimate, const Matrix& part) {
        const double effective = draw.effective();
        if (weighted.empty()) {
            weighted.assign(estimate.size(), 0.0);
            worth.assign(estimate.size(), 0.0);
            covariance = matrix_create(part.rows, part.columns, 0.0);
        }
        for (std::size_t k = 0; k < estimate.size(); ++k) {
            weighted[k] += draw.effective(k) * estimate[k];
            worth[k] += draw.effective(k);
        }
        for (std::size_t cell = 0; cell < part.cells.size(); ++cell) {
            covariance.cells[cell] += effective * part.cells[cell];
        }
        total += effective;
    }
    bool empty() const { return weighted.empty(); }
    double value(std::size_t k) const { return weighted[k] / worth[k]; }
    // Monte Carlo error in standard errors.
    double error(std::size_t k) const { return 1.0 / std::sqrt(worth[k]); }
    double largest_error() const {
        double largest = 0.0;
        for (std::size_t k = 0; k < worth.size(); ++k) {
            largest = std::max(largest, error(k));
        }
        return largest;
    }
};

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
                free_.push_back(static_cast<int>(k));
            }
        }
        const auto n = static_cast<double>(study.network.actors.size());
        observed_ties_ = static_cast<double>(study.network.ties.size());
        interval_ = static_cast<std::int64_t>(std::max({observed_ties_ / 2.0, n / 4.0, 8.0}));
    }

    void run() {
        start_ = pseudo_start();
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

  private:
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

    // Starts that the model gives, the maximum of the pseudo-likelihood for the others.
    std::vector<double> pseudo_start() {
        std::vector<double> start = given_values(study_);
        std::vector<char> given = held_;
        for (std::size_t k = 0; k < given.size(); ++k) {
            given[k] = given[k] != 0 || study_.model.effects[k].start ? 1 : 0;
        }
        if (std::find(given.begin(), given.end(), 0) == given.end()) {
            return start;
        }
        const IndependentChoices choices = pseudo_choices(study_, resolved_);
        const ChoiceEstimate found = maximise_choices(choices, start, given);
        return found.outcome == ChoiceOutcome::maximum ? found.parameters
                                                       : penalised_choices(choices, start, given);
    }

    // Where nothing but the number of ties is met: a model that is never degenerate.
    std::vector<double> plain_start() const {
        std::vector<double> start = given_values(study_);
        const int tie = study_.network.directed ? digraph_effect::kArc : graph_effect::kEdge;
        const int place = resolved_.selection.structural[static_cast<std::size_t>(tie)].position;
        const double d = std::clamp(observed_ties_ / chains_.dyads(), 1e-6, 1.0 - 1e-6);
        for (std::size_t k = 0; k < start.size(); ++k) {
            const bool given = held_[k] != 0 || study_.model.effects[k].start;
            if (resolved_.places[k] == place && !given) {
                start[k] = std::log(d / (1.0 - d));
            }
        }
        return start;
    }

    bool is_far(const Draw& draw) const {
        constexpr double kFar = 0.25;
        return std::fabs(draw.mean_ties - observed_ties_) > kFar * chains_.dyads();
    }

    // Samples a chain for this many independent ones.
    int samples_for(double effective) const {
        constexpr double kMost = 2e5;
        const double q = static_cast<double>(free_.size());
        const double wanted =
            std::max(effective * kSamplesATime * 1.1, 20.0 * q) / chains_.chains();
        return static_cast<int>(std::ceil(std::clamp(wanted, 16.0, kMost)));
    }

    Draw simulate(const std::vector<double>& parameters, int samples) {
        constexpr std::int64_t kFirstBurnIn = 30;
        constexpr double kBurnInTimes = 4.0;
        Draw draw;
        draw.parameters = parameters;
        draw.interval = interval_;
        draw.burn_in = time_ > 0.0 && !restarted_
                           ? static_cast<std::int64_t>(std::ceil(kBurnInTimes * time_))
                           : kFirstBurnIn * interval_;
        restarted_ = false;
        // No run takes more than a quarter of what there is.
        const double most = kMostProposals / 4.0 / chains_.chains();
        const double room =
            (most - static_cast<double>(draw.burn_in)) / static_cast<double>(draw.interval);
        samples = std::max(16, static_cast<int>(std::min<double>(samples, room)));
        std::vector<double> ties(
            static_cast<std::size_t>(chains_.chains()) * static_cast<std::size_t>(samples), 0.0);
        progress_start(progress_, RunStage::simulation,
                       chains_.chains() * (static_cast<double>(draw.burn_in) +
                                           static_cast<double>(draw.interval) * samples));
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
        estimate_.proposals += draw.samples.proposals;
        draw.mean_ties =
            std::accumulate(ties.begin(), ties.end(), 0.0) / static_cast<double>(ties.size());
        draw.clusters = tie_clusters(std::move(ties), chains_.dyads());
        measure(draw);
        return draw;
    }

    void measure(Draw& draw) {
        draw.moments = sample_moments(draw.samples.statistics);
        const Matrix covariance = submatrix(draw.moments.covariance, free_);
        draw.dependent = dependent_set(covariance);
        const auto lower = cholesky(covariance);
        if (!draw.dependent.empty() || !lower) {
            return;
        }
        draw.lower = *lower;
        draw.inverse = cholesky_inverse(*lower);
        for (const int k : free_) {
            const auto at = static_cast<std::size_t>(k);
            draw.excess.push_back(chains_.observed()[at] - draw.moments.means[at]);
        }
        draw.distance = inverse_form(*lower, draw.excess);
        const Matrix deviation = deviations(draw, free_);
        draw.times = influence_times(deviation, draw.inverse, chains_.chains());
        Matrix target = matrix_create(1, deviation.columns, 0.0);
        std::copy(draw.excess.begin(), draw.excess.end(), target[0]);
        draw.ray = hull_ray(whitened(deviation, *lower), whitened(target, *lower).cells);
        // What the next run's interval rests on; a guess from few samples may be far off.
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
    bool astray(const Draw& draw, const std::optional<Past>& past) const {
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
    bool decided(const Draw& draw) {
        if (!draw.dependent.empty()) {
            DependentSet dependent;
            for (const int k : draw.dependent) {
                dependent.push_back(free_[static_cast<std::size_t>(k)]);
            }
            take_draw(draw);
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
    bool on_hull(const Draw& draw) {
        constexpr double kEnough = 100.0;
        constexpr double kPart = 0.05;
        if (is_far(draw) || draw.distance >= 1.0 || draw.effective() < kEnough ||
            draw.ray.reach > 1.0 + 1e-9) {
            return false;
        }
        // The face's normal in terms of the statistics: L'^-1 x normal.
        std::vector<double> normal = draw.ray.normal;
        for (int i = draw.lower.rows - 1; i >= 0; --i) {
            double sum = normal[static_cast<std::size_t>(i)];
            for (int k = i + 1; k < draw.lower.rows; ++k) {
                sum -= draw.lower[k][i] * normal[static_cast<std::size_t>(k)];
            }
            normal[static_cast<std::size_t>(i)] = sum / draw.lower[i][i];
        }
        double largest = 0.0;
        for (std::size_t k = 0; k < normal.size(); ++k) {
            const int at = free_[k];
            normal[k] *= std::sqrt(draw.moments.covariance[at][at]);
            largest = std::max(largest, std::fabs(normal[k]));
        }
        take_draw(draw);
        for (std::size_t k = 0; k < normal.size(); ++k) {
            if (std::fabs(normal[k]) > kPart * largest) {
                estimate_.infinite.push_back({free_[k], normal[k] < 0.0 ? -1 : 1});
                EffectEstimate& effect = estimate_.effects[static_cast<std::size_t>(free_[k])];
                effect.estimate = effect.standard_error = effect.mc_error = kNone;
            }
        }
        estimate_.on_hull = true;
        estimate_.verdict = StudyVerdict::not_identified;
        return true;
    }

    // One series of Newton steps; true when it came to a verdict.
    bool newton() {
        constexpr double kNear = 0.25;
        constexpr double kHullMargin = 1.05;
        // Of a step, in standard deviations of the statistics: they change on the way.
        constexpr double kLongest = 1.5;
        Pool pool;
        std::optional<Past> past;
        std::vector<double> at = start_;
        double wanted = kCoarse;
        int setbacks = 0;
        while (!spent()) {
            Draw draw = simulate(at, samples_for(wanted));
            if (astray(draw, past)) {
                ++setbacks_;
                note_clusters(draw);
                if (++setbacks > kMostSetbacks || (!past && plain_)) {
                    return false;
                }
                at = past ? midpoint(at, past->parameters) : plain_start();
                plain_ = plain_ || !past;
                pool = {};
                wanted = kCoarse;
                restart();
                continue;
            }
            if (decided(draw)) {
                return true;
            }
            const double part =
                std::min({1.0, draw.ray.reach / kHullMargin, kLongest / std::sqrt(draw.distance)});
            const bool near = part == 1.0 && draw.distance < kNear;
            const Matrix deviation = deviations(draw, free_);
            std::vector<double> aim = draw.excess;
            for (double& each : aim) {
                each *= part;
            }
            const std::vector<double> step = cholesky_solve(draw.lower, aim);
            const std::optional<std::vector<double>> exact_step =
                weighted_step(deviation, aim, step);
            at = moved(draw.parameters, exact_step.value_or(step));
            if (near && exact_step) {
                pool.add(draw, chosen(at), submatrix(draw.moments.covariance, free_));
                at = pooled(pool, at);
            } else {
                pool = {};
            }
            const double p_value = hotelling_p_value(draw.samples.statistics, chains_.chains(),
                                                     free_, chains_.observed());
            note_best(draw, p_value);
            if (!pool.empty() && p_value >= kPasses && pool.largest_error() <= precision_ &&
                largest_t(draw) < kConverged) {
                take_pool(draw, pool, p_value);
                return true;
            }
            wanted = near ? next_worth(pool) : kCoarse;
            past = Past{draw.parameters, draw.distance, is_far(draw)};
            setbacks_ = near ? 0 : setbacks_;
        }
        return false;
    }

    // Independent samples of the next run once the end is near: half of what the precision asks
    // for, as two runs or more are averaged; what is missing of it; and never so few that they
    // could not tell where the average is.
    double next_worth(const Pool& pool) const {
        const double all = 1.3 / (precision_ * precision_);
        const double missing = pool.empty() ? all : all - pool.total;
        return std::max({kCoarse, std::min(0.5 * all, missing), 0.3 * pool.total});
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
    std::vector<double> moved(std::vector<double> from, const std::vector<double>& step) const {
        for (std::size_t k = 0; k < free_.size(); ++k) {
            from[static_cast<std::size_t>(free_[k])] += step[k];
        }
        return from;
    }
    std::vector<double> chosen(const std::vector<double>& parameters) const {
        std::vector<double> some;
        some.reserve(free_.size());
        for (const int k : free_) {
            some.push_back(parameters[static_cast<std::size_t>(k)]);
        }
        return some;
    }
    std::vector<double> pooled(const Pool& pool, std::vector<double> parameters) const {
        for (std::size_t k = 0; k < free_.size(); ++k) {
            parameters[static_cast<std::size_t>(free_[k])] = pool.value(k);
        }
        return parameters;
    }

    double t_ratio(const Draw& draw, int effect) const {
        const auto at = static_cast<std::size_t>(effect);
        return (chains_.observed()[at] - draw.moments.means[at]) /
               std::sqrt(draw.moments.covariance[effect][effect]);
    }
    double largest_t(const Draw& draw) const {
        double largest = 0.0;
        for (const int k : free_) {
            largest = std::max(largest, std::fabs(t_ratio(draw, k)));
        }
        return largest;
    }

    void note_best(const Draw& draw, double p_value) {
        if (!best_ || draw.distance < best_->distance) {
            best_ = draw;
            best_p_value_ = p_value;
        }
    }
    // The draw that shows best how networks fall apart.
    void note_clusters(const Draw& draw) {
        if (draw.clusters.apart || is_far(draw)) {
            ++fallen_;
        }
        if (draw.clusters.apart) {
            estimate_.degenerate_share = draw.clusters.upper_share;
        }
    }

    // The three phases from the best point on: its covariance scales the steps, four sub-phases of
    // decreasing gain, the mean of each where the next begins. What follows is the third phase.
    void approximate() {
        constexpr int kSubPhases = 4;
        constexpr int kLength = 40;
        constexpr double kLongest = 0.25;
        const Draw& from = *best_;
        std::vector<double> at = from.parameters;
        restart();
        double gain = 0.2;
        for (int phase = 0; phase < kSubPhases; ++phase, gain *= 0.5) {
            std::vector<double> sum(at.size(), 0.0);
            const int length = kLength * (phase + 1);
            progress_start(progress_, RunStage::simulation,
                           static_cast<double>(length) * static_cast<double>(from.interval) *
                               chains_.chains());
            for (int count = 0; count < length; ++count) {
                const ChainSamples drawn = chains_.run(at, 0, from.interval, 1, progress_);
                estimate_.proposals += drawn.proposals;
                const SampleMoments moments = sample_moments(drawn.statistics);
                std::vector<double> excess;
                for (const int k : free_) {
                    const auto effect = static_cast<std::size_t>(k);
                    excess.push_back(chains_.observed()[effect] - moments.means[effect]);
                }
                // Of networks that have leapt away only the direction counts.
                const double size = std::sqrt(inverse_form(from.lower, excess));
                const double part = std::min(gain, size > 0.0 ? kLongest / size : gain);
                std::vector<double> step = cholesky_solve(from.lower, excess);
                for (double& each : step) {
                    each *= part;
                }
                at = moved(at, step);
                for (std::size_t k = 0; k < at.size(); ++k) {
                    sum[k] += at[k] / length;
                }
            }
            at = sum;
        }
        start_ = at;
        plain_ = true;
        estimate_.approximated = true;
        restart();
    }

    void describe(const Draw& draw, double p_value) {
        StudyDiagnosis& diagnosis = estimate_.diagnosis;
        diagnosis.chains = chains_.chains();
        diagnosis.burn_in = draw.burn_in;
        diagnosis.interval = draw.interval;
        diagnosis.runs = runs_;
        diagnosis.hotelling_p_value = p_value;
        diagnosis.clusters = draw.clusters;
        const auto p = static_cast<int>(held_.size());
        diagnosis.correlation = matrix_create(p, p, kNone);
        for (int i = 0; i < p; ++i) {
            for (int j = 0; j < p; ++j) {
                const Matrix& covariance = draw.moments.covariance;
                diagnosis.correlation[i][j] =
                    covariance[i][j] / std::sqrt(covariance[i][i] * covariance[j][j]);
            }
            const std::vector<double> values = sample_column(draw.samples.statistics, i);
            EffectEstimate& effect = estimate_.effects[static_cast<std::size_t>(i)];
            effect.effective_samples =
                static_cast<double>(values.size()) / autocorrelation_time(values, chains_.chains());
            effect.gelman_rubin = gelman_rubin(values, chains_.chains());
        }
    }

    // The samples, their means and what they say of the chains; the parameters at which they were
    // drawn, with the errors that they have by themselves.
    void take_draw(const Draw& draw, double p_value = kNone) {
        estimate_.samples = draw.samples.statistics;
        estimate_.sample_chain = draw.samples.chain;
        estimate_.sample_draw = draw.samples.draw;
        for (std::size_t k = 0; k < held_.size(); ++k) {
            EffectEstimate& effect = estimate_.effects[k];
            const int at = static_cast<int>(k);
            effect.estimate = draw.parameters[k];
            effect.simulated_mean = draw.moments.means[k];
            effect.simulated_sd = std::sqrt(draw.moments.covariance[at][at]);
            effect.t_ratio = t_ratio(draw, at);
        }
        if (draw.dependent.empty()) {
            estimate_.covariance = spread_matrix(draw.inverse, free_, draw.moments.covariance.rows);
            for (std::size_t k = 0; k < free_.size(); ++k) {
                EffectEstimate& effect = estimate_.effects[static_cast<std::size_t>(free_[k])];
                const int at = static_cast<int>(k);
                effect.standard_error = std::sqrt(draw.inverse[at][at]);
                effect.mc_error = effect.standard_error / std::sqrt(draw.effective(k));
            }
        }
        describe(draw, p_value);
    }

    void take_pool(const Draw& draw, const Pool& pool, double p_value) {
        take_draw(draw, p_value);
        Matrix covariance = pool.covariance;
        for (double& cell : covariance.cells) {
            cell /= pool.total;
        }
        const auto lower = cholesky(covariance);
        Matrix inverse = lower ? cholesky_inverse(*lower) : draw.inverse;
        for (std::size_t k = 0; k < free_.size(); ++k) {
            const int at = static_cast<int>(k);
            EffectEstimate& effect = estimate_.effects[static_cast<std::size_t>(free_[k])];
            effect.estimate = pool.value(k);
            effect.mc_error = pool.error(k) * std::sqrt(inverse[at][at]);
            // What simulation adds to the sampling error of the estimate.
            inverse[at][at] += effect.mc_error * effect.mc_error;
            effect.standard_error = std::sqrt(inverse[at][at]);
        }
        estimate_.covariance = spread_matrix(inverse, free_, static_cast<int>(held_.size()));
        estimate_.verdict = StudyVerdict::converged;
    }

    // The best point found, marked.
    void give_up() {
        constexpr int kFallen = 2;
        estimate_.verdict =
            fallen_ >= kFallen || !best_ ? StudyVerdict::degenerate : StudyVerdict::not_converged;
        if (!best_) {
            return;
        }
        take_draw(*best_, best_p_value_);
        if (estimate_.verdict == StudyVerdict::degenerate) {
            return;
        }
        for (const int each : free_) {
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
    std::vector<int> free_;
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
    std::optional<Draw> best_;
    double best_p_value_ = kNone;
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
