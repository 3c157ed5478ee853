#include "batch/jobs.h"

#include <algorithm>

int job_count(const Plan& plan) {
    return static_cast<int>(plan.networks.size() * plan.models.size() * plan.seeds.size());
}

Job job_at(const Plan& plan, int number) {
    const auto place = static_cast<std::size_t>(number - 1);
    const std::size_t pair = place / plan.seeds.size();
    return {number, pair / plan.models.size(), pair % plan.models.size(),
            plan.seeds[place % plan.seeds.size()]};
}

std::string job_name(const Plan& plan, int number) {
    const std::size_t digits = std::max<std::size_t>(4, std::to_string(job_count(plan)).size());
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

int pair_count(const Plan& plan) {
    return static_cast<int>(plan.networks.size() * plan.models.size());
}

int pair_of(const Plan& plan, const Job& job) {
    return static_cast<int>(job.network * plan.models.size() + job.model);
}

ModelFile job_model(const Plan& plan, const Job& job) {
    const PlanNetwork& network = plan.networks[job.network];
    ModelFile model = plan.models[job.model].model;
    model.network.file = network.file;
    model.network.nodes = network.nodes;
    model.network.options.format.reset();
    if (plan.directed) {
        model.network.options.directed = plan.directed;
    }
    // They stand in the plan; a model file's own places are of another network.
    model.places.erase("network.file");
    model.places.erase("network.nodes");
    model.settings.run.seed = job.seed;
    model.settings.run.threads = std::max(1, model.settings.run.threads);
    return model;
}
