#include "batch/emit.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "commands/model_options.h"

namespace {

struct EngineName {
    Engine engine;
    const char* name;
    const char* command;
};
constexpr std::array<EngineName, 3> kEngines = {{{Engine::slurm, "slurm", "./submit.sh"},
                                                 {Engine::parallel, "parallel", "./run.sh"},
                                                 {Engine::make, "make", "make -j$(nproc)"}}};

// A Slurm that nobody configured takes arrays of at most 1,001 tasks.
constexpr int kMostTasks = 1000;

const EngineName& row_of(Engine engine) {
    return *std::find_if(kEngines.begin(), kEngines.end(),
                         [engine](const EngineName& each) { return each.engine == engine; });
}

// Statuses of a job whose folder is complete: converged, or not.
constexpr const char* kTolerated = "|| [ $? -eq 4 ]";

// In a makefile a dollar sign is doubled.
std::string make_words(const std::string& words) {
    std::string text;
    for (const char each : words) {
        text += each == '$' ? std::string("$$") : std::string(1, each);
    }
    return text;
}

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

// The whole of a script's beginning: it works in the folder in which it stands.
std::string script_head(const std::string& what) {
    return "#!/bin/sh\n# " + what +
           "\nset -eu\ncd \"$(dirname \"$0\")\"\nOVRI=${OVRI:-ovri}\nexport OVRI\n";
}

std::string makefile(const Plan& plan, const EmitSettings& settings) {
    const std::string plan_words = make_words(shell_word(settings.plan));
    std::string text =
        "# Jobs of a plan. `make -j8` does those that are not done, eight at a time, and\n"
        "# merges all; `make -k` goes on behind a job that cannot be completed.\n"
        "OVRI ?= ovri\n\n"
        "jobs =";
    for (int number = 1; number <= job_count(plan); ++number) {
        text += (number % 10 == 1 ? " \\\n  " : " ") + job_name(plan, number);
    }
    text += "\n\n.PHONY: all $(jobs:%=job-%)\n";
    text += fmt::format(
        "all: $(jobs:%=job-%)\n\t$(OVRI) batch {0} --collect -o . {1}\n\n"
        "# A job that is done with the same inputs is passed over.\n"
        "$(jobs:%=job-%): job-%:\n\t@$(OVRI) batch {0} --job $* -o . -q {1}\n",
        plan_words, make_words(kTolerated));
    return text;
}

std::string parallel_script(const EmitSettings& settings) {
    const std::string plan_words = shell_word(settings.plan);
    std::string text = script_head(
        "Jobs of a plan by GNU parallel, on the machines of machines.txt; those in\n"
        "# joblog.tsv that were completed are passed over.");
    text += "tail -n +2 jobs.tsv | cut -f 1 |\n";
    text +=
        "    parallel --joblog joblog.tsv --resume --resume-failed --sshloginfile machines.txt "
        "\\\n";
    text += "        --workdir \"$PWD\" --env OVRI \\\n";
    text += "        " +
            shell_word(
                fmt::format("\"$OVRI\" batch {} --job {{}} -o . -q {}", plan_words, kTolerated)) +
            " || true\n";
    // What could not be completed shows in the summary and in its status.
    text += fmt::format("\"$OVRI\" batch {} --collect -o .\n", plan_words);
    return text;
}

constexpr const char* kMachines =
    "# One machine a line, as for ssh; \":\" is this one, \"4/name\" takes four jobs at a time.\n"
    "# All of them see this folder and the plan under the same path.\n"
    ":\n";

// With room for machines that are three times as slow, and for every attempt.
double job_minutes(const Plan& plan, const PlanCheck& check, const EmitSettings& settings) {
    double seconds = 0.0;
    for (const PlanModel& model : plan.models) {
        const StudyEstimation& estimation = model.model.settings.estimation;
        const auto k = static_cast<std::size_t>(&model - plan.models.data());
        for (std::size_t network = 0; network < plan.networks.size(); ++network) {
            const double once = check.costs[network * plan.models.size() + k].proposals *
                                settings.seconds_per_proposal;
            double all = once * 3.0 * estimation.attempts;
            if (estimation.time_limit > 0.0) {
                all = std::min(all, 2.0 * estimation.time_limit + 3.0 * once);
            }
            seconds = std::max(seconds, all);
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

std::string slurm_array(const Plan& plan, const PlanCheck& check, const EmitSettings& settings) {
    const int jobs = job_count(plan);
    const int tasks = std::min(jobs, kMostTasks);
    const int jobs_a_task = (jobs + tasks - 1) / tasks;
    const auto minutes = static_cast<long>(job_minutes(plan, check, settings) * jobs_a_task);
    const auto megabytes =
        static_cast<long>(std::ceil(2.0 * largest_bytes(check) / 1e6 / 100.0) * 100.0);
    std::string text = fmt::format(
        "#!/bin/sh\n#SBATCH --job-name=ovri\n#SBATCH --array=1-{}\n#SBATCH --cpus-per-task=1\n"
        "#SBATCH --mem={}M\n#SBATCH --time={}\n#SBATCH --output=logs/%A_%a.txt\n",
        tasks, megabytes, minutes);
    text += fmt::format(
        "# Task K of {0} does the jobs K, K + {0} and so on up to {1}. Time and memory are "
        "estimates\n"
        "# from the plan, with room; submit.sh passes its words on to sbatch, whose --time goes "
        "first.\n"
        "status=0\njob=$SLURM_ARRAY_TASK_ID\nwhile [ \"$job\" -le {1} ]; do\n"
        "    \"${{OVRI:-ovri}}\" batch {2} --job \"$job\" -o . -q {3} || status=$?\n"
        "    job=$((job + {0}))\ndone\nexit $status\n",
        tasks, jobs, shell_word(settings.plan), kTolerated);
    return text;
}

std::string slurm_submit() {
    std::string text = script_head(
        "Submits the plan's jobs as an array, and the merging of their results behind\n"
        "# it. Words behind the script's name go to sbatch: ./submit.sh --partition=short");
    text += "mkdir -p logs\n";
    text += "array=$(sbatch --parsable \"$@\" array.sh)\narray=${array%%;*}\n";
    text +=
        "sbatch --parsable \"$@\" --dependency=\"afterany:$array\" --job-name=ovri-collect \\\n";
    text += "    --output=logs/collect.txt --time=60 collect.sh\n";
    return text;
}

std::string slurm_collect(const EmitSettings& settings) {
    return fmt::format("#!/bin/sh\n\"${{OVRI:-ovri}}\" batch {} --collect -o . {}\n",
                       shell_word(settings.plan), kTolerated);
}

}  // namespace

std::optional<Engine> engine_of(const std::string& name) {
    const auto place = std::find_if(kEngines.begin(), kEngines.end(),
                                    [&name](const EngineName& each) { return each.name == name; });
    return place != kEngines.end() ? std::optional(place->engine) : std::nullopt;
}

std::string emitted_command(Engine engine) { return row_of(engine).command; }

std::vector<EmittedFile> emitted_files(Engine engine, const Plan& plan, const PlanCheck& check,
                                       const EmitSettings& settings) {
    std::vector<EmittedFile> files = {{"jobs.tsv", job_list(plan, check), false}};
    switch (engine) {
        case Engine::slurm:
            files.push_back({"array.sh", slurm_array(plan, check, settings), true});
            files.push_back({"collect.sh", slurm_collect(settings), true});
            files.push_back({"submit.sh", slurm_submit(), true});
            break;
        case Engine::parallel:
            files.push_back({"machines.txt", kMachines, false});
            files.push_back({"run.sh", parallel_script(settings), true});
            break;
        case Engine::make:
            files.push_back({"Makefile", makefile(plan, settings), false});
            break;
    }
    return files;
}
