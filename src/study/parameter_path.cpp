#include "study/parameter_path.h"

#include <algorithm>
#include <numeric>
#include <utility>

void add_step(ParameterPath& path, const std::string& stage, std::vector<double> parameters) {
    if (path.empty() || path.back().name != stage) {
        path.push_back({stage, {}});
    }
    path.back().parameters.push_back(std::move(parameters));
}

int path_steps(const ParameterPath& path) {
    return std::accumulate(path.begin(), path.end(), 0, [](int sum, const PathStage& each) {
        return sum + static_cast<int>(each.parameters.size());
    });
}

ParameterPath thinned(const ParameterPath& path, int most) {
    const int steps = path_steps(path);
    if (steps <= most) {
        return path;
    }
    const auto every = static_cast<std::size_t>((steps + most - 1) / std::max(most, 1));
    ParameterPath thin;
    for (const PathStage& stage : path) {
        PathStage kept{stage.name, {}};
        for (std::size_t row = 0; row < stage.parameters.size(); ++row) {
            if (row % every == 0 || row + 1 == stage.parameters.size()) {
                kept.parameters.push_back(stage.parameters[row]);
            }
        }
        thin.push_back(std::move(kept));
    }
    return thin;
}
