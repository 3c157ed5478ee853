// What only a host's setup file says of a run, and no key of a study does.
//
// A model file keeps it in the section [host], so that a setup file made of it asks for the same
// run. Paths and names there stand as the setup file has them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/run_mode.h"
#include "report/output_paths.h"

struct HostRun {
    RunMode mode = RunMode::estimation;
    std::string name;    // the network's; empty for that of the setup file
    std::string output;  // the directory of the output files; empty for the one of the run
    int proposal_kind = 0;
    std::optional<double> density;  // of the random network that a simulation starts from
    bool fit_after = false;         // a goodness of fit after an estimation that converged
    OutputSwitches outputs;
    // Where the study's sampling cannot say them: no proposals at all, or a fraction of one.
    std::optional<double> burn_in;
    std::optional<double> iterations;
    std::string covariance;  // the file of a Bayesian fit
    // Numbers of rows that are off, by the row's label, where they are not the customary ones.
    std::map<std::string, double> values;
    std::map<std::string, double> lambdas;
};

// "simulation", "estimation", "gof", "bayesian-gof".
const char* run_mode_name(RunMode mode);
std::optional<RunMode> run_mode_of(const std::string& name);
std::vector<std::string> run_mode_names();

// The switches of a setup file by name: "sample-graphs", "degree-distribution", ...
struct OutputSwitchName {
    std::string name;
    bool OutputSwitches::*member;
};
std::vector<OutputSwitchName> output_switch_names();
