#include "commands/gof_comparison.h"

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>

#include "commands/command_line.h"
#include "commands/commands.h"
#include "commands/gof_parts.h"
#include "commands/new_files.h"
#include "commands/run_log.h"
#include "formats/text_file.h"
#include "show/gof_document.h"
#include "show/gof_table.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/watched.h"

namespace {

GofSettings settings_of(const GofOptions& options, const Tested& tested) {
    const StudySettings& written = tested.input.files.study.settings;
    GofSettings settings;
    settings.samples = written.gof.samples;
    settings.burn_in = written.gof.burn_in;
    settings.interval = written.gof.interval;
    settings.threads = written.run.threads;
    settings.seed = *written.run.seed;
    if (options.bayesian) {
        settings.covariance = tested.covariance;
    }
    return settings;
}

// Adds lines to a folder's run.log.
bool add_to_log(const std::string& path, const std::string& lines) {
    const TextFile log = read_text_file(path);
    return replace_file(path, log.ok() ? log.text + lines : lines);
}

void show(const GofRecord& record, const GofOptions& options, const std::string& directory) {
    if (options.json) {
        print(stdout, "{}", gof_json(record));
        return;
    }
    if (options.csv) {
        print(stdout, "{}", gof_csv(record));
        return;
    }
    if (record.exit_status != kDone) {
        std::string name = record.verdict;
        std::replace(name.begin(), name.end(), '_', ' ');
        print(stdout, "{}: these networks are simulated at estimates that are not to be used\n\n",
              painted(screen_on(stdout, options.colour), Colour::red, name));
    }
    print(stdout, "{}\n{}{}, seed {}\nresults: {}\n", gof_table(record),
          counted(record.gof.samples, "network"),
          record.bayesian ? " at parameters drawn around the estimates" : "", record.gof.seed,
          directory);
}

FoundGof found_whole(const Tested& tested, const GofSettings& settings, bool with_progress,
                     const std::string& directory) {
    FoundGof found;
    const bool whole = watched(with_progress, [&](RunProgress& progress) {
        found.gof = study_gof(tested.input.files.study, tested.input.resolved, tested.parameters,
                              settings, progress);
    });
    if (!whole) {
        add_to_log(directory + "/run.log",
                   interrupted_line(command_text() + " left nothing") + "\n");
        print(stderr, "ovri: interrupted; {} has no new gof.json\n", directory);
        found.status = kInterrupted;
    }
    return found;
}

}  // namespace

void take_options(const GofOptions& options, StudyInput& input) {
    StudySampling& sampling = input.files.study.settings.gof;
    sampling.samples = static_cast<int>(options.samples.value_or(sampling.samples));
    sampling.burn_in = options.burn_in.value_or(sampling.burn_in);
    sampling.interval = options.interval.value_or(sampling.interval);
}

FoundGof find_gof(const Tested& tested, const GofOptions& options, const std::string& directory,
                  ResultsFolder* own) {
    const auto begin = std::chrono::steady_clock::now();
    const GofSettings settings = settings_of(options, tested);
    const bool with_progress = !options.quiet && is_terminal(stderr);
    FoundGof found;
    if (options.parts.divided()) {
        DividedGof divided(tested, settings, with_progress);
        const PartRun run = {options.parts, options.folder.overwrite, options.quiet};
        if (const auto status = divided.run(directory, run, own)) {
            found.status = *status;
            return found;
        }
        found.gof = divided.comparison();
    } else {
        found = found_whole(tested, settings, with_progress, directory);
    }
    found.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    return found;
}

int write_gof(const Tested& tested, const GofOptions& options, const std::string& directory,
              const FoundGof& found) {
    GofRecord record;
    record.ovri = OVRI_VERSION;
    record.verdict = tested.verdict;
    record.exit_status = tested.exit_status;
    record.bayesian = options.bayesian;
    record.network = tested.network;
    record.gof = *found.gof;
    record.conclusion = gof_conclusion(record.gof, record.network.directed);
    const std::string log = fmt::format(
        "gof: {}\ngof: {} samples, seed {}, interval {}, {:.0f} proposals, {:.2f} seconds\n"
        "gof: {}\n",
        command_text(), record.gof.samples, record.gof.seed, record.gof.interval,
        record.gof.proposals, found.seconds, record.conclusion);
    for (const auto& [file, written] :
         {std::pair{"gof.json", replace_file(directory + "/gof.json", gof_json(record))},
          std::pair{"gof.csv", replace_file(directory + "/gof.csv", gof_csv(record))},
          std::pair{"run.log", add_to_log(directory + "/run.log", log)}}) {
        if (!written) {
            print(stderr, "ovri: {}/{} could not be written\n", directory, file);
            return kNotCompleted;
        }
    }
    show(record, options, directory);
    if (lost_output(stdout)) {
        print(stderr, "ovri: standard output could not be written\n");
        return kNotCompleted;
    }
    return record.exit_status;
}
