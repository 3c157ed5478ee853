// MODEL, or the same things as options: what every command that takes a model understands.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "formats/model_file.h"

namespace CLI {
class App;
}

struct ModelOptions {
    std::string model;  // a model file, "-" for standard input; empty without
    std::string network;
    std::string nodes;
    std::string effects;
    bool directed = false;  // at most one of the two is set
    bool undirected = false;
    std::optional<double> threshold;
    std::optional<std::uint32_t> seed;
    std::optional<std::uint32_t> threads;
};

// `word` is what the help calls the model: "MODEL".
void add_model(CLI::App& app, ModelOptions& options, const std::string& word);

// The options of add_model that name data and effects: what may stand in place of a model file.
void add_data(CLI::App& app, ModelOptions& options);

// --directed and --undirected.
void add_direction(CLI::App& app, bool& directed, bool& undirected);

// What the words leave out or say twice; empty when they name a model.
std::string model_mistake(const ModelOptions& options);

// Tells what is wrong with the words of a command; the exit status of that.
int tell_misunderstood(const std::string& mistake);

// The model file with what the options say in its place. Effects of the options keep the start and
// fixed values that the file has for them.
ModelFile model_of(const ModelOptions& options);
ModelFile with_options(ModelFile model, const ModelOptions& options);

// How results of the model are called: the file's name without extension.
std::string model_name(const ModelOptions& options);

// "karate.toml" or "--network karate.csv --nodes members.csv --undirected": the words, fit to be
// pasted into a shell, but for effects and seed.
std::string model_words(const ModelOptions& options);

// A word as a shell takes it: in quotation marks where it needs them.
std::string shell_word(const std::string& word);
