// Models by canonical names in the engine's terms.
#include "study/study_selection.h"
#include "study/effect_resolution.h"

#include <gtest/gtest.h>

#include "effects/evaluation.h"
#include "support/small_studies.h"

namespace {

// Four actors on a path, with one attribute of each type and a covariate.
Study small_study(bool directed, const std::string& effects) {
    Study study;
    study.network = {{"a", "b", "c", "d"}, directed, {{0, 1}, {1, 2}, {2, 3}}};
    study.attributes = {{"sex", AttributeType::binary, {0, 1, 1, 0}, {"f", "m"}},
                        {"age", AttributeType::continuous, {20, 30, 25, 50}, {}},
                        {"dept", AttributeType::categorical, {1, 1, 2, 3}, {"", "x", "y", "z"}}};
    FloatTable distance(4, 4, 1.5F);
    study.covariates = {{"distance", distance}};
    for (const EffectText& each : split_effects(effects)) {
        study.model.effects.push_back({parse_effect(each.text).expression, {}, {}});
    }
    return study;
}

StudySelection selected(bool directed, const std::string& effects) {
    return study_selection(small_study(directed, effects));
}

Problem problem_of(bool directed, const std::string& effects) {
    const StudySelection result = selected(directed, effects);
    EXPECT_EQ(result.problems.size(), 1U) << effects;
    EXPECT_EQ(result.faulty_effects.size(), result.problems.size());
    return result.ok() ? Problem() : result.problems[0];
}

TEST(StudySelection, KeepsTheOrderOfTheModelAndTheEnginesPlaces) {
    const StudySelection result =
        selected(false, "same(dept),at(2),edge,sum(age),covariate(distance),2_STAR");
    ASSERT_TRUE(result.ok()) << problem_text(result.problems[0]);
    EXPECT_EQ(result.names, (std::vector<std::string>{"same(dept)", "AT(2)", "edge", "sum(age)",
                                                      "covariate(distance)", "2-star"}));
    EXPECT_EQ(selection_size(result.selection), 6);
    std::vector<int> sorted = result.places;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(sorted, (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(result.places[2], 0);
    EXPECT_GT(result.places[0], result.places[1]);
}

// Statistics of the study's network, by the order of its effects.
std::vector<double> statistics(const Study& study) {
    StudySelection result = study_selection(study);
    study_parameters(study, result);
    Graph graph = graph_create(4, selection_size(result.selection), 0);
    for (const ActorTie& tie : study.network.ties) {
        graph_add_tie(graph, tie.from, tie.to);
    }
    const ActiveModel<Graph> active = active_model<Graph>(result.selection);
    for (const ActiveEffect<Graph>& effect : active) {
        graph.statistics[static_cast<std::size_t>(effect.position)] =
            effect.count(graph, effect.data);
    }
    std::vector<double> values;
    for (const int place : result.places) {
        values.push_back(graph.statistics[static_cast<std::size_t>(place)]);
    }
    return values;
}

TEST(StudySelection, EffectsCountWhatTheirNamesSay) {
    EXPECT_EQ(
        statistics(small_study(
            false, "covariate(distance),same(dept),edge,difference(age),2-star,activity(sex)")),
        (std::vector<double>{4.5, 1, 3, 10 + 5 + 25, 2, 4}));
}

TEST(StudySelection, ABinaryAttributeServesCategoriesAndNumbers) {
    EXPECT_EQ(statistics(small_study(false, "same(sex),interaction(sex),sum(sex)")),
              (std::vector<double>{1, 1, 4}));
}

TEST(StudySelection, ValuesStandAtTheirPlaces) {
    Study study = small_study(true, "arc,sum(age),product(age),difference(age)");
    study.model.effects[0].start = -2.0;
    study.model.effects[1].fixed = 0.25;
    study.model.effects[2].start = 0.5;
    StudySelection result = study_selection(study);
    ASSERT_TRUE(result.ok()) << problem_text(result.problems[0]);
    const std::vector<double> parameters = study_parameters(study, result);
    ASSERT_EQ(parameters.size(), 4U);
    const auto at = [&](std::size_t effect) {
        return parameters[static_cast<std::size_t>(result.places[effect])];
    };
    EXPECT_EQ(at(0), -2.0);
    EXPECT_EQ(at(1), 0.25);
    EXPECT_EQ(at(2), 0.5);
    EXPECT_EQ(at(3), 0.0);
}

TEST(StudySelection, ASecondLambdaIsAnEffectOfItsOwn) {
    const StudySelection result = selected(false, "AT(2),edge,AT(3),AS(2),AS(4)");
    ASSERT_TRUE(result.ok()) << problem_text(result.problems[0]);
    EXPECT_EQ(result.names, (std::vector<std::string>{"AT(2)", "edge", "AT(3)", "AS(2)", "AS(4)"}));
    EXPECT_EQ(selection_size(result.selection), 5);
    EXPECT_EQ(problem_of(false, "AT(2),AT(3),AT(4)").found, "a third `AT`");
    EXPECT_EQ(problem_of(false, "A2P(2),A2P(3)").found, "a second `A2P`");
    EXPECT_EQ(problem_of(true, "AT-T(2),AT-T(3)").found, "a second `AT-T`");
    EXPECT_EQ(problem_of(false, "AT(2),at(2.0)").found, "the effect once more");
    EXPECT_EQ(problem_of(false, "same(dept),Same(DEPT)").found, "the effect once more");
}

TEST(StudySelection, UnknownEffectsComeWithTheNearest) {
    const Problem problem = problem_of(false, "edge,triangel");
    EXPECT_EQ(problem.field, "effect `triangel`");
    EXPECT_EQ(problem.found, "an unknown effect");
    EXPECT_EQ(problem.mend, "a similar one is `triangle`; `ovri effects` lists all");
    EXPECT_EQ(selected(false, "edge,triangel").faulty_effects, std::vector<int>{1});
    EXPECT_EQ(problem_of(false, "xyzzy").mend, "`ovri effects` lists all");
}

TEST(StudySelection, EffectsOfTheOtherKindAreToldApart) {
    EXPECT_EQ(problem_of(false, "reciprocity").found, "an effect of directed networks");
    EXPECT_EQ(problem_of(true, "edge").found, "an effect of undirected networks");
    EXPECT_EQ(problem_of(false, "sender(sex)").found, "an effect of directed networks");
    EXPECT_NE(problem_of(true, "edge").mend.find("directed = false"), std::string::npos);
}

TEST(StudySelection, LambdasAreWantedOrNot) {
    EXPECT_EQ(problem_of(false, "AT").found, "no lambda");
    EXPECT_EQ(problem_of(false, "AT").mend, "write `AT(2)`: 2 is the usual lambda");
    EXPECT_EQ(problem_of(false, "AT(0.5)").found, "the lambda 0.5");
    EXPECT_EQ(problem_of(false, "AT(1e60)").found, "the lambda 1e+60");
    EXPECT_EQ(problem_of(false, "AT(two)").found, "\"two\" as a lambda");
    EXPECT_EQ(problem_of(false, "edge(2)").found, "a lambda");
    EXPECT_EQ(problem_of(false, "edge(dept)").found, "an attribute");
    EXPECT_TRUE(selected(false, "AT(1)").ok());
}

TEST(StudySelection, AttributesMustBeThereAndFit) {
    EXPECT_EQ(problem_of(false, "same(dpet)").mend, "a similar one is `dept`");
    EXPECT_EQ(problem_of(false, "same").found, "no attribute");
    EXPECT_EQ(problem_of(false, "covariate(distnace)").mend, "a similar one is `distance`");
    const Problem type = problem_of(false, "sum(dept)");
    EXPECT_EQ(type.found, "the categorical attribute `dept`");
    EXPECT_NE(type.mend.find("`same` and `different`"), std::string::npos);
    Study study = small_study(false, "same(age)");
    study.attributes.clear();
    EXPECT_NE(study_selection(study).problems.at(0).mend.find("no attribute"), std::string::npos);
}

TEST(StudySelection, AttributesMayBeCalledByNumbers) {
    Study study = small_study(false, "same(1990)");
    study.attributes[2].name = "1990";
    const StudySelection result = study_selection(study);
    ASSERT_TRUE(result.ok()) << problem_text(result.problems[0]);
    EXPECT_EQ(result.names[0], "same(\"1990\")");
}

// Every name that is offered is found again, for both kinds.
TEST(StudySelection, EveryNameOfTheCatalogueResolves) {
    for (const bool directed : {false, true}) {
        const auto names = effect_names(directed ? NetworkKind::directed : NetworkKind::undirected);
        EXPECT_GT(names.size(), 40U);
        for (const std::string& name : names) {
            bool found = false;
            for (const char* argument : {"", "(2)", "(sex)", "(age)", "(dept)", "(distance)"}) {
                found = found || selected(directed, name + argument).ok();
            }
            EXPECT_TRUE(found) << name;
        }
    }
}

TEST(StudySelection, WeightTablesStayWhereTheyAre) {
    // A chain reads them where they were built, whatever is asked of the selection afterwards.
    const Study study = ring_study(8, false, "edge,AS(2)");
    const StudySelection resolved = study_selection(study);
    ASSERT_TRUE(resolved.ok());
    std::size_t tables = 0;
    for (const StructuralChoice& choice : resolved.selection.structural) {
        if (!choice.weights.empty()) {
            const float* before = choice.weights.data();
            study_parameters(study, resolved);
            EXPECT_EQ(choice.weights.data(), before);
            ++tables;
        }
    }
    EXPECT_EQ(tables, 1U);
}

TEST(StudySelection, TheTieOfTheOtherKindSuggestsThisOne) {
    EXPECT_NE(problem_of(true, "edge").mend.find("a similar one is `arc`"), std::string::npos)
        << problem_of(true, "edge").mend;
    EXPECT_NE(problem_of(false, "arc").mend.find("a similar one is `edge`"), std::string::npos);
    EXPECT_NE(problem_of(false, "arc").mend.find("add --directed"), std::string::npos);
}

}  // namespace
