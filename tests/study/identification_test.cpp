// What can be known of a model before any chain runs.
#include "study/identification.h"

#include <gtest/gtest.h>

#include "support/small_studies.h"

namespace {

Matrix products_of(const std::vector<std::vector<double>>& columns) {
    const int p = static_cast<int>(columns.size());
    Matrix products = matrix_create(p, p, 0.0);
    for (int i = 0; i < p; ++i) {
        for (int j = 0; j < p; ++j) {
            for (std::size_t row = 0; row < columns[0].size(); ++row) {
                products[i][j] += columns[static_cast<std::size_t>(i)][row] *
                                  columns[static_cast<std::size_t>(j)][row];
            }
        }
    }
    return products;
}

TEST(Identification, TheDependentOnesAreNamedAndNoOthers) {
    EXPECT_EQ(dependent_set(products_of({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}})), DependentSet());
    EXPECT_EQ(dependent_set(products_of({{1, 0, 0, 1}, {0, 1, 3, 0}, {2, 0, 0, 2}})),
              (DependentSet{0, 2}));
    EXPECT_EQ(dependent_set(products_of({{1, 1, 1}, {5, 1, 2}, {1, 0, 0}, {0, 1, 1}})),
              (DependentSet{0, 2, 3}));
    EXPECT_EQ(dependent_set(products_of({{1, 2, 3}, {0, 0, 0}})), (DependentSet{1}));
    EXPECT_EQ(dependent_set(products_of({{1e6, 2e6}, {1e-6, 3e-6}})), DependentSet());
    EXPECT_EQ(dependent_set(matrix_create(0, 0, 0.0)), DependentSet());
}

// Six actors in a ring, with two departments.
Study departments(const std::string& effects) {
    Study study = ring_study(6, false, effects);
    study.attributes = {{"dept", AttributeType::categorical, {1, 1, 1, 2, 2, 2}, {"", "x", "y"}},
                        {"age", AttributeType::continuous, {1, 4, 2, 8, 5, 7}, {}}};
    return study;
}

DependentSet dependent_of(const Study& study) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    return dependent_dyadic_effects(study, resolved);
}

TEST(Identification, DyadicEffectsThatDependInEveryNetwork) {
    EXPECT_EQ(dependent_of(departments("same(dept),AT(2),different(dept),edge")),
              (DependentSet{0, 2, 3}));
    EXPECT_EQ(dependent_of(departments("edge,same(dept),sum(age),difference(age),product(age)")),
              DependentSet());
    // Effects of other dyads are not looked at.
    EXPECT_EQ(dependent_of(departments("AT(2),2-star,triangle")), DependentSet());
}

std::vector<int> infinite_of(const Study& study) {
    StudySelection resolved = study_selection(study);
    EXPECT_TRUE(resolved.ok());
    std::vector<int> signed_effects;
    for (const InfiniteEstimate& each : infinite_dyadic_estimates(study, resolved)) {
        signed_effects.push_back(each.sign * (each.effect + 1));
    }
    return signed_effects;
}

TEST(Identification, StatisticsAtTheirExtremesHaveInfiniteEstimates) {
    Study study = departments("edge,same(dept),AT(2),sum(age)");
    EXPECT_EQ(infinite_of(study), std::vector<int>());
    study.network.ties = {{0, 3}, {1, 4}};
    EXPECT_EQ(infinite_of(study), std::vector<int>{-2});
    study.network.ties = {{0, 1}, {0, 2}, {1, 2}, {3, 4}, {3, 5}, {4, 5}, {0, 3}};
    EXPECT_EQ(infinite_of(study), std::vector<int>{2});
    study.network.ties.clear();
    EXPECT_EQ(infinite_of(study), (std::vector<int>{-1, -2, -4}));
    // All that may change within a department is tied.
    study.network.ties = {{0, 1}};
    study.dyads.restricted = true;
    study.dyads.free = {{0, 1}, {0, 3}};
    EXPECT_EQ(infinite_of(study), std::vector<int>{2});
}

}  // namespace
