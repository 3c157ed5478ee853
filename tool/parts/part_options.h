// The options by which a run is divided among parts that are carried out apart.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "commands/results_folder.h"
#include "commands/study_input.h"

namespace CLI {
class App;
}

struct PartOptions {
    std::optional<std::uint32_t> parts;  // how many; none for a run that is not divided
    std::optional<std::uint32_t> part;   // the one to be carried out, from 1
    bool collect = false;                // carry out none, merge those that are there
    std::string engine;                  // carry out none, write what the engine needs; or empty

    bool divided() const { return parts.has_value(); }
    // Whether the run may be one of several commands, which have to know the seed.
    bool apart() const { return part || collect; }
};

// `pieces` are what the run is divided into: "networks".
void add_parts(CLI::App& app, PartOptions& options, const std::string& pieces);

// What is wrong with the words; empty when nothing is.
std::string part_mistake(const PartOptions& options);

// The same once the model is read and it is known how many pieces there are.
std::string part_mistake(const PartOptions& options, int pieces, const StudyInput& input);

// The folder of a divided run: it is taken up if the seed is known, and cleared only for all parts.
FolderOptions folder_of(FolderOptions folder, const PartOptions& options, bool seed);
