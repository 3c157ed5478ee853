#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/native_path.h"
#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/options.h"
#include "commands/results_folder.h"
#include "commands/run_log.h"
#include "commands/study_input.h"
#include "formats/network_writer.h"
#include "formats/text_file.h"
#include "show/result_csv.h"
#include "show/result_json.h"
#include "show/result_table.h"
#include "study/study_simulate.h"
#include "terminal/interrupt.h"
#include "terminal/print.h"
#include "terminal/progress.h"

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
};

// What was drawn so far, in the order of the study's effects.
struct Drawn {
    std::string rows;  // of sample.csv
    std::vector<double> sums;
    std::vector<double> squares;  // of deviations from the observed statistics
    StudySimulation simulation;
    bool interrupted = false;
};

const char* extension_of(NetworkFormat format) {
    switch (format) {
        case NetworkFormat::edge_list:
            return "csv";
        case NetworkFormat::matrix:
            return "txt";
        case NetworkFormat::pajek:
            return "net";
        case NetworkFormat::graphml:
            return "graphml";
        case NetworkFormat::gml:
            return "gml";
        case NetworkFormat::dl:
            return "dl";
        case NetworkFormat::dot:
            break;
    }
    return "dot";
}

void set_value(StudyModel& model, const EffectExpression& expression, double value) {
    for (StudyEffect& effect : model.effects) {
        if (effects_match(effect.expression, expression)) {
            (effect.fixed ? effect.fixed : effect.start) = value;
        }
    }
}

// The estimates of a results folder become the values that its model simulates at.
void take_estimates(const std::string& directory, ModelFile& model) {
    const std::string path = directory + "/result.json";
    const TextFile file = read_text_file(path);
    const auto result = file.ok() ? read_result_json(file.text) : std::nullopt;
    if (!result) {
        model.problems.push_back({.file = path,
                                  .found = file.ok() ? "another document" : "no such file",
                                  .expected = "the result of `ovri estimate`",
                                  .mend = "run `ovri estimate` again: the folder is incomplete"});
        return;
    }
    if (result->exit_status != kDone) {
        print(stderr, "warning: the estimation of {} ended {}: its estimates are not to be used\n",
              directory, result->verdict);
    }
    for (const ResultEffect& effect : result->effects) {
        if (std::isfinite(effect.estimate)) {
            set_value(model.model, parse_effect(effect.name).expression, effect.estimate);
        }
    }
}

// "edge=-2": a problem where it is none.
void take_value(const std::string& text, ModelFile& model) {
    const std::size_t sign = text.find_last_of('=');
    const ParsedEffect effect = parse_effect(without_space(text.substr(0, sign)));
    const std::optional<double> value =
        sign == std::string::npos ? std::nullopt : number_of(text.substr(sign + 1));
    const bool known = std::any_of(
        model.model.effects.begin(), model.model.effects.end(),
        [&](const StudyEffect& each) { return effects_match(each.expression, effect.expression); });
    if (!value || !effect.ok() || !known) {
        model.problems.push_back({.field = "--values",
                                  .found = shown_text(text),
                                  .expected = "EFFECT=VALUE of an effect of the model",
                                  .mend = "write it as in --values 'edge=-2,AT(2)=0.5'"});
        return;
    }
    set_value(model.model, effect.expression, *value);
}

