// The output files of a run: what each is called, which runs write it and how.
//
// One table holds all of that. The paths of a run, the check of its directory before it, the list
// of results behind it and the tables of docs/output_files.md come from it.
#pragma once

#include <array>
#include <span>
#include <string>

#include "base/run_mode.h"
#include "effects/catalogue.h"

// The seven output switches; each on when its setting is 1.
struct OutputSwitches {
    bool sample_graphs = false;
    bool degree_distribution = false;
    bool geodesic_distribution = false;
    bool cluster_giant = false;
    // Undirected only; a directed run accepts and ignores them.
    bool triangle_distribution = false;
    bool two_path_distribution = false;
    bool et_distribution = false;
};

// The paths of one run. Those of the update files are of the run's network kind.
struct OutputPaths {
    std::string start_statistics;
    std::string estimation;
    std::string covariance;
    std::string change_statistics;
    std::string logodds;
    std::string parameter;
    std::string simulation;
    std::string accept;
    std::string degree_distribution;
    std::string geodesic_distribution;
    std::string geodesic_quartiles;
    std::string cluster_giant;
    std::string triangle_distribution;
    std::string twopath_distribution;
    std::string et0nt_distribution;
    std::string sample_statistics;  // without its end: the sample's number and ".txt"
    std::string pajek;
    std::string gof;
    std::string sim;
    std::string end_statistics;
    std::string structural_update;
    std::string binary_update;
    std::string continuous_update;
    std::string categorical_update;
    std::string covariate_update;
};

// The path of an attribute group's update file.
const std::string& update_path(const OutputPaths& paths, AttributeGroup group);

// What becomes of a file that an earlier run left under the name.
enum class OutputGrowth { replaced, added };

// In which runs of a mode a file is written.
struct OutputCase {
    bool undirected = false;
    bool directed = false;
    bool unless_degenerate = false;
    bool if_converged = false;
    // By the fit that may follow an estimation.
    bool in_fit_after = false;
};

struct OutputFile {
    std::string OutputPaths::*path;
    // "%s" stands for the network's name. A name without it is an update file's.
    const char* name;
    OutputGrowth growth;
    // In the order of RunMode.
    std::array<OutputCase, 4> cases;
    // Null when no switch is asked for.
    bool OutputSwitches::*on_switch;
    const char* meaning;
};

// In the order in which results are listed.
std::span<const OutputFile> output_files();

bool is_update_file(const OutputFile& file);
// One file for each sample: the path is only the beginning of their names.
bool is_sample_report(const OutputFile& file);

// Whether a run may write the file; `fit_after` tells whether a fit may follow its estimation.
bool may_write(const OutputFile& file, RunMode mode, NetworkKind kind,
               const OutputSwitches& switches, bool fit_after);

// "DIRECTORY<separator>NAME" for each file of the table. Update files lie in the process's current
// directory unless they are wanted beside the others.
OutputPaths output_paths(const std::string& directory, const std::string& network, char separator,
                         NetworkKind kind = NetworkKind::undirected, bool updates_beside = false);
