#include "study/known_answers.h"

#include <cmath>
#include <utility>

#include "base/no_number.h"
#include "study/enumeration.h"
#include "study/known_networks.h"
#include "study/study_estimate.h"
#include "study/study_likelihood.h"

namespace {

// Allowed differences, in units. Computed numbers agree to rounding.
constexpr double kExact = 1e-9;
// Of simulated estimates in standard errors, of simulated standard errors as a share of themselves.
constexpr double kEstimate = 0.1;
constexpr double kStandardError = 0.05;
constexpr double kLikelihood = 0.1;

constexpr std::uint32_t kSeed = 1;

// What is expected of a model; an empty list or NaN is not compared.
struct Expected {
    std::vector<double> estimates;
    std::vector<double> standard_errors;
    double log_likelihood = kNoNumber;
};

struct Allowed {
    double estimate = kEstimate;
    double standard_error = kStandardError;
    double likelihood = kLikelihood;
};
constexpr Allowed kComputed = {kExact, kExact, kExact};

class Answers {
  public:
    Answers(int threads, RunProgress& progress) : threads_(threads), progress_(progress) {}

    // Estimates the model and compares what is expected of it.
    void add(const std::string& network, Study study, const Expected& expected,
             const Allowed& allowed = {}, std::uint32_t seed = kSeed) {
        study.settings.run.threads = threads_;
        StudySelection resolved = study_selection(study);
        const StudyEstimate found = study_estimate(study, resolved, seed, progress_);
        progress_check(progress_);
        const bool usable = found.verdict == StudyVerdict::converged;
        const std::string model = network + ": " + listed(resolved.names);
        const auto number = [usable](double value) { return usable ? value : kNoNumber; };
        for (std::size_t k = 0; k < expected.estimates.size(); ++k) {
            const EffectEstimate& effect = found.effects[k];
            const bool known = k < expected.standard_errors.size();
            const double unit = known ? expected.standard_errors[k] : effect.standard_error;
            all.push_back({model, effect.name, number(effect.estimate), expected.estimates[k], unit,
                           allowed.estimate});
            if (known) {
                all.push_back({model, "std. error of " + effect.name, number(effect.standard_error),
                               unit, unit, allowed.standard_error});
            }
        }
        if (!std::isnan(expected.log_likelihood)) {
            all.push_back({model, "log-likelihood", number(found.log_likelihood),
                           expected.log_likelihood, 1.0, allowed.likelihood});
        }
    }

    // The log-likelihood that a path of models leads to, at parameters.
    void add_simulated(const std::string& network, const Study& study,
                       const std::vector<double>& parameters, double expected) {
        const StudySelection resolved = study_selection(study);
        LikelihoodSettings settings;
        settings.precision = kLikelihood / 4.0;
        settings.threads = threads_;
        const StudyLikelihood found =
            study_likelihood(study, resolved, parameters, kSeed, settings, progress_);
        all.push_back({network + ": " + listed(resolved.names), "log-likelihood there", found.value,
                       expected, 1.0, kLikelihood});
    }

    std::vector<KnownAnswer> all;

  private:
    static std::string listed(const std::vector<std::string>& names) {
        std::string text;
        for (const std::string& name : names) {
            text += (text.empty() ? "" : ", ") + name;
        }
        return text;
    }

