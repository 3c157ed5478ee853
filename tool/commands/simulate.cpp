#include <algorithm>
#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/native_path.h"
#include "commands/command_line.h"
#include "commands/commands.h"
#include "commands/drawn_networks.h"
#include "commands/model_options.h"
#include "commands/options.h"
#include "commands/results_folder.h"
#include "commands/run_log.h"
#include "commands/simulated_values.h"
#include "commands/study_input.h"
#include "formats/network_writer.h"
#include "parts/part_emit.h"
#include "parts/part_run.h"
#include "show/result_csv.h"
#include "show/result_json.h"
#include "show/result_table.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"

namespace {

struct SimulateOptions {
    ModelOptions model;
    FolderOptions folder;
    // Values of the effects in place of the model's: "edge=-2,AT(2)=0.5".
    std::string values;
    std::optional<NetworkFormat> format;  // edge list
    std::optional<std::uint32_t> samples;
    std::optional<std::uint32_t> burn_in;
    std::optional<std::uint32_t> interval;
    bool json = false;
    bool csv = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
    PartOptions parts;
};

ModelFile read_model(const SimulateOptions& options) {
    const std::string& word = options.model.model;
    const bool folder = !word.empty() && std::filesystem::is_directory(native_path(word));
    ModelOptions words = options.model;
    words.model = folder ? word + "/model.toml" : word;
    ModelFile model = model_of(words);
    if (folder && model.ok()) {
        take_estimates(word, model);
        // The estimation's seed is its own.
        model.settings.run.seed = options.model.seed;
    }
    take_values(options.values, model);
    StudySampling& sampling = model.settings.simulation;
    sampling.samples = static_cast<int>(options.samples.value_or(sampling.samples));
    sampling.burn_in = options.burn_in.value_or(sampling.burn_in);
    sampling.interval = options.interval.value_or(sampling.interval);
    model.simulation_format =
        options.format.value_or(model.simulation_format.value_or(NetworkFormat::edge_list));
    return model;
}

// An effect without a value leaves open what to simulate.
void check_values(StudyInput& input) {
    for (std::size_t k = 0; k < input.files.study.model.effects.size(); ++k) {
        const StudyEffect& effect = input.files.study.model.effects[k];
        if (!effect.start && !effect.fixed) {
            input.problems.push_back(
                {.file = input.model.path,
                 .field = "effect `" + input.resolved.names[k] + "`",
                 .found = "no value",
                 .expected = "a value for every effect",
                 .mend = "write `start` under [model] or add --values, or estimate the model and "
                         "simulate its results folder"});
        }
    }
}

// Names that no two actors may share once they are written.
void check_names(StudyInput& input) {
    const NetworkFormat format = *input.model.simulation_format;
    const std::string name = clashing_name(input.files.study.network, format);
    if (!name.empty()) {
        input.problems.push_back(
            {.file = input.model.network.file,
             .field = "actor " + shown_text(name),
             .found = std::string("the name of two actors in the format ") +
                      network_format_name(format) + ", which has no sign for quotation marks",
             .expected = "a name for each actor",
             .mend = "mend the name, or take another format: --format graphml"});
    }
}

std::string sample_of(const StudyInput& input, const DrawnNetworks& drawn) {
    std::string text = sample_head(input.resolved.names);
    int number = 0;
    for (const std::vector<double>& statistics : drawn.statistics) {
        text += sample_row(1, ++number, statistics);
    }
    return text;
}

ResultRecord result_of(const DrawnNetworks& drawn, const StudyInput& input, std::uint32_t seed) {
    ResultRecord result;
    result.ovri = OVRI_VERSION;
    result.command = "simulate";
    result.network = result_network(input);
    result.seed = seed;
    result.proposals = drawn.simulation.proposals;
    const std::vector<double> values = values_of(input);
    const double samples = drawn.simulation.samples;
    for (std::size_t k = 0; k < values.size() && samples > 0.0; ++k) {
        double sum = 0.0;
        double squares = 0.0;
        for (const std::vector<double>& statistics : drawn.statistics) {
            sum += statistics[k];
            squares += statistics[k] * statistics[k];
        }
        ResultEffect effect;
        effect.name = input.resolved.names[k];
        effect.estimate = values[k];
        effect.observed = drawn.simulation.observed[k];
        effect.simulated_mean = sum / samples;
        effect.simulated_sd = std::sqrt(
            std::max(0.0, squares / samples - effect.simulated_mean * effect.simulated_mean));
        effect.t_ratio = (effect.observed - effect.simulated_mean) / effect.simulated_sd;
        effect.fixed = true;
        judge_effect(effect, false);
        result.effects.push_back(effect);
    }
    return result;
}

void show(const ResultRecord& result, int networks, const std::string& sample,
          const SimulateOptions& options, const ResultsFolder& folder) {
    if (options.json) {
        print(stdout, "{}", result_json(result));
    } else if (options.csv) {
        print(stdout, "{}", sample);
    } else {
        print(stdout, "{}\n{}, seed {}\nresults: {}\n", simulation_table(result),
              counted(networks, "network"), result.seed, folder.directory());
    }
}

// What the chain chose becomes the model's, so that model.toml says all.
void settle_sampling(const DrawnNetworks& drawn, StudyInput& input) {
    StudySampling& sampling = input.files.study.settings.simulation;
    sampling.burn_in = drawn.simulation.burn_in;
    sampling.interval = drawn.simulation.interval;
}

// The files about the networks, result.json last, and what standard output takes.
int conclude(const DrawnNetworks& drawn, StudyInput& input, RunLog& log,
             const SimulateOptions& options, ResultsFolder& folder) {
    const std::uint32_t seed = settle_seed(input);
    const std::string sample = sample_of(input, drawn);
    for (const std::string& note : losses(input, drawn, folder)) {
        log.line("warning: " + note);
        if (!options.quiet) {
            print(stderr, "{}: {}\n", folder.path("networks"), note);
        }
    }
    if (drawn.interrupted && folder.failures().empty()) {
        log.line(interrupted_line(counted(drawn.simulation.samples, "network") + " drawn"));
    } else if (!drawn.interrupted) {
        settle_sampling(drawn, input);
        write_model(settled_model(input), input, folder);
        log.line(fmt::format("drawn: {}, seed {}, burn-in {}, interval {}",
                             counted(drawn.simulation.samples, "network"), seed,
                             drawn.simulation.burn_in, drawn.simulation.interval));
    }
    folder.write("sample.csv", sample);
    folder.write("run.log", log.text());
    if (!folder.failures().empty()) {
        return tell_failures(folder);
    }
    if (drawn.interrupted) {
        return tell_interrupted(
            folder, "holds " + counted(drawn.simulation.samples, "network") + " drawn so far");
    }
    const ResultRecord result = result_of(drawn, input, seed);
    folder.finish(result_json(result));
    if (!folder.failures().empty()) {
        return tell_failures(folder);
    }
    show(result, drawn.simulation.samples, sample, options, folder);
    return lost_output(stdout) ? tell_failures(folder) : kDone;
}

bool shows_progress(const SimulateOptions& options) {
    return !options.quiet && is_terminal(stderr);
}

int run_study(StudyInput& input, const SimulateOptions& options, ResultsFolder& folder) {
    const std::uint32_t seed = settle_seed(input);
    RunLog log(command_text(), input);
    write_model(settled_model(input), input, folder);
    folder.write("run.log", log.text());
    if (!folder.make("networks")) {
        return tell_failures(folder);
    }
    const int samples = input.files.study.settings.simulation.samples;
    const DrawnNetworks drawn =
        draw_networks(input, seed, undivided(samples), shows_progress(options), folder);
    return conclude(drawn, input, log, options, folder);
}

int run_divided(StudyInput& input, const SimulateOptions& options, ResultsFolder& folder) {
    const std::uint32_t seed = settle_seed(input);
    RunLog log(command_text(), input);
    const int samples = input.files.study.settings.simulation.samples;
    const PartFiles files(
        folder.directory(),
        divided_run("simulate", samples, static_cast<int>(*options.parts.parts), input));
    DrawnNetworks all;
    const PartCalls calls = {
        .draw =
            [&](const WorkPart& part, nlohmann::ordered_json& records) {
                folder.reopen();
                folder.make("networks");
                const DrawnNetworks drawn =
                    draw_networks(input, seed, part, shows_progress(options), folder);
                if (!folder.failures().empty()) {
                    tell_failures(folder);
                    return PartDrawn::failed;
                }
                records = drawn_json(drawn);
                return drawn.interrupted ? PartDrawn::interrupted : PartDrawn::done;
            },
        .take =
            [&](const nlohmann::ordered_json& records) {
                add_drawn(records, all);
                return std::string();
            }};
    const PartRun run = {options.parts, options.folder.overwrite, options.quiet};
    if (const auto status = run_parts(files, run, calls)) {
        return *status;
    }
    remove_stray_networks(input, samples, folder);
    return conclude(all, input, log, options, folder);
}

std::string name_of(const SimulateOptions& options) {
    ModelOptions words = options.model;
    while (!words.model.empty() && words.model.size() > 1 && words.model.back() == '/') {
        words.model.pop_back();
    }
    return model_name(words);
}

int simulate(const SimulateOptions& options) {
    for (const std::string& mistake : {model_mistake(options.model), part_mistake(options.parts)}) {
        if (!mistake.empty()) {
            return tell_misunderstood(mistake);
        }
    }
    outlive_failed_writes();
    const Screen screen = screen_on(stderr, options.colour);
    StudyInput input = read_study(read_model(options));
    if (input.ok()) {
        check_values(input);
        check_names(input);
    }
    const StudySettings& settings = input.files.study.settings;
    const bool seed = settings.run.seed.has_value();
    if (const std::string mistake = part_mistake(options.parts, settings.simulation.samples, input);
        input.ok() && !mistake.empty()) {
        return tell_misunderstood(mistake);
    }
    std::optional<ResultsFolder> folder =
        open_results(input, folder_of(options.folder, options.parts, seed), name_of(options),
                     options.quiet, screen);
    if (!folder) {
        return kErrorsFound;
    }
    if (!options.parts.engine.empty()) {
        return emit_model("simulate", settings.simulation.samples, input, options.parts, *folder);
    }
    return options.parts.divided() ? run_divided(input, options, *folder)
                                   : run_study(input, options, *folder);
}

std::function<int()> declare_simulate(CLI::App& app) {
    const auto options = std::make_shared<SimulateOptions>();
    add_model(app, options->model, "MODEL");
    add_text(app, "--values", options->values, "LIST",
             "Values of effects, such as 'edge=-2,AT(2)=0.5', in place of the model's.");
    add_number(app, "--samples", options->samples, "Draw N networks; 100 by default.", 1);
    add_number(app, "--burn-in", options->burn_in, "Proposals before the first network.");
    add_number(app, "--interval", options->interval, "Proposals from one network to the next.");
    add_format(app, "--format", options->format, "Format of the networks.");
    add_folder(app, options->folder);
    add_parts(app, options->parts, "networks");
    add_forms(app, options->json, options->csv, "result.json", "sample.csv");
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return simulate(*options); };
}

}  // namespace

