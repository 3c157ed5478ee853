// Model files (TOML): where the data are, the model, and settings.
//
// A ModelFile says what a person wrote, with the places of it; nothing but the model file itself
// has been opened. A command line fills the same record from its options.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/host_run.h"
#include "formats/network_file.h"
#include "formats/nodes.h"
#include "study/study.h"

struct FilePlace {
    int line = 0;  // from 1; 0 when it stands in no file
    int column = 0;
};

struct NetworkSource {
    std::string file;
    std::string nodes;  // empty without a nodes file
    NetworkOptions options;
};

struct CovariateSource {
    std::string name;
    std::string file;
    std::optional<double> missing;  // value of the pairs that a list leaves out
};

struct ModelFile {
    std::string path;  // empty for a model of the command line
    NetworkSource network;
    std::vector<ColumnOption> attributes;
    std::vector<CovariateSource> covariates;
    StudyModel model;
    std::string free_dyads;  // empty when every dyad may change
    std::optional<int> max_degree;
    StudySettings settings;
    std::optional<NetworkFormat> simulation_format;  // of networks that are drawn; else edge lists
    std::optional<HostRun> host;                     // what the section [host] says
    // Where keys stand ("network.file", "covariates.distance"), and each effect of the model.
    std::map<std::string, FilePlace> places;
    std::vector<FilePlace> effect_places;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads a model file; "-" is standard input. Paths in the record are as seen from the working
// directory: relative ones start where the model file stands. Problems: what is no TOML, an unknown
// section or key (with the nearest one), a value of another type or out of its range, an effect
// that is none by its form, a start or fixed value of an effect that the model does not have.
ModelFile read_model_file(const std::string& path);

// Without `with_network` the file may leave its network out.
ModelFile read_model_file(const TextFile& file, bool with_network = true);

// Adds an effect to a model, with the place of its text (of the quotation mark, in a file).
void add_effect(std::string_view text, FilePlace at, ModelFile& model);

// Where effects stand that stand in no file.
constexpr const char* kEffectsOption = "--effects";

// Adds the effects of a list such as "edge,AT(2),same(faction)" to a model.
void add_effects(std::string_view list, ModelFile& model);

// The place of a key, {0, 0} when it was not written.
FilePlace place_of(const ModelFile& model, const std::string& key);
