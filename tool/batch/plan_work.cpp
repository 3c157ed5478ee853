#include "batch/plan_work.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "commands/model_options.h"

namespace {

std::string job_list(const Plan& plan, const PlanCheck& check) {
    std::string text = "job\tnetwork\tmodel\tseed\tproposals\n";
    for (int number = 1; number <= job_count(plan); ++number) {
        const Job job = job_at(plan, number);
        const JobCost& cost = check.costs[static_cast<std::size_t>(pair_of(plan, job))];
        text += fmt::format("{}\t{}\t{}\t{}\t{:.0f}\n", job_name(plan, number),
                            plan.networks[job.network].name, plan.models[job.model].name, job.seed,
                            cost.proposals);
    }
    return text;
}

// With room for machines that are three times as slow, for every attempt, and for each network of a
// bootstrap.
double job_minutes(const Plan& plan, const PlanCheck& check, double seconds_per_proposal) {
    double seconds = 0.0;
    for (const PlanModel& model : plan.models) {
        const StudyEstimation& estimation = model.model.settings.estimation;
        const auto k = static_cast<std::size_t>(&model - plan.models.data());
        for (std::size_t network = 0; network < plan.networks.size(); ++network) {
            const double once =
                check.costs[network * plan.models.size() + k].proposals * seconds_per_proposal;
            double all = once * 3.0 * estimation.attempts;
            if (estimation.time_limit > 0.0) {
                all = std::min(all, 2.0 * estimation.time_limit + 3.0 * once);
            }
            seconds = std::max(seconds, all + once * 3.0 * estimation.bootstrap);
        }
    }
    return std::ceil((60.0 + seconds) / 60.0);
}

double largest_bytes(const PlanCheck& check) {
    double bytes = 0.0;
    for (const JobCost& each : check.costs) {
        bytes = std::max(bytes, each.bytes);
    }
    return bytes;
}

}  // namespace

EngineWork plan_work(const Plan& plan, const PlanCheck& check, const std::string& plan_file,
                     double seconds_per_proposal) {
    const std::string batch = "batch " + shell_word(plan_file);
    EngineWork work;
    work.count = job_count(plan);
    work.name = [&plan](int number) { return job_name(plan, number); };
    work.list_file = "jobs.tsv";
    work.list = job_list(plan, check);
    work.call = [batch](const std::string& number) {
        return batch + " --job " + number + " -o . -q";
    };
    work.collect = batch + " --collect -o .";
    // Statuses of a job whose folder is complete: converged, or not.
    work.tolerated = "|| [ $? -eq 4 ]";
    work.minutes = job_minutes(plan, check, seconds_per_proposal);
    work.bytes = largest_bytes(check);
    return work;
}