extern const Command kSimulateCommand = {.name = "simulate",
                                         .summary = "draw networks of a model",
                                         .examples = R"(
  ovri simulate karate.results
  ovri simulate karate.toml --samples 500 --format graphml
  ovri simulate --network karate.csv --undirected --effects 'edge,AT(2)' \
      --values 'edge=-3,AT(2)=0.5' --seed 1
)",
                                         .details = R"(
MODEL is a model file whose effects have start or fixed values, or a results folder of
`ovri estimate`: then its estimates are the values. The chain begins at the network
that the model names. Networks go to networks/ in the results folder, their
statistics to sample.csv. An edge list leaves out actors without ties: where a network
has some, nodes.csv beside networks/ holds all actors, unless the model has a nodes
file. Without --seed one is chosen: the seed in a results folder is the estimation's.

Standard output takes a table of values and simulated statistics; --csv prints
sample.csv in its place.

--parts N divides the networks among N parts, each drawn by a chain and random
numbers of its own: N is part of what is drawn, as the seed is. --part K, on whatever
machine, leaves its networks and parts/simulate-000K.json; --collect merges all parts
to the same bytes as one run with --parts N alone, which goes on where it was ended.
--emit ENGINE writes the model and what make, GNU parallel or Slurm needs for all of it.
)",
                                         .statuses = R"(
Exit status: 0 done; 1 the check found errors and nothing was written; 2 the command
line was not understood; 3 begun and not completed; 130 interrupted by Ctrl-C.
)",
                                         .declare = declare_simulate};
