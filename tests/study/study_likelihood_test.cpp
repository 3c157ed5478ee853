// Log-likelihoods against closed forms and against sums over every network.
#include "study/study_likelihood.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "study/dyad_independent.h"
#include "study/study_chain.h"
#include "support/small_studies.h"

namespace {

Study example(const std::string& file, int n, bool directed, const std::string& effects) {
    Study study;
    study.network.directed = directed;
    std::ifstream matrix(std::string(OVRI_SOURCE_DIRECTORY "/examples/") + file);
    for (int i = 0; i < n; ++i) {
        study.network.actors.push_back(std::to_string(i + 1));
        for (int j = 0; j < n; ++j) {
            int cell = 0;
            matrix >> cell;
            if (cell == 1 && (directed ? i != j : i < j)) {
                study.network.ties.push_back({i, j});
            }
        }
    }
    add_effects_of(effects, study.model);
    return study;
}

Study florentine(const std::string& effects) {
    return example("florentine/marriage.txt", 16, false, effects);
}

StudyLikelihood likelihood_of(const Study& study, const std::vector<double>& parameters,
                              std::uint64_t seed = 1, int threads = 2) {
    const StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    RunProgress progress;
    LikelihoodSettings settings;
    settings.threads = threads;
    return study_likelihood(study, resolved, parameters, seed, settings, progress);
}

// Statistics of the study's network, counted.
std::vector<double> counted(const Study& study, const StudySelection& resolved) {
    return StudyChains(study, resolved, 0, 1, 1).observed();
}

// The sum over every network that has the observed ties outside the free dyads.
double enumerated(const Study& study, const std::vector<double>& parameters) {
    const StudySelection resolved = study_selection(study);
    const auto log_weight = [&](const std::vector<ActorTie>& ties) {
        Study other = study;
        other.network.ties = ties;
        double sum = 0.0;
        const std::vector<double> statistics = counted(other, resolved);
        for (std::size_t k = 0; k < parameters.size(); ++k) {
            sum += parameters[k] * statistics[k];
        }
        return sum;
    };
    const double observed = log_weight(study.network.ties);
    double total = 0.0;
    for (const std::vector<ActorTie>& ties : all_networks(study)) {
        total += std::exp(log_weight(ties) - observed);
    }
    return -std::log(total);
}

TEST(StudyLikelihood, OfTiesAloneIsItsClosedForm) {
    const double log_odds = std::log(20.0 / 100.0);
    const StudyLikelihood found = likelihood_of(florentine("edge"), {log_odds});
    EXPECT_NEAR(found.value, 20 * std::log(20.0 / 120) + 100 * std::log(100.0 / 120), 1e-9);
    EXPECT_NEAR(found.value, -54.067, 5e-4);
    EXPECT_TRUE(found.exact);
    EXPECT_EQ(found.mc_error, 0.0);
    EXPECT_EQ(found.proposals, 0.0);
    EXPECT_NEAR(found.null_value, -120 * std::log(2.0), 1e-9);
    const LikelihoodCriteria criteria = likelihood_criteria(found.value, florentine("edge"));
    EXPECT_NEAR(criteria.deviance, 108.1347, 1e-3);
    EXPECT_NEAR(criteria.aic, 110.1347, 1e-3);
    EXPECT_NEAR(criteria.bic, 108.1347 + std::log(120.0), 1e-3);
}

TEST(StudyLikelihood, OfReciprocityIsExact) {
    const Study study = example("managers/friendship.txt", 21, true, "arc,reciprocity");
    int mutual = 0;
    int single = 0;
    for (const ActorTie& tie : study.network.ties) {
        const bool back = std::binary_search(study.network.ties.begin(), study.network.ties.end(),
                                             ActorTie{tie.to, tie.from});
        mutual += back ? 1 : 0;
        single += back ? 0 : 1;
    }
    mutual /= 2;
    ASSERT_GT(mutual, 0);
    const double arc = -1.3;
    const double reciprocity = 0.8;
    const double pair = 1 + 2 * std::exp(arc) + std::exp(2 * arc + reciprocity);
    const StudyLikelihood found = likelihood_of(study, {arc, reciprocity});
    EXPECT_TRUE(found.exact);
    EXPECT_NEAR(found.value,
                arc * (2 * mutual + single) + reciprocity * mutual - 210 * std::log(pair), 1e-9);
    EXPECT_EQ(found.dyads, 420.0);
}

TEST(StudyLikelihood, OfAnAttributeIsThatOfALogisticRegression) {
    Study study = florentine("edge,sum(wealth)");
    StudyAttribute wealth;
    wealth.name = "wealth";
    std::ifstream file(std::string(OVRI_SOURCE_DIRECTORY "/examples/florentine/wealth.txt"));
    std::string line;
    while (std::getline(file, line)) {
        char* end = nullptr;
        const double value = std::strtod(line.c_str(), &end);
        if (end != line.c_str()) {
            wealth.values.push_back(value);
        }
    }
    ASSERT_EQ(wealth.values.size(), 16U);
    study.attributes.push_back(wealth);
    const double edge = -2.594929;
    const double slope = 0.010546;
    double sum = 0.0;
    for (std::size_t i = 0; i < 16; ++i) {
        for (std::size_t j = i + 1; j < 16; ++j) {
            const double log_odds = edge + slope * (wealth.values[i] + wealth.values[j]);
            const bool tied =
                std::binary_search(study.network.ties.begin(), study.network.ties.end(),
                                   ActorTie{static_cast<int>(i), static_cast<int>(j)});
            sum += (tied ? log_odds : 0.0) - std::log1p(std::exp(log_odds));
        }
    }
    EXPECT_NEAR(likelihood_of(study, {edge, slope}).value, sum, 1e-6);
    // Which is where its derivatives vanish.
    const StudySelection resolved = study_selection(study);
    const DyadicLikelihood at = dyadic_likelihood(study, resolved, {edge, slope}, true);
    EXPECT_NEAR(at.gradient[0], 0.0, 1e-3);
    EXPECT_NEAR(at.gradient[1], 0.0, 0.05);
    EXPECT_NEAR(dyadic_reference(study, resolved)[0], edge, 0.02);
}

void expect_enumerated(const Study& study, const std::vector<double>& parameters) {
    const double exact = enumerated(study, parameters);
    for (const std::uint64_t seed : {1U, 2U}) {
        const StudyLikelihood found = likelihood_of(study, parameters, seed);
        EXPECT_NEAR(found.value, exact, 0.1);
        EXPECT_FALSE(found.exact);
        EXPECT_GT(found.mc_error, 0.0);
        EXPECT_LE(found.mc_error, 0.1);
        EXPECT_LT(std::fabs(found.value - exact), 4 * found.mc_error + 0.005);
    }
}

TEST(StudyLikelihood, OfAFewActorsIsTheSumOverAllNetworks) {
    Study five = ring_study(5, false, "edge,2-star,triangle");
    five.network.ties = {{0, 1}, {0, 2}, {1, 2}, {2, 3}};
    expect_enumerated(five, {-0.7, -0.2, 0.9});
    Study six = ring_study(6, false, "edge,AT(2)");
    six.network.ties = {{0, 1}, {0, 2}, {1, 2}, {2, 3}, {3, 4}};
    expect_enumerated(six, {-1.6, 1.1});
}

TEST(StudyLikelihood, OfFourActorsIsTheSumOverAllDigraphs) {
    Study study = ring_study(4, true, "arc,reciprocity,transitive-triad");
    study.network.ties = {{0, 1}, {0, 2}, {1, 0}, {1, 2}, {3, 2}};
    expect_enumerated(study, {-1.1, 0.7, 0.5});
}

TEST(StudyLikelihood, TakesTiesOutsideTheFreeDyadsAsGiven) {
    Study study = ring_study(6, false, "edge,triangle");
    study.network.ties = {{0, 1}, {0, 2}, {1, 2}, {2, 3}, {3, 4}};
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 3}, {1, 2}, {1, 3}, {2, 4}, {2, 5}, {3, 5}};
    expect_enumerated(study, {-0.8, 0.7});
    // An arc that is given decides whether the one back would be mutual.
    Study arcs = ring_study(4, true, "arc,reciprocity");
    arcs.network.ties = {{0, 1}, {1, 0}, {2, 3}};
    arcs.dyads.restricted = true;
    arcs.dyads.free = {{0, 1}, {0, 2}, {1, 2}, {2, 0}, {3, 2}};
    const StudyLikelihood found = likelihood_of(arcs, {-0.4, 0.9});
    EXPECT_TRUE(found.exact);
    EXPECT_NEAR(found.value, enumerated(arcs, {-0.4, 0.9}), 1e-12);
    EXPECT_EQ(found.dyads, 5.0);
}

