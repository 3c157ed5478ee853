#include "report/output_paths.h"

OutputPaths output_paths(const std::string& directory, const std::string& network, char separator) {
    const auto path = [&](const char* tag, const char* ending) {
        return directory + separator + tag + "_" + network + ending;
    };
    OutputPaths paths;
    paths.start_statistics = path("start_statistics", ".txt");
    paths.end_statistics = path("end_statistics", ".txt");
    paths.parameter = path("parameter", ".txt");
    paths.sample_statistics = path("sample_statistics", "");
    paths.accept = path("accept", ".txt");
    paths.simulation = path("simulation", ".txt");
    paths.estimation = path("estimation", ".txt");
    paths.gof = path("gof", ".txt");
    paths.sim = path("sim", ".sps");
    paths.degree_distribution = path("degree_distribution", ".txt");
    paths.cluster_giant = path("cluster_giant", ".txt");
    paths.geodesic_distribution = path("geodesic_distribution", ".txt");
    paths.geodesic_quartiles = path("geodesic_quartiles", ".txt");
    paths.pajek = path("pajek", ".paj");
    paths.covariance = path("covariance", ".txt");
    paths.logodds = path("logodds", ".txt");
    paths.change_statistics = path("change_statistics", ".txt");
    paths.triangle_distribution = path("triangle_distribution", ".txt");
    paths.twopath_distribution = path("twopath_distribution", ".txt");
    paths.et0nt_distribution = path("et0nt_distribution", ".txt");
    return paths;
}
