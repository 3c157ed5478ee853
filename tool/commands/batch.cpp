#include <algorithm>
#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>

#include "base/native_path.h"
#include "batch/batch_progress.h"
#include "batch/emit.h"
#include "batch/folder_lock.h"
#include "batch/job_folder.h"
#include "batch/plan_check.h"
#include "batch/plan_work.h"
#include "batch/summary.h"
#include "batch/workers.h"
#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/study_input.h"
#include "formats/model_writer.h"
#include "formats/text_file.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"

namespace fs = std::filesystem;

namespace {

constexpr int kMostWorkers = 512;

struct BatchOptions {
    std::string plan;
    FolderOptions folder;
    std::optional<std::uint32_t> workers;
    std::optional<std::uint32_t> job;
    std::string engine;  // empty without
    bool collect = false;
    bool no_times = false;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

std::string directory_of(const BatchOptions& options) {
    if (!options.folder.directory.empty()) {
        return options.folder.directory;
    }
    ModelOptions words;
    words.model = options.plan;
    return model_name(words) + ".results";
}

// Makes the folder, or takes up one that holds jobs. Why it cannot; empty when it can.
std::string take_folder(const std::string& directory) {
    std::error_code problem;
    const fs::path path = native_path(directory);
    const bool there = fs::exists(path, problem);
    const bool known = fs::exists(path / "jobs", problem) || fs::exists(path / "jobs.tsv", problem);
    if (there && !known && (!fs::is_directory(path, problem) || !fs::is_empty(path, problem))) {
        return "`" + directory + "` exists and holds no jobs of a plan; name another folder by -o";
    }
    fs::create_directories(path / "jobs", problem);
    return problem ? "the folder `" + directory + "` cannot be made: " + problem.message() +
                         "; name another one by -o"
                   : "";
}

int tell_unwritten(const std::string& path) {
    print(stderr, "ovri: {} could not be written\n", path);
    return kNotCompleted;
}

int tell_mistake(const std::string& mistake) {
    print(stderr, "ovri: {}\n", mistake);
    return kErrorsFound;
}

// The summary of what is there, in its files and on standard output.
int conclude(const Plan& plan, const std::string& directory, const BatchOptions& options) {
    const BatchSummary summary = summarise(directory, plan, !options.no_times);
    if (const std::vector<std::string> strays = stray_jobs(directory, plan); !strays.empty()) {
        print(stderr,
              "{}: {}/jobs holds what is no job of this plan and is left out: {}; an earlier plan "
              "had it, and nothing reads it now\n",
              painted(screen_on(stderr, options.colour), Colour::yellow, "warning"), directory,
              some_of(strays));
    }
    const std::pair<std::string, const std::string*> files[] = {
        {directory + "/summary.csv", &summary.csv}, {directory + "/summary.json", &summary.json}};
    for (const auto& [path, text] : files) {
        if (!replace_file(path, *text)) {
            return tell_unwritten(path);
        }
    }
    if (options.json || options.csv) {
        print(stdout, "{}", options.json ? summary.json : summary.csv);
    } else {
        print(stdout, "{}{}\nsummary: {}/summary.csv\n", summary.table, counts_text(summary),
              directory);
    }
    const int status = summary_status(summary);
    return lost_output(stdout) ? kNotCompleted : status;
}

double work_of(const Plan& plan, const PlanCheck& check, int number) {
    return check.costs[static_cast<std::size_t>(pair_of(plan, job_at(plan, number)))].work;
}

// Jobs that are not done, the largest first: at the end no worker waits long for another.
std::vector<int> jobs_to_do(const Plan& plan, const PlanCheck& check, const std::string& directory,
                            bool overwrite, JobDigests& digests) {
    std::vector<int> jobs;
    for (int number = 1; number <= job_count(plan); ++number) {
        const Job job = job_at(plan, number);
        if (overwrite || !job_state(directory, plan, job, digests.of(job)).result) {
            jobs.push_back(number);
        }
    }
    std::stable_sort(jobs.begin(), jobs.end(), [&](int one, int other) {
        return work_of(plan, check, one) > work_of(plan, check, other);
    });
    return jobs;
}

int worker_count(const BatchOptions& options, std::size_t jobs) {
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    const unsigned asked = options.workers.value_or(0);
    const unsigned wanted = asked > 0 ? asked : cores;
    return static_cast<int>(
        std::min<std::size_t>({wanted, kMostWorkers, std::max<std::size_t>(1, jobs)}));
}

void tell_end(const Plan& plan, int job, int status) {
    if (status > 128 && status != kInterrupted) {
        print(stderr, "ovri: job {} was ended by signal {}; the same command does it again\n",
              job_name(plan, job), status - 128);
    } else if (status == kNotCompleted || status == kErrorsFound) {
        print(stderr, "ovri: job {} was not completed\n", job_name(plan, job));
    }
}

int run_all(const Plan& plan, const PlanCheck& check, const std::string& directory,
            const BatchOptions& options) {
    JobDigests digests(plan);
    const std::vector<int> jobs =
        jobs_to_do(plan, check, directory, options.folder.overwrite, digests);
    const int workers = worker_count(options, jobs.size());
    const int done = job_count(plan) - static_cast<int>(jobs.size());
    double work = 0.0;
    for (const int job : jobs) {
        work += work_of(plan, check, job);
    }
    if (!options.quiet) {
        print(stderr, "{}: {} jobs, {} done before, {} at a time\n", plan.path, job_count(plan),
              done, workers);
    }
    std::atomic<bool> stop{false};
    const InterruptScope interrupt(stop);
    bool complete = false;
    {
        const bool shown = !options.quiet && is_terminal(stderr);
        BatchProgress progress(shown ? stderr : nullptr, job_count(plan), done, work);
        const WorkerCalls calls = {.perform =
                                       [&](int number) {
                                           const Job job = job_at(plan, number);
                                           return perform_job(directory, plan, job,
                                                              digests.of(job));
                                       },
                                   .ended =
                                       [&](int number, int status) {
                                           progress.add(work_of(plan, check, number));
                                           tell_end(plan, number, status);
                                       },
                                   .tick = [&](int running) { progress.show(running); }};
        complete = run_jobs(jobs, workers, calls, stop);
    }
    if (!complete) {
        print(stderr,
              "ovri: interrupted; jobs that were done are kept, the same command goes on\n");
        return kInterrupted;
    }
    return conclude(plan, directory, options);
}

int status_of_job(int status) {
    return status == kDone || status == kInterrupted             ? status
           : status == kNotConverged || status == kNotIdentified ? kNotConverged
                                                                 : kNotCompleted;
}

int run_one(const Plan& plan, const Job& job, const std::string& directory,
            const BatchOptions& options) {
    JobDigests digests(plan);
    const std::string digest = digests.of(job);
    JobState state = job_state(directory, plan, job, digest);
    int status = kNotCompleted;
    if (state.result && !options.folder.overwrite) {
        status = status_of_job(state.result->exit_status);
    } else {
        status = status_of_job(perform_job(directory, plan, job, digest));
        state = job_state(directory, plan, job, digest);
    }
    if (!options.quiet) {
        print(stdout, "job {}: {}\n", job_name(plan, job.number),
              state.result ? state.result->verdict : "not completed");
    }
    return status;
}

int emit(const Plan& plan, const PlanCheck& check, const std::string& directory, Engine engine) {
    const double seconds = engine == Engine::slurm ? seconds_per_proposal(plan, check) : 0.0;
    return write_engine(engine, plan_work(plan, check, path_from(directory, plan.path), seconds),
                        directory);
}

// What is wrong with the options once the plan is known; empty when nothing is.
std::string option_mistake(const Plan& plan, const BatchOptions& options) {
    if (options.job &&
        (*options.job < 1 || *options.job > static_cast<unsigned>(job_count(plan)))) {
        return fmt::format("`--job` takes a number from 1 to {}, not {}", job_count(plan),
                           *options.job);
    }
    if (!options.engine.empty() && options.plan == "-") {
        return "`--emit` needs the plan in a file, which each job reads";
    }
    return "";
}

int collect(const Plan& plan, const std::string& directory, const BatchOptions& options) {
    std::error_code problem;
    return fs::is_directory(native_path(directory + "/jobs"), problem)
               ? conclude(plan, directory, options)
               : tell_mistake("there is no folder `" + directory + "` with jobs; name it by -o");
}

int carry_out(const Plan& plan, const BatchOptions& options) {
    const std::string directory = directory_of(options);
    if (options.collect) {
        return collect(plan, directory, options);
    }
    const std::optional<Job> job =
        options.job ? std::optional(job_at(plan, static_cast<int>(*options.job))) : std::nullopt;
    const PlanCheck check = job ? check_job(plan, *job) : check_plan(plan);
    if (!check.ok()) {
        tell_problems(check.problems, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    if (const std::string mistake = take_folder(directory); !mistake.empty()) {
        return tell_mistake(mistake);
    }
    if (job) {
        return run_one(plan, *job, directory, options);
    }
    if (const std::optional<Engine> engine = engine_of(options.engine)) {
        return emit(plan, check, directory, *engine);
    }
    const FolderLock lock(directory);
    return lock.held() ? run_all(plan, check, directory, options)
                       : tell_mistake("another `ovri batch` is doing the jobs of `" + directory +
                                      "`; wait for its end, or name another folder by -o");
}

int batch(const BatchOptions& options) {
    outlive_failed_writes();
    const Plan plan = read_plan(options.plan);
    if (!plan.ok()) {
        tell_problems(plan.problems, screen_on(stderr, options.colour));
        return kErrorsFound;
    }
    if (const std::string mistake = option_mistake(plan, options); !mistake.empty()) {
        print(stderr, "ovri: {}\n", mistake);
        return kNotUnderstood;
    }
    return carry_out(plan, options);
}

std::function<int()> declare_batch(CLI::App& app) {
    const auto options = std::make_shared<BatchOptions>();
    add_needed_word(app, "PLAN", options->plan, "The plan, or - for standard input.");
    add_output(app, options->folder.directory,
               "The folder of jobs and summary, in place of NAME.results in the current "
               "directory. Jobs that are done in it are kept.");
    add_flag(app, "--overwrite", options->folder.overwrite, "Do every job again.");
    add_number(app, "--workers", options->workers,
               "Do N jobs at a time, in place of one a core; results do not change.", 1);
    CLI::Option& job = add_number(app, "--job", options->job, "Do job N alone.");
    CLI::Option& engine = add_engine(app, options->engine);
    CLI::Option& collect = add_flag(app, "--collect", options->collect,
                                    "Do no job; write the summary of those that are done.");
    exclude(collect, job);
    exclude(collect, engine);
    exclude(job, engine);
    add_flag(app, "--no-times", options->no_times,
             "Leave the seconds out of the summary: then equal results are equal bytes.");
    CLI::Option& json = add_flag(app, "--json", options->json,
                                 "Print summary.json on standard output, and nothing else.");
    CLI::Option& csv = add_flag(app, "--csv", options->csv,
                                "Print summary.csv on standard output, and nothing else.");
    exclude(csv, json);
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return batch(*options); };
}

}  // namespace

extern const Command kBatchCommand = {
    .name = "batch",
    .summary = "many runs, on the cores of this machine or as a job array",
    .examples = R"(
  ovri batch plan.toml
  ovri batch plan.toml -o villages --workers 4
  ovri batch plan.toml -o villages --emit slurm
  ovri batch plan.toml -o villages --collect
)",
    .details = R"page(
A plan crosses networks, models and seeds:

  networks = "villages/*.csv"        # a pattern or a list; seen from the plan
  nodes    = "villages/*.nodes.csv"  # optional: one a network by order of
                                     # name, or one for all
  directed = false                   # optional
  models   = [["edge", "AT(2)"], "closure.toml"]
  seeds    = [1, 2, 3]               # or { from = 1, count = 200 }
  [settings]                         # optional: keys of [estimation]; threads
  attempts = 5

All is checked before anything begins. Each job leaves jobs/NUMBER as
`ovri estimate` would; then come summary.csv, a row a job and effect, and
summary.json, which also pools each model over the networks. The same command
goes on where it was ended: jobs that are done with the same inputs are kept,
others done again.
)page",
    .statuses = R"(
Exit status: 0 every job converged; 1 the plan has errors and nothing was
written; 2 the command line was not understood; 3 some jobs could not be
completed; 4 some did not converge; 130 interrupted by Ctrl-C.
)",
    .declare = declare_batch};