TEST(StudyLikelihood, OfTheKarateClubIsWhatLongRunsGive) {
    const Study study = example("karate/karate.txt", 34, false, "edge,AT(2)");
    for (const std::uint64_t seed : {1, 2, 3}) {
        const StudyLikelihood found = likelihood_of(study, {-3.0155, 0.6813}, seed);
        EXPECT_NEAR(found.value, -210.84, 0.1);
        EXPECT_LE(found.mc_error, 0.05);
        EXPECT_GE(found.mc_error, 0.01);
        EXPECT_NEAR(found.null_value, -388.9, 0.05);
    }
}

TEST(StudyLikelihood, DoesNotDependOnThreads) {
    const Study study = florentine("edge,AT(2)");
    const StudyLikelihood one = likelihood_of(study, {-1.7072, 0.0909}, 4, 1);
    for (const int threads : {2, 7}) {
        const StudyLikelihood more = likelihood_of(study, {-1.7072, 0.0909}, 4, threads);
        EXPECT_EQ(one.value, more.value);
        EXPECT_EQ(one.mc_error, more.mc_error);
    }
    EXPECT_NE(one.value, likelihood_of(study, {-1.7072, 0.0909}, 5, 2).value);
}

TEST(StudyLikelihood, CountsEstimatedParametersAlone) {
    Study study = florentine("edge,triangle");
    study.model.effects[1].fixed = 0.1;
    const LikelihoodCriteria criteria = likelihood_criteria(-60.0, study);
    EXPECT_EQ(criteria.aic, 120.0 + 2.0);
    EXPECT_EQ(criteria.bic, 120.0 + std::log(120.0));
}

TEST(StudyLikelihood, IsUnknownUnderACap) {
    Study study = florentine("edge,triangle");
    study.dyads.max_degree = 6;
    EXPECT_TRUE(std::isnan(likelihood_of(study, {-1.6, 0.1}).value));
    study.dyads.max_degree = 15;
    EXPECT_FALSE(std::isnan(likelihood_of(study, {-1.6, 0.1}).value));
}

TEST(StudyLikelihood, TellsTheErrorThatTooFewProposalsLeave) {
    const Study study = example("karate/karate.txt", 34, false, "edge,AT(2)");
    const StudySelection resolved = study_selection(study);
    RunProgress progress;
    const LikelihoodSettings few = {.most_proposals = 200000};
    const StudyLikelihood found =
        study_likelihood(study, resolved, {-3.0155, 0.6813}, 1, few, progress);
    EXPECT_GT(found.mc_error, 0.1);
    EXPECT_LT(std::fabs(found.value + 210.84), 5 * found.mc_error);
    EXPECT_LT(found.proposals, 1e6);
}

}  // namespace
