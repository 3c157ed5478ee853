// A study as the files of a host's run, and back.
//
// Both ways make texts and write nothing. The way there and back asks for the same run: the same
// output files, byte for byte.
#pragma once

#include <string>
#include <vector>

#include "formats/study_files.h"
#include "run/setup_file.h"

struct TextPart {
    std::string path;
    std::string text;
};

// Files to write, the last one the setup file or model file itself.
struct HostFiles {
    std::vector<TextPart> files;
    std::vector<std::string> notes;
    Problems problems;
    bool ok() const { return problems.empty(); }
};

// The setup file at `path` of a study that was read and resolved without problems, with its data
// files beside it: PATH's name with _network.txt, _actors.txt, _binary.txt, ... Every attribute and
// covariate goes along, whether the model uses it or not. Where the settings leave burn-in and
// interval open they are chosen as a simulation of the study chooses them. Problems: what no setup
// file can say, such as a parameter that is held in an estimation.
HostFiles setup_of_study(const ModelFile& model, const Study& study, const StudySelection& resolved,
                         const std::string& path);

// The model file at `path` of a setup file that was read as meant, with its data files beside it:
// PATH's name with _network.csv, _nodes.csv, ... Actors are called as in the file of the setup
// file's name with _actors.txt, which the way there leaves, else by their numbers. Problems: what
// no model file can say, such as a missing value of a coded attribute.
HostFiles model_of_setup(const SetupFile& setup, const std::string& setup_path,
                         const std::string& path);
