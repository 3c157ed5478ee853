// The files that parts of a run leave in its results folder: parts/simulate-0007.json.
//
// A file holds what its part drew, exactly, and the digest of all that this depends on. It is
// written last, by rename, so that a part is done when its file is there and the digest is that of
// now; whatever else is there is done again.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "commands/study_input.h"
#include "study/work_part.h"

// Whether a folder has a folder of parts, with nothing else in it.
bool holds_parts(const std::string& directory);

// What is divided: which command's run, over which pieces, and what decides its numbers.
struct DividedRun {
    std::string command;  // "simulate", "bootstrap" or "gof"
    int pieces = 0;
    int parts = 0;
    std::string digest;
};
// The digest covers the version, the model with seed and settings, the bytes of what it reads, the
// division, and further numbers.
DividedRun divided_run(const std::string& command, int pieces, int parts, const StudyInput& input,
                       const std::vector<double>& numbers = {});

class PartFiles {
  public:
    PartFiles(const std::string& directory, DividedRun run)
        : folder_(directory + "/parts"), run_(std::move(run)) {}

    int count() const { return run_.parts; }
    WorkPart part(int number) const { return work_part(run_.pieces, run_.parts, number); }
    std::string path(int number) const;
    // Whether there is a file of the part, done for this run or not.
    bool exists(int number) const;

    // The records of a part that is done; false for another. Nothing is thrown.
    bool read(int number, nlohmann::ordered_json& records) const;
    // False when the file could not be written.
    bool write(int number, const nlohmann::ordered_json& records) const;

    // Removes files of parts that the run does not have, as another division has left them.
    void remove_strays() const;

  private:
    std::string folder_;
    DividedRun run_;
};
