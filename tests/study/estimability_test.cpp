// Whether a model can be estimated at all.
#include "study/estimability.h"

#include <gtest/gtest.h>

#include "study/first_models.h"
#include "support/small_studies.h"

namespace {

using Numbers = std::vector<int>;
using Names = std::vector<std::string>;

Estimability estimability_of(const Study& study) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    return study_estimability(study, resolved);
}

// A triangle with a tail, and one actor without ties.
Study kite(bool directed, const std::string& effects) {
    Study study = ring_study(6, directed, effects);
    study.network.ties = {{0, 1}, {0, 2}, {1, 2}, {2, 3}, {3, 4}};
    return study;
}

TEST(Estimability, CountsAtZeroAreNamedAndOthersAreNot) {
    EXPECT_EQ(estimability_of(ring_study(6, false, "edge,triangle,2-star,AT(2)")).faulty_effects,
              (Numbers{1, 3}));
    EXPECT_TRUE(estimability_of(kite(false, "edge,triangle,2-star,AT(2)")).ok());
    EXPECT_EQ(estimability_of(ring_study(6, true, "arc,reciprocity")).faulty_effects, Numbers{1});
    const Estimability found = estimability_of(ring_study(6, false, "edge,triangle"));
    ASSERT_EQ(found.problems.size(), 1U);
    EXPECT_EQ(found.problems[0].field, "effect `triangle`");
    EXPECT_NE(found.problems[0].found.find("the least"), std::string::npos);
    EXPECT_NE(found.problems[0].mend.find("minus infinity"), std::string::npos);
}

TEST(Estimability, DifferencesOfCountsMayBeZero) {
    // Twice as many 2-stars as needed for this difference to vanish or not: it is never a bound.
    EXPECT_TRUE(is_difference(catalogue_of(NetworkKind::undirected)
                                  .effects[static_cast<std::size_t>(
                                      find_effect(catalogue_of(NetworkKind::undirected), "AC"))]
                                  .facts));
    EXPECT_FALSE(is_difference(catalogue_of(NetworkKind::undirected)
                                   .effects[static_cast<std::size_t>(
                                       find_effect(catalogue_of(NetworkKind::undirected), "AT"))]
                                   .facts));
}

TEST(Estimability, EffectsThatDriftAreRefusedAndLambdaOneOnlyWhereItMatters) {
    EXPECT_EQ(estimability_of(kite(false, "edge,3Path")).faulty_effects, Numbers{1});
    EXPECT_EQ(estimability_of(kite(false, "edge,AT(1)")).faulty_effects, Numbers{1});
    EXPECT_TRUE(estimability_of(kite(false, "edge,AT(1.5)")).ok());
}

TEST(Estimability, EffectsThatDependOnEachOtherAreOneProblem) {
    Study study = kite(false, "edge,same(dept),different(dept)");
    study.attributes = {{"dept", AttributeType::categorical, {1, 1, 2, 2, 2, 2}, {"", "x", "y"}}};
    const Estimability found = estimability_of(study);
    EXPECT_EQ(found.faulty_effects, Numbers{2});
    EXPECT_NE(found.problems[0].found.find("`edge`, `same(dept)` and `different(dept)`"),
              std::string::npos);
}

std::vector<Names> models_of(const Study& study) {
    std::vector<Names> models;
    for (const FirstModel& each : first_models(study, look_at(study.network))) {
        models.push_back(each.effects);
    }
    return models;
}

TEST(FirstModels, SeeTheNetworkAtAGlance) {
    const NetworkLook look = look_at(kite(false, "").network);
    EXPECT_EQ(look.triangles, 1);
    EXPECT_EQ(look.least_neighbours, 0);
    EXPECT_EQ(look.most_neighbours, 3);
    EXPECT_DOUBLE_EQ(look.mean_neighbours, 10.0 / 6.0);
    Study directed = kite(true, "");
    directed.network.ties = {{0, 1}, {1, 0}, {1, 2}, {2, 0}};
    const NetworkLook other = look_at(directed.network);
    EXPECT_EQ(other.mutual, 1);
    EXPECT_EQ(other.asymmetric, 2);
    EXPECT_EQ(other.triangles, 1);
}

TEST(FirstModels, BeginWithWhatTheNetworkShows) {
    EXPECT_EQ(models_of(kite(false, "")),
              (std::vector<Names>{{"edge", "AT(2)"}, {"edge", "AT(2)", "AS(2)"}, {"edge"}}));
    // A ring has no triangle; its degrees are all alike but could be otherwise.
    EXPECT_EQ(models_of(ring_study(6, false, "")),
              (std::vector<Names>{{"edge"}, {"edge", "AS(2)"}}));
    Study directed = kite(true, "");
    directed.network.ties.insert(directed.network.ties.begin() + 2, ActorTie{1, 0});
    EXPECT_EQ(models_of(directed).front(), (Names{"arc", "reciprocity", "AT-T(2)"}));
}

TEST(FirstModels, LeaveOutWhatTheDataCannotTell) {
    Study study = kite(false, "");
    // All of one sex; a department each; ages.
    study.attributes = {{"sex", AttributeType::binary, {1, 1, 1, 1, 1, 1}, {"m", "f"}},
                        {"desk", AttributeType::categorical, {1, 2, 3, 4, 5, 6}, {}},
                        {"age", AttributeType::continuous, {1, 4, 2, 8, 5, 7}, {}}};
    EXPECT_EQ(models_of(study).back(), (Names{"edge", "AT(2)", "difference(age)"}));
    study.network.ties.clear();
    EXPECT_TRUE(models_of(study).empty());
    for (int i = 0; i < 6; ++i) {
        for (int j = i + 1; j < 6; ++j) {
            study.network.ties.push_back({i, j});
        }
    }
    EXPECT_TRUE(models_of(study).empty());
}

}  // namespace
