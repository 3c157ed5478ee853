#include "batch/emit.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <vector>

#include "base/native_path.h"
#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "terminal/print.h"

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

// Stands for a piece's number until its words are found.
constexpr const char* kNumber = "@number@";

std::string capital(std::string word) {
    word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    return word;
}

// "the plan" of "a plan".
std::string the(const std::string& words) { return "the" + words.substr(words.find(' ')); }

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

// In a makefile a dollar sign is doubled.
std::string make_words(const std::string& words) {
    std::string text;
    for (const char each : words) {
        text += each == '$' ? std::string("$$") : std::string(1, each);
    }
    return text;
}

// Words with others behind them, if there are any.
std::string followed(const std::string& words, const std::string& others) {
    return others.empty() ? words : words + " " + others;
}

// The whole of a script's beginning: it works in the folder in which it stands.
std::string script_head(const std::string& what) {
    return "#!/bin/sh\n# " + what +
           "\nset -eu\ncd \"$(dirname \"$0\")\"\nOVRI=${OVRI:-ovri}\nexport OVRI\n";
}

std::string makefile(const EngineWork& work) {
    const auto recipe = [&work](const std::string& call) {
        return make_words(followed(call, work.tolerated));
    };
    std::string text = fmt::format(
        "# {}s of {}. `make -j8` does those that are not done, eight at a time, and\n"
        "# merges all; `make -k` goes on behind a {} that cannot be completed.\n"
        "OVRI ?= ovri\n\n"
        "{}s =",
        capital(work.unit), work.of, work.unit, work.unit);
    for (int number = 1; number <= work.count; ++number) {
        text += (number % 10 == 1 ? " \\\n  " : " ") + work.name(number);
    }
    text += fmt::format(
        "\n\n.PHONY: all $({0}s:%={0}-%)\n"
        "all: $({0}s:%={0}-%)\n\t$(OVRI) {1}\n\n"
        "# A {0} that is done with the same inputs is passed over.\n"
        "$({0}s:%={0}-%): {0}-%:\n\t@$(OVRI) {2}\n",
        work.unit, recipe(work.collect), replaced(recipe(work.call(kNumber)), kNumber, "$*"));
    return text;
}

std::string parallel_script(const EngineWork& work) {
    std::string text = script_head(
        fmt::format("{}s of {} by GNU parallel, on the machines of machines.txt; those in\n"
                    "# joblog.tsv that were completed are passed over.",
                    capital(work.unit), work.of));
    text += "tail -n +2 " + work.list_file + " | cut -f 1 |\n";
    text +=
        "    parallel --joblog joblog.tsv --resume --resume-failed --sshloginfile machines.txt "
        "\\\n";
    text += "        --workdir \"$PWD\" --env OVRI \\\n";
    text += "        " + shell_word("\"$OVRI\" " + followed(work.call("{}"), work.tolerated)) +
            " || true\n";
    // What could not be completed shows in what is merged and in its status.
    text += "\"$OVRI\" " + work.collect + "\n";
    return text;
}

constexpr const char* kMachines =
    "# One machine a line, as for ssh; \":\" is this one, \"4/name\" takes four jobs at a time.\n"
    "# All of them see this folder and the plan under the same path.\n"
    ":\n";