ModelFile read_model(const SimulateOptions& options) {
    const std::string& word = options.model.model;
    const bool folder = !word.empty() && std::filesystem::is_directory(native_path(word));
    ModelOptions words = options.model;
    words.model = folder ? word + "/model.toml" : word;
    ModelFile model = model_of(words);
    if (folder && model.ok()) {
        take_estimates(word, model);
    }
    for (const EffectText& each : split_effects(options.values)) {
        if (!options.values.empty()) {
            take_value(each.text, model);
        }
    }
    StudySampling& sampling = model.settings.simulation;
    sampling.samples = static_cast<int>(options.samples.value_or(sampling.samples));
    sampling.burn_in = options.burn_in.value_or(sampling.burn_in);
    sampling.interval = options.interval.value_or(sampling.interval);
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

std::vector<double> values_of(const StudyInput& input) {
    std::vector<double> values;
    for (const StudyEffect& effect : input.files.study.model.effects) {
        values.push_back(effect.fixed ? *effect.fixed : effect.start.value_or(0.0));
    }
    return values;
}

void take_sample(const StudySample& sample, Drawn& drawn) {
    drawn.rows += sample_row(1, sample.number + 1, sample.statistics);
    drawn.sums.resize(sample.statistics.size(), 0.0);
    drawn.squares.resize(sample.statistics.size(), 0.0);
    for (std::size_t k = 0; k < sample.statistics.size(); ++k) {
        drawn.sums[k] += sample.statistics[k];
        drawn.squares[k] += sample.statistics[k] * sample.statistics[k];
    }
    ++drawn.simulation.samples;
}

Drawn draw(StudyInput& input, std::uint32_t seed, const SimulateOptions& options,
           ResultsFolder& folder) {
    Drawn drawn;
    RunProgress progress;
    const InterruptScope interrupt(progress.stop);
    std::optional<ProgressDisplay> display;
    if (!options.quiet && is_terminal(stderr)) {
        display.emplace(progress, stderr);
    }
    StudyNetwork network = input.files.study.network;
    const NetworkFormat format = options.format.value_or(NetworkFormat::edge_list);
    const auto visit = [&](const StudySample& sample) {
        take_sample(sample, drawn);
        network.ties = sample.ties;
        folder.write(fmt::format("networks/{:04}.{}", sample.number + 1, extension_of(format)),
                     network_text(network, format));
        progress.stop = progress.stop || !folder.failures().empty();
    };
    try {
        drawn.simulation =
            study_simulate(input.files.study, input.resolved, values_of(input),
                           input.files.study.settings.simulation, seed, progress, visit);
    } catch (const RunStopped&) {
        drawn.interrupted = true;
    }
    return drawn;
}

ResultRecord result_of(const Drawn& drawn, const StudyInput& input, std::uint32_t seed) {
    ResultRecord result;
    result.ovri = OVRI_VERSION;
    result.command = "simulate";
    result.network = result_network(input);
    result.seed = seed;
    result.proposals = drawn.simulation.proposals;
    const std::vector<double> values = values_of(input);
    const double samples = drawn.simulation.samples;
    for (std::size_t k = 0; k < values.size() && samples > 0.0; ++k) {
        ResultEffect effect;
        effect.name = input.resolved.names[k];
        effect.estimate = values[k];
        effect.observed = drawn.simulation.observed[k];
        effect.simulated_mean = drawn.sums[k] / samples;
        effect.simulated_sd = std::sqrt(std::max(
            0.0, drawn.squares[k] / samples - effect.simulated_mean * effect.simulated_mean));
        effect.t_ratio = (effect.observed - effect.simulated_mean) / effect.simulated_sd;
        effect.fixed = true;
        judge_effect(effect, false);
        result.effects.push_back(effect);
    }
    return result;
}

void show(const ResultRecord& result, const std::string& sample, const SimulateOptions& options,
          const ResultsFolder& folder) {
    if (options.json) {
        print(stdout, "{}", result_json(result));
    } else if (options.csv) {
        print(stdout, "{}", sample);
    } else {
        print(stdout, "{}\n{} networks, seed {}\nresults: {}\n", simulation_table(result),
              options.samples.value_or(0), result.seed, folder.directory());
    }
}

int run_study(StudyInput& input, const SimulateOptions& options, ResultsFolder& folder) {
    const std::uint32_t seed = settle_seed(input);
    RunLog log("ovri simulate " + model_words(options.model), input);
    write_model(settled_model(input), input, folder);
    if (!folder.make("networks")) {
        return tell_failures(folder);
    }
    const Drawn drawn = draw(input, seed, options, folder);
    const std::string sample = sample_head(input.resolved.names) + drawn.rows;
    log.line(fmt::format("drawn: {} networks, burn-in {}, interval {}", drawn.simulation.samples,
                         drawn.simulation.burn_in, drawn.simulation.interval));
    folder.write("sample.csv", sample);
    folder.write("run.log", log.text());
    if (!folder.failures().empty()) {
        return tell_failures(folder);
    }
    if (drawn.interrupted) {
        return tell_interrupted(folder);
    }
    const ResultRecord result = result_of(drawn, input, seed);
    folder.finish(result_json(result));
    SimulateOptions shown = options;
    shown.samples = static_cast<std::uint32_t>(drawn.simulation.samples);
    show(result, sample, shown, folder);
    return !folder.failures().empty() || lost_output(stdout) ? tell_failures(folder) : kDone;
}

std::string name_of(const SimulateOptions& options) {
    ModelOptions words = options.model;
    while (!words.model.empty() && words.model.size() > 1 && words.model.back() == '/') {
        words.model.pop_back();
    }
    return model_name(words);
}

int simulate(const SimulateOptions& options) {
    ModelOptions words = options.model;
    if (const std::string mistake = model_mistake(words); !mistake.empty()) {
        print(stderr, "ovri: {}\n", mistake);
        return kNotUnderstood;
    }
    outlive_failed_writes();
    const Screen screen = screen_on(stderr, options.colour);
    StudyInput input = read_study(read_model(options));
    if (input.ok()) {
        check_values(input);
    }
    if (!input.ok()) {
        tell_problems(input.problems, screen);
        return kErrorsFound;
    }
    if (!options.quiet) {
        tell_notes(input, screen);
    }
    FolderOptions wanted = options.folder;
    wanted.inputs = files_of(input.model);
    ResultsFolder folder(wanted, name_of(options));
    if (!folder.mistake().empty()) {
        print(stderr, "ovri: {}\n", folder.mistake());
        return kErrorsFound;
    }
    return run_study(input, options, folder);
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
    add_forms(app, options->json, options->csv);
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
statistics to sample.csv.

Standard output takes a table of values and simulated statistics; --csv prints
sample.csv in its place.
)",
                                         .statuses = R"(
Exit status: 0 done; 1 the check found errors and nothing was written; 2 the command
line was not understood; 3 begun and not completed; 130 interrupted by Ctrl-C.
)",
                                         .declare = declare_simulate};
