#include "commands/model_options.h"

#include <algorithm>
#include <filesystem>

#include "base/native_path.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "terminal/print.h"

namespace {

std::string stem_of(const std::string& path) {
    const std::u8string stem = native_path(path).stem().u8string();
    return {stem.begin(), stem.end()};
}

// Start and fixed values of an effect that both lists have.
void keep_values(const StudyModel& from, StudyModel& to) {
    for (StudyEffect& effect : to.effects) {
        const auto place = std::find_if(
            from.effects.begin(), from.effects.end(), [&effect](const StudyEffect& each) {
                return effects_match(each.expression, effect.expression);
            });
        if (place != from.effects.end()) {
            effect.start = place->start;
            effect.fixed = place->fixed;
        }
    }
}

}  // namespace

void add_model(CLI::App& app, ModelOptions& options, const std::string& word) {
    add_word(app, word, options.model, "The model file, or - for standard input.");
    add_data(app, options);
    add_number(app, "--seed", options.seed,
               "Draw from seed N. Without it one is chosen; it is always shown and recorded.");
    add_threads(app, options.threads);
}

void add_data(CLI::App& app, ModelOptions& options) {
    add_text(app, "--network", options.network, "FILE",
             "The network, in place of the model file's or without one.");
    add_text(app, "--nodes", options.nodes, "FILE", "The actors and their attributes.");
    add_text(
        app, "--effects", options.effects, "LIST",
        "The model's effects, separated by commas: edge,AT(2). Parentheses need quotes in most "
        "shells.");
    add_direction(app, options.directed, options.undirected);
    add_threshold(app, options.threshold);
}

void add_direction(CLI::App& app, bool& directed, bool& undirected) {
    CLI::Option& option =
        add_flag(app, "--directed", directed, "The network's ties have a direction.");
    exclude(add_flag(app, "--undirected", undirected, "They have none."), option);
}

std::string model_mistake(const ModelOptions& options) {
    if (options.model.empty() && options.network.empty()) {
        return "a model is missing: name a model file, or --network FILE and --effects LIST";
    }
    if (options.model.empty() && options.effects.empty()) {
        return "`--effects` is missing: name the model's effects, such as --effects 'edge,AT(2)'";
    }
    return "";
}

int tell_misunderstood(const std::string& mistake) {
    print(stderr, "ovri: {}\n", mistake);
    return kNotUnderstood;
}

ModelFile with_options(ModelFile model, const ModelOptions& options) {
    if (!options.network.empty()) {
        model.network.file = options.network;
        model.network.options.format.reset();
        model.places.erase("network.file");
    }
    if (!options.nodes.empty()) {
        model.network.nodes = options.nodes;
        model.places.erase("network.nodes");
    }
    if (options.directed || options.undirected) {
        model.network.options.directed = options.directed;
    }
    if (options.threshold) {
        model.network.options.threshold = options.threshold;
    }
    if (!options.effects.empty()) {
        const StudyModel written = std::move(model.model);
        model.model = {};
        model.effect_places.clear();
        add_effects(options.effects, model);
        keep_values(written, model.model);
    }
    if (options.seed) {
        model.settings.run.seed = options.seed;
    }
    if (options.threads) {
        model.settings.run.threads = static_cast<int>(*options.threads);
    }
    return model;
}

ModelFile model_of(const ModelOptions& options) {
    return with_options(options.model.empty() ? ModelFile{} : read_model_file(options.model),
                        options);
}

std::string model_name(const ModelOptions& options) {
    const std::string& path = options.model.empty() ? options.network : options.model;
    return path == "-" ? "model" : stem_of(path);
}

std::string shell_word(const std::string& word) {
    const bool plain =
        !word.empty() && std::all_of(word.begin(), word.end(), [](unsigned char each) {
            return std::isalnum(each) != 0 || each >= 0x80 ||
                   std::string("-_./,:=@%+").find(static_cast<char>(each)) != std::string::npos;
        });
    if (plain) {
        return word;
    }
    std::string quoted = "'";
    for (const char each : word) {
        quoted += each == '\'' ? std::string("'\\''") : std::string(1, each);
    }
    return quoted + "'";
}

std::string model_words(const ModelOptions& options) {
    std::string words = options.model.empty() ? "" : " " + shell_word(options.model);
    words += options.network.empty() ? "" : " --network " + shell_word(options.network);
    words += options.nodes.empty() ? "" : " --nodes " + shell_word(options.nodes);
    words += options.directed ? " --directed" : options.undirected ? " --undirected" : "";
    words += options.threshold ? " --threshold " + number_text(*options.threshold) : "";
    return words.empty() ? words : words.substr(1);
}
