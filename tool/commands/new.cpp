#include <algorithm>
#include <memory>

#include "commands/commands.h"
#include "commands/model_options.h"
#include "commands/new_files.h"
#include "commands/options.h"
#include "commands/study_input.h"
#include "encyclopaedia/effect_entries.h"
#include "formats/model_writer.h"
#include "study/first_models.h"
#include "terminal/print.h"

namespace {

struct NewOptions {
    ModelOptions model;
    std::optional<NetworkFormat> format;
    std::optional<double> threshold;
    std::string out;
    bool overwrite = false;
    bool quiet = false;
    ColourChoice colour = ColourChoice::automatic;
};

// A note as one line of a comment; what a problem has on further lines follows behind it.
std::string comment(const std::string& text) {
    std::string line;
    for (std::size_t k = 0; k < text.size(); ++k) {
        if (text[k] != '\n') {
            line += text[k];
            continue;
        }
        k = std::min(text.find_first_not_of(' ', k + 1), text.size()) - 1;
        line += "; ";
    }
    return "# " + line + "\n";
}

// What was read, at a glance.
std::string head_text(const StudyInput& input, const NetworkLook& look) {
    std::string text = comment("Written by ovri " OVRI_VERSION ". What was read:");
    text += comment("  " + network_summary(input));
    text += comment(fmt::format("  neighbours of an actor: {} to {}, {:.1f} on average",
                                look.least_neighbours, look.most_neighbours, look.mean_neighbours));
    text += comment(fmt::format("  triangles: {}", look.triangles));
    if (input.files.study.network.directed) {
        text += comment(
            fmt::format("  dyads tied both ways: {}, one way: {}", look.mutual, look.asymmetric));
    }
    for (const std::string& note : input.files.notes) {
        text += comment("  " + note);
    }
    return text + "\n";
}

std::string network_section(const StudyInput& input, const std::string& directory) {
    const NetworkSource& source = input.model.network;
    std::string text = "[network]\n";
    if (source.file == "-") {
        text += comment(
            "Standard input: give the network again, as in `ovri estimate MODEL.toml < NETWORK`");
    }
    text += "file = " + toml_text(path_from(directory, source.file)) + "\n";
    if (source.options.format) {
        text += std::string("format = ") + toml_text(network_format_name(*source.options.format)) +
                "\n";
    }
    text +=
        std::string("directed = ") + (input.files.study.network.directed ? "true" : "false") + "\n";
    if (source.options.threshold) {
        text += "threshold = " + number_text(*source.options.threshold) + "\n";
    }
    if (!source.nodes.empty()) {
        text += "nodes = " + toml_text(path_from(directory, source.nodes)) + "\n";
    }
    return text;
}

std::string attributes_section(const Study& study) {
    if (study.attributes.empty()) {
        return "";
    }
    std::string text =
        "\n# The types as they were guessed: binary, continuous or categorical.\n[attributes]\n";
    for (const StudyAttribute& attribute : study.attributes) {
        text += toml_key(attribute.name) + " = " + toml_text(attribute_type_name(attribute.type)) +
                "\n";
    }
    return text;
}

std::string effects_line(const std::vector<std::string>& effects) {
    std::string list;
    for (const std::string& each : effects) {
        list += (list.empty() ? "" : ", ") + toml_text(each);
    }
    return "effects = [" + list + "]\n";
}

// The meanings of the effects, each told once.
std::string meanings(const std::vector<std::string>& effects, bool directed,
                     std::vector<std::string>& told) {
    std::string text;
    for (const std::string& each : effects) {
        const std::string name = parse_effect(each).expression.name;
        const auto entries =
            find_entries(name, directed ? NetworkKind::directed : NetworkKind::undirected);
        if (!entries.empty() && std::find(told.begin(), told.end(), each) == told.end()) {
            told.push_back(each);
            text += comment("  " + each + ": " + entries.front()->facts.meaning);
        }
    }
    return text;
}

std::string model_section(const std::vector<FirstModel>& models, bool directed) {
    std::vector<std::string> told;
    std::string text = "\n[model]\n";
    for (std::size_t k = 0; k < models.size(); ++k) {
        text += k == 1 ? "\n# Others to try, each in place of the line above:\n" : "";
        text += comment((k == 0 ? "To begin with: " : "") + models[k].about);
        text += meanings(models[k].effects, directed, told);
        text += (k == 0 ? "" : "# ") + effects_line(models[k].effects);
    }
    return text;
}

std::string model_file_text(const StudyInput& input, const NetworkLook& look,
                            const std::vector<FirstModel>& models, const std::string& directory) {
    return head_text(input, look) + network_section(input, directory) +
           attributes_section(input.files.study) +
           model_section(models, input.files.study.network.directed) +
           "\n# `ovri effects` explains all effects. Without a seed one is chosen and told.\n"
           "# [run]\n# seed = 1\n";
}

// The data with a guess where the words leave the direction open.
StudyInput read_data(const NewOptions& options) {
    StudyInput input;
    input.model = model_of(options.model);
    NetworkOptions& reading = input.model.network.options;
    reading.guess_direction = true;
    reading.format = options.format;
    reading.threshold = options.threshold;
    input.files = load_study(input.model);
    input.problems = input.files.problems;
    return input;
}

// The directory in which a path stands; empty for the working directory.
std::string directory_of(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

std::vector<FirstModel> models_of(StudyInput& input, const NetworkLook& look) {
    std::vector<FirstModel> models = first_models(input.files.study, look);
    if (models.empty()) {
        const bool none = input.files.study.network.ties.empty();
        input.problems.push_back(
            {.file = input.model.network.file,
             .found = none ? "a network without ties" : "a network in which every tie is there",
             .expected = "ties and gaps",
             .mend = "give another network: from this one no model can be "
                     "estimated"});
    }
    return models;
}

int make_model(const NewOptions& options) {
    const Screen screen = screen_on(stderr, options.colour);
    const std::string path =
        options.out.empty() ? model_name(options.model) + ".toml" : options.out;
    if (tell_existing({path}, options.overwrite)) {
        return kErrorsFound;
    }
    StudyInput input = read_data(options);
    const NetworkLook look = look_at(input.files.study.network);
    const std::vector<FirstModel> models =
        input.ok() ? models_of(input, look) : std::vector<FirstModel>();
    if (!input.ok()) {
        tell_problems(input.problems, screen);
        return kErrorsFound;
    }
    if (!options.quiet) {
        tell_notes(input, screen);
    }
    const int status =
        write_new_files({{path, model_file_text(input, look, models, directory_of(path))}});
    if (status == kDone && path != "-") {
        print(stdout, "{}\n", path);
        if (!options.quiet) {
            print(stderr, "next: ovri estimate {}{}\n", shell_word(path),
                  options.model.network == "-" ? " < NETWORK" : "");
        }
    }
    return status;
}

std::function<int()> declare_new(CLI::App& app) {
    const auto options = std::make_shared<NewOptions>();
    add_needed_word(app, "NETWORK", options->model.network,
                    "The network's file, or - for standard input.");
    add_text(app, "--nodes", options->model.nodes, "FILE", "The actors and their attributes.");
    add_direction(app, options->model.directed, options->model.undirected);
    add_format(app, "--format", options->format, "Format of NETWORK, where it is not seen.");
    add_threshold(app, options->threshold);
    add_text(app, "-o,--output", options->out, "FILE",
             "The model file, in place of NETWORK's name with .toml in the current directory; - "
             "is standard output.");
    add_flag(app, "--overwrite", options->overwrite, "Write the file even if it is there.");
    add_quiet(app, options->quiet);
    add_colour(app, options->colour);
    return [options] { return make_model(*options); };
}

}  // namespace

extern const Command kNewCommand = {.name = "new",
                                    .summary = "write a commented model file for a network",
                                    .examples = R"(
  ovri new karate.csv
  ovri new karate.csv --nodes members.csv --undirected -o karate.toml
  ovri new friends.net -o -
)",
                                    .details = R"(
Looks at the network and the actors' attributes and writes a model file: what
was read, a first model that suits the data, and two others commented out.
`ovri estimate` of it works at once. Effects that these data cannot tell are
left out.

Without a word on direction it is guessed from the ties. The guess is told; an
edge list in which every tie stands once may well be directed.
)",
                                    .statuses = R"(
Exit status: 0 done; 1 the data cannot be read or the file exists, and nothing
was written; 2 the command line was not understood; 3 the file could not be
written.
)",
                                    .declare = declare_new};
