// The setup file: a positional text file that a host writes for one run.
//
// Every value is preceded by a label token that is read and thrown away; the meaning of a value is
// its position alone. A value that cannot be read leaves its target as it was and the reader goes
// on with the next item: nothing is reported. Whoever wants to explain a file passes a SetupTrace
// and sees what was read where.
#pragma once

#include <string>
#include <vector>

#include "effects/effect_selection.h"
#include "estimation/estimator.h"
#include "report/sample_tables.h"

enum class RunMode { simulation = 1, estimation = 2, fit = 3, bayesian_fit = 4 };

struct RunSettings {
    std::string network_name;
    std::string output_directory;
    int proposal_kind = 0;
    int run_mode = 0;
    int network_kind = 0;
    int actor_count = 0;
    float density = 0.0F;  // of the random start network of a simulation
    std::string network_path;
    int max_degree = 9999;  // out-degree for a digraph
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

struct SetupFile {
    bool opened = false;
    RunSettings settings;
    EffectSelection selection;
};

// How one item was read. Offsets are in bytes from the file's begin; -1 without a label.
struct SetupItem {
    enum class Kind { integer, real, text };
    std::string field;
    Kind kind = Kind::text;
    std::string label;
    long label_offset = -1;
    long value_offset = -1;
    bool read = false;
};

struct SetupTrace {
    std::vector<SetupItem> items;
    // Where reading ended, and whether anything but white space stands behind.
    long end_offset = 0;
    bool trailing_text = false;
};

// Reads the whole file. An unknown mode or kind ends it after the head. Throws std::length_error
// when an attribute count cannot be true because the file is smaller than the count.
SetupFile read_setup(const std::string& path, SetupTrace* trace = nullptr);

// The console echoes of the undirected section readers; a directed setup has none.
void echo_sections(const EffectSelection& selection, std::FILE* console);
