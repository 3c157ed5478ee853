// The names of the output files of one run.
#pragma once

#include <string>

// Each is "DIRECTORY<separator>TAG_NETWORK.txt" with the tag of its member's name; "sim" ends in
// .sps and "pajek" in .paj, and "sample_statistics" is a prefix without an ending.
struct OutputPaths {
    std::string start_statistics;
    std::string end_statistics;
    std::string parameter;
    std::string sample_statistics;
    std::string accept;
    std::string simulation;
    std::string estimation;
    std::string gof;
    std::string sim;
    std::string degree_distribution;
    std::string cluster_giant;
    std::string geodesic_distribution;
    std::string geodesic_quartiles;
    std::string pajek;
    std::string covariance;
    std::string logodds;
    std::string change_statistics;
    std::string triangle_distribution;
    std::string twopath_distribution;
    std::string et0nt_distribution;
};

OutputPaths output_paths(const std::string& directory, const std::string& network, char separator);
