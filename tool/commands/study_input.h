// A model with its data, read and found sound, before a command begins.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/results_folder.h"
#include "formats/study_files.h"
#include "show/result_record.h"
#include "terminal/terminal.h"

struct StudyInput {
    ModelFile model;
    StudyFiles files;
    StudySelection resolved;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// Reads all that the model names and looks up its effects.
StudyInput read_study(ModelFile model);

// The same with the problems that an estimation of the model has before it begins.
StudyInput read_study_to_estimate(ModelFile model);

// "34 actors, 78 ties, 2 without ties, density 0.1390, undirected".
std::string network_summary(const StudyInput& input);

// The files that the model and its data were read from.
std::vector<std::string> files_of(const ModelFile& model);

// Tells what was read and guessed, and what is wrong with it.
void tell_notes(const StudyInput& input, const Screen& out);
void tell_problems(const Problems& problems, const Screen& out);

// The folder for the results of a run with this input, once what is wrong with either has been
// told, and what was read unless `quiet`; none where something is wrong.
std::optional<ResultsFolder> open_results(const StudyInput& input, FolderOptions options,
                                          const std::string& name, bool quiet, const Screen& out);

// The seed of the settings; where there is none, one is chosen and becomes theirs.
std::uint32_t settle_seed(StudyInput& input);

// The model with all that was left open as it was found: seed, direction, format, the types of the
// attributes that were read. Running it gives the same numbers.
ModelFile settled_model(const StudyInput& input);

// Writes model.toml of a results folder: the settled model as it was run. A network that came from
// standard input is kept beside it, so that running it again needs nothing else.
void write_model(ModelFile settled, const StudyInput& input, ResultsFolder& folder);

ResultNetwork result_network(const StudyInput& input);
