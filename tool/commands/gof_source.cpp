#include "commands/gof_source.h"

#include <algorithm>

#include "commands/results_model.h"

Tested tested_folder(ModelOptions words, const std::string& directory) {
    Tested tested;
    words.model = directory + "/model.toml";
    ModelFile model = model_of(words);
    // The estimation's seed is its own.
    model.settings.run.seed = words.seed;
    tested.input = read_study(std::move(model));
    Problems& problems = tested.input.problems;
    const std::optional<ResultRecord> result = read_result(directory, problems);
    if (!result || !tested.input.ok()) {
        return tested;
    }
    for (const std::string& name : tested.input.resolved.names) {
        const auto effect =
            std::find_if(result->effects.begin(), result->effects.end(),
                         [&name](const ResultEffect& each) { return each.name == name; });
        if (effect == result->effects.end()) {
            problems.push_back({.file = directory + "/result.json",
                                .field = "effect `" + name + "`",
                                .found = "no estimate",
                                .expected = "the effects of " + words.model,
                                .mend = "leave --effects out, or estimate that model"});
        } else {
            tested.parameters.push_back(effect->estimate);
        }
    }
    const auto p = static_cast<int>(tested.parameters.size());
    tested.covariance = result->covariance;
    if (tested.covariance.rows != p) {
        tested.covariance = matrix_create(p, p, 0.0);
    }
    tested.verdict = result->verdict;
    tested.exit_status = result->exit_status;
    tested.network = result->network;
    return tested;
}