    int threads_;
    RunProgress& progress_;
};

// Every tie by itself: the log-odds of the density.
Expected independent_ties(const StudyNetwork& network) {
    const auto n = static_cast<double>(network.actors.size());
    const auto ties = static_cast<double>(network.ties.size());
    const double dyads = n * (n - 1.0) / 2.0;
    const double d = ties / dyads;
    return {{std::log(d / (1.0 - d))},
            {1.0 / std::sqrt(dyads * d * (1.0 - d))},
            ties * std::log(d) + (dyads - ties) * std::log(1.0 - d)};
}

// Pairs of actors with both arcs, with one and with none, as shares of a multinomial distribution.
// The log-odds of one given arc against none are the parameter of arcs.
Expected independent_pairs(double both, double one, double none) {
    const double pairs = both + one + none;
    const double arc = std::log(one / 2.0 / none);
    const double arcs = (one + 2.0 * both) / pairs;
    const double variance = (one + 4.0 * both) / pairs - arcs * arcs;
    const double mutual = both / pairs;
    const double mutual_variance = mutual * (1.0 - mutual);
    const double covariance = 2.0 * mutual - arcs * mutual;
    const double determinant = variance * mutual_variance - covariance * covariance;
    return {{arc, std::log(both / none) - 2.0 * arc},
            {std::sqrt(mutual_variance / determinant / pairs),
             std::sqrt(variance / determinant / pairs)},
            both * std::log(both / pairs) + one * std::log(one / 2.0 / pairs) +
                none * std::log(none / pairs)};
}

void add_closed_forms(Answers& answers) {
    const Study marriages = florentine_families("edge");
    answers.add("Florentine marriages", marriages, independent_ties(marriages.network), kComputed);
    answers.add("four actors", four_directed_actors("arc,reciprocity"),
                independent_pairs(1.0, 4.0, 1.0), kComputed);
    // A logistic regression of 120 pairs on the sum of their wealth.
    answers.add("Florentine marriages", florentine_families("edge,sum(wealth)"),
                {{-2.594929031786317, 0.010545912833820755},
                 {0.5360560879131164, 0.004674255829849145},
                 -51.554286195409944},
                kComputed);
}

void add_enumerations(Answers& answers) {
    const auto add = [&answers](const std::string& network, const Study& study,
                                const CountStatistics& count) {
        const ExactAnswers exact = enumerate_answers(study.network, count);
        answers.add(network, study, {exact.estimates, exact.standard_errors, exact.log_likelihood});
        answers.add_simulated(network, study, exact.estimates, exact.log_likelihood);
    };
    add("six actors", six_actors("edge,AT(2)"), count_edges_and_alternating_triangles);
    add("four actors", four_directed_actors("arc,reciprocity,transitive-triad"),
        count_arcs_mutuals_and_transitive_triads);
}

// Of twenty and more runs with a precision far beyond the default.
void add_long_runs(Answers& answers) {
    answers.add("Florentine marriages", florentine_families("edge,triangle"),
                {{-1.6738, 0.1545}, {0.350, 0.589}});
    answers.add("Florentine marriages", florentine_families("edge,AT(2)"),
                {{-1.7072, 0.0909}, {0.364, 0.250}});
    answers.add("karate club", karate_club("edge,AT(2)"),
                {{-3.0155, 0.6813}, {0.252, 0.131}, -210.84});
}

// The three phases of setup files, number for number: a run that was recorded before there were
// studies. Its clock stood at 20000 seconds, which is where the first stream of this seed begins;
// the standard errors come of the second stream.
void add_recorded_run(Answers& answers) {
    Study study = florentine_families("edge,triangle");
    study.settings.estimation.method = EstimationMethod::stochastic_approximation;
    study.settings.estimation.attempts = 1;
    constexpr std::uint32_t kSeedOfClock = 2130823151;
    answers.add(
        "Florentine marriages, three phases", std::move(study),
        {{-1.6960639292490947, 0.20398832694146951}, {0.34109918664800953, 0.54182955059097093}},
        kComputed, kSeedOfClock);
}

}  // namespace

double difference(const KnownAnswer& answer) {
    return (answer.found - answer.expected) / answer.unit;
}

bool is_as_expected(const KnownAnswer& answer) {
    return std::fabs(difference(answer)) <= answer.allowed;
}

std::vector<KnownAnswer> known_answers(int threads, RunProgress& progress) {
    Answers answers(threads, progress);
    add_closed_forms(answers);
    add_enumerations(answers);
    add_long_runs(answers);
    add_recorded_run(answers);
    return std::move(answers.all);
}
