// What a setup file says of a run, its model aside.
#pragma once

#include <string>

#include "base/run_mode.h"
#include "estimation/estimator.h"
#include "report/output_paths.h"

struct RunSettings {
    std::string network_name;
    std::string output_directory;
    int proposal_kind = 0;
    int run_mode = 0;
    int network_kind = 0;
    int actor_count = 0;
    float density = 0.0F;  // of the random start network of a simulation
    std::string network_path;
    int max_degree_flag = 0;
    int max_degree = 9999;  // out-degree for a digraph; as it is unless the flag is 1
    int free_dyads_flag = 0;
    std::string free_dyads_path;
    std::string covariance_path;
    OutputSwitches switches;
    double burn_in = 0.0;
    double iterations = 0.0;
    int sample_count = 0;
    EstimationSettings estimation;
    int gof_after_estimation = 0;
};
