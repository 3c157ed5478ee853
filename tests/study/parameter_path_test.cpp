// The way that parameters took: stages, and what is left of a long one.
#include "study/parameter_path.h"

#include <gtest/gtest.h>

namespace {

TEST(ParameterPath, BeginsAStageWithEachNewName) {
    ParameterPath path;
    add_step(path, "newton", {1.0});
    add_step(path, "newton", {2.0});
    add_step(path, "approximation", {3.0});
    add_step(path, "newton", {4.0});
    ASSERT_EQ(path.size(), 3U);
    EXPECT_EQ(path[0].parameters, (std::vector<std::vector<double>>{{1.0}, {2.0}}));
    EXPECT_EQ(path[1].name, "approximation");
    EXPECT_EQ(path_steps(path), 4);
}

TEST(ParameterPath, KeepsTheEndsOfEveryStageWhenThinned) {
    ParameterPath path;
    for (int step = 0; step < 1000; ++step) {
        add_step(path, step < 990 ? "subphase 1" : "subphase 2", {static_cast<double>(step)});
    }
    const ParameterPath thin = thinned(path, 100);
    ASSERT_EQ(thin.size(), 2U);
    EXPECT_LE(path_steps(thin), 102);
    EXPECT_GE(path_steps(thin), 98);
    EXPECT_EQ(thin[0].parameters.front(), std::vector<double>{0.0});
    EXPECT_EQ(thin[0].parameters[1], std::vector<double>{10.0});
    EXPECT_EQ(thin[0].parameters.back(), std::vector<double>{989.0});
    EXPECT_EQ(thin[1].parameters.front(), std::vector<double>{990.0});
    EXPECT_EQ(thin[1].parameters.back(), std::vector<double>{999.0});
    EXPECT_EQ(path_steps(thinned(path, 1000)), 1000);
}

}  // namespace
