// What known answers are held against.
#include "study/known_answers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "study/enumeration.h"
#include "study/known_networks.h"
#include "support/scratch_directory.h"
#include "support/small_studies.h"

namespace {

TEST(KnownAnswers, DifferBeyondWhatIsAllowed) {
    KnownAnswer answer{"m", "q", 1.2, 1.0, 2.0, 0.11};
    EXPECT_NEAR(difference(answer), 0.1, 1e-12);
    EXPECT_TRUE(is_as_expected(answer));
    answer.allowed = 0.09;
    EXPECT_FALSE(is_as_expected(answer));
    answer.found = std::numeric_limits<double>::quiet_NaN();
    answer.allowed = 1e9;
    EXPECT_FALSE(is_as_expected(answer));
}

TEST(KnownAnswers, TheRecordedRunIsThatOfTheGoldenFiles) {
    const std::string log = file_text(
        std::string(OVRI_SOURCE_DIRECTORY
                    "/tests/golden/florentine_estimation/expected/estimation_florentine.txt"));
    RunProgress progress;
    const std::vector<KnownAnswer> answers = known_answers(1, progress);
    int lines = 0;
    for (const KnownAnswer& each : answers) {
        if (each.model.find("three phases") == std::string::npos ||
            each.quantity.starts_with("std.")) {
            continue;
        }
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "\t%f\t", each.expected);
        EXPECT_NE(log.find(line.data()), std::string::npos) << line.data();
        EXPECT_TRUE(is_as_expected(each)) << each.quantity << ' ' << each.found;
        ++lines;
    }
    EXPECT_EQ(lines, 2);
}

TEST(KnownNetworks, AreThoseOfTheExamples) {
    EXPECT_EQ(karate_club("edge").network.ties, karate_study("edge").network.ties);
    EXPECT_EQ(florentine_families("edge").network.ties.size(), 20U);
    double wealth = 0.0;
    const Study study = florentine_families("edge");
    for (const ActorTie& tie : study.network.ties) {
        wealth += study.attributes[0].values[static_cast<std::size_t>(tie.from)] +
                  study.attributes[0].values[static_cast<std::size_t>(tie.to)];
    }
    EXPECT_EQ(wealth, 2168.0);
}

TEST(Enumeration, OfIndependentTiesIsTheLogOdds) {
    const Study study = six_actors("edge");
    const ExactAnswers answers =
        enumerate_answers(study.network, [](const TieCells& ties, int) -> std::vector<double> {
            double sum = 0.0;
            for (const char each : ties) {
                sum += each;
            }
            return {sum / 2.0};
        });
    EXPECT_NEAR(answers.estimates[0], std::log(8.0 / 7.0), 1e-10);
    EXPECT_NEAR(answers.standard_errors[0], std::sqrt(15.0 / 56.0), 1e-10);
    EXPECT_NEAR(answers.log_likelihood, 8.0 * std::log(8.0 / 15.0) + 7.0 * std::log(7.0 / 15.0),
                1e-10);
}

TEST(Enumeration, HasNoAnswerWhereTheLikelihoodHasNoMaximum) {
    StudyNetwork network = four_directed_actors("arc").network;
    network.ties = {{0, 1}, {1, 2}};
    const ExactAnswers answers =
        enumerate_answers(network, count_arcs_mutuals_and_transitive_triads);
    EXPECT_TRUE(std::isnan(answers.log_likelihood));
    EXPECT_TRUE(std::isnan(answers.estimates[1]));
}

TEST(Enumeration, CountsWhatTheEngineCounts) {
    // A triangle with a tie outside it; a transitive triad one of whose arcs is returned.
    TieCells ties(16, 0);
    for (const auto& [i, j] :
         {std::pair{0, 1}, std::pair{0, 2}, std::pair{1, 2}, std::pair{2, 3}}) {
        ties[static_cast<std::size_t>(4 * i + j)] = 1;
    }
    EXPECT_EQ(count_arcs_mutuals_and_transitive_triads(ties, 4), (std::vector<double>{4, 0, 1}));
    ties[4] = 1;
    EXPECT_EQ(count_arcs_mutuals_and_transitive_triads(ties, 4), (std::vector<double>{5, 1, 2}));
    ties[8] = ties[9] = ties[14] = 1;
    EXPECT_EQ(count_edges_and_alternating_triangles(ties, 4), (std::vector<double>{4, 3}));
}

}  // namespace
