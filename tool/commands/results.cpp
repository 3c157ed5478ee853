#include "commands/results.h"

#include <algorithm>

Results::Results(const SetupView& view, char separator) {
    const OutputPaths paths = paths_of(view, separator);
    for (const OutputFile* file : files_of(view)) {
        const std::string& path = paths.*file->path;
        if (is_sample_report(*file)) {
            sample_prefix_ = path;
        } else {
            before_.push_back({path, file->growth, file_stamp(path)});
        }
    }
}

std::vector<std::string> Results::written() const {
    std::vector<std::string> paths;
    for (const Before& before : before_) {
        if (file_stamp(before.path) != before.stamp) {
            paths.push_back(before.path);
        }
    }
    return paths;
}

const char* Results::earlier_file(const std::string& path) const {
    const auto before = std::find_if(before_.begin(), before_.end(),
                                     [&path](const Before& each) { return each.path == path; });
    if (before == before_.end() || !before->stamp.exists) {
        return nullptr;
    }
    return before->growth == OutputGrowth::added ? "added to the end" : "replaced";
}
