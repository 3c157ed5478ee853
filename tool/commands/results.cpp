#include "commands/results.h"

#include <algorithm>

namespace {

// The update files of both network kinds.
constexpr const char* kUpdateFiles[] = {"stupdate.ovri",   "biupdate.ovri",     "contupdate.ovri",
                                        "catupdate.ovri",  "covupdate.ovri",    "distupdate.ovri",
                                        "dibiupdate.ovri", "dicontupdate.ovri", "dicatupdate.ovri",
                                        "dicovupdate.ovri"};

}  // namespace

Results::Results(const SetupView& view, char separator) {
    const RunSettings& settings = view.setup.settings;
    const std::string& directory = output_directory(view);
    const OutputPaths paths = output_paths(directory, settings.network_name, separator);
    paths_ = {paths.start_statistics,
              paths.estimation,
              paths.covariance,
              paths.change_statistics,
              paths.logodds,
              paths.parameter,
              paths.simulation,
              paths.accept,
              paths.degree_distribution,
              paths.geodesic_distribution,
              paths.geodesic_quartiles,
              paths.cluster_giant,
              paths.triangle_distribution,
              paths.twopath_distribution,
              paths.et0nt_distribution,
              paths.pajek,
              paths.gof,
              paths.sim,
              paths.end_statistics};
    if (settings.run_mode == static_cast<int>(RunMode::estimation)) {
        for (const char* name : kUpdateFiles) {
            paths_.push_back(directory + separator + name);
        }
    }
    for (const std::string& path : paths_) {
        before_.push_back(file_stamp(path));
    }
    if (settings.switches.sample_graphs) {
        sample_prefix_ = paths.sample_statistics;
    }
}

std::vector<std::string> Results::written() const {
    std::vector<std::string> files;
    for (std::size_t k = 0; k < paths_.size(); ++k) {
        if (file_stamp(paths_[k]) != before_[k]) {
            files.push_back(paths_[k]);
        }
    }
    return files;
}

bool Results::was_there(const std::string& path) const {
    const auto place = std::find(paths_.begin(), paths_.end(), path) - paths_.begin();
    const FileStamp& before = before_[static_cast<std::size_t>(place)];
    return before.exists && file_stamp(path).size > before.size;
}
