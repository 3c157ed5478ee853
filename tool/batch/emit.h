// Numbered work handed to an engine that spreads it over machines: the folder gets the list of the
// work and what that engine reads. Each piece is one call of the tool, their merging another.
#pragma once

#include <functional>
#include <optional>
#include <string>

enum class Engine { slurm, parallel, make };

// "slurm", "parallel", "make".
std::optional<Engine> engine_of(const std::string& name);

// Jobs of a plan, or parts of a run. Calls are words behind the program's name, as a shell takes
// them in the folder.
struct EngineWork {
    const char* unit = "job";  // one of them
    const char* of = "a plan";
    int count = 0;
    std::function<std::string(int number)> name;  // "0001"
    // A table that has the names in its first column, under one row of heads.
    std::string list_file;
    std::string list;
    // Of the piece whose number stands in a shell's words.
    std::function<std::string(const std::string& number)> call;
    std::string collect;
    // Behind a call whose results are there although its status is not 0: "|| [ $? -eq 4 ]".
    std::string tolerated;
    double minutes = 0.0;  // at most, of a piece; 0 leaves the engine's own limit
    double bytes = 0.0;    // of memory
    int threads = 1;
};

// Writes the files into the folder and tells what to type there; the exit status. Scripts call
// $OVRI, or `ovri` where that is not set.
int write_engine(Engine engine, const EngineWork& work, const std::string& directory);
