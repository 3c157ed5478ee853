#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/native_path.h"
#include "commands/command_line.h"
#include "commands/commands.h"
#include "commands/gof_comparison.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/results_folder.h"
#include "commands/results_model.h"
#include "commands/run_log.h"
#include "commands/study_input.h"
#include "formats/model_writer.h"
#include "parts/part_emit.h"
#include "show/result_json.h"
#include "terminal/aside.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"

namespace {

// Every effect of the model is held at a value: there is nothing to estimate.
bool has_all_values(const StudyModel& model) {
    return !model.effects.empty() &&
           std::all_of(model.effects.begin(), model.effects.end(),
                       [](const StudyEffect& effect) { return effect.fixed.has_value(); });
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
bool begin_folder(const Tested& tested, ResultsFolder& folder) {
    write_held_model(tested, folder);
    folder.write("run.log", RunLog(command_text(), tested.input).text());
    return folder.failures().empty();
}
int finish_folder(const std::string& source, ResultsFolder& folder, int status,
                  const PartOptions& parts) {
    Problems problems;
    std::optional<ResultRecord> result = read_result(source, problems);
    if (result && !parts.part &&
        (status == kDone || status == kNotConverged || status == kNotIdentified)) {
        result->command = "gof";
        folder.finish(result_json(*result));
        return folder.failures().empty() ? status : tell_failures(folder);
    }
    return status;
}

// The folder of a comparison that stands apart from the estimates; what is wrong has been told.
std::optional<ResultsFolder> folder_apart(const GofOptions& options, const std::string& source) {
    FolderOptions wanted = folder_of(options.folder, options.parts, options.model.seed.has_value());
    wanted.inputs = {source + "/result.json"};
    ResultsFolder folder(wanted, source);
    if (!folder.mistake().empty()) {
        print(stderr, "ovri: {}\n", folder.mistake());
        return std::nullopt;
    }
    return folder;
}

// Compares a model that is tested, its folder begun before the networks are drawn or, where parts
// of them may be drawn by other commands, once they are there.
int compare(const Tested& tested, const GofOptions& options, const std::string& directory,
            ResultsFolder* own) {
    const bool divided = options.parts.divided();
    if (own != nullptr && !divided && !begin_folder(tested, *own)) {
        return tell_failures(*own);
    }
    const FoundGof found = find_gof(tested, options, directory, own);
    if (!found.gof) {
        return found.status;
    }
    if (own != nullptr && divided && !begin_folder(tested, *own)) {
        return tell_failures(*own);
    }
    return write_gof(tested, options, directory, found);
}

// Parts of the comparison of a results folder are typed as it was: its model and its estimates
// stand there.
int emit_of_folder(const Tested& tested, const GofOptions& options, const std::string& source,
                   GofPlace place) {
    const ModelOptions& model = options.model;
    if (!model.network.empty() || !model.nodes.empty() || !model.effects.empty() ||
        model.directed || model.undirected || model.threshold) {
        return tell_misunderstood(
            "`--emit` of a results folder takes its model as it stands there");
    }
    std::string directory = source;
    if (place == GofPlace::apart) {
        const std::optional<ResultsFolder> folder = folder_apart(options, source);
        if (!folder) {
            return kErrorsFound;
        }
        directory = folder->directory();
    }
    const StudySettings& settings = tested.input.files.study.settings;
    EmittedRun run;
    run.words =
        fmt::format("gof {}{} --seed {} --samples {} --burn-in {} --interval {} --threads {}",
                    shell_word(path_from(directory, source)), options.bayesian ? " --bayesian" : "",
                    *settings.run.seed, settings.gof.samples, settings.gof.burn_in,
                    settings.gof.interval, std::max(1, settings.run.threads));
    run.collect_words = "--overwrite";
    run.folder = place == GofPlace::apart ? "-o ." : "";
    run.pieces = settings.gof.samples;
    return emit_parts(run, tested.input, options.parts, directory);
}

int gof_of_folder(const GofOptions& options, const std::string& source, GofPlace place) {
    const Screen screen = screen_on(stderr, options.colour);
    Tested tested = tested_folder(options.model, source);
    take_options(options, tested.input);
    if (!tested.input.ok()) {
        tell_problems(tested.input.problems, screen);
        return kErrorsFound;
    }
    if (const std::string mistake = part_mistake(
            options.parts, tested.input.files.study.settings.gof.samples, tested.input);
        !mistake.empty()) {
        return tell_misunderstood(mistake);
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
    if (!options.parts.engine.empty()) {
        return emit_of_folder(tested, options, source, place);
    }
    if (place == GofPlace::after &&
        !replace_file(source + "/model.toml", model_text(settled_model(tested.input), source))) {
        print(stderr, "ovri: {}/model.toml could not be written\n", source);
        return kNotCompleted;
    }
    if (place != GofPlace::apart) {
        return compare(tested, options, source, nullptr);
    }
    std::optional<ResultsFolder> folder = folder_apart(options, source);
    return folder ? finish_folder(source, *folder,
                                  compare(tested, options, folder->directory(), &*folder),
                                  options.parts)
                  : kErrorsFound;
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
    if (!options.parts.engine.empty()) {
        return emit_model("gof", tested.input.files.study.settings.gof.samples, tested.input,
                          options.parts, folder);
    }
    const std::uint32_t seed = settle_seed(tested.input);
    for (const StudyEffect& effect : tested.input.files.study.model.effects) {
        tested.parameters.push_back(*effect.fixed);
    }
    const int status = compare(tested, options, folder.directory(), &folder);
    if (status != kDone || options.parts.part) {
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
    const StudySettings& settings = input.files.study.settings;
    const bool seed = settings.run.seed.has_value();
    std::string mistake = part_mistake(
        options.parts, static_cast<int>(options.samples.value_or(settings.gof.samples)), input);
    if (options.parts.divided() && !has_all_values(input.files.study.model)) {
        mistake =
            "`--parts` takes a results folder, or a model whose effects are all held: "
            "estimate it first by `ovri estimate`";
    }
    if (input.ok() && !mistake.empty()) {
        return tell_misunderstood(mistake);
    }
    constexpr bool kNotesLater = true;  // the estimation tells what was read
    std::optional<ResultsFolder> folder =
        open_results(input, folder_of(options.folder, options.parts, seed),
                     model_name(options.model), kNotesLater, screen);
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
    return gof_of_folder(rest, folder->directory(), GofPlace::after);
}

int gof(const GofOptions& options) {
    for (const std::string& mistake : {model_mistake(options.model), part_mistake(options.parts)}) {
        if (!mistake.empty()) {
            return tell_misunderstood(mistake);
        }
    }
    outlive_failed_writes();
    if (!names_folder(options.model.model)) {
        return gof_of_model(options);
    }
    const std::string source = folder_word(options.model.model);
    if (!options.folder.directory.empty()) {
        return gof_of_folder(options, source, GofPlace::apart);
    }
    const bool replaces =
        options.folder.overwrite || options.parts.part || !options.parts.engine.empty();
    return tell_existing({source + "/gof.json", source + "/gof.csv"}, replaces,
                         "add --overwrite, or name another folder by -o")
               ? kErrorsFound
               : gof_of_folder(options, source, GofPlace::beside);
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
    add_parts(app, options->parts, "networks");
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

--parts N divides the networks of a results folder, or of a model whose effects are
all held, among N parts with chains and random numbers of their own: N is part of what
is drawn, as the seed is. --part K, on whatever machine, leaves parts/gof-000K.json;
--collect merges all parts to the same bytes as one run with --parts N alone.
--emit ENGINE writes what make, GNU parallel or Slurm needs for all of it.
)",
    .statuses = R"(
Exit status: 0 done, whether the model fits or not; 1 the check found errors; 2 the
command line was not understood; 3 begun and not completed; 4 or 5 done, at estimates
of a run that did not converge; 130 interrupted by Ctrl-C.
)",
    .declare = declare_gof};
