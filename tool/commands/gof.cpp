#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>

#include "base/native_path.h"
#include "commands/command_line.h"
#include "commands/commands.h"
#include "commands/gof_source.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/results_folder.h"
#include "commands/results_model.h"
#include "commands/run_log.h"
#include "commands/study_input.h"
#include "formats/model_writer.h"
#include "formats/text_file.h"
#include "show/gof_document.h"
#include "show/gof_table.h"
#include "show/result_json.h"
#include "terminal/aside.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/progress.h"

namespace {

struct GofOptions {
    ModelOptions model;
    FolderOptions folder;
    std::optional<std::uint32_t> samples;
    std::optional<std::uint32_t> burn_in;
    std::optional<std::uint32_t> interval;
    bool bayesian = false;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

// Every effect of the model is held at a value: there is nothing to estimate.
bool has_all_values(const StudyModel& model) {
    return !model.effects.empty() &&
           std::all_of(model.effects.begin(), model.effects.end(),
                       [](const StudyEffect& effect) { return effect.fixed.has_value(); });
}

// The options stand in place of what the model says, from here on.
void take_options(const GofOptions& options, StudyInput& input) {
    StudySampling& sampling = input.files.study.settings.gof;
    sampling.samples = static_cast<int>(options.samples.value_or(sampling.samples));
    sampling.burn_in = options.burn_in.value_or(sampling.burn_in);
    sampling.interval = options.interval.value_or(sampling.interval);
}

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

std::optional<StudyGof> perform(const Tested& tested, const GofSettings& settings,
                                bool with_progress) {
    RunProgress progress;
    const InterruptScope interrupt(progress.stop);
    std::optional<ProgressDisplay> display;
    if (with_progress) {
        display.emplace(progress, stderr);
    }
    try {
        return study_gof(tested.input.files.study, tested.input.resolved, tested.parameters,
                         settings, progress);
    } catch (const RunStopped&) {
        return std::nullopt;
    }
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

// Compares and writes into a folder that is there. The seed is settled and the options are taken.
int compare(const Tested& tested, const GofOptions& options, const std::string& directory) {
    const auto begin = std::chrono::steady_clock::now();
    const GofSettings settings = settings_of(options, tested);
    const std::optional<StudyGof> found =
        perform(tested, settings, !options.quiet && is_terminal(stderr));
    if (!found) {
        add_to_log(directory + "/run.log",
                   interrupted_line(command_text() + " left nothing") + "\n");
        print(stderr, "ovri: interrupted; {} has no new gof.json\n", directory);
        return kInterrupted;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    GofRecord record;
    record.ovri = OVRI_VERSION;
    record.verdict = tested.verdict;
    record.exit_status = tested.exit_status;
    record.bayesian = options.bayesian;
    record.network = tested.network;
    record.gof = *found;
    record.conclusion = gof_conclusion(record.gof, record.network.directed);
    const std::string log = fmt::format(
        "gof: {}\ngof: {} samples, seed {}, interval {}, {:.0f} proposals, {:.2f} seconds\n"
        "gof: {}\n",
        command_text(), settings.samples, settings.seed, found->interval, found->proposals,
        seconds.count(), record.conclusion);
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

// model.toml of a folder of its own: the parameters are held, so that running it compares the same
// networks again.
void write_held_model(const Tested& tested, ResultsFolder& folder) {
    ModelFile model = settled_model(tested.input);
    for (std::size_t k = 0; k < model.model.effects.size(); ++k) {
        model.model.effects[k].start.reset();
        model.model.effects[k].fixed = tested.parameters[k];
    }
    write_model(std::move(model), tested.input, folder);
}

// Where the comparison of a results folder goes.
enum class GofPlace {
    beside,  // the estimates, into their own folder
    after,   // the estimates, which the same command has made
    apart    // into another folder
};

// What a folder of its own holds before the comparison, and after it.
void begin_folder(const Tested& tested, ResultsFolder& folder) {
    write_held_model(tested, folder);
    folder.write("run.log", RunLog(command_text(), tested.input).text());
}
int finish_folder(const std::string& source, ResultsFolder& folder, int status) {
    Problems problems;
    std::optional<ResultRecord> result = read_result(source, problems);
    if (result && (status == kDone || status == kNotConverged || status == kNotIdentified)) {
        result->command = "gof";
        folder.finish(result_json(*result));
        return folder.failures().empty() ? status : tell_failures(folder);
    }
    return status;
}

int gof_of_folder(const GofOptions& options, const std::string& source, GofPlace place,
                  ResultsFolder* folder) {
    const Screen screen = screen_on(stderr, options.colour);
    Tested tested = tested_folder(options.model, source);
    take_options(options, tested.input);
    if (!tested.input.ok()) {
        tell_problems(tested.input.problems, screen);
        return kErrorsFound;
    }
    if (tested.exit_status != kDone) {
        print(stderr, "{}: the estimation of {} ended {}: its estimates are not to be used\n",
              painted(screen, Colour::yellow, "warning"), source, tested.verdict);
    }
    if (std::any_of(tested.parameters.begin(), tested.parameters.end(),
                    [](double value) { return !std::isfinite(value); })) {
        print(stderr, "ovri: {} has no estimates to simulate at; see `reasons` in {}\n", source,
              source + "/result.json");
        return tested.exit_status != kDone ? tested.exit_status : kErrorsFound;
    }
    settle_seed(tested.input);
    if (place == GofPlace::after &&
        !replace_file(source + "/model.toml", model_text(settled_model(tested.input), source))) {
        print(stderr, "ovri: {}/model.toml could not be written\n", source);
        return kNotCompleted;
    }
    if (place != GofPlace::apart) {
        return compare(tested, options, source);
    }
    begin_folder(tested, *folder);
    if (!folder->failures().empty()) {
        return tell_failures(*folder);
    }
    return finish_folder(source, *folder, compare(tested, options, folder->directory()));
}

// Performs `ovri estimate` with the same words, its table aside.
int estimate_into(const GofOptions& options, const std::string& directory) {
    const ModelOptions& model = options.model;
    std::vector<std::string> words = {"ovri", "estimate", "-o", directory};
    for (const auto& [name, value] :
         {std::pair{"--network", model.network}, std::pair{"--nodes", model.nodes},
          std::pair{"--effects", model.effects},
          std::pair{"--seed", model.seed ? std::to_string(*model.seed) : ""},
          std::pair{"--threshold", model.threshold ? number_text(*model.threshold) : ""},
          std::pair{"--threads", model.threads ? std::to_string(*model.threads) : ""}}) {
        if (!value.empty()) {
            words.insert(words.end(), {name, value});
        }
    }
    for (const auto& [name, wanted] :
         {std::pair{"--directed", model.directed}, std::pair{"--undirected", model.undirected},
          std::pair{"--quiet", options.quiet}}) {
        if (wanted) {
            words.emplace_back(name);
        }
    }
    if (!model.model.empty()) {
        words.insert(words.end(), {"--", model.model});
    }
    std::vector<char*> pointers;
    pointers.reserve(words.size());
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    const OutputAside aside(options.quiet);
    return obey(static_cast<int>(pointers.size()), pointers.data());
}

int gof_of_values(StudyInput input, const GofOptions& options, ResultsFolder& folder) {
    Tested tested;
    tested.input = std::move(input);
    tested.network = result_network(tested.input);
    take_options(options, tested.input);
    const std::uint32_t seed = settle_seed(tested.input);
    for (const StudyEffect& effect : tested.input.files.study.model.effects) {
        tested.parameters.push_back(*effect.fixed);
    }
    write_model(settled_model(tested.input), tested.input, folder);
    folder.write("run.log", RunLog(command_text(), tested.input).text());
    if (!folder.failures().empty()) {
        return tell_failures(folder);
    }
    const int status = compare(tested, options, folder.directory());
    if (status != kDone) {
        return status;
    }
    ResultRecord result;
    result.ovri = OVRI_VERSION;
    result.command = "gof";
    result.network = result_network(tested.input);
    result.seed = seed;
    for (std::size_t k = 0; k < tested.parameters.size(); ++k) {
        ResultEffect effect;
        effect.name = tested.input.resolved.names[k];
        effect.estimate = tested.parameters[k];
        effect.fixed = true;
        judge_effect(effect, false);
        result.effects.push_back(std::move(effect));
    }
    folder.finish(result_json(result));
    return folder.failures().empty() ? kDone : tell_failures(folder);
}

// The seed of the estimation that this command has made: one command, one seed.
std::optional<std::uint32_t> seed_of_folder(const std::string& directory) {
    Problems problems;
    const std::optional<ResultRecord> result = read_result(directory, problems);
    return result ? std::optional(result->seed) : std::nullopt;
}

int gof_of_model(const GofOptions& options) {
    const Screen screen = screen_on(stderr, options.colour);
    StudyInput input = read_study(model_of(options.model));
    constexpr bool kNotesLater = true;  // the estimation tells what was read
    std::optional<ResultsFolder> folder =
        open_results(input, options.folder, model_name(options.model), kNotesLater, screen);
    if (!folder) {
        return kErrorsFound;
    }
    if (has_all_values(input.files.study.model)) {
        return gof_of_values(std::move(input), options, *folder);
    }
    if (!options.quiet) {
        print(stderr, "{} has no estimates yet: estimating into {} first\n",
              options.model.model.empty() ? "the model" : options.model.model, folder->directory());
    }
    const int status = estimate_into(options, folder->directory());
    if (status != kDone && status != kNotConverged && status != kNotIdentified) {
        std::error_code problem;
        std::filesystem::remove(native_path(folder->directory()), problem);  // only an empty one
        return status;
    }
    GofOptions rest = options;
    rest.model = {};
    rest.model.model = folder->directory();
    rest.model.threads = options.model.threads;
    rest.model.seed = seed_of_folder(folder->directory());
    return gof_of_folder(rest, folder->directory(), GofPlace::after, nullptr);
}

int gof(const GofOptions& options) {
    if (const std::string mistake = model_mistake(options.model); !mistake.empty()) {
        print(stderr, "ovri: {}\n", mistake);
        return kNotUnderstood;
    }
    outlive_failed_writes();
    if (!names_folder(options.model.model)) {
        return gof_of_model(options);
    }
    const std::string source = folder_word(options.model.model);
    if (options.folder.directory.empty()) {
        return tell_existing({source + "/gof.json", source + "/gof.csv"}, options.folder.overwrite,
                             "add --overwrite, or name another folder by -o")
                   ? kErrorsFound
                   : gof_of_folder(options, source, GofPlace::beside, nullptr);
    }
    FolderOptions wanted = options.folder;
    wanted.inputs = {source + "/result.json"};
    ResultsFolder folder(wanted, source);
    if (!folder.mistake().empty()) {
        print(stderr, "ovri: {}\n", folder.mistake());
        return kErrorsFound;
    }
    return gof_of_folder(options, source, GofPlace::apart, &folder);
}

std::function<int()> declare_gof(CLI::App& app) {
    const auto options = std::make_shared<GofOptions>();
    add_model(app, options->model, "MODEL");
    add_number(app, "--samples", options->samples, "Compare with N networks; 1000 by default.", 2);
    add_number(app, "--burn-in", options->burn_in, "Proposals before a chain's first network.");
    add_number(app, "--interval", options->interval, "Proposals from one network to the next.");
    add_flag(app, "--bayesian", options->bayesian,
             "Draw the parameters of each network around the estimates, by their covariance.");
    add_folder(app, options->folder);
    add_forms(app, options->json, options->csv, "gof.json", "gof.csv");
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return gof(*options); };
}

}  // namespace

extern const Command kGofCommand = {
    .name = "gof",
    .summary = "compare the observed network with networks of the model",
    .examples = R"(
  ovri gof karate.results
  ovri gof karate.results --samples 5000 --bayesian
  ovri gof karate.toml --seed 1 --json
)",
    .details = R"(
MODEL is a results folder of `ovri estimate`, or a model: that is estimated first,
into a results folder of its own. Networks are simulated at the estimates and
compared with the observed one: every statistic of the model and of effects that the
model leaves out, degrees, shared partners, distances, components, triads, clustering,
and for each attribute who is tied to whom.

Standard output takes what does not fit (a t-ratio above 2 in size, the worst first),
what fits, a line for each distribution and a conclusion. gof.json and gof.csv go into
the results folder, in place of earlier ones only by --overwrite; -o DIR writes them
elsewhere, with the model and its estimates. Without --seed one is chosen: the seed in
the folder is the estimation's.
)",
    .statuses = R"(
Exit status: 0 done, whether the model fits or not; 1 the check found errors; 2 the
command line was not understood; 3 begun and not completed; 4 or 5 done, at estimates
of a run that did not converge; 130 interrupted by Ctrl-C.
)",
    .declare = declare_gof};
