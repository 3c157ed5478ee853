// The names of the output files of a run.
#include "report/output_paths.h"

#include <gtest/gtest.h>

namespace {

TEST(OutputPaths, AreTheDirectoryTheTagAndTheNetworkJoinedByABackslash) {
    const OutputPaths paths = output_paths("D", "net", '\\');
    EXPECT_EQ(paths.start_statistics, "D\\start_statistics_net.txt");
    EXPECT_EQ(paths.end_statistics, "D\\end_statistics_net.txt");
    EXPECT_EQ(paths.parameter, "D\\parameter_net.txt");
    EXPECT_EQ(paths.sample_statistics, "D\\sample_statistics_net");
    EXPECT_EQ(paths.accept, "D\\accept_net.txt");
    EXPECT_EQ(paths.simulation, "D\\simulation_net.txt");
    EXPECT_EQ(paths.estimation, "D\\estimation_net.txt");
    EXPECT_EQ(paths.gof, "D\\gof_net.txt");
    EXPECT_EQ(paths.sim, "D\\sim_net.sps");
    EXPECT_EQ(paths.degree_distribution, "D\\degree_distribution_net.txt");
    EXPECT_EQ(paths.cluster_giant, "D\\cluster_giant_net.txt");
    EXPECT_EQ(paths.geodesic_distribution, "D\\geodesic_distribution_net.txt");
    EXPECT_EQ(paths.geodesic_quartiles, "D\\geodesic_quartiles_net.txt");
    EXPECT_EQ(paths.pajek, "D\\pajek_net.paj");
    EXPECT_EQ(paths.covariance, "D\\covariance_net.txt");
    EXPECT_EQ(paths.logodds, "D\\logodds_net.txt");
    EXPECT_EQ(paths.change_statistics, "D\\change_statistics_net.txt");
    EXPECT_EQ(paths.triangle_distribution, "D\\triangle_distribution_net.txt");
    EXPECT_EQ(paths.twopath_distribution, "D\\twopath_distribution_net.txt");
    EXPECT_EQ(paths.et0nt_distribution, "D\\et0nt_distribution_net.txt");
}

TEST(OutputPaths, TakeDirectoryAndNetworkAsTheyStand) {
    const std::string directory = "C:/my runs/" + std::string(2000, 'x') + "/";
    const OutputPaths paths = output_paths(directory, "a %s b\r", '/');
    EXPECT_EQ(paths.gof, directory + "/gof_a %s b\r.txt");
    EXPECT_EQ(output_paths("", "", '\\').simulation, "\\simulation_.txt");
}

}  // namespace