std::string slurm_array(const EngineWork& work) {
    const int tasks = std::min(work.count, kMostTasks);
    const int calls_a_task = (work.count + tasks - 1) / tasks;
    const auto minutes = static_cast<long>(work.minutes * calls_a_task);
    const auto megabytes = static_cast<long>(std::ceil(2.0 * work.bytes / 1e6 / 100.0) * 100.0);
    std::string text = fmt::format(
        "#!/bin/sh\n#SBATCH --job-name=ovri\n#SBATCH --array=1-{}\n#SBATCH --cpus-per-task={}\n"
        "#SBATCH --mem={}M\n{}#SBATCH --output=logs/%A_%a.txt\n",
        tasks, work.threads, megabytes,
        minutes > 0 ? fmt::format("#SBATCH --time={}\n", minutes) : "");
    text += fmt::format("# Task K of {0} does the {1}s K, K + {0} and so on up to {2}. {3}\n",
                        tasks, work.unit, work.count,
                        minutes > 0
                            ? fmt::format("Time and memory are estimates\n# from {}, with room; "
                                          "submit.sh passes its words on to sbatch, whose --time "
                                          "goes first.",
                                          the(work.of))
                            : "Memory is an\n# estimate, time is left to the "
                              "cluster; submit.sh passes its words on to sbatch: --time=60");
    text += fmt::format(
        "status=0\n{0}=$SLURM_ARRAY_TASK_ID\nwhile [ \"${0}\" -le {1} ]; do\n"
        "    \"${{OVRI:-ovri}}\" {2} || status=$?\n"
        "    {0}=$(({0} + {3}))\ndone\nexit $status\n",
        work.unit, work.count,
        followed(work.call(fmt::format("\"${}\"", work.unit)), work.tolerated), tasks);
    return text;
}

std::string slurm_submit(const EngineWork& work) {
    std::string text = script_head(
        fmt::format("Submits the {} as an array, and the merging of their results behind\n"
                    "# it. Words behind the script's name go to sbatch: ./submit.sh "
                    "--partition=short",
                    work.unit == std::string("job") ? "plan's jobs" : "parts"));
    text += "mkdir -p logs\n";
    text += "array=$(sbatch --parsable \"$@\" array.sh)\narray=${array%%;*}\n";
    text +=
        "sbatch --parsable \"$@\" --dependency=\"afterany:$array\" --job-name=ovri-collect \\\n";
    // Where the time of a piece is left to the cluster, that of the merging is too.
    text += fmt::format("    --output=logs/collect.txt {}collect.sh\n",
                        work.minutes > 0.0 ? "--time=60 " : "");
    return text;
}

std::string slurm_collect(const EngineWork& work) {
    return "#!/bin/sh\n\"${OVRI:-ovri}\" " + followed(work.collect, work.tolerated) + "\n";
}

struct EmittedFile {
    std::string name;
    std::string text;
    bool program = false;  // may be executed
};

std::vector<EmittedFile> emitted_files(Engine engine, const EngineWork& work) {
    std::vector<EmittedFile> files = {{work.list_file, work.list, false}};
    switch (engine) {
        case Engine::slurm:
            files.push_back({"array.sh", slurm_array(work), true});
            files.push_back({"collect.sh", slurm_collect(work), true});
            files.push_back({"submit.sh", slurm_submit(work), true});
            break;
        case Engine::parallel:
            files.push_back({"machines.txt", kMachines, false});
            files.push_back({"run.sh", parallel_script(work), true});
            break;
        case Engine::make:
            files.push_back({"Makefile", makefile(work), false});
            break;
    }
    return files;
}

}  // namespace

std::optional<Engine> engine_of(const std::string& name) {
    const auto place = std::find_if(kEngines.begin(), kEngines.end(),
                                    [&name](const EngineName& each) { return each.name == name; });
    return place != kEngines.end() ? std::optional(place->engine) : std::nullopt;
}

int write_engine(Engine engine, const EngineWork& work, const std::string& directory) {
    namespace fs = std::filesystem;
    for (const EmittedFile& file : emitted_files(engine, work)) {
        const std::string path = directory + "/" + file.name;
        if (!replace_file(path, file.text)) {
            print(stderr, "ovri: {} could not be written\n", path);
            return kNotCompleted;
        }
        std::error_code problem;
        if (file.program) {
            fs::permissions(native_path(path),
                            fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                            fs::perm_options::add, problem);
        }
    }
    print(stdout, "{} {}s: cd {} && {}\n", work.count, work.unit, shell_word(directory),
          row_of(engine).command);
    return kDone;
}
